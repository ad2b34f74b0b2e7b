// Found-text highlight: remembered so that the next search can take it away again.
#include "engine/found_text.h"

#include <algorithm>
#include <cstring>

#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "host/host.h"

namespace ruvo {

void ShowFoundText(EditBuffer& buffer, TextPos start, TextPos end) {
    HideFoundText();
    if (start.line != end.line || start.line < 0 || start.line >= buffer.lines.lineCount) return;
    const int32_t length = static_cast<int32_t>(std::strlen(buffer.lines.lineText[start.line]));
    const int32_t from = std::clamp(std::min(start.column, end.column), 0, length);
    const int32_t to = std::clamp(std::max(start.column, end.column), 0, length);
    if (from == to) return;
    FoundTextHighlight& found = TheEditor().engine.display.found;
    found = {&buffer, start.line, from, to, true};
    TheEditor().host.DrawFoundText(buffer, start.line, from, to);
}

void HideFoundText() {
    FoundTextHighlight& found = TheEditor().engine.display.found;
    if (!found.shown) return;
    found.shown = false;
    EditBuffer* buffer = found.buffer;
    found.buffer = nullptr;
    if (buffer != nullptr && !buffer->IsClosed() && found.line < buffer->lines.lineCount)
        TheEditor().host.RedrawLine(*buffer, found.line);
}

} // namespace ruvo
