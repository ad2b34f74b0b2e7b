// Long random sequences of edits, pastes, caret moves, selections, undos and redos, checked
// after every step against a plain model of the text and of the undo history. The models never
// hold a line over 255 bytes or a line end, so equal lines prove the buffer's lines are valid.
#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "aids/aids_state.h"
#include "aids/range_edits.h"
#include "aids/template_expand.h"
#include "aids/text_search.h"
#include "aids/word_expansion.h"
#include "buffer_builder.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "engine/clipboard_commands.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "lang/keyword_lookup.h"
#include "lang/language_table.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;

// The history as the log keeps it: nothing is ever lost, undone steps come back as inverses.
class Model {
  public:
    explicit Model(const Lines& text) { states_.push_back({std::make_shared<Lines>(text), {}}); }
    const Lines& Text() const { return *states_[current_].first; }
    TextPos Cursor() const { return states_[current_].second; }
    size_t Steps() const { return states_.size() - 1; }
    void ReRecordUndone() {
        for (size_t k = states_.size() - 1; k > current_; --k)
            states_.push_back(states_[k - 1]);
        current_ = states_.size() - 1;
    }
    void Append(const Lines& text, TextPos cursor) {
        states_.push_back({std::make_shared<Lines>(text), cursor});
        current_ = states_.size() - 1;
    }
    bool Undo() { return current_ > 0 && (--current_, true); }
    bool Redo() { return current_ + 1 < states_.size() && (++current_, true); }

  private:
    std::vector<std::pair<std::shared_ptr<const Lines>, TextPos>> states_;
    size_t current_ = 0;
};

TextPos Clamp(const Lines& text, TextPos pos) {
    const int32_t line = std::clamp<int32_t>(pos.line, 0, static_cast<int32_t>(text.size()) - 1);
    const int32_t length = static_cast<int32_t>(text[line].size());
    return MakePos(line, std::clamp<int32_t>(pos.column, 0, length));
}

struct Outcome {
    Lines text;
    bool mustFail = false; // a resulting line would pass 255 bytes
    bool mayFail = false;  // the intermediate join or the strict first-line count passes it
};

// The text with [start, end) replaced; a carriage return before a line feed goes.
Outcome Replace(const Lines& text, TextPos start, TextPos end, const std::string& inserted) {
    Outcome out;
    const std::string head = text[start.line].substr(0, start.column);
    const std::string tail = text[end.line].substr(end.column);
    const size_t firstLineFeed = inserted.find('\n');
    out.mayFail = head.size() + tail.size() > 255 ||
                  (firstLineFeed != std::string::npos && firstLineFeed + head.size() > 255);
    out.text.assign(text.begin(), text.begin() + start.line);
    out.text.push_back(head);
    for (size_t i = 0; i < inserted.size(); ++i) {
        if (inserted[i] == '\n')
            out.text.emplace_back();
        else if (inserted[i] != '\r' || i + 1 == inserted.size() || inserted[i + 1] != '\n')
            out.text.back() += inserted[i];
    }
    out.text.back() += tail;
    out.text.insert(out.text.end(), text.begin() + end.line + 1, text.end());
    for (const std::string& line : out.text)
        out.mustFail = out.mustFail || line.size() > 255;
    out.mayFail = out.mayFail || out.mustFail;
    return out;
}

class EngineRandomTest : public EditorTest, public ::testing::WithParamInterface<unsigned> {
  protected:
    std::mt19937 random{GetParam()};

    int Below(int n) { return n <= 0 ? 0 : std::uniform_int_distribution<int>(0, n - 1)(random); }

    TextPos AnyPos(const Lines& text) {
        const int line = Below(static_cast<int>(text.size()));
        return MakePos(line, Below(static_cast<int>(text[line].size()) + 1));
    }

    std::string Word(int maxLength) {
        static const char alphabet[] = "abcdefghij klmnopqrstuvwxyz_0123456789\t";
        std::string word(static_cast<size_t>(Below(maxLength) + 1), ' ');
        for (char& c : word)
            c = alphabet[Below(sizeof alphabet - 1)];
        return word;
    }

    ScrollTarget AnyScroll() {
        static const int32_t lines[] = {ScrollShow, ScrollKeep, ScrollCentreIfHidden, ScrollCentre};
        static const int32_t columns[] = {ScrollShow, ScrollKeep, 0, 8};
        return {lines[Below(4)], columns[Below(4)]};
    }

    std::string Paste() {
        const bool crlf = Below(2) == 0;
        std::string text;
        const int pieces = Below(5) + 1;
        for (int i = 0; i < pieces; ++i) {
            if (i > 0) text += crlf ? "\r\n" : "\n";
            if (Below(4) != 0) text += Word(Below(8) == 0 ? 200 : 30);
        }
        return text;
    }
};

::testing::AssertionResult LogIsLinked(const EditBuffer& buffer) {
    bool currentSeen = false;
    const Transaction* last = nullptr;
    for (const Transaction* t = buffer.undoHead; t != nullptr; t = t->next) {
        if (t->prev != last) return ::testing::AssertionFailure() << "broken prev link";
        currentSeen = currentSeen || t == buffer.undoCurrent;
        last = t;
    }
    if (last != buffer.undoTail) return ::testing::AssertionFailure() << "tail is not the last";
    if (!currentSeen) return ::testing::AssertionFailure() << "current is not in the log";
    return ::testing::AssertionSuccess();
}

TEST_P(EngineRandomTest, EveryStepMatchesTheModelAndEverythingCanBeUndone) {
    const Lines start{"entity top is", "\tport (clk : in std_logic);", "", "end entity;"};
    TestBuffer buffer("entity top is\n\tport (clk : in std_logic);\n\nend entity;");
    buffer->visibleLines = 6;
    buffer->visibleColumns = 30;
    Model model(start);
    int refused = 0;

    for (int step = 0; step < 8000; ++step) {
        const Lines& text = model.Text();
        const int kind = Below(100);
        SCOPED_TRACE("step " + std::to_string(step) + " kind " + std::to_string(kind));
        if (kind < 60) {
            // A text change: typing, deleting, replacing or pasting.
            TextPos from = AnyPos(text);
            TextPos to = from;
            std::string inserted;
            if (kind < 25) {
                inserted = Word(Below(10) == 0 ? 120 : 1);
            } else if (kind < 40) {
                to = Below(12) == 0 ? AnyPos(text) : NextPos(*buffer, from);
            } else if (kind < 50) {
                // Replacing a selection, mostly within a few lines.
                const TextPos other = AnyPos(text);
                to = Below(8) == 0 || std::abs(other.line - from.line) < 3 ? other : from;
                inserted = Word(12);
            } else {
                inserted = Paste();
            }
            if (PosLess(to, from)) SwapPos(from, to);
            const TextPos caret = EndOfInsertion(from, inserted);
            const Outcome outcome = Replace(text, from, to, inserted);
            const size_t boxes = host.boxes.size();
            model.ReRecordUndone();
            RecordEdit(*buffer, from, to, inserted, caret, AnyScroll(), caret, caret);
            if (host.boxes.size() == boxes) {
                ASSERT_FALSE(outcome.mustFail);
                model.Append(outcome.text, caret);
                ASSERT_EQ(buffer->cursor, Clamp(outcome.text, caret));
            } else {
                ASSERT_TRUE(outcome.mayFail);
                ASSERT_EQ(host.boxes.back().text,
                          "Transaction ignored because\nresulting line would become too long. ");
                ++refused;
            }
        } else if (kind < 75) {
            // A caret move, sometimes extending a selection.
            const TextPos to = AnyPos(text);
            const TextPos anchor = Below(3) == 0 ? AnyPos(text) : to;
            model.ReRecordUndone();
            RecordEdit(*buffer, {}, {}, "", to, AnyScroll(), anchor, to);
            model.Append(text, to);
            ASSERT_EQ(buffer->cursor, to);
            ASSERT_TRUE(PosLessOrEqual(buffer->selStart, buffer->selEnd));
            ASSERT_EQ(buffer->lines.hasSelection, PosEqual(anchor, to) ? 0 : 1);
            ASSERT_EQ(buffer->selStart, PosLess(to, anchor) ? to : anchor);
        } else if (kind < 90) {
            ASSERT_EQ(UndoTransaction(), model.Undo() ? 0 : 1);
            ASSERT_EQ(buffer->cursor, Clamp(model.Text(), model.Cursor()));
        } else {
            ASSERT_EQ(RedoTransaction(*buffer), model.Redo() ? 0 : 1);
            ASSERT_EQ(buffer->cursor, Clamp(model.Text(), model.Cursor()));
        }
        ASSERT_EQ(LinesOf(*buffer), model.Text());
        // Whatever the scroll code, the caret line is never below the window.
        ASSERT_GE(buffer->topLine, buffer->cursor.line - buffer->visibleLines + 1);
        ASSERT_GE(buffer->topLine, 0);
        ASSERT_GE(buffer->leftColumn, 0);
        if (step % 100 == 0) {
            ASSERT_TRUE(LogIsLinked(*buffer));
        }
    }
    ASSERT_EQ(static_cast<size_t>(buffer.LoggedTransactions()), model.Steps());
    EXPECT_GT(refused, 0);

    // Every state stays reachable: all the way back to the start, and forward again.
    while (model.Undo())
        ASSERT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(LinesOf(*buffer), start);
    while (model.Redo())
        ASSERT_EQ(RedoTransaction(*buffer), 0);
    EXPECT_EQ(LinesOf(*buffer), model.Text());
    for (const FakeHost::Box& box : host.boxes)
        EXPECT_EQ(box.text, "Transaction ignored because\nresulting line would become too long. ");
}

// --- The commands that edit through RecordEdit, against plain models of their own ---

std::string Folded(std::string text, bool fold) {
    if (fold)
        for (char& c : text)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// Replace all from the start: each match replaced in turn, the search going on after the new
// text; the first replacement that would make a line too long ends the run.
Lines ReplaceAllModel(Lines text, const std::string& find, const std::string& by, bool matchCase) {
    for (std::string& line : text) {
        size_t from = 0;
        for (;;) {
            const size_t at = Folded(line, !matchCase).find(Folded(find, !matchCase), from);
            if (at == std::string::npos) break;
            if (line.size() - find.size() + by.size() > 255) return text;
            line.replace(at, find.size(), by);
            from = at + by.size();
        }
    }
    return text;
}

const char* const ReservedWords[] = {"end", "entity", "is", "port"};

// Reserved words outside the "--" comment changed to upper or lower case; a word starts at a
// letter and runs over the identifier bytes after it.
std::string CaseModel(std::string line, bool upper) {
    for (size_t column = 0; column < line.size() && line.compare(column, 2, "--") != 0;) {
        size_t end = column + 1;
        if (IsAsciiLetter(line[column]))
            while (end < line.size() && IsIdentifierChar(line[end]))
                ++end;
        const std::string word = Folded(line.substr(column, end - column), true);
        if (std::find(std::begin(ReservedWords), std::end(ReservedWords), word) !=
            std::end(ReservedWords))
            for (size_t k = column; k < end; ++k)
                line[k] = static_cast<char>(upper ? std::toupper(line[k]) : std::tolower(line[k]));
        column = end;
    }
    return line;
}

// Comment and indent add their text to each line that stays short enough, or take it off
// the lines that begin with it; the case edit changes the reserved words.
Lines RangeModel(Lines text, RangeAction action, bool first, int32_t from, int32_t to) {
    const std::string mark = action == RangeAction::Indent ? "\t" : "--";
    for (int32_t i = std::max(from, 0); i <= std::min<int32_t>(to, text.size() - 1); ++i) {
        std::string& line = text[static_cast<size_t>(i)];
        if (action == RangeAction::Case)
            line = CaseModel(line, first);
        else if (first && line.size() + mark.size() <= 255)
            line = mark + line;
        else if (!first && line.compare(0, mark.size(), mark) == 0)
            line.erase(0, mark.size());
    }
    return text;
}

class EditingCommandsRandomTest : public EngineRandomTest {
  protected:
    void SetUp() override {
        LanguageDef& vhdl = LanguageEntry(1);
        vhdl.name = "VHDL";
        vhdl.lineComment = "--";
        vhdl.caseSensitive = false;
        for (const char* word : ReservedWords)
            ASSERT_TRUE(vhdl.groups[0].words.Append(word));
        SortKeywords(vhdl.groups[0].words);
        for (const auto& [name, value] :
             {std::pair{"ent", "entity"}, std::pair{"slv", "std_logic_vector(7 downto 0)"}}) {
            ASSERT_TRUE(vhdl.expanderNames.Append(name));
            ASSERT_TRUE(vhdl.expanderValues.Append(value));
        }
        entity.name = "entity";
        entity.paramCount = 2;
        entity.body = "entity $1$ is\n  port ($2$ : in bit);\nend $1$;\n";
    }

    std::string Pick(std::initializer_list<const char*> choices) {
        return *(choices.begin() + Below(static_cast<int>(choices.size())));
    }
    std::string Phrase() {
        std::string text;
        for (int i = Below(6); i >= 0; --i)
            text += Pick({"entity", "END", "is", "sig", "a_1", "x", "Port"}) +
                    Pick({" ", "\t", "; ", " -- "});
        return text;
    }
    TextPos Caret(const Lines& text) { return Clamp(text, buffer->cursor); }

    // The model's text after one random command, which this runs on the buffer.
    Lines RunCommand(const Lines& text) {
        const int kind = Below(7);
        if (kind == 0) {
            const TextPos to = AnyPos(text);
            RecordEdit(*buffer, {}, {}, "", to, AnyScroll(), Below(3) == 0 ? AnyPos(text) : to, to);
            return text;
        }
        if (kind == 1) {
            // A multi-line paste over the selection, if there is one.
            std::string lines = Phrase();
            for (int i = Below(4); i >= 0; --i)
                lines += (Below(2) == 0 ? "\r\n" : "\n") + Phrase();
            host.clipboard = lines;
            Lines after = text;
            TextPos at = Caret(text);
            if (buffer->lines.hasSelection != 0) {
                const Outcome removed = Replace(text, buffer->selStart, buffer->selEnd, "");
                if (!removed.mustFail) after = removed.text;
                at = buffer->selStart;
            }
            std::erase(lines, '\r');
            EditPaste();
            const Outcome pasted = Replace(after, at, at, lines);
            return pasted.mustFail ? after : pasted.text;
        }
        if (kind == 2) {
            SearchState& state = editor.aids.search;
            state = SearchState{};
            state.searchText = Pick({"is", "sig", "x", "en", "--"});
            state.replaceText = Pick({"", "IS", "xx", "sig sig", "is is"});
            state.replaceMode = state.replaceAll = true;
            state.caseSensitive = Below(2) == 0;
            RunSearch(*buffer, state);
            return ReplaceAllModel(text, state.searchText, state.replaceText, state.caseSensitive);
        }
        if (kind == 3) {
            const RangeAction action = static_cast<RangeAction>(Below(3));
            const bool first = Below(2) == 0;
            const int32_t from = Below(static_cast<int>(text.size()) + 2) - 1;
            const int32_t to = from + Below(6) - 1;
            ApplyRangeEdit(action, first, from, to);
            return RangeModel(text, action, first, from, to);
        }
        if (kind == 4) {
            auto& values = editor.hdlAids.templates.parameterValues;
            values[0] = Pick({"top", "a_b", ""});
            values[1] = Pick({"clk", "d, q", ""});
            const TextPos at = Caret(text);
            InsertTemplate(entity);
            std::string body = "entity " + values[0] + " is\n  port (" + values[1] +
                               " : in bit);\nend " + values[0] + ";\n";
            const Outcome inserted = Replace(text, at, at, body);
            return inserted.mustFail ? text : inserted.text;
        }
        // Typing an abbreviation (or a plain word) and expanding the word before the caret.
        const std::string typed = " " + Pick({"ent", "SLV", "sl", "x"});
        const TextPos at = Caret(text);
        RecordEdit(*buffer, at, at, typed, EndOfInsertion(at, typed), AnyScroll(), {}, {});
        const Outcome typing = Replace(text, at, at, typed);
        Lines after = typing.mustFail ? text : typing.text;
        const TextPos caret = Caret(after);
        const std::string& line = after[static_cast<size_t>(caret.line)];
        int32_t from = caret.column;
        while (from > 0 && IsIdentifierChar(line[static_cast<size_t>(from - 1)]))
            --from;
        const std::string word = Folded(line.substr(from, caret.column - from), true);
        LanguageExpand();
        const std::string value = word == "ent"   ? "entity"
                                  : word == "slv" ? "std_logic_vector(7 downto 0)"
                                                  : "";
        if (value.empty()) return after;
        const Outcome expanded = Replace(after, MakePos(caret.line, from), caret, value);
        return expanded.mustFail ? after : expanded.text;
    }

    TestBuffer buffer{"entity top is\n\tport (clk : in bit); -- the clock\n\nend entity;"};
    Template entity;
};

TEST_P(EditingCommandsRandomTest, EveryCommandMatchesItsModelAndUndoesAsAWhole) {
    buffer->language = &LanguageEntry(1);
    Lines text{"entity top is", "\tport (clk : in bit); -- the clock", "", "end entity;"};
    const Lines start = text;
    int transactions = 0;
    for (int step = 0; step < 1000; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const int before = buffer.LoggedTransactions();
        const Lines after = RunCommand(text);
        ASSERT_EQ(LinesOf(*buffer), after);
        const int recorded = buffer.LoggedTransactions() - before;
        transactions += recorded;
        if (Below(4) == 0) {
            // The command's steps undo to the text before it and redo to the text after it.
            for (int i = 0; i < recorded; ++i)
                ASSERT_EQ(UndoTransaction(), 0);
            ASSERT_EQ(LinesOf(*buffer), text);
            for (int i = 0; i < recorded; ++i)
                ASSERT_EQ(RedoTransaction(*buffer), 0);
            ASSERT_EQ(LinesOf(*buffer), after);
        }
        text = after;
    }
    for (int i = 0; i < transactions; ++i)
        ASSERT_EQ(UndoTransaction(), 0);
    EXPECT_EQ(UndoTransaction(), 1);
    EXPECT_EQ(LinesOf(*buffer), start);
    EXPECT_TRUE(LogIsLinked(*buffer));
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditingCommandsRandomTest, ::testing::Values(3u, 11u, 99u));

INSTANTIATE_TEST_SUITE_P(Seeds, EngineRandomTest, ::testing::Values(1u, 7u, 42u, 2026u));

} // namespace
} // namespace ruvo
