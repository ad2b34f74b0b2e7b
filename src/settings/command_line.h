// The program's command line: the file names it names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

// Splits at blanks; a name in double quotes may hold blanks, and a quote left open takes the
// rest of the text. Empty names are dropped.
std::vector<std::string> SplitFileNames(std::string_view commandLine);

} // namespace ruvo
