// The table of six languages, entry 0 "None", and the choice of a language for a file name.
#pragma once

#include <string_view>

namespace ruvo {

struct LanguageDef;

// The language whose extension list matches the file's extension, else entry 0.
const LanguageDef* languageForFile(std::string_view name);

} // namespace ruvo
