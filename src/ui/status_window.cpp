// Status line window: pane layout, sunken-box drawing and text updates.
#include "ui/status_window.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "settings/allocator.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

constexpr COLORREF LightGrey = RGB(192, 192, 192);
constexpr COLORREF DarkGrey = RGB(92, 92, 92);
constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF Black = RGB(0, 0, 0);

StatusLine& Status() {
    return TheWinHost().status;
}

bool HasText(const StatusPane& pane) {
    return pane.text != nullptr && pane.text[0] != '\0';
}

// Panes 0 to 3 share the line; pane 4 spans it and hides them while it has text.
bool PaneIsShown(int index) {
    const StatusLine& line = Status();
    if (index == PaneMessage) return true;
    return line.mode == StatusMode::Normal && !HasText(line.panes[PaneMessage]);
}

void Layout(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    // The unit is the window's own font (the system font), wider than the panes' text font,
    // so that "Overwrite" fits its pane.
    HDC dc = GetDC(window);
    TEXTMETRICA metrics;
    GetTextMetricsA(dc, &metrics);
    ReleaseDC(window, dc);

    const int w = metrics.tmAveCharWidth;
    const int top = client.top + 2;
    const int bottom = client.bottom - 2;
    StatusPane* p = Status().panes;
    p[0].box = {w, top, 10 * w, bottom};
    p[1].box = {p[0].box.right + 2, top, p[0].box.right + 2 + 8 * w, bottom};
    p[2].box = {p[1].box.right + 2, top, p[1].box.right + 2 + 10 * w, bottom};
    p[3].box = {p[2].box.right + 2, top, client.right - w, bottom};
    p[4].box = {w, top, client.right - w, bottom};
    for (int i = 0; i < PaneMessage; ++i)
        p[i].alignment = DT_CENTER;
    p[PaneMessage].alignment = DT_LEFT;
}

void DrawLine(HDC dc, int x1, int y1, int x2, int y2) {
    MoveToEx(dc, x1, y1, nullptr);
    LineTo(dc, x2, y2);
}

void DrawPane(HDC dc, const StatusPane& pane) {
    const RECT& r = pane.box;
    HBRUSH fill = CreateSolidBrush(LightGrey);
    FillRect(dc, &r, fill);
    DeleteObject(fill);

    HPEN dark = CreatePen(PS_SOLID, 1, DarkGrey);
    HPEN light = CreatePen(PS_SOLID, 1, White);
    HGDIOBJ oldPen = SelectObject(dc, dark);
    DrawLine(dc, r.left, r.bottom - 1, r.left, r.top);
    DrawLine(dc, r.left, r.top, r.right, r.top);
    SelectObject(dc, light);
    DrawLine(dc, r.left + 1, r.bottom - 1, r.right - 1, r.bottom - 1);
    DrawLine(dc, r.right - 1, r.bottom - 1, r.right - 1, r.top);
    SelectObject(dc, oldPen);
    DeleteObject(dark);
    DeleteObject(light);

    if (!HasText(pane)) return;
    RECT inner = {r.left + 3, r.top + 3, r.right - 3, r.bottom - 3};
    HGDIOBJ oldFont = SelectObject(dc, GetStockObject(ANSI_VAR_FONT));
    SetBkColor(dc, LightGrey);
    SetTextColor(dc, Black);
    DrawTextA(dc, pane.text, -1, &inner, pane.alignment | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    SelectObject(dc, oldFont);
}

void DrawPaneNow(int index) {
    HWND window = TheWinHost().shell.statusWindow;
    if (window == nullptr || !PaneIsShown(index)) return;
    HDC dc = GetDC(window);
    DrawPane(dc, Status().panes[index]);
    ReleaseDC(window, dc);
}

void Paint(HWND window) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    RECT client;
    GetClientRect(window, &client);

    HBRUSH fill = CreateSolidBrush(LightGrey);
    HGDIOBJ oldBrush = SelectObject(dc, fill);
    HGDIOBJ oldPen = SelectObject(dc, GetStockObject(BLACK_PEN));
    Rectangle(dc, client.left, client.top, client.right, client.bottom);
    SelectObject(dc, GetStockObject(WHITE_PEN));
    DrawLine(dc, client.left + 1, client.top + 1, client.right - 1, client.top + 1);
    SelectObject(dc, oldPen);
    SelectObject(dc, oldBrush);
    DeleteObject(fill);

    const StatusLine& line = Status();
    if (line.mode == StatusMode::Message || HasText(line.panes[PaneMessage])) {
        DrawPane(dc, line.panes[PaneMessage]);
    } else {
        for (int i = PanePosition; i <= PaneFileState; ++i)
            DrawPane(dc, line.panes[i]);
        if (HasText(line.panes[PaneTool])) DrawPane(dc, line.panes[PaneTool]);
    }
    EndPaint(window, &paint);
}

// The panes' texts joined by tabs: what the window's text is to other programs (the e2e
// driver reads the status line this way).
std::string JoinedPanes() {
    std::string joined;
    for (int i = 0; i < StatusPaneCount; ++i) {
        if (i > 0) joined += '\t';
        joined += StatusText(i);
    }
    return joined;
}

void ReleasePanes() {
    for (StatusPane& pane : Status().panes) {
        Release(pane.text);
        pane.text = nullptr;
        pane.capacity = 0;
    }
}

} // namespace

LRESULT CALLBACK StatusWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        TheWinHost().shell.statusWindow = window;
        Layout(window);
        return 0;
    case WM_SIZE:
        Layout(window);
        InvalidateRect(window, nullptr, TRUE);
        return 0;
    case WM_PAINT:
        Paint(window);
        return 0;
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(JoinedPanes().size());
    case WM_GETTEXT: {
        const std::string joined = JoinedPanes();
        const size_t room = static_cast<size_t>(wParam);
        if (room == 0) return 0;
        const size_t length = std::min(joined.size(), room - 1);
        std::memcpy(reinterpret_cast<char*>(lParam), joined.data(), length);
        reinterpret_cast<char*>(lParam)[length] = '\0';
        return static_cast<LRESULT>(length);
    }
    case WM_DESTROY:
        ReleasePanes();
        TheWinHost().shell.statusWindow = nullptr;
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

void SetStatusMode(StatusMode mode) {
    StatusLine& line = Status();
    if (line.mode == mode) return;
    line.mode = mode;
    if (HWND window = TheWinHost().shell.statusWindow) InvalidateRect(window, nullptr, TRUE);
}

void SetStatusText(int pane, std::string_view text, bool beep) {
    if (pane < 0 || pane >= StatusPaneCount) return;
    if (beep) MessageBeep(MB_OK);
    StatusPane& target = Status().panes[pane];
    if (text.empty()) {
        if (!HasText(target)) return;
        target.text[0] = '\0';
        // Pane 4 covers the others, and pane 3 has no box while it is empty.
        if (pane == PaneMessage || pane == PaneTool) {
            if (HWND window = TheWinHost().shell.statusWindow) {
                InvalidateRect(window, nullptr, TRUE);
            }
        } else {
            DrawPaneNow(pane);
        }
        return;
    }
    if (HasText(target) && std::string_view(target.text) == text) return;
    const long needed = static_cast<long>(text.size()) + 1;
    if (needed > target.capacity) {
        void* grown = Allocate(target.text, target.capacity, needed - target.capacity, 1);
        if (grown == nullptr) return; // the allocator has told the user
        target.text = static_cast<char*>(grown);
        target.capacity = needed;
    }
    std::memcpy(target.text, text.data(), text.size());
    target.text[text.size()] = '\0';
    if (pane == PaneMessage && HasText(target)) {
        // Pane 4 covers the others; draw it over a clean line.
        if (HWND window = TheWinHost().shell.statusWindow) {
            InvalidateRect(window, nullptr, TRUE);
            UpdateWindow(window);
        }
        return;
    }
    DrawPaneNow(pane);
}

std::string_view StatusText(int pane) {
    if (pane < 0 || pane >= StatusPaneCount) return {};
    const StatusPane& p = Status().panes[pane];
    return HasText(p) ? std::string_view(p.text) : std::string_view();
}

} // namespace ruvo
