// Window handles and start-up facts of the Win32 shell, kept by the WinHost.
#pragma once

#include <windows.h>

#include <string>

namespace ruvo {

// Menu identifiers: a command-table row plus CommandIdBase; the MDI window list from
// FirstWindowListId.
constexpr int CommandIdBase = 10000;
constexpr int CommandIdCount = 99;
constexpr int FirstWindowListId = 1000;
constexpr int WindowListIdCount = 100;
constexpr int MdiClientId = 1;
// Private frame messages: lay the children out again; a file handed over by a second instance.
constexpr UINT RelayoutMessage = WM_USER + 1;
constexpr UINT HandOverMessage = WM_USER + 101;

constexpr int StatusLineHeight = 22;

struct ShellState {
    HINSTANCE instance = nullptr;
    std::string programPath;      // full module path
    std::string programDirectory; // value of $INSTALL
    std::string commandLine;      // kept for the frame's creation
    HWND frame = nullptr;
    HWND mdiClient = nullptr;
    HWND statusWindow = nullptr;
    HWND buttonBar = nullptr;
    HMENU menuBar = nullptr; // the frame's menu, kept for greying and the recent-file items
    int clientWidth = 0;
    int clientHeight = 0;
    // Installed by the button bar once it has buttons: its thickness across the edge it sits
    // on (left or top) for the given length along that edge. Without it the bar takes no room.
    int (*buttonBarThickness)(int length, bool left) = nullptr;
    HFONT editorFont = nullptr; // shared by every edit window
    HWND caretWindow = nullptr; // the edit window that owns the caret, while it has the focus
};

} // namespace ruvo
