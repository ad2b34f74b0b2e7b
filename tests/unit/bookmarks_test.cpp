// Setting and going to the ten bookmarks across windows, closed windows and shrunk text.
#include "engine/bookmarks.h"

#include <string>
#include <vector>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/cursor_motion.h"
#include "engine/editing_commands.h"

namespace ruvo {
namespace {

using BookmarksTest = EditorTest;

std::string ManyLines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += (i > 0 ? "\n" : "") + std::to_string(i);
    return text;
}

TEST_F(BookmarksTest, GoingToABookmarkNeverSetIsAnAlert) {
    TestBuffer buffer("text");
    EXPECT_EQ(GotoBookmark(4), 1);
    EXPECT_EQ(host.statusPanes[4], "Bookmark 4 is not set.");
    EXPECT_TRUE(host.statusTexts.back().beep);
    EXPECT_EQ(buffer.LoggedTransactions(), 0);
}

TEST_F(BookmarksTest, SetThenGoBringsTheCaretBack) {
    TestBuffer buffer(ManyLines(30));
    buffer.PlaceCaret(12, 1);
    EXPECT_EQ(SetMark3(), 0);
    EXPECT_EQ(host.statusPanes[4], "Dropped bookmark 3.");
    EXPECT_FALSE(host.statusTexts.back().beep);

    GoBeginDoc();
    EXPECT_EQ(GotoBookmark(3), 0);
    EXPECT_EQ(buffer->cursor, MakePos(12, 1));
    EXPECT_EQ(host.activatedWindows, (std::vector<EditBuffer*>{buffer.get()}));
    EditUndo(); // the jump is one recorded caret move
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
}

TEST_F(BookmarksTest, GoingToABookmarkActivatesItsWindow) {
    TestBuffer first("first window\nsecond line");
    first.PlaceCaret(1, 6);
    SetMark7();
    TestBuffer second("other window");
    second.PlaceCaret(0, 3);
    ASSERT_EQ(editor.engine.currentBuffer, second.get());

    first.Select(MakePos(0, 1), MakePos(0, 3));
    GotoMark7(); // the selection stays
    EXPECT_EQ(editor.engine.currentBuffer, first.get());
    EXPECT_EQ(first->selStart, MakePos(0, 1));
    EXPECT_EQ(first->lines.hasSelection, 1);
    EXPECT_EQ(first->cursor, MakePos(1, 6));
    EXPECT_EQ(second->cursor, MakePos(0, 3));
    EXPECT_EQ(second.LoggedTransactions(), 0);
}

TEST_F(BookmarksTest, ABookmarkInAClosedWindowIsStaleUntilSetAgain) {
    TestBuffer closing("soon gone");
    closing.PlaceCaret(0, 5);
    SetMark2();
    closing->closedFlags |= ClosedFlagWindowGone;
    TestBuffer other("still here\nsecond");
    other.PlaceCaret(1, 2);

    EXPECT_EQ(GotoMark2(), 0);
    EXPECT_EQ(host.statusPanes[4], "Window of bookmark 2 has been deleted.");
    EXPECT_TRUE(host.statusTexts.back().beep);
    EXPECT_TRUE(host.activatedWindows.empty());
    EXPECT_EQ(other.LoggedTransactions(), 0);

    SetMark2();
    GoBeginDoc();
    EXPECT_EQ(GotoMark2(), 0);
    EXPECT_EQ(other->cursor, MakePos(1, 2));
}

TEST_F(BookmarksTest, BookmarksKeepTheirNumbersWhenTheTextShrinks) {
    TestBuffer buffer(ManyLines(400));
    buffer.PlaceCaret(300, 2);
    SetMark1();
    buffer.PlaceCaret(100, 0);
    for (int i = 0; i < 200; ++i)
        DeleteLine();
    EXPECT_EQ(buffer->lines.lineCount, 200);
    GotoMark1(); // line 300 is gone: the last line instead
    EXPECT_EQ(buffer->cursor, MakePos(199, 2));
    EXPECT_STREQ(buffer->lines.lineText[199], "399");
    buffer.PlaceCaret(199, 0);
    DeleteWord();
    GotoMark1(); // and a column past the line's end at its end
    EXPECT_EQ(buffer->cursor, MakePos(199, 0));

    buffer.PlaceCaret(150, 1);
    SetMark5();
    buffer.PlaceCaret(0, 0);
    DeleteLine();
    GotoMark5(); // not moved with the text: the same line number, now other text
    EXPECT_EQ(buffer->cursor, MakePos(150, 1));
}

TEST_F(BookmarksTest, WithoutAWindowNothingIsSet) {
    EXPECT_EQ(SetMark9(), 0);
    EXPECT_EQ(editor.engine.bookmarks[9].isSet, 0);
    EXPECT_TRUE(host.statusTexts.empty());
    EXPECT_EQ(GotoMark9(), 1);
    EXPECT_EQ(host.statusPanes[4], "Bookmark 9 is not set.");

    TestBuffer buffer("x");
    EXPECT_EQ(SetBookmark(10), 0);
    EXPECT_EQ(GotoBookmark(-1), 1);
    EXPECT_EQ(host.statusTexts.size(), 1u);
}

} // namespace
} // namespace ruvo
