// Printed pages: the grid between the margins, wrapping and numbering of rows, page breaks,
// the header, and the typefaces and colours of the scanner's runs.
#include "print/print_layout.h"

#include <string>
#include <tuple>
#include <vector>

#include "buffer_builder.h"
#include "editor_fixture.h"

namespace ruvo {
namespace {

// A page as text: each piece written at its cell, trailing blanks and empty end rows dropped.
std::vector<std::string> Render(const PrintedPage& page) {
    std::vector<std::string> rows(page.grid.rows);
    for (const PrintedPiece& piece : page.pieces) {
        std::string& row = rows.at(piece.row);
        if (row.size() < static_cast<size_t>(piece.column)) row.resize(piece.column, ' ');
        row.replace(piece.column, piece.text.size(), piece.text);
    }
    for (std::string& row : rows)
        row.erase(row.find_last_not_of(' ') + 1);
    while (!rows.empty() && rows.back().empty())
        rows.pop_back();
    return rows;
}

class PrintLayoutTest : public EditorTest {
  protected:
    PrintLayout Layout(TestBuffer& text, int columns, int rows) {
        PrintSource source{&text->lines, 0, text->lines.lineCount, nullptr, title, date};
        source.language = language;
        return PrintLayout(source, settings, 4, PageGrid{0, 0, 1, 1, columns, rows});
    }

    PrintSettings settings;
    std::string title = "C:\\work\\e.vhd";
    std::string date = "2024-01-02 03:04";
    const LanguageDef* language = nullptr;
};

TEST(PageGridTest, MarginsStayInsideThePrintableArea) {
    const PrinterMetrics letter{2550, 3300, 75, 75, 2400, 3150, 300, 300, 25, 42}; // 300 dpi
    const PrinterMetrics narrow{2550, 3300, 300, 400, 1950, 2500, 300, 300, 25, 42};
    // 8 characters from the paper's edge, half an inch elsewhere.
    EXPECT_EQ(ComputePageGrid(letter, 8), (PageGrid{125, 75, 25, 42, 88, 71}));
    // A printer that cannot print near the edges pushes the margins inwards.
    EXPECT_EQ(ComputePageGrid(narrow, 8), (PageGrid{0, 0, 25, 42, 78, 59}));
    // A margin that would leave fewer than 20 columns is narrowed.
    EXPECT_EQ(ComputePageGrid(letter, 200), (PageGrid{1825, 75, 25, 42, 20, 71}));
    EXPECT_EQ(ComputePageGrid(PrinterMetrics{}, 8), (PageGrid{0, 0, 1, 1, 1, 1}));
    // No margin asked on a printer that prints to the edge: the text starts at the edge.
    const PrinterMetrics edge{2550, 3300, 0, 0, 2550, 3300, 300, 300, 25, 42};
    EXPECT_EQ(ComputePageGrid(edge, 0), (PageGrid{0, 150, 25, 42, 96, 71}));
}

TEST_F(PrintLayoutTest, LongLinesWrapUnnumberedAcrossPageBreaks) {
    TestBuffer text("entity e is\n\tx <= a and b;  -- long comment here\n"
                    "abcdefghijklmnopqrstuvwxyz0123456789");
    // 24 text columns: breaks after the last blank of a row's second half, else at the width.
    const PrintLayout layout = Layout(text, 30, 6);
    ASSERT_EQ(layout.PageCount(), 2);
    EXPECT_EQ(Render(layout.Page(0)),
              (std::vector<std::string>{" 2024-01-02 03:04  Page 1 of 2", "", "   1  entity e is",
                                        "   2      x <= a and b;  --", "      long comment here",
                                        "   3  abcdefghijklmnopqrstuvwx"}));
    EXPECT_EQ(layout.Page(0).ruleRow, 1);
    EXPECT_EQ(Render(layout.Page(1)), (std::vector<std::string>{" 2024-01-02 03:04  Page 2 of 2",
                                                                "", "      yz0123456789"}));

    settings.wrapLines = false;
    settings.lineNumbers = false;
    settings.dateInHeader = false;
    const PrintLayout cut = Layout(text, 30, 6);
    ASSERT_EQ(cut.PageCount(), 1);
    EXPECT_EQ(Render(cut.Page(0)),
              (std::vector<std::string>{"C:\\work\\e.vhd      Page 1 of 1", "", "entity e is",
                                        "    x <= a and b;  -- long com",
                                        "abcdefghijklmnopqrstuvwxyz0123"}));
}

TEST_F(PrintLayoutTest, HeaderKeepsThePageNumberAndTheEndOfTheFileName) {
    TestBuffer text("");
    title = "C:\\projects\\cpu\\rtl\\alu.vhd";
    struct Case {
        int columns;
        bool file, date;
        const char* header;
    } cases[] = {
        {80, true, true,
         "C:\\projects\\cpu\\rtl\\alu.vhd     2024-01-02 03:04                     Page 1 of 1"},
        {60, true, true, "...\\cpu\\rtl\\alu.vhd   2024-01-02 03:04           Page 1 of 1"},
        {50, true, true, "...\\rtl\\alu.vhd  2024-01-02 03:04      Page 1 of 1"},
        {50, false, true, "                 2024-01-02 03:04      Page 1 of 1"},
        {40, true, false, "C:\\projects\\cpu\\rtl\\alu.vhd  Page 1 of 1"},
        {20, true, true, "....vhd  Page 1 of 1"},
    };
    for (const Case& c : cases) {
        settings.fileInHeader = c.file;
        settings.dateInHeader = c.date;
        const std::vector<std::string> rows = Render(Layout(text, c.columns, 5).Page(0));
        ASSERT_FALSE(rows.empty());
        EXPECT_EQ(rows[0], c.header) << c.columns << " columns";
        EXPECT_EQ(rows.size(), 3u) << "an empty text prints its one numbered line";
    }
}

TEST_F(PrintLayoutTest, TypefacesAndColoursFollowSyntaxAndColor) {
    LanguageDef vhdl;
    vhdl.lineComment = "--";
    ASSERT_TRUE(vhdl.groups[0].words.Append("end"));
    language = &vhdl;
    TestBuffer text("end; -- done");
    using Pieces = std::vector<std::pair<int, uint32_t>>; // typeface and colour of each piece
    const std::tuple<bool, bool, Pieces> cases[] = {
        {true, true, {{1, ColorRed}, {0, ColorBlack}, {2, ColorGreen}}},
        {true, false, {{1, ColorBlack}, {0, ColorBlack}, {2, ColorBlack}}},
        {false, true, {{0, ColorRed}, {0, ColorBlack}, {0, ColorGreen}}},
        {false, false, {{0, ColorBlack}}},
    };
    for (const auto& [syntax, color, expected] : cases) {
        settings.syntax = syntax;
        settings.color = color;
        const PrintedPage page = Layout(text, 40, 5).Page(0);
        Pieces pieces;
        for (const PrintedPiece& piece : page.pieces)
            if (piece.row == HeaderRows && piece.column > 0)
                pieces.emplace_back(piece.typeface, piece.color);
        EXPECT_EQ(pieces, expected) << "syntax " << syntax << ", color " << color;
        EXPECT_EQ(Render(page)[2], "   1  end; -- done");
    }
}

} // namespace
} // namespace ruvo
