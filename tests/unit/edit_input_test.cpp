// Edit window input: keys, typed characters, clicks, drags, double clicks and the close question.
#include "engine/edit_input.h"

#include <string>
#include <tuple>
#include <vector>

#include "docs/documents.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "engine/transaction_log.h"
#include "marked_text.h"

namespace ruvo {
namespace {

constexpr int CharWidth = 8, LineHeight = 15, Margin = 7;

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
    // "line 0" to "line <count - 1>" in a 10-row window with the line-number margin.
    static std::string Lines(int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += (i > 0 ? "\nline " : "line ") + std::to_string(i);
        return text;
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
    // Keys with "s" (Shift) and "c" (Ctrl), each followed by the marked text it leaves.
    void Press(TestBuffer& buffer, std::vector<std::tuple<int, std::string, std::string>> keys) {
        for (const auto& [key, mods, marked] : keys) {
            HandleKey(*buffer, key, mods.find('s') != std::string::npos,
                      mods.find('c') != std::string::npos);
            EXPECT_EQ(Marked(buffer), marked) << key << mods;
        }
    }
};

TEST_F(EditInputTest, KeysMoveTheCaretAndShiftExtendsTheSelection) {
    TestBuffer buffer("ab cd\n\tx y\nz;");
    Press(buffer,
          {{KeyEnd, "", "ab cd|\n\tx y\nz;"},       {KeyHome, "", "|ab cd\n\tx y\nz;"},
           {KeyRight, "c", "ab |cd\n\tx y\nz;"},    {KeyRight, "", "ab c|d\n\tx y\nz;"},
           {KeyLeft, "c", "ab |cd\n\tx y\nz;"},     {KeyLeft, "", "ab| cd\n\tx y\nz;"},
           {KeyDown, "c", "ab cd\n\t|x y\nz;"},     {KeyUp, "", "ab c|d\n\tx y\nz;"},
           {KeyEnd, "c", "ab cd\n\tx y\nz;|"},      {KeyHome, "c", "|ab cd\n\tx y\nz;"},
           {KeyPageDown, "c", "ab cd\n\tx y\nz;|"}, {KeyPageUp, "c", "|ab cd\n\tx y\nz;"},
           {KeyRight, "sc", "[ab |]cd\n\tx y\nz;"}, {KeyDown, "s", "[ab cd\n\t|]x y\nz;"},
           {KeyEnd, "s", "[ab cd\n\tx y|]\nz;"},    {KeyHome, "sc", "|ab cd\n\tx y\nz;"},
           {KeyEnd, "sc", "[ab cd\n\tx y\nz;|]"},   {KeyUp, "s", "[ab cd\n\t|]x y\nz;"},
           {KeyHome, "s", "[ab cd\n|]\tx y\nz;"},   {KeyLeft, "s", "[ab cd|]\n\tx y\nz;"},
           {KeyPageUp, "s", "|ab cd\n\tx y\nz;"},   {KeyPageDown, "s", "[ab cd\n\tx y\nz;|]"},
           {KeyLeft, "", "ab cd\n\tx y\nz|;"}});

    EXPECT_EQ(host.caretRecreations, 0); // no key but Insert switches the mode
    // Page keys move by the window height and scroll with it.
    TestBuffer tall(Lines(100));
    tall->visibleLines = 10;
    for (const auto& [key, shift, line, top] : {std::tuple{KeyPageDown, false, 10, 10},
                                                {KeyPageDown, true, 20, 20},
                                                {KeyPageUp, false, 10, 10}}) {
        HandleKey(*tall, key, shift, false);
        EXPECT_EQ(tall->cursor, MakePos(line, 0));
        EXPECT_EQ(tall->topLine, top);
    }
}

TEST_F(EditInputTest, EditingKeysDeleteCharactersOrTheSelection) {
    TestBuffer buffer("\tbegin\nq <= d;\nend;");
    buffer.PlaceCaret(1, 1);
    Press(buffer, {{KeyBack, "", "\tbegin\n| <= d;\nend;"},
                   {KeyBack, "c", "\tbegin| <= d;\nend;"}, // Ctrl makes no difference
                   {KeyDelete, "", "\tbegin|<= d;\nend;"}});
    buffer.Select(MakePos(0, 6), MakePos(0, 8));
    Press(buffer, {{KeyDelete, "", "\tbegin| d;\nend;"}});
    buffer.Select(MakePos(0, 6), MakePos(0, 4));
    // Return splits the line behind the indentation of the current one.
    Press(buffer, {{KeyBack, "", "\tbeg| d;\nend;"}, {KeyReturn, "", "\tbeg\n\t| d;\nend;"}});

    // Keys outside 8..46 and keys without an action leave text and log alone.
    const int logged = buffer.LoggedTransactions();
    for (int key : {7, 9, 16, 17, 32, 47, 112})
        HandleKey(*buffer, key, false, false);
    EXPECT_EQ(buffer.LoggedTransactions(), logged);

    // A read-only buffer takes no editing key or typing, but the caret still moves.
    buffer->lines.readOnly = 1;
    TypeChar(*buffer, 'x');
    Press(buffer, {{KeyDelete, "", "\tbeg\n\t| d;\nend;"},
                   {KeyBack, "", "\tbeg\n\t| d;\nend;"},
                   {KeyReturn, "", "\tbeg\n\t| d;\nend;"},
                   {KeyEnd, "", "\tbeg\n\t d;|\nend;"}});
}

TEST_F(EditInputTest, InsertTogglesOverwriteForEveryWindowAndKeysActOnTheirOwnBuffer) {
    TestBuffer first("abc");
    TestBuffer second("xyz", false);
    HandleKey(*first, KeyInsert, false, false);
    EXPECT_TRUE(editor.engine.overwriteMode);
    EXPECT_EQ(host.caretRecreations, 1);
    TypeChar(*second, 'Q');
    HandleKey(*second, KeyInsert, false, true);
    EXPECT_FALSE(editor.engine.overwriteMode);
    TypeChar(*second, 'R');
    EXPECT_EQ(first.LoggedTransactions(), 0); // the mode switch itself records nothing
    // The window that got the key becomes the current one.
    HandleKey(*second, KeyEnd, false, false);
    EXPECT_EQ(editor.engine.currentBuffer, second.get());
    EXPECT_EQ(Marked(second), "QRyz|");
    EXPECT_EQ(Marked(first), "|abc");
}

TEST_F(EditInputTest, TypingReplacesTheSelectionOrTheCharacterUnderTheCaret) {
    const std::string text = "line zero\nabcdef\nmiddle\nlast line";
    TestBuffer buffer(text);
    buffer.Select(MakePos(3, 0), MakePos(1, 2));
    TypeChar(*buffer, 'X');
    EXPECT_EQ(Marked(buffer), "line zero\nabX|last line");
    EXPECT_EQ(UndoTransaction(), 0);

    // In overwrite mode the selection is still what gets replaced, else the character under the
    // caret; at the line end there is nothing under it: D and E are inserted.
    editor.engine.overwriteMode = true;
    buffer.Select(MakePos(0, 0), MakePos(0, 4));
    for (char c : std::string("YBCDEFG"))
        TypeChar(*buffer, c);
    buffer.PlaceCaret(1, 0);
    TypeChar(*buffer, '\t');
    EXPECT_EQ(Marked(buffer), "YBCDEFG\n\t|bcdef\nmiddle\nlast line");

    // Only tab and 32..254 are typed, each as one transaction.
    TestBuffer codes("");
    for (int code : {0, 1, 8, 10, 13, 27, 31, 255, 256, -1, 1000, 9, 32, 127, 128, 200, 254})
        TypeChar(*codes, code);
    EXPECT_EQ(codes.Text(), std::string("\t \x7f\x80\xc8\xfe"));
    EXPECT_EQ(codes.LoggedTransactions(), 6);

    // A full line refuses an inserted character with the log's message, but can be overwritten.
    TestBuffer full(std::string(255, 'w'));
    full.PlaceCaret(0, 100);
    editor.engine.overwriteMode = false;
    TypeChar(*full, 'z');
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Transaction ignored because\nresulting line would become too long. \n");
    editor.engine.overwriteMode = true;
    TypeChar(*full, 'z');
    EXPECT_EQ(full.Text(), std::string(100, 'w') + "z" + std::string(154, 'w'));
}

TEST_F(EditInputTest, PointsBecomePositionsAndClicksLandAfterARightHalf) {
    TestBuffer buffer("abcdef\n\tx");
    buffer->marginColumns = Margin;
    const int left = Margin * CharWidth;
    // {x, y, top line, left column, line, screen column}; divisions truncate.
    const int points[][6] = {{left + 3, 14, 0, 0, 0, 0},   {left + 4, 15, 0, 0, 1, 1},
                             {left + 20, 44, 0, 0, 2, 3},  {0, 0, 0, 0, 0, -7},
                             {left + 4, 16, 30, 5, 31, 6}, {left, -14, 30, 5, 30, 5},
                             {left, -15, 30, 5, 29, 5}};
    for (const auto& p : points) {
        buffer->topLine = p[2];
        buffer->leftColumn = p[3];
        EXPECT_EQ(PointToPos(*buffer, p[0], p[1]), (ScreenPoint{p[4], p[5]}))
            << p[0] << "," << p[1];
    }
    editor.engine.display.charWidth = editor.engine.display.lineHeight = 0; // no division by 0
    EXPECT_EQ(PointToPos(*buffer, 3, 4), (ScreenPoint{34, 1}));

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

TEST_F(EditInputTest, ClicksShiftClicksAndDragsAreOneUndoStepEach) {
    TestBuffer buffer(Lines(10));
    buffer->marginColumns = Margin;
    HandleKey(*buffer, KeyDown, false, false);
    HandleKey(*buffer, KeyRight, true, false); // selection (1,0)-(1,1) before the drag
    const int before = buffer.LoggedTransactions();
    const auto selection = [&] {
        const auto pos = [](TextPos p) {
            return std::to_string(p.line) + "," + std::to_string(p.column);
        };
        return pos(buffer->selStart) + "-" + pos(buffer->selEnd) + " at " + pos(buffer->cursor);
    };

    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 2, 3), false, true)); // the right button
    EXPECT_TRUE(editor.engine.input.rightButtonDrag);
    PointerMoved(*buffer, At(*buffer, 3, 4));
    PointerMoved(*buffer, At(*buffer, 4, 5));
    EXPECT_EQ(selection(), "2,3-4,5 at 4,5");
    EXPECT_EQ(buffer.LoggedTransactions(), before); // press and drag record nothing
    EXPECT_TRUE(host.pointerNudges.empty());        // inside the window nothing scrolls
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_FALSE(editor.engine.input.rightButtonDrag);
    EXPECT_EQ(buffer.LoggedTransactions(), before + 1);
    // Moves after the release select nothing more but still clear the message pane.
    host.statusTexts.clear();
    PointerMoved(*buffer, At(*buffer, 6, 0));
    EXPECT_EQ(selection(), "2,3-4,5 at 4,5");
    ASSERT_EQ(host.statusTexts.size(), 1u);
    EXPECT_EQ(host.statusTexts[0].pane + host.statusTexts[0].text.size(), 4u);
    EXPECT_EQ(EditUndo(), 0);
    EXPECT_EQ(selection(), "1,0-1,1 at 1,1");
    EXPECT_EQ(EditRedo(), 0);

    // A click without moving is one step too; a Shift-click extends from the anchor (a second
    // one moves the free end) and starts no drag, so its release records nothing.
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 7, 2), false, false));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(EditUndo(), 0);
    EXPECT_EQ(selection(), "2,3-4,5 at 4,5");
    EXPECT_EQ(EditRedo(), 0);
    EXPECT_FALSE(ButtonPressed(*buffer, At(*buffer, 8, 1), true, false));
    EXPECT_EQ(selection(), "7,2-8,1 at 8,1");
    EXPECT_FALSE(ButtonPressed(*buffer, At(*buffer, 5, 4), true, false));
    EXPECT_EQ(selection(), "5,4-7,2 at 5,4");
    const int logged = buffer.LoggedTransactions();
    EXPECT_FALSE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer.LoggedTransactions(), logged);
}

TEST_F(EditInputTest, DragPastTheWindowScrollsOneLinePerMoveUntilTheLastLine) {
    TestBuffer buffer(Lines(30));
    buffer->marginColumns = Margin;
    buffer->visibleLines = 10;
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 5, 2), false, false));

    // The pointer rests just below the window; every nudge brings another move message.
    const std::vector<int32_t> tops = DragUntilStill(*buffer, 10 * LineHeight + 2);
    for (size_t i = 0; i < tops.size(); ++i)
        EXPECT_EQ(tops[i], std::min<int32_t>(static_cast<int32_t>(i), 19)) << "move " << i;
    // The caret rides on the partly visible row below the last full one.
    EXPECT_EQ(buffer->cursor, MakePos(29, 2));
    EXPECT_EQ(host.pointerNudges.size(), tops.size() - 1); // the last move did not nudge
    for (size_t i = 1; i < host.pointerNudges.size(); ++i)
        EXPECT_NE(host.pointerNudges[i], host.pointerNudges[i - 1]); // it jiggles
    EXPECT_EQ(DragUntilStill(*buffer, 12 * LineHeight).size(), 1u);
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->selStart, MakePos(5, 2));
    EXPECT_EQ(buffer->topLine, 20);

    // Above the window it scrolls up the same way; the move reaching line 0 stops nudging.
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 3, 4), false, false));
    EXPECT_EQ(buffer->cursor, MakePos(23, 4));
    const std::vector<int32_t> up = DragUntilStill(*buffer, -LineHeight - 1);
    EXPECT_EQ(up.size(), 23u);
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->selStart, MakePos(0, 2));

    // From the last full row the first move below scrolls; the release shows the caret whole.
    buffer->topLine = 0;
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 9, 1), false, false));
    PointerMoved(*buffer, At(*buffer, 10, 1));
    EXPECT_EQ(buffer->topLine, 1);
    EXPECT_EQ(buffer->cursor, MakePos(11, 1));
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->topLine, 2);
}

// The calls the compiler support received, as "open" or "show".
std::vector<std::string> followed;

TEST_F(EditInputTest, DoubleClicksSelectAWordOrOpenAMessage) {
    TestBuffer buffer("  signal count_2 : integer;");
    buffer->marginColumns = Margin;
    DoubleClicked(*buffer, At(*buffer, 0, 11));
    EXPECT_EQ(Marked(buffer), "  signal [count_2|] : integer;");
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    // On a blank there is no word: the caret only moves there.
    DoubleClicked(*buffer, At(*buffer, 0, 1));
    EXPECT_EQ(Marked(buffer), " | signal count_2 : integer;");
    EXPECT_EQ(EditUndo(), 0);
    EXPECT_EQ(Marked(buffer), "  signal [count_2|] : integer;");

    const std::string text = "** Error: a.vhd(3): x\n** Error: a.vhd(9): y";
    TestBuffer report(text);
    report->windowKind = KindMessage;
    report->marginColumns = Margin;
    // Without the compiler support the window still moves and stays unchanged.
    HandleKey(*report, KeyDown, false, false);
    CharacterEntered(*report, '\r');
    EXPECT_EQ(report->cursor.line, 1);
    editor.engine.input.followMessage = [](EditBuffer&, bool open) {
        followed.push_back(open ? "open" : "show");
    };
    HandleKey(*report, 16, false, false);  // Shift alone is a key in range too
    HandleKey(*report, 112, false, false); // F1 is not
    // Typing does nothing; Return opens the message. A click shows the clicked line's message,
    // a Shift-click only selects, a double click opens without selecting a word.
    CharacterEntered(*report, 'x');
    CharacterEntered(*report, '\r');
    EXPECT_TRUE(ButtonPressed(*report, At(*report, 0, 3), false, false));
    EXPECT_TRUE(ButtonReleased(*report));
    EXPECT_FALSE(ButtonPressed(*report, At(*report, 1, 3), true, false));
    DoubleClicked(*report, At(*report, 1, 4));
    EXPECT_EQ(followed, (std::vector<std::string>{"show", "open", "show", "open"}));
    EXPECT_EQ(Marked(report), "** [Error: a.vhd(3): x\n** |]Error: a.vhd(9): y");
    // A key that closed the window follows nothing; documents never do.
    report->closedFlags |= ClosedFlagWindowGone;
    HandleKey(*report, KeyUp, false, false);
    HandleKey(*buffer, KeyEnd, false, false);
    CharacterEntered(*buffer, '!');
    CharacterEntered(*buffer, '\r'); // Return arrives as a key, not as a character
    DoubleClicked(*buffer, At(*buffer, 0, 1));
    EXPECT_EQ(followed.size(), 4u);
    EXPECT_EQ(buffer.Text(), "  signal count_2 : integer;!");
}

TEST_F(EditInputTest, CloseQuestionAsksOnlyForModifiedDocuments) {
    TempFolder folder;
    const auto open = [&](const std::string& path, int createNew) -> EditBuffer& {
        EXPECT_EQ(openFile(path, createNew, 0, KindDocument), 0);
        return *editor.engine.currentBuffer;
    };
    const std::string quiet = folder.File("quiet.vhd");
    WriteBytes(quiet, "entity quiet is end;\r\n");
    EXPECT_EQ(QueryCloseBuffer(open(quiet, 0)), 1);
    EditBuffer& report = open(folder.File("report.txt"), 1);
    report.windowKind = KindMessage;
    TypeChar(report, 'x');
    ASSERT_EQ(report.lines.modified, 1);
    EXPECT_EQ(QueryCloseBuffer(report), 1);
    EXPECT_TRUE(host.boxes.empty());

    // Cancel keeps it open, No closes without saving, Yes saves first; a failed save keeps it.
    const std::string path = folder.File("counter.vhd");
    WriteBytes(path, "entity counter is\r\nend counter;\r\n");
    EditBuffer& buffer = open(path, 0);
    TypeChar(buffer, '-');
    host.answers = {AnswerCancel, AnswerNo, AnswerYes};
    EXPECT_EQ(QueryCloseBuffer(buffer), 0);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].caption + "|" + host.boxes[0].text,
              "Editor contents modified|Edit buffer '" + path + "'\nis modified, Save changes ?");
    EXPECT_EQ(host.boxes[0].kind, static_cast<int>(QuestionKind::YesNoCancel));
    EXPECT_EQ(QueryCloseBuffer(buffer), 1);
    EXPECT_EQ(ReadBytes(path), "entity counter is\r\nend counter;\r\n");
    EXPECT_EQ(QueryCloseBuffer(buffer), 1);
    EXPECT_EQ(ReadBytes(path), "-entity counter is\r\nend counter;\r\n");
    EditBuffer& lost = open(folder.File("no/such/folder/x.vhd"), 1);
    TypeChar(lost, 'x');
    EXPECT_EQ(QueryCloseBuffer(lost), 0);
    EXPECT_EQ(lost.lines.modified, 1);
}

} // namespace
} // namespace ruvo
