// Deleting, joining, new lines with auto-indent, deleting the selection, undo and redo.
#include "engine/editing_commands.h"

#include <random>
#include <string>
#include <tuple>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/clipboard_commands.h"
#include "engine/cursor_motion.h"
#include "marked_text.h"

namespace ruvo {
namespace {

using EditingCommandsTest = EditorTest;

TEST_F(EditingCommandsTest, DeletingCommandsTakeTheirPieceOrJoinLines) {
    // {before, command, after}: at the ends nothing is recorded, the last line deleted keeps
    // its place, a lone line is emptied.
    const char* const word = "foo_bar1  baz(x);\nnext";
    // clang-format off
    const std::tuple<std::string, int (*)(), std::string> cases[] = {
        {"a|bc\ndef", DeleteChar, "a|c\ndef"},          {"abc|\ndef", DeleteChar, "abc|def"},
        {"abc\ndef|", DeleteChar, "abc\ndef|"},         {"abc\nde|f", BackspaceChar, "abc\nd|f"},
        {"abc\n|def", BackspaceChar, "abc|def"},         {"|abc\ndef", BackspaceChar, "|abc\ndef"},
        {"one\ntw|o\nthree", DeleteLine, "one\n|three"}, {"one\ntw|o", DeleteLine, "one\n|"},
        {"o|ne", DeleteLine, "|"},                       {"|" + std::string(word), DeleteWord, "|  baz(x);\nnext"},
        {"foo_bar1|  baz(x);\nnext", DeleteWord, "foo_bar1|baz(x);\nnext"},
        {"foo_bar1  baz|(x);\nnext", DeleteWord, "foo_bar1  baz|x);\nnext"},
        {"foo_bar1  baz(x);|\nnext", DeleteWord, "foo_bar1  baz(x);|next"},
        {"foo_bar1  baz(x);\nnext|", DeleteWord, "foo_bar1  baz(x);\nnext|"},
        {"a|b1_c d", DeleteWord, "a| d"}};
    // clang-format on
    for (const auto& [before, command, after] : cases) {
        const auto [text, caret] = Unmarked(before);
        TestBuffer buffer(text);
        buffer.PlaceCaret(caret.line, caret.column);
        static_cast<void>(command());
        EXPECT_EQ(Marked(buffer), after) << before;
        EXPECT_EQ(buffer.LoggedTransactions(), before == after ? 0 : 1) << before;
        EditUndo();
        EXPECT_EQ(buffer.Text(), text) << before;
    }
}

TEST_F(EditingCommandsTest, NewLineCarriesTheIndentUpToTheCaretAndScrollsAtTheBottom) {
    TestBuffer buffer("\t  abc\nb\nc\nd\ne");
    buffer->visibleLines = 5;
    buffer.PlaceCaret(0, 1);
    NewLine();
    EXPECT_EQ(Marked(buffer), "\t\n\t|  abc\nb\nc\nd\ne");
    buffer.PlaceCaret(1, 5);
    NewLine(); // the whole indent of three characters, then the rest of the line
    EXPECT_EQ(Marked(buffer), "\t\n\t  ab\n\t  |c\nb\nc\nd\ne");
    EXPECT_EQ(buffer->topLine, 0);
    buffer.PlaceCaret(4, 1);
    editor.settings.options.autoIndent = false;
    NewLine(); // at the bottom of the window: one line of scrolling
    EXPECT_EQ(Marked(buffer), "\t\n\t  ab\n\t  c\nb\nc\n|\nd\ne");
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
            int (*const commands[])() = {DeleteChar, BackspaceChar, DeleteLine,
                                         DeleteWord, NewLine,       EditPaste};
            const unsigned pick = random() % 9;
            if (pick < 6) {
                static_cast<void>(commands[pick]());
            } else if (pick == 6) {
                MoveCursor(static_cast<Motion>(1 + random() % 12), random() % 2 == 0);
            } else if (pick == 7) {
                GoToPos(*buffer, line, column);
            } else {
                buffer.Select(MakePos(line, 0), buffer->cursor);
                static_cast<void>(random() % 2 == 0 ? EditCut() : DeleteSelection());
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
