// Fuzzes the keyboard definition file: the key map read from it, each binding's display text
// and the lookup of every bound key.
#include "commands/key_map.h"
#include "fuzz_session.h"

using namespace ruvo;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    InstalledEditor session;
    LoadKeyMap(WriteScratchFile("accel.ini", AsText(data, size)));
    const KeyMap& map = session.editor.customisation.keyMap;
    if (map.count < 0 || map.count > MaxKeyBindings) std::abort();
    for (int i = 0; i < map.count; ++i) {
        const KeyBinding& binding = map.entries[static_cast<size_t>(i)];
        (void)KeyText(binding);
        if (BoundCommandId(binding.virtualKey, binding.shift, binding.ctrl, binding.alt) == 0)
            std::abort();
    }
    return 0;
}
