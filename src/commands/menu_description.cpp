// The menu description: the reader of menu.ini, the built-in menu, the Help menu and the
// key texts of the items.
#include "commands/menu_description.h"

#include <cstdio>
#include <memory>
#include <optional>

#include "commands/command_table.h"
#include "commands/customisation_state.h"
#include "commands/definition_tokens.h"
#include "commands/help_files.h"
#include "commands/key_map.h"
#include "docs/recent_files.h"
#include "engine/editor.h"
#include "settings/error_report.h"
#include "settings/line_reader.h"
#include "settings/profile.h"

namespace ruvo {

namespace {

constexpr const char* Reporter = "Menu Builder";
constexpr const char* FileRole = "Menu definition";
constexpr int LineCapacity = 132; // at most 131 characters a line
constexpr int PathCapacity = 256;
// The Help menu at its largest: start, five help files, separator, About, end. menu.ini
// leaves room for it and for the ends of its open popups, so the Help menu always fits.
constexpr int HelpMenuRoom = HelpFileCount + 4;

struct BuiltInEntry {
    MenuEntryKind kind;
    const char* text;
    const char* command; // by name, so the table does not depend on where handlers live
};

constexpr MenuEntryKind Start = MenuEntryKind::PopupStart;
constexpr MenuEntryKind Item = MenuEntryKind::Item;
constexpr MenuEntryKind Line = MenuEntryKind::Separator;
constexpr MenuEntryKind End = MenuEntryKind::PopupEnd;

// clang-format off
const BuiltInEntry BuiltInMenu[BuiltInMenuEntryCount] = {
    {Start, "&File", ""},
    {Item, "&New", "NewFile"}, {Item, "&Open...", "LoadFile"}, {Item, "&Insert...", "InsertFile"},
    {Item, "&Save", "SaveFile"}, {Item, "Save &As...", "SaveFileAs"},
    {Item, "Save a&ll", "SaveAll"}, {Line, "", ""}, {Item, "&Print...", "PrintText"},
    {Item, "E&xit", "ExitApp"}, {Line, "", ""}, {Item, "&1", "LoadMRUFile1"},
    {Item, "&2", "LoadMRUFile2"}, {Item, "&3", "LoadMRUFile3"}, {Item, "&4", "LoadMRUFile4"},
    {Item, "&5", "LoadMRUFile5"},
    {End, "", ""},
    {Start, "&Edit", ""},
    {Item, "&Undo", "EditUndo"}, {Item, "&Redo", "EditRedo"}, {Item, "&Cut", "EditCut"},
    {Item, "C&opy", "EditCopy"}, {Item, "&Paste", "EditPaste"}, {Item, "C&lear", "EditClear"},
    {Line, "", ""}, {Item, "&Templates...", "EditTemplates"},
    {Item, "&Special...", "EditSpecial"},
    {End, "", ""},
    {Start, "&Search", ""},
    {Item, "&Find...", "FindText"}, {Item, "Find &next", "FindNextText"},
    {Item, "&Replace...", "ReplaceText"}, {Item, "Go to line...", "GotoLine"},
    {End, "", ""},
    {Start, "&Compile", ""},
    {Item, "&VHDL(V-Sys)", "VsystemVHDL"}, {Item, "V&erilog(V-Sys)", "VsystemVerilog"},
    {Item, "&Next error", "NextError"}, {Item, "&Prev error", "PrevError"},
    {End, "", ""},
    {Start, "&Options", ""},
    {Item, "&Editor...", "EditorOptions"}, {Item, "&Languages...", "LanguageOptions"},
    {Item, "&V-System...", "VsystemOptions"}, {Item, "&Tools...", "ToolOptions"},
    {End, "", ""},
    {Start, "&Window", ""},
    {Item, "&Cascade", "WindowCascade"}, {Item, "Tile &horizontal", "WindowTileHorizontal"},
    {Item, "&Tile vertical", "WindowTileVertical"}, {Item, "&Next window", "WindowNext"},
    {Item, "&Previous window", "WindowPrevious"},
    {End, "", ""},
};
// clang-format on

MenuTable& Menu() {
    return TheEditor().customisation.menu;
}

uint32_t MenuIdOf(std::string_view commandName, bool report) {
    int index = -1;
    (void)CommandByName(commandName, report ? Reporter : nullptr, report, &index);
    return static_cast<uint32_t>(index + CommandMenuIdBase);
}

void ReportTooManyOnce() {
    MenuTable& menu = Menu();
    if (menu.tooManyReported) return;
    menu.tooManyReported = true;
    ReportStartupError(ErrorSyntax, "Too many menu items", Reporter);
}

// The reader's faults print the reader's word under the offending text, unlike the others.
void ReportReversed(std::string_view text) {
    ReportStartupError(ErrorSyntax, Reporter, std::string(text).c_str());
}

std::string WithoutAmpersands(std::string_view text) {
    std::string result;
    for (char c : text)
        if (c != '&') result += c;
    return result;
}

// Reads menu.ini line by line. Popups refused for want of room keep their END from closing
// an accepted popup; every popup that was added is closed again at the end.
class MenuFileReader {
  public:
    // False when the reading must stop.
    bool Read(const std::string& line) {
        const std::vector<std::string> tokens = SplitDefinitionTokens(line);
        if (tokens.empty() || tokens[0][0] == '#') return true;
        const std::string& keyword = tokens[0];
        if (EqualsIgnoringCase(keyword, "MENU")) return OpenPopup(line, tokens);
        if (EqualsIgnoringCase(keyword, "ITEM")) {
            if (tokens.size() < 3) ReportStartupError(ErrorSyntax, line.c_str(), Reporter);
            const std::string text = tokens.size() > 1 ? tokens[1] : std::string();
            const uint32_t id =
                tokens.size() > 2 ? MenuIdOf(tokens[2], true) : UnknownCommandMenuId;
            if (HasRoom(0)) AddMenuEntry(MenuEntryKind::Item, id, text);
        } else if (EqualsIgnoringCase(keyword, "SEPARATOR")) {
            if (HasRoom(0)) AddMenuEntry(MenuEntryKind::Separator, 0, "");
        } else if (EqualsIgnoringCase(keyword, "END")) {
            ClosePopup();
        } else {
            ReportReversed(line);
        }
        return true;
    }

    void Finish() {
        if (fileDepth_ != 0) ReportReversed("MENU/END mismatch");
        for (; addedDepth_ > 0; --addedDepth_)
            AddMenuEntry(MenuEntryKind::PopupEnd, 0, "");
    }

  private:
    bool OpenPopup(const std::string& line, const std::vector<std::string>& tokens) {
        if (tokens.size() < 2) ReportStartupError(ErrorSyntax, line.c_str(), Reporter);
        const std::string name = tokens.size() > 1 ? tokens[1] : std::string();
        if (EqualsIgnoringCase(WithoutAmpersands(name), "Help")) {
            ReportStartupError(ErrorSyntax, "Menu name 'Help' not allowed.", Reporter);
            return false;
        }
        ++fileDepth_;
        if (HasRoom(1)) {
            ++addedDepth_;
            AddMenuEntry(MenuEntryKind::PopupStart, 0, name);
        }
        return true;
    }

    void ClosePopup() {
        if (fileDepth_ == 0) {
            ReportReversed("MENU/END mismatch");
            return;
        }
        // The END of a refused popup closes nothing that was added.
        if (fileDepth_-- > addedDepth_) return;
        --addedDepth_;
        AddMenuEntry(MenuEntryKind::PopupEnd, 0, "");
    }

    // Room for one more entry that opens `opens` popups, the ends of the open popups and
    // the Help menu.
    bool HasRoom(int opens) {
        const int needed =
            static_cast<int>(Menu().entries.size()) + 1 + addedDepth_ + opens + HelpMenuRoom;
        if (needed <= MaxMenuEntries) return true;
        ReportTooManyOnce();
        return false;
    }

    int fileDepth_ = 0;  // MENU lines less END lines
    int addedDepth_ = 0; // popups of the description still open
};

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

void AddBuiltInMenu() {
    for (const BuiltInEntry& entry : BuiltInMenu) {
        const uint32_t id = entry.kind == Item ? MenuIdOf(entry.command, false) : 0;
        AddMenuEntry(entry.kind, id, entry.text);
    }
}

void AddHelpMenu() {
    const HelpFiles& files = TheEditor().customisation.helpFiles;
    const uint32_t firstHelpId = MenuIdOf("DisplayHelpfile1", false);
    AddMenuEntry(MenuEntryKind::PopupStart, 0, "&Help");
    int added = 0;
    while (added < HelpFileCount && !files[added].title.empty()) {
        AddMenuEntry(MenuEntryKind::Item, firstHelpId + added, files[added].title);
        ++added;
    }
    if (added > 0) AddMenuEntry(MenuEntryKind::Separator, 0, "");
    AddMenuEntry(MenuEntryKind::Item, MenuIdOf("About", false), "&About the editor...");
    AddMenuEntry(MenuEntryKind::PopupEnd, 0, "");
}

} // namespace

void AddMenuEntry(MenuEntryKind kind, uint32_t commandId, std::string_view text) {
    MenuTable& menu = Menu();
    if (static_cast<int>(menu.entries.size()) >= MaxMenuEntries) {
        ReportTooManyOnce();
        return;
    }
    menu.entries.push_back({kind, std::string(text.substr(0, MaxMenuText)), commandId});
}

void ReadMenuDescription(std::string_view path) {
    Menu().entries.clear();
    const std::string name(path);
    std::unique_ptr<std::FILE, FileCloser> file(name.empty() ? nullptr
                                                             : std::fopen(name.c_str(), "r"));
    if (!file) {
        ReportStartupError(ErrorCannotOpen, name.c_str(), FileRole);
        AddBuiltInMenu();
    } else {
        MenuFileReader reader;
        while (std::optional<std::string> line = ReadMeaningfulLine(file.get(), LineCapacity))
            if (!reader.Read(*line)) break;
        file.reset();
        reader.Finish();
    }
    AddHelpMenu();
}

void AppendKeyTexts() {
    const KeyMap& map = TheEditor().customisation.keyMap;
    for (int i = 0; i < map.count; ++i) {
        const KeyBinding& binding = map.entries[i];
        for (MenuEntry& entry : Menu().entries) {
            if (entry.kind != MenuEntryKind::Item || entry.commandId != binding.commandId ||
                entry.text.find('\t') != std::string::npos)
                continue;
            entry.text += '\t';
            entry.text += KeyText(binding).text;
            if (entry.text.size() > MaxMenuText) entry.text.resize(MaxMenuText);
        }
    }
}

namespace {

// Items of a command whose label is a user tool's name show that name.
void ShowToolNames() {
    for (MenuEntry& entry : Menu().entries) {
        if (entry.kind != MenuEntryKind::Item) continue;
        const int row = CommandIndexOfMenuId(static_cast<int>(entry.commandId));
        if (row < 0 || TheEditor().commands.labelOverrides[static_cast<size_t>(row)] == nullptr)
            continue;
        entry.text = std::string(CommandLabel(row)).substr(0, MaxMenuText);
    }
}

} // namespace

void PrepareMainMenu() {
    ReadHelpFiles();
    LoadKeyMap(ReadPath("GUI", "Accellerators", "accel.ini", PathCapacity));
    ReadMenuDescription(ReadPath("GUI", "Menu", "menu.ini", PathCapacity));
    ShowToolNames();
    AppendKeyTexts();
}

void FinishMainMenu() {
    rebuildRecentMenu();
    UpdateCommandStates();
}

} // namespace ruvo
