// The command table's rows, its lookups, dispatch and the pushing of enabled states.
#include "commands/command_table.h"

#include <string>
#include <vector>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/bookmarks.h"
#include "engine/cursor_motion.h"
#include "engine/editing_commands.h"
#include "settings/error_report.h"

namespace ruvo {
namespace {

using CommandTableTest = EditorTest;

struct ExpectedRow {
    int index;
    const char* name;
    const char* label;
    const char* description;
    uint32_t flags;
};

// A sample of rows from every part of the table, with every odd spelling the program has.
const ExpectedRow SampleRows[] = {
    {0, "LoadFile", "Open file", "Locate and open a file.", 0},
    {7, "ExitApp", "Exit", "Leave the editor", 0},
    {8, "LoadMRUFile1", "", "Load this file.", 0},
    {12, "LoadMRUFile5", "", "Load this file.", 0},
    {17, "EditSpecial", "Try me", "Special features...", 2},
    {20, "IdentifierExpand", "Identfier expand", "Expand to previous identifier.", 2},
    {21, "VsystemOptions", "Vsystem options", "Options for V-System compile", 0},
    {27, "NextError", "Next error", "Locate next error.", 8},
    {34, "EditCut", "Cut", "Move the the selected text to the Clipboard.", 1},
    {36, "EditClear", "Clear", "Delete the the selected text.", 1},
    {37, "EditUndo", "Undo", "Undo the previous editor action.", 16},
    {38, "EditRedo", "Redo", "Redo the previous editor action.", 32},
    {40, "GoLineDown", "LIne down", "Move the cursor one line down.", 0},
    {48, "GoPageDown", "", "Move and scroll one page up.", 0},
    {60, "RunTool1", "RunTool1", "Run tool 1.", 0},
    {66, "GotoMark0", "", "Goto bookmark 0.", 0},
    {85, "SetMark9", "", "Set bookmark 9.", 0},
    {86, "DisplayHelpfile1", "", "Display help file.", 0},
    {91, "WindowCascade", "Cascade", "Cascase windows on the desktop.", 2},
    {93, "WindowTileHorizontal", "Tile horizontal", "Tile windows horizontally on the desktop.", 2},
    {97, "Accelerators", "Set accelerators", "Set accelerators.", 0},
};

std::vector<int> RowsWithFlag(uint32_t bit) {
    std::vector<int> rows;
    for (int row = 0; row < CommandRowCount; ++row)
        if ((CommandTable[row].flags & bit) != 0) rows.push_back(row);
    return rows;
}

TEST_F(CommandTableTest, HoldsNinetyEightCommandsWithTheirExactTextsAndATerminatingRow) {
    EXPECT_EQ(std::size(CommandTable), 99u);
    const CommandRow& last = CommandTable[98];
    EXPECT_EQ(last.handler, nullptr);
    EXPECT_STREQ(last.name, "");
    EXPECT_STREQ(last.description, "");
    for (int row = 0; row < 98; ++row)
        EXPECT_NE(CommandTable[row].handler, nullptr) << row;
    for (const ExpectedRow& expected : SampleRows) {
        const CommandRow& row = CommandTable[expected.index];
        EXPECT_STREQ(row.name, expected.name) << expected.index;
        EXPECT_STREQ(row.label, expected.label) << expected.index;
        EXPECT_STREQ(row.description, expected.description) << expected.index;
        EXPECT_EQ(row.flags, expected.flags) << expected.index;
    }
}

TEST_F(CommandTableTest, FlagBitsSitOnTheirRowsOnly) {
    EXPECT_EQ(RowsWithFlag(NeedsSelection), (std::vector<int>{29, 30, 31, 32, 33, 34, 36}));
    EXPECT_EQ(RowsWithFlag(NeedsErrorList), (std::vector<int>{27, 28}));
    EXPECT_EQ(RowsWithFlag(NeedsUndo), (std::vector<int>{37}));
    EXPECT_EQ(RowsWithFlag(NeedsRedo), (std::vector<int>{38}));
    EXPECT_TRUE(RowsWithFlag(NeedsModified).empty());
    EXPECT_TRUE(RowsWithFlag(NeedsClipboardText).empty());
    EXPECT_EQ(RowsWithFlag(NeedsBuffer),
              (std::vector<int>{2,  3,  4,  5,  6,  13, 14, 15, 16, 17, 18, 19, 20,
                                22, 23, 24, 25, 26, 35, 54, 91, 92, 93, 94, 95, 96}));
}

TEST_F(CommandTableTest, EveryCommandHasItsOwnHandlerAndName) {
    // Menus, keys and buttons find their rows by handler and by name; a shared one would
    // send two commands to one row.
    for (int row = 0; row < 98; ++row) {
        EXPECT_EQ(CommandIndexOfHandler(CommandTable[row].handler), row) << row;
        int found = -2;
        EXPECT_EQ(CommandByName(CommandTable[row].name, "Menu Builder", true, &found),
                  &CommandTable[row]);
        EXPECT_EQ(found, row);
    }
    EXPECT_EQ(CommandIndexOfHandler(nullptr), -1);
    // Names are found without regard to case.
    EXPECT_EQ(CommandByName("loadfile", "Button", true), &CommandTable[0]);
    EXPECT_EQ(CommandByName("gOtOmArK3", "Button", true), &CommandTable[69]);
    EXPECT_FALSE(HasStartupErrors());
}

TEST_F(CommandTableTest, UnknownNamesAreReportedOnlyWhenAsked) {
    int index = 5;
    EXPECT_EQ(CommandByName("LoadFil", "Keyboard mapper", false, &index), nullptr);
    EXPECT_EQ(index, -1);
    EXPECT_FALSE(HasStartupErrors());

    EXPECT_EQ(CommandByName("LoadFiles", "Keyboard mapper", true, &index), nullptr);
    EXPECT_EQ(index, -1);
    const LineList* log = editor.settings.startupErrors.lines;
    ASSERT_TRUE(HasStartupErrors());
    EXPECT_STREQ(log->lineText[log->lineCount - 1],
                 "Error 4: Cannot find Keyboard mapper function 'LoadFiles'.");
}

TEST_F(CommandTableTest, MenuIdentifiersMapToRowsInTheCommandRangeOnly) {
    EXPECT_EQ(CommandIndexOfMenuId(10000), 0);
    EXPECT_EQ(CommandIndexOfMenuId(10098), 98);
    for (int id : {10099, 9999, 1000, 0, -10000, 20048})
        EXPECT_EQ(CommandIndexOfMenuId(id), -1) << id;

    EXPECT_STREQ(CommandDescription(CommandIndexOfMenuId(10048)), "Move and scroll one page up.");
    EXPECT_STREQ(CommandDescription(98), "");
    EXPECT_EQ(CommandDescription(-1), nullptr);
    EXPECT_EQ(CommandDescription(99), nullptr);
}

TEST_F(CommandTableTest, InvokeCallsTheRowsHandlerAndIgnoresAnythingElse) {
    TestBuffer buffer("first\nsecond");
    buffer.PlaceCaret(1, 3);
    EXPECT_EQ(InvokeCommand(CommandIndexOfMenuId(10000 + 78)), 1); // SetMark2
    EXPECT_EQ(host.statusPanes[4], "Dropped bookmark 2.");
    EXPECT_EQ(InvokeCommand(49), 1); // GoBeginDoc
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));

    const int logged = buffer.LoggedTransactions();
    for (int index : {98, 99, -1, 1000})
        EXPECT_EQ(InvokeCommand(index), 1);
    EXPECT_EQ(buffer.LoggedTransactions(), logged);
}

std::vector<std::pair<int, bool>> ExpectedPushes(bool buffer, bool undo, bool redo, bool selection,
                                                 bool errors) {
    std::vector<std::pair<int, bool>> calls;
    const std::pair<uint32_t, bool> order[] = {
        {NeedsBuffer, buffer}, {NeedsModified, false},      {NeedsUndo, undo},
        {NeedsRedo, redo},     {NeedsSelection, selection}, {NeedsErrorList, errors}};
    for (const auto& [bit, state] : order)
        for (int row : RowsWithFlag(bit))
            calls.emplace_back(row, state);
    return calls;
}

TEST_F(CommandTableTest, UpdateCommandStatesPushesEveryConditionInItsOrder) {
    UpdateCommandStates();
    EXPECT_EQ(host.enableCalls, ExpectedPushes(false, false, false, false, false));
    // Without a window, motion, bookmark and file-opening commands stay available.
    EXPECT_EQ(host.enabledCommands.count(0), 0u);
    EXPECT_EQ(host.enabledCommands.count(66), 0u);

    TestBuffer buffer("abc\ndef");
    buffer.PlaceCaret(0, 1);
    DeleteChar(); // something to undo
    buffer.Select(MakePos(0, 0), MakePos(1, 2));
    host.enableCalls.clear();
    UpdateCommandStates();
    EXPECT_EQ(host.enableCalls, ExpectedPushes(true, true, false, true, false));

    EditUndo();
    buffer.Select(MakePos(0, 0), MakePos(0, 0));
    editor.commands.hasErrorList = [] { return true; };
    host.enableCalls.clear();
    UpdateCommandStates();
    EXPECT_EQ(host.enableCalls, ExpectedPushes(true, false, true, false, true));

    // A buffer whose window is going away counts as none.
    buffer->closedFlags |= ClosedFlagWindowGone;
    buffer.Select(MakePos(0, 0), MakePos(1, 1));
    editor.commands.hasErrorList = nullptr;
    host.enableCalls.clear();
    UpdateCommandStates();
    EXPECT_EQ(host.enableCalls, ExpectedPushes(false, false, false, false, false));
}

TEST_F(CommandTableTest, HandlersGuardThemselvesWhenNoWindowCanTakeThem) {
    // Keys reach handlers even when the menu shows them grey, so each must refuse on its own.
    auto invokeGuarded = [] {
        for (int row = 33; row <= 85; ++row)
            if (row <= 54 || row >= 66) InvokeCommand(row);
    };
    host.clipboard = "pasted";
    invokeGuarded();
    EXPECT_EQ(editor.engine.currentBuffer, nullptr);

    TestBuffer closed("line one\nline two");
    closed.Select(MakePos(0, 2), MakePos(1, 4));
    closed->closedFlags |= ClosedFlagWindowGone;
    invokeGuarded();
    EXPECT_EQ(closed.Text(), "line one\nline two");
    EXPECT_EQ(closed.LoggedTransactions(), 0);
    EXPECT_EQ(closed->cursor, MakePos(1, 4));
    EXPECT_EQ(host.clipboard, "pasted");
    for (const Bookmark& mark : editor.engine.bookmarks)
        EXPECT_EQ(mark.isSet, 0);

    // Copy, cut, clear and add comment do nothing without a selection.
    TestBuffer buffer("keep me");
    buffer.PlaceCaret(0, 4);
    for (int row : {33, 34, 36, 31})
        InvokeCommand(row);
    EXPECT_EQ(buffer.Text(), "keep me");
    EXPECT_EQ(host.clipboard, "pasted");
    EXPECT_EQ(buffer.LoggedTransactions(), 0);
}

} // namespace
} // namespace ruvo
