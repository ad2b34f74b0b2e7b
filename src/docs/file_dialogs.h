// The common open and save dialogs and the filter they offer.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ruvo {

struct FileDialogChoice {
    std::string fileName;
    bool readOnly = false; // the dialog's read-only check box
};

// Rebuilds the filter from the languages' filter texts: the current buffer's language first,
// then every other named language with a filter, in table order.
void buildFileDialogFilter();
// Shows the open (save false) or save dialog; an empty title gives the dialog's default.
// On success the dialog's directory is remembered for the next one.
std::optional<FileDialogChoice> fileDialog(bool save, std::string_view title,
                                           std::string_view initialName);

} // namespace ruvo
