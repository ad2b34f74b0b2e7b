// The [Options] settings and the [Print] keys, with their defaults.
#pragma once

#include <string>

namespace ruvo {

struct Options {
    bool colors = true;
    bool autoIndent = true;
    bool saveOnExit = true;
    bool backupFile = false;
    bool buttonsLeft = true;
    bool firstChildMaximized = false;
    std::string fontSize = "10"; // at most 3 characters
    std::string font = "Courier New";
    int tabSize = 4;
};

struct PrintSettings {
    std::string printDestination;
    std::string leftMargin = "8";
    std::string fontSize = "10";
    bool fileInHeader = true;
    bool dateInHeader = true;
    bool lineNumbers = true;
    bool wrapLines = true;
    bool syntax = true;
    bool color = true;
};

} // namespace ruvo
