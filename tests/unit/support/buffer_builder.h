// A real edit buffer built from text for tests of the editing commands and the fuzz targets,
// freed with them.
#pragma once

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/line_list.h"
#include "engine/transaction_log.h"

namespace ruvo {

class TestBuffer {
  public:
    // Lines are split at line feeds; the buffer becomes the current one unless told not to.
    explicit TestBuffer(std::string_view text, bool makeCurrent = true) {
        buffer_.lines.growBy = 1000;
        buffer_.visibleLines = 20;
        buffer_.visibleColumns = 80;
        for (size_t from = 0, lf = 0; lf != std::string_view::npos; from = lf + 1) {
            lf = text.find('\n', from);
            // A buffer that cannot be built ends the run: nothing checked on it would hold.
            if (AppendLine(&buffer_.lines, text.substr(from, lf - from)) != 0) std::abort();
        }
        if (InitTransactionLog(buffer_) != 1) std::abort();
        if (makeCurrent) TheEditor().engine.currentBuffer = &buffer_;
    }
    TestBuffer(const TestBuffer&) = delete;
    TestBuffer& operator=(const TestBuffer&) = delete;
    ~TestBuffer() {
        ClearTransactionLog(buffer_);
        ClearLineList(&buffer_.lines);
        if (TheEditor().engine.currentBuffer == &buffer_)
            TheEditor().engine.currentBuffer = nullptr;
    }

    EditBuffer& operator*() { return buffer_; }
    EditBuffer* operator->() { return &buffer_; }
    EditBuffer* get() { return &buffer_; }

    // The text with line feeds between lines.
    std::string Text() const {
        std::string text;
        for (int32_t i = 0; i < buffer_.lines.lineCount; ++i) {
            if (i > 0) text += '\n';
            text += buffer_.lines.lineText[i];
        }
        return text;
    }

    // Puts the caret (and the anchor) somewhere without recording anything.
    void PlaceCaret(int32_t line, int32_t column) {
        buffer_.cursor = MakePos(line, column);
        buffer_.anchor = buffer_.cursor;
    }

    // A selection as the display code leaves it: ordered ends, the flag, the caret at the end.
    void Select(TextPos from, TextPos to) {
        buffer_.anchor = from;
        buffer_.cursor = to;
        buffer_.selStart = PosLess(to, from) ? to : from;
        buffer_.selEnd = PosLess(to, from) ? from : to;
        buffer_.lines.hasSelection = from == to ? 0 : 1;
    }

    // Number of records in the log after the sentinel.
    int LoggedTransactions() const {
        int count = 0;
        for (const Transaction* t = buffer_.undoHead; t != nullptr; t = t->next)
            ++count;
        return count > 0 ? count - 1 : 0;
    }

  private:
    EditBuffer buffer_;
};

inline std::vector<std::string> LinesOf(const EditBuffer& buffer) {
    std::vector<std::string> lines;
    for (int32_t i = 0; i < buffer.lines.lineCount; ++i)
        lines.emplace_back(buffer.lines.lineText[i]);
    return lines;
}

// Lines "<prefix>0" .. "<prefix>count-1" joined by line feeds.
inline std::string NumberedLines(int count, const std::string& prefix = "") {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += (i > 0 ? "\n" : "") + prefix + std::to_string(i);
    return text;
}

// The text with its caret '|', selection '[' ']' and a stray anchor '^' written in. Marks
// past a line's end are not written, so a caret there shows as a missing '|'.
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
