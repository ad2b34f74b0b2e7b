// Edit window: links the MDI child to its buffer, tracks the current buffer, plain text paint.
#include "ui/edit_window.h"

#include <algorithm>
#include <cstring>

#include "docs/documents.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "ui/win_host.h"
#include "ui/window_classes.h"

namespace ruvo {

namespace {

void SetBuffer(HWND window, EditBuffer* buffer) {
    SetWindowLongPtrA(window, 0, reinterpret_cast<LONG_PTR>(buffer));
}

struct CellSize {
    int width = 1;
    int height = 1;
};

CellSize FontCell(HDC dc) {
    TEXTMETRICA metrics;
    GetTextMetricsA(dc, &metrics);
    return {std::max<int>(1, metrics.tmAveCharWidth), std::max<int>(1, metrics.tmHeight)};
}

// Plain text is drawn in the fixed system font; the coloured display brings the editor font.
void Measure(HWND window, HDC dc, EditBuffer& buffer) {
    HGDIOBJ oldFont = SelectObject(dc, GetStockObject(SYSTEM_FIXED_FONT));
    const CellSize cell = FontCell(dc);
    SelectObject(dc, oldFont);
    RECT client;
    GetClientRect(window, &client);
    buffer.clientWidth = static_cast<int16_t>(client.right);
    buffer.windowColumns = static_cast<int16_t>(client.right / cell.width);
    buffer.marginWidth = static_cast<int16_t>(buffer.marginColumns * cell.width);
    buffer.visibleLines = static_cast<int16_t>(client.bottom / cell.height);
    buffer.visibleColumns = static_cast<int16_t>(buffer.windowColumns - buffer.marginColumns);
}

void MeasureNow(HWND window, EditBuffer& buffer) {
    HDC dc = GetDC(window);
    Measure(window, dc, buffer);
    ReleaseDC(window, dc);
}

void PaintPlainText(HWND window, EditBuffer& buffer) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    Measure(window, dc, buffer);
    HGDIOBJ oldFont = SelectObject(dc, GetStockObject(SYSTEM_FIXED_FONT));
    const CellSize cell = FontCell(dc);
    SetTextColor(dc, RGB(0, 0, 0));
    SetBkColor(dc, RGB(255, 255, 255));
    const LineList& lines = buffer.lines;
    for (int row = 0; row <= buffer.visibleLines; ++row) {
        const int line = buffer.topLine + row;
        if (line < 0 || line >= lines.lineCount) break;
        const char* text = lines.lineText[line];
        const int length = static_cast<int>(std::strlen(text));
        if (buffer.leftColumn < length) {
            TextOutA(dc, buffer.marginWidth, row * cell.height, text + buffer.leftColumn,
                     length - buffer.leftColumn);
        }
    }
    SelectObject(dc, oldFont);
    EndPaint(window, &paint);
}

} // namespace

LRESULT CALLBACK EditWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE: {
        const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        const auto* mdiCreate = static_cast<const MDICREATESTRUCTA*>(create->lpCreateParams);
        auto* buffer = reinterpret_cast<EditBuffer*>(mdiCreate->lParam);
        SetBuffer(window, buffer);
        if (buffer != nullptr) {
            buffer->hwnd = window;
            MeasureNow(window, *buffer);
        }
        break;
    }
    case WM_SIZE:
        // Page moves and scrolling use the visible rows and columns before the first paint.
        if (EditBuffer* buffer = BufferOfWindow(window)) MeasureNow(window, *buffer);
        break;
    case WM_MDIACTIVATE: {
        EditBuffer* buffer = BufferOfWindow(window);
        EditBuffer*& current = TheEditor().engine.currentBuffer;
        if (reinterpret_cast<HWND>(lParam) == window) {
            current = buffer;
            if (buffer != nullptr) TheEditor().host.UpdateCaretAndStatus(*buffer);
        } else if (current == buffer) {
            current = nullptr;
        }
        break;
    }
    case WM_PAINT:
        if (EditBuffer* buffer = BufferOfWindow(window)) {
            PaintPlainText(window, *buffer);
            return 0;
        }
        break;
    case WM_DESTROY:
        if (EditBuffer* buffer = BufferOfWindow(window)) {
            // closeBuffer also hands the current buffer on to another open one.
            SetBuffer(window, nullptr);
            buffer->hwnd = nullptr;
            closeBuffer(*buffer);
        }
        break;
    default:
        break;
    }
    return DefMDIChildProcA(window, message, wParam, lParam);
}

HWND CreateEditWindowFor(EditBuffer& buffer) {
    const ShellState& shell = TheWinHost().shell;
    if (shell.mdiClient == nullptr) return nullptr;
    DWORD style = 0;
    // The first window of a session may open maximised.
    const bool firstChild = SendMessageA(shell.mdiClient, WM_MDIGETACTIVE, 0, 0) == 0;
    if (firstChild && TheEditor().settings.options.firstChildMaximized) style |= WS_MAXIMIZE;

    MDICREATESTRUCTA create{};
    create.szClass = EditClassName;
    create.szTitle = buffer.fileName;
    create.hOwner = shell.instance;
    create.x = CW_USEDEFAULT;
    create.y = CW_USEDEFAULT;
    create.cx = CW_USEDEFAULT;
    create.cy = CW_USEDEFAULT;
    create.style = style | WS_VSCROLL | WS_HSCROLL;
    create.lParam = reinterpret_cast<LPARAM>(&buffer);
    return reinterpret_cast<HWND>(
        SendMessageA(shell.mdiClient, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&create)));
}

EditBuffer* BufferOfWindow(HWND window) {
    if (window == nullptr) return nullptr;
    char className[32];
    if (GetClassNameA(window, className, sizeof className) == 0 ||
        std::strcmp(className, EditClassName) != 0) {
        return nullptr;
    }
    return reinterpret_cast<EditBuffer*>(GetWindowLongPtrA(window, 0));
}

EditBuffer* ActiveEditBuffer() {
    HWND client = TheWinHost().shell.mdiClient;
    if (client == nullptr) return nullptr;
    return BufferOfWindow(reinterpret_cast<HWND>(SendMessageA(client, WM_MDIGETACTIVE, 0, 0)));
}

} // namespace ruvo
