// The meaningful-line reader: skips blank lines and comment lines of configuration files.
#include "settings/line_reader.h"

#include <cstring>
#include <vector>

namespace ruvo {

std::optional<std::string> ReadMeaningfulLine(std::FILE* file, int capacity) {
    // fgets needs room for one character and the terminator, or it never advances.
    if (file == nullptr || capacity < 2) return std::nullopt;
    std::vector<char> buffer(static_cast<size_t>(capacity));
    while (std::fgets(buffer.data(), capacity, file) != nullptr) {
        size_t length = std::strlen(buffer.data());
        if (length > 0 && buffer[length - 1] == '\n') buffer[--length] = '\0';
        if (length > 0 && buffer[length - 1] == '\r') buffer[--length] = '\0';
        if (length == 0 || buffer[0] == '#' || buffer[0] == ';') continue;
        return std::string(buffer.data(), length);
    }
    return std::nullopt;
}

} // namespace ruvo
