// The colouring scanner: line comment, keywords, abbreviation at the end of the line,
// strings and character literals, with identifiers skipped whole.
#include "lang/syntax_scanner.h"

#include "engine/editor.h"
#include "lang/keyword_lookup.h"

namespace ruvo {

namespace {

class RunWriter {
  public:
    RunWriter(std::string_view line, const LanguageDef& language, ColourRun* runs, int capacity)
        : line_(line), language_(language), runs_(runs), capacity_(capacity) {}

    // False once the array is full; the last run then already reaches the end of the line.
    bool Add(int32_t start, int32_t length, const TextAttribute& attribute, RunKind kind,
             int group) {
        if (count_ == capacity_ - 1 && start + length < static_cast<int32_t>(line_.size())) {
            runs_[count_++] = ColourRun{start,
                                        static_cast<int32_t>(line_.size()) - start,
                                        language_.text.color,
                                        language_.text.typeface,
                                        RunKind::Plain,
                                        0};
            return false;
        }
        runs_[count_++] =
            ColourRun{start, length, attribute.color, attribute.typeface, kind, group};
        return true;
    }

    int Count() const { return count_; }

  private:
    std::string_view line_;
    const LanguageDef& language_;
    ColourRun* runs_;
    int capacity_;
    int count_ = 0;
};

struct Token {
    int32_t length = 0; // 0: no token at this position
    TextAttribute attribute;
    RunKind kind = RunKind::Plain;
    int group = 0;
};

Token TokenAt(std::string_view line, size_t at, const LanguageDef& language) {
    const std::string_view rest = line.substr(at);
    const int32_t restLength = static_cast<int32_t>(rest.size());
    const std::string_view comment = language.lineComment;
    if (!comment.empty() && rest[0] == comment[0] && rest.substr(0, comment.size()) == comment)
        return {restLength, language.comment, RunKind::Comment, 0};
    if (IsAsciiLetter(rest[0])) {
        const KeywordMatch keyword = FindKeyword(language, rest);
        if (keyword.length > 0)
            return {keyword.length, keyword.attribute, RunKind::Keyword, keyword.group};
    }
    // Only the last few characters of a line can be an abbreviation name.
    if (restLength <= language.expanderNames.LongestLength() &&
        FindAbbreviation(language, rest) >= 0)
        return {restLength, language.expander, RunKind::Abbreviation, 0};
    if (rest[0] == '"') {
        const size_t close = rest.find('"', 1);
        const int32_t length =
            close == std::string_view::npos ? restLength : static_cast<int32_t>(close) + 1;
        return {length, language.strings, RunKind::String, 0};
    }
    if (rest[0] == '\'' && rest.size() >= 3 && rest[2] == '\'')
        return {3, language.strings, RunKind::String, 0};
    return {};
}

} // namespace

int ScanLine(std::string_view line, const LanguageDef* language, ColourRun* runs, int capacity) {
    if (line.empty() || capacity < 1) return 0;
    const int32_t length = static_cast<int32_t>(line.size());
    if (language == nullptr || !TheEditor().settings.options.colors) {
        runs[0] = ColourRun{0, length, ColorBlack, 0, RunKind::Plain, 0};
        return 1;
    }
    return ScanLineInLanguage(line, *language, runs, capacity);
}

int ScanLineInLanguage(std::string_view line, const LanguageDef& language, ColourRun* runs,
                       int capacity) {
    if (line.empty() || capacity < 1) return 0;
    const int32_t length = static_cast<int32_t>(line.size());
    RunWriter writer(line, language, runs, capacity);
    int32_t plainStart = 0;
    int32_t at = 0;
    while (at < length) {
        const Token token = TokenAt(line, static_cast<size_t>(at), language);
        if (token.length == 0) {
            if (IsAsciiLetter(line[at])) {
                // Nothing is looked for inside an identifier.
                do
                    ++at;
                while (at < length && IsIdentifierChar(line[at]));
            } else {
                ++at;
            }
            continue;
        }
        if (at > plainStart &&
            !writer.Add(plainStart, at - plainStart, language.text, RunKind::Plain, 0))
            return writer.Count();
        if (!writer.Add(at, token.length, token.attribute, token.kind, token.group))
            return writer.Count();
        at += token.length;
        plainStart = at;
    }
    if (at > plainStart) writer.Add(plainStart, at - plainStart, language.text, RunKind::Plain, 0);
    return writer.Count();
}

} // namespace ruvo
