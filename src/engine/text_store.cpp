// Line-level operations on a buffer's text. Every change checks first and then applies, so a
// refused edit leaves the text as it was.
#include "engine/text_store.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "settings/allocator.h"

namespace ruvo {

namespace {

int TabSize() {
    const int size = TheEditor().settings.options.tabSize;
    return size > 0 ? size : 1;
}

int LineLength(const LineList& lines, int32_t line) {
    return static_cast<int>(std::strlen(lines.lineText[line]));
}

// One line-feed-terminated piece of inserted text as it is stored: a carriage return just
// before the line feed is dropped (unless the text is taken as it stands), any other is kept.
std::string_view StoredPiece(std::string_view text, size_t from, size_t lineFeed,
                             bool dropCarriageReturn) {
    std::string_view piece = text.substr(from, lineFeed - from);
    if (dropCarriageReturn && !piece.empty() && piece.back() == '\r') piece.remove_suffix(1);
    return piece;
}

char* NewLine(std::string_view first, std::string_view second, std::string_view third) {
    const size_t size = first.size() + second.size() + third.size();
    char* line = static_cast<char*>(Allocate(nullptr, 0, static_cast<long>(size) + 1, 1));
    if (line == nullptr) return nullptr;
    char* out = line;
    for (std::string_view part : {first, second, third}) {
        if (!part.empty()) std::memcpy(out, part.data(), part.size());
        out += part.size();
    }
    *out = '\0';
    return line;
}

// Size of the range text without the terminating NUL, and the copy into `out`.
// Both positions must already be clamped and start before end.
size_t RangeSize(const LineList& lines, TextPos start, TextPos end, size_t separator) {
    if (start.line == end.line) return static_cast<size_t>(end.column - start.column);
    size_t size = static_cast<size_t>(LineLength(lines, start.line) - start.column);
    for (int32_t line = start.line + 1; line < end.line; ++line)
        size += static_cast<size_t>(LineLength(lines, line));
    size += static_cast<size_t>(end.column);
    return size + separator * static_cast<size_t>(end.line - start.line);
}

void CopyRange(const LineList& lines, TextPos start, TextPos end, std::string_view separator,
               char* out) {
    if (start.line == end.line) {
        std::memcpy(out, lines.lineText[start.line] + start.column,
                    static_cast<size_t>(end.column - start.column));
        return;
    }
    for (int32_t line = start.line; line <= end.line; ++line) {
        const char* text = lines.lineText[line];
        const int from = line == start.line ? start.column : 0;
        const int to = line == end.line ? end.column : LineLength(lines, line);
        std::memcpy(out, text + from, static_cast<size_t>(to - from));
        out += to - from;
        if (line != end.line) {
            std::memcpy(out, separator.data(), separator.size());
            out += separator.size();
        }
    }
}

} // namespace

TextPos ClampPos(const EditBuffer& buffer, int32_t line, int32_t column) {
    const LineList& lines = buffer.lines;
    if (lines.lineCount <= 0 || lines.lineText == nullptr) return MakePos(0, 0);
    if (line < 1) line = 0;
    if (line >= lines.lineCount) line = lines.lineCount - 1;
    if (column < 1) column = 0;
    const int length = LineLength(lines, line);
    if (column > length) column = length;
    return MakePos(line, column);
}

int32_t ClampTopLine(const EditBuffer& buffer, int32_t value) {
    const int32_t last = buffer.lines.lineCount - buffer.visibleLines;
    return std::max(0, std::min(value, last));
}

int DisplayColumn(const char* lineText, int column) {
    if (lineText == nullptr || column <= 0) return 0;
    // Up to the first tab every byte is one column; this runs on every keystroke.
    const size_t plain = strnlen(lineText, static_cast<size_t>(column));
    const void* tab = std::memchr(lineText, '\t', plain);
    if (tab == nullptr) return column; // past the end: one each as well
    const int tabSize = TabSize();
    int screen = static_cast<int>(static_cast<const char*>(tab) - lineText);
    for (int i = screen; i < column; ++i) {
        if (lineText[i] == '\0') return screen + (column - i); // past the end: one each
        screen += lineText[i] == '\t' ? tabSize - screen % tabSize : 1;
    }
    return screen;
}

TextPos ColumnFromDisplay(const EditBuffer& buffer, int32_t line, int screenColumn) {
    TextPos pos = ClampPos(buffer, line, 0);
    if (buffer.lines.lineCount <= 0) return pos;
    const char* text = buffer.lines.lineText[pos.line];
    const int tabSize = TabSize();
    int screen = 0;
    int column = 0;
    while (screen < screenColumn && text[column] != '\0') {
        screen += text[column] == '\t' ? tabSize - screen % tabSize : 1;
        ++column;
    }
    pos.column = column;
    return pos;
}

TextPos NextPos(const EditBuffer& buffer, TextPos pos) {
    pos = ClampPos(buffer, pos.line, pos.column);
    if (buffer.lines.lineCount <= 0) return pos;
    if (pos.column < LineLength(buffer.lines, pos.line)) return MakePos(pos.line, pos.column + 1);
    if (pos.line + 1 < buffer.lines.lineCount) return MakePos(pos.line + 1, 0);
    return pos;
}

TextPos PrevPos(const EditBuffer& buffer, TextPos pos) {
    pos = ClampPos(buffer, pos.line, pos.column);
    if (pos.column >= 1) return MakePos(pos.line, pos.column - 1);
    if (pos.line == 0) return pos;
    return ClampPos(buffer, pos.line - 1, MaxLineLength);
}

TextPos EndOfInsertion(TextPos start, std::string_view text) {
    const size_t last = text.rfind('\n');
    if (last == std::string_view::npos)
        return MakePos(start.line, start.column + static_cast<int32_t>(text.size()));
    return MakePos(start.line + CountNewlines(text), static_cast<int32_t>(text.size() - last - 1));
}

int CountNewlines(std::string_view text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

char* GetRangeText(const EditBuffer& buffer, TextPos start, TextPos end, bool useCRLF) {
    const std::string_view separator = useCRLF ? "\r\n" : "\n";
    start = ClampPos(buffer, start.line, start.column);
    end = ClampPos(buffer, end.line, end.column);
    const bool empty = !PosLess(start, end);
    const size_t size = empty ? 0 : RangeSize(buffer.lines, start, end, separator.size());
    char* text = static_cast<char*>(Allocate(nullptr, 0, static_cast<long>(size) + 1, 1));
    if (text == nullptr) return nullptr;
    if (!empty) CopyRange(buffer.lines, start, end, separator, text);
    text[size] = '\0';
    return text;
}

std::string RangeText(const EditBuffer& buffer, TextPos start, TextPos end) {
    start = ClampPos(buffer, start.line, start.column);
    end = ClampPos(buffer, end.line, end.column);
    if (!PosLess(start, end)) return {};
    std::string text(RangeSize(buffer.lines, start, end, 1), '\0');
    CopyRange(buffer.lines, start, end, "\n", text.data());
    return text;
}

bool TextStandsAt(const EditBuffer& buffer, TextPos start, std::string_view text) {
    if (text.empty()) return true;
    const LineList& lines = buffer.lines;
    int32_t line = start.line;
    int column = start.column;
    if (line < 0 || line >= lines.lineCount || column < 0) return false;
    size_t from = 0;
    for (;;) {
        const size_t lineFeed = text.find('\n', from);
        const char* lineText = lines.lineText[line];
        const int length = LineLength(lines, line);
        if (column > length) return false;
        const std::string_view rest(lineText + column, static_cast<size_t>(length - column));
        if (lineFeed == std::string_view::npos) return rest.starts_with(text.substr(from));
        if (rest != text.substr(from, lineFeed - from)) return false;
        ++line;
        column = 0;
        from = lineFeed + 1;
        if (line >= lines.lineCount) return false;
    }
}

namespace {

// Inserts text at line/column; every check comes before any change.
int InsertPieces(EditBuffer& buffer, std::string_view text, int32_t line, int32_t column,
                 bool dropCarriageReturns) {
    if (text.empty()) return 1;
    LineList& lines = buffer.lines;
    if (line < 0 || line >= lines.lineCount) return 0;
    const char* oldLine = lines.lineText[line];
    const int length = LineLength(lines, line);
    column = std::clamp(column, 0, length);
    const std::string_view head(oldLine, static_cast<size_t>(column));
    const std::string_view tail(oldLine + column, static_cast<size_t>(length - column));

    const size_t firstLineFeed = text.find('\n');
    if (firstLineFeed == std::string_view::npos) {
        if (text.size() + head.size() + tail.size() > MaxLineLength) return 0;
        char* joined = NewLine(head, text, tail);
        if (joined == nullptr) return 0;
        ReleaseLine(&lines, lines.lineText[line]);
        lines.lineText[line] = joined;
        lines.modified = 1;
        return 1;
    }

    // The first check counts a carriage return before the line feed: it is slightly stricter
    // than the line that results, and kept that way.
    const size_t lastLineFeed = text.rfind('\n');
    const std::string_view after = text.substr(lastLineFeed + 1);
    if (firstLineFeed + head.size() > MaxLineLength) return 0;
    if (tail.size() + after.size() > MaxLineLength) return 0;
    for (size_t from = firstLineFeed + 1; from <= lastLineFeed;) {
        const size_t lineFeed = text.find('\n', from);
        if (StoredPiece(text, from, lineFeed, dropCarriageReturns).size() > MaxLineLength) return 0;
        from = lineFeed + 1;
    }

    // Every new line is made before the array changes, so a failure leaves it untouched.
    std::vector<char*> made;
    made.reserve(static_cast<size_t>(CountNewlines(text)) + 1);
    bool failed = false;
    for (size_t from = 0; !failed;) {
        const size_t lineFeed = text.find('\n', from);
        char* piece = lineFeed == std::string_view::npos
                          ? NewLine({}, text.substr(from), tail)
                          : NewLine(from == 0 ? head : std::string_view{},
                                    StoredPiece(text, from, lineFeed, dropCarriageReturns), {});
        if (piece == nullptr)
            failed = true;
        else
            made.push_back(piece);
        if (lineFeed == std::string_view::npos) break;
        from = lineFeed + 1;
    }
    const int32_t added = static_cast<int32_t>(made.size()) - 1;
    if (failed || MakeRoom(&lines, line, added) != 0) {
        for (char* piece : made)
            Release(piece);
        return 0;
    }
    ReleaseLine(&lines, lines.lineText[line]);
    for (size_t i = 0; i < made.size(); ++i)
        lines.lineText[line + static_cast<int32_t>(i)] = made[i];
    lines.lineCount += added;
    lines.modified = 1;
    return 1;
}

} // namespace

int InsertText(EditBuffer& buffer, std::string_view text, int32_t line, int32_t column) {
    return InsertPieces(buffer, text, line, column, true);
}

int InsertExactText(EditBuffer& buffer, std::string_view text, int32_t line, int32_t column) {
    return InsertPieces(buffer, text, line, column, false);
}

std::string StoredText(std::string_view text) {
    std::string stored;
    stored.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r' || i + 1 >= text.size() || text[i + 1] != '\n') stored += text[i];
    return stored;
}

int ReplaceLine(EditBuffer& buffer, std::string_view text, int32_t line) {
    LineList& lines = buffer.lines;
    if (line < 0 || line >= lines.lineCount || text.size() > MaxLineLength) return 0;
    char* copy = NewLine(text, {}, {});
    if (copy == nullptr) return 0;
    ReleaseLine(&lines, lines.lineText[line]);
    lines.lineText[line] = copy;
    lines.modified = 1;
    return 1;
}

int DeleteRange(EditBuffer& buffer, TextPos start, TextPos end) {
    if (!PosLess(start, end)) return 1;
    LineList& lines = buffer.lines;
    if (start.line < 0) start = MakePos(0, 0);
    if (start.line >= lines.lineCount) return 1;
    start.column = std::clamp(start.column, 0, LineLength(lines, start.line));

    // An end past the last line deletes to the end of the text.
    const int32_t lastLine = std::min(end.line, lines.lineCount - 1);
    std::string_view suffix;
    if (end.line < lines.lineCount) {
        const int length = LineLength(lines, end.line);
        const int from = std::clamp(end.column, 0, length);
        suffix =
            std::string_view(lines.lineText[end.line] + from, static_cast<size_t>(length - from));
    }
    if (static_cast<size_t>(start.column) + suffix.size() > MaxLineLength) return 0;

    char* first = lines.lineText[start.line];
    if (lastLine == start.line) {
        // Within one line the string only shrinks: move the suffix down in place.
        if (suffix.empty())
            first[start.column] = '\0';
        else
            std::memmove(first + start.column, suffix.data(), suffix.size() + 1);
        lines.modified = 1;
        return 1;
    }
    char* joined = NewLine(std::string_view(first, static_cast<size_t>(start.column)), suffix, {});
    if (joined == nullptr) return 0;
    for (int32_t line = start.line; line <= lastLine; ++line)
        ReleaseLine(&lines, lines.lineText[line]);
    lines.lineText[start.line] = joined;
    RemoveLines(&lines, start.line + 1, lastLine - start.line);
    lines.modified = 1;
    return 1;
}

} // namespace ruvo
