// Where a line of tool output points: file, line, column and severity, and how that place is
// found on disk and in the text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ruvo {

enum class MessageSeverity : uint8_t { Error, Warning, Note };

struct MessageLocation {
    std::string file;     // as the tool printed it
    int32_t line = 0;     // 1-based
    int32_t column = 0;   // 1-based; 0 when the tool gives none
    int32_t tabWidth = 1; // the tool counts a tab up to the next multiple of this
    MessageSeverity severity = MessageSeverity::Error;
};

// A file named in a message, taken relative to the tool's working directory unless it is
// absolute ("C:/a.v", "C:\a.v", "\a.v", "/a.v"); an empty or "." directory leaves it as it is.
std::string ResolveMessagePath(std::string_view workingDirectory, std::string_view file);
// The path without "." steps, with ".." steps taken back where they can be and with every
// slash of the kind it uses first; letter case is kept.
std::string CleanPath(std::string_view path);
// Whether two clean paths name the same file as Windows sees it: letter case and the kind of
// slash do not count. Allocates nothing, so window painting may ask it for every entry.
bool SameFilePath(std::string_view a, std::string_view b);
// The 0-based byte index in lineText of a tool's 1-based column; a column past the end gives
// the line's length, 0 or less gives 0.
int32_t ColumnToByte(std::string_view lineText, int32_t column, int32_t tabWidth);

} // namespace ruvo
