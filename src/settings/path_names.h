// Splitting of file paths. An empty name is refused with the error text "Empty name!".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ruvo {

// What follows the last ':', '/' or '\'.
std::optional<std::string> FileNamePart(std::string_view path);
// The file-name part up to its first '.'; refused when longer than 29 characters.
std::optional<std::string> BaseName(std::string_view path);
// What follows the first '.' of the file-name part (empty when there is none).
std::optional<std::string> Extension(std::string_view path);
// Everything before the last separator (at most 255 characters); "c:" for "c:file".
std::optional<std::string> DirectoryPart(std::string_view path);
// Removes trailing '/' and '\'.
std::string StripTrailingSeparators(std::string_view path);

} // namespace ruvo
