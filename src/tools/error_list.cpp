// The error list: built from the result window's lines, shown in the margin, stepped through.
#include "tools/error_list.h"

#include <algorithm>
#include <string>

#include "commands/command_table.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "host/host.h"
#include "tools/message_location.h"
#include "tools/result_window.h"
#include "tools/tool_messages.h"

namespace ruvo {

namespace {

constexpr int ToolPane = 3;
constexpr int32_t LineEndColumn = 255; // clamped to the end of the line
constexpr int32_t ListEnd = -1;        // resultLine of the entry that closes the list
constexpr TextPos Origin = MakePos(0, 0);
constexpr const char* SourceRemoved = "Source window has been removed.";

ToolsState& Tools() {
    return TheEditor().tools;
}

// Selects a whole line with the caret at its start, or at a byte column of it.
void SelectLine(EditBuffer& buffer, int32_t line, ScrollTarget scroll, int32_t caretColumn = 0) {
    const TextPos start = MakePos(line, 0);
    RecordEdit(buffer, Origin, Origin, "", MakePos(line, caretColumn), scroll, start,
               ClampPos(buffer, line, LineEndColumn));
}

// Whether any entry of the list may be about this buffer (the margin asks for every window).
bool ListCovers(const EditBuffer& buffer) {
    return &buffer == Tools().sourceBuffer || Tools().activeParser == ErrorMode::Formats;
}

// The source line of the entry in this buffer, or 0 when the entry is about another file.
int32_t SourceLineIn(const ErrorEntry& entry, const EditBuffer& buffer) {
    if (!entry.file.empty()) return EntryIsIn(entry, buffer) ? entry.sourceLine : 0;
    return &buffer == Tools().sourceBuffer ? entry.sourceLine : 0;
}

bool MarginEntry(const EditBuffer& buffer, int32_t index, MarginError& out) {
    const std::vector<ErrorEntry>& list = Tools().errorList;
    const auto size = static_cast<int32_t>(list.size());
    if (OpenResultBuffer() == nullptr || !ListCovers(buffer) || index < 0 || index > size)
        return false;
    if (index == size) {
        out = MarginError{0, ListEnd, 0};
        return true;
    }
    const ErrorEntry& entry = list[static_cast<size_t>(index)];
    out = MarginError{SourceLineIn(entry, buffer), entry.resultLine, entry.kind};
    return true;
}

void FollowCaret(EditBuffer& report, bool open) {
    if (&report == OpenResultBuffer()) showError(report.cursor.line, open);
}

bool ResultLineLess(const ErrorEntry& entry, int32_t line) {
    return entry.resultLine < line;
}

} // namespace

bool hasErrorList() {
    return OpenResultBuffer() != nullptr && !Tools().errorList.empty();
}

void ConnectErrorList(Editor& editor) {
    editor.commands.hasErrorList = hasErrorList;
    editor.engine.display.errorSource = MarginEntry;
    editor.engine.input.followMessage = FollowCaret;
}

void buildErrorList(EditBuffer& resultBuffer, ErrorMode mode, std::string_view sourceBaseName) {
    ToolsState& tools = Tools();
    const LineParser parse = mode == ErrorMode::Formats
                                 ? MakeFormatParser(tools.runFormat, tools.runDirectory)
                                 : MakeLineParser(mode, sourceBaseName);
    if (!parse) return;
    tools.activeParser = mode;
    tools.errorList.clear();
    const LineList& lines = resultBuffer.lines;
    for (int32_t line = 0; line < lines.lineCount; ++line) {
        std::optional<MessageLocation> message = parse(lines.lineText[line]);
        if (!message) continue;
        // Messages about the place of the entry just made are kept once, the first.
        if (!tools.errorList.empty()) {
            const ErrorEntry& last = tools.errorList.back();
            if (last.sourceLine == message->line && last.file == message->file) continue;
        }
        tools.errorList.push_back({message->line, line, EntryKind(message->severity),
                                   message->column, message->tabWidth, std::move(message->file)});
    }
    // The first NextError then shows the first entry.
    RecordEdit(resultBuffer, Origin, Origin, "", Origin, ScrollTarget{}, Origin, Origin);
    SetCommandsEnabled(NeedsErrorList, hasErrorList());
}

void discardErrors() {
    ToolsState& tools = Tools();
    tools.errorList.clear();
    tools.errorList.shrink_to_fit();
    const bool manyFiles = tools.activeParser == ErrorMode::Formats;
    tools.activeParser = ErrorMode::None;
    SetCommandsEnabled(NeedsErrorList, false);
    if (manyFiles) RedrawDocuments();
    if (IsOpen(tools.sourceBuffer)) TheEditor().host.RedrawWindow(*tools.sourceBuffer);
}

void clearErrors() {
    if (EditBuffer* result = OpenResultBuffer()) {
        EmptyResultBuffer(*result);
        RecordEdit(*result, Origin, Origin, "", Origin, ScrollTarget{}, Origin, Origin);
        TheEditor().host.RedrawWindow(*result);
    }
    discardErrors();
}

void showError(int32_t resultLine, bool activateSource) {
    ToolsState& tools = Tools();
    Host& host = TheEditor().host;
    EditBuffer* result = OpenResultBuffer();
    if (result == nullptr || tools.activeParser == ErrorMode::None) return;
    if (resultLine < 1 || resultLine >= result->lines.lineCount) return;
    // Entries of a user tool name their own files; the others belong to the compiled source.
    const bool ownFiles = tools.activeParser == ErrorMode::Formats;
    EditBuffer* source = tools.sourceBuffer;
    if (!ownFiles && !IsOpen(source)) {
        host.SetStatusPane(ToolPane, SourceRemoved, true);
        return;
    }
    const std::vector<ErrorEntry>& list = tools.errorList;
    const auto found = std::lower_bound(list.begin(), list.end(), resultLine, ResultLineLess);
    if (found == list.end() || found->resultLine != resultLine) return;
    // The message line is selected even when its source line lies outside the source, so
    // stepping goes on past it.
    SelectLine(*result, resultLine, ScrollTarget{});
    if (ownFiles) source = EntryWindow(*found, activateSource);
    if (source == nullptr) return;
    const int32_t sourceLine = found->sourceLine;
    if (sourceLine < 1 || sourceLine > source->lines.lineCount) return;
    const int32_t column = found->column > 0 ? ColumnToByte(source->lines.lineText[sourceLine - 1],
                                                            found->column, found->tabWidth)
                                             : 0;
    SelectLine(*source, sourceLine - 1, ScrollTarget{ScrollCentreIfHidden, ScrollShow}, column);
    if (activateSource) host.ActivateEditWindow(*source);
    host.SetStatusPane(ToolPane, result->lines.lineText[resultLine], false);
}

void nextError() {
    const EditBuffer* result = OpenResultBuffer();
    if (result == nullptr) return;
    const std::vector<ErrorEntry>& list = Tools().errorList;
    const int32_t caretLine = result->cursor.line;
    const auto next = std::find_if(list.begin(), list.end(), [caretLine](const ErrorEntry& e) {
        return e.resultLine > caretLine;
    });
    if (next != list.end()) showError(next->resultLine, true);
}

void prevError() {
    const EditBuffer* result = OpenResultBuffer();
    if (result == nullptr) return;
    const std::vector<ErrorEntry>& list = Tools().errorList;
    // The closing entry counts as at or after every line, so below the last message the
    // step goes to the last one.
    const auto atOrAfter =
        std::lower_bound(list.begin(), list.end(), result->cursor.line, ResultLineLess);
    if (atOrAfter != list.begin()) showError(std::prev(atOrAfter)->resultLine, true);
}

} // namespace ruvo
