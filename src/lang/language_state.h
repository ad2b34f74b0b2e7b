// State of the language subsystem: the language table, the copy kept while it is edited and
// the dialog that edits it.
#pragma once

#include "lang/language_dialog_state.h"
#include "lang/language_table.h"

namespace ruvo {

struct LanguageState {
    LanguageState() {
        table[0].name = NoneLanguageName;
        table[0].filter = NoneDefaultFilter;
    }

    LanguageDef table[LanguageCount];
    LanguageDef backup[LanguageCount]; // taken when the language dialog opens
    LanguageDialogState dialog;
};

} // namespace ruvo
