// Printing: the PrintText command, the "/p" start and the printer settings kept until the end.
#pragma once

#include <string_view>

namespace ruvo {

// Prints the active buffer through the print dialog (printer, copies, pages or selection).
int PrintText();
// Loads the settings and prints the named file (a name in double quotes may hold blanks) on
// the default printer with the [Print] settings; no window is shown.
void PrintFileFromCommandLine(std::string_view fileName);
// Releases the printer settings kept since the last print, if any.
void ReleasePrinterSettings();

} // namespace ruvo
