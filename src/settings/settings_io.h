// Loading and saving of all settings, in their fixed order.
#pragma once

namespace ruvo {

// Sets up the profile name, reads [Options], then the loaders of the other subsystems.
void LoadSettings();
// Writes [Options], then the savers of the other subsystems.
void SaveSettings();

} // namespace ruvo
