// Copy, cut, paste and clear between buffers and the platform clipboard.
#include "engine/clipboard_commands.h"

#include <string>

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "engine/editing_commands.h"
#include "marked_text.h"

namespace ruvo {
namespace {

using ClipboardTest = EditorTest;

TEST_F(ClipboardTest, CopyJoinsLinesWithCarriageReturnLineFeed) {
    TestBuffer buffer("alpha\nbeta\ngamma");
    // A selection ending at column 0 brings the last line end and nothing after it; reversed
    // ends are put in order.
    const std::pair<TextRange, const char*> cases[] = {
        {{{0, 2}, {0, 4}}, "ph"},
        {{{0, 3}, {2, 2}}, "ha\r\nbeta\r\nga"},
        {{{1, 0}, {2, 0}}, "beta\r\n"},
        {{{2, 2}, {0, 3}}, "ha\r\nbeta\r\nga"},
    };
    for (const auto& [range, copied] : cases) {
        buffer.Select(range.start, range.end);
        buffer->selStart = range.start; // as given, even reversed
        buffer->selEnd = range.end;
        EditCopy();
        EXPECT_EQ(host.clipboard, copied);
        EXPECT_FALSE(PosLess(buffer->selEnd, buffer->selStart));
    }
    EXPECT_EQ(buffer.Text(), "alpha\nbeta\ngamma");
    EXPECT_EQ(buffer.LoggedTransactions(), 0);
}

TEST_F(ClipboardTest, CutAndClearDeleteTheSelectionPasteReplacesItInTwoSteps) {
    TestBuffer buffer("keep this part\nand that");
    buffer.Select(MakePos(0, 4), MakePos(1, 3));
    EditCut();
    EXPECT_EQ(host.clipboard, " this part\r\nand");
    EXPECT_EQ(Marked(buffer), "keep| that");
    EditUndo();
    EXPECT_EQ(buffer.Text(), "keep this part\nand that");

    buffer.Select(MakePos(0, 1), MakePos(0, 4));
    EditClear(); // the clipboard is left alone
    EXPECT_EQ(host.clipboard, " this part\r\nand");
    EXPECT_EQ(Marked(buffer), "k| this part\nand that");

    buffer.Select(MakePos(0, 2), MakePos(0, 6));
    host.clipboard = "you";
    EditPaste();
    EXPECT_EQ(Marked(buffer), "k you| part\nand that");
    EditUndo();
    EXPECT_EQ(buffer.Text(), "k  part\nand that");
    EditUndo();
    EXPECT_EQ(buffer.Text(), "k this part\nand that");
}

TEST_F(ClipboardTest, PasteTurnsEveryLineEndIntoALineOfTheBuffer) {
    TestBuffer buffer("<>\nend");
    buffer.PlaceCaret(0, 1);
    host.clipboard = "one\r\ntwo\r\nthree";
    EXPECT_EQ(EditPaste(), 0);
    EXPECT_EQ(Marked(buffer), "<one\ntwo\nthree|>\nend");
    EXPECT_EQ(buffer.LoggedTransactions(), 1);
    // A lone carriage return goes too, and the text ends at a NUL as CF_TEXT does.
    buffer.PlaceCaret(3, 3);
    host.clipboard = std::string("x\ry\0ignored", 11);
    EditPaste();
    EXPECT_EQ(Marked(buffer), "<one\ntwo\nthree>\nendxy|");

    // A paste that makes a line too long is refused whole: the first line would fit, the
    // last, 156 bytes before the old 100, would not.
    TestBuffer big(std::string(200, 'a') + "\nshort");
    big.PlaceCaret(0, 100);
    host.clipboard = "fits\r\n" + std::string(156, 'b');
    EditPaste();
    EXPECT_EQ(big.Text(), std::string(200, 'a') + "\nshort");
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Transaction ignored because\nresulting line would become too long. \n");

    // Nothing to paste: nothing happens. No row needs clipboard text, so Paste stays
    // available even with an empty clipboard.
    host.clipboard.reset();
    EXPECT_EQ(EditPaste(), 1);
    EXPECT_EQ(big.LoggedTransactions(), 0);
    host.enableCalls.clear();
    UpdatePasteState();
    EXPECT_TRUE(host.enableCalls.empty());
}

} // namespace
} // namespace ruvo
