// Small string routines: bounded copy, comparison without regard to case, name checks.
#include "settings/string_routines.h"

#include <algorithm>
#include <cstring>

#include "engine/editor.h"

namespace ruvo {

namespace {

char AsciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

void CopyBounded(char* target, std::string_view source, int capacity) {
    if (target == nullptr || capacity <= 0) return;
    const size_t n = source.size() < static_cast<size_t>(capacity - 1)
                         ? source.size()
                         : static_cast<size_t>(capacity - 1);
    std::memcpy(target, source.data(), n);
    target[n] = '\0';
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return AsciiLower(x) == AsciiLower(y);
           });
}

bool CheckName(std::string_view name) {
    if (!name.empty()) return true;
    TheEditor().settings.currentErrorText = "Empty name!";
    return false;
}

} // namespace ruvo
