// The meaningful-line reader of every configuration text file.
#pragma once

#include <cstdio>
#include <optional>
#include <string>

namespace ruvo {

// Reads the next line that is not empty and does not begin with '#' or ';', with the line
// feed and then one carriage return removed; at most capacity - 1 bytes per read.
// Nothing at end of file.
std::optional<std::string> ReadMeaningfulLine(std::FILE* file, int capacity);

} // namespace ruvo
