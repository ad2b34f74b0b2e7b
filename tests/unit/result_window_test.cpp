// The ToolResult window and its error list: the header, output joined from pieces, reuse, start
// failures, result files, which lines become entries, stepping with NextError and PrevError,
// the caret of the result window, the margin markers and the error commands' state.
#include "tools/result_window.h"

#include "commands/command_table.h"
#include "engine/edit_input.h"
#include "engine/transaction_log.h"
#include "tools/error_list.h"
#include "tools/tool_commands.h"
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
        {{"one\r", "\ntwo\r", "\n"}, {"one", "two", ""}}, // CR LF split between two pieces
        {{"x\ry"}, {"xy"}},
        {{std::string(600, 'x') + "\n"}, {x254, x254, std::string(92, 'x'), ""}},
    };
    for (const auto& c : cases) {
        Prints(c.pieces);
        EXPECT_EQ(runWithResultWindow("Result", "tool -x", "C:\\w", ErrorMode::None), 0);
        Lines expected{"", "tool -x", ""};
        expected.insert(expected.end(), c.output.begin(), c.output.end());
        EXPECT_EQ(ResultLines(), expected);
        const EditBuffer& result = *OpenResultBuffer(); // the caret follows the output
        EXPECT_EQ(result.cursor.line, c.pieces.empty() ? 0 : result.lines.lineCount - 1);
    }
    EXPECT_EQ(LastRun(), "tool -x|C:\\w");
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
    EXPECT_EQ(host.windowTitles[result], "Result of tool 'b'.");
    EXPECT_EQ(host.activatedWindows.back(), result);
    // Only caret moves were recorded since the window was emptied: undo brings back no text.
    while (UndoTransaction() == 0) {
    }
    EXPECT_EQ(ResultLines(), (Lines{"", "C:\\no.exe -q", "", ""}));

    closeBuffer(*result);
    runWithResultWindow("Result", "c", ".", ErrorMode::None);
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
        EXPECT_EQ(result->windowKind + result->lines.readOnly, KindMessage + 1);
        EXPECT_EQ(LinesOf(*result), (Lines{"header", "ERROR: alu.vhd(2): bad", ""}));
        EXPECT_EQ(Markers(*editor.tools.sourceBuffer), (Marks{{2, KindError}}));
        EXPECT_EQ(host.windowTitles[result], title);
    }
    EXPECT_EQ(host.createdWindows.size(), 2u); // the source and one result window
}

class ErrorListTest : public ToolsTest {
  protected:
    // A 20-line source compiled into this output (result lines counted from the header's 4):
    // entries on result lines 4 (source 5), 6 (9, warning), 9 (5), 10 (0) and 12 (99).
    EditBuffer& Compile() {
        std::string text;
        for (int i = 1; i <= 20; ++i)
            text += "line " + std::to_string(i) + "\n";
        EditBuffer& source = OpenSource("alu.vhd", text);
        editor.tools.sourceBuffer = &source;
        Prints({"-- Compiling entity alu\r\n", "ERROR: alu.vhd(5): Unknown identifier\r\n",
                "ERROR: alu.vhd(5): Same line again\r\n###### alu.vhd(9): Warning: unused\r\n",
                "** Error: alu.vhd(11): not ours\r\nERROR: no parenthesis\r\n",
                "ERROR: alu.vhd(5): back again\r\nERROR: alu.vhd(): no digits\r\n",
                "error: alu.vhd(7)\r\nERROR: alu.vhd(99): beyond the end\r\n"});
        runWithResultWindow("V-System compiler", "vcom alu.vhd", "", ErrorMode::Vsystem);
        return source;
    }
    int CaretLine() { return OpenResultBuffer()->cursor.line; }
    bool ErrorCommandsEnabled() {
        return host.enabledCommands[CommandIndexOfHandler(NextError)] &&
               host.enabledCommands[CommandIndexOfHandler(PrevError)];
    }
};

TEST_F(ErrorListTest, MessagesBecomeEntriesOncePerPlaceAndSteppingSelectsThemWithoutWrapping) {
    EditBuffer& source = Compile();
    EditBuffer* result = OpenResultBuffer();
    EXPECT_EQ(Markers(source),
              (Marks{{5, KindError}, {9, KindWarning}, {5, KindError}, {99, KindError}}));
    EXPECT_EQ(CaretLine(), 0);
    EXPECT_TRUE(ErrorCommandsEnabled());
    // Each step: the command, the caret line in the result window after it, the selected
    // source line (empty: the source was not touched by this step).
    const struct {
        int (*command)();
        int caretLine;
        const char* sourceLine;
    } steps[] = {
        {NextError, 4, "line 5"}, {NextError, 6, "line 9"}, {NextError, 9, "line 5"},
        {NextError, 10, ""},      {NextError, 12, ""},      {NextError, 12, ""},
        {PrevError, 10, ""},      {PrevError, 9, "line 5"}, {PrevError, 6, "line 9"},
        {PrevError, 4, "line 5"}, {PrevError, 4, ""},
    };
    for (const auto& step : steps) {
        source.lines.hasSelection = 0;
        step.command();
        EXPECT_EQ(CaretLine(), step.caretLine);
        EXPECT_EQ(source.lines.hasSelection, *step.sourceLine != '\0') << step.caretLine;
        if (*step.sourceLine != '\0') {
            EXPECT_EQ(SelectedText(), step.sourceLine) << step.caretLine;
            EXPECT_EQ(host.statusPanes[3], result->lines.lineText[step.caretLine]);
        }
    }
    // Below the last message PrevError takes the last one.
    result->cursor = MakePos(14, 0);
    PrevError();
    EXPECT_EQ(CaretLine(), 12);
}

TEST_F(ErrorListTest, TheSourceFollowsTheCaretOfTheResultWindow) {
    EditBuffer& source = Compile();
    EditBuffer& result = *OpenResultBuffer();
    result.cursor = MakePos(5, 0);
    HandleKey(result, KeyDown, false, false); // onto the warning: shown, not activated
    EXPECT_EQ(source.cursor.line, 8);
    EXPECT_EQ(editor.engine.currentBuffer, &result);
    HandleKey(result, KeyDown, false, false); // onto a line that is no entry: the source stays
    EXPECT_EQ(source.cursor.line, 8);
    result.cursor = MakePos(9, 3);
    CharacterEntered(result, '\r'); // Return goes to the source
    EXPECT_EQ(source.cursor.line, 4);
    EXPECT_EQ(editor.engine.currentBuffer, &source);

    closeBuffer(source);
    NextError();
    EXPECT_EQ(host.statusPanes[3], "Source window has been removed.");
    EXPECT_EQ(host.statusTexts.back().beep, true);
}

TEST_F(ErrorListTest, MarkersAndCommandsLastAsLongAsTheResultWindow) {
    EditBuffer& source = Compile();
    EXPECT_TRUE(Markers(OpenSource("other.vhd", "x\ny\n")).empty()); // other windows show none
    // A tool run forgets the errors of the compile before it.
    runWithResultWindow("Result of tool 't'.", "t", ".", ErrorMode::None);
    EXPECT_FALSE(hasErrorList());
    EXPECT_TRUE(Markers(source).empty());

    Compile();
    clearErrors();
    EXPECT_TRUE(Markers(source).empty());
    EXPECT_FALSE(ErrorCommandsEnabled());
    EXPECT_EQ(ResultLines(), (std::vector<std::string>{""}));

    Compile();
    closeBuffer(*OpenResultBuffer());
    UpdateCommandStates();
    EXPECT_FALSE(hasErrorList());
    EXPECT_FALSE(ErrorCommandsEnabled());
}

} // namespace
} // namespace ruvo
