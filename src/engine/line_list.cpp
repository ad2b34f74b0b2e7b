// The line array of a buffer: growth through the checked allocator, a movable gap of free
// slots, owned line strings.
#include "engine/line_list.h"

#include <cstring>
#include <new>

#include "engine/line_slabs.h"
#include "settings/allocator.h"

namespace ruvo {

namespace {

void MoveSlots(char** slots, int32_t to, int32_t from, int32_t count) {
    if (count > 0)
        std::memmove(slots + to, slots + from, static_cast<size_t>(count) * sizeof(char*));
}

// Puts the gap before entry `at` (at most lineCount), moving only the entries between the
// gap's old and new places. A gap after the last entry is no gap: its slots are free slots
// at the end like any others.
void MoveGapTo(LineList& list, int32_t at) {
    LineSlots& text = list.lineText;
    if (text.gapLength > 0) {
        if (at < text.gapStart)
            MoveSlots(text.slots, at + text.gapLength, at, text.gapStart - at);
        else
            MoveSlots(text.slots, text.gapStart, text.gapStart + text.gapLength,
                      at - text.gapStart);
    }
    text.gapStart = at;
    if (at >= list.lineCount) text.gapLength = 0;
}

// Makes every free slot part of the gap by moving the entries after the gap to the end.
void GatherFreeSlots(LineList& list) {
    LineSlots& text = list.lineText;
    const int32_t after = list.lineCount - text.gapStart;
    const int32_t gapLength = list.capacity - list.lineCount;
    MoveSlots(text.slots, text.gapStart + gapLength, text.gapStart + text.gapLength, after);
    text.gapLength = gapLength;
}

} // namespace

char* DupString(const char* text, int length) {
    if (text == nullptr) return nullptr;
    // A length past the end of a shorter text copies the text only, never what follows it.
    const size_t size = length > 0 ? strnlen(text, static_cast<size_t>(length)) : std::strlen(text);
    char* copy = static_cast<char*>(Allocate(nullptr, 0, static_cast<long>(size) + 1, 1));
    if (copy == nullptr) return nullptr;
    std::memcpy(copy, text, size);
    copy[size] = '\0';
    return copy;
}

LineList* CreateLineList(int32_t growBy, int32_t readOnly) {
    void* memory = Allocate(nullptr, 0, 1, sizeof(LineList));
    if (memory == nullptr) return nullptr;
    LineList* list = new (memory) LineList{};
    list->growBy = growBy;
    list->readOnly = readOnly;
    return list;
}

void ReleaseLine(LineList* list, char* line) {
    if (list->slabs == nullptr || !ReleaseSlabLine(list, line)) Release(line);
}

void ClearLineList(LineList* list) {
    if (list == nullptr) return;
    for (int32_t i = 0; i < list->lineCount; ++i)
        ReleaseLine(list, list->lineText[i]);
    ReleaseSlabs(list);
    Release(list->lineText.slots);
    list->lineText = LineSlots{};
    list->lineCount = 0;
    list->capacity = 0;
    list->modified = 0;
    list->hasSelection = 0;
}

void DestroyLineList(LineList* list) {
    if (list == nullptr) return;
    ClearLineList(list);
    list->~LineList();
    Release(list);
}

int MakeRoom(LineList* list, int32_t at, int32_t n) {
    if (list->lineCount + n >= list->capacity) {
        int32_t increment = list->growBy > n ? list->growBy : n;
        // A long text grows by half its size at a time, so that growing stays rare.
        if (list->capacity >= 4 * list->growBy && increment < list->capacity / 2)
            increment = list->capacity / 2;
        void* grown = Allocate(list->lineText.slots, list->capacity, increment, sizeof(char*));
        if (grown == nullptr) return 1;
        // The new slots lie at the end of the array, after any gap.
        list->lineText.slots = static_cast<char**>(grown);
        list->capacity += increment;
    }
    if (n <= 0) return 0;
    if (at + 1 >= list->lineCount) {
        // Nothing moves; the slots after the last entry must be free.
        MoveGapTo(*list, list->lineCount);
        return 0;
    }
    MoveGapTo(*list, at + 1);
    LineSlots& text = list->lineText;
    if (text.gapLength < n) GatherFreeSlots(*list);
    for (int32_t i = 0; i < n; ++i)
        text.slots[text.gapStart + i] = nullptr;
    text.gapStart += n;
    text.gapLength -= n;
    return 0;
}

void RemoveLines(LineList* list, int32_t at, int32_t n) {
    if (n <= 0) return;
    MoveGapTo(*list, at);
    list->lineText.gapLength += n;
    list->lineCount -= n;
    if (at >= list->lineCount) list->lineText.gapLength = 0;
}

int AppendLine(LineList* list, std::string_view text) {
    if (MakeRoom(list, list->lineCount, 1) != 0) return 1;
    char* copy = static_cast<char*>(Allocate(nullptr, 0, static_cast<long>(text.size()) + 1, 1));
    if (copy == nullptr) return 1;
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    list->lineText[list->lineCount++] = copy;
    return 0;
}

LineList* CopyLineList(const LineList* source, LineList* target) {
    const bool created = target == nullptr;
    if (created) target = CreateLineList(source->lineCount > 0 ? source->lineCount : 1, 0);
    if (target == nullptr) return nullptr;
    for (int32_t i = 0; i < source->lineCount; ++i) {
        if (AppendLine(target, source->lineText[i]) != 0) {
            // A list made here would be lost to the caller, who only sees the failure.
            if (created) DestroyLineList(target);
            return nullptr;
        }
    }
    return target;
}

bool IsBufferEmpty(const LineList* list) {
    if (list == nullptr || list->lineText == nullptr || list->lineCount == 0) return true;
    return list->lineText[0][0] == '\0' && list->lineCount < 2;
}

} // namespace ruvo
