// Opening, creating and closing buffers, the recent-files list, the start-up error window,
// inserting a file, and the about box and Window menu commands.
#include "commands/command_table.h"
#include "docs/documents.h"
#include "docs/file_commands.h"
#include "docs/file_saving.h"
#include "docs/recent_files.h"
#include "docs/startup_error_window.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/transaction_log.h"
#include "lang/language_table.h"
#include "settings/error_report.h"
#include "settings/profile.h"
#include "settings/program_version.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;

class DocsOpenTest : public EditorTest {
  protected:
    Lines OpenNames() {
        Lines names;
        (void)forEachBuffer([&](EditBuffer& buffer) {
            names.emplace_back(buffer.fileName);
            return 1;
        });
        return names;
    }
    Lines Slots() const {
        return Lines(editor.documents.recentFiles.begin(), editor.documents.recentFiles.end());
    }
    std::string Make(const std::string& name) {
        WriteBytes(folder.File(name), name);
        return folder.File(name);
    }
    std::string Box(size_t i) const { return host.boxes.at(i).caption + "|" + host.boxes[i].text; }
    void Run(const char* name) {
        int row = -1;
        ASSERT_NE(CommandByName(name, nullptr, false, &row), nullptr) << name;
        InvokeCommand(row);
    }
    TempFolder folder;
};

TEST_F(DocsOpenTest, NamesAndFullPaths) {
    for (const char* name : {"Untitled12", "Untitled"})
        EXPECT_TRUE(isUnnamed(name)) << name;
    for (const char* name : {"untitled1", "Untitle", "C:\\Untitled1"})
        EXPECT_FALSE(isUnnamed(name)) << name;
    for (const char* absolute : {"\\src\\a.vhd", "/src/a.vhd", "D:/a.vhd", "d:\\a.vhd", ""})
        EXPECT_EQ(fullPathOf(absolute), absolute);
    EXPECT_EQ(fullPathOf("d:a.vhd"), "C:\\work\\d:a.vhd");
    EXPECT_EQ(fullPathOf("rtl\\a.vhd"), "C:\\work\\rtl\\a.vhd");
}

TEST_F(DocsOpenTest, OpeningMakesTheCurrentBufferAndTheSameFileTwiceIsReadOnly) {
    LanguageEntry(1).name = "VHDL";
    LanguageEntry(1).extensions = "vhd";
    const std::string path = folder.File("alu.vhd");
    WriteBytes(path, "entity alu is\r\nend;\r\n");
    ASSERT_EQ(openFile(path, 0, 0, KindDocument), 0);
    EditBuffer* first = Current();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(LinesOf(*first), (Lines{"entity alu is", "end;", ""}));
    EXPECT_EQ(std::tuple(first->lines.readOnly, first->language, host.windowTitles[first]),
              std::tuple(0, &LanguageEntry(1), path));
    EXPECT_EQ(host.createdWindows, (std::vector<EditBuffer*>{first}));
    EXPECT_TRUE(first->undoHead != nullptr &&
                host.enabledCommands[CommandIndexOfHandler(SaveFile)]);

    host.answers = {AnswerNo, AnswerYes};
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
    EXPECT_EQ(Box(0),
              "Warning|File '" + path + "' is already\nin an edit buffer, open a readonly copy ?");
    EXPECT_EQ(host.boxes[0].kind, static_cast<int>(QuestionKind::YesNo));
    EXPECT_EQ(Current(), first);
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
    ASSERT_NE(Current(), first);
    EXPECT_EQ(std::tuple(Current()->lines.readOnly, LinesOf(*Current())),
              std::tuple(1, LinesOf(*first)));
    EXPECT_EQ(SaveFile(), 0); // refused with a beep
    EXPECT_EQ(host.statusPanes[4], "Window is opened readonly.");
    EXPECT_TRUE(host.statusTexts.back().beep);

    // New files are numbered; two unnamed buffers are never taken for the same file.
    ASSERT_EQ(NewFile(), 0);
    ASSERT_EQ(NewFile(), 0);
    closeBuffer(*Current());
    ASSERT_EQ(NewFile(), 0);
    EXPECT_EQ(OpenNames(), (Lines{path, path, "Untitled1", "Untitled3"}));
    EXPECT_EQ(host.boxes.size(), 2u);
}

TEST_F(DocsOpenTest, MissingFilesFailuresAndTheOpenDialog) {
    const std::string path = folder.File("missing.vhd");
    host.answers = {AnswerNo, AnswerYes};
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 1);
    EXPECT_EQ(Box(0), "No such file|File '" + path +
                          "' does not exists.\nDo you want to create an empty file ?");
    EXPECT_EQ(Current(), nullptr);
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
    EXPECT_EQ(LinesOf(*Current()), (Lines{""}));
    EXPECT_EQ(host.boxes.size(), 2u); // no open error for the file that is not there
    closeBuffer(*Current());

    const std::string made = Make("f.vhd");
    host.createWindowFails = true;
    EXPECT_EQ(openFile(made, 0, 0, KindDocument), 1);
    host.createWindowFails = false;
    editor.settings.allocator.limitBytes = editor.settings.allocator.totalBytes + 16;
    EXPECT_EQ(openFile(made, 0, 0, KindDocument), 1);
    EXPECT_EQ(OpenNames(), Lines{});
    EXPECT_NE(host.ErrorBoxTexts().find("Alloc failed for"), std::string::npos);
    editor.settings.allocator.limitBytes = -1;

    // Named languages with a filter follow in table order; one without a name is left out.
    LanguageEntry(1).name = "VHDL";
    LanguageEntry(1).filter = "VHDL(*.vhd)|*.vhd|";
    LanguageEntry(2).name = "Perl";
    LanguageEntry(3).filter = "Orphan(*.o)|*.o|";
    LanguageEntry(4).name = "Verilog";
    LanguageEntry(4).filter = "Verilog(*.v)|*.v|";
    host.fileDialogAnswers.push_back(FileDialogResult{made, "", true});
    EXPECT_EQ(LoadFile(), 0);
    EXPECT_FALSE(host.fileDialogs.back().save);
    EXPECT_EQ(host.fileDialogs.back().filter,
              "All files(*.*)|*.*|VHDL(*.vhd)|*.vhd|Verilog(*.v)|*.v|");
    EXPECT_EQ(Current()->lines.readOnly, 1);
    EXPECT_EQ(editor.documents.lastDialogDirectory, made.substr(0, made.rfind('/') + 1));
    // A file in the root of a drive leaves the next dialog in that root, not in "C:".
    const std::pair<const char*, const char*> roots[] = {{"C:\\top.vhd", "C:\\"}, {"top.vhd", ""}};
    for (const auto& [chosen, directory] : roots) {
        host.fileDialogAnswers.push_back(FileDialogResult{chosen, "", false});
        host.answers.push_back(AnswerNo); // no such file here: nothing is created
        EXPECT_EQ(LoadFile(), 0);
        EXPECT_EQ(editor.documents.lastDialogDirectory, directory);
    }
}

TEST_F(DocsOpenTest, ClosingMovesOnAndFillsTheRecentFiles) {
    const std::string a = Make("a.vhd"), b = Make("b.vhd");
    ASSERT_EQ(openFile(a, 0, 0, KindDocument), 0);
    EditBuffer* first = Current();
    ASSERT_EQ(openFile(b, 0, 0, KindDocument), 0);
    EditBuffer* second = Current();
    ASSERT_EQ(openFile("ToolResult", 1, 1, KindMessage), 0);
    EditBuffer* report = Current();
    ASSERT_EQ(NewFile(), 0);
    closeBuffer(*Current()); // neither unnamed nor message buffers are listed
    closeBuffer(*second);
    EXPECT_EQ(std::tuple(second->IsClosed(), second->undoHead), std::tuple(true, nullptr));
    EXPECT_EQ(std::tuple(OpenNames(), Current()), std::tuple(Lines{a, "ToolResult"}, report));
    closeBuffer(*report);
    EXPECT_EQ(Current(), first);
    closeBuffer(*first);
    EXPECT_EQ(std::tuple(Current(), Slots()), std::tuple(nullptr, Lines{a, b, "", "", ""}));
    EXPECT_FALSE(host.enabledCommands[CommandIndexOfHandler(SaveFile)]);
    EXPECT_EQ(SaveFile(), 0); // no active window: nothing, no dialog
    EXPECT_TRUE(host.fileDialogs.empty());

    // Six closed files keep the last five; a listed one moves to the top without a duplicate.
    Lines paths;
    for (int i = 1; i <= 6; ++i)
        paths.push_back(Make("f" + std::to_string(i) + ".vhd"));
    for (int i : {0, 1, 2, 3, 4, 5, 2, 2}) {
        ASSERT_EQ(openFile(paths[i], 0, 0, KindDocument), 0);
        closeBuffer(*Current());
    }
    EXPECT_EQ(Slots(), (Lines{paths[2], paths[5], paths[4], paths[3], paths[1]}));
    addRecentFile("");
    addRecentFile("A.vhd");
    addRecentFile("a.vhd"); // names differing in case are different entries
    EXPECT_EQ(Slots(), (Lines{"a.vhd", "A.vhd", paths[2], paths[5], paths[4]}));
    addRecentFile(std::string(300, 'r')); // cut to the longest file name
    EXPECT_EQ(Slots()[0], std::string(255, 'r'));

    int visits = 0;
    EXPECT_EQ(forEachBuffer([&](EditBuffer&) { return 1; }), 1);
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(NewFile(), 0);
    EXPECT_EQ(forEachBuffer([&](EditBuffer&) { return ++visits < 2 ? 1 : 0; }), 0);
    EXPECT_EQ(visits, 2);
}

TEST_F(DocsOpenTest, RecentFilesMenuLabelsAndProfile) {
    const std::pair<const char*, const char*> labels[] = {
        {"C:\\work\\alu_xy.vhd", "C:\\work\\alu_xy.vhd"}, // 18: whole
        {"C:\\work\\alu_xyz.vhd", "C:\\work\\...\\alu_xyz.vhd"},
        {"/home/user/verylongname.v", "/home/us...\\verylongname.v"},
        {"D:a_rather_long_file_name.v", "D:a_rath...\\a_rather_long_file_name.v"}};
    for (const auto& [path, label] : labels)
        EXPECT_EQ(shortenPath(path, 18), label) << path;
    EXPECT_EQ(shortenPath("abcdefghijklm", 12), "abc...\\abcdefghijklm"); // at least 3

    const std::string kept = Make("kept.vhd");
    host.SetProfile("Files", "1", kept);
    host.SetProfile("Files", "2", "C:\\designs\\alu\\alu_top.vhd");
    loadRecentFiles();
    EXPECT_EQ(Slots(), (Lines{kept, "C:\\designs\\alu\\alu_top.vhd", "", "", ""}));
    EXPECT_EQ(host.recentMenus.back(),
              (Lines{"&1 " + shortenPath(kept, 18), "&2 C:\\desig...\\alu_top.vhd", "&3 ", "&4 ",
                     "&5 "}));
    LoadMRUFile1(); // the menu entries open their slots; an empty one does nothing
    LoadMRUFile3();
    EXPECT_EQ(OpenNames(), Lines{kept});
    EXPECT_TRUE(host.boxes.empty());
    addRecentFile("new.vhd");
    saveRecentFiles();
    EXPECT_EQ(ReadList("Files", "", 5, 256),
              (Lines{"new.vhd", kept, "C:\\designs\\alu\\alu_top.vhd", "", ""}));
}

TEST_F(DocsOpenTest, StartupErrorsOpenInAMessageWindowThatIsRefreshed) {
    ReportStartupError(ErrorCannotOpen, "menu.ini", "Menu definition");
    ShowStartupErrors();
    EditBuffer* window = Current();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(std::tuple(std::string(window->fileName), window->windowKind, window->lines.modified),
              std::tuple("startup.err", KindMessage, 0));
    EXPECT_EQ(LinesOf(*window).at(3), "Error 2: Cannot open Menu definition file 'menu.ini'.");
    ASSERT_EQ(NewFile(), 0);
    ReportStartupError(ErrorSyntax, "bad line", "Keyboard mapper");
    window->topLine = 3;
    window->leftColumn = 2;
    const int caretUpdates = host.caretUpdates;
    ShowStartupErrors();
    EXPECT_EQ(window->topLine + window->leftColumn, 0);
    EXPECT_GT(host.caretUpdates, caretUpdates);
    EXPECT_EQ(std::tuple(Current(), host.activatedWindows.back(), window->undoCurrent),
              std::tuple(window, window, window->undoHead));
    EXPECT_EQ(editor.documents.buffers.size(), 2u);
    EXPECT_EQ(LinesOf(*window).size(), 6u);
    EXPECT_FALSE(std::filesystem::exists("startup.err"));
    closeBuffer(*window);
    EXPECT_EQ(editor.documents.recentFiles[0], "");
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(DocsOpenTest, InsertFileIsOneUndoableEditWithoutCarriageReturns) {
    Run("InsertFile"); // without a window nothing is asked
    ASSERT_EQ(openFile("Untitled9", 1, 1, KindDocument), 0);
    Run("InsertFile"); // nor for a read-only one
    ASSERT_EQ(NewFile(), 0);
    Current()->closedFlags |= ClosedFlagWindowGone; // nor for one whose window is going away
    Run("InsertFile");
    Run("SaveFile");
    EXPECT_TRUE(host.fileDialogs.empty());
    ASSERT_EQ(NewFile(), 0);
    EditBuffer& buffer = *Current();
    const TextPos end = MakePos(0, 2);
    RecordEdit(buffer, MakePos(0, 0), MakePos(0, 0), "ab", end, ScrollTarget{}, end, end);
    buffer.cursor = MakePos(0, 1);
    EXPECT_EQ(InsertFile(), 0); // cancelled
    EXPECT_EQ(host.fileDialogs.back().title, "Insert");
    const std::string part = folder.File("part.vhd");
    WriteBytes(part, "x\r\ny\r\nz\rw");
    host.fileDialogAnswers.push_back(FileDialogResult{part, "", false});
    EXPECT_EQ(InsertFile(), 0);
    EXPECT_EQ(LinesOf(buffer), (Lines{"ax", "y", "zwb"}));
    EXPECT_EQ(buffer.cursor, MakePos(2, 2));
    UndoTransaction();
    // A file that cannot be opened inserts nothing and says nothing.
    host.fileDialogAnswers.push_back(FileDialogResult{folder.File("none.vhd"), "", false});
    InsertFile();
    EXPECT_EQ(LinesOf(buffer), (Lines{"ab"}));
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(DocsOpenTest, AboutExitAndTheWindowMenu) {
    Run("About"); // with the core's build date, maybe older than ours
    ASSERT_EQ(host.aboutBoxes.size(), 1u);
    const Lines& lines = host.aboutBoxes[0];
    EXPECT_EQ(lines, (Lines{"RUVO / HDL Language Editor", "Version  1.2, Revision 2",
                            "[ " + lines.back().substr(2, 11) + " ]"}));
    Run("ExitApp");
    EXPECT_EQ(host.closeRequests, 1);

    using Arrangement = Host::WindowArrangement;
    const char* const window[] = {"WindowCascade", "WindowTileVertical", "WindowTileHorizontal",
                                  "WindowNext",    "WindowPrevious",     "WindowClose"};
    for (const char* name : window)
        Run(name);
    EXPECT_TRUE(host.arrangements.empty()) << "no window to arrange";
    Run("NewFile");
    for (const char* name : window)
        Run(name);
    // WindowClose leaves closing to the window's own menu and the frame.
    EXPECT_EQ(host.arrangements,
              (std::vector<Arrangement>{Arrangement::Cascade, Arrangement::TileVertical,
                                        Arrangement::TileHorizontal, Arrangement::Next,
                                        Arrangement::Previous}));
}

} // namespace
} // namespace ruvo
