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

TEST_F(BookmarksTest, EachCommandSetsAndGoesToItsOwnBookmark) {
    int (*const sets[])() = {SetMark0, SetMark1, SetMark2, SetMark3, SetMark4,
                             SetMark5, SetMark6, SetMark7, SetMark8, SetMark9};
    int (*const gotos[])() = {GotoMark0, GotoMark1, GotoMark2, GotoMark3, GotoMark4,
                              GotoMark5, GotoMark6, GotoMark7, GotoMark8, GotoMark9};
    // Without a window nothing is set; a bookmark never set is an alert.
    EXPECT_EQ(SetMark9(), 0);
    EXPECT_TRUE(host.statusTexts.empty());
    EXPECT_EQ(GotoMark9(), 1);
    EXPECT_EQ(host.statusPanes[4], "Bookmark 9 is not set.");
    EXPECT_TRUE(host.statusTexts.back().beep);

    TestBuffer buffer(ManyLines(30));
    for (int n = 0; n < 10; ++n) {
        buffer.PlaceCaret(3 * n, 1);
        EXPECT_EQ(sets[n](), 0);
        EXPECT_EQ(host.statusPanes[4], "Dropped bookmark " + std::to_string(n) + ".");
        EXPECT_FALSE(host.statusTexts.back().beep);
    }
    for (int n = 9; n >= 0; --n) {
        GoBeginDoc();
        EXPECT_EQ(gotos[n](), 0);
        EXPECT_EQ(buffer->cursor, MakePos(3 * n, 1)) << n;
    }
    EXPECT_EQ(host.activatedWindows.size(), 10u);
    EditUndo(); // the jump is one recorded caret move
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    // Numbers outside 0..9 are neither set nor gone to.
    EXPECT_EQ(SetBookmark(10), 0);
    EXPECT_EQ(GotoBookmark(-1), 1);
    EXPECT_EQ(GotoBookmark(10), 1);
    EXPECT_EQ(host.statusPanes[4], "Dropped bookmark 9.");
}

TEST_F(BookmarksTest, GoingToABookmarkActivatesItsWindowUnlessItIsClosed) {
    TestBuffer first("first window\nsecond line");
    first.PlaceCaret(1, 6);
    SetMark7();
    TestBuffer second("other window\nsecond");
    second.PlaceCaret(0, 3);
    SetMark2();
    first.Select(MakePos(0, 1), MakePos(0, 3));
    GotoMark7(); // the selection stays
    EXPECT_EQ(editor.engine.currentBuffer, first.get());
    EXPECT_EQ(host.activatedWindows, (std::vector<EditBuffer*>{first.get()}));
    EXPECT_EQ(first->selStart, MakePos(0, 1));
    EXPECT_EQ(first->lines.hasSelection, 1);
    EXPECT_EQ(first->cursor, MakePos(1, 6));
    EXPECT_EQ(second.LoggedTransactions(), 0);

    // A bookmark in a closed window is stale until set again.
    second->closedFlags |= ClosedFlagWindowGone;
    EXPECT_EQ(GotoMark2(), 0);
    EXPECT_EQ(host.statusPanes[4], "Window of bookmark 2 has been deleted.");
    EXPECT_TRUE(host.statusTexts.back().beep);
    EXPECT_EQ(host.activatedWindows.size(), 1u);
    first.PlaceCaret(1, 2);
    SetMark2();
    GoBeginDoc();
    EXPECT_EQ(GotoMark2(), 0);
    EXPECT_EQ(first->cursor, MakePos(1, 2));
}

TEST_F(BookmarksTest, BookmarksKeepTheirNumbersWhenTheTextShrinks) {
    TestBuffer buffer(ManyLines(400));
    buffer.PlaceCaret(300, 2);
    SetMark1();
    buffer.PlaceCaret(100, 0);
    for (int i = 0; i < 200; ++i)
        DeleteLine();
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

} // namespace
} // namespace ruvo
