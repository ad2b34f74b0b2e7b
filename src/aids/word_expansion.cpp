// Keyword expansion and identifier completion of the word before the cursor.
#include "aids/word_expansion.h"

#include <string>
#include <string_view>

#include "aids/hdl_aids_state.h"
#include "aids/template_expand.h"
#include "engine/command_target.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "engine/word_search.h"
#include "host/host.h"
#include "lang/keyword_lookup.h"

namespace ruvo {

namespace {

constexpr ScrollTarget ShowCaret{ScrollShow, ScrollShow};
constexpr int MessagePane = 4;

// The writable buffer a word command acts on, with its cursor clamped; null at column 0.
EditBuffer* WordTarget(TextPos& cursor) {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr || buffer->lines.readOnly != 0) return nullptr;
    cursor = ClampPos(*buffer, buffer->cursor.line, buffer->cursor.column);
    return cursor.column == 0 ? nullptr : buffer;
}

// Start of the word that ends at the cursor (the cursor itself when none does).
TextPos WordStartBefore(const EditBuffer& buffer, TextPos cursor) {
    const std::string_view line = LineAt(buffer, cursor.line);
    int32_t start = cursor.column;
    while (start > 0 && IsWordChar(line[static_cast<size_t>(start - 1)]))
        --start;
    return MakePos(cursor.line, start);
}

void ReplaceWord(EditBuffer& buffer, TextPos from, TextPos cursor, std::string_view text) {
    RecordEdit(buffer, from, cursor, text, EndOfInsertion(from, text), ShowCaret, MakePos(0, 0),
               MakePos(0, 0));
}

// "[file][name]": the file between the first brackets, the name between the next ones.
bool SplitTemplateReference(std::string_view value, std::string& file, std::string& name) {
    const size_t fileEnd = value.find(']');
    if (fileEnd == std::string_view::npos) return false;
    const size_t nameOpen = value.find('[', fileEnd + 1);
    if (nameOpen == std::string_view::npos) return false;
    const size_t nameEnd = value.find(']', nameOpen + 1);
    if (nameEnd == std::string_view::npos) return false;
    file = std::string(value.substr(1, fileEnd - 1));
    name = std::string(value.substr(nameOpen + 1, nameEnd - nameOpen - 1));
    return true;
}

// The previous occurrence of `text` strictly before `pos`, searched towards the start.
bool FindBefore(const EditBuffer& buffer, std::string_view text, TextPos pos, TextPos& found) {
    TextPos from = pos;
    if (from.column > 0) {
        --from.column;
    } else if (from.line > 0) {
        from = MakePos(from.line - 1, LineLength(buffer, from.line - 1));
    } else {
        return false;
    }
    return SearchText(buffer, text, true, false, {from, MakePos(0, 0)}, found) != 0;
}

} // namespace

int LanguageExpand() {
    TextPos cursor;
    EditBuffer* buffer = WordTarget(cursor);
    if (buffer == nullptr) return 0;
    const TextPos from = WordStartBefore(*buffer, cursor);
    if (from.column == cursor.column) return 0;
    const std::string word(LineAt(*buffer, cursor.line)
                               .substr(static_cast<size_t>(from.column),
                                       static_cast<size_t>(cursor.column - from.column)));
    const char* expansion = ExpansionOf(*buffer, word);
    if (expansion == nullptr) return 0;
    if (expansion[0] != '[') {
        ReplaceWord(*buffer, from, cursor, expansion);
        return 0;
    }
    std::string file, name;
    if (!SplitTemplateReference(expansion, file, name)) return 0;
    // The word goes only when the template is inserted, in the same edit.
    TemplateState& templates = TheEditor().hdlAids.templates;
    templates.replaceFrom = from;
    (void)ExpandTemplateByName(file, name);
    templates.replaceFrom.reset();
    return 0;
}

int IdentifierExpand() {
    TextPos cursor;
    EditBuffer* buffer = WordTarget(cursor);
    if (buffer == nullptr) return 0;
    CompletionState& state = TheEditor().hdlAids.completion;
    if (state.buffer != buffer || !PosEqual(state.cursorAfter, cursor)) {
        const TextPos start = WordStartBefore(*buffer, cursor);
        if (start.column == cursor.column) return 0;
        state.buffer = buffer;
        state.cursorAfter = cursor;
        state.prefix = std::string(LineAt(*buffer, cursor.line)
                                       .substr(static_cast<size_t>(start.column),
                                               static_cast<size_t>(cursor.column - start.column)));
        state.searchPos = start;
        state.wordStart = start;
        state.lastCandidate = state.prefix; // what stands there now is no completion
    }
    std::string candidate;
    do {
        TextPos found;
        if (!FindBefore(*buffer, state.prefix, state.searchPos, found)) {
            TheEditor().host.SetStatusPane(
                MessagePane, "No string matching '" + state.prefix + "' found.", true);
            return 0;
        }
        state.searchPos = found;
        const std::string_view line = LineAt(*buffer, found.line);
        size_t end = static_cast<size_t>(found.column) + state.prefix.size();
        while (end < line.size() && IsWordChar(line[end]))
            ++end;
        candidate = std::string(line.substr(static_cast<size_t>(found.column),
                                            end - static_cast<size_t>(found.column)));
    } while (candidate == state.lastCandidate);
    ReplaceWord(*buffer, state.wordStart, cursor, candidate);
    state.cursorAfter = ClampPos(*buffer, buffer->cursor.line, buffer->cursor.column);
    state.lastCandidate = candidate;
    return 0;
}

} // namespace ruvo
