// Pixel layout of edit windows: font height, measuring, paint plans, the segments of a row with
// selection and tabs, the caret's place, error markers and the found-text highlight.
#include "engine/line_layout.h"

#include <random>
#include <string>
#include <vector>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/found_text.h"
#include "engine/text_store.h"
#include "lang/keyword_lookup.h"

namespace ruvo {
namespace {

constexpr uint32_t TextColour = MakeColor(1, 1, 1);
constexpr uint32_t CommentColour = MakeColor(2, 2, 2);
constexpr uint32_t KeywordColour = MakeColor(5, 5, 5);

class LineLayoutTest : public EditorTest {
  protected:
    LineLayoutTest() {
        language.name = "VHDL";
        language.lineComment = "--";
        language.text.color = TextColour;
        language.comment.color = CommentColour;
        language.groups[0].attribute.color = KeywordColour;
        for (const char* word : {"entity", "is", "end", "signal"})
            EXPECT_TRUE(language.groups[0].words.Append(word));
        SortKeywords(language.groups[0].words);
        SetFontMetrics(8, 15);
    }

    // A 640 x 480 window: 80 columns with a 7-column margin, 32 full rows.
    void Measure(EditBuffer& buffer) { MeasureBuffer(buffer, 640, 480); }

    // Each segment as text, '*' when inverted, '@' screen column, '~' when drawn with tabs.
    std::string Describe(const EditBuffer& buffer, int32_t line) {
        RowLayout layout;
        LayOutRow(buffer, line, layout);
        std::string text;
        for (int i = 0; i < layout.count; ++i) {
            const RowSegment& s = layout.segments[i];
            text +=
                "[" +
                std::string(buffer.lines.lineText[line] + s.start, static_cast<size_t>(s.length)) +
                "]";
            if (s.inverted) text += "*";
            text += "@" + std::to_string(s.displayColumn);
            if (s.hasTabs) text += "~";
        }
        text += layout.fillBlack ? " black" : " white";
        return text;
    }

    LanguageDef language;
};

TEST_F(LineLayoutTest, FontHeightFollowsThePointSizeAndTheScreen) {
    // Zero, negative sizes and texts that are no number give the 10-point font; the height is
    // negative (a character height) and rounded to the nearest pixel, as MulDiv does.
    const struct {
        const char* size;
        int points, at96, at120;
    } fonts[] = {{"12", 12, -16, -20}, {" 14pt", 14, -19, -23}, {"11", 11, -15, -18},
                 {"9", 9, -12, -15},   {"0", 10, -13, -17},     {"", 10, -13, -17},
                 {"abc", 10, -13, -17}, {"-3", 10, -13, -17},   {" ", 10, -13, -17}};
    for (const auto& font : fonts) {
        EXPECT_EQ(EditorFontPointSize(font.size), font.points) << font.size;
        EXPECT_EQ(EditorFontHeight(font.size, 96), font.at96) << font.size;
        EXPECT_EQ(EditorFontHeight(font.size, 120), font.at120) << font.size;
    }
    // Halves go away from zero; a zero divisor or an overflow gives -1.
    const int mulDivs[][4] = {{5, 3, 2, 8},  {-5, 3, 2, -8},  {5, 3, -2, -8},
                              {7, 1, 3, 2},  {1, 1, 0, -1},   {1 << 30, 8, 1, -1}};
    for (const auto& m : mulDivs)
        EXPECT_EQ(MulDivRounded(m[0], m[1], m[2]), m[3]) << m[0] << "*" << m[1] << "/" << m[2];
}

TEST_F(LineLayoutTest, MeasureAndPaintPlanCoverVisibleRowsAndBlankBelowTheText) {
    std::string text;
    for (int i = 0; i < 100; ++i)
        text += "line " + std::to_string(i) + "\n";
    TestBuffer buffer(text); // 101 lines, the last empty
    MeasureBuffer(*buffer, 645, 479);
    EXPECT_EQ(buffer->marginColumns, 7);
    EXPECT_EQ(buffer->windowColumns, 80);
    EXPECT_EQ(buffer->marginWidth, 56);
    EXPECT_EQ(buffer->visibleLines, 31);
    EXPECT_EQ(buffer->visibleColumns, 73);
    EXPECT_EQ(TextColumnX(*buffer, 0), 56);

    // A full repaint draws the visible rows and the partial one after them; one line gets
    // no margin; near the end the area below the last line is painted white; scrolled
    // sideways the text is clipped off the margin.
    Measure(*buffer);
    const auto plan = [&](int32_t from, int32_t to, bool whole) {
        const PaintPlan p = PlanPaint(*buffer, from, to, whole);
        return std::to_string(p.firstLine) + ".." + std::to_string(p.endLine) +
               (p.margin ? " margin" : "") + (p.clip ? " clip" : "") +
               (p.blankBelow ? " blank from " + std::to_string(p.blankFromRow) : "");
    };
    buffer->topLine = 10;
    EXPECT_EQ(plan(0, 101, true), "10..43 margin");
    EXPECT_EQ(plan(12, 12, false), "12..13");
    buffer->topLine = 90;
    EXPECT_EQ(plan(95, 101, true), "95..101 margin blank from 11");
    EXPECT_EQ(BlankBelowRect(*buffer, 11), (PixelRect{56, 165, 648, 495}));
    buffer->leftColumn = 3;
    EXPECT_EQ(plan(95, 96, false), "95..97 clip");
    EXPECT_EQ(TextClipRect(*buffer), (PixelRect{56, 0, 640, 495}));

    char number[16];
    EXPECT_EQ(LineNumberText(0, number, sizeof number), 5);
    EXPECT_STREQ(number, "    1");
    LineNumberText(99999, number, sizeof number);
    EXPECT_STREQ(number, "100000");

    // Line numbers off: the text starts at the left edge and there is no margin to paint.
    SetLineNumbersShown(false);
    Measure(*buffer);
    EXPECT_EQ(buffer->visibleColumns, 80);
    EXPECT_EQ(TextColumnX(*buffer, 3), 0);
    EXPECT_FALSE(PlanPaint(*buffer, 0, 101, true).margin);
    EXPECT_EQ(MarginRect(*buffer), (PixelRect{-1, -1, -1, 495}));

    // A zero-sized cell never divides by zero.
    SetFontMetrics(0, 0);
    EXPECT_EQ(CharWidth(), 1);
    EXPECT_EQ(LineHeight(), 1);
}

TEST_F(LineLayoutTest, RowsAreColouredAndSplitAtTheSelection) {
    TestBuffer buffer("entity alu is -- top\nsignal a\n\tend\nlast line");
    buffer->language = &language;
    Measure(*buffer);

    const auto colours = [&](int32_t line) {
        RowLayout layout;
        LayOutRow(*buffer, line, layout);
        std::vector<uint32_t> found;
        for (int i = 0; i < layout.count; ++i)
            found.push_back(layout.segments[i].color);
        return found;
    };
    EXPECT_EQ(Describe(*buffer, 0), "[entity]@0[ alu ]@6[is]@11[ ]@13[-- top]@14 white");
    EXPECT_EQ(colours(0), (std::vector<uint32_t>{KeywordColour, TextColour, KeywordColour,
                                                 TextColour, CommentColour}));

    // A selection inside one line splits the runs at its columns; selected text is white.
    buffer.Select(MakePos(0, 3), MakePos(0, 9));
    EXPECT_EQ(Describe(*buffer, 0), "[ent]@0[ity]*@3[ al]*@6[u ]@9[is]@11[ ]@13[-- top]@14 white");
    EXPECT_EQ(colours(0)[0], KeywordColour);
    EXPECT_EQ(colours(0)[1], ColorWhite);

    // Over several lines: from the start column to the end of the first line (the row's
    // rest black), whole lines inside, and up to the end column on the last line.
    buffer.Select(MakePos(3, 4), MakePos(0, 14));
    EXPECT_EQ(Describe(*buffer, 0), "[entity]@0[ alu ]@6[is]@11[ ]@13[-- top]*@14 black");
    EXPECT_EQ(Describe(*buffer, 1), "[signal a]*@0 black");
    EXPECT_EQ(Describe(*buffer, 2), "[\tend]*@0~ black");
    EXPECT_EQ(Describe(*buffer, 3), "[last]*@0[ line]@4 white");

    // A selection that ends at column 0 shows nothing on its last line; one that starts at
    // the end of a line shows only the black rest of the row.
    buffer.Select(MakePos(0, 20), MakePos(2, 0));
    EXPECT_EQ(Describe(*buffer, 0), "[entity]@0[ alu ]@6[is]@11[ ]@13[-- top]@14 black");
    EXPECT_EQ(Describe(*buffer, 2), "[\t]@0~[end]@4 white");

    // Colouring off: one black run, still split by the selection.
    editor.settings.options.colors = false;
    buffer.Select(MakePos(1, 2), MakePos(1, 4));
    EXPECT_EQ(Describe(*buffer, 1), "[si]@0[gn]*@2[al a]@4 white");
    EXPECT_EQ(colours(1)[0], ColorBlack);

    // An empty line has no segments; its row is filled from column 0.
    TestBuffer empty("\nx");
    RowLayout layout;
    LayOutRow(*empty, 0, layout);
    EXPECT_EQ(layout.count, 0);
    EXPECT_EQ(layout.endColumn, 0);
}

// For any selection, a row's segments cover the line once in order, exactly the selected
// bytes are inverted, and each segment starts at the screen column of its first byte.
TEST_F(LineLayoutTest, RandomSelectionsInvertExactlyTheSelectedBytes) {
    std::mt19937 random(7);
    const char alphabet[] = "entity is end signal -- x\t\"'ab";
    std::string text;
    for (int line = 0; line < 8; ++line) {
        if (line > 0) text += '\n';
        const int length = static_cast<int>(random() % 40);
        for (int i = 0; i < length; ++i)
            text += alphabet[random() % (sizeof alphabet - 1)];
    }
    TestBuffer buffer(text);
    buffer->language = &language;
    Measure(*buffer);
    RowLayout layout;
    for (int round = 0; round < 400; ++round) {
        editor.settings.options.tabSize = 1 + static_cast<int>(random() % 8);
        editor.settings.options.colors = random() % 4 != 0;
        const auto anyPos = [&] {
            const int32_t line = static_cast<int32_t>(random() % 8);
            const int32_t length =
                static_cast<int32_t>(std::string_view(buffer->lines.lineText[line]).size());
            return MakePos(line, static_cast<int32_t>(random() % (length + 1)));
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
            EXPECT_EQ(covered, static_cast<int32_t>(std::string_view(chars).size()));
            EXPECT_EQ(layout.endColumn, DisplayColumn(chars, covered));
            EXPECT_EQ(layout.fillBlack,
                      buffer->selStart.line <= line && line < buffer->selEnd.line);
        }
    }
}

TEST_F(LineLayoutTest, TabsExpandFromTheTextsOwnColumnZero) {
    editor.settings.options.tabSize = 4;
    TestBuffer buffer("\tend x\tis\nab\tc");
    buffer->language = &language;
    Measure(*buffer);

    EXPECT_EQ(Describe(*buffer, 0), "[\t]@0~[end]@4[ x\t]@7~[is]@12 white");
    RowLayout layout;
    LayOutRow(*buffer, 1, layout);
    EXPECT_EQ(layout.endColumn, 5);

    // Scrolled by 2 columns, the tab origin moves with the text, so a leading tab still
    // ends on a multiple of the tab size from the text's start.
    buffer->leftColumn = 2;
    EXPECT_EQ(TabStopWidth(), 32);
    EXPECT_EQ(TabOriginX(*buffer), (7 - 2) * 8);
    EXPECT_EQ(TextColumnX(*buffer, 4) - TabOriginX(*buffer), 4 * 8);
    // The row's rest starts after the text and reaches one pixel into the next row.
    EXPECT_EQ(RowFillRect(*buffer, 1, layout.endColumn), (PixelRect{80, 15, 648, 31}));

    // A selection inside a tabbed run keeps each piece's own column.
    buffer.Select(MakePos(0, 5), MakePos(0, 8));
    EXPECT_EQ(Describe(*buffer, 0), "[\t]@0~[end]@4[ ]@7[x\t]*@8~[i]*@12[s]@13 white");

    // The caret follows the screen column; scrolled sideways it sits at the margin's edge at
    // the left column, and left of it out of sight rather than at column 0.
    buffer.PlaceCaret(1, 3); // after the tab: screen column 4, window row 1
    const int columns[][2] = {{0, (7 + 4) * 8}, {4, 7 * 8}, {5, -8}};
    for (const auto& c : columns) {
        buffer->leftColumn = c[0];
        EXPECT_EQ(CaretPosition(*buffer), (CaretPixel{c[1], 15})) << c[0];
    }
    EXPECT_EQ(CaretWidth(), 2);
    editor.engine.overwriteMode = true;
    EXPECT_EQ(CaretWidth(), 8);

    editor.settings.options.tabSize = 8;
    EXPECT_EQ(Describe(*buffer, 1), "[ab\tc]@0~ white");
    LayOutRow(*buffer, 1, layout);
    EXPECT_EQ(layout.endColumn, 9);
}

// A compiler error list owned by one buffer, as the compiler support installs it.
const EditBuffer* errorOwner = nullptr;
std::vector<MarginError> errorEntries;

TEST_F(LineLayoutTest, ErrorMarkersOfTheOwningBufferOnPaintedLines) {
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += "x\n";
    TestBuffer buffer(text);
    TestBuffer other(text, false);
    Measure(*buffer);
    Measure(*other);
    buffer->topLine = 5;

    errorOwner = buffer.get();
    errorEntries = {{3, 1, 0}, {8, 2, 2}, {9, 3, 0}, {40, 4, 0}, {0, -1, 0}, {10, 6, 0}};
    ErrorMarker markers[16];
    const auto count = [&](EditBuffer& b, int32_t from, int32_t to, bool whole) {
        return CollectErrorMarkers(b, PlanPaint(b, from, to, whole), markers, 16);
    };
    const PaintPlan full = PlanPaint(*buffer, 0, 60, true);
    EXPECT_EQ(count(*buffer, 0, 60, true), 0); // no source installed

    editor.engine.display.errorSource = [](const EditBuffer& b, int32_t i, MarginError& entry) {
        if (&b != errorOwner || i < 0 || i >= static_cast<int32_t>(errorEntries.size()))
            return false;
        entry = errorEntries[static_cast<size_t>(i)];
        return true;
    };
    // Line 3 is above the view, line 40 below it, line 10 after the closing entry.
    ASSERT_EQ(count(*buffer, 0, 60, true), 2);
    EXPECT_EQ(markers[0].line, 7);
    EXPECT_EQ(markers[0].color, ColorYellow);
    EXPECT_EQ(markers[1].line, 8);
    EXPECT_EQ(markers[1].color, ColorMarginError);
    EXPECT_EQ(ErrorMarkerBox(*buffer, 7), (PixelRect{3, 30, 13, 40}));
    EXPECT_EQ(CollectErrorMarkers(*buffer, full, markers, 1), 1);

    // Only the painted lines, only the owner, only when the margin is painted.
    EXPECT_EQ(count(*buffer, 8, 20, true), 1);
    EXPECT_EQ(count(*other, 0, 60, true), 0);
    EXPECT_EQ(count(*buffer, 0, 60, false), 0);
    // -2 closes the list as well.
    errorEntries[1].resultLine = -2;
    EXPECT_EQ(count(*buffer, 0, 60, true), 0);
    errorEntries[1].resultLine = 2;
    SetLineNumbersShown(false);
    Measure(*buffer);
    EXPECT_EQ(count(*buffer, 0, 60, true), 0);
}

TEST_F(LineLayoutTest, FoundTextIsDrawnOnceAndTakenAwayByTheNext) {
    editor.settings.options.tabSize = 4;
    TestBuffer buffer("first\tline\nsecond line\nthird");
    Measure(*buffer);

    ShowFoundText(*buffer, MakePos(0, 6), MakePos(0, 10));
    ASSERT_EQ(host.foundTexts.size(), 1u);
    EXPECT_EQ(host.foundTexts[0].line, 0);
    EXPECT_EQ(host.foundTexts[0].startColumn, 6);
    EXPECT_EQ(host.foundTexts[0].endColumn, 10);
    EXPECT_TRUE(host.redrawnLines.empty());
    const RowSegment segment = InvertedSegment(*buffer, 0, 6, 10);
    EXPECT_EQ(segment.displayColumn, 8); // after the tab
    EXPECT_EQ(segment.length, 4);
    EXPECT_TRUE(segment.inverted);

    // The next match first redraws the old line normally.
    ShowFoundText(*buffer, MakePos(1, 0), MakePos(1, 6));
    ASSERT_EQ(host.redrawnLines.size(), 1u);
    EXPECT_EQ(host.redrawnLines[0].second, 0);
    EXPECT_EQ(host.foundTexts.size(), 2u);

    // A match over two lines is not highlighted; the old one still goes.
    ShowFoundText(*buffer, MakePos(1, 7), MakePos(2, 2));
    EXPECT_EQ(host.redrawnLines.size(), 2u);
    EXPECT_EQ(host.redrawnLines[1].second, 1);
    EXPECT_EQ(host.foundTexts.size(), 2u);
    HideFoundText();
    EXPECT_EQ(host.redrawnLines.size(), 2u);

    // Columns are kept inside the line; a closed window is not redrawn.
    ShowFoundText(*buffer, MakePos(2, 3), MakePos(2, 99));
    EXPECT_EQ(host.foundTexts.back().endColumn, 5);
    buffer->closedFlags |= ClosedFlagWindowGone;
    HideFoundText();
    EXPECT_EQ(host.redrawnLines.size(), 2u);
    EXPECT_FALSE(editor.engine.display.found.shown);
}

} // namespace
} // namespace ruvo
