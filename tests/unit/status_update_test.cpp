// The status panes of the current buffer: position format, insert mode, file state, and the
// cache that keeps unchanged panes untouched.
#include "engine/status_update.h"

#include <string>
#include <vector>

#include "buffer_builder.h"
#include "editor_fixture.h"

namespace ruvo {
namespace {

class StatusUpdateTest : public EditorTest {
  protected:
    // The pane texts set since the last call, "pane:text" in call order.
    std::vector<std::string> Sets() {
        std::vector<std::string> sets;
        for (const FakeHost::StatusText& set : host.statusTexts)
            sets.push_back(std::to_string(set.pane) + ":" + set.text);
        host.statusTexts.clear();
        return sets;
    }
    using Texts = std::vector<std::string>;
};

TEST_F(StatusUpdateTest, PositionIsOneBasedLineAndZeroBasedScreenColumn) {
    char text[40];
    EXPECT_EQ(PositionText(0, 0, text, sizeof text), 10);
    EXPECT_STREQ(text, "   1 : 0  ");
    PositionText(123455, 1234, text, sizeof text);
    EXPECT_STREQ(text, " 123456 : 1234");
    // A short buffer gets a cut but terminated text.
    EXPECT_EQ(PositionText(0, 0, text, 4), 3);
    EXPECT_STREQ(text, "   ");

    editor.settings.options.tabSize = 8;
    TestBuffer buffer("\tx = 1;\nsecond");
    buffer.PlaceCaret(0, 2); // after the tab and the x
    EXPECT_TRUE(UpdateStatus(*buffer));
    EXPECT_EQ(Sets(), (Texts{"0:   1 : 9  ", "2:", "1:Insert"}));
}

TEST_F(StatusUpdateTest, OnlyChangedPanesAreSet) {
    TestBuffer buffer("abc\ndef");
    EXPECT_TRUE(UpdateStatus(*buffer));
    Sets();

    // Nothing moved: only the mode pane is set again (the status line drops equal texts).
    EXPECT_FALSE(UpdateStatus(*buffer));
    EXPECT_EQ(Sets(), (Texts{"1:Insert"}));

    buffer.PlaceCaret(1, 2);
    EXPECT_TRUE(UpdateStatus(*buffer));
    EXPECT_EQ(Sets(), (Texts{"0:   2 : 2  ", "1:Insert"}));

    // Modified shows once, and going back to unmodified clears the pane once.
    buffer->lines.modified = 1;
    EXPECT_FALSE(UpdateStatus(*buffer));
    EXPECT_EQ(Sets(), (Texts{"2:Modified", "1:Insert"}));
    UpdateStatus(*buffer);
    EXPECT_EQ(Sets(), (Texts{"1:Insert"}));
    buffer->lines.modified = 0;
    UpdateStatus(*buffer);
    EXPECT_EQ(Sets(), (Texts{"2:", "1:Insert"}));

    editor.engine.overwriteMode = true;
    UpdateStatus(*buffer);
    EXPECT_EQ(Sets(), (Texts{"1:Overwrite"}));

    // A buffer that is not the current one leaves the status line alone.
    TestBuffer other("zzz", false);
    other.PlaceCaret(0, 3);
    EXPECT_FALSE(UpdateStatus(*other));
    EXPECT_TRUE(Sets().empty());

    // Forgotten: everything is set again.
    ForgetStatus();
    EXPECT_TRUE(UpdateStatus(*buffer));
    EXPECT_EQ(Sets(), (Texts{"0:   2 : 2  ", "2:", "1:Overwrite"}));

    // Read-only wins over modified, and goes when an unmodified buffer comes next although
    // "modified" did not change.
    TestBuffer locked("other text");
    locked->lines.readOnly = 1;
    locked->lines.modified = 1;
    UpdateStatus(*locked);
    EXPECT_EQ(Sets(), (Texts{"0:   1 : 0  ", "2:Readonly", "1:Overwrite"}));
    editor.engine.currentBuffer = buffer.get();
    UpdateStatus(*buffer);
    EXPECT_EQ(Sets(), (Texts{"0:   2 : 2  ", "2:", "1:Overwrite"}));
}

} // namespace
} // namespace ruvo
