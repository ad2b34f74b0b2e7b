// User-defined tools: loading and saving [UserDefinedTools], the RunTool labels, running one.
#include "tools/user_tools.h"

#include <string>

#include "commands/command_table.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/profile.h"
#include "tools/result_window.h"
#include "tools/tool_messages.h"

namespace ruvo {

namespace {

constexpr const char* Section = "UserDefinedTools";
constexpr int ValueCapacity = 256;
constexpr int ToolPane = 3;
constexpr const char* ScriptFileName = "ruvotool.bat";

std::string Key(const char* prefix, int n) {
    return prefix + std::to_string(n);
}

// The active window's buffer when it is a document that is not closing.
const EditBuffer* ActiveDocument() {
    const EditBuffer* buffer = TheEditor().engine.currentBuffer;
    if (buffer == nullptr || buffer->IsClosed() || buffer->windowKind != KindDocument)
        return nullptr;
    return buffer;
}

} // namespace

void loadTools() {
    Editor& editor = TheEditor();
    ToolTable& table = editor.tools.tools;
    LoadMessageFormats();
    for (int n = 1; n <= ToolSlots; ++n) {
        ToolRecord& slot = table.slots[static_cast<size_t>(n - 1)];
        slot.name = ReadString(Section, Key("ToolName", n), "", ValueCapacity);
        slot.executable = ReadString(Section, Key("Executable", n), "", ValueCapacity);
        slot.argument = ReadString(Section, Key("Argument", n), "", ValueCapacity);
        slot.workingDirectory = ReadString(Section, Key("WorkingDirectory", n), "", ValueCapacity);
        slot.messages = ReadString(Section, Key("Messages", n), "", ValueCapacity);
        if (slot.name.empty()) {
            table.toolCount = n - 1;
            return;
        }
        int row = -1;
        if (CommandByName(Key("RunTool", n), nullptr, false, &row) != nullptr)
            editor.commands.labelOverrides[static_cast<size_t>(row)] = &slot.name;
    }
    // With all six slots named the count keeps its start value, so the dialog lists none.
}

void saveTools() {
    const ToolTable& table = TheEditor().tools.tools;
    for (int n = 1; n <= ToolSlots; ++n) {
        const ToolRecord& slot = table.slots[static_cast<size_t>(n - 1)];
        (void)WriteString(Section, Key("ToolName", n), slot.name);
        (void)WriteString(Section, Key("Executable", n), slot.executable);
        (void)WriteString(Section, Key("Argument", n), slot.argument);
        (void)WriteString(Section, Key("WorkingDirectory", n), slot.workingDirectory);
        // A profile that never named a format gets no key for it.
        const std::string messages = Key("Messages", n);
        if (!slot.messages.empty() || !ReadString(Section, messages, "", ValueCapacity).empty())
            (void)WriteString(Section, messages, slot.messages);
    }
}

std::string toolCommandLine(std::string_view executable, std::string_view argument,
                            std::string_view fileName) {
    std::string line(executable);
    line += ' ';
    for (size_t i = 0; i < argument.size(); ++i) {
        if (argument[i] == '$' && i + 1 < argument.size() && argument[i + 1] == '$') {
            line += fileName;
            ++i;
        } else {
            line += argument[i];
        }
    }
    return line;
}

int runTool(int n) {
    Editor& editor = TheEditor();
    Host& host = editor.host;
    if (n < 1 || n > ToolSlots) return 0;
    const ToolRecord tool = editor.tools.tools.slots[static_cast<size_t>(n - 1)];
    const std::string number = std::to_string(n);
    if (tool.executable.empty()) {
        host.ErrorBox("Empty command line",
                      "Tool(" + number + ") '" + tool.name +
                          "' has no command executable specified.\nUse Options -> Tools to "
                          "specify a command.");
        return 0;
    }
    const EditBuffer* active = ActiveDocument();
    const bool usesFile = tool.argument.find("$$") != std::string::npos;
    if (usesFile && active == nullptr) {
        host.ErrorBox("No active windows", "Tool(" + number + ") '" + tool.name +
                                               "' uses active window in command line\n"
                                               "arguments, but no window is ative.");
        return 0;
    }
    const std::string command =
        toolCommandLine(tool.executable, tool.argument, active != nullptr ? active->fileName : "");
    const std::string directory = tool.workingDirectory.empty() ? "." : tool.workingDirectory;
    host.SetStatusPane(
        ToolPane, std::string("Running scriptfile '") + ScriptFileName + "' for " + tool.name + ".",
        false);
    host.SetBusyCursor(true);
    editor.tools.runFormat = tool.messages;
    editor.tools.runDirectory = directory;
    (void)runWithResultWindow("Result of tool '" + tool.name + "'.", command, directory,
                              tool.messages.empty() ? ErrorMode::None : ErrorMode::Formats);
    host.SetBusyCursor(false);
    return 0;
}

} // namespace ruvo
