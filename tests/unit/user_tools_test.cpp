// User-defined tools: loading with its quirk, labels, saving, running with "$$", output read
// with a message format across files, and the Tool Configuration and V-System Options dialogs
// as a user drives them.
#include "tools/user_tools.h"

#include <algorithm>
#include <filesystem>

#include "commands/command_table.h"
#include "commands/menu_description.h"
#include "dialog_script.h"
#include "tools/error_list.h"
#include "tools/tool_commands.h"
#include "tools/tool_messages.h"
#include "tools_fixture.h"

namespace ruvo {
namespace {

class UserToolsTest : public ToolsTest {
  protected:
    std::string Label(int n) {
        int row = -1;
        (void)CommandByName("RunTool" + std::to_string(n), nullptr, false, &row);
        return CommandLabel(row);
    }
};

TEST_F(UserToolsTest, LoadingStopsAtTheFirstUnnamedSlotAndLabelsTheCommands) {
    Define(1, "Lint", "C:\\bin\\lint.exe", "-f $$", "C:\\work");
    Define(2, "Make", "make.exe");
    Define(4, "Hidden", "x.exe");
    loadTools();
    const ToolTable& table = editor.tools.tools;
    EXPECT_EQ(table.toolCount, 2);
    EXPECT_EQ(table.slots[0], (ToolRecord{"Lint", "C:\\bin\\lint.exe", "-f $$", "C:\\work", ""}));
    EXPECT_EQ(Label(2) + Label(3), "MakeRunTool3");
    // Menu items of a named tool show its name, whatever it becomes.
    const std::string menu = folder.File("menu.ini");
    WriteBytes(menu, "MENU &Run\nITEM \"Tool &1\" RunTool1\nITEM \"Tool &3\" RunTool3\nEND\n");
    host.SetProfile("GUI", "Menu", menu);
    PrepareMainMenu();
    const std::vector<MenuEntry>& entries = editor.customisation.menu.entries;
    ASSERT_GE(entries.size(), 3u);
    EXPECT_EQ(entries[1].text + entries[2].text, "LintTool &3");
    editor.tools.tools.slots[0].name = "Lint2";
    EXPECT_EQ(Label(1), "Lint2");

    // With all six named the count stays at its start value.
    for (int n = 1; n <= 6; ++n)
        Define(n, "T" + std::to_string(n), "t.exe");
    editor.tools.tools = ToolTable{};
    loadTools();
    EXPECT_EQ(editor.tools.tools.toolCount, 0);
    EXPECT_EQ(Label(6), "T6");
    host.profileWrites.clear();
    editor.tools.tools.slots[5] = ToolRecord{};
    saveTools();
    EXPECT_EQ(host.profileWrites.size(), 24u);
    EXPECT_EQ(host.profileWrites.back(), "[UserDefinedTools] WorkingDirectory6=");
    EXPECT_EQ(host.ProfileValue("UserDefinedTools", "ToolName5"), "T5");
}

TEST_F(UserToolsTest, RunningAToolNeedsAnExecutableAndForDollarsAWindow) {
    EXPECT_EQ(toolCommandLine("t", "$ $$$ $", "a.v"), "t $ a.v$ $");
    EXPECT_EQ(toolCommandLine("t", "", "a.v"), "t ");
    Define(1, "Nothing");
    Define(2, "Lint", "C:\\bin\\lint.exe", "-f $$ -o $$.log");
    Define(3, "Version", "ver.exe", "--version", "C:\\tools");
    loadTools();
    EXPECT_EQ(RunTool1(), 0);
    EXPECT_EQ(RunTool2(), 0);
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Tool(1) 'Nothing' has no command executable specified.\nUse Options -> Tools to "
              "specify a command.\nTool(2) 'Lint' uses active window in command line\narguments, "
              "but no window is ative.\n");
    EXPECT_EQ(host.boxes[0].caption + "|" + host.boxes[1].caption,
              "Empty command line|No active windows");
    EXPECT_TRUE(host.processRuns.empty());

    // Without "$$" no window is needed.
    RunTool3();
    ASSERT_EQ(host.processRuns.size(), 1u);
    EXPECT_EQ(host.processRuns[0].commandLine, "ver.exe --version");
    EXPECT_EQ(host.processRuns[0].directory, "C:\\tools");
    EXPECT_EQ(StatusPane(3), "Running scriptfile 'ruvotool.bat' for Version.");
    EXPECT_EQ(host.windowTitles[OpenResultBuffer()], "Result of tool 'Version'.");

    // The result window is the active one now: it does not count as a window for "$$".
    RunTool2();
    EXPECT_EQ(host.boxes.size(), 3u);
    EditBuffer& source = OpenSource("top.vhd", "x");
    source.lines.modified = 1;
    RunTool2();
    const std::string name = source.fileName;
    EXPECT_EQ(host.processRuns.back().commandLine,
              "C:\\bin\\lint.exe -f " + name + " -o " + name + ".log");
    EXPECT_EQ(host.processRuns.back().directory, ".");
    EXPECT_EQ(source.lines.modified, 1); // not saved first
    EXPECT_EQ(host.busyCursorDepth, 0);
}

class ToolMessagesTest : public ToolsTest {
  protected:
    ToolMessagesTest() {
        host.SetProfile("UserDefinedTools", "MessageFormats", SourcePath("config/messages.ini"));
        Define(1, "GHDL", "ghdl.exe", "-a top.vhd", Folder());
        host.SetProfile("UserDefinedTools", "Messages1", "GHDL");
        Define(2, "Plain", "plain.exe");
        loadTools();
        std::filesystem::create_directories(folder.File("sub"));
        WriteBytes(folder.File("sub/pkg.vhd"),
                   "package pkg is\n  constant c : bit := '0';\nend;\n");
    }
    std::string Folder() const { return folder.File("").substr(0, folder.File("").size() - 1); }
    // The margin's markers of a window: line and kind of each entry about its file.
    std::vector<std::pair<int32_t, int32_t>> Markers(const EditBuffer& buffer) {
        std::vector<std::pair<int32_t, int32_t>> markers;
        MarginError entry;
        for (int32_t i = 0; editor.engine.display.errorSource(buffer, i, entry); ++i)
            if (entry.resultLine >= 0 && entry.sourceLine > 0)
                markers.emplace_back(entry.sourceLine, entry.kind);
        return markers;
    }
};

TEST_F(ToolMessagesTest, SteppingGoesAcrossFilesToTheLineAndColumn) {
    EditBuffer& top = OpenSource("top.vhd", "entity top is\nend;\n\ty <= b;\n");
    Prints({"top.vhd:3:14: no declaration for \"b\"\n\ty <= b;\n\t     ^\n",
            "top.vhd:3:9: same line again\n",
            Folder() + "/sub/./pkg.vhd:2:5:warning: unused [-Wunused]\n",
            "missing.vhd:1:1: gone\ntop.vhd:1:1: back\n"});
    EXPECT_EQ(RunTool1(), 0);
    std::vector<std::string> files;
    for (const ErrorEntry& entry : editor.tools.errorList)
        files.push_back(entry.file + ":" + std::to_string(entry.sourceLine));
    EXPECT_EQ(files,
              (std::vector<std::string>{folder.File("top.vhd:3"), folder.File("sub/pkg.vhd:2"),
                                        folder.File("missing.vhd:1"), folder.File("top.vhd:1")}));

    NextError(); // GHDL counts the tab up to column 9: column 14 is the "b"
    EXPECT_EQ(editor.engine.currentBuffer, &top);
    EXPECT_EQ(top.cursor, MakePos(2, 6));
    EXPECT_EQ(SelectedText(), "\ty <= b;");

    const size_t windows = editor.documents.buffers.size();
    NextError(); // opens the package, which was not open
    EditBuffer& pkg = *editor.engine.currentBuffer;
    EXPECT_EQ(pkg.cursor, MakePos(1, 4));
    EXPECT_EQ(SelectedText(), "  constant c : bit := '0';");
    EXPECT_EQ(Markers(top),
              (std::vector<std::pair<int32_t, int32_t>>{{3, KindError}, {1, KindError}}));
    EXPECT_EQ(Markers(pkg), (std::vector<std::pair<int32_t, int32_t>>{{2, KindWarning}}));

    NextError(); // a file that is not there
    EXPECT_EQ(StatusPane(3), "File '" + folder.File("missing.vhd") + "' not found.");
    EXPECT_EQ(editor.documents.buffers.size(), windows + 1);
    EXPECT_EQ(OpenResultBuffer()->cursor.line, 8);

    PrevError(); // back into the open package: no new window
    EXPECT_EQ(editor.engine.currentBuffer, &pkg);
    EXPECT_EQ(editor.documents.buffers.size(), windows + 1);

    host.redrawnWindows.clear();
    clearErrors();
    EXPECT_TRUE(Markers(top).empty());
    EXPECT_TRUE(Markers(pkg).empty());
    for (EditBuffer* window : {&top, &pkg})
        EXPECT_NE(std::count(host.redrawnWindows.begin(), host.redrawnWindows.end(), window), 0);
}

TEST_F(ToolMessagesTest, OnlyToolsWithAFormatReadTheirOutputAndTheDialogChoosesIt) {
    Prints({"top.vhd:3:14: no declaration for \"b\"\n"});
    RunTool2();
    EXPECT_FALSE(hasErrorList());

    std::vector<std::string> items;
    std::vector<int> shown; // the format shown for tools 1 and 2
    for (bool keep : {false, true})
        host.dialogActions.push_back([&, keep](GadgetDialog& d) {
            Gadget& format = *GadgetAfter(d, "&Messages:");
            items = format.items;
            shown.push_back(format.value);
            GadgetNotified(d, GadgetWithText(d, "")->controlId, 1); // the tool list: tool 2
            shown.push_back(format.value);
            setGadgetValue(format, 5); // Yosys
            GadgetNotified(d, format.controlId, 5);
            keep ? DialogOkCommand(d) : DialogCancelCommand(d);
        });
    ToolOptions();
    EXPECT_EQ(editor.tools.tools.slots[1].messages, "");
    ToolOptions();
    EXPECT_EQ(editor.tools.tools.slots[1].messages, "Yosys");
    EXPECT_EQ(items, (std::vector<std::string>{"(none)", "auto", "GHDL", "Icarus", "Verilator",
                                               "Yosys", "Questa", "Vivado", "Quartus"}));
    EXPECT_EQ(shown, (std::vector<int>{2, 0, 2, 0}));

    saveTools();
    EXPECT_EQ(host.ProfileValue("UserDefinedTools", "Messages2"), "Yosys");
    EXPECT_FALSE(host.ProfileValue("UserDefinedTools", "Messages3"));
    editor.tools.tools.slots[1].messages.clear();
    editor.tools.tools.slots[0].messages.clear(); // a format given up is written empty
    saveTools();
    EXPECT_EQ(host.ProfileValue("UserDefinedTools", "Messages1"), "");
}

class ToolDialogsTest : public ToolsTest {
  protected:
    // The n-th gadget of a type, counted from 0.
    static Gadget& Nth(GadgetDialog& dialog, GadgetType type, int n) {
        for (auto& gadget : dialog.gadgets)
            if (gadget->type == type && n-- == 0) return *gadget;
        ADD_FAILURE() << "no such gadget";
        return *dialog.gadgets.front();
    }
    static void Press(GadgetDialog& dialog, std::string_view caption) {
        GadgetNotified(dialog, GadgetWithText(dialog, caption)->controlId, 0);
    }
    // Selects a tool in the list, as a user does.
    static void Select(GadgetDialog& dialog, int index) {
        GadgetNotified(dialog, Nth(dialog, GadgetType::DropDownList, 0).controlId, index);
    }
    void Type(GadgetDialog& dialog, int edit, std::string_view text) {
        Gadget& field = Nth(dialog, GadgetType::Edit, edit);
        host.TypeText(field, text);
        GadgetNotified(dialog, field.controlId, 0);
    }
    ToolTable& Table() { return editor.tools.tools; }
    void LoadThreeTools() {
        for (const char* n : {"1", "2", "3"})
            Define(n[0] - '0', std::string("T") + n, std::string("t") + n + ".exe");
        loadTools();
    }
};

TEST_F(ToolDialogsTest, ToolsAreAddedDeletedAndEditedInPlace) {
    LoadThreeTools();
    std::vector<std::string> listed;
    std::string shownExecutable;
    host.inputAnswers = {"New", "", std::nullopt};
    host.dialogActions.push_back([&](GadgetDialog& d) {
        Gadget& list = Nth(d, GadgetType::DropDownList, 0);
        listed = list.items;
        Select(d, 1);
        Press(d, "&Delete"); // the former third is shown in its place
        shownExecutable = Nth(d, GadgetType::Edit, 0).textValue;
        EXPECT_EQ(list.value, 1);
        Select(d, 0);
        Press(d, "&Add new"); // inserted after the selected tool
        Press(d, "&Add new"); // an empty name adds nothing
        Press(d, "&Add new"); // nor does Cancel
        EXPECT_EQ(list.items, (std::vector<std::string>{"T1", "New", "T3"}));
        EXPECT_EQ(list.value, 1);
        Type(d, 0, "new.exe");
        Type(d, 1, "-f $$");
        Type(d, 2, "C:\\w");
        DialogOkCommand(d);
    });
    ToolOptions();
    EXPECT_EQ(listed, (std::vector<std::string>{"T1", "T2", "T3"}));
    EXPECT_EQ(shownExecutable, "t3.exe");
    EXPECT_EQ(host.inputRequests.at(0).prompt + std::to_string(host.inputRequests[0].maxLength),
              "Name of new tool : 79");
    EXPECT_EQ(Table().toolCount, 3);
    EXPECT_EQ(Table().slots[0], (ToolRecord{"T1", "t1.exe", "", "", ""}));
    EXPECT_EQ(Table().slots[1], (ToolRecord{"New", "new.exe", "-f $$", "C:\\w", ""}));
    EXPECT_EQ(Table().slots[2], (ToolRecord{"T3", "t3.exe", "", "", ""}));
    EXPECT_EQ(Table().slots[3], ToolRecord{});

    // Cancel after editing, deleting and adding puts the table back exactly.
    const ToolTable before = Table();
    host.inputAnswers = {"Other"};
    host.dialogActions.push_back([&](GadgetDialog& d) {
        Type(d, 0, "changed.exe");
        Select(d, 2);
        Press(d, "&Delete");
        Press(d, "&Add new");
        DialogCancelCommand(d);
    });
    ToolOptions();
    EXPECT_EQ(Table(), before);
    EXPECT_EQ(host.shownDialogs.back(), "Tool Configuration");
}

TEST_F(ToolDialogsTest, NoWriteGoesPastTheSixSlots) {
    // Six named tools load with a count of 0: the list is empty and nothing can be changed.
    for (int n = 1; n <= 6; ++n)
        Define(n, "T");
    loadTools();
    host.inputAnswers = {"Seventh"};
    host.dialogActions.push_back([&](GadgetDialog& d) {
        EXPECT_TRUE(Nth(d, GadgetType::DropDownList, 0).items.empty());
        EXPECT_TRUE(GadgetWithText(d, "&Delete")->IsDisabled());
        Press(d, "&Add new");
        Press(d, "&Delete");
        Type(d, 0, "x.exe");
        DialogOkCommand(d);
    });
    const ToolTable before = Table();
    ToolOptions();
    EXPECT_EQ(Table(), before);
    EXPECT_TRUE(host.inputRequests.empty());
}

TEST_F(ToolDialogsTest, VsystemOptionsShowAndTakeTheSettings) {
    VsystemSettings& v = editor.tools.vsystem;
    v.executable = "C:\\vsys\\vcom.exe";
    v.vcomOptions = std::string(300, 'o'); // longer than a field takes: kept whole
    editor.tools.libraryDirectory = "C:\\lib";
    host.fileDialogAnswers.push_back(FileDialogResult{"D:\\mti\\vcom.exe", "D:\\mti", false});
    std::string shown;
    host.dialogActions.push_back([&](GadgetDialog& d) {
        shown = GlGadgetGetText(*GadgetAfter(d, "&Path:")) + "|" +
                GlGadgetGetText(*GadgetAfter(d, "&Directory:"));
        setGadgetValue(*GadgetWithText(d, "&No std_logic_1164"), 0);
        setGadgetValue(*GadgetWithText(d, "&Run-time hazard checking"), 1);
        host.TypeText(*GadgetAfter(d, "&Start on Line:"), "12");
        host.TypeText(Nth(d, GadgetType::Edit, 4), "-v"); // the Vlog page's line field
        host.TypeText(Nth(d, GadgetType::Edit, 5), "+v"); // and its options
        Press(d, "...");
        DialogOkCommand(d);
    });
    VsystemOptions();
    EXPECT_EQ(shown, "C:\\vsys\\vcom.exe|C:\\lib");
    const FileDialogRequest& locate = host.fileDialogs.at(0);
    EXPECT_EQ(locate.title + locate.filter + locate.initialName,
              "Locate vcomExecutable files(*.exe)|*.exe|vcom.exe");
    EXPECT_EQ(v.executable, "D:\\mti\\vcom.exe");
    EXPECT_FALSE(v.stdLogicOpt);
    EXPECT_TRUE(v.hazard);
    EXPECT_EQ(v.vcomLine + v.vlogLine + v.vlogOptions, "12-v+v");

    // The library buttons take their fields and run; closing otherwise keeps the rest.
    OpenSource("alu.vhd", "x");
    host.dialogActions.push_back([&](GadgetDialog& d) {
        host.TypeText(*GadgetAfter(d, "&Library:"), "mylib");
        host.TypeText(*GadgetAfter(d, "&Directory:"), "C:\\libs\\mylib");
        host.TypeText(*GadgetAfter(d, "&Other options:"), "-quiet");
        host.TypeText(*GadgetAfter(d, "&Path:"), "E:\\m\\vcom.exe");
        Press(d, "Map Library");
        Press(d, "Create Library");
        host.TypeText(*GadgetAfter(d, "&Path:"), "F:\\vcom.exe");
        Press(d, "Retrieve Library Mapping");
        DialogCancelCommand(d);
    });
    VsystemOptions();
    ASSERT_EQ(host.processRuns.size(), 3u);
    EXPECT_EQ(host.processRuns[0].commandLine, "E:\\m\\vmap mylib C:\\libs\\mylib");
    EXPECT_EQ(host.processRuns[1].commandLine, "E:\\m\\vlib C:\\libs\\mylib");
    EXPECT_EQ(host.processRuns[2].commandLine, "F:\\vmap");
    EXPECT_EQ(v.library, "mylib");
    EXPECT_EQ(v.vcomOptions, std::string(300, 'o'));
}

} // namespace
} // namespace ruvo
