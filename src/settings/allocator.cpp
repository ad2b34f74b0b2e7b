// The checked allocator.
#include "settings/allocator.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "engine/editor.h"
#include "host/host.h"

namespace ruvo {

namespace {

void ReportFailure(long requested) {
    AllocatorStats& stats = TheEditor().settings.allocator;
    stats.lastFailed = true;
    ++stats.failures;
    char text[96];
    std::snprintf(text, sizeof text, "Alloc failed for %d bytes (Total %ld).",
                  static_cast<int>(requested), stats.totalBytes);
    TheEditor().host.ErrorBox("", text);
}

// count × size in bytes, or -1 when negative or not representable.
long ByteSize(long count, long size) {
    if (count < 0 || size < 0) return -1;
    if (size != 0 && count > LONG_MAX / size) return -1;
    return count * size;
}

} // namespace

void* Allocate(void* block, long oldCount, long count, long elementSize) {
    AllocatorStats& stats = TheEditor().settings.allocator;
    stats.lastFailed = false;
    if (count == 0 || elementSize == 0)
        TheEditor().host.ErrorStream("Error in allocating memory\n");

    // Negative or overflowing sizes cannot be satisfied; they fail like an exhausted heap.
    const long requested = ByteSize(count, elementSize);
    const long grownSize = oldCount >= 0 && count <= LONG_MAX - oldCount
                               ? ByteSize(oldCount + count, elementSize)
                               : -1;
    ++stats.calls;
    if (requested < 0 || grownSize < 0 || stats.calls == stats.failCall ||
        (stats.limitBytes >= 0 && stats.totalBytes + requested > stats.limitBytes)) {
        ReportFailure(requested);
        return nullptr;
    }

    void* result = nullptr;
    if (block == nullptr || oldCount == 0) {
        // A block that held no elements is replaced, not grown.
        result = std::calloc(1, requested > 0 ? static_cast<size_t>(requested) : 1);
        if (result != nullptr) std::free(block);
    } else {
        const size_t oldBytes = static_cast<size_t>(oldCount * elementSize);
        const size_t newBytes = static_cast<size_t>(grownSize);
        result = std::realloc(block, newBytes > 0 ? newBytes : 1);
        if (result != nullptr && newBytes > oldBytes)
            std::memset(static_cast<char*>(result) + oldBytes, 0, newBytes - oldBytes);
    }
    if (result == nullptr) {
        ReportFailure(requested);
        return nullptr;
    }
    stats.totalBytes += requested;
    return result;
}

void Release(void* block) {
    std::free(block);
}

bool AllocationFailed() {
    return TheEditor().settings.allocator.lastFailed;
}

} // namespace ruvo
