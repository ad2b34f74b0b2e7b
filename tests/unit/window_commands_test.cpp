// The about box and the Window menu's commands, reached through the command table.
#include <gtest/gtest.h>

#include "commands/command_table.h"
#include "docs/documents.h"
#include "editor_fixture.h"
#include "engine/edit_buffer.h"
#include "settings/program_version.h"

namespace ruvo {
namespace {

class WindowCommandsTest : public EditorTest {
  protected:
    void Run(const char* name) {
        int row = -1;
        ASSERT_NE(CommandByName(name, nullptr, false, &row), nullptr) << name;
        InvokeCommand(row);
    }
};

TEST_F(WindowCommandsTest, AboutShowsTitleVersionAndBuildDate) {
    EXPECT_EQ(BuildDateLine("Nov 22 2026"), "[ Nov 22 2026 ]");
    Run("About");
    ASSERT_EQ(host.aboutBoxes.size(), 1u);
    // The date is the core's build date, which may be a day older than this test's.
    const std::vector<std::string>& lines = host.aboutBoxes[0];
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], "RUVO / HDL Language Editor");
    EXPECT_EQ(lines[1], "Version  1.2, Revision 2");
    EXPECT_EQ(lines[2], BuildDateLine(lines[2].substr(2, 11)));
    EXPECT_EQ(lines[2].size(), std::string("[ Nov 22 2026 ]").size());
    EXPECT_TRUE(host.boxes.empty()) << "no error or question box on the way";
}

TEST_F(WindowCommandsTest, WindowMenuArrangesAndCyclesTheEditWindows) {
    using Arrangement = Host::WindowArrangement;
    Run("NewFile");
    for (const char* name : {"WindowCascade", "WindowTileVertical", "WindowTileHorizontal",
                             "WindowNext", "WindowPrevious", "WindowClose"}) {
        Run(name);
    }
    EXPECT_EQ(host.arrangements,
              (std::vector<Arrangement>{Arrangement::Cascade, Arrangement::TileVertical,
                                        Arrangement::TileHorizontal, Arrangement::Next,
                                        Arrangement::Previous}))
        << "WindowClose leaves closing to the window's own menu and the frame";
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(WindowCommandsTest, WithoutAWindowThatCanActNothingIsAskedOrArranged) {
    for (const char* name : {"WindowCascade", "WindowTileVertical", "WindowTileHorizontal",
                             "WindowNext", "WindowPrevious", "InsertFile"})
        Run(name);
    EXPECT_TRUE(host.arrangements.empty());
    EXPECT_TRUE(host.fileDialogs.empty());
    // A read-only window cannot take an inserted file either.
    ASSERT_EQ(openFile("Untitled9", 1, 1, KindDocument), 0);
    Run("InsertFile");
    EXPECT_TRUE(host.fileDialogs.empty());
    EXPECT_TRUE(host.boxes.empty());
}

} // namespace
} // namespace ruvo
