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

class TransactionLogTest : public EditorTest {
  protected:
    int Row(const char* name) {
        int index = -1;
        CommandByName(name, nullptr, false, &index);
        return index;
    }
    bool Enabled(const char* name) {
        auto found = host.enabledCommands.find(Row(name));
        return found != host.enabledCommands.end() && found->second;
    }
    // Types one character at the caret as one transaction, as the keyboard does.
    void Type(TestBuffer& buffer, char c) {
        const TextPos at = buffer->cursor;
        const TextPos after = MakePos(at.line, at.column + 1);
        RecordEdit(*buffer, at, at, std::string(1, c), after, Show, after, after);
    }
    void MoveCaret(TestBuffer& buffer, TextPos to) {
        RecordEdit(*buffer, Origin, Origin, "", to, Show, to, to);
    }
    // The log as "old>new" pairs after the sentinel.
    std::vector<std::string> Steps(TestBuffer& buffer) {
        std::vector<std::string> steps;
        for (const Transaction* t = buffer->undoHead->next; t != nullptr; t = t->next)
            steps.push_back(std::string(OldText(t)) + ">" + NewText(t));
        return steps;
    }
};

TEST_F(TransactionLogTest, EditingAfterUndoKeepsTheUndoneStepsReachable) {
    TestBuffer buffer("");
    Type(buffer, 'a');
    Type(buffer, 'b');
    Type(buffer, 'c');
    EXPECT_EQ(buffer.Text(), "abc");
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer.Text(), "a");
    EXPECT_EQ(buffer->cursor, MakePos(0, 1));
    EXPECT_TRUE(Enabled("EditRedo"));
    Type(buffer, 'x');
    EXPECT_EQ(buffer.Text(), "ax");
    EXPECT_EQ(Steps(buffer), (std::vector<std::string>{">a", ">b", ">c", "c>", "b>", ">x"}));
    EXPECT_FALSE(Enabled("EditRedo"));
    EXPECT_TRUE(Enabled("EditUndo"));

    std::vector<std::string> seen;
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(UndoTransaction(), 0);
        seen.push_back(buffer.Text());
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"a", "ab", "abc", "ab", "a", ""}));
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_FALSE(Enabled("EditUndo"));

    // Redo walks the same way forward again.
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(RedoTransaction(*buffer), 0);
    EXPECT_EQ(buffer.Text(), "ax");
    EXPECT_EQ(RedoTransaction(*buffer), 1);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TransactionLogTest, AFreshOrResetLogOffersNeitherUndoNorRedo) {
    TestBuffer buffer("text");
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_FALSE(Enabled("EditUndo"));
    EXPECT_FALSE(Enabled("EditRedo"));
    EXPECT_EQ(buffer.Text(), "text");

    Type(buffer, '1');
    Type(buffer, '2');
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_TRUE(Enabled("EditUndo"));
    EXPECT_TRUE(Enabled("EditRedo"));
    ResetTransactionLog(*buffer);
    EXPECT_FALSE(Enabled("EditUndo"));
    EXPECT_FALSE(Enabled("EditRedo"));
    EXPECT_EQ(buffer.LoggedTransactions(), 0);
    EXPECT_EQ(buffer->undoHead->cursorAfter, buffer->cursor);
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(buffer.Text(), "1text");
}

TEST_F(TransactionLogTest, StepsThatNoLongerMatchTheTextAreRefused) {
    TestBuffer buffer("alpha\nbeta");
    RecordEdit(*buffer, MakePos(1, 0), MakePos(1, 4), "gamma", MakePos(1, 5), Show, Origin, Origin);
    EXPECT_EQ(buffer.Text(), "alpha\ngamma");

    // Undo against a changed text: refused, the log stays as it is.
    ASSERT_EQ(ReplaceLine(*buffer, "GAMMA", 1), 1);
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Inconsistency between undo transaction and text\nTransaction ignored\n");
    EXPECT_EQ(host.boxes[0].caption, "(default)");
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    EXPECT_EQ(buffer.Text(), "alpha\nGAMMA");
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 2);

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
    EXPECT_FALSE(Enabled("EditUndo"));
    EXPECT_FALSE(Enabled("EditRedo"));
}

TEST_F(TransactionLogTest, AnUndoThatCannotBeAppliedClearsTheHistory) {
    TestBuffer buffer("ab");
    RecordEdit(*buffer, MakePos(0, 0), MakePos(0, 1), "", Origin, Show, Origin, Origin);
    // The line grows behind the log's back; the deleted "a" no longer fits.
    ASSERT_EQ(ReplaceLine(*buffer, "b" + std::string(254, 'x'), 0), 1);
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(host.ErrorBoxTexts(), "Impossible that this undo transaction failed\n"
                                    "Transaction ignored; undo-redo history cleared\n");
    EXPECT_EQ(buffer.Text(), "b" + std::string(254, 'x'));
    EXPECT_EQ(buffer.LoggedTransactions(), 0);
    EXPECT_FALSE(Enabled("EditUndo"));
}

TEST_F(TransactionLogTest, AnEditThatMakesALineTooLongIsDroppedAlone) {
    TestBuffer buffer(std::string(128, 'a') + "\n" + std::string(128, 'b'));
    Type(buffer, 'x');
    ASSERT_EQ(buffer.LoggedTransactions(), 1);
    const std::string before = buffer.Text();
    // Joining the 129- and 128-byte lines would give 257 bytes.
    RecordEdit(*buffer, MakePos(0, 129), MakePos(1, 0), "", MakePos(0, 129), Show, Origin, Origin);
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Transaction ignored because\nresulting line would become too long. \n");
    EXPECT_EQ(buffer.Text(), before);
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    EXPECT_EQ(buffer->undoCurrent, buffer->undoTail);

    // A replacement whose deletion fits but whose insertion does not leaves the text whole.
    host.boxes.clear();
    RecordEdit(*buffer, MakePos(0, 0), MakePos(0, 1), std::string(128, 'y'), Origin, Show, Origin,
               Origin);
    EXPECT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(buffer.Text(), before);
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer.Text(), std::string(128, 'a') + "\n" + std::string(128, 'b'));
}

TEST_F(TransactionLogTest, ReadOnlyBuffersIgnoreTextChangesButNotCaretMoves) {
    TestBuffer buffer("fixed\ntext");
    buffer->lines.readOnly = 1;
    buffer->lines.modified = 0;
    Type(buffer, 'x');
    RecordEdit(*buffer, Origin, MakePos(1, 0), "", Origin, Show, Origin, Origin);
    EXPECT_EQ(buffer.Text(), "fixed\ntext");
    EXPECT_EQ(buffer.LoggedTransactions(), 0);
    EXPECT_EQ(buffer->lines.modified, 0);
    EXPECT_TRUE(host.boxes.empty());

    MoveCaret(buffer, MakePos(1, 2));
    EXPECT_EQ(buffer->cursor, MakePos(1, 2));
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    EXPECT_EQ(buffer->lines.modified, 0);

    // An undone move is re-recorded before the refused edit, so redo is no longer offered.
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_TRUE(Enabled("EditRedo"));
    Type(buffer, 'y');
    EXPECT_EQ(buffer.LoggedTransactions(), 2);
    EXPECT_FALSE(Enabled("EditRedo"));
    EXPECT_EQ(buffer.Text(), "fixed\ntext");
}

TEST_F(TransactionLogTest, IdenticalReplacementsAndPastesAreRecordedAndReversible) {
    TestBuffer buffer("same\nline two");
    buffer->lines.modified = 0;
    RecordEdit(*buffer, MakePos(0, 0), MakePos(0, 4), "same", MakePos(0, 4), Show, Origin, Origin);
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    EXPECT_EQ(buffer->lines.modified, 1);

    const std::string paste = "one\r\ntwo\r\n\r\nthree";
    const TextPos at = MakePos(1, 4);
    RecordEdit(*buffer, at, at, paste, EndOfInsertion(at, paste), Show, Origin, Origin);
    EXPECT_EQ(buffer.Text(), "same\nlineone\ntwo\n\nthree two");
    EXPECT_EQ(buffer->cursor, MakePos(4, 5));
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer.Text(), "same\nline two");
    EXPECT_EQ(RedoTransaction(*buffer), 0);
    EXPECT_EQ(buffer.Text(), "same\nlineone\ntwo\n\nthree two");
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TransactionLogTest, CarriageReturnsInsideLinesSurviveUndoAndRedo) {
    // A file with CR CR LF line ends keeps one carriage return at the end of its lines.
    TestBuffer buffer("first\r\nsecond\r");
    RecordEdit(*buffer, MakePos(0, 2), MakePos(1, 3), "", MakePos(0, 2), Show, Origin, Origin);
    EXPECT_EQ(buffer.Text(), "fiond\r");
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer.Text(), "first\r\nsecond\r");
    EXPECT_EQ(RedoTransaction(*buffer), 0);
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_TRUE(host.boxes.empty());

    // A pasted CR LF counts its carriage return against the first line, as InsertText does.
    TestBuffer full(std::string(200, 'f'));
    const std::string paste = std::string(55, 'p') + "\r\nz";
    RecordEdit(*full, MakePos(0, 200), MakePos(0, 200), paste, MakePos(1, 1), Show, Origin, Origin);
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Transaction ignored because\nresulting line would become too long. \n");
    EXPECT_EQ(full.Text(), std::string(200, 'f'));
    EXPECT_EQ(full.LoggedTransactions(), 0);
}

TEST_F(TransactionLogTest, CaretMovesAreUndoneWithoutTouchingTheText) {
    TestBuffer buffer("first line\nsecond\nthird");
    buffer->lines.modified = 0;
    MoveCaret(buffer, MakePos(0, 1));
    MoveCaret(buffer, MakePos(1, 1));
    MoveCaret(buffer, MakePos(2, 3));
    EXPECT_EQ(buffer->cursor, MakePos(2, 3));
    host.redrawnLines.clear();
    host.redrawnWindows.clear();
    for (TextPos expected : {MakePos(1, 1), MakePos(0, 1), MakePos(0, 0)}) {
        EXPECT_EQ(UndoTransaction(), 0);
        EXPECT_EQ(buffer->cursor, expected);
        EXPECT_EQ(buffer->anchor, expected);
    }
    EXPECT_EQ(buffer->lines.modified, 0);
    EXPECT_EQ(buffer.Text(), "first line\nsecond\nthird");
    EXPECT_TRUE(host.redrawnLines.empty());
    EXPECT_TRUE(host.redrawnWindows.empty());

    // A selection made by a move is redrawn where it shows, and taken back by undo.
    RecordEdit(*buffer, Origin, Origin, "", MakePos(1, 2), Show, MakePos(1, 2), MakePos(0, 3));
    EXPECT_EQ(buffer->selStart, MakePos(0, 3));
    EXPECT_EQ(buffer->selEnd, MakePos(1, 2));
    EXPECT_EQ(buffer->lines.hasSelection, 1);
    EXPECT_TRUE(Enabled("EditCopy"));
    EXPECT_EQ(host.redrawnLines,
              (std::vector<std::pair<EditBuffer*, int>>{{buffer.get(), 0}, {buffer.get(), 1}}));
    EXPECT_TRUE(host.redrawnWindows.empty());
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_FALSE(Enabled("EditCopy"));
}

TEST_F(TransactionLogTest, OneLineIsRedrawnUnlessLinesOrTheViewChange) {
    TestBuffer buffer("a\nb\nc");
    Type(buffer, 'x');
    EXPECT_EQ(host.redrawnLines.size(), 1u);
    EXPECT_TRUE(host.redrawnWindows.empty());
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(host.redrawnLines.size(), 2u);
    EXPECT_TRUE(host.redrawnWindows.empty());

    RecordEdit(*buffer, MakePos(0, 1), MakePos(0, 1), "\n", MakePos(1, 0), Show, Origin, Origin);
    EXPECT_EQ(host.redrawnWindows.size(), 1u);
    EXPECT_EQ(UndoTransaction(), 0); // the old text held no line feed, the new one did
    EXPECT_EQ(host.redrawnWindows.size(), 2u);
    EXPECT_EQ(host.caretUpdates, 4);

    // Scrolling redraws the whole window even for a one-line change.
    const int scrolls = host.scrollUpdates;
    RecordEdit(*buffer, Origin, Origin, "y", MakePos(0, 1), ScrollTarget{2, 0}, Origin, Origin);
    EXPECT_EQ(buffer->topLine, 2);
    EXPECT_EQ(host.scrollUpdates, scrolls + 1);
    EXPECT_EQ(host.redrawnWindows.size(), 3u);
}

TEST_F(TransactionLogTest, ScrollCodesKeepTheCaretInView) {
    std::string text;
    for (int i = 0; i < 100; ++i)
        text += "line " + std::to_string(i) + "\n";
    TestBuffer buffer(text + "\t\tdeep");
    buffer->visibleLines = 10;
    buffer->visibleColumns = 20;
    auto moveTo = [&](TextPos to, ScrollTarget scroll) {
        RecordEdit(*buffer, Origin, Origin, "", to, scroll, to, to);
    };
    moveTo(MakePos(50, 0), Show);
    EXPECT_EQ(buffer->topLine, 41);
    moveTo(MakePos(45, 0), Show);
    EXPECT_EQ(buffer->topLine, 41);
    moveTo(MakePos(30, 0), Show);
    EXPECT_EQ(buffer->topLine, 30);
    moveTo(MakePos(35, 0), ScrollTarget{ScrollCentreIfHidden, ScrollKeep});
    EXPECT_EQ(buffer->topLine, 30);
    moveTo(MakePos(70, 0), ScrollTarget{ScrollCentreIfHidden, ScrollKeep});
    EXPECT_EQ(buffer->topLine, 65);
    moveTo(MakePos(68, 0), ScrollTarget{ScrollCentre, ScrollKeep});
    EXPECT_EQ(buffer->topLine, 63);
    moveTo(MakePos(2, 0), ScrollTarget{ScrollCentre, ScrollKeep});
    EXPECT_EQ(buffer->topLine, 0);
    moveTo(MakePos(40, 0), ScrollTarget{ScrollKeep, ScrollKeep});
    EXPECT_EQ(buffer->topLine, 31); // never leaves the caret below the window
    moveTo(MakePos(40, 0), ScrollTarget{5, ScrollKeep});
    EXPECT_EQ(buffer->topLine, 31);
    moveTo(MakePos(40, 0), ScrollTarget{35, ScrollKeep});
    EXPECT_EQ(buffer->topLine, 35);

    // Columns: the caret's screen column, tabs expanded, on the line before the edit.
    moveTo(MakePos(100, 6), Show); // screen column 12
    EXPECT_EQ(buffer->leftColumn, 0);
    buffer->visibleColumns = 5;
    moveTo(MakePos(100, 6), Show);
    EXPECT_EQ(buffer->leftColumn, 8);
    moveTo(MakePos(100, 0), Show);
    EXPECT_EQ(buffer->leftColumn, 0);
    moveTo(MakePos(100, 6), ScrollTarget{ScrollKeep, 7});
    EXPECT_EQ(buffer->leftColumn, 7); // one past the edge is allowed with a given value
    moveTo(MakePos(100, 6), ScrollTarget{ScrollKeep, 3});
    EXPECT_EQ(buffer->leftColumn, 8);
    moveTo(MakePos(100, 2), ScrollTarget{ScrollKeep, ScrollKeep});
    EXPECT_EQ(buffer->leftColumn, 8);
    EXPECT_TRUE(host.boxes.empty());

    moveTo(MakePos(3, 0), ScrollTarget{-7, -9});
    EXPECT_EQ(host.ErrorBoxTexts(), "LineScroll Bug\nColumnScroll Bug\n");
    EXPECT_EQ(host.boxes[0].caption, "");
    EXPECT_EQ(host.boxes[1].caption, "");
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
    RecordEdit(*buffer, Origin, Origin, "", MakePos(2, 1), Show, MakePos(2, 1), MakePos(2, 1));
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
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer.Text(), "1abc");
    EXPECT_EQ(UndoTransaction(), 1);
}

TEST_F(TransactionLogTest, CommandStatesFollowOnlyTheBufferOnShow) {
    TestBuffer shown("shown");
    TestBuffer other("other", false);
    Type(other, 'x');
    EXPECT_EQ(other.Text(), "xother");
    EXPECT_FALSE(Enabled("EditUndo"));
    Type(shown, 'y');
    EXPECT_TRUE(Enabled("EditUndo"));
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(shown.Text(), "shown");
    EXPECT_EQ(other.Text(), "xother");
}

} // namespace
} // namespace ruvo
