// Backup copies before saving: names, refusals and the messages of the LZ copy.
#include <string>

#include "docs/backup_files.h"
#include "docs/documents.h"
#include "docs/file_saving.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/text_store.h"

namespace ruvo {
namespace {

class BackupTest : public EditorTest {
  protected:
    TempFolder folder;
};

TEST_F(BackupTest, BackupNames) {
    EXPECT_EQ(backupNameOf("top.vhd"), "top.bak");
    EXPECT_EQ(backupNameOf("top.rtl.vhd"), "top.bak");
    EXPECT_EQ(backupNameOf("x"), "x.bak");
    EXPECT_EQ(backupNameOf("C:\\v1.2\\alu"), "C:\\v1.2\\alu.bak");
    EXPECT_EQ(backupNameOf("/src.d/a.v"), "/src.d/a.bak");
    EXPECT_EQ(backupNameOf("a.BAK"), std::nullopt);
    EXPECT_EQ(backupNameOf("a.bak"), std::nullopt);
    EXPECT_EQ(backupNameOf(""), std::nullopt);
}

TEST_F(BackupTest, SavingWithBackupOnCopiesTheOldFileFirst) {
    editor.settings.options.backupFile = true;
    const std::string path = folder.File("top.rtl.vhd");
    WriteBytes(path, "old\r\n");
    ASSERT_EQ(openFile(path, 0, 0, KindDocument), 0);
    EditBuffer& buffer = *Current();
    ASSERT_NE(ReplaceLine(buffer, "new", 0), 0);
    EXPECT_EQ(saveBuffer(buffer.fileName, buffer), 0);
    ASSERT_EQ(host.lzCopies.size(), 1u);
    EXPECT_EQ(host.lzCopies[0].first, path);
    EXPECT_EQ(host.lzCopies[0].second, folder.File("top.bak"));
    EXPECT_EQ(ReadBytes(folder.File("top.bak")), "old\r\n");
    EXPECT_EQ(ReadBytes(path), "new\r\n");
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();

    // With the option off no copy is made.
    editor.settings.options.backupFile = false;
    EXPECT_EQ(saveBuffer(buffer.fileName, buffer), 0);
    EXPECT_EQ(host.lzCopies.size(), 1u);
}

TEST_F(BackupTest, RefusedAndFailedBackupsDoNotStopTheSave) {
    editor.settings.options.backupFile = true;
    const std::string path = folder.File("a.BAK");
    WriteBytes(path, "1");
    ASSERT_EQ(openFile(path, 0, 0, KindDocument), 0);
    EditBuffer& buffer = *Current();
    ASSERT_NE(ReplaceLine(buffer, "2", 0), 0);
    EXPECT_EQ(saveBuffer(buffer.fileName, buffer), 0);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].caption, "(default)");
    EXPECT_EQ(host.boxes[0].text,
              "Cannot backup file '" + path + "'\nthe backup has the same name as original  file.");
    EXPECT_TRUE(host.lzCopies.empty());
    EXPECT_EQ(ReadBytes(path), "2");

    // A file that does not exist yet cannot be read for its backup.
    const std::string fresh = folder.File("fresh.vhd");
    EXPECT_EQ(saveBuffer(fresh, buffer), 0);
    EXPECT_EQ(host.boxes.back().text, "Error: Unable to read file '" + fresh + "'.");
    EXPECT_EQ(ReadBytes(fresh), "2");

    // A folder where the backup should go.
    std::filesystem::create_directory(folder.File("fresh.bak"));
    EXPECT_EQ(saveBuffer(fresh, buffer), 0);
    EXPECT_EQ(host.boxes.back().text,
              "Error: Unable to write backup file '" + folder.File("fresh.bak") + "'.");
}

TEST_F(BackupTest, ASourceTheCopyCannotOpenLeavesTheOlderBackupWhole) {
    const std::string path = folder.File("alu.vhd");
    WriteBytes(path, "new");
    WriteBytes(folder.File("alu.bak"), "older");
    host.lzCopyResult = LzSourceNotOpened; // as for a path beyond the LZ library's limit
    EXPECT_FALSE(makeBackup(path));
    EXPECT_EQ(host.boxes.back().text, "Error: Unable to read file '" + path + "'.");
    EXPECT_EQ(ReadBytes(folder.File("alu.bak")), "older");
}

TEST_F(BackupTest, CopyFailuresAreExplained) {
    const std::string path = folder.File("c.vhd");
    WriteBytes(path, "c");
    const std::pair<long, const char*> cases[] = {
        {-1, "The handle identifying the source file was not valid."},
        {-2, "The handle identifying the destination file was not valid."},
        {-3, "The source file format was not valid."},
        {-4, "There is insufficient space for the output file."},
        {-5, "There is insufficient memory for the required buffers."},
        {-6, "The handle identifying the internal data structures is invalid."},
        {-7, "The input parameter is out of the allowable range."},
        {-8, "The source file was compressed with an unrecognized compression algorithm."},
        {-9, ""},
    };
    for (const auto& [code, explanation] : cases) {
        host.lzCopyResult = code;
        EXPECT_FALSE(makeBackup(path));
        EXPECT_EQ(host.boxes.back().text,
                  "Error(s) copying file '" + path + "'.\n" + std::string(explanation));
    }
    host.lzCopyResult = 1;
    EXPECT_TRUE(makeBackup(path));
}

} // namespace
} // namespace ruvo
