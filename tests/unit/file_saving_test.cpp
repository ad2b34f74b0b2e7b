// Saving buffers: byte-exact round trips, refused saves, the save dialog, the progress window.
#include <random>
#include <string>
#include <vector>

#include "commands/command_table.h"
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

class FileSavingTest : public EditorTest {
  protected:
    EditBuffer& Open(const std::string& path) {
        EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
        return *Current();
    }
    void Type(EditBuffer& buffer, TextPos at, std::string_view text) {
        const TextPos end = EndOfInsertion(at, text);
        RecordEdit(buffer, at, at, text, end, ScrollTarget{}, end, end);
    }
    TempFolder folder;
};

TEST_F(FileSavingTest, UnchangedFilesRoundTripByteForByte) {
    const std::vector<std::string> samples = {
        "entity e is\r\nend e;",     // no final line end
        "entity e is\r\nend e;\r\n", // final CR LF becomes an empty last line
        "a\r\n\r\n\tb\t\r\n",        // empty lines and tabs
        "",                          // empty file
        std::string(252, 'x') + "\r\n" + std::string(46, 'y'), // longest line kept whole
    };
    for (size_t i = 0; i < samples.size(); ++i) {
        const std::string path = folder.File("round" + std::to_string(i) + ".vhd");
        WriteBytes(path, samples[i]);
        EditBuffer& buffer = Open(path);
        EXPECT_EQ(saveBuffer(buffer.fileName, buffer), 0);
        EXPECT_EQ(ReadBytes(path), samples[i]) << "sample " << i;
    }
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();

    // A line of 254 characters fills a whole piece; its line end comes as a piece of its
    // own, so the file gains one line end. Line feeds and long lines come back as CR LF.
    const std::pair<std::string, std::string> changed[] = {
        {std::string(254, 'f') + "\r\nz", std::string(254, 'f') + "\r\n\r\nz"},
        {"module m;\nendmodule\n" + std::string(300, 'z'),
         "module m;\r\nendmodule\r\n" + std::string(254, 'z') + "\r\n" + std::string(46, 'z')},
    };
    for (const auto& [bytes, saved] : changed) {
        const std::string path = folder.File(std::to_string(bytes.size()) + ".v");
        WriteBytes(path, bytes);
        EditBuffer& buffer = Open(path);
        EXPECT_EQ(saveBuffer(buffer.fileName, buffer), 0);
        EXPECT_EQ(ReadBytes(path), saved);
    }
}

TEST_F(FileSavingTest, RandomFilesRoundTrip) {
    // Any file of CR LF lines shorter than 253 characters, none ending in CR, survives.
    std::mt19937 random(20261121);
    const std::string alphabet = "abcXYZ019 \t;:-_'\"()<=>\r";
    for (int round = 0; round < 40; ++round) {
        std::string bytes;
        const int lineCount = static_cast<int>(random() % 60);
        for (int i = 0; i < lineCount; ++i) {
            std::string line(random() % 253, 'x');
            for (char& c : line)
                c = alphabet[random() % alphabet.size()];
            if (!line.empty() && line.back() == '\r') line.back() = 'r';
            bytes += line;
            if (i + 1 < lineCount || random() % 2 == 0) bytes += "\r\n";
        }
        const std::string path = folder.File("random" + std::to_string(round) + ".vhd");
        WriteBytes(path, bytes);
        EditBuffer& buffer = Open(path);
        for (const std::string& line : LinesOf(buffer))
            EXPECT_LE(line.size(), 254u);
        EXPECT_EQ(saveBuffer(buffer.fileName, buffer), 0);
        EXPECT_EQ(ReadBytes(path), bytes) << "round " << round;
    }
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(FileSavingTest, SuccessfulSaveClearsModifiedAndTheUndoLog) {
    const std::string path = folder.File("top.vhd");
    WriteBytes(path, "abc");
    EditBuffer& buffer = Open(path);
    Type(buffer, MakePos(0, 3), "\r\ndef");
    const int undoRow = CommandIndexOfHandler(EditUndo);
    EXPECT_TRUE(host.enabledCommands[undoRow]);
    EXPECT_EQ(saveBuffer(buffer.fileName, buffer), 0);
    EXPECT_EQ(ReadBytes(path), "abc\r\ndef");
    EXPECT_FALSE(host.enabledCommands[undoRow]);
    EXPECT_EQ(buffer.lines.modified, 0);
    EXPECT_EQ(buffer.undoHead->next, nullptr);
    EXPECT_EQ(host.statusPanes[4], "Saved file: '" + path + "'");
    EXPECT_EQ(host.busyCursorDepth, 0);
    EXPECT_GT(buffer.fileTime, 0);
}

TEST_F(FileSavingTest, UnwritableTargetKeepsTheBufferAndItsName) {
    const std::string path = folder.File("gone/x.vhd"); // the folder does not exist
    ASSERT_EQ(openFile(path, 1, 0, KindDocument), 0);
    EditBuffer& buffer = *Current();
    Type(buffer, MakePos(0, 0), "line one\nline two");
    EXPECT_EQ(saveBuffer(buffer.fileName, buffer), 1);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, "Cannot open source file '" + path + "'.");
    EXPECT_EQ(LinesOf(buffer), (Lines{"line one", "line two"}));
    EXPECT_EQ(buffer.lines.modified, 1);
    EXPECT_EQ(buffer.fileName, path);

    // A folder standing where the file should be is refused the same way.
    const std::string folderPath = folder.File("adir.vhd");
    std::filesystem::create_directory(folderPath);
    EXPECT_EQ(saveBuffer(folderPath, buffer), 1);
    EXPECT_EQ(host.boxes.size(), 2u);
    EXPECT_EQ(buffer.fileName, path);
}

TEST_F(FileSavingTest, ShortWriteIsReportedAndTheBufferStaysModified) {
    const std::string path = folder.File("w.vhd");
    WriteBytes(path, "abc\r\nde");
    EditBuffer& buffer = Open(path);
    Type(buffer, MakePos(1, 2), "f");
    // Every write to this device fails and it reports a size of 0.
    EXPECT_EQ(saveBuffer("/dev/full", buffer), 0);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text,
              "Error(s) writing file '/dev/full'\n.Expected 8 bytes, actually wrote 0 bytes.");
    EXPECT_EQ(buffer.lines.modified, 1);
    EXPECT_EQ(buffer.fileName, path);
    EXPECT_NE(buffer.undoCurrent, buffer.undoHead); // the edit can still be undone
    EXPECT_EQ(host.statusPanes[4], "Saved file: '" + path + "'");
}

TEST_F(FileSavingTest, UnnamedBufferAsksForANameAndTakesItsLanguage) {
    LanguageEntry(1).name = "VHDL";
    LanguageEntry(1).extensions = "vhd";
    LanguageEntry(1).filter = "VHDL files(*.vhd)|*.vhd|";
    ASSERT_EQ(NewFile(), 0);
    EditBuffer& buffer = *Current();
    editor.settings.options.backupFile = true;

    // Cancelled: nothing written, the name stays.
    EXPECT_EQ(SaveFile(), 0);
    ASSERT_EQ(host.fileDialogs.size(), 1u);
    EXPECT_TRUE(host.fileDialogs[0].save);
    EXPECT_EQ(host.fileDialogs[0].title, "Save As");
    EXPECT_EQ(host.fileDialogs[0].initialName, "Untitled1");
    EXPECT_EQ(host.fileDialogs[0].filter, "All files(*.*)|*.*|VHDL files(*.vhd)|*.vhd|");
    EXPECT_STREQ(buffer.fileName, "Untitled1");

    const std::string path = folder.File("new.vhd");
    host.fileDialogAnswers.push_back(FileDialogResult{path, "", false});
    Type(buffer, MakePos(0, 0), "x");
    EXPECT_EQ(saveBuffer(buffer.fileName, buffer), 0);
    EXPECT_EQ(ReadBytes(path), "x");
    EXPECT_EQ(buffer.fileName, path);
    EXPECT_EQ(host.windowTitles[&buffer], path);
    EXPECT_EQ(buffer.language, &LanguageEntry(1));
    EXPECT_EQ(host.redrawnWindows.back(), &buffer);
    EXPECT_TRUE(host.lzCopies.empty()); // an unnamed buffer has nothing to back up
    EXPECT_EQ(editor.documents.lastDialogDirectory, path.substr(0, path.rfind('/') + 1));

    // The next dialog starts where this one ended, with the current language first.
    host.fileDialogAnswers.push_back(std::nullopt);
    EXPECT_EQ(SaveFileAs(), 0);
    EXPECT_EQ(host.fileDialogs.back().initialDirectory, editor.documents.lastDialogDirectory);
    EXPECT_EQ(host.fileDialogs.back().filter, "VHDL files(*.vhd)|*.vhd|All files(*.*)|*.*|");
}

TEST_F(FileSavingTest, LargeBuffersShowTheProgressWindow) {
    const std::string path = folder.File("big.vhd");
    std::string bytes;
    for (int i = 0; i < 2500; ++i)
        bytes += "signal s" + std::to_string(i) + " : bit;\r\n";
    WriteBytes(path, bytes);
    EditBuffer& buffer = Open(path);
    ASSERT_EQ(buffer.lines.lineCount, 2501);
    EXPECT_EQ(saveBuffer(buffer.fileName, buffer), 0);
    EXPECT_EQ(ReadBytes(path), bytes);
    ASSERT_GE(host.progressEvents.size(), 3u);
    EXPECT_EQ(host.progressEvents.front(), "show Saving file. 2501");
    EXPECT_EQ(host.progressEvents[1], "text " + path);
    EXPECT_EQ(host.progressEvents.back(), "hide");
}

TEST_F(FileSavingTest, SaveAllWritesOnlyModifiedBuffers) {
    const std::string a = folder.File("a.vhd");
    const std::string b = folder.File("b.vhd");
    WriteBytes(a, "a");
    WriteBytes(b, "b");
    EditBuffer& first = Open(a);
    Open(b);
    Type(first, MakePos(0, 1), "1");
    WriteBytes(b, "changed outside");
    EXPECT_EQ(SaveAll(), 0);
    EXPECT_EQ(ReadBytes(a), "a1");
    EXPECT_EQ(ReadBytes(b), "changed outside");
}

} // namespace
} // namespace ruvo
