// Keyboard, typing and mouse input of an edit window, and the question before it closes.
#pragma once

#include <cstdint>

namespace ruvo {

struct EditBuffer;

// The virtual-key codes an edit window acts on, with the platform's values.
enum EditKey : int {
    KeyBack = 8,
    KeyReturn = 13,
    KeyPageUp = 33,
    KeyPageDown = 34,
    KeyEnd = 35,
    KeyHome = 36,
    KeyLeft = 37,
    KeyUp = 38,
    KeyRight = 39,
    KeyDown = 40,
    KeyInsert = 45,
    KeyDelete = 46,
};

// A client-area point as a text line and a screen column (tabs expanded).
struct ScreenPoint {
    int32_t line = 0;
    int screenColumn = 0;
};

// The line and screen column under pixel (x, y) of the buffer's window, with the editor
// font's metrics. A point on the right half of a character gives the column after it.
ScreenPoint PointToPos(const EditBuffer& buffer, int x, int y);

// A key press (keys 8 to 46; others do nothing). The key acts on this buffer, which becomes
// the current one. In a message window the compiler support then follows the caret line.
void HandleKey(EditBuffer& buffer, int virtualKey, bool shift, bool ctrl);
// Types one character (tab and 32..254) as one transaction, over the selection if there is
// one, over the character under the caret in overwrite mode.
void TypeChar(EditBuffer& buffer, int character);
// A character from the keyboard: message windows use Return only, documents type it.
void CharacterEntered(EditBuffer& buffer, int character);

// Caret to the point, recorded; with extend the selection runs from the anchor to it.
void ClickAt(EditBuffer& buffer, int32_t line, int screenColumn, bool extend);
// The caret follows the mouse during a drag, scrolling one line per call when the pointer is
// above or below the window. Records nothing.
void DragTo(EditBuffer& buffer, int32_t line, int screenColumn);
// Selects the word at the point (double click), recorded.
void SelectWordAt(EditBuffer& buffer, int32_t line, int screenColumn);

// A mouse button went down at the point. With Shift the selection is extended to it (one
// transaction); otherwise the caret goes there and a drag begins (true): the shell captures
// the mouse until ButtonReleased.
[[nodiscard]] bool ButtonPressed(EditBuffer& buffer, ScreenPoint at, bool shift, bool rightButton);
// The mouse moved over the window (or anywhere while captured).
void PointerMoved(EditBuffer& buffer, ScreenPoint at);
// A mouse button went up. True when a drag ended: the shell releases the mouse. The caret
// and selection from the press to here become one transaction.
[[nodiscard]] bool ButtonReleased(EditBuffer& buffer);
// A double click of the left button.
void DoubleClicked(EditBuffer& buffer, ScreenPoint at);

// Whether the buffer's window may close: a modified document asks to save first. 1 to close,
// 0 when the user cancelled or the save failed.
[[nodiscard]] int QueryCloseBuffer(EditBuffer& buffer);

} // namespace ruvo
