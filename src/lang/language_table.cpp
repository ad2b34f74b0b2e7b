// The language table: entries, backup and restore, and the choice of a language for a file.
#include "lang/language_table.h"

#include "engine/editor.h"
#include "settings/path_names.h"

namespace ruvo {

namespace {

// Every element but the last matches as a prefix of the extension; the last only as a
// whole. Both comparisons respect case. The asymmetry lets "vhd,vhdl" catch "vhd" and
// "vhdl" while a lone "v" does not swallow "vhd".
bool ExtensionListMatches(std::string_view list, std::string_view extension) {
    while (true) {
        const size_t comma = list.find(',');
        if (comma == std::string_view::npos) return list == extension;
        const std::string_view element = list.substr(0, comma);
        if (!element.empty() && extension.substr(0, element.size()) == element) return true;
        list.remove_prefix(comma + 1);
    }
}

} // namespace

LanguageDef& LanguageEntry(int index) {
    return TheEditor().languages.table[index];
}

int LanguageIndex(const LanguageDef* language) {
    const LanguageDef* table = TheEditor().languages.table;
    for (int i = 0; i < LanguageCount; ++i)
        if (language == &table[i]) return i;
    return -1;
}

int UsedLanguageCount() {
    int count = 0;
    while (count < LanguageCount && LanguageEntry(count).IsUsed())
        ++count;
    return count;
}

void BackupLanguageTable() {
    LanguageState& state = TheEditor().languages;
    for (int i = 0; i < LanguageCount; ++i)
        state.backup[i] = state.table[i];
}

void RestoreLanguageTable() {
    LanguageState& state = TheEditor().languages;
    for (int i = 0; i < LanguageCount; ++i)
        state.table[i] = state.backup[i];
}

const LanguageDef* languageForFile(std::string_view name) {
    const LanguageDef* table = TheEditor().languages.table;
    // A name without a dot has no extension; "a." has an empty one, which an empty last
    // element of a list ("txt,") matches.
    const std::optional<std::string> file = name.empty() ? std::nullopt : FileNamePart(name);
    if (!file) return &table[0];
    const size_t dot = file->find('.');
    if (dot == std::string::npos) return &table[0];
    const std::string_view extension = std::string_view(*file).substr(dot + 1);
    for (int i = 1; i < LanguageCount; ++i) {
        if (!table[i].IsUsed()) continue;
        if (ExtensionListMatches(table[i].extensions, extension)) return &table[i];
    }
    return &table[0];
}

} // namespace ruvo
