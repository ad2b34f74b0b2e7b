// PrintText and the "/p" start through the host's printer: dialog answers, copies, page
// ranges, the selection, failures and their boxes.
#include "print/print_commands.h"

#include <cstdio>
#include <cstring>
#include <regex>

#include "print/print_layout.h"

#include "buffer_builder.h"
#include "editor_fixture.h"

namespace ruvo {
namespace {

PrintDialogAnswer Answer(PrintRange range, int from, int to, int copies, bool collate) {
    return {PrinterStatus::Ok, "PDF", range, from, to, copies, collate};
}

// Texts of the pieces in a column of the printed pages: line numbers in column 0 of the text
// rows, or the page numbers of the headers.
std::vector<std::string> Printed(const FakeHost& host, bool pageNumbers) {
    std::vector<std::string> texts;
    for (const PrintedPage& page : host.printedPages)
        for (const PrintedPiece& piece : page.pieces)
            if (pageNumbers ? piece.text.rfind("Page ", 0) == 0
                            : piece.row >= HeaderRows && piece.column == 0)
                texts.push_back(pageNumbers ? piece.text.substr(5, 1) : piece.text);
    return texts;
}

bool HasDate(const PrintedPage& page) {
    return std::any_of(page.pieces.begin(), page.pieces.end(), [](const PrintedPiece& piece) {
        return std::regex_match(piece.text, std::regex(R"(.*\d{4}-\d\d-\d\d \d\d:\d\d.*)"));
    });
}

using PrintCommandsTest = EditorTest;

TEST_F(PrintCommandsTest, DialogAndPrinterFailuresGiveBoxesAndNoPages) {
    TestBuffer text("line 1\nline 2\n");
    std::strcpy(text->fileName, "buf");
    const PrintDialogAnswer all = Answer(PrintRange::All, 1, 1, 1, true);
    struct Case {
        std::optional<PrintDialogAnswer> answer; // none: the dialog is cancelled
        PrinterStatus printer;
        int refusedPage;
        const char* boxes;
        size_t jobs, abandonedJobs; // jobs started, and those ended without printing
    } cases[] = {
        {std::nullopt, PrinterStatus::Ok, -1, "", 0, 0},
        {PrintDialogAnswer{PrinterStatus::NoPrinter, ""}, PrinterStatus::Ok, -1,
         "No printer is installed.\n", 0, 0},
        {PrintDialogAnswer{PrinterStatus::Failed, ""}, PrinterStatus::Ok, -1,
         "The Print dialog cannot be shown.\n", 0, 0},
        {all, PrinterStatus::Cancelled, -1, "", 1, 0},
        {all, PrinterStatus::NoPrinter, -1, "No printer is installed.\n", 1, 0},
        {all, PrinterStatus::Failed, -1, "Cannot print 'buf'.\n", 1, 0},
        {all, PrinterStatus::Ok, 0, "Cannot print 'buf'.\n", 1, 1},
        {Answer(PrintRange::Pages, 3, 4, 1, true), PrinterStatus::Ok, -1,
         "There is no page 3 in 'buf': it has 1 page.\n", 1, 1},
    };
    for (const Case& c : cases) {
        host = FakeHost();
        if (c.answer) host.printDialogAnswers.push_back(*c.answer);
        host.printerStatus = c.printer;
        host.refusedPage = c.refusedPage;
        EXPECT_EQ(PrintText(), 0);
        EXPECT_EQ(host.ErrorBoxTexts(), c.boxes);
        EXPECT_EQ(host.printJobs.size(), c.jobs);
        EXPECT_TRUE(host.printedPages.empty());
        EXPECT_EQ(host.endedJobs, std::vector<bool>(c.abandonedJobs, false));
        EXPECT_EQ(host.busyCursorDepth, 0);
    }
}

TEST_F(PrintCommandsTest, CopiesPageRangesAndTheSelection) {
    // 100 dots per inch, cells of 10 by 100: 7 text rows a page, 3 pages for 20 lines (the
    // empty line after the last line end is not printed).
    host.printerMetrics = {1000, 1000, 0, 0, 1000, 1000, 100, 100, 10, 100};
    std::string lines;
    for (int i = 1; i <= 20; ++i)
        lines += "line " + std::to_string(i) + "\n";
    TestBuffer text(lines);
    std::strcpy(text->fullPath, "C:\\work\\twenty.vhd");
    LanguageDef language;
    ASSERT_TRUE(language.groups[0].words.Append("line"));
    text->language = &language;
    editor.settings.print.printDestination = "Old";
    const std::pair<PrintDialogAnswer, std::vector<std::string>> cases[] = {
        {Answer(PrintRange::All, 1, 1, 2, true), {"1", "2", "3", "1", "2", "3"}},
        {Answer(PrintRange::All, 1, 1, 2, false), {"1", "1", "2", "2", "3", "3"}},
        {Answer(PrintRange::Pages, 2, 9, 1, true), {"2", "3"}},
        {Answer(PrintRange::Pages, 2, 1, 1, true), {"2"}},
    };
    for (const auto& [answer, pages] : cases) {
        host.printedPages.clear();
        host.printDialogAnswers.push_back(answer);
        PrintText();
        EXPECT_EQ(Printed(host, true), pages);
    }
    EXPECT_EQ(host.printDialogs[0].printerName, "Old");
    EXPECT_FALSE(host.printDialogs[0].hasSelection);
    EXPECT_EQ(host.printDialogs[1].printerName, "PDF") << "the chosen printer is remembered";
    EXPECT_EQ(host.printJobs.back().documentName, "C:\\work\\twenty.vhd");
    EXPECT_FALSE(host.printJobs.back().defaultPrinter);
    EXPECT_EQ(host.statusPanes[4], "1 page printed.");
    const std::vector<PrintedPiece>& pieces = host.printedPages[0].pieces;
    EXPECT_TRUE(HasDate(host.printedPages[0]));
    EXPECT_TRUE(std::any_of(pieces.begin(), pieces.end(), [](const PrintedPiece& piece) {
        return piece.text == "line" && piece.typeface == 1;
    })) << "keywords of the buffer's language are bold";

    // Whole lines of the selection keep their numbers; one ending at a line start stops before.
    host.printedPages.clear();
    text.Select(MakePos(4, 3), MakePos(7, 0));
    host.printDialogAnswers.push_back(Answer(PrintRange::Selection, 1, 1, 1, true));
    PrintText();
    EXPECT_TRUE(host.printDialogs.back().hasSelection);
    EXPECT_EQ(Printed(host, false), (std::vector<std::string>{"   5", "   6", "   7"}));
    // The empty line after a last line end is not printed, even after a single line.
    TestBuffer one("x\n");
    host.printedPages.clear();
    host.printDialogAnswers.push_back(Answer(PrintRange::All, 1, 1, 1, true));
    PrintText();
    EXPECT_EQ(Printed(host, false), (std::vector<std::string>{"   1"}));
    EXPECT_EQ(host.endedJobs, std::vector<bool>(6, true));
}

TEST_F(PrintCommandsTest, CommandLinePrintsAFileOnTheDefaultPrinter) {
    const std::string name = ::testing::TempDir() + "print me.vhd";
    std::FILE* file = std::fopen(name.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    std::fputs("entity a is\r\nend a;\r\n", file);
    std::fclose(file);
    host.SetProfile("Print", "FontSize", "12");

    PrintFileFromCommandLine("\"" + name + "\"  ");
    EXPECT_EQ(host.ErrorBoxTexts(), "");
    ASSERT_EQ(host.printJobs.size(), 1u);
    EXPECT_TRUE(host.printJobs[0].defaultPrinter);
    EXPECT_EQ(host.printJobs[0].fontPointSize, 12) << "the [Print] settings were loaded";
    EXPECT_TRUE(host.printDialogs.empty());
    EXPECT_EQ(Printed(host, false), (std::vector<std::string>{"   1", "   2"}));
    EXPECT_TRUE(HasDate(host.printedPages[0]));
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
