// The key map from accel.ini files on disk: every syntax rule and report, the built-in and
// fixed bindings, key lookup and key texts.
#include "commands/key_map.h"

#include <string>
#include <vector>

#include "commands/accelerators_dialog.h"
#include "commands/command_table.h"
#include "customisation_files.h"
#include "dialogs/gadget_dialog.h"
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
        const KeyBinding& b = map.entries[i];
        const int row = CommandIndexOfMenuId(static_cast<int>(b.commandId));
        result.push_back(KeyText(b).text + "=" + (row >= 0 ? CommandTable[row].name : "9999"));
    }
    return result;
}

const std::vector<std::string> Fixed = {"Ctrl+F4=WindowClose", "Shift+F4=WindowTileHorizontal",
                                        "Alt+F4=ExitApp",      "Shift+F5=WindowCascade",
                                        "Ctrl+F6=WindowNext",  "Ctrl+Shift+F6=WindowPrevious"};

std::vector<std::string> WithFixed(std::vector<std::string> bindings) {
    bindings.insert(bindings.end(), Fixed.begin(), Fixed.end());
    return bindings;
}

std::string Syntax(const std::string& message) {
    return "\t" + message;
}
const std::string SyntaxHead = "Error 7: Keyboard mapper syntax error:";

TEST_F(KeyMapTest, WithoutAFileTheFortyEightDefaultsHoldWithoutTheFixedOnes) {
    LoadKeyMap("no/such/accel.ini");
    EXPECT_EQ(ReportedLines(editor),
              (std::vector<std::string>{"Error 2: Cannot open Keyboard definition file "
                                        "'no/such/accel.ini'."}));
    const std::vector<std::string> bindings = Bindings(editor);
    ASSERT_EQ(bindings.size(), 48u);
    EXPECT_EQ(bindings[0], "Ctrl+C=EditCopy");
    EXPECT_EQ(bindings[15], "Ctrl+Shift+4=SetMark3");
    EXPECT_EQ(bindings[16], "Ctrl+Shift+4=SetMark4");
    EXPECT_EQ(bindings[32], "Alt+BkSp=EditUndo");
    EXPECT_EQ(bindings[47], "Shift+Ins=EditPaste");
    // The first of two equal keys wins: SetMark4 has no working key by default.
    EXPECT_EQ(BoundCommandId('4', true, true, false), IdOf("SetMark3"));
    EXPECT_EQ(BoundCommandId(0x73, false, true, false), 0u); // Ctrl+F4 is the frame's own

    LoadKeyMap("");
    EXPECT_EQ(ReportedLines(editor).back(), "Error 2: Cannot open Keyboard definition file ''.");
}

struct LineCase {
    const char* line;
    std::vector<std::string> bindings; // before the fixed six
    std::vector<std::string> reports;
};

TEST_F(KeyMapTest, EachLineIsBoundOrReportedAndSkipped) {
    const LineCase cases[] = {
        {"KEY CTRL+S SaveFile", {"Ctrl+S=SaveFile"}, {}},
        {"key ctrl+s savefile", {"Ctrl+S=SaveFile"}, {}},
        {"KEY \"Ctrl+Shift+S\"\t\"SaveFileAs\"", {"Ctrl+Shift+S=SaveFileAs"}, {}},
        {"KEY s SaveFile", {"S=SaveFile"}, {}},
        {"KEY ? About", {"Shift+/=About"}, {}},
        {"KEY A About", {"A=About"}, {}},
        {"KEY ctrl+x+y About", {"Ctrl+Y=About"}, {}},
        {"KEY alt+grayplus About", {"Alt+GrayPlus=About"}, {}},
        {"KEY CTRL+ALT+F4 SaveFile", {"Ctrl+Alt+F4=SaveFile"}, {}},
        {"KEY CTRL+F4 SaveFile", {}, {SyntaxHead, Syntax("\"CTRL+F4\": reserved key combination")}},
        {"KEY shift+ctrl+f6 About",
         {},
         {SyntaxHead, Syntax("\"shift+ctrl+f6\": reserved key combination")}},
        {"KEY CTRL+F1+F2 About",
         {},
         {SyntaxHead, Syntax("\"CTRL+F1+F2\": double use of a key name.")}},
        {"KEY CTRL+Foo About", {}, {SyntaxHead, Syntax("\"Foo\": unrecognized modifier.")}},
        {"KEY Foo About", {}, {SyntaxHead, Syntax("\"Foo\": unrecognized modifier.")}},
        {"KEY CTRL+SHIFT About", {}, {}},
        {"KEY CTRL+Q GoNowhere",
         {"Ctrl+Q=9999"},
         {"Error 4: Cannot find Keyboard mapper function 'GoNowhere'."}},
        {"KEYS CTRL+S SaveFile",
         {},
         {SyntaxHead, Syntax("\"KEYS CTRL+S SaveFile\": definition must start with \"KEY\"")}},
        {"KEY", {}, {SyntaxHead, Syntax("\"KEY\": empty keyboard mapping.")}},
        {"KEY CTRL+S", {}, {SyntaxHead, Syntax("\"KEY CTRL+S\": missing function.")}},
        {"   #KEY CTRL+S SaveFile", {}, {}},
        {"  \t ", {}, {}},
    };
    for (const LineCase& c : cases) {
        FakeHost caseHost;
        Editor caseEditor(caseHost);
        InstallEditor(&caseEditor);
        TempFile file(std::string("# keys\n") + c.line + "\r\n");
        LoadKeyMap(file.path());
        EXPECT_EQ(Bindings(caseEditor), WithFixed(c.bindings)) << c.line;
        EXPECT_EQ(ReportedLines(caseEditor), c.reports) << c.line;
        InstallEditor(&editor);
    }
}

TEST_F(KeyMapTest, TheFileReplacesTheDefaultsAndTheFirstOfEqualKeysWins) {
    TempFile file("KEY F3 FindText\n"
                  "KEY F3 FindNextText\n"
                  "KEY CTRL+Z EditUndo\n");
    LoadKeyMap(file.path());
    EXPECT_EQ(BoundCommandId(0x72, false, false, false), IdOf("FindText"));
    EXPECT_EQ(BoundCommandId('Z', false, true, false), IdOf("EditUndo"));
    // Modifiers must match exactly; none of the 48 defaults survives.
    EXPECT_EQ(BoundCommandId('Z', true, true, false), 0u);
    EXPECT_EQ(BoundCommandId('C', false, true, false), 0u);
    EXPECT_EQ(BoundCommandId(0x73, false, false, true), IdOf("ExitApp"));
    EXPECT_EQ(BoundCommandId(0x75, true, true, false), IdOf("WindowPrevious"));
}

TEST_F(KeyMapTest, AFullFileLeavesRoomForTheFixedBindings) {
    const char* modifiers[] = {"CTRL+", "ALT+", "CTRL+ALT+", "ALT+SHIFT+", "CTRL+SHIFT+"};
    std::string content;
    for (int i = 0; i < 130; ++i)
        content += "KEY " + std::string(modifiers[i / 26]) + char('A' + i % 26) + " About\n";
    TempFile file(content);
    LoadKeyMap(file.path());
    EXPECT_EQ(editor.customisation.keyMap.count, MaxKeyBindings);
    const std::vector<std::string> bindings = Bindings(editor);
    EXPECT_EQ(std::vector<std::string>(bindings.end() - 6, bindings.end()), Fixed);
    const std::vector<std::string> reports = ReportedLines(editor);
    ASSERT_EQ(reports.size(), 16u);
    EXPECT_EQ(reports[0], SyntaxHead);
    EXPECT_EQ(reports[1], "\ttoo many mappings");
}

TEST_F(KeyMapTest, KeyNamesAndTexts) {
    EXPECT_EQ(KeyCodeOfName("bksp"), 0x08);
    EXPECT_EQ(KeyCodeOfName("GRAYENTER"), 0x2B);
    EXPECT_EQ(KeyCodeOfName("NumDot"), 0x6E);
    EXPECT_EQ(KeyCodeOfName("F24"), 0x87);
    EXPECT_EQ(KeyCodeOfName("q"), 'q');
    EXPECT_EQ(KeyCodeOfName("F25"), 0);
    EXPECT_EQ(KeyCodeOfName(""), 0);

    KeyBinding b;
    b.virtualKey = 0x2E;
    b.ctrl = b.shift = b.alt = 1;
    EXPECT_EQ(KeyText(b).text, "Ctrl+Shift+Alt+Del");
    EXPECT_EQ(KeyText(b).modifiers, "Ctrl Shift Alt ");
    b = KeyBinding{};
    b.virtualKey = 0xDB; // the key of "[" on this layout
    EXPECT_EQ(KeyText(b).text, "[");
    EXPECT_EQ(KeyText(b).modifiers, "");
    b.virtualKey = 0x0D;
    EXPECT_EQ(KeyText(b).text, "Enter");
}

Gadget* GadgetCalled(GadgetDialog& dialog, GadgetType type, std::string_view text, int nth = 0) {
    for (const auto& gadget : dialog.gadgets)
        if (gadget->type == type && gadget->text == text && nth-- == 0) return gadget.get();
    return nullptr;
}

TEST_F(KeyMapTest, TheAcceleratorsDialogShowsTheLastKeyOfTheChosenCommand) {
    LoadKeyMap("");
    std::vector<std::string> seen; // key text | description, after each choice
    host.dialogActions.push_back([&](GadgetDialog& dialog) {
        Gadget* list = GadgetCalled(dialog, GadgetType::ListBox, "");
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->items.size(), 98u);
        EXPECT_EQ(list->items[97], "Accelerators");
        Gadget* keys = GadgetCalled(dialog, GadgetType::Edit, "");
        Gadget* description = GadgetCalled(dialog, GadgetType::StaticText, "", 0);
        for (const char* command : {"EditCopy", "SetMark4", "About", "NewFile"}) {
            GadgetNotified(dialog, list->controlId, static_cast<int>(IdOf(command)) - 10000);
            seen.push_back(keys->textValue + "|" + description->textValue);
        }
        GadgetNotified(dialog, GadgetCalled(dialog, GadgetType::PushButton, "&Assign")->controlId,
                       0);
        EXPECT_TRUE(host.DialogVisible(dialog));
        GadgetNotified(dialog, GadgetCalled(dialog, GadgetType::PushButton, "&Close")->controlId,
                       0);
        EXPECT_FALSE(host.DialogVisible(dialog));
    });
    Accelerators();
    EXPECT_EQ(seen, (std::vector<std::string>{"Ctrl+Ins|Copy the selected text to the Clipboard.",
                                              "Ctrl+Shift+4|Set bookmark 4.",
                                              "Ctrl+F1|Display version and copyright information.",
                                              "Ctrl+N|Create a new unnamed file."}));
    GadgetDialog* first = editor.customisation.acceleratorsDialog.get();
    Accelerators();
    EXPECT_EQ(editor.customisation.acceleratorsDialog.get(), first);
    EXPECT_EQ(host.shownDialogs, (std::vector<std::string>{"Keyboard accelerators mapping:",
                                                           "Keyboard accelerators mapping:"}));
}

} // namespace
} // namespace ruvo
