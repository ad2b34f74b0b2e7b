// The editor font: created from the options, selected into the edit windows, measured.
#include "ui/editor_font.h"

#include "docs/documents.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "ui/caret.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

HFONT& FontSlot() {
    return TheWinHost().shell.editorFont;
}

int ScreenPixelsPerInch() {
    HDC screen = GetDC(nullptr);
    const int pixels = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return pixels;
}

} // namespace

bool CreateEditorFont() {
    const Options& options = TheEditor().settings.options;
    HFONT font =
        CreateFontA(EditorFontHeight(options.fontSize, ScreenPixelsPerInch()), 0, 0, 0, FW_NORMAL,
                    FALSE, FALSE, FALSE, ANSI_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS,
                    PROOF_QUALITY, FIXED_PITCH | FF_MODERN, options.font.c_str());
    if (font == nullptr) return false;
    DestroyEditorFont();
    FontSlot() = font;
    return true;
}

HFONT EditorFont() {
    if (FontSlot() == nullptr && !CreateEditorFont())
        return static_cast<HFONT>(GetStockObject(ANSI_FIXED_FONT));
    return FontSlot();
}

void DestroyEditorFont() {
    if (FontSlot() == nullptr) return;
    DeleteObject(FontSlot());
    FontSlot() = nullptr;
}

void MeasureEditWindow(EditBuffer& buffer) {
    HWND window = static_cast<HWND>(buffer.hwnd);
    if (window == nullptr) return;
    HDC dc = GetDC(window);
    SelectObject(dc, EditorFont()); // the class DC keeps it for painting
    TEXTMETRICA metrics;
    if (GetTextMetricsA(dc, &metrics)) SetFontMetrics(metrics.tmAveCharWidth, metrics.tmHeight);
    ReleaseDC(window, dc);
    RECT client;
    GetClientRect(window, &client);
    MeasureBuffer(buffer, client.right - client.left, client.bottom - client.top);
}

void ReapplyEditorFont() {
    if (CreateEditorFont()) RefreshEditWindows();
}

void RefreshEditWindows() {
    (void)forEachBuffer([](EditBuffer& buffer) {
        MeasureEditWindow(buffer); // selects the new font into the class DC as well
        TheEditor().host.RedrawWindow(buffer);
        return 1;
    });
    EditBuffer* current = TheEditor().engine.currentBuffer;
    if (current != nullptr && current->hwnd == TheWinHost().shell.caretWindow) MakeCaret(*current);
}

} // namespace ruvo
