// Word bounds and the plain-text search, and find, replace and go to line as a user drives
// them through their dialogs.
#include "aids/text_search.h"

#include <optional>
#include <string>
#include <tuple>

#include "aids/aids_state.h"
#include "aids/search_commands.h"
#include "buffer_builder.h"
#include "dialog_script.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "engine/word_search.h"

namespace ruvo {
namespace {

class SearchTest : public EditorTest {
  protected:
    // Fills the Find or Replace dialog of `command` with the choices and presses OK.
    void Run(int (*command)(), const SearchState& c) {
        host.dialogActions.push_back([this, c](GadgetDialog& dialog) {
            const bool replace = dialog.title == "Replace Text";
            host.TypeText(*GadgetAfter(dialog, replace ? "&Old text:" : "Find&text:"),
                          c.searchText);
            setGadgetValue(*GadgetAfter(dialog, " Search range: "), c.selectedOnly ? 2
                                                                    : c.fromCursor ? 1
                                                                                   : 0);
            setGadgetValue(*GadgetAfter(dialog, " Search direction: "), c.forward ? 0 : 1);
            setGadgetValue(*GadgetWithText(dialog, "&Whole words"), c.wholeWords);
            setGadgetValue(*GadgetWithText(dialog, "&Case sensitive"), c.caseSensitive);
            if (replace) {
                host.TypeText(*GadgetAfter(dialog, "&New text:"), c.replaceText);
                setGadgetValue(*GadgetWithText(dialog, "Replace &all"), c.replaceAll);
                setGadgetValue(*GadgetWithText(dialog, "&Prompt"), c.prompt);
            }
            DialogOkCommand(dialog);
        });
        command();
    }
};

TextRange Selection(TestBuffer& buffer) {
    return {buffer->selStart, buffer->selEnd};
}

TEST_F(SearchTest, MatchesFollowTheCaseAndWholeWordRulesWhereTheyStart) {
    TestBuffer buffer("clk <= 1;\nclk_en <= (clk);\nsysclk\nSIGNAL s IN x");
    // {pattern, case, whole words, range, match}: the range end bounds where a match may
    // start, not where it ends; a range reaching past the text stops at its ends.
    const std::tuple<const char*, bool, bool, TextRange, std::optional<TextPos>> cases[] = {
        {"clk", false, true, {{0, 1}, {3, 8}}, TextPos{1, 11}}, // not in clk_en
        {"clk", false, true, {{1, 12}, {3, 8}}, std::nullopt},  // not in sysclk
        {"ysclk", false, true, {{2, 0}, {3, 8}}, std::nullopt}, // nor after its first letter
        {"clk", false, false, {{1, 12}, {3, 8}}, TextPos{2, 3}},
        {"Signal", true, false, {{0, 0}, {3, 8}}, std::nullopt},
        {"CLK", false, false, {{2, 2}, {0, 0}}, TextPos{1, 11}},
        {"x", true, false, {{3, 0}, {3, 11}}, std::nullopt},
        {"x", true, false, {{3, 0}, {3, 12}}, TextPos{3, 12}},
        {"", true, false, {{0, 0}, {3, 8}}, std::nullopt},
        {"s", false, false, {{9, 0}, {0, 0}}, TextPos{3, 7}},
        {"clk", false, false, {{-1, 0}, {9, 0}}, TextPos{0, 0}},
        {"zz", false, false, {{1, 0}, {9, 0}}, std::nullopt},
    };
    for (const auto& [pattern, matchCase, wholeWords, range, match] : cases) {
        TextPos found{-1, -1};
        const int any = SearchText(*buffer, pattern, matchCase, wholeWords, range, found);
        EXPECT_EQ(any == 1 ? std::optional(found) : std::nullopt, match) << pattern;
    }
}

TEST_F(SearchTest, WordsStartOnlyAtLettersAndDigits) {
    TestBuffer buffer("a_b1 c\n  _x\n");
    // {line, column, word start, word end}
    const int bounds[][4] = {{0, 2, 0, 4}, {0, 1, 1, 1}, {0, 6, 6, 6}, {1, 3, 2, 4}, {7, 0, 0, 0}};
    for (const auto& b : bounds)
        EXPECT_EQ(WordBounds(*buffer, MakePos(b[0], b[1])),
                  (TextRange{MakePos(b[0], b[2]), MakePos(b[0], b[3])}));
    std::string word = "stale";
    TextPos start;
    EXPECT_EQ(GetWordAt(*buffer, MakePos(0, 3), word, start), 1);
    EXPECT_EQ(std::pair(word, start), std::pair(std::string("a_b1"), MakePos(0, 0)));
    EXPECT_EQ(GetWordAt(*buffer, MakePos(0, 4), word, start), 0);
    EXPECT_EQ(word, "");
}

TEST_F(SearchTest, FindSelectsTheMatchAndRepeatsWithoutWrapping) {
    TestBuffer buffer("a clk b\nclk c\nclk");
    Run(FindText, {.searchText = "clk", .replaceText = ""});
    EXPECT_EQ(Selection(buffer), (TextRange{MakePos(0, 2), MakePos(0, 5)}));
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));
    FindNextText();
    FindNextText();
    EXPECT_EQ(buffer->cursor, MakePos(2, 0));
    EXPECT_EQ(host.statusPanes[4], "");
    FindNextText();
    EXPECT_EQ(host.statusPanes[4], "Search string 'clk' not found.");
    EXPECT_TRUE(host.statusTexts.back().beep);

    // Backwards from the caret, a match that begins at the caret comes first.
    buffer.PlaceCaret(1, 0);
    Run(FindText, {.searchText = "clk", .replaceText = "", .fromCursor = true, .forward = false});
    EXPECT_EQ(buffer->cursor, MakePos(1, 0));
    FindNextText();
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));
}

TEST_F(SearchTest, TheDialogsStartFromTheWordAtTheCaretAndCancelKeepsTheChoices) {
    TestBuffer buffer("count <= count + 1;\n");
    editor.aids.search = {.searchText = "old", .replaceText = "", .wholeWords = true};
    std::string shown;
    // No word at a blank: Find keeps the last text, Replace starts empty.
    const std::tuple<int (*)(), int32_t, const char*> cases[] = {{FindText, 2, "count"},
                                                                 {FindText, 5, "old"},
                                                                 {ReplaceText, 5, ""},
                                                                 {ReplaceText, 10, "count"}};
    for (const auto& [command, column, expected] : cases) {
        buffer.PlaceCaret(0, column);
        host.dialogActions.push_back([&](GadgetDialog& dialog) {
            shown = GadgetAfter(dialog, dialog.title == "Find Text" ? "Find&text:" : "&Old text:")
                        ->textValue;
            setGadgetValue(*GadgetWithText(dialog, "&Whole words"), 0);
            DialogCancelCommand(dialog);
        });
        command();
        EXPECT_EQ(shown, expected);
        EXPECT_EQ(std::pair(editor.aids.search.searchText, editor.aids.search.wholeWords),
                  std::pair(std::string("old"), true));
    }
}

TEST_F(SearchTest, ReplaceAllTakesOneUndoStepPerMatchAndNeverFindsItsOwnResult) {
    TestBuffer buffer("foo x foo\nfoo");
    Run(ReplaceText, {.searchText = "foo", .replaceText = "foobar", .replaceAll = true});
    EXPECT_EQ(buffer.Text(), "foobar x foobar\nfoobar");
    EXPECT_EQ(buffer.LoggedTransactions(), 3);
    EditUndo();
    EXPECT_EQ(buffer.Text(), "foobar x foobar\nfoo");
    // An empty new text leaves the next match where the last one was.
    TestBuffer second("abab x ab");
    Run(ReplaceText, {.searchText = "ab", .replaceText = "", .replaceAll = true});
    EXPECT_EQ(second.Text(), " x ");
}

TEST_F(SearchTest, PromptedReplaceAsksEachTimeAndCancelKeepsWhatWasDone) {
    TestBuffer buffer("foo foo foo foo");
    host.answers = {AnswerYes, AnswerNo, AnswerYes, AnswerCancel};
    Run(ReplaceText,
        {.searchText = "foo", .replaceText = "bar", .replaceAll = true, .prompt = true});
    EXPECT_EQ(buffer.Text(), "bar foo bar foo");
    ASSERT_EQ(host.boxes.size(), 4u);
    EXPECT_EQ(host.boxes[0].caption + "|" + host.boxes[0].text,
              "Replace text:|Replace this occurence of:\n'foo'");
    EXPECT_EQ(host.boxes[0].kind, static_cast<int>(QuestionKind::YesNoCancel));
    // The cancelled match stays selected for the user to see.
    EXPECT_EQ(Selection(buffer), (TextRange{MakePos(0, 12), MakePos(0, 15)}));

    // Without replace all one match is replaced; FindNextText goes on with the rest unasked.
    buffer.PlaceCaret(0, 0);
    Run(ReplaceText, {.searchText = "bar", .replaceText = "q"});
    EXPECT_EQ(buffer.Text(), "q foo bar foo");
    FindNextText();
    EXPECT_EQ(buffer.Text(), "q foo q foo");

    // A selection the user had comes back after a No or a Cancel.
    const std::pair<std::deque<int>, const char*> answers[] = {
        {{AnswerCancel}, "q foo q foo"}, {{AnswerYes, AnswerNo}, "z foo q foo"}};
    for (const auto& [given, text] : answers) {
        buffer.Select(MakePos(0, 2), MakePos(0, 5));
        host.answers = given;
        Run(ReplaceText,
            {.searchText = "q", .replaceText = "z", .replaceAll = true, .prompt = true});
        EXPECT_EQ(buffer.Text(), text);
        EXPECT_EQ(Selection(buffer), (TextRange{MakePos(0, 2), MakePos(0, 5)})) << text;
    }
}

TEST_F(SearchTest, TheSelectedRangeKeepsReplacementsInsideTheSelection) {
    // A match that runs past the end of the selection does not count, in either direction.
    const std::tuple<const char*, const char*, const char*, TextRange, const char*, TextRange>
        cases[] = {{"x x x x\nx", "x", "yy", {{0, 2}, {0, 5}}, "x yy yy x\nx", {{0, 2}, {0, 7}}},
                   {"ab ab ab", "ab", "X", {{0, 0}, {0, 4}}, "X ab ab", {{0, 0}, {0, 3}}},
                   {"ab ab ab", "ab", "X", {{0, 0}, {0, 2}}, "X ab ab", {{0, 0}, {0, 1}}}};
    for (const auto& [text, find, replace, selected, replaced, after] : cases) {
        for (const bool forward : {true, false}) {
            TestBuffer buffer(text);
            buffer.Select(selected.start, selected.end);
            Run(ReplaceText, {.searchText = find,
                              .replaceText = replace,
                              .selectedOnly = true,
                              .forward = forward,
                              .replaceAll = true});
            EXPECT_EQ(buffer.Text(), replaced) << text << forward;
            EXPECT_EQ(Selection(buffer), after) << text << forward;
        }
    }
    // Finding there keeps the selection for the next search and highlights the match.
    TestBuffer found("x yy yy x");
    for (const bool forward : {true, false}) {
        found.Select(MakePos(0, 2), MakePos(0, 7));
        Run(FindText,
            {.searchText = "y", .replaceText = "", .selectedOnly = true, .forward = forward});
        EXPECT_EQ(Selection(found), (TextRange{MakePos(0, 2), MakePos(0, 7)})) << forward;
        ASSERT_FALSE(host.foundTexts.empty());
        EXPECT_EQ(host.foundTexts.back().startColumn, forward ? 2 : 6) << forward;
    }
    // Without a selection nothing happens; a read-only buffer is never replaced in.
    TestBuffer buffer("x x");
    host.statusPanes[4].clear();
    Run(ReplaceText, {.searchText = "x", .replaceText = "y", .selectedOnly = true});
    buffer->lines.readOnly = 1;
    Run(ReplaceText, {.searchText = "x", .replaceText = "y", .replaceAll = true});
    EXPECT_EQ(buffer.Text(), "x x");
    EXPECT_EQ(host.statusPanes[4], "");
}

TEST_F(SearchTest, GotoLineClampsTheNumberIntoTheText) {
    TestBuffer buffer("a\nb\nc\nd\ne");
    const std::pair<const char*, int32_t> cases[] = {{"3", 2},  {"1000", 4},       {"0", 0},
                                                     {"-7", 0}, {"abc", 0},        {" 4x", 3},
                                                     {"+2", 1}, {"99999999999", 4}};
    for (const auto& [typed, line] : cases) {
        buffer.PlaceCaret(2, 1);
        host.dialogActions.push_back([&, typed](GadgetDialog& dialog) {
            host.TypeText(*GadgetAfter(dialog, "&Enter line number:"), typed);
            DialogOkCommand(dialog);
        });
        GotoLine();
        EXPECT_EQ(buffer->cursor, MakePos(line, 0)) << typed;
    }
    // Cancel stays put.
    buffer.PlaceCaret(2, 1);
    GotoLine();
    EXPECT_EQ(buffer->cursor, MakePos(2, 1));
}

} // namespace
} // namespace ruvo
