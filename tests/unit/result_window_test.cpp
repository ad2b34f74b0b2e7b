// The ToolResult window and the compiles that fill it: output joined from pieces, start failures,
// result files; V-System and Leonardo runs with their command lines, parsers and settings; the
// error list they make, stepped with NextError and PrevError, and its markers.
#include "tools/result_window.h"

#include "commands/command_table.h"
#include "engine/clipboard_commands.h"
#include "engine/edit_input.h"
#include "settings/path_names.h"
#include "tools/error_list.h"
#include "tools/leonardo.h"
#include "tools/message_parsers.h"
#include "tools/tool_commands.h"
#include "tools/vsystem.h"
#include "tools_fixture.h"

namespace ruvo {
namespace {

class ResultWindowTest : public ToolsTest {
  protected:
    // A 20-line source, changed on disk, compiled into this output (result lines counted from
    // the header's 4): entries on result lines 4 (source 5), 6 (9, warning), 9 (5), 10 (0) and
    // 12 (99).
    EditBuffer& Compile() {
        std::string text;
        for (int i = 1; i <= 20; ++i)
            text += "line " + std::to_string(i) + "\n";
        EditBuffer& source = OpenSource("alu.vhd", text);
        WriteBytes(source.fileName, "changed on disk");
        editor.tools.vsystem.executable = "C:\\vsys\\vcom.exe";
        Prints({"-- Compiling entity alu\r\n", "ERROR: alu.vhd(5): Unknown identifier\r\n",
                "ERROR: alu.vhd(5): Same line again\r\n###### alu.vhd(9): Warning: unused\r\n",
                "** Error: alu.vhd(11): not ours\r\nERROR: no parenthesis\r\n",
                "ERROR: alu.vhd(5): back again\r\nERROR: alu.vhd(): no digits\r\n",
                "error: alu.vhd(7)\r\nERROR: alu.vhd(99): beyond the end\r\n"});
        EXPECT_EQ(VsystemVHDL(), 1);
        return source;
    }
    int CaretLine() { return OpenResultBuffer()->cursor.line; }
    bool ErrorCommandsEnabled() { return host.enabledCommands[CommandIndexOfHandler(PrevError)]; }
};

TEST_F(ResultWindowTest, AResultFileAndLeonardosOutputAreReadForErrors) {
    EditBuffer& source = OpenSource("alu.vhd", "a\nb\nc\n");
    editor.tools.sourceBuffer = &source;
    const std::string report = folder.File("vcom.log");
    WriteBytes(report, "header\r\nERROR: alu.vhd(2): bad\r\n");
    // Without a result window the file opens as a read-only message window; with one, its
    // text is replaced.
    for (const char* title : {"V-System compiler", "again"}) {
        loadResultFile(report, title, ErrorMode::Vsystem);
        EditBuffer* result = OpenResultBuffer();
        EXPECT_EQ(result->windowKind + result->lines.readOnly, KindMessage + 1);
        EXPECT_EQ(LinesOf(*result), (Texts{"header", "ERROR: alu.vhd(2): bad", ""}));
        EXPECT_EQ(Markers(source), (Marks{{2, KindError}}));
        EXPECT_EQ(host.windowTitles[result], title);
    }
    EXPECT_EQ(host.createdWindows.size(), 2u); // the source and one result window
    closeBuffer(*OpenResultBuffer());

    // Leonardo writes its script and removes it only from the current directory.
    const std::string script = folder.File("leonardo.script");
    for (const bool current : {true, false}) {
        host.currentDirectory = current ? DirectoryPart(source.fileName).value() : "C:\\elsewhere";
        editor.engine.currentBuffer = &source;
        // Only lines that start with a quote and name the source before "line " are entries.
        Prints({"\"C:/rtl/alu.vhd\",line 3: Error, x\nC:/rtl/alu.vhd\",line 4: Error\n",
                "\"alu_pkg.vhd\",line 5: Error\n\"line 6 in alu.vhd\"\n"});
        EXPECT_EQ(LeonardoCompile(), 0);
        EXPECT_EQ(host.processRuns.back().commandLine, "elsyn -file leonardo.script");
        EXPECT_EQ(Markers(source), (Marks{{3, KindError}}));
        EXPECT_EQ(std::filesystem::exists(script), !current);
    }
    EXPECT_EQ(LeonardoCompile(), 1); // the result window is refused
}

TEST_F(ResultWindowTest, ACompileMakesEntriesThatSteppingAndTheCaretFollowWhileTheWindowStays) {
    EXPECT_EQ(VsystemVHDL(), 1); // without a path nothing runs
    EXPECT_EQ(host.ErrorBoxTexts(), "Please set the path to the Vsystem directory\nusing the "
                                    "Options->Vsystem dialog window.\n");
    EXPECT_EQ(host.boxes.at(0).caption, "vcom.exe executable path is empty.");
    editor.tools.vsystem.executable = "vcom.exe";
    EXPECT_EQ(VsystemVHDL() + host.processRuns.size(), 0u); // nor without a window
    EditBuffer& source = Compile();
    const std::string directory = DirectoryPart(source.fileName).value();
    EXPECT_EQ(ReadBytes(source.fileName).substr(0, 16), "line 1\r\nline 2\r\n"); // saved
    EditBuffer* result = OpenResultBuffer();
    EXPECT_EQ(Markers(source),
              (Marks{{5, KindError}, {9, KindWarning}, {5, KindError}, {99, KindError}}));
    EXPECT_EQ(std::tuple(CaretLine(), ErrorCommandsEnabled()), std::tuple(0, true));
    // Each step: the command, the caret line in the result window before it (-1: where the last
    // step left it) and after it, the selected source line (empty: the source was not touched).
    // Below the last message PrevError takes the last one.
    const std::tuple<int (*)(), int, int, const char*> steps[] = {
        {NextError, -1, 4, "line 5"}, {NextError, -1, 6, "line 9"}, {NextError, -1, 9, "line 5"},
        {NextError, -1, 10, ""},      {NextError, -1, 12, ""},      {NextError, -1, 12, ""},
        {PrevError, -1, 10, ""},      {PrevError, -1, 9, "line 5"}, {PrevError, -1, 6, "line 9"},
        {PrevError, -1, 4, "line 5"}, {PrevError, -1, 4, ""},       {PrevError, 14, 12, ""},
    };
    for (const auto& [command, before, caretLine, sourceLine] : steps) {
        if (before >= 0) result->cursor = MakePos(before, 0);
        source.lines.hasSelection = 0;
        host.clipboard = host.statusPanes[3] = "";
        command();
        if (source.lines.hasSelection != 0) (void)EditCopy();
        const std::string shown = *sourceLine == '\0' ? "" : result->lines.lineText[caretLine];
        EXPECT_EQ(std::tuple(CaretLine(), host.clipboard, host.statusPanes[3]),
                  std::tuple(caretLine, sourceLine, shown));
    }
    result->cursor = MakePos(5, 0);
    HandleKey(*result, KeyDown, false, false); // onto the warning: shown, not activated
    EXPECT_EQ(std::tuple(source.cursor.line, editor.engine.currentBuffer), std::tuple(8, result));
    HandleKey(*result, KeyDown, false, false); // onto a line that is no entry: the source stays
    EXPECT_EQ(source.cursor.line, 8);
    result->cursor = MakePos(9, 3);
    CharacterEntered(*result, '\r'); // Return goes to the source
    EXPECT_EQ(std::tuple(source.cursor.line, editor.engine.currentBuffer), std::tuple(4, &source));
    // Another message window has no markers and its caret leads nowhere.
    WriteBytes(folder.File("notes.log"), "a\nb\n");
    EXPECT_EQ(openFile(folder.File("notes.log"), 0, 1, KindMessage), 0);
    HandleKey(*editor.engine.currentBuffer, KeyDown, false, false);
    EXPECT_EQ(std::tuple(Markers(*editor.engine.currentBuffer).size(), source.cursor.line),
              std::tuple(0u, 4));

    // A tool run forgets the errors of the compile before it, even one that does not start.
    host.processScripts.push_back({false, {}});
    EXPECT_EQ(runWithResultWindow("Result of tool 't'.", "t", ".", ErrorMode::None), 1);
    EXPECT_EQ(host.boxes.back().text, "Can not create process 't'");
    EXPECT_TRUE(Markers(source).empty());

    // The result window is not a language file; the library modes run from it all the same.
    editor.engine.currentBuffer = result;
    EXPECT_EQ(VsystemVerilog(), 0);
    EXPECT_EQ(host.statusPanes[4], "Active window is not a language file.");
    editor.tools.libraryDirectory = "C:\\lib";
    EXPECT_EQ(compileWithVsystem(ModeMapLibrary), 1);
    EXPECT_EQ(LastRun(), "C:\\vsys\\vmap work C:\\lib|" + directory);
    Compile();
    clearErrors();
    EXPECT_TRUE(Markers(source).empty() && !ErrorCommandsEnabled() && !hasErrorList());
    EXPECT_EQ(LinesOf(*OpenResultBuffer()), (Texts{""}));

    closeBuffer(Compile());
    NextError();
    EXPECT_EQ(std::tuple(host.statusPanes[3], host.statusTexts.back().beep),
              std::tuple("Source window has been removed.", true));
    closeBuffer(*OpenResultBuffer());
    UpdateCommandStates();
    EXPECT_FALSE(hasErrorList() || ErrorCommandsEnabled());
}

// V-System command lines put every piece in place.
TEST_F(ResultWindowTest, VsystemCommandLinesPutEveryPieceInPlace) {
    VsystemSettings all;
    all.library = "mylib";
    all.vcomLine = all.vlogLine = "12abc";
    all.vcomOptions = all.vlogOptions = "-q";
    all.stdLogicOpt = false;
    all.convUpCase = all.hazard = true;
    VsystemSettings none;
    none.vcomLine = none.vlogLine = "x12";
    none.vhdl93 = none.explicitFunctions = false;
    const std::tuple<const VsystemSettings*, int, const char*> cases[] = {
        {&none, ModeVcom, "D:\\vcom -work work  alu.vhd"},
        {&all, ModeVcom, "D:\\vcom -work mylib -no1164 -explicit -93  -line 12abc  -q alu.vhd"},
        {&none, ModeVlog, "D:\\vlog  -work work  alu.vhd"},
        {&all, ModeVlog, "D:\\vlog  -work mylib -u -hazards  -line 12abc  -q alu.vhd"},
    };
    for (const auto& [settings, mode, expected] : cases)
        EXPECT_EQ(buildVsystemCommand(*settings, "C:\\libs\\work", mode, "D:\\", "alu.vhd"),
                  expected);
    EXPECT_EQ(compilerFileName("C:\\My Designs\\my alu.vhd"), "\"my alu.vhd\"");
    EXPECT_EQ(parseVsystemLine("ERROR: C:\\x(y)\\alu.vhd(12)", ""), 0); // the first parenthesis
    EXPECT_EQ(parseVsystemLine("ERROR: alu.vhd(99999999999)", ""), INT32_MAX);
}

} // namespace
} // namespace ruvo
