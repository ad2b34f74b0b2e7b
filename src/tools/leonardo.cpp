// Leonardo runs: the script beside the source, the run, and removing the script again.
#include "tools/leonardo.h"

#include <cstdio>
#include <memory>

#include "dialogs/gadget_dialog.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/error_report.h"
#include "settings/path_names.h"
#include "settings/string_routines.h"
#include "tools/result_window.h"
#include "tools/tool_commands.h"
#include "tools/vsystem.h"

namespace ruvo {

namespace {

constexpr const char* RunTitle = "Leonardo synthesis";
constexpr const char* ScriptRole = "Leonardo script";

// The source's directory, "." when its name has none.
std::string RunDirectory(std::string_view sourceName) {
    std::optional<std::string> directory = DirectoryPart(sourceName);
    return directory && !directory->empty() ? *directory : std::string(".");
}

// Whether the directory names the editor's current directory.
bool IsCurrentDirectory(const std::string& directory) {
    if (directory == ".") return true;
    const std::string current = StripTrailingSeparators(TheEditor().host.CurrentDirectory());
    return EqualsNoCase(StripTrailingSeparators(directory), current);
}

// A layout only: its fields are bound to no setting and nothing is kept from them.
std::unique_ptr<GadgetDialog> BuildOptionsDialog() {
    std::unique_ptr<GadgetDialog> owned = createDialog("Leonardo Options");
    GadgetDialog& d = *owned;
    GlGadgetCreate(d, GadgetType::GroupBox, 4, 2, 160, 42, " Installation ");
    GlGadgetCreate(d, GadgetType::StaticText, 8, 15, 40, 10, "&Path:");
    GlGadgetCreate(d, GadgetType::Edit, 48, 14, 95, 12, "");
    GlGadgetCreate(d, GadgetType::PushButton, 146, 14, 14, 12, "...");
    GlGadgetCreate(d, GadgetType::StaticText, 8, 28, 40, 10, "&Time-out:");
    GlGadgetCreate(d, GadgetType::Edit, 48, 27, 20, 12, "", {MaxLengthTag(2)});
    GlGadgetCreate(d, GadgetType::GroupBox, 4, 52, 160, 76, " Vcom options ");
    GlGadgetCreate(d, GadgetType::StaticText, 8, 65, 40, 10, "&Library:");
    return owned;
}

} // namespace

int LeonardoOptions() {
    std::unique_ptr<GadgetDialog>& dialog = TheEditor().tools.dialogs.leonardo;
    if (dialog == nullptr) dialog = BuildOptionsDialog();
    (void)showDialog(*dialog, true);
    return 0;
}

std::string leonardoScript(std::string_view sourceName) {
    return "analyze -work work " + compilerFileName(sourceName) + "\n";
}

int leonardoCompile() {
    Editor& editor = TheEditor();
    const EditBuffer* active = editor.engine.currentBuffer;
    if (active == nullptr || active->IsClosed()) return 1;
    if (!prepareSource(true)) return 1;
    const std::string sourceName = editor.tools.lastSourceName;
    const std::string directory = RunDirectory(sourceName);

    const std::string scriptPath = directory + "/" + LeonardoScriptName;
    if (std::FILE* script = std::fopen(scriptPath.c_str(), "w")) {
        std::fputs(leonardoScript(sourceName).c_str(), script);
        std::fclose(script);
    } else {
        ReportError(ErrorCannotOpen, scriptPath.c_str(), ScriptRole);
    }
    editor.host.SetBusyCursor(true);
    (void)runWithResultWindow(RunTitle, std::string("elsyn -file ") + LeonardoScriptName, directory,
                              ErrorMode::Leonardo);
    editor.host.SetBusyCursor(false);
    // Only the script in the current directory goes: a file of that name elsewhere is
    // the user's.
    if (IsCurrentDirectory(directory) && std::remove(scriptPath.c_str()) != 0)
        editor.settings.currentErrorText =
            std::string("Cannot delete file '") + LeonardoScriptName + "'.";
    return 0;
}

} // namespace ruvo
