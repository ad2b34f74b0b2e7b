// Size and modification time of a file, from the file system's status call.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace ruvo {

struct FileStatus {
    long long size = 0;
    int32_t modTime = 0; // seconds
};

// Nothing when the file's status cannot be read (it does not exist).
std::optional<FileStatus> fileStatus(std::string_view path);

} // namespace ruvo
