// Fuzzes find and replace with any text and options. Input: a byte of choices, two bytes of
// caret and selection, the search text, a line feed, the new text, a line feed, the buffer.
// Undoing every replacement must give back the text searched.
#include <cstring>

#include "aids/aids_state.h"
#include "aids/text_search.h"
#include "fuzz_session.h"

using namespace ruvo;

namespace {

TextPos PosFrom(const EditBuffer& buffer, uint8_t byte) {
    const int32_t line = byte % buffer.lines.lineCount;
    const int32_t length = static_cast<int32_t>(std::strlen(buffer.lines.lineText[line]));
    return MakePos(line, (byte / 8) % (length + 1));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 3) return 0;
    InstalledEditor session;
    const uint8_t choices = data[0];
    std::vector<std::string_view> lines = SplitLines(AsText(data + 3, size - 3));
    if (lines.size() > 400) return 0;
    SearchState state;
    state.searchText = std::string(lines.empty() ? "" : CText(lines[0]).substr(0, MaxSearchText));
    state.replaceText =
        std::string(lines.size() < 2 ? "" : CText(lines[1]).substr(0, MaxSearchText));
    state.replaceMode = choices & 1;
    state.fromCursor = choices & 2;
    state.selectedOnly = choices & 4;
    state.forward = !(choices & 8);
    state.caseSensitive = choices & 16;
    state.wholeWords = choices & 32;
    state.replaceAll = choices & 64;
    state.prompt = choices & 128;
    lines.erase(lines.begin(), lines.begin() + std::min<size_t>(2, lines.size()));

    TestBuffer buffer(BufferText(lines));
    const std::vector<std::string> before = LinesOf(*buffer);
    const TextPos anchor = PosFrom(*buffer, data[1]);
    const TextPos caret = PosFrom(*buffer, data[2]);
    buffer.Select(anchor, caret);

    TextPos found;
    if (searchInBuffer(*buffer, state.searchText, state.caseSensitive, state.wholeWords, anchor,
                       caret, found) &&
        (found.line < 0 || found.line >= buffer->lines.lineCount))
        std::abort();
    RunSearch(*buffer, state);
    CheckLines(*buffer);
    RepeatSearch(*buffer, state);
    CheckLines(*buffer);
    while (UndoTransaction() == 0) {
    }
    if (LinesOf(*buffer) != before) std::abort();
    return 0;
}
