// The menu description from menu.ini files on disk, the built-in menu, the Help menu with the
// profile's help files, the key texts, and the start of the menu bar's enabled states.
#include "commands/menu_description.h"

#include <algorithm>

#include "commands/command_table.h"
#include "commands/help_files.h"
#include "customisation_files.h"
#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

using MenuDescriptionTest = EditorTest;

// One text per entry: "[Name" opens a popup, "]" closes it, "-" is a separator, and an item
// is "text=Command" (with "9999" for an unknown command).
std::vector<std::string> Entries(const Editor& editor) {
    std::vector<std::string> result;
    for (const MenuEntry& e : editor.customisation.menu.entries) {
        const int row = CommandIndexOfMenuId(static_cast<int>(e.commandId));
        const std::string item = e.text + "=" + (row >= 0 ? CommandTable[row].name : "9999");
        const std::string texts[] = {"[" + e.text, item, "-", "]"};
        result.push_back(texts[static_cast<int>(e.kind)]);
    }
    return result;
}

const std::vector<std::string> AboutOnlyHelp = {"[&Help", "&About the editor...=About", "]"};
const std::vector<std::string> DefaultKeysHelp = {"[&Help", "&About the editor...\tCtrl+F1=About",
                                                  "]"};

std::vector<std::string> Joined(std::vector<std::string> a, const std::vector<std::string>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST_F(MenuDescriptionTest, WithoutMenuIniTheBuiltInMenuShowsTheDefaultKeys) {
    host.SetProfile("GUI", "Accellerators", "no/accel.ini");
    host.SetProfile("GUI", "Menu", "no/menu.ini");
    PrepareMainMenu();
    const std::vector<std::string> entries = Entries(editor);
    ASSERT_EQ(entries.size(), 53u + 3u);
    EXPECT_EQ(std::vector<std::string>(entries.begin(), entries.begin() + 8),
              (std::vector<std::string>{
                  "[&File", "&New\tCtrl+N=NewFile", "&Open...\tCtrl+O=LoadFile",
                  "&Insert...=InsertFile", "&Save\tCtrl+S=SaveFile",
                  "Save &As...\tCtrl+Shift+S=SaveFileAs", "Save a&ll=SaveAll", "-"}));
    // An item shows its command's first binding only.
    EXPECT_EQ(entries[21], "C&opy\tCtrl+C=EditCopy");
    EXPECT_EQ(std::vector<std::string>(entries.end() - 3, entries.end()), DefaultKeysHelp);
    EXPECT_EQ(
        ReportedLines(editor),
        (std::vector<std::string>{"Error 2: Cannot open Keyboard definition file 'no/accel.ini'.",
                                  "Error 2: Cannot open Menu definition file 'no/menu.ini'."}));
}

TEST_F(MenuDescriptionTest, MenuIniStatementsAndTheirReports) {
    TempFile file("# a comment\n"
                  "MENU &File\n"
                  "  ITEM \"Save &As...\" SaveFileAs\n"
                  "\tITEM &Save savefile\n"
                  "  # an indented comment\n"
                  "  SEPARATOR\n"
                  "  MENU &Recent\n"
                  "    ITEM \"A text longer than thirty-nine characters\" NewFile\n"
                  "  END\n"
                  "  ITEM &Bad GoNowhere\n"
                  "  ITEM &Lonely\n"
                  "  FROB x\n"
                  "END\n"
                  "MENU\n"
                  "END\n"
                  "MENU Helpdesk\n"
                  "END\n"
                  "END\n"
                  "MENU H&elp\n"
                  "MENU Never\n");
    host.SetProfile("GUI", "Accellerators", "no/accel.ini");
    host.SetProfile("GUI", "Menu", file.path());
    PrepareMainMenu();
    EXPECT_EQ(Entries(editor),
              Joined({"[&File", "Save &As...\tCtrl+Shift+S=SaveFileAs", "&Save\tCtrl+S=SaveFile",
                      "-", "[&Recent", "A text longer than thirty-nine characte=NewFile", "]",
                      "&Bad=9999", "&Lonely=9999", "]", "[", "]", "[Helpdesk", "]"},
                     DefaultKeysHelp));
    EXPECT_EQ(ReportedLines(editor),
              (std::vector<std::string>{
                  "Error 2: Cannot open Keyboard definition file 'no/accel.ini'.",
                  "Error 4: Cannot find Menu Builder function 'GoNowhere'.",
                  "Error 7: Menu Builder syntax error:", "\t  ITEM &Lonely",
                  "Error 7:   FROB x syntax error:", "\tMenu Builder",
                  "Error 7: Menu Builder syntax error:", "\tMENU",
                  "Error 7: MENU/END mismatch syntax error:", "\tMenu Builder",
                  "Error 7: Menu Builder syntax error:", "\tMenu name 'Help' not allowed."}));
}

TEST_F(MenuDescriptionTest, AMissingEndOrTooManyItemsAreReportedAndHelpStillFits) {
    struct {
        std::string content;
        std::vector<std::string> tail; // the last entries
        const char* report;            // the second line of the syntax error
    } cases[] = {
        {"MENU &File\nITEM &New NewFile\nMENU &Sub\nITEM &Open LoadFile\n",
         {"[&File", "&New=NewFile", "[&Sub", "&Open=LoadFile", "]", "]"},
         "\tMenu Builder"},
        {"MENU &Big\n", {"]"}, "\tToo many menu items"},
    };
    for (int i = 0; i < 70; ++i)
        cases[1].content += "MENU &Sub\nITEM &New NewFile\nEND\n";
    for (const auto& c : cases) {
        TempFile file(c.content + "END\n");
        ReadMenuDescription(file.path());
        const std::vector<std::string> entries = Entries(editor);
        EXPECT_LE(entries.size(), 128u);
        EXPECT_EQ(std::count(entries.begin(), entries.end(), "]"),
                  std::count_if(entries.begin(), entries.end(),
                                [](const std::string& e) { return e[0] == '['; }));
        EXPECT_EQ(std::vector<std::string>(entries.end() - c.tail.size() - 3, entries.end()),
                  Joined(c.tail, AboutOnlyHelp));
        EXPECT_EQ(ReportedLines(editor).back(), c.report);
    }
}

TEST_F(MenuDescriptionTest, HelpFilesUpToTheFirstEmptyTitleAndTheirCommands) {
    host.SetProfile("Helpfiles", "1", "  vhdl.hlp, \"VHDL &reference\" ignored");
    host.SetProfile("Helpfiles", "2", "nothing.hlp");
    host.SetProfile("Helpfiles", "3", "\"C:\\My help\\v.hlp\" rest, &Verilog");
    ReadHelpFiles();
    ReadMenuDescription("");
    const std::vector<std::string> entries = Entries(editor);
    EXPECT_EQ(std::vector<std::string>(entries.end() - 5, entries.end()),
              (std::vector<std::string>{"[&Help", "VHDL &reference=DisplayHelpfile1", "-",
                                        "&About the editor...=About", "]"}));
    const HelpFiles& files = editor.customisation.helpFiles;
    EXPECT_EQ(files[2].fileName, "C:\\My help\\v.hlp");
    EXPECT_EQ(files[2].title, "&Verilog");
    DisplayHelpfile2(); // a name without a title still opens
    DisplayHelpfile3();
    DisplayHelpfile4(); // no name: nothing
    EXPECT_EQ(host.helpFilesShown, (std::vector<std::string>{"nothing.hlp", "C:\\My help\\v.hlp"}));
}

TEST_F(MenuDescriptionTest, FinishingTheMenuGreysWhatNeedsAWindowAndTheEmptyRecentFiles) {
    editor.documents.recentFiles[1] = "C:\\work\\b.vhd";
    FinishMainMenu();
    ASSERT_EQ(host.recentMenus.size(), 1u);
    EXPECT_EQ(host.recentMenus[0][0], "&1 ");
    EXPECT_EQ(host.recentMenus[0][1], "&2 C:\\work\\b.vhd");
    for (int slot = 0; slot < 5; ++slot) // LoadMRUFile1 to 5: only the filled slot is enabled
        EXPECT_EQ(host.enabledCommands.at(8 + slot), slot == 1) << slot;
    EXPECT_FALSE(host.enabledCommands.at(3));     // SaveFile
    EXPECT_FALSE(host.enabledCommands.at(37));    // EditUndo
    EXPECT_FALSE(host.enabledCommands.at(27));    // NextError
    EXPECT_EQ(host.enabledCommands.count(0), 0u); // LoadFile is never greyed
}

} // namespace
} // namespace ruvo
