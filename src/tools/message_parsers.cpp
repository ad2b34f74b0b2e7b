// The V-System and Leonardo message parsers.
#include "tools/message_parsers.h"

#include <cctype>

namespace ruvo {

namespace {

constexpr int32_t NotAMessage = -1;

// The decimal number at the start of text (0 when it does not start with a digit); kept
// within int32_t.
int32_t LeadingNumber(std::string_view text) {
    int64_t value = 0;
    for (char c : text) {
        if (std::isdigit(static_cast<unsigned char>(c)) == 0) break;
        value = value * 10 + (c - '0');
        if (value > INT32_MAX) return INT32_MAX;
    }
    return static_cast<int32_t>(value);
}

} // namespace

int32_t parseVsystemLine(std::string_view line, std::string_view /*sourceBaseName*/) {
    const std::string_view head = line.substr(0, 6);
    if (head != "######" && head != "ERROR:") return NotAMessage;
    const size_t open = line.find('(');
    if (open == std::string_view::npos) return NotAMessage;
    return LeadingNumber(line.substr(open + 1));
}

int32_t parseLeonardoLine(std::string_view line, std::string_view sourceBaseName) {
    if (line.empty() || line[0] != '"') return NotAMessage;
    const size_t name = line.find(sourceBaseName);
    if (name == std::string_view::npos) return NotAMessage;
    constexpr std::string_view LineWord = "line ";
    const size_t word = line.find(LineWord, name + sourceBaseName.size());
    if (word == std::string_view::npos) return NotAMessage;
    return LeadingNumber(line.substr(word + LineWord.size()));
}

int32_t EntryKind(MessageSeverity severity) {
    switch (severity) {
    case MessageSeverity::Warning:
        return KindWarning;
    case MessageSeverity::Note:
        return KindNote;
    case MessageSeverity::Error:
        break;
    }
    return KindError;
}

LineParser MakeLineParser(ErrorMode mode, std::string_view sourceBaseName) {
    using Parse = int32_t (*)(std::string_view, std::string_view);
    Parse parse = nullptr;
    switch (mode) {
    case ErrorMode::Vsystem:
        parse = parseVsystemLine;
        break;
    case ErrorMode::Leonardo:
        parse = parseLeonardoLine;
        break;
    case ErrorMode::None:
    case ErrorMode::Formats:
        return {};
    }
    return [parse, name = std::string(sourceBaseName)](
               std::string_view line) -> std::optional<MessageLocation> {
        const int32_t sourceLine = parse(line, name);
        if (sourceLine == NotAMessage) return std::nullopt;
        MessageLocation message;
        message.line = sourceLine;
        if (line.find("Warning") != std::string_view::npos)
            message.severity = MessageSeverity::Warning;
        return message;
    };
}

} // namespace ruvo
