// Caret motion: every move is a transaction with an empty change at (0, 0), so undo walks
// back through caret positions too.
#include "engine/cursor_motion.h"

#include <algorithm>
#include <cctype>

#include "engine/command_target.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"

namespace ruvo {

namespace {

constexpr TextPos Origin = MakePos(0, 0);

bool IsLetterOrDigit(std::string_view text, int32_t column) {
    return column >= 0 && column < static_cast<int32_t>(text.size()) &&
           std::isalnum(static_cast<unsigned char>(text[column])) != 0;
}

bool IsWordChar(std::string_view text, int32_t column) {
    return IsLetterOrDigit(text, column) ||
           (column >= 0 && column < static_cast<int32_t>(text.size()) && text[column] == '_');
}

TextPos EndOfLine(const EditBuffer& buffer, int32_t line) {
    return ClampPos(buffer, line, 255);
}

// Keeps the caret's screen column across tabs and short lines.
TextPos VerticalMove(const EditBuffer& buffer, TextPos caret, int32_t delta) {
    const int32_t screenColumn = DisplayColumn(buffer.lines.lineText[caret.line], caret.column);
    return ColumnFromDisplay(buffer, caret.line + delta, screenColumn);
}

TextPos CharLeft(const EditBuffer& buffer, TextPos p) {
    if (p.column >= 1) return MakePos(p.line, p.column - 1);
    if (p.line > 0) return EndOfLine(buffer, p.line - 1);
    return p;
}

TextPos CharRight(const EditBuffer& buffer, TextPos p) {
    if (p.column < LineLength(buffer, p.line)) return MakePos(p.line, p.column + 1);
    if (p.line < LastLine(buffer)) return MakePos(p.line + 1, 0);
    return p;
}

// Underscores separate words here, and a word at column 1 behind a separator at column 0
// leaves the caret at column 0.
TextPos WordLeft(const EditBuffer& buffer, TextPos p) {
    if (p.column > 0)
        --p.column;
    else
        p = EndOfLine(buffer, p.line - 1);
    const std::string_view text = LineAt(buffer, p.line);
    while (p.column >= 1 && !IsLetterOrDigit(text, p.column))
        --p.column;
    if (IsLetterOrDigit(text, p.column)) {
        while (p.column >= 1 && IsLetterOrDigit(text, p.column))
            --p.column;
        if (p.column > 0) ++p.column;
    }
    return p;
}

TextPos WordRight(const EditBuffer& buffer, TextPos p) {
    std::string_view text = LineAt(buffer, p.line);
    const auto length = [&text] { return static_cast<int32_t>(text.size()); };
    if (IsLetterOrDigit(text, p.column))
        while (IsWordChar(text, p.column))
            ++p.column;
    if (p.column >= length()) {
        // At the end of the document there is no further word: stay at the end.
        if (p.line >= LastLine(buffer)) return MakePos(p.line, length());
        p = MakePos(p.line + 1, 0);
        text = LineAt(buffer, p.line);
    }
    while (p.column < length() && !IsLetterOrDigit(text, p.column))
        ++p.column;
    return p;
}

} // namespace

void MoveCursor(Motion code, bool extend) {
    EditBuffer* target = CommandTarget();
    if (target == nullptr) return;
    EditBuffer& buffer = *target;

    const int32_t lineCount = buffer.lines.lineCount;
    const int32_t pageLines = buffer.visibleLines;
    ScrollTarget scroll{ScrollShow, ScrollShow};
    bool topComputed = false;
    const TextPos caret = ClampPos(buffer, buffer.cursor.line, buffer.cursor.column);
    TextPos p = caret;

    switch (code) {
    case Motion::LineUp:
        p = VerticalMove(buffer, caret, -1);
        break;
    case Motion::LineDown:
        p = VerticalMove(buffer, caret, +1);
        break;
    case Motion::CharLeft:
        p = CharLeft(buffer, p);
        break;
    case Motion::CharRight:
        p = CharRight(buffer, p);
        break;
    case Motion::WordLeft:
        p = WordLeft(buffer, p);
        break;
    case Motion::WordRight:
        p = WordRight(buffer, p);
        break;
    case Motion::BeginLine:
        p = MakePos(p.line, 0);
        break;
    case Motion::EndLine:
        p = EndOfLine(buffer, p.line);
        break;
    case Motion::PageUp:
        if (p.line - pageLines < 0) {
            p = Origin;
            scroll.topLine = 0;
        } else {
            p = VerticalMove(buffer, caret, -pageLines);
            scroll.topLine = std::max(buffer.topLine - pageLines, 0);
        }
        topComputed = true;
        break;
    case Motion::PageDown:
        if (p.line + pageLines < lineCount) {
            p = VerticalMove(buffer, caret, +pageLines);
            scroll.topLine = std::min(buffer.topLine + pageLines, lineCount - pageLines);
        } else {
            p = EndOfLine(buffer, LastLine(buffer));
            scroll.topLine = lineCount - pageLines;
        }
        topComputed = true;
        break;
    case Motion::BeginDoc:
        p = Origin;
        scroll = ScrollTarget{0, 0};
        break;
    case Motion::EndDoc:
        p = EndOfLine(buffer, LastLine(buffer));
        scroll = ScrollTarget{lineCount - pageLines, 0};
        topComputed = true;
        break;
    default:
        return;
    }
    // A document shorter than the window starts at its top.
    if (topComputed && scroll.topLine < 0) scroll.topLine = 0;

    if (extend) {
        const TextPos anchor = buffer.anchor;
        const bool anchorFirst =
            anchor.line < p.line || (anchor.line == p.line && anchor.column <= p.column);
        RecordEdit(buffer, Origin, Origin, "", p, scroll, anchorFirst ? anchor : p,
                   anchorFirst ? p : anchor);
    } else {
        RecordEdit(buffer, Origin, Origin, "", p, scroll, Origin, Origin);
        buffer.anchor = buffer.cursor;
    }
}

void GoToPos(EditBuffer& buffer, int32_t line, int32_t column) {
    const TextPos p = ClampPos(buffer, line, column);
    const TextPos keep = MakePos(SelectKeep, SelectKeep);
    RecordEdit(buffer, Origin, Origin, "", p, ScrollTarget{ScrollShow, ScrollShow}, keep, keep);
}

int GoLineUp() {
    MoveCursor(Motion::LineUp, false);
    return 0;
}
int GoLineDown() {
    MoveCursor(Motion::LineDown, false);
    return 0;
}
int GoCharLeft() {
    MoveCursor(Motion::CharLeft, false);
    return 0;
}
int GoCharRight() {
    MoveCursor(Motion::CharRight, false);
    return 0;
}
int GoWordLeft() {
    MoveCursor(Motion::WordLeft, false);
    return 0;
}
int GoWordRight() {
    MoveCursor(Motion::WordRight, false);
    return 0;
}
int GoBeginLine() {
    MoveCursor(Motion::BeginLine, false);
    return 0;
}
int GoEndLine() {
    MoveCursor(Motion::EndLine, false);
    return 0;
}
int GoPageUp() {
    MoveCursor(Motion::PageUp, false);
    return 0;
}
int GoPageDown() {
    MoveCursor(Motion::PageDown, false);
    return 0;
}
int GoBeginDoc() {
    MoveCursor(Motion::BeginDoc, false);
    return 0;
}
int GoEndDoc() {
    MoveCursor(Motion::EndDoc, false);
    return 0;
}

} // namespace ruvo
