// The program's command line: switches, file names and the hand-over name.
#include "settings/command_line.h"

namespace ruvo {

namespace {

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

// Names are separated by white space: blanks, and tabs where a shell passes them on.
bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

} // namespace

std::optional<std::string> PrintRequest(std::string_view commandLine) {
    const size_t at = commandLine.find("/p");
    if (at == std::string_view::npos) return std::nullopt;
    std::string_view rest = commandLine.substr(at + 2);
    while (!rest.empty() && rest.front() == ' ')
        rest.remove_prefix(1);
    return std::string(rest);
}

bool RemoveNewInstanceSwitch(std::string& commandLine) {
    const size_t at = commandLine.find("/n");
    if (at == std::string::npos) return false;
    commandLine.erase(at, 2);
    return true;
}

std::string HandOverName(std::string_view commandLine, std::string_view currentDirectory) {
    if (commandLine.empty()) return {};
    const bool rooted = IsSeparator(commandLine[0]) ||
                        (commandLine.size() >= 3 && IsLetter(commandLine[0]) &&
                         commandLine[1] == ':' && IsSeparator(commandLine[2]));
    if (rooted) return std::string(commandLine);
    std::string name(currentDirectory);
    name += '\\';
    name += commandLine;
    return name;
}

std::vector<std::string> SplitFileNames(std::string_view commandLine) {
    std::vector<std::string> names;
    size_t at = 0;
    const size_t end = commandLine.size();
    while (at < end) {
        while (at < end && IsBlank(commandLine[at]))
            ++at;
        if (at == end) break;
        if (commandLine[at] == '"') {
            const size_t close = commandLine.find('"', at + 1);
            const size_t stop = close == std::string_view::npos ? end : close;
            // "" names nothing; opening it would ask for a file instead.
            if (stop > at + 1) names.emplace_back(commandLine.substr(at + 1, stop - at - 1));
            at = close == std::string_view::npos ? end : close + 1;
        } else {
            size_t stop = at;
            while (stop < end && !IsBlank(commandLine[stop]))
                ++stop;
            names.emplace_back(commandLine.substr(at, stop - at));
            at = stop;
        }
    }
    return names;
}

} // namespace ruvo
