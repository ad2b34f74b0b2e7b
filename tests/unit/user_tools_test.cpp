// User-defined tools: loading with its quirk, labels, saving, running with "$$", output read
// with a message format across files, and the Tool Configuration and V-System Options dialogs
// as a user drives them.
#include "tools/user_tools.h"

#include <algorithm>
#include <filesystem>

#include "commands/command_table.h"
#include "commands/menu_description.h"
#include "tools/error_list.h"
#include "tools/tool_commands.h"
#include "tools_fixture.h"

namespace ruvo {
namespace {

// Tool 1 reads GHDL messages; the formats come from the shipped rule file.
class UserToolsTest : public ToolsTest {
  protected:
    UserToolsTest() {
        host.SetProfile("UserDefinedTools", "MessageFormats", SourcePath("config/messages.ini"));
        host.SetProfile("UserDefinedTools", "Messages1", "GHDL");
    }
    static std::string Label(CommandHandler h) { return CommandLabel(CommandIndexOfHandler(h)); }
    // The n-th gadget of a type, counted from 0.
    static Gadget& Nth(GadgetDialog& dialog, GadgetType type, int n) {
        for (auto& gadget : dialog.gadgets)
            if (gadget->type == type && n-- == 0) return *gadget;
        return *dialog.gadgets.front();
    }
    static void Press(GadgetDialog& dialog, std::string_view caption, int value = 0) {
        GadgetNotified(dialog, GadgetWithText(dialog, caption)->controlId, value);
    }
    void Type(GadgetDialog& dialog, int edit, std::string_view text) {
        Gadget& field = Nth(dialog, GadgetType::Edit, edit);
        host.TypeText(field, text);
        GadgetNotified(dialog, field.controlId, 0);
    }
    ToolTable& table = editor.tools.tools;
};

// Loading stops at the first unnamed slot; a named tool labels its command and menu item. The
// dialog adds after the selected tool, deletes in place and takes edits at once; Cancel puts
// everything back.
TEST_F(UserToolsTest, ToolsAreLoadedLabelledEditedInTheDialogAndSaved) {
    Define(1, "Lint", "C:\\bin\\lint.exe", "-f $$", "C:\\work");
    Define(2, "Make", "make.exe");
    Define(3, "T3", "t3.exe");
    Define(5, "Hidden", "x.exe");
    loadTools();
    EXPECT_EQ(std::tuple(table.toolCount, table.slots[0]),
              std::tuple(3, ToolRecord{"Lint", "C:\\bin\\lint.exe", "-f $$", "C:\\work", "GHDL"}));
    WriteBytes(folder.File("menu.ini"), "MENU &Run\nITEM a RunTool2\nITEM b RunTool4\nEND\n");
    host.SetProfile("GUI", "Menu", folder.File("menu.ini"));
    PrepareMainMenu(); // a named tool's item shows the name
    const std::vector<MenuEntry>& items = editor.customisation.menu.entries;
    EXPECT_EQ(Label(RunTool1) + items[1].text + items[2].text + Label(RunTool4),
              "LintMakebRunTool4");
    host.inputAnswers = {"New", "", std::nullopt, "Other"};
    host.dialogActions.push_back([&](GadgetDialog& d) {
        Gadget& list = Nth(d, GadgetType::DropDownList, 0);
        Gadget& format = Nth(d, GadgetType::DropDownList, 1);
        EXPECT_EQ(format.value, 2); // GHDL
        Press(d, "", 1);            // the tool list: the second tool
        EXPECT_EQ(format.value, 0); // none
        Press(d, "&Delete");        // the former third is shown in its place
        EXPECT_EQ(Nth(d, GadgetType::Edit, 0).textValue, "t3.exe");
        Press(d, "", 0);
        for (int i = 0; i < 3; ++i) // added after the selected tool; no name or Cancel add none
            Press(d, "&Add new");
        EXPECT_EQ(list.items, (std::vector<std::string>{"Lint", "New", "T3"}));
        for (int i = 0; const char* text : {"new.exe", "-f $$", "C:\\w"})
            Type(d, i++, text);
        GadgetNotified(d, format.controlId, 5);
        DialogOkCommand(d);
    });
    ToolOptions();
    EXPECT_EQ(host.inputRequests.at(0).prompt + std::to_string(host.inputRequests[0].maxLength),
              "Name of new tool : 79");
    EXPECT_EQ(std::tuple(table.toolCount, table.slots[1], table.slots[3]),
              std::tuple(3, ToolRecord{"New", "new.exe", "-f $$", "C:\\w", "Yosys"}, ToolRecord{}));

    // Cancel puts everything back. With all six named the count stays at its start value and
    // the dialog changes nothing: no name is asked for, OK keeps the table.
    for (const bool full : {false, true}) {
        if (full) {
            for (int n = 1; n <= 6; ++n)
                Define(n, "T" + std::to_string(n), "t.exe");
            table = ToolTable{};
            loadTools();
        }
        const ToolTable before = table;
        host.dialogActions.push_back([&](GadgetDialog& d) {
            EXPECT_EQ(GadgetWithText(d, "&Delete")->IsDisabled(), full);
            Type(d, 0, "changed.exe");
            Press(d, "&Delete");
            Press(d, "&Add new");
            full ? DialogOkCommand(d) : DialogCancelCommand(d);
        });
        ToolOptions();
        EXPECT_EQ(table, before);
    }
    EXPECT_EQ(std::to_string(table.toolCount) + Label(RunTool6) +
                  std::to_string(host.inputRequests.size()),
              "0T64");

    // Every slot is written; Messages where the profile has the key or a format is set.
    host.profileWrites.clear();
    table.slots[0].messages.clear();
    table.slots[1].messages = "Yosys";
    table.slots[5] = ToolRecord{};
    saveTools();
    EXPECT_EQ(host.profileWrites.size(), 26u);
    EXPECT_EQ(host.ProfileValue("UserDefinedTools", "Messages1"), "");
    EXPECT_EQ(host.ProfileValue("UserDefinedTools", "Messages2"), "Yosys");
}

TEST_F(UserToolsTest, RunningNeedsAnExecutableAndForDollarsAWindowAndSteppingCrossesFiles) {
    EXPECT_EQ(toolCommandLine("t", "$ $$$ $", "a.v"), "t $ a.v$ $");
    const std::string dir = folder.File("").substr(0, folder.File("").size() - 1);
    Define(1, "GHDL", "ghdl.exe", "-a top.vhd", dir);
    Define(2, "Lint", "C:\\bin\\lint.exe", "-f $$ -o $$.log");
    Define(3, "Nothing");
    loadTools();
    RunTool3();
    RunTool2();
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Tool(3) 'Nothing' has no command executable specified.\nUse Options -> Tools to "
              "specify a command.\nTool(2) 'Lint' uses active window in command line\narguments, "
              "but no window is ative.\n");
    EXPECT_EQ(host.boxes[0].caption + "|" + host.boxes[1].caption + "|" + LastRun(),
              "Empty command line|No active windows|none");
    EditBuffer& top = OpenSource("top.vhd", "entity top is\nend;\n\ty <= b;\n");
    top.lines.modified = 1;
    RunTool2();
    const std::string name = top.fileName;
    EXPECT_EQ(LastRun(), "C:\\bin\\lint.exe -f " + name + " -o " + name + ".log|.");
    EXPECT_EQ(top.lines.modified + host.busyCursorDepth, 1); // not saved first
    RunTool2(); // the active result window does not count as a window for "$$"
    EXPECT_EQ(host.boxes.size(), 3u);

    std::filesystem::create_directories(folder.File("sub"));
    WriteBytes(folder.File("sub/pkg.vhd"), "package pkg is\n  constant c : bit := '0';\nend;\n");
    Prints({"top.vhd:3:14: no declaration for \"b\"\n\ty <= b;\n\t     ^\n",
            "top.vhd:3:9: same line again\n", dir + "/sub/./pkg.vhd:2:5:warning: unused\n",
            "missing.vhd:1:1: gone\ntop.vhd:1:1: back\n"});
    RunTool1(); // without "$$" no window is needed
    EXPECT_EQ(LastRun(), "ghdl.exe -a top.vhd|" + dir);
    EXPECT_EQ(host.statusPanes[3], "Running scriptfile 'ruvotool.bat' for GHDL.");
    EXPECT_EQ(host.windowTitles[OpenResultBuffer()], "Result of tool 'GHDL'.");
    NextError(); // GHDL counts the tab up to column 9: column 14 is the "b"
    EXPECT_EQ(std::tuple(editor.engine.currentBuffer, top.cursor), std::tuple(&top, MakePos(2, 6)));

    NextError(); // opens the package, which was not open
    EditBuffer& pkg = *editor.engine.currentBuffer;
    EXPECT_EQ(pkg.cursor, MakePos(1, 4));
    EXPECT_EQ(Markers(top), (Marks{{3, KindError}, {1, KindError}}));
    EXPECT_EQ(Markers(pkg), (Marks{{2, KindWarning}}));
    NextError(); // a file that is not there
    EXPECT_EQ(host.statusPanes[3], "File '" + folder.File("missing.vhd") + "' not found.");

    host.redrawnWindows.clear();
    clearErrors();
    EXPECT_EQ(std::count(host.redrawnWindows.begin(), host.redrawnWindows.end(), &pkg), 1);
}

TEST_F(UserToolsTest, VsystemOptionsShowAndTakeTheSettings) {
    VsystemSettings& v = editor.tools.vsystem;
    v.vcomOptions = std::string(300, 'o'); // longer than a field takes: kept whole
    editor.tools.libraryDirectory = "C:\\lib";
    host.fileDialogAnswers.push_back(FileDialogResult{"D:\\mti\\vcom.exe", "D:\\mti", false});
    host.dialogActions.push_back([&](GadgetDialog& d) {
        EXPECT_EQ(GlGadgetGetText(*GadgetAfter(d, "&Directory:")), "C:\\lib");
        setGadgetValue(*GadgetWithText(d, "&No std_logic_1164"), 0);
        setGadgetValue(*GadgetWithText(d, "&Run-time hazard checking"), 1);
        host.TypeText(*GadgetAfter(d, "&Start on Line:"), "12");
        host.TypeText(Nth(d, GadgetType::Edit, 4), "-v"); // the Vlog page's line field
        host.TypeText(Nth(d, GadgetType::Edit, 5), "+v"); // and its options
        Press(d, "...");
        DialogOkCommand(d);
    });
    VsystemOptions();
    EXPECT_EQ(host.fileDialogs.at(0).title + host.fileDialogs[0].filter +
                  host.fileDialogs[0].initialName,
              "Locate vcomExecutable files(*.exe)|*.exe|vcom.exe");
    EXPECT_TRUE(!v.stdLogicOpt && v.hazard);
    EXPECT_EQ(v.executable + v.vcomLine + v.vlogLine + v.vlogOptions, "D:\\mti\\vcom.exe12-v+v");

    // The library buttons take their fields and run; closing otherwise keeps the rest.
    OpenSource("alu.vhd", "x");
    host.dialogActions.push_back([&](GadgetDialog& d) {
        host.TypeText(*GadgetAfter(d, "&Library:"), "mylib");
        host.TypeText(*GadgetAfter(d, "&Directory:"), "C:\\libs\\mylib");
        host.TypeText(*GadgetAfter(d, "&Path:"), "E:\\m\\vcom.exe");
        Press(d, "Create Library");
        host.TypeText(*GadgetAfter(d, "&Path:"), "F:\\vcom.exe");
        Press(d, "Retrieve Library Mapping");
        DialogCancelCommand(d);
    });
    VsystemOptions();
    EXPECT_EQ(host.processRuns.at(0).commandLine + host.processRuns.at(1).commandLine,
              "E:\\m\\vlib C:\\libs\\mylibF:\\vmap");
    EXPECT_EQ(v.library + v.vcomOptions, "mylib" + std::string(300, 'o'));
}

} // namespace
} // namespace ruvo
