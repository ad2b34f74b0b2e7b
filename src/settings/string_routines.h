// Small string routines used throughout the core.
#pragma once

#include <string>
#include <string_view>

namespace ruvo {

// Copies at most capacity - 1 bytes and always terminates.
void CopyBounded(char* target, std::string_view source, int capacity);
// ASCII letters only, in place, over `length` bytes or the whole string when length is 0.
void UpperCase(char* text, int length);
void LowerCase(char* text, int length);
std::string RepeatChar(char c, int count);
// Case-insensitive comparisons of ASCII text.
bool EqualsNoCase(std::string_view a, std::string_view b);
int CompareNoCase(std::string_view a, std::string_view b);
// False for an empty name, which stores "Empty name!" as the current error text.
[[nodiscard]] bool CheckName(std::string_view name);

} // namespace ruvo
