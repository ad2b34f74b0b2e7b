// Long random sequences of edits, pastes, caret moves, selections, undos and redos, checked
// after every step against a plain model of the text and of the undo history.
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;

// One state of the history: the text after a step and the caret asked for with it.
struct ModelState {
    std::shared_ptr<const Lines> text;
    TextPos cursor;
};

// The history as the log keeps it: nothing is ever lost, undone steps come back as inverses.
class Model {
  public:
    explicit Model(const Lines& text) { states_.push_back({std::make_shared<Lines>(text), {}}); }

    const Lines& Text() const { return *states_[current_].text; }
    TextPos Cursor() const { return states_[current_].cursor; }
    size_t Steps() const { return states_.size() - 1; }

    void ReRecordUndone() {
        const size_t tail = states_.size() - 1;
        for (size_t k = tail; k > current_; --k)
            states_.push_back(states_[k - 1]);
        current_ = states_.size() - 1;
    }
    void Append(const Lines& text, TextPos cursor) {
        states_.push_back({std::make_shared<Lines>(text), cursor});
        current_ = states_.size() - 1;
    }
    bool Undo() {
        if (current_ == 0) return false;
        --current_;
        return true;
    }
    bool Redo() {
        if (current_ + 1 >= states_.size()) return false;
        ++current_;
        return true;
    }

  private:
    std::vector<ModelState> states_;
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

Outcome Replace(const Lines& text, TextPos start, TextPos end, const std::string& inserted) {
    Outcome out;
    const std::string head = text[start.line].substr(0, start.column);
    const std::string tail = text[end.line].substr(end.column);
    out.mayFail = head.size() + tail.size() > 255;
    const size_t firstLineFeed = inserted.find('\n');
    if (firstLineFeed != std::string::npos && firstLineFeed + head.size() > 255) out.mayFail = true;

    std::vector<std::string> pieces;
    size_t from = 0;
    for (;;) {
        const size_t lineFeed = inserted.find('\n', from);
        std::string piece = inserted.substr(from, lineFeed == std::string::npos ? std::string::npos
                                                                                : lineFeed - from);
        if (lineFeed == std::string::npos) {
            pieces.push_back(piece);
            break;
        }
        if (!piece.empty() && piece.back() == '\r') piece.pop_back();
        pieces.push_back(piece);
        from = lineFeed + 1;
    }
    pieces.front() = head + pieces.front();
    pieces.back() += tail;
    out.text.assign(text.begin(), text.begin() + start.line);
    out.text.insert(out.text.end(), pieces.begin(), pieces.end());
    out.text.insert(out.text.end(), text.begin() + end.line + 1, text.end());
    for (const std::string& line : out.text)
        if (line.size() > 255) out.mustFail = true;
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

::testing::AssertionResult Matches(const EditBuffer& buffer, const Lines& model) {
    const LineList& lines = buffer.lines;
    if (lines.lineCount < 1) return ::testing::AssertionFailure() << "no line left";
    if (lines.lineCount != static_cast<int32_t>(model.size()))
        return ::testing::AssertionFailure()
               << lines.lineCount << " lines, model has " << model.size();
    for (int32_t i = 0; i < lines.lineCount; ++i) {
        const std::string line = lines.lineText[i];
        if (line.size() > 255) return ::testing::AssertionFailure() << "line " << i << " too long";
        if (line.find_first_of("\r\n") != std::string::npos)
            return ::testing::AssertionFailure() << "line " << i << " holds a line end";
        if (line != model[i])
            return ::testing::AssertionFailure()
                   << "line " << i << " is '" << line << "', model '" << model[i] << "'";
    }
    return ::testing::AssertionSuccess();
}

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
        ASSERT_TRUE(Matches(*buffer, model.Text()));
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
    EXPECT_TRUE(Matches(*buffer, start));
    while (model.Redo())
        ASSERT_EQ(RedoTransaction(*buffer), 0);
    EXPECT_TRUE(Matches(*buffer, model.Text()));
    for (const FakeHost::Box& box : host.boxes)
        EXPECT_EQ(box.text, "Transaction ignored because\nresulting line would become too long. ");
}

INSTANTIATE_TEST_SUITE_P(Seeds, EngineRandomTest, ::testing::Values(1u, 7u, 42u, 2026u));

} // namespace
} // namespace ruvo
