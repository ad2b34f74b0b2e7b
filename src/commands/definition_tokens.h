// Splitting a line of accel.ini or menu.ini into its tokens.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

// Blanks and tabs separate tokens; a token that begins with a double quote runs to the next
// double quote (or the end of the line) and the quotes are not part of it.
std::vector<std::string> SplitDefinitionTokens(std::string_view line);

// Equal when letter case is ignored (ASCII letters only).
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

} // namespace ruvo
