// Small string routines used throughout the core.
#pragma once

#include <string_view>

namespace ruvo {

// Copies at most capacity - 1 bytes and always terminates.
void CopyBounded(char* target, std::string_view source, int capacity);
// Equal ASCII text without regard to case.
bool EqualsNoCase(std::string_view a, std::string_view b);
// False for an empty name, which stores "Empty name!" as the current error text.
[[nodiscard]] bool CheckName(std::string_view name);

} // namespace ruvo
