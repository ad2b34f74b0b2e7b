// A test buffer's text with its caret '|', selection '[' ']' and a stray anchor '^' written in.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "buffer_builder.h"

namespace ruvo {

// A mark past a line's end is written after it as "@column" and the mark.
inline std::string Marked(TestBuffer& buffer) {
    const EditBuffer& b = *buffer;
    const bool selected = b.lines.hasSelection != 0;
    std::string out;
    for (int32_t line = 0; line < b.lines.lineCount; ++line) {
        const std::string text = b.lines.lineText[line];
        const int32_t size = static_cast<int32_t>(text.size());
        const auto marks = [&](int32_t column) {
            const TextPos at = MakePos(line, column);
            std::string m;
            if (selected && b.selStart == at) m += '[';
            if (!selected && !(b.anchor == b.cursor) && b.anchor == at) m += '^';
            if (b.cursor == at) m += '|';
            if (selected && b.selEnd == at) m += ']';
            return column > size && !m.empty() ? "@" + std::to_string(column) + m : m;
        };
        if (line > 0) out += '\n';
        for (int32_t column = 0; column < 300; ++column)
            out += marks(column) + (column < size ? text.substr(column, 1) : "");
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
