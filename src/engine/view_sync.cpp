// Caret, scroll position and selection of a buffer, with the redraws and scroll-bar
// settings they call for.
#include "engine/view_sync.h"

#include <algorithm>
#include <cstring>

#include "commands/command_table.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/text_store.h"
#include "host/host.h"

namespace ruvo {

namespace {

// How one line looks under a selection: the selected byte columns and whether the row is
// filled black to the right edge.
struct LineShade {
    int from = 0;
    int to = 0;
    bool fillsRow = false;
    friend bool operator==(const LineShade&, const LineShade&) = default;
};

LineShade ShadeOf(int32_t line, TextPos start, TextPos end) {
    if (PosEqual(start, end) || line < start.line || line > end.line) return {};
    if (start.line == end.line) return {start.column, end.column, false};
    if (line == start.line) return {start.column, MaxLineLength + 1, true};
    if (line == end.line) return {0, end.column, false};
    return {0, MaxLineLength + 1, true};
}

// Redraws lines first..last whose shade differs between the two selections, visible only.
void RedrawChanged(EditBuffer& buffer, int32_t first, int32_t last, TextRange before,
                   TextRange after) {
    const int32_t top = buffer.topLine;
    const int32_t bottom = top + std::max<int32_t>(buffer.visibleLines, 0);
    first = std::max({first, top, 0});
    last = std::min({last, bottom, buffer.lines.lineCount - 1});
    for (int32_t line = first; line <= last; ++line) {
        if (ShadeOf(line, before.start, before.end) != ShadeOf(line, after.start, after.end))
            TheEditor().host.RedrawLine(buffer, line);
    }
}

// The scroll-bar cache, emptied first when it held another buffer's values.
ScrollBarCache& CacheFor(const EditBuffer& buffer) {
    ScrollBarCache& cache = TheEditor().engine.input.scrollBars;
    if (cache.buffer != &buffer) cache = ScrollBarCache{&buffer};
    return cache;
}

int32_t CursorLineLength(const EditBuffer& buffer) {
    const int32_t line = buffer.cursor.line;
    if (line < 0 || line >= buffer.lines.lineCount) return 0;
    return static_cast<int32_t>(std::strlen(buffer.lines.lineText[line]));
}

} // namespace

bool IsBufferOnShow(const EditBuffer& buffer) {
    const EditBuffer* current = TheEditor().engine.currentBuffer;
    return current == nullptr || current == &buffer;
}

void SetSelection(EditBuffer& buffer, TextPos a, TextPos b) {
    a = ClampPos(buffer, a.line, a.column);
    b = ClampPos(buffer, b.line, b.column);
    if (PosLess(b, a)) SwapPos(a, b);
    const TextRange before{buffer.selStart, buffer.selEnd};
    const TextRange after{a, b};
    buffer.selStart = a;
    buffer.selEnd = b;
    buffer.lines.hasSelection = PosEqual(a, b) ? 0 : 1;

    if (before != after) {
        // Only the lines between the ends of the two selections can change their look;
        // lines inside both keep it, so the two end regions are checked separately.
        const bool hadNone = PosEqual(before.start, before.end);
        const bool hasNone = PosEqual(a, b);
        if (hadNone || hasNone) {
            const TextRange& shown = hadNone ? after : before;
            if (!PosEqual(shown.start, shown.end))
                RedrawChanged(buffer, shown.start.line, shown.end.line, before, after);
        } else {
            RedrawChanged(buffer, std::min(before.start.line, a.line),
                          std::max(before.start.line, a.line), before, after);
            RedrawChanged(buffer,
                          std::max(std::min(before.end.line, b.line),
                                   std::max(before.start.line, a.line) + 1),
                          std::max(before.end.line, b.line), before, after);
        }
    }
    if (IsBufferOnShow(buffer)) SetCommandsEnabled(NeedsSelection, buffer.lines.hasSelection != 0);
}

void SetCursorAndScroll(EditBuffer& buffer, TextPos cursor, int32_t topLine, int32_t leftColumn) {
    buffer.cursor = ClampPos(buffer, cursor.line, cursor.column);
    topLine = std::max(topLine, 0);
    leftColumn = std::max(leftColumn, 0);
    const bool scrolled = topLine != buffer.topLine || leftColumn != buffer.leftColumn;
    buffer.topLine = topLine;
    buffer.leftColumn = leftColumn;
    Host& host = TheEditor().host;
    if (scrolled) host.ScrollPositionChanged(buffer);

    ScrollBarCache& cache = CacheFor(buffer);
    const int32_t lineCount = buffer.lines.lineCount;
    if (lineCount != cache.lineCount || topLine != cache.topLine) {
        host.SetScrollBarRange(buffer, true, 0, lineCount - buffer.visibleLines);
        host.SetScrollBarPos(buffer, true, topLine);
        cache.lineCount = lineCount;
        cache.topLine = topLine;
    }
    if (leftColumn != cache.leftColumn) {
        host.SetScrollBarPos(buffer, false, leftColumn);
        cache.leftColumn = leftColumn;
    }
    // The range does not depend on the line's length; a new length only refreshes it.
    const int32_t length = CursorLineLength(buffer);
    if (length != cache.cursorLineLength) {
        host.SetScrollBarRange(buffer, false, 0, MaxLineLength - buffer.visibleColumns);
        cache.cursorLineLength = length;
    }
}

bool NeedsTrackPosition(const EditBuffer& buffer) {
    return buffer.lines.lineCount > ThumbMessageLineLimit;
}

int32_t VerticalBarDelta(const EditBuffer& buffer, BarCode code, int32_t thumb) {
    switch (code) {
    case BarCode::LineUp:
        return -1;
    case BarCode::LineDown:
        return 1;
    case BarCode::PageUp:
        return -buffer.visibleLines;
    case BarCode::PageDown:
        return buffer.visibleLines;
    case BarCode::ThumbPosition:
    case BarCode::ThumbTrack:
        return thumb - buffer.topLine;
    case BarCode::Top:
        return -buffer.topLine;
    case BarCode::Bottom:
        return buffer.lines.lineCount;
    }
    return 0;
}

int32_t HorizontalBarDelta(const EditBuffer& buffer, BarCode code, int32_t thumb) {
    switch (code) {
    case BarCode::LineUp:
        return -1;
    case BarCode::LineDown:
        return 1;
    case BarCode::PageUp:
        return -buffer.visibleColumns;
    case BarCode::PageDown:
        return buffer.visibleColumns;
    case BarCode::ThumbPosition:
    case BarCode::ThumbTrack:
        return thumb - buffer.leftColumn;
    case BarCode::Top:
        return -buffer.leftColumn;
    case BarCode::Bottom:
        return 0;
    }
    return 0;
}

int32_t ScrollLines(EditBuffer& buffer, int32_t delta) {
    const int32_t lineCount = buffer.lines.lineCount;
    if (buffer.visibleLines + buffer.topLine + delta > lineCount)
        delta = lineCount - buffer.visibleLines - buffer.topLine;
    if (delta == 0) return 0;
    buffer.topLine += delta;
    if (buffer.topLine < 0) {
        delta -= buffer.topLine;
        buffer.topLine = 0;
    }
    return delta;
}

int32_t ScrollColumns(EditBuffer& buffer, int32_t delta) {
    // Only a left column of exactly 255 stops scrolling right: paging on from 250 goes past.
    if (delta == 0 || (buffer.leftColumn == 0 && delta < 0) ||
        (buffer.leftColumn == MaxLineLength && delta > 0)) {
        return 0;
    }
    buffer.leftColumn += delta;
    if (buffer.leftColumn < 0) {
        delta -= buffer.leftColumn;
        buffer.leftColumn = 0;
    }
    return delta;
}

int32_t ScrollByBar(EditBuffer& buffer, bool vertical, BarCode code, int32_t thumb) {
    Host& host = TheEditor().host;
    if (vertical) {
        const int32_t scrolled = ScrollLines(buffer, VerticalBarDelta(buffer, code, thumb));
        if (scrolled != 0) {
            host.ScrollWindowLines(buffer, scrolled);
            SetVerticalBox(buffer);
        }
        return scrolled;
    }
    const int32_t scrolled = ScrollColumns(buffer, HorizontalBarDelta(buffer, code, thumb));
    if (scrolled != 0) {
        host.SetScrollBarPos(buffer, false, buffer.leftColumn);
        CacheFor(buffer).leftColumn = buffer.leftColumn;
        host.RedrawWindow(buffer);
        host.MoveCaret(buffer);
    }
    return scrolled;
}

void FitScrollBars(EditBuffer& buffer) {
    const int32_t lineCount = buffer.lines.lineCount;
    if (buffer.visibleLines > lineCount)
        buffer.topLine = 0;
    else if (buffer.visibleLines + buffer.topLine > lineCount)
        buffer.topLine = lineCount - buffer.visibleLines;
    Host& host = TheEditor().host;
    host.SetScrollBarRange(buffer, true, 0, lineCount - buffer.visibleLines);
    SetVerticalBox(buffer);
    ScrollBarCache& cache = CacheFor(buffer);
    cache.lineCount = lineCount;
    host.SetScrollBarRange(buffer, false, 0, MaxLineLength);
}

void SetVerticalBox(EditBuffer& buffer) {
    TheEditor().host.SetScrollBarPos(buffer, true, buffer.topLine);
    CacheFor(buffer).topLine = buffer.topLine;
}

} // namespace ruvo
