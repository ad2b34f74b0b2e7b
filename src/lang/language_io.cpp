// The language sections of the profile: every key with its default, in the saved order.
#include "lang/language_io.h"

#include <string>
#include <vector>

#include "lang/language_options_file.h"
#include "lang/language_table.h"
#include "settings/profile.h"

namespace ruvo {

namespace {

constexpr const char* LanguagesSection = "Languages";

void ReadAttribute(std::string_view section, std::string_view colorKey,
                   std::string_view typefaceKey, TextAttribute& attribute) {
    attribute.color = ReadColor(section, colorKey, attribute.color);
    attribute.typeface = ReadInt(section, typefaceKey, attribute.typeface);
}

void WriteAttribute(std::string_view section, std::string_view colorKey,
                    std::string_view typefaceKey, const TextAttribute& attribute) {
    WriteColor(section, colorKey, attribute.color);
    WriteInt(section, typefaceKey, attribute.typeface);
}

std::string Numbered(const char* prefix, int number) {
    return prefix + std::to_string(number);
}

} // namespace

void LoadLanguage(std::string_view section, int index) {
    if (index < 0 || index >= LanguageCount) return;
    LanguageDef& entry = LanguageEntry(index);
    entry = LanguageDef{}; // every attribute starts at its default
    entry.name = std::string(section.substr(0, LanguageNameCapacity - 1));
    entry.optionsFile = ReadPath(section, "File", "", LanguagePathCapacity);
    ReadAttribute(section, "TextColor", "TextTypeFace", entry.text);
    ReadAttribute(section, "CommentColor", "CommentTypeFace", entry.comment);
    ReadAttribute(section, "StringsColor", "StringsTypeFace", entry.strings);
    ReadAttribute(section, "ExpanderColor", "ExpanderTypeFace", entry.expander);
    entry.filter = ReadString(section, "Filter", "", LanguagePathCapacity);
    entry.extensions = ReadString(section, "Extension", "", ExtensionsCapacity);
    entry.lineComment = ReadString(section, "LineComment", "", CommentCapacity);
    entry.beginComment = ReadString(section, "BeginComment", "", CommentCapacity);
    entry.endComment = ReadString(section, "EndComment", "", CommentCapacity);
    entry.caseSensitive = ReadBool(section, "CaseSensitive", true);

    if (entry.optionsFile.empty()) return;
    for (int g = 1; g <= KeywordGroupCount; ++g) {
        KeywordGroup& group = entry.groups[g - 1];
        // A missing file ends the loading here: later colours and abbreviations keep defaults.
        if (!ReadKeywordGroup(entry.optionsFile, g, group.words)) return;
        ReadAttribute(section, Numbered("Color", g), Numbered("Typeface", g), group.attribute);
    }
    (void)ReadExpanderTable(entry.optionsFile, entry.expanderNames, entry.expanderValues);
}

void LoadLanguages() {
    const std::vector<std::string> names =
        ReadList(LanguagesSection, "", LanguageCount - 1, LanguagePathCapacity);
    LoadLanguage(NoneLanguageName, 0);
    if (LanguageEntry(0).filter.empty()) LanguageEntry(0).filter = NoneDefaultFilter;
    for (int i = 1; i < LanguageCount; ++i) {
        const size_t listed = static_cast<size_t>(i - 1);
        if (listed < names.size() && !names[listed].empty())
            LoadLanguage(names[listed], i);
        else
            LanguageEntry(i) = LanguageDef{};
    }
}

void SaveLanguages() {
    int index = 0;
    for (; index < LanguageCount && LanguageEntry(index).IsUsed(); ++index) {
        const LanguageDef& entry = LanguageEntry(index);
        const std::string_view section = entry.name;
        WriteString(LanguagesSection, std::to_string(index), entry.name);
        WriteString(section, "File", entry.optionsFile);
        WriteBool(section, "CaseSensitive", entry.caseSensitive);
        WriteString(section, "BeginComment", entry.beginComment);
        WriteString(section, "EndComment", entry.endComment);
        WriteString(section, "LineComment", entry.lineComment);
        WriteAttribute(section, "TextColor", "TextTypeFace", entry.text);
        WriteAttribute(section, "CommentColor", "CommentTypeFace", entry.comment);
        WriteAttribute(section, "StringsColor", "StringsTypeFace", entry.strings);
        WriteAttribute(section, "ExpanderColor", "ExpanderTypeFace", entry.expander);
        for (int g = 1; g <= KeywordGroupCount; ++g)
            WriteAttribute(section, Numbered("Color", g), Numbered("Typeface", g),
                           entry.groups[g - 1].attribute);
        WriteString(section, "Extension", entry.extensions);
        WriteString(section, "Filter", entry.filter);
    }
    for (; index < LanguageCount; ++index)
        WriteString(LanguagesSection, std::to_string(index), "");
}

} // namespace ruvo
