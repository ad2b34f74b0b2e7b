// Word bounds and the plain-text search, and find, replace and go to line as a user drives
// them through their dialogs.
#include "aids/text_search.h"

#include <optional>
#include <string>
#include <tuple>

#include "aids/aids_state.h"
#include "aids/search_commands.h"
#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/word_search.h"

namespace ruvo {
namespace {

class SearchTest : public EditorTest {
  protected:
    // Fills the Find or Replace dialog of `command` and presses OK; `choices` holds c(ursor),
    // s(elected range), b(ackward), a(ll) and p(rompt).
    void Run(int (*command)(), const char* find, const char* by, std::string_view choices) {
        const auto on = [choices](char c) { return choices.find(c) != std::string_view::npos; };
        host.dialogActions.push_back([=, this](GadgetDialog& dialog) {
            const bool replace = dialog.title == "Replace Text";
            host.TypeText(*GadgetAfter(dialog, replace ? "&Old text:" : "Find&text:"), find);
            setGadgetValue(*GadgetAfter(dialog, " Search range: "), on('s') ? 2 : on('c'));
            setGadgetValue(*GadgetAfter(dialog, " Search direction: "), on('b'));
            if (replace) {
                host.TypeText(*GadgetAfter(dialog, "&New text:"), by);
                setGadgetValue(*GadgetWithText(dialog, "Replace &all"), on('a'));
                setGadgetValue(*GadgetWithText(dialog, "&Prompt"), on('p'));
            }
            DialogOkCommand(dialog);
        });
        command();
    }
};

TEST_F(SearchTest, FindSelectsTheMatchAndDoesNotWrap) {
    TestBuffer buffer("a clk b\nclk c\nclk");
    Run(FindText, "clk", "", "");
    EXPECT_EQ((TextRange{buffer->selStart, buffer->selEnd}), (TextRange{{0, 2}, {0, 5}}));
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));
    FindNextText();
    FindNextText();
    EXPECT_EQ(std::tuple(buffer->cursor, host.statusPanes[4]), std::tuple(MakePos(2, 0), ""));
    FindNextText();
    EXPECT_EQ(host.statusPanes[4], "Search string 'clk' not found.");
    EXPECT_TRUE(host.statusTexts.back().beep);
    // The dialog starts from the word at the caret; Cancel keeps the last choices.
    host.dialogActions.push_back([](GadgetDialog& dialog) {
        EXPECT_EQ(GadgetAfter(dialog, "Find&text:")->textValue, "a");
        setGadgetValue(*GadgetAfter(dialog, " Search direction: "), 1);
        DialogCancelCommand(dialog);
    });
    buffer.PlaceCaret(0, 0);
    FindText();
    EXPECT_EQ(std::pair(editor.aids.search.searchText, editor.aids.search.forward),
              std::pair(std::string("clk"), true));

    // Backwards from the caret, a match that begins at the caret comes first.
    buffer.PlaceCaret(1, 0);
    Run(FindText, "clk", "", "cb");
    EXPECT_EQ(buffer->cursor, MakePos(1, 0));
    FindNextText();
    EXPECT_EQ(buffer->cursor, MakePos(0, 2));

    // In the selected range the selection stays for the next search and the match is highlighted.
    for (const bool forward : {true, false}) {
        buffer.Select(MakePos(0, 0), MakePos(1, 3));
        Run(FindText, "clk", "", forward ? "s" : "sb");
        EXPECT_EQ((TextRange{buffer->selStart, buffer->selEnd}), (TextRange{{0, 0}, {1, 3}}));
        ASSERT_FALSE(host.foundTexts.empty());
        EXPECT_EQ(host.foundTexts.back().startColumn, forward ? 2 : 0) << forward;
    }
}

TEST_F(SearchTest, GotoLineClampsTheNumberIntoTheText) {
    TestBuffer buffer("a clk b\nclk c\nclk");
    const std::pair<const char*, int32_t> lines[] = {{"3", 2},  {"1000", 2},       {"0", 0},
                                                     {"-7", 0}, {"abc", 0},        {" 2x", 1},
                                                     {"+2", 1}, {"99999999999", 2}};
    for (const auto& [typed, line] : lines) {
        buffer.PlaceCaret(2, 1);
        host.dialogActions.push_back([&, typed](GadgetDialog& dialog) {
            host.TypeText(*GadgetAfter(dialog, "&Enter line number:"), typed);
            DialogOkCommand(dialog);
        });
        GotoLine();
        EXPECT_EQ(buffer->cursor, MakePos(line, 0)) << typed;
    }
}

TEST_F(SearchTest, MatchesFollowTheCaseAndWholeWordRulesWhereTheyStart) {
    TestBuffer clocks("clk <= 1;\nclk_en <= (clk);\nsysclk\nSIGNAL s IN x");
    // {pattern, case, whole words, range, match}: the range end bounds where a match may
    // start, not where it ends; a range reaching past the text stops at its ends.
    const std::tuple<const char*, bool, bool, TextRange, std::optional<TextPos>> patterns[] = {
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
    for (const auto& [pattern, matchCase, wholeWords, range, match] : patterns) {
        TextPos found{-1, -1};
        const int any = SearchText(*clocks, pattern, matchCase, wholeWords, range, found);
        EXPECT_EQ(any == 1 ? std::optional(found) : std::nullopt, match) << pattern;
    }
}

// {text, selected columns, old, new, choices, answers (y, n, c), text after, selection after}: an
// empty new text leaves the next match where the last one was; a cancelled match stays selected;
// a selection the user had comes back after a No or a Cancel; in the selected range a match
// running past the selection's end does not count, in either direction; r: a read-only buffer.
TEST_F(SearchTest, ReplaceFollowsTheChoicesAndTheAnswers) {
    using Columns = std::pair<int32_t, int32_t>;
    const std::tuple<const char*, Columns, const char*, const char*, const char*, const char*,
                     const char*, Columns>
        rows[] = {{"abab x ab", {}, "ab", "", "a", "", " x ", {}},
                  {"foo foo foo foo", {}, "foo", "bar", "ap", "ynyc", "bar foo bar foo", {12, 15}},
                  {"bar foo bar", {}, "bar", "q", "", "", "q foo bar", {}},
                  {"q foo q", {}, "q", "z", "p", "c", "q foo q", {0, 1}},
                  {"q foo q", {2, 5}, "q", "z", "ap", "c", "q foo q", {2, 5}},
                  {"q foo q", {2, 5}, "q", "z", "ap", "yn", "z foo q", {2, 5}},
                  {"x x x x\nx", {2, 5}, "x", "yy", "as", "", "x yy yy x\nx", {2, 7}},
                  {"x x x x\nx", {2, 5}, "x", "yy", "asb", "", "x yy yy x\nx", {2, 7}},
                  {"ab ab ab", {0, 4}, "ab", "X", "as", "", "X ab ab", {0, 3}},
                  {"ab ab ab", {0, 4}, "ab", "X", "asb", "", "X ab ab", {0, 3}},
                  {"ab ab ab", {0, 2}, "ab", "X", "as", "", "X ab ab", {0, 1}},
                  {"ab ab ab", {0, 2}, "ab", "X", "asb", "", "X ab ab", {0, 1}},
                  {"x x", {}, "x", "y", "s", "", "x x", {}},
                  {"x x", {}, "x", "y", "ar", "", "x x", {}}};
    for (const auto& [text, selected, find, by, choices, answers, after, selection] : rows) {
        TestBuffer buffer(text);
        buffer.Select(MakePos(0, selected.first), MakePos(0, selected.second));
        buffer->lines.readOnly = std::string_view(choices).ends_with('r');
        for (const char* a = answers; *a != '\0'; ++a)
            host.answers.push_back(*a == 'y' ? AnswerYes : *a == 'n' ? AnswerNo : AnswerCancel);
        host.statusPanes[4].clear();
        Run(ReplaceText, find, by, choices);
        EXPECT_EQ(buffer.Text(), after) << text << choices;
        // Where nothing changes, nothing is said either.
        EXPECT_EQ(after == std::string_view(text) ? host.statusPanes[4] : "", "") << choices;
        if (selection.second > 0) {
            EXPECT_EQ((TextRange{buffer->selStart, buffer->selEnd}),
                      (TextRange{{0, selection.first}, {0, selection.second}}))
                << text << choices;
        }
    }
    EXPECT_EQ(host.boxes[0].caption + "|" + host.boxes[0].text,
              "Replace text:|Replace this occurence of:\n'foo'");
    EXPECT_EQ(host.boxes[0].kind, static_cast<int>(QuestionKind::YesNoCancel));
}

} // namespace
} // namespace ruvo
