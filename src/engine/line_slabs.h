// Line storage in large blocks (slabs) for the lines read from a file, so that loading costs
// one allocation per slab rather than one per line.
#pragma once

#include <cstdint>
#include <string_view>

namespace ruvo {

struct LineList;

struct LineSlab {
    char* begin = nullptr;
    char* end = nullptr; // one past the slab's last byte
    long liveLines = 0;  // lines of the slab still in the list
};

// The slabs of one line list, sorted by address. A slab is freed with its last line.
struct LineSlabs {
    LineSlab* slabs = nullptr; // `capacity` records from the checked allocator
    int32_t count = 0;
    int32_t capacity = 0;
    int32_t filling = -1;     // the slab new lines go into, or -1
    char* fillNext = nullptr; // its first free byte
    int32_t lastFound = 0;    // lines are mostly released in order: try this slab first
    long lastSize = 0;        // size of the newest slab
};

// Appends a copy of text, kept in the slab being filled or in a new one sized for about
// expectedBytes more of the file (0 when unknown). 0 on success, 1 when memory ran out (the
// allocator has said so) or the slot array cannot grow.
[[nodiscard]] int AppendSlabLine(LineList* list, std::string_view text, long expectedBytes);
// Later appends start a new slab; the lines of the current one stay.
void EndSlabFilling(LineList* list);
// When line lies in one of the list's slabs, counts it gone (the slab is freed with its last
// line) and returns true; false for a line allocated on its own.
bool ReleaseSlabLine(LineList* list, const char* line);
// Frees every slab, whatever lines remain in them, and the records.
void ReleaseSlabs(LineList* list);

} // namespace ruvo
