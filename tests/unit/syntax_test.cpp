// Keyword and abbreviation lookup, the colouring scanner's runs, and the shipped VHDL and
// Verilog languages (config/ruvo.ini with its .lsf files) loaded for real.
#include <algorithm>
#include <cstring>
#include <random>
#include <sstream>

#include "editor_fixture.h"
#include "engine/edit_buffer.h"
#include "lang/keyword_lookup.h"
#include "lang/language_io.h"
#include "lang/syntax_scanner.h"
#include "language_test_files.h"
#include "settings/error_report.h"

namespace ruvo {
namespace {

class SyntaxTest : public EditorTest {
  protected:
    SyntaxTest() {
        language.lineComment = "--";
        language.beginComment = "/*";
        language.endComment = "*/";
        language.caseSensitive = false;
        language.text.color = MakeColor(1, 1, 1);
        language.comment.color = MakeColor(2, 2, 2);
        language.strings.color = MakeColor(3, 3, 3);
        language.expander.color = MakeColor(4, 4, 4);
        language.groups[0].attribute.color = MakeColor(5, 5, 5);
        Group(1, {"end", "if", "then", "signal", "process", "is", "a"});
        Group(2, {"std_logic", "integer"});
        for (auto [name, value] :
             {std::pair{"sl", "std_logic"}, {"e if", "end if;"}, {"proc", "process"}}) {
            EXPECT_TRUE(language.expanderNames.Append(name));
            EXPECT_TRUE(language.expanderValues.Append(value));
        }
    }
    void Group(int group, const std::vector<std::string>& words) {
        WordArray& array = language.groups[group - 1].words;
        array.Clear();
        for (const std::string& word : words)
            EXPECT_TRUE(array.Append(word));
        SortKeywords(array);
    }
    int Length(std::string_view text) { return FindKeyword(language, text).length; }

    LanguageDef language;
};

TEST_F(SyntaxTest, KeywordsMatchAtAnIdentifierBoundaryByTheCaseRulesInTheFirstGroup) {
    Group(1, {"end", "entity", "if", "else", "elsif", "ending_x", "Begin", "range"});
    Group(2, {"std_logic", "std_logic_vector", "std_ulogic", "stdout", "std", "s"});
    Group(3, {"range", "rising_edge"});
    language.groups[2].attribute = {4, MakeColor(3, 0, 0)};
    // The text must start with a letter; words that start with another word are found.
    const std::pair<const char*, int> cases[] = {
        {"end;", 3},          {"end", 3},     {"end-- c", 3}, {"ending", 0},
        {"end_x", 0},         {"end2", 0},    {"en", 0},      {"ending_x", 8},
        {"elsif(a)", 5},      {"else\tx", 4}, {" end", 0},    {"", 0},
        {"std_logic)", 9},    {"std)", 3},    {"s.x", 1},     {"std_logic_vector)", 16},
        {"std_logic_vec", 0}, {"std_", 0},    {"stdout", 6},  {"std_ulogic", 10},
        {"BEGIN", 5},         {"End;", 3}};
    for (const auto& [text, length] : cases)
        EXPECT_EQ(Length(text), length) << text;
    const KeywordMatch range = FindKeyword(language, "range 0 to 7");
    const KeywordMatch edge = FindKeyword(language, "rising_edge(clk)");
    EXPECT_EQ(std::tuple(range.length, range.group, edge.length, edge.group),
              std::tuple(5, 1, 11, 3));
    EXPECT_EQ(std::tuple(edge.attribute.typeface, edge.attribute.color),
              std::tuple(4, MakeColor(3, 0, 0)));
    EXPECT_EQ(FindKeyword(language, "risen").group, 0);
    EXPECT_EQ(KeywordLengthInGroup(language, 3, "range"), 5);
    EXPECT_EQ(KeywordLengthInGroup(language, 2, "range") + KeywordLengthInGroup(language, 6, "s"),
              0);
    language.caseSensitive = true;
    EXPECT_EQ(Length("Begin"), 5);
    EXPECT_EQ(Length("begin") + Length("END"), 0);
    // The exact comparison ranks "Zed" before "abc", against the folded order the words are in,
    // so the halving search misses "abc". Mixed-case words do not belong in such a language.
    Group(4, {"Zed", "abc"});
    EXPECT_EQ(KeywordLengthInGroup(language, 4, "Zed") + KeywordLengthInGroup(language, 4, "abc"),
              3);
}

TEST_F(SyntaxTest, AbbreviationsMatchTheWholeTextWithoutRegardToCase) {
    const std::pair<const char*, int> found[] = {{"sl", 0},   {"SL", 0}, {"E IF", 1},  {"s", -1},
                                                 {"sl ", -1}, {"", -1},  {"e iff", -1}};
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

// Line comments run to the end of the line, block comments play no part; keywords only outside
// identifiers (digits do not start one); strings and character literals without escapes; an
// abbreviation only as the last thing on the line, tried wherever the scan stops.
TEST_F(SyntaxTest, LinesSplitIntoCommentKeywordStringAndAbbreviationRuns) {
    const std::pair<const char*, const char*> lines[] = {
        {"x := b -- c -- e", "[x := b ]text[-- c -- e]comment"},
        {"-- end if", "[-- end if]comment"},
        {"x - y", "[x - y]text"},
        {"s \"a -- b\" -- c", "[s ]text[\"a -- b\"]string[ ]text[-- c]comment"},
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
        {"x <= 'a';", "[x <= ]text['a']string[;]text"},
        {"'ab'", "['ab']text"},
        {"'''", "[''']string"},
        {"'a", "[']text[a]kw1"},
        {"a\"b\\\"c\"", "[a]kw1[\"b\\\"]string[c]text[\"]string"},
        {"  signal x : SL", "[  ]text[signal]kw1[ x : ]text[SL]abbrev"},
        {"sl x", "[sl x]text"},
        {"x sl;", "[x sl;]text"},
        {"x := e if", "[x := ]text[e if]abbrev"},
        {"xe if", "[xe ]text[if]kw1"}};
    for (const auto& [line, runs] : lines)
        EXPECT_EQ(DescribeRuns(line, &language), runs) << line;
    language.lineComment.clear();
    EXPECT_EQ(DescribeRuns("x -- if", &language), "[x -- ]text[if]kw1");
}

TEST_F(SyntaxTest, RunsCarryColoursAndAShortArrayEndsWithTheRestOfTheLine) {
    ColourRun runs[MaxRunsPerLine];
    const auto scan = [&](std::string_view line, const LanguageDef* with, int capacity) {
        std::ostringstream found;
        for (int i = 0, count = ScanLine(line, with, runs, capacity); i < count; ++i)
            found << runs[i].start << "+" << runs[i].length << ":" << (runs[i].color & 0xff) << "/"
                  << runs[i].group << "/" << runs[i].typeface << " ";
        return found.str();
    };
    language.comment.typeface = 2;
    EXPECT_EQ(scan("if x -- y", &language, MaxRunsPerLine), "0+2:5/1/1 2+3:1/0/0 5+4:2/0/2 ");
    EXPECT_EQ(scan("\"s\" sl", &language, MaxRunsPerLine), "0+3:3/0/1 3+1:1/0/0 4+2:4/0/0 ");
    EXPECT_EQ(scan("", &language, MaxRunsPerLine), "");
    EXPECT_EQ(scan("if a then end -- x", &language, 3), "0+2:5/1/1 2+1:1/0/0 3+15:1/0/0 ");
    EXPECT_EQ(scan("if a then", &language, 3), "0+2:5/1/1 2+1:1/0/0 3+6:1/0/0 ");
    EXPECT_EQ(scan("if x", &language, 1) + "|" + scan("if x", &language, 0), "0+4:1/0/0 |");
    // Colouring off, or no language: one black run, not the language's text colour.
    EXPECT_EQ(scan("if x", nullptr, MaxRunsPerLine), "0+4:0/0/0 ");
    editor.settings.options.colors = false;
    EXPECT_EQ(scan("if x -- y", &language, MaxRunsPerLine), "0+9:0/0/0 ");
    EXPECT_EQ(runs[0].kind, RunKind::Plain);
}

// Whatever the line, the runs follow each other without gap or overlap from column 0 to the
// end, none is empty, and plain runs never sit next to each other.
TEST_F(SyntaxTest, RunsCoverEveryLineExactlyOnce) {
    std::mt19937 random(4711);
    const std::string pieces[] = {"if", "end", "a", "sl",  "e if", "std_logic", "--",
                                  "-",  "\"",  "'", "'x'", " ",    "\t",        "x",
                                  "_",  "9",   ";", "(",   "\xe9", "/*"};
    ColourRun runs[MaxRunsPerLine];
    for (int round = 0; round < 20000; ++round) {
        std::string line;
        for (int i = random() % 31; i > 0 && line.size() < 240; --i)
            line += pieces[random() % std::size(pieces)];
        language.caseSensitive = round % 2 == 0;
        int32_t at = 0;
        for (int i = 0, n = ScanLine(line, &language, runs, MaxRunsPerLine); i < n; ++i) {
            ASSERT_EQ(runs[i].start, at) << line;
            ASSERT_GT(runs[i].length, 0) << line;
            ASSERT_FALSE(i > 0 && runs[i].kind == RunKind::Plain &&
                         runs[i - 1].kind == RunKind::Plain)
                << line;
            at += runs[i].length;
        }
        ASSERT_EQ(at, static_cast<int32_t>(line.size())) << line;
    }
}

class ShippedLanguagesTest : public EditorTest {
  protected:
    ShippedLanguagesTest() {
        EXPECT_TRUE(LoadIniIntoProfile(host, SourcePath("config/ruvo.ini")));
        // $INSTALL\vhdl.lsf names the program folder on Windows; here the checkout's files.
        EXPECT_EQ(host.ProfileValue("VHDL", "File"), "$INSTALL\\vhdl.lsf");
        EXPECT_EQ(host.ProfileValue("Verilog", "File"), "$INSTALL\\verilog.lsf");
        host.SetProfile("VHDL", "File", SourcePath("config/vhdl.lsf"));
        host.SetProfile("Verilog", "File", SourcePath("config/verilog.lsf"));
        LoadLanguages();
    }
};

TEST_F(ShippedLanguagesTest, TwoLanguagesWithTheirWordsExtensionsAndFilters) {
    const LanguageDef &vhdl = LanguageEntry(1), &verilog = LanguageEntry(2);
    EXPECT_FALSE(HasStartupErrors());
    EXPECT_EQ(UsedLanguageCount(), 3);
    EXPECT_EQ(std::tuple(vhdl.caseSensitive, vhdl.lineComment, verilog.caseSensitive,
                         verilog.lineComment, verilog.beginComment, verilog.endComment),
              std::tuple(false, "--", true, "//", "/*", "*/"));
    // Every reserved word of VHDL-2008 and every keyword of Verilog-2005.
    EXPECT_EQ(vhdl.groups[0].words.Count() + 1000 * verilog.groups[0].words.Count(), 124115);
    EXPECT_GT(std::min(vhdl.expanderNames.Count(), verilog.expanderNames.Count()), 10);

    // VHDL comes first and takes the VHDL netlists and templates; plain v must match exactly.
    for (const char* row : {"VHDL top.vhd top.vhdl netlist.vho inst.vhi model.vhx",
                            "Verilog top.v defs.vh netlist.vo top.sv pkg.svh C:\\a.b\\top.v",
                            "None wave.vcd top.VHD top.V timing.sdf run.vbs top.bak Makefile"}) {
        std::istringstream files(row);
        std::string language, file;
        for (files >> language; files >> file;)
            EXPECT_EQ(languageForFile(file)->name, language) << file;
    }
    for (int i = 1; i < UsedLanguageCount(); ++i) { // no element is caught by another language
        std::istringstream list(LanguageEntry(i).extensions);
        for (std::string element; std::getline(list, element, ',');)
            EXPECT_EQ(languageForFile("f." + element), &LanguageEntry(i)) << element;
    }
}

TEST_F(ShippedLanguagesTest, CodeInBothLanguagesColoursAsADesignerExpects) {
    const std::tuple<int, const char*, const char*> lines[] = {
        {1, "  signal c : unsigned(7 downto 0) := (others => '0'); -- counter",
         "[  ]text[signal]kw1[ c : ]text[unsigned]kw2[(7 ]text[downto]kw1[ 0) := (]text"
         "[others]kw1[ => ]text['0']string[); ]text[-- counter]comment"},
        {1, "ELSIF clk'EVENT AND x'length",
         "[ELSIF]kw1[ clk']text[EVENT]kw4[ ]text[AND]kw1[ x']text[length]kw4"},
        {1, "report \"done -- ok\" severity note;",
         "[report]kw1[ ]text[\"done -- ok\"]string[ ]text[severity]kw1[ ]text[note]kw5[;]text"},
        {2, "  always @(posedge clk) begin // count up",
         "[  ]text[always]kw1[ @(]text[posedge]kw1[ clk) ]text[begin]kw1[ ]text"
         "[// count up]comment"},
        {2, "  $display(\"q=%d\", q);", "[  $]text[display]kw2[(]text[\"q=%d\"]string[, q);]text"},
        {2, "MODULE Begin end", "[MODULE Begin ]text[end]kw1"}, // case sensitive
        {2, "  alw", "[  ]text[alw]abbrev"}};
    for (const auto& [language, line, runs] : lines)
        EXPECT_EQ(DescribeRuns(line, &LanguageEntry(language)), runs) << line;

    // Every word is found alone and before the usual punctuation (the halving search compares
    // the next character too); an abbreviation that is also a keyword could never be coloured.
    for (const LanguageDef* language : {&LanguageEntry(1), &LanguageEntry(2)}) {
        for (int g = 0; g < KeywordGroupCount; ++g) {
            for (const char* word : language->groups[g].words) {
                EXPECT_EQ(FindKeyword(*language, word).group, g + 1) << word;
                for (char c : std::string(" \t;:,.()[]=<>+-*/&!@#'\"^?%$\\"))
                    EXPECT_EQ(FindKeyword(*language, std::string(word) + c + "x").length,
                              static_cast<int>(std::strlen(word)))
                        << word << c;
            }
        }
        for (const char* name : language->expanderNames)
            EXPECT_EQ(FindKeyword(*language, name).length, 0) << name;
    }
}

} // namespace
} // namespace ruvo
