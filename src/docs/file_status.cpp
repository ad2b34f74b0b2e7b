// Size and modification time of a file, from the file system's status call.
#include "docs/file_status.h"

#include <sys/stat.h>

#include <string>

namespace ruvo {

std::optional<FileStatus> fileStatus(std::string_view path) {
    if (path.empty()) return std::nullopt;
    struct stat info {};
    if (stat(std::string(path).c_str(), &info) != 0) return std::nullopt;
    FileStatus status;
    status.size = static_cast<long long>(info.st_size);
    status.modTime = static_cast<int32_t>(info.st_mtime);
    return status;
}

} // namespace ruvo
