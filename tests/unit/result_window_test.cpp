// The ToolResult window and its error list: the header, output joined from pieces, reuse, start
// failures, result files, which lines become entries, stepping with NextError and PrevError,
// the caret of the result window, the margin markers and the error commands' state.
#include "tools/result_window.h"

#include "commands/command_table.h"
#include "engine/edit_input.h"
#include "engine/line_layout.h"
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
        EXPECT_EQ(editor.tools.errorList.size(), 1u); // the list of the first read is gone
        EXPECT_EQ(editor.tools.errorList.at(0).resultLine, 1);
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
        EXPECT_EQ(runWithResultWindow("V-System compiler", "vcom alu.vhd", "", ErrorMode::Vsystem),
                  0);
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
    std::string entries; // source line:result line:kind
    for (const ErrorEntry& e : editor.tools.errorList)
        entries += std::to_string(e.sourceLine) + ":" + std::to_string(e.resultLine) + ":" +
                   std::to_string(e.kind) + " ";
    EXPECT_EQ(entries, "5:4:0 9:6:2 5:9:0 0:10:0 99:12:0 ");
    EXPECT_EQ(CaretLine(), 0);
    EXPECT_TRUE(hasErrorList());
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
        EXPECT_EQ(result->lines.hasSelection, 1) << step.caretLine;
        if (*step.sourceLine != '\0') {
            EXPECT_EQ(editor.engine.currentBuffer, &source);
            EXPECT_EQ(SelectedText(), step.sourceLine) << step.caretLine;
            EXPECT_EQ(StatusPane(3), result->lines.lineText[step.caretLine]);
        } else {
            EXPECT_EQ(source.lines.hasSelection, 0) << step.caretLine;
        }
    }
    // Below the last message PrevError takes the last one; above the first it does nothing.
    result->cursor = MakePos(14, 0);
    PrevError();
    EXPECT_EQ(CaretLine(), 12);
    result->cursor = MakePos(2, 0);
    PrevError();
    EXPECT_EQ(CaretLine(), 2);
    EXPECT_EQ(host.beeps, 0);
}

TEST_F(ErrorListTest, TheSourceFollowsTheCaretOfTheResultWindow) {
    EditBuffer& source = Compile();
    EditBuffer& result = *OpenResultBuffer();
    result.cursor = MakePos(5, 0);
    HandleKey(result, KeyDown, false, false); // onto the warning: shown, not activated
    EXPECT_EQ(source.cursor.line, 8);
    EXPECT_EQ(source.lines.hasSelection, 1);
    EXPECT_EQ(editor.engine.currentBuffer, &result);
    HandleKey(result, KeyDown, false, false); // onto a line that is no entry: the source stays
    EXPECT_EQ(source.cursor.line, 8);
    result.cursor = MakePos(9, 3);
    CharacterEntered(result, '\r'); // Return goes to the source
    EXPECT_EQ(source.cursor.line, 4);
    EXPECT_EQ(editor.engine.currentBuffer, &source);

    closeBuffer(source);
    NextError();
    EXPECT_EQ(StatusPane(3), "Source window has been removed.");
    EXPECT_EQ(host.statusTexts.back().beep, true);
}

TEST_F(ErrorListTest, MarkersAndCommandsLastAsLongAsTheResultWindow) {
    EditBuffer& source = Compile();
    source.marginColumns = 7;
    auto markers = [&] {
        ErrorMarker found[8];
        const int count = CollectErrorMarkers(source, PlanPaint(source, 0, 20, true), found, 8);
        std::vector<std::pair<int32_t, bool>> lines; // line, red
        for (int i = 0; i < count; ++i)
            lines.emplace_back(found[i].line, found[i].color == ColorMarginError);
        return lines;
    };
    EXPECT_EQ(markers(), (std::vector<std::pair<int32_t, bool>>{{4, true}, {8, false}, {4, true}}));
    EditBuffer& other = OpenSource("other.vhd", "x\ny\n"); // other windows show none
    other.marginColumns = 7;
    ErrorMarker found[4];
    EXPECT_EQ(CollectErrorMarkers(other, PlanPaint(other, 0, 2, true), found, 4), 0);
    // A tool run forgets the errors of the compile before it.
    runWithResultWindow("Result of tool 't'.", "t", ".", ErrorMode::None);
    EXPECT_FALSE(hasErrorList());
    EXPECT_TRUE(markers().empty());

    Compile();
    clearErrors();
    EXPECT_TRUE(markers().empty());
    EXPECT_FALSE(ErrorCommandsEnabled());
    EXPECT_EQ(ResultLines(), (std::vector<std::string>{""}));

    Compile();
    closeBuffer(*OpenResultBuffer());
    UpdateCommandStates();
    EXPECT_FALSE(hasErrorList());
    EXPECT_FALSE(ErrorCommandsEnabled());
    EXPECT_TRUE(markers().empty());
}

} // namespace
} // namespace ruvo
