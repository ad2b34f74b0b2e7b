// The undo/redo transaction log: every change of text, caret, scroll and selection.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/text_pos.h"

namespace ruvo {

struct EditBuffer;

// Scroll codes accepted in place of a scroll position.
constexpr int32_t ScrollKeep = -1;
constexpr int32_t ScrollShow = -2;
constexpr int32_t ScrollCentreIfHidden = -3;
constexpr int32_t ScrollCentre = -4;
// Selection code: keep the corresponding coordinate of the current selection.
constexpr int32_t SelectKeep = -1;

struct ScrollTarget {
    int32_t topLine = ScrollShow;
    int32_t leftColumn = ScrollShow;
};

struct Transaction {
    Transaction* prev;
    Transaction* next;
    TextPos selStartAfter;
    TextPos selEndAfter;
    int32_t topLineAfter;
    int32_t leftColumnAfter;
    TextPos cursorAfter;
    TextPos start;
    // The record is followed in the same allocation by its texts: the old text (what stood
    // from `start` before the edit, lines joined by line feeds), a NUL, the new text, a NUL.
};

const char* OldText(const Transaction* record);
const char* NewText(const Transaction* record);

[[nodiscard]] int InitTransactionLog(EditBuffer& buffer);
void FreeTransactionsFrom(EditBuffer& buffer, Transaction* record);
void ClearTransactionLog(EditBuffer& buffer);
void ResetTransactionLog(EditBuffer& buffer);
// Links a record after the tail without applying it. 1, or 0 when it cannot be allocated.
int AppendTransaction(EditBuffer& buffer, TextPos start, std::string_view oldText,
                      std::string_view newText, TextPos cursorAfter, int32_t topLineAfter,
                      int32_t leftColumnAfter, TextPos selStartAfter, TextPos selEndAfter);
// The one entry for every change: replaces start..end by newText (may hold line feeds),
// then puts the caret at newCursor, scrolls (values or scroll codes) and selects
// newSelStart..newSelEnd (values or SelectKeep). Caret moves replace (0,0)..(0,0) by "".
void RecordEdit(EditBuffer& buffer, TextPos start, TextPos end, std::string_view newText,
                TextPos newCursor, ScrollTarget scroll, TextPos newSelStart, TextPos newSelEnd);
// 0 when a transaction was applied, 1 otherwise.
int RedoTransaction(EditBuffer& buffer);
int UndoTransaction(); // on the current buffer

} // namespace ruvo
