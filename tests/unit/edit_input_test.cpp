// Edit window input: keys, typed characters, clicks, drags, double clicks and the close question.
#include "engine/edit_input.h"

#include <cstdint>
#include <string>
#include <tuple>

#include "buffer_builder.h"
#include "docs/documents.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "test_files.h"

namespace ruvo {
namespace {

constexpr int CharWidth = 8, LineHeight = 15;

class EditInputTest : public EditorTest {
  protected:
    EditInputTest() {
        editor.engine.display.charWidth = CharWidth;
        editor.engine.display.lineHeight = LineHeight;
    }
    // The point a bit inside screen column `column` of window row `row`, without a margin.
    ScreenPoint At(const EditBuffer& buffer, int row, int column) {
        return PointToPos(buffer, column * CharWidth + 1, row * LineHeight + 2);
    }
    // Moves the pointer to pixel row `y` until a move brings no nudge: the top line after each
    // move, and 'v' or '^' when it nudged the pointer down or up.
    std::string DragUntilStill(EditBuffer& buffer, int y) {
        std::string moves;
        for (size_t nudges = SIZE_MAX; nudges != host.pointerNudges.size() && moves.size() < 999;) {
            nudges = host.pointerNudges.size();
            PointerMoved(buffer, PointToPos(buffer, 2 * CharWidth, y));
            moves += " " + std::to_string(buffer.topLine);
            if (host.pointerNudges.size() > nudges) moves += host.pointerNudges.back() ? "v" : "^";
        }
        return moves;
    }
};

TEST_F(EditInputTest, KeysMoveTheCaretEditAndShiftExtendsTheSelection) {
    TestBuffer buffer("ab cd\n\tx y\nz;");
    // Back and Delete take the selection, else a character; Return splits the line; keys
    // outside 8..46 and keys without an action do nothing. {key, "s" Shift "c" Ctrl, text after}
    const std::tuple<int, std::string, const char*> keys[] = {
        {KeyEnd, "", "ab cd|\n\tx y\nz;"},      {KeyHome, "", "|ab cd\n\tx y\nz;"},
        {KeyRight, "c", "ab |cd\n\tx y\nz;"},   {KeyRight, "", "ab c|d\n\tx y\nz;"},
        {KeyLeft, "c", "ab |cd\n\tx y\nz;"},    {KeyLeft, "", "ab| cd\n\tx y\nz;"},
        {KeyDown, "c", "ab cd\n\t|x y\nz;"},    {KeyLeft, "", "ab cd\n|\tx y\nz;"},
        {KeyUp, "", "|ab cd\n\tx y\nz;"},       {KeyEnd, "c", "ab cd\n\tx y\nz;|"},
        {KeyHome, "c", "|ab cd\n\tx y\nz;"},    {KeyPageDown, "c", "ab cd\n\tx y\nz;|"},
        {KeyPageUp, "c", "|ab cd\n\tx y\nz;"},  {KeyRight, "sc", "[ab |]cd\n\tx y\nz;"},
        {KeyDown, "s", "[ab cd\n\t|]x y\nz;"},  {KeyUp, "", "ab c|d\n\tx y\nz;"},
        {KeyRight, "s", "ab c[d|]\n\tx y\nz;"}, {KeyDelete, "", "ab c|\n\tx y\nz;"},
        {KeyReturn, "", "ab c\n|\n\tx y\nz;"},  {KeyBack, "", "ab c|\n\tx y\nz;"},
        {KeyDelete, "", "ab c|\tx y\nz;"},      {KeyLeft, "s", "ab [|c]\tx y\nz;"},
        {KeyBack, "c", "ab |\tx y\nz;"},        {KeyBack - 1, "", "ab |\tx y\nz;"},
        {KeyBack + 1, "", "ab |\tx y\nz;"},     {KeyDelete + 1, "", "ab |\tx y\nz;"}};
    for (const auto& [key, mods, marked] : keys) {
        HandleKey(*buffer, key, mods.find('s') != std::string::npos,
                  mods.find('c') != std::string::npos);
        EXPECT_EQ(Marked(buffer), marked) << key << mods;
    }

    // Page keys move by the window height; Insert switches the mode of every window and
    // records nothing; the window that got a key becomes the current one.
    TestBuffer tall(NumberedLines(100), false);
    tall->visibleLines = 10;
    for (const int key : {KeyPageDown, KeyPageDown, KeyPageUp, KeyInsert})
        HandleKey(*tall, key, false, false);
    EXPECT_EQ(std::tuple(tall->cursor, tall->topLine, editor.engine.overwriteMode,
                         host.caretRecreations, editor.engine.currentBuffer,
                         tall.LoggedTransactions()),
              std::tuple(MakePos(10, 0), 10, true, 1, tall.get(), 3));
    HandleKey(*tall, KeyInsert, false, true);
    EXPECT_FALSE(editor.engine.overwriteMode);
}

TEST_F(EditInputTest, TypingReplacesTheSelectionOrTheCharacterUnderTheCaret) {
    TestBuffer buffer("line zero\nabcdef\nmiddle\nlast line");
    buffer.Select(MakePos(3, 0), MakePos(1, 2));
    TypeChar(*buffer, 'X');
    // In overwrite mode the selection is still what gets replaced, else the character under the
    // caret; at the line end there is nothing under it: G is inserted.
    editor.engine.overwriteMode = true;
    buffer.Select(MakePos(0, 0), MakePos(0, 4));
    for (char c : std::string("YBCDEFG"))
        TypeChar(*buffer, c);
    EXPECT_EQ(Marked(buffer), "YBCDEFG|\nabXlast line");
    // Only tab and 32..254 are typed, each as one transaction.
    TestBuffer codes("");
    for (int code : {8, 10, 31, 255, -1, 9, 32, 254})
        TypeChar(*codes, code);
    EXPECT_EQ(std::to_string(codes.LoggedTransactions()) + codes.Text(), "3\t \xfe");
}

TEST_F(EditInputTest, ClicksShiftClicksAndDragsAreOneUndoStepEachAndDragsScroll) {
    TestBuffer buffer(NumberedLines(30, "line "));
    buffer->visibleLines = 10;
    HandleKey(*buffer, KeyDown, false, false);
    HandleKey(*buffer, KeyRight, true, false); // selection (1,0)-(1,1) before the drag
    const int before = buffer.LoggedTransactions();
    // The selection's ends, the caret and the steps recorded since the start.
    const auto selection = [&] {
        std::string text;
        for (const TextPos p : {buffer->selStart, buffer->selEnd, buffer->cursor})
            text += std::to_string(p.line) + "," + std::to_string(p.column) + " ";
        return text + std::to_string(buffer.LoggedTransactions() - before);
    };
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 2, 3), false, true)); // the right button
    PointerMoved(*buffer, At(*buffer, 4, 5));
    EXPECT_EQ(selection(), "2,3 4,5 4,5 0"); // press and drag record nothing
    EXPECT_TRUE(ButtonReleased(*buffer));
    // Moves after the release select nothing more but still clear the message pane.
    PointerMoved(*buffer, At(*buffer, 6, 0));
    EXPECT_EQ(selection(), "2,3 4,5 4,5 1");
    EXPECT_EQ(host.statusTexts.back().pane + host.statusTexts.back().text.size(), 4u);
    // A click without moving is one step too; a Shift-click extends from the anchor (a second
    // one moves the free end) and starts no drag, so its release records nothing.
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 7, 2), false, false));
    EXPECT_EQ(buffer->lines.hasSelection, 0);
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_FALSE(ButtonPressed(*buffer, At(*buffer, 8, 1), true, false));
    EXPECT_FALSE(ButtonPressed(*buffer, At(*buffer, 5, 4), true, false));
    EXPECT_FALSE(ButtonReleased(*buffer));
    EXPECT_EQ(selection(), "5,4 7,2 5,4 4");
    EXPECT_EQ(EditUndo() + EditUndo() + EditUndo(), 0);
    EXPECT_EQ(selection(), "2,3 4,5 4,5 4");
    EXPECT_EQ(EditUndo(), 0);
    EXPECT_EQ(selection(), "1,0 1,1 1,1 4");

    // Past the window a drag scrolls one line per move until the last line.
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 5, 2), false, false));
    // The pointer rests just below the window; every nudge brings another move message, and
    // the caret rides on the partly visible row below the last full one.
    EXPECT_EQ(DragUntilStill(*buffer, 10 * LineHeight + 2),
              " 0^ 1v 2^ 3v 4^ 5v 6^ 7v 8^ 9v 10^ 11v 12^ 13v 14^ 15v 16^ 17v 18^ 19");
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(selection(), "5,2 29,2 29,2 9"); // the four undone steps recorded again first
    // Above the window it scrolls up the same way; the move reaching line 0 stops nudging.
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 3, 4), false, false));
    EXPECT_EQ(DragUntilStill(*buffer, -LineHeight - 1),
              " 20v 20^ 20v 19^ 18v 17^ 16v 15^ 14v 13^ 12v 11^ 10v 9^ 8v 7^ 6v 5^ 4v 3^ 2v 1^ 0");
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));
    // From the last full row the first move below scrolls; the release shows the caret whole.
    buffer->topLine = 0;
    EXPECT_TRUE(ButtonPressed(*buffer, At(*buffer, 9, 1), false, false));
    PointerMoved(*buffer, At(*buffer, 10, 1));
    EXPECT_EQ(std::pair(buffer->topLine, buffer->cursor), std::pair(1, MakePos(11, 1)));
    EXPECT_TRUE(ButtonReleased(*buffer));
    EXPECT_EQ(buffer->topLine, 2);
    // Before the font is measured a point still has a place: one pixel per row and column.
    editor.engine.display.charWidth = editor.engine.display.lineHeight = 0;
    const ScreenPoint unmeasured = PointToPos(*buffer, 3, 4);
    EXPECT_EQ(std::pair(unmeasured.line, unmeasured.screenColumn), std::pair(6, 3));
}

TEST_F(EditInputTest, DoubleClicksSelectAWordOrOpenAMessage) {
    TestBuffer buffer("  signal count_2 : integer;");
    DoubleClicked(*buffer, At(*buffer, 0, 11));
    EXPECT_EQ(Marked(buffer), "  signal [count_2|] : integer;");
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    // In a message window typing does nothing; a click shows the clicked line's message, a
    // Shift-click only selects, a double click opens it without selecting a word; a key that
    // closed the window follows nothing. Documents never follow.
    TestBuffer report("** Error: a.vhd(3): x\n** Error: a.vhd(9): y");
    report->windowKind = KindMessage;
    static std::string followed; // "s" shown, "o" opened
    editor.engine.input.followMessage = [](EditBuffer&, bool open) {
        followed += open ? "o" : "s";
    };
    CharacterEntered(*report, 'x');
    EXPECT_TRUE(ButtonPressed(*report, At(*report, 0, 3), false, false));
    EXPECT_TRUE(ButtonReleased(*report));
    EXPECT_FALSE(ButtonPressed(*report, At(*report, 1, 3), true, false));
    DoubleClicked(*report, At(*report, 1, 4));
    EXPECT_EQ(Marked(report), "** [Error: a.vhd(3): x\n** |]Error: a.vhd(9): y");
    report->closedFlags |= ClosedFlagWindowGone;
    HandleKey(*report, KeyUp, false, false);
    HandleKey(*buffer, KeyEnd, false, false);
    CharacterEntered(*buffer, '!');
    CharacterEntered(*buffer, '\r'); // Return arrives as a key, not as a character
    EXPECT_EQ(followed + buffer.Text(), "so  signal count_2 : integer;!");
}

TEST_F(EditInputTest, CloseQuestionAsksOnlyForModifiedDocuments) {
    TempFolder folder;
    const auto open = [&](const std::string& name, const std::string& bytes) -> EditBuffer& {
        if (!bytes.empty()) WriteBytes(folder.File(name), bytes);
        EXPECT_EQ(openFile(folder.File(name), bytes.empty() ? 1 : 0, 0, KindDocument), 0);
        TypeChar(*editor.engine.currentBuffer, '-');
        return *editor.engine.currentBuffer;
    };
    // A report past the 8 MB of one storage block, read in 254-byte pieces.
    EditBuffer& report = open("report.txt", std::string(9 << 20, 'x'));
    EXPECT_EQ(report.lines.lineCount, (9 << 20) / 254 + 1);
    report.windowKind = KindMessage;
    EXPECT_EQ(QueryCloseBuffer(report), 1);
    // Cancel keeps it open, No closes without saving, Yes saves first; a failed save keeps it.
    const std::string path = folder.File("counter.vhd");
    EditBuffer& buffer = open("counter.vhd", "entity counter is\r\nend counter;\r\n");
    host.answers = {AnswerCancel, AnswerNo, AnswerYes, AnswerYes};
    EXPECT_EQ(QueryCloseBuffer(buffer), 0);
    EXPECT_EQ(host.boxes.at(0).kind, static_cast<int>(QuestionKind::YesNoCancel));
    EXPECT_EQ(QueryCloseBuffer(buffer), 1);
    EXPECT_EQ(ReadBytes(path), "entity counter is\r\nend counter;\r\n");
    EXPECT_EQ(QueryCloseBuffer(buffer), 1);
    EXPECT_EQ(ReadBytes(path), "-entity counter is\r\nend counter;\r\n");
    EXPECT_EQ(QueryCloseBuffer(buffer), 1); // saved: no question
    EXPECT_EQ(host.boxes.size(), 3u);
    EXPECT_EQ(QueryCloseBuffer(open("no/such/folder/x.vhd", "")), 0);
}

} // namespace
} // namespace ruvo
