// One pattern of a message-format rule: literal text with placeholders, matched against a whole
// line of tool output without regular expressions.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

// What a successful match captured; views into the matched line.
struct PatternCapture {
    std::string_view file;
    int32_t line = 0;      // 0 when the pattern has no {line}
    int32_t column = 0;    // 0 when the pattern has none or its optional part was absent
    int severityWord = -1; // index into the words given to Match; -1 when none matched
};

// Pattern text: a run of blanks matches one or more blanks or tabs; {file} a path (drive
// letters, both slashes and blanks allowed, no ": " and no other colon); {line} and {column}
// decimal numbers; {severity} one of the format's severity words; {any} any text, also none;
// {?...} makes its contents optional; {{ is a literal '{'. Everything else matches itself.
// The pattern covers the whole line; blanks at the end of the line are ignored.
class MessagePattern {
  public:
    // Nothing when the text is not a pattern: an unknown or unclosed placeholder, a placeholder
    // given twice, {file} or {line} inside an optional part.
    static std::optional<MessagePattern> Compile(std::string_view text);

    [[nodiscard]] bool Match(std::string_view line, const std::vector<std::string>& severityWords,
                             PatternCapture& capture) const;

    bool HasFile() const { return hasFile_; }
    bool HasLine() const { return hasLine_; }
    bool HasSeverity() const { return hasSeverity_; }

  private:
    enum class Piece : uint8_t { Literal, Blanks, File, Line, Column, Severity, Any, Optional };
    struct Token {
        Piece piece;
        std::string text; // Literal
        size_t skip = 0;  // Optional: the token after the optional part
    };
    struct Cursor;

    bool MatchFrom(size_t token, size_t pos, Cursor& cursor) const;
    bool MatchFile(size_t token, size_t pos, Cursor& cursor) const;
    bool MatchAny(size_t token, size_t pos, Cursor& cursor) const;

    std::vector<Token> tokens_;
    std::string required_; // the longest literal outside optional parts; every match holds it
    bool hasFile_ = false;
    bool hasLine_ = false;
    bool hasSeverity_ = false;
};

} // namespace ruvo
