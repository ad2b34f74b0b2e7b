// Pixel layout of the edit windows: metrics, margin, row segments, caret place, font height.
#include "engine/line_layout.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>

#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/text_store.h"
#include "lang/syntax_scanner.h"

namespace ruvo {

namespace {

constexpr int ErrorMarkerSize = 10;
constexpr int ErrorMarkerLeft = 3;
constexpr int32_t ErrorListEnd = -1; // resultLine of the entry that closes the list
constexpr int32_t ErrorListEndToo = -2;
constexpr int32_t ErrorKind = 0; // warnings and notes are marked yellow

DisplayState& Display() {
    return TheEditor().engine.display;
}

int TabSize() {
    const int size = TheEditor().settings.options.tabSize;
    return size > 0 ? size : 1;
}

int16_t Narrow(int value) {
    return static_cast<int16_t>(std::clamp<int>(value, std::numeric_limits<int16_t>::min(),
                                                std::numeric_limits<int16_t>::max()));
}

const char* LineTextOf(const EditBuffer& buffer, int32_t line) {
    const LineList& lines = buffer.lines;
    if (line < 0 || line >= lines.lineCount || lines.lineText == nullptr) return "";
    const char* text = lines.lineText[line];
    return text != nullptr ? text : "";
}

// Screen column after the bytes from..to, starting at screen column `column`.
int32_t AdvanceColumn(const char* text, int32_t from, int32_t to, int32_t column, int tabSize) {
    for (int32_t i = from; i < to; ++i)
        column += text[i] == '\t' ? tabSize - column % tabSize : 1;
    return column;
}

// Builds a row's segments left to right, keeping the screen column.
class SegmentWriter {
  public:
    SegmentWriter(const char* text, RowLayout& layout)
        : text_(text), layout_(layout), tabSize_(TabSize()) {
        layout_.count = 0;
        layout_.endColumn = 0;
        layout_.fillBlack = false;
    }

    void Add(int32_t start, int32_t end, uint32_t color, bool inverted) {
        if (end <= start || layout_.count >= MaxRowSegments) return;
        RowSegment& segment = layout_.segments[layout_.count++];
        segment.start = start;
        segment.length = end - start;
        segment.displayColumn = column_;
        segment.color = inverted ? ColorWhite : color;
        segment.inverted = inverted;
        segment.hasTabs =
            std::memchr(text_ + start, '\t', static_cast<size_t>(end - start)) != nullptr;
        column_ = AdvanceColumn(text_, start, end, column_, tabSize_);
        layout_.endColumn = column_;
    }

  private:
    const char* text_;
    RowLayout& layout_;
    int tabSize_;
    int32_t column_ = 0;
};

} // namespace

// --- Font and metrics ---------------------------------------------------------------------

int EditorFontPointSize(std::string_view fontSize) {
    size_t at = 0;
    while (at < fontSize.size() && (fontSize[at] == ' ' || fontSize[at] == '\t'))
        ++at;
    bool negative = false;
    if (at < fontSize.size() && (fontSize[at] == '+' || fontSize[at] == '-')) {
        negative = fontSize[at] == '-';
        ++at;
    }
    int size = 0;
    for (; at < fontSize.size() && fontSize[at] >= '0' && fontSize[at] <= '9'; ++at) {
        size = size * 10 + (fontSize[at] - '0');
        if (size > 10000) break; // far beyond any font; keeps the product in range
    }
    if (negative) size = -size;
    return size < 1 ? DefaultFontPointSize : size;
}

int MulDivRounded(int number, int numerator, int denominator) {
    if (denominator == 0) return -1;
    int64_t product = static_cast<int64_t>(number) * numerator;
    int64_t divisor = denominator;
    if (divisor < 0) {
        divisor = -divisor;
        product = -product;
    }
    const int64_t half = divisor / 2;
    const int64_t result = product >= 0 ? (product + half) / divisor : (product - half) / divisor;
    if (result > std::numeric_limits<int>::max() || result < std::numeric_limits<int>::min())
        return -1;
    return static_cast<int>(result);
}

int EditorFontHeight(std::string_view fontSize, int pixelsPerInch) {
    return -MulDivRounded(EditorFontPointSize(fontSize), pixelsPerInch, PointsPerInch);
}

void SetFontMetrics(int charWidth, int lineHeight) {
    Display().charWidth = std::max(charWidth, 1);
    Display().lineHeight = std::max(lineHeight, 1);
}

int CharWidth() {
    return Display().charWidth;
}

int LineHeight() {
    return Display().lineHeight;
}

void SetLineNumbersShown(bool shown) {
    Display().marginSetting = shown ? LineNumberColumns : 0;
}

void MeasureBuffer(EditBuffer& buffer, int clientWidth, int clientHeight) {
    const int width = CharWidth();
    const int height = LineHeight();
    clientWidth = std::max(clientWidth, 0);
    clientHeight = std::max(clientHeight, 0);
    buffer.marginColumns = Narrow(Display().marginSetting);
    buffer.windowColumns = Narrow(clientWidth / width);
    buffer.marginWidth = Narrow(buffer.marginColumns * width);
    buffer.clientWidth = Narrow(clientWidth);
    buffer.visibleLines = Narrow(clientHeight / height);
    buffer.visibleColumns = Narrow(buffer.windowColumns - buffer.marginColumns);
}

// --- Geometry -----------------------------------------------------------------------------

int TextColumnX(const EditBuffer& buffer, int32_t textColumn) {
    return (buffer.marginColumns + textColumn - buffer.leftColumn) * CharWidth();
}

int TabOriginX(const EditBuffer& buffer) {
    return TextColumnX(buffer, 0);
}

int TabStopWidth() {
    return CharWidth() * TabSize();
}

PixelRect MarginRect(const EditBuffer& buffer) {
    return {-1, -1, buffer.marginWidth - 1, (buffer.visibleLines + 1) * LineHeight()};
}

PixelRect TextClipRect(const EditBuffer& buffer) {
    return {buffer.marginWidth, 0, buffer.clientWidth, (buffer.visibleLines + 1) * LineHeight()};
}

PixelRect RowFillRect(const EditBuffer& buffer, int row, int32_t endColumn) {
    const int height = LineHeight();
    return {TextColumnX(buffer, endColumn), row * height, (buffer.windowColumns + 1) * CharWidth(),
            (row + 1) * height + 1};
}

PixelRect BlankBelowRect(const EditBuffer& buffer, int fromRow) {
    const int height = LineHeight();
    return {buffer.marginColumns * CharWidth(), fromRow * height,
            (buffer.windowColumns + 1) * CharWidth(), (buffer.visibleLines + 1) * height};
}

PixelRect ErrorMarkerBox(const EditBuffer& buffer, int32_t line) {
    const int y = (line - buffer.topLine) * LineHeight();
    return {ErrorMarkerLeft, y, ErrorMarkerLeft + ErrorMarkerSize, y + ErrorMarkerSize};
}

CaretPixel CaretPosition(const EditBuffer& buffer) {
    const int32_t column =
        DisplayColumn(LineTextOf(buffer, buffer.cursor.line), buffer.cursor.column);
    const int y = (buffer.cursor.line - buffer.topLine) * LineHeight();
    if (column < buffer.leftColumn) return {-CharWidth(), y};
    return {TextColumnX(buffer, column), y};
}

int CaretWidth() {
    return TheEditor().engine.overwriteMode ? CharWidth() : InsertCaretWidth;
}

// --- Painting a range of lines --------------------------------------------------------------

PaintPlan PlanPaint(const EditBuffer& buffer, int32_t first, int32_t last, bool full) {
    const int32_t count = buffer.lines.lineCount;
    const int32_t top = buffer.topLine;
    const int32_t rows = std::max<int32_t>(buffer.visibleLines, 0);
    PaintPlan plan;
    plan.firstLine = std::max(first, top);
    // The row after the last full one is drawn too: it may show partly.
    const int32_t stop = std::min({last + 1, top + rows + 1, count});
    plan.endLine = std::max(stop, plan.firstLine);
    plan.margin = full && buffer.marginColumns != 0;
    plan.clip = buffer.leftColumn != 0;
    plan.blankFromRow = std::max(std::min(plan.endLine, count) - top, 0);
    plan.blankBelow = last >= count && plan.blankFromRow < rows + 1;
    return plan;
}

int LineNumberText(int32_t line, char* out, int capacity) {
    if (capacity <= 0) return 0;
    const int written = std::snprintf(out, static_cast<size_t>(capacity), "%5d", line + 1);
    return std::clamp(written, 0, capacity - 1);
}

int CollectErrorMarkers(const EditBuffer& buffer, const PaintPlan& plan, ErrorMarker* out,
                        int capacity) {
    const MarginErrorSource source = Display().errorSource;
    if (source == nullptr || !plan.margin) return 0;
    int found = 0;
    MarginError entry;
    for (int32_t index = 0; found < capacity && source(buffer, index, entry); ++index) {
        if (entry.resultLine == ErrorListEnd || entry.resultLine == ErrorListEndToo) break;
        const int32_t line = entry.sourceLine - 1;
        if (line < plan.firstLine || line >= plan.endLine) continue;
        out[found++] = {line, entry.kind == ErrorKind ? ColorMarginError : ColorYellow};
    }
    return found;
}

// --- One row ----------------------------------------------------------------------------------

void LayOutRow(const EditBuffer& buffer, int32_t line, RowLayout& layout) {
    const char* text = LineTextOf(buffer, line);
    const int32_t length = static_cast<int32_t>(std::strlen(text));
    SegmentWriter writer(text, layout);
    const TextPos from = buffer.selStart;
    const TextPos to = buffer.selEnd;
    const bool selected = PosLess(from, to);

    if (selected && from.line < line && line < to.line) {
        writer.Add(0, length, ColorBlack, true);
        layout.fillBlack = true;
        return;
    }
    // Selected bytes on this line, [selFrom, selTo).
    int32_t selFrom = 0;
    int32_t selTo = 0;
    if (selected && line == from.line) {
        selFrom = from.column;
        selTo = line == to.line ? to.column : length;
        layout.fillBlack = line != to.line;
    } else if (selected && line == to.line) {
        selTo = to.column;
    }
    selFrom = std::clamp(selFrom, 0, length);
    selTo = std::clamp(selTo, selFrom, length);

    ColourRun runs[MaxRunsPerLine];
    const int runCount = ScanLine(std::string_view(text, static_cast<size_t>(length)),
                                  buffer.language, runs, MaxRunsPerLine);
    for (int i = 0; i < runCount; ++i) {
        const int32_t start = runs[i].start;
        const int32_t end = start + runs[i].length;
        const uint32_t color = runs[i].color;
        writer.Add(start, std::min(end, selFrom), color, false);
        writer.Add(std::max(start, selFrom), std::min(end, selTo), color, true);
        writer.Add(std::max(start, selTo), end, color, false);
    }
}

RowSegment InvertedSegment(const EditBuffer& buffer, int32_t line, int32_t start, int32_t end) {
    const char* text = LineTextOf(buffer, line);
    const int32_t length = static_cast<int32_t>(std::strlen(text));
    start = std::clamp(start, 0, length);
    end = std::clamp(end, start, length);
    RowSegment segment;
    segment.start = start;
    segment.length = end - start;
    segment.displayColumn = AdvanceColumn(text, 0, start, 0, TabSize());
    segment.color = ColorWhite;
    segment.inverted = true;
    segment.hasTabs = std::memchr(text + start, '\t', static_cast<size_t>(end - start)) != nullptr;
    return segment;
}

} // namespace ruvo
