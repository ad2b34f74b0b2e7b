// Caret of the edit windows: one per program, owned by the window with the focus.
#include "ui/caret.h"

#include <windows.h>

#include "engine/edit_buffer.h"
#include "engine/line_layout.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

HWND& CaretWindow() {
    return TheWinHost().shell.caretWindow;
}

} // namespace

void MakeCaret(EditBuffer& buffer) {
    HWND window = static_cast<HWND>(buffer.hwnd);
    DestroyEditCaret();
    if (window == nullptr || !CreateCaret(window, nullptr, CaretWidth(), LineHeight())) return;
    CaretWindow() = window;
    PlaceCaret(buffer);
    ShowCaret(window);
}

void PlaceCaret(EditBuffer& buffer) {
    HWND window = static_cast<HWND>(buffer.hwnd);
    if (window == nullptr || window != CaretWindow()) return;
    const CaretPixel place = CaretPosition(buffer);
    SetCaretPos(place.x, place.y);
}

void DestroyEditCaret() {
    HWND window = CaretWindow();
    if (window == nullptr) return;
    HideCaret(window);
    DestroyCaret();
    CaretWindow() = nullptr;
}

} // namespace ruvo
