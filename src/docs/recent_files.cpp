// The five most recently closed files, kept in the profile section [Files].
#include "docs/recent_files.h"

#include <string>

#include "commands/command_table.h"
#include "docs/documents.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/profile.h"

namespace ruvo {

namespace {
constexpr const char* FilesSection = "Files";
}

void loadRecentFiles() {
    DocumentState& documents = TheEditor().documents;
    const std::vector<std::string> entries =
        ReadList(FilesSection, "", RecentFileSlots, MaxFileName);
    for (int i = 0; i < RecentFileSlots; ++i)
        documents.recentFiles[i] = i < static_cast<int>(entries.size()) ? entries[i] : "";
    rebuildRecentMenu();
}

void saveRecentFiles() {
    const auto& slots = TheEditor().documents.recentFiles;
    WriteList(FilesSection, std::vector<std::string>(slots.begin(), slots.end()));
}

void addRecentFile(std::string_view name) {
    if (name.empty() || isUnnamed(name)) return;
    auto& slots = TheEditor().documents.recentFiles;
    int removed = RecentFileSlots - 1;
    for (int i = 0; i < RecentFileSlots; ++i) {
        if (slots[i] == name) {
            removed = i;
            break;
        }
    }
    for (int i = removed; i > 0; --i)
        slots[i] = std::move(slots[i - 1]);
    slots[0] = std::string(name.substr(0, MaxFileName - 1));
    rebuildRecentMenu();
}

std::string shortenPath(std::string_view path, int width) {
    if (static_cast<int>(path.size()) <= width) return std::string(path);
    const size_t head = static_cast<size_t>(width - 10 < 3 ? 3 : width - 10);
    const size_t separator = path.find_last_of(":/\\");
    const std::string_view fileName =
        separator == std::string_view::npos ? path : path.substr(separator + 1);
    return std::string(path.substr(0, head)) + "...\\" + std::string(fileName);
}

std::vector<std::string> recentMenuLabels() {
    const auto& slots = TheEditor().documents.recentFiles;
    std::vector<std::string> labels;
    for (int i = 0; i < RecentFileSlots; ++i) {
        std::string label = "&";
        label += std::to_string(i + 1);
        label += ' ';
        label += shortenPath(slots[i], RecentLabelWidth);
        labels.push_back(std::move(label));
    }
    return labels;
}

void rebuildRecentMenu() {
    Host& host = TheEditor().host;
    host.RecentFilesChanged(recentMenuLabels());
    // An item is greyed while its slot is empty.
    const auto& slots = TheEditor().documents.recentFiles;
    for (int i = 0; i < RecentFileSlots; ++i) {
        int row = -1;
        const std::string name = "LoadMRUFile" + std::to_string(i + 1);
        if (CommandByName(name, nullptr, false, &row) != nullptr)
            host.EnableCommand(row, !slots[i].empty());
    }
}

} // namespace ruvo
