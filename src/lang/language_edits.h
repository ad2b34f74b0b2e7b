// Adding and deleting entries of the language table, and the extension lists typed for them.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lang/language_table.h"

namespace ruvo {

struct EditBuffer;

// Where the entries went: entry i before the change is entry to[i] after it, or -1 when it
// was dropped.
struct LanguageMove {
    int to[LanguageCount] = {0, 1, 2, 3, 4, 5};
};

constexpr int LanguageNameLimit = 79; // what the name prompt takes

// Inserts a copy of entry 0 named `name` after entry `selected` (0 to 4); the later entries
// move down by one and the last is lost when all six were used. Returns the new entry, or -1
// (nothing changed) for an empty name or a selection without a next entry.
int AddLanguage(int selected, std::string_view name, LanguageMove& move);
// Deletes entry `index` (1 to 5): the used entries after it move up while the next index is
// below 5, so entry 5 never moves; an entry left behind an unused one becomes unused too.
// False (nothing changed) for entry 0 or an unused entry.
bool DeleteLanguage(int index, LanguageMove& move);
// Points every open buffer at its language's new entry; a buffer whose language was dropped
// gets entry 0 and is listed in `dropped` with its old entry.
void MoveBufferLanguages(const LanguageMove& move,
                         std::vector<std::pair<EditBuffer*, int>>* dropped = nullptr);
// An extension list as the table keeps it: dots, blanks, tabs and "*" removed, ";" and "|"
// turned into ",", so "*.vhd; *.vhdl" becomes "vhd,vhdl".
std::string NormalisedExtensions(std::string_view text);

} // namespace ruvo
