// State of the command subsystem.
#pragma once

namespace ruvo {

struct CommandState {
};

} // namespace ruvo
