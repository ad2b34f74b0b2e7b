// Word bounds under the caret and the plain-text search in both directions.
#include "engine/word_search.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

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

// Positions and directions are checked at random below; these are the rules it leaves out.
TEST_F(WordSearchTest, SearchHonoursCaseAndBoundsOnlyWhereAMatchStarts) {
    TestBuffer buffer("int in\nbegin IN x\nin");
    const TextRange all{MakePos(0, 0), MakePos(2, 2)};
    TextPos found{-1, -1};
    ASSERT_EQ(SearchText(*buffer, "in", false, true, {MakePos(1, 0), MakePos(2, 2)}, found), 1);
    EXPECT_EQ(found, MakePos(1, 6));
    EXPECT_EQ(SearchText(*buffer, "AB", false, false, {MakePos(2, 2), MakePos(0, 0)}, found), 0);
    ASSERT_EQ(SearchText(*buffer, "BEGIN", false, false, {MakePos(2, 2), MakePos(0, 0)}, found), 1);
    EXPECT_EQ(found, MakePos(1, 0));

    // The range end bounds where a match may start, not where it ends.
    EXPECT_EQ(SearchText(*buffer, "x", true, false, {MakePos(1, 0), MakePos(1, 8)}, found), 0);
    EXPECT_EQ(SearchText(*buffer, "x", true, false, {MakePos(1, 0), MakePos(1, 9)}, found), 1);
    EXPECT_EQ(SearchText(*buffer, "IN x", true, false, {MakePos(1, 0), MakePos(1, 6)}, found), 1);

    EXPECT_EQ(SearchText(*buffer, "", true, false, all, found), 0);
    EXPECT_EQ(SearchText(*buffer, "n\nb", true, false, all, found), 0);
}

// The nearest match in the direction of the search, by trying every position in the range.
bool NaiveSearch(const std::vector<std::string>& lines, const std::string& pattern, bool wholeWord,
                 TextRange range, TextPos& found) {
    const bool forward = PosLess(range.start, range.end);
    TextPos low = forward ? range.start : range.end;
    // Going back from a later line, the search enters the end's line where the pattern could
    // last start; when that lies before the range end, that one position is still tried.
    if (!forward && range.start.line > range.end.line) {
        const int32_t length = static_cast<int32_t>(lines[range.end.line].size());
        const int32_t entry = std::max<int32_t>(0, length - static_cast<int32_t>(pattern.size()));
        if (entry < low.column) low.column = entry;
    }
    const TextPos high = forward ? range.end : range.start;
    bool any = false;
    for (int32_t line = 0; line < static_cast<int32_t>(lines.size()); ++line) {
        const std::string& text = lines[line];
        for (int32_t column = 0; column <= static_cast<int32_t>(text.size()); ++column) {
            const TextPos pos = MakePos(line, column);
            if (PosLess(pos, low) || PosLess(high, pos)) continue;
            if (text.compare(column, pattern.size(), pattern) != 0) continue;
            if (wholeWord && column > 0 && IsWordChar(text[column - 1])) continue;
            const size_t after = column + pattern.size();
            if (wholeWord && after < text.size() && IsWordChar(text[after])) continue;
            if (!any || !forward) found = pos; // forward keeps the first, backward the last
            any = true;
        }
    }
    return any;
}

TEST_F(WordSearchTest, RandomSearchesAgreeWithTryingEveryPosition) {
    std::mt19937 random(5);
    auto below = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(random); };
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> lines(static_cast<size_t>(below(5) + 1));
        std::string text;
        for (std::string& line : lines) {
            for (int i = below(12); i > 0; --i)
                line += "ab_ "[below(4)];
            if (&line != &lines.front()) text += '\n';
            text += line;
        }
        TestBuffer buffer(text);
        for (int query = 0; query < 20; ++query) {
            std::string pattern;
            for (int i = below(3) + 1; i > 0; --i)
                pattern += "ab_"[below(3)];
            const bool wholeWord = below(2) == 0;
            auto anyPos = [&] {
                const int line = below(static_cast<int>(lines.size()));
                return MakePos(line, below(static_cast<int>(lines[line].size()) + 1));
            };
            const TextRange range{anyPos(), anyPos()};
            TextPos expected{-1, -1};
            TextPos found{-1, -1};
            const bool naive = !PosEqual(range.start, range.end) &&
                               NaiveSearch(lines, pattern, wholeWord, range, expected);
            const std::string what =
                "'" + pattern + "' in '" + text + "' from " + std::to_string(range.start.line) +
                "," + std::to_string(range.start.column) + " to " + std::to_string(range.end.line) +
                "," + std::to_string(range.end.column);
            ASSERT_EQ(SearchText(*buffer, pattern, true, wholeWord, range, found), naive ? 1 : 0)
                << what;
            if (naive) {
                ASSERT_EQ(found, expected) << what;
            }
        }
    }
}

} // namespace
} // namespace ruvo
