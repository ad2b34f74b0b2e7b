// Keeps a buffer's caret, scroll position and selection consistent and tells the shell
// what to redraw.
#pragma once

#include <cstdint>

#include "engine/text_pos.h"

namespace ruvo {

struct EditBuffer;

// Stores the selection between a and b (in either order, clamped into the text), sets
// hasSelection, redraws the visible lines whose selection state changed and, for the
// buffer on show, enables or disables the commands that need a selection.
void SetSelection(EditBuffer& buffer, TextPos a, TextPos b);

// Puts the caret at the clamped cursor and the view at topLine/leftColumn (not below 0);
// tells the shell when the scroll position changed.
void SetCursorAndScroll(EditBuffer& buffer, TextPos cursor, int32_t topLine, int32_t leftColumn);

// True for the buffer whose window is active, or for any buffer when none is: command
// states follow only that buffer.
bool IsBufferOnShow(const EditBuffer& buffer);

} // namespace ruvo
