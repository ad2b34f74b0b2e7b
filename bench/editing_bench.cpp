// Editing-command benchmarks on a large HDL buffer: caret motion, deleting and undoing at the
// top and at the bottom (the line array shifts only below the edit), pasting a long text.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "buffer_builder.h"
#include "buffer_session.h"
#include "engine/clipboard_commands.h"
#include "engine/cursor_motion.h"
#include "engine/editing_commands.h"
#include "engine/editor.h"
#include "engine/transaction_log.h"
#include "fake_host.h"
#include "hdl_text.h"

namespace ruvo {
namespace {

constexpr int BufferLines = 100000;

std::string MakeHdl(int lines) {
    static const char* const unit[] = {
        "entity reg is",
        "  port (clk, rst : in std_logic;",
        "\td : in std_logic_vector(31 downto 0);",
        "\tq : out std_logic_vector(31 downto 0));",
        "end reg;",
        "architecture rtl of reg is begin",
        "  process (clk) begin if rising_edge(clk) then q <= d; end if; end process;",
        "end rtl;"};
    return RepeatLines(unit, lines);
}

// A fresh editor on a FakeHost with one large current buffer.
struct Session : BufferSession {
    explicit Session(int lines) { Open(MakeHdl(lines)); }
};

void BM_WordRight(benchmark::State& state) {
    Session session(BufferLines);
    EditBuffer& buffer = **session.buffer;
    for (auto _ : state) {
        GoWordRight();
        if (buffer.cursor.line == buffer.lines.lineCount - 1) {
            state.PauseTiming();
            GoBeginDoc();
            ResetTransactionLog(buffer);
            state.ResumeTiming();
        }
    }
}
BENCHMARK(BM_WordRight);

// Joining and splitting a line near the given position: the array moves the lines below.
void DeleteAndUndoAt(benchmark::State& state, int32_t line) {
    Session session(BufferLines);
    EditBuffer& buffer = **session.buffer;
    for (auto _ : state) {
        GoToPos(buffer, line, 255);
        DeleteChar();
        EditUndo();
        EditUndo();
    }
    state.counters["lines"] = buffer.lines.lineCount;
}

void BM_JoinAndUndoAtTop(benchmark::State& state) {
    DeleteAndUndoAt(state, 0);
}
void BM_JoinAndUndoAtBottom(benchmark::State& state) {
    DeleteAndUndoAt(state, BufferLines - 2);
}
BENCHMARK(BM_JoinAndUndoAtTop);
BENCHMARK(BM_JoinAndUndoAtBottom);

void BM_PasteThousandLinesAndUndo(benchmark::State& state) {
    Session session(BufferLines);
    EditBuffer& buffer = **session.buffer;
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "  signal s" + std::to_string(i) + " : bit;\r\n";
    session.host.clipboard = text;
    for (auto _ : state) {
        GoToPos(buffer, BufferLines / 2, 0);
        EditPaste();
        EditUndo();
        EditUndo();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_PasteThousandLinesAndUndo);

} // namespace
} // namespace ruvo

BENCHMARK_MAIN();
