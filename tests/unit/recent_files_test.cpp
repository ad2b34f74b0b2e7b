// The recent-files list: order of closing, no duplicates, the menu labels, the profile.
#include <string>
#include <vector>

#include "docs/documents.h"
#include "docs/file_commands.h"
#include "docs/recent_files.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "settings/profile.h"

namespace ruvo {
namespace {

using Names = std::vector<std::string>;

class RecentFilesTest : public EditorTest {
  protected:
    Names Slots() const {
        return Names(editor.documents.recentFiles.begin(), editor.documents.recentFiles.end());
    }
    std::string Make(const std::string& name) {
        const std::string path = folder.File(name);
        WriteBytes(path, name);
        return path;
    }
    void OpenAndClose(const std::string& path) {
        ASSERT_EQ(openFile(path, 0, 0, KindDocument), 0);
        closeBuffer(*Current());
    }
    TempFolder folder;
};

TEST_F(RecentFilesTest, ClosingSixFilesKeepsTheLastFiveMostRecentFirst) {
    Names paths;
    for (int i = 1; i <= 6; ++i)
        paths.push_back(Make("f" + std::to_string(i) + ".vhd"));
    for (const std::string& path : paths)
        OpenAndClose(path);
    EXPECT_EQ(Slots(), (Names{paths[5], paths[4], paths[3], paths[2], paths[1]}));

    // A listed file moves to the top without a duplicate.
    OpenAndClose(paths[2]);
    EXPECT_EQ(Slots(), (Names{paths[2], paths[5], paths[4], paths[3], paths[1]}));
    OpenAndClose(paths[2]);
    EXPECT_EQ(Slots(), (Names{paths[2], paths[5], paths[4], paths[3], paths[1]}));
}

TEST_F(RecentFilesTest, UnnamedAndMessageBuffersAreNotListed) {
    ASSERT_EQ(NewFile(), 0);
    closeBuffer(*Current());
    ASSERT_EQ(openFile("ToolResult", 1, 1, KindMessage), 0);
    closeBuffer(*Current());
    addRecentFile("");
    EXPECT_EQ(Slots(), (Names{"", "", "", "", ""}));
    // Names differing in case are different entries.
    addRecentFile("A.vhd");
    addRecentFile("a.vhd");
    EXPECT_EQ(Slots(), (Names{"a.vhd", "A.vhd", "", "", ""}));
}

TEST_F(RecentFilesTest, ShortenedLabelsForTheMenu) {
    EXPECT_EQ(shortenPath("C:\\designs\\alu\\alu_top.vhd", 18), "C:\\desig...\\alu_top.vhd");
    EXPECT_EQ(shortenPath("C:\\work\\alu.vhd", 18), "C:\\work\\alu.vhd");
    EXPECT_EQ(shortenPath("C:\\work\\alu_xy.vhd", 18), "C:\\work\\alu_xy.vhd"); // 18: whole
    EXPECT_EQ(shortenPath("C:\\work\\alu_xyz.vhd", 18), "C:\\work\\...\\alu_xyz.vhd");
    EXPECT_EQ(shortenPath("/home/user/verylongname.v", 18), "/home/us...\\verylongname.v");
    EXPECT_EQ(shortenPath("D:a_rather_long_file_name.v", 18),
              "D:a_rath...\\a_rather_long_file_name.v");
    EXPECT_EQ(shortenPath("abcdefghijklm", 12), "abc...\\abcdefghijklm"); // at least 3

    addRecentFile("C:\\designs\\alu\\alu_top.vhd");
    addRecentFile("b.vhd");
    ASSERT_FALSE(host.recentMenus.empty());
    EXPECT_EQ(host.recentMenus.back(),
              (Names{"&1 b.vhd", "&2 C:\\desig...\\alu_top.vhd", "&3 ", "&4 ", "&5 "}));
}

TEST_F(RecentFilesTest, ReadFromAndWrittenToTheProfile) {
    const std::string kept = Make("kept.vhd");
    host.SetProfile("Files", "1", kept);
    host.SetProfile("Files", "2", "C:\\two.v");
    loadRecentFiles();
    EXPECT_EQ(Slots(), (Names{kept, "C:\\two.v", "", "", ""}));
    EXPECT_EQ(host.recentMenus.back()[1], "&2 C:\\two.v");

    // The menu entries open their slots; an empty slot does nothing.
    EXPECT_EQ(LoadMRUFile1(), 0);
    ASSERT_NE(Current(), nullptr);
    EXPECT_EQ(Current()->fileName, kept);
    EXPECT_EQ(LoadMRUFile3(), 0);
    EXPECT_EQ(editor.documents.buffers.size(), 1u);
    EXPECT_TRUE(host.boxes.empty());

    addRecentFile("new.vhd");
    saveRecentFiles();
    EXPECT_EQ(ReadList("Files", "", 5, 256), (Names{"new.vhd", kept, "C:\\two.v", "", ""}));
}

} // namespace
} // namespace ruvo
