// A test buffer's text with its caret '|', selection '[' ']' and a stray anchor '^' written in.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

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

// Takes the caret mark '|' out of `marked`: the plain text and the caret's position.
inline std::pair<std::string, TextPos> Unmarked(std::string_view marked) {
    const size_t bar = marked.find('|');
    std::string text(marked.substr(0, bar));
    const size_t lineStart = text.rfind('\n') + 1; // 0 when there is none
    const TextPos caret = MakePos(static_cast<int32_t>(std::count(text.begin(), text.end(), '\n')),
                                  static_cast<int32_t>(text.size() - lineStart));
    return {text + std::string(marked.substr(bar + 1)), caret};
}

} // namespace ruvo
