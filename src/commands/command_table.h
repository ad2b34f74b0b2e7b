// The static table of every command: names, labels, descriptions, flags and handlers.
#pragma once

#include <cstdint>

namespace ruvo {

// Conditions under which a command is available (bits of a row's flags).
enum CommandFlags : uint32_t {
    NeedsSelection = 1,
    NeedsBuffer = 2,
    NeedsModified = 4,
    NeedsErrorList = 8,
    NeedsUndo = 16,
    NeedsRedo = 32,
    NeedsClipboardText = 64,
};

// Greys or enables the menu item and button of every row whose flags share a bit with mask.
void SetCommandsEnabled(uint32_t mask, bool enabled);
// Recomputes every condition and pushes them in the order 2, 4, 16, 32, 1, 8.
void UpdateCommandStates();

} // namespace ruvo
