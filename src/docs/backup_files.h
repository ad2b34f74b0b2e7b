// Backup copies "<name>.bak" made before a file is overwritten.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ruvo {

// The backup name: the extension (from the first '.' of the file name on) replaced by "bak",
// or ".bak" appended. Nothing when the file already has the extension "bak" (any case).
std::optional<std::string> backupNameOf(std::string_view name);
// The explanation shown for a failure code of the LZ copy; empty for an unknown code.
std::string_view lzCopyErrorText(long code);
// Copies the file to its backup name, reporting each failure in an error box.
// True when the backup was made.
bool makeBackup(std::string_view name);

} // namespace ruvo
