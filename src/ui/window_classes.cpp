// Registration of the frame, status line, edit window and button bar classes.
#include "ui/window_classes.h"

#include "commands/commands_win32.h"
#include "ui/edit_window.h"
#include "ui/frame_window.h"
#include "ui/status_window.h"

namespace ruvo {

namespace {

bool Register(HINSTANCE instance, const char* name, WNDPROC procedure, UINT style, HICON icon,
              LPCSTR cursor, HBRUSH background, int windowBytes) {
    WNDCLASSA windowClass{};
    windowClass.style = style;
    windowClass.lpfnWndProc = procedure;
    windowClass.cbWndExtra = windowBytes;
    windowClass.hInstance = instance;
    windowClass.hIcon = icon;
    windowClass.hCursor = LoadCursorA(nullptr, cursor);
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = name;
    return RegisterClassA(&windowClass) != 0;
}

HBRUSH StockBrush(int which) {
    return static_cast<HBRUSH>(GetStockObject(which));
}

} // namespace

bool RegisterWindowClasses(HINSTANCE instance) {
    // System colour brushes are passed as colour index + 1.
    HBRUSH systemBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_WINDOW + 1));
    return Register(instance, FrameClassName, FrameWindowProc, CS_HREDRAW | CS_VREDRAW,
                    LoadIconA(instance, "EditIcon"), IDC_ARROW, systemBackground, 0) &&
           Register(instance, StatusClassName, StatusWindowProc, CS_HREDRAW | CS_VREDRAW, nullptr,
                    IDC_ARROW, StockBrush(LTGRAY_BRUSH), 0) &&
           Register(instance, EditClassName, EditWindowProc,
                    CS_CLASSDC | CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW,
                    LoadIconA(instance, "FileIcon"), IDC_IBEAM, StockBrush(WHITE_BRUSH),
                    EditWindowBytes) &&
           Register(instance, ButtonBarClassName, ButtonBarWindowProc,
                    CS_CLASSDC | CS_HREDRAW | CS_VREDRAW, nullptr, IDC_ARROW,
                    StockBrush(LTGRAY_BRUSH), 0);
}

} // namespace ruvo
