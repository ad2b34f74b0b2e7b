// What the edit windows share for drawing: font metrics, the margin, the found-text highlight,
// the status cache and the source of the margin's error markers.
#pragma once

#include <cstdint>

namespace ruvo {

struct EditBuffer;

constexpr int LineNumberColumns = 7;   // margin width when line numbers are shown
constexpr int UnmeasuredCharWidth = 5; // metrics before the editor font is first measured
constexpr int UnmeasuredLineHeight = 13;
constexpr int InsertCaretWidth = 2;

// One entry of the compiler's error list as the margin sees it. The list ends at the first
// entry whose resultLine is -1 or -2.
struct MarginError {
    int32_t sourceLine = 0; // 1-based line of the source buffer
    int32_t resultLine = -1;
    int32_t kind = 0; // 2 for a warning
};

// Entry `index` of the error list when `buffer` owns the list; false past its end or for any
// other buffer. Installed by the compiler support; none means no markers.
using MarginErrorSource = bool (*)(const EditBuffer& buffer, int32_t index, MarginError& entry);

// The characters of a search match drawn inverted until the next search or redraw asks to
// forget them.
struct FoundTextHighlight {
    EditBuffer* buffer = nullptr;
    int32_t line = 0;
    int32_t startColumn = 0;
    int32_t endColumn = 0;
    bool shown = false;
};

// What the status panes 0 and 2 show now, so that unchanged values are not set again.
struct StatusCache {
    int32_t line = -1; // -1: nothing shown yet
    int32_t column = -1;
    bool readOnly = false;
    bool modified = false;
};

struct DisplayState {
    int charWidth = UnmeasuredCharWidth;
    int lineHeight = UnmeasuredLineHeight;
    // Columns of the line-number margin for every window; 7 at each start, never saved.
    int marginSetting = LineNumberColumns;
    FoundTextHighlight found;
    StatusCache status;
    MarginErrorSource errorSource = nullptr;
};

} // namespace ruvo
