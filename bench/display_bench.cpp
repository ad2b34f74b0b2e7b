// The display work of the edit windows on small and huge VHDL buffers: laying out a screen of
// rows, and what one keystroke costs the display (its line, the status panes, the caret). The
// figures for 1,000 and 100,000 lines should match: none of it depends on the file's size.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "buffer_builder.h"
#include "buffer_session.h"
#include "engine/editor.h"
#include "engine/line_layout.h"
#include "engine/status_update.h"
#include "fake_host.h"
#include "hdl_text.h"
#include "lang/language_io.h"
#include "lang/language_table.h"

namespace ruvo {
namespace {

std::string MakeVhdl(int lines) {
    static const char* const unit[] = {
        "entity reg is",
        "\tport (clk, rst : in std_logic;  -- clock and reset",
        "\t\td : in std_logic_vector(31 downto 0);",
        "\t\tq : out std_logic_vector(31 downto 0));",
        "end reg;",
        "architecture rtl of reg is begin",
        "  process (clk) begin if rising_edge(clk) then q <= d; end if; end process;",
        "  assert q /= x\"DEADBEEF\" report \"odd value\" severity note;",
        "end rtl;"};
    return RepeatLines(unit, lines);
}

// A fresh editor with the shipped VHDL colours and one measured 80 x 40 buffer, selected over
// a few lines so that rows split.
struct Session : BufferSession {
    explicit Session(int lines) {
        host.SetProfile("Languages", "1", "VHDL");
        host.SetProfile("VHDL", "File", std::string(RUVO_SOURCE_DIR) + "/config/vhdl.lsf");
        host.SetProfile("VHDL", "LineComment", "--");
        host.SetProfile("VHDL", "CaseSensitive", "no");
        LoadLanguages();
        Open(MakeVhdl(lines));
        (*buffer)->language = &LanguageEntry(1);
        SetFontMetrics(8, 15);
        MeasureBuffer(**buffer, 640, 600);
    }
};

// A screen of rows near the end of the file, as a full repaint lays them out.
void BM_LayOutScreen(benchmark::State& state) {
    Session session(static_cast<int>(state.range(0)));
    EditBuffer& buffer = **session.buffer;
    buffer.topLine = buffer.lines.lineCount - buffer.visibleLines - 1;
    session.buffer->Select(MakePos(buffer.topLine + 3, 5), MakePos(buffer.topLine + 9, 12));
    RowLayout layout;
    for (auto _ : state) {
        const PaintPlan plan = PlanPaint(buffer, 0, buffer.lines.lineCount, true);
        for (int32_t line = plan.firstLine; line < plan.endLine; ++line) {
            LayOutRow(buffer, line, layout);
            benchmark::DoNotOptimize(layout.count);
        }
    }
    state.counters["rows"] = buffer.visibleLines + 1;
}
BENCHMARK(BM_LayOutScreen)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// After a typed character: the caret's line again, the status panes and the caret's place,
// with the caret walking along the last line.
void BM_KeystrokeDisplay(benchmark::State& state) {
    Session session(static_cast<int>(state.range(0)));
    EditBuffer& buffer = **session.buffer;
    const int32_t last = buffer.lines.lineCount - 1;
    buffer.topLine = last - buffer.visibleLines + 1;
    RowLayout layout;
    int32_t column = 0;
    for (auto _ : state) {
        session.buffer->PlaceCaret(last, column);
        column = (column + 1) % 9;
        LayOutRow(buffer, last, layout);
        benchmark::DoNotOptimize(UpdateStatus(buffer));
        benchmark::DoNotOptimize(CaretPosition(buffer));
    }
}
BENCHMARK(BM_KeystrokeDisplay)->Arg(1000)->Arg(100000);

} // namespace
} // namespace ruvo

BENCHMARK_MAIN();
