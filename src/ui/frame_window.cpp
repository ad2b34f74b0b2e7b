// Frame window procedure: creation of the children, layout, placement, commands and closing.
#include "ui/frame_window.h"

#include <shellapi.h>

#include <string>

#include "aids/template_profile.h"
#include "commands/command_table.h"
#include "docs/changed_on_disk.h"
#include "docs/documents.h"
#include "docs/startup_error_window.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "settings/command_line.h"
#include "settings/error_report.h"
#include "settings/program_version.h"
#include "ui/ctl3d.h"
#include "ui/edit_window.h"
#include "ui/editor_font.h"
#include "ui/status_window.h"
#include "ui/win_host.h"
#include "ui/window_classes.h"

namespace ruvo {

namespace {

constexpr int WindowMenuPosition = 5; // the MDI window list goes under the sixth pop-up
constexpr int MinimumTrackWidth = 400;
constexpr int MinimumTrackHeight = 300;
constexpr int MaxDroppedName = 256;

ShellState& Shell() {
    return TheWinHost().shell;
}

WindowPlacement WindowRectOf(HWND window) {
    RECT r;
    GetWindowRect(window, &r);
    return {r.left, r.top, r.right - r.left, r.bottom - r.top};
}

FrameShowState ShowStateOf(HWND window) {
    return {IsWindowVisible(window) != FALSE, IsIconic(window) != FALSE, IsZoomed(window) != FALSE};
}

HWND CreateChild(HWND frame, const char* className, DWORD style, int id, const RECT& area,
                 void* parameter) {
    return CreateWindowExA(0, className, nullptr, WS_CHILD | WS_VISIBLE | style, area.left,
                           area.top, area.right - area.left, area.bottom - area.top, frame,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), Shell().instance,
                           parameter);
}

void LayOutChildren() {
    const ShellState& shell = Shell();
    const int width = shell.clientWidth;
    const int height = shell.clientHeight;
    const int above = height > StatusLineHeight ? height - StatusLineHeight : 0;
    if (shell.statusWindow != nullptr) {
        MoveWindow(shell.statusWindow, 0, height - StatusLineHeight, width, StatusLineHeight, TRUE);
    }
    const bool left = TheEditor().settings.options.buttonsLeft;
    // The bar's width follows from the height it may fill, or its height from the width.
    const int bar = shell.buttonBarThickness != nullptr
                        ? shell.buttonBarThickness(left ? above : width, left)
                        : 0;
    if (left) {
        if (shell.buttonBar != nullptr) MoveWindow(shell.buttonBar, 0, 0, bar, above, TRUE);
        if (shell.mdiClient != nullptr) {
            MoveWindow(shell.mdiClient, bar, 0, width - bar, above, TRUE);
        }
    } else {
        if (shell.buttonBar != nullptr) MoveWindow(shell.buttonBar, 0, 0, width, bar, TRUE);
        if (shell.mdiClient != nullptr) {
            MoveWindow(shell.mdiClient, 0, bar, width, above > bar ? above - bar : 0, TRUE);
        }
    }
    // A maximised edit window fills the client, which then has nothing to scroll; a window
    // opened maximised before the frame was first laid out leaves the client's bars showing.
    BOOL maximized = FALSE;
    if (shell.mdiClient != nullptr &&
        SendMessageA(shell.mdiClient, WM_MDIGETACTIVE, 0, reinterpret_cast<LPARAM>(&maximized)) !=
            0 &&
        maximized) {
        ShowScrollBar(shell.mdiClient, SB_BOTH, FALSE);
    }
}

void OnCreate(HWND frame) {
    ShellState& shell = Shell();
    shell.frame = frame;
    Ctl3dRegisterApp(shell.instance);

    CLIENTCREATESTRUCT client{};
    HMENU menu = GetMenu(frame);
    client.hWindowMenu = menu != nullptr ? GetSubMenu(menu, WindowMenuPosition) : nullptr;
    client.idFirstChild = FirstWindowListId;
    (void)CreateEditorFont(); // on failure the edit windows fall back to the stock fixed font
    // The client covers the whole area until the first size change lays the children out;
    // edit windows opened from the command line take their default size from it.
    RECT area;
    GetClientRect(frame, &area);
    shell.mdiClient = CreateChild(frame, "MDICLIENT", WS_CLIPCHILDREN | WS_VSCROLL | WS_HSCROLL,
                                  MdiClientId, area, &client);
    const RECT empty{};
    shell.statusWindow = CreateChild(frame, StatusClassName, 0, 0, empty, nullptr);
    shell.buttonBar = CreateChild(frame, ButtonBarClassName, 0, 0, empty, nullptr);
    SetStatusMode(StatusMode::Normal);

    LoadTemplatesFromProfile();
    OpenCommandLineFiles(shell.commandLine.c_str());
    if (HasStartupErrors()) ShowStartupErrors();
    DragAcceptFiles(frame, TRUE);
    // Laid out once more after the updates the new edit windows have posted to the client.
    PostMessageA(frame, RelayoutMessage, 0, 0);
}

void OnSize(HWND frame, int clientWidth, int clientHeight) {
    if (!FrameSized(ShowStateOf(frame), WindowRectOf(frame))) return;
    Shell().clientWidth = clientWidth;
    Shell().clientHeight = clientHeight;
    LayOutChildren();
}

void OnMove(HWND frame) {
    MSG waiting;
    const bool sizePending = PeekMessageA(&waiting, frame, WM_SIZE, WM_SIZE, PM_NOREMOVE) != 0;
    FrameMoved(ShowStateOf(frame), sizePending, WindowRectOf(frame));
}

LRESULT OnCommand(HWND frame, WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    const int row = CommandIndexOfMenuId(id);
    if (row >= 0) {
        InvokeCommand(row);
        return 0;
    }
    if (id >= FirstWindowListId && id < FirstWindowListId + WindowListIdCount) {
        return DefFrameProcA(frame, Shell().mdiClient, WM_COMMAND, wParam, lParam);
    }
    HWND active = reinterpret_cast<HWND>(SendMessageA(Shell().mdiClient, WM_MDIGETACTIVE, 0, 0));
    if (active != nullptr) SendMessageA(active, WM_COMMAND, wParam, lParam);
    return 0;
}

void OnMenuSelect(WPARAM wParam) {
    const int id = LOWORD(wParam);
    const UINT flags = HIWORD(wParam);
    const int row = (flags & MF_POPUP) != 0 ? -1 : CommandIndexOfMenuId(id);
    const char* description = row >= 0 ? CommandDescription(row) : nullptr;
    SetStatusText(PaneMessage, description != nullptr ? description : "", false);
}

void OnDropFiles(HDROP drop) {
    const UINT count = DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        if (DragQueryFileA(drop, i, nullptr, 0) >= MaxDroppedName) continue;
        char name[MaxDroppedName];
        if (DragQueryFileA(drop, i, name, sizeof name) == 0) continue;
        (void)openFile(name, 0, 0, KindDocument);
    }
    DragFinish(drop);
}

void OnHandOver(WPARAM wParam, LPARAM lParam) {
    if (wParam != 1 || lParam == 0) return;
    char name[MaxDroppedName];
    if (GlobalGetAtomNameA(static_cast<ATOM>(lParam), name, sizeof name) == 0) return;
    BringFrameForward();
    if (EditBuffer* open = findBufferByPath(name)) {
        TheEditor().host.ActivateEditWindow(*open);
    } else {
        newOrOpen(name, 0);
    }
}

HWND FirstMdiChild() {
    for (HWND child = GetWindow(Shell().mdiClient, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (GetWindow(child, GW_OWNER) == nullptr) return child; // skip icon titles
    }
    return nullptr;
}

// Every edit window is asked in turn and closed when it agrees; the first refusal stops.
bool CloseAllEditWindows() {
    while (HWND child = FirstMdiChild()) {
        SendMessageA(Shell().mdiClient, WM_MDIRESTORE, reinterpret_cast<WPARAM>(child), 0);
        if (SendMessageA(child, WM_QUERYENDSESSION, 0, 0) == 0) return false;
        SendMessageA(Shell().mdiClient, WM_MDIDESTROY, reinterpret_cast<WPARAM>(child), 0);
    }
    return true;
}

} // namespace

LRESULT CALLBACK FrameWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    HWND client = Shell().mdiClient;
    switch (message) {
    case WM_CREATE:
        OnCreate(window);
        return 0;
    case WM_DESTROY:
        DragAcceptFiles(window, FALSE);
        PostQuitMessage(0);
        return 0;
    case WM_MOVE:
        OnMove(window);
        break;
    case WM_SIZE:
        OnSize(window, LOWORD(lParam), HIWORD(lParam));
        return 0; // the children are placed here, not by the default frame procedure
    case RelayoutMessage:
        LayOutChildren();
        return 0;
    case WM_GETMINMAXINFO: {
        auto* limits = reinterpret_cast<MINMAXINFO*>(lParam);
        limits->ptMinTrackSize.x = MinimumTrackWidth;
        limits->ptMinTrackSize.y = MinimumTrackHeight;
        return 0;
    }
    case WM_COMMAND:
        return OnCommand(window, wParam, lParam);
    case WM_MENUSELECT:
        OnMenuSelect(wParam);
        break;
    case WM_DROPFILES:
        OnDropFiles(reinterpret_cast<HDROP>(wParam));
        return 0;
    case HandOverMessage:
        OnHandOver(wParam, lParam);
        return 0;
    case WM_ACTIVATE:
        SetCommandsEnabled(NeedsClipboardText, TheEditor().host.ClipboardHasText());
        break;
    case WM_SETFOCUS:
        checkAllChangedOnDisk();
        break;
    case WM_SYSCOLORCHANGE:
        Ctl3dColorChanged();
        break;
    case WM_CLOSE:
    case WM_QUERYENDSESSION:
        if (client != nullptr && !CloseAllEditWindows()) return 0;
        break;
    default:
        break;
    }
    return DefFrameProcA(window, client, message, wParam, lParam);
}

HWND CreateFrameWindow(HINSTANCE instance, const WindowPlacement& placement, HMENU menu) {
    return CreateWindowExA(0, FrameClassName, ProgramTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                           placement.left, placement.top, placement.width, placement.height,
                           nullptr, menu, instance, nullptr);
}

void RequestRelayout() {
    if (HWND frame = Shell().frame) PostMessageA(frame, RelayoutMessage, 0, 0);
}

void BringFrameForward() {
    HWND frame = Shell().frame;
    if (frame == nullptr) return;
    if (IsIconic(frame)) ShowWindow(frame, SW_RESTORE);
    SetForegroundWindow(frame);
}

void OpenCommandLineFiles(const char* commandLine) {
    for (const std::string& name : SplitFileNames(commandLine))
        newOrOpen(name, 0);
}

} // namespace ruvo
