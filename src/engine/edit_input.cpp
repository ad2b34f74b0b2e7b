// Keyboard, typing and mouse input of an edit window. Every caret move and selection made
// here is a transaction, so undo steps back through them as through text changes.
#include "engine/edit_input.h"

#include <algorithm>
#include <string>

#include "docs/file_saving.h"
#include "engine/clipboard_commands.h"
#include "engine/command_target.h"
#include "engine/cursor_motion.h"
#include "engine/editing_commands.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "engine/view_sync.h"
#include "engine/word_search.h"
#include "host/host.h"

namespace ruvo {

namespace {

constexpr TextPos Origin = MakePos(0, 0);
constexpr ScrollTarget ShowCaret{ScrollShow, ScrollShow};
constexpr int MessagePane = 4;
constexpr int Tab = 9;
constexpr int FirstTypedCharacter = 32;
constexpr int LastTypedCharacter = 254; // 255 is deliberately not typed
constexpr const char* CloseCaption = "Editor contents modified";

InputState& Input() {
    return TheEditor().engine.input;
}

bool IsMessageWindow(const EditBuffer& buffer) {
    return buffer.windowKind == KindMessage;
}

void FollowMessage(EditBuffer& buffer, bool open) {
    if (FollowMessageHook follow = Input().followMessage) follow(buffer, open);
}

// Records the caret and a selection without changing text.
void RecordCaret(EditBuffer& buffer, TextPos caret, TextPos selectFrom, TextPos selectTo) {
    RecordEdit(buffer, Origin, Origin, "", caret, ShowCaret, selectFrom, selectTo);
}

void Move(Motion motion, bool extend) {
    MoveCursor(motion, extend);
}

void ToggleOverwrite(EditBuffer& buffer) {
    bool& overwrite = TheEditor().engine.overwriteMode;
    overwrite = !overwrite;
    Host& host = TheEditor().host;
    host.RecreateCaret(buffer);
    host.UpdateCaretAndStatus(buffer);
}

} // namespace

ScreenPoint PointToPos(const EditBuffer& buffer, int x, int y) {
    const DisplayState& display = TheEditor().engine.display;
    const int charWidth = std::max(display.charWidth, 1);
    const int lineHeight = std::max(display.lineHeight, 1);
    return {y / lineHeight + buffer.topLine,
            (x + charWidth / 2) / charWidth + buffer.leftColumn - buffer.marginColumns};
}

void HandleKey(EditBuffer& buffer, int virtualKey, bool shift, bool ctrl) {
    if (virtualKey < KeyBack || virtualKey > KeyDelete) return;
    // Keys reach the focused window only, whose buffer is the one the commands act on.
    TheEditor().engine.currentBuffer = &buffer;
    const bool selection = buffer.lines.hasSelection != 0;
    switch (virtualKey) {
    case KeyBack:
        selection ? EditClear() : BackspaceChar();
        break;
    case KeyReturn:
        NewLine();
        break;
    case KeyPageUp:
        Move(ctrl ? Motion::BeginDoc : Motion::PageUp, shift);
        break;
    case KeyPageDown:
        Move(ctrl ? Motion::EndDoc : Motion::PageDown, shift);
        break;
    case KeyEnd:
        Move(ctrl ? Motion::EndDoc : Motion::EndLine, shift);
        break;
    case KeyHome:
        Move(ctrl ? Motion::BeginDoc : Motion::BeginLine, shift);
        break;
    case KeyLeft:
        Move(ctrl ? Motion::WordLeft : Motion::CharLeft, shift);
        break;
    case KeyUp:
        Move(Motion::LineUp, shift);
        break;
    case KeyRight:
        Move(ctrl ? Motion::WordRight : Motion::CharRight, shift);
        break;
    case KeyDown:
        Move(Motion::LineDown, shift);
        break;
    case KeyInsert:
        ToggleOverwrite(buffer);
        break;
    case KeyDelete:
        selection ? EditClear() : DeleteChar();
        break;
    default:
        break;
    }
    if (IsMessageWindow(buffer) && !buffer.IsClosed()) FollowMessage(buffer, false);
}

void TypeChar(EditBuffer& buffer, int character) {
    if (character != Tab && (character < FirstTypedCharacter || character > LastTypedCharacter))
        return;
    const std::string text(1, static_cast<char>(character));
    const TextPos caret = ClampPos(buffer, buffer.cursor.line, buffer.cursor.column);
    if (buffer.lines.hasSelection != 0) {
        const TextPos start = buffer.selStart;
        RecordEdit(buffer, start, buffer.selEnd, text, MakePos(start.line, start.column + 1),
                   ShowCaret, Origin, Origin);
    } else {
        const TextPos after = MakePos(caret.line, caret.column + 1);
        // At the line end there is nothing to overwrite: the character is inserted.
        const bool replaces =
            TheEditor().engine.overwriteMode && caret.column < LineLength(buffer, caret.line);
        RecordEdit(buffer, caret, replaces ? after : caret, text, after, ShowCaret, Origin, Origin);
    }
    buffer.anchor = buffer.cursor;
}

void CharacterEntered(EditBuffer& buffer, int character) {
    if (IsMessageWindow(buffer)) {
        if (character == '\r') FollowMessage(buffer, true);
        return;
    }
    TypeChar(buffer, character);
}

void ClickAt(EditBuffer& buffer, int32_t line, int screenColumn, bool extend) {
    const TextPos p = ColumnFromDisplay(buffer, line, screenColumn);
    if (!extend) buffer.anchor = p;
    RecordCaret(buffer, p, buffer.anchor, p);
}

void DragTo(EditBuffer& buffer, int32_t line, int screenColumn) {
    screenColumn = std::max(screenColumn, 0);
    const int32_t oldTop = buffer.topLine;
    const int32_t rows = buffer.visibleLines;
    enum class Direction { None, Up, Down } direction = Direction::None;
    int32_t target = line;
    int32_t cursorLine = buffer.cursor.line;
    if (line - buffer.topLine > rows - 1) {
        if (cursorLine < buffer.lines.lineCount) ++cursorLine;
        if (buffer.topLine + rows - 1 < cursorLine)
            buffer.topLine = ClampTopLine(buffer, buffer.topLine + 1);
        target = line + 1;
        direction = Direction::Down;
    } else if (line < buffer.topLine) {
        if (cursorLine > 0) --cursorLine;
        if (cursorLine < buffer.topLine) buffer.topLine -= 1;
        target = cursorLine;
        direction = Direction::Up;
    }
    buffer.cursor = ColumnFromDisplay(buffer, target, screenColumn);

    Host& host = TheEditor().host;
    if (!(PosEqual(buffer.cursor, buffer.anchor) && buffer.topLine == oldTop)) {
        SetSelection(buffer, buffer.anchor, buffer.cursor);
        if (direction != Direction::None) host.RedrawWindow(buffer);
    }
    SetVerticalBox(buffer);
    host.UpdateCaretAndStatus(buffer);

    // Nudging the pointer makes the system send another move, so a drag held outside the
    // window keeps scrolling without a timer, until the caret reaches the end it moves to.
    const bool more =
        (direction == Direction::Up && buffer.cursor.line > 0) ||
        (direction == Direction::Down && buffer.cursor.line < buffer.lines.lineCount - 1);
    if (more) {
        bool& down = Input().jiggleDown;
        host.NudgePointer(down);
        down = !down;
    }
}

void SelectWordAt(EditBuffer& buffer, int32_t line, int screenColumn) {
    const TextPos p = ColumnFromDisplay(buffer, line, screenColumn);
    const TextRange word = WordBounds(buffer, p);
    SetSelection(buffer, word.start, word.end);
    RecordCaret(buffer, word.end, word.start, word.end);
}

bool ButtonPressed(EditBuffer& buffer, ScreenPoint at, bool shift, bool rightButton) {
    InputState& input = Input();
    if (rightButton) input.rightButtonDrag = true;
    if (shift) {
        ClickAt(buffer, at.line, at.screenColumn, true);
        return false;
    }
    // The press only puts caret and anchor at the point; the release records where the drag
    // ended. So a click, or a whole drag, is one undo step, and undo after a drag goes back
    // to the caret and selection from before the press.
    const TextPos p = ColumnFromDisplay(buffer, at.line, at.screenColumn);
    buffer.anchor = p;
    buffer.cursor = p;
    SetSelection(buffer, p, p);
    TheEditor().host.UpdateCaretAndStatus(buffer);
    input.dragging = true;
    if (IsMessageWindow(buffer)) FollowMessage(buffer, false);
    return true;
}

void PointerMoved(EditBuffer& buffer, ScreenPoint at) {
    TheEditor().host.SetStatusPane(MessagePane, "", false);
    if (Input().dragging) DragTo(buffer, at.line, at.screenColumn);
}

bool ButtonReleased(EditBuffer& buffer) {
    InputState& input = Input();
    input.rightButtonDrag = false;
    if (!input.dragging) return false;
    input.dragging = false;
    RecordCaret(buffer, buffer.cursor, buffer.anchor, buffer.cursor);
    buffer.anchor = buffer.cursor;
    return true;
}

void DoubleClicked(EditBuffer& buffer, ScreenPoint at) {
    if (IsMessageWindow(buffer)) {
        FollowMessage(buffer, true);
        return;
    }
    SelectWordAt(buffer, at.line, at.screenColumn);
}

int QueryCloseBuffer(EditBuffer& buffer) {
    if (buffer.lines.modified == 0 || IsMessageWindow(buffer)) return 1;
    const std::string question =
        std::string("Edit buffer '") + buffer.fileName + "'\nis modified, Save changes ?";
    switch (TheEditor().host.QuestionBox(CloseCaption, question, QuestionKind::YesNoCancel)) {
    case AnswerNo:
        return 1;
    case AnswerYes:
        return saveBuffer(buffer.fileName, buffer) == 0 ? 1 : 0;
    default:
        return 0;
    }
}

} // namespace ruvo
