// The "Expand Template" dialog: five rows of a label and a field, built on first use.
#include "aids/expand_template_dialog.h"

#include "aids/hdl_aids_state.h"
#include "aids/template_expand.h"
#include "dialogs/gadget_dialog.h"
#include "engine/editor.h"

namespace ruvo {

namespace {

// Rows beyond the template's parameters go to a page that is never shown: the dialog has no
// tab control, so page 1 is the one on show.
constexpr int HiddenRowPage = 2;

const Template* TemplateAt(int fileIndex, int templateIndex) {
    const TemplateState& state = TheEditor().hdlAids.templates;
    if (fileIndex < 0 || fileIndex >= static_cast<int>(state.loadedFiles.size())) return nullptr;
    const auto& templates = state.loadedFiles[static_cast<size_t>(fileIndex)]->templates;
    if (templateIndex < 0 || templateIndex >= static_cast<int>(templates.size())) return nullptr;
    return &templates[static_cast<size_t>(templateIndex)];
}

int Apply(Gadget&) {
    TemplateState& state = TheEditor().hdlAids.templates;
    ExpandTemplateDialog& view = state.expandDialog;
    for (size_t row = 0; row < view.fields.size(); ++row) {
        std::string value = GlGadgetGetText(*view.fields[row]);
        if (value.size() > static_cast<size_t>(MaxParameterValueLength))
            value.resize(MaxParameterValueLength);
        state.parameterValues[row] = std::move(value);
    }
    if (const Template* entry = TemplateAt(view.fileIndex, view.templateIndex))
        InsertTemplate(*entry);
    return GadgetCloseOk;
}

void Build(ExpandTemplateDialog& view) {
    view.dialog = createDialog("Expand Template");
    for (size_t row = 0; row < view.fields.size(); ++row) {
        const int y = 4 + 14 * static_cast<int>(row);
        view.labels[row] = GlGadgetCreate(*view.dialog, GadgetType::StaticText, 4, y, 50, 10, "");
        std::vector<GadgetTag> tags{MaxLengthTag(MaxParameterValueLength)};
        if (row == 0) tags.push_back(FocusTag());
        view.fields[row] = GlGadgetCreate(*view.dialog, GadgetType::Edit, 60, y, 100, 12, "", tags);
    }
    addCloseButtons(*view.dialog, Apply, [](Gadget&) { return int{GadgetCloseCancel}; });
}

} // namespace

void ShowExpandTemplateDialog(int fileIndex, int templateIndex) {
    TemplateState& state = TheEditor().hdlAids.templates;
    ExpandTemplateDialog& view = state.expandDialog;
    const Template* entry = TemplateAt(fileIndex, templateIndex);
    if (entry == nullptr) return;
    if (view.dialog == nullptr) Build(view);
    view.fileIndex = fileIndex;
    view.templateIndex = templateIndex;
    for (size_t row = 0; row < view.fields.size(); ++row) {
        const bool used = static_cast<int>(row) < entry->paramCount;
        const std::string label = used ? entry->paramNames[row] : std::string();
        view.labels[row]->text = label;
        GlGadgetSet(*view.labels[row], {ValueTag(label), PageTag(used ? 0 : HiddenRowPage)});
        GlGadgetSet(*view.fields[row],
                    {ValueTag(state.parameterValues[row]), PageTag(used ? 0 : HiddenRowPage)});
    }
    (void)showDialog(*view.dialog, true);
}

} // namespace ruvo
