// Reading 100,000 lines of tool output with the shipped message formats ("auto" and one format),
// beside a plain pass over the same lines, with the ratios printed at the end.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "editor_fixture.h"
#include "engine/editor.h"
#include "fake_host.h"
#include "ratio_reporter.h"
#include "tools/message_formats.h"

namespace ruvo {
namespace {

constexpr int OutputLines = 100000;

// Lines of other tools and of long runs: progress, paths with blanks, run-time reports.
const char* const WrittenLines[] = {
    "INFO: [VRFC 10-311] analyzing module alu_core",
    "INFO: [Synth 8-6157] synthesizing module 'top' [C:/Users/dev/My Project/src/top.v:3]",
    "ERROR: [VRFC 10-4982] syntax error near 'line' [C:/Users/dev/My Project/src/tb.v:204]",
    "WARNING: [VRFC 10-3091] actual bit length 8 differs from formal bit length 4 [C:/p/a.v:9]",
    "# ** Error: C:/proj/tb.vhd(41): (vcom-1272) Length of expected is 0; length of actual is 8.",
    "# ** Error (suppressible): (vlog-13069) C:/proj/a.v(12): near \"endmodule\": syntax error",
    "# -- Compiling architecture rtl of alu",
    "#    Time: 5 ns  Iteration: 0  Process: /tb/p File: C:/proj/tb.vhd Line: 20",
    "Info (12021): Found 1 design units, including 1 entities, in source file top.v",
    "    Info (12023): Found entity 1: top File: C:/proj/top.v Line: 1",
    "Error (10161): Verilog HDL error at top.v(7): object \"pcmux\" is not declared File: "
    "/proj/top.v Line: 7",
    "C:\\my proj\\tb.vhd:20:5:@10ns:(assertion failure): done",
    "VCD info: dumpfile waves.vcd opened for output.",
    "tb.v:15: $finish called at 100 (1s)",
};

std::vector<std::string> OutputPool() {
    std::vector<std::string> pool(std::begin(WrittenLines), std::end(WrittenLines));
    const std::filesystem::path folder = SourcePath("tests/fixtures/compiler-output/outputs");
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);)
            if (!line.starts_with("###")) pool.push_back(line);
    }
    return pool;
}

const std::vector<std::string>& Output() {
    static const std::vector<std::string> lines = [] {
        const std::vector<std::string> pool = OutputPool();
        std::vector<std::string> all;
        for (int i = 0; i < OutputLines; ++i)
            all.push_back(pool[static_cast<size_t>(i) % pool.size()]);
        return all;
    }();
    return lines;
}

const MessageFormats& Formats() {
    static const MessageFormats formats = ReadMessageFormats(SourcePath("config/messages.ini"));
    return formats;
}

// Looks at every byte once: the least any reader of the lines must do.
void PlainPass(benchmark::State& state) {
    for (auto _ : state) {
        long colons = 0;
        for (const std::string& line : Output())
            for (char c : line)
                colons += c == ':';
        benchmark::DoNotOptimize(colons);
    }
    state.SetItemsProcessed(state.iterations() * OutputLines);
}
BENCHMARK(PlainPass)->Unit(benchmark::kMillisecond);

void ReadEveryFormat(benchmark::State& state, const char* name) {
    for (auto _ : state) {
        MessageReader reader(Formats(), name);
        long entries = 0;
        for (const std::string& line : Output())
            entries += reader.Read(line).has_value();
        benchmark::DoNotOptimize(entries);
    }
    state.SetItemsProcessed(state.iterations() * OutputLines);
}
BENCHMARK_CAPTURE(ReadEveryFormat, Auto, "auto")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadEveryFormat, Questa, "Questa")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ruvo

int main(int argc, char** argv) {
    ruvo::FakeHost host;
    auto editor = std::make_unique<ruvo::Editor>(host);
    ruvo::InstallEditor(editor.get());

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    ruvo::RatioReporter reporter(
        {{"ReadEveryFormat/Auto", "PlainPass"}, {"ReadEveryFormat/Questa", "PlainPass"}});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    editor.reset();
    ruvo::InstallEditor(nullptr);
    return 0;
}
