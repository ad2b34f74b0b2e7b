// The undo/redo log: recording, undo and redo through one path, re-recording of undone steps,
// the consistency checks, scroll and selection codes, and the repaint decisions.
#include "engine/transaction_log.h"

#include <string>
#include <vector>

#include "buffer_builder.h"
#include "commands/command_table.h"
#include "editor_fixture.h"
#include "engine/text_store.h"

namespace ruvo {
namespace {

constexpr ScrollTarget Show{ScrollShow, ScrollShow};
constexpr TextPos Origin{0, 0};
const char* const TooLong = "Transaction ignored because\nresulting line would become too long. \n";

class TransactionLogTest : public EditorTest {
  protected:
    bool Enabled(const char* name) {
        int row = -1;
        CommandByName(name, nullptr, false, &row);
        auto found = host.enabledCommands.find(row);
        return found != host.enabledCommands.end() && found->second;
    }
    // Types one character at the caret as one transaction, as the keyboard does.
    void Type(TestBuffer& buffer, char c) {
        const TextPos at = buffer->cursor;
        const TextPos after = MakePos(at.line, at.column + 1);
        RecordEdit(*buffer, at, at, std::string(1, c), after, Show, after, after);
    }
    void MoveCaret(TestBuffer& buffer, TextPos to, ScrollTarget scroll = Show) {
        RecordEdit(*buffer, Origin, Origin, "", to, scroll, to, to);
    }
    void Replace(TestBuffer& buffer, TextPos from, TextPos to, std::string_view text) {
        RecordEdit(*buffer, from, to, text, from, Show, Origin, Origin);
    }
};

// Long random runs check the texts of every undo and redo; this is the log's shape.
TEST_F(TransactionLogTest, EditingAfterUndoKeepsTheUndoneStepsReachable) {
    TestBuffer buffer("");
    TestBuffer other("other", false);
    Type(other, 'x'); // command states follow the shown buffer only
    EXPECT_FALSE(Enabled("EditUndo"));
    for (char c : {'a', 'b', 'c'})
        Type(buffer, c);
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_TRUE(Enabled("EditRedo"));
    Type(buffer, 'x');
    std::vector<std::string> steps;
    for (const Transaction* t = buffer->undoHead->next; t != nullptr; t = t->next)
        steps.push_back(std::string(OldText(t)) + ">" + NewText(t));
    EXPECT_EQ(steps, (std::vector<std::string>{">a", ">b", ">c", "c>", "b>", ">x"}));
    EXPECT_FALSE(Enabled("EditRedo"));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer.Text(), "abc");
    EXPECT_EQ(buffer->cursor, MakePos(0, 3));
    EXPECT_EQ(other.Text(), "xother");

    // A reset log offers neither undo nor redo.
    ResetTransactionLog(*buffer);
    EXPECT_FALSE(Enabled("EditUndo"));
    EXPECT_FALSE(Enabled("EditRedo"));
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(buffer.Text(), "abc");
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TransactionLogTest, StepsThatNoLongerMatchTheTextAreRefused) {
    TestBuffer buffer("alpha\nbeta");
    Replace(buffer, MakePos(1, 0), MakePos(1, 4), "gamma");

    // Undo against a changed text: refused, the log stays as it is.
    ASSERT_EQ(ReplaceLine(*buffer, "GAMMA", 1), 1);
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Inconsistency between undo transaction and text\nTransaction ignored\n");
    EXPECT_EQ(host.boxes[0].caption, "(default)");
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    EXPECT_EQ(buffer.Text(), "alpha\nGAMMA");

    // Redo against a changed text (a reload, say): refused, the history is cleared.
    ASSERT_EQ(ReplaceLine(*buffer, "gamma", 1), 1);
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer.Text(), "alpha\nbeta");
    ASSERT_EQ(ReplaceLine(*buffer, "delta", 1), 1);
    host.boxes.clear();
    EXPECT_EQ(RedoTransaction(*buffer), 1);
    EXPECT_EQ(host.ErrorBoxTexts(), "Inconsistency between redo transaction and text\n"
                                    "Transaction ignored; undo-redo history cleared\n");
    EXPECT_EQ(buffer.LoggedTransactions(), 0);
    EXPECT_EQ(buffer.Text(), "alpha\ndelta");
}

TEST_F(TransactionLogTest, EditsThatCannotBeAppliedAreDroppedWithTheirMessage) {
    // Joining the 129- and 128-byte lines would give 257 bytes: that edit alone is dropped.
    TestBuffer buffer(std::string(128, 'a') + "\n" + std::string(128, 'b'));
    Type(buffer, 'x');
    const std::string before = buffer.Text();
    Replace(buffer, MakePos(0, 129), MakePos(1, 0), "");
    EXPECT_EQ(host.ErrorBoxTexts(), TooLong);
    EXPECT_EQ(buffer.Text(), before);
    EXPECT_EQ(buffer.LoggedTransactions(), 1);

    // The line grows behind the log's back; the deleted "x" no longer fits.
    host.boxes.clear();
    Replace(buffer, MakePos(0, 0), MakePos(0, 1), "");
    ASSERT_EQ(ReplaceLine(*buffer, std::string(255, 'a'), 0), 1);
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(host.ErrorBoxTexts(), "Impossible that this undo transaction failed\n"
                                    "Transaction ignored; undo-redo history cleared\n");
    EXPECT_EQ(buffer.LoggedTransactions(), 0);

    // A backwards range inserts at its start and deletes nothing.
    TestBuffer backwards("abcdef\nghi");
    Replace(backwards, MakePos(1, 2), MakePos(0, 1), "X");
    EXPECT_EQ(backwards.Text(), "abcdef\nghXi");
    EXPECT_STREQ(OldText(backwards->undoTail), "");
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(backwards.Text(), "abcdef\nghi");
}

TEST_F(TransactionLogTest, ReadOnlyBuffersIgnoreTextChangesButNotCaretMoves) {
    TestBuffer buffer("fixed\ntext");
    buffer->lines.readOnly = 1;
    buffer->lines.modified = 0;
    Type(buffer, 'x');
    Replace(buffer, Origin, MakePos(1, 0), "");
    EXPECT_EQ(buffer.LoggedTransactions(), 0);
    MoveCaret(buffer, MakePos(1, 2));
    EXPECT_EQ(buffer->cursor, MakePos(1, 2));
    EXPECT_EQ(buffer.LoggedTransactions(), 1);

    // An undone move is re-recorded before the refused edit, so redo is no longer offered.
    EXPECT_EQ(UndoTransaction(), 0);
    Type(buffer, 'y');
    EXPECT_EQ(buffer.LoggedTransactions(), 2);
    EXPECT_FALSE(Enabled("EditRedo"));
    EXPECT_EQ(buffer.Text(), "fixed\ntext");
    EXPECT_EQ(buffer->lines.modified, 0);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TransactionLogTest, IdenticalReplacementsAndCarriageReturnsInsideLinesAreKept) {
    TestBuffer buffer("same");
    buffer->lines.modified = 0;
    Replace(buffer, MakePos(0, 0), MakePos(0, 4), "same");
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    EXPECT_EQ(buffer->lines.modified, 1);

    // A file with CR CR LF line ends keeps one carriage return at the end of its lines.
    TestBuffer crs("first\r\nsecond\r");
    Replace(crs, MakePos(0, 2), MakePos(1, 3), "");
    EXPECT_EQ(crs.Text(), "fiond\r");
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(crs.Text(), "first\r\nsecond\r");
    EXPECT_EQ(RedoTransaction(*crs), 0);
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TransactionLogTest, CaretMovesAndSelectionsRedrawOnlyWhatShows) {
    TestBuffer buffer("first line\nsecond\nthird");
    MoveCaret(buffer, MakePos(2, 3));
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    EXPECT_TRUE(host.redrawnLines.empty());
    EXPECT_TRUE(host.redrawnWindows.empty());

    // A selection made by a move is redrawn where it shows, and taken back by undo.
    RecordEdit(*buffer, Origin, Origin, "", MakePos(1, 2), Show, MakePos(1, 2), MakePos(0, 3));
    EXPECT_EQ(buffer->selStart, MakePos(0, 3));
    EXPECT_EQ(buffer->selEnd, MakePos(1, 2));
    EXPECT_TRUE(Enabled("EditCopy"));
    EXPECT_EQ(host.redrawnLines,
              (std::vector<std::pair<EditBuffer*, int>>{{buffer.get(), 0}, {buffer.get(), 1}}));
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_FALSE(Enabled("EditCopy"));
}

TEST_F(TransactionLogTest, OneLineIsRedrawnUnlessLinesOrTheViewChange) {
    TestBuffer buffer("a\nb\nc");
    Type(buffer, 'x');
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(host.redrawnLines.size(), 2u);
    EXPECT_TRUE(host.redrawnWindows.empty());

    RecordEdit(*buffer, MakePos(0, 1), MakePos(0, 1), "\n", MakePos(1, 0), Show, Origin, Origin);
    EXPECT_EQ(host.redrawnWindows.size(), 1u);
    EXPECT_EQ(UndoTransaction(), 0); // the old text held no line feed, the new one did
    EXPECT_EQ(host.redrawnWindows.size(), 2u);
    EXPECT_EQ(host.caretUpdates, 4);

    // Scrolling redraws the whole window even for a one-line change.
    RecordEdit(*buffer, Origin, Origin, "y", MakePos(0, 1), ScrollTarget{2, 0}, Origin, Origin);
    EXPECT_EQ(buffer->topLine, 2);
    EXPECT_EQ(host.scrollUpdates, 1);
    EXPECT_EQ(host.redrawnWindows.size(), 3u);
}

TEST_F(TransactionLogTest, ScrollCodesKeepTheCaretInView) {
    std::string text;
    for (int i = 0; i < 100; ++i)
        text += "line " + std::to_string(i) + "\n";
    TestBuffer buffer(text + "\t\tdeep");
    buffer->visibleLines = 10;
    buffer->visibleColumns = 20;
    // {caret line, top code, top after}: ScrollKeep never leaves the caret below the window.
    // clang-format off
    const int32_t lines[][3] = {{50, ScrollShow, 41}, {45, ScrollShow, 41}, {30, ScrollShow, 30},
        {29, ScrollShow, 29}, {35, ScrollCentreIfHidden, 29}, {38, ScrollCentreIfHidden, 29},
        {39, ScrollCentreIfHidden, 34}, {70, ScrollCentreIfHidden, 65}, {68, ScrollCentre, 63},
        {2, ScrollCentre, 0}, {40, ScrollKeep, 31}, {40, 5, 31}, {40, 35, 35}, {0, 35, 35}};
    // clang-format on
    for (const auto& c : lines) {
        MoveCaret(buffer, MakePos(c[0], 0), ScrollTarget{c[1], ScrollKeep});
        EXPECT_EQ(buffer->topLine, c[2]) << c[0] << " " << c[1];
    }
    // Columns: the caret's screen column (tab-expanded column 6 is 12) on the line before;
    // one past the edge is allowed with a given value.
    MoveCaret(buffer, MakePos(100, 6));
    EXPECT_EQ(buffer->leftColumn, 0);
    buffer->visibleColumns = 5;
    const int32_t columns[][3] = {{6, ScrollShow, 8}, {0, ScrollShow, 0}, {6, 7, 7},
                                  {6, 3, 8},          {2, ScrollKeep, 8}, {6, 12, 12}};
    for (const auto& c : columns) {
        MoveCaret(buffer, MakePos(100, c[0]), ScrollTarget{ScrollKeep, c[1]});
        EXPECT_EQ(buffer->leftColumn, c[2]) << c[0] << " " << c[1];
    }
    EXPECT_TRUE(host.boxes.empty());

    MoveCaret(buffer, MakePos(3, 0), ScrollTarget{-7, -9});
    EXPECT_EQ(host.ErrorBoxTexts(), "LineScroll Bug\nColumnScroll Bug\n");
    EXPECT_EQ(host.boxes[0].caption, "");
    EXPECT_EQ(buffer->topLine, 0);
    EXPECT_EQ(buffer->leftColumn, 0);
    EXPECT_EQ(buffer->cursor, MakePos(3, 0));
}

TEST_F(TransactionLogTest, SelectionCodesKeepCoordinatesOfTheCurrentSelection) {
    TestBuffer buffer("0123456789\nabcdefghij\nklmnop");
    RecordEdit(*buffer, Origin, Origin, "", MakePos(1, 4), Show, MakePos(0, 2), MakePos(1, 4));
    RecordEdit(*buffer, Origin, Origin, "", MakePos(2, 1), Show, MakePos(SelectKeep, SelectKeep),
               MakePos(2, SelectKeep));
    EXPECT_EQ(buffer->selStart, MakePos(0, 2));
    EXPECT_EQ(buffer->selEnd, MakePos(2, 4));
    EXPECT_EQ(buffer->anchor, Origin); // kept while a selection stands
    MoveCaret(buffer, MakePos(2, 1));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer->anchor, MakePos(2, 1));
    EXPECT_TRUE(host.boxes.empty());

    RecordEdit(*buffer, Origin, Origin, "", MakePos(0, 0), Show, MakePos(-2, 0), MakePos(0, -3));
    EXPECT_EQ(host.ErrorBoxTexts(), "Illegal Select code\nIllegal Select code\n");
    EXPECT_EQ(buffer->lines.hasSelection, 0);
}

TEST_F(TransactionLogTest, RunningOutOfMemoryClearsTheHistory) {
    TestBuffer buffer("abc");
    Type(buffer, '1');
    editor.settings.allocator.limitBytes = editor.settings.allocator.totalBytes;
    Type(buffer, '2');
    EXPECT_EQ(buffer.Text(), "1abc");
    // Between the allocator's own messages: the record, then the new sentinel, failed.
    std::vector<std::string> logMessages;
    for (const FakeHost::Box& box : host.boxes)
        if (box.text.rfind("Alloc failed", 0) != 0) logMessages.push_back(box.text);
    EXPECT_EQ(logMessages,
              (std::vector<std::string>{"Out of memory; transaction ignored ; history cleared",
                                        "Running out of memory"}));
    EXPECT_EQ(buffer->undoHead, nullptr);

    // Once memory is back, the next edit starts a new log.
    editor.settings.allocator.limitBytes = -1;
    Type(buffer, '2');
    EXPECT_EQ(buffer.Text(), "12abc");
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer.Text(), "1abc");
    EXPECT_EQ(UndoTransaction(), 1);
}

} // namespace
} // namespace ruvo
