// A position in a buffer: 0-based line and byte column, and a range of two of them.
#pragma once

#include <cstdint>

namespace ruvo {

struct TextPos {
    int32_t line = 0;
    int32_t column = 0;
    friend bool operator==(const TextPos&, const TextPos&) = default;
};

// Two positions: a selection, a word, or the bounds of a search.
struct TextRange {
    TextPos start;
    TextPos end;
    friend bool operator==(const TextRange&, const TextRange&) = default;
};

constexpr TextPos MakePos(int32_t line, int32_t column) {
    return TextPos{line, column};
}

constexpr bool PosEqual(TextPos a, TextPos b) {
    return a.line == b.line && a.column == b.column;
}

// Line first, then column.
constexpr bool PosLess(TextPos a, TextPos b) {
    return a.line < b.line || (a.line == b.line && a.column < b.column);
}

constexpr bool PosLessOrEqual(TextPos a, TextPos b) {
    return !PosLess(b, a);
}

constexpr void SwapPos(TextPos& a, TextPos& b) {
    const TextPos kept = a;
    a = b;
    b = kept;
}

} // namespace ruvo
