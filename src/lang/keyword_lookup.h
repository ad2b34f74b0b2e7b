// Keyword lookup in a language's sorted groups, and abbreviation lookup in its expander table.
#pragma once

#include <string_view>

#include "lang/language_table.h"

namespace ruvo {

struct EditBuffer;

struct KeywordMatch {
    int length = 0; // 0: no keyword starts here
    TextAttribute attribute;
    int group = 0; // 1 to 5
};

// The order every group is sorted in: bytes compared with ASCII letters folded to lower case.
int CompareWordsNoCase(std::string_view a, std::string_view b);
void SortKeywords(WordArray& words);

// The keyword that starts at the front of text (text runs to the end of the line): groups 1
// to 5 in order, only when text starts with a letter, and only when the word is not followed
// by a letter, digit or '_'.
KeywordMatch FindKeyword(const LanguageDef& language, std::string_view text);
// Length of the word of one group (1 to 5) that starts text, 0 for none.
int KeywordLengthInGroup(const LanguageDef& language, int group, std::string_view text);

// Index of the abbreviation whose name equals the whole text without regard to case, or -1.
int FindAbbreviation(const LanguageDef& language, std::string_view text);
// The expansion of text in the buffer's language, or null when it has none.
const char* ExpansionOf(const EditBuffer& buffer, std::string_view text);

inline bool IsAsciiLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
inline bool IsIdentifierChar(char c) {
    return IsAsciiLetter(c) || (c >= '0' && c <= '9') || c == '_';
}

} // namespace ruvo
