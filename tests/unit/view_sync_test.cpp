// The selection setter and the caret/scroll setter: ordering, clamping, redraws, pushes.
#include "engine/view_sync.h"

#include <string>
#include <utility>
#include <vector>

#include "buffer_builder.h"
#include "commands/command_table.h"
#include "editor_fixture.h"
#include "engine/transaction_log.h"

namespace ruvo {
namespace {

class ViewSyncTest : public EditorTest {
  protected:
    bool CopyEnabled() {
        int index = -1;
        CommandByName("EditCopy", nullptr, false, &index);
        auto found = host.enabledCommands.find(index);
        return found != host.enabledCommands.end() && found->second;
    }
    std::vector<int> RedrawnLines() {
        std::vector<int> lines;
        for (const auto& [buffer, line] : host.redrawnLines)
            lines.push_back(line);
        host.redrawnLines.clear();
        return lines;
    }
};

TEST_F(ViewSyncTest, SelectionIsOrderedAndOnlyChangedLinesAreRedrawn) {
    std::string text;
    for (int i = 0; i < 40; ++i)
        text += "line number " + std::to_string(i) + "\n";
    TestBuffer buffer(text);
    buffer->visibleLines = 10;

    // An end at column 0 shows nothing on its line; the same selection again redraws nothing
    // (but still pushes the command state); lines outside the window are left alone.
    const struct {
        TextPos from, to;
        std::vector<int> redrawn;
    } steps[] = {
        {{5, 1}, {2, 3}, {2, 3, 4, 5}}, {{2, 3}, {6, 0}, {5}}, {{2, 3}, {6, 2}, {6}},
        {{2, 0}, {6, 2}, {2}},          {{6, 2}, {2, 0}, {}},  {{2, 0}, {30, 2}, {6, 7, 8, 9, 10}},
        {{4, 4}, {4, 4}, {2, 3, 4, 5, 6, 7, 8, 9, 10}},
    };
    for (const auto& step : steps) {
        host.enableCalls.clear();
        SetSelection(*buffer, step.from, step.to);
        EXPECT_EQ(RedrawnLines(), step.redrawn) << step.to.line << "," << step.to.column;
        EXPECT_EQ(buffer->selStart, PosLess(step.to, step.from) ? step.to : step.from);
        EXPECT_EQ(buffer->selEnd, PosLess(step.to, step.from) ? step.from : step.to);
        EXPECT_EQ(buffer->lines.hasSelection, step.from == step.to ? 0 : 1);
        EXPECT_EQ(CopyEnabled(), step.from != step.to);
        EXPECT_FALSE(host.enableCalls.empty());
    }

    // Ends outside the text are clamped into it.
    SetSelection(*buffer, MakePos(-1, 9), MakePos(99, 99));
    EXPECT_EQ(buffer->selStart, MakePos(0, 9));
    EXPECT_EQ(buffer->selEnd, MakePos(40, 0));

    // Only the buffer on show pushes the selection commands.
    TestBuffer hidden("hidden text", false);
    host.enableCalls.clear();
    SetSelection(*hidden, MakePos(0, 0), MakePos(0, 3));
    EXPECT_EQ(hidden->lines.hasSelection, 1);
    EXPECT_TRUE(host.enableCalls.empty());
}

TEST_F(ViewSyncTest, CaretIsClampedAndScrollingIsReported) {
    TestBuffer buffer("short\nlonger line\nx");
    const struct {
        TextPos wanted, caret;
        int32_t top, left, shownTop, shownLeft, updates;
    } steps[] = {{{1, 40}, {1, 11}, 0, 0, 0, 0, 0}, {{7, -2}, {2, 0}, 1, 0, 1, 0, 1},
                 {{0, 2}, {0, 2}, 1, 4, 1, 4, 2},   {{0, 2}, {0, 2}, -3, -1, 0, 0, 3},
                 {{0, 3}, {0, 3}, 0, 0, 0, 0, 3}};
    for (const auto& step : steps) {
        SetCursorAndScroll(*buffer, step.wanted, step.top, step.left);
        EXPECT_EQ(buffer->cursor, step.caret);
        EXPECT_EQ(buffer->topLine, step.shownTop);
        EXPECT_EQ(buffer->leftColumn, step.shownLeft);
        EXPECT_EQ(host.scrollUpdates, step.updates);
    }
}

TEST_F(ViewSyncTest, ScrollBarsAreSetOnlyWhenTheirValuesChange) {
    TestBuffer buffer("entity e is\nend e;\n\nx");
    buffer->visibleLines = 2;
    buffer->visibleColumns = 55;
    using Calls = std::vector<std::string>;
    const auto calls = [this] { return std::exchange(host.scrollBarCalls, {}); };

    // The first call sets everything.
    SetCursorAndScroll(*buffer, MakePos(0, 3), 0, 0);
    EXPECT_EQ(calls(), (Calls{"V range 0 2", "V pos 0", "H pos 0", "H range 0 200"}));
    // Moving along the line and to another line of the same length touches nothing.
    SetCursorAndScroll(*buffer, MakePos(0, 4), 0, 0);
    EXPECT_TRUE(calls().empty());
    // Another line length only refreshes the horizontal range.
    SetCursorAndScroll(*buffer, MakePos(1, 0), 0, 0);
    EXPECT_EQ(calls(), Calls{"H range 0 200"});
    // The top line sets range and box together; the left column the box alone.
    SetCursorAndScroll(*buffer, MakePos(1, 0), 1, 0);
    EXPECT_EQ(calls(), (Calls{"V range 0 2", "V pos 1"}));
    SetCursorAndScroll(*buffer, MakePos(1, 0), 1, 3);
    EXPECT_EQ(calls(), Calls{"H pos 3"});

    // Typing a character changes the line's length; a new line the line count.
    RecordEdit(*buffer, MakePos(1, 0), MakePos(1, 0), "-", MakePos(1, 1), ScrollTarget{1, 0},
               MakePos(0, 0), MakePos(0, 0));
    EXPECT_EQ(calls(), (Calls{"H pos 0", "H range 0 200"}));
    RecordEdit(*buffer, MakePos(1, 1), MakePos(1, 1), "\n", MakePos(2, 0), ScrollTarget{1, 0},
               MakePos(0, 0), MakePos(0, 0));
    EXPECT_EQ(calls(), (Calls{"V range 0 3", "V pos 1", "H range 0 200"}));

    // Values cached for one buffer never count as unchanged for another.
    TestBuffer other("entity e is\nend e;\n\nx\ny", false);
    other->visibleLines = 2;
    other->visibleColumns = 55;
    SetCursorAndScroll(*other, MakePos(2, 0), 1, 0);
    EXPECT_EQ(calls(), (Calls{"V range 0 3", "V pos 1", "H pos 0", "H range 0 200"}));
    SetCursorAndScroll(*buffer, MakePos(2, 0), 1, 0);
    EXPECT_EQ(calls().size(), 4u);
}

} // namespace
} // namespace ruvo
