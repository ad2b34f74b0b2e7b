// WinHost: message boxes, profile, process facts, status line, commands, clipboard, windows.
#include "ui/win_host.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "commands/command_table.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/status_update.h"
#include "engine/text_store.h"
#include "ui/caret.h"
#include "ui/edit_paint.h"
#include "ui/edit_window.h"

namespace ruvo {

namespace {

constexpr int PathCapacity = 256; // 255 characters and the terminator

std::string Terminated(std::string_view text) {
    return std::string(text);
}

} // namespace

WinHost& TheWinHost() {
    return static_cast<WinHost&>(TheEditor().host);
}

// --- Message boxes ---------------------------------------------------------------------------

HWND WinHost::PopupOwner() const {
    // While a modal dialog runs, a box opened from it belongs to it: a box owned by the frame
    // would hand the keys back to the frame when it closes, under the running dialog.
    HWND active = GetActiveWindow();
    if (active != nullptr && active != shell.frame && IsWindowEnabled(active) &&
        GetWindow(active, GW_OWNER) == shell.frame)
        return active;
    return shell.frame;
}

void WinHost::ErrorBox(const char* caption, std::string_view text) {
    MessageBoxA(PopupOwner(), Terminated(text).c_str(), caption, MB_OK | MB_ICONSTOP);
}

int WinHost::QuestionBox(const char* caption, std::string_view text, QuestionKind kind) {
    UINT buttons = 0;
    switch (kind) {
    case QuestionKind::YesNoCancel:
        buttons = MB_YESNOCANCEL;
        break;
    case QuestionKind::OkCancel:
        buttons = MB_OKCANCEL;
        break;
    case QuestionKind::YesNo:
        buttons = MB_YESNO;
        break;
    default:
        return AnswerNo;
    }
    const int answer = MessageBoxA(PopupOwner(), Terminated(text).c_str(), caption,
                                   buttons | MB_ICONQUESTION | MB_TASKMODAL);
    if (answer == IDYES || answer == IDOK) return AnswerYes;
    if (answer == IDCANCEL && kind == QuestionKind::YesNoCancel) return AnswerCancel;
    return AnswerNo;
}

void WinHost::ErrorStream(std::string_view text) {
    OutputDebugStringA(Terminated(text).c_str());
}

// --- Private profile -------------------------------------------------------------------------

std::string WinHost::ProfileGetString(std::string_view file, std::string_view section,
                                      std::string_view key, std::string_view defaultValue,
                                      int capacity) {
    if (capacity <= 0) return {};
    std::string value(static_cast<size_t>(capacity), '\0');
    const DWORD length = GetPrivateProfileStringA(
        Terminated(section).c_str(), Terminated(key).c_str(), Terminated(defaultValue).c_str(),
        value.data(), static_cast<DWORD>(capacity), Terminated(file).c_str());
    value.resize(std::min<size_t>(length, static_cast<size_t>(capacity - 1)));
    return value;
}

int WinHost::ProfileGetInt(std::string_view file, std::string_view section, std::string_view key,
                           int defaultValue) {
    return static_cast<int>(GetPrivateProfileIntA(Terminated(section).c_str(),
                                                  Terminated(key).c_str(), defaultValue,
                                                  Terminated(file).c_str()));
}

bool WinHost::ProfileWriteString(std::string_view file, std::string_view section,
                                 std::string_view key, std::string_view value) {
    return WritePrivateProfileStringA(Terminated(section).c_str(), Terminated(key).c_str(),
                                      Terminated(value).c_str(), Terminated(file).c_str()) != FALSE;
}

// --- Process environment ---------------------------------------------------------------------

std::string WinHost::ProgramPath() {
    char path[PathCapacity] = {};
    // The size counts the terminator: a path of up to 255 characters comes back whole.
    const DWORD length = GetModuleFileNameA(nullptr, path, PathCapacity);
    return std::string(path, std::min<DWORD>(length, PathCapacity - 1));
}

std::string WinHost::Environment(std::string_view name) {
    const std::string key = Terminated(name);
    const DWORD needed = GetEnvironmentVariableA(key.c_str(), nullptr, 0);
    if (needed == 0) return {};
    std::string value(needed, '\0');
    const DWORD length = GetEnvironmentVariableA(key.c_str(), value.data(), needed);
    value.resize(length < needed ? length : 0);
    return value;
}

std::string WinHost::CurrentDirectory() {
    char directory[PathCapacity] = {};
    const DWORD length = GetCurrentDirectoryA(PathCapacity, directory);
    if (length == 0 || length >= PathCapacity) return {};
    return std::string(directory, length);
}

// --- Status line -----------------------------------------------------------------------------

void WinHost::SetStatusPane(int pane, std::string_view text, bool beep) {
    SetStatusText(pane, text, beep);
}

void WinHost::Beep() {
    MessageBeep(MB_OK);
}

// --- Commands --------------------------------------------------------------------------------

void WinHost::EnableCommand(int commandIndex, bool enabled) {
    HMENU menu = shell.menuBar;
    if (menu == nullptr) return;
    EnableMenuItem(menu, static_cast<UINT>(CommandMenuIdBase + commandIndex),
                   MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
}

void WinHost::PostCloseFrame() {
    if (shell.frame != nullptr) PostMessageA(shell.frame, WM_CLOSE, 0, 0);
}

// --- Clipboard -------------------------------------------------------------------------------

bool WinHost::ClipboardHasText() {
    return IsClipboardFormatAvailable(CF_TEXT) != FALSE;
}

std::optional<std::string> WinHost::ClipboardGetText() {
    if (!OpenClipboard(shell.frame)) return std::nullopt;
    std::optional<std::string> text;
    if (HANDLE data = GetClipboardData(CF_TEXT)) {
        if (const char* bytes = static_cast<const char*>(GlobalLock(data))) {
            text = std::string(bytes, strnlen(bytes, GlobalSize(data)));
            GlobalUnlock(data);
        }
    }
    CloseClipboard();
    return text;
}

bool WinHost::ClipboardSetText(std::string_view text) {
    HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, text.size() + 1);
    if (data == nullptr) return false;
    char* bytes = static_cast<char*>(GlobalLock(data));
    if (bytes == nullptr) {
        GlobalFree(data);
        return false;
    }
    std::memcpy(bytes, text.data(), text.size());
    GlobalUnlock(data);
    if (!OpenClipboard(shell.frame)) {
        GlobalFree(data);
        return false;
    }
    EmptyClipboard();
    const bool placed = SetClipboardData(CF_TEXT, data) != nullptr;
    CloseClipboard();
    if (!placed) GlobalFree(data); // on success the clipboard owns the memory
    return placed;
}

// --- Edit windows ----------------------------------------------------------------------------

bool WinHost::HoldRedraw(EditBuffer& buffer) {
    if (!holdingDrawing) return false;
    if (std::find(heldWindows.begin(), heldWindows.end(), &buffer) == heldWindows.end())
        heldWindows.push_back(&buffer);
    return true;
}

bool WinHost::CreateEditWindow(EditBuffer& buffer) {
    HWND window = CreateEditWindowFor(buffer);
    if (window == nullptr) return false;
    buffer.hwnd = window;
    return true;
}

void WinHost::SetWindowTitle(EditBuffer& buffer, std::string_view title) {
    if (buffer.hwnd != nullptr) {
        SetWindowTextA(static_cast<HWND>(buffer.hwnd), Terminated(title).c_str());
    }
}

void WinHost::ActivateEditWindow(EditBuffer& buffer) {
    HWND window = static_cast<HWND>(buffer.hwnd);
    if (window == nullptr || shell.mdiClient == nullptr) return;
    if (IsIconic(window)) {
        SendMessageA(shell.mdiClient, WM_MDIRESTORE, reinterpret_cast<WPARAM>(window), 0);
    }
    SendMessageA(shell.mdiClient, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(window), 0);
    SetFocus(window);
    TheEditor().engine.currentBuffer = &buffer;
}

void WinHost::RedrawLine(EditBuffer& buffer, int line) {
    if (HoldRedraw(buffer)) return;
    const int row = line - buffer.topLine;
    if (row < 0 || row > buffer.visibleLines) return;
    PaintEditLinesNow(buffer, line, line, false);
}

void WinHost::RedrawWindow(EditBuffer& buffer) {
    if (HoldRedraw(buffer)) return;
    PaintEditLinesNow(buffer, 0, buffer.lines.lineCount, true);
}

void WinHost::UpdateCaretAndStatus(EditBuffer& buffer) {
    if (&buffer != TheEditor().engine.currentBuffer) return; // the status shows the current one
    UpdateStatus(buffer);
    // Placed even when line and column stayed: the view may have moved under the caret.
    PlaceCaret(buffer);
}

void WinHost::DrawFoundText(EditBuffer& buffer, int line, int startColumn, int endColumn) {
    DrawInvertedText(buffer, line, startColumn, endColumn);
}

void WinHost::ScrollPositionChanged(EditBuffer&) {
    // Nothing left to do: the scroll boxes follow through SetScrollBarPos when their values
    // change, and the edit that scrolled repaints the window itself.
}

// --- Recent files ----------------------------------------------------------------------------

void WinHost::RecentFilesChanged(const std::vector<std::string>& labels) {
    HMENU menu = shell.menuBar;
    if (menu == nullptr) return;
    for (size_t i = 0; i < labels.size(); ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "LoadMRUFile%d", static_cast<int>(i + 1));
        int row = -1;
        if (CommandByName(name, nullptr, false, &row) == nullptr || row < 0) continue;
        const UINT id = static_cast<UINT>(CommandMenuIdBase + row);
        if (GetMenuState(menu, id, MF_BYCOMMAND) == static_cast<UINT>(-1)) continue;
        ModifyMenuA(menu, id, MF_BYCOMMAND | MF_STRING, id, labels[i].c_str());
    }
}

// --- Window menu -----------------------------------------------------------------------------

void WinHost::ArrangeEditWindows(WindowArrangement how) {
    if (shell.mdiClient == nullptr) return;
    switch (how) {
    case WindowArrangement::Cascade:
        SendMessageA(shell.mdiClient, WM_MDICASCADE, 0, 0);
        break;
    case WindowArrangement::TileVertical:
        SendMessageA(shell.mdiClient, WM_MDITILE, MDITILE_VERTICAL, 0);
        break;
    case WindowArrangement::TileHorizontal:
        SendMessageA(shell.mdiClient, WM_MDITILE, MDITILE_HORIZONTAL, 0);
        break;
    case WindowArrangement::Next:
        SendMessageA(shell.mdiClient, WM_MDINEXT, 0, 0);
        break;
    case WindowArrangement::Previous:
        SendMessageA(shell.mdiClient, WM_MDINEXT, 0, 1);
        break;
    }
}

} // namespace ruvo
