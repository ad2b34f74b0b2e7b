// The key-name table, the code of a key name and the display text of a binding.
#include <array>

#include "commands/definition_tokens.h"
#include "commands/key_map.h"
#include "engine/editor.h"
#include "host/host.h"

namespace ruvo {

namespace {

struct KeyName {
    const char* name;
    uint16_t code;
};

// Searched in order; where two names share a code, the first is the one shown.
// clang-format off
constexpr std::array<KeyName, 58> KeyNames = {{
    {"F1", 0x70}, {"F2", 0x71}, {"F3", 0x72}, {"F4", 0x73}, {"F5", 0x74}, {"F6", 0x75},
    {"F7", 0x76}, {"F8", 0x77}, {"F9", 0x78}, {"F10", 0x79}, {"F11", 0x7A}, {"F12", 0x7B},
    {"F13", 0x7C}, {"F14", 0x7D}, {"F15", 0x7E}, {"F16", 0x7F}, {"F17", 0x80}, {"F18", 0x81},
    {"F19", 0x82}, {"F20", 0x83}, {"F21", 0x84}, {"F22", 0x85}, {"F23", 0x86}, {"F24", 0x87},
    {"Esc", 0x1B}, {"Enter", 0x0D}, {"Space", 0x20}, {"BkSp", 0x08}, {"BackSpace", 0x08},
    {"Tab", 0x09},
    {"Up", 0x26}, {"Down", 0x28}, {"Left", 0x25}, {"Right", 0x27}, {"PgUp", 0x21},
    {"PgDn", 0x22}, {"Home", 0x24}, {"End", 0x23},
    {"Ins", 0x2D}, {"Insert", 0x2D}, {"Del", 0x2E}, {"Delete", 0x2E},
    // GrayEnter is the Execute key's code, not Enter's.
    {"GrayPlus", 0x6B}, {"GrayMinus", 0x6D}, {"GrayEnter", 0x2B}, {"GraySlash", 0x6F},
    {"GrayStar", 0x6A},
    {"Num0", 0x60}, {"Num1", 0x61}, {"Num2", 0x62}, {"Num3", 0x63}, {"Num4", 0x64},
    {"Num5", 0x65}, {"Num6", 0x66}, {"Num7", 0x67}, {"Num8", 0x68}, {"Num9", 0x69},
    {"NumDOT", 0x6E},
}};
// clang-format on

} // namespace

int KeyCodeOfName(std::string_view name) {
    if (name.size() == 1) return static_cast<unsigned char>(name[0]);
    for (const KeyName& entry : KeyNames)
        if (EqualsIgnoringCase(entry.name, name)) return entry.code;
    return 0;
}

KeyTexts KeyText(const KeyBinding& binding) {
    KeyTexts texts;
    if (binding.ctrl) {
        texts.text += "Ctrl+";
        texts.modifiers += "Ctrl ";
    }
    if (binding.shift) {
        texts.text += "Shift+";
        texts.modifiers += "Shift ";
    }
    if (binding.alt) {
        texts.text += "Alt+";
        texts.modifiers += "Alt ";
    }
    for (const KeyName& entry : KeyNames) {
        if (entry.code == binding.virtualKey) {
            texts.text += entry.name;
            return texts;
        }
    }
    const unsigned character = TheEditor().host.KeyCharacter(binding.virtualKey);
    if (character != 0) texts.text += static_cast<char>(character);
    return texts;
}

} // namespace ruvo
