// WinHost: scroll bars, window scrolling, the caret and the pointer nudge of the edit windows.
#include <windows.h>

#include <algorithm>

#include "engine/edit_buffer.h"
#include "engine/line_layout.h"
#include "ui/caret.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

HWND WindowOf(const EditBuffer& buffer) {
    return static_cast<HWND>(buffer.hwnd);
}

int Bar(bool vertical) {
    return vertical ? SB_VERT : SB_HORZ;
}

} // namespace

// Redrawing a scroll bar costs more than painting a line of text, so a bar that already
// shows the values is left alone.
void WinHost::SetScrollBarRange(EditBuffer& buffer, bool vertical, int min, int max) {
    HWND window = WindowOf(buffer);
    if (window == nullptr) return;
    // A text shorter than the window has nothing to scroll; an empty range hides the bar.
    max = std::max(min, max);
    SCROLLINFO shown{};
    shown.cbSize = sizeof shown;
    shown.fMask = SIF_RANGE;
    if (::GetScrollInfo(window, Bar(vertical), &shown) && shown.nMin == min && shown.nMax == max)
        return;
    ::SetScrollRange(window, Bar(vertical), min, max, TRUE);
}

void WinHost::SetScrollBarPos(EditBuffer& buffer, bool vertical, int pos) {
    HWND window = WindowOf(buffer);
    if (window == nullptr) return;
    SCROLLINFO shown{};
    shown.cbSize = sizeof shown;
    shown.fMask = SIF_POS;
    if (::GetScrollInfo(window, Bar(vertical), &shown) && shown.nPos == pos) return;
    ::SetScrollPos(window, Bar(vertical), pos, TRUE);
}

void WinHost::ScrollWindowLines(EditBuffer& buffer, int lines) {
    HWND window = WindowOf(buffer);
    if (window == nullptr) return;
    // Only the rows that come into view are painted; the rest of the pixels just move.
    ::ScrollWindow(window, 0, -LineHeight() * lines, nullptr, nullptr);
    ::UpdateWindow(window);
}

void WinHost::MoveCaret(EditBuffer& buffer) {
    PlaceCaret(buffer);
}

void WinHost::RecreateCaret(EditBuffer& buffer) {
    HWND window = WindowOf(buffer);
    // Only the window with the focus has a caret to remake.
    if (window != nullptr && window == shell.caretWindow) MakeCaret(buffer);
}

void WinHost::NudgePointer(bool down) {
    POINT pointer;
    if (!::GetCursorPos(&pointer)) return;
    ::SetCursorPos(pointer.x, pointer.y + (down ? 1 : -1));
}

} // namespace ruvo
