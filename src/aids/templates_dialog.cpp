// The "Templates" dialog: the loaded files, their templates, and the buttons that act on them.
#include "aids/templates_dialog.h"

#include "aids/hdl_aids_state.h"
#include "aids/template_expand.h"
#include "dialogs/gadget_dialog.h"
#include "docs/recent_files.h"
#include "docs/startup_error_window.h"
#include "engine/command_target.h"
#include "host/host.h"

namespace ruvo {

namespace {

TemplateState& Templates() {
    return TheEditor().hdlAids.templates;
}

const TemplateFile* SelectedFile() {
    const TemplateState& state = Templates();
    if (state.selectedFile < 0 || state.selectedFile >= static_cast<int>(state.loadedFiles.size()))
        return nullptr;
    return state.loadedFiles[static_cast<size_t>(state.selectedFile)].get();
}

// Replaces a list's items and selects `selected` (-1: none).
void FillList(Gadget& list, const std::vector<std::string>& items, int selected) {
    std::vector<GadgetTag> tags;
    for (int i = static_cast<int>(list.items.size()) - 1; i >= 0; --i)
        tags.push_back(DeleteItemTag(i));
    for (size_t i = 0; i < items.size(); ++i)
        tags.push_back(InsertItemTag(static_cast<int>(i), items[i]));
    GlGadgetSet(list, tags);
    setGadgetValue(list, selected);
}

void UpdateButtons() {
    TemplatesDialog& view = Templates().templatesDialog;
    const EditBuffer* buffer = CommandTarget();
    const bool fileChosen = SelectedFile() != nullptr;
    const bool insertable = buffer != nullptr && buffer->lines.readOnly == 0 && fileChosen &&
                            Templates().selectedTemplate >= 0;
    GlGadgetSet(*view.removeButton, {DisabledTag(!fileChosen)});
    GlGadgetSet(*view.insertButton, {DisabledTag(!insertable)});
}

// The template list shows the selected file's templates, none of them chosen.
void FillTemplateList() {
    TemplateState& state = Templates();
    std::vector<std::string> names;
    if (const TemplateFile* file = SelectedFile())
        for (const Template& entry : file->templates)
            names.push_back(entry.name);
    state.selectedTemplate = -1;
    FillList(*state.templatesDialog.templateList, names, -1);
    UpdateButtons();
}

void FillFileList() {
    TemplateState& state = Templates();
    if (SelectedFile() == nullptr) state.selectedFile = -1;
    std::vector<std::string> paths;
    for (const auto& file : state.loadedFiles)
        paths.push_back(shortenPath(file->path, TemplatePathLabelWidth));
    FillList(*state.templatesDialog.fileList, paths, state.selectedFile);
    FillTemplateList();
}

int FileChosen(Gadget& list) {
    Templates().selectedFile = list.value;
    FillTemplateList();
    return GadgetStayOpen;
}

int TemplateChosen(Gadget& list) {
    Templates().selectedTemplate = list.value;
    UpdateButtons();
    if (list.doubleClicked && list.value >= 0) (void)ChooseTemplate(list.value);
    return GadgetStayOpen;
}

int LoadPressed(Gadget&) {
    Editor& editor = TheEditor();
    FileDialogRequest request;
    request.title = "Load Template";
    request.filter = TemplateFileFilter;
    request.initialDirectory = editor.documents.lastDialogDirectory;
    const std::optional<FileDialogResult> chosen = editor.host.FileDialog(request);
    if (!chosen || chosen->fileName.empty()) return GadgetStayOpen;
    const int errorsBefore = editor.settings.startupErrors.errorCount;
    (void)LoadTemplateFile(chosen->fileName); // refreshes the lists
    if (editor.settings.startupErrors.errorCount > errorsBefore) ShowStartupErrors();
    return GadgetStayOpen;
}

int RemovePressed(Gadget&) {
    TemplateState& state = Templates();
    if (SelectedFile() == nullptr) return GadgetStayOpen;
    state.loadedFiles.erase(state.loadedFiles.begin() + state.selectedFile);
    state.selectedFile = -1;
    FillFileList();
    return GadgetStayOpen;
}

int InsertPressed(Gadget&) {
    (void)ChooseTemplate(Templates().selectedTemplate);
    return GadgetStayOpen;
}

void Build(TemplatesDialog& view) {
    view.dialog = createDialog("Templates");
    GadgetDialog& dialog = *view.dialog;
    view.fileList = GlGadgetCreate(dialog, GadgetType::ListBox, 3, 6, 110, 40, "",
                                   {CallbackTag(FileChosen), FocusTag()});
    view.templateList = GlGadgetCreate(dialog, GadgetType::ListBox, 3, 53, 110, 60, "",
                                       {CallbackTag(TemplateChosen)});
    GlGadgetCreate(dialog, GadgetType::GroupBox, 118, 2, 48, 111, "");
    GlGadgetCreate(dialog, GadgetType::PushButton, 122, 9, 40, 12, "&Load",
                   {CallbackTag(LoadPressed)});
    view.removeButton = GlGadgetCreate(dialog, GadgetType::PushButton, 122, 24, 40, 12, "&Remove",
                                       {CallbackTag(RemovePressed)});
    view.insertButton = GlGadgetCreate(dialog, GadgetType::PushButton, 122, 80, 40, 12,
                                       "&Insert >>", {CallbackTag(InsertPressed)});
    GlGadgetCreate(dialog, GadgetType::PushButton, 122, 97, 40, 12, "&Close",
                   {CallbackTag([](Gadget&) { return int{GadgetCloseOk}; })});
}

} // namespace

void RefreshTemplatesDialog() {
    if (Templates().templatesDialog.dialog != nullptr) FillFileList();
}

int EditTemplates() {
    TemplatesDialog& view = Templates().templatesDialog;
    if (view.dialog == nullptr) Build(view);
    FillFileList();
    (void)showDialog(*view.dialog, true);
    return 0;
}

} // namespace ruvo
