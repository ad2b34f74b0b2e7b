// The built-in key bindings and the reader of accel.ini.
#include <cstdio>
#include <memory>
#include <optional>
#include <vector>

#include "commands/command_table.h"
#include "commands/customisation_state.h"
#include "commands/definition_tokens.h"
#include "commands/key_map.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/error_report.h"
#include "settings/line_reader.h"

namespace ruvo {

namespace {

constexpr const char* Reporter = "Keyboard mapper";
constexpr const char* FileRole = "Keyboard definition";
constexpr int LineCapacity = 132; // at most 131 characters a line
constexpr int ReportCapacity = 256;

struct BuiltInBinding {
    const char* keyName;
    bool shift, ctrl, alt;
    const char* command; // by name, so the table does not depend on where handlers live
};

// Ctrl+Shift+4 sets bookmark 3 ahead of SetMark4, and EditCopy and EditUndo have two keys
// each: the default map is kept exactly so.
// clang-format off
const BuiltInBinding DefaultBindings[DefaultKeyBindingCount] = {
    {"C", false, true, false, "EditCopy"},       {"G", false, true, false, "GotoLine"},
    {"P", false, true, false, "PrintText"},      {"N", false, true, false, "NewFile"},
    {"O", false, true, false, "LoadFile"},       {"S", false, true, false, "SaveFile"},
    {"S", true, true, false, "SaveFileAs"},      {"V", false, true, false, "EditPaste"},
    {"X", false, false, true, "ExitApp"},        {"X", false, true, false, "EditCut"},
    {"Z", false, true, false, "EditUndo"},
    {"0", true, true, false, "SetMark0"},        {"1", true, true, false, "SetMark1"},
    {"2", true, true, false, "SetMark2"},        {"3", true, true, false, "SetMark3"},
    {"4", true, true, false, "SetMark3"},        {"4", true, true, false, "SetMark4"},
    {"5", true, true, false, "SetMark5"},        {"6", true, true, false, "SetMark6"},
    {"7", true, true, false, "SetMark7"},        {"8", true, true, false, "SetMark8"},
    {"9", true, true, false, "SetMark9"},
    {"0", false, true, false, "GotoMark0"},      {"1", false, true, false, "GotoMark1"},
    {"2", false, true, false, "GotoMark2"},      {"3", false, true, false, "GotoMark3"},
    {"4", false, true, false, "GotoMark4"},      {"5", false, true, false, "GotoMark5"},
    {"6", false, true, false, "GotoMark6"},      {"7", false, true, false, "GotoMark7"},
    {"8", false, true, false, "GotoMark8"},      {"9", false, true, false, "GotoMark9"},
    {"BackSpace", false, false, true, "EditUndo"},
    {"R", false, true, false, "EditRedo"},       {"Y", false, true, false, "DeleteLine"},
    {"T", false, true, false, "DeleteWord"},     {"F1", false, true, false, "About"},
    {"F3", false, false, true, "FindText"},      {"F3", false, false, false, "FindNextText"},
    {"F3", false, true, false, "ReplaceText"},   {"F7", false, false, true, "PrevError"},
    {"F8", false, false, true, "NextError"},     {"F9", false, true, false, "VsystemVHDL"},
    {"F10", false, true, false, "VsystemVerilog"},
    {"Delete", false, true, false, "EditClear"}, {"Insert", false, true, false, "EditCopy"},
    {"Delete", true, false, false, "EditCut"},   {"Insert", true, false, false, "EditPaste"},
};

// Reserved by the MDI frame; appended after the file's bindings and never redefined there.
const BuiltInBinding FixedBindings[FixedKeyBindingCount] = {
    {"F4", false, true, false, "WindowClose"},
    {"F4", true, false, false, "WindowTileHorizontal"},
    {"F4", false, false, true, "ExitApp"},
    {"F5", true, false, false, "WindowCascade"},
    {"F6", false, true, false, "WindowNext"},
    {"F6", true, true, false, "WindowPrevious"},
};
// clang-format on

KeyBinding Converted(const BuiltInBinding& entry) {
    KeyBinding binding;
    binding.keyName = entry.keyName;
    binding.virtualKey = static_cast<uint16_t>(KeyCodeOfName(entry.keyName));
    binding.shift = entry.shift;
    binding.ctrl = entry.ctrl;
    binding.alt = entry.alt;
    int index = -1;
    (void)CommandByName(entry.command, nullptr, false, &index);
    binding.commandId = static_cast<uint32_t>(index + CommandMenuIdBase);
    return binding;
}

void ReportSyntax(const char* format, std::string_view text) {
    char message[ReportCapacity];
    std::snprintf(message, sizeof message, format, std::string(text).c_str());
    ReportStartupError(ErrorSyntax, message, Reporter);
}

bool IsReserved(const KeyBinding& key) {
    for (const BuiltInBinding& fixed : FixedBindings) {
        if (KeyCodeOfName(fixed.keyName) == key.virtualKey && fixed.shift == (key.shift != 0) &&
            fixed.ctrl == (key.ctrl != 0) && fixed.alt == (key.alt != 0))
            return true;
    }
    return false;
}

// The key and modifiers of a combination such as CTRL+SHIFT+F3; nothing when a part was
// refused (each refusal is reported).
std::optional<KeyBinding> ParseCombination(std::string_view combination) {
    KeyBinding key;
    bool rejected = false;
    size_t start = 0;
    while (start <= combination.size()) {
        const size_t plus = combination.find('+', start);
        const size_t end = plus == std::string_view::npos ? combination.size() : plus;
        std::string part(combination.substr(start, end - start));
        start = end + 1;
        if (part.size() == 1) {
            char c = part[0];
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
            const int scan = TheEditor().host.KeyScan(c);
            const int code = scan & 0xFF;
            const int state = (scan >> 8) & 0xFF;
            if ((state & KeyScanShift) != 0 && !(code >= 'A' && code <= 'Z')) key.shift = 1;
            if ((state & KeyScanCtrl) != 0) key.ctrl = 1;
            if ((state & KeyScanAlt) != 0) key.alt = 1;
            key.virtualKey = static_cast<uint16_t>(code);
        } else if (EqualsIgnoringCase(part, "CTRL")) {
            key.ctrl = 1;
        } else if (EqualsIgnoringCase(part, "SHIFT")) {
            key.shift = 1;
        } else if (EqualsIgnoringCase(part, "ALT")) {
            key.alt = 1;
        } else if (const int code = KeyCodeOfName(part); code == 0) {
            // An unknown name is always an unrecognized modifier, even as the last part.
            ReportSyntax("\"%s\": unrecognized modifier.", part);
            rejected = true;
            break;
        } else if (key.virtualKey != 0) {
            ReportSyntax("\"%s\": double use of a key name.", combination);
            rejected = true;
        } else {
            key.virtualKey = static_cast<uint16_t>(code);
        }
        if (plus == std::string_view::npos) break;
    }
    if (IsReserved(key)) {
        ReportSyntax("\"%s\": reserved key combination", combination);
        rejected = true;
    }
    if (rejected) return std::nullopt;
    return key;
}

void ReadLine(KeyMap& map, const std::string& line) {
    const std::vector<std::string> tokens = SplitDefinitionTokens(line);
    if (tokens.empty() || tokens[0][0] == '#') return;
    if (!EqualsIgnoringCase(tokens[0], "KEY")) {
        ReportSyntax("\"%s\": definition must start with \"KEY\"", line);
        return;
    }
    if (tokens.size() < 2) {
        ReportSyntax("\"%s\": empty keyboard mapping.", line);
        return;
    }
    const bool full = map.count >= MaxFileKeyBindings;
    if (full) ReportStartupError(ErrorSyntax, "too many mappings", Reporter);
    std::optional<KeyBinding> key = ParseCombination(tokens[1]);
    if (!key) return;
    if (tokens.size() < 3) {
        ReportSyntax("\"%s\": missing function.", line);
        return;
    }
    int index = -1;
    (void)CommandByName(tokens[2], Reporter, true, &index);
    key->commandId = static_cast<uint32_t>(index + CommandMenuIdBase);
    // Modifiers alone bind nothing; a full map takes no more.
    if (key->virtualKey == 0 || full) return;
    map.entries[map.count++] = *key;
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

} // namespace

void LoadKeyMap(std::string_view path) {
    KeyMap& map = TheEditor().customisation.keyMap;
    map.count = 0;
    for (const BuiltInBinding& entry : DefaultBindings)
        map.entries[map.count++] = Converted(entry);

    const std::string name(path);
    std::unique_ptr<std::FILE, FileCloser> file(name.empty() ? nullptr
                                                             : std::fopen(name.c_str(), "r"));
    if (!file) {
        ReportStartupError(ErrorCannotOpen, name.c_str(), FileRole);
        return;
    }
    map.count = 0;
    while (std::optional<std::string> line = ReadMeaningfulLine(file.get(), LineCapacity))
        ReadLine(map, *line);
    file.reset();
    for (const BuiltInBinding& entry : FixedBindings)
        if (map.count < MaxKeyBindings) map.entries[map.count++] = Converted(entry);
}

uint32_t BoundCommandId(int virtualKey, bool shift, bool ctrl, bool alt) {
    const KeyMap& map = TheEditor().customisation.keyMap;
    for (int i = 0; i < map.count; ++i) {
        const KeyBinding& b = map.entries[i];
        if (b.virtualKey == virtualKey && (b.shift != 0) == shift && (b.ctrl != 0) == ctrl &&
            (b.alt != 0) == alt)
            return b.commandId;
    }
    return 0;
}

} // namespace ruvo
