// Message formats of the compilers run as user tools: the rule file and the reading of output
// lines with its rules.
#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/message_location.h"
#include "tools/message_pattern.h"

namespace ruvo {

// What a rule line says about the lines its pattern matches.
enum class RuleKind : uint8_t {
    Error,   // an entry, an error
    Warning, // an entry, a warning
    Note,    // an entry, a note
    Message, // an entry whose {severity} says what it is, else the last heading's
    Heading, // not an entry; its {severity} holds for the messages after it
};

struct MessageRule {
    RuleKind kind;
    MessagePattern pattern;
};

// One [section] of the rule file.
struct MessageFormat {
    std::string name;
    std::vector<std::string> severityWords;  // longest first
    std::vector<MessageSeverity> severityOf; // index for index with the words
    int32_t tabWidth = 1;
    std::vector<MessageRule> rules;
};

using MessageFormats = std::vector<MessageFormat>;

// The name that tries every format in file order.
constexpr std::string_view AllFormatsName = "auto";

// Reads a rule file. A file that cannot be opened and every faulty line go to the start-up
// error report; faulty lines are skipped.
MessageFormats ReadMessageFormats(const std::string& path);
MessageFormats ReadMessageFormats(std::FILE* file);

// Reads tool output line by line with one format, or with all of them ("auto").
class MessageReader {
  public:
    // An unknown name reads nothing.
    MessageReader(const MessageFormats& formats, std::string_view name);

    bool Reads() const { return first_ < last_; }
    // The place a line names, or nothing for a line that is not an entry of its own.
    std::optional<MessageLocation> Read(std::string_view line);

  private:
    const MessageFormats* formats_;
    size_t first_ = 0;
    size_t last_ = 0;
    MessageSeverity heading_ = MessageSeverity::Error;
};

} // namespace ruvo
