// The checked allocator: zero-filled growth of arrays, a running total, and a message on failure.
#pragma once

#include <cstddef>

namespace ruvo {

// Grows `block` (holding oldCount elements) by `count` elements of `elementSize` bytes, or
// obtains a new zero-filled block of count elements when there is no old block (an old block
// of oldCount 0 is then released). The new part is zero-filled. On failure shows
// "Alloc failed for %d bytes (Total %ld)." and returns null; the old block is then still valid.
[[nodiscard]] void* Allocate(void* block, long oldCount, long count, long elementSize);
void Release(void* block);
// True when the last Allocate failed.
bool AllocationFailed();

} // namespace ruvo
