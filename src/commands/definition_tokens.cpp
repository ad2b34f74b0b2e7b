// Tokens of the keyboard and menu definition files.
#include "commands/definition_tokens.h"

#include <cctype>

namespace ruvo {

namespace {

bool IsSeparator(char c) {
    return c == ' ' || c == '\t';
}

} // namespace

std::vector<std::string> SplitDefinitionTokens(std::string_view line) {
    std::vector<std::string> tokens;
    size_t i = 0;
    while (i < line.size()) {
        if (IsSeparator(line[i])) {
            ++i;
            continue;
        }
        if (line[i] == '"') {
            const size_t close = line.find('"', i + 1);
            const size_t end = close == std::string_view::npos ? line.size() : close;
            tokens.emplace_back(line.substr(i + 1, end - i - 1));
            i = close == std::string_view::npos ? line.size() : close + 1;
            continue;
        }
        const size_t start = i;
        while (i < line.size() && !IsSeparator(line[i]))
            ++i;
        tokens.emplace_back(line.substr(start, i - start));
    }
    return tokens;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (std::toupper(static_cast<unsigned char>(a[i])) !=
            std::toupper(static_cast<unsigned char>(b[i])))
            return false;
    }
    return true;
}

} // namespace ruvo
