// The printed pages of a text: the grid of character cells on the sheet, the header, line
// numbers, wrapped rows, page breaks and the typeface and colour of every piece of text.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/host.h"
#include "settings/options.h"

namespace ruvo {

struct LanguageDef;
struct LineList;

// Where the character cells of a page lie, in device units from the printable area's origin.
struct PageGrid {
    int originX = 0;
    int originY = 0;
    int cellWidth = 1;
    int cellHeight = 1;
    int columns = 1;
    int rows = 1;
    friend bool operator==(const PageGrid&, const PageGrid&) = default;
};

// The cells between the margins: the left margin counts characters from the paper's edge,
// the other margins are half an inch; none lies outside the printable area.
PageGrid ComputePageGrid(const PrinterMetrics& metrics, int leftMarginChars);

// Text in one typeface (bits of TypefaceBold, ...) and colour, starting at a cell.
struct PrintedPiece {
    int row = 0;
    int column = 0;
    std::string text;
    int typeface = 0;
    uint32_t color = 0;
};

struct PrintedPage {
    PageGrid grid;
    int ruleRow = -1; // a thin line across the page through the middle of this row
    std::vector<PrintedPiece> pieces;
};

// What is printed: lines firstLine .. endLine - 1 of a text, numbered as in the text.
struct PrintSource {
    const LineList* lines = nullptr;
    int32_t firstLine = 0;
    int32_t endLine = 0;
    const LanguageDef* language = nullptr; // none: plain black text
    std::string title;                     // the file name in the header
    std::string date;                      // the date in the header
};

// Rows of the header: its text, then the row that holds the rule under it.
constexpr int HeaderRows = 2;

// The pages of a source; a page is laid out when it is asked for.
class PrintLayout {
  public:
    PrintLayout(const PrintSource& source, const PrintSettings& settings, int tabSize,
                const PageGrid& grid);

    int PageCount() const { return static_cast<int>(pageStarts_.size()); }
    // Page 0 .. PageCount() - 1.
    PrintedPage Page(int index) const;

  private:
    struct RowStart {
        int32_t line = 0;
        int row = 0; // row of that line, 0 for its first
    };

    void AddHeader(PrintedPage& page, int index) const;
    // Adds the pieces of one row of a line; false when the line has no such row.
    bool AddRow(PrintedPage& page, int pageRow, int32_t line, int lineRow) const;

    PrintSource source_;
    PrintSettings settings_;
    int tabSize_;
    PageGrid grid_;
    int numberDigits_ = 0; // width of the line numbers, 0 without them
    int textColumn_ = 0;   // first column of the text
    int textColumns_ = 1;
    int bodyRows_ = 1;
    std::vector<RowStart> pageStarts_;
};

} // namespace ruvo
