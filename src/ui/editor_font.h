// The editor font shared by all edit windows, and measuring a window with it.
#pragma once

#include <windows.h>

// CharWidth() and LineHeight(): the measured font cell, shared with the core.
#include "engine/line_layout.h"

namespace ruvo {

struct EditBuffer;

// Creates the font from the Font and FontSize options, replacing the old one; false (with
// the old font kept) when the system refuses.
bool CreateEditorFont();
// The current font, created on first use.
HFONT EditorFont();
void DestroyEditorFont();
// Takes the font's cell and the window's client size into the buffer's metric fields.
void MeasureEditWindow(EditBuffer& buffer);
// After Font or FontSize changed: a new font for every window, then RefreshEditWindows.
void ReapplyEditorFont();
// After the font or the line-number setting changed: every window measured and repainted, and
// the caret of the focused one made again.
void RefreshEditWindows();

} // namespace ruvo
