// The keystroke path of an edit window on a small and on a huge buffer: typing a line of
// characters, moving with the arrow keys, dragging a selection. The figures for the two sizes
// should match, since nothing on this path looks at more than the lines on show.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "buffer_builder.h"
#include "buffer_session.h"
#include "engine/edit_input.h"
#include "engine/editor.h"
#include "engine/transaction_log.h"
#include "fake_host.h"
#include "hdl_text.h"

namespace ruvo {
namespace {

std::string MakeHdl(int lines) {
    static const char* const unit[] = {"entity reg is", "  port (clk : in std_logic;",
                                       "\td : in std_logic_vector(31 downto 0));", "end reg;"};
    return RepeatLines(unit, lines);
}

struct Session : BufferSession {
    explicit Session(int lines) {
        Open(MakeHdl(lines));
        Buffer().visibleLines = 40;
        Buffer().visibleColumns = 100;
    }
    // Keeps the log and the host's records from growing across iterations.
    void Forget() {
        ResetTransactionLog(Buffer());
        host.scrollBarCalls.clear();
        host.redrawnLines.clear();
        host.redrawnWindows.clear();
        host.statusTexts.clear();
    }
};

// One hundred characters typed into the middle of the buffer, then taken back.
void BM_TypeHundredCharacters(benchmark::State& state) {
    Session session(static_cast<int>(state.range(0)));
    EditBuffer& buffer = session.Buffer();
    const int32_t line = buffer.lines.lineCount / 2;
    for (auto _ : state) {
        ClickAt(buffer, line, 0, false);
        for (int i = 0; i < 100; ++i)
            TypeChar(buffer, 'a' + i % 26);
        state.PauseTiming();
        for (int i = 0; i < 100; ++i)
            (void)UndoTransaction();
        session.Forget();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * 100);
}
BENCHMARK(BM_TypeHundredCharacters)->Arg(100)->Arg(100000);

// Arrow keys down and up over two windows' height around the middle, scrolling as they go.
void BM_ArrowKeys(benchmark::State& state) {
    Session session(static_cast<int>(state.range(0)));
    EditBuffer& buffer = session.Buffer();
    ClickAt(buffer, buffer.lines.lineCount / 2, 3, false);
    for (auto _ : state) {
        for (int i = 0; i < 80; ++i)
            HandleKey(buffer, KeyDown, i % 2 == 0, false);
        for (int i = 0; i < 80; ++i)
            HandleKey(buffer, KeyUp, false, false);
        state.PauseTiming();
        session.Forget();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * 160);
}
BENCHMARK(BM_ArrowKeys)->Arg(100)->Arg(100000);

// A drag held below the window: one scrolled line per mouse move.
void BM_DragBelowTheWindow(benchmark::State& state) {
    Session session(static_cast<int>(state.range(0)));
    EditBuffer& buffer = session.Buffer();
    for (auto _ : state) {
        (void)ButtonPressed(buffer, ScreenPoint{0, 2}, false, false);
        for (int i = 0; i < 50; ++i)
            PointerMoved(buffer, ScreenPoint{buffer.topLine + buffer.visibleLines, 2});
        (void)ButtonReleased(buffer);
        state.PauseTiming();
        buffer.topLine = 0;
        session.Forget();
        session.host.pointerNudges.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * 50);
}
BENCHMARK(BM_DragBelowTheWindow)->Arg(100)->Arg(100000);

} // namespace
} // namespace ruvo

BENCHMARK_MAIN();
