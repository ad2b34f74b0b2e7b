// The shipped message formats over real compiler output and written lines of other tools, and
// the reading of the rule file.
#include "tools/message_formats.h"

#include <fstream>
#include <string>
#include <vector>

#include "test_files.h"
#include "editor_fixture.h"

namespace ruvo {
namespace {

using MessageFormatsTest = EditorTest;

// The entries among the lines as "file:line:column" and E, W or N for the severity, each
// followed by a blank.
std::string Entries(const MessageFormats& formats, std::string_view name,
                    const std::vector<std::string>& lines) {
    MessageReader reader(formats, name);
    std::string entries;
    for (const std::string& line : lines)
        if (const std::optional<MessageLocation> at = reader.Read(line))
            entries += at->file + ":" + std::to_string(at->line) + ":" +
                       std::to_string(at->column) + "EWN"[static_cast<int>(at->severity)] + " ";
    return entries;
}

// The output as a pipe sees it (stdout and stderr merged) from a captured run.
std::vector<std::string> MergedOutput(const std::string& name) {
    std::ifstream in(SourcePath("tests/fixtures/compiler-output/outputs/" + name));
    std::vector<std::string> lines;
    bool inside = false;
    for (std::string line; std::getline(in, line);)
        if (line.starts_with("### ----- "))
            inside = line.starts_with("### ----- merged");
        else if (inside)
            lines.push_back(line);
    return lines;
}

// Captured compiler output and written lines of other tools; the lines of one row are read in
// turn: Questa's run-time lines take the severity of the heading before them.
TEST_F(MessageFormatsTest, EveryLocationIsFoundInCompilerOutput) {
    const MessageFormats formats = ReadMessageFormats(SourcePath("config/messages.ini"));
    EXPECT_TRUE(ReportedLines(editor).empty());
    // {format, lines, entries}
    const std::tuple<const char*, std::vector<std::string>, std::string> cases[] = {
        {"ghdl", MergedOutput("ghdl_a__many_errors.txt"),
         "many_errors.vhd:4:25E many_errors.vhd:5:21E many_errors.vhd:7:8E "
         "many_errors.vhd:8:8E many_errors.vhd:9:3E many_errors.vhd:9:8E "},
        {"Icarus", MergedOutput("iverilog__many_errors.txt"),
         "many_errors.v:3:0E many_errors.v:4:0E many_errors.v:4:0E many_errors.v:5:0E "
         "many_errors.v:5:0E many_errors.v:6:0E "},
        {"Verilator", MergedOutput("verilator__warnings_default.txt"),
         "warnings.v:5:15W warnings.v:6:12W warnings.v:8:7W warnings.v:9:12W "},
        {"Yosys", MergedOutput("yosys_q__many_errors.txt"),
         "many_errors.v:3:10W many_errors.v:6:13W many_errors.v:4:0W many_errors.v:5:0W "},
        {"Yosys", MergedOutput("yosys_q__warnings_check.txt"), ""},
        {"Questa",
         {"** Error (suppressible): C:\\My Designs\\alu.vhd(7): (vcom-1246) Range",
          "# ** Note: start", "#    Time: 5 ns  Process: /tb/p File: C:/tb.vhd Line: 20",
          "# ** Failure: Simulation finished",
          "#    Time: 1 us  Iteration: 0  Process: /tb/stim File: C:/tb.vhd",
          "# Break in Process stim at C:/tb.vhd line 43"},
         "C:\\My Designs\\alu.vhd:7:0E C:/tb.vhd:20:0N C:/tb.vhd:43:0E "},
        {"Vivado",
         {"ERROR: [VRFC 10-91] 'q' is not declared [\"C:/my proj/top.vhd\":12]",
          "CRITICAL WARNING: [VRFC 10-3] bus x[7:0] [C:\\p\\a.v:9]"},
         "C:/my proj/top.vhd:12:0E C:\\p\\a.v:9:0W "},
        {"Quartus",
         {"Error (10161): at top.v(7): no File: /proj/top.v Line: 7"},
         "/proj/top.v:7:0E "},
        {"GHDL",
         {"C:\\my proj\\tb.vhd:20:5:@10ns:(assertion failure): done",
          "./tb:error: bound check failure at tb.vhd:15"},
         "C:\\my proj\\tb.vhd:20:5E tb.vhd:15:0E "},
        {"Icarus", {"tb.v:15: $finish called at 100 (1s)"}, "tb.v:15:0N "},
    };
    for (const auto& [format, lines, entries] : cases) {
        EXPECT_EQ(Entries(formats, format, lines), entries) << format;
        EXPECT_EQ(Entries(formats, AllFormatsName, lines), entries) << format;
    }
}

// A message's path is resolved against the working directory and cleaned.
TEST(MessagePathsTest, PathsAreResolvedAndCleaned) {
    EXPECT_EQ(ResolveMessagePath("C:\\proj", "a.vhd"), "C:\\proj\\a.vhd");
    EXPECT_EQ(ResolveMessagePath("C:\\proj\\", "./sub/a.v"), "C:\\proj\\sub/a.v");
    EXPECT_EQ(ResolveMessagePath("/home/me/proj", "a.v"), "/home/me/proj/a.v");
    EXPECT_EQ(ResolveMessagePath("", "a.v") + ResolveMessagePath(".", "b.v"), "a.vb.v");

    EXPECT_EQ(CleanPath("C:/proj/./sub\\../a b.vhd"), "C:/proj/a b.vhd");
    EXPECT_EQ(CleanPath("\\\\server/share//x/../a.v"), "\\\\server\\share\\a.v");
    EXPECT_EQ(CleanPath("..\\../a.v"), "..\\..\\a.v");
    EXPECT_EQ(CleanPath("C:\\..\\a.v"), "C:\\a.v"); // ".." at the root stays there
    EXPECT_EQ(CleanPath("x/../../a.v"), "../a.v");
    EXPECT_EQ(ResolveMessagePath("C:\\p", "./.\\a.v"), "C:\\p\\a.v");
    EXPECT_TRUE(SameFilePath("C:\\Proj\\A.vhd", "c:/proj/a.vhd"));
    EXPECT_FALSE(SameFilePath("C:\\a.vhd", "D:\\a.vhd"));
}

// Faulty rule lines are reported and the rest is kept.
TEST_F(MessageFormatsTest, FaultyRuleLinesAreReportedAndTheRestIsKept) {
    // Each line of the file, and whether it is reported.
    const std::pair<const char*, bool> lines[] = {
        {"error {file}:{line}: {any}", true}, // before any section
        {"[Mine]", false},
        {"severity Err = fatal", true}, // unknown severity
        {"tabs 0", true},               // out of range
        {"warning {file}:{line}:{colum}: {any}", true},
        {"error {?{file}}:{line}: {any}", true},     // the file may not be missing
        {"message {severity}: {file}:{line}", true}, // no severity words yet
        {"heading ** {any}", true},                  // a heading needs a word
        {"stop {file}:{line}", true},
        {"severity Err = error", false},
        {"message {severity}: {file}({line}) {any}", false},
        {"warning line {line} of {file}", false}, // the path may end the line
        {"error at {file} line {line}{? col 1}: {any}", false},
        {"[mine]", true}, // given twice
        {"error {file}:{line}", false},
        {"[auto]", true},
    };
    std::string text;
    std::vector<std::string> expected;
    for (const auto& [line, bad] : lines) {
        text += std::string(line) + "\n";
        if (bad)
            expected.insert(expected.end(),
                            {"Error 7: Message formats syntax error:", std::string("\t") + line});
    }
    const MessageFormats custom = ReadMessageFormats(TempFile(text).path());
    EXPECT_EQ(ReportedLines(editor), expected);
    ASSERT_EQ(custom.size(), 1u);
    // The last line: a literal after an optional part.
    EXPECT_EQ(Entries(custom, "MINE",
                      {"Err: C:/a b/c.v(3) oops", "line 4 of C:/d.v", "at e.v line 5: x"}),
              "C:/a b/c.v:3:0E C:/d.v:4:0W e.v:5:0E ");
    EXPECT_FALSE(MessageReader(custom, "other").Reads());

    (void)ReadMessageFormats(std::string("/nonexistent/messages.ini"));
    EXPECT_EQ(ReportedLines(editor).back(),
              "Error 2: Cannot open Message format file '/nonexistent/messages.ini'.");
}

} // namespace
} // namespace ruvo
