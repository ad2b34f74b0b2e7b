// The MDI edit window of one EditBuffer (window word 0 holds the buffer).
#pragma once

#include <windows.h>

namespace ruvo {

struct EditBuffer;

constexpr int EditWindowBytes = static_cast<int>(sizeof(LONG_PTR));

LRESULT CALLBACK EditWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Creates the MDI child of a buffer, titled with its file name; null on failure.
HWND CreateEditWindowFor(EditBuffer& buffer);
// The buffer of an edit window, or null for any other window.
EditBuffer* BufferOfWindow(HWND window);
// The buffer of the active MDI child, or null.
EditBuffer* ActiveEditBuffer();

} // namespace ruvo
