// State of the keyboard mapper, the menu builder and the button bar.
#pragma once

#include <memory>

#include "commands/button_bar.h"
#include "commands/help_files.h"
#include "commands/key_map.h"
#include "commands/menu_description.h"

namespace ruvo {

struct GadgetDialog;

struct CustomisationState {
    CustomisationState();
    CustomisationState(const CustomisationState&) = delete;
    CustomisationState& operator=(const CustomisationState&) = delete;
    ~CustomisationState();

    KeyMap keyMap;
    MenuTable menu;
    HelpFiles helpFiles;
    ButtonBar buttonBar;
    std::unique_ptr<GadgetDialog> acceleratorsDialog; // built on first use, kept for the run
};

} // namespace ruvo
