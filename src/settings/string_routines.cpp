// Small string routines: bounded copy, ASCII case changes, repetition and comparisons.
#include "settings/string_routines.h"

#include <cstring>

#include "engine/editor.h"

namespace ruvo {

namespace {

char AsciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
char AsciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

template <typename Change> void ChangeCase(char* text, int length, Change change) {
    if (text == nullptr) return;
    const size_t limit = length > 0 ? static_cast<size_t>(length) : std::strlen(text);
    // Never past the terminator, even when the length says more.
    for (size_t i = 0; i < limit && text[i] != '\0'; ++i)
        text[i] = change(text[i]);
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

void UpperCase(char* text, int length) {
    ChangeCase(text, length, AsciiUpper);
}

void LowerCase(char* text, int length) {
    ChangeCase(text, length, AsciiLower);
}

std::string RepeatChar(char c, int count) {
    return count > 0 ? std::string(static_cast<size_t>(count), c) : std::string();
}

int CompareNoCase(std::string_view a, std::string_view b) {
    const size_t n = a.size() < b.size() ? a.size() : b.size();
    for (size_t i = 0; i < n; ++i) {
        const unsigned char x = static_cast<unsigned char>(AsciiLower(a[i]));
        const unsigned char y = static_cast<unsigned char>(AsciiLower(b[i]));
        if (x != y) return x < y ? -1 : 1;
    }
    if (a.size() == b.size()) return 0;
    return a.size() < b.size() ? -1 : 1;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CompareNoCase(a, b) == 0;
}

bool CheckName(std::string_view name) {
    if (!name.empty()) return true;
    TheEditor().settings.currentErrorText = "Empty name!";
    return false;
}

} // namespace ruvo
