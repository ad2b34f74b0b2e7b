// The line array: growth, room making and the emptiness rule.
#include "engine/line_list.h"

#include <cstring>
#include <string>

#include "settings/allocator.h"

#include "editor_fixture.h"

namespace ruvo {
namespace {

using LineListTest = EditorTest;

TEST_F(LineListTest, GrowsByStepAndKeepsOneSlotFree) {
    LineList* list = CreateLineList(2, 0);
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(IsBufferEmpty(list));
    for (int i = 0; i < 5; ++i) ASSERT_EQ(AppendLine(list, std::to_string(i)), 0);
    EXPECT_EQ(list->lineCount, 5);
    EXPECT_GT(list->capacity, list->lineCount);
    EXPECT_STREQ(list->lineText[4], "4");
    EXPECT_FALSE(IsBufferEmpty(list));
    DestroyLineList(list);
}

TEST_F(LineListTest, MakeRoomShiftsTheEntriesAfterTheGivenOne) {
    LineList* list = CreateLineList(1000, 0);
    for (const char* text : {"a", "b", "c"}) AppendLine(list, text);
    ASSERT_EQ(MakeRoom(list, 0, 2), 0);
    EXPECT_STREQ(list->lineText[0], "a");
    EXPECT_STREQ(list->lineText[3], "b");
    EXPECT_STREQ(list->lineText[4], "c");
    list->lineText[1] = DupString("x", 0);
    list->lineText[2] = DupString("yz", 1);
    list->lineCount += 2;
    EXPECT_STREQ(list->lineText[2], "y");
    LineList* copy = CopyLineList(list, nullptr);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->lineCount, 5);
    EXPECT_STREQ(copy->lineText[1], "x");
    DestroyLineList(copy);
    DestroyLineList(list);
}

TEST_F(LineListTest, OneEmptyLineIsAnEmptyBufferButTwoAreNot) {
    LineList* list = CreateLineList(10, 0);
    AppendLine(list, "");
    EXPECT_TRUE(IsBufferEmpty(list));
    AppendLine(list, "");
    EXPECT_FALSE(IsBufferEmpty(list));
    DestroyLineList(list);
}

TEST_F(LineListTest, AllocationFailureLeavesTheListAsItWas) {
    LineList* list = CreateLineList(4, 0);
    AppendLine(list, "keep");
    editor.settings.allocator.limitBytes = editor.settings.allocator.totalBytes;
    EXPECT_EQ(AppendLine(list, "more"), 1);
    EXPECT_TRUE(AllocationFailed());
    EXPECT_EQ(list->lineCount, 1);
    EXPECT_STREQ(list->lineText[0], "keep");
    editor.settings.allocator.limitBytes = -1;
    DestroyLineList(list);
}

TEST_F(LineListTest, DupStringCopiesAtMostTheText) {
    char* shortCopy = DupString("ab", 10); // a length past the text stops at its end
    ASSERT_NE(shortCopy, nullptr);
    EXPECT_STREQ(shortCopy, "ab");
    Release(shortCopy);
    EXPECT_EQ(DupString(nullptr, 3), nullptr);
}

TEST_F(LineListTest, AFailedCopyLeavesNoListBehind) {
    LineList* list = CreateLineList(4, 0);
    for (const char* text : {"one", "two", "three"}) AppendLine(list, text);
    // Room for the new list and its array, not for the lines: the copy fails part-way and
    // the sanitizer's leak check sees whether the half-made list was freed.
    editor.settings.allocator.limitBytes =
        editor.settings.allocator.totalBytes + static_cast<long>(sizeof(LineList)) +
        3 * static_cast<long>(sizeof(char*)) + 4;
    EXPECT_EQ(CopyLineList(list, nullptr), nullptr);
    EXPECT_TRUE(AllocationFailed());
    editor.settings.allocator.limitBytes = -1;
    LineList* copy = CopyLineList(list, nullptr);
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy->lineText[2], "three");
    DestroyLineList(copy);
    DestroyLineList(list);
}

} // namespace
} // namespace ruvo
