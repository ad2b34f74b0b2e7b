// WinHost: the common file dialogs, the LZ file copy, the busy cursor and the progress window.
#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <lzexpand.h>

#include <algorithm>

#include "ui/win_host.h"

namespace ruvo {

namespace {

constexpr int FileNameCapacity = 256; // 255 characters and the terminator
constexpr int ProgressWidth = 320;
constexpr int ProgressHeight = 110;

} // namespace

std::optional<FileDialogResult> WinHost::FileDialog(const FileDialogRequest& request) {
    // The common dialog wants description/pattern pairs separated by NULs, ending in two.
    std::string filter = request.filter;
    std::replace(filter.begin(), filter.end(), '|', '\0');
    filter.push_back('\0');
    filter.push_back('\0');

    char fileName[FileNameCapacity] = {};
    request.initialName.copy(fileName, FileNameCapacity - 1);

    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = shell.frame;
    dialog.hInstance = shell.instance;
    dialog.lpstrFilter = request.filter.empty() ? nullptr : filter.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = fileName;
    dialog.nMaxFile = FileNameCapacity;
    dialog.lpstrInitialDir =
        request.initialDirectory.empty() ? nullptr : request.initialDirectory.c_str();
    dialog.lpstrTitle = request.title.empty() ? nullptr : request.title.c_str();
    dialog.Flags = OFN_NOCHANGEDIR;
    BOOL chosen = FALSE;
    if (request.save) {
        dialog.Flags |= OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
        chosen = GetSaveFileNameA(&dialog);
    } else {
        dialog.Flags |= OFN_PATHMUSTEXIST;
        chosen = GetOpenFileNameA(&dialog);
    }
    if (!chosen) return std::nullopt;

    FileDialogResult result;
    result.fileName = fileName;
    result.directory =
        result.fileName.substr(0, std::min<size_t>(dialog.nFileOffset, result.fileName.size()));
    result.readOnly = !request.save && (dialog.Flags & OFN_READONLY) != 0;
    return result;
}

long WinHost::LzCopy(std::string_view source, std::string_view target) {
    const std::string sourceName(source);
    const std::string targetName(target);
    OFSTRUCT sourceInfo{};
    OFSTRUCT targetInfo{};
    const INT in = LZOpenFileA(const_cast<char*>(sourceName.c_str()), &sourceInfo, OF_READ);
    if (in < 0) return LzSourceNotOpened;
    const INT out =
        LZOpenFileA(const_cast<char*>(targetName.c_str()), &targetInfo, OF_CREATE | OF_WRITE);
    if (out < 0) {
        LZClose(in);
        return LzTargetNotCreated;
    }
    const LONG copied = LZCopy(in, out);
    LZClose(in);
    LZClose(out);
    return copied;
}

void WinHost::MapMemoryAhead(void* block, size_t bytes) {
    // Locking maps every page at once (under Wine one mlock rather than a fault per page, which
    // halves the start with a large file); where the working set is too small for the block it
    // fails and the pages come one at a time as before.
    if (VirtualLock(block, bytes)) VirtualUnlock(block, bytes);
}

void WinHost::SetBusyCursor(bool busy) {
    if (busy) {
        if (busyDepth_++ == 0) cursorBeforeBusy_ = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
        return;
    }
    if (busyDepth_ == 0) return;
    if (--busyDepth_ == 0) {
        SetCursor(cursorBeforeBusy_ != nullptr ? cursorBeforeBusy_
                                               : LoadCursorA(nullptr, IDC_ARROW));
        cursorBeforeBusy_ = nullptr;
    }
}

// A captioned pop-up over the frame with a line of text and a progress bar. It is drawn
// directly because no messages are handled while a long save runs.
void WinHost::ShowProgress(std::string_view title, int total) {
    HideProgress();
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&controls);

    RECT frame{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    if (shell.frame != nullptr) GetWindowRect(shell.frame, &frame);
    const int x = frame.left + (frame.right - frame.left - ProgressWidth) / 2;
    const int y = frame.top + (frame.bottom - frame.top - ProgressHeight) / 2;
    const std::string caption(title);
    progressWindow_ = CreateWindowExA(
        WS_EX_DLGMODALFRAME, WC_DIALOG, caption.c_str(), WS_POPUP | WS_CAPTION | WS_VISIBLE, x, y,
        ProgressWidth, ProgressHeight, shell.frame, nullptr, shell.instance, nullptr);
    if (progressWindow_ == nullptr) return;
    progressLabel_ =
        CreateWindowExA(0, "STATIC", "", WS_CHILD | WS_VISIBLE | SS_LEFT, 10, 8, ProgressWidth - 30,
                        20, progressWindow_, nullptr, shell.instance, nullptr);
    progressBar_ =
        CreateWindowExA(0, PROGRESS_CLASSA, nullptr, WS_CHILD | WS_VISIBLE, 10, 34,
                        ProgressWidth - 30, 20, progressWindow_, nullptr, shell.instance, nullptr);
    if (progressBar_ != nullptr) {
        SendMessageA(progressBar_, PBM_SETRANGE32, 0, std::max(total, 1));
        SendMessageA(progressBar_, PBM_SETPOS, 0, 0);
    }
    UpdateWindow(progressWindow_);
}

void WinHost::UpdateProgress(int done) {
    if (progressBar_ == nullptr) return;
    SendMessageA(progressBar_, PBM_SETPOS, static_cast<WPARAM>(std::max(done, 0)), 0);
    UpdateWindow(progressBar_);
}

void WinHost::SetProgressText(std::string_view text) {
    if (progressLabel_ == nullptr) return;
    SetWindowTextA(progressLabel_, std::string(text).c_str());
    UpdateWindow(progressLabel_);
}

void WinHost::HideProgress() {
    if (progressWindow_ != nullptr) DestroyWindow(progressWindow_);
    progressWindow_ = nullptr;
    progressBar_ = nullptr;
    progressLabel_ = nullptr;
}

} // namespace ruvo
