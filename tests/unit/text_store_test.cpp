// The text store: insertion and deletion with the line limit; the line array and line strings
// under it, and reading files into it.
#include "engine/text_store.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "docs/documents.h"
#include "docs/file_reading.h"
#include "editor_fixture.h"
#include "engine/line_list.h"
#include "engine/line_strings.h"
#include "settings/allocator.h"
#include "test_files.h"

namespace ruvo {
namespace {

using TextStoreTest = EditorTest;

TEST_F(TextStoreTest, EditsSplitAndJoinLinesWithinTheLineLimit) {
    // {line, column, text, inserted, line after}: lone carriage returns stay, the one before a
    // line feed goes but counts toward the limit.
    const std::string h200(200, 'h'), p55(55, 'p');
    const std::tuple<std::string, int32_t, std::string, int, std::string> cases[] = {
        {"xyz", 1, "1\n2\r\n3\n\n4\rb", 1, "x1\n2\n3\n\n4\rbyz"},
        {"xyz", 1, "", 1, "xyz"},
        {h200, 200, p55 + "\r\nz", 0, h200},
    };
    for (const auto& [line, column, text, inserted, after] : cases) {
        TestBuffer buffer("first\n" + line);
        buffer->lines.modified = 0;
        EXPECT_EQ(InsertText(*buffer, text, 1, column), inserted) << text.size();
        EXPECT_EQ(buffer.Text(), "first\n" + after) << text.size();
        EXPECT_EQ(buffer->lines.modified, inserted == 1 && !text.empty() ? 1 : 0);
    }
    EXPECT_EQ(EndOfInsertion(MakePos(1, 1), "1\n2\r\n3\n\n4"), MakePos(5, 1));
    EXPECT_EQ(EndOfInsertion(MakePos(3, 7), "abc"), MakePos(3, 10));
    EXPECT_EQ(StoredText("a\r\nb\r\r\n\rc\r"), "a\nb\r\n\rc\r"); // only CR LF loses its CR

    // Deletion {start, end, text after} in turn: a backwards range changes nothing, an end past
    // a line or the text deletes to its end.
    TestBuffer lines("l0\nl1\nab");
    EXPECT_EQ(InsertText(*lines, "x", 3, 0), 0);                            // a line past the end
    char* range = GetRangeText(*lines, MakePos(0, 1), MakePos(1, 9), true); // the end kept in
    EXPECT_STREQ(range, "0\r\nl1");
    Release(range);
    const std::tuple<TextPos, TextPos, const char*> steps[] = {
        {{2, 1}, {1, 0}, "l0\nl1\nab"}, {{2, 1}, {2, 9}, "l0\nl1\na"}, {{1, 1}, {9, 0}, "l0\nl"}};
    for (const auto& [start, end, after] : steps) {
        lines->lines.modified = 0;
        EXPECT_EQ(DeleteRange(*lines, start, end), 1);
        EXPECT_EQ(lines.Text(), after);
        EXPECT_EQ(lines->lines.modified, PosLess(start, end) ? 1 : 0) << after;
    }

    // Replacing a line marks the text; a line past the end or over 255 bytes is refused.
    lines->lines.modified = 0;
    EXPECT_EQ(ReplaceLine(*lines, "x", 2) + ReplaceLine(*lines, std::string(256, 'x'), 0), 0);
    EXPECT_EQ(ReplaceLine(*lines, "zwei", 1) + ReplaceLine(*lines, std::string(255, 'x'), 0), 2);
    EXPECT_EQ(lines.Text() + std::to_string(lines->lines.modified),
              std::string(255, 'x') + "\nzwei1");
}

TEST_F(TextStoreTest, LineStringsAndListsEditInPlaceAndSurviveAFailedAllocation) {
    char text[256] = "\rab\rcdef\r\n";
    StripLineEnd(text);
    RemoveCR(text);
    DeleteLeadingChars(text, 2);
    OpenGap(text, 1);
    ReplacePrefix(text, 2, "[[");
    EXPECT_EQ(CopyIndent(text, " \t \vcode", 3), 3);
    EXPECT_STREQ(text, " \t [[def");
    for (const auto& [line, stripped] :
         {std::pair("\n", ""), {"x\r", "x\r"}, {"y\r\n", "y"}, {"", ""}}) {
        std::strcpy(text, line);
        StripLineEnd(text);
        EXPECT_STREQ(text, stripped);
    }
    EXPECT_EQ(CopyIndent(text, "code", 8), 0);

    LineList* list = CreateLineList(2, 1);
    EXPECT_TRUE(IsBufferEmpty(list));
    for (int i = 0; i < 9; ++i) // past four times the growth the array grows by half
        ASSERT_EQ(AppendLine(list, std::to_string(i)), 0);
    ASSERT_EQ(MakeRoom(list, 1, 2), 0);
    list->lineText[2] = DupString("xyz", 2); // a length past the text would stop at its end
    list->lineText[3] = DupString("uvw", 0); // no length: all of it
    list->lineCount += 2;
    EXPECT_EQ(DupString(nullptr, 2), nullptr);
    LineList* copy = CopyLineList(list, nullptr);
    EXPECT_EQ(std::tuple(copy->lineCount, std::string(copy->lineText[2]), copy->lineText[3],
                         copy->lineText[5][0]),
              std::tuple(11, std::string("xy"), std::string("uvw"), '3'));
    list->modified = list->hasSelection = 1;
    ClearLineList(list);
    EXPECT_EQ(list->lineCount + list->capacity + list->modified + list->hasSelection, 0);
    AppendLine(list, "");
    AppendLine(list, "");
    EXPECT_FALSE(IsBufferEmpty(list)); // two empty lines are not empty

    // Out of memory: a copy that fails part-way frees what it made, the copied list is kept.
    AllocatorStats& stats = editor.settings.allocator;
    stats.limitBytes =
        stats.totalBytes + static_cast<long>(sizeof(LineList) + 11 * sizeof(char*) + 4);
    EXPECT_EQ(CopyLineList(copy, nullptr), nullptr);
    stats.limitBytes = -1;
    EXPECT_EQ(copy->lineCount, 11);
    DestroyLineList(copy);
    DestroyLineList(list);
}

// The pieces a line-reading call with a 255-character buffer gives, as lines.
Texts ChunkRule(const std::string& path, long& count) {
    Texts lines;
    std::FILE* file = std::fopen(path.c_str(), "rb");
    char piece[ReadChunkLength + 1];
    bool endedWithNewline = true;
    for (count = 0; std::fgets(piece, sizeof piece, file) != nullptr;) {
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

TEST_F(TextStoreTest, FilesAreReadInPiecesOf254WithTheSizeMessage) {
    // Like a C line reader, "ab\0cd\n" counts as "ab" without a line end: the size differs.
    TempFolder folder;
    WriteBytes(folder.File("nul.vhd"), std::string("ab\0cd\nef\n", 9));
    ASSERT_EQ(openFile(folder.File("nul.vhd"), 0, 0, KindDocument), 0);
    EXPECT_EQ(LinesOf(*Current()), (Texts{"ab", "ef", ""}));
    EXPECT_EQ(std::pair(Current()->lines.modified, host.busyCursorDepth), std::pair(0, 0));
    EXPECT_EQ(host.ErrorBoxTexts(), "Error(s) reading file '" + folder.File("nul.vhd") +
                                        "'.\nExpected 9 bytes, actually read 5 bytes.\n");
    // A folder cannot be read as a file: an empty buffer all the same.
    std::filesystem::create_directory(folder.File("sub"));
    EXPECT_EQ(openFile(folder.File("sub"), 0, 0, KindDocument), 0);
    EXPECT_EQ(LinesOf(*Current()), Texts{""});

    // A file of several read blocks with every kind of line end, and its lines edited away.
    std::string bytes;
    const char* const ends[] = {"\n", "\r\n", "\r", "\r\r\n", "\n\r", ""};
    for (int i = 0; i < 5000; ++i)
        bytes += std::string(i * 37 % 520, "ab\tz\r\0x"[i % 7]) + ends[i % 6];
    WriteBytes(folder.File("big.bin"), bytes);
    long count = 0;
    const Texts expected = ChunkRule(folder.File("big.bin"), count);
    EditBuffer buffer;
    buffer.lines.growBy = 2; // the slot array grows often
    std::FILE* in = std::fopen(folder.File("big.bin").c_str(), "rb");
    EXPECT_EQ(readLines(in, buffer.lines), count);
    std::fclose(in);
    EXPECT_EQ(LinesOf(buffer), expected);
    ASSERT_EQ(DeleteRange(buffer, MakePos(0, 0), MakePos(buffer.lines.lineCount, 0)), 1);
    ASSERT_EQ(InsertText(buffer, "new\nlines", 0, 0), 1);
    EXPECT_EQ(LinesOf(buffer), (Texts{"new", "lines"}));
    ClearLineList(&buffer.lines);
}

} // namespace
} // namespace ruvo
