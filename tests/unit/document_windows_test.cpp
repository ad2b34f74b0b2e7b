// The start-up error window, inserting a file at the caret, and the exit command.
#include <string>
#include <vector>

#include "docs/documents.h"
#include "docs/file_commands.h"
#include "docs/startup_error_window.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/transaction_log.h"
#include "settings/error_report.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;

class DocumentWindowsTest : public EditorTest {
  protected:
    Lines LogLines() const {
        Lines lines;
        const LineList* log = editor.settings.startupErrors.lines;
        for (int32_t i = 0; log != nullptr && i < log->lineCount; ++i)
            lines.emplace_back(log->lineText[i]);
        return lines;
    }
    TempFolder folder;
};

TEST_F(DocumentWindowsTest, StartupErrorsOpenInAMessageWindowAndAreRefreshed) {
    ReportStartupError(ErrorCannotOpen, "menu.ini", "Menu definition");
    ShowStartupErrors();
    EditBuffer* window = Current();
    ASSERT_NE(window, nullptr);
    EXPECT_STREQ(window->fileName, "startup.err");
    EXPECT_EQ(window->windowKind, KindMessage);
    EXPECT_EQ(window->lines.modified, 0);
    EXPECT_EQ(LinesOf(*window), LogLines());
    EXPECT_EQ(LinesOf(*window).back(), "Error 2: Cannot open Menu definition file 'menu.ini'.");
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();

    // Another file becomes current; showing again refreshes the same window.
    ASSERT_EQ(NewFile(), 0);
    ReportStartupError(ErrorSyntax, "bad line", "Keyboard mapper");
    ShowStartupErrors();
    EXPECT_EQ(editor.documents.buffers.size(), 2u);
    EXPECT_EQ(Current(), window);
    EXPECT_EQ(host.activatedWindows.back(), window);
    EXPECT_EQ(LinesOf(*window), LogLines());
    EXPECT_EQ(LinesOf(*window).back(), "\tbad line");
    EXPECT_EQ(window->undoCurrent, window->undoHead);
    // Nothing of it reaches the disk, and it never enters the recent list.
    EXPECT_FALSE(std::filesystem::exists("startup.err"));
    closeBuffer(*window);
    EXPECT_EQ(editor.documents.recentFiles[0], "");
}

TEST_F(DocumentWindowsTest, InsertFileIsOneUndoableEditWithoutCarriageReturns) {
    const std::string part = folder.File("part.vhd");
    WriteBytes(part, "x\r\ny\r\nz\rw");
    ASSERT_EQ(NewFile(), 0);
    EditBuffer& buffer = *Current();
    const TextPos end = MakePos(0, 2);
    RecordEdit(buffer, MakePos(0, 0), MakePos(0, 0), "ab", end, ScrollTarget{}, end, end);
    buffer.cursor = MakePos(0, 1);

    EXPECT_EQ(InsertFile(), 0); // cancelled
    EXPECT_EQ(host.fileDialogs.back().title, "Insert");
    EXPECT_EQ(LinesOf(buffer), (Lines{"ab"}));

    host.fileDialogAnswers.push_back(FileDialogResult{part, "", false});
    EXPECT_EQ(InsertFile(), 0);
    EXPECT_EQ(LinesOf(buffer), (Lines{"ax", "y", "zwb"}));
    EXPECT_EQ(buffer.cursor, MakePos(2, 2));
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(LinesOf(buffer), (Lines{"ab"}));

    // A file that cannot be opened inserts nothing and says nothing.
    host.fileDialogAnswers.push_back(FileDialogResult{folder.File("none.vhd"), "", false});
    EXPECT_EQ(InsertFile(), 0);
    EXPECT_EQ(LinesOf(buffer), (Lines{"ab"}));
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(DocumentWindowsTest, ExitAsksTheFrameToClose) {
    EXPECT_EQ(ExitApp(), 0);
    EXPECT_EQ(host.closeRequests, 1);
}

} // namespace
} // namespace ruvo
