// In-place edits of single line strings.
#include "engine/line_strings.h"

#include <cctype>
#include <cstring>

namespace ruvo {

void DeleteLeadingChars(char* s, int n) {
    if (s == nullptr || n <= 0) return;
    const size_t length = std::strlen(s);
    const size_t cut = static_cast<size_t>(n) < length ? static_cast<size_t>(n) : length;
    std::memmove(s, s + cut, length - cut + 1);
}

void OpenGap(char* s, int n) {
    if (s == nullptr || n <= 0) return;
    std::memmove(s + n, s, std::strlen(s) + 1);
}

void ReplacePrefix(char* s, int n, std::string_view t) {
    if (s == nullptr) return;
    const size_t length = std::strlen(s);
    const size_t cut =
        n <= 0 ? 0 : (static_cast<size_t>(n) < length ? static_cast<size_t>(n) : length);
    std::memmove(s + t.size(), s + cut, length - cut + 1);
    if (!t.empty()) std::memcpy(s, t.data(), t.size());
}

void StripLineEnd(char* s) {
    if (s == nullptr) return;
    size_t length = std::strlen(s);
    if (length == 0 || s[length - 1] != '\n') return;
    s[--length] = '\0';
    if (length > 0 && s[length - 1] == '\r') s[length - 1] = '\0';
}

void RemoveCR(char* s) {
    if (s == nullptr) return;
    char* out = s;
    for (const char* in = s; *in != '\0'; ++in)
        if (*in != '\r') *out++ = *in;
    *out = '\0';
}

int CopyIndent(char* target, const char* sourceLine, int max) {
    if (target == nullptr || sourceLine == nullptr) return 0;
    int count = 0;
    while (count < max && sourceLine[count] != '\0' &&
           std::isspace(static_cast<unsigned char>(sourceLine[count])))
        ++count;
    if (count == 0) return 0;
    OpenGap(target, count);
    std::memcpy(target, sourceLine, static_cast<size_t>(count));
    return count;
}

} // namespace ruvo
