// Files changed by other programs: the reload question, its answers, reload itself.
#include <string>
#include <vector>

#include "docs/changed_on_disk.h"
#include "docs/documents.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;

class ChangedOnDiskTest : public EditorTest {
  protected:
    EditBuffer& Open(const std::string& path, const std::string& bytes) {
        WriteBytes(path, bytes);
        EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
        return *Current();
    }
    int Questions() const {
        int count = 0;
        for (const auto& box : host.boxes)
            count += box.caption == "File changed" ? 1 : 0;
        return count;
    }
    TempFolder folder;
};

TEST_F(ChangedOnDiskTest, ANewerFileIsOfferedOnceAndReloadedOnYes) {
    const std::string path = folder.File("c.vhd");
    EditBuffer& buffer = Open(path, "one\r\ntwo\r\nthree");
    buffer.cursor = buffer.anchor = MakePos(2, 5);

    checkAllChangedOnDisk();
    EXPECT_EQ(Questions(), 0);

    WriteBytes(path, "uno\r\n");
    TouchLater(path, 10);
    host.answers = {AnswerYes};
    checkAllChangedOnDisk();
    ASSERT_EQ(Questions(), 1);
    EXPECT_EQ(host.boxes.back().text,
              "The file: " + path + " has changed\nDo you want to reload it?");
    EXPECT_EQ(LinesOf(buffer), (Lines{"uno", ""}));
    EXPECT_EQ(buffer.lines.modified, 0);
    EXPECT_EQ(buffer.cursor, MakePos(1, 0)); // kept inside the shorter text
    EXPECT_EQ(host.redrawnWindows.back(), &buffer);

    checkAllChangedOnDisk();
    EXPECT_EQ(Questions(), 1);
}

TEST_F(ChangedOnDiskTest, NoRemembersTheTimeUntilTheNextChange) {
    const std::string path = folder.File("n.vhd");
    EditBuffer& buffer = Open(path, "mine");
    WriteBytes(path, "theirs");
    TouchLater(path, 10);
    host.answers = {AnswerNo};
    checkAllChangedOnDisk();
    checkAllChangedOnDisk();
    EXPECT_EQ(Questions(), 1);
    EXPECT_EQ(LinesOf(buffer), (Lines{"mine"}));

    TouchLater(path, 20);
    host.answers = {AnswerNo};
    checkAllChangedOnDisk();
    EXPECT_EQ(Questions(), 2);
}

TEST_F(ChangedOnDiskTest, UnnamedMessageAndVanishedFilesAreSkipped) {
    const std::string path = folder.File("gone.vhd");
    Open(path, "x");
    ASSERT_EQ(openFile("Untitled7", 1, 0, KindDocument), 0);
    const std::string report = folder.File("report.log");
    WriteBytes(report, "r");
    ASSERT_EQ(openFile(report, 0, 1, KindMessage), 0);
    TouchLater(report, 30);
    std::filesystem::remove(path);
    checkAllChangedOnDisk();
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(ChangedOnDiskTest, ThePassDoesNotStartAgainWhileItRuns) {
    const std::string path = folder.File("r.vhd");
    Open(path, "r");
    TouchLater(path, 10);
    editor.documents.checkingChangedOnDisk = true; // as while a question box is up
    checkAllChangedOnDisk();
    EXPECT_EQ(Questions(), 0);
    editor.documents.checkingChangedOnDisk = false;
    host.answers = {AnswerNo};
    checkAllChangedOnDisk();
    EXPECT_EQ(Questions(), 1);
}

TEST_F(ChangedOnDiskTest, ReloadKeepsTheLogAndReportsAMissingFile) {
    const std::string path = folder.File("l.vhd");
    EditBuffer& buffer = Open(path, "abc");
    const TextPos end = MakePos(0, 4);
    RecordEdit(buffer, MakePos(0, 3), MakePos(0, 3), "d", end, ScrollTarget{}, end, end);
    Transaction* logged = buffer.undoCurrent;
    WriteBytes(path, "xyz\r\n");
    EXPECT_EQ(reloadBuffer(buffer), 0);
    EXPECT_EQ(LinesOf(buffer), (Lines{"xyz", ""}));
    EXPECT_EQ(buffer.undoCurrent, logged);
    EXPECT_EQ(buffer.lines.modified, 0);

    std::filesystem::remove(path);
    EXPECT_EQ(reloadBuffer(buffer), 1);
    EXPECT_EQ(host.boxes.back().text,
              "Cannot open file '" + path + "' to refresh the window contents.");
    EXPECT_EQ(LinesOf(buffer), (Lines{"xyz", ""}));
}

} // namespace
} // namespace ruvo
