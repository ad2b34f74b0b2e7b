// The program's name, version and build date as the about box shows them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

constexpr const char* ProgramTitle = "RUVO / HDL Language Editor";
constexpr int VersionMajor = 1;
constexpr int VersionMinor = 2;
constexpr const char* Revision = "2";

// "Version %2d.%d, Revision %s".
std::string VersionLine();
// "[ %s ]" of the build date as the compiler writes it ("Nov 22 2026").
std::string BuildDateLine(std::string_view buildDate);
// The lines of the about box: title, version, build date of this program.
std::vector<std::string> AboutLines();

} // namespace ruvo
