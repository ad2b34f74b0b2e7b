// The shared one-line input dialog: a prompt, one edit of limited length, OK and Cancel. A left
// button released on the background confirms it, a right button pressed cancels it.
#include <windows.h>

#include <algorithm>
#include <string>

#include "ui/ctl3d.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

constexpr const char* InputDialogTemplate = "InputDialog";
constexpr int PromptId = 100; // the control identifiers of the template in res/ruvo.rc
constexpr int TextId = 101;
constexpr int MaxPromptLength = 255;
constexpr int MaxInputLength = 255;
constexpr DWORD Ctl3dAllControls = 0xFFFF;

struct InputRequest {
    std::string prompt;
    std::string text;
    int maxLength = MaxInputLength;
};

std::string FieldText(HWND field) {
    std::string text(static_cast<size_t>(GetWindowTextLengthA(field)) + 1, '\0');
    text.resize(static_cast<size_t>(
        std::max(GetWindowTextA(field, text.data(), static_cast<int>(text.size())), 0)));
    return text;
}

void MoveBy(HWND dialog, HWND control, int dy) {
    RECT r;
    GetWindowRect(control, &r);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&r), 2);
    SetWindowPos(control, nullptr, r.left, r.top + dy, 0, 0, SWP_NOZORDER | SWP_NOSIZE);
}

// A long prompt wraps: its field, and the dialog with it, grow to hold every line.
int FitPrompt(HWND dialog, const std::string& prompt) {
    HWND field = GetDlgItem(dialog, PromptId);
    RECT shown;
    GetClientRect(field, &shown);
    RECT needed = shown;
    HDC dc = GetDC(field);
    HGDIOBJ old =
        SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageA(field, WM_GETFONT, 0, 0)));
    DrawTextA(dc, prompt.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(dc, old);
    ReleaseDC(field, dc);
    const int grow = std::max(0L, needed.bottom - shown.bottom);
    if (grow == 0) return 0;
    SetWindowPos(field, nullptr, 0, 0, shown.right, shown.bottom + grow, SWP_NOZORDER | SWP_NOMOVE);
    for (const int id : {TextId, IDOK, IDCANCEL})
        MoveBy(dialog, GetDlgItem(dialog, id), grow);
    return grow;
}

void CentreOverFrame(HWND dialog, int grow) {
    RECT box;
    GetWindowRect(dialog, &box);
    const int width = box.right - box.left;
    const int height = box.bottom - box.top + grow;
    RECT screen{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &screen, 0);
    RECT owner = screen;
    if (HWND frame = TheWinHost().shell.frame) GetWindowRect(frame, &owner);
    const int x = owner.left + (owner.right - owner.left - width) / 2;
    const int y = owner.top + (owner.bottom - owner.top - height) / 2;
    SetWindowPos(
        dialog, nullptr,
        std::clamp<LONG>(x, screen.left, std::max<LONG>(screen.left, screen.right - width)),
        std::clamp<LONG>(y, screen.top, std::max<LONG>(screen.top, screen.bottom - height)), width,
        height, SWP_NOZORDER);
}

void Accept(HWND dialog, InputRequest& request) {
    request.text = FieldText(GetDlgItem(dialog, TextId));
    EndDialog(dialog, IDOK);
}

INT_PTR CALLBACK InputDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto& request = *reinterpret_cast<InputRequest*>(lParam);
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
        SetDlgItemTextA(dialog, PromptId, request.prompt.c_str());
        HWND field = GetDlgItem(dialog, TextId);
        SetWindowTextA(field, request.text.c_str());
        SendMessageA(field, EM_LIMITTEXT, static_cast<WPARAM>(request.maxLength), 0);
        CentreOverFrame(dialog, FitPrompt(dialog, request.prompt));
        Ctl3dSubclassDialog(dialog, Ctl3dAllControls);
        SetFocus(field);
        SendMessageA(field, EM_SETSEL, 0, -1);
        return FALSE;
    }
    auto* request = reinterpret_cast<InputRequest*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (request == nullptr) return FALSE;
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) {
            Accept(dialog, *request);
            return TRUE;
        }
        if (LOWORD(wParam) == IDCANCEL) {
            EndDialog(dialog, IDCANCEL);
            return TRUE;
        }
        return FALSE;
    case WM_LBUTTONUP:
        Accept(dialog, *request);
        return TRUE;
    case WM_RBUTTONDOWN:
        EndDialog(dialog, IDCANCEL);
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace

std::optional<std::string> WinHost::InputDialog(std::string_view prompt, std::string_view initial,
                                                int maxLength) {
    InputRequest request;
    request.prompt = std::string(prompt.substr(0, MaxPromptLength));
    request.text = std::string(initial);
    request.maxLength = std::clamp(maxLength, 1, MaxInputLength);
    const INT_PTR result = DialogBoxParamA(shell.instance, InputDialogTemplate, PopupOwner(),
                                           InputDialogProc, reinterpret_cast<LPARAM>(&request));
    if (result != IDOK) return std::nullopt;
    return request.text;
}

} // namespace ruvo
