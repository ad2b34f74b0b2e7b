// User-defined tools: loading with its quirk, labels, saving, and running with "$$".
#include "tools/user_tools.h"

#include "commands/command_table.h"
#include "commands/menu_description.h"
#include "tools/tool_commands.h"
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

} // namespace
} // namespace ruvo
