// Edit window painting: puts the core's row layout on the screen with as few DC changes as
// possible.
#include "ui/edit_paint.h"

#include "engine/edit_buffer.h"
#include "engine/line_layout.h"
#include "ui/editor_font.h"

namespace ruvo {

namespace {

constexpr int LineNumberX = 2;
constexpr COLORREF NoColour = 0xFFFFFFFF; // never a COLORREF: forces the first setting

// The colours last set into the device context; unchanged ones are not set again. A fresh
// cache per paint, as other drawing may have changed the context in between. The caller's
// SaveDC/RestoreDC puts back what it selected.
class ColourCache {
  public:
    explicit ColourCache(HDC dc) : dc_(dc) {}

    void Text(COLORREF foreground, COLORREF background) {
        if (foreground != text_) SetTextColor(dc_, text_ = foreground);
        if (background != back_) SetBkColor(dc_, back_ = background);
    }

    // Rows are filled black or white only, so the stock brushes do.
    void Fill(const PixelRect& r, COLORREF colour) {
        if (r.right <= r.left || r.bottom <= r.top) return;
        if (colour != fill_) {
            SelectObject(dc_, GetStockObject(colour == ColorBlack ? BLACK_BRUSH : WHITE_BRUSH));
            fill_ = colour;
        }
        PatBlt(dc_, r.left, r.top, r.right - r.left, r.bottom - r.top, PATCOPY);
    }

    void Reset() { text_ = back_ = fill_ = NoColour; }

  private:
    HDC dc_;
    COLORREF text_ = NoColour;
    COLORREF back_ = NoColour;
    COLORREF fill_ = NoColour;
};

void DrawSegment(HDC dc, const EditBuffer& buffer, const char* text, const RowSegment& segment,
                 int y, ColourCache& colours) {
    if (segment.inverted)
        colours.Text(ColorWhite, ColorBlack);
    else
        colours.Text(segment.color, ColorWhite);
    const int x = TextColumnX(buffer, segment.displayColumn);
    if (segment.hasTabs) {
        // Tabs line up with the text's own column 0, however far it is scrolled.
        int tabStop = TabStopWidth();
        TabbedTextOutA(dc, x, y, text + segment.start, segment.length, 1, &tabStop,
                       TabOriginX(buffer));
    } else {
        TextOutA(dc, x, y, text + segment.start, segment.length);
    }
}

void DrawRow(HDC dc, const EditBuffer& buffer, int line, int row, ColourCache& colours) {
    RowLayout layout;
    LayOutRow(buffer, line, layout);
    const char* text = buffer.lines.lineText[line];
    const int y = row * LineHeight();
    for (int i = 0; i < layout.count; ++i)
        DrawSegment(dc, buffer, text, layout.segments[i], y, colours);
    colours.Fill(RowFillRect(buffer, row, layout.endColumn),
                 layout.fillBlack ? ColorBlack : ColorWhite);
}

void DrawMargin(HDC dc, const EditBuffer& buffer, const PaintPlan& plan, ColourCache& colours) {
    const PixelRect margin = MarginRect(buffer);
    HGDIOBJ oldBrush = SelectObject(dc, GetStockObject(LTGRAY_BRUSH));
    HGDIOBJ oldPen = SelectObject(dc, GetStockObject(BLACK_PEN));
    Rectangle(dc, margin.left, margin.top, margin.right, margin.bottom);

    colours.Text(ColorBlack, ColorLightGrey);
    char number[16];
    for (int line = plan.firstLine; line < plan.endLine; ++line) {
        const int length = LineNumberText(line, number, sizeof number);
        TextOutA(dc, LineNumberX, (line - buffer.topLine) * LineHeight(), number, length);
    }

    ErrorMarker markers[256];
    const int count = CollectErrorMarkers(buffer, plan, markers, 256);
    for (int i = 0; i < count; ++i) {
        HBRUSH fill = CreateSolidBrush(markers[i].color);
        SelectObject(dc, fill);
        const PixelRect box = ErrorMarkerBox(buffer, markers[i].line);
        Ellipse(dc, box.left, box.top, box.right, box.bottom);
        SelectObject(dc, GetStockObject(LTGRAY_BRUSH));
        DeleteObject(fill);
    }
    SelectObject(dc, oldPen);
    SelectObject(dc, oldBrush);
    colours.Reset();
}

} // namespace

void PaintEditRange(HWND window, EditBuffer& buffer, HDC dc, int firstLine, int lastLine,
                    bool full) {
    buffer.displayInfo = dc;
    HideCaret(window);
    const int saved = SaveDC(dc);
    SelectObject(dc, EditorFont());
    SetBkMode(dc, OPAQUE);
    ColourCache colours(dc);

    const PaintPlan plan = PlanPaint(buffer, firstLine, lastLine, full);
    if (plan.margin) DrawMargin(dc, buffer, plan, colours);
    if (plan.clip) {
        // Scrolled text must not run over the margin.
        const PixelRect area = TextClipRect(buffer);
        IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
    }
    for (int line = plan.firstLine; line < plan.endLine; ++line)
        DrawRow(dc, buffer, line, line - buffer.topLine, colours);
    if (plan.blankBelow) colours.Fill(BlankBelowRect(buffer, plan.blankFromRow), ColorWhite);

    RestoreDC(dc, saved);
    ShowCaret(window);
    buffer.displayInfo = nullptr;
}

void PaintEditLinesNow(EditBuffer& buffer, int firstLine, int lastLine, bool full) {
    HWND window = static_cast<HWND>(buffer.hwnd);
    if (window == nullptr || buffer.IsClosed()) return;
    HDC dc = GetDC(window);
    if (dc == nullptr) return;
    PaintEditRange(window, buffer, dc, firstLine, lastLine, full);
    ReleaseDC(window, dc);
}

void DrawInvertedText(EditBuffer& buffer, int line, int startColumn, int endColumn) {
    HWND window = static_cast<HWND>(buffer.hwnd);
    const int row = line - buffer.topLine;
    if (window == nullptr || buffer.IsClosed() || row < 0 || row > buffer.visibleLines) return;
    UpdateWindow(window); // a paint still pending would wipe the highlight out
    HDC dc = GetDC(window);
    if (dc == nullptr) return;
    HideCaret(window);
    const int saved = SaveDC(dc);
    SelectObject(dc, EditorFont());
    SetBkMode(dc, OPAQUE);
    if (buffer.leftColumn != 0) {
        const PixelRect area = TextClipRect(buffer);
        IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
    }
    {
        ColourCache colours(dc);
        const RowSegment segment = InvertedSegment(buffer, line, startColumn, endColumn);
        DrawSegment(dc, buffer, buffer.lines.lineText[line], segment, row * LineHeight(), colours);
    }
    RestoreDC(dc, saved);
    ShowCaret(window);
    ReleaseDC(window, dc);
}

} // namespace ruvo
