// Deleting characters, words, lines and the selection; Return with auto-indent; undo and redo.
#include "engine/editing_commands.h"

#include <cctype>
#include <string>

#include "engine/command_target.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"

namespace ruvo {

namespace {

constexpr TextPos NoSelection = MakePos(0, 0);
constexpr ScrollTarget ShowCaret{ScrollShow, ScrollShow};

TextPos Caret(const EditBuffer& buffer) {
    return ClampPos(buffer, buffer.cursor.line, buffer.cursor.column);
}

// Removes start..end and leaves the caret at caretAfter, with no selection.
void RemoveRange(EditBuffer& buffer, TextPos start, TextPos end, TextPos caretAfter) {
    RecordEdit(buffer, start, end, "", caretAfter, ShowCaret, NoSelection, NoSelection);
}

bool IsWordByte(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool IsBlank(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

} // namespace

int DeleteChar() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return 0;
    const TextPos caret = Caret(*buffer);
    if (caret.column >= LineLength(*buffer, caret.line)) {
        if (caret.line >= LastLine(*buffer)) return 0;
        RemoveRange(*buffer, caret, MakePos(caret.line + 1, 0), caret);
    } else {
        RemoveRange(*buffer, caret, MakePos(caret.line, caret.column + 1), caret);
    }
    return 0;
}

int BackspaceChar() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return 0;
    const TextPos caret = Caret(*buffer);
    if (caret.column == 0) {
        if (caret.line == 0) return 0;
        const TextPos joint = MakePos(caret.line - 1, LineLength(*buffer, caret.line - 1));
        RemoveRange(*buffer, joint, caret, joint);
    } else {
        const TextPos before = MakePos(caret.line, caret.column - 1);
        RemoveRange(*buffer, before, caret, before);
    }
    return 0;
}

int DeleteLine() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return 0;
    const int32_t line = Caret(*buffer).line;
    const TextPos lineStart = MakePos(line, 0);
    // The last line has no successor to pull up, so only its text goes.
    const TextPos end =
        line < LastLine(*buffer) ? MakePos(line + 1, 0) : MakePos(line, LineLength(*buffer, line));
    RemoveRange(*buffer, lineStart, end, lineStart);
    return 0;
}

int DeleteWord() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return 0;
    const TextPos caret = Caret(*buffer);
    const std::string_view text = LineAt(*buffer, caret.line);
    const auto length = static_cast<int32_t>(text.size());
    TextPos end = caret;
    if (caret.column >= length) {
        if (caret.line >= LastLine(*buffer)) return 0;
        end = MakePos(caret.line + 1, 0);
    } else if (IsWordByte(text[caret.column])) {
        while (end.column < length && IsWordByte(text[end.column]))
            ++end.column;
    } else if (IsBlank(text[caret.column])) {
        while (end.column < length && IsBlank(text[end.column]))
            ++end.column;
    } else {
        ++end.column;
    }
    RemoveRange(*buffer, caret, end, caret);
    return 0;
}

int NewLine() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return 0;
    const TextPos caret = Caret(*buffer);
    std::string inserted = "\n";
    if (TheEditor().settings.options.autoIndent) {
        const std::string_view text = LineAt(*buffer, caret.line);
        size_t indent = 0;
        while (indent < text.size() && static_cast<int32_t>(indent) < caret.column &&
               IsBlank(text[indent]))
            ++indent;
        inserted.append(text.substr(0, indent));
    }
    // Scroll before the edit so that the new line is not left below the window; a read-only
    // buffer drops the edit, so it keeps its view as well.
    if (buffer->lines.readOnly == 0 &&
        buffer->topLine + buffer->visibleLines - 1 < caret.line + 1) {
        const int32_t top = caret.line + 2 - buffer->visibleLines;
        buffer->topLine = top > 0 ? top : 0;
    }
    const TextPos caretAfter = MakePos(caret.line + 1, static_cast<int32_t>(inserted.size()) - 1);
    RecordEdit(*buffer, caret, caret, inserted, caretAfter, ShowCaret, NoSelection, NoSelection);
    return 0;
}

int DeleteSelection() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr || buffer->lines.hasSelection == 0) return 0;
    TextPos start = buffer->selStart;
    TextPos end = buffer->selEnd;
    if (PosLess(end, start)) SwapPos(start, end);
    buffer->lines.hasSelection = 0;
    RemoveRange(*buffer, start, end, start);
    return 0;
}

int EditUndo() {
    if (CommandTarget() == nullptr) return 0;
    UndoTransaction();
    return 0;
}

int EditRedo() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return 0;
    RedoTransaction(*buffer);
    buffer->anchor = buffer->cursor;
    return 0;
}

} // namespace ruvo
