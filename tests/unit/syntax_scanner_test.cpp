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

TEST_F(SyntaxScannerTest, LineCommentRunsToTheEndOfTheLine) {
    EXPECT_EQ(Runs("x := b -- c -- e"), "[x := b ]text[-- c -- e]comment");
    EXPECT_EQ(Runs("-- end if"), "[-- end if]comment");
    EXPECT_EQ(Runs("x - y"), "[x - y]text");
    EXPECT_EQ(Runs("s \"a -- b\" -- c"), "[s ]text[\"a -- b\"]string[ ]text[-- c]comment");
    // Block comments play no part: the line after an opening one is ordinary code.
    EXPECT_EQ(Runs("/* if"), "[/* ]text[if]kw1");
    EXPECT_EQ(Runs("end */"), "[end]kw1[ */]text");

    language.lineComment.clear();
    EXPECT_EQ(Runs("x -- if"), "[x -- ]text[if]kw1");
}

TEST_F(SyntaxScannerTest, KeywordsOutsideIdentifiers) {
    EXPECT_EQ(Runs("if a then"), "[if]kw1[ ]text[a]kw1[ ]text[then]kw1");
    EXPECT_EQ(Runs("  signal s : STD_LOGIC;"),
              "[  ]text[signal]kw1[ s : ]text[STD_LOGIC]kw2[;]text");
    EXPECT_EQ(Runs("ending end_x x_end xend"), "[ending end_x x_end xend]text");
    EXPECT_EQ(Runs("9end"), "[9]text[end]kw1"); // digits do not start an identifier
    EXPECT_EQ(Runs("x9end"), "[x9end]text");
    EXPECT_EQ(Runs("clk'event"), "[clk'event]text");
    EXPECT_EQ(Runs("\xe4if"), "[\xe4]text[if]kw1");
}

TEST_F(SyntaxScannerTest, StringsAndCharacterLiterals) {
    EXPECT_EQ(Runs("x <= \"0101\";"), "[x <= ]text[\"0101\"]string[;]text");
    EXPECT_EQ(Runs("report \"open end"), "[report ]text[\"open end]string");
    EXPECT_EQ(Runs("\""), "[\"]string");
    EXPECT_EQ(Runs("x <= 'a';"), "[x <= ]text['a']string[;]text");
    EXPECT_EQ(Runs("'ab'"), "['ab']text");
    EXPECT_EQ(Runs("'''"), "[''']string");
    EXPECT_EQ(Runs("x'"), "[x']text");
    EXPECT_EQ(Runs("'a"), "[']text[a]kw1");
    EXPECT_EQ(Runs("'x"), "['x]text");
    EXPECT_EQ(Runs("a\"b\\\"c\""), "[a]kw1[\"b\\\"]string[c]text[\"]string"); // no escapes
}

TEST_F(SyntaxScannerTest, AbbreviationOnlyAsTheLastThingOnTheLine) {
    EXPECT_EQ(Runs("sl"), "[sl]abbrev");
    EXPECT_EQ(Runs("  signal x : SL"), "[  ]text[signal]kw1[ x : ]text[SL]abbrev");
    EXPECT_EQ(Runs("sl x"), "[sl x]text");
    EXPECT_EQ(Runs("x sl;"), "[x sl;]text");
    // A name may hold a blank; it is tried wherever the scan stops, not just at word starts.
    EXPECT_EQ(Runs("e if"), "[e if]abbrev");
    EXPECT_EQ(Runs("x := e if"), "[x := ]text[e if]abbrev");
    EXPECT_EQ(Runs("xe if"), "[xe ]text[if]kw1");
}

TEST_F(SyntaxScannerTest, ColoursAndGroupsOfTheRuns) {
    ColourRun runs[MaxRunsPerLine];
    const int count = ScanLine("if x -- y", &language, runs, MaxRunsPerLine);
    ASSERT_EQ(count, 3);
    EXPECT_EQ(runs[0].color, MakeColor(5, 5, 5));
    EXPECT_EQ(runs[0].group, 1);
    EXPECT_EQ(runs[1].color, MakeColor(1, 1, 1));
    EXPECT_EQ(runs[2].color, MakeColor(2, 2, 2));
    EXPECT_EQ(runs[2].typeface, language.comment.typeface);
    EXPECT_EQ(ScanLine("\"s\" sl", &language, runs, MaxRunsPerLine), 3);
    EXPECT_EQ(runs[0].color, MakeColor(3, 3, 3));
    EXPECT_EQ(runs[2].color, MakeColor(4, 4, 4));
    EXPECT_EQ(ScanLine("", &language, runs, MaxRunsPerLine), 0);
}

TEST_F(SyntaxScannerTest, ColouringOffOrNoLanguageGivesOneBlackRun) {
    ColourRun runs[MaxRunsPerLine];
    editor.settings.options.colors = false;
    ASSERT_EQ(ScanLine("if x -- y", &language, runs, MaxRunsPerLine), 1);
    EXPECT_EQ(runs[0].length, 9);
    EXPECT_EQ(runs[0].color, MakeColor(0, 0, 0)); // not the language's text colour
    EXPECT_EQ(runs[0].kind, RunKind::Plain);

    editor.settings.options.colors = true;
    ASSERT_EQ(ScanLine("if x", nullptr, runs, MaxRunsPerLine), 1);
    EXPECT_EQ(runs[0].length, 4);
    EXPECT_EQ(runs[0].color, MakeColor(0, 0, 0));
}

TEST_F(SyntaxScannerTest, ShortRunArrayEndsWithTheRestOfTheLine) {
    ColourRun runs[3];
    ASSERT_EQ(ScanLine("if a then end -- x", &language, runs, 3), 3);
    EXPECT_EQ(runs[2].start, 3);
    EXPECT_EQ(runs[2].length, 15);
    EXPECT_EQ(runs[2].color, language.text.color);
    ASSERT_EQ(ScanLine("if x", &language, runs, 1), 1);
    EXPECT_EQ(runs[0].length, 4);
    EXPECT_EQ(ScanLine("if x", &language, runs, 0), 0);
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
