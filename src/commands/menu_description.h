// The menu description the menu bar is built from: menu.ini or the built-in menu, the Help
// menu with the help files of the profile, and the key texts of the items.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

enum class MenuEntryKind : uint32_t { PopupStart = 0, Item = 1, Separator = 2, PopupEnd = 3 };

struct MenuEntry {
    MenuEntryKind kind = MenuEntryKind::Item;
    std::string text;       // at most MaxMenuText characters; empty for separators and ends
    uint32_t commandId = 0; // items: command index + 10000 (9999 unknown); 0 otherwise
};

constexpr int MaxMenuEntries = 128;
constexpr int MaxMenuText = 39;
constexpr int BuiltInMenuEntryCount = 53;

struct MenuTable {
    std::vector<MenuEntry> entries; // at most MaxMenuEntries
    bool tooManyReported = false;   // "Too many menu items" is reported once per run
};

// Appends one entry (text cut to 39 characters); a full table adds nothing and reports
// "Too many menu items" once.
void AddMenuEntry(MenuEntryKind kind, uint32_t commandId, std::string_view text);

// The editor's menu description afresh: menu.ini at `path` (the built-in menu when it cannot
// be opened), then the Help menu. Faults go to the start-up error report.
void ReadMenuDescription(std::string_view path);
// Appends a tab and the key text of each binding to the items of its command that hold no
// tab yet, within 39 characters: an item shows its command's first binding.
void AppendKeyTexts();
// Everything of the menu bar that does not need the platform, in order: the help files, the
// key map from [GUI] Accellerators, the description from [GUI] Menu, the key texts.
void PrepareMainMenu();
// After the platform has made the menu bar: the recent-file items get their names (greyed
// while empty) and every command its enabled state.
void FinishMainMenu();

} // namespace ruvo
