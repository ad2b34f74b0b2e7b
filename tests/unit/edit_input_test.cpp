// Edit window input: keys, typed characters, clicks, drags, double clicks and the close question.
#include "engine/edit_input.h"

#include <string>
#include <vector>

#include "buffer_builder.h"
#include "docs/documents.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"

namespace ruvo {
namespace {

constexpr int CharWidth = 8;
constexpr int LineHeight = 15;
constexpr int Margin = 7;

class EditInputTest : public EditorTest {
  protected:
    EditInputTest() {
        editor.engine.display.charWidth = CharWidth;
        editor.engine.display.lineHeight = LineHeight;
    }

    // Pixel of the left edge of screen column `column` on window row `row`, a bit inside it.
    static int X(int column, int leftColumn = 0) {
        return (column + Margin - leftColumn) * CharWidth + 1;
    }
    static int Y(int row) { return row * LineHeight + 2; }

    ScreenPoint At(const EditBuffer& buffer, int row, int column) {
        return PointToPos(buffer, X(column, buffer.leftColumn), Y(row));
    }

    static std::string Lines(int count) {
        std::string text;
        for (int i = 0; i < count; ++i) {
            if (i > 0) text += '\n';
            text += "line " + std::to_string(i);
        }
        return text;
    }

    // The calls the compiler support received, as "open" or "show".
    static inline std::vector<std::string> followed;
    void InstallFollowHook() {
        followed.clear();
        editor.engine.input.followMessage = [](EditBuffer&, bool open) {
            followed.push_back(open ? "open" : "show");
        };
    }
};

TEST_F(EditInputTest, KeysMoveTheCaretAndShiftExtendsTheSelection) {
    TestBuffer buffer("entity counter is\n\tport (clk : in bit);\nend counter;");
    buffer->marginColumns = Margin;

    HandleKey(*buffer, KeyEnd, false, false);
    EXPECT_EQ(buffer->cursor, MakePos(0, 17));
    HandleKey(*buffer, KeyHome, false, false);
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    HandleKey(*buffer, KeyRight, false, true); // word right
    EXPECT_EQ(buffer->cursor, MakePos(0, 7));
    HandleKey(*buffer, KeyRight, false, false);
    EXPECT_EQ(buffer->cursor, MakePos(0, 8));
    HandleKey(*buffer, KeyLeft, false, true); // word left
    EXPECT_EQ(buffer->cursor, MakePos(0, 7));
    HandleKey(*buffer, KeyLeft, false, false);
    EXPECT_EQ(buffer->cursor, MakePos(0, 6));
    // Up and down keep the screen column across the tab; Ctrl does not change them.
    HandleKey(*buffer, KeyDown, false, true);
    EXPECT_EQ(buffer->cursor, MakePos(1, 3));
    HandleKey(*buffer, KeyUp, false, false);
    EXPECT_EQ(buffer->cursor, MakePos(0, 6));

    HandleKey(*buffer, KeyEnd, false, true); // end of document
    EXPECT_EQ(buffer->cursor, MakePos(2, 12));
    HandleKey(*buffer, KeyHome, false, true); // start of document
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    HandleKey(*buffer, KeyPageDown, false, true);
    EXPECT_EQ(buffer->cursor, MakePos(2, 12));
    HandleKey(*buffer, KeyPageUp, false, true);
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    EXPECT_EQ(buffer->lines.hasSelection, 0);

    // Shift keeps the anchor where the selection began.
    HandleKey(*buffer, KeyRight, true, true);
    HandleKey(*buffer, KeyDown, true, false);
    EXPECT_EQ(buffer->selStart, MakePos(0, 0));
    EXPECT_EQ(buffer->selEnd, MakePos(1, 4));
    EXPECT_EQ(buffer->lines.hasSelection, 1);
    HandleKey(*buffer, KeyEnd, true, false);
    EXPECT_EQ(buffer->selEnd, MakePos(1, 21));
    // A plain key drops the selection.
    HandleKey(*buffer, KeyLeft, false, false);
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer->cursor, MakePos(1, 20));
    EXPECT_EQ(buffer.Text(), "entity counter is\n\tport (clk : in bit);\nend counter;");
}

TEST_F(EditInputTest, PageKeysMoveByTheWindowHeight) {
    TestBuffer buffer(Lines(100));
    buffer->visibleLines = 10;
    HandleKey(*buffer, KeyPageDown, false, false);
    EXPECT_EQ(buffer->cursor.line, 10);
    EXPECT_EQ(buffer->topLine, 10);
    HandleKey(*buffer, KeyPageDown, true, false);
    EXPECT_EQ(buffer->selStart, MakePos(10, 0));
    EXPECT_EQ(buffer->selEnd, MakePos(20, 0));
    HandleKey(*buffer, KeyPageUp, false, false);
    EXPECT_EQ(buffer->cursor.line, 10);
    EXPECT_EQ(buffer->topLine, 10);
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    HandleKey(*buffer, KeyPageDown, false, true);
    EXPECT_EQ(buffer->cursor, MakePos(99, 7));
    EXPECT_EQ(buffer->topLine, 90);
}

TEST_F(EditInputTest, EditingKeysDeleteCharactersOrTheSelection) {
    TestBuffer buffer("\tbegin\nq <= d;\nend;");
    buffer.PlaceCaret(1, 1);
    HandleKey(*buffer, KeyBack, false, false);
    EXPECT_EQ(buffer.Text(), "\tbegin\n <= d;\nend;");
    HandleKey(*buffer, KeyBack, false, true); // Ctrl makes no difference
    EXPECT_EQ(buffer.Text(), "\tbegin <= d;\nend;");
    EXPECT_EQ(buffer->cursor, MakePos(0, 6));
    HandleKey(*buffer, KeyDelete, false, false);
    EXPECT_EQ(buffer.Text(), "\tbegin<= d;\nend;");

    // With a selection both keys remove it and nothing more.
    HandleKey(*buffer, KeyRight, true, false);
    HandleKey(*buffer, KeyRight, true, false);
    HandleKey(*buffer, KeyDelete, false, false);
    EXPECT_EQ(buffer.Text(), "\tbegin d;\nend;");
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    HandleKey(*buffer, KeyLeft, true, false);
    HandleKey(*buffer, KeyLeft, true, false);
    HandleKey(*buffer, KeyBack, false, false);
    EXPECT_EQ(buffer.Text(), "\tbeg d;\nend;");
    EXPECT_EQ(buffer->cursor, MakePos(0, 4));

    // Return splits the line behind the indentation of the current one.
    HandleKey(*buffer, KeyReturn, false, false);
    EXPECT_EQ(buffer.Text(), "\tbeg\n\t d;\nend;");
    EXPECT_EQ(buffer->cursor, MakePos(1, 1));

    // Keys outside 8..46 and keys without an action leave text and log alone.
    const int logged = buffer.LoggedTransactions();
    for (int key : {7, 9, 16, 17, 32, 47, 112})
        HandleKey(*buffer, key, false, false);
    EXPECT_EQ(buffer.LoggedTransactions(), logged);
    EXPECT_EQ(buffer.Text(), "\tbeg\n\t d;\nend;");
}

TEST_F(EditInputTest, KeysActOnTheBufferOfTheWindowThatGotThem) {
    TestBuffer shown("first");
    TestBuffer other("second", false);
    HandleKey(*other, KeyEnd, false, false);
    EXPECT_EQ(editor.engine.currentBuffer, other.get());
    EXPECT_EQ(other->cursor, MakePos(0, 6));
    EXPECT_EQ(shown->cursor, MakePos(0, 0));
}

TEST_F(EditInputTest, InsertTogglesOverwriteForEveryWindowAndRemakesTheCaret) {
    TestBuffer first("abc");
    TestBuffer second("xyz", false);
    const int updates = host.caretUpdates;
    HandleKey(*first, KeyInsert, false, false);
    EXPECT_TRUE(editor.engine.overwriteMode);
    EXPECT_EQ(host.caretRecreations, 1);
    EXPECT_EQ(host.caretUpdates, updates + 1);

    TypeChar(*second, 'Q');
    EXPECT_EQ(second.Text(), "Qyz");
    HandleKey(*second, KeyInsert, false, true);
    EXPECT_FALSE(editor.engine.overwriteMode);
    EXPECT_EQ(host.caretRecreations, 2);
    TypeChar(*second, 'R');
    EXPECT_EQ(second.Text(), "QRyz");
    EXPECT_EQ(first.LoggedTransactions(), 0); // the mode switch itself records nothing
}

TEST_F(EditInputTest, TypingReplacesTheSelectionWithOneCharacter) {
    TestBuffer buffer("line zero\nab|cdef\nmiddle\nlast line");
    buffer.Select(MakePos(3, 0), MakePos(1, 2));
    const int logged = buffer.LoggedTransactions();
    TypeChar(*buffer, 'X');
    EXPECT_EQ(buffer.Text(), "line zero\nabXlast line");
    EXPECT_EQ(buffer->cursor, MakePos(1, 3));
    EXPECT_EQ(buffer->anchor, MakePos(1, 3));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer->selStart, MakePos(0, 0));
    EXPECT_EQ(buffer->selEnd, MakePos(0, 0));
    EXPECT_EQ(buffer.LoggedTransactions(), logged + 1);

    // One undo brings back the three lines.
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer.Text(), "line zero\nab|cdef\nmiddle\nlast line");

    // Even in overwrite mode the selection is what gets replaced.
    editor.engine.overwriteMode = true;
    buffer.Select(MakePos(0, 0), MakePos(0, 4));
    TypeChar(*buffer, 'Y');
    EXPECT_EQ(buffer.Text(), "Y zero\nab|cdef\nmiddle\nlast line");
    EXPECT_EQ(buffer->cursor, MakePos(0, 1));
}

TEST_F(EditInputTest, EachTypedCharacterIsOneTransaction) {
    TestBuffer buffer("");
    for (char c : std::string("a <= b;"))
        TypeChar(*buffer, c);
    EXPECT_EQ(buffer.Text(), "a <= b;");
    EXPECT_EQ(buffer.LoggedTransactions(), 7);
    EXPECT_EQ(buffer->cursor, MakePos(0, 7));
    EXPECT_EQ(buffer->anchor, MakePos(0, 7));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(EditUndo(), 0);
    EXPECT_EQ(buffer.Text(), "a <=");
    EXPECT_EQ(buffer->cursor, MakePos(0, 4));
}

TEST_F(EditInputTest, OverwriteReplacesOnlyACharacterUnderTheCaret) {
    TestBuffer buffer("abc\nxy");
    editor.engine.overwriteMode = true;
    buffer.PlaceCaret(0, 1);
    TypeChar(*buffer, 'B');
    TypeChar(*buffer, 'C');
    EXPECT_EQ(buffer.Text(), "aBC\nxy");
    // At the line end there is nothing under the caret: the characters are inserted and the
    // next line stays where it is.
    TypeChar(*buffer, 'D');
    TypeChar(*buffer, 'E');
    EXPECT_EQ(buffer.Text(), "aBCDE\nxy");
    EXPECT_EQ(buffer->cursor, MakePos(0, 5));
    // A tab overwrites like any character and is stored as a tab.
    buffer.PlaceCaret(1, 0);
    TypeChar(*buffer, '\t');
    EXPECT_EQ(buffer.Text(), "aBCDE\n\ty");
}

TEST_F(EditInputTest, OnlyTabAndCodes32To254AreTyped) {
    TestBuffer buffer("");
    for (int code : {0, 1, 8, 10, 13, 27, 31, 255, 256, -1, 1000})
        TypeChar(*buffer, code);
    EXPECT_EQ(buffer.Text(), "");
    EXPECT_EQ(buffer.LoggedTransactions(), 0);
    for (int code : {9, 32, 127, 128, 200, 254})
        TypeChar(*buffer, code);
    EXPECT_EQ(buffer.Text(), std::string("\t \x7f\x80\xc8\xfe"));
}

TEST_F(EditInputTest, TypingIntoAFullLineIsRefusedWithTheLogMessage) {
    TestBuffer buffer(std::string(255, 'w'));
    buffer.PlaceCaret(0, 100);
    TypeChar(*buffer, 'z');
    EXPECT_EQ(buffer.Text(), std::string(255, 'w'));
    ASSERT_FALSE(host.boxes.empty());
    EXPECT_EQ(host.boxes.back().text,
              "Transaction ignored because\nresulting line would become too long. ");
    EXPECT_EQ(buffer->cursor, MakePos(0, 100));

    // Overwriting keeps the length, so it still works.
    editor.engine.overwriteMode = true;
    TypeChar(*buffer, 'z');
    EXPECT_EQ(buffer.Text(), std::string(100, 'w') + "z" + std::string(154, 'w'));
}

TEST_F(EditInputTest, ReadOnlyBufferTakesNoTypingButTheCaretStillMoves) {
    TestBuffer buffer("fixed");
    buffer->lines.readOnly = 1;
    TypeChar(*buffer, 'x');
    HandleKey(*buffer, KeyDelete, false, false);
    HandleKey(*buffer, KeyReturn, false, false);
    EXPECT_EQ(buffer.Text(), "fixed");
    HandleKey(*buffer, KeyEnd, false, false);
    EXPECT_EQ(buffer->cursor, MakePos(0, 5));
}

TEST_F(EditInputTest, PointsBecomeLinesAndColumnsWithHalfCharacterRounding) {
    TestBuffer buffer(Lines(50));
    buffer->marginColumns = Margin;
    const int textLeft = Margin * CharWidth;
    EXPECT_EQ(PointToPos(*buffer, textLeft, 0), (ScreenPoint{0, 0}));
    EXPECT_EQ(PointToPos(*buffer, textLeft + 3, 14), (ScreenPoint{0, 0})); // left half
    EXPECT_EQ(PointToPos(*buffer, textLeft + 4, 15), (ScreenPoint{1, 1})); // right half
    EXPECT_EQ(PointToPos(*buffer, textLeft + 20, 44), (ScreenPoint{2, 3}));
    EXPECT_EQ(PointToPos(*buffer, 0, 0).screenColumn, -7); // in the margin

    buffer->topLine = 30;
    buffer->leftColumn = 5;
    EXPECT_EQ(PointToPos(*buffer, textLeft + 4, 16), (ScreenPoint{31, 6}));
    // Divisions truncate: a point a little above the window is still on the top row.
    EXPECT_EQ(PointToPos(*buffer, textLeft, -14).line, 30);
    EXPECT_EQ(PointToPos(*buffer, textLeft, -15).line, 29);
}

TEST_F(EditInputTest, ClickOnTheRightHalfOfACharacterPutsTheCaretAfterIt) {
    TestBuffer buffer("abcdef\n\tx");
    buffer->marginColumns = Margin;
    const int textLeft = Margin * CharWidth;
    ClickAt(*buffer, 0, PointToPos(*buffer, textLeft + 2 * CharWidth + 3, 0).screenColumn, false);
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));
    ClickAt(*buffer, 0, PointToPos(*buffer, textLeft + 2 * CharWidth + 5, 0).screenColumn, false);
    EXPECT_EQ(buffer->cursor, MakePos(0, 3));
    // Inside a tab's span the caret goes after the tab; past the end of a line to its end;
    // below the text to the last line.
    ClickAt(*buffer, 1, 3, false);
    EXPECT_EQ(buffer->cursor, MakePos(1, 1));
    ClickAt(*buffer, 0, 40, false);
    EXPECT_EQ(buffer->cursor, MakePos(0, 6));
    ClickAt(*buffer, 9, 0, false);
    EXPECT_EQ(buffer->cursor, MakePos(1, 0));
    // A click in the margin lands at the line start.
    ClickAt(*buffer, 0, -5, false);
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer.LoggedTransactions(), 6);
}

TEST_F(EditInputTest, ShiftClickExtendsFromTheAnchorAndStartsNoDrag) {
    TestBuffer buffer(Lines(10));
    buffer->marginColumns = Margin;
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 2, 3), false, false));
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->lines.hasSelection, 0);

    EXPECT_FALSE(ButtonPressed(*buffer, At(*buffer, 5, 1), true, false));
    EXPECT_FALSE(editor.engine.input.dragging);
    EXPECT_EQ(buffer->selStart, MakePos(2, 3));
    EXPECT_EQ(buffer->selEnd, MakePos(5, 1));
    // A second Shift-click moves the free end; the anchor stays.
    EXPECT_FALSE(ButtonPressed(*buffer, At(*buffer, 0, 4), true, false));
    EXPECT_EQ(buffer->selStart, MakePos(0, 4));
    EXPECT_EQ(buffer->selEnd, MakePos(2, 3));
    EXPECT_EQ(buffer->cursor, MakePos(0, 4));
    // The release without a drag records nothing.
    const int logged = buffer.LoggedTransactions();
    EXPECT_FALSE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer.LoggedTransactions(), logged);
}

TEST_F(EditInputTest, DragSelectsAndTheReleaseRecordsOneTransaction) {
    TestBuffer buffer(Lines(10));
    buffer->marginColumns = Margin;
    HandleKey(*buffer, KeyDown, false, false);
    HandleKey(*buffer, KeyRight, true, false); // selection (1,0)-(1,1) before the drag
    const int before = buffer.LoggedTransactions();

    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 2, 3), false, true));
    EXPECT_TRUE(editor.engine.input.dragging);
    EXPECT_TRUE(editor.engine.input.rightButtonDrag);
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    PointerMoved(*buffer, At(*buffer, 3, 4));
    PointerMoved(*buffer, At(*buffer, 4, 5));
    EXPECT_EQ(buffer->selStart, MakePos(2, 3));
    EXPECT_EQ(buffer->selEnd, MakePos(4, 5));
    EXPECT_EQ(buffer->cursor, MakePos(4, 5));
    EXPECT_EQ(buffer.LoggedTransactions(), before); // press and drag record nothing
    EXPECT_TRUE(host.pointerNudges.empty());        // inside the window nothing scrolls

    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_FALSE(editor.engine.input.dragging);
    EXPECT_FALSE(editor.engine.input.rightButtonDrag);
    EXPECT_EQ(buffer.LoggedTransactions(), before + 1);
    EXPECT_EQ(buffer->selStart, MakePos(2, 3));
    EXPECT_EQ(buffer->selEnd, MakePos(4, 5));
    EXPECT_EQ(buffer->anchor, MakePos(4, 5));
    // Moves after the release select nothing more but still clear the message pane.
    host.statusTexts.clear();
    PointerMoved(*buffer, At(*buffer, 6, 0));
    EXPECT_EQ(buffer->selEnd, MakePos(4, 5));
    ASSERT_EQ(host.statusTexts.size(), 1u);
    EXPECT_EQ(host.statusTexts[0].pane, 4);
    EXPECT_EQ(host.statusTexts[0].text, "");

    // One undo brings back the caret and selection from before the press; redo the drag's.
    EXPECT_EQ(EditUndo(), 0);
    EXPECT_EQ(buffer->cursor, MakePos(1, 1));
    EXPECT_EQ(buffer->selStart, MakePos(1, 0));
    EXPECT_EQ(buffer->selEnd, MakePos(1, 1));
    EXPECT_EQ(EditRedo(), 0);
    EXPECT_EQ(buffer->selStart, MakePos(2, 3));
    EXPECT_EQ(buffer->selEnd, MakePos(4, 5));
    EXPECT_EQ(buffer->cursor, MakePos(4, 5));

    // A click without moving is one step too.
    const int clicked = buffer.LoggedTransactions();
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 7, 2), false, false));
    EXPECT_EQ(buffer->cursor, MakePos(7, 2));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer.LoggedTransactions(), clicked + 1);
    EXPECT_EQ(EditUndo(), 0);
    EXPECT_EQ(buffer->selStart, MakePos(2, 3));
    EXPECT_EQ(buffer->selEnd, MakePos(4, 5));
}

TEST_F(EditInputTest, DragBelowTheWindowScrollsOneLinePerMoveUntilTheLastLine) {
    TestBuffer buffer(Lines(30));
    buffer->marginColumns = Margin;
    buffer->visibleLines = 10;
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 5, 2), false, false));

    // The pointer rests just below the window; every nudge brings another move message.
    std::vector<int32_t> tops{buffer->topLine};
    for (int moves = 0; moves < 100; ++moves) {
        const size_t nudges = host.pointerNudges.size();
        PointerMoved(*buffer, At(*buffer, 10, 2));
        tops.push_back(buffer->topLine);
        if (host.pointerNudges.size() == nudges) break;
    }
    for (size_t i = 1; i < tops.size(); ++i)
        EXPECT_LE(tops[i] - tops[i - 1], 1) << "move " << i;
    // The caret rides on the partly visible row below the last full one.
    EXPECT_EQ(buffer->topLine, 19);
    EXPECT_EQ(buffer->cursor, MakePos(29, 2));
    EXPECT_EQ(host.pointerNudges.size(), tops.size() - 2); // the last move did not nudge
    for (size_t i = 1; i < host.pointerNudges.size(); ++i)
        EXPECT_NE(host.pointerNudges[i], host.pointerNudges[i - 1]); // it jiggles
    EXPECT_EQ(host.scrollBarCalls.back(), "V pos 19");
    EXPECT_FALSE(host.redrawnWindows.empty());

    // A further move does not nudge again.
    const size_t nudges = host.pointerNudges.size();
    PointerMoved(*buffer, At(*buffer, 12, 2));
    EXPECT_EQ(host.pointerNudges.size(), nudges);

    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->selStart, MakePos(5, 2));
    EXPECT_EQ(buffer->selEnd, MakePos(29, 2));
    EXPECT_EQ(buffer->topLine, 20);
}

TEST_F(EditInputTest, DragFromTheLastFullRowScrollsAtTheFirstMoveBelow) {
    TestBuffer buffer(Lines(30));
    buffer->marginColumns = Margin;
    buffer->visibleLines = 10;
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 9, 1), false, false));
    PointerMoved(*buffer, At(*buffer, 10, 1));
    EXPECT_EQ(buffer->topLine, 1);
    EXPECT_EQ(buffer->cursor, MakePos(11, 1));
    EXPECT_EQ(host.pointerNudges.size(), 1u);
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->topLine, 2); // the release shows the caret's line whole
}

TEST_F(EditInputTest, DragAboveTheWindowScrollsUpToTheFirstLine) {
    TestBuffer buffer(Lines(40));
    buffer->marginColumns = Margin;
    buffer->visibleLines = 10;
    HandleKey(*buffer, KeyPageDown, false, false);
    HandleKey(*buffer, KeyPageDown, false, false);
    ASSERT_EQ(buffer->topLine, 20);
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 3, 4), false, false));
    EXPECT_EQ(buffer->cursor, MakePos(23, 4));

    int moves = 0;
    for (; moves < 100; ++moves) {
        const size_t nudges = host.pointerNudges.size();
        PointerMoved(*buffer, PointToPos(*buffer, (Margin + 4) * CharWidth, -LineHeight - 1));
        if (host.pointerNudges.size() == nudges) break;
    }
    EXPECT_EQ(moves, 22); // one line per move from 23 to 1; the move reaching 0 stops
    EXPECT_EQ(buffer->cursor.line, 0);
    EXPECT_EQ(buffer->topLine, 0);
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->selStart.line, 0);
    EXPECT_EQ(buffer->selEnd, MakePos(23, 4));
}

TEST_F(EditInputTest, DoubleClickSelectsTheWordAsOneStep) {
    TestBuffer buffer("  signal count_2 : integer;");
    buffer->marginColumns = Margin;
    const int logged = buffer.LoggedTransactions();
    DoubleClicked(*buffer, At(*buffer, 0, 11));
    EXPECT_EQ(buffer->selStart, MakePos(0, 9));
    EXPECT_EQ(buffer->selEnd, MakePos(0, 16));
    EXPECT_EQ(buffer->cursor, MakePos(0, 16));
    EXPECT_EQ(buffer.LoggedTransactions(), logged + 1);
    // On a blank there is no word: the caret only moves there.
    DoubleClicked(*buffer, At(*buffer, 0, 1));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer->cursor, MakePos(0, 1));
    EXPECT_EQ(EditUndo(), 0);
    EXPECT_EQ(buffer->selStart, MakePos(0, 9));
    EXPECT_EQ(buffer->selEnd, MakePos(0, 16));
}

TEST_F(EditInputTest, MessageWindowsHandTheCaretLineToTheCompilerSupport) {
    InstallFollowHook();
    TestBuffer report("** Error: a.vhd(3): x\n** Error: a.vhd(9): y");
    report->windowKind = KindMessage;
    report->marginColumns = Margin;

    HandleKey(*report, KeyDown, false, false);
    HandleKey(*report, 16, false, false);  // Shift alone is a key in range too
    HandleKey(*report, 112, false, false); // F1 is not
    EXPECT_EQ(followed, (std::vector<std::string>{"show", "show"}));
    EXPECT_EQ(report->cursor.line, 1);

    // Typing does nothing; Return opens the message.
    followed.clear();
    CharacterEntered(*report, 'x');
    CharacterEntered(*report, '\r');
    EXPECT_EQ(report.Text(), "** Error: a.vhd(3): x\n** Error: a.vhd(9): y");
    EXPECT_EQ(followed, (std::vector<std::string>{"open"}));

    // A click shows the clicked line's message, a Shift-click only selects, a double click
    // opens without selecting a word.
    followed.clear();
    EXPECT_TRUE(ButtonPressed(*report, At(*report, 0, 3), false, false));
    EXPECT_EQ(report->cursor, MakePos(0, 3));
    EXPECT_TRUE(ButtonReleased(*report));
    EXPECT_FALSE(ButtonPressed(*report, At(*report, 1, 3), true, false));
    DoubleClicked(*report, At(*report, 1, 4));
    EXPECT_EQ(followed, (std::vector<std::string>{"show", "open"}));
    EXPECT_EQ(report->cursor, MakePos(1, 3));

    // Documents never call it.
    followed.clear();
    TestBuffer document("text");
    HandleKey(*document, KeyEnd, false, false);
    CharacterEntered(*document, '!');
    CharacterEntered(*document, '\r'); // Return arrives as a key, not as a character
    DoubleClicked(*document, At(*document, 0, 1));
    EXPECT_TRUE(followed.empty());
    EXPECT_EQ(document.Text(), "text!");
}

TEST_F(EditInputTest, MessageWindowsWorkWithoutTheCompilerSupport) {
    TestBuffer report("line a\nline b");
    report->windowKind = KindMessage;
    HandleKey(*report, KeyDown, false, false);
    CharacterEntered(*report, '\r');
    DoubleClicked(*report, At(*report, 0, 0));
    EXPECT_EQ(report->cursor.line, 1);
    EXPECT_EQ(report.Text(), "line a\nline b");
}

class CloseQuestionTest : public EditInputTest {
  protected:
    EditBuffer& Open(const std::string& path, int createNew = 0) {
        EXPECT_EQ(openFile(path, createNew, 0, KindDocument), 0);
        return *editor.engine.currentBuffer;
    }
    TempFolder folder;
};

TEST_F(CloseQuestionTest, OnlyAModifiedDocumentAsks) {
    const std::string path = folder.File("quiet.vhd");
    WriteBytes(path, "entity quiet is end;\r\n");
    EditBuffer& quiet = Open(path);
    EXPECT_EQ(QueryCloseBuffer(quiet), 1);

    EditBuffer& report = Open(folder.File("report.txt"), 1);
    report.windowKind = KindMessage;
    TypeChar(report, 'x');
    ASSERT_EQ(report.lines.modified, 1);
    EXPECT_EQ(QueryCloseBuffer(report), 1);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(CloseQuestionTest, AnswersCancelNoAndYes) {
    const std::string path = folder.File("counter.vhd");
    WriteBytes(path, "entity counter is\r\nend counter;\r\n");
    EditBuffer& buffer = Open(path);
    TypeChar(buffer, '-');

    host.answers = {AnswerCancel, AnswerNo, AnswerYes};
    EXPECT_EQ(QueryCloseBuffer(buffer), 0);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].caption, "Editor contents modified");
    EXPECT_EQ(host.boxes[0].text, "Edit buffer '" + path + "'\nis modified, Save changes ?");
    EXPECT_EQ(host.boxes[0].kind, static_cast<int>(QuestionKind::YesNoCancel));

    EXPECT_EQ(QueryCloseBuffer(buffer), 1);
    EXPECT_EQ(ReadBytes(path), "entity counter is\r\nend counter;\r\n");
    EXPECT_EQ(buffer.lines.modified, 1);

    EXPECT_EQ(QueryCloseBuffer(buffer), 1);
    EXPECT_EQ(ReadBytes(path), "-entity counter is\r\nend counter;\r\n");
    EXPECT_EQ(buffer.lines.modified, 0);
    EXPECT_EQ(host.boxes.size(), 3u);
}

TEST_F(CloseQuestionTest, AFailedOrCancelledSaveKeepsTheWindowOpen) {
    EditBuffer& lost = Open(folder.File("no/such/folder/x.vhd"), 1);
    TypeChar(lost, 'x');
    host.answers = {AnswerYes};
    EXPECT_EQ(QueryCloseBuffer(lost), 0);
    EXPECT_EQ(lost.lines.modified, 1);

    // An unnamed buffer asks for a name; cancelling that dialog cancels the close.
    newOrOpen("", 1);
    EditBuffer& untitled = *editor.engine.currentBuffer;
    TypeChar(untitled, 'y');
    host.answers = {AnswerYes};
    EXPECT_EQ(QueryCloseBuffer(untitled), 0);
    EXPECT_EQ(host.fileDialogs.size(), 1u);
    EXPECT_EQ(untitled.lines.modified, 1);
}

} // namespace
} // namespace ruvo
