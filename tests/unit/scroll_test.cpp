// Scrolling an edit window: line and column steps, scroll-bar codes, the thumb of huge
// buffers, fitting the bars after a size change.
#include <string>
#include <vector>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/line_list.h"
#include "engine/view_sync.h"

namespace ruvo {
namespace {

class ScrollTest : public EditorTest {
  protected:
    static std::string Lines(int count) {
        std::string text;
        for (int i = 0; i < count; ++i) {
            if (i > 0) text += '\n';
            text += std::to_string(i);
        }
        return text;
    }
    std::vector<std::string> BarCalls() {
        std::vector<std::string> calls;
        calls.swap(host.scrollBarCalls);
        return calls;
    }
};

using Calls = std::vector<std::string>;

TEST_F(ScrollTest, StepsStopAtTheLastFullPageAtZeroAndOnlyExactlyAt255Columns) {
    TestBuffer buffer(Lines(100));
    buffer->visibleLines = 10;
    buffer->visibleColumns = 80;
    TestBuffer small(Lines(4), false); // shorter than the window: never scrolls
    small->visibleLines = 10;
    // {by, moved, position after}
    const int lines[][3] = {{5, 5, 5},      {200, 85, 90}, {1, 0, 90}, {-30, -30, 60},
                            {-70, -60, 0},  {-1, 0, 0},    {0, 0, 0}};
    for (const auto& step : lines) {
        EXPECT_EQ(ScrollLines(*buffer, step[0]), step[1]) << step[0];
        EXPECT_EQ(buffer->topLine, step[2]);
        EXPECT_EQ(ScrollLines(*small, step[0] > 0 ? 1 : -1), 0);
    }
    // From 250 a page to the right goes past 255: only 255 itself is a stop.
    const int columns[][3] = {{-1, 0, 0},    {0, 0, 0},       {250, 250, 250}, {80, 80, 330},
                              {1, 1, 331},   {-1, -1, 330},   {-75, -75, 255}, {1, 0, 255},
                              {-300, -255, 0}};
    for (const auto& step : columns) {
        EXPECT_EQ(ScrollColumns(*buffer, step[0]), step[1]) << step[0];
        EXPECT_EQ(buffer->leftColumn, step[2]);
    }
}

TEST_F(ScrollTest, VerticalBarCodesMoveTheWindowsPixels) {
    TestBuffer buffer(Lines(100));
    buffer->visibleLines = 10;
    const struct {
        BarCode code;
        int thumb;
        int expectedTop;
    } steps[] = {
        {BarCode::LineDown, 0, 1}, {BarCode::PageDown, 0, 11},    {BarCode::LineUp, 0, 10},
        {BarCode::PageUp, 0, 0},   {BarCode::ThumbTrack, 42, 42}, {BarCode::ThumbPosition, 37, 37},
        {BarCode::Bottom, 0, 90},  {BarCode::Top, 0, 0},          {BarCode::ThumbTrack, 500, 90},
    };
    int32_t top = 0;
    for (const auto& step : steps) {
        host.scrolledWindowLines.clear();
        const int32_t scrolled = ScrollByBar(*buffer, true, step.code, step.thumb);
        EXPECT_EQ(buffer->topLine, step.expectedTop) << static_cast<int>(step.code);
        EXPECT_EQ(scrolled, step.expectedTop - top);
        EXPECT_EQ(host.scrolledWindowLines, std::vector<int>{step.expectedTop - top});
        EXPECT_EQ(BarCalls(), Calls{"V pos " + std::to_string(step.expectedTop)});
        top = step.expectedTop;
    }
    // Codes without a movement, and a movement that is not possible, touch nothing.
    host.scrolledWindowLines.clear();
    EXPECT_EQ(ScrollByBar(*buffer, true, static_cast<BarCode>(8), 0), 0); // end of scroll
    EXPECT_EQ(ScrollByBar(*buffer, true, BarCode::LineDown, 0), 0);       // at the last page
    EXPECT_TRUE(host.scrolledWindowLines.empty());
    EXPECT_TRUE(BarCalls().empty());
    EXPECT_TRUE(host.redrawnWindows.empty()); // vertical scrolling never repaints it all
}

TEST_F(ScrollTest, HorizontalBarRedrawsTheWindowAndMovesTheCaret) {
    TestBuffer buffer("text");
    buffer->visibleColumns = 60;
    EXPECT_EQ(ScrollByBar(*buffer, false, BarCode::PageDown, 0), 60);
    EXPECT_EQ(BarCalls(), Calls{"H pos 60"});
    EXPECT_EQ(host.redrawnWindows.size(), 1u);
    EXPECT_EQ(host.caretMoves, 1);
    EXPECT_TRUE(host.scrolledWindowLines.empty());

    // Bottom does nothing on this bar, and neither do unknown codes.
    const struct {
        BarCode code;
        int thumb, moved;
    } steps[] = {{BarCode::LineDown, 0, 1}, {BarCode::ThumbTrack, 20, -41},
                 {BarCode::LineUp, 0, -1},  {BarCode::Bottom, 0, 0},
                 {static_cast<BarCode>(8), 0, 0}, {BarCode::Top, 0, -19},
                 {BarCode::PageUp, 0, 0}};
    for (const auto& step : steps) {
        const int32_t left = buffer->leftColumn;
        EXPECT_EQ(ScrollByBar(*buffer, false, step.code, step.thumb), step.moved);
        EXPECT_EQ(BarCalls().size(), step.moved != 0 ? 1u : 0u) << static_cast<int>(step.code);
        EXPECT_EQ(buffer->leftColumn, left + step.moved);
    }
    EXPECT_EQ(host.caretMoves, 5);
}

TEST_F(ScrollTest, ThumbOfAHugeBufferReachesTheEnd) {
    TestBuffer buffer(Lines(70000));
    buffer->visibleLines = 20;
    EXPECT_TRUE(NeedsTrackPosition(*buffer));
    FitScrollBars(*buffer);
    EXPECT_EQ(BarCalls(), (Calls{"V range 0 69980", "V pos 0", "H range 0 255"}));

    // The thumb at the end of the bar: the 32-bit position takes the view to the last page.
    // The 16-bit position of the message would have said 69980 - 65536.
    EXPECT_EQ(ScrollByBar(*buffer, true, BarCode::ThumbTrack, 69980), 69980);
    EXPECT_EQ(buffer->topLine, 69980);
    EXPECT_EQ(BarCalls(), Calls{"V pos 69980"});
    EXPECT_EQ(ScrollByBar(*buffer, true, BarCode::ThumbTrack, 35000), -34980);
    EXPECT_EQ(ScrollByBar(*buffer, true, BarCode::ThumbPosition, 69980), 34980);

    TestBuffer edge(Lines(65000), false);
    EXPECT_FALSE(NeedsTrackPosition(*edge));
    ASSERT_EQ(AppendLine(&edge->lines, "one more"), 0);
    EXPECT_TRUE(NeedsTrackPosition(*edge));
}

TEST_F(ScrollTest, FitKeepsAFullLastPageAndSetsBothBars) {
    TestBuffer buffer(Lines(50));
    buffer->visibleLines = 10;
    buffer->topLine = 45;
    FitScrollBars(*buffer);
    EXPECT_EQ(buffer->topLine, 40);
    EXPECT_EQ(BarCalls(), (Calls{"V range 0 40", "V pos 40", "H range 0 255"}));

    buffer->topLine = 12;
    FitScrollBars(*buffer);
    EXPECT_EQ(buffer->topLine, 12);
    BarCalls();
    // A window taller than the text shows it from the top.
    buffer->visibleLines = 60;
    FitScrollBars(*buffer);
    EXPECT_EQ(buffer->topLine, 0);
    EXPECT_EQ(BarCalls(), (Calls{"V range 0 -10", "V pos 0", "H range 0 255"}));
}

TEST_F(ScrollTest, BarScrollingKeepsTheCacheInStep) {
    TestBuffer buffer(Lines(100));
    buffer->visibleLines = 10;
    buffer->visibleColumns = 40;
    SetCursorAndScroll(*buffer, MakePos(0, 0), 0, 0);
    BarCalls();
    // The bar moved the view; a keystroke that puts it back must set the box again, and one
    // that keeps it there must not.
    ScrollByBar(*buffer, true, BarCode::PageDown, 0);
    BarCalls();
    SetCursorAndScroll(*buffer, MakePos(12, 0), 10, 0);
    EXPECT_EQ(BarCalls(), Calls{"H range 0 215"}); // the caret line is longer, nothing else
    SetCursorAndScroll(*buffer, MakePos(0, 0), 0, 0);
    EXPECT_EQ(BarCalls(), (Calls{"V range 0 90", "V pos 0", "H range 0 215"}));
    ScrollByBar(*buffer, false, BarCode::LineDown, 0);
    BarCalls();
    SetCursorAndScroll(*buffer, MakePos(0, 0), 0, 1);
    EXPECT_TRUE(BarCalls().empty());
}

} // namespace
} // namespace ruvo
