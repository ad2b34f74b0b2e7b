// The key map: shortcut keys bound to commands, read from accel.ini, and their display texts.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace ruvo {

struct KeyBinding {
    std::string_view keyName; // set only for the built-in bindings
    uint16_t virtualKey = 0;
    uint16_t shift = 0;
    uint16_t ctrl = 0;
    uint16_t alt = 0;
    uint32_t commandId = 0; // command index + 10000; 9999 for an unknown command
};

constexpr int MaxKeyBindings = 128;
// accel.ini may fill the map only this far, so that the six fixed bindings always fit.
constexpr int MaxFileKeyBindings = 122;
constexpr int DefaultKeyBindingCount = 48;
constexpr int FixedKeyBindingCount = 6;

// Lookups take the first matching entry, so order matters.
struct KeyMap {
    std::array<KeyBinding, MaxKeyBindings> entries{};
    int count = 0;
};

// Virtual-key codes of the shift states VkKeyScanA reports in its high byte.
constexpr int KeyScanShift = 1;
constexpr int KeyScanCtrl = 2;
constexpr int KeyScanAlt = 4;

// A one-character name is that character's code; a longer one the code of the first entry of
// the key-name table with that name (any case); anything else 0.
int KeyCodeOfName(std::string_view name);

struct KeyTexts {
    std::string text;      // "Ctrl+Shift+S"
    std::string modifiers; // the same modifiers alone: "Ctrl Shift "
};
// The display text of a binding: modifiers, then the key's name, or the character the
// keyboard layout gives for its code.
KeyTexts KeyText(const KeyBinding& binding);

// Fills the editor's key map: the 48 built-in bindings when the file cannot be opened (an
// empty name included), else the file's bindings followed by the six fixed ones. Faults go to
// the start-up error report.
void LoadKeyMap(std::string_view path);

// The identifier of the first binding of this key with exactly these modifiers, or 0.
uint32_t BoundCommandId(int virtualKey, bool shift, bool ctrl, bool alt);

} // namespace ruvo
