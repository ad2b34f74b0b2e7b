// The "EditWinCLass" window procedure: turns the messages of an edit window into calls of the
// core's input handling and of the painter.
#include "ui/edit_window.h"

#include <algorithm>
#include <cstring>

#include "commands/command_table.h"
#include "docs/documents.h"
#include "engine/edit_buffer.h"
#include "engine/edit_input.h"
#include "engine/editor.h"
#include "engine/line_layout.h"
#include "engine/view_sync.h"
#include "ui/caret.h"
#include "ui/edit_paint.h"
#include "ui/editor_font.h"
#include "ui/win_host.h"
#include "ui/window_classes.h"

namespace ruvo {

namespace {

InputState& Input() {
    return TheEditor().engine.input;
}

void SetBuffer(HWND window, EditBuffer* buffer) {
    SetWindowLongPtrA(window, 0, reinterpret_cast<LONG_PTR>(buffer));
}

EditBuffer* OwnBuffer(HWND window) {
    return reinterpret_cast<EditBuffer*>(GetWindowLongPtrA(window, 0));
}

// Client coordinates of a mouse message; negative when the captured pointer is left of or
// above the window.
ScreenPoint MousePoint(const EditBuffer& buffer, LPARAM lParam) {
    const int x = static_cast<short>(LOWORD(lParam));
    const int y = static_cast<short>(HIWORD(lParam));
    return PointToPos(buffer, x, y);
}

void TakeFocus(HWND window) {
    if (!Input().haveFocus) SetFocus(window);
}

void OnCreate(HWND window) {
    InputState& input = Input();
    EditBuffer* buffer = input.bufferBeingCreated;
    input.bufferBeingCreated = nullptr;
    SetBuffer(window, buffer);
    if (buffer == nullptr) return;
    buffer->hwnd = window;
    // All edit windows share the class DC: the font and mapping mode stay selected in it.
    HDC dc = GetDC(window);
    SelectObject(dc, EditorFont());
    SetMapMode(dc, MM_ANISOTROPIC);
    ReleaseDC(window, dc);
    MeasureEditWindow(*buffer);
    TheEditor().engine.currentBuffer = buffer;
    TheEditor().host.UpdateCaretAndStatus(*buffer);
}

void OnDestroy(HWND window, EditBuffer& buffer) {
    if (TheWinHost().shell.caretWindow == window) DestroyEditCaret();
    if (GetCapture() == window) {
        Input().dragging = false;
        ReleaseCapture();
    }
    SetBuffer(window, nullptr);
    buffer.hwnd = nullptr;
    closeBuffer(buffer); // also hands the current buffer on to another open one
}

void OnPaint(HWND window, EditBuffer& buffer) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    const int height = std::max(LineHeight(), 1);
    const int top = static_cast<int>(paint.rcPaint.top);
    const int bottom = static_cast<int>(paint.rcPaint.bottom);
    const int first = top / height + buffer.topLine;
    const int last = std::min(bottom / height + buffer.topLine, buffer.lines.lineCount);
    PaintEditRange(window, buffer, dc, first, last, true);
    EndPaint(window, &paint);
}

void OnScroll(HWND window, EditBuffer& buffer, bool vertical, WPARAM wParam) {
    const auto code = static_cast<BarCode>(LOWORD(wParam));
    int32_t thumb = HIWORD(wParam);
    const bool isThumb = code == BarCode::ThumbTrack || code == BarCode::ThumbPosition;
    if (vertical && isThumb && NeedsTrackPosition(buffer)) {
        // The message's 16 bits would overflow; the bar itself knows the whole position.
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        if (GetScrollInfo(window, SB_VERT, &info)) thumb = info.nTrackPos;
    }
    (void)ScrollByBar(buffer, vertical, code, thumb);
}

void OnMdiActivate(EditBuffer& buffer, WPARAM deactivated) {
    // The deactivated window hears of it first and the activated one last, so the activated
    // window's buffer ends up current.
    if (deactivated == 0) return;
    TheEditor().engine.currentBuffer = &buffer;
    TheEditor().host.UpdateCaretAndStatus(buffer);
    UpdateCommandStates();
}

} // namespace

LRESULT CALLBACK EditWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) {
        OnCreate(window);
        return DefMDIChildProcA(window, message, wParam, lParam);
    }
    EditBuffer* buffer = OwnBuffer(window);
    if (buffer == nullptr) return DefMDIChildProcA(window, message, wParam, lParam);
    InputState& input = Input();

    switch (message) {
    case WM_DESTROY:
        OnDestroy(window, *buffer);
        break;
    case WM_SIZE:
        if (wParam == SIZE_RESTORED || wParam == SIZE_MAXIMIZED) {
            MeasureEditWindow(*buffer);
            FitScrollBars(*buffer);
        }
        break; // the MDI child procedure needs it too
    case WM_SETFOCUS:
        input.haveFocus = true;
        MakeCaret(*buffer);
        UpdateCommandStates();
        break;
    case WM_KILLFOCUS:
        input.haveFocus = false;
        DestroyEditCaret();
        UpdateCommandStates();
        break;
    case WM_PAINT:
        OnPaint(window, *buffer);
        return 0;
    case WM_CLOSE:
    case WM_QUERYENDSESSION:
        if (QueryCloseBuffer(*buffer) != 1) return 0;
        break;
    case WM_KEYDOWN:
        HandleKey(*buffer, static_cast<int>(wParam), GetKeyState(VK_SHIFT) < 0,
                  GetKeyState(VK_CONTROL) < 0);
        return 0;
    case WM_CHAR:
        CharacterEntered(*buffer, static_cast<int>(wParam));
        return 0;
    case WM_HSCROLL:
    case WM_VSCROLL:
        OnScroll(window, *buffer, message == WM_VSCROLL, wParam);
        return 0;
    case WM_MOUSEMOVE:
        PointerMoved(*buffer, MousePoint(*buffer, lParam));
        return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
        TakeFocus(window);
        if (ButtonPressed(*buffer, MousePoint(*buffer, lParam), (wParam & MK_SHIFT) != 0,
                          message == WM_RBUTTONDOWN)) {
            SetCapture(window);
        }
        return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
        if (ButtonReleased(*buffer)) ReleaseCapture();
        return 0;
    case WM_CAPTURECHANGED:
        // Losing the mouse to another window ends a drag as a release would.
        if (input.dragging && reinterpret_cast<HWND>(lParam) != window)
            (void)ButtonReleased(*buffer);
        break;
    case WM_LBUTTONDBLCLK:
        TakeFocus(window);
        DoubleClicked(*buffer, MousePoint(*buffer, lParam));
        return 0;
    case WM_MDIACTIVATE:
        OnMdiActivate(*buffer, wParam);
        break;
    default:
        break;
    }
    return DefMDIChildProcA(window, message, wParam, lParam);
}

HWND CreateEditWindowFor(EditBuffer& buffer) {
    const ShellState& shell = TheWinHost().shell;
    if (shell.mdiClient == nullptr) return nullptr;
    // A new window follows a maximised active one; the first window of a session opens
    // maximised when the options ask for it.
    BOOL activeMaximized = FALSE;
    const HWND active = reinterpret_cast<HWND>(SendMessageA(
        shell.mdiClient, WM_MDIGETACTIVE, 0, reinterpret_cast<LPARAM>(&activeMaximized)));
    const bool maximize = active != nullptr ? activeMaximized != FALSE
                                            : TheEditor().settings.options.firstChildMaximized;

    MDICREATESTRUCTA create{};
    create.szClass = EditClassName;
    create.szTitle = buffer.fileName;
    create.hOwner = shell.instance;
    create.x = CW_USEDEFAULT;
    create.y = CW_USEDEFAULT;
    create.cx = CW_USEDEFAULT;
    create.cy = CW_USEDEFAULT;
    create.style = (maximize ? WS_MAXIMIZE : 0) | WS_VSCROLL | WS_HSCROLL;
    Input().bufferBeingCreated = &buffer;
    HWND window = reinterpret_cast<HWND>(
        SendMessageA(shell.mdiClient, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&create)));
    Input().bufferBeingCreated = nullptr;
    if (window != nullptr) SetFocus(window);
    return window;
}

EditBuffer* BufferOfWindow(HWND window) {
    if (window == nullptr) return nullptr;
    char className[32];
    if (GetClassNameA(window, className, sizeof className) == 0 ||
        std::strcmp(className, EditClassName) != 0) {
        return nullptr;
    }
    return OwnBuffer(window);
}

EditBuffer* ActiveEditBuffer() {
    HWND client = TheWinHost().shell.mdiClient;
    if (client == nullptr) return nullptr;
    return BufferOfWindow(reinterpret_cast<HWND>(SendMessageA(client, WM_MDIGETACTIVE, 0, 0)));
}

} // namespace ruvo
