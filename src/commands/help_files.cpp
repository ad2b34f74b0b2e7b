// Help files listed in the Help menu, and the commands that show them.
#include "commands/help_files.h"

#include <vector>

#include "commands/customisation_state.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/profile.h"

namespace ruvo {

namespace {

constexpr int HelpValueCapacity = 256;

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// Copies from `at` up to a stop character outside double quotes; quotes are dropped.
std::string CopyPart(std::string_view value, size_t& at, bool stopAtComma) {
    std::string part;
    bool quoted = false;
    for (; at < value.size(); ++at) {
        const char c = value[at];
        if (c == '"') {
            quoted = !quoted;
            continue;
        }
        if (!quoted && (IsBlank(c) || (stopAtComma && c == ','))) break;
        part += c;
    }
    return part;
}

void SkipBlanks(std::string_view value, size_t& at) {
    while (at < value.size() && IsBlank(value[at]))
        ++at;
}

int DisplayHelpfile(int number) {
    const HelpFile& help = TheEditor().customisation.helpFiles[number - 1];
    if (!help.fileName.empty()) TheEditor().host.ShowHelpFile(help.fileName);
    return 0;
}

} // namespace

HelpFile ParseHelpFileEntry(std::string_view value) {
    HelpFile help;
    size_t at = 0;
    SkipBlanks(value, at);
    help.fileName = CopyPart(value, at, true);
    const size_t comma = value.find(',', at);
    if (comma == std::string_view::npos) return help;
    at = comma + 1;
    SkipBlanks(value, at);
    help.title = CopyPart(value, at, false);
    return help;
}

void ReadHelpFiles() {
    const std::vector<std::string> values =
        ReadList("Helpfiles", "", HelpFileCount, HelpValueCapacity);
    HelpFiles& files = TheEditor().customisation.helpFiles;
    for (int i = 0; i < HelpFileCount; ++i)
        files[i] = i < static_cast<int>(values.size()) ? ParseHelpFileEntry(values[i]) : HelpFile{};
}

int DisplayHelpfile1() {
    return DisplayHelpfile(1);
}
int DisplayHelpfile2() {
    return DisplayHelpfile(2);
}
int DisplayHelpfile3() {
    return DisplayHelpfile(3);
}
int DisplayHelpfile4() {
    return DisplayHelpfile(4);
}
int DisplayHelpfile5() {
    return DisplayHelpfile(5);
}

} // namespace ruvo
