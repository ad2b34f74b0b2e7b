// The customisation files on disk (accel.ini, menu.ini, buttons.ini) and the shipped ones: every
// syntax rule and report, the built-in and fixed keys, the menu with its help files and greying,
// the button bar's layouts and mouse, and the accelerators dialog.
#include <algorithm>
#include <set>

#include "commands/accelerators_dialog.h"
#include "commands/button_bar.h"
#include "commands/command_table.h"
#include "commands/help_files.h"
#include "commands/key_map.h"
#include "commands/menu_description.h"
#include "customisation_files.h"
#include "dialog_script.h"
#include "editor_fixture.h"
#include "language_test_files.h"
#include "settings/error_report.h"

namespace ruvo {
namespace {

using CustomisationTest = EditorTest;

int RowOf(const char* name) {
    int row = -1;
    (void)CommandByName(name, nullptr, false, &row);
    return row;
}

uint32_t IdOf(const char* command) {
    return static_cast<uint32_t>(RowOf(command) + CommandMenuIdBase);
}

// The name of the command of a menu identifier, "9999" for an unknown one.
std::string NameOfId(uint32_t id) {
    const int row = CommandIndexOfMenuId(static_cast<int>(id));
    return row >= 0 ? CommandTable[row].name : "9999";
}

// "Ctrl+S=SaveFile" for each binding, in map order.
std::vector<std::string> Bindings(const Editor& editor) {
    std::vector<std::string> result;
    const KeyMap& map = editor.customisation.keyMap;
    for (int i = 0; i < map.count; ++i) {
        result.push_back(KeyText(map.entries[i]).text + "=" + NameOfId(map.entries[i].commandId));
    }
    return result;
}

TEST_F(CustomisationTest, WithoutAFileTheFortyEightDefaultsHoldWithoutTheFixedOnes) {
    LoadKeyMap("no/such/accel.ini");
    LoadKeyMap("");
    EXPECT_EQ(ReportedLines(editor),
              (std::vector<std::string>{
                  "Error 2: Cannot open Keyboard definition file 'no/such/accel.ini'.",
                  "Error 2: Cannot open Keyboard definition file ''."}));
    const std::vector<std::string> bindings = Bindings(editor);
    ASSERT_EQ(bindings.size(), 48u);
    EXPECT_EQ(bindings[0], "Ctrl+C=EditCopy");
    EXPECT_EQ(bindings[47], "Shift+Ins=EditPaste");
    const KeyMap& map = editor.customisation.keyMap;
    EXPECT_EQ(KeyText(map.entries[32]).modifiers + KeyText(map.entries[0]).modifiers, "Alt Ctrl ");
    // The first of two equal keys wins: SetMark4 has no working key by default.
    EXPECT_EQ(BoundCommandId('4', true, true, false), IdOf("SetMark3"));
    EXPECT_EQ(BoundCommandId(0x73, false, true, false), 0u); // Ctrl+F4 is the frame's own
}

TEST_F(CustomisationTest, EachLineIsBoundOrReportedAndSkipped) {
    // The bindings before the fixed six, then the reports after " | " (syntax errors by their
    // second line only).
    const std::pair<const char*, const char*> cases[] = {
        {"key ctrl+s savefile", "Ctrl+S=SaveFile"},
        {"KEY \"Ctrl+Shift+S\"\t\"SaveFileAs\"", "Ctrl+Shift+S=SaveFileAs"},
        {"KEY s SaveFile", "S=SaveFile"},
        {"KEY A About", "A=About"},
        {"KEY ? About", "Shift+/=About"},
        {"KEY [ About", "[=About"}, // a key without a name shows the layout's character
        {"KEY ctrl+x+y About", "Ctrl+Y=About"},
        {"KEY alt+grayplus About", "Alt+GrayPlus=About"},
        {"KEY CTRL+ALT+F4 SaveFile", "Ctrl+Alt+F4=SaveFile"},
        {"KEY ctrl+shift+alt+del About", "Ctrl+Shift+Alt+Del=About"},
        {"KEY bksp About", "BkSp=About"},
        {"KEY GRAYENTER About", "GrayEnter=About"},
        {"KEY NumDot About", "NumDOT=About"},
        {"KEY enter About", "Enter=About"},
        {"KEY F24 About", "F24=About"},
        {"KEY F25 About", " | \t\"F25\": unrecognized modifier."},
        {"KEY CTRL+F4 SaveFile", " | \t\"CTRL+F4\": reserved key combination"},
        {"KEY shift+ctrl+f6 About", " | \t\"shift+ctrl+f6\": reserved key combination"},
        {"KEY CTRL+F1+F2 About", " | \t\"CTRL+F1+F2\": double use of a key name."},
        {"KEY CTRL+Foo About", " | \t\"Foo\": unrecognized modifier."},
        {"KEY CTRL+SHIFT About", ""},
        {"KEY CTRL+Q GoNowhere",
         "Ctrl+Q=9999 | Error 4: Cannot find Keyboard mapper function 'GoNowhere'."},
        {"KEYS CTRL+S SaveFile",
         " | \t\"KEYS CTRL+S SaveFile\": definition must start with \"KEY\""},
        {"KEY", " | \t\"KEY\": empty keyboard mapping."},
        {"KEY CTRL+S", " | \t\"KEY CTRL+S\": missing function."},
        {"   #KEY CTRL+S SaveFile", ""},
        {"  \t ", ""},
    };
    for (const auto& [line, expected] : cases) {
        FakeHost caseHost;
        Editor caseEditor(caseHost);
        InstallEditor(&caseEditor);
        TempFile file(std::string("# keys\n") + line + "\r\n");
        LoadKeyMap(file.path());
        std::vector<std::string> bindings = Bindings(caseEditor);
        EXPECT_EQ(bindings.back(), "Ctrl+Shift+F6=WindowPrevious") << line;
        std::string outcome;
        for (size_t i = 0; i + FixedKeyBindingCount < bindings.size(); ++i)
            outcome += (i > 0 ? " " : "") + bindings[i];
        std::vector<std::string> reports = ReportedLines(caseEditor);
        if (reports.size() == 2 && reports[0] == "Error 7: Keyboard mapper syntax error:")
            reports.erase(reports.begin());
        for (const std::string& report : reports)
            outcome += " | " + report;
        EXPECT_EQ(outcome, expected) << line;
        InstallEditor(&editor);
    }
}

TEST_F(CustomisationTest, AFullFileLeavesRoomForTheFixedBindingsAndTheFirstOfEqualKeysWins) {
    const char* modifiers[] = {"CTRL+", "ALT+", "CTRL+ALT+", "ALT+SHIFT+", "CTRL+SHIFT+"};
    std::string content = "KEY F3 FindText\nKEY F3 FindNextText\n";
    for (int i = 0; i < 130; ++i)
        content += "KEY " + std::string(modifiers[i / 26]) + char('A' + i % 26) + " About\n";
    TempFile file(content);
    LoadKeyMap(file.path());
    const std::vector<std::string> bindings = Bindings(editor);
    ASSERT_EQ(bindings.size(), 128u);
    EXPECT_EQ(bindings[121], "Ctrl+Shift+P=About");
    EXPECT_EQ(std::vector<std::string>(bindings.end() - 6, bindings.end()),
              (std::vector<std::string>{"Ctrl+F4=WindowClose", "Shift+F4=WindowTileHorizontal",
                                        "Alt+F4=ExitApp", "Shift+F5=WindowCascade",
                                        "Ctrl+F6=WindowNext", "Ctrl+Shift+F6=WindowPrevious"}));
    const std::vector<std::string> reports = ReportedLines(editor);
    ASSERT_EQ(reports.size(), 20u);
    EXPECT_EQ(reports[1], "\ttoo many mappings");
    // Modifiers must match exactly; none of the 48 defaults survives.
    EXPECT_EQ(BoundCommandId(0x72, false, false, false), IdOf("FindText"));
    EXPECT_EQ(BoundCommandId('Z', false, true, false), IdOf("About"));
    EXPECT_EQ(BoundCommandId('Z', true, true, false), 0u);
    EXPECT_EQ(BoundCommandId(0x2D, false, true, false), 0u);
    EXPECT_EQ(BoundCommandId(0x75, true, true, false), IdOf("WindowPrevious"));
}

TEST_F(CustomisationTest, TheAcceleratorsDialogShowsTheLastKeyOfTheChosenCommand) {
    LoadKeyMap("");
    std::string seen; // key text | description, after each choice
    host.dialogActions.push_back([&](GadgetDialog& dialog) {
        Gadget& list = *GadgetAfter(dialog, "&Functions:");
        EXPECT_EQ(list.items.size(), 98u);
        for (const char* command : {"EditCopy", "SetMark4", "NewFile"}) {
            GadgetNotified(dialog, list.controlId, static_cast<int>(IdOf(command)) - 10000);
            seen += GadgetAfter(dialog, "&Accelerators:")->textValue + "|" +
                    GadgetAfter(dialog, "Function description:")->textValue + "\n";
        }
        GadgetNotified(dialog, GadgetWithText(dialog, "&Assign")->controlId, 0);
        EXPECT_TRUE(host.DialogVisible(dialog));
        GadgetNotified(dialog, GadgetWithText(dialog, "&Close")->controlId, 0);
        EXPECT_FALSE(host.DialogVisible(dialog));
    });
    Accelerators();
    EXPECT_EQ(seen, "Ctrl+Ins|Copy the selected text to the Clipboard.\n"
                    "Ctrl+Shift+4|Set bookmark 4.\nCtrl+N|Create a new unnamed file.\n");
    GadgetDialog* first = editor.customisation.acceleratorsDialog.get();
    Accelerators();
    EXPECT_EQ(editor.customisation.acceleratorsDialog.get(), first);
    EXPECT_EQ(host.shownDialogs.size(), 2u);
}

// One text per entry, each followed by "|": "[Name" opens a popup, "]" closes it, "-" is a
// separator, and an item is "text=Command" (with "9999" for an unknown command).
std::string Entries(const Editor& editor) {
    std::string result;
    for (const MenuEntry& e : editor.customisation.menu.entries) {
        const std::string texts[] = {"[" + e.text, e.text + "=" + NameOfId(e.commandId), "-", "]"};
        result += texts[static_cast<int>(e.kind)] + "|";
    }
    return result;
}

const std::string AboutOnlyHelp = "[&Help|&About the editor...=About|]|";

TEST_F(CustomisationTest, WithoutMenuIniTheBuiltInMenuShowsTheDefaultKeys) {
    host.SetProfile("GUI", "Accellerators", "no/accel.ini");
    host.SetProfile("GUI", "Menu", "no/menu.ini");
    PrepareMainMenu();
    const std::string entries = Entries(editor);
    EXPECT_EQ(std::count(entries.begin(), entries.end(), '|'), 53 + 3);
    EXPECT_TRUE(entries.starts_with("[&File|&New\tCtrl+N=NewFile|&Open...\tCtrl+O=LoadFile|&Insert."
                                    "..=InsertFile|&Save\tCtrl+S=SaveFile|Save &As...\tCtrl+Shift"
                                    "+S=SaveFileAs|Save a&ll=SaveAll|-|"));
    // An item shows its command's first binding only.
    EXPECT_NE(entries.find("|C&opy\tCtrl+C=EditCopy|"), std::string::npos);
    EXPECT_TRUE(entries.ends_with("|[&Help|&About the editor...\tCtrl+F1=About|]|"));
    EXPECT_EQ(
        ReportedLines(editor),
        (std::vector<std::string>{"Error 2: Cannot open Keyboard definition file 'no/accel.ini'.",
                                  "Error 2: Cannot open Menu definition file 'no/menu.ini'."}));
}

TEST_F(CustomisationTest, MenuIniStatementsAndTheirReports) {
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
              "[&File|Save &As...\tCtrl+Shift+S=SaveFileAs|&Save\tCtrl+S=SaveFile|-|[&Recent|A "
              "text longer than thirty-nine characte=NewFile|]|&Bad=9999|&Lonely=9999|]|[|]|["
              "Helpdesk|]|[&Help|&About the editor...\tCtrl+F1=About|]|");
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

TEST_F(CustomisationTest, AMissingEndOrTooManyItemsAreReportedAndHelpStillFits) {
    std::string big = "MENU &Big\n";
    for (int i = 0; i < 70; ++i)
        big += "MENU &Sub\nITEM &New NewFile\nEND\n";
    const std::string cases[][3] = {
        // the file before its last END, the end of the menu, the second line of the report
        {"MENU &File\nITEM &New NewFile\nMENU &Sub\nITEM &Open LoadFile\n",
         "[&File|&New=NewFile|[&Sub|&Open=LoadFile|]|]|", "\tMenu Builder"},
        {big, "]|", "\tToo many menu items"},
    };
    for (const auto& [content, tail, report] : cases) {
        TempFile file(content + "END\n");
        ReadMenuDescription(file.path());
        const std::string entries = Entries(editor);
        EXPECT_LE(std::count(entries.begin(), entries.end(), '|'), 128);
        EXPECT_EQ(std::count(entries.begin(), entries.end(), '['),
                  std::count(entries.begin(), entries.end(), ']'));
        EXPECT_TRUE(entries.ends_with(tail + AboutOnlyHelp)) << entries;
        EXPECT_EQ(ReportedLines(editor).back(), report);
    }
}

TEST_F(CustomisationTest, HelpFilesUpToTheFirstEmptyTitleAndTheirCommands) {
    host.SetProfile("Helpfiles", "1", "  vhdl.hlp, \"VHDL &reference\" ignored");
    host.SetProfile("Helpfiles", "2", "nothing.hlp");
    host.SetProfile("Helpfiles", "3", "\"C:\\My help\\v.hlp\" rest, &Verilog");
    ReadHelpFiles();
    ReadMenuDescription("");
    EXPECT_TRUE(Entries(editor).ends_with(
        "|[&Help|VHDL &reference=DisplayHelpfile1|-|&About the editor...=About|]|"));
    const HelpFiles& files = editor.customisation.helpFiles;
    EXPECT_EQ(files[2].fileName, "C:\\My help\\v.hlp");
    EXPECT_EQ(files[2].title, "&Verilog");
    DisplayHelpfile2(); // a name without a title still opens
    DisplayHelpfile3();
    DisplayHelpfile4(); // no name: nothing
    EXPECT_EQ(host.helpFilesShown, (std::vector<std::string>{"nothing.hlp", "C:\\My help\\v.hlp"}));
}

TEST_F(CustomisationTest, FinishingTheMenuGreysWhatNeedsAWindowAndTheEmptyRecentFiles) {
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

// "Command:x,y" for each button, with "+gap" and "-grey" where they apply, space-separated.
std::string Buttons(const Editor& editor) {
    std::string result;
    const ButtonBar& bar = editor.customisation.buttonBar;
    for (int i = 0; i < bar.count; ++i) {
        const ToolButton& b = bar.buttons[i];
        std::string text = std::string(CommandTable[b.command].name) + ":" + std::to_string(b.x) +
                           "," + std::to_string(b.y);
        if (b.style & ButtonStyleGapBefore) text += "+gap";
        if (b.disabled) text += "-grey";
        result += (i > 0 ? " " : "") + text;
    }
    return result;
}

void LoadFrom(FakeHost& host, const std::string& content) {
    TempFile file(content);
    host.SetProfile("GUI", "Buttons", file.path());
    LoadButtons();
}

TEST_F(CustomisationTest, TheFirstButtonFollowsItsCommandsState) {
    editor.settings.options.buttonsLeft = false;
    LoadFrom(host, "SaveFile FILESAVE\nLoadFile FILEOPEN\n");
    LayOutButtons();
    EXPECT_EQ(Buttons(editor), "SaveFile:4,2-grey LoadFile:31,2");
    SetCommandsEnabled(CommandTable[3].flags, true);
    EXPECT_EQ(Buttons(editor), "SaveFile:4,2 LoadFile:31,2");
}

TEST_F(CustomisationTest, ButtonsIniLinesMakeButtonsGapsAndReports) {
    editor.settings.options.buttonsLeft = false;
    LoadFrom(host, "# the bar\n"
                   "LoadFile FILEOPEN\n"
                   "SaveFile filesave extra words\n"
                   "GoNowhere COPY\n"
                   "SEPARATOR\n"
                   "NextError NEXTERROR\n"
                   "EditCopy NOSUCH\n"
                   "separator\n"
                   "loadfile FILENEW\n"
                   "separator\n");
    LayOutButtons();
    // The second LoadFile line changes the first button's picture and gap; it does not move.
    EXPECT_EQ(Buttons(editor), "LoadFile:8,2+gap SaveFile:35,2-grey NextError:66,2+gap-grey");
    EXPECT_EQ(host.loadedPictures,
              (std::vector<std::string>{"FILEOPEN", "filesave", "NEXTERROR", "FILENEW"}));
    EXPECT_EQ(host.freedPictures, (std::vector<uintptr_t>{1}));
    EXPECT_EQ(ReportedLines(editor),
              (std::vector<std::string>{"Error 4: Cannot find Button function 'GoNowhere'.",
                                        "Error 6: Cannot find bitmap 'NOSUCH' for function "
                                        "'EditCopy'."}));

    ReleaseButtons();
    EXPECT_EQ(host.freedPictures, (std::vector<uintptr_t>{1, 4, 2, 3}));
    host.SetProfile("GUI", "Buttons", "no/buttons.ini");
    LoadButtons();
    EXPECT_EQ(BarThickness(1000, true), 0);
    EXPECT_EQ(ReportedLines(editor).back(), "Error 2: Cannot open Button definition file "
                                            "'no/buttons.ini'.");
}

TEST_F(CustomisationTest, AtMostFiftyButtonsEachCommandOnce) {
    std::string content;
    for (int row = 0; row < 60; ++row)
        content += std::string(CommandTable[row].name) + " COPY\n";
    LoadFrom(host, content);
    EXPECT_EQ(editor.customisation.buttonBar.count, MaxButtons);
    EXPECT_EQ(host.loadedPictures.size(), 50u);
    EXPECT_TRUE(ReportedLines(editor).empty());
}

TEST_F(CustomisationTest, OneAndTwoRowsAtTheTopAndAtTheLeft) {
    // Five buttons with a gap before the fourth: one row is 4 + 5 * 27 + 4 = 143 long.
    const struct {
        bool left;
        int length, thickness;
        const char* buttons;
    } cases[] = {
        {false, 143, 33, "NewFile:4,2 LoadFile:31,2 About:58,2 ExitApp:89,2+gap ToolOptions:116,2"},
        {false, 142, 61, "NewFile:4,2 LoadFile:4,29 About:31,2 ExitApp:62,2+gap ToolOptions:62,29"},
        {true, 143, 33, "NewFile:2,4 LoadFile:2,31 About:2,58 ExitApp:2,89+gap ToolOptions:2,116"},
        {true, 100, 61, "NewFile:2,4 LoadFile:29,4 About:2,31 ExitApp:2,62+gap ToolOptions:29,62"},
    };
    LoadFrom(host, "NewFile FILENEW\nLoadFile FILEOPEN\nAbout INFO\nseparator\nExitApp TRAP\n"
                   "ToolOptions TOOLS\n");
    for (const auto& c : cases) {
        editor.settings.options.buttonsLeft = c.left;
        EXPECT_EQ(BarThickness(c.length, true), c.thickness) << c.length;
        LayOutButtons();
        EXPECT_EQ(Buttons(editor), c.buttons) << c.left << " " << c.length;
    }
    // Painting never switches back to one row; only the frame's sizing does.
    EXPECT_EQ(BarThickness(1000, false), 33);
    EXPECT_TRUE(editor.customisation.buttonBar.twoRows);
    EXPECT_EQ(BarThickness(1000, true), 33);
    EXPECT_FALSE(editor.customisation.buttonBar.twoRows);
}

TEST_F(CustomisationTest, HoverShowsTheDescriptionAndAPressRunsAnEnabledCommand) {
    editor.settings.options.buttonsLeft = false;
    LoadFrom(host, "About INFO\nEditUndo UNDO\n");
    LayOutButtons();
    for (int x : {10, 12, 40, 100, 110})
        ButtonBarMouseMoved(x, 10);
    std::vector<std::string> shown;
    for (const FakeHost::StatusText& s : host.statusTexts)
        if (s.pane == 4) shown.push_back(s.text);
    EXPECT_EQ(shown, (std::vector<std::string>{"Display version and copyright information.",
                                               "Undo the previous editor action.", ""}));

    host.redrawnButtons.clear();
    for (int x : {40, 120}) // EditUndo is grey, then no button
        ButtonBarPressed(x, 10);
    EXPECT_TRUE(host.redrawnButtons.empty());
    ButtonBarPressed(10, 10);
    EXPECT_EQ(host.aboutBoxes.size(), 1u);
    EXPECT_EQ(host.redrawnButtons, (std::vector<int>{0, 0}));
    EXPECT_FALSE(editor.customisation.buttonBar.buttons[0].pressed);
    EXPECT_EQ(host.statusPanes[4], "");

    SetCommandsEnabled(NeedsUndo, true);
    EXPECT_EQ(Buttons(editor), "About:4,2 EditUndo:31,2");
    SetCommandsEnabled(NeedsUndo, true); // no change, no redraw
    EXPECT_EQ(host.redrawnButtons, (std::vector<int>{0, 0, 1}));
}

TEST_F(CustomisationTest, LoadWithoutFaultsAndReachEveryCommand) {
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
    EXPECT_EQ(BoundCommandId('S', false, true, false), IdOf("SaveFile"));

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
