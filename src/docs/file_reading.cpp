// Reading a text file into the line store of a buffer.
#include "docs/file_reading.h"

#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "docs/file_status.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/line_list.h"
#include "host/host.h"
#include "settings/error_report.h"

namespace ruvo {

namespace {

constexpr size_t BlockSize = 1 << 16;

// Hands out the pieces a line-reading call with a 255-character buffer would return,
// from large blocks of the file.
class ChunkReader {
  public:
    explicit ChunkReader(std::FILE* file) : file_(file), block_(new char[BlockSize]) {
        // The blocks are large already; the stream's own buffer would only add a copy.
        std::setvbuf(file_, nullptr, _IONBF, 0);
    }

    // The next piece (ending after a LF or after 254 characters), or false at the end.
    bool Next(const char*& piece, size_t& length) {
        if (length_ - position_ < ReadChunkLength && !atEnd_) Refill();
        if (position_ == length_) return false;
        const char* start = block_.get() + position_;
        size_t available = length_ - position_;
        if (available > ReadChunkLength) available = ReadChunkLength;
        const void* lineFeed = std::memchr(start, '\n', available);
        length = lineFeed != nullptr
                     ? static_cast<size_t>(static_cast<const char*>(lineFeed) - start) + 1
                     : available;
        piece = start;
        position_ += length;
        return true;
    }

  private:
    void Refill() {
        const size_t remaining = length_ - position_;
        std::memmove(block_.get(), block_.get() + position_, remaining);
        position_ = 0;
        length_ = remaining;
        const size_t wanted = BlockSize - length_;
        const size_t got = std::fread(block_.get() + length_, 1, wanted, file_);
        length_ += got;
        if (got < wanted) atEnd_ = true;
    }

    std::FILE* file_;
    std::unique_ptr<char[]> block_;
    size_t position_ = 0;
    size_t length_ = 0;
    bool atEnd_ = false;
};

} // namespace

long readLines(std::FILE* file, LineList& lines) {
    ChunkReader reader(file);
    long count = 0;
    bool endedWithNewline = true; // an empty file gives one empty line
    const char* piece = nullptr;
    size_t rawLength = 0;
    while (reader.Next(piece, rawLength)) {
        // The piece is a C string: a NUL byte ends it, and its bytes are not counted.
        const void* nul = std::memchr(piece, '\0', rawLength);
        size_t length =
            nul != nullptr ? static_cast<size_t>(static_cast<const char*>(nul) - piece) : rawLength;
        count += static_cast<long>(length);
        endedWithNewline = length > 0 && piece[length - 1] == '\n';
        if (endedWithNewline) --length;
        if (length > 0 && piece[length - 1] == '\r') --length;
        // Large files grow the array by half its size at a time, not by growBy slots, so
        // that its copies do not dominate the load.
        if (lines.lineCount + 1 >= lines.capacity && lines.capacity >= 4 * lines.growBy &&
            MakeRoom(&lines, lines.lineCount, lines.capacity / 2) != 0)
            return -1;
        if (AppendLine(&lines, std::string_view(piece, length)) != 0) return -1;
    }
    if (endedWithNewline && AppendLine(&lines, "") != 0) return -1;
    return count;
}

bool readFileIntoBuffer(EditBuffer& buffer, std::string_view name) {
    Host& host = TheEditor().host;
    const std::string nameText(name);
    std::FILE* file = std::fopen(nameText.c_str(), "rb");
    if (file == nullptr) {
        // The kind word is empty, hence the two blanks.
        host.ErrorBox(nullptr, ErrorText(ErrorCannotOpen, nameText.c_str(), ""));
        return false;
    }
    host.SetBusyCursor(true);
    const std::optional<FileStatus> status = fileStatus(name);
    if (status) buffer.fileTime = status->modTime;
    const long count = readLines(file, buffer.lines);
    std::fclose(file);
    if (buffer.lines.lineCount == 0) (void)AppendLine(&buffer.lines, "");
    if (status && count >= 0 && count != status->size) {
        char text[600];
        std::snprintf(text, sizeof text,
                      "Error(s) reading file '%s'.\nExpected %d bytes, actually read %ld bytes.",
                      nameText.c_str(), static_cast<int>(status->size), count);
        host.ErrorBox(nullptr, text);
    }
    buffer.lines.modified = 0;
    host.SetBusyCursor(false);
    return true;
}

} // namespace ruvo
