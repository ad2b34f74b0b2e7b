// Drawing an edit window: margin, line numbers, error markers, coloured rows and selection.
#pragma once

#include <windows.h>

namespace ruvo {

struct EditBuffer;

// Draws lines firstLine..lastLine of the buffer into dc; with `full` the margin is drawn as
// well. A lastLine equal to the line count also paints the area below the text.
void PaintEditRange(HWND window, EditBuffer& buffer, HDC dc, int firstLine, int lastLine,
                    bool full);
// Paints the lines at once through the window's own DC (no WM_PAINT round trip).
void PaintEditLinesNow(EditBuffer& buffer, int firstLine, int lastLine, bool full);
// Draws bytes start..end of a line white on black over what the window shows.
void DrawInvertedText(EditBuffer& buffer, int line, int startColumn, int endColumn);

} // namespace ruvo
