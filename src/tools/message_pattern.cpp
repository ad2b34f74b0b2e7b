// Compiling and matching message patterns: a small backtracking matcher over whole lines.
#include "tools/message_pattern.h"

#include <climits>

namespace ruvo {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

// Characters no Windows path holds.
bool IsForbiddenInPath(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '<' || c == '>' || c == '|' ||
           c == '?' || c == '*';
}

// The first position at or after pos where a path starting at pos cannot go on: a colon
// ends it unless it follows a drive letter and comes before a separator.
size_t PathLimit(std::string_view line, size_t pos) {
    if (pos >= line.size() || IsBlank(line[pos])) return pos;
    size_t end = pos;
    for (; end < line.size(); ++end) {
        const char c = line[end];
        if (IsForbiddenInPath(c)) break;
        if (c == ':') {
            const bool drive = end == pos + 1 && IsLetter(line[pos]) && end + 1 < line.size() &&
                               IsSeparator(line[end + 1]);
            if (!drive) break;
        }
    }
    return end;
}

} // namespace

struct MessagePattern::Cursor {
    std::string_view line;
    const std::vector<std::string>* words;
    PatternCapture capture;
};

std::optional<MessagePattern> MessagePattern::Compile(std::string_view text) {
    MessagePattern pattern;
    std::vector<Token>& tokens = pattern.tokens_;
    std::vector<size_t> open;    // Optional tokens not yet closed
    std::vector<size_t> depthOf; // nesting depth of each token
    bool literalOpen = false;    // the last token is a literal that may grow
    bool hasColumn = false;
    auto add = [&](Piece piece) {
        tokens.push_back(Token{piece, {}, 0});
        depthOf.push_back(open.size());
        literalOpen = false;
    };
    size_t i = 0;
    while (i < text.size()) {
        const char c = text[i];
        if (IsBlank(c)) {
            while (i < text.size() && IsBlank(text[i]))
                ++i;
            add(Piece::Blanks);
            continue;
        }
        if (c == '}' && !open.empty()) {
            if (open.back() + 1 == tokens.size()) return std::nullopt; // "{?}" holds nothing
            tokens[open.back()].skip = tokens.size();
            open.pop_back();
            literalOpen = false;
            ++i;
            continue;
        }
        if (c == '{' && text.substr(i, 2) != "{{") {
            if (text.substr(i, 2) == "{?") {
                add(Piece::Optional);
                open.push_back(tokens.size() - 1);
                i += 2;
                continue;
            }
            const size_t close = text.find('}', i);
            if (close == std::string_view::npos) return std::nullopt;
            const std::string_view name = text.substr(i + 1, close - i - 1);
            bool* seen = nullptr;
            Piece piece = Piece::Any;
            if (name == "file") {
                piece = Piece::File;
                seen = &pattern.hasFile_;
            } else if (name == "line") {
                piece = Piece::Line;
                seen = &pattern.hasLine_;
            } else if (name == "column") {
                piece = Piece::Column;
                seen = &hasColumn;
            } else if (name == "severity") {
                piece = Piece::Severity;
                seen = &pattern.hasSeverity_;
            } else if (name != "any") {
                return std::nullopt;
            }
            if (seen != nullptr) {
                if (*seen) return std::nullopt;
                *seen = true;
            }
            // An entry always has its file and line.
            if ((piece == Piece::File || piece == Piece::Line) && !open.empty())
                return std::nullopt;
            add(piece);
            i = close + 1;
            continue;
        }
        if (!literalOpen) {
            add(Piece::Literal);
            literalOpen = true;
        }
        tokens.back().text += c;
        i += c == '{' ? 2 : 1;
    }
    if (!open.empty()) return std::nullopt;
    for (size_t t = 0; t < tokens.size(); ++t)
        if (tokens[t].piece == Piece::Literal && depthOf[t] == 0 &&
            tokens[t].text.size() > pattern.required_.size())
            pattern.required_ = tokens[t].text;
    return pattern;
}

bool MessagePattern::Match(std::string_view line, const std::vector<std::string>& severityWords,
                           PatternCapture& capture) const {
    if (!required_.empty() && line.find(required_) == std::string_view::npos) return false;
    Cursor cursor{line, &severityWords, PatternCapture{}};
    if (!MatchFrom(0, 0, cursor)) return false;
    capture = cursor.capture;
    return true;
}

bool MessagePattern::MatchFrom(size_t token, size_t pos, Cursor& cursor) const {
    const std::string_view line = cursor.line;
    while (token < tokens_.size()) {
        const Token& current = tokens_[token];
        switch (current.piece) {
        case Piece::Literal:
            if (line.substr(pos, current.text.size()) != current.text) return false;
            pos += current.text.size();
            break;
        case Piece::Blanks: {
            const size_t start = pos;
            while (pos < line.size() && IsBlank(line[pos]))
                ++pos;
            if (pos == start) return false;
            break;
        }
        case Piece::Line:
        case Piece::Column: {
            const size_t start = pos;
            int64_t value = 0;
            for (; pos < line.size() && IsDigit(line[pos]); ++pos)
                value = value < INT32_MAX ? value * 10 + (line[pos] - '0') : value;
            if (pos == start) return false;
            const auto number = static_cast<int32_t>(value < INT32_MAX ? value : INT32_MAX);
            (current.piece == Piece::Line ? cursor.capture.line : cursor.capture.column) = number;
            break;
        }
        case Piece::File:
            return MatchFile(token, pos, cursor);
        case Piece::Any:
            return MatchAny(token, pos, cursor);
        case Piece::Severity: {
            const PatternCapture saved = cursor.capture;
            const std::vector<std::string>& words = *cursor.words;
            for (size_t w = 0; w < words.size(); ++w) {
                if (words[w].empty() || line.substr(pos, words[w].size()) != words[w]) continue;
                cursor.capture.severityWord = static_cast<int>(w);
                if (MatchFrom(token + 1, pos + words[w].size(), cursor)) return true;
                cursor.capture = saved;
            }
            return false;
        }
        case Piece::Optional: {
            const PatternCapture saved = cursor.capture;
            if (MatchFrom(token + 1, pos, cursor)) return true;
            cursor.capture = saved;
            token = current.skip;
            continue;
        }
        }
        ++token;
    }
    while (pos < line.size() && IsBlank(line[pos]))
        ++pos;
    return pos == line.size();
}

bool MessagePattern::MatchFile(size_t token, size_t pos, Cursor& cursor) const {
    const std::string_view line = cursor.line;
    const size_t limit = PathLimit(line, pos);
    if (limit == pos) return false;
    const PatternCapture saved = cursor.capture;
    const Token* next = token + 1 < tokens_.size() ? &tokens_[token + 1] : nullptr;
    auto attempt = [&](size_t end) {
        if (IsBlank(line[end - 1])) return false;
        cursor.capture.file = line.substr(pos, end - pos);
        if (MatchFrom(token + 1, end, cursor)) return true;
        cursor.capture = saved;
        return false;
    };
    // Shortest path first; a literal after the path says where it may end.
    if (next != nullptr && next->piece == Piece::Literal) {
        for (size_t end = line.find(next->text, pos + 1);
             end != std::string_view::npos && end <= limit; end = line.find(next->text, end + 1))
            if (attempt(end)) return true;
        return false;
    }
    for (size_t end = pos + 1; end <= limit; ++end)
        if (attempt(end)) return true;
    return false;
}

bool MessagePattern::MatchAny(size_t token, size_t pos, Cursor& cursor) const {
    const std::string_view line = cursor.line;
    if (token + 1 == tokens_.size()) return true; // the rest of the line
    const PatternCapture saved = cursor.capture;
    const Token& next = tokens_[token + 1];
    auto attempt = [&](size_t start) {
        if (MatchFrom(token + 1, start, cursor)) return true;
        cursor.capture = saved;
        return false;
    };
    // Shortest text first, trying only where the next piece can begin.
    if (next.piece == Piece::Literal) {
        for (size_t at = line.find(next.text, pos); at != std::string_view::npos;
             at = line.find(next.text, at + 1))
            if (attempt(at)) return true;
        return false;
    }
    for (size_t at = pos; at <= line.size(); ++at) {
        if (next.piece == Piece::Blanks &&
            (at == line.size() || !IsBlank(line[at]) || (at > pos && IsBlank(line[at - 1]))))
            continue;
        if (attempt(at)) return true;
    }
    return false;
}

} // namespace ruvo
