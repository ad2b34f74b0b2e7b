// The growable array of owned, NUL-terminated lines that holds a buffer's text
// (and serves as a plain list of strings elsewhere).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ruvo {

constexpr int MaxLineLength = 255;

struct LineSlabs;

// The slots of a line array, addressed by line index. The free slots may lie in a gap inside
// the array, so that lines inserted or removed near one place move only the slots between
// that place and the place of the previous such edit, however long the text.
struct LineSlots {
    char** slots = nullptr; // `capacity` slots
    int32_t gapStart = 0;   // the gap lies before the slot of this index
    int32_t gapLength = 0;  // 0: no gap, the slots are in index order

    char*& operator[](int32_t index) { return slots[index < gapStart ? index : index + gapLength]; }
    char* operator[](int32_t index) const {
        return slots[index < gapStart ? index : index + gapLength];
    }
    bool operator==(std::nullptr_t) const { return slots == nullptr; }
};

struct LineList {
    int32_t lineCount = 0;
    int32_t capacity = 0;
    int32_t growBy = 0;
    int32_t modified = 0;
    int32_t hasSelection = 0;
    int32_t readOnly = 0;
    LineSlots lineText;         // entries below lineCount owned by the list
    LineSlabs* slabs = nullptr; // large blocks holding the lines read from a file
};

// New empty list from the checked allocator, or null when memory ran out.
[[nodiscard]] LineList* CreateLineList(int32_t growBy, int32_t readOnly);
// Frees every line and the array; counts and flags become 0.
void ClearLineList(LineList* list);
void DestroyLineList(LineList* list);
// Room for n more entries; entries at+1 .. lineCount-1 move up by n. 0 on success, 1 on failure.
[[nodiscard]] int MakeRoom(LineList* list, int32_t at, int32_t n);
// Takes entries at .. at+n-1 out (their lines already released); the later ones move down and
// lineCount shrinks by n.
void RemoveLines(LineList* list, int32_t at, int32_t n);
// Frees one line owned by the list, wherever it is stored.
void ReleaseLine(LineList* list, char* line);
// Appends a copy of text. 0 on success, 1 on failure.
int AppendLine(LineList* list, std::string_view text);
// Copies every line of source onto target (created when null); null on failure.
LineList* CopyLineList(const LineList* source, LineList* target);
bool IsBufferEmpty(const LineList* list);

// Copy of the first `length` bytes (whole string when 0) from the checked allocator.
[[nodiscard]] char* DupString(const char* text, int length);

} // namespace ruvo
