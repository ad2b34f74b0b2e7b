// Expansion of the word before the cursor: by the language's abbreviations or templates, and
// by earlier words of the text.
#pragma once

namespace ruvo {

// Replaces the word before the cursor by its abbreviation's value, or by the template a
// "[file][name]" value names.
int LanguageExpand();
// Completes the word before the cursor with the nearest earlier word that contains it;
// called again at the same place, takes the next different one further up.
int IdentifierExpand();

} // namespace ruvo
