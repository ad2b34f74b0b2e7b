// The five most recently closed files, kept in the profile section [Files].
#pragma once

#include <string_view>

namespace ruvo {

void loadRecentFiles();
void saveRecentFiles();
void addRecentFile(std::string_view name);

} // namespace ruvo
