// The status line along the bottom of the frame: five sunken panes of text.
#pragma once

#include <windows.h>

#include <string_view>

namespace ruvo {

enum StatusPaneIndex : int {
    PanePosition = 0,
    PaneInsertMode = 1,
    PaneFileState = 2,
    PaneTool = 3,
    PaneMessage = 4,
    StatusPaneCount = 5,
};

// In message mode the status line shows pane 4 alone (menu help while a menu is open).
enum class StatusMode { Normal, Message };

struct StatusPane {
    char* text = nullptr; // from the checked allocator, grown as needed and never shrunk
    long capacity = 0;
    UINT alignment = DT_CENTER;
    RECT box{};
};

struct StatusLine {
    StatusPane panes[StatusPaneCount];
    StatusMode mode = StatusMode::Normal;
};

LRESULT CALLBACK StatusWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

void SetStatusMode(StatusMode mode);
// Out-of-range panes are ignored; an unchanged text is not drawn again; clearing pane 4
// repaints the whole line so that the panes under it show again.
void SetStatusText(int pane, std::string_view text, bool beep);
// Text of a pane as shown (empty when none).
std::string_view StatusText(int pane);

} // namespace ruvo
