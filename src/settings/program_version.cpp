// The program's name, version and build date as the about box shows them.
#include "settings/program_version.h"

#include <cstdio>

namespace ruvo {

std::string VersionLine() {
    char text[64];
    std::snprintf(text, sizeof text, "Version %2d.%d, Revision %s", VersionMajor, VersionMinor,
                  Revision);
    return text;
}

std::string BuildDateLine(std::string_view buildDate) {
    return "[ " + std::string(buildDate) + " ]";
}

std::vector<std::string> AboutLines() {
    return {ProgramTitle, VersionLine(), BuildDateLine(__DATE__)};
}

} // namespace ruvo
