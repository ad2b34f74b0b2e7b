// Loading and saving of the language table from and to the profile.
#pragma once

#include <string_view>

namespace ruvo {

// Reads [Languages], entry 0 from [None] (with its default filter), then entries 1 to 5.
void LoadLanguages();
// Writes [Languages] and one section per used entry; keywords and abbreviations stay in the
// options files.
void SaveLanguages();
// Loads entry `index` from the profile section `section` and from its options file.
void LoadLanguage(std::string_view section, int index);

} // namespace ruvo
