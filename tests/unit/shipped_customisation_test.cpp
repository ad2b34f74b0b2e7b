// The shipped config/accel.ini, config/menu.ini and config/buttons.ini, loaded for real: no
// faults, and every command within reach of a menu, a key or a button.
#include <set>

#include "commands/button_bar.h"
#include "commands/command_table.h"
#include "commands/key_map.h"
#include "commands/menu_description.h"
#include "settings/error_report.h"

#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

using ShippedCustomisationTest = EditorTest;

int RowOf(const char* name) {
    int row = -1;
    (void)CommandByName(name, nullptr, false, &row);
    return row;
}

TEST_F(ShippedCustomisationTest, LoadWithoutFaultsAndReachEveryCommand) {
    EXPECT_TRUE(LoadIniIntoProfile(host, SourcePath("config/ruvo.ini")));
    // $INSTALL names the program folder on Windows; here the checkout's files.
    const std::pair<const char*, std::string> files[] = {
        {"Accellerators", "accel"}, {"Menu", "menu"}, {"Buttons", "buttons"}};
    for (const auto& [key, file] : files) {
        EXPECT_EQ(host.ProfileValue("GUI", key), "$INSTALL\\" + file + ".ini");
        host.SetProfile("GUI", key, SourcePath("config/" + file + ".ini"));
    }
    PrepareMainMenu();
    LoadButtons();
    EXPECT_FALSE(HasStartupErrors());
    EXPECT_EQ(BoundCommandId('S', false, true, false), RowOf("SaveFile") + 10000u);

    std::set<int> reached;
    for (const MenuEntry& e : editor.customisation.menu.entries)
        if (e.kind == MenuEntryKind::Item) reached.insert(CommandIndexOfMenuId(e.commandId));
    const KeyMap& map = editor.customisation.keyMap;
    for (int i = 0; i < map.count; ++i)
        reached.insert(CommandIndexOfMenuId(static_cast<int>(map.entries[i].commandId)));
    const ButtonBar& bar = editor.customisation.buttonBar;
    for (int i = 0; i < bar.count; ++i)
        reached.insert(bar.buttons[i].command);
    // The edit window's own keys move and delete; the Help menu lists the help files once
    // the profile names them.
    for (int row = RowOf("GoLineUp"); row <= RowOf("DeleteLine"); ++row)
        reached.insert(row);
    for (int row = RowOf("DisplayHelpfile1"); row <= RowOf("DisplayHelpfile5"); ++row)
        reached.insert(row);
    for (int row = 0; row < TerminatingCommandIndex; ++row)
        EXPECT_EQ(reached.count(row), 1u) << CommandTable[row].name;
}

} // namespace
} // namespace ruvo
