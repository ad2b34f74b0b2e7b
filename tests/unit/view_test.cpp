// What an edit window shows: scrolling and the scroll bars, the selection and caret setters, the
// status panes, and the pixel layout of rows, the caret, error markers and found text.
#include <algorithm>
#include <climits>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/found_text.h"
#include "engine/line_layout.h"
#include "engine/status_update.h"
#include "engine/text_store.h"
#include "engine/view_sync.h"

namespace ruvo {
namespace {

constexpr uint32_t TextColour = MakeColor(1, 1, 1);
constexpr uint32_t CommentColour = MakeColor(2, 2, 2);
constexpr uint32_t KeywordColour = MakeColor(5, 5, 5);

class ViewTest : public EditorTest {
  protected:
    ViewTest() {
        language.lineComment = "--";
        language.text.color = TextColour;
        language.comment.color = CommentColour;
        language.groups[0].attribute.color = KeywordColour;
        for (const char* word : {"end", "entity", "is", "signal"})
            EXPECT_TRUE(language.groups[0].words.Append(word));
        SetFontMetrics(8, 15);
    }
    Texts BarCalls() { return std::exchange(host.scrollBarCalls, {}); }
    // Found text drawn ("draw line:start-end"), then the lines redrawn, since the last call.
    std::string Drawn() {
        std::string calls;
        for (const auto& f : std::exchange(host.foundTexts, {}))
            calls += "draw " + std::to_string(f.line) + ":" + std::to_string(f.startColumn) + "-" +
                     std::to_string(f.endColumn) + " ";
        for (const auto& [b, line] : std::exchange(host.redrawnLines, {}))
            calls += std::to_string(line) + " ";
        return calls;
    }

    // Each segment as [text], '*' when inverted, its colour (t text, c comment, k keyword, w
    // white, b black), '@' screen column, '~' when drawn with tabs; then the row's fill and end.
    std::string Describe(const EditBuffer& buffer, int32_t line) {
        RowLayout layout;
        LayOutRow(buffer, line, layout);
        std::string text;
        const uint32_t colours[] = {TextColour, CommentColour, KeywordColour, ColorWhite,
                                    ColorBlack};
        for (const RowSegment& s : std::vector(layout.segments, layout.segments + layout.count)) {
            text += "[" + std::string(buffer.lines.lineText[line] + s.start, s.length) + "]" +
                    (s.inverted ? "*" : "");
            text += "tckwb?"[std::ranges::find(colours, s.color) - colours];
            text += "@" + std::to_string(s.displayColumn) + (s.hasTabs ? "~" : "");
        }
        return text + (layout.fillBlack ? " black " : " white ") + std::to_string(layout.endColumn);
    }

    LanguageDef language;
};

TEST_F(ViewTest, ScrollingStopsAtTheLastFullPageAtZeroAndAt255Columns) {
    TestBuffer buffer(NumberedLines(100));
    buffer->visibleLines = 10;
    // {vertical, code, thumb, moved}: the vertical bar scrolls the window's pixels, the
    // horizontal one redraws it and moves the caret. Scrolling stops at the last full page and at
    // 0; only a left column of 255 itself stops paging right. Bottom and unknown codes do nothing
    // sideways.
    const int bars[][4] = {{1, 1, 0, 1},   {1, 3, 0, 10},  {1, 0, 0, -1},    {1, 2, 0, -10},
                           {1, 0, 0, 0},   {1, 5, 42, 42}, {1, 4, 37, -5},   {1, 7, 0, 53},
                           {1, 1, 0, 0},   {1, 6, 0, -90}, {1, 5, 5, 5},     {1, 2, 0, -5},
                           {1, 8, 0, 0},   {0, 0, 0, 0},   {0, 5, 250, 250}, {0, 3, 0, 80},
                           {0, 2, 0, -80}, {0, 5, 255, 5}, {0, 1, 0, 0},     {0, 5, -45, -255},
                           {0, 5, 20, 20}, {0, 0, 0, -1},  {0, 1, 0, 1},     {0, 7, 0, 0},
                           {0, 8, 0, 0},   {0, 6, 0, -20}};
    for (const auto& [vertical, code, thumb, moved] : bars) {
        int32_t& position = vertical != 0 ? buffer->topLine : buffer->leftColumn;
        const int32_t before = position;
        EXPECT_EQ(ScrollByBar(*buffer, vertical != 0, static_cast<BarCode>(code), thumb), moved);
        EXPECT_EQ(position, before + moved) << vertical << " code " << code;
    }
    EXPECT_EQ(host.scrolledWindowLines, (std::vector<int>{1, 10, -1, -10, 42, -5, 53, -90, 5, -5}));
    EXPECT_EQ(host.redrawnWindows.size() + host.caretMoves, 18u); // each horizontal move
    // Fitting keeps a full last page; a window taller than the text shows it from the top.
    buffer->topLine = 95;
    BarCalls();
    FitScrollBars(*buffer);
    EXPECT_EQ(BarCalls(), (Texts{"V range 0 90", "V pos 90", "H range 0 255"}));
    buffer->visibleLines = 160;
    FitScrollBars(*buffer);
    EXPECT_EQ(buffer->topLine, 0);
    // Above 65000 lines the thumb is read from the 32-bit position.
    TestBuffer edge(NumberedLines(65000), false);
    EXPECT_FALSE(NeedsTrackPosition(*edge));
    ASSERT_EQ(AppendLine(&edge->lines, "one more"), 0);
    EXPECT_TRUE(NeedsTrackPosition(*edge));
}

TEST_F(ViewTest, SettersOrderClampRedrawAndSetTheBarsOnlyWhenValuesChange) {
    TestBuffer buffer(NumberedLines(40, "line number "));
    buffer->visibleLines = 10;
    // The lines redrawn by each new selection: an end at column 0 shows nothing on its line; the
    // same selection again redraws nothing; lines outside the window are left alone; the ends
    // are ordered and kept in the text.
    const int ends[][4] = {{5, 1, 2, 3},  {2, 3, 6, 0}, {2, 0, 6, 2},   {6, 2, 2, 0},
                           {2, 0, 30, 2}, {4, 4, 4, 4}, {99, 99, -1, 9}};
    std::string redrawn;
    for (const auto& [fromLine, fromColumn, toLine, toColumn] : ends) {
        SetSelection(*buffer, MakePos(fromLine, fromColumn), MakePos(toLine, toColumn));
        redrawn += Drawn() + "/ ";
    }
    EXPECT_EQ(redrawn,
              "2 3 4 5 / 5 / 2 6 / / 6 7 8 9 10 / 2 3 4 5 6 7 8 9 10 / 0 1 2 3 4 5 6 7 8 9 10 / ");
    EXPECT_EQ(std::pair(buffer->selStart, buffer->selEnd),
              std::pair(MakePos(0, 9), MakePos(39, 14)));

    // The caret is kept in the text, the scroll position at 0 or more; each bar value is set
    // only when it changes, the horizontal range whenever the caret's line length does.
    TestBuffer bars("entity e is\nend e;\n\nx");
    bars->visibleLines = 2;
    bars->visibleColumns = 55;
    BarCalls();
    const auto scroll = [&](TextPos wanted, int32_t top, int32_t left) {
        SetCursorAndScroll(*bars, wanted, top, left);
        std::string seen = std::to_string(bars->cursor.line) + "," +
                           std::to_string(bars->cursor.column) + " " +
                           std::to_string(bars->topLine) + "/" + std::to_string(bars->leftColumn);
        for (const std::string& call : BarCalls())
            seen += ", " + call;
        return seen;
    };
    EXPECT_EQ(scroll({0, 3}, 0, 0), "0,3 0/0, V range 0 2, V pos 0, H pos 0, H range 0 200");
    EXPECT_EQ(scroll({0, 4}, 0, 0), "0,4 0/0");
    EXPECT_EQ(scroll({1, 40}, 0, 0), "1,6 0/0, H range 0 200");
    EXPECT_EQ(scroll({7, -2}, 1, 3), "3,0 1/3, V range 0 2, V pos 1, H pos 3, H range 0 200");
    EXPECT_EQ(scroll({3, 0}, -3, -1), "3,0 0/0, V range 0 2, V pos 0, H pos 0");
    EXPECT_EQ(host.scrollUpdates, 2);
    SetCursorAndScroll(*buffer, MakePos(2, 0), 1, 0); // cached values are per buffer
    EXPECT_EQ(BarCalls().size(), 4u);
}

TEST_F(ViewTest, StatusPanesShowThePositionModeAndStateOnlyWhenChanged) {
    editor.settings.options.tabSize = 8;
    TestBuffer buffer("\tx = 1;\nsecond");
    buffer.PlaceCaret(0, 2); // after the tab and the x
    TestBuffer locked("other text", false);
    locked->lines.readOnly = locked->lines.modified = 1;
    // The panes set, after "moved" when the caret moved; the mode pane is set every time (the
    // status line drops equal texts).
    const auto update = [&](EditBuffer& shown) {
        editor.engine.currentBuffer = &shown;
        std::string texts = UpdateStatus(shown) ? "moved" : "";
        for (const FakeHost::StatusText& set : std::exchange(host.statusTexts, {}))
            texts += " " + std::to_string(set.pane) + ":" + set.text;
        return texts;
    };
    EXPECT_EQ(update(*buffer), "moved 0:   1 : 9   2: 1:Insert");
    EXPECT_EQ(update(*buffer), " 1:Insert");
    buffer.PlaceCaret(1, 2);
    EXPECT_EQ(update(*buffer), "moved 0:   2 : 2   1:Insert");
    buffer->lines.modified = editor.engine.overwriteMode = true;
    EXPECT_EQ(update(*buffer), " 2:Modified 1:Overwrite");
    EXPECT_FALSE(UpdateStatus(*locked)); // not the current buffer
    ForgetStatus();
    EXPECT_EQ(update(*buffer), "moved 0:   2 : 2   2:Modified 1:Overwrite");
    // Read-only wins over modified, and goes when another buffer comes next.
    EXPECT_EQ(update(*locked), "moved 0:   1 : 0   2:Readonly 1:Overwrite");
    EXPECT_EQ(update(*buffer), "moved 0:   2 : 2   2:Modified 1:Overwrite");
}

TEST_F(ViewTest, FontHeightFollowsThePointSizeAndTheScreen) {
    // The point size and the heights at 96 and 120 dpi: zero, negative sizes and texts that are
    // no number give the 10-point font; the height is negative, rounded as MulDiv does.
    std::string heights;
    for (const char* size : {" \t14pt", "+9", "  ", "-", "abc", "-3", "1", "99999999"})
        heights += std::to_string(EditorFontPointSize(size)) + " " +
                   std::to_string(EditorFontHeight(size, 96)) + " " +
                   std::to_string(EditorFontHeight(size, 120)) + ", ";
    EXPECT_EQ(heights, "14 -19 -23, 9 -12 -15, 10 -13 -17, 10 -13 -17, 10 -13 -17, 10 -13 -17, "
                       "1 -1 -2, 99999 -133332 -166665, ");
    // Halves go away from zero; a zero divisor or an overflow gives -1.
    const int mulDivs[][4] = {{5, 3, 2, 8},           {-5, 3, 2, -8},          {5, 3, -2, -8},
                              {7, 1, 3, 2},           {1, 1, 0, -1},           {1 << 30, 8, 1, -1},
                              {-(1 << 30), 8, 1, -1}, {INT_MIN, 1, 1, INT_MIN}};
    for (const auto& [number, times, by, result] : mulDivs)
        EXPECT_EQ(MulDivRounded(number, times, by), result) << number << "*" << times << "/" << by;
}

TEST_F(ViewTest, MeasureAndPaintPlanCoverVisibleRowsMarkersAndBlankBelowTheText) {
    TestBuffer buffer(NumberedLines(100, "line ") + "\n"); // 101 lines, the last empty
    MeasureBuffer(*buffer, 645, 479);
    EXPECT_EQ((std::vector<int>{buffer->marginColumns, buffer->windowColumns, buffer->marginWidth,
                                buffer->visibleLines, buffer->visibleColumns, buffer->clientWidth}),
              (std::vector<int>{7, 80, 56, 31, 73, 645}));
    MeasureBuffer(*buffer, 640, 480); // 80 columns with a 7-column margin, 32 full rows
    // A full repaint draws the visible rows and the partial one after them, with the margin;
    // near the end the area below the last line is painted white; scrolled sideways the text is
    // clipped off the margin.
    const auto plan = [&](int32_t top, int32_t from, int32_t to, bool whole) {
        buffer->topLine = top;
        const PaintPlan p = PlanPaint(*buffer, from, to, whole);
        return std::to_string(p.firstLine) + ".." + std::to_string(p.endLine) +
               (p.margin ? " margin" : "") + (p.clip ? " clip" : "") +
               (p.blankBelow ? " blank from " + std::to_string(p.blankFromRow) : "");
    };
    EXPECT_EQ(plan(10, 0, 101, true), "10..43 margin");
    EXPECT_EQ(plan(69, 0, 101, true), "69..101 margin blank from 32");
    EXPECT_EQ(plan(90, 50, 60, true), "90..90 margin");
    // Error markers only on painted lines, up to the closing entry.
    buffer->topLine = 5;
    ErrorMarker markers[4];
    const auto count = [&](int capacity, bool margin = true) {
        return CollectErrorMarkers(*buffer, PlanPaint(*buffer, 0, 101, margin), markers, capacity);
    };
    EXPECT_EQ(count(4), 0); // no source installed
    // {source line, result line, kind}: above the view, on its partial last row, on its first
    // row, below it, then the closing entry (-1 or -2) and one after it.
    static int32_t closing = -2;
    editor.engine.display.errorSource = [](const EditBuffer&, int32_t i, MarginError& entry) {
        const MarginError entries[] = {{3, 1, 0},  {38, 3, 2},      {6, 3, 0},
                                       {40, 4, 0}, {0, closing, 0}, {10, 6, 0}};
        entry = entries[std::min(i, 5)];
        return i < 6;
    };
    EXPECT_EQ(count(4, false), 0); // no margin painted
    EXPECT_EQ(count(1), 1);
    EXPECT_EQ(count(4), 2);
    EXPECT_EQ(std::tuple(markers[0].line, markers[0].color, markers[1].line, markers[1].color),
              std::tuple(37, ColorYellow, 5, ColorMarginError));
    closing = -1;
    EXPECT_EQ(count(4), 2);
    EXPECT_EQ(ErrorMarkerBox(*buffer, 7), (PixelRect{3, 30, 13, 40}));
    buffer->leftColumn = 3;
    EXPECT_EQ(plan(90, 95, 96, false), "95..97 clip");
    EXPECT_EQ(BlankBelowRect(*buffer, 11), (PixelRect{56, 165, 648, 495}));
    EXPECT_EQ(TextClipRect(*buffer), (PixelRect{56, 0, 640, 495}));
    char number[16];
    EXPECT_EQ(LineNumberText(99999, number, 4), 3); // cut but terminated
    EXPECT_STREQ(number, "100");
    // Line numbers off: the text starts at the left edge and there is no margin to paint.
    SetLineNumbersShown(false);
    MeasureBuffer(*buffer, 640, 480);
    EXPECT_EQ(TextColumnX(*buffer, 3), 0);
    EXPECT_FALSE(PlanPaint(*buffer, 0, 101, true).margin);
    EXPECT_EQ(MarginRect(*buffer), (PixelRect{-1, -1, -1, 495}));
    SetFontMetrics(0, 0); // a zero-sized cell never divides by zero
    EXPECT_EQ(CharWidth() * LineHeight(), 1);
}

TEST_F(ViewTest, RowsAreColouredSplitAtTheSelectionAndTabbedFromTheTextsColumnZero) {
    editor.settings.options.tabSize = 4;
    TestBuffer buffer("entity a is -- x\nsignal a\n\tend x\tis\nlast line\nab\tc");
    buffer->language = &language;
    MeasureBuffer(*buffer, 640, 480);
    // {selection start, end, line, row}: the runs split at the selection's columns and the
    // selected text is white; a line inside a selection is one white run on a black row; a
    // start at a line's end leaves only the black rest; a tabbed piece keeps its own column.
    const std::tuple<TextPos, TextPos, int32_t, const char*> rows[] = {
        {{0, 3}, {0, 10}, 0, "[ent]k@0[ity]*w@3[ a ]*w@6[i]*w@9[s]k@10[ ]t@11[-- x]c@12 white 16"},
        {{3, 4}, {0, 14}, 1, "[signal a]*w@0 black 8"},
        {{0, 16}, {2, 0}, 0, "[entity]k@0[ a ]t@6[is]k@9[ ]t@11[-- x]c@12 black 16"},
        {{2, 5}, {2, 8}, 2, "[\t]t@0~[end]k@4[ ]t@7[x\t]*w@8~[i]*w@12[s]k@13 white 14"},
        {{2, 1}, {3, 0}, 3, "[last line]t@0 white 9"},
        {{0, 3}, {0, 10}, 3, "[last line]t@0 white 9"},    // after the selection
        {{3, 2}, {4, 1}, 1, "[signal]k@0[ a]t@6 white 8"}, // before it
        {{1, 2}, {1, 2}, 1, "[signal]k@0[ a]t@6 white 8"}, // none
    };
    for (const auto& [from, to, line, row] : rows) {
        buffer.Select(from, to);
        EXPECT_EQ(Describe(*buffer, line), row) << line;
    }
    // Colouring off: one black run, still split by the selection; a tab size of 0 is 1.
    editor.settings.options.colors = false;
    buffer.Select(MakePos(1, 2), MakePos(1, 4));
    EXPECT_EQ(Describe(*buffer, 1), "[si]b@0[gn]*w@2[al a]b@4 white 8");
    editor.settings.options.tabSize = 0;
    EXPECT_EQ(Describe(*buffer, 4), "[ab\tc]b@0~ white 4");

    // Scrolled by 2 columns the tab origin moves with the text, so a leading tab still ends
    // on a multiple of the tab size from the text's start; the row's rest starts after the
    // text and reaches one pixel into the next row.
    editor.settings.options.tabSize = 4;
    buffer->leftColumn = 2;
    EXPECT_EQ(TabOriginX(*buffer) * 100 + TabStopWidth(), (7 - 2) * 8 * 100 + 32);
    EXPECT_EQ(RowFillRect(*buffer, 1, 5), (PixelRect{80, 15, 648, 31}));
    // The caret follows the screen column; left of the left column it is out of sight rather
    // than at column 0; it is wider when it overwrites.
    buffer->topLine = 3;
    buffer.PlaceCaret(4, 3); // after the tab: screen column 4, window row 1
    EXPECT_EQ(CaretPosition(*buffer), (CaretPixel{(7 + 4 - 2) * 8, 15}));
    buffer->leftColumn = 5;
    EXPECT_EQ(std::pair(CaretPosition(*buffer), CaretWidth()), std::pair(CaretPixel{-8, 15}, 2));
    editor.engine.overwriteMode = true;
    EXPECT_EQ(CaretWidth(), 8);
}

TEST_F(ViewTest, FoundTextIsDrawnOnceAndTakenAwayByTheNext) {
    editor.settings.options.tabSize = 4;
    TestBuffer buffer("first\tline\nsecond line\nthird");
    const RowSegment segment = InvertedSegment(*buffer, 0, 6, 10);
    EXPECT_TRUE(segment.displayColumn == 8 && segment.inverted && !segment.hasTabs); // after tab
    EXPECT_EQ(InvertedSegment(*buffer, 0, -3, 99).length, 10);
    // The host calls: the next match first redraws the old line normally; a match over two
    // lines is not highlighted, but the old one still goes; columns are kept in the line.
    ShowFoundText(*buffer, MakePos(0, 6), MakePos(0, 10));
    EXPECT_EQ(Drawn(), "draw 0:6-10 ");
    ShowFoundText(*buffer, MakePos(1, 7), MakePos(2, 2));
    EXPECT_EQ(Drawn(), "0 ");
    ShowFoundText(*buffer, MakePos(2, 3), MakePos(2, 99));
    HideFoundText();
    HideFoundText();
    EXPECT_EQ(Drawn(), "draw 2:3-5 2 ");
    // A line that is gone, or a closed window, is not redrawn.
    ShowFoundText(*buffer, MakePos(2, 0), MakePos(2, 1));
    ASSERT_EQ(DeleteRange(*buffer, MakePos(1, 11), MakePos(2, 5)), 1);
    ShowFoundText(*buffer, MakePos(1, 0), MakePos(1, 1));
    buffer->closedFlags |= ClosedFlagWindowGone;
    HideFoundText();
    EXPECT_EQ(Drawn(), "draw 2:0-1 draw 1:0-1 ");
}

} // namespace
} // namespace ruvo
