// The ToolResult window: its header, output joined from pieces, reuse, start failures and
// result files.
#include "tools/result_window.h"

#include "engine/transaction_log.h"
#include "tools_fixture.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;
using ResultWindowTest = ToolsTest;

TEST_F(ResultWindowTest, OutputPiecesBecomeLinesAfterTheHeader) {
    const std::string x254(254, 'x');
    const struct {
        std::vector<std::string> pieces;
        Lines output; // the lines after the header
    } cases[] = {
        {{}, {""}},
        {{"a\r\nb\r\n"}, {"a", "b", ""}},
        {{"one\r", "\ntwo\r", "\n"}, {"one", "two", ""}}, // CR LF split between two pieces
        {{"par", "tial", " line"}, {"partial line"}},
        {{"x\ry\n"}, {"xy", ""}},
        {{std::string(600, 'x') + "\n"}, {x254, x254, std::string(92, 'x'), ""}},
    };
    for (const auto& c : cases) {
        Prints(c.pieces);
        EXPECT_EQ(runWithResultWindow("Result", "tool -x", "C:\\w", ErrorMode::None), 0);
        Lines expected{"", "tool -x", ""};
        expected.insert(expected.end(), c.output.begin(), c.output.end());
        EXPECT_EQ(ResultLines(), expected) << c.output.front();
        const EditBuffer& result = *OpenResultBuffer();
        if (!c.pieces.empty()) { // the caret follows the output to its end
            EXPECT_EQ(result.cursor.line, result.lines.lineCount - 1);
        }
    }
    EXPECT_EQ(host.processRuns.at(0).commandLine, "tool -x");
    EXPECT_EQ(host.processRuns.at(0).directory, "C:\\w");
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(ResultWindowTest, TheWindowIsReusedUntilClosed) {
    Prints({"first\n"});
    runWithResultWindow("Result of tool 'a'.", "a", ".", ErrorMode::None);
    EditBuffer* result = OpenResultBuffer();
    ASSERT_NE(result, nullptr);
    EXPECT_STREQ(result->fileName, "ToolResult");

    // A program that cannot start leaves the header.
    host.processScripts.push_back({false, {}});
    EXPECT_EQ(runWithResultWindow("Result of tool 'b'.", "C:\\no.exe -q", ".", ErrorMode::None), 1);
    EXPECT_EQ(host.ErrorBoxTexts(), "Can not create process 'C:\\no.exe -q'\n");
    EXPECT_EQ(OpenResultBuffer(), result);
    EXPECT_EQ(host.createdWindows.size(), 1u);
    EXPECT_EQ(ResultLines(), (Lines{"", "C:\\no.exe -q", "", ""}));
    EXPECT_EQ(host.windowTitles[result], "Result of tool 'b'.");
    EXPECT_EQ(host.activatedWindows.back(), result);
    // Only caret moves were recorded since the window was emptied: undo brings back no text.
    while (UndoTransaction() == 0) {
    }
    EXPECT_EQ(ResultLines(), (Lines{"", "C:\\no.exe -q", "", ""}));

    closeBuffer(*result);
    runWithResultWindow("Result", "c", ".", ErrorMode::None);
    EXPECT_NE(OpenResultBuffer(), result);
    EXPECT_EQ(host.createdWindows.size(), 2u);
}

TEST_F(ResultWindowTest, AResultFileIsShownAndReadForErrors) {
    editor.tools.sourceBuffer = &OpenSource("alu.vhd", "a\nb\nc\n");
    const std::string report = folder.File("vcom.log");
    WriteBytes(report, "header\r\nERROR: alu.vhd(2): bad\r\n");
    // Without a result window the file opens as a read-only message window; with one, its
    // text is replaced.
    for (const char* title : {"V-System compiler", "again"}) {
        loadResultFile(report, title, ErrorMode::Vsystem);
        EditBuffer* result = OpenResultBuffer();
        ASSERT_NE(result, nullptr);
        EXPECT_EQ(result->windowKind, KindMessage);
        EXPECT_EQ(result->lines.readOnly, 1);
        EXPECT_EQ(LinesOf(*result), (Lines{"header", "ERROR: alu.vhd(2): bad", ""}));
        EXPECT_EQ(editor.tools.errorList.at(0).resultLine, 1);
        EXPECT_EQ(host.windowTitles[result], title);
    }
    EXPECT_EQ(host.createdWindows.size(), 2u); // the source and one result window
}

} // namespace
} // namespace ruvo
