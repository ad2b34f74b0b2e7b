// Loading and saving of every subsystem's settings, in their fixed order.
#include "settings/settings_io.h"

#include "aids/template_profile.h"
#include "docs/recent_files.h"
#include "lang/language_io.h"
#include "settings/options_io.h"
#include "settings/profile.h"

namespace ruvo {

void LoadSettings() {
    SetUpProfile("RUVO_PROJECT", ProfileFileName);
    LoadOptions();
    // The V-System settings load here, before the printing settings.
    LoadPrintSettings();
    LoadLanguages();
    // The user-defined tools load here, after the languages.
    loadRecentFiles();
}

void SaveSettings() {
    SaveOptions();
    // The V-System settings are saved here, first after [Options].
    SaveTemplatesToProfile();
    SavePrintSettings();
    SaveLanguages();
    // The user-defined tools are saved here, last.
    // The recent-file list is not written here: it is written at program end either way.
}

} // namespace ruvo
