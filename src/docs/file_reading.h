// Reading a text file into the line store of a buffer.
#pragma once

#include <cstdio>
#include <string_view>

namespace ruvo {

struct EditBuffer;
struct LineList;

// Largest piece of a physical line that becomes one stored line.
constexpr int ReadChunkLength = 254;

// Appends the lines of an open binary file: pieces of at most 254 characters, LF and then
// CR stripped from each piece, one empty line after a final line end (or for an empty file).
// Returns the number of bytes counted (a NUL byte ends the count of its piece); -1 when
// memory ran out (what was read so far is kept).
long readLines(std::FILE* file, LineList& lines);

enum class FileRead { Read, CannotOpen, OutOfMemory };

// Fills the buffer from the named file with its messages: the open failure, the byte count
// check. Sets fileTime and clears modified. When memory runs out the buffer is left empty,
// never holding part of the file.
[[nodiscard]] FileRead readFileIntoBuffer(EditBuffer& buffer, std::string_view name);

} // namespace ruvo
