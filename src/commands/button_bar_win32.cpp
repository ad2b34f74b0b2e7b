// The button bar window: the pictures with their embossed grey copies, drawing of the faces,
// the mouse and the tooltips with the commands' labels.
#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

#include "commands/button_bar.h"
#include "commands/command_table.h"
#include "commands/commands_win32.h"
#include "engine/editor.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

constexpr COLORREF LightGrey = RGB(192, 192, 192);
constexpr COLORREF DarkGrey = RGB(128, 128, 128);
constexpr COLORREF White = RGB(255, 255, 255);
// Monochrome from colour: the source's background colour becomes 1. With a white brush,
// (S & P) | (~S & D) adds the pixels of a second background colour to the mask.
constexpr DWORD MaskAddBackground = 0xE20746;
// ((D ^ P) & S) ^ P: the brush where the mask is 0 (the picture's own pixels), D elsewhere.
constexpr DWORD BrushThroughMask = 0xB8074A;

struct Pictures {
    HBITMAP picture = nullptr;
    HBITMAP grey = nullptr;
};

// Pictures by handle - 1; a freed slot is reused.
std::vector<std::optional<Pictures>> pictureSlots;
HBITMAP faceBitmap = nullptr; // "But28": the raised face at x 0, the pushed one at x 28
HWND tooltip = nullptr;
bool trackingLeave = false;

ButtonBar& Bar() {
    return TheEditor().customisation.buttonBar;
}

const Pictures* PicturesOf(uintptr_t handle) {
    if (handle == 0 || handle > pictureSlots.size() || !pictureSlots[handle - 1]) return nullptr;
    return &*pictureSlots[handle - 1];
}

// Grey and white pixels count as background; everything else is embossed: white one pixel
// right and down, dark grey in place.
void MakeGreyCopy(HBITMAP bitmap) {
    HDC screen = GetDC(nullptr);
    HDC copyDc = CreateCompatibleDC(screen);
    HDC maskDc = CreateCompatibleDC(screen);
    ReleaseDC(nullptr, screen);
    HBITMAP mask = CreateBitmap(PictureSize, PictureSize, 1, 1, nullptr);
    HGDIOBJ oldCopy = SelectObject(copyDc, bitmap);
    HGDIOBJ oldMask = SelectObject(maskDc, mask);
    HGDIOBJ oldMaskBrush = SelectObject(maskDc, GetStockObject(WHITE_BRUSH));

    SetBkColor(copyDc, LightGrey);
    BitBlt(maskDc, 0, 0, PictureSize, PictureSize, copyDc, 0, 0, SRCCOPY);
    SetBkColor(copyDc, White);
    BitBlt(maskDc, 0, 0, PictureSize, PictureSize, copyDc, 0, 0, MaskAddBackground);

    SetBkColor(copyDc, White);
    SetTextColor(copyDc, RGB(0, 0, 0));
    HGDIOBJ oldBrush = SelectObject(copyDc, GetStockObject(WHITE_BRUSH));
    BitBlt(copyDc, 1, 1, PictureSize - 1, PictureSize - 1, maskDc, 0, 0, BrushThroughMask);
    HBRUSH dark = CreateSolidBrush(DarkGrey);
    SelectObject(copyDc, dark);
    BitBlt(copyDc, 0, 0, PictureSize, PictureSize, maskDc, 0, 0, BrushThroughMask);

    SelectObject(copyDc, oldBrush);
    SelectObject(copyDc, oldCopy);
    SelectObject(maskDc, oldMaskBrush);
    SelectObject(maskDc, oldMask);
    DeleteObject(dark);
    DeleteObject(mask);
    DeleteDC(maskDc);
    DeleteDC(copyDc);
}

// The face, with the picture on it (one pixel further when pressed), put on the bar at once.
void DrawButton(HDC dc, const ToolButton& button) {
    const Pictures* pictures = PicturesOf(button.pictures);
    if (pictures == nullptr || faceBitmap == nullptr) return;
    HDC work = CreateCompatibleDC(dc);
    HDC source = CreateCompatibleDC(dc);
    HBITMAP canvas = CreateCompatibleBitmap(dc, ButtonSize, ButtonSize);
    HGDIOBJ oldWork = SelectObject(work, canvas);
    HGDIOBJ oldSource = SelectObject(source, faceBitmap);
    BitBlt(work, 0, 0, ButtonSize, ButtonSize, source, button.pressed ? ButtonSize : 0, 0, SRCCOPY);
    SelectObject(source, button.disabled ? pictures->grey : pictures->picture);
    const int offset = button.pressed ? 5 : 4;
    BitBlt(work, offset, offset, PictureSize, PictureSize, source, 0, 0, SRCCOPY);
    BitBlt(dc, button.x, button.y, ButtonSize, ButtonSize, work, 0, 0, SRCCOPY);
    SelectObject(source, oldSource);
    SelectObject(work, oldWork);
    DeleteObject(canvas);
    DeleteDC(source);
    DeleteDC(work);
}

TTTOOLINFOA ToolOf(HWND bar, int index) {
    TTTOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;
    tool.hwnd = bar;
    tool.uId = static_cast<UINT_PTR>(index);
    const ToolButton& button = Bar().buttons[index];
    tool.rect = {button.x, button.y, button.x + ButtonSize, button.y + ButtonSize};
    return tool;
}

void CreateTooltips(HWND bar) {
    InitCommonControls();
    tooltip = CreateWindowExA(0, TOOLTIPS_CLASSA, nullptr, TTS_ALWAYSTIP, CW_USEDEFAULT,
                              CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, bar, nullptr,
                              TheWinHost().shell.instance, nullptr);
    if (tooltip == nullptr) return;
    for (int i = 0; i < Bar().count; ++i) {
        TTTOOLINFOA tool = ToolOf(bar, i);
        tool.lpszText = const_cast<char*>(CommandLabel(Bar().buttons[i].command));
        SendMessageA(tooltip, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

void Paint(HWND bar) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(bar, &paint);
    RECT client;
    GetClientRect(bar, &client);
    const bool left = TheEditor().settings.options.buttonsLeft;
    (void)BarThickness(left ? client.bottom : client.right, false);
    LayOutButtons();
    for (int i = 0; tooltip != nullptr && i < Bar().count; ++i) {
        TTTOOLINFOA tool = ToolOf(bar, i);
        SendMessageA(tooltip, TTM_NEWTOOLRECTA, 0, reinterpret_cast<LPARAM>(&tool));
    }
    // A line on the edge that faces the text; a top bar also has a white line along its top.
    HPEN dark = CreatePen(PS_SOLID, 1, DarkGrey);
    HGDIOBJ oldPen = SelectObject(dc, dark);
    if (left) {
        MoveToEx(dc, client.right - 1, 0, nullptr);
        LineTo(dc, client.right - 1, client.bottom);
    } else {
        MoveToEx(dc, 0, client.bottom - 1, nullptr);
        LineTo(dc, client.right, client.bottom - 1);
        SelectObject(dc, GetStockObject(WHITE_PEN));
        MoveToEx(dc, 0, 0, nullptr);
        LineTo(dc, client.right, 0);
    }
    SelectObject(dc, oldPen);
    DeleteObject(dark);
    for (int i = 0; i < Bar().count; ++i)
        DrawButton(dc, Bar().buttons[i]);
    EndPaint(bar, &paint);
}

void RelayToTooltip(HWND bar, UINT message, WPARAM wParam, LPARAM lParam) {
    if (tooltip == nullptr) return;
    MSG relayed{};
    relayed.hwnd = bar;
    relayed.message = message;
    relayed.wParam = wParam;
    relayed.lParam = lParam;
    SendMessageA(tooltip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

int Thickness(int length, bool /*left*/) {
    return BarThickness(length, true);
}

} // namespace

LRESULT CALLBACK ButtonBarWindowProc(HWND bar, UINT message, WPARAM wParam, LPARAM lParam) {
    const int x = static_cast<short>(LOWORD(lParam));
    const int y = static_cast<short>(HIWORD(lParam));
    switch (message) {
    case WM_CREATE: {
        ShellState& shell = TheWinHost().shell;
        shell.buttonBar = bar;
        if (faceBitmap == nullptr) faceBitmap = LoadBitmapA(shell.instance, "But28");
        LoadButtons();
        CreateTooltips(bar);
        shell.buttonBarThickness = Thickness;
        return 0;
    }
    case WM_DESTROY:
        if (tooltip != nullptr) DestroyWindow(tooltip);
        tooltip = nullptr;
        TheWinHost().shell.buttonBar = nullptr;
        return 0;
    case WM_PAINT:
        Paint(bar);
        return 0;
    case WM_MOUSEMOVE:
        RelayToTooltip(bar, message, wParam, lParam);
        if (!trackingLeave) {
            TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, bar, 0};
            trackingLeave = TrackMouseEvent(&track) != FALSE;
        }
        ButtonBarMouseMoved(x, y);
        return 0;
    case WM_MOUSELEAVE:
        trackingLeave = false;
        ButtonBarMouseMoved(-1, -1);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
        RelayToTooltip(bar, message, wParam, lParam);
        ButtonBarPressed(x, y);
        return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
        RelayToTooltip(bar, message, wParam, lParam);
        return 0;
    default:
        return DefWindowProcA(bar, message, wParam, lParam);
    }
}

void ReleaseButtonBar() {
    ReleaseButtons();
    if (faceBitmap != nullptr) DeleteObject(faceBitmap);
    faceBitmap = nullptr;
}

uintptr_t WinHost::LoadButtonPictures(std::string_view name) {
    const std::string resource(name);
    Pictures loaded;
    loaded.picture = LoadBitmapA(shell.instance, resource.c_str());
    loaded.grey =
        loaded.picture != nullptr ? LoadBitmapA(shell.instance, resource.c_str()) : nullptr;
    if (loaded.grey == nullptr) {
        if (loaded.picture != nullptr) DeleteObject(loaded.picture);
        return 0;
    }
    MakeGreyCopy(loaded.grey);
    for (size_t i = 0; i < pictureSlots.size(); ++i) {
        if (!pictureSlots[i]) {
            pictureSlots[i] = loaded;
            return i + 1;
        }
    }
    pictureSlots.emplace_back(loaded);
    return pictureSlots.size();
}

void WinHost::FreeButtonPictures(uintptr_t handle) {
    const Pictures* pictures = PicturesOf(handle);
    if (pictures == nullptr) return;
    DeleteObject(pictures->picture);
    DeleteObject(pictures->grey);
    pictureSlots[handle - 1].reset();
}

void WinHost::RedrawButton(int index) {
    if (shell.buttonBar == nullptr || index < 0 || index >= Bar().count) return;
    HDC dc = GetDC(shell.buttonBar);
    DrawButton(dc, Bar().buttons[index]);
    ReleaseDC(shell.buttonBar, dc);
}

} // namespace ruvo
