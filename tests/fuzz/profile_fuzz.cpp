// Fuzzes the profile: an input is a ruvo.ini text whose values go through every typed reader,
// $NAME expansion and the window placement, and then through loading and saving all settings.
#include <string>

#include "fuzz_session.h"
#include "settings/profile.h"
#include "settings/settings_io.h"
#include "settings/window_placement.h"

using namespace ruvo;

namespace {

struct Entry {
    std::string section, key, value;
};

// "[section]" lines and "key=value" lines, as the private-profile functions read them.
std::vector<Entry> ParseProfile(std::string_view text) {
    std::vector<Entry> entries;
    std::string section;
    for (std::string_view line : SplitLines(text)) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (line.size() > 1 && line.front() == '[') {
            const size_t close = line.find(']');
            section = std::string(
                line.substr(1, close == std::string_view::npos ? line.size() - 1 : close - 1));
            continue;
        }
        const size_t equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        entries.push_back(
            {section, std::string(line.substr(0, equals)), std::string(line.substr(equals + 1))});
    }
    return entries;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::vector<Entry> entries = ParseProfile(AsText(data, size));
    {
        InstalledEditor session;
        for (const Entry& entry : entries) {
            if (entry.section == "Environment") session.host.environment[entry.key] = entry.value;
            session.host.SetProfile(entry.section, entry.key, entry.value);
        }
        for (const Entry& entry : entries) {
            (void)ReadBool(entry.section, entry.key, true);
            (void)ReadColor(entry.section, entry.key, 0x123456);
            (void)ReadInt(entry.section, entry.key, 7);
            if (ReadPath(entry.section, entry.key, "default", 256).size() > 255) std::abort();
            (void)ParsePlacement(ReadString(entry.section, entry.key, DefaultMainWindow, 64));
            std::string expanded;
            if (ExpandPathVariables(entry.value, expanded) && expanded.size() > 255) std::abort();
        }
    }
    // Loading reads the files the profile names: with blackslashes only, every such name stays
    // inside the scratch folder.
    InstalledEditor session;
    for (Entry entry : entries) {
        for (std::string* text : {&entry.section, &entry.key, &entry.value})
            for (char& c : *text)
                if (c == '/') c = '\\';
        if (entry.section == "Environment") session.host.environment[entry.key] = entry.value;
        session.host.SetProfile(entry.section, entry.key, entry.value);
    }
    LoadSettings();
    SaveSettings();
    return 0;
}
