// The frame window: MDI client, status line and button bar, placement memory, command routing.
#pragma once

#include <windows.h>

#include "settings/window_placement.h"

namespace ruvo {

LRESULT CALLBACK FrameWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Creates the frame at the stored placement with the given menu bar (may be null).
HWND CreateFrameWindow(HINSTANCE instance, const WindowPlacement& placement, HMENU menu);
// Lays the children out again with the last known size (after ButtonsLeft changes).
void RequestRelayout();
// Restores the frame when it is minimised and makes it the foreground window.
void BringFrameForward();
// Opens each file named on a command line.
void OpenCommandLineFiles(const char* commandLine);

} // namespace ruvo
