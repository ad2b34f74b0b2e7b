// State of the external tools: the result window, the compiled source, the error list, the
// V-System settings and the user-defined tools.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tools/message_formats.h"
#include "tools/message_parsers.h"

namespace ruvo {

struct EditBuffer;
struct GadgetDialog;

// One parsed message of the error list, in the order of the result lines.
struct ErrorEntry {
    int32_t sourceLine = 0;  // 1-based, as the parser returned it
    int32_t resultLine = -1; // 0-based line of the result window
    int32_t kind = KindError;
    int32_t column = 0;   // 1-based; 0 when the tool names none
    int32_t tabWidth = 1; // the tool counts a tab up to the next multiple of this
    std::string file;     // full path of the file named; empty for the compiled source
};

// The [Vsystem] section.
struct VsystemSettings {
    std::string executable;
    std::string windowClass = "VsystemWClass";
    std::string library = "work";
    std::string timeout = "10";
    std::string vcomLine;
    std::string vlogLine;
    std::string vcomOptions;
    std::string vlogOptions;
    bool stdLogicOpt = true;
    bool vhdl93 = true;
    bool explicitFunctions = true;
    bool convUpCase = false;
    bool hazard = false;
};

constexpr int ToolSlots = 6;

// One user-defined tool; an empty name marks an unused slot.
struct ToolRecord {
    std::string name;
    std::string executable;
    std::string argument;
    std::string workingDirectory;
    std::string messages; // the message format of its output; empty: not read
    friend bool operator==(const ToolRecord&, const ToolRecord&) = default;
};

struct ToolTable {
    std::array<ToolRecord, ToolSlots> slots;
    int toolCount = 0; // used slots, always the first ones
    friend bool operator==(const ToolTable&, const ToolTable&) = default;
};

// The options dialogs, built on first use and kept for the run.
struct ToolDialogs {
    ToolDialogs();
    ToolDialogs(const ToolDialogs&) = delete;
    ToolDialogs& operator=(const ToolDialogs&) = delete;
    ~ToolDialogs();
    std::unique_ptr<GadgetDialog> vsystem;
    std::unique_ptr<GadgetDialog> tools;
    std::unique_ptr<GadgetDialog> leonardo;
};

struct ToolsState {
    EditBuffer* resultBuffer = nullptr; // the "ToolResult" window; test closedFlags
    EditBuffer* sourceBuffer = nullptr; // the buffer last prepared for compiling
    ErrorMode activeParser = ErrorMode::None;
    std::vector<ErrorEntry> errorList; // its end stands for the terminating entry
    VsystemSettings vsystem;
    std::string libraryDirectory; // the "&Directory:" field; never stored
    std::string lastSourceName;
    ToolTable tools;
    ToolTable toolsBeforeDialog;    // restored by Cancel
    bool fillingToolDialog = false; // the program itself fills the dialog's edits
    ToolDialogs dialogs;
    MessageFormats formats;   // the rule file, read at start-up
    std::string runFormat;    // the message format and working directory of the
    std::string runDirectory; // user tool whose output is read (ErrorMode::Formats)
};

} // namespace ruvo
