// Template expansion: placeholders replaced in one scan, the result inserted as one edit.
#include "aids/template_expand.h"

#include <cctype>

#include "aids/expand_template_dialog.h"
#include "aids/hdl_aids_state.h"
#include "dialogs/gadget_dialog.h"
#include "engine/command_target.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "host/host.h"
#include "settings/profile.h"

namespace ruvo {

namespace {

constexpr const char* WarningCaption = "Warning";

bool SameIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i])) !=
            std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    }
    return true;
}

int LoadedFileIndex(std::string_view path) {
    const auto& files = TheEditor().hdlAids.templates.loadedFiles;
    for (size_t i = 0; i < files.size(); ++i)
        if (SameIgnoringCase(files[i]->path, path)) return static_cast<int>(i);
    return -1;
}

EditBuffer* WritableTarget() {
    EditBuffer* buffer = CommandTarget();
    return buffer != nullptr && buffer->lines.readOnly == 0 ? buffer : nullptr;
}

} // namespace

std::string ExpandTemplateBody(const Template& entry,
                               const std::array<std::string, MaxTemplateParameters>& values) {
    const std::string& body = entry.body;
    std::string result;
    result.reserve(body.size());
    for (size_t i = 0; i < body.size();) {
        if (body[i] == '$' && i + 2 < body.size() && body[i + 2] == '$') {
            const int number = body[i + 1] - '0';
            if (number >= 1 && number <= entry.paramCount) {
                result += values[static_cast<size_t>(number - 1)];
                i += 3;
                continue;
            }
        }
        result += body[i++];
    }
    return result;
}

void InsertTemplate(const Template& entry) {
    TemplateState& state = TheEditor().hdlAids.templates;
    const std::optional<TextPos> replaceFrom = state.replaceFrom;
    state.replaceFrom.reset();
    EditBuffer* buffer = WritableTarget();
    if (buffer == nullptr) return;
    const std::string text = ExpandTemplateBody(entry, state.parameterValues);
    const TextPos cursor = ClampPos(*buffer, buffer->cursor.line, buffer->cursor.column);
    TextPos start = cursor;
    if (replaceFrom && replaceFrom->line == cursor.line && replaceFrom->column <= cursor.column)
        start = *replaceFrom;
    RecordEdit(*buffer, start, cursor, text, EndOfInsertion(start, text), {ScrollShow, ScrollShow},
               MakePos(0, 0), MakePos(0, 0));
}

int ChooseTemplate(int index) {
    TemplateState& state = TheEditor().hdlAids.templates;
    if (WritableTarget() == nullptr) return 0;
    if (state.selectedFile < 0 || state.selectedFile >= static_cast<int>(state.loadedFiles.size()))
        return 0;
    const TemplateFile& file = *state.loadedFiles[static_cast<size_t>(state.selectedFile)];
    if (index < 0 || index >= static_cast<int>(file.templates.size())) return 0;
    state.selectedTemplate = index;
    const Template& entry = file.templates[static_cast<size_t>(index)];
    if (entry.paramCount == 0)
        InsertTemplate(entry);
    else
        ShowExpandTemplateDialog(state.selectedFile, index);
    return 1;
}

int ExpandTemplateByName(std::string_view file, std::string_view name) {
    Editor& editor = TheEditor();
    TemplateState& state = editor.hdlAids.templates;
    std::string path;
    if (!ExpandPathVariables(file, path)) path = std::string(file);
    int fileIndex = LoadedFileIndex(path);
    if (fileIndex < 0) {
        (void)LoadTemplateFile(path);
        fileIndex = LoadedFileIndex(path);
    }
    if (fileIndex < 0) {
        editor.host.ErrorBox(WarningCaption, "Template file \"" + path + "\" not found.");
        return 0;
    }
    const auto& templates = state.loadedFiles[static_cast<size_t>(fileIndex)]->templates;
    for (size_t i = 0; i < templates.size(); ++i) {
        if (templates[i].name != name) continue;
        state.selectedFile = fileIndex;
        return ChooseTemplate(static_cast<int>(i));
    }
    editor.host.ErrorBox(WarningCaption, "Template \"" + std::string(name) +
                                             "\" not found in file \"" + path + "\" .");
    return 0;
}

} // namespace ruvo
