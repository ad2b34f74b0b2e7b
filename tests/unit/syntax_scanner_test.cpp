// The colouring scanner: runs of one line for comments, keywords, abbreviations, strings and
// character literals, colouring switched off, and runs that always cover the line.
#include "lang/syntax_scanner.h"

#include <random>
#include <string>

#include "lang/keyword_lookup.h"

#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

class SyntaxScannerTest : public EditorTest {
  protected:
    SyntaxScannerTest() {
        language.lineComment = "--";
        language.beginComment = "/*";
        language.endComment = "*/";
        language.caseSensitive = false;
        language.text.color = MakeColor(1, 1, 1);
        language.comment.color = MakeColor(2, 2, 2);
        language.strings.color = MakeColor(3, 3, 3);
        language.expander.color = MakeColor(4, 4, 4);
        AddWords(0, {"end", "if", "then", "signal", "process", "is", "a"});
        AddWords(1, {"std_logic", "integer"});
        language.groups[0].attribute.color = MakeColor(5, 5, 5);
        EXPECT_TRUE(language.expanderNames.Append("sl"));
        EXPECT_TRUE(language.expanderValues.Append("std_logic"));
        EXPECT_TRUE(language.expanderNames.Append("e if"));
        EXPECT_TRUE(language.expanderValues.Append("end if;"));
    }
    void AddWords(int group, std::initializer_list<const char*> words) {
        for (const char* word : words)
            EXPECT_TRUE(language.groups[group].words.Append(word));
        SortKeywords(language.groups[group].words);
    }
    std::string Runs(std::string_view line) { return DescribeRuns(line, &language); }

    LanguageDef language;
};

// Line comments run to the end of the line, block comments play no part (the line after an
// opening one is ordinary code); keywords only outside identifiers (digits do not start one);
// strings and character literals without escapes; an abbreviation only as the last thing on the
// line, tried wherever the scan stops (a name may hold a blank).
TEST_F(SyntaxScannerTest, LinesSplitIntoCommentKeywordStringAndAbbreviationRuns) {
    const std::pair<const char*, const char*> lines[] = {
        {"x := b -- c -- e", "[x := b ]text[-- c -- e]comment"},
        {"-- end if", "[-- end if]comment"},
        {"x - y", "[x - y]text"},
        {"s \"a -- b\" -- c", "[s ]text[\"a -- b\"]string[ ]text[-- c]comment"},
        {"/* if", "[/* ]text[if]kw1"},
        {"end */", "[end]kw1[ */]text"},
        {"if a then", "[if]kw1[ ]text[a]kw1[ ]text[then]kw1"},
        {"  signal s : STD_LOGIC;", "[  ]text[signal]kw1[ s : ]text[STD_LOGIC]kw2[;]text"},
        {"ending end_x x_end xend", "[ending end_x x_end xend]text"},
        {"9end", "[9]text[end]kw1"},
        {"x9end", "[x9end]text"},
        {"clk'event", "[clk'event]text"},
        {"\xe4if", "[\xe4]text[if]kw1"},
        {"x <= \"0101\";", "[x <= ]text[\"0101\"]string[;]text"},
        {"report \"open end", "[report ]text[\"open end]string"},
        {"\"", "[\"]string"},
        {"x <= 'a';", "[x <= ]text['a']string[;]text"},
        {"'ab'", "['ab']text"},
        {"'''", "[''']string"},
        {"x'", "[x']text"},
        {"'a", "[']text[a]kw1"},
        {"'x", "['x]text"},
        {"a\"b\\\"c\"", "[a]kw1[\"b\\\"]string[c]text[\"]string"}, // no escapes
        {"sl", "[sl]abbrev"},
        {"  signal x : SL", "[  ]text[signal]kw1[ x : ]text[SL]abbrev"},
        {"sl x", "[sl x]text"},
        {"x sl;", "[x sl;]text"},
        {"e if", "[e if]abbrev"},
        {"x := e if", "[x := ]text[e if]abbrev"},
        {"xe if", "[xe ]text[if]kw1"},
    };
    for (const auto& [line, runs] : lines)
        EXPECT_EQ(Runs(line), runs) << line;
    language.lineComment.clear();
    EXPECT_EQ(Runs("x -- if"), "[x -- ]text[if]kw1");
}

TEST_F(SyntaxScannerTest, RunsCarryColoursAndAShortArrayEndsWithTheRestOfTheLine) {
    ColourRun runs[MaxRunsPerLine];
    const auto scan = [&](std::string_view line, const LanguageDef* with, int capacity) {
        std::string found;
        const int count = ScanLine(line, with, runs, capacity);
        for (int i = 0; i < count; ++i)
            found += std::to_string(runs[i].start) + "+" + std::to_string(runs[i].length) + ":" +
                     std::to_string(runs[i].color & 0xff) + "/" + std::to_string(runs[i].group) +
                     "/" + std::to_string(runs[i].typeface) + " ";
        return found;
    };
    language.comment.typeface = 2;
    EXPECT_EQ(scan("if x -- y", &language, MaxRunsPerLine), "0+2:5/1/1 2+3:1/0/0 5+4:2/0/2 ");
    EXPECT_EQ(scan("\"s\" sl", &language, MaxRunsPerLine), "0+3:3/0/1 3+1:1/0/0 4+2:4/0/0 ");
    EXPECT_EQ(scan("", &language, MaxRunsPerLine), "");
    EXPECT_EQ(scan("if a then end -- x", &language, 3), "0+2:5/1/1 2+1:1/0/0 3+15:1/0/0 ");
    EXPECT_EQ(scan("if a then", &language, 3), "0+2:5/1/1 2+1:1/0/0 3+6:1/0/0 ");
    EXPECT_EQ(scan("if x", &language, 1), "0+4:1/0/0 ");
    EXPECT_EQ(scan("if x", &language, 0), "");
    // Colouring off, or no language: one black run, not the language's text colour.
    EXPECT_EQ(scan("if x", nullptr, MaxRunsPerLine), "0+4:0/0/0 ");
    editor.settings.options.colors = false;
    EXPECT_EQ(scan("if x -- y", &language, MaxRunsPerLine), "0+9:0/0/0 ");
    ASSERT_EQ(ScanLine("if", &language, runs, MaxRunsPerLine), 1);
    EXPECT_EQ(runs[0].kind, RunKind::Plain);
}

// Whatever the line, the runs follow each other without gap or overlap from column 0 to
// the end, none is empty, and plain runs never sit next to each other.
TEST_F(SyntaxScannerTest, RunsCoverEveryLineExactlyOnce) {
    std::mt19937 random(4711);
    const std::string pieces[] = {"if", "end", "a", "sl",  "e if", "std_logic", "--",
                                  "-",  "\"",  "'", "'x'", " ",    "\t",        "x",
                                  "_",  "9",   ";", "(",   "\xe9", "/*"};
    ColourRun runs[MaxRunsPerLine];
    for (int round = 0; round < 20000; ++round) {
        std::string line;
        const int count = std::uniform_int_distribution<int>(0, 30)(random);
        for (int i = 0; i < count && line.size() < 240; ++i)
            line += pieces[std::uniform_int_distribution<size_t>(0, std::size(pieces) - 1)(random)];
        language.caseSensitive = round % 2 == 0;
        const int n = ScanLine(line, &language, runs, MaxRunsPerLine);
        int32_t at = 0;
        for (int i = 0; i < n; ++i) {
            ASSERT_EQ(runs[i].start, at) << line;
            ASSERT_GT(runs[i].length, 0) << line;
            if (i > 0) {
                ASSERT_FALSE(runs[i].kind == RunKind::Plain && runs[i - 1].kind == RunKind::Plain)
                    << line;
            }
            at += runs[i].length;
        }
        ASSERT_EQ(at, static_cast<int32_t>(line.size())) << line;
    }
}

} // namespace
} // namespace ruvo
