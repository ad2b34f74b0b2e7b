// Reading of a language options file (*.lsf): keyword groups 1 to 5 and the [Expander] table.
#pragma once

#include <string>

#include "lang/word_array.h"

namespace ruvo {

// Role of the file in the start-up error report.
constexpr const char* OptionsFileRole = "Language Options File";

// Opens the file, reads the body of "[Group<group>]" into words (replacing them) and sorts it
// without regard to case. When the file cannot be opened the start-up error is reported and
// false returned; the caller then stops loading the language.
[[nodiscard]] bool ReadKeywordGroup(const std::string& path, int group, WordArray& words);
// Opens the file again and reads the name=value lines of "[Expander]". False, with the
// start-up error reported, when the file cannot be opened.
[[nodiscard]] bool ReadExpanderTable(const std::string& path, WordArray& names, WordArray& values);

} // namespace ruvo
