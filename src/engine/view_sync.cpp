// Caret, scroll position and selection of a buffer, with the redraws they call for.
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
    if (scrolled) TheEditor().host.ScrollPositionChanged(buffer);
}

} // namespace ruvo
