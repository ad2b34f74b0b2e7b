// Parsers of compiler output: each reads one line and says which source line it is about.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "tools/message_location.h"

namespace ruvo {

// Kinds of an error entry; the margin draws warnings yellow and everything else red.
constexpr int32_t KindError = 0;
constexpr int32_t KindNote = 1;
constexpr int32_t KindWarning = 2;

// Which compiler's format the output of a run is read in.
// Formats: a user tool's output read with the message-format rules.
enum class ErrorMode : int { None = 0, Vsystem = 1, Leonardo = 2, Formats = 3 };

// The kind of an entry for a message's severity.
int32_t EntryKind(MessageSeverity severity);

// One line of output to the place it names, or nothing for a line that is not a message.
// An empty file stands for the compiled source.
using LineParser = std::function<std::optional<MessageLocation>(std::string_view line)>;

// V-System: a line starting with "######" or "ERROR:" and holding a '(' gives the number
// after the first '(' (0 without digits); anything else gives -1.
int32_t parseVsystemLine(std::string_view line, std::string_view sourceBaseName);
// Leonardo: a line starting with '"' that holds the source's name and after it "line " gives
// the number after "line "; anything else gives -1.
int32_t parseLeonardoLine(std::string_view line, std::string_view sourceBaseName);

// The parser of a mode for a source file name (without directory); none for ErrorMode::None.
// A message line that holds "Warning" is a warning.
LineParser MakeLineParser(ErrorMode mode, std::string_view sourceBaseName);

} // namespace ruvo
