// Copy, cut, paste and clear through the platform clipboard (text with CR LF line ends).
#include "engine/clipboard_commands.h"

#include <string>

#include "commands/command_table.h"
#include "engine/command_target.h"
#include "engine/editing_commands.h"
#include "engine/editor.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "host/host.h"

namespace ruvo {

namespace {

EditBuffer* SelectionTarget() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr || buffer->lines.hasSelection == 0) return nullptr;
    return buffer;
}

// The selected text as the clipboard gets it: CR LF between lines, none after the last.
std::string SelectedText(const EditBuffer& buffer) {
    const TextPos start = ClampPos(buffer, buffer.selStart.line, buffer.selStart.column);
    const TextPos end = ClampPos(buffer, buffer.selEnd.line, buffer.selEnd.column);
    if (start.line == end.line) {
        const std::string_view line = LineAt(buffer, start.line);
        if (end.column <= start.column) return {};
        return std::string(line.substr(start.column, end.column - start.column));
    }
    std::string text(LineAt(buffer, start.line).substr(start.column));
    text += "\r\n";
    for (int32_t line = start.line + 1; line < end.line; ++line) {
        text += LineAt(buffer, line);
        text += "\r\n";
    }
    text += LineAt(buffer, end.line).substr(0, end.column);
    return text;
}

bool CopySelection(EditBuffer& buffer) {
    if (PosLess(buffer.selEnd, buffer.selStart)) SwapPos(buffer.selStart, buffer.selEnd);
    const bool copied = TheEditor().host.ClipboardSetText(SelectedText(buffer));
    UpdatePasteState();
    return copied;
}

} // namespace

int EditCopy() {
    EditBuffer* buffer = SelectionTarget();
    if (buffer == nullptr) return 0;
    CopySelection(*buffer);
    return 0;
}

int EditCut() {
    EditBuffer* buffer = SelectionTarget();
    if (buffer == nullptr) return 0;
    // Text that did not reach the clipboard is not deleted.
    if (!CopySelection(*buffer)) return 0;
    UpdatePasteState();
    DeleteSelection();
    return 0;
}

int EditPaste() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return 1;
    Host& host = TheEditor().host;
    if (!host.ClipboardHasText()) return 1;
    const std::optional<std::string> data = host.ClipboardGetText();
    if (!data) return 1;
    // Clipboard text ends at its first NUL; every carriage return goes, so CR LF and a lone
    // CR both end up as plain line feeds or nothing.
    std::string text;
    for (const char c : *data) {
        if (c == '\0') break;
        if (c != '\r') text += c;
    }
    const bool selected = buffer->lines.hasSelection != 0;
    const TextPos selStart = buffer->selStart;
    const TextPos selEnd = buffer->selEnd;
    const std::string selection = selected ? RangeText(*buffer, selStart, selEnd) : std::string();
    const long& failures = TheEditor().settings.allocator.failures;
    const long failuresBefore = failures;
    if (selected) DeleteSelection();
    if (failures != failuresBefore) return 0; // the selection is still there
    const TextPos caret = ClampPos(*buffer, buffer->cursor.line, buffer->cursor.column);
    RecordEdit(*buffer, caret, caret, text, EndOfInsertion(caret, text),
               ScrollTarget{ScrollShow, ScrollShow}, MakePos(0, 0), MakePos(0, 0));
    // When memory ran out before the text was in, the selection comes back: it may no longer
    // be in the undo history.
    if (selected && failures != failuresBefore && !TextStandsAt(*buffer, caret, text)) {
        RecordEdit(*buffer, selStart, selStart, selection, selEnd,
                   ScrollTarget{ScrollShow, ScrollShow}, selStart, selEnd);
    }
    return 0;
}

int EditClear() {
    if (SelectionTarget() == nullptr) return 0;
    DeleteSelection();
    return 0;
}

void UpdatePasteState() {
    SetCommandsEnabled(NeedsClipboardText, TheEditor().host.ClipboardHasText());
}

} // namespace ruvo
