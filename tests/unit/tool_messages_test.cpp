// A user tool whose output is read with a message format: entries in several files, stepping
// into files that are not open, columns, markers in every file, the Messages key.
#include "tools/tool_messages.h"

#include <algorithm>
#include <filesystem>

#include "dialog_script.h"
#include "engine/clipboard_commands.h"
#include "tools/error_list.h"
#include "tools/tool_commands.h"
#include "tools/user_tools.h"
#include "tools_fixture.h"

namespace ruvo {
namespace {

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
    std::string SelectedLine() {
        (void)EditCopy();
        return host.clipboard.value_or("");
    }
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
    EXPECT_EQ(SelectedLine(), "\ty <= b;");

    const size_t windows = editor.documents.buffers.size();
    NextError(); // opens the package, which was not open
    EditBuffer& pkg = *editor.engine.currentBuffer;
    EXPECT_EQ(pkg.cursor, MakePos(1, 4));
    EXPECT_EQ(SelectedLine(), "  constant c : bit := '0';");
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

} // namespace
} // namespace ruvo
