// Replace all of a frequent identifier (one match per line) beside a plain search over the
// same text, at three sizes so that the growth with the number of matches shows.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "aids/aids_state.h"
#include "aids/text_search.h"
#include "buffer_session.h"
#include "engine/text_store.h"
#include "hdl_text.h"
#include "ratio_reporter.h"

namespace ruvo {
namespace {

// Every line holds the whole word clk once, beside words that only contain it.
std::string ClockedText(int lines) {
    static const char* const block[] = {
        "  process (clk, clk_en) begin",
        "    if rising_edge(clk) then q <= d; end if;",
        "  signal sysclk, clk : std_logic;",
        "  clk_div <= clk_div + 1 when clk = '1';",
    };
    return RepeatLines(block, lines);
}

SearchState ClockSearch() {
    SearchState search;
    search.searchText = "clk";
    search.replaceText = "clock";
    search.wholeWords = true;
    return search;
}

// Every match from the top to the end, found and counted but not changed.
void BM_PlainSearch(benchmark::State& state) {
    const int lines = static_cast<int>(state.range(0));
    BufferSession session;
    session.Open(ClockedText(lines));
    const EditBuffer& buffer = session.Buffer();
    const SearchState search = ClockSearch();
    const TextPos end =
        MakePos(lines - 1, static_cast<int32_t>(std::strlen(buffer.lines.lineText[lines - 1])));
    int matches = 0;
    for (auto _ : state) {
        matches = 0;
        TextPos from = MakePos(0, 0);
        TextPos found;
        while (searchInBuffer(buffer, search.searchText, false, true, from, end, found)) {
            ++matches;
            from = MakePos(found.line, found.column + 1);
        }
        benchmark::DoNotOptimize(matches);
    }
    state.counters["matches"] = matches;
    state.SetComplexityN(lines);
}

// The Replace dialog's run with "Replace all" and no prompt: one undo step per match.
void BM_ReplaceAll(benchmark::State& state) {
    const int lines = static_cast<int>(state.range(0));
    const std::string text = ClockedText(lines);
    SearchState search = ClockSearch();
    search.replaceMode = true;
    search.replaceAll = true;
    int steps = 0;
    for (auto _ : state) {
        state.PauseTiming();
        BufferSession session;
        session.Open(text);
        state.ResumeTiming();
        RunSearch(session.Buffer(), search);
        state.PauseTiming();
        steps = session.buffer->LoggedTransactions();
        session.buffer.reset();
        state.ResumeTiming();
    }
    if (steps != lines) state.SkipWithError("not every match was replaced once");
    state.counters["matches"] = steps;
    state.SetComplexityN(lines);
}

BENCHMARK(BM_PlainSearch)
    ->Arg(25000)
    ->Arg(50000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(BM_ReplaceAll)
    ->Arg(25000)
    ->Arg(50000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

} // namespace
} // namespace ruvo

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    ruvo::RatioReporter reporter(std::vector<std::pair<std::string, std::string>>{
        {"BM_ReplaceAll/100000", "BM_PlainSearch/100000"}});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
