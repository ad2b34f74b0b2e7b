// The five most recently closed files, kept in the profile section [Files].
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

// Width to which paths are shortened for the File menu.
constexpr int RecentLabelWidth = 18;

void loadRecentFiles();
void saveRecentFiles();
// Puts the name in slot 0; a slot already holding it (or else the last one) is removed.
// Unnamed buffers are ignored.
void addRecentFile(std::string_view name);
// A path of at most `width` characters whole, else its first width - 10 (at least 3)
// characters, "...\" and its file name.
std::string shortenPath(std::string_view path, int width);
// The menu labels "&1 <path>" .. "&5 <path>"; slot i is enabled when recentFiles[i] is set.
std::vector<std::string> recentMenuLabels();
// Hands the labels to the shell's menu.
void rebuildRecentMenu();

} // namespace ruvo
