// The command table's lookups, dispatch and the pushing of enabled states.
#include "commands/command_table.h"

#include <algorithm>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"

namespace ruvo {
namespace {

using CommandTableTest = EditorTest;

TEST_F(CommandTableTest, StatesFollowTheConditionsAndHandlersGuardThemselves) {
    // Identifiers past the table and unknown names find no row.
    int index = 5;
    EXPECT_EQ(std::tuple(CommandIndexOfMenuId(10099), CommandIndexOfMenuId(9999),
                         CommandByName("NoSuch", nullptr, false, &index), index),
              std::tuple(-1, -1, nullptr, -1));
    // One row per condition: SaveFile, EditUndo, EditRedo, EditCopy, NextError.
    auto states = [&] {
        UpdateCommandStates();
        std::string enabled;
        for (int row : {3, 37, 38, 33, 27})
            enabled += host.enabledCommands[row] ? '1' : '0';
        return enabled;
    };
    // Keys reach handlers even when the menu shows them grey, so each must refuse on its own;
    // the end row and rows outside the table do nothing.
    auto invokeGuarded = [] {
        for (int row : {-1, 98, 99})
            EXPECT_EQ(InvokeCommand(row), 1);
        for (int row = 33; row <= 85; ++row)
            if (row <= 54 || row >= 66) InvokeCommand(row);
    };
    host.clipboard = "pasted";
    invokeGuarded();
    EXPECT_EQ(states(), "00000");
    TestBuffer buffer("abc\ndef");
    buffer.PlaceCaret(0, 1);
    DeleteChar(); // something to undo
    EXPECT_EQ(states(), "11000");
    EditUndo();
    buffer.Select(MakePos(0, 0), MakePos(1, 2));
    editor.commands.hasErrorList = [] { return true; };
    EXPECT_EQ(states(), "10111");
    buffer->closedFlags |= ClosedFlagWindowGone; // a window going away counts as none
    EXPECT_EQ(states(), "00001");
    invokeGuarded(); // nothing is done, not even the redo
    EXPECT_EQ(std::tuple(buffer.Text(), buffer->cursor, buffer.LoggedTransactions(),
                         std::ranges::any_of(editor.engine.bookmarks, &Bookmark::isSet)),
              std::tuple("abc\ndef", MakePos(1, 2), 1, false));
    TestBuffer other("keep me"); // copy, cut, clear and add comment need a selection
    other.PlaceCaret(0, 4);
    for (int row : {33, 34, 36, 31})
        InvokeCommand(row);
    EXPECT_EQ(std::tuple(other.Text(), host.clipboard, other.LoggedTransactions()),
              std::tuple("keep me", "pasted", 0));
}

} // namespace
} // namespace ruvo
