// A test buffer's text with its caret '|', selection '[' ']' and a stray anchor '^' written in.
#pragma once

#include <string>

#include "buffer_builder.h"

namespace ruvo {

// Marks past a line's end are not written, so a caret there shows as a missing '|'.
inline std::string Marked(TestBuffer& buffer) {
    const EditBuffer& b = *buffer;
    const bool selected = b.lines.hasSelection != 0;
    std::string out;
    for (int32_t line = 0; line < b.lines.lineCount; ++line) {
        const std::string text = b.lines.lineText[line];
        if (line > 0) out += '\n';
        for (int32_t column = 0; column <= static_cast<int32_t>(text.size()); ++column) {
            const TextPos at = MakePos(line, column);
            if (selected && b.selStart == at) out += '[';
            if (!selected && !(b.anchor == b.cursor) && b.anchor == at) out += '^';
            if (b.cursor == at) out += '|';
            if (selected && b.selEnd == at) out += ']';
            out += text.substr(column, 1);
        }
    }
    return out;
}

} // namespace ruvo
