// Reading and writing the [Templates] section of the profile.
#include "aids/template_profile.h"

#include <cctype>
#include <string>

#include "aids/hdl_aids_state.h"
#include "engine/editor.h"
#include "settings/profile.h"

namespace ruvo {

namespace {

constexpr const char* TemplatesSection = "Templates";
constexpr int TemplatePathCapacity = 260;

bool SameIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i])) !=
            std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    }
    return true;
}

bool Listed(const std::vector<std::string>& paths, std::string_view path) {
    for (const std::string& listed : paths)
        if (SameIgnoringCase(listed, path)) return true;
    return false;
}

} // namespace

void LoadTemplatesFromProfile() {
    TemplateState& state = TheEditor().hdlAids.templates;
    for (int key = 1;; ++key) {
        const std::string value =
            ReadString(TemplatesSection, std::to_string(key), "", TemplatePathCapacity);
        if (value.empty()) break;
        // A value whose variable cannot be resolved is kept as written, so it is not lost.
        std::string path;
        if (!ExpandPathVariables(value, path)) path = value;
        std::vector<std::string> known = state.unloadedPaths;
        for (const auto& file : state.loadedFiles)
            known.push_back(file->path);
        // Every key read counts, so that a save empties all of them that it does not fill.
        if (Listed(known, path)) {
            ++state.filesEverLoaded; // named twice: loaded once
        } else if (LoadTemplateFile(path) == nullptr) {
            state.unloadedPaths.push_back(path);
            ++state.filesEverLoaded;
        }
    }
}

void SaveTemplatesToProfile() {
    const TemplateState& state = TheEditor().hdlAids.templates;
    std::vector<std::string> paths;
    for (const auto& file : state.loadedFiles)
        paths.push_back(file->path);
    for (const std::string& path : state.unloadedPaths)
        if (!Listed(paths, path)) paths.push_back(path);
    int key = 1;
    for (const std::string& path : paths)
        (void)WriteString(TemplatesSection, std::to_string(key++), path);
    for (; key <= state.filesEverLoaded; ++key)
        (void)WriteString(TemplatesSection, std::to_string(key), "");
}

} // namespace ruvo
