// Word bounds and the plain-text search, and find, replace and go to line as a user drives
// them through their dialogs.
#include "aids/text_search.h"

#include <algorithm>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "aids/aids_state.h"
#include "aids/search_commands.h"
#include "buffer_builder.h"
#include "dialog_script.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "engine/word_search.h"

namespace ruvo {
namespace {

using SearchTest = EditorTest;

// What the user puts into the Find or Replace dialog before pressing OK.
struct Choices {
    std::string find;
    std::string replace = ""; // typed into the Replace dialog only
    int range = 0;            // entire, from cursor, selected
    bool backward = false, wholeWords = false, caseSensitive = false;
    bool replaceAll = false, prompt = false;
};

std::function<void(GadgetDialog&)> Confirm(FakeHost& host, const Choices& c) {
    return [&host, c](GadgetDialog& dialog) {
        const bool replace = dialog.title == "Replace Text";
        host.TypeText(*GadgetAfter(dialog, replace ? "&Old text:" : "Find&text:"), c.find);
        setGadgetValue(*GadgetAfter(dialog, " Search range: "), c.range);
        setGadgetValue(*GadgetAfter(dialog, " Search direction: "), c.backward ? 1 : 0);
        setGadgetValue(*GadgetWithText(dialog, "&Whole words"), c.wholeWords);
        setGadgetValue(*GadgetWithText(dialog, "&Case sensitive"), c.caseSensitive);
        if (replace) {
            host.TypeText(*GadgetAfter(dialog, "&New text:"), c.replace);
            setGadgetValue(*GadgetWithText(dialog, "Replace &all"), c.replaceAll);
            setGadgetValue(*GadgetWithText(dialog, "&Prompt"), c.prompt);
        }
        DialogOkCommand(dialog);
    };
}

TextRange Selection(TestBuffer& buffer) {
    return {buffer->selStart, buffer->selEnd};
}

TEST_F(SearchTest, MatchesFollowTheWholeWordAndCaseRules) {
    TestBuffer buffer("clk <= 1;\nclk_en <= (clk);\nsysclk\nSIGNAL s");
    const TextPos end = MakePos(3, 8);
    const struct {
        const char* text;
        bool caseSensitive, wholeWords;
        TextPos from;
        std::optional<TextPos> found;
    } cases[] = {{"clk", false, true, MakePos(0, 1), MakePos(1, 11)}, // not in clk_en
                 {"clk", false, true, MakePos(1, 12), std::nullopt},  // not in sysclk
                 {"clk", false, false, MakePos(1, 12), MakePos(2, 3)},
                 {"Signal", false, false, MakePos(0, 0), MakePos(3, 0)},
                 {"Signal", true, false, MakePos(0, 0), std::nullopt},
                 {"", false, false, MakePos(0, 0), std::nullopt}};
    for (const auto& c : cases) {
        TextPos found{-1, -1};
        const bool any =
            searchInBuffer(*buffer, c.text, c.caseSensitive, c.wholeWords, c.from, end, found);
        EXPECT_EQ(any ? std::optional(found) : std::nullopt, c.found) << c.text;
    }
}

TEST_F(SearchTest, FindSelectsTheMatchAndRepeatsWithoutWrapping) {
    TestBuffer buffer("a clk b\nclk c\nclk");
    host.dialogActions.push_back(Confirm(host, {.find = "clk"}));
    FindText();
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));
    EXPECT_EQ(Selection(buffer), (TextRange{MakePos(0, 2), MakePos(0, 5)}));
    FindNextText();
    FindNextText();
    EXPECT_EQ(buffer->cursor, MakePos(2, 0));
    EXPECT_EQ(host.statusPanes[4], "");
    FindNextText();
    EXPECT_EQ(host.statusPanes[4], "Search string 'clk' not found.");
    EXPECT_TRUE(host.statusTexts.back().beep);

    // Backwards from the caret, a match that begins at the caret comes first.
    buffer.PlaceCaret(1, 0);
    host.dialogActions.push_back(Confirm(host, {.find = "clk", .range = 1, .backward = true}));
    FindText();
    EXPECT_EQ(buffer->cursor, MakePos(1, 0));
    FindNextText();
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));
}

TEST_F(SearchTest, TheDialogsStartFromTheWordAtTheCaretAndCancelKeepsTheChoices) {
    TestBuffer buffer("count <= count + 1;\n");
    SearchState& state = editor.aids.search;
    state.searchText = "old";
    state.wholeWords = true;
    std::string shown;
    auto look = [&](GadgetDialog& dialog) {
        shown = GadgetAfter(dialog, dialog.title == "Find Text" ? "Find&text:" : "&Old text:")
                    ->textValue;
        setGadgetValue(*GadgetWithText(dialog, "&Whole words"), 0);
        DialogCancelCommand(dialog);
    };
    const struct {
        int (*command)();
        TextPos caret;
        const char* expected;
    } cases[] = {{FindText, MakePos(0, 2), "count"},
                 {FindText, MakePos(0, 5), "old"}, // no word at a blank: the last text stays
                 {ReplaceText, MakePos(0, 5), ""},
                 {ReplaceText, MakePos(0, 10), "count"}};
    for (const auto& c : cases) {
        buffer.PlaceCaret(c.caret.line, c.caret.column);
        host.dialogActions.push_back(look);
        c.command();
        EXPECT_EQ(shown, c.expected);
        EXPECT_EQ(state.searchText, "old");
        EXPECT_TRUE(state.wholeWords);
    }
    EXPECT_EQ(host.shownDialogs,
              (std::vector<std::string>{"Find Text", "Find Text", "Replace Text", "Replace Text"}));
}

TEST_F(SearchTest, ReplaceAllTakesOneUndoStepPerMatchAndNeverFindsItsOwnResult) {
    TestBuffer buffer("foo x foo\nfoo");
    host.dialogActions.push_back(
        Confirm(host, {.find = "foo", .replace = "foobar", .replaceAll = true}));
    ReplaceText();
    EXPECT_EQ(buffer.Text(), "foobar x foobar\nfoobar");
    EXPECT_TRUE(host.boxes.empty());
    EditUndo();
    EXPECT_EQ(buffer.Text(), "foobar x foobar\nfoo");
    EditUndo();
    EditUndo();
    EXPECT_EQ(buffer.Text(), "foo x foo\nfoo");
    EXPECT_EQ(buffer.LoggedTransactions(), 3);

    // An empty new text leaves the next match where the last one was.
    host.dialogActions.push_back(Confirm(host, {.find = "ab", .replace = "", .replaceAll = true}));
    TestBuffer second("abab x ab");
    ReplaceText();
    EXPECT_EQ(second.Text(), " x ");
}

TEST_F(SearchTest, PromptedReplaceAsksEachTimeAndCancelKeepsWhatWasDone) {
    TestBuffer buffer("foo foo foo foo");
    const Choices all{.find = "foo", .replace = "bar", .replaceAll = true, .prompt = true};
    host.answers = {AnswerCancel};
    host.dialogActions.push_back(Confirm(host, all));
    ReplaceText();
    EXPECT_EQ(buffer.Text(), "foo foo foo foo");
    EXPECT_EQ(host.boxes.size(), 1u);

    host.boxes.clear();
    buffer.Select(MakePos(0, 0), MakePos(0, 0));
    host.answers = {AnswerYes, AnswerNo, AnswerYes, AnswerCancel};
    host.dialogActions.push_back(Confirm(host, all));
    ReplaceText();
    EXPECT_EQ(buffer.Text(), "bar foo bar foo");
    ASSERT_EQ(host.boxes.size(), 4u);
    EXPECT_EQ(host.boxes[0].caption + "|" + host.boxes[0].text,
              "Replace text:|Replace this occurence of:\n'foo'");
    EXPECT_EQ(host.boxes[0].kind, static_cast<int>(QuestionKind::YesNoCancel));
    // The cancelled match stays selected for the user to see.
    EXPECT_EQ(Selection(buffer), (TextRange{MakePos(0, 12), MakePos(0, 15)}));

    // Without replace all one match is replaced; FindNextText goes on with the rest unasked.
    buffer.PlaceCaret(0, 0);
    host.dialogActions.push_back(Confirm(host, {.find = "bar", .replace = "q"}));
    ReplaceText();
    EXPECT_EQ(buffer.Text(), "q foo bar foo");
    FindNextText();
    EXPECT_EQ(buffer.Text(), "q foo q foo");

    // A selection the user had comes back after a No or a Cancel.
    const std::pair<std::deque<int>, const char*> answers[] = {
        {{AnswerCancel}, "q foo q foo"}, {{AnswerYes, AnswerNo}, "z foo q foo"}};
    for (const auto& [given, text] : answers) {
        buffer.Select(MakePos(0, 2), MakePos(0, 5));
        host.answers = given;
        host.dialogActions.push_back(
            Confirm(host, {.find = "q", .replace = "z", .replaceAll = true, .prompt = true}));
        ReplaceText();
        EXPECT_EQ(buffer.Text(), text);
        EXPECT_EQ(Selection(buffer), (TextRange{MakePos(0, 2), MakePos(0, 5)})) << text;
    }
}

TEST_F(SearchTest, TheSelectedRangeKeepsReplacementsInsideTheSelection) {
    // A match that runs past the end of the selection does not count, in either direction.
    const struct {
        const char *text, *find, *replace;
        TextRange selected;
        const char* replaced;
        TextRange after;
    } cases[] = {{"x x x x\nx", "x", "yy", {{0, 2}, {0, 5}}, "x yy yy x\nx", {{0, 2}, {0, 7}}},
                 {"ab ab ab", "ab", "X", {{0, 0}, {0, 4}}, "X ab ab", {{0, 0}, {0, 3}}},
                 {"ab ab ab", "ab", "X", {{0, 0}, {0, 2}}, "X ab ab", {{0, 0}, {0, 1}}}};
    for (const auto& c : cases) {
        for (const bool backward : {false, true}) {
            TestBuffer buffer(c.text);
            buffer.Select(c.selected.start, c.selected.end);
            host.dialogActions.push_back(Confirm(host, {.find = c.find,
                                                        .replace = c.replace,
                                                        .range = 2,
                                                        .backward = backward,
                                                        .replaceAll = true}));
            ReplaceText();
            EXPECT_EQ(buffer.Text(), c.replaced) << c.text << backward;
            EXPECT_EQ(Selection(buffer), c.after) << c.text << backward;
        }
    }
    // Finding there keeps the selection for the next search and highlights the match.
    TestBuffer found("x yy yy x");
    for (const bool backward : {false, true}) {
        found.Select(MakePos(0, 2), MakePos(0, 7));
        host.dialogActions.push_back(
            Confirm(host, {.find = "y", .range = 2, .backward = backward}));
        FindText();
        EXPECT_EQ(Selection(found), (TextRange{MakePos(0, 2), MakePos(0, 7)})) << backward;
        ASSERT_FALSE(host.foundTexts.empty());
        EXPECT_EQ(host.foundTexts.back().startColumn, backward ? 6 : 2) << backward;
    }
    // Without a selection nothing happens; a read-only buffer is never replaced in.
    TestBuffer buffer("x x");
    host.statusPanes[4].clear();
    host.dialogActions.push_back(Confirm(host, {.find = "x", .replace = "y", .range = 2}));
    ReplaceText();
    buffer->lines.readOnly = 1;
    host.dialogActions.push_back(Confirm(host, {.find = "x", .replace = "y", .replaceAll = true}));
    ReplaceText();
    EXPECT_EQ(buffer.Text(), "x x");
    EXPECT_EQ(host.statusPanes[4], "");
}

TEST_F(SearchTest, GotoLineClampsTheNumberIntoTheText) {
    TestBuffer buffer("a\nb\nc\nd\ne");
    const struct {
        const char* typed;
        int32_t line;
    } cases[] = {{"3", 2},   {"1000", 4}, {"0", 0},          {"-7", 0},
                 {"abc", 0}, {" 4x", 3},  {"99999999999", 4}};
    for (const auto& c : cases) {
        buffer.PlaceCaret(2, 1);
        host.dialogActions.push_back([&](GadgetDialog& dialog) {
            host.TypeText(*GadgetAfter(dialog, "&Enter line number:"), c.typed);
            DialogOkCommand(dialog);
        });
        GotoLine();
        EXPECT_EQ(buffer->cursor, MakePos(c.line, 0)) << c.typed;
    }
    // Cancel stays put; the one dialog is reused.
    buffer.PlaceCaret(2, 1);
    GotoLine();
    EXPECT_EQ(buffer->cursor, MakePos(2, 1));
    EXPECT_EQ(host.shownDialogs.size(), 8u);
}

TEST_F(SearchTest, WordsStartOnlyAtLettersAndDigits) {
    TestBuffer buffer("a_b1 c\n  _x\n");
    // {line, column, word start, word end}
    const int bounds[][4] = {{0, 2, 0, 4}, {0, 0, 0, 4}, {0, 1, 1, 1},
                             {0, 5, 5, 6}, {0, 6, 6, 6}, {1, 3, 2, 4}};
    for (const auto& b : bounds)
        EXPECT_EQ(WordBounds(*buffer, MakePos(b[0], b[1])),
                  (TextRange{MakePos(b[0], b[2]), MakePos(b[0], b[3])}));

    std::string word = "stale";
    TextPos start;
    EXPECT_EQ(GetWordAt(*buffer, MakePos(0, 3), word, start), 1);
    EXPECT_EQ(word, "a_b1");
    EXPECT_EQ(start, MakePos(0, 0));
    EXPECT_EQ(GetWordAt(*buffer, MakePos(0, 4), word, start), 0);
    EXPECT_EQ(word, "");
    EXPECT_EQ(GetWordAt(*buffer, MakePos(2, 0), word, start), 0);
    EXPECT_EQ(GetWordAt(*buffer, MakePos(7, 0), word, start), 0);
}

// Positions and directions are checked at random below; these are the rules it leaves out.
TEST_F(SearchTest, SearchHonoursCaseAndBoundsOnlyWhereAMatchStarts) {
    TestBuffer buffer("int in\nbegin IN x\nin");
    // {pattern, case, whole words, range, match}: the range end bounds where a match may
    // start, not where it ends; a range reaching past the text stops at its ends.
    const std::tuple<const char*, bool, bool, TextRange, std::optional<TextPos>> cases[] = {
        {"in", false, true, {{1, 0}, {2, 2}}, TextPos{1, 6}},
        {"AB", false, false, {{2, 2}, {0, 0}}, std::nullopt},
        {"BEGIN", false, false, {{2, 2}, {0, 0}}, TextPos{1, 0}},
        {"x", true, false, {{1, 0}, {1, 8}}, std::nullopt},
        {"x", true, false, {{1, 0}, {1, 9}}, TextPos{1, 9}},
        {"IN x", true, false, {{1, 0}, {1, 6}}, TextPos{1, 6}},
        {"", true, false, {{0, 0}, {2, 2}}, std::nullopt},
        {"n\nb", true, false, {{0, 0}, {2, 2}}, std::nullopt},
        {"in", false, false, {{9, 0}, {0, 0}}, TextPos{2, 0}},
        {"zz", false, false, {{1, 0}, {9, 0}}, std::nullopt},
    };
    for (const auto& [pattern, matchCase, wholeWords, range, match] : cases) {
        TextPos found{-1, -1};
        const int any = SearchText(*buffer, pattern, matchCase, wholeWords, range, found);
        EXPECT_EQ(any == 1 ? std::optional(found) : std::nullopt, match) << pattern;
    }
}

// The nearest match in the direction of the search, by trying every position in the range.
bool NaiveSearch(const std::vector<std::string>& lines, const std::string& pattern, bool wholeWord,
                 TextRange range, TextPos& found) {
    const bool forward = PosLess(range.start, range.end);
    TextPos low = forward ? range.start : range.end;
    // Going back from a later line, the search enters the end's line where the pattern could
    // last start; when that lies before the range end, that one position is still tried.
    if (!forward && range.start.line > range.end.line) {
        const int32_t length = static_cast<int32_t>(lines[range.end.line].size());
        const int32_t entry = std::max<int32_t>(0, length - static_cast<int32_t>(pattern.size()));
        if (entry < low.column) low.column = entry;
    }
    const TextPos high = forward ? range.end : range.start;
    bool any = false;
    for (int32_t line = 0; line < static_cast<int32_t>(lines.size()); ++line) {
        const std::string& text = lines[line];
        for (int32_t column = 0; column <= static_cast<int32_t>(text.size()); ++column) {
            const TextPos pos = MakePos(line, column);
            if (PosLess(pos, low) || PosLess(high, pos)) continue;
            if (text.compare(column, pattern.size(), pattern) != 0) continue;
            if (wholeWord && column > 0 && IsWordChar(text[column - 1])) continue;
            const size_t after = column + pattern.size();
            if (wholeWord && after < text.size() && IsWordChar(text[after])) continue;
            if (!any || !forward) found = pos; // forward keeps the first, backward the last
            any = true;
        }
    }
    return any;
}

TEST_F(SearchTest, RandomSearchesAgreeWithTryingEveryPosition) {
    std::mt19937 random(5);
    auto below = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(random); };
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> lines(static_cast<size_t>(below(5) + 1));
        std::string text;
        for (std::string& line : lines) {
            for (int i = below(12); i > 0; --i)
                line += "ab_ "[below(4)];
            if (&line != &lines.front()) text += '\n';
            text += line;
        }
        TestBuffer buffer(text);
        for (int query = 0; query < 20; ++query) {
            std::string pattern;
            for (int i = below(3) + 1; i > 0; --i)
                pattern += "ab_"[below(3)];
            const bool wholeWord = below(2) == 0;
            auto anyPos = [&] {
                const int line = below(static_cast<int>(lines.size()));
                return MakePos(line, below(static_cast<int>(lines[line].size()) + 1));
            };
            const TextRange range{anyPos(), anyPos()};
            TextPos expected{-1, -1};
            TextPos found{-1, -1};
            const bool naive = !PosEqual(range.start, range.end) &&
                               NaiveSearch(lines, pattern, wholeWord, range, expected);
            const std::string what =
                "'" + pattern + "' in '" + text + "' from " + std::to_string(range.start.line) +
                "," + std::to_string(range.start.column) + " to " + std::to_string(range.end.line) +
                "," + std::to_string(range.end.column);
            ASSERT_EQ(SearchText(*buffer, pattern, true, wholeWord, range, found), naive ? 1 : 0)
                << what;
            if (naive) {
                ASSERT_EQ(found, expected) << what;
            }
        }
    }
}

} // namespace
} // namespace ruvo
