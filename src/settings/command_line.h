// The program's command line: the print and new-instance switches, the file names it names,
// and the name handed over to an instance that is already running.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

// With "/p" anywhere, the text after it with its leading blanks skipped (the file to print);
// otherwise nothing.
std::optional<std::string> PrintRequest(std::string_view commandLine);
// Removes the first "/n" (its two characters only); true when there was one, so that no
// running instance is asked to take the files.
bool RemoveNewInstanceSwitch(std::string& commandLine);
// The whole command line as one absolute name for a running instance: kept as it is when it
// begins with a separator or a drive and a separator, else "<directory>\<command line>".
// Empty for an empty command line.
std::string HandOverName(std::string_view commandLine, std::string_view currentDirectory);

// Splits at white space (blanks and tabs); a name in double quotes may hold blanks, and a
// quote left open takes the rest of the text. Empty names are dropped.
std::vector<std::string> SplitFileNames(std::string_view commandLine);

} // namespace ruvo
