// Caret motions on real buffers: characters, words, lines, pages, the document, selection.
#include "engine/cursor_motion.h"

#include <string>
#include <vector>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "marked_text.h"

namespace ruvo {
namespace {

using CursorMotionTest = EditorTest;

std::string NumberedLines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += (i > 0 ? "\n" : "") + std::string("line ") + std::to_string(i);
    return text;
}

// One command and where it must leave the caret (and the window's top line, unless -1).
struct Step {
    int (*command)();
    TextPos caret;
    int32_t topLine = -1;
};

// Runs the steps from `start`; every motion drops the anchor on the caret and keeps the text.
void Walk(TestBuffer& buffer, TextPos start, const std::vector<Step>& steps) {
    const std::string text = buffer.Text();
    buffer.PlaceCaret(start.line, start.column);
    for (size_t i = 0; i < steps.size(); ++i) {
        static_cast<void>(steps[i].command());
        EXPECT_EQ(buffer->cursor, steps[i].caret) << "step " << i;
        EXPECT_EQ(buffer->anchor, buffer->cursor) << "step " << i;
        if (steps[i].topLine >= 0) {
            EXPECT_EQ(buffer->topLine, steps[i].topLine) << "step " << i;
        }
    }
    EXPECT_EQ(buffer.Text(), text);
}

// clang-format off
TEST_F(CursorMotionTest, CharactersStepAcrossLineEndsAndStopAtTheDocumentEnds) {
    TestBuffer buffer("ab\ncd");
    Walk(buffer, {0, 2}, {{GoCharRight, {1, 0}}, {GoCharLeft, {0, 2}}, {GoBeginDoc, {0, 0}},
         {GoCharLeft, {0, 0}}, {GoEndDoc, {1, 2}}, {GoCharRight, {1, 2}}});
}

TEST_F(CursorMotionTest, LineMovesKeepTheScreenColumnAcrossTabsAndShortLines) {
    editor.settings.options.tabSize = 4;
    TestBuffer buffer("\tab\nabcdefgh\nxy");
    // The tab fills columns 0..3, a is 4, b is 5; the short line ends first.
    Walk(buffer, {1, 5}, {{GoLineUp, {0, 2}}, {GoLineDown, {1, 5}}, {GoLineDown, {2, 2}},
         {GoLineDown, {2, 2}}, {GoBeginDoc, {0, 0}}, {GoLineUp, {0, 0}}});
}

TEST_F(CursorMotionTest, WordsTreatUnderscoresAsSeparators) {
    TestBuffer left(" abc\nabc def\nfoo_bar\n(x) y\na  b");
    // A word behind a blank or a separator at column 0 leaves the caret at column 0; from
    // column 0 the caret goes to the previous line's end, then to its word.
    Walk(left, {0, 4}, {{GoWordLeft, {0, 0}}});
    Walk(left, {1, 7}, {{GoWordLeft, {1, 4}}, {GoWordLeft, {1, 0}}, {GoWordLeft, {0, 0}}});
    Walk(left, {2, 7}, {{GoWordLeft, {2, 4}}, {GoWordLeft, {2, 0}}});
    Walk(left, {3, 5}, {{GoWordLeft, {3, 4}}, {GoWordLeft, {3, 0}}});
    Walk(left, {4, 3}, {{GoWordLeft, {4, 0}}});

    // Right: the word and the separators after it; the semicolon is skipped to the line end,
    // the underscore like a blank; the end of the document stays put.
    TestBuffer right("foo_bar baz\n  next;\n_x");
    Walk(right, {0, 0}, {{GoWordRight, {0, 8}}, {GoWordRight, {1, 2}}, {GoWordRight, {1, 7}},
         {GoWordRight, {2, 1}}, {GoWordRight, {2, 2}}, {GoWordRight, {2, 2}}});
}

TEST_F(CursorMotionTest, LinesPagesAndTheDocumentMoveCaretAndWindowTogether) {
    TestBuffer buffer(NumberedLines(50));
    buffer->visibleLines = 20;
    Walk(buffer, {7, 3}, {{GoEndLine, {7, 6}}, {GoBeginLine, {7, 0}}, {GoEndDoc, {49, 7}, 30},
         {GoBeginDoc, {0, 0}, 0}});

    // Near the end a page down goes to the end of the last line; less than a page from the
    // top a page up goes to the start of the document.
    buffer->visibleLines = 10;
    Walk(buffer, {2, 4}, {{GoPageDown, {12, 4}, 10}, {GoPageDown, {22, 4}, 20},
         {GoPageDown, {32, 4}, 30}, {GoPageDown, {42, 4}, 40}, {GoPageDown, {49, 7}, 40},
         {GoPageUp, {39, 7}, 30}});
    Walk(buffer, {6, 3}, {{GoPageUp, {0, 0}, 0}});

    TestBuffer full(std::string(255, 'x')); // the longest line there may be
    Walk(full, {0, 0}, {{GoEndLine, {0, 255}}});
    TestBuffer shortText("one\ntwo\nthree");
    Walk(shortText, {0, 0}, {{GoPageDown, {2, 5}, 0}, {GoEndDoc, {2, 5}, 0},
         {GoPageUp, {0, 0}, 0}});
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

// clang-format on
TEST_F(CursorMotionTest, ExtendingGrowsTheSelectionFromTheAnchor) {
    TestBuffer buffer("abcdef\nghijkl");
    buffer.PlaceCaret(0, 2);
    // Back over the anchor the selection turns round and stays ordered; a plain move drops
    // it and brings the anchor along.
    const std::pair<Motion, const char*> steps[] = {
        {Motion::CharRight, "ab[c|]def\nghijkl"}, {Motion::CharRight, "ab[cd|]ef\nghijkl"},
        {Motion::CharLeft, "ab[c|]def\nghijkl"},  {Motion::CharLeft, "ab|cdef\nghijkl"},
        {Motion::CharLeft, "a[|b]cdef\nghijkl"},  {Motion::LineDown, "ab[cdef\ng|]hijkl"}};
    for (const auto& [motion, marked] : steps) {
        MoveCursor(motion, true);
        EXPECT_EQ(Marked(buffer), marked);
    }
    MoveCursor(Motion::EndLine, false);
    EXPECT_EQ(Marked(buffer), "abcdef\nghijkl|");
}

// clang-format off
TEST_F(CursorMotionTest, UndoWalksBackThroughCaretPositionsEvenWhenReadOnly) {
    TestBuffer buffer("alpha\nbeta\ngamma");
    buffer->lines.readOnly = 1;
    buffer.PlaceCaret(1, 1);
    ResetTransactionLog(*buffer); // the log starts from this caret
    Walk(buffer, {1, 1}, {{GoCharRight, {1, 2}}, {GoLineDown, {2, 2}}, {GoEndLine, {2, 5}},
         {EditUndo, {2, 2}}, {EditUndo, {1, 2}}, {EditUndo, {1, 1}}, {EditRedo, {1, 2}},
         {GoWordLeft, {1, 0}}});
}

// clang-format on
TEST_F(CursorMotionTest, GoToPosClampsAndKeepsTheSelection) {
    TestBuffer buffer(NumberedLines(40));
    buffer->visibleLines = 10;
    buffer.Select(MakePos(1, 0), MakePos(2, 3));
    GoToPos(*buffer, 30, 2);
    EXPECT_EQ(buffer->cursor, MakePos(30, 2));
    EXPECT_EQ(buffer->topLine, 21); // just enough to show the caret line
    EXPECT_EQ(buffer->selEnd, MakePos(2, 3));
    EXPECT_EQ(buffer->lines.hasSelection, 1);
    GoToPos(*buffer, 500, 99);
    EXPECT_EQ(buffer->cursor, MakePos(39, 7));
    GoToPos(*buffer, -4, -1);
    EXPECT_EQ(buffer->cursor, MakePos(0, 0));
    EXPECT_EQ(buffer->topLine, 0);
}

} // namespace
} // namespace ruvo
