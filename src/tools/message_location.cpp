// Paths and columns of tool messages.
#include "tools/message_location.h"

#include <vector>

namespace ruvo {

namespace {

bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char Folded(char c) {
    if (c >= 'A' && c <= 'Z') return static_cast<char>(c - 'A' + 'a');
    return c == '/' ? '\\' : c;
}

// The kind of slash a path uses first; a backslash when it has none.
char SlashOf(std::string_view path) {
    const size_t at = path.find_first_of("/\\");
    return at == std::string_view::npos ? '\\' : path[at];
}

bool IsAbsolute(std::string_view path) {
    if (!path.empty() && IsSeparator(path[0])) return true;
    return path.size() >= 3 && IsLetter(path[0]) && path[1] == ':' && IsSeparator(path[2]);
}

} // namespace

std::string ResolveMessagePath(std::string_view workingDirectory, std::string_view file) {
    while (file.size() > 2 && file[0] == '.' && IsSeparator(file[1]))
        file.remove_prefix(2);
    if (IsAbsolute(file) || workingDirectory.empty() || workingDirectory == ".")
        return std::string(file);
    std::string path(workingDirectory);
    if (!IsSeparator(path.back())) path += SlashOf(workingDirectory);
    return path + std::string(file);
}

std::string CleanPath(std::string_view path) {
    const char slash = SlashOf(path);
    std::string result;
    size_t pos = 0;
    while (pos < path.size() && IsSeparator(path[pos])) {
        result += slash;
        ++pos;
    }
    std::vector<std::string_view> steps;
    while (pos <= path.size()) {
        size_t end = pos;
        while (end < path.size() && !IsSeparator(path[end]))
            ++end;
        const std::string_view step = path.substr(pos, end - pos);
        const bool atRoot =
            steps.empty() ? !result.empty() : steps.back().find(':') != std::string_view::npos;
        if (step == "..") {
            // ".." takes back a named step; at the root it stays there.
            if (!steps.empty() && !atRoot && steps.back() != "..")
                steps.pop_back();
            else if (!atRoot)
                steps.push_back(step);
        } else if (!step.empty() && step != ".") {
            steps.push_back(step);
        }
        pos = end + 1;
    }
    for (size_t i = 0; i < steps.size(); ++i) {
        if (i > 0) result += slash;
        result += steps[i];
    }
    return result;
}

bool SameFilePath(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (Folded(a[i]) != Folded(b[i])) return false;
    return true;
}

int32_t ColumnToByte(std::string_view lineText, int32_t column, int32_t tabWidth) {
    if (tabWidth < 1) tabWidth = 1;
    int32_t visual = 1; // the tool's column of the byte at index
    for (size_t index = 0; index < lineText.size(); ++index) {
        const int32_t next =
            lineText[index] == '\t' ? ((visual - 1) / tabWidth + 1) * tabWidth + 1 : visual + 1;
        if (column < next) return static_cast<int32_t>(index);
        visual = next;
    }
    return static_cast<int32_t>(lineText.size());
}

} // namespace ruvo
