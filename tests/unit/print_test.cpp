// Printed pages (grid, wrapping, numbering, header, typefaces) and PrintText with the "/p"
// start through the host's printer: dialog answers, copies, ranges, selection, failures.
#include <cstring>
#include <regex>

#include "test_files.h"
#include "editor_fixture.h"
#include "print/print_commands.h"
#include "print/print_layout.h"

namespace ruvo {
namespace {

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
std::string Printed(const FakeHost& host, bool pageNumbers) {
    std::string texts;
    for (const PrintedPage& page : host.printedPages)
        for (const PrintedPiece& piece : page.pieces)
            if (pageNumbers ? piece.text.rfind("Page ", 0) == 0
                            : piece.row >= HeaderRows && piece.column == 0)
                texts += pageNumbers ? piece.text.substr(5, 1) : piece.text;
    return texts;
}

bool HasDate(const PrintedPage& page) {
    return std::regex_search(Render(page)[0], std::regex(R"(\d{4}-\d\d-\d\d \d\d:\d\d)"));
}

PrintDialogAnswer Answer(PrintRange range, int from = 1, int to = 1, int copies = 1,
                         bool collate = true) {
    return {PrinterStatus::Ok, "PDF", range, from, to, copies, collate};
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
    // What one PrintText did: jobs started, pages printed, how the job ended, boxes shown.
    std::string Run(std::optional<PrintDialogAnswer> answer) {
        host.printJobs.clear();
        host.printedPages.clear();
        host.endedJobs.clear();
        host.boxes.clear();
        if (answer) host.printDialogAnswers.push_back(*answer);
        EXPECT_EQ(PrintText(), 0);
        EXPECT_EQ(host.busyCursorDepth, 0);
        std::string done = std::to_string(host.printJobs.size()) + ":" + Printed(host, true);
        for (bool ended : host.endedJobs)
            done += ended ? " done" : " abandoned";
        return done + "|" + host.ErrorBoxTexts();
    }
    PrintSettings settings;
    std::string title = "C:\\work\\e.vhd";
    const LanguageDef* language = nullptr;
    std::vector<PrintedPiece> pieces;
    std::string Faces() const {
        std::string faces;
        for (const PrintedPiece& piece : pieces)
            faces += std::to_string(piece.typeface) + (piece.color == ColorBlack ? "" : "c");
        return faces;
    }
};

TEST(PageGridTest, MarginsStayInsideThePrintableArea) {
    const PrinterMetrics letter{2550, 3300, 75, 75, 2400, 3150, 300, 300, 25, 42}; // 300 dpi
    // 8 characters from the paper's edge, half an inch elsewhere, inside the printable area;
    // a margin that would leave fewer than 20 columns is narrowed.
    EXPECT_EQ(ComputePageGrid(letter, 8), (PageGrid{125, 75, 25, 42, 88, 71}));
    EXPECT_EQ(ComputePageGrid(letter, 200), (PageGrid{1825, 75, 25, 42, 20, 71}));
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
    LanguageDef vhdl;
    vhdl.lineComment = "--";
    ASSERT_TRUE(vhdl.groups[0].words.Append("entity"));
    language = &vhdl;
    settings.color = false; // keywords bold, comments in italics, all black
    EXPECT_EQ(Page(text, 30, 6),
              (Texts{"C:\\work\\e.vhd      Page 1 of 1", "", "entity e is",
                     "    x <= a and b;  -- long com", "abcdefghijklmnopqrstuvwxyz0123"}));
    EXPECT_EQ(Faces(), "1110020");
    std::tie(settings.syntax, settings.color) = std::tuple(false, true); // colours, upright
    Page(text, 30, 6);
    EXPECT_EQ(Faces(), "110c000c0");

    TestBuffer empty("");
    title = "C:\\projects\\cpu\\rtl\\alu.vhd";
    const std::tuple<int, bool, bool, const char*> headers[] = {
        {52, true, true, "...\\rtl\\alu.vhd   2024-01-02 03:04       Page 1 of 1"},
        {50, true, true, "...\\rtl\\alu.vhd  2024-01-02 03:04      Page 1 of 1"},
        {50, false, true, "                 2024-01-02 03:04      Page 1 of 1"},
        {20, true, true, "....vhd  Page 1 of 1"}};
    std::tie(settings.lineNumbers, settings.color) = std::tuple(true, false); // all plain
    for (const auto& [columns, file, date, header] : headers) {
        std::tie(settings.fileInHeader, settings.dateInHeader) = std::tuple(file, date);
        EXPECT_EQ(Page(empty, columns, 5), (Texts{header, "", "   1"})) << columns;
    }
}

TEST_F(PrintTest, DialogAnswersCopiesRangesSelectionAndFailures) {
    // 100 dots per inch, cells of 10 by 100: 7 text rows a page, 3 pages for 21 lines (the
    // empty line after the last line end is not printed).
    host.printerMetrics = {1000, 1000, 0, 0, 1000, 1000, 100, 100, 10, 100};
    TestBuffer text(NumberedLines(21, "line ") + "\n");
    std::strcpy(text->fullPath, "C:\\t.vhd");
    LanguageDef keywords;
    ASSERT_TRUE(keywords.groups[0].words.Append("line"));
    text->language = &keywords;
    editor.settings.print.printDestination = "Old";
    using enum PrinterStatus;
    using enum PrintRange;
    const PrintDialogAnswer all = Answer(All);
    const char* const cannot = "Cannot print 'C:\\t.vhd'.\n";
    const std::tuple<std::optional<PrintDialogAnswer>, PrinterStatus, int, std::string> cases[] = {
        {std::nullopt, Ok, -1, "0:|"}, // the dialog is cancelled
        {PrintDialogAnswer{NoPrinter, ""}, Ok, -1, "0:|No printer is installed.\n"},
        {PrintDialogAnswer{Failed, ""}, Ok, -1, "0:|The Print dialog cannot be shown.\n"},
        {all, Cancelled, -1, "1:|"},
        {all, NoPrinter, -1, "1:|No printer is installed.\n"},
        {all, Failed, -1, std::string("1:|") + cannot},
        {all, Ok, 1, std::string("1:1 abandoned|") + cannot},
        {Answer(Pages, 4, 5), Ok, -1,
         "1: abandoned|There is no page 4 in 'C:\\t.vhd': it has 3 pages.\n"},
        {Answer(All, 1, 1, 2, true), Ok, -1, "1:123123 done|"},
        {Answer(All, 1, 1, 2, false), Ok, -1, "1:112233 done|"},
        {Answer(Pages, 2, 9), Ok, -1, "1:23 done|"}};
    for (const auto& [answer, printer, refusedPage, done] : cases) {
        std::tie(host.printerStatus, host.refusedPage) = std::tuple(printer, refusedPage);
        EXPECT_EQ(Run(answer), done);
    }
    EXPECT_EQ(host.printDialogs[3].printerName + host.printDialogs[4].printerName, "OldPDF");
    EXPECT_EQ(host.printJobs[0].documentName, "C:\\t.vhd");
    EXPECT_FALSE(host.printJobs[0].defaultPrinter || host.printDialogs[0].hasSelection);
    EXPECT_EQ(host.printedPages[0].pieces[4].typeface, TypefaceBold) << "keywords are bold";
    EXPECT_TRUE(HasDate(host.printedPages[0]));

    // Whole lines of the selection keep their numbers; one ending at a line start stops before.
    text.Select(MakePos(4, 3), MakePos(7, 0));
    EXPECT_EQ((std::tuple{Run(Answer(Selection)), Printed(host, false),
                          host.printDialogs.back().hasSelection, host.statusPanes[4]}),
              std::tuple("1:1 done|", "   5   6   7", true, "1 page printed."));
    TestBuffer one("x\n"); // no empty last line even after a single line
    EXPECT_EQ((std::tuple{Run(all), Printed(host, false)}), std::tuple("1:1 done|", "   1"));
}

TEST_F(PrintTest, CommandLinePrintsAFileOnTheDefaultPrinter) {
    TempFolder folder;
    const std::string name = folder.File("print me.vhd");
    WriteBytes(name, "entity a is\r\nend a;\r\n");
    host.SetProfile("Print", "FontSize", "12");
    PrintFileFromCommandLine("\"" + name + "\"  ");
    ASSERT_EQ(host.printJobs.size(), 1u);
    EXPECT_TRUE(host.printJobs[0].defaultPrinter && host.printDialogs.empty());
    EXPECT_EQ(host.printJobs[0].fontPointSize, 12) << "the [Print] settings were loaded";
    EXPECT_EQ(Printed(host, false), "   1   2");
    EXPECT_TRUE(HasDate(host.printedPages[0]));
    PrintFileFromCommandLine(folder.File("none"));
    PrintFileFromCommandLine("  ");
    EXPECT_EQ(host.ErrorBoxTexts(), "Cannot open  file '" + folder.File("none") +
                                        "'.\nNo file to print is named after /p.\n");
    EXPECT_EQ(host.printJobs.size(), 1u);
    ReleasePrinterSettings();
    EXPECT_EQ(host.printerReleases, 1);
}

} // namespace
} // namespace ruvo
