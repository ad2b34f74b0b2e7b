// Backup copies "<name>.bak" made before a file is overwritten.
#include "docs/backup_files.h"

#include "engine/editor.h"
#include "host/host.h"
#include "settings/path_names.h"
#include "settings/string_routines.h"

namespace ruvo {

std::optional<std::string> backupNameOf(std::string_view name) {
    if (name.empty()) return std::nullopt;
    const std::string extension = Extension(name).value_or("");
    if (EqualsNoCase(extension, "bak")) return std::nullopt;
    const size_t separator = name.find_last_of(":/\\");
    const size_t fileStart = separator == std::string_view::npos ? 0 : separator + 1;
    const size_t dot = name.find('.', fileStart);
    return std::string(name.substr(0, dot)) + ".bak";
}

std::string_view lzCopyErrorText(long code) {
    switch (code) {
    case LzErrorBadInHandle:
        return "The handle identifying the source file was not valid.";
    case LzErrorBadOutHandle:
        return "The handle identifying the destination file was not valid.";
    case LzErrorRead:
        return "The source file format was not valid.";
    case LzErrorWrite:
        return "There is insufficient space for the output file.";
    case LzErrorGlobalAlloc:
        return "There is insufficient memory for the required buffers.";
    case LzErrorGlobalLock:
        return "The handle identifying the internal data structures is invalid.";
    case LzErrorBadValue:
        return "The input parameter is out of the allowable range.";
    case LzErrorUnknownAlgorithm:
        return "The source file was compressed with an unrecognized compression algorithm.";
    default:
        return {};
    }
}

bool makeBackup(std::string_view name) {
    Host& host = TheEditor().host;
    const std::string source(name);
    const std::optional<std::string> target = backupNameOf(name);
    if (!target) {
        // The two blanks before "file" are the message as users know it.
        host.ErrorBox(nullptr, "Cannot backup file '" + source +
                                   "'\nthe backup has the same name as original  file.");
        return false;
    }
    // The copy opens the source before it creates the backup, so an older backup is touched
    // only when the source can be read.
    const long result = host.LzCopy(source, *target);
    if (result == LzSourceNotOpened) {
        host.ErrorBox(nullptr, "Error: Unable to read file '" + source + "'.");
        return false;
    }
    if (result == LzTargetNotCreated) {
        host.ErrorBox(nullptr, "Error: Unable to write backup file '" + *target + "'.");
        return false;
    }
    if (result < 0) {
        host.ErrorBox(nullptr, "Error(s) copying file '" + source + "'.\n" +
                                   std::string(lzCopyErrorText(result)));
        return false;
    }
    return true;
}

} // namespace ruvo
