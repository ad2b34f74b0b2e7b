// Caret motion: the twelve motions with optional selection extension, their commands, GoToPos.
#pragma once

#include <cstdint>

namespace ruvo {

struct EditBuffer;

// Motion codes; the keyboard handler passes them with extend = Shift held.
enum class Motion : int {
    LineUp = 1,
    LineDown = 2,
    CharLeft = 3,
    CharRight = 4,
    WordLeft = 5,
    WordRight = 6,
    BeginLine = 7,
    EndLine = 8,
    PageUp = 9,
    PageDown = 10,
    BeginDoc = 11,
    EndDoc = 12,
};

// Moves the caret of the current buffer as one recorded transaction. With extend the
// selection runs from the anchor to the new caret; without, the selection is dropped.
void MoveCursor(Motion code, bool extend);

// Moves the caret to the clamped position, scrolling it into view and keeping the selection.
void GoToPos(EditBuffer& buffer, int32_t line, int32_t column);

int GoLineUp();
int GoLineDown();
int GoCharLeft();
int GoCharRight();
int GoWordLeft();
int GoWordRight();
int GoBeginLine();
int GoEndLine();
int GoPageUp();
int GoPageDown();
int GoBeginDoc();
int GoEndDoc();

} // namespace ruvo
