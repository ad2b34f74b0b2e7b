// Caret motions on real buffers: characters, words, lines, pages, the document, selection.
#include "engine/cursor_motion.h"

#include <string>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"

namespace ruvo {
namespace {

using CursorMotionTest = EditorTest;

std::string NumberedLines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += (i > 0 ? "\n" : "") + std::string("line ") + std::to_string(i);
    return text;
}

TEST_F(CursorMotionTest, CharactersStepAcrossLineEndsAndStopAtTheDocumentEnds) {
    TestBuffer buffer("ab\ncd");
    buffer.PlaceCaret(0, 2);
    GoCharRight();
    EXPECT_EQ(buffer->cursor, MakePos(1, 0));
    GoCharLeft();
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));
    GoBeginDoc();
    GoCharLeft();
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    GoEndDoc();
    EXPECT_EQ(buffer->cursor, MakePos(1, 2));
    GoCharRight();
    EXPECT_EQ(buffer->cursor, MakePos(1, 2));
    EXPECT_EQ(buffer->anchor, buffer->cursor);
    EXPECT_EQ(buffer.Text(), "ab\ncd");
}

TEST_F(CursorMotionTest, LineMovesKeepTheScreenColumnAcrossTabsAndShortLines) {
    editor.settings.options.tabSize = 4;
    TestBuffer buffer("\tab\nabcdefgh\nxy");
    buffer.PlaceCaret(1, 5);
    GoLineUp();
    EXPECT_EQ(buffer->cursor, MakePos(0, 2)); // the tab fills columns 0..3, a is 4, b is 5
    GoLineDown();
    EXPECT_EQ(buffer->cursor, MakePos(1, 5));
    GoLineDown();
    EXPECT_EQ(buffer->cursor, MakePos(2, 2)); // the short line ends first
    GoLineDown();
    EXPECT_EQ(buffer->cursor, MakePos(2, 2));
    GoBeginDoc();
    GoLineUp();
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
}

TEST_F(CursorMotionTest, WordLeftTreatsUnderscoresAsSeparators) {
    TestBuffer buffer(" abc\nabc def\nfoo_bar\n(x) y");
    buffer.PlaceCaret(0, 4);
    GoWordLeft();
    EXPECT_EQ(buffer->cursor, MakePos(0, 0)); // the word behind a blank at column 0

    buffer.PlaceCaret(1, 7);
    GoWordLeft();
    EXPECT_EQ(buffer->cursor, MakePos(1, 4));
    GoWordLeft();
    EXPECT_EQ(buffer->cursor, MakePos(1, 0));
    GoWordLeft(); // from column 0 to the previous line's end, then to its word
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));

    buffer.PlaceCaret(2, 7);
    GoWordLeft();
    EXPECT_EQ(buffer->cursor, MakePos(2, 4));
    GoWordLeft();
    EXPECT_EQ(buffer->cursor, MakePos(2, 0));

    buffer.PlaceCaret(3, 5);
    GoWordLeft();
    EXPECT_EQ(buffer->cursor, MakePos(3, 4));
    GoWordLeft(); // a word behind a separator at column 0 leaves the caret at column 0
    EXPECT_EQ(buffer->cursor, MakePos(3, 0));
}

TEST_F(CursorMotionTest, WordRightSkipsTheWordAndTheSeparatorsAfterIt) {
    TestBuffer buffer("foo_bar baz\n  next;\n_x");
    buffer.PlaceCaret(0, 0);
    GoWordRight();
    EXPECT_EQ(buffer->cursor, MakePos(0, 8));
    GoWordRight(); // at the line end: on to the first word of the next line
    EXPECT_EQ(buffer->cursor, MakePos(1, 2));
    GoWordRight();
    EXPECT_EQ(buffer->cursor, MakePos(1, 7)); // the semicolon is skipped to the line end
    GoWordRight();
    EXPECT_EQ(buffer->cursor, MakePos(2, 1)); // an underscore is skipped like a blank
    GoWordRight();
    EXPECT_EQ(buffer->cursor, MakePos(2, 2));
    GoWordRight(); // the end of the document stays put
    EXPECT_EQ(buffer->cursor, MakePos(2, 2));
}

TEST_F(CursorMotionTest, LineAndDocumentEnds) {
    TestBuffer buffer(NumberedLines(50));
    buffer->visibleLines = 20;
    buffer.PlaceCaret(7, 3);
    GoEndLine();
    EXPECT_EQ(buffer->cursor, MakePos(7, 6));
    GoBeginLine();
    EXPECT_EQ(buffer->cursor, MakePos(7, 0));
    GoEndDoc();
    EXPECT_EQ(buffer->cursor, MakePos(49, 7));
    EXPECT_EQ(buffer->topLine, 30);
    EXPECT_EQ(buffer->leftColumn, 0);
    GoBeginDoc();
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    EXPECT_EQ(buffer->topLine, 0);
}

TEST_F(CursorMotionTest, PagesMoveCaretAndWindowTogether) {
    TestBuffer buffer(NumberedLines(50));
    buffer->visibleLines = 10;
    buffer.PlaceCaret(2, 4);
    GoPageDown();
    EXPECT_EQ(buffer->cursor, MakePos(12, 4));
    EXPECT_EQ(buffer->topLine, 10);
    GoPageDown();
    GoPageDown();
    GoPageDown();
    EXPECT_EQ(buffer->cursor, MakePos(42, 4));
    EXPECT_EQ(buffer->topLine, 40);
    GoPageDown(); // near the end: the end of the last line
    EXPECT_EQ(buffer->cursor, MakePos(49, 7));
    EXPECT_EQ(buffer->topLine, 40);

    GoPageUp();
    EXPECT_EQ(buffer->cursor, MakePos(39, 7));
    EXPECT_EQ(buffer->topLine, 30);
    buffer.PlaceCaret(6, 3);
    GoPageUp(); // less than a page from the top: the start of the document
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    EXPECT_EQ(buffer->topLine, 0);
}

TEST_F(CursorMotionTest, ADocumentShorterThanTheWindowStaysAtItsTop) {
    TestBuffer buffer("one\ntwo\nthree");
    buffer->visibleLines = 20;
    GoPageDown();
    EXPECT_EQ(buffer->cursor, MakePos(2, 5));
    EXPECT_EQ(buffer->topLine, 0);
    GoEndDoc();
    EXPECT_EQ(buffer->topLine, 0);
    GoPageUp();
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(CursorMotionTest, ExtendingGrowsTheSelectionFromTheAnchor) {
    TestBuffer buffer("abcdef\nghijkl");
    buffer.PlaceCaret(0, 2);
    MoveCursor(Motion::CharRight, true);
    MoveCursor(Motion::CharRight, true);
    EXPECT_EQ(buffer->selStart, MakePos(0, 2));
    EXPECT_EQ(buffer->selEnd, MakePos(0, 4));
    EXPECT_EQ(buffer->lines.hasSelection, 1);
    EXPECT_EQ(buffer->anchor, MakePos(0, 2));

    // Back over the anchor: the selection turns round and stays ordered.
    MoveCursor(Motion::CharLeft, true);
    MoveCursor(Motion::CharLeft, true);
    MoveCursor(Motion::CharLeft, true);
    EXPECT_EQ(buffer->cursor, MakePos(0, 1));
    EXPECT_EQ(buffer->selStart, MakePos(0, 1));
    EXPECT_EQ(buffer->selEnd, MakePos(0, 2));

    MoveCursor(Motion::LineDown, true);
    EXPECT_EQ(buffer->selStart, MakePos(0, 2));
    EXPECT_EQ(buffer->selEnd, MakePos(1, 1));

    // A plain move drops the selection and brings the anchor along.
    MoveCursor(Motion::EndLine, false);
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer->selStart, buffer->selEnd);
    EXPECT_EQ(buffer->anchor, MakePos(1, 6));
    EXPECT_EQ(buffer.Text(), "abcdef\nghijkl");
}

TEST_F(CursorMotionTest, UndoWalksBackThroughCaretPositions) {
    TestBuffer buffer("alpha\nbeta\ngamma");
    buffer.PlaceCaret(1, 1);
    ResetTransactionLog(*buffer); // the log starts from this caret
    GoCharRight();
    GoLineDown();
    GoEndLine();
    EXPECT_EQ(buffer->cursor, MakePos(2, 5));
    EXPECT_EQ(buffer.LoggedTransactions(), 3);
    EditUndo();
    EXPECT_EQ(buffer->cursor, MakePos(2, 2));
    EditUndo();
    EXPECT_EQ(buffer->cursor, MakePos(1, 2));
    EditUndo();
    EXPECT_EQ(buffer->cursor, MakePos(1, 1));
    EXPECT_EQ(buffer.Text(), "alpha\nbeta\ngamma");
    EditRedo();
    EXPECT_EQ(buffer->cursor, MakePos(1, 2));
    EXPECT_EQ(buffer->anchor, buffer->cursor);
}

TEST_F(CursorMotionTest, MotionsWorkInAReadOnlyBuffer) {
    TestBuffer buffer("read\nonly");
    buffer->lines.readOnly = 1;
    GoEndDoc();
    EXPECT_EQ(buffer->cursor, MakePos(1, 4));
    GoWordLeft();
    EXPECT_EQ(buffer->cursor, MakePos(1, 0));
}

TEST_F(CursorMotionTest, GoToPosClampsAndKeepsTheSelection) {
    TestBuffer buffer(NumberedLines(40));
    buffer->visibleLines = 10;
    buffer.Select(MakePos(1, 0), MakePos(2, 3));
    GoToPos(*buffer, 30, 2);
    EXPECT_EQ(buffer->cursor, MakePos(30, 2));
    EXPECT_EQ(buffer->topLine, 21); // just enough to show the caret line
    EXPECT_EQ(buffer->selStart, MakePos(1, 0));
    EXPECT_EQ(buffer->selEnd, MakePos(2, 3));
    EXPECT_EQ(buffer->lines.hasSelection, 1);

    GoToPos(*buffer, 500, 99);
    EXPECT_EQ(buffer->cursor, MakePos(39, 7));
    GoToPos(*buffer, -4, -1);
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    EXPECT_EQ(buffer->topLine, 0);
}

} // namespace
} // namespace ruvo
