// How an edit window is laid out in pixels: metrics, the margin, the pieces of each painted
// row with their colours and selection, the caret's place and the editor font's height.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/line_list.h"
#include "lang/language_table.h"

namespace ruvo {

struct EditBuffer;

constexpr uint32_t ColorWhite = MakeColor(255, 255, 255);
constexpr uint32_t ColorLightGrey = MakeColor(192, 192, 192);
constexpr uint32_t ColorYellow = MakeColor(255, 255, 0);
constexpr uint32_t ColorMarginError = MakeColor(255, 0, 0);

constexpr int DefaultFontPointSize = 10;
constexpr int PointsPerInch = 72;

// --- Font and metrics ---------------------------------------------------------------------
// The point size of the FontSize text read as an integer; 10 when that is below 1.
int EditorFontPointSize(std::string_view fontSize);
// number * numerator / denominator rounded to the nearest integer, halves away from zero;
// -1 when the denominator is 0 or the result does not fit.
int MulDivRounded(int number, int numerator, int denominator);
// The editor font's height for CreateFont: minus the point size in pixels of the screen.
int EditorFontHeight(std::string_view fontSize, int pixelsPerInch);
// Takes the measured font cell for every window (values below 1 count as 1).
void SetFontMetrics(int charWidth, int lineHeight);
int CharWidth();
int LineHeight();
// Line numbers on or off for the windows measured from now on.
void SetLineNumbersShown(bool shown);
// Sets the buffer's metric fields from its client size and the shared font cell.
void MeasureBuffer(EditBuffer& buffer, int clientWidth, int clientHeight);

// --- Geometry -----------------------------------------------------------------------------
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// x of a screen column of the text (0 = the text's first column), after scrolling.
int TextColumnX(const EditBuffer& buffer, int32_t textColumn);
// Tab stops are measured from the text's column 0, wherever it is scrolled to.
int TabOriginX(const EditBuffer& buffer);
int TabStopWidth();
// The margin with its one-pixel border outside the window's top and left edges.
PixelRect MarginRect(const EditBuffer& buffer);
// The text area, kept off the margin while the text is scrolled sideways.
PixelRect TextClipRect(const EditBuffer& buffer);
// The rest of a row after its text, one pixel lower so that rows overlap by one pixel.
PixelRect RowFillRect(const EditBuffer& buffer, int row, int32_t endColumn);
// The text area below the last row of text.
PixelRect BlankBelowRect(const EditBuffer& buffer, int fromRow);
// The circle of an error marker for a 0-based line.
PixelRect ErrorMarkerBox(const EditBuffer& buffer, int32_t line);

struct CaretPixel {
    int x = 0;
    int y = 0;
    friend bool operator==(const CaretPixel&, const CaretPixel&) = default;
};
// Where the caret goes: out of sight (x = minus a character) when scrolled past on the left.
CaretPixel CaretPosition(const EditBuffer& buffer);
// A bar in insert mode, a whole character cell in overwrite mode.
int CaretWidth();

// --- Painting a range of lines --------------------------------------------------------------
struct PaintPlan {
    int32_t firstLine = 0; // lines firstLine .. endLine - 1 are drawn at rows line - topLine
    int32_t endLine = 0;
    bool margin = false;     // fill the margin, number the lines, draw the error markers
    bool clip = false;       // keep scrolled text off the margin
    bool blankBelow = false; // paint the text area white from blankFromRow down
    int blankFromRow = 0;
};
// What painting lines first..last shows; with `full` the margin is painted too.
PaintPlan PlanPaint(const EditBuffer& buffer, int32_t first, int32_t last, bool full);
// The margin's number of a 0-based line, "%5d" of line + 1; returns the text's length.
int LineNumberText(int32_t line, char* out, int capacity);

struct ErrorMarker {
    int32_t line = 0; // 0-based
    uint32_t color = ColorMarginError;
};
// The markers of the compiler's errors on the plan's lines, at most capacity; their number.
int CollectErrorMarkers(const EditBuffer& buffer, const PaintPlan& plan, ErrorMarker* out,
                        int capacity);

// --- One row ----------------------------------------------------------------------------------
// A piece of a line drawn in one colour pair.
struct RowSegment {
    int32_t start = 0;         // byte column of the first character
    int32_t length = 0;        // bytes
    int32_t displayColumn = 0; // screen column of the first character, tabs expanded
    uint32_t color = ColorBlack;
    bool inverted = false; // selected: white on black
    bool hasTabs = false;  // drawn with tab expansion
    friend bool operator==(const RowSegment&, const RowSegment&) = default;
};

// Each colour run splits at most at the two ends of the selection.
constexpr int MaxRowSegments = MaxLineLength + 3;

struct RowLayout {
    RowSegment segments[MaxRowSegments];
    int count = 0;
    int32_t endColumn = 0;  // screen column just after the text
    bool fillBlack = false; // the rest of the row belongs to the selection
};

// The segments of a line in syntax colours with the buffer's selection inverted.
void LayOutRow(const EditBuffer& buffer, int32_t line, RowLayout& layout);
// Bytes start..end of a line drawn inverted as one segment, without colouring.
RowSegment InvertedSegment(const EditBuffer& buffer, int32_t line, int32_t start, int32_t end);

} // namespace ruvo
