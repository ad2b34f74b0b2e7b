// The help files of the Help menu, from the profile section [Helpfiles], and the commands
// that open them.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace ruvo {

constexpr int HelpFileCount = 5;

struct HelpFile {
    std::string fileName;
    std::string title; // the menu text; empty: no item
};
using HelpFiles = std::array<HelpFile, HelpFileCount>;

// "file, title": the file name up to a blank, tab or comma, the title after the comma up to a
// blank or tab; quoted parts are copied whole without the quotes. No comma: no title.
HelpFile ParseHelpFileEntry(std::string_view value);
// The editor's help files from keys "1" to "5" of [Helpfiles].
void ReadHelpFiles();

// Open help file 1 to 5 in the help viewer when its name is set.
int DisplayHelpfile1();
int DisplayHelpfile2();
int DisplayHelpfile3();
int DisplayHelpfile4();
int DisplayHelpfile5();

} // namespace ruvo
