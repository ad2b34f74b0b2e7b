// Typed accessors of the profile file, with the lenient boolean reading and $NAME expansion.
#include "settings/profile.h"

#include <cstdio>

#include "engine/editor.h"
#include "host/host.h"
#include "settings/string_routines.h"

namespace ruvo {

namespace {

// Longest path value after expansion.
constexpr size_t MaxExpandedPath = 255;
// A boolean is read as text of at most 18 characters.
constexpr int BoolTextCapacity = 19;
constexpr int ColorTextCapacity = 64;
constexpr int DirectoryValueCapacity = 256;

// Before the profile is set up (or in a core used without LoadSettings) the fixed name applies.
std::string_view ProfileFile() {
    const std::string& name = TheEditor().settings.profileName;
    return name.empty() ? std::string_view(ProfileFileName) : std::string_view(name);
}

// "%d" as the C library reads it; false when the text does not start with a number.
bool ScanInt(const std::string& text, int& value) {
    return std::sscanf(text.c_str(), "%d", &value) == 1;
}

std::string VariableValue(std::string_view name) {
    if (name.empty()) return {};
    std::string value = EqualsNoCase(name, "INSTALL")
                            ? InstallDirectory()
                            : ReadString("Directories", name, "", DirectoryValueCapacity);
    if (value.empty()) value = TheEditor().host.Environment(name);
    return value;
}

std::string CutTo(std::string text, int capacity) {
    if (capacity <= 0) return {};
    if (static_cast<int>(text.size()) > capacity - 1)
        text.resize(static_cast<size_t>(capacity) - 1);
    return text;
}

} // namespace

void SetUpProfile(std::string_view /*environmentName*/, std::string_view defaultName) {
    // The variable is deliberately ignored: the platform resolves the bare name, so every
    // instance shares one profile.
    TheEditor().settings.profileName = std::string(defaultName);
}

std::string ReadString(std::string_view section, std::string_view key,
                       std::string_view defaultValue, int capacity) {
    return TheEditor().host.ProfileGetString(ProfileFile(), section, key, defaultValue, capacity);
}

bool WriteString(std::string_view section, std::string_view key, std::string_view value) {
    return TheEditor().host.ProfileWriteString(ProfileFile(), section, key, value);
}

int ReadInt(std::string_view section, std::string_view key, int defaultValue) {
    return TheEditor().host.ProfileGetInt(ProfileFile(), section, key, defaultValue);
}

bool WriteInt(std::string_view section, std::string_view key, int value) {
    return WriteString(section, key, std::to_string(value));
}

bool ReadBool(std::string_view section, std::string_view key, bool defaultValue) {
    const std::string text =
        ReadString(section, key, defaultValue ? "yes" : "no", BoolTextCapacity);
    int number = 0;
    if (EqualsNoCase(text, "yes") || EqualsNoCase(text, "true")) return true;
    if (EqualsNoCase(text, "no") || EqualsNoCase(text, "false")) return false;
    if (ScanInt(text, number)) return number != 0;
    return defaultValue;
}

bool WriteBool(std::string_view section, std::string_view key, bool value) {
    return WriteString(section, key, value ? "yes" : "no");
}

uint32_t ReadColor(std::string_view section, std::string_view key, uint32_t defaultColor) {
    const std::string text = ReadString(section, key, "", ColorTextCapacity);
    if (text.empty()) return defaultColor;
    int red = 0, green = 0, blue = 0;
    // Numbers that are missing or do not parse stay 0.
    (void)std::sscanf(text.c_str(), "%d %d %d", &red, &green, &blue);
    return MakeColor(red, green, blue);
}

bool WriteColor(std::string_view section, std::string_view key, uint32_t color) {
    char text[40];
    std::snprintf(text, sizeof text, "%u %u %u", color & 0xffu, (color >> 8) & 0xffu,
                  (color >> 16) & 0xffu);
    return WriteString(section, key, text);
}

std::string ReadPath(std::string_view section, std::string_view key, std::string_view defaultValue,
                     int capacity) {
    const std::string text = ReadString(section, key, defaultValue, capacity);
    std::string expanded;
    if (!ExpandPathVariables(text, expanded)) return CutTo(std::string(defaultValue), capacity);
    return CutTo(std::move(expanded), capacity);
}

std::vector<std::string> ReadList(std::string_view section, std::string_view prefix, int count,
                                  int capacity) {
    std::vector<std::string> entries;
    for (int i = 1; i <= count; ++i) {
        const std::string key = std::string(prefix) + std::to_string(i);
        entries.push_back(ReadPath(section, key, "", capacity));
    }
    return entries;
}

void WriteList(std::string_view section, const std::vector<std::string>& entries) {
    constexpr size_t ListLength = 5;
    for (size_t i = 0; i < ListLength; ++i) {
        const std::string_view value = i < entries.size() ? std::string_view(entries[i]) : "";
        (void)WriteString(section, std::to_string(i + 1), value);
    }
}

bool ExpandPathVariables(std::string_view value, std::string& out) {
    out.clear();
    size_t i = 0;
    while (i < value.size()) {
        if (value[i] != '$') {
            out += value[i++];
            continue;
        }
        const size_t start = i + 1;
        size_t end = start;
        while (end < value.size() && value[end] != '/' && value[end] != '\\')
            ++end;
        const std::string variable = VariableValue(value.substr(start, end - start));
        if (variable.empty()) {
            out.clear();
            return false;
        }
        out += variable;
        i = end; // the separator is copied as ordinary text
    }
    if (out.size() > MaxExpandedPath) out.resize(MaxExpandedPath);
    return true;
}

std::string InstallDirectory() {
    const std::string program = TheEditor().host.ProgramPath();
    const size_t separator = program.find_last_of("/\\");
    return separator == std::string::npos ? std::string() : program.substr(0, separator);
}

} // namespace ruvo
