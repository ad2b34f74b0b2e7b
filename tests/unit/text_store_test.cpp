// The text store: columns, stepping, range text, insertion and deletion with the line limit;
// the line array under it and reading files into it.
#include "engine/text_store.h"

#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "buffer_builder.h"
#include "docs/documents.h"
#include "docs/file_reading.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/line_list.h"
#include "engine/line_strings.h"
#include "settings/allocator.h"

namespace ruvo {
namespace {

using TextStoreTest = EditorTest;
const std::string H200(200, 'h');

TEST_F(TextStoreTest, InsertionSplitsAtLineFeedsAndStopsAtTheLineLimit) {
    // {line, column, text, inserted, line after}: lone carriage returns stay, the one before a
    // line feed goes but counts toward the limit; head plus first piece and last piece plus tail
    // count; a middle line that would be too long refuses the whole insertion.
    const std::string t50(50, 't'), t55(55, 't'), p55(55, 'p'), q200(200, 'q');
    const struct {
        std::string line;
        int32_t column;
        std::string text;
        int inserted;
        std::string after;
    } cases[] = {
        {"xyz", 1, "a\nb", 1, "xa\nbyz"},
        {"xyz", 1, "a\r\nb", 1, "xa\nbyz"},
        {"xyz", 1, "a\rb", 1, "xa\rbyz"},
        {"xyz", 1, "1\n2\r\n3\n\n4", 1, "x1\n2\n3\n\n4yz"},
        {"xyz", 1, "", 1, "xyz"},
        {H200 + t50, 200, "12345", 1, H200 + "12345" + t50},
        {H200 + t50, 200, "123456", 0, H200 + t50},
        {H200 + t55, 200, p55 + "p\n", 0, H200 + t55},
        {H200 + t55, 200, p55 + "\n", 1, H200 + p55 + "\n" + t55},
        {t55, 0, "\nq" + q200, 0, t55},
        {t55, 0, "\n" + q200, 1, "\n" + q200 + t55},
        {H200, 200, p55 + "\r\nz", 0, H200},
        {H200, 200, p55 + "\nz", 1, H200 + p55 + "\nz"},
        {"ab", 1, "1\n" + std::string(256, 'm') + "\n2", 0, "ab"},
    };
    for (const auto& c : cases) {
        TestBuffer buffer("first\n" + c.line);
        buffer->lines.modified = 0;
        EXPECT_EQ(InsertText(*buffer, c.text, 1, c.column), c.inserted) << c.text.size();
        EXPECT_EQ(buffer.Text(), "first\n" + c.after) << c.text.size();
        EXPECT_EQ(buffer->lines.modified, c.inserted == 1 && !c.text.empty() ? 1 : 0);
    }
    TestBuffer buffer("ab");
    EXPECT_EQ(InsertText(*buffer, "x", 1, 0), 0); // a line past the end
    EXPECT_EQ(EndOfInsertion(MakePos(1, 1), "1\n2\r\n3\n\n4"), MakePos(5, 1));
    EXPECT_EQ(EndOfInsertion(MakePos(3, 7), "abc"), MakePos(3, 10));

    // Exact insertion keeps every carriage return.
    ASSERT_EQ(InsertExactText(*buffer, "a\r\nb\r", 0, 1), 1);
    EXPECT_EQ(buffer.Text(), "aa\r\nb\rb");
    EXPECT_EQ(RangeText(*buffer, MakePos(0, 1), MakePos(1, 2)), "a\r\nb\r");
    EXPECT_EQ(StoredText("a\r\nb\r\r\n\rc\r"), "a\nb\r\n\rc\r");
    EXPECT_EQ(InsertExactText(*buffer, std::string(255, 'w') + "\n", 0, 1), 0);
    EXPECT_EQ(InsertExactText(*buffer, std::string(254, 'w') + "\n", 0, 1), 1);
}

TEST_F(TextStoreTest, DeletionJoinsLinesAndRespectsTheLimit) {
    TestBuffer buffer("l0\nl1\nabcdef\nl3\nl4\nXYZ\nl6");
    // {start, end, deleted, text after}: empty and backwards ranges change nothing, an end past
    // the text deletes to its end.
    const struct {
        TextPos start, end;
        int deleted;
        const char* after;
    } steps[] = {{{2, 3}, {5, 1}, 1, "l0\nl1\nabcYZ\nl6"}, {{2, 1}, {2, 3}, 1, "l0\nl1\naYZ\nl6"},
                 {{2, 2}, {2, 2}, 1, "l0\nl1\naYZ\nl6"},   {{2, 2}, {1, 0}, 1, "l0\nl1\naYZ\nl6"},
                 {{2, 1}, {2, 9}, 1, "l0\nl1\na\nl6"},     {{1, 1}, {9, 0}, 1, "l0\nl"}};
    for (const auto& step : steps) {
        buffer->lines.modified = 0;
        EXPECT_EQ(DeleteRange(*buffer, step.start, step.end), step.deleted);
        EXPECT_EQ(buffer.Text(), step.after);
        EXPECT_EQ(buffer->lines.modified, PosLess(step.start, step.end) ? 1 : 0) << step.after;
    }
    EXPECT_EQ(buffer->lines.lineCount, 2);

    TestBuffer limit(std::string(128, 'a') + "\n" + std::string(128, 'b'));
    EXPECT_EQ(DeleteRange(*limit, MakePos(0, 128), MakePos(1, 0)), 0); // 256 bytes
    EXPECT_EQ(limit->lines.lineCount, 2);
    EXPECT_EQ(DeleteRange(*limit, MakePos(0, 127), MakePos(1, 0)), 1); // 255 bytes
    EXPECT_EQ(limit.Text(), std::string(127, 'a') + std::string(128, 'b'));

    // Replacing a line marks the text; a line past the end or over 255 bytes is refused.
    limit->lines.modified = 0;
    EXPECT_EQ(ReplaceLine(*limit, "zwei", 0), 1);
    EXPECT_EQ(limit.Text(), "zwei");
    EXPECT_EQ(limit->lines.modified, 1);
    EXPECT_EQ(ReplaceLine(*limit, "x", 1), 0);
    EXPECT_EQ(ReplaceLine(*limit, std::string(256, 'x'), 0), 0);
    EXPECT_EQ(ReplaceLine(*limit, std::string(255, 'x'), 0), 1);
}

TEST_F(TextStoreTest, RangeTextJoinsLinesWithTheChosenSeparator) {
    TestBuffer buffer("abc\nde\nfgh");
    auto get = [&](TextPos from, TextPos to, bool crlf) {
        char* text = GetRangeText(*buffer, from, to, crlf);
        const std::string copy = text;
        Release(text);
        return copy;
    };
    EXPECT_EQ(get(MakePos(0, 2), MakePos(1, 1), false), "c\nd");
    EXPECT_EQ(get(MakePos(0, 0), MakePos(2, 3), true), "abc\r\nde\r\nfgh");
    EXPECT_EQ(get(MakePos(2, 0), MakePos(1, 1), false), ""); // backwards
    EXPECT_EQ(RangeText(*buffer, MakePos(0, 1), MakePos(2, 99)), "bc\nde\nfgh");
    EXPECT_TRUE(TextStandsAt(*buffer, MakePos(0, 2), "c\nde\nf"));
    EXPECT_FALSE(TextStandsAt(*buffer, MakePos(0, 2), "c\r\nde\r\nf"));
    EXPECT_FALSE(TextStandsAt(*buffer, MakePos(2, 0), "fgh\n"));
    EXPECT_TRUE(TextStandsAt(*buffer, MakePos(7, 0), ""));
}

TEST_F(TextStoreTest, ColumnsExpandTabsAndPositionsAreClampedAndStepped) {
    TestBuffer buffer("\tab\tc\nxy\n\nde\nfghi");
    EXPECT_EQ(DisplayColumn(buffer->lines.lineText[0], 4), 8);
    EXPECT_EQ(DisplayColumn(buffer->lines.lineText[0], -1), 0);
    EXPECT_EQ(DisplayColumn(nullptr, 3), 0);
    EXPECT_EQ(ColumnFromDisplay(*buffer, 0, 2), MakePos(0, 1)); // inside the tab
    EXPECT_EQ(ColumnFromDisplay(*buffer, 1, 40), MakePos(1, 2));
    EXPECT_EQ(ColumnFromDisplay(*buffer, -3, 0), MakePos(0, 0));
    EXPECT_EQ(ColumnFromDisplay(*buffer, 9, 3), MakePos(4, 3));
    // Every byte column survives the trip to the screen and back, whatever the tabs.
    TestBuffer mixed("\t\ta\tbc\t\tdef\t \t  g\t");
    for (int size : {1, 3, 4, 8}) {
        editor.settings.options.tabSize = size;
        const char* line = mixed->lines.lineText[0];
        for (int column = 0; column <= static_cast<int>(std::strlen(line)); ++column)
            EXPECT_EQ(ColumnFromDisplay(*mixed, 0, DisplayColumn(line, column)), MakePos(0, column))
                << "tab size " << size;
    }

    buffer->visibleLines = 3;
    EXPECT_EQ(ClampPos(*buffer, -5, -1), MakePos(0, 0));
    EXPECT_EQ(ClampPos(*buffer, 9, 9), MakePos(4, 4));
    EXPECT_EQ(ClampTopLine(*buffer, 5), 2);
    EXPECT_EQ(ClampTopLine(*buffer, -1), 0);
    buffer->visibleLines = 10;
    EXPECT_EQ(ClampTopLine(*buffer, 5), 0);
    // Steps cross line ends and stop at the ends of the text.
    const std::pair<TextPos, TextPos> next[] = {
        {{1, 1}, {1, 2}}, {{1, 2}, {2, 0}}, {{2, 0}, {3, 0}}, {{4, 4}, {4, 4}}, {{0, 0}, {0, 0}}};
    for (const auto& [from, to] : next) {
        if (!(from == MakePos(0, 0))) {
            EXPECT_EQ(NextPos(*buffer, from), to);
        }
        if (!(from == MakePos(4, 4))) {
            EXPECT_EQ(PrevPos(*buffer, to), from);
        }
    }
}

TEST_F(TextStoreTest, AllocationFailureChangesNothing) {
    TestBuffer buffer("abc\ndef");
    editor.settings.allocator.limitBytes = editor.settings.allocator.totalBytes;
    EXPECT_EQ(InsertText(*buffer, "x\ny\nz", 0, 1), 0);
    EXPECT_EQ(InsertText(*buffer, "x", 0, 1), 0);
    EXPECT_EQ(DeleteRange(*buffer, MakePos(0, 1), MakePos(1, 1)), 0);
    EXPECT_EQ(GetRangeText(*buffer, MakePos(0, 0), MakePos(1, 0), false), nullptr);
    editor.settings.allocator.limitBytes = -1;
    EXPECT_EQ(buffer.Text(), "abc\ndef");
    EXPECT_EQ(host.boxes.size(), 4u);
}

TEST_F(TextStoreTest, LineStringHelpersEditInPlace) {
    char text[256] = "abcdef";
    DeleteLeadingChars(text, 2);
    OpenGap(text, 3);
    text[0] = text[1] = text[2] = '-';
    EXPECT_STREQ(text, "---cdef");
    ReplacePrefix(text, 3, "+");
    ReplacePrefix(text, 1, "[[");
    EXPECT_STREQ(text, "[[cdef");
    DeleteLeadingChars(text, 9);
    EXPECT_STREQ(text, "");
    const std::pair<const char*, const char*> ends[] = {
        {"text\r\n", "text"}, {"text\n", "text"}, {"text\r", "text\r"}, {"\n", ""}, {"", ""}};
    for (const auto& [line, stripped] : ends) {
        char copy[256];
        std::strcpy(copy, line);
        StripLineEnd(copy);
        EXPECT_STREQ(copy, stripped) << line;
    }
    char crs[256] = "\ra\rb\r";
    RemoveCR(crs);
    EXPECT_STREQ(crs, "ab");

    char target[256] = "body";
    EXPECT_EQ(CopyIndent(target, " \t \vcode", 3), 3);
    EXPECT_STREQ(target, " \t body");
    EXPECT_EQ(CopyIndent(target, "\t\tx", 8), 2);
    EXPECT_STREQ(target, "\t\t \t body");
    EXPECT_EQ(CopyIndent(target, "code", 8), 0);
}

class LineListTest : public EditorTest {
  protected:
    std::string Lines(const LineList* list) {
        std::string text;
        for (int32_t i = 0; i < list->lineCount; ++i)
            text += std::string(list->lineText[i]) + "|";
        return text;
    }
    void FailAllocationsAfter(long bytes) {
        editor.settings.allocator.limitBytes = editor.settings.allocator.totalBytes + bytes;
    }
};

TEST_F(LineListTest, GrowsMakesRoomCopiesAndClears) {
    LineList* list = CreateLineList(2, 1);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->readOnly, 1);
    EXPECT_TRUE(IsBufferEmpty(list));
    for (int i = 0; i < 5; ++i)
        ASSERT_EQ(AppendLine(list, std::to_string(i)), 0);
    EXPECT_GT(list->capacity, list->lineCount); // one slot is kept free
    EXPECT_EQ(Lines(list), "0|1|2|3|4|");
    ASSERT_EQ(MakeRoom(list, 1, 2), 0);
    list->lineText[2] = DupString("x", 0);
    list->lineText[3] = DupString("yz", 1);
    list->lineCount += 2;
    EXPECT_EQ(Lines(list), "0|1|x|y|2|3|4|");
    LineList* copy = CopyLineList(list, nullptr);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(Lines(copy), "0|1|x|y|2|3|4|");

    list->modified = list->hasSelection = 1;
    ClearLineList(list);
    EXPECT_EQ(list->lineCount + list->capacity + list->modified + list->hasSelection, 0);
    EXPECT_EQ(list->lineText, nullptr);
    // One empty line is an empty buffer, two are not.
    AppendLine(list, "");
    EXPECT_TRUE(IsBufferEmpty(list));
    AppendLine(list, "");
    EXPECT_FALSE(IsBufferEmpty(list));
    DestroyLineList(copy);
    DestroyLineList(list);

    char* shortCopy = DupString("ab", 10); // a length past the text stops at its end
    EXPECT_STREQ(shortCopy, "ab");
    Release(shortCopy);
    EXPECT_EQ(DupString(nullptr, 3), nullptr);
}

TEST_F(LineListTest, AllocationFailureLeavesTheListAsItWasAndNoHalfCopy) {
    LineList* list = CreateLineList(4, 0);
    for (const char* text : {"one", "two", "three"})
        AppendLine(list, text);
    FailAllocationsAfter(0);
    EXPECT_EQ(CreateLineList(4, 0), nullptr);
    EXPECT_EQ(AppendLine(list, "more"), 1);
    EXPECT_TRUE(AllocationFailed());
    EXPECT_EQ(Lines(list), "one|two|three|");
    // Room for the new list and its array, not for the lines: the copy fails part-way and
    // the sanitizer's leak check sees whether the half-made list was freed.
    FailAllocationsAfter(static_cast<long>(sizeof(LineList)) +
                         3 * static_cast<long>(sizeof(char*)) + 4);
    EXPECT_EQ(CopyLineList(list, nullptr), nullptr);
    editor.settings.allocator.limitBytes = -1;
    DestroyLineList(list);
}

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

TEST_F(FileReadingTest, LineEndsPiecesOf254AndTheSizeMessage) {
    // Other carriage returns stay; a piece of exactly 254 characters leaves its line end to
    // a piece of its own; like a C line reader, "ab\0cd\n" counts as "ab" without a line end.
    const std::string q254(254, 'q'), c253(253, 'c');
    const std::pair<std::string, Lines> cases[] = {
        {"a\r\nb\r\n", {"a", "b", ""}},
        {"a\r\nb", {"a", "b"}},
        {"a\nb\n", {"a", "b", ""}},
        {"", {""}},
        {"\n", {"", ""}},
        {"x\ty\r\n\tz\r\r\nmid\rdle", {"x\ty", "\tz\r", "mid\rdle"}},
        {q254 + std::string(46, 'q') + "\r\nend", {q254, std::string(46, 'q'), "end"}},
        {q254 + "\nx", {q254, "", "x"}},
        {c253 + "\r\n", {c253, "", ""}},
        {std::string("ab\0cd\nef\n", 9), {"ab", "ef", ""}},
    };
    int file = 0;
    for (const auto& [bytes, lines] : cases) {
        EXPECT_EQ(Load(bytes, std::to_string(++file) + ".vhd"), lines);
        EXPECT_EQ(Current()->lines.modified, 0);
    }
    EXPECT_EQ(host.busyCursorDepth, 0);
    EXPECT_EQ(host.ErrorBoxTexts(), "Error(s) reading file '" + folder.File("10.vhd") +
                                        "'.\nExpected 9 bytes, actually read 5 bytes.\n");
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

} // namespace
} // namespace ruvo
