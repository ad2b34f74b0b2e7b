// Long random runs of edits, pastes, caret moves, replace all, range edits, templates,
// abbreviations, undos and redos, each step checked against plain models of the text and of
// the undo history; undoing everything restores the start.
#include <algorithm>
#include <cctype>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "aids/aids_state.h"
#include "aids/range_edits.h"
#include "aids/template_expand.h"
#include "aids/text_search.h"
#include "aids/word_expansion.h"
#include "editor_fixture.h"
#include "engine/clipboard_commands.h"
#include "engine/text_store.h"
#include "lang/keyword_lookup.h"
#include "lang/language_table.h"
#include "test_files.h"

namespace ruvo {
namespace {

const char* const ReservedWords[] = {"end", "entity", "is", "port"};

TextPos Clamp(const Texts& text, TextPos pos) {
    const int32_t line = std::clamp<int32_t>(pos.line, 0, static_cast<int32_t>(text.size()) - 1);
    return MakePos(line, std::clamp<int32_t>(pos.column, 0, text[line].size()));
}

std::string Cased(std::string text, bool upper = false) {
    for (char& c : text)
        c = static_cast<char>(upper ? std::toupper(c & 0xff) : std::tolower(c & 0xff));
    return text;
}

// The text with [start, end) replaced, or as it was if a line would pass 255 bytes; a carriage
// return before a line feed goes.
Texts Replace(const Texts& text, TextPos start, TextPos end, const std::string& inserted) {
    Texts out(text.begin(), text.begin() + start.line);
    out.push_back(text[start.line].substr(0, start.column));
    for (size_t i = 0; i < inserted.size(); ++i) {
        if (inserted[i] == '\n')
            out.emplace_back();
        else if (inserted.compare(i, 2, "\r\n") != 0)
            out.back() += inserted[i];
    }
    out.back() += text[end.line].substr(end.column);
    out.insert(out.end(), text.begin() + end.line + 1, text.end());
    return std::ranges::any_of(out, [](auto& line) { return line.size() > 255; }) ? text : out;
}

// Replace all from the start: each match replaced in turn, the search going on after the new
// text; the first replacement that would make a line too long ends the run.
Texts ReplaceAll(Texts text, const std::string& find, const std::string& by, bool matchCase) {
    for (std::string& line : text) {
        for (size_t at = 0;;) {
            at = (matchCase ? line : Cased(line)).find(matchCase ? find : Cased(find), at);
            if (at == std::string::npos) break;
            if (line.size() - find.size() + by.size() > 255) return text;
            line.replace(at, find.size(), by);
            at += by.size();
        }
    }
    return text;
}

// Comment and indent add their text to each line that stays short enough, or take it off the
// lines that begin with it; the case edit changes reserved words (a letter and the identifier
// bytes after it) outside the "--" comment.
Texts RangeEdit(Texts text, RangeAction action, bool first, int32_t from, int32_t to) {
    const std::string mark = action == RangeAction::Indent ? "\t" : "--";
    for (int32_t i = std::max(from, 0); i <= std::min<int32_t>(to, text.size() - 1); ++i) {
        std::string& line = text[static_cast<size_t>(i)];
        if (action != RangeAction::Case) {
            if (first && line.size() + mark.size() <= 255)
                line = mark + line;
            else if (!first && line.starts_with(mark))
                line.erase(0, mark.size());
            continue;
        }
        for (size_t column = 0; column < line.size() && line.compare(column, 2, "--") != 0;) {
            size_t end = column + 1;
            while (IsAsciiLetter(line[column]) && end < line.size() && IsIdentifierChar(line[end]))
                ++end;
            const std::string word = line.substr(column, end - column);
            if (std::ranges::count(ReservedWords, Cased(word)))
                line.replace(column, word.size(), Cased(word, first));
            column = end;
        }
    }
    return text;
}

class EngineRandomTest : public EditorTest, public ::testing::WithParamInterface<unsigned> {
  protected:
    void SetUp() override {
        LanguageDef& vhdl = LanguageEntry(1);
        vhdl.lineComment = "--";
        vhdl.caseSensitive = false;
        for (const char* word : ReservedWords)
            ASSERT_TRUE(vhdl.groups[0].words.Append(word));
        SortKeywords(vhdl.groups[0].words);
        for (const auto& [name, value] : {std::pair{"ent", "entity"}, std::pair{"slv", "bit(7)"}})
            ASSERT_TRUE(vhdl.expanderNames.Append(name) && vhdl.expanderValues.Append(value));
        buffer->language = &vhdl;
        buffer->visibleLines = 6;
        buffer->visibleColumns = 30;
    }

    int Below(int n) { return n <= 0 ? 0 : std::uniform_int_distribution<int>(0, n - 1)(random); }
    TextPos AnyPos(const Texts& text) {
        const int line = Below(static_cast<int>(text.size()));
        return MakePos(line, Below(static_cast<int>(text[line].size()) + 1));
    }
    std::string Pick(std::initializer_list<const char*> choices) {
        return *(choices.begin() + Below(static_cast<int>(choices.size())));
    }
    // Words and reserved words, now and then a long run, on lines split by LF or CR LF.
    std::string Paste(int lines) {
        const char* const end = Below(2) == 0 ? "\r\n" : "\n";
        std::string text;
        for (int i = lines; i > 0; --i) {
            for (int j = Below(5); j >= 0; --j)
                text += Pick({"entity", "END", "is", "x", "Port", "a_1", "--", "\r"}) +
                        Pick({" ", "\t"});
            text += std::string(Below(6) == 0 ? Below(240) : 0, 'y') + (i > 1 ? end : "");
        }
        return text;
    }
    TextPos Caret(const Texts& text) { return Clamp(text, buffer->cursor); }

    // Runs one random command on the buffer and gives the model's text after it.
    Texts RunCommand(const Texts& text) {
        switch (Below(8)) {
        case 0: { // a paste over the selection: the selection goes even if the text is refused,
                  // the text goes in at the caret if the selection stays
            host.clipboard = Paste(Below(5) + 1);
            const bool selected = buffer->lines.hasSelection != 0;
            const Texts after =
                selected ? Replace(text, buffer->selStart, buffer->selEnd, "") : text;
            const TextPos at = after != text ? buffer->selStart : Caret(text);
            EditPaste();
            std::string pasted = *host.clipboard;
            std::erase(pasted, '\r');
            return Replace(after, at, at, pasted);
        }
        case 1: {
            const SearchState state{.searchText = Pick({"is", "sig", "x", "en", "--"}),
                                    .replaceText = Pick({"", "IS", "xx", "sig sig", "is is"}),
                                    .replaceMode = true,
                                    .caseSensitive = Below(2) == 0,
                                    .replaceAll = true};
            RunSearch(*buffer, state);
            return ReplaceAll(text, state.searchText, state.replaceText, state.caseSensitive);
        }
        case 2: {
            const RangeAction action = static_cast<RangeAction>(Below(3));
            const bool first = Below(2) == 0;
            const int32_t from = Below(static_cast<int>(text.size()) + 2) - 1;
            const int32_t to = from + Below(6) - 1;
            ApplyRangeEdit(action, first, from, to);
            return RangeEdit(text, action, first, from, to);
        }
        case 3: {
            auto& values = editor.hdlAids.templates.parameterValues;
            values[0] = Pick({"top", "a_b", ""});
            values[1] = Pick({"clk", "d, q", ""});
            const TextPos at = Caret(text);
            InsertTemplate({"entity", 2, {}, {}, "entity $1$ is\n  port ($2$);\nend $1$;\n"});
            const std::string body = "entity " + values[0] + " is\n  port (" + values[1] +
                                     ");\nend " + values[0] + ";\n";
            return Replace(text, at, at, body);
        }
        case 4: { // the word before the caret, an abbreviation or not, expanded
            const TextPos caret = Caret(text);
            const std::string& line = text[static_cast<size_t>(caret.line)];
            int32_t from = caret.column;
            while (from > 0 && IsIdentifierChar(line[from - 1]))
                --from;
            const std::string word = Cased(line.substr(from, caret.column - from));
            LanguageExpand();
            const std::string value = word == "ent" ? "entity" : word == "slv" ? "bit(7)" : "";
            return value.empty() ? text : Replace(text, MakePos(caret.line, from), caret, value);
        }
        default: { // raw text over a range (typing, deleting, replacing), or a caret move
            TextPos from = AnyPos(text);
            TextPos to = Below(8) == 0   ? AnyPos(text)
                         : Below(3) == 0 ? NextPos(*buffer, from)
                                         : from;
            const int kind = Below(4);
            const std::string inserted = kind == 0   ? ""
                                         : kind == 1 ? Pick({"ent", "SLV", "x", "\t"})
                                                     : Paste(Below(2) + 1);
            // A range whose start is not before its end replaces nothing.
            const Texts after = Replace(text, from, PosLess(from, to) ? to : from, inserted);
            const bool move = kind == 0 && PosEqual(from, to);
            const TextPos caret = move ? AnyPos(text) : EndOfInsertion(from, inserted);
            const TextPos anchor = Below(3) == 0 ? AnyPos(after) : caret;
            const size_t boxes = host.boxes.size();
            RecordEdit(*buffer, from, to, inserted, caret, {ScrollKeep - Below(4), Below(12) - 2},
                       anchor, caret);
            if (host.boxes.size() > boxes) return text; // a line became too long on the way
            EXPECT_EQ(buffer->cursor, Clamp(after, caret));
            EXPECT_EQ(buffer->selStart, PosLess(caret, anchor) ? caret : anchor);
            return after;
        }
        }
    }

    std::mt19937 random{GetParam()};
    TestBuffer buffer{"entity top is\n\tport (clk : in bit); -- the clock\n\nend entity;"};
};

TEST_P(EngineRandomTest, EveryStepMatchesTheModelAndEverythingCanBeUndone) {
    // The history as the log keeps it: undone steps come back as inverses before a new step.
    // The states a command passes on its way are learnt when undo or redo first reaches them.
    std::vector<std::shared_ptr<const Texts>> states{std::make_shared<Texts>(LinesOf(*buffer))};
    size_t current = 0;
    for (int step = 0; step < 4000; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const int kind = Below(8);
        if (kind < 2) {
            const bool moved = kind == 0 ? current > 0 : current + 1 < states.size();
            if (moved) current = kind == 0 ? current - 1 : current + 1;
            ASSERT_EQ(kind == 0 ? UndoTransaction() : RedoTransaction(*buffer), moved ? 0 : 1);
            if (!states[current]) states[current] = std::make_shared<Texts>(LinesOf(*buffer));
        } else {
            const int logged = buffer.LoggedTransactions();
            const Texts after = RunCommand(*states[current]);
            ASSERT_FALSE(HasFailure());
            ASSERT_EQ(LinesOf(*buffer), after);
            int added = buffer.LoggedTransactions() - logged;
            // A recording command re-records the undone steps first, then adds its own.
            if (added == 0) continue;
            for (size_t k = states.size() - 1; k > current; --k, --added)
                states.push_back(states[k - 1]);
            for (int i = 1; i <= added; ++i)
                states.push_back(i < added ? nullptr : std::make_shared<Texts>(after));
            current = states.size() - 1;
        }
        ASSERT_EQ(LinesOf(*buffer), *states[current]);
        // Whatever the scroll code, the caret line is never below the window.
        ASSERT_GE(buffer->topLine, std::max(0, buffer->cursor.line - buffer->visibleLines + 1));
        ASSERT_GE(buffer->leftColumn, 0);
    }
    ASSERT_EQ(static_cast<size_t>(buffer.LoggedTransactions()), states.size() - 1);
    EXPECT_FALSE(host.boxes.empty());
    for (const FakeHost::Box& box : host.boxes)
        EXPECT_EQ(box.text, "Transaction ignored because\nresulting line would become too long. ");

    // Every state stays reachable: all the way back to the start, and forward again.
    for (; current > 0; --current)
        ASSERT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(LinesOf(*buffer), *states[0]);
    while (RedoTransaction(*buffer) == 0)
        ++current;
    EXPECT_EQ(current, states.size() - 1);
    EXPECT_EQ(LinesOf(*buffer), *states.back());
}

INSTANTIATE_TEST_SUITE_P(Seeds, EngineRandomTest, ::testing::Values(1u, 7u, 42u, 2026u));

} // namespace
} // namespace ruvo
