// The command table's lookups, dispatch and the pushing of enabled states.
#include "commands/command_table.h"

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "settings/error_report.h"

namespace ruvo {
namespace {

using CommandTableTest = EditorTest;

TEST_F(CommandTableTest, EveryCommandIsFoundByItsHandlerNameAndMenuIdAndInvoked) {
    // Menus, keys and buttons find their rows by handler and by name; a shared one would send
    // two commands to one row.
    for (int row = 0; row < 98; ++row) {
        EXPECT_EQ(CommandIndexOfHandler(CommandTable[row].handler), row) << row;
        int found = -2;
        EXPECT_EQ(CommandByName(CommandTable[row].name, "Menu Builder", true, &found),
                  &CommandTable[row]);
        EXPECT_EQ(std::tuple(found, CommandIndexOfMenuId(10000 + row)), std::tuple(row, row));
    }
    EXPECT_EQ(CommandIndexOfHandler(nullptr) + CommandIndexOfMenuId(10098), 97);
    for (int id : {10099, 9999, -10000})
        EXPECT_EQ(CommandIndexOfMenuId(id), -1) << id;
    EXPECT_EQ(CommandByName("gOtOmArK3", "Button", true), &CommandTable[69]);
    EXPECT_STREQ(CommandDescription(98), "");
    EXPECT_EQ(CommandDescription(-1), CommandDescription(99));
    EXPECT_EQ(CommandDescription(99), nullptr);
    int index = 5;
    EXPECT_EQ(CommandByName("LoadFil", "Keyboard mapper", false, &index), nullptr);
    EXPECT_EQ(index, -1);
    EXPECT_FALSE(HasStartupErrors());
    EXPECT_EQ(CommandByName("LoadFiles", "Keyboard mapper", true), nullptr);
    const LineList* log = editor.settings.startupErrors.lines;
    EXPECT_STREQ(log->lineText[log->lineCount - 1],
                 "Error 4: Cannot find Keyboard mapper function 'LoadFiles'.");

    TestBuffer buffer("first\nsecond");
    buffer.PlaceCaret(1, 3);
    EXPECT_EQ(InvokeCommand(78), 1); // SetMark2
    EXPECT_EQ(host.statusPanes[4], "Dropped bookmark 2.");
    EXPECT_EQ(InvokeCommand(49), 1); // GoBeginDoc
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    const int logged = buffer.LoggedTransactions();
    for (int row : {98, 99, -1})
        EXPECT_EQ(InvokeCommand(row), 1);
    EXPECT_EQ(buffer.LoggedTransactions(), logged);
}

TEST_F(CommandTableTest, UpdateCommandStatesPushesEveryConditionInItsOrder) {
    auto pushes = [](bool buffer, bool undo, bool redo, bool selection, bool errors) {
        std::vector<std::pair<int, bool>> calls;
        const std::pair<uint32_t, bool> order[] = {
            {NeedsBuffer, buffer}, {NeedsModified, false},      {NeedsUndo, undo},
            {NeedsRedo, redo},     {NeedsSelection, selection}, {NeedsErrorList, errors}};
        for (const auto& [bit, state] : order)
            for (int row = 0; row < CommandRowCount; ++row)
                if ((CommandTable[row].flags & bit) != 0) calls.emplace_back(row, state);
        return calls;
    };
    UpdateCommandStates();
    EXPECT_EQ(host.enableCalls, pushes(false, false, false, false, false));
    TestBuffer buffer("abc\ndef");
    buffer.PlaceCaret(0, 1);
    DeleteChar(); // something to undo
    buffer.Select(MakePos(0, 0), MakePos(1, 2));
    host.enableCalls.clear();
    UpdateCommandStates();
    EXPECT_EQ(host.enableCalls, pushes(true, true, false, true, false));
    EditUndo();
    buffer.Select(MakePos(0, 0), MakePos(0, 0));
    editor.commands.hasErrorList = [] { return true; };
    host.enableCalls.clear();
    UpdateCommandStates();
    EXPECT_EQ(host.enableCalls, pushes(true, false, true, false, true));
    buffer->closedFlags |= ClosedFlagWindowGone; // a window going away counts as none
    buffer.Select(MakePos(0, 0), MakePos(1, 1));
    editor.commands.hasErrorList = [] { return false; };
    host.enableCalls.clear();
    UpdateCommandStates();
    EXPECT_EQ(host.enableCalls, pushes(false, false, false, false, false));
}

TEST_F(CommandTableTest, HandlersGuardThemselvesWhenNoWindowCanTakeThem) {
    // Keys reach handlers even when the menu shows them grey, so each must refuse on its own.
    auto invokeGuarded = [] {
        for (int row = 33; row <= 85; ++row)
            if (row <= 54 || row >= 66) InvokeCommand(row);
    };
    host.clipboard = "pasted";
    invokeGuarded();
    TestBuffer closed("line one\nline two");
    closed.Select(MakePos(0, 2), MakePos(1, 4));
    closed->closedFlags |= ClosedFlagWindowGone;
    invokeGuarded();
    EXPECT_EQ(closed.Text(), "line one\nline two");
    EXPECT_EQ(closed->cursor, MakePos(1, 4));
    for (const Bookmark& mark : editor.engine.bookmarks)
        EXPECT_EQ(mark.isSet, 0);
    TestBuffer buffer("keep me"); // copy, cut, clear and add comment need a selection
    buffer.PlaceCaret(0, 4);
    for (int row : {33, 34, 36, 31})
        InvokeCommand(row);
    EXPECT_EQ(buffer.Text() + host.clipboard.value_or(""), "keep mepasted");
    EXPECT_EQ(closed.LoggedTransactions() + buffer.LoggedTransactions(), 0);
}

} // namespace
} // namespace ruvo
