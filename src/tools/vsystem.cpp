// V-System runs: settings, command lines, preparing the source and starting the compiler.
#include "tools/vsystem.h"

#include <cctype>

#include "docs/file_saving.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/path_names.h"
#include "settings/profile.h"
#include "tools/error_list.h"
#include "tools/result_window.h"

namespace ruvo {

namespace {

constexpr const char* Section = "Vsystem";
constexpr int TextCapacity = 256;
constexpr int TimeoutCapacity = 4; // up to 3 characters
constexpr int MessagePane = 4;
constexpr const char* RunTitle = "V-System compiler";
constexpr const char* NoPathCaption = "vcom.exe executable path is empty.";
constexpr const char* NoPathText =
    "Please set the path to the Vsystem directory\nusing the Options->Vsystem dialog window.";
constexpr const char* NotALanguageFile = "Active window is not a language file.";

// The leading decimal integer of a "line" setting; 0 when it does not start with a digit.
long LineNumberOf(std::string_view text) {
    long value = 0;
    for (char c : text) {
        if (std::isdigit(static_cast<unsigned char>(c)) == 0) break;
        value = value * 10 + (c - '0');
        if (value > 1000000000L) break;
    }
    return value;
}

EditBuffer* ActiveBuffer() {
    EditBuffer* buffer = TheEditor().engine.currentBuffer;
    return buffer != nullptr && !buffer->IsClosed() ? buffer : nullptr;
}

} // namespace

void loadVsystem() {
    VsystemSettings& v = TheEditor().tools.vsystem;
    v.executable = ReadString(Section, "Executable", "", TextCapacity);
    v.windowClass = ReadString(Section, "Class", "VsystemWClass", TextCapacity);
    v.library = ReadString(Section, "Library", "work", TextCapacity);
    v.timeout = ReadString(Section, "Timeout", "10", TimeoutCapacity);
    v.vcomLine = ReadString(Section, "VCOM_Line", "", TextCapacity);
    v.vlogLine = ReadString(Section, "VLOG_Line", "", TextCapacity);
    v.vcomOptions = ReadString(Section, "VCOM_Options", "", TextCapacity);
    v.vlogOptions = ReadString(Section, "VLOG_Options", "", TextCapacity);
    v.stdLogicOpt = ReadBool(Section, "StdLogicOpt", true);
    v.vhdl93 = ReadBool(Section, "VHDL93", true);
    v.explicitFunctions = ReadBool(Section, "Explicit", true);
    v.convUpCase = ReadBool(Section, "ConvUpCase", false);
    v.hazard = ReadBool(Section, "Hazard", false);
}

void saveVsystem() {
    const VsystemSettings& v = TheEditor().tools.vsystem;
    (void)WriteString(Section, "Executable", v.executable);
    (void)WriteString(Section, "Class", v.windowClass);
    (void)WriteString(Section, "Library", v.library);
    (void)WriteString(Section, "Timeout", v.timeout);
    (void)WriteString(Section, "VCOM_Line", v.vcomLine);
    (void)WriteString(Section, "VLOG_Line", v.vlogLine);
    (void)WriteString(Section, "VCOM_Options", v.vcomOptions);
    (void)WriteString(Section, "VLOG_Options", v.vlogOptions);
    (void)WriteBool(Section, "StdLogicOpt", v.stdLogicOpt);
    (void)WriteBool(Section, "VHDL93", v.vhdl93);
    (void)WriteBool(Section, "Explicit", v.explicitFunctions);
    (void)WriteBool(Section, "ConvUpCase", v.convUpCase);
    (void)WriteBool(Section, "Hazard", v.hazard);
}

std::string buildVsystemCommand(const VsystemSettings& v, std::string_view libraryDirectory,
                                int mode, std::string_view toolDirectory,
                                std::string_view sourceName) {
    const std::string d(toolDirectory);
    std::string line;
    switch (mode) {
    case ModeCreateLibrary:
        return d + "vlib " + std::string(libraryDirectory);
    case ModeVcom:
        line = d + "vcom -work " + v.library + (v.stdLogicOpt ? "" : " -no1164") +
               (v.explicitFunctions ? " -explicit" : "") + (v.vhdl93 ? " -93" : "") + " ";
        if (LineNumberOf(v.vcomLine) != 0) line += " -line " + v.vcomLine + " ";
        if (!v.vcomOptions.empty()) line += " " + v.vcomOptions;
        return line + " " + std::string(sourceName);
    case ModeVlog:
        line = d + "vlog  -work " + v.library + (v.convUpCase ? " -u" : "") +
               (v.hazard ? " -hazards" : "") + " ";
        if (LineNumberOf(v.vlogLine) != 0) line += " -line " + v.vlogLine + " ";
        if (!v.vlogOptions.empty()) line += " " + v.vlogOptions;
        return line + " " + std::string(sourceName);
    case ModeMapLibrary:
        return d + "vmap " + v.library + " " + std::string(libraryDirectory);
    case ModeListMappings:
        return d + "vmap";
    default:
        return {};
    }
}

std::string vsystemToolDirectory(std::string_view executable) {
    const std::optional<std::string> directory = DirectoryPart(executable);
    if (!directory || directory->empty()) return {};
    return *directory + "\\";
}

std::string compilerFileName(std::string_view sourceName) {
    std::string name = FileNamePart(sourceName).value_or("");
    if (name.find(' ') != std::string::npos) name = "\"" + name + "\"";
    return name;
}

bool prepareSource(bool languageFile) {
    Editor& editor = TheEditor();
    ToolsState& tools = editor.tools;
    clearErrors();
    tools.sourceBuffer = nullptr;
    if (!languageFile) return true;
    EditBuffer* active = ActiveBuffer();
    if (active == nullptr) return false;
    if (active->windowKind != KindDocument) {
        editor.host.SetStatusPane(MessagePane, NotALanguageFile, true);
        return false;
    }
    tools.sourceBuffer = active;
    if (saveBuffer(active->fileName, *active) != 0) return false;
    tools.lastSourceName = active->fileName;
    return true;
}

int compileWithVsystem(int mode) {
    Editor& editor = TheEditor();
    ToolsState& tools = editor.tools;
    if (tools.vsystem.executable.empty()) {
        editor.host.ErrorBox(NoPathCaption, NoPathText);
        return 1;
    }
    const std::string toolDirectory = vsystemToolDirectory(tools.vsystem.executable);
    if (ActiveBuffer() == nullptr) return 0;
    if (!prepareSource(mode == ModeVcom || mode == ModeVlog)) return 0;
    const std::string command =
        buildVsystemCommand(tools.vsystem, tools.libraryDirectory, mode, toolDirectory,
                            compilerFileName(tools.lastSourceName));
    const std::string directory = tools.lastSourceName.empty()
                                      ? std::string()
                                      : DirectoryPart(tools.lastSourceName).value_or("");
    editor.host.SetBusyCursor(true);
    (void)runWithResultWindow(RunTitle, command, directory, ErrorMode::Vsystem);
    editor.host.SetBusyCursor(false);
    return 1;
}

} // namespace ruvo
