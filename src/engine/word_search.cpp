// Words under a position and plain-text search, one byte position at a time.
#include "engine/word_search.h"

#include <cctype>
#include <cstring>

#include "engine/edit_buffer.h"
#include "engine/text_store.h"

namespace ruvo {

namespace {

bool IsLetterOrDigit(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

int Length(const EditBuffer& buffer, int32_t line) {
    return static_cast<int>(std::strlen(buffer.lines.lineText[line]));
}

// A bounded comparison of the pattern's length; the line's NUL ends a short tail.
bool MatchesAt(const char* text, std::string_view pattern, bool matchCase) {
    for (size_t i = 0; i < pattern.size(); ++i) {
        const char c = text[i];
        if (c == '\0') return false;
        if (matchCase ? c != pattern[i]
                      : std::tolower(static_cast<unsigned char>(c)) !=
                            std::tolower(static_cast<unsigned char>(pattern[i])))
            return false;
    }
    return true;
}

bool Candidate(const EditBuffer& buffer, TextPos pos, std::string_view pattern, bool matchCase,
               bool wholeWord) {
    if (pos.line < 0 || pos.line >= buffer.lines.lineCount) return false;
    const char* line = buffer.lines.lineText[pos.line];
    if (pos.column < 0 || pos.column > Length(buffer, pos.line)) return false;
    if (!MatchesAt(line + pos.column, pattern, matchCase)) return false;
    if (!wholeWord) return true;
    if (pos.column > 0 && IsWordChar(line[pos.column - 1])) return false;
    return !IsWordChar(line[pos.column + pattern.size()]);
}

} // namespace

bool IsWordChar(char c) {
    return IsLetterOrDigit(c) || c == '_';
}

TextRange WordBounds(const EditBuffer& buffer, TextPos pos) {
    TextRange word{pos, pos};
    if (pos.line < 0 || pos.line >= buffer.lines.lineCount) return word;
    const char* line = buffer.lines.lineText[pos.line];
    if (pos.column < 0 || pos.column >= Length(buffer, pos.line)) return word;
    if (!IsLetterOrDigit(line[pos.column])) return word;
    while (word.start.column > 0 && IsWordChar(line[word.start.column - 1]))
        --word.start.column;
    while (IsWordChar(line[word.end.column]))
        ++word.end.column;
    return word;
}

int GetWordAt(const EditBuffer& buffer, TextPos pos, std::string& text, TextPos& start) {
    const TextRange word = WordBounds(buffer, pos);
    text.clear();
    start = word.start;
    if (PosEqual(word.start, word.end)) return 0;
    const char* line = buffer.lines.lineText[pos.line];
    text.assign(line + word.start.column, static_cast<size_t>(word.end.column - word.start.column));
    return 1;
}

int SearchText(const EditBuffer& buffer, std::string_view pattern, bool matchCase, bool wholeWord,
               TextRange range, TextPos& found) {
    if (pattern.empty() || PosEqual(range.start, range.end) || buffer.lines.lineCount <= 0)
        return 0;
    const int32_t lastLine = buffer.lines.lineCount - 1;
    const bool forward = PosLess(range.start, range.end);
    TextPos pos = range.start;
    while (!Candidate(buffer, pos, pattern, matchCase, wholeWord)) {
        if (forward) {
            if (!PosLess(pos, range.end)) break;
            if (pos.line > lastLine) break;
            if (pos.line >= 0 && pos.column < Length(buffer, pos.line)) {
                ++pos.column;
            } else {
                if (pos.line >= lastLine) break;
                pos = MakePos(pos.line + 1, 0);
            }
        } else {
            if (!PosLess(range.end, pos)) break;
            if (pos.line < 0) break;
            if (pos.column > 0) {
                --pos.column;
            } else {
                if (pos.line == 0) break;
                const int32_t line = pos.line - 1 > lastLine ? lastLine : pos.line - 1;
                const int column = Length(buffer, line) - static_cast<int>(pattern.size());
                pos = MakePos(line, column > 0 ? column : 0);
            }
        }
    }
    if (!Candidate(buffer, pos, pattern, matchCase, wholeWord)) return 0;
    found = pos;
    return 1;
}

} // namespace ruvo
