// The shipped set-up: config/ruvo.ini's language sections with config/vhdl.lsf and
// config/verilog.lsf, loaded for real, and how code in both languages colours.
#include <string>
#include <vector>

#include "docs/file_dialogs.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "lang/keyword_lookup.h"
#include "lang/language_io.h"
#include "lang/language_table.h"
#include "settings/error_report.h"
#include "settings/settings_io.h"

#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

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
    const LanguageDef& Vhdl() { return LanguageEntry(1); }
    const LanguageDef& Verilog() { return LanguageEntry(2); }
};

TEST_F(ShippedLanguagesTest, ProfileNamesTwoLanguagesWithTheirFiles) {
    EXPECT_FALSE(HasStartupErrors());
    EXPECT_EQ(UsedLanguageCount(), 3);
    EXPECT_FALSE(Vhdl().caseSensitive);
    EXPECT_EQ(Vhdl().lineComment, "--");
    EXPECT_TRUE(Verilog().caseSensitive);
    EXPECT_EQ(Verilog().lineComment, "//");
    EXPECT_EQ(Verilog().beginComment, "/*");
    EXPECT_EQ(Verilog().endComment, "*/");
    // Every reserved word of VHDL-2008 and every keyword of Verilog-2005.
    EXPECT_EQ(Vhdl().groups[0].words.Count(), 115);
    EXPECT_EQ(Verilog().groups[0].words.Count(), 124);
    EXPECT_GT(Vhdl().expanderNames.Count(), 20);
    EXPECT_GT(Verilog().expanderNames.Count(), 10);
}

TEST_F(ShippedLanguagesTest, ExtensionsReachTheirLanguageOnly) {
    // VHDL comes first and takes the VHDL netlists and templates, so the Verilog header's
    // prefix takes nothing of VHDL; plain v must match exactly.
    const std::pair<const char*, const char*> names[] = {
        {"top.vhd", "VHDL"},           {"top.vhdl", "VHDL"},
        {"netlist.vho", "VHDL"},       {"inst.vhi", "VHDL"},
        {"model.vhx", "VHDL"},         {"top.v", "Verilog"},
        {"defs.vh", "Verilog"},        {"netlist.vo", "Verilog"},
        {"top.sv", "Verilog"},         {"pkg.svh", "Verilog"},
        {"C:\\a.b\\top.v", "Verilog"}, {"wave.vcd", "None"},
        {"top.VHD", "None"},           {"top.V", "None"},
        {"timing.sdf", "None"},        {"run.vbs", "None"},
        {"top.bak", "None"},           {"Makefile", "None"},
    };
    for (const auto& [file, language] : names)
        EXPECT_EQ(languageForFile(file)->name, language) << file;
    // No element of a list is caught by another language first.
    for (int i = 1; i < UsedLanguageCount(); ++i) {
        std::string list = LanguageEntry(i).extensions;
        size_t start = 0;
        while (start <= list.size()) {
            const size_t comma = std::min(list.find(',', start), list.size());
            const std::string element = list.substr(start, comma - start);
            EXPECT_EQ(languageForFile("f." + element), &LanguageEntry(i)) << element;
            start = comma + 1;
        }
    }
}

TEST_F(ShippedLanguagesTest, FileDialogsOfferEachFileTypeOnce) {
    // "All files" comes from "None" alone; each language adds its own pair.
    const auto filterWith = [&](EditBuffer* current) {
        editor.engine.currentBuffer = current;
        buildFileDialogFilter();
        return editor.documents.fileDialogFilter;
    };
    EXPECT_EQ(filterWith(nullptr), "All files(*.*)|*.*|"
                                   "VHDL files (*.vhd;*.vhdl)|*.vhd;*.vhdl|"
                                   "Verilog files (*.v;*.vh)|*.v;*.vh|");
    EditBuffer verilogBuffer;
    verilogBuffer.language = &LanguageEntry(2);
    EXPECT_EQ(filterWith(&verilogBuffer), "Verilog files (*.v;*.vh)|*.v;*.vh|"
                                          "All files(*.*)|*.*|"
                                          "VHDL files (*.vhd;*.vhdl)|*.vhd;*.vhdl|");
    editor.engine.currentBuffer = nullptr;
}

TEST_F(ShippedLanguagesTest, VhdlColoursAsADesignerExpects) {
    const LanguageDef* vhdl = &Vhdl();
    EXPECT_EQ(DescribeRuns("library ieee;", vhdl), "[library]kw1[ ]text[ieee]kw2[;]text");
    EXPECT_EQ(DescribeRuns("use ieee.numeric_std.all;", vhdl),
              "[use]kw1[ ]text[ieee]kw2[.]text[numeric_std]kw2[.]text[all]kw1[;]text");
    EXPECT_EQ(
        DescribeRuns("  signal count : unsigned(7 downto 0) := (others => '0'); -- counter", vhdl),
        "[  ]text[signal]kw1[ count : ]text[unsigned]kw2[(7 ]text[downto]kw1[ 0) := (]text"
        "[others]kw1[ => ]text['0']string[); ]text[-- counter]comment");
    EXPECT_EQ(DescribeRuns("    if rising_edge(clk) then", vhdl),
              "[    ]text[if]kw1[ ]text[rising_edge]kw3[(clk) ]text[then]kw1");
    EXPECT_EQ(DescribeRuns("ELSIF clk'EVENT AND clk = '1' THEN", vhdl),
              "[ELSIF]kw1[ clk']text[EVENT]kw4[ ]text[AND]kw1[ clk = ]text['1']string[ ]text"
              "[THEN]kw1");
    EXPECT_EQ(DescribeRuns("q <= std_logic_vector(to_unsigned(n, q'length));", vhdl),
              "[q <= ]text[std_logic_vector]kw2[(]text[to_unsigned]kw3[(n, q']text[length]kw4"
              "[));]text");
    EXPECT_EQ(DescribeRuns("report \"done -- ok\" severity note;", vhdl),
              "[report]kw1[ ]text[\"done -- ok\"]string[ ]text[severity]kw1[ ]text[note]kw5"
              "[;]text");
    EXPECT_EQ(DescribeRuns("end_of_frame <= end_flag;", vhdl), "[end_of_frame <= end_flag;]text");
    EXPECT_EQ(DescribeRuns("  signal s : sl", vhdl), "[  ]text[signal]kw1[ s : ]text[sl]abbrev");
}

TEST_F(ShippedLanguagesTest, VerilogColoursAsADesignerExpects) {
    const LanguageDef* verilog = &Verilog();
    EXPECT_EQ(DescribeRuns("module counter(input wire clk, output reg [7:0] q);", verilog),
              "[module]kw1[ counter(]text[input]kw1[ ]text[wire]kw1[ clk, ]text[output]kw1[ ]text"
              "[reg]kw1[ [7:0] q);]text");
    EXPECT_EQ(DescribeRuns("  always @(posedge clk) begin // count up", verilog),
              "[  ]text[always]kw1[ @(]text[posedge]kw1[ clk) ]text[begin]kw1[ ]text"
              "[// count up]comment");
    EXPECT_EQ(DescribeRuns("    q <= q + 8'h01;", verilog), "[    q <= q + 8'h01;]text");
    EXPECT_EQ(DescribeRuns("  $display(\"q=%d\", q);", verilog),
              "[  $]text[display]kw2[(]text[\"q=%d\"]string[, q);]text");
    EXPECT_EQ(DescribeRuns("`timescale 1ns / 1ps", verilog),
              "[`]text[timescale]kw3[ 1ns / 1ps]text");
    // Case sensitive: upper-case words are identifiers.
    EXPECT_EQ(DescribeRuns("MODULE Begin end", verilog), "[MODULE Begin ]text[end]kw1");
    EXPECT_EQ(DescribeRuns("/* a block comment", verilog), "[/* a block comment]text");
    EXPECT_EQ(DescribeRuns("  alw", verilog), "[  ]text[alw]abbrev");
}

// A keyword is found whatever a designer writes after it. (The halving search compares the
// next character too: one that sorts above the digits, such as ';', can hide a word that another
// word extends by a digit; one above the letters, such as '|', a word extended by a letter.)
TEST_F(ShippedLanguagesTest, EveryWordIsFoundBeforeTheUsualPunctuation) {
    const std::string after = " \t;:,.()[]=<>+-*/&!@#'\"^?%$\\";
    for (const LanguageDef* language : {&Vhdl(), &Verilog()}) {
        for (int g = 0; g < KeywordGroupCount; ++g) {
            for (const char* word : language->groups[g].words) {
                const KeywordMatch alone = FindKeyword(*language, word);
                EXPECT_EQ(alone.group, g + 1) << language->name << " " << word;
                for (char c : after) {
                    const std::string text = std::string(word) + c + "x";
                    EXPECT_EQ(FindKeyword(*language, text).length, alone.length)
                        << language->name << " " << text;
                }
            }
        }
        // An abbreviation that is also a keyword could never be coloured as one.
        for (const char* name : language->expanderNames)
            EXPECT_EQ(FindKeyword(*language, name).length, 0) << language->name << " " << name;
    }
}

TEST_F(ShippedLanguagesTest, SavingWritesBackWhatTheFileHolds) {
    host.profileWrites.clear();
    SaveLanguages();
    for (const std::string& write : host.profileWrites) {
        const size_t close = write.find("] ");
        const size_t equals = write.find('=', close);
        const std::string section = write.substr(1, close - 1);
        const std::string key = write.substr(close + 2, equals - close - 2);
        if (key == "File") continue; // saved expanded
        FakeHost shipped;
        ASSERT_TRUE(LoadIniIntoProfile(shipped, SourcePath("config/ruvo.ini")));
        EXPECT_EQ(shipped.ProfileValue(section, key), write.substr(equals + 1)) << write;
    }
}

TEST_F(ShippedLanguagesTest, OptionsSectionHoldsTheDefaultsButAMaximisedFirstWindow) {
    LoadSettings();
    // The first file fills the frame; the rest is the program's defaults.
    EXPECT_TRUE(editor.settings.options.firstChildMaximized);
    editor.settings.options.firstChildMaximized = false;
    host.profileWrites.clear();
    SaveSettings();
    const std::vector<std::string> shipped = host.profileWrites;
    editor.settings.options = Options{};
    host.profileWrites.clear();
    SaveSettings();
    EXPECT_EQ(shipped, host.profileWrites);
    // The settings load reads the languages as well.
    EXPECT_EQ(LanguageEntry(2).groups[0].words.Count(), 124);
}

} // namespace
} // namespace ruvo
