// A position in a buffer: 0-based line and byte column.
#pragma once

#include <cstdint>

namespace ruvo {

struct TextPos {
    int32_t line = 0;
    int32_t column = 0;
    friend bool operator==(const TextPos&, const TextPos&) = default;
};

constexpr TextPos MakePos(int32_t line, int32_t column) { return TextPos{line, column}; }

} // namespace ruvo
