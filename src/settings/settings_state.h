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
    long calls = 0;        // every Allocate so far
    long failures = 0;     // every Allocate that failed so far
    long failCall = 0;     // tests: the Allocate that makes calls this number fails; 0 for none
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
