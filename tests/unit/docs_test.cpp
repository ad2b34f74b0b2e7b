// Opening, creating, closing and saving buffers: the recent-files list, the start-up error
// window, inserting a file, the Window menu, byte-exact saving with its refusals and dialog,
// the backup copy made first, and files changed on disk by other programs.
#include "commands/command_table.h"
#include "commands/pending_commands.h"
#include "docs/backup_files.h"
#include "docs/changed_on_disk.h"
#include "docs/documents.h"
#include "docs/file_commands.h"
#include "docs/file_saving.h"
#include "docs/recent_files.h"
#include "docs/startup_error_window.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "lang/language_table.h"
#include "settings/error_report.h"
#include "settings/profile.h"
#include "test_files.h"

namespace ruvo {
namespace {

class DocsTest : public EditorTest {
  protected:
    DocsTest() {
        LanguageEntry(1).name = "VHDL";
        LanguageEntry(1).extensions = "vhd";
        LanguageEntry(1).filter = "VHDL(*.vhd)|*.vhd|";
    }
    std::string Make(const std::string& name, const std::string& bytes = "x") {
        WriteBytes(folder.File(name), bytes);
        return folder.File(name);
    }
    EditBuffer& Open(const std::string& name, const std::string& bytes = "x") {
        EXPECT_EQ(openFile(Make(name, bytes), 0, 0, KindDocument), 0);
        return *Current();
    }
    void Type(EditBuffer& buffer, TextPos at, std::string_view text) {
        const TextPos end = EndOfInsertion(at, text);
        RecordEdit(buffer, at, at, text, end, ScrollTarget{}, end, end);
    }
    int Save(EditBuffer& buffer) { return saveBuffer(buffer.fileName, buffer); }
    std::string Box(size_t i) const { return host.boxes.at(i).caption + "|" + host.boxes[i].text; }
    TempFolder folder;
};

TEST_F(DocsTest, FullPathsOpeningAFileTwiceOrAMissingOneAndTheOpenDialog) {
    EXPECT_TRUE(isUnnamed("Untitled") && !isUnnamed("untitled1") && !isUnnamed("Untitle"));
    for (const char* absolute : {"\\src\\a.vhd", "/src/a.vhd", "D:/a.vhd", "d:\\a.vhd", ""})
        EXPECT_EQ(fullPathOf(absolute), absolute);
    EXPECT_EQ(fullPathOf("d:a.vhd"), "C:\\work\\d:a.vhd");
    // The current buffer's language comes first, then named ones with a filter in table order.
    LanguageEntry(3).name = "Text";
    LanguageEntry(4).name = "Verilog";
    LanguageEntry(4).filter = "Verilog(*.v)|*.v|";
    EXPECT_EQ(LoadFile(), 0); // cancelled, with no buffer open
    EXPECT_EQ(host.fileDialogs[0].filter, "All files(*.*)|*.*|VHDL(*.vhd)|*.vhd|Verilog(*.v)|*.v|");

    // No, then Yes: for a file already open (a read-only copy) and for a missing one (created,
    // with no open error).
    const std::string path = Open("alu.vhd", "entity alu is\r\nend;\r\n").fileName;
    const std::string missing = folder.File("missing.vhd");
    host.answers = {AnswerNo, AnswerYes, AnswerNo, AnswerYes};
    std::string results;
    for (const std::string& name : {path, path, missing, missing}) {
        results += std::to_string(openFile(name, 0, 0, KindDocument));
        results += std::to_string(Current()->lines.readOnly); // of the buffer now current
        if (results == "0001") SaveFile();                    // the copy refuses with a beep
    }
    const std::vector<EditBuffer*>& buffers = editor.documents.buffers;
    EXPECT_EQ(std::tuple(results, host.boxes.size(), buffers.size(), buffers[1]->lines.readOnly),
              std::tuple("00011100", 4u, 3u, 1));
    EXPECT_EQ(std::tuple(Box(1), host.statusPanes[4], host.statusTexts.back().beep),
              std::tuple("Warning|File '" + path +
                             "' is already\nin an edit buffer, open a readonly copy ?",
                         "Window is opened readonly.", true));

    host.fileDialogAnswers.push_back(FileDialogResult{Make("f.vhd"), "", true});
    ASSERT_EQ(LoadFile(), 0);
    EXPECT_EQ(
        std::tuple(host.fileDialogs.back().filter, Current()->lines.readOnly,
                   editor.documents.lastDialogDirectory),
        std::tuple("VHDL(*.vhd)|*.vhd|All files(*.*)|*.*|Verilog(*.v)|*.v|", 1, folder.File("")));
    host.createWindowFails = true;
    EXPECT_EQ(openFile(Make("g.vhd"), 0, 0, KindDocument), 1);
    host.createWindowFails = false;
    // New files are numbered; two unnamed buffers are never taken for the same file.
    ASSERT_EQ(NewFile(), 0);
    ASSERT_EQ(NewFile(), 0);
    closeBuffer(*Current());
    ASSERT_EQ(NewFile(), 0);
    EXPECT_EQ(std::tuple(buffers.size(), std::string(Current()->fileName)),
              std::tuple(6u, "Untitled3"));
}

TEST_F(DocsTest, ClosingMovesOnAndFillsTheRecentFilesTheirMenuAndProfile) {
    EditBuffer* first = &Open("a.vhd");
    EditBuffer* second = &Open("b.vhd");
    ASSERT_EQ(openFile("ToolResult", 1, 1, KindMessage), 0);
    EditBuffer* report = Current();
    ASSERT_EQ(NewFile(), 0);
    closeBuffer(*Current()); // neither unnamed nor message buffers are listed
    closeBuffer(*second);
    EXPECT_EQ(std::tuple(editor.documents.buffers.size(), Current(), second->undoHead),
              std::tuple(2u, report, nullptr));
    closeBuffer(*report);
    EXPECT_EQ(Current(), first);
    closeBuffer(*first);
    const auto& slots = editor.documents.recentFiles;
    EXPECT_EQ(std::tuple(Current(), slots[0], slots[1]),
              std::tuple(nullptr, folder.File("a.vhd"), folder.File("b.vhd")));

    // Five slots; a listed name moves to the top; names differing in case are different.
    for (const char* name : {"f1", "f2", "f3", "f4", "f5", "f2", "f2", "", "F5"})
        addRecentFile(name);
    EXPECT_EQ(Texts(slots.begin(), slots.end()), (Texts{"F5", "f2", "f5", "f4", "f3"}));
    addRecentFile(std::string(300, 'r')); // cut to the longest file name
    EXPECT_EQ(slots[0], std::string(255, 'r'));

    const std::pair<const char*, const char*> labels[] = {
        {"C:\\work\\alu_xy.vhd", "C:\\work\\alu_xy.vhd"}, // 18: whole
        {"C:\\work\\alu_xyz.vhd", "C:\\work\\...\\alu_xyz.vhd"},
        {"D:a_rather_long_file_name.v", "D:a_rath...\\a_rather_long_file_name.v"}};
    for (const auto& [path, label] : labels)
        EXPECT_EQ(shortenPath(path, 18), label) << path;
    EXPECT_EQ(shortenPath("abcdefghijklm", 12), "abc...\\abcdefghijklm"); // at least 3

    const std::string kept = Make("kept.vhd");
    host.SetProfile("Files", "1", kept);
    host.SetProfile("Files", "2", "C:\\designs\\alu\\alu_top.vhd");
    loadRecentFiles();
    EXPECT_EQ(host.recentMenus.back().at(1), "&2 C:\\desig...\\alu_top.vhd");
    std::string greyed; // an entry is greyed while its slot is empty
    for (int slot = 1, row = -1; slot <= RecentFileSlots; ++slot)
        if (CommandByName("LoadMRUFile" + std::to_string(slot), nullptr, false, &row))
            greyed += host.enabledCommands.at(row) ? '+' : '-';
    EXPECT_EQ(greyed, "++---");
    LoadMRUFile1(); // the menu entries open their slots; an empty one does nothing
    LoadMRUFile3();
    EXPECT_EQ(std::tuple(editor.documents.buffers.size(), std::string(Current()->fileName)),
              std::tuple(1u, kept));
    addRecentFile("new.vhd");
    saveRecentFiles();
    EXPECT_EQ(ReadList("Files", "", 5, 256),
              (Texts{"new.vhd", kept, "C:\\designs\\alu\\alu_top.vhd", "", ""}));
}

TEST_F(DocsTest, StartupErrorsOpenInAMessageWindowThatIsRefreshed) {
    ReportStartupError(ErrorCannotOpen, "menu.ini", "Menu definition");
    ShowStartupErrors();
    EditBuffer* window = Current();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(std::tuple(std::string(window->fileName), window->windowKind, window->lines.modified),
              std::tuple("startup.err", KindMessage, 0));
    ASSERT_EQ(NewFile(), 0);
    ReportStartupError(ErrorSyntax, "bad line", "Keyboard mapper");
    window->topLine = window->leftColumn = 3;
    const int caretUpdates = host.caretUpdates;
    ShowStartupErrors();
    EXPECT_EQ(std::tuple(window->topLine, window->leftColumn, host.caretUpdates > caretUpdates,
                         Current(), host.activatedWindows.back(), window->undoCurrent,
                         editor.documents.buffers.size(), LinesOf(*window).size()),
              std::tuple(0, 0, true, window, window, window->undoHead, 2u, 6u));
}

TEST_F(DocsTest, InsertFileIsOneUndoableEditAndTheWindowMenuNeedsAWindow) {
    ExitApp();
    InsertFile(); // without a window nothing is asked
    std::vector<size_t> arranged;
    for (int round = 0; round < 2; ++round) { // without a window, then with one
        for (auto command : {WindowCascade, WindowTileVertical, WindowTileHorizontal, WindowNext,
                             WindowPrevious, WindowClose})
            command();
        arranged.push_back(host.arrangements.size());
        ASSERT_EQ(NewFile(), 0);
    }
    // WindowClose leaves closing to the window's own menu and the frame.
    EXPECT_EQ(std::tuple(host.closeRequests, arranged), std::tuple(1, std::vector<size_t>{0, 5}));
    Current()->closedFlags |= ClosedFlagWindowGone; // nor for one whose window is going away
    InsertFile();
    SaveFile();
    EditBuffer& buffer = Open("a.vhd", "ab");
    buffer.lines.readOnly = 1; // nor for a read-only one
    InsertFile();
    EXPECT_TRUE(host.fileDialogs.empty());
    buffer.lines.readOnly = 0;
    buffer.cursor = MakePos(0, 1);
    // Cancelled, a name that cannot be opened, then a file with CR LF, CR and LF ends.
    host.fileDialogAnswers = {std::nullopt, FileDialogResult{"no such file", "", false},
                              FileDialogResult{Make("part", "x\r\ny\r\nz\rw"), "", false}};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(InsertFile(), 0);
    EXPECT_EQ(std::tuple(host.fileDialogs.back().title, LinesOf(buffer), buffer.cursor),
              std::tuple("Insert", Texts{"ax", "y", "zwb"}, MakePos(2, 2)));
    UndoTransaction();
    EXPECT_EQ(LinesOf(buffer), (Texts{"ab"}));
}

TEST_F(DocsTest, UnchangedFilesRoundTripAndAnUnnamedBufferAsksForAName) {
    // Each file and what is saved, "" for the file unchanged.
    const std::pair<std::string, std::string> cases[] = {
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
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();

    // An unnamed buffer asks for a name and takes its language.
    ASSERT_EQ(NewFile(), 0);
    EditBuffer& buffer = *Current();
    editor.settings.options.backupFile = true;
    const std::string path = folder.File("new.vhd");
    host.fileDialogAnswers.push_back(FileDialogResult{path, "", false});
    Type(buffer, MakePos(0, 0), "x");
    EXPECT_EQ(Save(buffer), 0);
    // An unnamed buffer has nothing to back up.
    const FileDialogRequest& asked = host.fileDialogs.at(0);
    EXPECT_EQ(
        std::tuple(asked.title, asked.initialName, asked.save, ReadBytes(path),
                   std::string(buffer.fileName), host.windowTitles[&buffer], buffer.language,
                   host.redrawnWindows.back(), host.lzCopies.size()),
        std::tuple("Save As", "Untitled1", true, "x", path, path, &LanguageEntry(1), &buffer, 0u));
    const std::string longest = "Untitled" + std::string(247, '0');
    ASSERT_EQ(openFile(longest, 1, 0, KindDocument), 0);
    EXPECT_EQ(SaveFileAs(), 0);
    EXPECT_EQ(
        std::tuple(host.fileDialogs.back().initialName, host.fileDialogs.back().initialDirectory),
        std::tuple(longest.substr(0, 254), folder.File("")));
}

TEST_F(DocsTest, SavingClearsModifiedAndTheLogAndFailuresKeepThem) {
    EditBuffer& buffer = Open("top.vhd", "abc");
    Type(buffer, MakePos(0, 3), "\r\ndef");
    EXPECT_EQ(Save(buffer), 0);
    EXPECT_EQ(ReadBytes(buffer.fileName), "abc\r\ndef");
    EXPECT_EQ(
        std::tuple(buffer.lines.modified, buffer.undoHead->next, host.busyCursorDepth,
                   host.enabledCommands[CommandIndexOfHandler(EditUndo)], buffer.fileTime > 0,
                   host.statusPanes[4]),
        std::tuple(0, nullptr, 0, false, true, "Saved file: '" + folder.File("top.vhd") + "'"));

    // Every write to /dev/full fails and it reports a size of 0; a missing folder is refused.
    Type(buffer, MakePos(1, 2), "f");
    EXPECT_EQ(saveBuffer("/dev/full", buffer), 0);
    const std::string gone = folder.File("gone/x.vhd");
    EXPECT_EQ(saveBuffer(gone, buffer), 1);
    EXPECT_EQ(std::tuple(host.ErrorBoxTexts(), LinesOf(buffer), buffer.lines.modified,
                         std::string(buffer.fileName), buffer.undoCurrent != buffer.undoHead),
              std::tuple("Error(s) writing file '/dev/full'\n.Expected 9 bytes, actually wrote 0 "
                         "bytes.\nCannot open source file '" +
                             gone + "'.\n",
                         Texts{"abc", "deff"}, 1, folder.File("top.vhd"), true));

    // Large buffers show progress; Save All takes modified buffers only.
    std::string bytes;
    for (int i = 0; i < 2500; ++i)
        bytes += "signal s" + std::to_string(i) + " : bit;\r\n";
    EditBuffer& big = Open("big.vhd", bytes);
    Type(big, MakePos(0, 0), "-");
    Open("b.vhd", "b");
    WriteBytes(folder.File("b.vhd"), "changed outside");
    EXPECT_EQ(SaveAll(), 0);
    EXPECT_EQ(ReadBytes(big.fileName) + ReadBytes(folder.File("b.vhd")),
              "-" + bytes + "changed outside");
    EXPECT_EQ(host.progressEvents,
              (Texts{"show Saving file. 2501", "text " + folder.File("big.vhd"), "update 1000",
                     "update 2000", "hide"}));
}

TEST_F(DocsTest, BackupCopiesTheOldFileFirstAndExplainsFailures) {
    // "-": none, for a backup of itself or no name.
    std::string backups;
    for (const char* name : {"top.rtl.vhd", "x", "C:\\v1.2\\alu", "/src.d/a.v", "a.BAK", ""})
        backups += backupNameOf(name).value_or("-") + "|";
    EXPECT_EQ(backups, "top.bak|x.bak|C:\\v1.2\\alu.bak|/src.d/a.bak|-|-|");

    editor.settings.options.backupFile = true;
    EditBuffer& buffer = Open("top.rtl.vhd", "old\r\n");
    ASSERT_NE(ReplaceLine(buffer, "new", 0), 0);
    EXPECT_EQ(Save(buffer), 0);
    EXPECT_EQ(ReadBytes(folder.File("top.bak")) + ReadBytes(buffer.fileName), "old\r\nnew\r\n");
    // A refused backup is said and does not stop the save.
    EXPECT_EQ(saveBuffer(folder.File("a.BAK"), buffer), 0);
    EXPECT_EQ(Box(0), "(default)|Cannot backup file '" + folder.File("a.BAK") +
                          "'\nthe backup has the same name as original  file.");
    EXPECT_EQ(ReadBytes(folder.File("a.BAK")), "new\r\n");
    const std::string fresh = folder.File("fresh.vhd"),
                      failed = "Error(s) copying file '" + fresh + "'.\n";
    std::string done = "|";
    host.boxes.clear();
    for (long result : {LzSourceNotOpened, LzTargetNotCreated, -1L, -9L, 1L}) {
        host.lzCopyResult = result;
        done.insert(done.end() - 1, makeBackup(fresh) ? '+' : '-');
    }
    EXPECT_EQ(done + host.ErrorBoxTexts(),
              "----+|Error: Unable to read file '" + fresh +
                  "'.\nError: Unable to write backup file '" + folder.File("fresh.bak") + "'.\n" +
                  failed + "The handle identifying the source file was not valid.\n" + failed +
                  "\n");
}

TEST_F(DocsTest, ANewerFileIsOfferedOnceAndReloadedOnYes) {
    EditBuffer& buffer = Open("c.vhd", "one\r\ntwo\r\nthree");
    Type(buffer, MakePos(0, 3), "d");
    buffer.cursor = buffer.anchor = MakePos(2, 5);
    Transaction* logged = buffer.undoCurrent;
    EditBuffer& mine = Open("n.vhd", "mine");
    ASSERT_EQ(openFile(Make("report.log"), 0, 1, KindMessage), 0);
    EditBuffer& gone = Open("gone.vhd", "x");

    for (const std::string& changed :
         {Make("c.vhd", "uno\r\n"), Make("n.vhd", "theirs"), folder.File("report.log")})
        TouchLater(changed, 10);
    std::filesystem::remove(folder.File("gone.vhd"));
    editor.documents.checkingChangedOnDisk = true; // as while a question box is up
    checkAllChangedOnDisk();
    EXPECT_TRUE(host.boxes.empty());
    editor.documents.checkingChangedOnDisk = false;
    host.answers = {AnswerYes, AnswerNo};
    checkAllChangedOnDisk();
    ASSERT_EQ(host.boxes.size(), 2u) << "message and vanished files are skipped";
    EXPECT_EQ(Box(0), "File changed|The file: " + folder.File("c.vhd") +
                          " has changed\nDo you want to reload it?");
    // The reload keeps the log, and the caret inside the shorter text.
    EXPECT_EQ(std::tuple(LinesOf(buffer), buffer.lines.modified, buffer.undoCurrent, buffer.cursor,
                         host.redrawnWindows.back(), LinesOf(mine)),
              std::tuple(Texts{"uno", ""}, 0, logged, MakePos(1, 0), &buffer, Texts{"mine"}));
    checkAllChangedOnDisk(); // No is remembered until the next change
    EXPECT_EQ(host.boxes.size(), 2u);
    TouchLater(folder.File("n.vhd"), 20);
    checkAllChangedOnDisk();
    EXPECT_EQ(host.boxes.size(), 3u);

    EXPECT_EQ(reloadBuffer(gone), 1);
    EXPECT_EQ(host.boxes.back().text,
              "Cannot open file '" + folder.File("gone.vhd") + "' to refresh the window contents.");
    EXPECT_EQ(LinesOf(gone), (Texts{"x"}));
}

} // namespace
} // namespace ruvo
