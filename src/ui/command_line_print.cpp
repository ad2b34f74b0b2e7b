// Printing started from the command line. The printing subsystem is not part of this program
// yet: a print request ends the program without output, and no printer settings are kept.
#include "ui/command_line_print.h"

namespace ruvo {

void PrintFileFromCommandLine(std::string_view) {}

void ReleasePrinterSettings() {}

} // namespace ruvo
