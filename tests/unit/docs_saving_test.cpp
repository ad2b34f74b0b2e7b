// Saving buffers (byte-exact round trips, refusals, the save dialog, progress), the backup
// copy made first, and files changed on disk by other programs.
#include <algorithm>
#include <random>

#include "commands/command_table.h"
#include "docs/backup_files.h"
#include "docs/changed_on_disk.h"
#include "docs/documents.h"
#include "docs/file_commands.h"
#include "docs/file_saving.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;

class DocsSavingTest : public EditorTest {
  protected:
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
    int Questions() const {
        return static_cast<int>(std::count_if(host.boxes.begin(), host.boxes.end(), [](auto& box) {
            return box.caption == "File changed";
        }));
    }
    TempFolder folder;
};

TEST_F(DocsSavingTest, UnchangedFilesRoundTripByteForByte) {
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

TEST_F(DocsSavingTest, SavingClearsModifiedAndTheLogAndFailuresKeepThem) {
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

TEST_F(DocsSavingTest, UnnamedBufferAsksForANameAndTakesItsLanguage) {
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

TEST_F(DocsSavingTest, LargeBuffersShowProgressAndSaveAllTakesModifiedOnly) {
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

TEST_F(DocsSavingTest, BackupCopiesTheOldFileFirstAndExplainsFailures) {
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

TEST_F(DocsSavingTest, ANewerFileIsOfferedOnceAndReloadedOnYes) {
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
