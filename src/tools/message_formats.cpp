// Reading the message-format rule file, and reading tool output with its rules.
#include "tools/message_formats.h"

#include <algorithm>

#include "settings/error_report.h"
#include "settings/line_reader.h"
#include "settings/string_routines.h"

namespace ruvo {

namespace {

constexpr int RuleLineCapacity = 256; // 255 characters a read
constexpr const char* ReaderName = "Message formats";
constexpr const char* FileRole = "Message format";
constexpr int32_t MaxTabWidth = 16;

void Fault(const std::string& line) {
    ReportStartupError(ErrorSyntax, line.c_str(), ReaderName);
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::optional<MessageSeverity> SeverityNamed(std::string_view name) {
    if (EqualsNoCase(name, "error")) return MessageSeverity::Error;
    if (EqualsNoCase(name, "warning")) return MessageSeverity::Warning;
    if (EqualsNoCase(name, "note")) return MessageSeverity::Note;
    return std::nullopt;
}

std::optional<RuleKind> RuleNamed(std::string_view name) {
    if (EqualsNoCase(name, "error")) return RuleKind::Error;
    if (EqualsNoCase(name, "warning")) return RuleKind::Warning;
    if (EqualsNoCase(name, "note")) return RuleKind::Note;
    if (EqualsNoCase(name, "message")) return RuleKind::Message;
    if (EqualsNoCase(name, "heading")) return RuleKind::Heading;
    return std::nullopt;
}

// "severity WORD = error|warning|note": the words that {severity} matches, longest first so
// that "Critical Warning" is tried before "Warning".
bool AddSeverityWord(MessageFormat& format, std::string_view text) {
    const size_t equals = text.rfind('=');
    if (equals == std::string_view::npos) return false;
    const std::string_view word = Trimmed(text.substr(0, equals));
    const std::optional<MessageSeverity> severity = SeverityNamed(Trimmed(text.substr(equals + 1)));
    if (word.empty() || !severity) return false;
    std::vector<std::string>& words = format.severityWords;
    const auto at = std::find_if(words.begin(), words.end(), [&](const std::string& known) {
        return known.size() < word.size();
    });
    const auto index = at - words.begin();
    words.insert(at, std::string(word));
    format.severityOf.insert(format.severityOf.begin() + index, *severity);
    return true;
}

bool SetTabWidth(MessageFormat& format, std::string_view text) {
    int32_t width = 0;
    for (char c : text) {
        if (c < '0' || c > '9' || width > MaxTabWidth) return false;
        width = width * 10 + (c - '0');
    }
    if (width < 1 || width > MaxTabWidth) return false;
    format.tabWidth = width;
    return true;
}

bool AddRule(MessageFormat& format, RuleKind kind, std::string_view text) {
    std::optional<MessagePattern> pattern = MessagePattern::Compile(text);
    if (!pattern) return false;
    if (kind == RuleKind::Heading ? !pattern->HasSeverity()
                                  : !pattern->HasFile() || !pattern->HasLine())
        return false;
    if (pattern->HasSeverity() && format.severityWords.empty()) return false;
    format.rules.push_back(MessageRule{kind, std::move(*pattern)});
    return true;
}

// One body line of a section; false when it is faulty.
bool ReadBodyLine(MessageFormat& format, std::string_view text) {
    size_t blank = 0;
    while (blank < text.size() && !IsBlank(text[blank]))
        ++blank;
    const std::string_view keyword = text.substr(0, blank);
    const std::string_view rest = Trimmed(text.substr(blank));
    if (rest.empty()) return false;
    if (EqualsNoCase(keyword, "severity")) return AddSeverityWord(format, rest);
    if (EqualsNoCase(keyword, "tabs")) return SetTabWidth(format, rest);
    const std::optional<RuleKind> kind = RuleNamed(keyword);
    return kind && AddRule(format, *kind, rest);
}

bool HasFormat(const MessageFormats& formats, std::string_view name) {
    return std::any_of(formats.begin(), formats.end(), [&](const MessageFormat& format) {
        return EqualsNoCase(format.name, name);
    });
}

bool HasDigit(std::string_view line) {
    return std::any_of(line.begin(), line.end(), [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

MessageFormats ReadMessageFormats(std::FILE* file) {
    MessageFormats formats;
    bool inSection = false; // a good section header came last
    bool skipping = false;  // a faulty header came last: its body goes unreported
    while (std::optional<std::string> line = ReadMeaningfulLine(file, RuleLineCapacity)) {
        const std::string_view text = Trimmed(*line);
        if (text.empty()) continue;
        if (text.front() == '[') {
            const std::string_view name =
                text.back() == ']' ? Trimmed(text.substr(1, text.size() - 2)) : std::string_view();
            inSection =
                !name.empty() && !EqualsNoCase(name, AllFormatsName) && !HasFormat(formats, name);
            skipping = !inSection;
            if (inSection)
                formats.push_back(MessageFormat{std::string(name), {}, {}, 1, {}});
            else
                Fault(*line);
            continue;
        }
        if (skipping) continue;
        if (!inSection || !ReadBodyLine(formats.back(), text)) Fault(*line);
    }
    return formats;
}

MessageFormats ReadMessageFormats(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "r");
    if (file == nullptr) {
        ReportStartupError(ErrorCannotOpen, path.c_str(), FileRole);
        return {};
    }
    MessageFormats formats = ReadMessageFormats(file);
    std::fclose(file);
    return formats;
}

MessageReader::MessageReader(const MessageFormats& formats, std::string_view name)
    : formats_(&formats) {
    if (EqualsNoCase(name, AllFormatsName)) {
        last_ = formats.size();
        return;
    }
    for (size_t i = 0; i < formats.size(); ++i)
        if (EqualsNoCase(formats[i].name, name)) {
            first_ = i;
            last_ = i + 1;
            return;
        }
}

std::optional<MessageLocation> MessageReader::Read(std::string_view line) {
    // Every entry has a line number: lines without a digit can only be headings.
    const bool digits = HasDigit(line);
    for (size_t f = first_; f < last_; ++f) {
        const MessageFormat& format = (*formats_)[f];
        for (const MessageRule& rule : format.rules) {
            if (!digits && rule.pattern.HasLine()) continue;
            PatternCapture capture;
            if (!rule.pattern.Match(line, format.severityWords, capture)) continue;
            std::optional<MessageSeverity> said;
            if (capture.severityWord >= 0) {
                said = format.severityOf[static_cast<size_t>(capture.severityWord)];
                heading_ = *said;
            }
            if (rule.kind == RuleKind::Heading) return std::nullopt;
            MessageLocation location;
            location.file = std::string(capture.file);
            location.line = capture.line;
            location.column = capture.column;
            location.tabWidth = format.tabWidth;
            switch (rule.kind) {
            case RuleKind::Error:
                location.severity = MessageSeverity::Error;
                break;
            case RuleKind::Warning:
                location.severity = MessageSeverity::Warning;
                break;
            case RuleKind::Note:
                location.severity = MessageSeverity::Note;
                break;
            default:
                location.severity = said.value_or(heading_);
                break;
            }
            return location;
        }
    }
    return std::nullopt;
}

} // namespace ruvo
