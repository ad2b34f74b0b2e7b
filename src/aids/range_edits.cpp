// Range edits: one edit per line (or per reserved word), the selection kept on its lines.
#include "aids/range_edits.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

#include "engine/command_target.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "host/host.h"
#include "lang/keyword_lookup.h"

namespace ruvo {

namespace {

constexpr ScrollTarget KeepView{ScrollKeep, ScrollKeep};
constexpr int ReservedWordGroup = 1;

// Where a position on `line` ends up when `delta` bytes are inserted (or, negative, removed)
// at its column 0. A position at column 0 stays there, so whole-line selections stay whole.
TextPos Shifted(TextPos pos, int32_t line, int32_t delta) {
    if (pos.line != line || pos.column == 0) return pos;
    return MakePos(line, std::max(0, pos.column + delta));
}

// Inserts `text` at column 0 of the line, or removes it from there (insert false).
void EditLineStart(EditBuffer& buffer, int32_t line, std::string_view text, bool insert) {
    const int32_t delta = static_cast<int32_t>(text.size()) * (insert ? 1 : -1);
    const bool selected = buffer.lines.hasSelection != 0;
    const TextPos selStart = selected ? Shifted(buffer.selStart, line, delta) : MakePos(0, 0);
    const TextPos selEnd = selected ? Shifted(buffer.selEnd, line, delta) : MakePos(0, 0);
    const TextPos anchor = Shifted(buffer.anchor, line, delta);
    const TextPos start = MakePos(line, 0);
    const TextPos end = insert ? start : MakePos(line, static_cast<int32_t>(text.size()));
    RecordEdit(buffer, start, end, insert ? text : std::string_view(),
               Shifted(buffer.cursor, line, delta), KeepView, selStart, selEnd);
    if (selected) buffer.anchor = anchor;
}

void ChangeCaseOfLine(EditBuffer& buffer, const LanguageDef& language, int32_t line, bool upper) {
    const std::string_view comment = language.lineComment;
    int32_t column = 0;
    for (;;) {
        const std::string_view rest = LineAt(buffer, line).substr(static_cast<size_t>(column));
        if (rest.empty()) return;
        if (!comment.empty() && rest.substr(0, comment.size()) == comment) return;
        if (!IsAsciiLetter(rest[0])) {
            ++column;
            continue;
        }
        const int length = KeywordLengthInGroup(language, ReservedWordGroup, rest);
        if (length == 0) {
            size_t word = 1;
            while (word < rest.size() && IsIdentifierChar(rest[word]))
                ++word;
            column += static_cast<int32_t>(word);
            continue;
        }
        std::string changed(rest.substr(0, static_cast<size_t>(length)));
        for (char& c : changed)
            c = static_cast<char>(upper ? std::toupper(static_cast<unsigned char>(c))
                                        : std::tolower(static_cast<unsigned char>(c)));
        if (changed != rest.substr(0, static_cast<size_t>(length))) {
            RecordEdit(buffer, MakePos(line, column), MakePos(line, column + length), changed,
                       buffer.cursor, KeepView, MakePos(SelectKeep, SelectKeep),
                       MakePos(SelectKeep, SelectKeep));
        }
        column += length;
    }
}

void EditLine(EditBuffer& buffer, RangeAction action, bool first, int32_t line) {
    const LanguageDef* language = buffer.language;
    if (action == RangeAction::Case) {
        if (language != nullptr) ChangeCaseOfLine(buffer, *language, line, first);
        return;
    }
    const std::string_view text = action == RangeAction::Indent ? std::string_view("\t")
                                  : language != nullptr ? std::string_view(language->lineComment)
                                                        : std::string_view();
    if (text.empty()) return;
    if (!first && LineAt(buffer, line).substr(0, text.size()) != text) return;
    EditLineStart(buffer, line, text, first);
}

int SelectedLinesCommand(RangeAction action, bool first) {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr || buffer->lines.hasSelection == 0) return 0;
    const auto [start, end] = SelectedLineRange(*buffer);
    ApplyRangeEdit(action, first, start, end);
    return 0;
}

} // namespace

void ApplyRangeEdit(RangeAction action, bool first, int32_t start, int32_t end) {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr || buffer->lines.readOnly != 0) return;
    start = std::max(start, 0);
    end = std::min(end, LastLine(*buffer));
    if (start > end) return;
    Host& host = TheEditor().host;
    host.SetBusyCursor(true);
    for (int32_t line = start; line <= end; ++line)
        EditLine(*buffer, action, first, line);
    host.SetBusyCursor(false);
}

std::pair<int32_t, int32_t> SelectedLineRange(const EditBuffer& buffer) {
    const TextPos from = buffer.selStart;
    const TextPos to = buffer.selEnd;
    const int32_t last = to.column == 0 && to.line > from.line ? to.line - 1 : to.line;
    return {from.line, last};
}

int AddIndent() {
    return SelectedLinesCommand(RangeAction::Indent, true);
}
int RemoveIndent() {
    return SelectedLinesCommand(RangeAction::Indent, false);
}
int AddComment() {
    return SelectedLinesCommand(RangeAction::Comment, true);
}
int RemoveComment() {
    return SelectedLinesCommand(RangeAction::Comment, false);
}

} // namespace ruvo
