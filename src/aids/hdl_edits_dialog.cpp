// The "HDL Edits" dialog: action, option, and the lines it applies to.
#include "aids/hdl_edits_dialog.h"

#include <cstdlib>
#include <string>
#include <tuple>
#include <vector>

#include "aids/hdl_aids_state.h"
#include "aids/range_edits.h"
#include "dialogs/gadget_dialog.h"
#include "engine/command_target.h"
#include "host/host.h"

namespace ruvo {

namespace {

// The option pair's labels for each action: Comment, Indent, Reserved words.
const char* const OptionLabels[3][2] = {
    {"A&dd", "&Remove"}, {"&Indent", "&Un-indent"}, {"&Uppercase", "Lo&wercase"}};

RangeEditDialog& View() {
    return TheEditor().hdlAids.rangeEditDialog;
}

// The line labels and fields are greyed while "&Selection" or "A&ll" is ticked.
void UpdateLineFields() {
    RangeEditDialog& view = View();
    const bool greyed = view.selection->value != 0 || view.all->value != 0;
    for (Gadget* gadget : {view.startLabel, view.startField, view.endLabel, view.endField})
        GlGadgetSet(*gadget, {DisabledTag(greyed)});
}

int ActionChanged(Gadget& action) {
    const int index = action.value < 0 || action.value > 2 ? 0 : action.value;
    GlGadgetSet(*View().options, {SetItemTextTag(0, OptionLabels[index][0]),
                                  SetItemTextTag(1, OptionLabels[index][1])});
    return GadgetStayOpen;
}

// Ticking one of the two boxes clears the other.
int BoxTicked(Gadget& box) {
    RangeEditDialog& view = View();
    Gadget* other = &box == view.selection ? view.all : view.selection;
    if (box.value != 0 && other->value != 0) setGadgetValue(*other, 0);
    UpdateLineFields();
    return GadgetStayOpen;
}

int Apply(Gadget&) {
    RangeEditDialog& view = View();
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return GadgetCloseCancel;
    int32_t start = 0;
    int32_t end = 0;
    if (view.all->value != 0) {
        end = LastLine(*buffer);
    } else if (view.selection->value != 0) {
        std::tie(start, end) = SelectedLineRange(*buffer);
    } else {
        const std::string& first = GlGadgetGetText(*view.startField);
        const std::string& last = GlGadgetGetText(*view.endField);
        if (first.empty() || last.empty()) {
            TheEditor().host.ErrorBox(nullptr, NoValidRangeText);
            return GadgetStayOpen;
        }
        start = std::atoi(first.c_str()) - 1;
        end = std::atoi(last.c_str()) - 1;
    }
    const int action = view.action->value < 0 ? 0 : view.action->value;
    ApplyRangeEdit(static_cast<RangeAction>(action), view.options->value == 0, start, end);
    return GadgetCloseOk;
}

void Build(RangeEditDialog& view) {
    view.dialog = createDialog("HDL Edits");
    GadgetDialog& dialog = *view.dialog;
    GlGadgetCreate(dialog, GadgetType::GroupBox, 4, 2, 124, 38, "");
    GlGadgetCreate(dialog, GadgetType::StaticText, 14, 11, 30, 10, "Actio&n:");
    view.action = GlGadgetCreate(dialog, GadgetType::DropDownList, 45, 10, 70, 42, "",
                                 {ItemsTag({"Comment", "Indent", "Reserved words"}), ValueTag(0),
                                  CallbackTag(ActionChanged), FocusTag()});
    view.options = GlGadgetCreate(dialog, GadgetType::RadioGroup, 8, 25, 110, 10, "",
                                  {ItemsTag({"Comment", "Uncomment"}), ColumnsTag(2), ValueTag(0)});
    GlGadgetCreate(dialog, GadgetType::GroupBox, 4, 44, 124, 52, " Text: ");
    view.selection = GlGadgetCreate(dialog, GadgetType::CheckBox, 8, 52, 50, 10, "&Selection",
                                    {CallbackTag(BoxTicked)});
    view.all = GlGadgetCreate(dialog, GadgetType::CheckBox, 62, 51, 60, 10, "A&ll",
                              {CallbackTag(BoxTicked)});
    view.startLabel =
        GlGadgetCreate(dialog, GadgetType::StaticText, 8, 64, 40, 10, "S&tart at line:");
    view.startField = GlGadgetCreate(dialog, GadgetType::Edit, 52, 63, 40, 12, "");
    view.endLabel = GlGadgetCreate(dialog, GadgetType::StaticText, 8, 79, 40, 10, "&End at line:");
    view.endField = GlGadgetCreate(dialog, GadgetType::Edit, 52, 78, 40, 12, "");
    addCloseButtons(dialog, Apply, [](Gadget&) { return int{GadgetCloseCancel}; });
}

} // namespace

int EditSpecial() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return 0;
    RangeEditDialog& view = View();
    if (view.dialog == nullptr) Build(view);
    const bool selected = buffer->lines.hasSelection != 0;
    if (!selected && view.selection->value != 0) setGadgetValue(*view.selection, 0);
    GlGadgetSet(*view.selection, {DisabledTag(!selected)});
    setGadgetValue(*view.startField, std::to_string(buffer->cursor.line + 1));
    UpdateLineFields();
    (void)showDialog(*view.dialog, true);
    return 0;
}

} // namespace ruvo
