// The "ToolResult" message window and the runs whose output it shows.
#pragma once

#include <string_view>

#include "tools/message_parsers.h"

namespace ruvo {

struct EditBuffer;

constexpr const char* ResultWindowName = "ToolResult";

// The result window when one is open, else null.
EditBuffer* OpenResultBuffer();
// True while the buffer's window exists.
bool IsOpen(const EditBuffer* buffer);

// Empties the buffer's text and history, leaving one empty line with the caret on it.
void EmptyResultBuffer(EditBuffer& buffer);
// Empties and activates the remembered result window, or opens a new one, then writes the
// header (an empty line, the command line, two empty lines) and the title. Null when no
// window could be opened.
EditBuffer* openResultWindow(std::string_view title, std::string_view commandLine);
// Appends a piece of output at the end of the buffer: carriage returns dropped, lines cut
// after 254 bytes, the caret moved to the end, the window redrawn.
void appendToolOutput(EditBuffer& buffer, std::string_view chunk);
// Runs the command line in the directory (empty: the current one) with its output going into
// the buffer. 0 when it ran to the end of its output, 1 when it could not be started.
int runProcess(std::string_view commandLine, std::string_view workingDirectory,
               EditBuffer& resultBuffer);
// Opens the result window, runs, and with a mode and an open source reads the errors.
int runWithResultWindow(std::string_view title, std::string_view commandLine,
                        std::string_view workingDirectory, ErrorMode errorMode);
// Shows a file a compiler wrote in the result window, then reads the errors as above.
void loadResultFile(std::string_view fileName, std::string_view title, ErrorMode errorMode);

} // namespace ruvo
