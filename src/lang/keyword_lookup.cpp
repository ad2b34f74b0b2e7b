// Binary search of keyword groups and the linear abbreviation lookup.
#include "lang/keyword_lookup.h"

#include <algorithm>
#include <cstring>

#include "engine/edit_buffer.h"

namespace ruvo {

namespace {

inline unsigned char Fold(char c) {
    const unsigned char u = static_cast<unsigned char>(c);
    return (u >= 'A' && u <= 'Z') ? static_cast<unsigned char>(u + ('a' - 'A')) : u;
}

inline unsigned char Exact(char c) {
    return static_cast<unsigned char>(c);
}

// Compares text against a word of n characters: the first n characters of text decide
// (missing ones count as smaller); when they are equal, the word matches only at an identifier
// boundary, and text counts as greater otherwise. On a match, length receives n.
template <unsigned char (*Map)(char)>
int CompareAtPosition(std::string_view text, const char* word, int& length) {
    size_t i = 0;
    for (; word[i] != '\0'; ++i) {
        const int t = i < text.size() ? Map(text[i]) : 0;
        const int w = Map(word[i]);
        if (t != w) return t - w;
    }
    if (i < text.size() && IsIdentifierChar(text[i])) return 1;
    length = static_cast<int>(i);
    return 0;
}

template <unsigned char (*Map)(char)>
int SearchGroup(const WordArray& words, std::string_view text) {
    // Halving as bsearch does; the order is the case-folded one even when Map keeps case.
    int low = 0;
    int high = words.Count();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        int length = 0;
        const int order = CompareAtPosition<Map>(text, words[middle], length);
        if (order == 0) return length;
        if (order < 0)
            high = middle;
        else
            low = middle + 1;
    }
    return 0;
}

int SearchGroup(const LanguageDef& language, const WordArray& words, std::string_view text) {
    return language.caseSensitive ? SearchGroup<Exact>(words, text)
                                  : SearchGroup<Fold>(words, text);
}

} // namespace

int CompareWordsNoCase(std::string_view a, std::string_view b) {
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = 0; i < common; ++i) {
        const int x = Fold(a[i]);
        const int y = Fold(b[i]);
        if (x != y) return x - y;
    }
    if (a.size() == b.size()) return 0;
    return a.size() < b.size() ? -1 : 1;
}

void SortKeywords(WordArray& words) {
    std::sort(words.begin(), words.end(),
              [](const char* a, const char* b) { return CompareWordsNoCase(a, b) < 0; });
}

KeywordMatch FindKeyword(const LanguageDef& language, std::string_view text) {
    KeywordMatch match;
    if (text.empty() || !IsAsciiLetter(text[0])) return match;
    for (int g = 0; g < KeywordGroupCount; ++g) {
        const KeywordGroup& group = language.groups[g];
        if (group.words.Empty()) continue;
        const int length = SearchGroup(language, group.words, text);
        if (length > 0) {
            match.length = length;
            match.attribute = group.attribute;
            match.group = g + 1;
            return match;
        }
    }
    return match;
}

int KeywordLengthInGroup(const LanguageDef& language, int group, std::string_view text) {
    if (group < 1 || group > KeywordGroupCount) return 0;
    if (text.empty() || !IsAsciiLetter(text[0])) return 0;
    return SearchGroup(language, language.groups[group - 1].words, text);
}

int FindAbbreviation(const LanguageDef& language, std::string_view text) {
    const WordArray& names = language.expanderNames;
    for (int i = 0; i < names.Count(); ++i) {
        const char* name = names[i];
        size_t k = 0;
        while (k < text.size() && name[k] != '\0' && Fold(name[k]) == Fold(text[k]))
            ++k;
        if (k == text.size() && name[k] == '\0') return i;
    }
    return -1;
}

const char* ExpansionOf(const EditBuffer& buffer, std::string_view text) {
    if (buffer.language == nullptr) return nullptr;
    const int index = FindAbbreviation(*buffer.language, text);
    if (index < 0 || index >= buffer.language->expanderValues.Count()) return nullptr;
    return buffer.language->expanderValues[index];
}

} // namespace ruvo
