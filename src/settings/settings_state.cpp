// Release of the settings state.
#include "settings/settings_state.h"

#include "engine/line_list.h"

namespace ruvo {

SettingsState::~SettingsState() { DestroyLineList(startupErrors.lines); }

} // namespace ruvo
