// Line storage in large blocks (slabs) for the lines read from a file.
#include "engine/line_slabs.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <new>

#include "engine/editor.h"
#include "engine/line_list.h"
#include "host/host.h"
#include "settings/allocator.h"

namespace ruvo {

namespace {

constexpr long MinSlabBytes = 4096;
constexpr long MaxSlabBytes = 8L << 20;

bool Before(const char* a, const char* b) {
    return std::less<const char*>{}(a, b);
}

bool Holds(const LineSlab& slab, const char* line) {
    return !Before(line, slab.begin) && Before(line, slab.end);
}

// Index of the slab holding line, or -1.
int32_t FindSlab(LineSlabs& slabs, const char* line) {
    if (slabs.lastFound < slabs.count && Holds(slabs.slabs[slabs.lastFound], line))
        return slabs.lastFound;
    const LineSlab* first = slabs.slabs;
    const LineSlab* after =
        std::upper_bound(first, first + slabs.count, line,
                         [](const char* l, const LineSlab& s) { return Before(l, s.begin); });
    if (after == first || !Holds(after[-1], line)) return -1;
    slabs.lastFound = static_cast<int32_t>(after - first - 1);
    return slabs.lastFound;
}

LineSlabs* SlabsOf(LineList& list) {
    if (list.slabs == nullptr) {
        void* memory = Allocate(nullptr, 0, 1, sizeof(LineSlabs));
        if (memory == nullptr) return nullptr;
        list.slabs = new (memory) LineSlabs{};
    }
    return list.slabs;
}

// Starts filling a new slab of at least `needed` bytes; false when memory ran out.
bool StartSlab(LineSlabs& slabs, long needed, long expectedBytes) {
    // Each stored line takes its bytes and a NUL where the file had a line end; only a piece
    // cut at 254 characters takes one byte more than it had.
    long size = expectedBytes > 0 ? expectedBytes + expectedBytes / 64 + 64 : 2 * slabs.lastSize;
    size = std::max(std::clamp(size, MinSlabBytes, MaxSlabBytes), needed);
    if (slabs.count == slabs.capacity) {
        const int32_t more = slabs.capacity > 0 ? slabs.capacity : 8;
        void* grown = Allocate(slabs.slabs, slabs.capacity, more, sizeof(LineSlab));
        if (grown == nullptr) return false;
        slabs.slabs = static_cast<LineSlab*>(grown);
        slabs.capacity += more;
    }
    char* block = static_cast<char*>(Allocate(nullptr, 0, size, 1));
    if (block == nullptr) return false;
    TheEditor().host.MapMemoryAhead(block, static_cast<size_t>(size));
    int32_t at = slabs.count;
    while (at > 0 && Before(block, slabs.slabs[at - 1].begin))
        --at;
    std::memmove(&slabs.slabs[at + 1], &slabs.slabs[at],
                 static_cast<size_t>(slabs.count - at) * sizeof(LineSlab));
    slabs.slabs[at] = LineSlab{block, block + size, 0};
    ++slabs.count;
    slabs.filling = at;
    slabs.fillNext = block;
    slabs.lastFound = at;
    slabs.lastSize = size;
    return true;
}

} // namespace

int AppendSlabLine(LineList* list, std::string_view text, long expectedBytes) {
    LineSlabs* slabs = SlabsOf(*list);
    if (slabs == nullptr) return 1;
    const long needed = static_cast<long>(text.size()) + 1;
    if ((slabs->filling < 0 || slabs->slabs[slabs->filling].end - slabs->fillNext < needed) &&
        !StartSlab(*slabs, needed, expectedBytes))
        return 1;
    if (MakeRoom(list, list->lineCount, 1) != 0) return 1;
    char* line = slabs->fillNext;
    if (!text.empty()) std::memcpy(line, text.data(), text.size());
    line[text.size()] = '\0';
    slabs->fillNext += needed;
    ++slabs->slabs[slabs->filling].liveLines;
    list->lineText[list->lineCount++] = line;
    return 0;
}

void EndSlabFilling(LineList* list) {
    if (list->slabs == nullptr) return;
    list->slabs->filling = -1;
    list->slabs->fillNext = nullptr;
}

bool ReleaseSlabLine(LineList* list, const char* line) {
    LineSlabs& slabs = *list->slabs;
    const int32_t found = FindSlab(slabs, line);
    if (found < 0) return false;
    if (--slabs.slabs[found].liveLines > 0 || found == slabs.filling) return true;
    Release(slabs.slabs[found].begin);
    std::memmove(&slabs.slabs[found], &slabs.slabs[found + 1],
                 static_cast<size_t>(slabs.count - found - 1) * sizeof(LineSlab));
    --slabs.count;
    if (slabs.filling > found) --slabs.filling;
    slabs.lastFound = found < slabs.count ? found : 0;
    return true;
}

void ReleaseSlabs(LineList* list) {
    LineSlabs* slabs = list->slabs;
    if (slabs == nullptr) return;
    for (int32_t i = 0; i < slabs->count; ++i)
        Release(slabs->slabs[i].begin);
    Release(slabs->slabs);
    slabs->~LineSlabs();
    Release(slabs);
    list->slabs = nullptr;
}

} // namespace ruvo
