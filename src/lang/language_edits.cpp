// Adding and deleting languages in place, with the open buffers following their entries.
#include "lang/language_edits.h"

#include "docs/documents.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"

namespace ruvo {

namespace {

constexpr int LastEntry = LanguageCount - 1;

LanguageDef* Table() {
    return TheEditor().languages.table;
}

} // namespace

int AddLanguage(int selected, std::string_view name, LanguageMove& move) {
    move = LanguageMove{};
    const int at = selected + 1;
    if (name.empty() || at < 1 || at > LastEntry) return -1;
    LanguageDef* table = Table();
    LanguageDef added = table[0];
    added.name = std::string(name);
    move.to[LastEntry] = -1; // lost when all six were used
    for (int i = LastEntry; i > at; --i) {
        table[i] = std::move(table[i - 1]);
        move.to[i - 1] = i;
    }
    table[at] = std::move(added);
    return at;
}

bool DeleteLanguage(int index, LanguageMove& move) {
    move = LanguageMove{};
    LanguageDef* table = Table();
    if (index < 1 || index > LastEntry || !table[index].IsUsed()) return false;
    move.to[index] = -1;
    int stop = index;
    while (stop + 1 < LastEntry && table[stop + 1].IsUsed()) {
        table[stop] = std::move(table[stop + 1]);
        move.to[stop + 1] = stop;
        ++stop;
    }
    table[stop] = LanguageDef{};
    // Entry 5 does not move up: when the entry before it is now unused, it goes too, so
    // used entries stay contiguous.
    for (int i = stop + 1; i <= LastEntry; ++i) {
        if (table[i - 1].IsUsed() || !table[i].IsUsed()) continue;
        table[i] = LanguageDef{};
        move.to[i] = -1;
    }
    return true;
}

void MoveBufferLanguages(const LanguageMove& move,
                         std::vector<std::pair<EditBuffer*, int>>* dropped) {
    LanguageDef* table = Table();
    (void)forEachBuffer([&](EditBuffer& buffer) {
        const int old = LanguageIndex(buffer.language);
        if (old < 0) return 1;
        const int now = move.to[old];
        buffer.language = &table[now < 0 ? 0 : now];
        if (now < 0 && dropped != nullptr) dropped->emplace_back(&buffer, old);
        return 1;
    });
}

std::string NormalisedExtensions(std::string_view text) {
    std::string list;
    for (const char c : text) {
        if (c == '.' || c == ' ' || c == '\t' || c == '*') continue;
        list += (c == ';' || c == '|') ? ',' : c;
    }
    return list;
}

} // namespace ruvo
