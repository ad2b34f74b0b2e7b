// The about box: the program's title, version and build date with its icon.
#pragma once

#include <string>
#include <vector>

namespace ruvo {

// Lines joined one under the other in a modal box owned by the frame (WinHost::AboutBox).
std::string AboutBoxText(const std::vector<std::string>& lines);

} // namespace ruvo
