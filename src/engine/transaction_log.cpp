// The undo/redo transaction log. Doing, redoing and undoing an edit run through one path,
// every step is checked against the text, and undone steps are re-recorded as their inverses
// before a new edit, so no state of the text is ever out of reach of undo.
#include "engine/transaction_log.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string>

#include "commands/command_table.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/text_store.h"
#include "engine/view_sync.h"
#include "host/host.h"
#include "settings/allocator.h"
#include "settings/error_report.h"

namespace ruvo {

namespace {

constexpr const char* RunningOutOfMemory = "Running out of memory";
constexpr const char* RecordNotAllocated = "Out of memory; transaction ignored ; history cleared";
constexpr const char* RedoMismatch = "Inconsistency between redo transaction and text";
constexpr const char* UndoMismatch = "Inconsistency between undo transaction and text";
constexpr const char* HistoryCleared = "Transaction ignored; undo-redo history cleared";
constexpr const char* TransactionIgnored = "Transaction ignored";
constexpr const char* LineTooLong =
    "Transaction ignored because\nresulting line would become too long. ";
constexpr const char* UndoFailed = "Impossible that this undo transaction failed";
constexpr const char* LineScrollBug = "LineScroll Bug";
constexpr const char* ColumnScrollBug = "ColumnScroll Bug";
constexpr const char* IllegalSelectCode = "Illegal Select code";

// A fault of the log: an error box with the default caption, also kept in the error report.
void LogMessage(const char* text) {
    TheEditor().host.ErrorBox(nullptr, text);
    ReportStartupError(ErrorPlain, text, nullptr);
}

// A caller passed a code the log does not know; the box has no caption and work goes on.
void CodeBug(const char* text) {
    TheEditor().host.ErrorBox("", text);
}

void UpdateUndoRedoCommands(const EditBuffer& buffer) {
    if (!IsBufferOnShow(buffer)) return;
    const Transaction* current = buffer.undoCurrent;
    SetCommandsEnabled(NeedsUndo, current != nullptr && current->prev != nullptr);
    SetCommandsEnabled(NeedsRedo, current != nullptr && current->next != nullptr);
}

Transaction* NewRecord(std::string_view oldText, std::string_view newText) {
    const long size = static_cast<long>(sizeof(Transaction) + oldText.size() + newText.size() + 2);
    void* memory = Allocate(nullptr, 0, size, 1);
    if (memory == nullptr) return nullptr;
    Transaction* record = new (memory) Transaction{};
    char* texts = reinterpret_cast<char*>(record + 1);
    if (!oldText.empty()) std::memcpy(texts, oldText.data(), oldText.size());
    texts[oldText.size()] = '\0';
    if (!newText.empty()) std::memcpy(texts + oldText.size() + 1, newText.data(), newText.size());
    texts[oldText.size() + 1 + newText.size()] = '\0';
    return record;
}

int32_t ResolveTopLine(const EditBuffer& buffer, int32_t code, int32_t line) {
    const int32_t rows = buffer.visibleLines;
    const int32_t top = buffer.topLine;
    int32_t result = code;
    if (code == ScrollCentreIfHidden && top <= line && line - rows + 1 <= top) {
        result = top;
    } else if (code == ScrollCentre || code == ScrollCentreIfHidden) {
        result = line - rows / 2;
    } else if (code == ScrollShow) {
        if (line < top)
            result = line;
        else if (line - rows + 1 > top)
            result = line - rows + 1;
        else
            result = top;
    } else if (code == ScrollKeep) {
        result = top;
    } else if (code < 0) {
        CodeBug(LineScrollBug);
    }
    if (result < 0) result = 0;
    // The cursor line never ends up below the window.
    return std::max(result, line - rows + 1);
}

int32_t ResolveLeftColumn(const EditBuffer& buffer, int32_t code, TextPos cursor) {
    const LineList& lines = buffer.lines;
    const int d = cursor.line >= 0 && cursor.line < lines.lineCount
                      ? DisplayColumn(lines.lineText[cursor.line], cursor.column)
                      : cursor.column;
    const int cols = buffer.visibleColumns;
    const int32_t left = buffer.leftColumn;
    if (code >= 0) {
        // With a given value the cursor may rest one column past the right edge.
        if (d < code) return d;
        if (d - cols > code) return d - cols + 1;
        return code;
    }
    if (code == ScrollShow) {
        if (d < left) return d;
        if (d - cols + 1 > left) return d - cols + 1;
        return left;
    }
    if (code == ScrollKeep) return left;
    CodeBug(ColumnScrollBug);
    return code;
}

int32_t ResolveSelect(int32_t code, int32_t current) {
    if (code == SelectKeep) return current;
    if (code < SelectKeep) CodeBug(IllegalSelectCode);
    return code;
}

// Redraws after an applied step: one line when the view stayed put and the change stayed
// inside that line, nothing when no text changed, else the whole window.
void Repaint(EditBuffer& buffer, bool scrolled, bool withinOneLine, TextPos start,
             bool textsEmpty) {
    Host& host = TheEditor().host;
    if (!scrolled && withinOneLine) {
        if (!textsEmpty) host.RedrawLine(buffer, start.line);
    } else {
        host.RedrawWindow(buffer);
    }
}

// Replaces `removed` at start by `inserted`; on a refused insertion the removed text is put
// back, so a failed step never loses text.
bool Replace(EditBuffer& buffer, TextPos start, std::string_view removed,
             std::string_view inserted) {
    const TextPos end = EndOfInsertion(start, removed);
    if (!DeleteRange(buffer, start, end)) return false;
    if (InsertExactText(buffer, inserted, start.line, start.column)) return true;
    (void)InsertExactText(buffer, removed, start.line, start.column);
    return false;
}

} // namespace

const char* OldText(const Transaction* record) {
    return reinterpret_cast<const char*>(record + 1);
}

const char* NewText(const Transaction* record) {
    const char* oldText = OldText(record);
    return oldText + std::strlen(oldText) + 1;
}

int InitTransactionLog(EditBuffer& buffer) {
    if (buffer.undoHead != nullptr) ClearTransactionLog(buffer);
    Transaction* sentinel = NewRecord({}, {});
    if (sentinel == nullptr) {
        LogMessage(RunningOutOfMemory);
        return 0;
    }
    sentinel->cursorAfter = buffer.cursor;
    buffer.undoHead = sentinel;
    buffer.undoTail = sentinel;
    buffer.undoCurrent = sentinel;
    UpdateUndoRedoCommands(buffer);
    return 1;
}

void FreeTransactionsFrom(EditBuffer& buffer, Transaction* record) {
    if (record == nullptr) return;
    Transaction* before = record->prev;
    if (record == buffer.undoHead || before == nullptr) {
        buffer.undoHead = nullptr;
        buffer.undoTail = nullptr;
        buffer.undoCurrent = nullptr;
    } else {
        before->next = nullptr;
        buffer.undoTail = before;
        buffer.undoCurrent = before;
    }
    while (record != nullptr) {
        Transaction* next = record->next;
        record->~Transaction();
        Release(record);
        record = next;
    }
}

void ClearTransactionLog(EditBuffer& buffer) {
    FreeTransactionsFrom(buffer, buffer.undoHead);
}

void ResetTransactionLog(EditBuffer& buffer) {
    ClearTransactionLog(buffer);
    (void)InitTransactionLog(buffer);
}

int AppendTransaction(EditBuffer& buffer, TextPos start, std::string_view oldText,
                      std::string_view newText, TextPos cursorAfter, int32_t topLineAfter,
                      int32_t leftColumnAfter, TextPos selStartAfter, TextPos selEndAfter) {
    if (buffer.undoTail == nullptr) return 0;
    Transaction* record = NewRecord(oldText, newText);
    if (record == nullptr) return 0;
    record->selStartAfter = selStartAfter;
    record->selEndAfter = selEndAfter;
    record->topLineAfter = topLineAfter;
    record->leftColumnAfter = leftColumnAfter;
    record->cursorAfter = cursorAfter;
    record->start = start;
    record->prev = buffer.undoTail;
    buffer.undoTail->next = record;
    buffer.undoTail = record;
    return 1;
}

void RecordEdit(EditBuffer& buffer, TextPos start, TextPos end, std::string_view newText,
                TextPos newCursor, ScrollTarget scroll, TextPos newSelStart, TextPos newSelEnd) {
    if (buffer.undoHead == nullptr && !InitTransactionLog(buffer)) return;

    // Undone steps go back into the log as their own inverses, newest first, so that undo
    // still reaches every state the text has been in.
    Transaction* const current = buffer.undoCurrent;
    if (current != buffer.undoTail) {
        bool appended = true;
        for (Transaction* undone = buffer.undoTail; undone != current && appended;) {
            const Transaction* before = undone->prev;
            appended = AppendTransaction(buffer, undone->start, NewText(undone), OldText(undone),
                                         before->cursorAfter, before->topLineAfter,
                                         before->leftColumnAfter, before->selStartAfter,
                                         before->selEndAfter) != 0;
            undone = undone->prev;
        }
        if (appended)
            buffer.undoCurrent = buffer.undoTail;
        else
            FreeTransactionsFrom(buffer, current->next);
    }

    // A range whose start is not before its end replaces nothing: the text goes in at start.
    start = ClampPos(buffer, start.line, start.column);
    end = ClampPos(buffer, end.line, end.column);
    const std::string oldText = RangeText(buffer, start, end);
    if (buffer.lines.readOnly && (!oldText.empty() || !newText.empty())) {
        UpdateUndoRedoCommands(buffer); // undone steps may have been re-recorded
        return;
    }

    const int32_t topLine = ResolveTopLine(buffer, scroll.topLine, newCursor.line);
    const int32_t leftColumn = ResolveLeftColumn(buffer, scroll.leftColumn, newCursor);
    const TextPos selStart{ResolveSelect(newSelStart.line, buffer.selStart.line),
                           ResolveSelect(newSelStart.column, buffer.selStart.column)};
    const TextPos selEnd{ResolveSelect(newSelEnd.line, buffer.selEnd.line),
                         ResolveSelect(newSelEnd.column, buffer.selEnd.column)};

    // The log keeps texts exactly as they stand in the lines, so that carriage returns inside
    // lines survive undo and redo. A pasted CR LF is stored as the line break alone; its
    // carriage return still counts against the first line, as in InsertText.
    std::string stored;
    std::string_view inserted = newText;
    if (inserted.find("\r\n") != std::string_view::npos) {
        const size_t firstLineFeed = inserted.find('\n');
        if (firstLineFeed + static_cast<size_t>(start.column) > MaxLineLength) {
            LogMessage(LineTooLong);
            UpdateUndoRedoCommands(buffer);
            return;
        }
        stored = StoredText(inserted);
        inserted = stored;
    }

    if (!AppendTransaction(buffer, start, oldText, inserted, newCursor, topLine, leftColumn,
                           selStart, selEnd)) {
        LogMessage(RecordNotAllocated);
        ResetTransactionLog(buffer);
        return;
    }
    (void)RedoTransaction(buffer);
}

int RedoTransaction(EditBuffer& buffer) {
    const int32_t oldTop = buffer.topLine;
    const int32_t oldLeft = buffer.leftColumn;
    int result = 1;
    Transaction* record = buffer.undoCurrent != nullptr && buffer.undoCurrent != buffer.undoTail
                              ? buffer.undoCurrent->next
                              : nullptr;
    if (record != nullptr) {
        buffer.undoCurrent = record;
        const std::string_view oldText = OldText(record);
        const std::string_view newText = NewText(record);
        if (!TextStandsAt(buffer, record->start, oldText)) {
            LogMessage(RedoMismatch);
            LogMessage(HistoryCleared);
            ResetTransactionLog(buffer);
        } else if (const long failures = TheEditor().settings.allocator.failures;
                   !Replace(buffer, record->start, oldText, newText)) {
            // Memory that ran out has been reported already; the line is not too long.
            if (TheEditor().settings.allocator.failures == failures) LogMessage(LineTooLong);
            FreeTransactionsFrom(buffer, record); // its prev becomes tail and current
        } else {
            SetCursorAndScroll(buffer, record->cursorAfter, record->topLineAfter,
                               record->leftColumnAfter);
            const bool scrolled = buffer.topLine != oldTop || buffer.leftColumn != oldLeft;
            const bool withinOneLine =
                EndOfInsertion(record->start, oldText).line == record->start.line &&
                newText.find('\n') == std::string_view::npos;
            Repaint(buffer, scrolled, withinOneLine, record->start,
                    oldText.empty() && newText.empty());
            SetSelection(buffer, record->selStartAfter, record->selEndAfter);
            if (PosEqual(buffer.selStart, buffer.selEnd)) buffer.anchor = buffer.cursor;
            TheEditor().host.UpdateCaretAndStatus(buffer);
            result = 0;
        }
    }
    UpdateUndoRedoCommands(buffer);
    return result;
}

int UndoTransaction() {
    EditBuffer* buffer = TheEditor().engine.currentBuffer;
    if (buffer == nullptr) return 1;
    Transaction* record = buffer->undoCurrent;
    int result = 1;
    if (record != nullptr && record != buffer->undoHead && record->prev != nullptr) {
        const std::string_view oldText = OldText(record);
        const std::string_view newText = NewText(record);
        const int32_t oldTop = buffer->topLine;
        const int32_t oldLeft = buffer->leftColumn;
        if (!TextStandsAt(*buffer, record->start, newText)) {
            LogMessage(UndoMismatch);
            LogMessage(TransactionIgnored);
        } else if (!Replace(*buffer, record->start, newText, oldText)) {
            LogMessage(UndoFailed);
            LogMessage(HistoryCleared);
            ResetTransactionLog(*buffer);
        } else {
            const Transaction* before = record->prev;
            SetCursorAndScroll(*buffer, before->cursorAfter, before->topLineAfter,
                               before->leftColumnAfter);
            const bool scrolled = buffer->topLine != oldTop || buffer->leftColumn != oldLeft;
            const bool withinOneLine =
                EndOfInsertion(record->start, newText).line == record->start.line &&
                oldText.find('\n') == std::string_view::npos;
            Repaint(*buffer, scrolled, withinOneLine, record->start,
                    oldText.empty() && newText.empty());
            SetSelection(*buffer, before->selStartAfter, before->selEndAfter);
            buffer->anchor = buffer->cursor;
            TheEditor().host.UpdateCaretAndStatus(*buffer);
            buffer->undoCurrent = record->prev;
            result = 0;
        }
    }
    UpdateUndoRedoCommands(*buffer);
    return result;
}

} // namespace ruvo
