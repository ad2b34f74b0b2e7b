// What an edit window shows: scrolling and the scroll bars, the selection and caret setters
// (their ordering of the ends is checked at random through the log), the status panes, and the
// pixel layout of rows, the caret, error markers and found text.
#include <climits>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "buffer_builder.h"
#include "commands/command_table.h"
#include "editor_fixture.h"
#include "engine/command_target.h"
#include "engine/found_text.h"
#include "engine/line_layout.h"
#include "engine/line_list.h"
#include "engine/status_update.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "engine/view_sync.h"

namespace ruvo {
namespace {

using Calls = std::vector<std::string>;
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
    Calls BarCalls() { return std::exchange(host.scrollBarCalls, {}); }
    // A 640 x 480 window: 80 columns with a 7-column margin, 32 full rows.
    void Measure(EditBuffer& buffer) { MeasureBuffer(buffer, 640, 480); }

    // Each segment as [text], '*' when inverted, its colour (t text, c comment, k keyword, w
    // white, b black), '@' screen column, '~' when drawn with tabs; then the row's fill and end.
    std::string Describe(const EditBuffer& buffer, int32_t line) {
        RowLayout layout;
        LayOutRow(buffer, line, layout);
        std::string text;
        for (int i = 0; i < layout.count; ++i) {
            const RowSegment& s = layout.segments[i];
            text += "[" + std::string(buffer.lines.lineText[line] + s.start, s.length) + "]" +
                    (s.inverted ? "*" : "");
            for (auto [colour, name] : {std::pair{TextColour, 't'},
                                        {CommentColour, 'c'},
                                        {KeywordColour, 'k'},
                                        {ColorWhite, 'w'},
                                        {ColorBlack, 'b'}})
                if (s.color == colour) text += name;
            text += "@" + std::to_string(s.displayColumn) + (s.hasTabs ? "~" : "");
        }
        return text + (layout.fillBlack ? " black " : " white ") + std::to_string(layout.endColumn);
    }

    LanguageDef language;
};

TEST_F(ViewTest, StepsAndBarCodesStopAtTheLastFullPageAtZeroAndAt255Columns) {
    TestBuffer buffer(NumberedLines(100));
    buffer->visibleLines = 10;
    buffer->visibleColumns = 80;
    TestBuffer small(NumberedLines(4), false); // shorter than the window: never scrolls
    small->visibleLines = 10;
    // {by, moved, position after}
    const int lines[][3] = {{5, 5, 5},     {200, 85, 90}, {1, 0, 90}, {-30, -30, 60},
                            {-70, -60, 0}, {-1, 0, 0},    {0, 0, 0}};
    for (const auto& step : lines) {
        EXPECT_EQ(ScrollLines(*buffer, step[0]), step[1]) << step[0];
        EXPECT_EQ(buffer->topLine, step[2]);
        EXPECT_EQ(ScrollLines(*small, step[0] > 0 ? 1 : -1), 0);
    }
    // From 250 a page to the right goes past 255: only 255 itself is a stop.
    const int columns[][3] = {{-1, 0, 0},      {0, 0, 0},   {250, 250, 250},
                              {80, 80, 330},   {1, 1, 331}, {-1, -1, 330},
                              {-75, -75, 255}, {1, 0, 255}, {-300, -255, 0}};
    for (const auto& step : columns) {
        EXPECT_EQ(ScrollColumns(*buffer, step[0]), step[1]) << step[0];
        EXPECT_EQ(buffer->leftColumn, step[2]);
    }

    // {vertical, code, thumb, moved}: the vertical bar scrolls the window's pixels, the
    // horizontal one redraws it and moves the caret; Bottom and unknown codes do nothing there.
    const struct {
        bool vertical;
        int code, thumb, moved;
    } bars[] = {{true, 1, 0, 1},   {true, 3, 0, 10},    {true, 0, 0, -1},  {true, 2, 0, -10},
                {true, 5, 42, 42}, {true, 4, 37, -5},   {true, 7, 0, 53},  {true, 1, 0, 0},
                {true, 6, 0, -90}, {true, 5, 500, 90},  {true, 8, 0, 0},   {false, 3, 0, 80},
                {false, 1, 0, 1},  {false, 5, 20, -61}, {false, 0, 0, -1}, {false, 7, 0, 0},
                {false, 8, 0, 0},  {false, 6, 0, -19},  {false, 2, 0, 0}};
    buffer->leftColumn = 0;
    buffer->visibleColumns = 80;
    host.redrawnWindows.clear();
    for (const auto& bar : bars) {
        SCOPED_TRACE(std::to_string(bar.vertical) + " code " + std::to_string(bar.code));
        host.scrolledWindowLines.clear();
        const int32_t top = buffer->topLine, left = buffer->leftColumn;
        EXPECT_EQ(ScrollByBar(*buffer, bar.vertical, static_cast<BarCode>(bar.code), bar.thumb),
                  bar.moved);
        const int32_t now = bar.vertical ? buffer->topLine : buffer->leftColumn;
        EXPECT_EQ(now, (bar.vertical ? top : left) + bar.moved);
        EXPECT_EQ(BarCalls(), bar.moved == 0 ? Calls{}
                                             : Calls{std::string(bar.vertical ? "V" : "H") +
                                                     " pos " + std::to_string(now)});
        const bool pixels = bar.vertical && bar.moved != 0;
        EXPECT_EQ(host.scrolledWindowLines,
                  pixels ? std::vector<int>{bar.moved} : std::vector<int>{});
    }
    EXPECT_EQ(host.redrawnWindows.size() + host.caretMoves, 10u); // each horizontal move

    // Fitting keeps a full last page; a window taller than the text shows it from the top.
    buffer->topLine = 95;
    FitScrollBars(*buffer);
    EXPECT_EQ(buffer->topLine, 90);
    EXPECT_EQ(BarCalls(), (Calls{"V range 0 90", "V pos 90", "H range 0 255"}));
    buffer->visibleLines = 160;
    FitScrollBars(*buffer);
    EXPECT_EQ(buffer->topLine, 0);
    EXPECT_EQ(BarCalls(), (Calls{"V range 0 -60", "V pos 0", "H range 0 255"}));

    // The thumb of a huge buffer reaches the end by the 32-bit position, not the 16-bit one.
    TestBuffer huge(NumberedLines(70000));
    huge->visibleLines = 20;
    EXPECT_TRUE(NeedsTrackPosition(*huge));
    EXPECT_EQ(ScrollByBar(*huge, true, BarCode::ThumbTrack, 69980), 69980);
    EXPECT_EQ(ScrollByBar(*huge, true, BarCode::ThumbPosition, 35000), -34980);
    TestBuffer edge(NumberedLines(65000), false);
    EXPECT_FALSE(NeedsTrackPosition(*edge));
    ASSERT_EQ(AppendLine(&edge->lines, "one more"), 0);
    EXPECT_TRUE(NeedsTrackPosition(*edge));
}

TEST_F(ViewTest, SettersOrderClampRedrawAndSetTheBarsOnlyWhenValuesChange) {
    TestBuffer buffer(NumberedLines(40, "line number "));
    buffer->visibleLines = 10;
    // An end at column 0 shows nothing on its line; the same selection again redraws nothing
    // (but still pushes the command state); lines outside the window are left alone.
    const struct {
        TextPos from, to;
        std::vector<int> redrawn;
    } steps[] = {
        {{5, 1}, {2, 3}, {2, 3, 4, 5}},
        {{2, 3}, {6, 0}, {5}},
        {{2, 3}, {6, 2}, {6}},
        {{2, 0}, {6, 2}, {2}},
        {{6, 2}, {2, 0}, {}},
        {{2, 0}, {30, 2}, {6, 7, 8, 9, 10}},
        {{4, 4}, {4, 4}, {2, 3, 4, 5, 6, 7, 8, 9, 10}},
    };
    int copyRow = -1;
    CommandByName("EditCopy", nullptr, false, &copyRow);
    for (const auto& step : steps) {
        host.enableCalls.clear();
        host.redrawnLines.clear();
        SetSelection(*buffer, step.from, step.to);
        std::vector<int> redrawn;
        for (const auto& [b, line] : host.redrawnLines)
            redrawn.push_back(line);
        EXPECT_EQ(redrawn, step.redrawn) << step.to.line << "," << step.to.column;
        EXPECT_EQ(host.enabledCommands[copyRow], step.from != step.to);
        EXPECT_FALSE(host.enableCalls.empty());
    }
    SetSelection(*buffer, MakePos(-1, 9), MakePos(99, 99)); // clamped into the text
    EXPECT_EQ(buffer->selStart, MakePos(0, 9));
    EXPECT_EQ(buffer->selEnd, MakePos(39, 14));
    // Only the buffer on show pushes the selection commands.
    TestBuffer hidden("hidden text", false);
    host.enableCalls.clear();
    SetSelection(*hidden, MakePos(0, 0), MakePos(0, 3));
    EXPECT_EQ(hidden->lines.hasSelection, 1);
    EXPECT_TRUE(host.enableCalls.empty());

    // {wanted, caret, top, left, shown top, shown left, scroll updates so far}
    TestBuffer caret("short\nlonger line\nx");
    const struct {
        TextPos wanted, caret;
        int32_t top, left, shownTop, shownLeft, updates;
    } carets[] = {{{1, 40}, {1, 11}, 0, 0, 0, 0, 0},
                  {{7, -2}, {2, 0}, 1, 0, 1, 0, 1},
                  {{0, 2}, {0, 2}, 1, 4, 1, 4, 2},
                  {{0, 2}, {0, 2}, -3, -1, 0, 0, 3},
                  {{0, 3}, {0, 3}, 0, 0, 0, 0, 3}};
    for (const auto& step : carets) {
        SetCursorAndScroll(*caret, step.wanted, step.top, step.left);
        EXPECT_EQ(caret->cursor, step.caret);
        EXPECT_EQ(caret->topLine, step.shownTop);
        EXPECT_EQ(caret->leftColumn, step.shownLeft);
        EXPECT_EQ(host.scrollUpdates, step.updates);
    }

    // The bars are set only when their values change, and per buffer.
    TestBuffer bars("entity e is\nend e;\n\nx");
    bars->visibleLines = 2;
    bars->visibleColumns = 55;
    BarCalls();
    SetCursorAndScroll(*bars, MakePos(0, 3), 0, 0);
    EXPECT_EQ(BarCalls(), (Calls{"V range 0 2", "V pos 0", "H pos 0", "H range 0 200"}));
    SetCursorAndScroll(*bars, MakePos(0, 4), 0, 0);
    EXPECT_TRUE(BarCalls().empty());
    SetCursorAndScroll(*bars, MakePos(1, 0), 0, 0); // another line length
    EXPECT_EQ(BarCalls(), Calls{"H range 0 200"});
    SetCursorAndScroll(*bars, MakePos(1, 0), 1, 0);
    EXPECT_EQ(BarCalls(), (Calls{"V range 0 2", "V pos 1"}));
    SetCursorAndScroll(*bars, MakePos(1, 0), 1, 3);
    EXPECT_EQ(BarCalls(), Calls{"H pos 3"});
    RecordEdit(*bars, MakePos(1, 0), MakePos(1, 0), "\n", MakePos(2, 0), ScrollTarget{1, 0},
               MakePos(0, 0), MakePos(0, 0));
    EXPECT_EQ(BarCalls(), (Calls{"V range 0 3", "V pos 1", "H pos 0"}));
    SetCursorAndScroll(*buffer, MakePos(2, 0), 1, 0); // cached values are per buffer
    EXPECT_EQ(BarCalls().size(), 4u);
}

TEST_F(ViewTest, StatusPanesShowThePositionModeAndStateOnlyWhenChanged) {
    char text[40];
    EXPECT_EQ(PositionText(0, 0, text, sizeof text), 10);
    EXPECT_STREQ(text, "   1 : 0  ");
    PositionText(123455, 1234, text, sizeof text);
    EXPECT_STREQ(text, " 123456 : 1234");
    EXPECT_EQ(PositionText(0, 0, text, 4), 3); // cut but terminated
    EXPECT_STREQ(text, "   ");

    editor.settings.options.tabSize = 8;
    TestBuffer buffer("\tx = 1;\nsecond");
    buffer.PlaceCaret(0, 2); // after the tab and the x
    const auto sets = [&] {
        Calls texts;
        for (const FakeHost::StatusText& set : host.statusTexts)
            texts.push_back(std::to_string(set.pane) + ":" + set.text);
        host.statusTexts.clear();
        return texts;
    };
    // {change, changed, pane texts}: the mode pane is set every time (the status line drops
    // equal texts); read-only wins over modified, and goes when an unmodified buffer comes next.
    TestBuffer other("zzz", false);
    TestBuffer locked("other text", false);
    locked->lines.readOnly = locked->lines.modified = 1;
    const struct {
        std::function<void()> change;
        bool changed;
        Calls texts;
    } steps[] = {
        {[] {}, true, {"0:   1 : 9  ", "2:", "1:Insert"}},
        {[] {}, false, {"1:Insert"}},
        {[&] { buffer.PlaceCaret(1, 2); }, true, {"0:   2 : 2  ", "1:Insert"}},
        {[&] { buffer->lines.modified = 1; }, false, {"2:Modified", "1:Insert"}},
        {[&] { buffer->lines.modified = 0; }, false, {"2:", "1:Insert"}},
        {[&] { editor.engine.overwriteMode = true; }, false, {"1:Overwrite"}},
        {[&] { EXPECT_FALSE(UpdateStatus(*other)); }, false, {"1:Overwrite"}},
        {[] { ForgetStatus(); }, true, {"0:   2 : 2  ", "2:", "1:Overwrite"}},
        {[&] {
             editor.engine.currentBuffer = locked.get();
             UpdateStatus(*locked);
         },
         true,
         {"0:   1 : 0  ", "2:Readonly", "1:Overwrite", "0:   2 : 2  ", "2:", "1:Overwrite"}},
    };
    for (const auto& step : steps) {
        step.change();
        editor.engine.currentBuffer = buffer.get();
        EXPECT_EQ(UpdateStatus(*buffer), step.changed) << step.texts.front();
        EXPECT_EQ(sets(), step.texts);
    }
}

TEST_F(ViewTest, FontHeightFollowsThePointSizeAndTheScreen) {
    // Zero, negative sizes and texts that are no number give the 10-point font; the height is
    // negative (a character height) and rounded to the nearest pixel, as MulDiv does.
    const struct {
        const char* size;
        int points, at96, at120;
    } fonts[] = {{"12", 12, -16, -20},
                 {" \t14pt", 14, -19, -23},
                 {"11", 11, -15, -18},
                 {"+9", 9, -12, -15},
                 {"0", 10, -13, -17},
                 {"", 10, -13, -17},
                 {"abc", 10, -13, -17},
                 {"-3", 10, -13, -17},
                 {" ", 10, -13, -17},
                 {"1", 1, -1, -2},
                 {"99999999", 99999, -133332, -166665}};
    for (const auto& font : fonts) {
        EXPECT_EQ(EditorFontPointSize(font.size), font.points) << font.size;
        EXPECT_EQ(EditorFontHeight(font.size, 96), font.at96) << font.size;
        EXPECT_EQ(EditorFontHeight(font.size, 120), font.at120) << font.size;
    }
    // Halves go away from zero; a zero divisor or an overflow gives -1.
    const int mulDivs[][4] = {{5, 3, 2, 8},
                              {-5, 3, 2, -8},
                              {5, 3, -2, -8},
                              {7, 1, 3, 2},
                              {1, 1, 0, -1},
                              {1 << 30, 8, 1, -1},
                              {-(1 << 30), 8, 1, -1},
                              {INT_MIN, 1, 1, INT_MIN},
                              {INT_MAX, 1, 1, INT_MAX}};
    for (const auto& m : mulDivs)
        EXPECT_EQ(MulDivRounded(m[0], m[1], m[2]), m[3]) << m[0] << "*" << m[1] << "/" << m[2];
}

TEST_F(ViewTest, MeasureAndPaintPlanCoverVisibleRowsAndBlankBelowTheText) {
    TestBuffer buffer(NumberedLines(100, "line ") + "\n"); // 101 lines, the last empty
    MeasureBuffer(*buffer, 645, 479);
    const auto measured = [&] {
        return std::to_string(buffer->marginColumns) + " " + std::to_string(buffer->windowColumns) +
               " " + std::to_string(buffer->marginWidth) + " " +
               std::to_string(buffer->visibleLines) + " " + std::to_string(buffer->visibleColumns) +
               " " + std::to_string(TextColumnX(*buffer, 3));
    };
    EXPECT_EQ(measured(), "7 80 56 31 73 80");
    // A full repaint draws the visible rows and the partial one after them; one line gets
    // no margin; near the end the area below the last line is painted white; scrolled
    // sideways the text is clipped off the margin.
    Measure(*buffer);
    const auto plan = [&](int32_t top, int32_t from, int32_t to, bool whole) {
        buffer->topLine = top;
        const PaintPlan p = PlanPaint(*buffer, from, to, whole);
        return std::to_string(p.firstLine) + ".." + std::to_string(p.endLine) +
               (p.margin ? " margin" : "") + (p.clip ? " clip" : "") +
               (p.blankBelow ? " blank from " + std::to_string(p.blankFromRow) : "");
    };
    EXPECT_EQ(plan(10, 0, 101, true), "10..43 margin");
    EXPECT_EQ(plan(10, 12, 12, false), "12..13");
    EXPECT_EQ(plan(69, 0, 101, true), "69..101 margin blank from 32");
    EXPECT_EQ(plan(70, 0, 101, true), "70..101 margin blank from 31");
    EXPECT_EQ(plan(90, 50, 60, true), "90..90 margin");
    EXPECT_EQ(BlankBelowRect(*buffer, 11), (PixelRect{56, 165, 648, 495}));
    buffer->leftColumn = 3;
    EXPECT_EQ(plan(90, 95, 96, false), "95..97 clip");
    EXPECT_EQ(TextClipRect(*buffer), (PixelRect{56, 0, 640, 495}));

    char number[16];
    EXPECT_EQ(LineNumberText(0, number, sizeof number), 5);
    EXPECT_STREQ(number, "    1");
    EXPECT_EQ(LineNumberText(99999, number, 4), 3);
    EXPECT_STREQ(number, "100");

    // Line numbers off: the text starts at the left edge and there is no margin to paint.
    SetLineNumbersShown(false);
    Measure(*buffer);
    EXPECT_EQ(measured(), "0 80 0 32 80 0");
    EXPECT_FALSE(PlanPaint(*buffer, 0, 101, true).margin);
    EXPECT_EQ(MarginRect(*buffer), (PixelRect{-1, -1, -1, 495}));
    SetFontMetrics(0, 0); // a zero-sized cell never divides by zero
    EXPECT_EQ(CharWidth() * LineHeight(), 1);
}

TEST_F(ViewTest, RowsAreColouredSplitAtTheSelectionAndTabbedFromTheTextsColumnZero) {
    editor.settings.options.tabSize = 4;
    TestBuffer buffer("entity alu is -- top\nsignal a\n\tend x\tis\nlast line\nab\tc");
    buffer->language = &language;
    Measure(*buffer);
    // {selection start, end, line, row}: within one line the runs split at its columns and the
    // selected text is white; over several lines from the start column to the end of the first
    // line (the row's rest black), whole lines inside, up to the end column on the last line;
    // an end at column 0 shows nothing on its line, a start at a line's end only the black rest.
    const struct {
        TextPos from, to;
        int32_t line;
        const char* row;
    } rows[] = {
        {{0, 0}, {0, 0}, 0, "[entity]k@0[ alu ]t@6[is]k@11[ ]t@13[-- top]c@14 white 20"},
        {{0, 3},
         {0, 9},
         0,
         "[ent]k@0[ity]*w@3[ al]*w@6[u ]t@9[is]k@11[ ]t@13[-- top]c@14 white 20"},
        {{3, 4}, {0, 14}, 1, "[signal a]*w@0 black 8"},
        {{3, 4}, {0, 14}, 3, "[last]*w@0[ line]t@4 white 9"},
        {{0, 20}, {2, 0}, 0, "[entity]k@0[ alu ]t@6[is]k@11[ ]t@13[-- top]c@14 black 20"},
        {{1, 8}, {2, 1}, 2, "[\t]*w@0~[end]k@4[ x\t]t@7~[is]k@12 white 14"},
        {{0, 0}, {0, 0}, 9, " white 0"},
        // A selection inside a tabbed run keeps each piece's own column.
        {{2, 5}, {2, 8}, 2, "[\t]t@0~[end]k@4[ ]t@7[x\t]*w@8~[i]*w@12[s]k@13 white 14"},
    };
    for (const auto& row : rows) {
        buffer.Select(row.from, row.to);
        EXPECT_EQ(Describe(*buffer, row.line), row.row) << row.line;
    }
    // Colouring off: one black run, still split by the selection; a tab size of 0 is 1.
    editor.settings.options.colors = false;
    buffer.Select(MakePos(1, 2), MakePos(1, 4));
    EXPECT_EQ(Describe(*buffer, 1), "[si]b@0[gn]*w@2[al a]b@4 white 8");
    editor.settings.options.tabSize = 0;
    EXPECT_EQ(Describe(*buffer, 4), "[ab\tc]b@0~ white 4");

    // Scrolled by 2 columns, the tab origin moves with the text, so a leading tab still
    // ends on a multiple of the tab size from the text's start.
    editor.settings.options.tabSize = 4;
    buffer->leftColumn = 2;
    EXPECT_EQ(TabStopWidth(), 32);
    EXPECT_EQ(TabOriginX(*buffer), (7 - 2) * 8);
    // The row's rest starts after the text and reaches one pixel into the next row.
    EXPECT_EQ(RowFillRect(*buffer, 1, 5), (PixelRect{80, 15, 648, 31}));
    // The caret follows the screen column; scrolled sideways it sits at the margin's edge at
    // the left column, and left of it out of sight rather than at column 0.
    buffer->topLine = 3;
    buffer.PlaceCaret(4, 3); // after the tab: screen column 4, window row 1
    const int columns[][2] = {{0, (7 + 4) * 8}, {4, 7 * 8}, {5, -8}};
    for (const auto& c : columns) {
        buffer->leftColumn = c[0];
        EXPECT_EQ(CaretPosition(*buffer), (CaretPixel{c[1], 15})) << c[0];
    }
    EXPECT_EQ(CaretWidth(), 2);
    editor.engine.overwriteMode = true;
    EXPECT_EQ(CaretWidth(), 8);
}

// For any selection, a row's segments cover the line once in order, exactly the selected
// bytes are inverted, and each segment starts at the screen column of its first byte.
TEST_F(ViewTest, RandomSelectionsInvertExactlyTheSelectedBytes) {
    std::mt19937 random(7);
    const char alphabet[] = "entity is end signal -- x\t\"'ab";
    std::string text;
    for (int line = 0; line < 8; ++line) {
        text += line > 0 ? "\n" : "";
        for (int i = static_cast<int>(random() % 40); i > 0; --i)
            text += alphabet[random() % (sizeof alphabet - 1)];
    }
    TestBuffer buffer(text);
    buffer->language = &language;
    RowLayout layout;
    for (int round = 0; round < 400; ++round) {
        editor.settings.options.tabSize = 1 + static_cast<int>(random() % 8);
        editor.settings.options.colors = random() % 4 != 0;
        const auto anyPos = [&] {
            const int32_t line = static_cast<int32_t>(random() % 8);
            return MakePos(line, static_cast<int32_t>(random() % (LineLength(*buffer, line) + 1)));
        };
        buffer.Select(anyPos(), anyPos());
        for (int32_t line = 0; line < 8; ++line) {
            const char* chars = buffer->lines.lineText[line];
            LayOutRow(*buffer, line, layout);
            int32_t covered = 0;
            for (int i = 0; i < layout.count; ++i) {
                const RowSegment& segment = layout.segments[i];
                ASSERT_EQ(segment.start, covered) << round;
                ASSERT_GT(segment.length, 0);
                EXPECT_EQ(segment.displayColumn, DisplayColumn(chars, segment.start));
                for (int32_t at = segment.start; at < segment.start + segment.length; ++at) {
                    const TextPos pos = MakePos(line, at);
                    const bool selected =
                        PosLessOrEqual(buffer->selStart, pos) && PosLess(pos, buffer->selEnd);
                    ASSERT_EQ(segment.inverted, selected) << round << " line " << line;
                }
                covered += segment.length;
            }
            EXPECT_EQ(covered, LineLength(*buffer, line));
            EXPECT_EQ(layout.endColumn, DisplayColumn(chars, covered));
            EXPECT_EQ(layout.fillBlack,
                      buffer->selStart.line <= line && line < buffer->selEnd.line);
        }
    }
}

// A compiler error list owned by one buffer, as the compiler support installs it.
const EditBuffer* errorOwner = nullptr;
std::vector<MarginError> errorEntries;

TEST_F(ViewTest, ErrorMarkersOfTheOwningBufferOnPaintedLines) {
    TestBuffer buffer(std::string(60, '\n'));
    TestBuffer other(std::string(60, '\n'), false);
    Measure(*buffer);
    Measure(*other);
    buffer->topLine = 5;
    errorOwner = buffer.get();
    errorEntries = {{3, 1, 0},  {8, 2, 2},  {9, 3, 0}, {40, 4, 0},
                    {38, 5, 2}, {0, -1, 0}, {10, 6, 0}};
    ErrorMarker markers[16];
    const auto collect = [&](EditBuffer& b, int32_t from, int32_t to, bool whole, int room = 16) {
        std::string found;
        const int count = CollectErrorMarkers(b, PlanPaint(b, from, to, whole), markers, room);
        for (int i = 0; i < count; ++i)
            found +=
                std::to_string(markers[i].line) + (markers[i].color == ColorYellow        ? "w "
                                                   : markers[i].color == ColorMarginError ? "e "
                                                                                          : "? ");
        return found;
    };
    EXPECT_EQ(collect(*buffer, 0, 60, true), ""); // no source installed
    editor.engine.display.errorSource = [](const EditBuffer& b, int32_t i, MarginError& entry) {
        if (&b != errorOwner || i < 0 || i >= static_cast<int32_t>(errorEntries.size()))
            return false;
        entry = errorEntries[static_cast<size_t>(i)];
        return true;
    };
    // Line 3 is above the view, line 40 below it, line 10 after the closing entry; the row
    // after the last full one is painted too.
    EXPECT_EQ(collect(*buffer, 0, 60, true), "7w 8e 37w ");
    errorEntries[2].kind = 1; // a note is no fault either: yellow
    EXPECT_EQ(collect(*buffer, 0, 60, true), "7w 8w 37w ");
    EXPECT_EQ(ErrorMarkerBox(*buffer, 7), (PixelRect{3, 30, 13, 40}));
    EXPECT_EQ(collect(*buffer, 0, 60, true, 1), "7w ");
    // Only the painted lines, only the owner, only when the margin is painted.
    EXPECT_EQ(collect(*buffer, 8, 36, true), "8w ");
    EXPECT_EQ(collect(*other, 0, 60, true), "");
    EXPECT_EQ(collect(*buffer, 0, 60, false), "");
    errorEntries[1].resultLine = -2; // -2 closes the list as well
    EXPECT_EQ(collect(*buffer, 0, 60, true), "");
}

TEST_F(ViewTest, FoundTextIsDrawnOnceAndTakenAwayByTheNext) {
    editor.settings.options.tabSize = 4;
    TestBuffer buffer("first\tline\nsecond line\nthird");
    Measure(*buffer);
    const auto shown = [&] {
        std::string calls;
        for (const auto& f : host.foundTexts)
            calls += "draw " + std::to_string(f.line) + ":" + std::to_string(f.startColumn) + "-" +
                     std::to_string(f.endColumn) + " ";
        for (const auto& [b, line] : host.redrawnLines)
            calls += "redraw " + std::to_string(line) + " ";
        host.foundTexts.clear();
        host.redrawnLines.clear();
        return calls;
    };
    const RowSegment segment = InvertedSegment(*buffer, 0, 6, 10);
    EXPECT_EQ(segment.displayColumn, 8); // after the tab
    EXPECT_EQ(segment.length, 4);
    EXPECT_TRUE(segment.inverted && !segment.hasTabs);
    EXPECT_EQ(InvertedSegment(*buffer, 0, -3, 99).length, 10);
    EXPECT_TRUE(InvertedSegment(*buffer, 0, 4, 6).hasTabs);

    // The next match first redraws the old line normally; a match over two lines is not
    // highlighted, but the old one still goes; columns are kept inside the line.
    const struct {
        TextPos from, to;
        const char* calls;
    } finds[] = {{{0, 6}, {0, 10}, "draw 0:6-10 "},
                 {{1, 0}, {1, 6}, "draw 1:0-6 redraw 0 "},
                 {{1, 7}, {2, 2}, "redraw 1 "},
                 {{2, 3}, {2, 99}, "draw 2:3-5 "}};
    for (const auto& find : finds) {
        ShowFoundText(*buffer, find.from, find.to);
        EXPECT_EQ(shown(), find.calls);
    }
    HideFoundText();
    EXPECT_EQ(shown(), "redraw 2 ");
    HideFoundText();
    EXPECT_EQ(shown(), "");
    // A line that is gone, or a closed window, is not redrawn.
    ShowFoundText(*buffer, MakePos(2, 0), MakePos(2, 1));
    ASSERT_EQ(DeleteRange(*buffer, MakePos(1, 11), MakePos(2, 5)), 1);
    HideFoundText();
    EXPECT_EQ(shown(), "draw 2:0-1 ");
    ShowFoundText(*buffer, MakePos(1, 0), MakePos(1, 1));
    buffer->closedFlags |= ClosedFlagWindowGone;
    host.foundTexts.clear();
    HideFoundText();
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(editor.engine.display.found.shown);
}

} // namespace
} // namespace ruvo
