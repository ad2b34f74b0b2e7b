// Placeholder until the command table lands.
#include "commands/command_table.h"

namespace ruvo {

void SetCommandsEnabled(uint32_t, bool) {}
void UpdateCommandStates() {}

} // namespace ruvo
