// State of the keyboard mapper, the menu builder and the button bar.
#pragma once

#include "commands/button_bar.h"
#include "commands/help_files.h"
#include "commands/key_map.h"
#include "commands/menu_description.h"

namespace ruvo {

struct CustomisationState {
    KeyMap keyMap;
    MenuTable menu;
    HelpFiles helpFiles;
    ButtonBar buttonBar;
};

} // namespace ruvo
