// The growable array of owned, NUL-terminated lines that holds a buffer's text
// (and serves as a plain list of strings elsewhere).
#pragma once

#include <cstdint>
#include <string_view>

namespace ruvo {

constexpr int MaxLineLength = 255;

struct LineList {
    int32_t lineCount = 0;
    int32_t capacity = 0;
    int32_t growBy = 0;
    int32_t modified = 0;
    int32_t hasSelection = 0;
    int32_t readOnly = 0;
    char** lineText = nullptr; // `capacity` slots, entries below lineCount owned by the list
};

// New empty list from the checked allocator, or null when memory ran out.
[[nodiscard]] LineList* CreateLineList(int32_t growBy, int32_t readOnly);
// Frees every line and the array; counts and flags become 0.
void ClearLineList(LineList* list);
void DestroyLineList(LineList* list);
// Room for n more entries; entries at+1 .. lineCount-1 move up by n. 0 on success, 1 on failure.
[[nodiscard]] int MakeRoom(LineList* list, int32_t at, int32_t n);
// Appends a copy of text. 0 on success, 1 on failure.
int AppendLine(LineList* list, std::string_view text);
// Copies every line of source onto target (created when null); null on failure.
LineList* CopyLineList(const LineList* source, LineList* target);
bool IsBufferEmpty(const LineList* list);

// Copy of the first `length` bytes (whole string when 0) from the checked allocator.
[[nodiscard]] char* DupString(const char* text, int length);

} // namespace ruvo
