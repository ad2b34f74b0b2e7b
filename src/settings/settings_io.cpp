// Loading and saving of every subsystem's settings, in their fixed order.
#include "settings/settings_io.h"

#include "aids/template_profile.h"
#include "docs/recent_files.h"
#include "lang/language_io.h"
#include "settings/options_io.h"
#include "settings/profile.h"
#include "tools/user_tools.h"
#include "tools/vsystem.h"

namespace ruvo {

void LoadSettings() {
    SetUpProfile("RUVO_PROJECT", ProfileFileName);
    LoadOptions();
    loadVsystem();
    LoadPrintSettings();
    LoadLanguages();
    loadTools();
    loadRecentFiles();
}

void SaveSettings() {
    SaveOptions();
    saveVsystem();
    SaveTemplatesToProfile();
    SavePrintSettings();
    SaveLanguages();
    saveTools();
    // The recent-file list is not written here: it is written at program end either way.
}

} // namespace ruvo
