// The options dialogs of the tools as a user drives them: Tool Configuration, and V-System
// Options with its library buttons.
#include <functional>

#include "dialog_script.h"
#include "tools/tool_commands.h"
#include "tools/user_tools.h"
#include "tools_fixture.h"

namespace ruvo {
namespace {

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
        for (int n = 1; n <= 3; ++n) {
            const std::string k = std::to_string(n);
            host.SetProfile("UserDefinedTools", "ToolName" + k, "T" + k);
            host.SetProfile("UserDefinedTools", "Executable" + k, "t" + k + ".exe");
        }
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
    EXPECT_EQ(host.inputRequests.at(0).prompt, "Name of new tool : ");
    EXPECT_EQ(host.inputRequests.at(0).maxLength, 79);
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
    EXPECT_EQ(host.shownDialogs,
              (std::vector<std::string>{"Tool Configuration", "Tool Configuration"}));
}

TEST_F(ToolDialogsTest, NoWriteGoesPastTheSixSlots) {
    // Six named tools load with a count of 0: the list is empty and nothing can be changed.
    for (int n = 1; n <= 6; ++n)
        host.SetProfile("UserDefinedTools", "ToolName" + std::to_string(n), "T");
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
    v.vlogOptions = std::string(300, 'o'); // longer than a field takes: kept whole
    host.fileDialogAnswers.push_back(FileDialogResult{"D:\\mti\\vcom.exe", "D:\\mti", false});
    std::string shownPath;
    host.dialogActions.push_back([&](GadgetDialog& d) {
        shownPath = GlGadgetGetText(*GadgetAfter(d, "&Path:"));
        setGadgetValue(*GadgetWithText(d, "&No std_logic_1164"), 0);
        setGadgetValue(*GadgetWithText(d, "&Run-time hazard checking"), 1);
        host.TypeText(*GadgetAfter(d, "&Start on Line:"), "12");
        host.TypeText(Nth(d, GadgetType::Edit, 4), "-v"); // the Vlog page's line field
        Press(d, "...");
        DialogOkCommand(d);
    });
    VsystemOptions();
    EXPECT_EQ(shownPath, "C:\\vsys\\vcom.exe");
    EXPECT_EQ(host.fileDialogs.at(0).title, "Locate vcom");
    EXPECT_EQ(host.fileDialogs.at(0).filter, "Executable files(*.exe)|*.exe|");
    EXPECT_EQ(host.fileDialogs.at(0).initialName, "vcom.exe");
    EXPECT_EQ(v.executable, "D:\\mti\\vcom.exe");
    EXPECT_FALSE(v.stdLogicOpt);
    EXPECT_TRUE(v.hazard);
    EXPECT_EQ(v.vcomLine, "12");
    EXPECT_EQ(v.vlogLine, "-v");
    EXPECT_EQ(v.vlogOptions, std::string(300, 'o'));

    // The library buttons take their fields and run; closing otherwise keeps the rest.
    OpenSource("alu.vhd", "x");
    host.dialogActions.push_back([&](GadgetDialog& d) {
        host.TypeText(*GadgetAfter(d, "&Library:"), "mylib");
        host.TypeText(*GadgetAfter(d, "&Directory:"), "C:\\libs\\mylib");
        host.TypeText(*GadgetAfter(d, "&Other options:"), "-quiet");
        Press(d, "Map Library");
        Press(d, "Create Library");
        Press(d, "Retrieve Library Mapping");
        DialogCancelCommand(d);
    });
    VsystemOptions();
    ASSERT_EQ(host.processRuns.size(), 3u);
    EXPECT_EQ(host.processRuns[0].commandLine, "D:\\mti\\vmap mylib C:\\libs\\mylib");
    EXPECT_EQ(host.processRuns[1].commandLine, "D:\\mti\\vlib C:\\libs\\mylib");
    EXPECT_EQ(host.processRuns[2].commandLine, "D:\\mti\\vmap");
    EXPECT_EQ(v.library, "mylib");
    EXPECT_EQ(v.vcomOptions, "");
}

} // namespace
} // namespace ruvo
