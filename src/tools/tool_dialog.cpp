// The "Tool Configuration" dialog: adds, deletes and edits the user-defined tools; Cancel puts
// the table back as it was.
#include <string>
#include <vector>

#include "dialogs/gadget_dialog.h"
#include "docs/documents.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/string_routines.h"
#include "tools/tool_commands.h"
#include "tools/tool_messages.h"

namespace ruvo {

namespace {

constexpr int ToolFieldLength = 83;
constexpr int ToolNameLength = 79;
constexpr const char* NamePrompt = "Name of new tool : ";
constexpr const char* NoFormatItem = "(none)"; // the list entry of an empty Messages setting
constexpr const char* FormatHint = "Next Error and Prev Error step through the tool's messages "
                                   "in this format; auto tries every format.";

struct ToolGadgets {
    Gadget* list = nullptr;
    Gadget* add = nullptr;
    Gadget* remove = nullptr;
    Gadget* executable = nullptr;
    Gadget* argument = nullptr;
    Gadget* directory = nullptr;
    Gadget* messages = nullptr; // the message format of the tool's output
};

ToolsState& Tools() {
    return TheEditor().tools;
}

// The gadgets in creation order: list, buttons, then the three edits.
ToolGadgets GadgetsOf(GadgetDialog& dialog) {
    ToolGadgets g;
    std::vector<Gadget*> edits;
    for (auto& gadget : dialog.gadgets) {
        if (gadget->type == GadgetType::DropDownList)
            (g.list == nullptr ? g.list : g.messages) = gadget.get();
        if (gadget->type == GadgetType::Edit) edits.push_back(gadget.get());
        if (gadget->text == "&Add new") g.add = gadget.get();
        if (gadget->text == "&Delete") g.remove = gadget.get();
    }
    if (edits.size() == 3) {
        g.executable = edits[0];
        g.argument = edits[1];
        g.directory = edits[2];
    }
    return g;
}

// The slot of the list's selection, or -1 without one.
int SelectedSlot(const ToolGadgets& g) {
    const int selected = GlGadgetGet(*g.list);
    return selected >= 0 && selected < ToolSlots ? selected : -1;
}

void ShowSlot(const ToolGadgets& g, int slot) {
    ToolsState& tools = Tools();
    const int count = tools.tools.toolCount;
    if (slot < 0 || slot >= count) slot = 0;
    GlGadgetSet(*g.add, {DisabledTag(count == ToolSlots)});
    GlGadgetSet(*g.remove, {DisabledTag(count == 0)});
    setGadgetValue(*g.list, slot);
    const ToolRecord& record = tools.tools.slots[static_cast<size_t>(slot)];
    tools.fillingToolDialog = true;
    setGadgetValue(*g.executable, record.executable);
    setGadgetValue(*g.argument, record.argument);
    setGadgetValue(*g.directory, record.workingDirectory);
    // A format the rule file does not name shows no entry and stays until one is chosen.
    const std::vector<std::string> choices = MessageFormatChoices();
    int format = -1;
    for (size_t i = 0; i < choices.size(); ++i)
        if (EqualsNoCase(choices[i], record.messages)) format = static_cast<int>(i);
    setGadgetValue(*g.messages, format);
    tools.fillingToolDialog = false;
}

int MessagesChanged(const ToolGadgets& g) {
    ToolsState& tools = Tools();
    const int slot = SelectedSlot(g);
    const std::vector<std::string> choices = MessageFormatChoices();
    const int format = GlGadgetGet(*g.messages);
    if (tools.fillingToolDialog || slot < 0 || format < 0 ||
        format >= static_cast<int>(choices.size()))
        return GadgetStayOpen;
    tools.tools.slots[static_cast<size_t>(slot)].messages = choices[static_cast<size_t>(format)];
    return GadgetStayOpen;
}

int EditChanged(const ToolGadgets& g) {
    ToolsState& tools = Tools();
    const int slot = SelectedSlot(g);
    if (tools.fillingToolDialog || slot < 0) return GadgetStayOpen;
    ToolRecord& record = tools.tools.slots[static_cast<size_t>(slot)];
    record.executable = GlGadgetGetText(*g.executable);
    record.argument = GlGadgetGetText(*g.argument);
    record.workingDirectory = GlGadgetGetText(*g.directory);
    return GadgetStayOpen;
}

int AddTool(const ToolGadgets& g) {
    ToolTable& table = Tools().tools;
    // A named last slot has no room behind it, whatever the count says.
    if (table.toolCount >= ToolSlots || !table.slots[ToolSlots - 1].name.empty())
        return GadgetStayOpen;
    const std::optional<std::string> name =
        TheEditor().host.InputDialog(NamePrompt, "", ToolNameLength);
    if (!name || name->empty()) return GadgetStayOpen;
    const int selected = SelectedSlot(g);
    const int at = selected < 0 ? table.toolCount : selected + 1;
    for (int slot = ToolSlots - 1; slot > at; --slot)
        table.slots[static_cast<size_t>(slot)] = table.slots[static_cast<size_t>(slot - 1)];
    table.slots[static_cast<size_t>(at)] = ToolRecord{};
    table.slots[static_cast<size_t>(at)].name = *name;
    ++table.toolCount;
    GlGadgetSet(*g.list, {InsertItemTag(at, *name)});
    ShowSlot(g, at);
    return GadgetStayOpen;
}

int DeleteTool(const ToolGadgets& g) {
    ToolTable& table = Tools().tools;
    const int slot = SelectedSlot(g);
    if (slot < 0 || table.slots[static_cast<size_t>(slot)].name.empty()) return GadgetStayOpen;
    for (int i = slot; i < ToolSlots - 1; ++i)
        table.slots[static_cast<size_t>(i)] = table.slots[static_cast<size_t>(i + 1)];
    table.slots[ToolSlots - 1] = ToolRecord{};
    if (table.toolCount > 0) --table.toolCount;
    GlGadgetSet(*g.list, {DeleteItemTag(slot)});
    ShowSlot(g, slot < table.toolCount ? slot : slot - 1);
    return GadgetStayOpen;
}

// OK and Cancel both leave every edit window drawn again.
int CloseWith(bool keep) {
    ToolsState& tools = Tools();
    if (!keep) tools.tools = tools.toolsBeforeDialog;
    (void)forEachBuffer([](EditBuffer& buffer) {
        TheEditor().host.RedrawWindow(buffer);
        return 1;
    });
    return keep ? GadgetCloseOk : GadgetCloseCancel;
}

void Static(GadgetDialog& d, int y, std::string_view text) {
    GlGadgetCreate(d, GadgetType::StaticText, 10, y, 160, 10, text);
}

Gadget* ToolEdit(GadgetDialog& d, int y) {
    return GlGadgetCreate(d, GadgetType::Edit, 10, y, 160, 12, "", {MaxLengthTag(ToolFieldLength)});
}

std::unique_ptr<GadgetDialog> BuildDialog() {
    std::unique_ptr<GadgetDialog> owned = createDialog("Tool Configuration");
    GadgetDialog& d = *owned;
    ToolGadgets g;
    GlGadgetCreate(d, GadgetType::GroupBox, 4, 4, 176, 30, " Tool: ");
    g.list = GlGadgetCreate(d, GadgetType::DropDownList, 8, 14, 78, 80, "");
    g.add = GlGadgetCreate(d, GadgetType::PushButton, 92, 14, 40, 12, "&Add new");
    g.remove = GlGadgetCreate(d, GadgetType::PushButton, 138, 14, 40, 12, "&Delete");
    GlGadgetCreate(d, GadgetType::GroupBox, 4, 39, 176, 90, " Specification: ");
    Static(d, 49, "Path and filename of executable");
    g.executable = ToolEdit(d, 59);
    Static(d, 74, "Command line argument ( $$ means source file)");
    g.argument = ToolEdit(d, 84);
    Static(d, 99, "Working directory");
    g.directory = ToolEdit(d, 109);
    GlGadgetCreate(d, GadgetType::StaticText, 10, 136, 56, 10, "&Messages:");
    // The open list reaches below the row; the hint fills that room.
    g.messages = GlGadgetCreate(d, GadgetType::DropDownList, 68, 134, 112, 66, "");
    GlGadgetCreate(d, GadgetType::StaticText, 10, 152, 170, 24, FormatHint);

    GlGadgetSet(*g.list, {CallbackTag([g](Gadget&) {
        ShowSlot(g, SelectedSlot(g));
        return int{GadgetStayOpen};
    })});
    GlGadgetSet(*g.add, {CallbackTag([g](Gadget&) { return AddTool(g); })});
    GlGadgetSet(*g.remove, {CallbackTag([g](Gadget&) { return DeleteTool(g); })});
    GlGadgetSet(*g.messages, {CallbackTag([g](Gadget&) { return MessagesChanged(g); })});
    for (Gadget* edit : {g.executable, g.argument, g.directory})
        GlGadgetSet(*edit, {CallbackTag([g](Gadget&) { return EditChanged(g); })});
    addCloseButtons(
        d, [](Gadget&) { return CloseWith(true); }, [](Gadget&) { return CloseWith(false); });
    return owned;
}

} // namespace

int ToolOptions() {
    ToolsState& tools = Tools();
    std::unique_ptr<GadgetDialog>& dialog = tools.dialogs.tools;
    if (dialog == nullptr) dialog = BuildDialog();
    tools.toolsBeforeDialog = tools.tools;
    const ToolGadgets g = GadgetsOf(*dialog);
    while (!g.list->items.empty())
        GlGadgetSet(*g.list, {DeleteItemTag(0)});
    std::vector<std::string> names;
    for (int slot = 0; slot < tools.tools.toolCount; ++slot)
        names.push_back(tools.tools.slots[static_cast<size_t>(slot)].name);
    GlGadgetSet(*g.list, {ItemsTag(names)});
    std::vector<std::string> formats = MessageFormatChoices();
    formats.front() = NoFormatItem;
    while (!g.messages->items.empty())
        GlGadgetSet(*g.messages, {DeleteItemTag(0)});
    GlGadgetSet(*g.messages, {ItemsTag(formats)});
    ShowSlot(g, 0);
    (void)showDialog(*dialog, true);
    return 0;
}

} // namespace ruvo
