// Keyword and abbreviation lookup, the colouring scanner's runs, and the shipped VHDL and
// Verilog languages (config/ruvo.ini with its .lsf and .tpl files) loaded for real.
#include <algorithm>

#include "aids/template_file.h"
#include "test_files.h"
#include "editor_fixture.h"
#include "engine/edit_buffer.h"
#include "lang/keyword_lookup.h"
#include "lang/language_io.h"
#include "lang/syntax_scanner.h"
#include "settings/error_report.h"

namespace ruvo {
namespace {

// The runs of a line as "[text]kind" pieces, keywords with their group; with `colours`, each
// piece followed by "/red/typeface".
std::string Runs(std::string_view line, const LanguageDef* language, int capacity = MaxRunsPerLine,
                 bool colours = false) {
    static const char* const kinds[] = {"text", "comment", "kw", "abbrev", "string"};
    ColourRun runs[MaxRunsPerLine];
    std::string out;
    for (int i = 0, count = ScanLine(line, language, runs, capacity); i < count; ++i) {
        const ColourRun& run = runs[i];
        out += "[" + std::string(line.substr(run.start, run.length)) + "]" +
               kinds[static_cast<int>(run.kind)];
        if (run.kind == RunKind::Keyword) out += std::to_string(run.group);
        if (colours)
            out += "/" + std::to_string(run.color & 0xff) + "/" + std::to_string(run.typeface);
    }
    return out;
}

class SyntaxTest : public EditorTest {
  protected:
    SyntaxTest() {
        TempFile options("[Group1]\nend\nif\nthen\nsignal\na\nelsif\nending_x\nBegin\n[Group2]\n"
                         "std_logic\nstd_logic_vector\nstd_ulogic\nstdout\nstd\ns\n"
                         "[expander]\nsl=std_logic\ne if=end if;\n");
        LoadIniIntoProfile(host, "[Languages]\n1=L\n[L]\nCaseSensitive=no\nLineComment=--\n"
                                 "TextColor=1 1 1\nCommentTypeFace=2\nFile=" +
                                     options.path());
        LoadLanguages();
    }

    LanguageDef& language = LanguageEntry(1);
};

TEST_F(SyntaxTest, TheShippedLanguagesColourLinesAndNameTheirTemplates) {
    // The shipped profile names its files under $INSTALL, the program folder on Windows; here they
    // are the checkout's files.
    std::string ini = ReadBytes(SourcePath("config/ruvo.ini"));
    for (size_t at; (at = ini.find("$INSTALL\\")) != std::string::npos;)
        ini.replace(at, 9, SourcePath("config/"));
    LoadIniIntoProfile(host, ini);
    LoadLanguages();
    const LanguageDef &vhdl = LanguageEntry(1), &verilog = LanguageEntry(2);
    const std::tuple<const LanguageDef*, const char*, const char*> shipped[] = {
        {&vhdl, "  signal c : unsigned(7 downto 0) := (others => '0'); -- counter",
         "[  ]text[signal]kw1[ c : ]text[unsigned]kw2[(7 ]text[downto]kw1[ 0) := (]text"
         "[others]kw1[ => ]text['0']string[); ]text[-- counter]comment"},
        {&verilog, "always @(posedge clk) // up",
         "[always]kw1[ @(]text[posedge]kw1[ clk) ]text[// up]comment"},
        {&verilog, "MODULE Begin end", "[MODULE Begin ]text[end]kw1"}, // case sensitive
        {&verilog, "  alw", "[  ]text[alw]abbrev"}};
    for (const auto& [language, line, runs] : shipped)
        EXPECT_EQ(Runs(line, language), runs) << line;

    std::vector<std::string> known; // "[$INSTALL\\file][name]" of every shipped template
    for (const char* file : {"vhdl.tpl", "verilog.tpl"})
        for (const Template& entry : LoadTemplateFile(SourcePath("config/") + file)->templates)
            known.push_back("[$INSTALL\\" + std::string(file) + "][" + entry.name + "]");
    int references = 0;
    for (const LanguageDef* language : {&vhdl, &verilog})
        for (const char* value : language->expanderValues) {
            references += value[0] == '[';
            EXPECT_TRUE(value[0] != '[' || std::ranges::count(known, value) == 1) << value;
        }
    EXPECT_EQ(std::tuple(UsedLanguageCount(), references, HasStartupErrors()),
              std::tuple(3, 27, false));
}

// Line comments run to the end of the line; keywords are found by halving at an identifier
// boundary, never inside an identifier (digits do not start one); strings and character literals
// without escapes; an abbreviation only as the last thing on the line, tried wherever the scan
// stops.
TEST_F(SyntaxTest, LinesSplitIntoRuns) {
    const std::pair<const char*, const char*> lines[] = {
        {"x := b -- c -- e", "[x := b ]text[-- c -- e]comment"},
        {"x - y", "[x - y]text"},
        {"x \"a -- b\" -- c", "[x ]text[\"a -- b\"]string[ ]text[-- c]comment"},
        {"ending end_x x_end end2 en std_logic_vec std_ BEGIN",
         "[ending end_x x_end end2 en std_logic_vec std_ ]text[BEGIN]kw1"},
        {"std_logic_vector) std) s.x elsif(ending_x stdout std_ulogic",
         "[std_logic_vector]kw2[) ]text[std]kw2[) ]text[s]kw2[.x ]text[elsif]kw1[(]text"
         "[ending_x]kw1[ ]text[stdout]kw2[ ]text[std_ulogic]kw2"},
        {"9end \xe4if", "[9]text[end]kw1[ \xe4]text[if]kw1"},
        {"report \"open end", "[report ]text[\"open end]string"},
        {"x <= 'a'; 'ab'", "[x <= ]text['a']string[; 'ab']text"},
        {"'''", "[''']string"},
        {"a\"b\\\"c\"", "[a]kw1[\"b\\\"]string[c]text[\"]string"},
        {"  signal x : SL", "[  ]text[signal]kw1[ x : ]text[SL]abbrev"},
        {"x sl;", "[x sl;]text"},
        {"x := E If", "[x := ]text[E If]abbrev"},
        {"xe if", "[xe ]text[if]kw1"}};
    for (const auto& [line, runs] : lines)
        EXPECT_EQ(Runs(line, &language), runs) << line;
    language.lineComment.clear();
    EXPECT_EQ(Runs("x -- if", &language), "[x -- ]text[if]kw1");
    language.caseSensitive = true;
    EXPECT_EQ(Runs("Begin begin END", &language), "[Begin]kw1[ begin END]text");
    EXPECT_EQ(KeywordLengthInGroup(language, 2, "std)") + KeywordLengthInGroup(language, 6, "s"),
              3);
    EXPECT_EQ(FindKeyword(language, "").length + FindKeyword(language, "_end").length, 0);
}

// A short run array ends with one plain run over the rest of the line. Colouring off, or no
// language: one black run, not the language's text colour.
TEST_F(SyntaxTest, ShortRunArraysAndColouringOffEndInOnePlainRun) {
    const std::tuple<const char*, const LanguageDef*, int, const char*> cases[] = {
        {"if x -- y", &language, MaxRunsPerLine, "[if]kw1/255/1[ x ]text/1/0[-- y]comment/0/2"},
        {"\"s\" sl", &language, MaxRunsPerLine, "[\"s\"]string/0/1[ ]text/1/0[sl]abbrev/0/0"},
        {"", &language, MaxRunsPerLine, ""},
        {"if a then -- x", &language, 3, "[if]kw1/255/1[ ]text/1/0[a then -- x]text/1/0"},
        {"if a", &language, 3, "[if]kw1/255/1[ ]text/1/0[a]kw1/255/1"},
        {"if x", &language, 1, "[if x]text/1/0"},
        {"if x", &language, 0, ""},
        {"if x", nullptr, MaxRunsPerLine, "[if x]text/0/0"}};
    for (const auto& [line, with, capacity, runs] : cases)
        EXPECT_EQ(Runs(line, with, capacity, true), runs) << line << capacity;
    editor.settings.options.colors = false;
    EXPECT_EQ(Runs("if x -- y", &language, MaxRunsPerLine, true), "[if x -- y]text/0/0");
}

} // namespace
} // namespace ruvo
