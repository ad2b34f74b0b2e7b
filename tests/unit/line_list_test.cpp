// The line array: growth, room making, copies, clearing and the emptiness rule.
#include "engine/line_list.h"

#include <string>

#include "settings/allocator.h"

#include "editor_fixture.h"

namespace ruvo {
namespace {

class LineListTest : public EditorTest {
  protected:
    std::string Lines(const LineList* list) {
        std::string text;
        for (int32_t i = 0; i < list->lineCount; ++i)
            text += std::string(list->lineText[i]) + "|";
        return text;
    }
    void FailAllocationsAfter(long bytes) {
        editor.settings.allocator.limitBytes = editor.settings.allocator.totalBytes + bytes;
    }
};

TEST_F(LineListTest, GrowsMakesRoomCopiesAndClears) {
    LineList* list = CreateLineList(2, 1);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->readOnly, 1);
    EXPECT_TRUE(IsBufferEmpty(list));
    for (int i = 0; i < 5; ++i)
        ASSERT_EQ(AppendLine(list, std::to_string(i)), 0);
    EXPECT_GT(list->capacity, list->lineCount); // one slot is kept free
    EXPECT_EQ(Lines(list), "0|1|2|3|4|");
    ASSERT_EQ(MakeRoom(list, 1, 2), 0);
    list->lineText[2] = DupString("x", 0);
    list->lineText[3] = DupString("yz", 1);
    list->lineCount += 2;
    EXPECT_EQ(Lines(list), "0|1|x|y|2|3|4|");
    LineList* copy = CopyLineList(list, nullptr);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(Lines(copy), "0|1|x|y|2|3|4|");

    list->modified = list->hasSelection = 1;
    ClearLineList(list);
    EXPECT_EQ(list->lineCount + list->capacity + list->modified + list->hasSelection, 0);
    EXPECT_EQ(list->lineText, nullptr);
    // One empty line is an empty buffer, two are not.
    AppendLine(list, "");
    EXPECT_TRUE(IsBufferEmpty(list));
    AppendLine(list, "");
    EXPECT_FALSE(IsBufferEmpty(list));
    DestroyLineList(copy);
    DestroyLineList(list);

    char* shortCopy = DupString("ab", 10); // a length past the text stops at its end
    EXPECT_STREQ(shortCopy, "ab");
    Release(shortCopy);
    EXPECT_EQ(DupString(nullptr, 3), nullptr);
}

TEST_F(LineListTest, AllocationFailureLeavesTheListAsItWasAndNoHalfCopy) {
    LineList* list = CreateLineList(4, 0);
    for (const char* text : {"one", "two", "three"})
        AppendLine(list, text);
    FailAllocationsAfter(0);
    EXPECT_EQ(CreateLineList(4, 0), nullptr);
    EXPECT_EQ(AppendLine(list, "more"), 1);
    EXPECT_TRUE(AllocationFailed());
    EXPECT_EQ(Lines(list), "one|two|three|");
    // Room for the new list and its array, not for the lines: the copy fails part-way and
    // the sanitizer's leak check sees whether the half-made list was freed.
    FailAllocationsAfter(static_cast<long>(sizeof(LineList)) +
                         3 * static_cast<long>(sizeof(char*)) + 4);
    EXPECT_EQ(CopyLineList(list, nullptr), nullptr);
    editor.settings.allocator.limitBytes = -1;
    DestroyLineList(list);
}

} // namespace
} // namespace ruvo
