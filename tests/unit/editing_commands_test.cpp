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

TEST_F(EditingCommandsTest, DeletingCommandsTakeTheirPieceOrJoinLines) {
    struct Case {
        const char* text;
        TextPos caret;
        int (*command)();
        const char* expected;
        TextPos caretAfter;
    };
    const char* const word = "foo_bar1  baz(x);\nnext";
    const Case cases[] = {
        {"abc\ndef", {0, 1}, DeleteChar, "ac\ndef", {0, 1}},
        {"abc\ndef", {0, 3}, DeleteChar, "abcdef", {0, 3}},
        {"abc\ndef", {1, 3}, DeleteChar, "abc\ndef", {1, 3}}, // the end: nothing recorded
        {"abc\ndef", {1, 2}, BackspaceChar, "abc\ndf", {1, 1}},
        {"abc\ndef", {1, 0}, BackspaceChar, "abcdef", {0, 3}},
        {"abc\ndef", {0, 0}, BackspaceChar, "abc\ndef", {0, 0}},
        {"one\ntwo\nthree", {1, 2}, DeleteLine, "one\nthree", {1, 0}},
        {"one\ntwo", {1, 2}, DeleteLine, "one\n", {1, 0}}, // the last line keeps its place
        {word, {0, 0}, DeleteWord, "  baz(x);\nnext", {0, 0}},
        {word, {0, 8}, DeleteWord, "foo_bar1baz(x);\nnext", {0, 8}},
        {word, {0, 13}, DeleteWord, "foo_bar1  bazx);\nnext", {0, 13}},
        {word, {0, 17}, DeleteWord, "foo_bar1  baz(x);next", {0, 17}},
        {word, {1, 4}, DeleteWord, word, {1, 4}},
    };
    for (const Case& c : cases) {
        TestBuffer buffer(c.text);
        buffer.PlaceCaret(c.caret.line, c.caret.column);
        static_cast<void>(c.command());
        EXPECT_EQ(buffer.Text(), c.expected) << c.text << " at " << c.caret.column;
        EXPECT_EQ(buffer->cursor, c.caretAfter) << c.text;
        EXPECT_EQ(buffer->anchor, buffer->cursor) << c.text;
        EXPECT_EQ(buffer.LoggedTransactions(), c.text == std::string(c.expected) ? 0 : 1);
        if (c.text != std::string(c.expected)) {
            EditUndo();
            EXPECT_EQ(buffer.Text(), c.text);
        }
    }

    TestBuffer single("one");
    DeleteLine();
    EXPECT_EQ(single.Text(), "");
    EXPECT_EQ(single->lines.lineCount, 1);
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
    DeleteSelection(); // no selection: nothing
    EXPECT_EQ(buffer.LoggedTransactions(), 0);

    buffer.Select(MakePos(2, 6), MakePos(0, 6)); // made from the bottom up
    DeleteSelection();
    EXPECT_EQ(buffer.Text(), "first line");
    EXPECT_EQ(buffer->cursor, MakePos(0, 6));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer->anchor, buffer->cursor);
    EditUndo();
    EXPECT_EQ(buffer.Text(), "first line\nsecond line\nthird line");
    EditRedo();
    EXPECT_EQ(buffer.Text(), "first line");
}

TEST_F(EditingCommandsTest, JoiningIntoAnOverlongLineIsRefusedAndChangesNothing) {
    const std::string half(128, 'x');
    TestBuffer buffer(half + "\n" + half);
    buffer.PlaceCaret(0, 128);
    DeleteChar();
    EXPECT_EQ(buffer.Text(), half + "\n" + half);
    buffer.PlaceCaret(1, 0);
    BackspaceChar();
    EXPECT_EQ(buffer->lines.lineCount, 2);
    EXPECT_EQ(host.boxes.size(), 2u); // the line-too-long message each time

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
