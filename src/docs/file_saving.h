// Writing a buffer to its file: CR LF between lines, backup, size check, fresh undo log.
#pragma once

#include <string_view>

namespace ruvo {

struct EditBuffer;

// Lines above which the progress window is shown while saving.
constexpr int ProgressLineCount = 1000;

// Saves the buffer under `name`; an empty or unnamed name asks for one with the save dialog.
// 0 when done (or refused because the buffer is read-only), 1 when cancelled or the file
// could not be opened.
int saveBuffer(std::string_view name, EditBuffer& buffer);

} // namespace ruvo
