// State of the language subsystem: the language table and the copy kept while it is edited.
#pragma once

#include "lang/language_table.h"

namespace ruvo {

struct LanguageState {
    LanguageState() {
        table[0].name = NoneLanguageName;
        table[0].filter = NoneDefaultFilter;
    }

    LanguageDef table[LanguageCount];
    LanguageDef backup[LanguageCount]; // taken when the language dialog opens
};

} // namespace ruvo
