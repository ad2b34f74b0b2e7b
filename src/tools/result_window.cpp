// The "ToolResult" window: its header, output appended while a program runs, result files.
#include "tools/result_window.h"

#include <string>
#include <utility>

#include "docs/documents.h"
#include "docs/file_reading.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/text_store.h"
#include "engine/transaction_log.h"
#include "host/host.h"
#include "settings/path_names.h"
#include "tools/error_list.h"
#include "tools/tool_messages.h"

namespace ruvo {

namespace {

// Output lines are cut into pieces of this length, as file reading does.
constexpr size_t OutputPieceLength = 254;
constexpr int32_t FarColumn = 1000; // clamped to the end of the last line

ToolsState& Tools() {
    return TheEditor().tools;
}

// Appends text whose lines are separated by line feeds to the last line, cutting lines
// after OutputPieceLength bytes. False when memory ran out (the lines made so far stay).
bool AppendLines(EditBuffer& buffer, std::string_view text) {
    LineList& lines = buffer.lines;
    if (lines.lineCount == 0 && AppendLine(&lines, "") != 0) return false;
    std::string current = lines.lineText[lines.lineCount - 1];
    bool first = true; // `current` is still the buffer's last line
    bool whole = true;
    auto flush = [&] {
        if (first) {
            whole = whole && ReplaceLine(buffer, current, lines.lineCount - 1) == 1;
            first = false;
        } else {
            whole = whole && AppendLine(&lines, current) == 0;
        }
        current.clear();
    };
    for (char c : text) {
        if (c == '\r') continue;
        if (c == '\n') {
            flush();
            continue;
        }
        if (current.size() == OutputPieceLength) flush();
        current += c;
    }
    flush();
    return whole;
}

// Puts the lines in place of the buffer's text, with the caret at the top and a new history.
void ReplaceResultText(EditBuffer& buffer, LineList& lines) {
    ClearLineList(&buffer.lines);
    std::swap(buffer.lines.lineCount, lines.lineCount);
    std::swap(buffer.lines.capacity, lines.capacity);
    std::swap(buffer.lines.lineText, lines.lineText);
    std::swap(buffer.lines.slabs, lines.slabs);
    buffer.cursor = buffer.anchor = buffer.selStart = buffer.selEnd = TextPos{};
    buffer.topLine = buffer.leftColumn = 0;
    ResetTransactionLog(buffer);
}

} // namespace

void EmptyResultBuffer(EditBuffer& buffer) {
    LineList empty;
    (void)AppendLine(&empty, "");
    ReplaceResultText(buffer, empty);
}

bool IsOpen(const EditBuffer* buffer) {
    return buffer != nullptr && !buffer->IsClosed();
}

EditBuffer* OpenResultBuffer() {
    EditBuffer* result = Tools().resultBuffer;
    return IsOpen(result) ? result : nullptr;
}

EditBuffer* openResultWindow(std::string_view title, std::string_view commandLine) {
    Editor& editor = TheEditor();
    // The header is made aside first: when memory runs out, the windows stay as they were.
    EditBuffer header;
    header.lines.growBy = 16;
    const bool made = AppendLines(header, "\n") && AppendLines(header, commandLine) &&
                      AppendLines(header, "\n\n");
    EditBuffer* result = OpenResultBuffer();
    const bool reused = result != nullptr;
    if (made && !reused && openFile(ResultWindowName, 1, 1, KindMessage) == 0)
        result = Tools().resultBuffer = editor.engine.currentBuffer;
    if (!made || result == nullptr) {
        ClearLineList(&header.lines);
        return nullptr;
    }
    // The old list spoke of the text that goes now.
    discardErrors();
    ReplaceResultText(*result, header.lines);
    if (reused) editor.host.ActivateEditWindow(*result);
    editor.host.SetWindowTitle(*result, title);
    editor.host.RedrawWindow(*result);
    editor.host.UpdateCaretAndStatus(*result);
    return result;
}

void appendToolOutput(EditBuffer& buffer, std::string_view chunk) {
    if (buffer.IsClosed()) return;
    (void)AppendLines(buffer, chunk);
    buffer.lines.modified = 0;
    const TextPos end = ClampPos(buffer, buffer.lines.lineCount, FarColumn);
    RecordEdit(buffer, end, end, "", end, ScrollTarget{}, end, end);
    TheEditor().host.RedrawWindow(buffer);
}

int runProcess(std::string_view commandLine, std::string_view workingDirectory,
               EditBuffer& resultBuffer) {
    Host& host = TheEditor().host;
    const bool ran = host.RunProcess(commandLine, workingDirectory, [&](std::string_view chunk) {
        appendToolOutput(resultBuffer, chunk);
    });
    if (ran) return 0;
    host.ErrorBox(nullptr, "Can not create process '" + std::string(commandLine) + "'");
    return 1;
}

namespace {

// The errors of the output, when a format is given and the source is still open; then both
// windows are drawn again.
void ReadErrors(EditBuffer& result, ErrorMode errorMode) {
    Host& host = TheEditor().host;
    host.RedrawWindow(result);
    if (errorMode == ErrorMode::Formats) {
        // A user tool's messages name their files: no source needs to be open.
        buildErrorList(result, errorMode, "");
        RedrawDocuments();
        return;
    }
    EditBuffer* source = Tools().sourceBuffer;
    if (!IsOpen(source)) return;
    if (errorMode != ErrorMode::None) {
        const std::string name = FileNamePart(source->fileName).value_or("");
        buildErrorList(result, errorMode, name);
    }
    host.RedrawWindow(*source);
}

} // namespace

int runWithResultWindow(std::string_view title, std::string_view commandLine,
                        std::string_view workingDirectory, ErrorMode errorMode) {
    EditBuffer* result = openResultWindow(title, commandLine);
    if (result == nullptr) return 1;
    const int ran = runProcess(commandLine, workingDirectory, *result);
    if (!result->IsClosed()) ReadErrors(*result, errorMode);
    return ran;
}

void loadResultFile(std::string_view fileName, std::string_view title, ErrorMode errorMode) {
    Editor& editor = TheEditor();
    discardErrors();
    EditBuffer* result = OpenResultBuffer();
    if (result != nullptr) {
        EmptyResultBuffer(*result);
        ClearLineList(&result->lines);
        (void)readFileIntoBuffer(*result, fileName);
    } else {
        if (openFile(fileName, 0, 1, KindMessage) != 0) return;
        result = editor.engine.currentBuffer;
        if (result == nullptr) return;
        Tools().resultBuffer = result;
    }
    ReadErrors(*result, errorMode);
    editor.host.SetWindowTitle(*result, title);
    editor.host.RedrawWindow(*result);
}

} // namespace ruvo
