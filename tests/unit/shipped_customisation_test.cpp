// The shipped config/accel.ini, config/menu.ini and config/buttons.ini, loaded for real: no
// faults, the usual keys, the Window menu in its place, and every command within reach.
#include <set>
#include <string>

#include "commands/button_bar.h"
#include "commands/command_table.h"
#include "commands/key_map.h"
#include "commands/menu_description.h"
#include "settings/error_report.h"

#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

class ShippedCustomisationTest : public EditorTest {
  protected:
    ShippedCustomisationTest() {
        EXPECT_TRUE(LoadIniIntoProfile(host, SourcePath("config/ruvo.ini")));
        // $INSTALL names the program folder on Windows; here the checkout's files.
        EXPECT_EQ(host.ProfileValue("GUI", "Accellerators"), "$INSTALL\\accel.ini");
        EXPECT_EQ(host.ProfileValue("GUI", "Menu"), "$INSTALL\\menu.ini");
        EXPECT_EQ(host.ProfileValue("GUI", "Buttons"), "$INSTALL\\buttons.ini");
        host.SetProfile("GUI", "Accellerators", SourcePath("config/accel.ini"));
        host.SetProfile("GUI", "Menu", SourcePath("config/menu.ini"));
        host.SetProfile("GUI", "Buttons", SourcePath("config/buttons.ini"));
        PrepareMainMenu();
        LoadButtons();
    }
};

int RowOf(const char* name) {
    int row = -1;
    (void)CommandByName(name, nullptr, false, &row);
    return row;
}

TEST_F(ShippedCustomisationTest, LoadWithoutFaultsAndBindTheUsualKeys) {
    EXPECT_FALSE(HasStartupErrors());
    const struct {
        int key;
        bool shift, ctrl, alt;
        const char* command;
    } keys[] = {{'S', false, true, false, "SaveFile"}, {'O', false, true, false, "LoadFile"},
                {'F', false, true, false, "FindText"}, {0x72, false, false, false, "FindNextText"},
                {'Z', false, true, false, "EditUndo"}, {'Y', false, true, false, "EditRedo"},
                {'G', false, true, false, "GotoLine"}, {'4', true, true, false, "SetMark4"},
                {0x73, false, false, true, "ExitApp"}};
    for (const auto& k : keys)
        EXPECT_EQ(BoundCommandId(k.key, k.shift, k.ctrl, k.alt), RowOf(k.command) + 10000u)
            << k.command;
}

TEST_F(ShippedCustomisationTest, TheWindowMenuIsSixthAndEveryCommandIsWithinReach) {
    std::set<int> reached;
    int popups = 0;
    int depth = 0;
    for (const MenuEntry& e : editor.customisation.menu.entries) {
        if (e.kind == MenuEntryKind::PopupStart && depth++ == 0 && popups++ == 5) {
            EXPECT_EQ(e.text, "&Window");
        }
        if (e.kind == MenuEntryKind::PopupEnd) --depth;
        if (e.kind == MenuEntryKind::Item) reached.insert(CommandIndexOfMenuId(e.commandId));
    }
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
