// Typed accessors of the one profile file "ruvo.ini".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

constexpr const char* ProfileFileName = "ruvo.ini";

// Fixes the profile name; the variable is named but deliberately not consulted.
void SetUpProfile(std::string_view environmentName, std::string_view defaultName);

std::string ReadString(std::string_view section, std::string_view key,
                       std::string_view defaultValue, int capacity);
bool WriteString(std::string_view section, std::string_view key, std::string_view value);
int ReadInt(std::string_view section, std::string_view key, int defaultValue);
bool WriteInt(std::string_view section, std::string_view key, int value);
bool ReadBool(std::string_view section, std::string_view key, bool defaultValue);
bool WriteBool(std::string_view section, std::string_view key, bool value);
// "%d %d %d" red, green, blue; missing or empty gives the default.
uint32_t ReadColor(std::string_view section, std::string_view key, uint32_t defaultColor);
bool WriteColor(std::string_view section, std::string_view key, uint32_t color);
// A string put through $NAME expansion; the default when expansion fails.
std::string ReadPath(std::string_view section, std::string_view key,
                     std::string_view defaultValue, int capacity);
// Keys "<prefix>1".."<prefix>count", each read as a path with an empty default.
std::vector<std::string> ReadList(std::string_view section, std::string_view prefix, int count,
                                  int capacity);
// Always writes exactly five keys "1".."5" (missing entries written empty).
void WriteList(std::string_view section, const std::vector<std::string>& entries);

// $NAME expansion of a path value; false when a variable has no value.
bool ExpandPathVariables(std::string_view value, std::string& out);
// Directory of the program file (the value of $INSTALL).
std::string InstallDirectory();

constexpr uint32_t MakeColor(int red, int green, int blue) {
    return static_cast<uint32_t>(red & 0xff) | (static_cast<uint32_t>(green & 0xff) << 8) |
           (static_cast<uint32_t>(blue & 0xff) << 16);
}

} // namespace ruvo
