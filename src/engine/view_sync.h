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
// tells the shell when the scroll position changed. The scroll bars are set only when the
// line count, top line, left column or cursor-line length differ from the values last set,
// as this runs after every keystroke.
void SetCursorAndScroll(EditBuffer& buffer, TextPos cursor, int32_t topLine, int32_t leftColumn);

// Scroll-bar request codes, with the platform's values.
enum class BarCode : int {
    LineUp = 0,
    LineDown = 1,
    PageUp = 2,
    PageDown = 3,
    ThumbPosition = 4,
    ThumbTrack = 5,
    Top = 6,
    Bottom = 7,
};

// Above this many lines the thumb position of a scroll message does not fit its 16 bits and
// the shell reads the 32-bit track position instead.
constexpr int32_t ThumbMessageLineLimit = 65000;
bool NeedsTrackPosition(const EditBuffer& buffer);

// Rows / columns a scroll-bar request asks for; the thumb value counts for the thumb codes
// only. The horizontal bar ignores Bottom and unknown codes.
int32_t VerticalBarDelta(const EditBuffer& buffer, BarCode code, int32_t thumb);
int32_t HorizontalBarDelta(const EditBuffer& buffer, BarCode code, int32_t thumb);

// Moves topLine by delta, no further than the last full page and not above line 0; the
// rows actually scrolled.
int32_t ScrollLines(EditBuffer& buffer, int32_t delta);
// Moves leftColumn by delta, not left of 0; stops at 255 only when it stands exactly there.
// The columns actually scrolled.
int32_t ScrollColumns(EditBuffer& buffer, int32_t delta);
// A scroll-bar message: scrolls, then moves the window's pixels (vertical) or redraws it and
// the caret (horizontal), and sets the scroll box. The amount scrolled.
int32_t ScrollByBar(EditBuffer& buffer, bool vertical, BarCode code, int32_t thumb);
// After a size change: the top line keeps a full last page, both bars get their ranges.
void FitScrollBars(EditBuffer& buffer);
// The vertical scroll box follows topLine (a drag scrolled the view).
void SetVerticalBox(EditBuffer& buffer);

// True for the buffer whose window is active, or for any buffer when none is: command
// states follow only that buffer.
bool IsBufferOnShow(const EditBuffer& buffer);

} // namespace ruvo
