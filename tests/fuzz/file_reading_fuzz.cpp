// Fuzzes file reading with any bytes (NUL, lone CR, lines past 254 bytes, no final line end)
// against a plain model of the piece rule: lines and byte count must be the model's.
#include <cstdio>

#include "docs/file_reading.h"
#include "fuzz_session.h"

using namespace ruvo;

namespace {

// Pieces end after a LF or after 254 bytes; a NUL ends a piece's text; LF and then one CR go.
long ModelRead(std::string_view bytes, std::vector<std::string>& lines) {
    long count = 0;
    bool endedWithNewline = true;
    while (!bytes.empty()) {
        size_t length = std::min<size_t>(bytes.size(), ReadChunkLength);
        const size_t lineFeed = bytes.substr(0, length).find('\n');
        if (lineFeed != std::string_view::npos) length = lineFeed + 1;
        std::string_view piece = bytes.substr(0, length);
        bytes.remove_prefix(length);
        piece = piece.substr(0, piece.find('\0'));
        count += static_cast<long>(piece.size());
        endedWithNewline = !piece.empty() && piece.back() == '\n';
        if (endedWithNewline) piece.remove_suffix(1);
        if (!piece.empty() && piece.back() == '\r') piece.remove_suffix(1);
        lines.emplace_back(piece);
    }
    if (endedWithNewline) lines.emplace_back();
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    InstalledEditor session;
    std::string bytes(AsText(data, size));
    std::FILE* file =
        size == 0 ? std::fopen("/dev/null", "rb") : fmemopen(bytes.data(), bytes.size(), "rb");
    if (file == nullptr) return 0;
    LineList lines;
    lines.growBy = 16;
    const long counted = readLines(file, lines);
    std::fclose(file);

    std::vector<std::string> expected;
    if (counted != ModelRead(bytes, expected)) std::abort();
    if (lines.lineCount != static_cast<int32_t>(expected.size())) std::abort();
    for (int32_t i = 0; i < lines.lineCount; ++i)
        if (expected[static_cast<size_t>(i)] != lines.lineText[i]) std::abort();
    ClearLineList(&lines);
    return 0;
}
