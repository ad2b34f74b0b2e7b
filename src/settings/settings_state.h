// State of the settings subsystem: profile name, [Options], start-up error log, allocator totals
// and the options dialog.
#pragma once

#include <string>

#include "settings/options.h"
#include "settings/options_dialog_state.h"

namespace ruvo {

struct LineList;

struct StartupErrorLog {
    LineList* lines = nullptr; // created on first report, never cleared
    bool reported = false;
    int errorCount = 0;
};

struct AllocatorStats {
    long totalBytes = 0;   // every byte ever obtained; never reduced on release
    bool lastFailed = false;
    long limitBytes = -1;  // tests: requests that would pass this total fail; -1 for none
};

struct SettingsState {
    std::string profileName;   // fixed at the start of LoadSettings
    Options options;
    PrintSettings print;
    StartupErrorLog startupErrors;
    AllocatorStats allocator;
    std::string currentErrorText; // e.g. "Empty name!" from the path routines
    OptionsDialogState optionsDialog;
    ~SettingsState();
};

} // namespace ruvo
