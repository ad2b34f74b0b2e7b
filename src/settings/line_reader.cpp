// The meaningful-line reader: skips blank lines and comment lines of configuration files.
#include "settings/line_reader.h"

#include <cstring>
#include <vector>

namespace ruvo {

std::optional<std::string> ReadMeaningfulLine(std::FILE* file, int capacity) {
    // fgets needs room for one character and the terminator, or it never advances.
    if (file == nullptr || capacity < 2) return std::nullopt;
    // Configuration lines fit the local buffer; only unusual capacities go to the heap.
    char local[512];
    std::vector<char> heap;
    char* buffer = local;
    if (static_cast<size_t>(capacity) > sizeof local) {
        heap.resize(static_cast<size_t>(capacity));
        buffer = heap.data();
    }
    while (std::fgets(buffer, capacity, file) != nullptr) {
        size_t length = std::strlen(buffer);
        if (length > 0 && buffer[length - 1] == '\n') buffer[--length] = '\0';
        if (length > 0 && buffer[length - 1] == '\r') buffer[--length] = '\0';
        if (length == 0 || buffer[0] == '#' || buffer[0] == ';') continue;
        return std::string(buffer, length);
    }
    return std::nullopt;
}

} // namespace ruvo
