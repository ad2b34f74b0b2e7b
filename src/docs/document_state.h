// State of the document subsystem: open buffers, recent files, dialog memory.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace ruvo {

struct EditBuffer;

constexpr int RecentFileSlots = 5;

struct DocumentState {
    DocumentState() = default;
    DocumentState(const DocumentState&) = delete;
    DocumentState& operator=(const DocumentState&) = delete;
    ~DocumentState(); // frees every buffer record, open or closed

    std::vector<EditBuffer*> buffers;                     // open buffers, in creation order
    std::vector<EditBuffer*> closedBuffers;               // closed records, kept for stale pointers
    std::array<std::string, RecentFileSlots> recentFiles; // slot 0 most recently closed
    int untitledCounter = 1;
    std::string lastDialogDirectory;
    std::string fileDialogFilter;       // description|pattern|... pairs, rebuilt before each dialog
    bool checkingChangedOnDisk = false; // the question boxes move the focus themselves
};

} // namespace ruvo
