// Deleting, joining, new lines with auto-indent, deleting the selection, undo and redo.
#include "engine/editing_commands.h"

#include <random>
#include <string>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/clipboard_commands.h"
#include "engine/cursor_motion.h"

namespace ruvo {
namespace {

using EditingCommandsTest = EditorTest;

const char* const TooLong = "Transaction ignored because\nresulting line would become too long. ";

TEST_F(EditingCommandsTest, DeleteCharRemovesTheCharacterUnderTheCaretOrJoinsLines) {
    TestBuffer buffer("abc\ndef");
    buffer.PlaceCaret(0, 1);
    DeleteChar();
    EXPECT_EQ(buffer.Text(), "ac\ndef");
    EXPECT_EQ(buffer->cursor, MakePos(0, 1));
    buffer.PlaceCaret(0, 2);
    DeleteChar();
    EXPECT_EQ(buffer.Text(), "acdef");
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));

    buffer.PlaceCaret(0, 5);
    const int logged = buffer.LoggedTransactions();
    DeleteChar(); // the end of the last line: nothing to delete, nothing recorded
    EXPECT_EQ(buffer.Text(), "acdef");
    EXPECT_EQ(buffer.LoggedTransactions(), logged);
}

TEST_F(EditingCommandsTest, BackspaceRemovesTheCharacterBeforeTheCaretOrJoinsLines) {
    TestBuffer buffer("abc\ndef");
    buffer.PlaceCaret(1, 2);
    BackspaceChar();
    EXPECT_EQ(buffer.Text(), "abc\ndf");
    EXPECT_EQ(buffer->cursor, MakePos(1, 1));
    buffer.PlaceCaret(1, 0);
    BackspaceChar();
    EXPECT_EQ(buffer.Text(), "abcdf");
    EXPECT_EQ(buffer->cursor, MakePos(0, 3));
    EXPECT_EQ(buffer->anchor, buffer->cursor);

    buffer.PlaceCaret(0, 0);
    const int logged = buffer.LoggedTransactions();
    BackspaceChar();
    EXPECT_EQ(buffer.Text(), "abcdf");
    EXPECT_EQ(buffer.LoggedTransactions(), logged);
}

TEST_F(EditingCommandsTest, DeleteLineRemovesTheLineAndOnTheLastLineOnlyItsText) {
    TestBuffer buffer("one\ntwo\nthree");
    buffer.PlaceCaret(1, 2);
    DeleteLine();
    EXPECT_EQ(buffer.Text(), "one\nthree");
    EXPECT_EQ(buffer->cursor, MakePos(1, 0));
    DeleteLine();
    EXPECT_EQ(buffer.Text(), "one\n");
    EXPECT_EQ(buffer->lines.lineCount, 2);
    EXPECT_EQ(buffer->cursor, MakePos(1, 0));
    buffer.PlaceCaret(0, 3);
    DeleteLine();
    DeleteLine();
    EXPECT_EQ(buffer.Text(), "");
    EXPECT_EQ(buffer->lines.lineCount, 1);

    EditUndo();
    EditUndo();
    EXPECT_EQ(buffer.Text(), "one\n");
}

TEST_F(EditingCommandsTest, DeleteWordTakesAWordABlankRunOrOneCharacter) {
    TestBuffer buffer("foo_bar1  baz(x);\nnext");
    buffer.PlaceCaret(0, 0);
    DeleteWord();
    EXPECT_EQ(buffer.Text(), "  baz(x);\nnext");
    DeleteWord();
    EXPECT_EQ(buffer.Text(), "baz(x);\nnext");
    buffer.PlaceCaret(0, 3);
    DeleteWord();
    EXPECT_EQ(buffer.Text(), "bazx);\nnext");
    EXPECT_EQ(buffer->cursor, MakePos(0, 3));

    buffer.PlaceCaret(0, 6);
    DeleteWord(); // at the line end: joins the next line
    EXPECT_EQ(buffer.Text(), "bazx);next");
    buffer.PlaceCaret(0, 10);
    const int logged = buffer.LoggedTransactions();
    DeleteWord(); // at the end of the last line: nothing
    EXPECT_EQ(buffer.Text(), "bazx);next");
    EXPECT_EQ(buffer.LoggedTransactions(), logged);
}

TEST_F(EditingCommandsTest, NewLineCarriesTheIndentUpToTheCaretColumn) {
    TestBuffer buffer("\t  abc");
    buffer.PlaceCaret(0, 1);
    NewLine();
    EXPECT_EQ(buffer.Text(), "\t\n\t  abc");
    EXPECT_EQ(buffer->cursor, MakePos(1, 1));

    buffer.PlaceCaret(1, 5);
    NewLine(); // the whole indent of three characters, then the rest of the line
    EXPECT_EQ(buffer.Text(), "\t\n\t  ab\n\t  c");
    EXPECT_EQ(buffer->cursor, MakePos(2, 3));

    editor.settings.options.autoIndent = false;
    NewLine();
    EXPECT_EQ(buffer.Text(), "\t\n\t  ab\n\t  \nc");
    EXPECT_EQ(buffer->cursor, MakePos(3, 0));
}

TEST_F(EditingCommandsTest, NewLineAtTheBottomOfTheWindowScrollsIt) {
    TestBuffer buffer("a\nb\nc\nd\ne\nf");
    buffer->visibleLines = 5;
    buffer.PlaceCaret(4, 1);
    NewLine();
    EXPECT_EQ(buffer->cursor, MakePos(5, 0));
    EXPECT_EQ(buffer->topLine, 1);
    buffer.PlaceCaret(1, 0);
    NewLine(); // well inside the window: no scrolling
    EXPECT_EQ(buffer->topLine, 1);
}

TEST_F(EditingCommandsTest, DeleteSelectionRemovesTheRangeAndLeavesTheCaretAtItsStart) {
    TestBuffer buffer("first line\nsecond line\nthird line");
    buffer.PlaceCaret(1, 1);
    const int logged = buffer.LoggedTransactions();
    DeleteSelection(); // no selection: nothing
    EXPECT_EQ(buffer.LoggedTransactions(), logged);

    buffer.Select(MakePos(2, 6), MakePos(0, 6)); // made from the bottom up
    DeleteSelection();
    EXPECT_EQ(buffer.Text(), "first line");
    EXPECT_EQ(buffer->cursor, MakePos(0, 6));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer->anchor, buffer->cursor);
    EditUndo();
    EXPECT_EQ(buffer.Text(), "first line\nsecond line\nthird line");
}

TEST_F(EditingCommandsTest, UndoAndRedoStepThroughEdits) {
    TestBuffer buffer("abc");
    buffer.PlaceCaret(0, 3);
    ResetTransactionLog(*buffer); // the log starts from this caret
    BackspaceChar();
    BackspaceChar();
    EXPECT_EQ(buffer.Text(), "a");
    EditUndo();
    EXPECT_EQ(buffer.Text(), "ab");
    EditUndo();
    EXPECT_EQ(buffer.Text(), "abc");
    EXPECT_EQ(buffer->cursor, MakePos(0, 3));
    EditUndo(); // nothing older
    EXPECT_EQ(buffer.Text(), "abc");
    EditRedo();
    EXPECT_EQ(buffer.Text(), "ab");
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));
    EXPECT_EQ(buffer->anchor, buffer->cursor);
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(EditingCommandsTest, JoiningIntoAnOverlongLineIsRefusedAndChangesNothing) {
    const std::string half(128, 'x');
    TestBuffer buffer(half + "\n" + half);
    buffer.PlaceCaret(0, 128);
    DeleteChar();
    EXPECT_EQ(buffer.Text(), half + "\n" + half);
    ASSERT_FALSE(host.boxes.empty());
    EXPECT_EQ(host.boxes.back().text, TooLong);

    host.boxes.clear();
    buffer.PlaceCaret(1, 0);
    BackspaceChar();
    EXPECT_EQ(buffer->lines.lineCount, 2);
    EXPECT_EQ(host.boxes.size(), 1u);

    // 127 + 128 is exactly the longest line there may be.
    buffer.PlaceCaret(0, 0);
    DeleteChar();
    buffer.PlaceCaret(0, 127);
    DeleteChar();
    EXPECT_EQ(buffer->lines.lineCount, 1);
    EXPECT_EQ(buffer.Text().size(), 255u);
}

TEST_F(EditingCommandsTest, ReadOnlyBuffersKeepTheirText) {
    TestBuffer buffer("locked\ntext");
    buffer->lines.readOnly = 1;
    buffer->visibleLines = 1;
    buffer.PlaceCaret(0, 2);
    DeleteChar();
    BackspaceChar();
    DeleteLine();
    DeleteWord();
    NewLine();
    buffer.Select(MakePos(0, 1), MakePos(1, 1));
    DeleteSelection();
    EXPECT_EQ(buffer.Text(), "locked\ntext");
    EXPECT_EQ(buffer->lines.modified, 0);
    EXPECT_EQ(buffer->topLine, 0);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(EditingCommandsTest, AnyMixOfCommandsIsUndoneAndRedoneExactly) {
    const std::string original = "entity top is\n\tport (clk : in bit);\nend top;\n\n-- x_1 y";
    std::mt19937 random(20261121);
    int changedRounds = 0;
    for (int round = 0; round < 20; ++round) {
        TestBuffer buffer(original);
        host.clipboard = round % 2 == 0 ? "a\r\nbc" : "  q";
        for (int step = 0; step < 60; ++step) {
            const int32_t line = static_cast<int32_t>(random() % buffer->lines.lineCount);
            const int32_t column = static_cast<int32_t>(random() % 12);
            switch (random() % 9) {
            case 0:
                DeleteChar();
                break;
            case 1:
                BackspaceChar();
                break;
            case 2:
                DeleteLine();
                break;
            case 3:
                DeleteWord();
                break;
            case 4:
                NewLine();
                break;
            case 5:
                EditPaste();
                break;
            case 6:
                MoveCursor(static_cast<Motion>(1 + random() % 12), random() % 2 == 0);
                break;
            case 7:
                GoToPos(*buffer, line, column);
                break;
            default:
                buffer.Select(MakePos(line, 0), buffer->cursor);
                if (random() % 2 == 0)
                    EditCut();
                else
                    DeleteSelection();
                break;
            }
        }
        const std::string edited = buffer.Text();
        if (edited != original) ++changedRounds;
        int undone = 0;
        while (UndoTransaction() == 0)
            ++undone;
        EXPECT_EQ(buffer.Text(), original) << round;
        EXPECT_EQ(undone, buffer.LoggedTransactions()) << round;
        while (RedoTransaction(*buffer) == 0)
            --undone;
        EXPECT_EQ(undone, 0) << round;
        EXPECT_EQ(buffer.Text(), edited) << round;
        EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
    }
    EXPECT_GE(changedRounds, 15);
}

} // namespace
} // namespace ruvo
