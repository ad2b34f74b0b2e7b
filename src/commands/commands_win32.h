// The Win32 halves of the keyboard mapper, the menu builder and the button bar.
#pragma once

#include <windows.h>

namespace ruvo {

// Builds the menu bar from the menu description and brings its items into line with the
// recent files and the commands' states. The handle is kept for greying.
HMENU BuildMainMenu();

// A key press bound in the key map is sent to `window` as its command and consumed.
bool TranslateKey(const MSG& message, HWND window);

// Window procedure of the "ButtonClass" bar.
LRESULT CALLBACK ButtonBarWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// Frees the bar's pictures and its face bitmap at the end of the program.
void ReleaseButtonBar();

} // namespace ruvo
