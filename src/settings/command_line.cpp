// Splitting the command line into file names.
#include "settings/command_line.h"

namespace ruvo {

std::vector<std::string> SplitFileNames(std::string_view commandLine) {
    std::vector<std::string> names;
    size_t at = 0;
    const size_t end = commandLine.size();
    while (at < end) {
        while (at < end && commandLine[at] == ' ')
            ++at;
        if (at == end) break;
        if (commandLine[at] == '"') {
            const size_t close = commandLine.find('"', at + 1);
            const size_t stop = close == std::string_view::npos ? end : close;
            // "" names nothing; opening it would ask for a file instead.
            if (stop > at + 1) names.emplace_back(commandLine.substr(at + 1, stop - at - 1));
            at = close == std::string_view::npos ? end : close + 1;
        } else {
            const size_t blank = commandLine.find(' ', at);
            const size_t stop = blank == std::string_view::npos ? end : blank;
            names.emplace_back(commandLine.substr(at, stop - at));
            at = stop;
        }
    }
    return names;
}

} // namespace ruvo
