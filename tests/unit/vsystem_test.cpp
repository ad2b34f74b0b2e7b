// V-System and Leonardo: the command lines, the message parsers, the settings and the runs.
#include "tools/vsystem.h"

#include "settings/path_names.h"
#include "settings/settings_io.h"
#include "tools/error_list.h"
#include "tools/leonardo.h"
#include "tools/message_parsers.h"
#include "tools/tool_commands.h"
#include "tools_fixture.h"

namespace ruvo {
namespace {

using VsystemTest = ToolsTest;

TEST_F(VsystemTest, CommandLinesPutEveryPieceInPlace) {
    const VsystemSettings defaults;
    VsystemSettings all;
    all.library = "mylib";
    all.vcomLine = all.vlogLine = "12abc";
    all.vcomOptions = all.vlogOptions = "-q";
    all.stdLogicOpt = false;
    all.convUpCase = all.hazard = true;
    VsystemSettings none;
    none.vcomLine = none.vlogLine = "x12";
    none.vhdl93 = none.explicitFunctions = false;
    const struct {
        const VsystemSettings* settings;
        int mode;
        const char* expected;
    } cases[] = {
        {&defaults, ModeVcom, "D:\\vcom -work work -explicit -93  alu.vhd"},
        {&none, ModeVcom, "D:\\vcom -work work  alu.vhd"},
        {&all, ModeVcom, "D:\\vcom -work mylib -no1164 -explicit -93  -line 12abc  -q alu.vhd"},
        {&none, ModeVlog, "D:\\vlog  -work work  alu.vhd"},
        {&all, ModeVlog, "D:\\vlog  -work mylib -u -hazards  -line 12abc  -q alu.vhd"},
        {&all, ModeCreateLibrary, "D:\\vlib C:\\libs\\work"},
        {&all, ModeMapLibrary, "D:\\vmap mylib C:\\libs\\work"},
        {&all, ModeListMappings, "D:\\vmap"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(buildVsystemCommand(*c.settings, "C:\\libs\\work", c.mode, "D:\\", "alu.vhd"),
                  c.expected);
    EXPECT_EQ(vsystemToolDirectory("C:vcom.exe") + vsystemToolDirectory("vcom.exe"), "C:\\");
    EXPECT_EQ(compilerFileName("C:\\My Designs\\my alu.vhd"), "\"my alu.vhd\"");
}

TEST_F(VsystemTest, ParsersFindTheSourceLine) {
    const struct {
        int32_t (*parse)(std::string_view, std::string_view);
        const char* line;
        int32_t expected;
    } cases[] = {
        {parseVsystemLine, "###### alu.vhd(7): Warning: unused", 7},
        {parseVsystemLine, "ERROR: C:\\x(y)\\alu.vhd(12)", 0},
        {parseVsystemLine, "** Error: alu.vhd(12): nothing", -1},
        {parseVsystemLine, "ERROR: no parenthesis", -1},
        {parseVsystemLine, "ERROR: alu.vhd(99999999999)", INT32_MAX},
        {parseLeonardoLine, "\"alu.vhd\", line 3: Warning, x", 3},
        {parseLeonardoLine, "C:/rtl/alu.vhd\",line 42: Error", -1},
        {parseLeonardoLine, "\"alu_pkg.vhd\",line 42: Error", -1},
        {parseLeonardoLine, "\"line 9 in alu.vhd\"", -1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.parse(c.line, "alu.vhd"), c.expected) << c.line;
}

TEST_F(VsystemTest, SettingsHaveTheirDefaultsAndTheirPlaceInTheProfile) {
    host.SetProfile("Vsystem", "Timeout", "12345"); // kept to 3 characters
    host.SetProfile("Vsystem", "Hazard", "yes");
    LoadSettings();
    const VsystemSettings& v = editor.tools.vsystem;
    EXPECT_EQ(v.windowClass + v.library + v.timeout, "VsystemWClasswork123");
    EXPECT_TRUE(v.stdLogicOpt && v.vhdl93 && v.explicitFunctions && v.hazard && !v.convUpCase);
    SaveSettings();
    EXPECT_EQ(host.ProfileValue("Vsystem", "StdLogicOpt"), "yes");
}

TEST_F(VsystemTest, ACompileSavesTheSourceAndRunsInItsDirectory) {
    EXPECT_EQ(VsystemVHDL(), 1); // without a path nothing runs
    EXPECT_EQ(host.boxes.at(0).caption, "vcom.exe executable path is empty.");
    EXPECT_EQ(host.boxes.at(0).text,
              "Please set the path to the Vsystem directory\nusing the Options->Vsystem dialog "
              "window.");
    editor.tools.vsystem.executable = "C:\\vsys\\vcom.exe";
    EXPECT_EQ(VsystemVHDL(), 0); // no window

    EditBuffer& source = OpenSource("alu.vhd", "a\nb\n");
    source.lines.modified = 0;
    const std::string path = source.fileName;
    const std::string directory = DirectoryPart(path).value();
    WriteBytes(path, "changed on disk");
    Prints({"ERROR: alu.vhd(2): bad\n"});
    EXPECT_EQ(VsystemVHDL(), 1);
    EXPECT_EQ(ReadBytes(path), "a\r\nb\r\n"); // saved although not modified
    EXPECT_EQ(LastRun(), "C:\\vsys\\vcom -work work -explicit -93  alu.vhd|" + directory);
    EXPECT_EQ(Markers(source), (Marks{{2, KindError}}));

    // The result window is not a language file; the library modes run from it all the same.
    EXPECT_EQ(VsystemVerilog(), 0);
    EXPECT_EQ(host.statusPanes[4], "Active window is not a language file.");
    editor.tools.libraryDirectory = "C:\\lib";
    EXPECT_EQ(compileWithVsystem(ModeMapLibrary), 1);
    EXPECT_EQ(LastRun(), "C:\\vsys\\vmap work C:\\lib|" + directory);
    EXPECT_FALSE(hasErrorList());
}

TEST_F(VsystemTest, LeonardoWritesItsScriptAndRemovesItOnlyFromTheCurrentDirectory) {
    EditBuffer& source = OpenSource("alu.vhd", "a\nb\nc\n");
    const std::string script = folder.File("leonardo.script");
    for (const bool current : {true, false}) {
        host.currentDirectory = current ? DirectoryPart(source.fileName).value() : "C:\\elsewhere";
        editor.engine.currentBuffer = &source;
        Prints({"\"C:/rtl/alu.vhd\",line 3: Error, x\n"});
        EXPECT_EQ(LeonardoCompile(), 0);
        EXPECT_EQ(host.processRuns.back().commandLine, "elsyn -file leonardo.script");
        EXPECT_EQ(Markers(source), (Marks{{3, KindError}}));
        EXPECT_EQ(std::filesystem::exists(script), !current);
    }
    EXPECT_EQ(ReadBytes(script), "analyze -work work alu.vhd\n");
    EXPECT_EQ(LeonardoCompile(), 1); // the result window is refused
    const size_t runs = host.processRuns.size();
    EXPECT_EQ(SynplifyVhdl() + SynplifyVerilog(), 0); // Synplify does nothing
    EXPECT_EQ(host.processRuns.size(), runs);
}

} // namespace
} // namespace ruvo
