// The table of six languages, entry 0 "None", and the choice of a language for a file name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "lang/word_array.h"
#include "settings/profile.h"

namespace ruvo {

constexpr int LanguageCount = 6;     // entry 0 "None" and up to five named languages
constexpr int KeywordGroupCount = 5; // groups 1 to 5 of an options file

// Read capacities (longest text + 1) of the language keys.
constexpr int LanguageNameCapacity = 256;
constexpr int LanguagePathCapacity = 255; // options file, filter, names in [Languages]
constexpr int ExtensionsCapacity = 80;
constexpr int CommentCapacity = 4;

constexpr const char* NoneLanguageName = "None";
constexpr const char* NoneDefaultFilter = "All files(*.*)|*.*|";

constexpr uint32_t ColorBlack = MakeColor(0, 0, 0);
constexpr uint32_t ColorRed = MakeColor(255, 0, 0);
constexpr uint32_t ColorGreen = MakeColor(0, 128, 0);
constexpr uint32_t ColorBlue = MakeColor(0, 0, 255);

// Typeface bits used when printing; the screen uses only the colour.
constexpr int TypefaceBold = 1;
constexpr int TypefaceItalic = 2;
constexpr int TypefaceUnderline = 4;

struct TextAttribute {
    int typeface = 0;
    uint32_t color = ColorBlack;
};

struct KeywordGroup {
    TextAttribute attribute;
    WordArray words; // sorted without regard to case, whatever the language's case rule
};

// One language. The member defaults are the defaults of its profile keys.
struct LanguageDef {
    std::string name;         // also the name of its profile section; empty: entry unused
    std::string optionsFile;  // `File`, $NAME expanded
    std::string filter;       // `Filter`, "description|pattern|" pairs
    std::string extensions;   // `Extension`, comma-separated, without dots
    std::string lineComment;  // `LineComment`
    std::string beginComment; // `BeginComment` (commenting commands only, not colouring)
    std::string endComment;   // `EndComment`
    bool caseSensitive = true;
    TextAttribute comment{TypefaceItalic, ColorGreen};
    TextAttribute strings{TypefaceBold, ColorBlue};
    TextAttribute text{0, ColorBlack};
    TextAttribute expander{0, ColorBlue};
    KeywordGroup groups[KeywordGroupCount] = {
        {{TypefaceBold, ColorRed}, {}}, {{TypefaceBold | TypefaceItalic, ColorBlue}, {}},
        {{0, ColorGreen}, {}},          {{0, ColorBlack}, {}},
        {{0, ColorBlack}, {}},
    };
    WordArray expanderNames; // abbreviation i expands to expanderValues[i]
    WordArray expanderValues;

    bool IsUsed() const { return !name.empty(); }
};

// Entry 0 to 5 of the table.
LanguageDef& LanguageEntry(int index);
// Index of an entry of the table, or -1 for a pointer outside it (or null).
int LanguageIndex(const LanguageDef* language);
// Used entries are contiguous from entry 0.
int UsedLanguageCount();

// The language dialog works on the table in place; these keep and bring back its state.
void BackupLanguageTable();
void RestoreLanguageTable();

// The language whose extension list matches the file's extension, else entry 0.
const LanguageDef* languageForFile(std::string_view name);

} // namespace ruvo
