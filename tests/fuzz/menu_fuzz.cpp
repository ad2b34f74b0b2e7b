// Fuzzes the menu definition file: the menu description read from it, with the Help menu and
// the key texts of its items. Input: menu.ini, or accel.ini, a line "%%" and menu.ini.
#include "commands/key_map.h"
#include "commands/menu_description.h"
#include "fuzz_session.h"

using namespace ruvo;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    InstalledEditor session;
    const std::vector<std::string_view> parts = SplitParts(AsText(data, size));
    LoadKeyMap(parts.size() > 1 ? WriteScratchFile("accel.ini", parts.front()) : "");
    ReadMenuDescription(WriteScratchFile("menu.ini", parts.back()));
    AppendKeyTexts();
    int depth = 0;
    for (const MenuEntry& entry : session.editor.customisation.menu.entries) {
        if (entry.text.size() > MaxMenuText) std::abort();
        depth += entry.kind == MenuEntryKind::PopupStart;
        depth -= entry.kind == MenuEntryKind::PopupEnd;
        if (depth < 0) std::abort();
    }
    return 0;
}
