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
    const std::string longLine(600, 'x');
    const struct {
        std::vector<std::string> pieces;
        Lines output; // the lines after the header
    } cases[] = {
        {{}, {""}},
        {{"a\r\nb\r\n"}, {"a", "b", ""}},
        {{"one\r", "\ntwo\r", "\n"}, {"one", "two", ""}}, // CR LF split between two pieces
        {{"par", "tial", " line"}, {"partial line"}},
        {{"x\ry\n"}, {"xy", ""}},
        {{longLine + "\n"},
         {std::string(254, 'x'), std::string(254, 'x'), std::string(92, 'x'), ""}},
    };
    for (const auto& c : cases) {
        Prints(c.pieces);
        EXPECT_EQ(runWithResultWindow("Result", "tool -x", "C:\\w", ErrorMode::None), 0);
        Lines expected{"", "tool -x", "", ""};
        expected.pop_back();
        expected.insert(expected.end(), c.output.begin(), c.output.end());
        EXPECT_EQ(ResultLines(), expected) << c.output.front();
        // The caret follows the output to its end.
        const EditBuffer& result = *OpenResultBuffer();
        if (!c.pieces.empty()) {
            EXPECT_EQ(result.cursor.line, result.lines.lineCount - 1);
        }
    }
    ASSERT_EQ(host.processRuns.size(), 6u);
    EXPECT_EQ(host.processRuns[0].commandLine, "tool -x");
    EXPECT_EQ(host.processRuns[0].directory, "C:\\w");
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(ResultWindowTest, ASecondRunReusesTheWindowWithNothingToUndo) {
    Prints({"first\n"});
    runWithResultWindow("Result of tool 'a'.", "a", ".", ErrorMode::None);
    EditBuffer* result = OpenResultBuffer();
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(result->windowKind, KindMessage);
    EXPECT_EQ(result->lines.readOnly, 1);
    EXPECT_STREQ(result->fileName, "ToolResult");
    EXPECT_EQ(host.windowTitles[result], "Result of tool 'a'.");

    Prints({"second\n"});
    runWithResultWindow("Result of tool 'b'.", "b", ".", ErrorMode::None);
    EXPECT_EQ(OpenResultBuffer(), result);
    EXPECT_EQ(host.createdWindows.size(), 1u);
    EXPECT_EQ(ResultLines(), (Lines{"", "b", "", "second", ""}));
    EXPECT_EQ(host.windowTitles[result], "Result of tool 'b'.");
    EXPECT_EQ(host.activatedWindows.back(), result);
    // Only caret moves were recorded since the window was emptied: undo brings back no text.
    while (UndoTransaction() == 0) {
    }
    EXPECT_EQ(ResultLines(), (Lines{"", "b", "", "second", ""}));

    // Once closed, the next run makes a new window.
    closeBuffer(*result);
    runWithResultWindow("Result", "c", ".", ErrorMode::None);
    EXPECT_NE(OpenResultBuffer(), result);
    EXPECT_EQ(host.createdWindows.size(), 2u);
}

TEST_F(ResultWindowTest, AProgramThatCannotStartLeavesTheHeader) {
    host.processScripts.push_back({false, {}});
    EXPECT_EQ(runWithResultWindow("Result", "C:\\no\\such.exe -q", ".", ErrorMode::None), 1);
    EXPECT_EQ(host.ErrorBoxTexts(), "Can not create process 'C:\\no\\such.exe -q'\n");
    EXPECT_EQ(ResultLines(), (Lines{"", "C:\\no\\such.exe -q", "", ""}));
}

TEST_F(ResultWindowTest, AResultFileIsShownAndReadForErrors) {
    EditBuffer& source = OpenSource("alu.vhd", "a\nb\nc\n");
    editor.tools.sourceBuffer = &source;
    const std::string report = folder.File("vcom.log");
    WriteBytes(report, "header\r\nERROR: alu.vhd(2): bad\r\n");

    // Without a result window the file opens as a read-only message window.
    loadResultFile(report, "V-System compiler", ErrorMode::Vsystem);
    EditBuffer* result = OpenResultBuffer();
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(result->windowKind, KindMessage);
    EXPECT_EQ(result->lines.readOnly, 1);
    EXPECT_EQ(LinesOf(*result), (Lines{"header", "ERROR: alu.vhd(2): bad", ""}));
    EXPECT_EQ(host.windowTitles[result], "V-System compiler");
    ASSERT_EQ(editor.tools.errorList.size(), 1u);
    EXPECT_EQ(editor.tools.errorList[0].resultLine, 1);

    // With one, its text is replaced.
    WriteBytes(report, "ERROR: alu.vhd(3): worse\n");
    loadResultFile(report, "again", ErrorMode::Vsystem);
    EXPECT_EQ(OpenResultBuffer(), result);
    EXPECT_EQ(LinesOf(*result), (Lines{"ERROR: alu.vhd(3): worse", ""}));
    ASSERT_EQ(editor.tools.errorList.size(), 1u);
    EXPECT_EQ(editor.tools.errorList[0].sourceLine, 3);
    EXPECT_EQ(editor.tools.errorList[0].resultLine, 0);
}

} // namespace
} // namespace ruvo
