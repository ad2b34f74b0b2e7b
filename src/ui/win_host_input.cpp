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

// Redrawing a scroll bar costs more than painting a line of text, so a bar that already
// shows the values is left alone.
void ApplyRange(HWND window, int bar, int min, int max) {
    SCROLLINFO shown{};
    shown.cbSize = sizeof shown;
    shown.fMask = SIF_RANGE;
    if (::GetScrollInfo(window, bar, &shown) && shown.nMin == min && shown.nMax == max) return;
    ::SetScrollRange(window, bar, min, max, TRUE);
}

void ApplyPos(HWND window, int bar, int pos) {
    SCROLLINFO shown{};
    shown.cbSize = sizeof shown;
    shown.fMask = SIF_POS;
    if (::GetScrollInfo(window, bar, &shown) && shown.nPos == pos) return;
    ::SetScrollPos(window, bar, pos, TRUE);
}

} // namespace

WinHost::HeldScrollBar& WinHost::HeldBar(HWND window, int bar) {
    for (HeldScrollBar& held : heldScrollBars)
        if (held.window == window && held.bar == bar) return held;
    HeldScrollBar& added = heldScrollBars.emplace_back();
    added.window = window;
    added.bar = bar;
    return added;
}

void WinHost::SetScrollBarRange(EditBuffer& buffer, bool vertical, int min, int max) {
    HWND window = WindowOf(buffer);
    if (window == nullptr) return;
    // A text shorter than the window has nothing to scroll; an empty range hides the bar.
    max = std::max(min, max);
    if (holdingDrawing) {
        HeldScrollBar& held = HeldBar(window, Bar(vertical));
        held.min = min;
        held.max = max;
        held.rangeHeld = true;
        return;
    }
    ApplyRange(window, Bar(vertical), min, max);
}

void WinHost::SetScrollBarPos(EditBuffer& buffer, bool vertical, int pos) {
    HWND window = WindowOf(buffer);
    if (window == nullptr) return;
    if (holdingDrawing) {
        HeldScrollBar& held = HeldBar(window, Bar(vertical));
        held.pos = pos;
        held.posHeld = true;
        return;
    }
    ApplyPos(window, Bar(vertical), pos);
}

void WinHost::HoldDrawing() {
    holdingDrawing = true;
}

void WinHost::ShowHeldDrawing(bool keepHolding) {
    holdingDrawing = false;
    std::vector<EditBuffer*> windows;
    windows.swap(heldWindows);
    // Nothing else runs while output is held, so every held buffer is still open.
    for (EditBuffer* buffer : windows)
        RedrawWindow(*buffer);
    for (const HeldScrollBar& held : heldScrollBars) {
        if (IsWindow(held.window) == 0) continue; // closed meanwhile
        if (held.rangeHeld) ApplyRange(held.window, held.bar, held.min, held.max);
        if (held.posHeld) ApplyPos(held.window, held.bar, held.pos);
    }
    heldScrollBars.clear();
    holdingDrawing = keepHolding;
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
