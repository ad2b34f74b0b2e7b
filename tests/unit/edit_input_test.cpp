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

    // The point a bit inside screen column `column` of window row `row`.
    ScreenPoint At(const EditBuffer& buffer, int row, int column) {
        return PointToPos(buffer, (column + Margin - buffer.leftColumn) * CharWidth + 1,
                          row * LineHeight + 2);
    }

    static std::string Lines(int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += (i > 0 ? "\nline " : "line ") + std::to_string(i);
        return text;
    }

    // A 10-row window with the line-number margin.
    EditBuffer& Tall(TestBuffer& buffer) {
        buffer->marginColumns = Margin;
        buffer->visibleLines = 10;
        return *buffer;
    }

    // Moves the pointer to pixel row `y` until a move brings no nudge; the top line after each.
    std::vector<int32_t> DragUntilStill(EditBuffer& buffer, int y) {
        std::vector<int32_t> tops;
        for (int moves = 0; moves < 100; ++moves) {
            const size_t nudges = host.pointerNudges.size();
            PointerMoved(buffer, PointToPos(buffer, (Margin + 2) * CharWidth, y));
            tops.push_back(buffer.topLine);
            if (host.pointerNudges.size() == nudges) break;
        }
        return tops;
    }
};

TEST_F(EditInputTest, KeysMoveTheCaretAndShiftExtendsTheSelection) {
    const std::string text = "entity counter is\n\tport (clk : in bit);\nend counter;";
    TestBuffer buffer(text);
    const struct {
        int key;
        bool shift, ctrl;
        TextPos caret;
    } steps[] = {
        {KeyEnd, false, false, {0, 17}},     {KeyHome, false, false, {0, 0}},
        {KeyRight, false, true, {0, 7}},     {KeyRight, false, false, {0, 8}},
        {KeyLeft, false, true, {0, 7}},      {KeyLeft, false, false, {0, 6}},
        {KeyDown, false, true, {1, 3}},      {KeyUp, false, false, {0, 6}}, // across the tab
        {KeyEnd, false, true, {2, 12}},      {KeyHome, false, true, {0, 0}},
        {KeyPageDown, false, true, {2, 12}}, {KeyPageUp, false, true, {0, 0}},
        {KeyRight, true, true, {0, 7}},      {KeyDown, true, false, {1, 4}},
        {KeyEnd, true, false, {1, 21}},      {KeyLeft, false, false, {1, 20}},
    };
    for (const auto& step : steps) {
        HandleKey(*buffer, step.key, step.shift, step.ctrl);
        EXPECT_EQ(buffer->cursor, step.caret) << step.key;
        if (step.shift) {
            EXPECT_EQ(buffer->selStart, MakePos(0, 0)); // the anchor stays where it began
            EXPECT_EQ(buffer->selEnd, step.caret);
        }
        EXPECT_EQ(buffer->lines.hasSelection, step.shift ? 1 : 0);
    }
    EXPECT_EQ(buffer.Text(), text);

    // Page keys move by the window height and scroll with it.
    TestBuffer tall(Lines(100));
    tall->visibleLines = 10;
    const struct {
        int key;
        bool shift, ctrl;
        TextPos caret;
        int32_t top;
    } pages[] = {{KeyPageDown, false, false, {10, 0}, 10}, {KeyPageDown, true, false, {20, 0}, 20},
                 {KeyPageUp, false, false, {10, 0}, 10},   {KeyPageDown, false, true, {99, 7}, 90}};
    for (const auto& page : pages) {
        HandleKey(*tall, page.key, page.shift, page.ctrl);
        EXPECT_EQ(tall->cursor, page.caret);
        EXPECT_EQ(tall->topLine, page.top);
        EXPECT_EQ(tall->lines.hasSelection, page.shift ? 1 : 0);
    }
}

TEST_F(EditInputTest, EditingKeysDeleteCharactersOrTheSelection) {
    TestBuffer buffer("\tbegin\nq <= d;\nend;");
    buffer.PlaceCaret(1, 1);
    HandleKey(*buffer, KeyBack, false, false);
    HandleKey(*buffer, KeyBack, false, true); // Ctrl makes no difference
    EXPECT_EQ(buffer.Text(), "\tbegin <= d;\nend;");
    EXPECT_EQ(buffer->cursor, MakePos(0, 6));
    HandleKey(*buffer, KeyDelete, false, false);
    EXPECT_EQ(buffer.Text(), "\tbegin<= d;\nend;");

    // With a selection both keys remove it and nothing more.
    buffer.Select(MakePos(0, 6), MakePos(0, 8));
    HandleKey(*buffer, KeyDelete, false, false);
    EXPECT_EQ(buffer.Text(), "\tbegin d;\nend;");
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    buffer.Select(MakePos(0, 6), MakePos(0, 4));
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

    // A read-only buffer takes no editing key or typing, but the caret still moves.
    buffer->lines.readOnly = 1;
    TypeChar(*buffer, 'x');
    HandleKey(*buffer, KeyDelete, false, false);
    HandleKey(*buffer, KeyReturn, false, false);
    HandleKey(*buffer, KeyEnd, false, false);
    EXPECT_EQ(buffer.Text(), "\tbeg\n\t d;\nend;");
    EXPECT_EQ(buffer->cursor, MakePos(1, 4));
}

TEST_F(EditInputTest, InsertTogglesOverwriteForEveryWindowAndKeysActOnTheirOwnBuffer) {
    TestBuffer first("abc");
    TestBuffer second("xyz", false);
    HandleKey(*first, KeyInsert, false, false);
    EXPECT_TRUE(editor.engine.overwriteMode);
    EXPECT_EQ(host.caretRecreations, 1);

    TypeChar(*second, 'Q');
    EXPECT_EQ(second.Text(), "Qyz");
    HandleKey(*second, KeyInsert, false, true);
    EXPECT_FALSE(editor.engine.overwriteMode);
    EXPECT_EQ(host.caretRecreations, 2);
    TypeChar(*second, 'R');
    EXPECT_EQ(second.Text(), "QRyz");
    EXPECT_EQ(first.LoggedTransactions(), 0); // the mode switch itself records nothing

    // The window that got the key becomes the current one.
    HandleKey(*second, KeyEnd, false, false);
    EXPECT_EQ(editor.engine.currentBuffer, second.get());
    EXPECT_EQ(second->cursor, MakePos(0, 4));
    EXPECT_EQ(first->cursor, MakePos(0, 0));
}

TEST_F(EditInputTest, TypingReplacesTheSelectionWithOneCharacter) {
    const std::string text = "line zero\nab|cdef\nmiddle\nlast line";
    TestBuffer buffer(text);
    buffer.Select(MakePos(3, 0), MakePos(1, 2));
    const int logged = buffer.LoggedTransactions();
    TypeChar(*buffer, 'X');
    EXPECT_EQ(buffer.Text(), "line zero\nabXlast line");
    EXPECT_EQ(buffer->cursor, MakePos(1, 3));
    EXPECT_EQ(buffer->anchor, MakePos(1, 3));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer.LoggedTransactions(), logged + 1);
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(buffer.Text(), text);

    // Even in overwrite mode the selection is what gets replaced.
    editor.engine.overwriteMode = true;
    buffer.Select(MakePos(0, 0), MakePos(0, 4));
    TypeChar(*buffer, 'Y');
    EXPECT_EQ(buffer.Text(), "Y zero\nab|cdef\nmiddle\nlast line");
    EXPECT_EQ(buffer->cursor, MakePos(0, 1));
}

TEST_F(EditInputTest, OnlyTabAndCodes32To254AreTypedEachAsOneTransaction) {
    TestBuffer buffer("");
    for (int code : {0, 1, 8, 10, 13, 27, 31, 255, 256, -1, 1000})
        TypeChar(*buffer, code);
    EXPECT_EQ(buffer.LoggedTransactions(), 0);
    for (int code : {9, 32, 127, 128, 200, 254})
        TypeChar(*buffer, code);
    EXPECT_EQ(buffer.Text(), std::string("\t \x7f\x80\xc8\xfe"));
    EXPECT_EQ(buffer.LoggedTransactions(), 6);
}

TEST_F(EditInputTest, OverwriteReplacesOnlyACharacterUnderTheCaret) {
    TestBuffer buffer("abc\nxy");
    editor.engine.overwriteMode = true;
    buffer.PlaceCaret(0, 1);
    for (char c : std::string("BCDE"))
        TypeChar(*buffer, c);
    // At the line end there is nothing under the caret: D and E are inserted.
    EXPECT_EQ(buffer.Text(), "aBCDE\nxy");
    EXPECT_EQ(buffer->cursor, MakePos(0, 5));
    buffer.PlaceCaret(1, 0);
    TypeChar(*buffer, '\t');
    EXPECT_EQ(buffer.Text(), "aBCDE\n\ty");

    // A full line refuses an inserted character with the log's message, but can be overwritten.
    TestBuffer full(std::string(255, 'w'));
    full.PlaceCaret(0, 100);
    editor.engine.overwriteMode = false;
    TypeChar(*full, 'z');
    EXPECT_EQ(full.Text(), std::string(255, 'w'));
    EXPECT_EQ(full->cursor, MakePos(0, 100));
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text,
              "Transaction ignored because\nresulting line would become too long. ");
    editor.engine.overwriteMode = true;
    TypeChar(*full, 'z');
    EXPECT_EQ(full.Text(), std::string(100, 'w') + "z" + std::string(154, 'w'));
}

TEST_F(EditInputTest, PointsBecomePositionsAndClicksLandAfterARightHalf) {
    TestBuffer buffer("abcdef\n\tx");
    buffer->marginColumns = Margin;
    const int left = Margin * CharWidth;
    const struct {
        int x, y;
        ScreenPoint expected;
    } points[] = {
        {left, 0, {0, 0}},       {left + 3, 14, {0, 0}},  {left + 4, 15, {1, 1}},
        {left + 20, 44, {2, 3}}, {0, 0, {0, -7}},         {left + 19, 0, {0, 2}},
        {left + 21, 0, {0, 3}},
    };
    for (const auto& p : points)
        EXPECT_EQ(PointToPos(*buffer, p.x, p.y), p.expected) << p.x << "," << p.y;
    buffer->topLine = 30;
    buffer->leftColumn = 5;
    EXPECT_EQ(PointToPos(*buffer, left + 4, 16), (ScreenPoint{31, 6}));
    // Divisions truncate: a point a little above the window is still on the top row.
    EXPECT_EQ(PointToPos(*buffer, left, -14).line, 30);
    EXPECT_EQ(PointToPos(*buffer, left, -15).line, 29);

    // In a tab's span the caret goes after the tab; past a line's end to its end; below the
    // text to the last line; in the margin to the line start.
    const struct {
        int32_t line;
        int column;
        TextPos caret;
    } clicks[] = {{0, 3, {0, 3}}, {1, 3, {1, 1}}, {0, 40, {0, 6}}, {9, 0, {1, 0}}, {0, -5, {0, 0}}};
    for (const auto& click : clicks) {
        ClickAt(*buffer, click.line, click.column, false);
        EXPECT_EQ(buffer->cursor, click.caret) << click.line << "," << click.column;
    }
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer.LoggedTransactions(), 5);
}

TEST_F(EditInputTest, ShiftClickExtendsFromTheAnchorAndStartsNoDrag) {
    TestBuffer buffer(Lines(10));
    buffer->marginColumns = Margin;
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 2, 3), false, false));
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_FALSE(ButtonPressed(*buffer, At(*buffer, 5, 1), true, false));
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

TEST_F(EditInputTest, DragSelectsAndOneUndoRestoresTheEarlierCaretAndSelection) {
    TestBuffer buffer(Lines(10));
    buffer->marginColumns = Margin;
    HandleKey(*buffer, KeyDown, false, false);
    HandleKey(*buffer, KeyRight, true, false); // selection (1,0)-(1,1) before the drag
    const int before = buffer.LoggedTransactions();

    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 2, 3), false, true)); // the right button
    PointerMoved(*buffer, At(*buffer, 3, 4));
    PointerMoved(*buffer, At(*buffer, 4, 5));
    EXPECT_EQ(buffer->selEnd, MakePos(4, 5));
    EXPECT_EQ(buffer.LoggedTransactions(), before); // press and drag record nothing
    EXPECT_TRUE(host.pointerNudges.empty());        // inside the window nothing scrolls

    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer.LoggedTransactions(), before + 1);
    // Moves after the release select nothing more but still clear the message pane.
    host.statusTexts.clear();
    PointerMoved(*buffer, At(*buffer, 6, 0));
    EXPECT_EQ(buffer->selEnd, MakePos(4, 5));
    ASSERT_EQ(host.statusTexts.size(), 1u);
    EXPECT_EQ(host.statusTexts[0].pane, 4);
    EXPECT_EQ(host.statusTexts[0].text, "");

    const auto expectSelection = [&](TextPos from, TextPos to, TextPos caret) {
        EXPECT_EQ(buffer->selStart, from);
        EXPECT_EQ(buffer->selEnd, to);
        EXPECT_EQ(buffer->cursor, caret);
    };
    EXPECT_EQ(EditUndo(), 0);
    expectSelection(MakePos(1, 0), MakePos(1, 1), MakePos(1, 1));
    EXPECT_EQ(EditRedo(), 0);
    expectSelection(MakePos(2, 3), MakePos(4, 5), MakePos(4, 5));

    // A click without moving is one step too.
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 7, 2), false, false));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->cursor, MakePos(7, 2));
    EXPECT_EQ(EditUndo(), 0);
    expectSelection(MakePos(2, 3), MakePos(4, 5), MakePos(4, 5));
}

TEST_F(EditInputTest, DragPastTheWindowScrollsOneLinePerMoveUntilTheLastLine) {
    TestBuffer buffer(Lines(30));
    Tall(buffer);
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 5, 2), false, false));

    // The pointer rests just below the window; every nudge brings another move message.
    const std::vector<int32_t> tops = DragUntilStill(*buffer, 10 * LineHeight + 2);
    for (size_t i = 0; i < tops.size(); ++i)
        EXPECT_LE(tops[i] - (i > 0 ? tops[i - 1] : 0), 1) << "move " << i;
    EXPECT_EQ(buffer->topLine, 19);
    // The caret rides on the partly visible row below the last full one.
    EXPECT_EQ(buffer->cursor, MakePos(29, 2));
    EXPECT_EQ(host.pointerNudges.size(), tops.size() - 1); // the last move did not nudge
    for (size_t i = 1; i < host.pointerNudges.size(); ++i)
        EXPECT_NE(host.pointerNudges[i], host.pointerNudges[i - 1]); // it jiggles
    EXPECT_EQ(host.scrollBarCalls.back(), "V pos 19");
    EXPECT_EQ(DragUntilStill(*buffer, 12 * LineHeight).size(), 1u);

    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->selStart, MakePos(5, 2));
    EXPECT_EQ(buffer->selEnd, MakePos(29, 2));
    EXPECT_EQ(buffer->topLine, 20);

    // Above the window it scrolls up the same way; the move reaching line 0 stops nudging.
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 3, 4), false, false));
    EXPECT_EQ(buffer->cursor, MakePos(23, 4));
    EXPECT_EQ(DragUntilStill(*buffer, -LineHeight - 1).size(), 23u);
    EXPECT_EQ(buffer->topLine, 0);
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->selStart, MakePos(0, 2));
    EXPECT_EQ(buffer->selEnd, MakePos(23, 4));

    // From the last full row the first move below scrolls; the release shows the caret whole.
    TestBuffer low(Lines(30));
    Tall(low);
    EXPECT_TRUE(ButtonPressed(*low, At(*low, 9, 1), false, false));
    PointerMoved(*low, At(*low, 10, 1));
    EXPECT_EQ(low->topLine, 1);
    EXPECT_EQ(low->cursor, MakePos(11, 1));
    EXPECT_TRUE(ButtonReleased(*low));
    EXPECT_EQ(low->topLine, 2);
}

TEST_F(EditInputTest, DoubleClickSelectsTheWordAsOneStep) {
    TestBuffer buffer("  signal count_2 : integer;");
    buffer->marginColumns = Margin;
    DoubleClicked(*buffer, At(*buffer, 0, 11));
    EXPECT_EQ(buffer->selStart, MakePos(0, 9));
    EXPECT_EQ(buffer->selEnd, MakePos(0, 16));
    EXPECT_EQ(buffer->cursor, MakePos(0, 16));
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    // On a blank there is no word: the caret only moves there.
    DoubleClicked(*buffer, At(*buffer, 0, 1));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_EQ(buffer->cursor, MakePos(0, 1));
    EXPECT_EQ(EditUndo(), 0);
    EXPECT_EQ(buffer->selEnd, MakePos(0, 16));
}

// The calls the compiler support received, as "open" or "show".
std::vector<std::string> followed;

TEST_F(EditInputTest, MessageWindowsHandTheCaretLineToTheCompilerSupport) {
    const std::string text = "** Error: a.vhd(3): x\n** Error: a.vhd(9): y";
    TestBuffer report(text);
    report->windowKind = KindMessage;
    report->marginColumns = Margin;
    // Without the compiler support the window still moves and stays unchanged.
    HandleKey(*report, KeyDown, false, false);
    CharacterEntered(*report, '\r');
    EXPECT_EQ(report->cursor.line, 1);

    followed.clear();
    editor.engine.input.followMessage = [](EditBuffer&, bool open) {
        followed.push_back(open ? "open" : "show");
    };
    HandleKey(*report, 16, false, false);  // Shift alone is a key in range too
    HandleKey(*report, 112, false, false); // F1 is not
    // Typing does nothing; Return opens the message.
    CharacterEntered(*report, 'x');
    CharacterEntered(*report, '\r');
    // A click shows the clicked line's message, a Shift-click only selects, a double click
    // opens without selecting a word.
    EXPECT_TRUE(ButtonPressed(*report, At(*report, 0, 3), false, false));
    EXPECT_TRUE(ButtonReleased(*report));
    EXPECT_FALSE(ButtonPressed(*report, At(*report, 1, 3), true, false));
    DoubleClicked(*report, At(*report, 1, 4));
    EXPECT_EQ(followed, (std::vector<std::string>{"show", "open", "show", "open"}));
    EXPECT_EQ(report->cursor, MakePos(1, 3));
    EXPECT_EQ(report.Text(), text);

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

class CloseQuestionTest : public EditInputTest {
  protected:
    EditBuffer& Open(const std::string& path, int createNew = 0) {
        EXPECT_EQ(openFile(path, createNew, 0, KindDocument), 0);
        return *editor.engine.currentBuffer;
    }
    TempFolder folder;
};

TEST_F(CloseQuestionTest, UnmodifiedAndReportWindowsAskNothing) {
    const std::string path = folder.File("quiet.vhd");
    WriteBytes(path, "entity quiet is end;\r\n");
    EXPECT_EQ(QueryCloseBuffer(Open(path)), 1);

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

    // A failed save, or a cancelled name dialog of an unnamed buffer, keeps the window open.
    EditBuffer& lost = Open(folder.File("no/such/folder/x.vhd"), 1);
    TypeChar(lost, 'x');
    host.answers = {AnswerYes};
    EXPECT_EQ(QueryCloseBuffer(lost), 0);
    EXPECT_EQ(lost.lines.modified, 1);

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
