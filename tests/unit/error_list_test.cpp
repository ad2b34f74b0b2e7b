// The error list: which output lines become entries, stepping with NextError and PrevError,
// the caret of the result window, the margin markers and the error commands' state.
#include "tools/error_list.h"

#include "commands/command_table.h"
#include "engine/clipboard_commands.h"
#include "engine/edit_input.h"
#include "engine/line_layout.h"
#include "tools/tool_commands.h"
#include "tools_fixture.h"

namespace ruvo {
namespace {

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
    std::string SelectedSourceLine() {
        (void)EditCopy();
        return host.clipboard.value_or("");
    }
};

TEST_F(ErrorListTest, MessagesBecomeEntriesOncePerPlace) {
    Compile();
    struct Entry {
        int32_t sourceLine, resultLine, kind;
        bool operator==(const Entry&) const = default;
    };
    std::vector<Entry> entries;
    for (const ErrorEntry& e : editor.tools.errorList)
        entries.push_back({e.sourceLine, e.resultLine, e.kind});
    EXPECT_EQ(entries, (std::vector<Entry>{{5, 4, KindError},
                                           {9, 6, KindWarning},
                                           {5, 9, KindError},
                                           {0, 10, KindError},
                                           {99, 12, KindError}}));
    EXPECT_EQ(CaretLine(), 0);
    EXPECT_TRUE(hasErrorList());
    EXPECT_TRUE(ErrorCommandsEnabled());
}

TEST_F(ErrorListTest, SteppingSelectsTheMessageAndTheSourceLineWithoutWrapping) {
    EditBuffer& source = Compile();
    EditBuffer* result = OpenResultBuffer();
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
            EXPECT_EQ(SelectedSourceLine(), step.sourceLine) << step.caretLine;
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
