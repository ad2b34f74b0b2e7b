// Output of user tools read with the message formats: the rule file loaded at start-up, the
// parser of one run, and the windows of the files that the entries name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/message_parsers.h"

namespace ruvo {

struct EditBuffer;
struct ErrorEntry;

// The profile key of the rule file in [UserDefinedTools], and its default.
constexpr const char* MessageFormatsKey = "MessageFormats";
constexpr const char* MessageFormatsDefault = "$INSTALL\\messages.ini";

// Reads the rule file that the profile names; faults go to the start-up error report.
void LoadMessageFormats();
// The names a tool's "Messages" setting may take: none (empty), "auto", then the formats.
std::vector<std::string> MessageFormatChoices();
// A parser of output lines in the format (a name or "auto"); files come back as full paths,
// relative names taken from the working directory.
LineParser MakeFormatParser(std::string_view format, std::string_view workingDirectory);

// Whether the entry is about the file of this window.
bool EntryIsIn(const ErrorEntry& entry, const EditBuffer& buffer);
// The window of the entry's file; when it is not open and `open` is set, the file is opened
// (a missing file is reported in the status line). Null when there is none.
EditBuffer* EntryWindow(const ErrorEntry& entry, bool open);
// Draws every document window again, so markers come and go with the list.
void RedrawDocuments();

} // namespace ruvo
