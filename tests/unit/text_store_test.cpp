// The text store: columns, stepping, range text, insertion and deletion with the line limit.
#include "engine/text_store.h"

#include <cstring>
#include <string>

#include "buffer_builder.h"
#include "editor_fixture.h"
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

    // Replacing a line stores a copy and marks the text.
    limit->lines.modified = 0;
    std::string text = "zwei";
    EXPECT_EQ(ReplaceLine(*limit, text, 0), 1);
    text[0] = 'Z';
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
        if (!(from == MakePos(0, 0))) EXPECT_EQ(NextPos(*buffer, from), to);
        if (!(from == MakePos(4, 4))) EXPECT_EQ(PrevPos(*buffer, to), from);
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

} // namespace
} // namespace ruvo
