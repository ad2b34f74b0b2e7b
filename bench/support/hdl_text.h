// Large HDL texts for the benchmarks, made by repeating a block of sample lines.
#pragma once

#include <span>
#include <string>

namespace ruvo {

// `lines` lines taken from `block` in turn, joined by line feeds (no final one).
inline std::string RepeatLines(std::span<const char* const> block, int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i) {
        if (i > 0) text += '\n';
        text += block[static_cast<size_t>(i) % block.size()];
    }
    return text;
}

} // namespace ruvo
