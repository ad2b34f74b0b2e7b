// Printing started from the command line ("/p"), and the printer settings kept until the end.
#pragma once

#include <string_view>

namespace ruvo {

// Prints the named file with the [Print] settings and returns; no window is shown.
void PrintFileFromCommandLine(std::string_view fileName);
// Releases the printer settings kept since the last print, if any.
void ReleasePrinterSettings();

} // namespace ruvo
