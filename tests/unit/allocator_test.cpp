// The checked allocator: zero-filled growth, the running total and the failure message.
#include "settings/allocator.h"

#include <climits>
#include <cstring>

#include "editor_fixture.h"

namespace ruvo {
namespace {

using AllocatorTest = EditorTest;

TEST_F(AllocatorTest, NewBlocksAndGrownPartsAreZeroFilled) {
    auto* numbers = static_cast<int*>(Allocate(nullptr, 0, 4, sizeof(int)));
    ASSERT_NE(numbers, nullptr);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(numbers[i], 0);
        numbers[i] = i + 1;
    }

    auto* grown = static_cast<int*>(Allocate(numbers, 4, 1000, sizeof(int)));
    ASSERT_NE(grown, nullptr);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(grown[i], i + 1);
    for (int i = 4; i < 1004; ++i)
        ASSERT_EQ(grown[i], 0) << i;
    EXPECT_FALSE(AllocationFailed());
    Release(grown);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(AllocatorTest, TotalCountsEveryRequestAndIsNeverReduced) {
    const long before = editor.settings.allocator.totalBytes;
    void* a = Allocate(nullptr, 0, 10, 8);
    void* b = Allocate(a, 10, 5, 8);
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(editor.settings.allocator.totalBytes, before + 80 + 40);
    Release(b);
    EXPECT_EQ(editor.settings.allocator.totalBytes, before + 120);
}

TEST_F(AllocatorTest, FailureShowsTheMessageAndKeepsTheOldBlock) {
    char* text = static_cast<char*>(Allocate(nullptr, 0, 6, 1));
    ASSERT_NE(text, nullptr);
    std::memcpy(text, "keep!", 6);
    const long total = editor.settings.allocator.totalBytes;
    editor.settings.allocator.limitBytes = total + 100;

    EXPECT_EQ(Allocate(text, 6, 101, 1), nullptr);
    EXPECT_TRUE(AllocationFailed());
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text,
              "Alloc failed for 101 bytes (Total " + std::to_string(total) + ").");
    EXPECT_EQ(host.boxes[0].caption, ""); // no caption
    EXPECT_STREQ(text, "keep!");
    EXPECT_EQ(editor.settings.allocator.totalBytes, total);

    // The next success clears the flag.
    char* more = static_cast<char*>(Allocate(text, 6, 100, 1));
    ASSERT_NE(more, nullptr);
    EXPECT_FALSE(AllocationFailed());
    EXPECT_STREQ(more, "keep!");
    Release(more);
}

TEST_F(AllocatorTest, ImpossibleSizesFailAndEmptyRequestsAreNoted) {
    EXPECT_EQ(Allocate(nullptr, 0, -1, 4), nullptr);
    EXPECT_TRUE(AllocationFailed());
    EXPECT_EQ(Allocate(nullptr, 0, LONG_MAX / 2, 4), nullptr);
    EXPECT_EQ(host.boxes.size(), 2u);

    EXPECT_TRUE(host.errorStream.empty());
    void* empty = Allocate(nullptr, 0, 0, 4);
    EXPECT_EQ(host.errorStream, "Error in allocating memory\n");
    EXPECT_NE(empty, nullptr);
    EXPECT_FALSE(AllocationFailed());
    // A block that held nothing is replaced.
    void* replaced = Allocate(empty, 0, 3, 4);
    ASSERT_NE(replaced, nullptr);
    Release(replaced);
}

} // namespace
} // namespace ruvo
