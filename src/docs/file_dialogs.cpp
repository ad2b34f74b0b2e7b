// The common open and save dialogs and the filter they offer.
#include "docs/file_dialogs.h"

#include <algorithm>

#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "host/host.h"
#include "lang/language_state.h"

namespace ruvo {

void buildFileDialogFilter() {
    Editor& editor = TheEditor();
    const EditBuffer* current = editor.engine.currentBuffer;
    const LanguageDef* first =
        current != nullptr && !current->IsClosed() ? current->language : nullptr;
    std::string filter;
    if (first != nullptr) filter += first->filter;
    for (const LanguageDef& language : editor.languages.table) {
        if (&language == first) continue;
        if (std::string_view(language.name).empty() || std::string_view(language.filter).empty())
            continue;
        filter += language.filter;
    }
    editor.documents.fileDialogFilter = std::move(filter);
}

std::optional<FileDialogChoice> fileDialog(bool save, std::string_view title,
                                           std::string_view initialName) {
    DocumentState& documents = TheEditor().documents;
    FileDialogRequest request;
    request.save = save;
    request.title = std::string(title);
    request.filter = documents.fileDialogFilter;
    request.initialName = std::string(initialName.substr(0, 254));
    request.initialDirectory = documents.lastDialogDirectory;
    std::optional<FileDialogResult> result = TheEditor().host.FileDialog(request);
    if (!result || result->fileName.empty()) return std::nullopt;
    // Cut before the file name, keeping the separator: C:\a.vhd lies in C:\ (the root),
    // whereas C: alone would mean the current folder of drive C.
    const size_t separator = result->fileName.find_last_of(":/\\");
    const size_t cut = separator == std::string::npos ? 0 : separator + 1;
    documents.lastDialogDirectory = result->fileName.substr(0, std::min<size_t>(cut, 255));
    return FileDialogChoice{result->fileName, result->readOnly};
}

} // namespace ruvo
