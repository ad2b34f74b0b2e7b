// Reading a text file into the line store of a buffer.
#include "docs/file_reading.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "docs/file_status.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/line_list.h"
#include "engine/line_slabs.h"
#include "host/host.h"
#include "settings/error_report.h"

namespace ruvo {

namespace {

constexpr size_t BlockSize = 1 << 18;
constexpr size_t SmallestBlock = 1 << 12;

// One piece as a line-reading call with a 255-character buffer returns it.
struct Piece {
    const char* text = nullptr;
    size_t rawLength = 0; // bytes taken from the file: up to and with a LF, at most 254
    size_t length = 0;    // bytes of it before a NUL byte, which ends the piece as a C string
};

// Hands out the pieces from large blocks of the file. The next line feed and the next NUL
// byte are each found once per search, not once per piece.
class ChunkReader {
  public:
    explicit ChunkReader(std::FILE* file) : file_(file) {
        // The blocks are large already; the stream's own buffer would only add a copy.
        std::setvbuf(file_, nullptr, _IONBF, 0);
    }

    // A small file is read in one block of its size; 0 when the size is not known.
    void Expect(long bytes) {
        if (bytes > 0) size_ = std::clamp(static_cast<size_t>(bytes) + 1, SmallestBlock, BlockSize);
    }

    bool Next(Piece& piece) {
        if (length_ - position_ < ReadChunkLength && !atEnd_) Refill();
        if (position_ == length_) return false;
        const size_t limit = std::min(length_, position_ + ReadChunkLength);
        const size_t lineFeed = Upcoming(lineFeed_, '\n');
        const size_t end = lineFeed < limit ? lineFeed + 1 : limit;
        const size_t nul = Upcoming(nul_, '\0');
        piece.text = block_.get() + position_;
        piece.rawLength = end - position_;
        piece.length = (nul < end ? nul : end) - position_;
        position_ = end;
        return true;
    }

  private:
    static constexpr size_t Unknown = static_cast<size_t>(-1);

    // Index of the first byte c at or after the position, or the block's length.
    size_t Upcoming(size_t& cached, char c) {
        if (cached == Unknown || cached < position_) {
            const char* from = block_.get() + position_;
            const void* found = std::memchr(from, c, length_ - position_);
            cached = found != nullptr
                         ? static_cast<size_t>(static_cast<const char*>(found) - block_.get())
                         : length_;
        }
        return cached;
    }

    void Refill() {
        if (!block_) block_.reset(new char[size_]);
        const size_t remaining = length_ - position_;
        std::memmove(block_.get(), block_.get() + position_, remaining);
        position_ = 0;
        length_ = remaining;
        const size_t wanted = size_ - length_;
        const size_t got = std::fread(block_.get() + length_, 1, wanted, file_);
        length_ += got;
        if (got < wanted) atEnd_ = true;
        lineFeed_ = Unknown;
        nul_ = Unknown;
    }

    std::FILE* file_;
    std::unique_ptr<char[]> block_;
    size_t size_ = BlockSize;
    size_t position_ = 0;
    size_t length_ = 0;
    size_t lineFeed_ = Unknown;
    size_t nul_ = Unknown;
    bool atEnd_ = false;
};

// Bytes from the stream's position to the end of the file, or 0 when it cannot tell.
long BytesAhead(std::FILE* file) {
    const long here = std::ftell(file);
    if (here < 0 || std::fseek(file, 0, SEEK_END) != 0) return 0;
    const long end = std::ftell(file);
    if (std::fseek(file, here, SEEK_SET) != 0) return 0;
    return end > here ? end - here : 0;
}

// When the slot array is full, makes room for as many lines as the file seems to hold from
// what was read so far, so that a large file's array is rarely copied. A file of short lines
// after long ones is given no more than one slot per 16 bytes to come (half the file's size);
// its array grows by half its size at a time beyond that.
bool ReserveLines(LineList& lines, long expected, long taken) {
    if (taken <= 0 || expected <= taken) return true;
    const double perByte = static_cast<double>(lines.lineCount) / static_cast<double>(taken);
    const double estimate = std::min(perByte * static_cast<double>(expected - taken) * 1.02,
                                     static_cast<double>(expected - taken) / 16.0);
    const double wanted = std::min(estimate, static_cast<double>(INT32_MAX / 2));
    if (wanted <= static_cast<double>(lines.capacity - lines.lineCount)) return true;
    return MakeRoom(&lines, lines.lineCount, static_cast<int32_t>(wanted)) == 0;
}

} // namespace

long readLines(std::FILE* file, LineList& lines) {
    ChunkReader reader(file);
    const long expected = BytesAhead(file);
    reader.Expect(expected);
    long taken = 0;
    long count = 0;
    bool endedWithNewline = true; // an empty file gives one empty line
    Piece piece;
    while (reader.Next(piece)) {
        taken += static_cast<long>(piece.rawLength);
        size_t length = piece.length;
        count += static_cast<long>(length);
        endedWithNewline = length > 0 && piece.text[length - 1] == '\n';
        if (endedWithNewline) --length;
        if (length > 0 && piece.text[length - 1] == '\r') --length;
        if (lines.lineCount + 1 >= lines.capacity && !ReserveLines(lines, expected, taken))
            return -1;
        // The lines go into large slabs sized for the rest of the file.
        if (AppendSlabLine(&lines, std::string_view(piece.text, length), expected - taken) != 0) {
            EndSlabFilling(&lines);
            return -1;
        }
    }
    EndSlabFilling(&lines);
    if (endedWithNewline && AppendLine(&lines, "") != 0) return -1;
    return count;
}

FileRead readFileIntoBuffer(EditBuffer& buffer, std::string_view name) {
    Host& host = TheEditor().host;
    const std::string nameText(name);
    std::FILE* file = std::fopen(nameText.c_str(), "rb");
    if (file == nullptr) {
        // The kind word is empty, hence the two blanks.
        host.ErrorBox(nullptr, ErrorText(ErrorCannotOpen, nameText.c_str(), ""));
        return FileRead::CannotOpen;
    }
    host.SetBusyCursor(true);
    const std::optional<FileStatus> status = fileStatus(name);
    if (status) buffer.fileTime = status->modTime;
    const long count = readLines(file, buffer.lines);
    std::fclose(file);
    if (count < 0) {
        // Part of a file saved back would cut the file short.
        ClearLineList(&buffer.lines);
        host.SetBusyCursor(false);
        return FileRead::OutOfMemory;
    }
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
    return FileRead::Read;
}

} // namespace ruvo
