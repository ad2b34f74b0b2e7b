// The start-up error log with its banner and lines by kind, and the immediate error box texts.
#include "settings/error_report.h"

#include <string>
#include <vector>

#include "engine/line_list.h"

#include "editor_fixture.h"

namespace ruvo {
namespace {

using ErrorReportTest = EditorTest;

std::vector<std::string> LogLines(const Editor& editor) {
    std::vector<std::string> lines;
    const LineList* list = editor.settings.startupErrors.lines;
    if (list == nullptr) return lines;
    for (int i = 0; i < list->lineCount; ++i)
        lines.emplace_back(list->lineText[i]);
    return lines;
}

const std::string Stars(62, '*');
const std::string Title = "*         Startup errors of RUVO / HDL Language Editor       *";

TEST_F(ErrorReportTest, FirstReportAddsTheBannerOnceAndEveryReportCounts) {
    EXPECT_FALSE(HasStartupErrors());
    ReportStartupError(ErrorCannotOpen, "vhdl.lsf", "Language Options File");
    ReportStartupError(ErrorCannotOpen, "menu.ini", "Menu definition");

    EXPECT_EQ(LogLines(editor), (std::vector<std::string>{
                                    Stars, Title, Stars,
                                    "Error 2: Cannot open Language Options File file 'vhdl.lsf'.",
                                    "Error 2: Cannot open Menu definition file 'menu.ini'."}));
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 2);
    EXPECT_EQ(editor.settings.startupErrors.lines->readOnly, 1);
}

TEST_F(ErrorReportTest, EachKindHasItsOwnLines) {
    ReportStartupError(ErrorUnknownCommand, "GoNowhere", "Keyboard mapper");
    ReportStartupError(ErrorMissingBitmap, "save.bmp", "SaveFile");
    ReportStartupError(ErrorSyntax, "Ctrl+ LoadFile", "Keyboard mapper");
    ReportStartupError(ErrorFreeForm, "Too many parameters in:", "entity.tpl");
    ReportStartupError(ErrorPlain, "plain message", nullptr);
    ReportStartupError(ErrorCannotFind, nullptr, "x");
    ReportStartupError(ErrorMemory, "first", "second");

    const std::vector<std::string> lines = LogLines(editor);
    ASSERT_EQ(lines.size(), 3u + 8u);
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 3, lines.end()),
              (std::vector<std::string>{
                  "Error 4: Cannot find Keyboard mapper function 'GoNowhere'.",
                  "Error 6: Cannot find bitmap 'save.bmp' for function 'SaveFile'.",
                  "Error 7: Keyboard mapper syntax error:",
                  "\tCtrl+ LoadFile",
                  "Error 8: Too many parameters in: entity.tpl.",
                  "Unknown error (0)(plain message)",
                  "Unknown error (5)(NULL)",
                  "Unknown error (1)(first)",
              }));
    // The second line of a syntax error is not a second error.
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 7);
}

TEST_F(ErrorReportTest, LinesAreCutToTheLineLength) {
    const std::string longName(400, 'n');
    ReportStartupError(ErrorSyntax, longName.c_str(), "Menu Builder");
    const std::vector<std::string> lines = LogLines(editor);
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[4].size(), static_cast<size_t>(MaxLineLength));
    EXPECT_EQ(lines[4].substr(0, 3), "\tnn");
}

TEST_F(ErrorReportTest, ErrorBoxTextsByKind) {
    EXPECT_EQ(ErrorText(0, "Just this.", "ignored"), "Just this.");
    EXPECT_EQ(ErrorText(1, nullptr, nullptr),
              "Memory allocation error, Save design and exit program.");
    EXPECT_EQ(ErrorText(2, "ruvo.tpl", "template"), "Cannot open template file 'ruvo.tpl'.");
    EXPECT_EQ(ErrorText(5, "vcom.exe", "program"), "Cannot find program file 'vcom.exe'.");
    EXPECT_EQ(ErrorText(8, "Too many parameters in:", "x.tpl"), "Too many parameters in: x.tpl.");
    for (int kind : {3, 4, 6, 7, 9, 42})
        EXPECT_EQ(ErrorText(kind, "t", "u"), "Unknown error (" + std::to_string(kind) + ")(t)");
    EXPECT_EQ(ErrorText(9, nullptr, "u"), "Unknown error (9)(NULL)");

    ReportError(2, "a.vhd", "source");
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, "Cannot open source file 'a.vhd'.");
    EXPECT_EQ(host.boxes[0].caption, "(default)");
    EXPECT_EQ(host.boxes[0].kind, 0);
    // The immediate box never touches the start-up log.
    EXPECT_FALSE(HasStartupErrors());
}

} // namespace
} // namespace ruvo
