// Reading and writing of the [Options] section and the [Print] keys.
#pragma once

namespace ruvo {

// Fill TheEditor().settings.options / .print from the profile; missing keys give the defaults.
void LoadOptions();
void SaveOptions();
void LoadPrintSettings();
void SavePrintSettings();

} // namespace ruvo
