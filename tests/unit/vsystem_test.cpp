// V-System and Leonardo: the command lines, the message parsers, the settings and the runs.
#include "tools/vsystem.h"

#include "settings/path_names.h"
#include "settings/settings_io.h"
#include "tools/error_list.h"
#include "tools/leonardo.h"
#include "tools/tool_commands.h"
#include "tools_fixture.h"

namespace ruvo {
namespace {

using VsystemTest = ToolsTest;

TEST_F(VsystemTest, CommandLinesPutEveryPieceInPlace) {
    const VsystemSettings defaults;
    VsystemSettings all;
    all.library = "mylib";
    all.vcomLine = "12abc";
    all.vlogLine = "7";
    all.vcomOptions = "-quiet";
    all.vlogOptions = "+define+X";
    all.stdLogicOpt = false;
    all.convUpCase = all.hazard = true;
    VsystemSettings noLine;
    noLine.vcomLine = "x12";
    noLine.vhdl93 = noLine.explicitFunctions = false;
    const struct {
        const VsystemSettings* settings;
        int mode;
        const char* directory;
        const char* expected;
    } cases[] = {
        {&defaults, ModeVcom, "C:\\vsys\\", "C:\\vsys\\vcom -work work -explicit -93  alu.vhd"},
        {&noLine, ModeVcom, "", "vcom -work work  alu.vhd"},
        {&all, ModeVcom, "C:\\",
         "C:\\vcom -work mylib -no1164 -explicit -93  -line 12abc  -quiet alu.vhd"},
        {&defaults, ModeVlog, "C:\\vsys\\", "C:\\vsys\\vlog  -work work  alu.vhd"},
        {&all, ModeVlog, "", "vlog  -work mylib -u -hazards  -line 7  +define+X alu.vhd"},
        {&defaults, ModeCreateLibrary, "D:\\", "D:\\vlib C:\\libs\\work"},
        {&all, ModeMapLibrary, "", "vmap mylib C:\\libs\\work"},
        {&all, ModeListMappings, "D:\\", "D:\\vmap"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(
            buildVsystemCommand(*c.settings, "C:\\libs\\work", c.mode, c.directory, "alu.vhd"),
            c.expected);

    EXPECT_EQ(vsystemToolDirectory("C:\\vsys\\vcom.exe"), "C:\\vsys\\");
    EXPECT_EQ(vsystemToolDirectory("C:vcom.exe"), "C:\\");
    EXPECT_EQ(vsystemToolDirectory("vcom.exe"), "");
    EXPECT_EQ(vsystemToolDirectory("/opt/v/vcom"), "/opt/v\\");
    EXPECT_EQ(compilerFileName("C:\\My Designs\\my alu.vhd"), "\"my alu.vhd\"");
    EXPECT_EQ(compilerFileName("rtl/alu.vhd"), "alu.vhd");
    EXPECT_EQ(leonardoScript("C:\\rtl\\alu.vhd"), "analyze -work work alu.vhd\n");
}

TEST_F(VsystemTest, ParsersFindTheSourceLine) {
    const struct {
        int32_t (*parse)(std::string_view, std::string_view);
        const char* line;
        int32_t expected;
    } cases[] = {
        {parseVsystemLine, "ERROR: alu.vhd(12): Unknown identifier", 12},
        {parseVsystemLine, "###### alu.vhd(7): Warning: unused", 7},
        {parseVsystemLine, "ERROR: C:\\x(y)\\alu.vhd(12)", 0},
        {parseVsystemLine, "ERROR: alu.vhd(): no digits", 0},
        {parseVsystemLine, "** Error: alu.vhd(12): nothing", -1},
        {parseVsystemLine, "ERROR: no parenthesis", -1},
        {parseVsystemLine, "Error: alu.vhd(12)", -1},
        {parseVsystemLine, "#####  alu.vhd(12)", -1},
        {parseVsystemLine, " ERROR: alu.vhd(12)", -1},
        {parseVsystemLine, "ERROR: alu.vhd(99999999999)", INT32_MAX},
        {parseLeonardoLine, "\"C:/rtl/alu.vhd\",line 42: Error, bad", 42},
        {parseLeonardoLine, "\"alu.vhd\", line 3: Warning, x", 3},
        {parseLeonardoLine, "C:/rtl/alu.vhd\",line 42: Error", -1},
        {parseLeonardoLine, "\"alu_pkg.vhd\",line 42: Error", -1},
        {parseLeonardoLine, "\"alu.vhd\" has no line", -1},
        {parseLeonardoLine, "\"line 9 in alu.vhd\"", -1},
        {parseLeonardoLine, "\"alu.vhd\",line x", 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.parse(c.line, "alu.vhd"), c.expected) << c.line;
}

TEST_F(VsystemTest, SettingsHaveTheirDefaultsAndTheirPlaceInTheProfile) {
    host.SetProfile("Vsystem", "Timeout", "12345"); // kept to 3 characters
    host.SetProfile("Vsystem", "Hazard", "yes");
    LoadSettings();
    const VsystemSettings& v = editor.tools.vsystem;
    EXPECT_EQ(v.executable, "");
    EXPECT_EQ(v.windowClass, "VsystemWClass");
    EXPECT_EQ(v.library, "work");
    EXPECT_EQ(v.timeout, "123");
    EXPECT_TRUE(v.stdLogicOpt && v.vhdl93 && v.explicitFunctions && v.hazard);
    EXPECT_FALSE(v.convUpCase);

    SaveSettings();
    EXPECT_EQ(host.ProfileValue("Vsystem", "Hazard"), "yes");
    EXPECT_EQ(host.ProfileValue("Vsystem", "StdLogicOpt"), "yes");
}

TEST_F(VsystemTest, ACompileSavesTheSourceAndRunsInItsDirectory) {
    // Without a path nothing runs.
    EXPECT_EQ(VsystemVHDL(), 1);
    EXPECT_EQ(host.boxes.at(0).caption, "vcom.exe executable path is empty.");
    EXPECT_EQ(host.boxes.at(0).text,
              "Please set the path to the Vsystem directory\nusing the Options->Vsystem dialog "
              "window.");
    editor.tools.vsystem.executable = "C:\\vsys\\vcom.exe";
    EXPECT_EQ(VsystemVHDL(), 0); // no window

    EditBuffer& source = OpenSource("alu.vhd", "a\nb\n");
    source.lines.modified = 0;
    const std::string path = source.fileName;
    WriteBytes(path, "changed on disk");
    Prints({"ERROR: alu.vhd(2): bad\n"});
    EXPECT_EQ(VsystemVHDL(), 1);
    EXPECT_EQ(ReadBytes(path), "a\r\nb\r\n"); // saved although not modified
    ASSERT_EQ(host.processRuns.size(), 1u);
    EXPECT_EQ(host.processRuns[0].commandLine, "C:\\vsys\\vcom -work work -explicit -93  alu.vhd");
    EXPECT_EQ(host.processRuns[0].directory, DirectoryPart(path).value());
    EXPECT_EQ(editor.tools.sourceBuffer, &source);
    EXPECT_EQ(editor.tools.errorList.size(), 1u);

    // The result window is not a language file; the library modes run from it all the same.
    EXPECT_EQ(VsystemVerilog(), 0);
    EXPECT_EQ(StatusPane(4), "Active window is not a language file.");
    EXPECT_EQ(host.beeps, 1);
    editor.tools.libraryDirectory = "C:\\lib";
    EXPECT_EQ(compileWithVsystem(ModeMapLibrary), 1);
    EXPECT_EQ(host.processRuns.back().commandLine, "C:\\vsys\\vmap work C:\\lib");
    EXPECT_EQ(host.processRuns.back().directory, DirectoryPart(path).value());
    EXPECT_EQ(editor.tools.sourceBuffer, nullptr);
    EXPECT_FALSE(hasErrorList());
}

TEST_F(VsystemTest, LeonardoWritesItsScriptAndRemovesItOnlyFromTheCurrentDirectory) {
    EditBuffer& source = OpenSource("alu.vhd", "a\nb\nc\n");
    const std::string script = folder.File("leonardo.script");
    for (const bool current : {true, false}) {
        host.currentDirectory = current ? DirectoryPart(source.fileName).value() : "C:\\elsewhere";
        editor.engine.currentBuffer = &source;
        host.processScripts.push_back({true, {"\"C:/rtl/alu.vhd\",line 3: Error, x\n"}});
        EXPECT_EQ(LeonardoCompile(), 0);
        EXPECT_EQ(host.processRuns.back().commandLine, "elsyn -file leonardo.script");
        ASSERT_EQ(editor.tools.errorList.size(), 1u);
        EXPECT_EQ(editor.tools.errorList[0].sourceLine, 3);
        EXPECT_EQ(std::filesystem::exists(script), !current);
    }
    EXPECT_EQ(ReadBytes(script), "analyze -work work alu.vhd\n");
    // The result window is refused.
    EXPECT_EQ(LeonardoCompile(), 1);
    EXPECT_EQ(StatusPane(4), "Active window is not a language file.");
    // Synplify does nothing.
    const size_t runs = host.processRuns.size();
    EXPECT_EQ(SynplifyVhdl(), 0);
    EXPECT_EQ(SynplifyVerilog(), 0);
    EXPECT_EQ(host.processRuns.size(), runs);
}

} // namespace
} // namespace ruvo
