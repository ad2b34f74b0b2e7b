// What the edit windows' input handling keeps between messages: focus, mouse drag, the
// scroll-bar cache, and the compiler's hook for message windows.
#pragma once

#include <cstdint>

namespace ruvo {

struct EditBuffer;

// The scroll-bar values last handed to the shell, so that bars are touched only on a change.
// They belong to one buffer; another buffer's values never count as unchanged.
struct ScrollBarCache {
    const EditBuffer* buffer = nullptr;
    int32_t lineCount = -1;
    int32_t topLine = -1;
    int32_t leftColumn = -1;
    int32_t cursorLineLength = -1;
};

// Asks the compiler support to follow the message on the caret line of a message window:
// with open, go to the source line; without, only show it. Installed by the compiler support;
// none means message windows behave like documents for moving around.
using FollowMessageHook = void (*)(EditBuffer& report, bool open);

struct InputState {
    EditBuffer* bufferBeingCreated = nullptr; // attached to its window by the creation message
    bool haveFocus = false;                   // an edit window has the keyboard focus
    bool dragging = false;                    // a mouse selection runs; the mouse is captured
    bool rightButtonDrag = false;             // the running drag began with the right button
    bool jiggleDown = false;                  // direction of the next pointer nudge
    ScrollBarCache scrollBars;
    FollowMessageHook followMessage = nullptr;
};

} // namespace ruvo
