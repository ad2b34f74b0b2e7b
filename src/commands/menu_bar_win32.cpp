// The menu bar made from the menu description, and the help viewer.
#include <vector>

#include "commands/commands_win32.h"
#include "commands/menu_description.h"
#include "engine/editor.h"
#include "ui/win_host.h"

namespace ruvo {

namespace {

// Appends the entries from `next` to the popup's end (or the description's end) to `menu`.
void FillMenu(HMENU menu, const std::vector<MenuEntry>& entries, size_t& next) {
    while (next < entries.size()) {
        const MenuEntry& entry = entries[next++];
        switch (entry.kind) {
        case MenuEntryKind::PopupStart: {
            HMENU popup = CreatePopupMenu();
            FillMenu(popup, entries, next);
            AppendMenuA(menu, MF_POPUP | MF_STRING, reinterpret_cast<UINT_PTR>(popup),
                        entry.text.c_str());
            break;
        }
        case MenuEntryKind::Item:
            AppendMenuA(menu, MF_STRING, entry.commandId, entry.text.c_str());
            break;
        case MenuEntryKind::Separator:
            AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
            break;
        case MenuEntryKind::PopupEnd:
            return;
        }
    }
}

} // namespace

HMENU BuildMainMenu() {
    PrepareMainMenu();
    HMENU bar = CreateMenu();
    if (bar == nullptr) return nullptr;
    size_t next = 0;
    FillMenu(bar, TheEditor().customisation.menu.entries, next);
    // Greying and the recent-file names work on this handle before the frame exists.
    TheWinHost().shell.menuBar = bar;
    FinishMainMenu();
    return bar;
}

void WinHost::ShowHelpFile(std::string_view fileName) {
    const std::string name(fileName);
    WinHelpA(shell.frame, name.c_str(), HELP_FORCEFILE, 0);
}

} // namespace ruvo
