// State of the command subsystem.
#pragma once

namespace ruvo {

struct CommandState {
    // Installed by the compiler subsystem: true while its output window is open and holds
    // at least one parsed error. Without it the error commands stay grey.
    using ErrorListProbe = bool (*)();
    ErrorListProbe hasErrorList = nullptr;
};

} // namespace ruvo
