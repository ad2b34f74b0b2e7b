// Page layout of printed text: margins, header, numbered and wrapped rows in their typefaces.
#include "print/print_layout.h"

#include <algorithm>
#include <string_view>

#include "engine/line_list.h"
#include "lang/language_table.h"
#include "lang/syntax_scanner.h"

namespace ruvo {

namespace {

// A left margin never leaves fewer columns than this for the text.
constexpr int MinColumns = 20;
constexpr int MaxMarginChars = 1000;
constexpr int MinNumberDigits = 4;
constexpr int NumberGap = 2; // blanks between a line number and its text

// A line as printed: tabs expanded, and the printed column of each of its bytes.
struct ExpandedLine {
    std::string text;
    std::vector<int> columnOf; // one more entry than the line has bytes
};

void ExpandTabs(std::string_view line, int tabSize, ExpandedLine& out) {
    out.text.clear();
    out.columnOf.clear();
    for (const char c : line) {
        out.columnOf.push_back(static_cast<int>(out.text.size()));
        if (c == '\t')
            out.text.append(tabSize - out.text.size() % tabSize, ' ');
        else
            out.text += c;
    }
    out.columnOf.push_back(static_cast<int>(out.text.size()));
}

// Where the row that starts at `from` ends: a long row breaks after its last blank in its
// second half, else at the width; without wrapping the rest is cut off.
int RowEnd(std::string_view text, int from, int width, bool wrap) {
    const int size = static_cast<int>(text.size());
    if (size - from <= width) return size;
    if (!wrap) return from + width;
    for (int at = from + width - 1; at > from + width / 2; --at)
        if (text[at] == ' ') return at + 1;
    return from + width;
}

int RowCount(std::string_view text, int width, bool wrap) {
    if (!wrap) return 1;
    int rows = 1;
    for (int from = RowEnd(text, 0, width, true); from < static_cast<int>(text.size());
         from = RowEnd(text, from, width, true))
        ++rows;
    return rows;
}

int Digits(int32_t number) {
    int digits = 1;
    for (; number >= 10; number /= 10)
        ++digits;
    return digits;
}

std::string_view LineText(const LineList& lines, int32_t line) {
    return lines.lineText[line] != nullptr ? std::string_view(lines.lineText[line])
                                           : std::string_view();
}

bool OnlyBlanks(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

} // namespace

PageGrid ComputePageGrid(const PrinterMetrics& metrics, int leftMarginChars) {
    const int cellWidth = std::max(1, metrics.charWidth);
    const int cellHeight = std::max(1, metrics.lineHeight);
    const int printableRight = metrics.printableLeft + metrics.printableWidth;
    const int printableBottom = metrics.printableTop + metrics.printableHeight;
    const int paperWidth = std::max(metrics.paperWidth, printableRight);
    const int paperHeight = std::max(metrics.paperHeight, printableBottom);
    const int margin = std::clamp(leftMarginChars, 0, MaxMarginChars) * cellWidth;

    const int right = std::min(printableRight, paperWidth - metrics.dotsPerInchX / 2);
    int left = std::max(metrics.printableLeft, margin);
    if (right - left < MinColumns * cellWidth)
        left = std::max(metrics.printableLeft, right - MinColumns * cellWidth);
    const int top = std::max(metrics.printableTop, metrics.dotsPerInchY / 2);
    const int bottom = std::min(printableBottom, paperHeight - metrics.dotsPerInchY / 2);

    PageGrid grid;
    grid.originX = left - metrics.printableLeft;
    grid.originY = top - metrics.printableTop;
    grid.cellWidth = cellWidth;
    grid.cellHeight = cellHeight;
    grid.columns = std::max(1, (right - left) / cellWidth);
    grid.rows = std::max(1, (bottom - top) / cellHeight);
    return grid;
}

PrintLayout::PrintLayout(const PrintSource& source, const PrintSettings& settings, int tabSize,
                         const PageGrid& grid)
    : source_(source), settings_(settings), tabSize_(std::clamp(tabSize, 1, MaxLineLength)),
      grid_(grid) {
    if (source_.lines == nullptr) source_.endLine = source_.firstLine;
    if (settings_.lineNumbers) {
        numberDigits_ = std::max(MinNumberDigits, Digits(source_.endLine));
        textColumn_ = numberDigits_ + NumberGap;
    }
    textColumns_ = std::max(1, grid_.columns - textColumn_);
    bodyRows_ = std::max(1, grid_.rows - HeaderRows);

    ExpandedLine expanded;
    int used = bodyRows_; // the first row opens the first page
    for (int32_t line = source_.firstLine; line < source_.endLine; ++line) {
        ExpandTabs(LineText(*source_.lines, line), tabSize_, expanded);
        const int rows = RowCount(expanded.text, textColumns_, settings_.wrapLines);
        for (int row = 0; row < rows; ++row) {
            if (used == bodyRows_) {
                pageStarts_.push_back({line, row});
                used = 0;
            }
            ++used;
        }
    }
    if (pageStarts_.empty()) pageStarts_.push_back({source_.firstLine, 0});
}

PrintedPage PrintLayout::Page(int index) const {
    PrintedPage page;
    page.grid = grid_;
    page.ruleRow = HeaderRows - 1;
    if (index < 0 || index >= PageCount()) return page;
    AddHeader(page, index);

    int32_t line = pageStarts_[index].line;
    int lineRow = pageStarts_[index].row;
    int row = 0;
    while (row < bodyRows_ && line < source_.endLine) {
        if (AddRow(page, HeaderRows + row, line, lineRow)) {
            ++row;
            ++lineRow;
        } else {
            ++line;
            lineRow = 0;
        }
    }
    return page;
}

void PrintLayout::AddHeader(PrintedPage& page, int index) const {
    const std::string right =
        "Page " + std::to_string(index + 1) + " of " + std::to_string(PageCount());
    std::string left = settings_.fileInHeader ? source_.title : std::string();
    std::string middle = settings_.dateInHeader ? source_.date : std::string();
    const int width = grid_.columns;
    const int rightStart = std::max(0, width - static_cast<int>(right.size()));
    int middleStart = 0;
    if (!middle.empty()) {
        const int length = static_cast<int>(middle.size());
        middleStart = (width - length) / 2;
        if (middleStart + length + NumberGap > rightStart)
            middleStart = rightStart - NumberGap - length;
        if (middleStart < 0) middle.clear();
    }
    // A long file name keeps its end, where the file's own name is.
    const int leftRoom = (middle.empty() ? rightStart : middleStart) - NumberGap;
    if (static_cast<int>(left.size()) > leftRoom) {
        std::string tail = leftRoom > 3 ? left.substr(left.size() - (leftRoom - 3)) : std::string();
        const size_t separator = tail.find_first_of("\\/");
        if (separator != std::string::npos && separator > 0) tail.erase(0, separator);
        left = tail.empty() ? std::string() : "..." + tail;
    }

    if (!left.empty()) page.pieces.push_back({0, 0, left, TypefaceBold, ColorBlack});
    if (!middle.empty()) page.pieces.push_back({0, middleStart, middle, TypefaceBold, ColorBlack});
    page.pieces.push_back({0, rightStart, right, TypefaceBold, ColorBlack});
}

bool PrintLayout::AddRow(PrintedPage& page, int pageRow, int32_t line, int lineRow) const {
    const std::string_view text = LineText(*source_.lines, line);
    ExpandedLine expanded;
    ExpandTabs(text, tabSize_, expanded);
    const std::string_view printed = expanded.text;

    int from = 0;
    int to = RowEnd(printed, 0, textColumns_, settings_.wrapLines);
    for (int row = 0; row < lineRow; ++row) {
        if (!settings_.wrapLines || to >= static_cast<int>(printed.size())) return false;
        from = to;
        to = RowEnd(printed, from, textColumns_, true);
    }

    if (lineRow == 0 && numberDigits_ > 0) {
        std::string number = std::to_string(line + 1);
        number.insert(0, static_cast<size_t>(std::max(0, numberDigits_ - Digits(line + 1))), ' ');
        page.pieces.push_back({pageRow, 0, number, 0, ColorBlack});
    }

    ColourRun runs[MaxRunsPerLine];
    int count = 0;
    if ((settings_.syntax || settings_.color) && source_.language != nullptr)
        count = ScanLineInLanguage(text, *source_.language, runs, MaxRunsPerLine);
    else if (!text.empty())
        runs[count++] = ColourRun{0, static_cast<int32_t>(text.size())};
    for (int i = 0; i < count; ++i) {
        const int start = std::max(from, expanded.columnOf[runs[i].start]);
        const int end = std::min(to, expanded.columnOf[runs[i].start + runs[i].length]);
        if (start >= end) continue;
        const int typeface = settings_.syntax ? runs[i].typeface : 0;
        const std::string_view piece = printed.substr(start, end - start);
        if (OnlyBlanks(piece) && (typeface & TypefaceUnderline) == 0) continue;
        page.pieces.push_back({pageRow, textColumn_ + start - from, std::string(piece), typeface,
                               settings_.color ? runs[i].color : ColorBlack});
    }
    return true;
}

} // namespace ruvo
