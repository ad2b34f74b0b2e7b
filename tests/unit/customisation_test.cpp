// The customisation files on disk (accel.ini, menu.ini, buttons.ini): the syntax rules and reports,
// the built-in and fixed keys, the menu with its help files, the button bar's layouts and mouse,
// and the accelerators dialog.
#include <algorithm>
#include <ranges>

#include "commands/accelerators_dialog.h"
#include "commands/button_bar.h"
#include "commands/command_table.h"
#include "commands/help_files.h"
#include "commands/key_map.h"
#include "commands/menu_description.h"
#include "editor_fixture.h"
#include "test_files.h"

namespace ruvo {
namespace {

int RowOf(const char* command) {
    return static_cast<int>(CommandByName(command, nullptr, false) - CommandTable);
}

// The name of the command of a menu identifier, "9999" for an unknown one.
std::string NameOfId(uint32_t id) {
    const int row = CommandIndexOfMenuId(static_cast<int>(id));
    return row >= 0 ? CommandTable[row].name : "9999";
}

class CustomisationTest : public EditorTest {
  protected:
    // "Ctrl+S=SaveFile" for each binding, in map order.
    Texts Bindings() {
        Texts result;
        const KeyMap& map = editor.customisation.keyMap;
        for (int i = 0; i < map.count; ++i)
            result.push_back(KeyText(map.entries[i]).text + "=" +
                             NameOfId(map.entries[i].commandId));
        return result;
    }
    // "[Name|" opens a popup, "]|" closes it, "-|" is a separator and "text=Command|" an item.
    std::string Entries() {
        std::string result;
        for (const MenuEntry& e : editor.customisation.menu.entries) {
            const std::string texts[] = {"[" + e.text, e.text + "=" + NameOfId(e.commandId), "-",
                                         "]"};
            result += texts[static_cast<int>(e.kind)] + "|";
        }
        return result;
    }
    // "Command:x,y" for each button, with "+gap" and "-grey" where they apply.
    std::string Buttons() {
        std::string result;
        const ButtonBar& bar = editor.customisation.buttonBar;
        for (int i = 0; i < bar.count; ++i) {
            const ToolButton& b = bar.buttons[i];
            result += std::string(i > 0 ? " " : "") + CommandTable[b.command].name + ":" +
                      std::to_string(b.x) + "," + std::to_string(b.y) +
                      (b.style & ButtonStyleGapBefore ? "+gap" : "") + (b.disabled ? "-grey" : "");
        }
        return result;
    }
    void LoadButtonsFrom(const std::string& content) {
        TempFile file(content);
        host.SetProfile("GUI", "Buttons", file.path());
        LoadButtons();
        editor.settings.options.buttonsLeft = false;
        LayOutButtons();
    }
};

TEST_F(CustomisationTest, EachLineIsBoundOrReportedAndSkipped) {
    // The bindings before the fixed six, then the reports (syntax errors by their second line).
    const std::pair<const char*, Texts> cases[] = {
        {"key ctrl+s savefile", {"Ctrl+S=SaveFile"}},
        {"KEY \"Ctrl+Shift+S\"\t\"SaveFileAs\"", {"Ctrl+Shift+S=SaveFileAs"}},
        {"KEY ? About", {"Shift+/=About"}},
        {"KEY [ About", {"[=About"}}, // a key without a name shows the layout's character
        {"KEY CTRL+ALT+F4 About", {"Ctrl+Alt+F4=About"}},
        {"KEY F24 About", {"F24=About"}},
        {"KEY F25 About", {"\t\"F25\": unrecognized modifier."}},
        {"KEY CTRL+F4 SaveFile", {"\t\"CTRL+F4\": reserved key combination"}},
        {"KEY CTRL+F1+F2 About", {"\t\"CTRL+F1+F2\": double use of a key name."}},
        {"KEY CTRL+SHIFT About", {}},
        {"  #KEY CTRL+S SaveFile", {}},
        {" \t ", {}},
        {"KEY CTRL+Q Nowhere",
         {"Ctrl+Q=9999", "Error 4: Cannot find Keyboard mapper function 'Nowhere'."}},
        {"KEYS CTRL+S x", {"\t\"KEYS CTRL+S x\": definition must start with \"KEY\""}},
        {"KEY", {"\t\"KEY\": empty keyboard mapping."}},
        {"KEY CTRL+S", {"\t\"KEY CTRL+S\": missing function."}}};
    for (const auto& [line, expected] : cases) {
        const size_t reported = ReportedLines(editor).size();
        TempFile file(std::string(line) + "\r\n");
        LoadKeyMap(file.path());
        Texts outcome = Bindings();
        outcome.resize(outcome.size() - FixedKeyBindingCount);
        for (const std::string& report : ReportedLines(editor) | std::views::drop(reported))
            if (!report.starts_with("Error 7")) outcome.push_back(report);
        EXPECT_EQ(outcome, expected) << line;
    }
}

TEST_F(CustomisationTest, WithoutAFileTheDefaultsHoldAndTheDialogShowsACommandsLastKey) {
    LoadKeyMap("");
    EXPECT_EQ(ReportedLines(editor), Texts{"Error 2: Cannot open Keyboard definition file ''."});
    const Texts bindings = Bindings();
    EXPECT_EQ(std::tuple(bindings.size(), bindings[0], bindings[47]),
              std::tuple(48u, "Ctrl+C=EditCopy", "Shift+Ins=EditPaste"));
    const KeyMap& map = editor.customisation.keyMap;
    EXPECT_EQ(KeyText(map.entries[32]).modifiers + KeyText(map.entries[0]).modifiers, "Alt Ctrl ");
    // The first of two equal keys wins: SetMark4 has no working key by default.
    EXPECT_EQ(NameOfId(BoundCommandId('4', true, true, false)), "SetMark3");
    EXPECT_EQ(BoundCommandId(0x73, false, true, false), 0u); // Ctrl+F4 is the frame's own
    std::string seen; // key text and description after each choice
    host.dialogActions.push_back([&](GadgetDialog& dialog) {
        Gadget& list = *GadgetAfter(dialog, "&Functions:");
        EXPECT_EQ(list.items.size(), 98u);
        for (const char* command : {"EditCopy", "SetMark4"}) {
            GadgetNotified(dialog, list.controlId, RowOf(command));
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
                    "Ctrl+Shift+4|Set bookmark 4.\n");
    GadgetDialog* first = editor.customisation.acceleratorsDialog.get();
    Accelerators();
    EXPECT_EQ(std::tuple(editor.customisation.acceleratorsDialog.get(), host.shownDialogs.size()),
              std::tuple(first, 2u));
}

TEST_F(CustomisationTest, AFullFileLeavesRoomForTheFixedBindingsAndTheFirstOfEqualKeysWins) {
    const char* modifiers[] = {"CTRL+", "ALT+", "CTRL+ALT+", "ALT+SHIFT+", "CTRL+SHIFT+"};
    std::string content = "KEY F3 FindText\nKEY F3 FindNextText\n";
    for (int i = 0; i < 130; ++i)
        content += "KEY " + std::string(modifiers[i / 26]) + char('A' + i % 26) + " About\n";
    TempFile file(content);
    LoadKeyMap(file.path());
    const Texts full = Bindings();
    const Texts reports = ReportedLines(editor);
    EXPECT_EQ(
        std::tuple(full.size(), full[121], full[122], reports.size(), reports[1]),
        std::tuple(128u, "Ctrl+Shift+P=About", "Ctrl+F4=WindowClose", 20u, "\ttoo many mappings"));
    // Modifiers must match exactly; none of the 48 defaults survives.
    EXPECT_EQ(NameOfId(BoundCommandId(0x72, false, false, false)), "FindText");
    EXPECT_EQ(NameOfId(BoundCommandId('Z', false, true, false)), "About");
    EXPECT_EQ(BoundCommandId('Z', true, true, false) + BoundCommandId(0x2D, false, true, false),
              0u);
}

TEST_F(CustomisationTest, MenuIniStatementsAndTheirReports) {
    TempFile file(
        "# a comment\nMENU &File\n  ITEM \"Save &As...\" SaveFileAs\n\tITEM &Save savefile\n"
        "\tITEM &Copy EditCopy\n  # an indented comment\n  SEPARATOR\n" // two keys: the first shows
        "  MENU &Recent\n    ITEM \"A text longer than thirty-nine characters\" NewFile\n"
        "  END\n  ITEM &Bad GoNowhere\n  ITEM &Lonely\n  FROB x\nEND\n"
        "MENU\nEND\nMENU Helpdesk\nEND\nEND\nMENU H&elp\nMENU Never\n");
    host.SetProfile("GUI", "Accellerators", "no/accel.ini");
    host.SetProfile("GUI", "Menu", file.path());
    PrepareMainMenu();
    EXPECT_EQ(Entries(),
              "[&File|Save &As...\tCtrl+Shift+S=SaveFileAs|&Save\tCtrl+S=SaveFile|&Copy\tCtrl+C="
              "EditCopy|-|[&Recent|A text longer than thirty-nine characte=NewFile|]|&Bad=9999|"
              "&Lonely=9999|]|[|]|[Helpdesk|]|[&Help|&About the editor...\tCtrl+F1=About|]|");
    EXPECT_EQ(ReportedLines(editor),
              (Texts{"Error 2: Cannot open Keyboard definition file 'no/accel.ini'.",
                     "Error 4: Cannot find Menu Builder function 'GoNowhere'.",
                     "Error 7: Menu Builder syntax error:", "\t  ITEM &Lonely",
                     "Error 7:   FROB x syntax error:", "\tMenu Builder",
                     "Error 7: Menu Builder syntax error:", "\tMENU",
                     "Error 7: MENU/END mismatch syntax error:", "\tMenu Builder",
                     "Error 7: Menu Builder syntax error:", "\tMenu name 'Help' not allowed."}));

    std::string big = "MENU &Big\n";
    for (int i = 0; i < 70; ++i)
        big += "MENU &Sub\nITEM &New NewFile\nEND\n";
    TempFile full(big); // the last MENU is still open at the end
    ReadMenuDescription(full.path());
    EXPECT_EQ(std::ranges::count(Entries(), '|'), 122);
    EXPECT_TRUE(Entries().ends_with("]|]|[&Help|&About the editor...=About|]|"));
    const Texts reports = ReportedLines(editor);
    EXPECT_EQ(Texts(reports.end() - 3, reports.end()),
              (Texts{"\tToo many menu items",
                     "Error 7: MENU/END mismatch syntax error:", "\tMenu Builder"}));
}

TEST_F(CustomisationTest, HelpFilesUpToTheFirstEmptyTitleAndTheRecentFiles) {
    host.SetProfile("Helpfiles", "1", "  vhdl.hlp, \"VHDL &reference\" ignored");
    host.SetProfile("Helpfiles", "2", "nothing.hlp");
    host.SetProfile("Helpfiles", "3", "\"C:\\My help\\v.hlp\" rest, &Verilog");
    ReadHelpFiles();
    ReadMenuDescription("");
    EXPECT_TRUE(Entries().ends_with(
        "|[&Help|VHDL &reference=DisplayHelpfile1|-|&About the editor...=About|]|"));
    EXPECT_EQ(ReportedLines(editor), Texts{"Error 2: Cannot open Menu definition file ''."});
    EXPECT_EQ(editor.customisation.helpFiles[2].title, "&Verilog");
    // A name without a title still opens; without a name nothing does.
    for (auto display : {DisplayHelpfile2, DisplayHelpfile3, DisplayHelpfile4})
        display();
    EXPECT_EQ(host.helpFilesShown, (Texts{"nothing.hlp", "C:\\My help\\v.hlp"}));
    editor.documents.recentFiles[1] = "C:\\work\\b.vhd";
    FinishMainMenu();
    EXPECT_EQ(host.recentMenus.at(0)[1], "&2 C:\\work\\b.vhd");
    EXPECT_FALSE(host.enabledCommands.at(RowOf("SaveFile")));
}

TEST_F(CustomisationTest, ButtonsIniLinesMakeButtonsGapsAndReportsAndFollowTheCommands) {
    LoadButtonsFrom("# the bar\nSaveFile filesave extra words\nAbout INFO\nGoNowhere COPY\n"
                    "SEPARATOR\nNextError NEXTERROR\nEditCopy NOSUCH\nseparator\nabout FILENEW\n"
                    "separator\n");
    // The second About line changes the button's picture and gap; it does not move.
    EXPECT_EQ(Buttons(), "SaveFile:4,2-grey About:35,2+gap NextError:66,2+gap-grey");
    EXPECT_EQ(host.loadedPictures, (Texts{"filesave", "INFO", "NEXTERROR", "FILENEW"}));
    EXPECT_EQ(ReportedLines(editor),
              (Texts{"Error 4: Cannot find Button function 'GoNowhere'.",
                     "Error 6: Cannot find bitmap 'NOSUCH' for function 'EditCopy'."}));
    // Hovering shows each description once; a press runs only an enabled button's command.
    for (int x : {10, 12, 40, 100, 110})
        ButtonBarMouseMoved(x, 10);
    const auto shown = host.statusTexts | std::views::transform(&FakeHost::StatusText::text);
    EXPECT_EQ(Texts(shown.begin(), shown.end()),
              (Texts{"Save the file in the active edit window.",
                     "Display version and copyright information.", ""}));
    host.redrawnButtons.clear();
    for (int x : {10, 120, 40}) // SaveFile is grey, then no button, then About
        ButtonBarPressed(x, 10);
    EXPECT_EQ(host.aboutBoxes.size(), 1u);
    EXPECT_EQ(host.redrawnButtons, (std::vector<int>{1, 1}));
    EXPECT_FALSE(editor.customisation.buttonBar.buttons[1].pressed);
    SetCommandsEnabled(CommandTable[RowOf("SaveFile")].flags, true);
    SetCommandsEnabled(CommandTable[RowOf("SaveFile")].flags, true); // no change, no redraw
    EXPECT_EQ(host.redrawnButtons, (std::vector<int>{1, 1, 0}));
    EXPECT_EQ(Buttons(), "SaveFile:4,2 About:35,2+gap NextError:66,2+gap-grey");
    ReleaseButtons();
    EXPECT_EQ(host.freedPictures, (std::vector<uintptr_t>{2, 1, 4, 3}));
    host.SetProfile("GUI", "Buttons", "no/buttons.ini");
    LoadButtons();
    EXPECT_EQ(std::tuple(BarThickness(1000, true), ReportedLines(editor).back()),
              std::tuple(0, "Error 2: Cannot open Button definition file 'no/buttons.ini'."));
    std::string fifty; // at most fifty buttons
    for (int row = 0; row < 60; ++row)
        fifty += std::string(CommandTable[row].name) + " COPY\n";
    LoadButtonsFrom(fifty);
    EXPECT_EQ(std::tuple(editor.customisation.buttonBar.count, host.loadedPictures.size()),
              std::tuple(MaxButtons, 54u));
}

TEST_F(CustomisationTest, OneAndTwoRowsAtTheTopAndAtTheLeft) {
    // Five buttons with a gap before the fourth: one row is 4 + 5 * 27 + 4 = 143 long.
    const std::tuple<bool, int, int, const char*> cases[] = {
        {false, 143, 33, "NewFile:4,2 LoadFile:31,2 About:58,2 ExitApp:89,2+gap ToolOptions:116,2"},
        {false, 142, 61, "NewFile:4,2 LoadFile:4,29 About:31,2 ExitApp:62,2+gap ToolOptions:62,29"},
        {true, 100, 61, "NewFile:2,4 LoadFile:29,4 About:2,31 ExitApp:2,62+gap ToolOptions:29,62"},
    };
    LoadButtonsFrom("NewFile FILENEW\nLoadFile FILEOPEN\nAbout INFO\nseparator\nExitApp TRAP\n"
                    "ToolOptions TOOLS\n");
    for (const auto& [left, length, thickness, buttons] : cases) {
        editor.settings.options.buttonsLeft = left;
        EXPECT_EQ(BarThickness(length, true), thickness) << length;
        LayOutButtons();
        EXPECT_EQ(Buttons(), buttons) << left << " " << length;
    }
    // Painting never switches back to one row; only the frame's sizing does.
    EXPECT_EQ(BarThickness(1000, false), 33);
    EXPECT_TRUE(editor.customisation.buttonBar.twoRows);
    EXPECT_EQ(BarThickness(1000, true), 33);
    EXPECT_FALSE(editor.customisation.buttonBar.twoRows);
}

} // namespace
} // namespace ruvo
