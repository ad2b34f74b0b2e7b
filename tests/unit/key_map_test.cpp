// The key map from accel.ini files on disk: syntax rules and reports, the built-in and fixed
// bindings, key lookup, key texts and the accelerators dialog.
#include "commands/key_map.h"

#include "commands/accelerators_dialog.h"
#include "commands/command_table.h"
#include "customisation_files.h"
#include "dialog_script.h"
#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

using KeyMapTest = EditorTest;

uint32_t IdOf(const char* command) {
    int index = -1;
    (void)CommandByName(command, nullptr, false, &index);
    return static_cast<uint32_t>(index + CommandMenuIdBase);
}

// "Ctrl+S=SaveFile" for each binding, in map order.
std::vector<std::string> Bindings(const Editor& editor) {
    std::vector<std::string> result;
    const KeyMap& map = editor.customisation.keyMap;
    for (int i = 0; i < map.count; ++i) {
        const int row = CommandIndexOfMenuId(static_cast<int>(map.entries[i].commandId));
        result.push_back(KeyText(map.entries[i]).text + "=" +
                         (row >= 0 ? CommandTable[row].name : "9999"));
    }
    return result;
}

TEST_F(KeyMapTest, WithoutAFileTheFortyEightDefaultsHoldWithoutTheFixedOnes) {
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
    // The first of two equal keys wins: SetMark4 has no working key by default.
    EXPECT_EQ(BoundCommandId('4', true, true, false), IdOf("SetMark3"));
    EXPECT_EQ(BoundCommandId(0x73, false, true, false), 0u); // Ctrl+F4 is the frame's own
}

TEST_F(KeyMapTest, EachLineIsBoundOrReportedAndSkipped) {
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

TEST_F(KeyMapTest, AFullFileLeavesRoomForTheFixedBindingsAndTheFirstOfEqualKeysWins) {
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

TEST_F(KeyMapTest, TheAcceleratorsDialogShowsTheLastKeyOfTheChosenCommand) {
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

} // namespace
} // namespace ruvo
