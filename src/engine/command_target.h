// The buffer a command acts on, and read access to its lines, shared by the command handlers.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/edit_buffer.h"
#include "engine/editor.h"

namespace ruvo {

// The current buffer when a command may act on it: it exists and its window is not gone.
inline EditBuffer* CommandTarget() {
    EditBuffer* buffer = TheEditor().engine.currentBuffer;
    if (buffer == nullptr || buffer->IsClosed()) return nullptr;
    if (buffer->lines.lineText == nullptr || buffer->lines.lineCount < 1) return nullptr;
    return buffer;
}

inline std::string_view LineAt(const EditBuffer& buffer, int32_t line) {
    if (line < 0 || line >= buffer.lines.lineCount) return {};
    const char* text = buffer.lines.lineText[line];
    return text != nullptr ? std::string_view(text) : std::string_view();
}

inline int32_t LineLength(const EditBuffer& buffer, int32_t line) {
    return static_cast<int32_t>(LineAt(buffer, line).size());
}

inline int32_t LastLine(const EditBuffer& buffer) {
    return buffer.lines.lineCount - 1;
}

} // namespace ruvo
