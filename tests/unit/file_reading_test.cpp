// Reading files into buffers: pieces of 254 characters, line ends, the size check.
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "docs/documents.h"
#include "docs/file_reading.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/text_store.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;

class FileReadingTest : public EditorTest {
  protected:
    // Opens a file holding `bytes` and returns the new buffer's lines.
    Lines Load(const std::string& bytes, const std::string& name = "in.vhd") {
        const std::string path = folder.File(name);
        WriteBytes(path, bytes);
        EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
        return Current() != nullptr ? LinesOf(*Current()) : Lines{};
    }
    TempFolder folder;
};

TEST_F(FileReadingTest, LineEndsAndTheFinalEmptyLineWhileOtherCarriageReturnsStay) {
    const std::pair<std::string, Lines> cases[] = {
        {"a\r\nb\r\n", {"a", "b", ""}},
        {"a\r\nb", {"a", "b"}},
        {"a\nb\n", {"a", "b", ""}},
        {"", {""}},
        {"\n", {"", ""}},
        {"x\ty\r\n\tz\r\r\nmid\rdle", {"x\ty", "\tz\r", "mid\rdle"}},
    };
    int file = 0;
    for (const auto& [bytes, lines] : cases) {
        EXPECT_EQ(Load(bytes, std::to_string(++file) + ".vhd"), lines);
        EXPECT_EQ(Current()->lines.modified, 0);
    }
    EXPECT_EQ(host.busyCursorDepth, 0);
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(FileReadingTest, LongLinesAreSplitIntoPiecesOf254) {
    const std::string longLine(300, 'q');
    EXPECT_EQ(Load(longLine + "\r\nend"),
              (Lines{std::string(254, 'q'), std::string(46, 'q'), "end"}));
    const std::string exact(254, 'e');
    // A piece of exactly 254 characters leaves its line end to a piece of its own.
    EXPECT_EQ(Load(exact + "\nx", "exact.vhd"), (Lines{exact, "", "x"}));
    const std::string withCR(253, 'c');
    EXPECT_EQ(Load(withCR + "\r\n", "cr.vhd"), (Lines{withCR, "", ""}));
}

TEST_F(FileReadingTest, NulByteGivesTheSizeMessageAndKeepsTheText) {
    const std::string path = folder.File("nul.bin");
    // Like a C line reader, the piece "ab\0cd\n" counts as "ab" without a line end.
    Load(std::string("ab\0cd\nef\n", 9), "nul.bin");
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text,
              "Error(s) reading file '" + path + "'.\nExpected 9 bytes, actually read 5 bytes.");
    EXPECT_EQ(LinesOf(*Current()), (Lines{"ab", "ef", ""}));
}

TEST_F(FileReadingTest, BinaryFileOpensWithAMessageAndEveryLineWithinLimits) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i)
        bytes += static_cast<char>((i * 7 + 3) % 256);
    const Lines lines = Load(bytes, "blob.bin");
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_NE(host.boxes[0].text.find("Expected 4096 bytes"), std::string::npos);
    for (const std::string& line : lines) {
        EXPECT_LE(line.size(), 254u);
        EXPECT_EQ(line.find('\n'), std::string::npos);
    }
}

TEST_F(FileReadingTest, UnreadableFileStillOpensAnEmptyBuffer) {
    // A folder exists, so no question is asked, but it cannot be read as a file.
    const std::string path = folder.File("sub");
    std::filesystem::create_directory(path);
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
    ASSERT_NE(Current(), nullptr);
    EXPECT_EQ(LinesOf(*Current()), (Lines{""}));
    EXPECT_EQ(Current()->fileName, path);
}

TEST_F(FileReadingTest, FileTimeIsTheModificationTime) {
    const std::string path = folder.File("t.vhd");
    WriteBytes(path, "x");
    TouchLater(path, 1000);
    ASSERT_EQ(openFile(path, 0, 0, KindDocument), 0);
    const auto stamp = std::filesystem::last_write_time(path);
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(
        std::chrono::file_clock::to_sys(stamp).time_since_epoch());
    EXPECT_EQ(Current()->fileTime, static_cast<int32_t>(seconds.count()));
}

// The chunk rule as a line-reading call with a 255-character buffer gives it.
Lines ChunkRule(const std::string& path, long& count) {
    Lines lines;
    std::FILE* file = std::fopen(path.c_str(), "rb");
    char piece[ReadChunkLength + 1];
    bool endedWithNewline = true;
    count = 0;
    while (std::fgets(piece, sizeof piece, file) != nullptr) {
        size_t length = std::strlen(piece);
        count += static_cast<long>(length);
        endedWithNewline = length > 0 && piece[length - 1] == '\n';
        if (endedWithNewline) --length;
        if (length > 0 && piece[length - 1] == '\r') --length;
        lines.emplace_back(piece, length);
    }
    std::fclose(file);
    if (endedWithNewline) lines.emplace_back();
    return lines;
}

// Lines of 253, 254 and 255 bytes and longer ones, every kind of line end, NUL bytes, lone
// carriage returns, and sometimes no final line end.
std::string RandomBytes(std::mt19937& random, int lineCount) {
    static const int lengths[] = {0, 1, 7, 40, 253, 254, 255, 256, 509};
    static const char* const ends[] = {"\n", "\r\n", "\r", "\r\r\n", "\n\r"};
    std::string bytes;
    for (int i = 0; i < lineCount; ++i) {
        const int length = lengths[random() % std::size(lengths)];
        for (int k = 0; k < length; ++k) {
            const unsigned roll = random() % 400;
            bytes += roll == 0   ? '\0'
                     : roll < 8  ? '\r'
                     : roll < 30 ? '\t'
                                 : "ab z_(x\xe9"[roll % 8];
        }
        if (i + 1 < lineCount || random() % 2 == 0) bytes += ends[random() % std::size(ends)];
    }
    return bytes;
}

TEST_F(FileReadingTest, TheReaderGivesWhatTheChunkRuleGivesAndItsLinesEditLikeAnyOthers) {
    std::mt19937 random(17);
    const std::string path = folder.File("random.bin");
    // Small files, and one that spans several of the reader's blocks.
    for (int file = 0; file < 41; ++file) {
        WriteBytes(path, RandomBytes(random, file < 40 ? file % 20 : 5000));
        long expectedCount = 0;
        const Lines expected = ChunkRule(path, expectedCount);
        EditBuffer buffer;
        buffer.lines.growBy = 2; // the slot array grows often, with a gap inside it
        std::FILE* in = std::fopen(path.c_str(), "rb");
        EXPECT_EQ(readLines(in, buffer.lines), expectedCount) << file;
        std::fclose(in);
        ASSERT_EQ(LinesOf(buffer), expected) << file;

        // Whole lines removed and put in at random places, checked against a plain model.
        Lines model = expected;
        for (int step = 0; step < 60; ++step) {
            const int32_t at = static_cast<int32_t>(random() % model.size());
            if (random() % 2 == 0 && model.size() > 1) {
                const int32_t end = at + static_cast<int32_t>(random() % (model.size() - at));
                ASSERT_EQ(DeleteRange(buffer, MakePos(at, 0), MakePos(end, 0)), 1);
                model.erase(model.begin() + at, model.begin() + end);
            } else {
                const std::string inserted = std::to_string(step) + "\nnew\n";
                ASSERT_EQ(InsertText(buffer, inserted, at, 0), 1);
                model.insert(model.begin() + at, {std::to_string(step), "new"});
            }
        }
        EXPECT_EQ(LinesOf(buffer), model) << file;
        ClearLineList(&buffer.lines);
    }
}

TEST_F(FileReadingTest, RunningOutOfMemoryOpensNothingAndNamesTheRequestAndTheTotal) {
    std::string bytes;
    for (int i = 0; i < 20000; ++i)
        bytes += "  NAND2X1 U" + std::to_string(i) + " (.A(n1), .Y(n2));\n";
    const std::string path = folder.File("net.v");
    WriteBytes(path, bytes);
    long count = 0;
    const Lines all = ChunkRule(path, count);
    AllocatorStats& stats = editor.settings.allocator;
    // Too little for the line storage; enough for it but not for all the slots.
    for (const long room :
         {static_cast<long>(bytes.size() / 2), static_cast<long>(bytes.size()) + 20000}) {
        host.boxes.clear();
        stats.limitBytes = stats.totalBytes + room;
        // Part of the file in a buffer would cut the file short when saved: nothing opens.
        EXPECT_EQ(openFile(path, 0, 0, KindDocument), 1);
        const long limit = stats.limitBytes;
        stats.limitBytes = -1;
        ASSERT_EQ(host.boxes.size(), 1u) << room;
        int requested = 0;
        long total = 0;
        ASSERT_EQ(std::sscanf(host.boxes[0].text.c_str(), "Alloc failed for %d bytes (Total %ld).",
                              &requested, &total),
                  2)
            << host.boxes[0].text;
        EXPECT_LE(total, limit);
        EXPECT_GT(total + requested, limit);
        EXPECT_EQ(Current(), nullptr);
    }
    ASSERT_EQ(openFile(path, 0, 0, KindDocument), 0);
    EXPECT_EQ(LinesOf(*Current()), all);
}

} // namespace
} // namespace ruvo
