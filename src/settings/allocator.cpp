// The checked allocator.
#include "settings/allocator.h"

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
    char text[96];
    std::snprintf(text, sizeof text, "Alloc failed for %d bytes (Total %ld).",
                  static_cast<int>(requested), stats.totalBytes);
    TheEditor().host.ErrorBox("", text);
}

} // namespace

void* Allocate(void* block, long oldCount, long count, long elementSize) {
    AllocatorStats& stats = TheEditor().settings.allocator;
    stats.lastFailed = false;
    const long requested = count * elementSize;
    if (count == 0 || elementSize == 0) TheEditor().host.ErrorStream("Error in allocating memory\n");

    if (stats.limitBytes >= 0 && stats.totalBytes + requested > stats.limitBytes) {
        ReportFailure(requested);
        return nullptr;
    }

    void* result = nullptr;
    if (block == nullptr || oldCount == 0) {
        // A block that held no elements is replaced, not grown.
        result = std::calloc(1, requested > 0 ? static_cast<size_t>(requested) : 1);
    } else {
        const size_t oldBytes = static_cast<size_t>(oldCount * elementSize);
        const size_t newBytes = static_cast<size_t>((oldCount + count) * elementSize);
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

void Release(void* block) { std::free(block); }

bool AllocationFailed() { return TheEditor().settings.allocator.lastFailed; }

} // namespace ruvo
