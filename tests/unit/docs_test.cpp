// Opening, creating, closing and saving buffers: the recent-files list, the start-up error
// window, inserting a file, the about box and Window menu, byte-exact saving with its refusals
// and dialog, the backup copy made first, and files changed on disk by other programs.
#include <algorithm>
#include <random>

#include "commands/command_table.h"
#include "docs/backup_files.h"
#include "docs/changed_on_disk.h"
#include "docs/documents.h"
#include "docs/file_commands.h"
#include "docs/file_saving.h"
#include "docs/recent_files.h"
#include "docs/startup_error_window.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "lang/language_table.h"
#include "settings/error_report.h"
#include "settings/profile.h"
#include "settings/program_version.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;

class DocsTest : public EditorTest {
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
    EditBuffer& Open(const std::string& name, const std::string& bytes) {
        WriteBytes(folder.File(name), bytes);
        EXPECT_EQ(openFile(folder.File(name), 0, 0, KindDocument), 0);
        return *Current();
    }
    void Type(EditBuffer& buffer, TextPos at, std::string_view text) {
        const TextPos end = EndOfInsertion(at, text);
        RecordEdit(buffer, at, at, text, end, ScrollTarget{}, end, end);
    }
    int Save(EditBuffer& buffer) { return saveBuffer(buffer.fileName, buffer); }
    std::string Box(size_t i) const { return host.boxes.at(i).caption + "|" + host.boxes[i].text; }
    int Questions() const {
        return static_cast<int>(std::count_if(host.boxes.begin(), host.boxes.end(), [](auto& box) {
            return box.caption == "File changed";
        }));
    }
    void Run(const char* name) {
        int row = -1;
        ASSERT_NE(CommandByName(name, nullptr, false, &row), nullptr) << name;
        InvokeCommand(row);
    }
    TempFolder folder;
};

TEST_F(DocsTest, NamesAndFullPaths) {
    for (const char* name : {"Untitled12", "Untitled"})
        EXPECT_TRUE(isUnnamed(name)) << name;
    for (const char* name : {"untitled1", "Untitle", "C:\\Untitled1"})
        EXPECT_FALSE(isUnnamed(name)) << name;
    for (const char* absolute : {"\\src\\a.vhd", "/src/a.vhd", "D:/a.vhd", "d:\\a.vhd", ""})
        EXPECT_EQ(fullPathOf(absolute), absolute);
    EXPECT_EQ(fullPathOf("d:a.vhd"), "C:\\work\\d:a.vhd");
    EXPECT_EQ(fullPathOf("rtl\\a.vhd"), "C:\\work\\rtl\\a.vhd");
}

TEST_F(DocsTest, OpeningMakesTheCurrentBufferAndTheSameFileTwiceIsReadOnly) {
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

TEST_F(DocsTest, MissingFilesFailuresAndTheOpenDialog) {
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

TEST_F(DocsTest, ClosingMovesOnAndFillsTheRecentFiles) {
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

TEST_F(DocsTest, RecentFilesMenuLabelsAndProfile) {
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

TEST_F(DocsTest, StartupErrorsOpenInAMessageWindowThatIsRefreshed) {
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

TEST_F(DocsTest, InsertFileIsOneUndoableEditWithoutCarriageReturns) {
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
    Type(buffer, MakePos(0, 0), "ab");
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

TEST_F(DocsTest, AboutExitAndTheWindowMenu) {
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

TEST_F(DocsTest, UnchangedFilesRoundTripByteForByte) {
    const std::pair<std::string, std::string> cases[] = {
        {"entity e is\r\nend e;", ""}, // "": saved unchanged
        {"entity e is\r\nend e;\r\n", ""},
        {"a\r\n\r\n\tb\t\r\n", ""},
        {"", ""},
        {std::string(252, 'x') + "\r\n" + std::string(46, 'y'), ""}, // longest line kept whole
        // A line of 254 characters fills a piece; its line end comes as a piece of its own.
        {std::string(254, 'f') + "\r\nz", std::string(254, 'f') + "\r\n\r\nz"},
        {"module m;\nendmodule\n" + std::string(300, 'z'),
         "module m;\r\nendmodule\r\n" + std::string(254, 'z') + "\r\n" + std::string(46, 'z')}};
    int serial = 0;
    for (const auto& [bytes, saved] : cases) {
        EditBuffer& buffer = Open(std::to_string(serial++) + ".vhd", bytes);
        EXPECT_EQ(Save(buffer), 0);
        EXPECT_EQ(ReadBytes(buffer.fileName), saved.empty() ? bytes : saved) << serial;
    }
    // Any file of CR LF lines shorter than 253 characters, none ending in CR, survives.
    std::mt19937 random(20261121);
    const std::string alphabet = "abcXYZ019 \t;:-_'\"()<=>\r";
    for (int round = 0; round < 40; ++round) {
        std::string bytes;
        for (int i = random() % 60; i > 0; --i) {
            std::string line(random() % 253, 'x');
            for (char& c : line)
                c = alphabet[random() % alphabet.size()];
            if (!line.empty() && line.back() == '\r') line.back() = 'r';
            bytes += line + (i > 1 || random() % 2 == 0 ? "\r\n" : "");
        }
        EditBuffer& buffer = Open("random" + std::to_string(round) + ".vhd", bytes);
        EXPECT_EQ(Save(buffer), 0);
        EXPECT_EQ(ReadBytes(buffer.fileName), bytes) << "round " << round;
    }
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(DocsTest, SavingClearsModifiedAndTheLogAndFailuresKeepThem) {
    EditBuffer& buffer = Open("top.vhd", "abc");
    Type(buffer, MakePos(0, 3), "\r\ndef");
    const int undoRow = CommandIndexOfHandler(EditUndo);
    EXPECT_TRUE(host.enabledCommands[undoRow]);
    EXPECT_EQ(Save(buffer), 0);
    EXPECT_EQ(ReadBytes(buffer.fileName), "abc\r\ndef");
    EXPECT_FALSE(host.enabledCommands[undoRow]);
    EXPECT_EQ(std::tuple(buffer.lines.modified, buffer.undoHead->next), std::tuple(0, nullptr));
    EXPECT_EQ(host.statusPanes[4], "Saved file: '" + folder.File("top.vhd") + "'");
    EXPECT_EQ(host.busyCursorDepth, 0);
    EXPECT_GT(buffer.fileTime, 0);

    // Every write to /dev/full fails and it reports a size of 0.
    Type(buffer, MakePos(1, 2), "f");
    EXPECT_EQ(saveBuffer("/dev/full", buffer), 0);
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Error(s) writing file '/dev/full'\n.Expected 9 bytes, actually wrote 0 bytes.\n");
    EXPECT_TRUE(buffer.lines.modified == 1 && buffer.undoCurrent != buffer.undoHead);

    // A missing folder, or a folder where the file should be: refused, nothing lost.
    const std::string path = folder.File("gone/x.vhd");
    ASSERT_EQ(openFile(path, 1, 0, KindDocument), 0);
    EditBuffer& fresh = *Current();
    Type(fresh, MakePos(0, 0), "line one\nline two");
    EXPECT_EQ(Save(fresh), 1);
    EXPECT_EQ(host.boxes.back().text, "Cannot open source file '" + path + "'.");
    std::filesystem::create_directory(folder.File("adir.vhd"));
    EXPECT_EQ(saveBuffer(folder.File("adir.vhd"), fresh), 1);
    EXPECT_EQ(host.boxes.size(), 3u);
    EXPECT_EQ(std::tuple(LinesOf(fresh), fresh.lines.modified, std::string(fresh.fileName)),
              std::tuple(Lines{"line one", "line two"}, 1, path));
}

TEST_F(DocsTest, UnnamedBufferAsksForANameAndTakesItsLanguage) {
    LanguageEntry(1).name = "VHDL";
    LanguageEntry(1).extensions = "vhd";
    LanguageEntry(1).filter = "VHDL files(*.vhd)|*.vhd|";
    ASSERT_EQ(NewFile(), 0);
    EditBuffer& buffer = *Current();
    editor.settings.options.backupFile = true;
    EXPECT_EQ(SaveFile(), 0); // cancelled: nothing written, the name stays
    ASSERT_EQ(host.fileDialogs.size(), 1u);
    const FileDialogRequest& asked = host.fileDialogs[0];
    EXPECT_EQ(asked.title + "|" + asked.initialName + "|" + asked.filter +
                  std::to_string(asked.save),
              "Save As|Untitled1|All files(*.*)|*.*|VHDL files(*.vhd)|*.vhd|1");
    EXPECT_STREQ(buffer.fileName, "Untitled1");

    const std::string path = folder.File("new.vhd");
    host.fileDialogAnswers.push_back(FileDialogResult{path, "", false});
    Type(buffer, MakePos(0, 0), "x");
    EXPECT_EQ(Save(buffer), 0);
    EXPECT_EQ(ReadBytes(path) + buffer.fileName + "|" + host.windowTitles[&buffer],
              "x" + path + "|" + path);
    EXPECT_EQ(std::tuple(buffer.language, host.redrawnWindows.back()),
              std::tuple(&LanguageEntry(1), &buffer));
    EXPECT_TRUE(host.lzCopies.empty()); // an unnamed buffer has nothing to back up
    EXPECT_EQ(editor.documents.lastDialogDirectory, path.substr(0, path.rfind('/') + 1));
    host.fileDialogAnswers.push_back(std::nullopt);
    EXPECT_EQ(SaveFileAs(), 0);
    EXPECT_EQ(host.fileDialogs.back().initialDirectory, editor.documents.lastDialogDirectory);
    EXPECT_EQ(host.fileDialogs.back().filter, "VHDL files(*.vhd)|*.vhd|All files(*.*)|*.*|");
    const std::string longest = "Untitled" + std::string(247, '0');
    ASSERT_EQ(openFile(longest, 1, 0, KindDocument), 0);
    EXPECT_EQ(SaveFile(), 0);
    EXPECT_EQ(host.fileDialogs.back().initialName, longest.substr(0, 254));
}

TEST_F(DocsTest, LargeBuffersShowProgressAndSaveAllTakesModifiedOnly) {
    std::string bytes;
    for (int i = 0; i < 2500; ++i)
        bytes += "signal s" + std::to_string(i) + " : bit;\r\n";
    EditBuffer& big = Open("big.vhd", bytes);
    Type(big, MakePos(0, 0), "-");
    Open("b.vhd", "b");
    WriteBytes(folder.File("b.vhd"), "changed outside");
    EXPECT_EQ(SaveAll(), 0);
    EXPECT_EQ(ReadBytes(folder.File("big.vhd")), "-" + bytes);
    EXPECT_EQ(ReadBytes(folder.File("b.vhd")), "changed outside");
    EXPECT_EQ(host.progressEvents,
              (Lines{"show Saving file. 2501", "text " + folder.File("big.vhd"), "update 1000",
                     "update 2000", "hide"}));
}

TEST_F(DocsTest, BackupCopiesTheOldFileFirstAndExplainsFailures) {
    const std::pair<const char*, std::optional<std::string>> names[] = {
        {"top.vhd", "top.bak"},
        {"top.rtl.vhd", "top.bak"},
        {"x", "x.bak"},
        {"C:\\v1.2\\alu", "C:\\v1.2\\alu.bak"},
        {"/src.d/a.v", "/src.d/a.bak"},
        {"a.BAK", std::nullopt},
        {"a.bak", std::nullopt},
        {"", std::nullopt}};
    for (const auto& [name, backup] : names)
        EXPECT_EQ(backupNameOf(name), backup) << name;

    editor.settings.options.backupFile = true;
    EditBuffer& buffer = Open("top.rtl.vhd", "old\r\n");
    ASSERT_NE(ReplaceLine(buffer, "new", 0), 0);
    EXPECT_EQ(Save(buffer), 0);
    EXPECT_EQ(host.lzCopies, (std::vector<std::pair<std::string, std::string>>{
                                 {folder.File("top.rtl.vhd"), folder.File("top.bak")}}));
    EXPECT_EQ(ReadBytes(folder.File("top.bak")) + ReadBytes(buffer.fileName), "old\r\nnew\r\n");
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
    editor.settings.options.backupFile = false;
    EXPECT_EQ(Save(buffer), 0);
    EXPECT_EQ(host.lzCopies.size(), 1u);

    // Refused and failed backups do not stop the save.
    editor.settings.options.backupFile = true;
    EditBuffer& bak = Open("a.BAK", "1");
    ASSERT_NE(ReplaceLine(bak, "2", 0), 0);
    EXPECT_EQ(Save(bak), 0);
    EXPECT_EQ(host.boxes.back().caption + host.boxes.back().text,
              "(default)Cannot backup file '" + folder.File("a.BAK") +
                  "'\nthe backup has the same name as original  file.");
    EXPECT_EQ(ReadBytes(folder.File("a.BAK")), "2");
    const std::string fresh = folder.File("fresh.vhd");
    EXPECT_EQ(saveBuffer(fresh, bak), 0);
    EXPECT_EQ(host.boxes.back().text, "Error: Unable to read file '" + fresh + "'.");
    EXPECT_EQ(ReadBytes(fresh), "2");
    std::filesystem::create_directory(folder.File("fresh.bak"));
    EXPECT_EQ(saveBuffer(fresh, bak), 0);
    EXPECT_EQ(host.boxes.back().text,
              "Error: Unable to write backup file '" + folder.File("fresh.bak") + "'.");

    // A source the copy cannot open leaves the older backup whole.
    std::filesystem::remove_all(folder.File("fresh.bak"));
    WriteBytes(folder.File("fresh.bak"), "older");
    const std::pair<long, const char*> codes[] = {
        {-1, "The handle identifying the source file was not valid."},
        {-8, "The source file was compressed with an unrecognized compression algorithm."},
        {-9, ""}};
    for (const auto& [code, explanation] : codes) {
        host.lzCopyResult = code;
        EXPECT_FALSE(makeBackup(fresh));
        EXPECT_EQ(host.boxes.back().text,
                  "Error(s) copying file '" + fresh + "'.\n" + std::string(explanation));
    }
    host.lzCopyResult = LzSourceNotOpened; // as for a path beyond the LZ library's limit
    EXPECT_FALSE(makeBackup(fresh));
    EXPECT_EQ(host.boxes.back().text, "Error: Unable to read file '" + fresh + "'.");
    EXPECT_EQ(ReadBytes(folder.File("fresh.bak")), "older");
    host.lzCopyResult = 1;
    EXPECT_TRUE(makeBackup(fresh));
}

TEST_F(DocsTest, ANewerFileIsOfferedOnceAndReloadedOnYes) {
    EditBuffer& buffer = Open("c.vhd", "one\r\ntwo\r\nthree");
    buffer.cursor = buffer.anchor = MakePos(2, 5);
    EditBuffer& mine = Open("n.vhd", "mine");
    ASSERT_EQ(openFile("Untitled7", 1, 0, KindDocument), 0);
    WriteBytes(folder.File("report.log"), "r");
    ASSERT_EQ(openFile(folder.File("report.log"), 0, 1, KindMessage), 0);
    EditBuffer& gone = Open("gone.vhd", "x");
    checkAllChangedOnDisk();
    EXPECT_EQ(Questions(), 0);

    WriteBytes(folder.File("c.vhd"), "uno\r\n");
    WriteBytes(folder.File("n.vhd"), "theirs");
    for (const char* name : {"c.vhd", "n.vhd", "report.log"})
        TouchLater(folder.File(name), 10);
    std::filesystem::remove(folder.File("gone.vhd"));
    editor.documents.checkingChangedOnDisk = true; // as while a question box is up
    checkAllChangedOnDisk();
    EXPECT_EQ(Questions(), 0);
    editor.documents.checkingChangedOnDisk = false;
    host.answers = {AnswerYes, AnswerNo};
    checkAllChangedOnDisk();
    ASSERT_EQ(Questions(), 2);
    EXPECT_EQ(host.boxes.size(), 2u) << "unnamed, message and vanished files are skipped";
    EXPECT_EQ(host.boxes[0].text,
              "The file: " + folder.File("c.vhd") + " has changed\nDo you want to reload it?");
    EXPECT_EQ(std::tuple(LinesOf(buffer), buffer.lines.modified, host.redrawnWindows.back()),
              std::tuple(Lines{"uno", ""}, 0, &buffer));
    EXPECT_EQ(buffer.cursor, MakePos(1, 0)); // kept inside the shorter text
    EXPECT_EQ(LinesOf(mine), (Lines{"mine"}));

    checkAllChangedOnDisk(); // No is remembered until the next change
    EXPECT_EQ(Questions(), 2);
    TouchLater(folder.File("n.vhd"), 20);
    checkAllChangedOnDisk();
    EXPECT_EQ(Questions(), 3);

    // Reload keeps the log and reports a missing file without touching the text.
    Type(buffer, MakePos(0, 3), "d");
    Transaction* logged = buffer.undoCurrent;
    WriteBytes(folder.File("c.vhd"), "xyz\r\n");
    EXPECT_EQ(reloadBuffer(buffer), 0);
    EXPECT_EQ(std::tuple(LinesOf(buffer), buffer.undoCurrent, buffer.lines.modified),
              std::tuple(Lines{"xyz", ""}, logged, 0));
    EXPECT_EQ(reloadBuffer(gone), 1);
    EXPECT_EQ(host.boxes.back().text,
              "Cannot open file '" + folder.File("gone.vhd") + "' to refresh the window contents.");
    EXPECT_EQ(LinesOf(gone), (Lines{"x"}));
}

} // namespace
} // namespace ruvo
