// Keyword lookup (binary search, identifier boundary, case rules, group order) and
// abbreviation lookup.
#include "lang/keyword_lookup.h"

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "engine/edit_buffer.h"

#include "editor_fixture.h"

namespace ruvo {
namespace {

class KeywordLookupTest : public EditorTest {
  protected:
    void Group(int group, const std::vector<std::string>& words) {
        WordArray& array = language.groups[group - 1].words;
        for (const std::string& word : words)
            ASSERT_TRUE(array.Append(word));
        SortKeywords(array);
    }
    int Length(std::string_view text) { return FindKeyword(language, text).length; }

    LanguageDef language;
};

TEST_F(KeywordLookupTest, WordMatchesOnlyAtAnIdentifierBoundaryAndByTheCaseRules) {
    Group(1, {"end", "entity", "if", "else", "elsif", "ending_x", "Begin"});
    Group(2, {"std_logic", "std_logic_vector", "std_ulogic", "stdout", "std", "s"});
    // The text must start with a letter; words that start with another word are found.
    const std::pair<const char*, int> cases[] = {
        {"end;", 3},          {"end", 3},     {"end-- c", 3}, {"ending", 0},
        {"end_x", 0},         {"end2", 0},    {"en", 0},      {"ending_x", 8},
        {"elsif(a)", 5},      {"else\tx", 4}, {" end", 0},    {"", 0},
        {"std_logic)", 9},    {"std)", 3},    {"s.x", 1},     {"std_logic_vector)", 16},
        {"std_logic_vec", 0}, {"std_", 0},    {"stdout", 6},  {"std_ulogic", 10},
    };
    for (const auto& [text, length] : cases)
        EXPECT_EQ(Length(text), length) << text;

    language.caseSensitive = false;
    EXPECT_EQ(Length("BEGIN") + Length("End;"), 8);
    language.caseSensitive = true;
    EXPECT_EQ(Length("Begin"), 5);
    EXPECT_EQ(Length("begin") + Length("END"), 0);
    // The exact comparison ranks "Zed" before "abc", against the folded order the words are in,
    // so the halving search misses "abc". Mixed-case words do not belong in such a language.
    Group(4, {"Zed", "abc"});
    EXPECT_EQ(KeywordLengthInGroup(language, 4, "Zed") + KeywordLengthInGroup(language, 4, "abc"),
              3);
}

TEST_F(KeywordLookupTest, FirstGroupWithTheWordDecides) {
    Group(1, {"range"});
    Group(3, {"range", "rising_edge"});
    language.groups[0].attribute = {1, MakeColor(1, 0, 0)};
    language.groups[2].attribute = {4, MakeColor(3, 0, 0)};

    const KeywordMatch range = FindKeyword(language, "range 0 to 7");
    EXPECT_EQ(range.length, 5);
    EXPECT_EQ(range.group, 1);
    EXPECT_EQ(range.attribute.color, MakeColor(1, 0, 0));
    const KeywordMatch edge = FindKeyword(language, "rising_edge(clk)");
    EXPECT_EQ(edge.length, 11);
    EXPECT_EQ(edge.group, 3);
    EXPECT_EQ(edge.attribute.typeface, 4);
    EXPECT_EQ(FindKeyword(language, "risen").group, 0);

    EXPECT_EQ(KeywordLengthInGroup(language, 3, "range"), 5);
    EXPECT_EQ(KeywordLengthInGroup(language, 2, "range"), 0);
    EXPECT_EQ(KeywordLengthInGroup(language, 6, "range"), 0);
}

// Any set of identifier-like words: each is found however it is cased and whatever follows it
// from the characters that sort below digits (blanks, brackets, operators); a word not in the
// set is not found. (A character such as ';' sorts above the digits, so "b;" can be missed
// when the search meets "b0" first: the boundary rule only applies to an equal prefix.)
TEST_F(KeywordLookupTest, RandomWordSetsAreAlwaysFound) {
    std::mt19937 random(20261121);
    const std::string first = "abcdefgxyzABCXYZ";
    const std::string rest = "abcxyzABXY019_";
    const std::string after = " ()'.,-+*&\t";
    auto pick = [&](const std::string& from) {
        return from[std::uniform_int_distribution<size_t>(0, from.size() - 1)(random)];
    };
    auto makeWord = [&] {
        std::string word(1, pick(first));
        const int length = std::uniform_int_distribution<int>(0, 6)(random);
        for (int i = 0; i < length; ++i)
            word += pick(rest);
        return word;
    };
    language.caseSensitive = false;
    for (int round = 0; round < 200; ++round) {
        std::set<std::string> folded;
        std::vector<std::string> words;
        const int count = std::uniform_int_distribution<int>(1, 40)(random);
        for (int i = 0; i < count; ++i) {
            std::string word = makeWord();
            std::string key = word;
            std::transform(key.begin(), key.end(), key.begin(), ::tolower);
            if (folded.insert(key).second) words.push_back(word);
        }
        language.groups[0].words.Clear();
        Group(1, words);
        for (const std::string& word : words) {
            std::string text = word;
            for (char& c : text)
                if (random() % 2) c = static_cast<char>(::toupper(c));
            const std::string line = random() % 4 ? text + pick(after) + "x" : text;
            ASSERT_EQ(Length(line), static_cast<int>(word.size())) << line;
        }
        for (int i = 0; i < 20; ++i) {
            std::string other = makeWord();
            std::string key = other;
            std::transform(key.begin(), key.end(), key.begin(), ::tolower);
            if (folded.count(key) == 0) {
                ASSERT_EQ(Length(other + ";"), 0) << other;
            }
        }
    }
}

TEST_F(KeywordLookupTest, AbbreviationsMatchTheWholeTextWithoutRegardToCase) {
    for (auto [name, value] :
         {std::pair{"sl", "std_logic"}, {"slv", "std_logic_vector"}, {"Proc", "process"}}) {
        ASSERT_TRUE(language.expanderNames.Append(name));
        ASSERT_TRUE(language.expanderValues.Append(value));
    }
    const std::pair<const char*, int> found[] = {{"sl", 0},   {"SLV", 1}, {"proc", 2},  {"s", -1},
                                                 {"sl ", -1}, {"", -1},   {"procs", -1}};
    for (const auto& [text, index] : found)
        EXPECT_EQ(FindAbbreviation(language, text), index) << text;

    EditBuffer buffer;
    EXPECT_EQ(ExpansionOf(buffer, "sl"), nullptr); // no language
    buffer.language = &language;
    EXPECT_STREQ(ExpansionOf(buffer, "Sl"), "std_logic");
    EXPECT_EQ(ExpansionOf(buffer, "x"), nullptr);
    ASSERT_TRUE(language.expanderNames.Append("orphan")); // a name without a value
    EXPECT_EQ(ExpansionOf(buffer, "orphan"), nullptr);
}

} // namespace
} // namespace ruvo
