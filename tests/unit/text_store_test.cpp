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

std::string Line(const TestBuffer& buffer, int line) {
    return const_cast<TestBuffer&>(buffer)->lines.lineText[line];
}

TEST_F(TextStoreTest, InsertedLineFeedsSplitTheLineAndLoneCarriageReturnsStay) {
    const std::pair<const char*, const char*> cases[] = {
        {"a\nb", "first\nxya\nbz\nlast"},
        {"a\r\nb", "first\nxya\nbz\nlast"},
        {"a\rb", "first\nxya\rbz\nlast"},
        {"1\n2\r\n3\n\n4", "first\nxy1\n2\n3\n\n4z\nlast"},
    };
    for (const auto& [text, expected] : cases) {
        TestBuffer buffer("first\nxyz\nlast");
        buffer->lines.modified = 0;
        ASSERT_EQ(InsertText(*buffer, text, 1, 2), 1);
        EXPECT_EQ(buffer.Text(), expected);
        EXPECT_EQ(buffer->lines.modified, 1);
    }
    EXPECT_EQ(EndOfInsertion(MakePos(1, 1), "1\n2\r\n3\n\n4"), MakePos(5, 1));
    EXPECT_EQ(EndOfInsertion(MakePos(3, 7), "abc"), MakePos(3, 10));

    // Empty text is a success that changes nothing; a line past the end is refused.
    TestBuffer buffer("ab");
    buffer->lines.modified = 0;
    EXPECT_EQ(InsertText(*buffer, "", 0, 0), 1);
    EXPECT_EQ(buffer->lines.modified, 0);
    EXPECT_EQ(InsertText(*buffer, "x", 9, 0), 0);
}

TEST_F(TextStoreTest, ExactInsertionKeepsEveryCarriageReturn) {
    TestBuffer buffer("xyz");
    ASSERT_EQ(InsertExactText(*buffer, "a\r\nb\r", 0, 1), 1);
    EXPECT_EQ(buffer.Text(), "xa\r\nb\ryz");
    EXPECT_EQ(RangeText(*buffer, MakePos(0, 1), MakePos(1, 2)), "a\r\nb\r");
    EXPECT_TRUE(TextStandsAt(*buffer, MakePos(0, 1), "a\r\nb\r"));
    EXPECT_EQ(StoredText("a\r\nb\r\r\n\rc\r"), "a\nb\r\n\rc\r");
    EXPECT_EQ(InsertExactText(*buffer, std::string(255, 'w') + "\n", 0, 1), 0);
    EXPECT_EQ(InsertExactText(*buffer, std::string(254, 'w') + "\n", 0, 1), 1);
}

TEST_F(TextStoreTest, InsertionStopsAtTheLineLimit) {
    TestBuffer buffer(std::string(250, 'a'));
    EXPECT_EQ(InsertText(*buffer, "bcdef", 0, 100), 1); // exactly 255
    EXPECT_EQ(Line(buffer, 0).size(), 255u);
    buffer->lines.modified = 0;
    EXPECT_EQ(InsertText(*buffer, "x", 0, 0), 0); // would be 256
    EXPECT_EQ(Line(buffer, 0).size(), 255u);
    EXPECT_EQ(buffer->lines.modified, 0);

    // With line feeds the head plus the first piece and the last piece plus the tail count.
    TestBuffer split(std::string(200, 'h') + std::string(100, 't').substr(0, 55));
    EXPECT_EQ(InsertText(*split, std::string(56, 'p') + "\n", 0, 200), 0);
    EXPECT_EQ(InsertText(*split, std::string(55, 'p') + "\n", 0, 200), 1);
    EXPECT_EQ(split->lines.lineCount, 2);
    EXPECT_EQ(Line(split, 0).size(), 255u);
    EXPECT_EQ(InsertText(*split, "\n" + std::string(201, 'q'), 1, 0), 0);
    EXPECT_EQ(InsertText(*split, "\n" + std::string(200, 'q'), 1, 0), 1);
    EXPECT_EQ(Line(split, 2).size(), 255u);

    // The carriage return before the first line feed is counted, though it is not stored.
    TestBuffer strict(std::string(200, 'h'));
    EXPECT_EQ(InsertText(*strict, std::string(55, 'p') + "\r\nz", 0, 200), 0);
    EXPECT_EQ(strict.Text(), std::string(200, 'h'));
    EXPECT_EQ(InsertText(*strict, std::string(55, 'p') + "\nz", 0, 200), 1);

    // A middle line that would be too long refuses the whole insertion.
    TestBuffer middle("ab");
    EXPECT_EQ(InsertText(*middle, "1\n" + std::string(256, 'm') + "\n2", 0, 1), 0);
    EXPECT_EQ(middle.Text(), "ab");
}

TEST_F(TextStoreTest, DeletionJoinsLinesAndRespectsTheLimit) {
    TestBuffer buffer("l0\nl1\nabcdef\nl3\nl4\nXYZ\nl6");
    ASSERT_EQ(DeleteRange(*buffer, MakePos(2, 3), MakePos(5, 1)), 1);
    EXPECT_EQ(buffer.Text(), "l0\nl1\nabcYZ\nl6");
    EXPECT_EQ(buffer->lines.lineCount, 4);

    ASSERT_EQ(DeleteRange(*buffer, MakePos(2, 1), MakePos(2, 3)), 1);
    EXPECT_EQ(Line(buffer, 2), "aYZ");
    buffer->lines.modified = 0;
    EXPECT_EQ(DeleteRange(*buffer, MakePos(2, 2), MakePos(2, 2)), 1);
    EXPECT_EQ(DeleteRange(*buffer, MakePos(2, 2), MakePos(1, 0)), 1);
    EXPECT_EQ(buffer->lines.modified, 0);
    EXPECT_EQ(buffer.Text(), "l0\nl1\naYZ\nl6");

    // An end past the text deletes to its end.
    ASSERT_EQ(DeleteRange(*buffer, MakePos(1, 1), MakePos(9, 0)), 1);
    EXPECT_EQ(buffer.Text(), "l0\nl");

    TestBuffer limit(std::string(128, 'a') + "\n" + std::string(128, 'b'));
    EXPECT_EQ(DeleteRange(*limit, MakePos(0, 128), MakePos(1, 0)), 0); // 256 bytes
    EXPECT_EQ(limit->lines.lineCount, 2);
    EXPECT_EQ(DeleteRange(*limit, MakePos(0, 127), MakePos(1, 0)), 1); // 255 bytes
    EXPECT_EQ(Line(limit, 0), std::string(127, 'a') + std::string(128, 'b'));
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

TEST_F(TextStoreTest, ColumnsExpandTabsToTheTabSize) {
    TestBuffer buffer("\tab\tc\nxy");
    EXPECT_EQ(DisplayColumn(buffer->lines.lineText[0], 4), 8);
    EXPECT_EQ(DisplayColumn(nullptr, 3), 0);
    EXPECT_EQ(ColumnFromDisplay(*buffer, 0, 2), MakePos(0, 1)); // inside the tab
    EXPECT_EQ(ColumnFromDisplay(*buffer, 5, 40), MakePos(1, 2));
    EXPECT_EQ(ColumnFromDisplay(*buffer, -3, 0), MakePos(0, 0));

    // Every byte column survives the trip to the screen and back, whatever the tabs.
    TestBuffer mixed("\t\ta\tbc\t\tdef\t \t  g\t");
    for (int size : {1, 3, 4, 8}) {
        editor.settings.options.tabSize = size;
        const char* line = mixed->lines.lineText[0];
        for (int column = 0; column <= static_cast<int>(std::strlen(line)); ++column)
            EXPECT_EQ(ColumnFromDisplay(*mixed, 0, DisplayColumn(line, column)), MakePos(0, column))
                << "tab size " << size;
    }

    editor.settings.options.tabSize = 8;
    EXPECT_EQ(DisplayColumn(buffer->lines.lineText[0], 4), 16);
    EXPECT_EQ(ColumnFromDisplay(*buffer, 0, 9), MakePos(0, 2));
}

TEST_F(TextStoreTest, PositionsAreClampedAndSteppedAcrossLines) {
    TestBuffer buffer("abc\n\nde\nfghi");
    buffer->visibleLines = 3;
    EXPECT_EQ(ClampPos(*buffer, -5, -1), MakePos(0, 0));
    EXPECT_EQ(ClampPos(*buffer, 9, 9), MakePos(3, 4));
    EXPECT_EQ(ClampPos(*buffer, 2, 1), MakePos(2, 1));
    EXPECT_EQ(ClampTopLine(*buffer, 0), 0);
    EXPECT_EQ(ClampTopLine(*buffer, 5), 1);
    buffer->visibleLines = 10;
    EXPECT_EQ(ClampTopLine(*buffer, 5), 0);

    // Steps cross line ends and stop at the ends of the text.
    const std::pair<TextPos, TextPos> next[] = {
        {{0, 2}, {0, 3}}, {{0, 3}, {1, 0}}, {{1, 0}, {2, 0}}, {{3, 4}, {3, 4}}};
    for (const auto& [from, to] : next) {
        EXPECT_EQ(NextPos(*buffer, from), to);
        if (!(from == to)) {
            EXPECT_EQ(PrevPos(*buffer, to), from);
        }
    }
    EXPECT_EQ(PrevPos(*buffer, MakePos(0, 0)), MakePos(0, 0));
    EXPECT_EQ(PrevPos(*buffer, MakePos(3, 0)), MakePos(2, 2));
}

TEST_F(TextStoreTest, ReplaceLineStoresACopyAndMarksTheText) {
    TestBuffer buffer("one\ntwo");
    buffer->lines.modified = 0;
    std::string text = "zwei";
    EXPECT_EQ(ReplaceLine(*buffer, text, 1), 1);
    text[0] = 'Z';
    EXPECT_EQ(buffer.Text(), "one\nzwei");
    EXPECT_EQ(buffer->lines.modified, 1);
    EXPECT_EQ(ReplaceLine(*buffer, "x", 2), 0);
    EXPECT_EQ(ReplaceLine(*buffer, std::string(256, 'x'), 0), 0);
    EXPECT_EQ(ReplaceLine(*buffer, std::string(255, 'x'), 0), 1);
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
    EXPECT_STREQ(text, "cdef");
    OpenGap(text, 3);
    text[0] = text[1] = text[2] = '-';
    EXPECT_STREQ(text, "---cdef");
    ReplacePrefix(text, 3, "+");
    EXPECT_STREQ(text, "+cdef");
    ReplacePrefix(text, 1, "[[");
    EXPECT_STREQ(text, "[[cdef");

    char line[256] = "text\r\n";
    StripLineEnd(line);
    EXPECT_STREQ(line, "text");
    char noEnd[256] = "text\r";
    StripLineEnd(noEnd);
    EXPECT_STREQ(noEnd, "text\r");
    char crs[256] = "\ra\rb\r";
    RemoveCR(crs);
    EXPECT_STREQ(crs, "ab");

    char target[256] = "body";
    EXPECT_EQ(CopyIndent(target, " \t \vcode", 3), 3);
    EXPECT_STREQ(target, " \t body");
    char other[256] = "x";
    EXPECT_EQ(CopyIndent(other, "code", 8), 0);
    EXPECT_STREQ(other, "x");
}

} // namespace
} // namespace ruvo
