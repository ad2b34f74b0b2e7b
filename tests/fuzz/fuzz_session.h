// What every fuzz target shares besides a fresh InstalledEditor per input: inputs split into
// parts, and scratch files for readers that open a path.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "buffer_builder.h"
#include "engine/edit_buffer.h"
#include "fake_host.h"

namespace ruvo {

inline std::string_view AsText(const uint8_t* data, size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// The text before its first NUL, as a C string holds it.
inline std::string_view CText(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

// The parts of an input separated by lines "%%"; seeds join a definition file and its input so.
inline std::vector<std::string_view> SplitParts(std::string_view text) {
    std::vector<std::string_view> parts;
    for (;;) {
        const size_t mark = text.find("\n%%\n");
        if (mark == std::string_view::npos) break;
        parts.push_back(text.substr(0, mark + 1));
        text.remove_prefix(mark + 4);
    }
    parts.push_back(text);
    return parts;
}

// Lines of a text split at line feeds (a CR before one kept, as tool output may have it).
inline std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    size_t from = 0;
    while (from <= text.size()) {
        const size_t lf = text.find('\n', from);
        if (lf == std::string_view::npos) {
            if (from < text.size()) lines.push_back(text.substr(from));
            break;
        }
        lines.push_back(text.substr(from, lf - from));
        from = lf + 1;
    }
    return lines;
}

// Each fuzzer runs in an empty folder of its own, entered before the first input, so a path in
// an input names nothing real; in memory, as files are written for every input.
inline const bool scratchFolderEntered = [] {
    static char folder[] = "/dev/shm/ruvo-fuzz-XXXXXX";
    if (mkdtemp(folder) == nullptr || chdir(folder) != 0) std::abort();
    std::atexit([] { std::filesystem::remove_all(folder); });
    return true;
}();

// Writes the bytes to a file of the scratch folder and returns its name.
inline std::string WriteScratchFile(const char* name, std::string_view bytes) {
    std::FILE* file = std::fopen(name, "wb");
    if (file == nullptr) std::abort();
    if (!bytes.empty() && std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size())
        std::abort();
    std::fclose(file);
    return name;
}

// The lines as the store holds them: each up to a NUL and cut to the line length the store
// allows, joined by line feeds.
inline std::string BufferText(const std::vector<std::string_view>& lines) {
    std::string text;
    for (size_t i = 0; i < lines.size(); ++i)
        text += (i > 0 ? "\n" : "") + std::string(CText(lines[i]).substr(0, MaxLineLength));
    return text;
}

// Aborts unless every line fits the store and holds no line end.
inline void CheckLines(const EditBuffer& buffer) {
    if (buffer.lines.lineCount < 1) std::abort();
    for (const std::string& line : LinesOf(buffer))
        if (line.size() > MaxLineLength || line.find('\n') != std::string::npos) std::abort();
}

} // namespace ruvo
