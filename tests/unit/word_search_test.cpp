// Word bounds under the caret and the plain-text search in both directions.
#include "engine/word_search.h"

#include <string>

#include "buffer_builder.h"
#include "editor_fixture.h"

namespace ruvo {
namespace {

using WordSearchTest = EditorTest;

TEST_F(WordSearchTest, WordsStartOnlyAtLettersAndDigits) {
    TestBuffer buffer("a_b1 c\n  _x\n");
    EXPECT_EQ(WordBounds(*buffer, MakePos(0, 2)), (TextRange{MakePos(0, 0), MakePos(0, 4)}));
    EXPECT_EQ(WordBounds(*buffer, MakePos(0, 0)), (TextRange{MakePos(0, 0), MakePos(0, 4)}));
    EXPECT_EQ(WordBounds(*buffer, MakePos(0, 1)), (TextRange{MakePos(0, 1), MakePos(0, 1)}));
    EXPECT_EQ(WordBounds(*buffer, MakePos(0, 5)), (TextRange{MakePos(0, 5), MakePos(0, 6)}));
    EXPECT_EQ(WordBounds(*buffer, MakePos(0, 6)), (TextRange{MakePos(0, 6), MakePos(0, 6)}));
    EXPECT_EQ(WordBounds(*buffer, MakePos(1, 3)), (TextRange{MakePos(1, 2), MakePos(1, 4)}));

    std::string word = "stale";
    TextPos start;
    EXPECT_EQ(GetWordAt(*buffer, MakePos(0, 3), word, start), 1);
    EXPECT_EQ(word, "a_b1");
    EXPECT_EQ(start, MakePos(0, 0));
    EXPECT_EQ(GetWordAt(*buffer, MakePos(0, 4), word, start), 0);
    EXPECT_EQ(word, "");
    EXPECT_EQ(GetWordAt(*buffer, MakePos(2, 0), word, start), 0);
    EXPECT_EQ(GetWordAt(*buffer, MakePos(7, 0), word, start), 0);
}

TEST_F(WordSearchTest, ForwardSearchHonoursCaseAndWholeWords) {
    TestBuffer buffer("int in\nbegin IN x\nin");
    const TextRange all{MakePos(0, 0), MakePos(2, 2)};
    TextPos found{-1, -1};
    ASSERT_EQ(SearchText(*buffer, "in", true, true, all, found), 1);
    EXPECT_EQ(found, MakePos(0, 4));
    ASSERT_EQ(SearchText(*buffer, "in", true, false, all, found), 1);
    EXPECT_EQ(found, MakePos(0, 0));

    const TextRange fromLine1{MakePos(1, 0), MakePos(2, 2)};
    ASSERT_EQ(SearchText(*buffer, "IN", true, true, fromLine1, found), 1);
    EXPECT_EQ(found, MakePos(1, 6));
    ASSERT_EQ(SearchText(*buffer, "in", false, true, fromLine1, found), 1);
    EXPECT_EQ(found, MakePos(1, 6));
    ASSERT_EQ(SearchText(*buffer, "in", true, true, fromLine1, found), 1);
    EXPECT_EQ(found, MakePos(2, 0));

    // The range end bounds where a match may start, not where it ends.
    EXPECT_EQ(SearchText(*buffer, "x", true, false, {MakePos(1, 0), MakePos(1, 8)}, found), 0);
    EXPECT_EQ(SearchText(*buffer, "x", true, false, {MakePos(1, 0), MakePos(1, 9)}, found), 1);
    EXPECT_EQ(SearchText(*buffer, "IN x", true, false, {MakePos(1, 0), MakePos(1, 6)}, found), 1);

    EXPECT_EQ(SearchText(*buffer, "", true, false, all, found), 0);
    EXPECT_EQ(SearchText(*buffer, "int", true, false, {MakePos(0, 0), MakePos(0, 0)}, found), 0);
    EXPECT_EQ(SearchText(*buffer, "n\nb", true, false, all, found), 0);
    EXPECT_EQ(SearchText(*buffer, "out", false, false, all, found), 0);
}

TEST_F(WordSearchTest, BackwardSearchFindsTheNearestEarlierMatch) {
    TestBuffer buffer("in x in\nlonger line here\nab");
    TextPos found;
    ASSERT_EQ(SearchText(*buffer, "in", true, false, {MakePos(2, 2), MakePos(0, 0)}, found), 1);
    EXPECT_EQ(found, MakePos(1, 8));
    ASSERT_EQ(SearchText(*buffer, "in", true, true, {MakePos(2, 2), MakePos(0, 0)}, found), 1);
    EXPECT_EQ(found, MakePos(0, 5));
    ASSERT_EQ(SearchText(*buffer, "in", true, true, {MakePos(0, 4), MakePos(0, 0)}, found), 1);
    EXPECT_EQ(found, MakePos(0, 0));
    EXPECT_EQ(SearchText(*buffer, "in", true, true, {MakePos(0, 4), MakePos(0, 1)}, found), 0);
    EXPECT_EQ(SearchText(*buffer, "AB", false, false, {MakePos(2, 0), MakePos(0, 0)}, found), 1);
    EXPECT_EQ(found, MakePos(2, 0));
}

} // namespace
} // namespace ruvo
