// Costs of the text engine: typing into small and huge buffers, long undo/redo histories,
// the memory of one recorded keystroke, and line edits near the top of a 10,000,000-line buffer
// against the same edits in a 10-line one.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <ctime>
#include <string>

#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/line_list.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "fake_host.h"

namespace ruvo {
namespace {

// A host that does nothing with redraws and command states, so that only the engine is timed
// and nothing accumulates over millions of steps.
class QuietHost : public FakeHost {
  public:
    void EnableCommand(int, bool) override {}
    void RedrawLine(EditBuffer&, int) override {}
    void RedrawWindow(EditBuffer&) override {}
};

struct BenchEditor {
    QuietHost host;
    Editor editor{host};
    BenchEditor() { InstallEditor(&editor); }
    ~BenchEditor() { InstallEditor(nullptr); }
};

BenchEditor& Bench() {
    static BenchEditor bench;
    return bench;
}

// A buffer of lineCount lines of HDL-like text, current, with a fresh log.
class BenchBuffer {
  public:
    explicit BenchBuffer(int lineCount) {
        Bench();
        buffer.lines.growBy = 1000;
        buffer.visibleLines = 40;
        buffer.visibleColumns = 100;
        for (int i = 0; i < lineCount; ++i)
            (void)AppendLine(&buffer.lines, "    signal count_" + std::to_string(i % 1000) +
                                                " : std_logic_vector(7 downto 0);");
        (void)InitTransactionLog(buffer);
        TheEditor().engine.currentBuffer = &buffer;
    }
    ~BenchBuffer() {
        ClearTransactionLog(buffer);
        ClearLineList(&buffer.lines);
        TheEditor().engine.currentBuffer = nullptr;
    }
    EditBuffer buffer;
};

constexpr int TypedPerRun = 10000;
constexpr int LineFill = 200; // typed characters before the line is cleared again
constexpr ScrollTarget Show{ScrollShow, ScrollShow};

void TypeAt(EditBuffer& buffer, TextPos at, char c) {
    const TextPos after = MakePos(at.line, at.column + 1);
    RecordEdit(buffer, at, at, std::string_view(&c, 1), after, Show, after, after);
}

// Types 10,000 characters into the middle line, one transaction each; every LineFill
// characters the typed run is deleted again by one more transaction.
void TypeRun(EditBuffer& buffer) {
    const int32_t line = buffer.lines.lineCount / 2;
    const int32_t from = static_cast<int32_t>(std::strlen(buffer.lines.lineText[line]));
    for (int i = 0; i < TypedPerRun; ++i) {
        const int32_t column = from + i % LineFill;
        TypeAt(buffer, MakePos(line, column), static_cast<char>('a' + i % 26));
        if (i % LineFill == LineFill - 1) {
            const TextPos start = MakePos(line, from);
            RecordEdit(buffer, start, MakePos(line, from + LineFill), "", start, Show, start,
                       start);
        }
    }
}

void BM_Typing(benchmark::State& state) {
    BenchBuffer bench(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        TypeRun(bench.buffer);
        state.PauseTiming();
        ResetTransactionLog(bench.buffer);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * TypedPerRun);
    state.counters["ns_per_char"] =
        benchmark::Counter(static_cast<double>(state.iterations() * TypedPerRun),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_Typing)->Arg(10)->Arg(1000000)->Unit(benchmark::kMillisecond);

// Both buffer sizes timed alternately in one run, so their ratio is directly comparable.
void BM_TypingRatio(benchmark::State& state) {
    BenchBuffer small(10);
    BenchBuffer large(1000000);
    double smallSeconds = 0;
    double largeSeconds = 0;
    auto timed = [](BenchBuffer& bench) {
        TheEditor().engine.currentBuffer = &bench.buffer;
        const auto begin = std::chrono::steady_clock::now();
        TypeRun(bench.buffer);
        const auto end = std::chrono::steady_clock::now();
        ResetTransactionLog(bench.buffer);
        return std::chrono::duration<double>(end - begin).count();
    };
    for (auto _ : state) {
        smallSeconds += timed(small);
        largeSeconds += timed(large);
    }
    const double chars = static_cast<double>(state.iterations()) * TypedPerRun;
    state.counters["small_ns_per_char"] = smallSeconds * 1e9 / chars;
    state.counters["large_ns_per_char"] = largeSeconds * 1e9 / chars;
    state.counters["large_to_small"] = largeSeconds / smallSeconds;
}
BENCHMARK(BM_TypingRatio)->Iterations(20)->Unit(benchmark::kMillisecond);

// 100,000 single-character transactions spread over 1,000 lines, undone and redone.
constexpr int HistoryLength = 100000;

void RecordHistory(EditBuffer& buffer, long& lineBytes) {
    for (int i = 0; i < HistoryLength; ++i) {
        const int32_t line = i % 1000;
        const TextPos at = MakePos(line, static_cast<int32_t>(i / 1000));
        TypeAt(buffer, at, 'x');
        lineBytes += static_cast<long>(std::strlen(buffer.lines.lineText[line])) + 1;
    }
}

void BM_UndoRedoHistory(benchmark::State& state) {
    BenchBuffer bench(1000);
    AllocatorStats& allocator = TheEditor().settings.allocator;
    long lineBytes = 0;
    const long before = allocator.totalBytes;
    RecordHistory(bench.buffer, lineBytes);
    const long recorded = allocator.totalBytes - before;
    for (auto _ : state) {
        for (int i = 0; i < HistoryLength; ++i)
            if (UndoTransaction() != 0) state.SkipWithError("undo refused");
        for (int i = 0; i < HistoryLength; ++i)
            if (RedoTransaction(bench.buffer) != 0) state.SkipWithError("redo refused");
    }
    state.SetItemsProcessed(state.iterations() * 2 * HistoryLength);
    state.counters["ns_per_step"] =
        benchmark::Counter(static_cast<double>(state.iterations() * 2 * HistoryLength),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    // Each record holds "" and "x" with their NULs: 3 bytes of texts.
    constexpr long TextBytes = 3;
    state.counters["bytes_per_txn_total"] = static_cast<double>(recorded) / HistoryLength;
    state.counters["bytes_per_txn_beyond_texts"] =
        static_cast<double>(recorded - lineBytes) / HistoryLength - TextBytes;
}
BENCHMARK(BM_UndoRedoHistory)->Unit(benchmark::kMillisecond);

// A caret move: a record with two empty texts and nothing else.
void BM_CaretMoveMemory(benchmark::State& state) {
    BenchBuffer bench(1000);
    AllocatorStats& allocator = TheEditor().settings.allocator;
    long moves = 0;
    const long before = allocator.totalBytes;
    for (auto _ : state) {
        const TextPos to = MakePos(static_cast<int32_t>(moves % 1000), 3);
        RecordEdit(bench.buffer, {}, {}, "", to, Show, to, to);
        ++moves;
    }
    state.counters["bytes_per_move"] =
        static_cast<double>(allocator.totalBytes - before) / static_cast<double>(moves);
}
BENCHMARK(BM_CaretMoveMemory);

constexpr int HugeLineCount = 10000000;
constexpr int EditsPerBlock = 1000;

double CpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// One edit near the top of a buffer and its inverse, repeated in blocks in a 10-line and a
// 10,000,000-line buffer in turn, so that both undo logs grow from the same heap and pay the
// same for fresh pages. CPU time, so that other programs of a busy machine do not count.
template <typename Edit> void EditNearTopRatio(benchmark::State& state, Edit edit) {
    BenchBuffer small(10);
    BenchBuffer large(HugeLineCount);
    double seconds[2] = {0, 0};
    for (auto _ : state) {
        for (int k = 0; k < 2; ++k) {
            EditBuffer& buffer = k == 0 ? small.buffer : large.buffer;
            TheEditor().engine.currentBuffer = &buffer;
            const double begin = CpuSeconds();
            for (int i = 0; i < EditsPerBlock; ++i)
                edit(buffer);
            seconds[k] += CpuSeconds() - begin;
        }
    }
    if (small.buffer.lines.lineCount != 10 || large.buffer.lines.lineCount != HugeLineCount)
        state.SkipWithError("line count drifted");
    const double edits = static_cast<double>(state.iterations()) * EditsPerBlock;
    state.counters["small_ns"] = seconds[0] * 1e9 / edits;
    state.counters["large_ns"] = seconds[1] * 1e9 / edits;
    state.counters["large_to_small"] = seconds[1] / seconds[0];
}

// A line break inserted near the top of a buffer and joined again: two transactions.
void BM_LineBreakNearTop(benchmark::State& state) {
    EditNearTopRatio(state, [](EditBuffer& buffer) {
        const TextPos at = MakePos(5, 4);
        const TextPos next = MakePos(6, 0);
        RecordEdit(buffer, at, at, "\n", next, Show, next, next);
        RecordEdit(buffer, at, next, "", at, Show, at, at);
    });
}
BENCHMARK(BM_LineBreakNearTop)->Unit(benchmark::kMillisecond);

// A whole new line inserted near the top and deleted again.
void BM_InsertDeleteLineNearTop(benchmark::State& state) {
    EditNearTopRatio(state, [](EditBuffer& buffer) {
        const TextPos at = MakePos(5, 0);
        const TextPos next = MakePos(6, 0);
        RecordEdit(buffer, at, at, "    wait until rising_edge(clk);\n", next, Show, next, next);
        RecordEdit(buffer, at, next, "", at, Show, at, at);
    });
}
BENCHMARK(BM_InsertDeleteLineNearTop)->Unit(benchmark::kMillisecond);

// Deleting the whole text of a huge buffer as one transaction, then undoing it.
void BM_DeleteAllAndUndo(benchmark::State& state) {
    BenchBuffer bench(static_cast<int>(state.range(0)));
    const int32_t lineCount = bench.buffer.lines.lineCount;
    const TextPos end = ClampPos(bench.buffer, lineCount - 1, MaxLineLength);
    for (auto _ : state) {
        RecordEdit(bench.buffer, {}, end, "", {}, Show, {}, {});
        if (UndoTransaction() != 0 || bench.buffer.lines.lineCount != lineCount)
            state.SkipWithError("undo did not restore the text");
        state.PauseTiming();
        ResetTransactionLog(bench.buffer);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_DeleteAllAndUndo)->Arg(1000000)->Iterations(3)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ruvo

BENCHMARK_MAIN();
