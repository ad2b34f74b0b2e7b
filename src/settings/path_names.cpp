// Splitting of file paths into directory, file name, base name and extension.
#include "settings/path_names.h"

#include "settings/string_routines.h"

namespace ruvo {

namespace {

constexpr size_t MaxBaseName = 29;
constexpr size_t MaxDirectory = 255;

// Position of the last ':', '/' or '\', or npos.
size_t LastSeparator(std::string_view path) {
    return path.find_last_of(":/\\");
}

} // namespace

std::optional<std::string> FileNamePart(std::string_view path) {
    if (!CheckName(path)) return std::nullopt;
    const size_t separator = LastSeparator(path);
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::optional<std::string> BaseName(std::string_view path) {
    std::optional<std::string> name = FileNamePart(path);
    if (!name) return std::nullopt;
    const size_t dot = name->find('.');
    if (dot != std::string::npos) name->resize(dot);
    if (name->size() > MaxBaseName) return std::nullopt;
    return name;
}

std::optional<std::string> Extension(std::string_view path) {
    std::optional<std::string> name = FileNamePart(path);
    if (!name) return std::nullopt;
    const size_t dot = name->find('.');
    return dot == std::string::npos ? std::string() : name->substr(dot + 1);
}

std::optional<std::string> DirectoryPart(std::string_view path) {
    if (!CheckName(path)) return std::nullopt;
    const size_t separator = LastSeparator(path);
    if (separator == std::string_view::npos) return std::string();
    // A drive letter keeps its colon: "c:file" lies in "c:".
    const size_t length = path[separator] == ':' ? separator + 1 : separator;
    return std::string(path.substr(0, length < MaxDirectory ? length : MaxDirectory));
}

std::string StripTrailingSeparators(std::string_view path) {
    if (!CheckName(path)) return {};
    size_t end = path.size();
    while (end > 0 && (path[end - 1] == '/' || path[end - 1] == '\\'))
        --end;
    return std::string(path.substr(0, end));
}

} // namespace ruvo
