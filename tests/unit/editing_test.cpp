// The editing commands, caret motions, clipboard and bookmarks on real buffers, and the undo
// log's messages, command states and scroll and selection codes.
#include <sstream>
#include <string>
#include <tuple>

#include "buffer_builder.h"
#include "commands/command_table.h"
#include "editor_fixture.h"
#include "engine/bookmarks.h"
#include "engine/clipboard_commands.h"
#include "engine/cursor_motion.h"
#include "engine/editing_commands.h"
#include "engine/text_store.h"

namespace ruvo {
namespace {

const char* const TooLong = "Transaction ignored because\nresulting line would become too long. \n";
constexpr ScrollTarget Show{ScrollShow, ScrollShow};
constexpr TextPos Origin{0, 0};

class EditingTest : public EditorTest {
  protected:
    int Run(const std::string& name) { return CommandByName(name, "", false)->handler(); }
    bool Enabled(CommandHandler handler) {
        return host.enabledCommands[CommandIndexOfHandler(handler)];
    }
    // Records a step that moves the caret to `to`, selecting from `from` unless it is `to`.
    void Move(TestBuffer& buffer, TextPos to, ScrollTarget scroll = Show, TextPos from = {-9, 0}) {
        RecordEdit(*buffer, Origin, Origin, "", to, scroll, from.line < 0 ? to : from, to);
    }
    void Replace(TestBuffer& buffer, TextPos from, TextPos to, std::string_view text) {
        RecordEdit(*buffer, from, to, text, from, Show, Origin, Origin);
    }
};

TEST_F(EditingTest, CommandsTakeTheirPieceJoinLinesOrRefuseAndUndoRestores) {
    // {before, command, after}, beside the keys' plain cases: at the ends nothing is recorded, the
    // last line deleted keeps its place, a join past 255 bytes is refused, 255 is allowed; Return
    // carries the indent up to the caret, then the rest of the line.
    const std::string x128(128, 'x'), x127(127, 'x'), joinPast255 = x128 + "\n|" + x128,
                                                      joinTo255 = x127 + "|\n" + x128,
                                                      joinedTo255 = x127 + "|" + x128;
    const std::tuple<std::string, int (*)(), std::string> cases[] = {
        {"abc\ndef|", DeleteChar, "abc\ndef|"}, {"|abc\ndef", BackspaceChar, "|abc\ndef"},
        {"ab|c", BackspaceChar, "a|c"},         {"one\ntw|o\nthree", DeleteLine, "one\n|three"},
        {"one\ntw|o", DeleteLine, "one\n|"},    {"|a_b1  c(x);", DeleteWord, "|  c(x);"},
        {"(|a_b1", DeleteWord, "(|"},           {"a_b1|  c(x);", DeleteWord, "a_b1|c(x);"},
        {"c|(x);", DeleteWord, "c|x);"},        {"x);|\nnext", DeleteWord, "x);|next"},
        {"x\nnext|", DeleteWord, "x\nnext|"},   {joinPast255, BackspaceChar, joinPast255},
        {joinTo255, DeleteChar, joinedTo255},   {"\t|  abc", NewLine, "\t\n\t|  abc"},
        {"\t  ab|c", NewLine, "\t  ab\n\t  |c"}};
    for (const auto& [before, command, after] : cases) {
        SCOPED_TRACE(before);
        const size_t bar = before.find('|');
        const std::string text = before.substr(0, bar) + before.substr(bar + 1);
        TestBuffer buffer(text);
        buffer->cursor = buffer->anchor = EndOfInsertion(Origin, before.substr(0, bar));
        host.boxes.clear();
        static_cast<void>(command());
        EXPECT_EQ(Marked(buffer), after);
        EXPECT_EQ(buffer.LoggedTransactions(), before == after ? 0 : 1);
        EXPECT_EQ(host.ErrorBoxTexts(), before == after && before.size() > 200 ? TooLong : "");
        EditUndo();
        EXPECT_EQ(buffer.Text(), text);
    }
    // Without auto-indent, at the bottom of the window: one line of scrolling.
    TestBuffer buffer("a\n\tb\nc");
    buffer->visibleLines = 2;
    buffer.PlaceCaret(1, 2);
    editor.settings.options.autoIndent = false;
    NewLine();
    EXPECT_EQ(Marked(buffer) + " top " + std::to_string(buffer->topLine), "a\n\tb\n|\nc top 1");
    // A selection made from the bottom up goes with the caret at its start.
    buffer.Select(MakePos(3, 1), MakePos(0, 1));
    DeleteSelection();
    DeleteSelection(); // no selection: nothing
    EXPECT_EQ(Marked(buffer) + std::to_string(buffer.LoggedTransactions()), "a|2");
}

// Runs a walk of commands from "line.column", each given as its letter and where it must leave
// the caret ("line.column", then "/top" for the window's top line): < > character, ^ v line,
// w W word, h e line start and end, p P page, b E document, u r undo and redo. Gives the walk
// back as it went, with '!' where the anchor stayed behind the caret.
std::string Walk(TestBuffer& buffer, const std::string& walk) {
    int (*const commands[])() = {GoCharLeft,  GoCharRight, GoLineUp,  GoLineDown, GoWordLeft,
                                 GoWordRight, GoBeginLine, GoEndLine, GoPageUp,   GoPageDown,
                                 GoBeginDoc,  GoEndDoc,    EditUndo,  EditRedo};
    std::istringstream steps(walk);
    std::string went, step;
    steps >> went;
    buffer.PlaceCaret(std::stoi(went), std::stoi(went.substr(went.find('.') + 1)));
    while (steps >> step) {
        commands[std::string_view("<>^vwWhepPbEur").find(step[0])]();
        const TextPos at = buffer->cursor;
        went += " " + step.substr(0, 1) + std::to_string(at.line) + "." + std::to_string(at.column);
        if (step.find('/') != std::string::npos) went += "/" + std::to_string(buffer->topLine);
        if (!(buffer->anchor == at)) went += "!";
    }
    return went;
}

TEST_F(EditingTest, MotionsMoveTheCaretAndTheWindowAndNeverTheText) {
    editor.settings.options.tabSize = 4;
    const std::string numbered = NumberedLines(50, "line ");
    const std::tuple<std::string, int32_t, const char*> walks[] = {
        {"ab\ncd", 20, "0.2 >1.0 <0.2 b0.0 <0.0 E1.2 >1.2"},
        // The tab fills columns 0..3, a is 4, b is 5; the short line ends first.
        {"\tab\nabcdefgh\nxy", 20, "1.5 ^0.2 v1.5 v2.2 v2.2 b0.0 ^0.0"},
        // A word behind a blank or a separator at column 0 leaves the caret at column 0; from
        // column 0 the caret goes to the previous line's end, then to its word.
        {" abc\nabc def", 20, "1.7 w1.4 w1.0 w0.0"},
        {"a  b", 20, "0.3 w0.0"},
        {"foo_bar\n(x) y", 20, "1.5 w1.4 w1.0 w0.4 w0.0"},
        // Right: the word and the separators after it; the semicolon is skipped to the line
        // end, the underscore like a blank; the end of the document stays put.
        {"foo_bar baz\n  next;\n_x", 20, "0.0 W0.8 W1.2 W1.7 W2.1 W2.2 W2.2"},
        {numbered, 20, "7.3 e7.6 h7.0 E49.7/30 b0.0/0"},
        // Near the end a page down goes to the end of the last line; less than a page from
        // the top a page up goes to the start of the document.
        {numbered, 10, "2.4 P12.4/10 P22.4/20 P32.4/30 P42.4/40 P49.7/40 p39.7/30 p29.7/20"},
        {numbered, 10, "20.6 p10.6 p0.6/0 p0.0/0"},
        {numbered, 10, "40.3 P49.7/40"}, // exactly a page above the end
        {std::string(255, 'x'), 20, "0.0 e0.255"},
        // Undo walks back through caret positions even when read-only.
        {"alpha\nbeta\ngamma", 20, "1.1 >1.2 v2.2 e2.5 u2.2 u1.2 r2.2 w2.0"},
    };
    for (const auto& [text, visibleLines, walk] : walks) {
        TestBuffer buffer(text);
        buffer->visibleLines = visibleLines;
        buffer->lines.readOnly = 1;
        EXPECT_EQ(Walk(buffer, walk), walk);
        EXPECT_EQ(buffer.Text(), text);
    }
}

TEST_F(EditingTest, ClipboardCommandsUseCarriageReturnLineFeedsAndOneStepEach) {
    TestBuffer buffer("keep this part\nmid\nand that");
    buffer.Select(MakePos(2, 3), MakePos(0, 4));
    std::swap(buffer->selStart, buffer->selEnd); // reversed ends are put in order
    EditCut();
    EXPECT_EQ(*host.clipboard + "/" + Marked(buffer), " this part\r\nmid\r\nand/keep| that");
    EditUndo();
    buffer.Select(MakePos(1, 1), MakePos(2, 0));
    EditCopy(); // an end at column 0 brings the line end and nothing after it
    EditClear();
    EXPECT_EQ(*host.clipboard + "/" + Marked(buffer), "id\r\n/keep this part\nm|and that");
    // Paste over a selection: the deletion and the insertion are two steps.
    buffer.Select(MakePos(1, 2), MakePos(1, 6));
    host.clipboard = std::string("one\r\ntwo\rx\0ignored", 18); // a NUL ends it, as CF_TEXT does
    EXPECT_EQ(EditPaste(), 0);
    EXPECT_EQ(Marked(buffer), "keep this part\nmaone\ntwox|hat");
    EditUndo();
    EXPECT_EQ(buffer.Text(), "keep this part\nmahat");
    host.clipboard.reset(); // nothing to paste: nothing happens
    EXPECT_EQ(EditPaste(), 1);
}

TEST_F(EditingTest, BookmarksAreSetAndGoneToAcrossWindowsAndShrunkText) {
    // Without a window nothing is set; a bookmark never set is an alert.
    EXPECT_EQ(SetMark9() + GotoMark9(), 1);
    EXPECT_EQ(host.statusPanes[4], "Bookmark 9 is not set.");
    EXPECT_TRUE(host.statusTexts.back().beep);

    TestBuffer buffer(NumberedLines(400));
    for (int n = 0; n < 10; ++n) {
        buffer.PlaceCaret(3 * n, 1);
        EXPECT_EQ(Run("SetMark" + std::to_string(n)), 0);
        EXPECT_EQ(host.statusPanes[4], "Dropped bookmark " + std::to_string(n) + ".");
    }
    for (int n = 9; n >= 0; --n)
        EXPECT_EQ((std::pair{Run("GotoMark" + std::to_string(n)), buffer->cursor}),
                  std::pair(0, MakePos(3 * n, 1)));
    // Numbers outside 0..9 are neither set nor gone to.
    EXPECT_EQ(SetBookmark(10) + GotoBookmark(-1) + GotoBookmark(10), 2);
    EXPECT_EQ(host.statusPanes[4], "Dropped bookmark 9.");

    // Not moved with the text: a line that is gone gives the last line, a column past the
    // line's end its end.
    buffer.PlaceCaret(300, 2);
    SetMark1();
    Replace(buffer, MakePos(100, 0), MakePos(399, 3), "");
    GotoMark1();
    EXPECT_EQ(buffer->cursor, MakePos(100, 0));

    // Going to a bookmark activates its window and keeps the selection there, unless the
    // window is closed: then it is stale until set again.
    TestBuffer second("other window\nsecond");
    SetMark2();
    buffer.Select(MakePos(0, 1), MakePos(0, 3));
    GotoMark7();
    EXPECT_EQ(std::pair(host.activatedWindows.back(), buffer->selStart),
              std::pair(buffer.get(), MakePos(0, 1)));
    second->closedFlags |= ClosedFlagWindowGone;
    EXPECT_EQ(GotoMark2(), 0);
    EXPECT_EQ(host.statusPanes[4], "Window of bookmark 2 has been deleted.");
    EXPECT_EQ(host.activatedWindows.size(), 12u);
}

TEST_F(EditingTest, TheLogSetsTheCommandStatesAndRefusesStepsThatNoLongerFit) {
    TestBuffer buffer("alpha\nbeta");
    TestBuffer other("other", false);
    Replace(other, Origin, Origin, "x"); // command states follow the shown buffer only
    EXPECT_FALSE(Enabled(EditUndo));
    Replace(buffer, MakePos(1, 0), MakePos(1, 4), "gamma");
    // Undo against a changed text: refused, the log stays as it is.
    ASSERT_EQ(ReplaceLine(*buffer, "GAMMA", 1), 1);
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(host.boxes[0].caption + ": " + host.ErrorBoxTexts(),
              "(default): Inconsistency between undo transaction and text\nTransaction ignored\n");
    EXPECT_TRUE(Enabled(EditUndo));
    // Redo against a changed text (a reload, say): refused, the history is cleared.
    ASSERT_EQ(ReplaceLine(*buffer, "gamma", 1), 1);
    EXPECT_EQ(UndoTransaction(), 0);
    EXPECT_TRUE(Enabled(EditRedo));
    ASSERT_EQ(ReplaceLine(*buffer, "delta", 1), 1);
    host.boxes.clear();
    EXPECT_EQ(RedoTransaction(*buffer), 1);
    EXPECT_EQ(host.ErrorBoxTexts(), "Inconsistency between redo transaction and text\n"
                                    "Transaction ignored; undo-redo history cleared\n");
    EXPECT_FALSE(Enabled(EditUndo) || Enabled(EditRedo));
    EXPECT_EQ(buffer.Text(), "alpha\ndelta");

    // The line grows behind the log's back; the deleted "a" no longer fits.
    host.boxes.clear();
    Replace(buffer, MakePos(0, 0), MakePos(0, 1), "");
    ASSERT_EQ(ReplaceLine(*buffer, std::string(255, 'a'), 0), 1);
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(host.ErrorBoxTexts(), "Impossible that this undo transaction failed\n"
                                    "Transaction ignored; undo-redo history cleared\n");
    EXPECT_EQ(buffer.LoggedTransactions(), 0);

    // Read-only: text changes are ignored, caret moves recorded; an undone move is
    // re-recorded before a refused edit, so redo is no longer offered.
    buffer->lines.readOnly = 1;
    Move(buffer, MakePos(0, 1));
    EXPECT_EQ(UndoTransaction(), 0);
    NewLine();
    Replace(buffer, Origin, MakePos(0, 1), "");
    EXPECT_EQ(buffer.LoggedTransactions(), 2);
    EXPECT_FALSE(Enabled(EditRedo));
}

TEST_F(EditingTest, TheLogHonoursScrollAndSelectionCodes) {
    TestBuffer buffer(NumberedLines(100, "line ") + "\n\t\tdeep");
    buffer->visibleLines = 10;
    // {caret line, column, top code, left code, top and left after}: ScrollKeep never leaves the
    // caret below the window; the left column follows the caret's screen column (tab-expanded
    // column 6 is 12 on the last line) and may rest one past the edge with a given value.
    buffer->visibleColumns = 5;
    const int32_t show = ScrollShow, hide = ScrollCentreIfHidden, mid = ScrollCentre,
                  keep = ScrollKeep;
    const int32_t moves[][6] = {
        {50, 0, show, keep, 41, 0},  {45, 0, show, keep, 41, 0}, {30, 0, show, keep, 30, 0},
        {39, 0, hide, keep, 30, 0},  {40, 0, hide, keep, 35, 0}, {68, 0, mid, keep, 63, 0},
        {2, 0, mid, keep, 0, 0},     {40, 0, keep, keep, 31, 0}, {40, 0, 5, keep, 31, 0},
        {40, 0, 35, keep, 35, 0},    {0, 0, 35, keep, 35, 0},    {100, 6, keep, show, 91, 8},
        {100, 0, keep, show, 91, 0}, {100, 6, keep, 7, 91, 7},   {100, 6, keep, 3, 91, 8},
        {100, 2, keep, keep, 91, 8}, {100, 6, keep, 12, 91, 12}};
    for (const auto& [line, column, topCode, leftCode, top, left] : moves) {
        Move(buffer, MakePos(line, column), ScrollTarget{topCode, leftCode});
        EXPECT_EQ(std::pair(buffer->topLine, buffer->leftColumn), std::pair(top, left)) << line;
    }
    Move(buffer, MakePos(3, 0), ScrollTarget{-7, -9});
    EXPECT_EQ(host.boxes[0].caption + ": " + host.ErrorBoxTexts(),
              ": LineScroll Bug\nColumnScroll Bug\n");
    EXPECT_EQ(std::tuple(buffer->topLine, buffer->leftColumn), std::tuple(0, 0));

    // Selection codes keep a coordinate of the current selection; the anchor stays while a
    // selection stands.
    host.boxes.clear();
    Move(buffer, MakePos(1, 4), Show, MakePos(0, 2));
    RecordEdit(*buffer, Origin, Origin, "", MakePos(2, 1), Show, MakePos(SelectKeep, SelectKeep),
               MakePos(2, SelectKeep));
    EXPECT_EQ(Marked(buffer).substr(0, 24), "li[ne 0\nline 1\nl|ine] 2\n");
    EXPECT_EQ(buffer->anchor, MakePos(3, 0));
    Move(buffer, MakePos(2, 1));
    EXPECT_EQ(buffer->anchor, MakePos(2, 1));
    RecordEdit(*buffer, Origin, Origin, "", MakePos(0, 0), Show, MakePos(-2, 0), MakePos(0, -3));
    EXPECT_EQ(host.ErrorBoxTexts() + Marked(buffer).substr(0, 7),
              "Illegal Select code\nIllegal Select code\n|line 0");
}

} // namespace
} // namespace ruvo
