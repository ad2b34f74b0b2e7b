// The shipped message formats over real compiler output and written lines of other tools, and
// the reading of the rule file.
#include "tools/message_formats.h"

#include <fstream>
#include <string>
#include <vector>

#include "customisation_files.h"
#include "editor_fixture.h"

namespace ruvo {
namespace {

using MessageFormatsTest = EditorTest;

std::string Describe(const MessageLocation& at) {
    const char* severities[] = {"error", "warning", "note"};
    return at.file + ":" + std::to_string(at.line) + ":" + std::to_string(at.column) + " " +
           severities[static_cast<int>(at.severity)];
}

// "index file:line:column severity" for every line that is an entry.
std::vector<std::string> Entries(const MessageFormats& formats, std::string_view name,
                                 const std::vector<std::string>& lines) {
    MessageReader reader(formats, name);
    std::vector<std::string> entries;
    for (size_t i = 0; i < lines.size(); ++i)
        if (std::optional<MessageLocation> at = reader.Read(lines[i]))
            entries.push_back(std::to_string(i) + " " + Describe(*at));
    return entries;
}

// The output as a pipe sees it (stdout and stderr merged) from a captured run.
std::vector<std::string> MergedOutput(const std::string& name) {
    std::ifstream in(SourcePath("tests/fixtures/compiler-output/outputs/" + name));
    std::vector<std::string> lines;
    bool inside = false;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("### ----- merged"))
            inside = true;
        else if (line.starts_with("### ----- end"))
            inside = false;
        else if (inside)
            lines.push_back(line);
    }
    EXPECT_FALSE(lines.empty()) << name;
    return lines;
}

MessageFormats ShippedFormats() {
    return ReadMessageFormats(SourcePath("config/messages.ini"));
}

TEST_F(MessageFormatsTest, EveryLocationOfCapturedOutputIsFoundAndNoContinuationLine) {
    const MessageFormats formats = ShippedFormats();
    EXPECT_TRUE(ReportedLines(editor).empty());
    struct Case {
        const char* output;
        const char* format;
        std::vector<std::string> entries;
    };
    const Case cases[] = {
        {"ghdl_a__many_errors.txt",
         "GHDL",
         {"0 many_errors.vhd:4:25 error", "3 many_errors.vhd:5:21 error",
          "6 many_errors.vhd:7:8 error", "9 many_errors.vhd:8:8 error",
          "12 many_errors.vhd:9:3 error", "15 many_errors.vhd:9:8 error"}},
        {"ghdl_a__syntax_err.txt",
         "ghdl",
         {"0 syntax_err.vhd:10:9 error", "3 syntax_err.vhd:10:9 error"}},
        {"ghdl_a__warnings_default.txt", "GHDL", {"0 warnings.vhd:25:5 warning"}},
        {"iverilog__many_errors.txt",
         "Icarus",
         {"0 many_errors.v:3:0 error", "1 many_errors.v:4:0 error", "2 many_errors.v:4:0 error",
          "3 many_errors.v:5:0 error", "4 many_errors.v:5:0 error", "5 many_errors.v:6:0 error"}},
        {"iverilog__warnings.txt", "Icarus", {"0 warnings.v:9:0 warning"}},
        {"verilator__many_errors.txt",
         "Verilator",
         {"0 many_errors.v:4:14 error", "3 many_errors.v:5:14 error"}},
        {"verilator__warnings_default.txt",
         "Verilator",
         {"0 warnings.v:5:15 warning", "6 warnings.v:6:12 warning", "10 warnings.v:8:7 warning",
          "14 warnings.v:9:12 warning"}},
        {"yosys_q__many_errors.txt",
         "Yosys",
         {"0 many_errors.v:3:10 warning", "1 many_errors.v:6:13 warning",
          "2 many_errors.v:4:0 warning", "3 many_errors.v:5:0 warning"}},
        {"yosys_q__warnings_check.txt", "Yosys", {}},
    };
    for (const Case& c : cases) {
        const std::vector<std::string> lines = MergedOutput(c.output);
        EXPECT_EQ(Entries(formats, c.format, lines), c.entries) << c.output;
        EXPECT_EQ(Entries(formats, AllFormatsName, lines), c.entries) << c.output << " (auto)";
    }
}

TEST_F(MessageFormatsTest, WrittenLinesOfOtherToolsAndOtherPaths) {
    const MessageFormats formats = ShippedFormats();
    struct Case {
        const char* format;
        const char* line;
        const char* entry; // empty: not an entry
    };
    const Case cases[] = {
        {"Questa", "** Error: C:/proj/tb.vhd(41): (vcom-1272) Length of expected is 0; ...",
         "C:/proj/tb.vhd:41:0 error"},
        {"Questa", "** Error (suppressible): C:\\My Designs\\alu.vhd(7): (vcom-1246) Range",
         "C:\\My Designs\\alu.vhd:7:0 error"},
        {"Questa", "# ** Error: (vlog-13069) C:/proj/a.v(12): near \"endmodule\": syntax error",
         "C:/proj/a.v:12:0 error"},
        {"Questa", "# ** Warning: [3] C:/proj/top.v(5): (vlog-2182) Unused port",
         "C:/proj/top.v:5:0 warning"},
        {"Questa", "# ** Note: $finish    : C:/Program Files (x86)/tb.v(35)",
         "C:/Program Files (x86)/tb.v:35:0 note"},
        {"Questa", "# ** Error: (vcom-11) Could not find work.alu.", ""},
        {"Questa", "# Errors: 2, Warnings: 1", ""},
        {"Vivado", "ERROR: [VRFC 10-4982] syntax error near 'line' [C:/Users/x/proj/tb.v:204]",
         "C:/Users/x/proj/tb.v:204:0 error"},
        {"Vivado", "ERROR: [VRFC 10-91] 'q' is not declared [\"C:/my proj/top.vhd\":12]",
         "C:/my proj/top.vhd:12:0 error"},
        {"Vivado", "CRITICAL WARNING: [VRFC 10-3] bus x[7:0] is wider [C:\\p\\a.v:9]",
         "C:\\p\\a.v:9:0 warning"},
        {"Vivado", "WARNING: [VRFC 10-5021] port 'x' is not connected [tb.v:30]",
         "tb.v:30:0 warning"},
        {"Vivado", "INFO: [VRFC 10-311] analyzing module top", ""},
        {"Vivado", "ERROR: [XSIM 43-3225] Cannot find design unit xil_defaultlib.tb", ""},
        {"Quartus",
         "Error (10161): Verilog HDL error at top.v(7): object \"pcmux\" is not declared File: "
         "/proj/top.v Line: 7",
         "/proj/top.v:7:0 error"},
        {"Quartus",
         "    Critical Warning (10230): truncated value File: C:/My Work/top.vhd Line: 12",
         "C:/My Work/top.vhd:12:0 warning"},
        {"Quartus", "Info (12023): Found entity 1: top File: C:/proj/top.v Line: 1", ""},
        {"Quartus", "Error: Quartus Prime Analysis & Synthesis was unsuccessful. 2 errors", ""},
        {"GHDL", "C:/proj/a.vhd:10:14: no declaration for \"r\"", "C:/proj/a.vhd:10:14 error"},
        {"GHDL", "C:\\my proj\\tb.vhd:20:5:@10ns:(assertion failure): done",
         "C:\\my proj\\tb.vhd:20:5 error"},
        {"GHDL", "tb.vhd:12:3:@0ms:(report note): hello", "tb.vhd:12:3 note"},
        {"GHDL", "./tb:error: bound check failure at tb.vhd:15", "tb.vhd:15:0 error"},
        {"GHDL", "  from: process work.tb(behav).p at tb.vhd:15", ""},
        {"GHDL", "ghdl:error: compilation error", ""},
        {"Icarus", "C:\\proj\\a.v:2: error: Unknown module type: sub", "C:\\proj\\a.v:2:0 error"},
        {"Icarus", "ERROR: tb.v:8: check failed", "tb.v:8:0 error"},
        {"Icarus", "       Time: 0 Scope: tb", ""},
        {"Icarus", "tb.v:15: $finish called at 100 (1s)", "tb.v:15:0 note"},
        {"Verilator", "%Error-PINNOTFOUND: C:/proj/top.v:12:5: Pin not found: 'x'",
         "C:/proj/top.v:12:5 error"},
        {"Verilator", "                      a.v:7:5: ... Location of first driving block", ""},
        {"Yosys", "top.v:4: ERROR: syntax error, unexpected TOK_ID", "top.v:4:0 error"},
    };
    for (const Case& c : cases) {
        for (std::string_view name : {std::string_view(c.format), AllFormatsName}) {
            MessageReader reader(formats, name);
            const std::optional<MessageLocation> at = reader.Read(c.line);
            EXPECT_EQ(at ? Describe(*at) : "", c.entry) << name << ": " << c.line;
        }
    }
}

TEST_F(MessageFormatsTest, RunTimeMessagesTakeTheSeverityOfTheirHeading) {
    const std::vector<std::string> transcript = {
        "# ** Warning: NUMERIC_STD.TO_INTEGER: metavalue detected, returning 0",
        "#    Time: 0 ps  Iteration: 0  Instance: /tb/dut",
        "# ** Note: start",
        "#    Time: 5 ns  Iteration: 0  Process: /tb/p File: C:/proj/tb.vhd Line: 20",
        "# ** Failure: Simulation finished",
        "#    Time: 1 us  Iteration: 0  Process: /tb/stim File: C:/proj/tb.vhd",
        "# Break in Process stim at C:/proj/tb.vhd line 43",
    };
    EXPECT_EQ(
        Entries(ShippedFormats(), "Questa", transcript),
        (std::vector<std::string>{"3 C:/proj/tb.vhd:20:0 note", "6 C:/proj/tb.vhd:43:0 error"}));
}

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
        {"[mine]", true},                         // given twice
        {"error {file}:{line}", false},
        {"[auto]", true},
    };
    std::FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    std::vector<std::string> expected;
    for (const auto& [line, bad] : lines) {
        std::fprintf(file, "%s\n", line);
        if (bad)
            expected.insert(expected.end(),
                            {"Error 7: Message formats syntax error:", std::string("\t") + line});
    }
    std::rewind(file);
    const MessageFormats formats = ReadMessageFormats(file);
    std::fclose(file);
    EXPECT_EQ(ReportedLines(editor), expected);
    ASSERT_EQ(formats.size(), 1u);
    MessageReader reader(formats, "MINE");
    const std::optional<MessageLocation> at = reader.Read("Err: C:/a b/c.v(3) oops");
    EXPECT_EQ(at ? Describe(*at) : "", "C:/a b/c.v:3:0 error");
    const std::optional<MessageLocation> last = reader.Read("line 4 of C:/d.v");
    EXPECT_EQ(last ? Describe(*last) : "", "C:/d.v:4:0 warning");
    EXPECT_FALSE(MessageReader(formats, "other").Reads());

    (void)ReadMessageFormats(std::string("/nonexistent/messages.ini"));
    EXPECT_EQ(ReportedLines(editor).back(),
              "Error 2: Cannot open Message format file '/nonexistent/messages.ini'.");
}

TEST(MessageLocationTest, PathsAndColumns) {
    EXPECT_EQ(ResolveMessagePath("C:\\proj", "a.vhd"), "C:\\proj\\a.vhd");
    EXPECT_EQ(ResolveMessagePath("C:\\proj\\", "./sub/a.v"), "C:\\proj\\sub/a.v");
    EXPECT_EQ(ResolveMessagePath("C:\\proj", "D:/other/a.v"), "D:/other/a.v");
    EXPECT_EQ(ResolveMessagePath("/home/me/proj", "a.v"), "/home/me/proj/a.v");
    EXPECT_EQ(ResolveMessagePath("C:\\proj", "\\\\server\\share\\a.v"), "\\\\server\\share\\a.v");
    EXPECT_EQ(ResolveMessagePath(".", "a.v"), "a.v");
    EXPECT_EQ(ResolveMessagePath("", "a b.v"), "a b.v");

    EXPECT_EQ(CleanPath("C:/proj/./sub\\../a b.vhd"), "C:/proj/a b.vhd");
    EXPECT_EQ(CleanPath("\\\\server/share//x/../a.v"), "\\\\server\\share\\a.v");
    EXPECT_EQ(CleanPath("C:\\..\\a.v"), "C:\\a.v");
    EXPECT_EQ(CleanPath("..\\../a.v"), "..\\..\\a.v");
    EXPECT_TRUE(SameFilePath("C:\\Proj\\A.vhd", "c:/proj/a.vhd"));
    EXPECT_FALSE(SameFilePath("C:\\proj\\a.vhd", "C:\\proj\\a_pkg.vhd"));
    EXPECT_FALSE(SameFilePath("C:\\a.vhd", "D:\\a.vhd"));

    // GHDL counts a tab to the next multiple of 8, others count it as one column.
    EXPECT_EQ(ColumnToByte("\tq <= r;", 9, 8), 1);
    EXPECT_EQ(ColumnToByte("\tq <= r;", 14, 8), 6);
    EXPECT_EQ(ColumnToByte("  \tx", 5, 8), 2);
    EXPECT_EQ(ColumnToByte("\tq <= r;", 2, 1), 1);
    EXPECT_EQ(ColumnToByte("abc", 40, 1), 3);
    EXPECT_EQ(ColumnToByte("abc", 0, 1), 0);
}

} // namespace
} // namespace ruvo
