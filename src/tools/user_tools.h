// The six user-defined tools: their profile keys, their labels and running them.
#pragma once

#include <string>
#include <string_view>

namespace ruvo {

void loadTools();
void saveTools();
// The command line of a tool: the executable, a blank, the argument with every "$$"
// replaced by fileName.
std::string toolCommandLine(std::string_view executable, std::string_view argument,
                            std::string_view fileName);
// Runs tool n (1 to 6) on the active window's file.
int runTool(int n);

} // namespace ruvo
