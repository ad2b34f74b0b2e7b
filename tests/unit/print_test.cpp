// Printed pages (grid, wrapping, numbering, header, typefaces) and PrintText with the "/p"
// start through the host's printer: dialog answers, copies, ranges, selection, failures.
#include <cstdio>
#include <cstring>
#include <regex>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "print/print_commands.h"
#include "print/print_layout.h"

namespace ruvo {
namespace {

using Texts = std::vector<std::string>;

// A page as text: each piece written at its cell, trailing blanks and empty end rows dropped.
Texts Render(const PrintedPage& page) {
    Texts rows(page.grid.rows);
    for (const PrintedPiece& piece : page.pieces) {
        std::string& row = rows.at(piece.row);
        row.resize(std::max(row.size(), piece.column + piece.text.size()), ' ');
        row.replace(piece.column, piece.text.size(), piece.text);
    }
    for (std::string& row : rows)
        row.erase(row.find_last_not_of(' ') + 1);
    while (!rows.empty() && rows.back().empty())
        rows.pop_back();
    return rows;
}

// The line numbers of the printed text rows, or the page numbers of the headers.
Texts Printed(const FakeHost& host, bool pageNumbers) {
    Texts texts;
    for (const PrintedPage& page : host.printedPages)
        for (const PrintedPiece& piece : page.pieces)
            if (pageNumbers ? piece.text.rfind("Page ", 0) == 0
                            : piece.row >= HeaderRows && piece.column == 0)
                texts.push_back(pageNumbers ? piece.text.substr(5, 1) : piece.text);
    return texts;
}

// Whether a piece of the page matches: a date "yyyy-mm-dd hh:mm", or a keyword in bold.
bool Has(const PrintedPage& page, const std::string& pattern, int typeface = -1) {
    return std::any_of(page.pieces.begin(), page.pieces.end(), [&](const PrintedPiece& piece) {
        return std::regex_match(piece.text, std::regex(pattern)) && typeface <= piece.typeface;
    });
}

class PrintTest : public EditorTest {
  protected:
    Texts Page(TestBuffer& text, int columns, int rows, int page = 0, int count = 1) {
        const PrintSource source{&text->lines, 0,     text->lines.lineCount,
                                 language,     title, "2024-01-02 03:04"};
        const PrintLayout layout(source, settings, 4, PageGrid{0, 0, 1, 1, columns, rows});
        EXPECT_EQ(layout.PageCount(), count);
        pieces = layout.Page(page).pieces;
        return Render(layout.Page(page));
    }
    PrintSettings settings;
    std::string title = "C:\\work\\e.vhd";
    const LanguageDef* language = nullptr;
    std::vector<PrintedPiece> pieces;
};

TEST(PageGridTest, MarginsStayInsideThePrintableArea) {
    const PrinterMetrics letter{2550, 3300, 75, 75, 2400, 3150, 300, 300, 25, 42}; // 300 dpi
    // 8 characters from the paper's edge, half an inch elsewhere, inside the printable area;
    // a margin that would leave fewer than 20 columns is narrowed.
    EXPECT_EQ(ComputePageGrid(letter, 8), (PageGrid{125, 75, 25, 42, 88, 71}));
    EXPECT_EQ(ComputePageGrid({2550, 3300, 300, 400, 1950, 2500, 300, 300, 25, 42}, 8),
              (PageGrid{0, 0, 25, 42, 78, 59}));
    EXPECT_EQ(ComputePageGrid(letter, 200), (PageGrid{1825, 75, 25, 42, 20, 71}));
    EXPECT_EQ(ComputePageGrid(PrinterMetrics{}, 8), (PageGrid{0, 0, 1, 1, 1, 1}));
    EXPECT_EQ(ComputePageGrid({2550, 3300, 0, 0, 2550, 3300, 300, 300, 25, 42}, 0),
              (PageGrid{0, 150, 25, 42, 96, 71}));
}

TEST_F(PrintTest, LongLinesWrapUnnumberedAcrossPageBreaksAndHeadersKeepThePageNumber) {
    TestBuffer text("entity e is\n\tx <= a and b;  -- long comment here\n"
                    "abcdefghijklmnopqrstuvwxyz0123456789");
    // 24 text columns: breaks after the last blank of a row's second half, else at the width.
    EXPECT_EQ(Page(text, 30, 6, 0, 2),
              (Texts{" 2024-01-02 03:04  Page 1 of 2", "", "   1  entity e is",
                     "   2      x <= a and b;  --", "      long comment here",
                     "   3  abcdefghijklmnopqrstuvwx"}));
    EXPECT_EQ(Page(text, 30, 6, 1, 2),
              (Texts{" 2024-01-02 03:04  Page 2 of 2", "", "      yz0123456789"}));
    settings.wrapLines = settings.lineNumbers = settings.dateInHeader = false;
    EXPECT_EQ(Page(text, 30, 6),
              (Texts{"C:\\work\\e.vhd      Page 1 of 1", "", "entity e is",
                     "    x <= a and b;  -- long com", "abcdefghijklmnopqrstuvwxyz0123"}));

    TestBuffer empty("");
    title = "C:\\projects\\cpu\\rtl\\alu.vhd";
    const std::tuple<int, bool, bool, const char*> headers[] = {
        {80, true, true,
         "C:\\projects\\cpu\\rtl\\alu.vhd     2024-01-02 03:04                     Page 1 of 1"},
        {60, true, true, "...\\cpu\\rtl\\alu.vhd   2024-01-02 03:04           Page 1 of 1"},
        {50, true, true, "...\\rtl\\alu.vhd  2024-01-02 03:04      Page 1 of 1"},
        {50, false, true, "                 2024-01-02 03:04      Page 1 of 1"},
        {40, true, false, "C:\\projects\\cpu\\rtl\\alu.vhd  Page 1 of 1"},
        {20, true, true, "....vhd  Page 1 of 1"}};
    settings.lineNumbers = true;
    for (const auto& [columns, file, date, header] : headers) {
        std::tie(settings.fileInHeader, settings.dateInHeader) = std::tuple(file, date);
        EXPECT_EQ(Page(empty, columns, 5), (Texts{header, "", "   1"})) << columns;
    }
}

TEST_F(PrintTest, TypefacesAndColoursFollowSyntaxAndColor) {
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
        {false, false, {{0, ColorBlack}}}};
    for (const auto& [syntax, color, expected] : cases) {
        std::tie(settings.syntax, settings.color) = std::tuple(syntax, color);
        EXPECT_EQ(Page(text, 40, 5)[2], "   1  end; -- done");
        Pieces found;
        for (const PrintedPiece& piece : pieces)
            if (piece.row == HeaderRows && piece.column > 0)
                found.emplace_back(piece.typeface, piece.color);
        EXPECT_EQ(found, expected) << syntax << color;
    }
}

PrintDialogAnswer Answer(PrintRange range, int from, int to, int copies = 1, bool collate = true) {
    return {PrinterStatus::Ok, "PDF", range, from, to, copies, collate};
}

TEST_F(PrintTest, DialogAndPrinterFailuresGiveBoxesAndNoPages) {
    TestBuffer text("line 1\nline 2\n");
    std::strcpy(text->fileName, "buf");
    const PrintDialogAnswer all = Answer(PrintRange::All, 1, 1);
    const struct {
        std::optional<PrintDialogAnswer> answer; // none: the dialog is cancelled
        PrinterStatus printer;
        int refusedPage;
        const char* boxes;
        size_t jobs, abandonedJobs; // jobs started, and those ended without printing
    } cases[] = {{std::nullopt, PrinterStatus::Ok, -1, "", 0, 0},
                 {PrintDialogAnswer{PrinterStatus::NoPrinter, ""}, PrinterStatus::Ok, -1,
                  "No printer is installed.\n", 0, 0},
                 {PrintDialogAnswer{PrinterStatus::Failed, ""}, PrinterStatus::Ok, -1,
                  "The Print dialog cannot be shown.\n", 0, 0},
                 {all, PrinterStatus::Cancelled, -1, "", 1, 0},
                 {all, PrinterStatus::NoPrinter, -1, "No printer is installed.\n", 1, 0},
                 {all, PrinterStatus::Failed, -1, "Cannot print 'buf'.\n", 1, 0},
                 {all, PrinterStatus::Ok, 0, "Cannot print 'buf'.\n", 1, 1},
                 {Answer(PrintRange::Pages, 3, 4), PrinterStatus::Ok, -1,
                  "There is no page 3 in 'buf': it has 1 page.\n", 1, 1}};
    for (const auto& c : cases) {
        host = FakeHost();
        if (c.answer) host.printDialogAnswers.push_back(*c.answer);
        std::tie(host.printerStatus, host.refusedPage) = std::tuple(c.printer, c.refusedPage);
        EXPECT_EQ(PrintText(), 0);
        EXPECT_EQ(host.ErrorBoxTexts(), c.boxes);
        EXPECT_EQ(std::tuple(host.printJobs.size(), host.printedPages.size(), host.endedJobs),
                  std::tuple(c.jobs, 0u, std::vector<bool>(c.abandonedJobs, false)));
        EXPECT_EQ(host.busyCursorDepth, 0);
    }
}

TEST_F(PrintTest, CopiesPageRangesAndTheSelection) {
    // 100 dots per inch, cells of 10 by 100: 7 text rows a page, 3 pages for 20 lines (the
    // empty line after the last line end is not printed).
    host.printerMetrics = {1000, 1000, 0, 0, 1000, 1000, 100, 100, 10, 100};
    std::string lines;
    for (int i = 1; i <= 20; ++i)
        lines += "line " + std::to_string(i) + "\n";
    TestBuffer text(lines);
    std::strcpy(text->fullPath, "C:\\work\\twenty.vhd");
    LanguageDef keywords;
    ASSERT_TRUE(keywords.groups[0].words.Append("line"));
    text->language = &keywords;
    editor.settings.print.printDestination = "Old";
    const std::pair<PrintDialogAnswer, Texts> cases[] = {
        {Answer(PrintRange::All, 1, 1, 2, true), {"1", "2", "3", "1", "2", "3"}},
        {Answer(PrintRange::All, 1, 1, 2, false), {"1", "1", "2", "2", "3", "3"}},
        {Answer(PrintRange::Pages, 2, 9), {"2", "3"}},
        {Answer(PrintRange::Pages, 2, 1), {"2"}}};
    for (const auto& [answer, pages] : cases) {
        host.printedPages.clear();
        host.printDialogAnswers.push_back(answer);
        PrintText();
        EXPECT_EQ(Printed(host, true), pages);
    }
    EXPECT_EQ(host.printDialogs[0].printerName + host.printDialogs[1].printerName, "OldPDF");
    EXPECT_FALSE(host.printDialogs[0].hasSelection);
    EXPECT_EQ(host.printJobs.back().documentName, "C:\\work\\twenty.vhd");
    EXPECT_FALSE(host.printJobs.back().defaultPrinter);
    EXPECT_EQ(host.statusPanes[4], "1 page printed.");
    EXPECT_TRUE(Has(host.printedPages[0], "line", 1)) << "keywords are bold";
    EXPECT_TRUE(Has(host.printedPages[0], R"(.*\d{4}-\d\d-\d\d \d\d:\d\d.*)"));

    // Whole lines of the selection keep their numbers; one ending at a line start stops before.
    host.printedPages.clear();
    text.Select(MakePos(4, 3), MakePos(7, 0));
    host.printDialogAnswers.push_back(Answer(PrintRange::Selection, 1, 1));
    PrintText();
    EXPECT_TRUE(host.printDialogs.back().hasSelection);
    EXPECT_EQ(Printed(host, false), (Texts{"   5", "   6", "   7"}));
    TestBuffer one("x\n"); // no empty last line even after a single line
    host.printedPages.clear();
    host.printDialogAnswers.push_back(Answer(PrintRange::All, 1, 1));
    PrintText();
    EXPECT_EQ(Printed(host, false), Texts{"   1"});
    EXPECT_EQ(host.endedJobs, std::vector<bool>(6, true));
}

TEST_F(PrintTest, CommandLinePrintsAFileOnTheDefaultPrinter) {
    const std::string name = ::testing::TempDir() + "print me.vhd";
    std::FILE* file = std::fopen(name.c_str(), "wb");
    std::fputs("entity a is\r\nend a;\r\n", file);
    std::fclose(file);
    host.SetProfile("Print", "FontSize", "12");
    PrintFileFromCommandLine("\"" + name + "\"  ");
    EXPECT_EQ(host.ErrorBoxTexts(), "");
    ASSERT_EQ(host.printJobs.size(), 1u);
    EXPECT_TRUE(host.printJobs[0].defaultPrinter && host.printDialogs.empty());
    EXPECT_EQ(host.printJobs[0].fontPointSize, 12) << "the [Print] settings were loaded";
    EXPECT_EQ(Printed(host, false), (Texts{"   1", "   2"}));
    EXPECT_TRUE(Has(host.printedPages[0], R"(.*\d{4}-\d\d-\d\d \d\d:\d\d.*)"));
    std::remove(name.c_str());
    PrintFileFromCommandLine(name);
    EXPECT_EQ(host.ErrorBoxTexts(), "Cannot open  file '" + name + "'.\n");
    PrintFileFromCommandLine("  ");
    EXPECT_EQ(host.boxes.back().text, "No file to print is named after /p.");
    EXPECT_EQ(host.printJobs.size(), 1u);
    ReleasePrinterSettings();
    EXPECT_EQ(host.printerReleases, 1);
}

} // namespace
} // namespace ruvo
