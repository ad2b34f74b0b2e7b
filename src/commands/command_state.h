// State of the command subsystem.
#pragma once

#include <array>
#include <string>

#include "commands/command_table.h"

namespace ruvo {

struct CommandState {
    // Installed by the compiler subsystem: true while its output window is open and holds
    // at least one parsed error. Without it the error commands stay grey.
    using ErrorListProbe = bool (*)();
    ErrorListProbe hasErrorList = nullptr;
    // A row whose label is a text kept elsewhere (a user tool's name); null: the table's.
    std::array<const std::string*, CommandRowCount> labelOverrides{};
};

} // namespace ruvo
