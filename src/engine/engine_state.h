// State of the text engine: the current buffer and the bookmarks.
#pragma once

#include <cstdint>

#include "engine/display_state.h"
#include "engine/input_state.h"

namespace ruvo {

struct EditBuffer;

// A remembered caret position. The buffer record outlives its window, so a bookmark can
// see through closedFlags that its window is gone.
struct Bookmark {
    int32_t line = 0;
    int32_t column = 0;
    int32_t isSet = 0; // never cleared once set
    EditBuffer* buffer = nullptr;
};

constexpr int BookmarkCount = 10;

struct EngineState {
    EditBuffer* currentBuffer = nullptr;
    Bookmark bookmarks[BookmarkCount];
    bool overwriteMode = false; // typing replaces the character under the caret; all windows
    DisplayState display;
    InputState input;
};

} // namespace ruvo
