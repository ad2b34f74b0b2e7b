// Placeholder until the document subsystem lands.
#include "docs/recent_files.h"

namespace ruvo {

void loadRecentFiles() {}
void saveRecentFiles() {}
void addRecentFile(std::string_view) {}

} // namespace ruvo
