// The keyboard accelerators dialog: the command list, the key of the chosen command and its
// description. It only shows the map; accel.ini changes it.
#include "commands/accelerators_dialog.h"

#include <string>
#include <vector>

#include "commands/command_table.h"
#include "commands/customisation_state.h"
#include "commands/key_map.h"
#include "dialogs/gadget_dialog.h"
#include "engine/editor.h"

namespace ruvo {

namespace {

struct AcceleratorGadgets {
    Gadget* keyText = nullptr;
    Gadget* description = nullptr;
};

// Each binding of the command replaces the text of the one before: the last one in map order
// is what the field shows.
int CommandChosen(const AcceleratorGadgets& gadgets, int row) {
    const char* description = CommandDescription(row);
    setGadgetValue(*gadgets.description, description != nullptr ? description : "");
    setGadgetValue(*gadgets.keyText, "");
    const KeyMap& map = TheEditor().customisation.keyMap;
    for (int i = 0; i < map.count; ++i) {
        if (static_cast<int>(map.entries[i].commandId) == row + CommandMenuIdBase)
            setGadgetValue(*gadgets.keyText, KeyText(map.entries[i]).text);
    }
    return GadgetStayOpen;
}

int Inert(Gadget&) {
    return GadgetStayOpen;
}

std::unique_ptr<GadgetDialog> BuildDialog() {
    std::unique_ptr<GadgetDialog> dialog = createDialog("Keyboard accelerators mapping:");
    AcceleratorGadgets gadgets;
    std::vector<std::string> names;
    for (int row = 0; row < TerminatingCommandIndex; ++row)
        names.emplace_back(CommandTable[row].name);

    GlGadgetCreate(*dialog, GadgetType::StaticText, 8, 15, 40, 10, "&Functions:");
    Gadget* list = GlGadgetCreate(*dialog, GadgetType::ListBox, 8, 27, 95, 72, "",
                                  {ItemsTag(names), ValueTag(-1), FocusTag()});
    GlGadgetCreate(*dialog, GadgetType::StaticText, 108, 15, 40, 10, "&Accelerators:");
    gadgets.keyText = GlGadgetCreate(*dialog, GadgetType::Edit, 108, 27, 50, 24, "");
    GlGadgetCreate(*dialog, GadgetType::StaticText, 108, 55, 70, 10, "&Press &New short key:");
    GlGadgetCreate(*dialog, GadgetType::Edit, 108, 67, 50, 12, "");
    GlGadgetCreate(*dialog, GadgetType::GroupBox, 8, 105, 188, 22, "Function description:");
    gadgets.description = GlGadgetCreate(*dialog, GadgetType::StaticText, 10, 114, 180, 10, "");
    GlGadgetCreate(*dialog, GadgetType::PushButton, 170, 16, 45, 12, "&Close",
                   {CallbackTag([](Gadget&) { return int{GadgetCloseOk}; })});
    // Assign, Delete and Reset are there but do nothing.
    GlGadgetCreate(*dialog, GadgetType::PushButton, 170, 38, 45, 12, "&Assign",
                   {CallbackTag(Inert)});
    GlGadgetCreate(*dialog, GadgetType::PushButton, 170, 54, 45, 12, "&Delete",
                   {CallbackTag(Inert)});
    GlGadgetCreate(*dialog, GadgetType::PushButton, 170, 70, 45, 12, "&Reset",
                   {CallbackTag(Inert)});
    GlGadgetSet(*list, {CallbackTag([gadgets](Gadget& chosen) {
        return chosen.value >= 0 ? CommandChosen(gadgets, chosen.value) : int{GadgetStayOpen};
    })});
    return dialog;
}

} // namespace

int Accelerators() {
    std::unique_ptr<GadgetDialog>& dialog = TheEditor().customisation.acceleratorsDialog;
    if (dialog == nullptr) dialog = BuildDialog();
    showDialog(*dialog, false);
    return 0;
}

} // namespace ruvo
