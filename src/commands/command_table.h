// The static table of every command: names, labels, descriptions, flags and handlers.
#pragma once

#include <cstdint>
#include <string_view>

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

// Every handler takes nothing and checks its own preconditions; the result is ignored.
using CommandHandler = int (*)();

struct CommandRow {
    CommandHandler handler; // null only in the terminating row
    const char* name;       // the word of menu.ini, accel.ini and buttons.ini
    const char* label;      // short label for the button bar; may be empty
    const char* description;
    uint32_t flags;
};

// 98 commands and the terminating row.
constexpr int CommandRowCount = 99;
constexpr int TerminatingCommandIndex = CommandRowCount - 1;
// A menu item, button or key carries its command as row number + this.
constexpr int CommandMenuIdBase = 10000;
// The identifier given to menu items and keys whose command name is unknown.
constexpr int UnknownCommandMenuId = 9999;

extern const CommandRow CommandTable[CommandRowCount];

// The first row whose name matches regardless of letter case, or null. When nothing matches
// and report is set, start-up error 4 is reported with the name and the reporter word
// ("Menu Builder", "Keyboard mapper", "Button"). outIndex (when given) receives the row
// number or -1.
const CommandRow* CommandByName(std::string_view name, const char* reporter, bool report,
                                int* outIndex = nullptr);
// Row number of the first row with this handler, else -1.
int CommandIndexOfHandler(CommandHandler handler);
// Row number for a menu identifier in 10000..10098, else -1.
int CommandIndexOfMenuId(int menuId);
// The row's label as menus and button tips show it now: the name of a user tool for the
// RunTool rows whose tool was loaded, else the table's label. Null outside 0..98.
const char* CommandLabel(int index);
// The row's description, or null outside 0..98.
const char* CommandDescription(int index);
// Calls the row's handler when there is one. Dispatch never tests the flags: handlers guard
// themselves. Always reports success.
int InvokeCommand(int index);

// Greys or enables the menu item and button of every row whose flags share a bit with mask.
void SetCommandsEnabled(uint32_t mask, bool enabled);
// Recomputes every condition and pushes them in the order 2, 4, 16, 32, 1, 8.
void UpdateCommandStates();

} // namespace ruvo
