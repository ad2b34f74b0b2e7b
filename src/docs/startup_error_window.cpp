// The "startup.err" message window that shows the start-up error log.
#include "docs/startup_error_window.h"

#include <cstring>

#include "docs/documents.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/transaction_log.h"
#include "host/host.h"

namespace ruvo {

namespace {

EditBuffer* OpenStartupWindow() {
    for (EditBuffer* buffer : TheEditor().documents.buffers)
        if (std::strcmp(buffer->fileName, StartupErrorName) == 0 && (buffer->windowKind & 1) == 0)
            return buffer;
    return nullptr;
}

void FillFromLog(EditBuffer& buffer) {
    const LineList* log = TheEditor().settings.startupErrors.lines;
    ClearLineList(&buffer.lines);
    if (log != nullptr)
        for (int32_t i = 0; i < log->lineCount; ++i)
            if (AppendLine(&buffer.lines, log->lineText[i]) != 0) break;
    if (buffer.lines.lineCount == 0) (void)AppendLine(&buffer.lines, "");
    buffer.lines.modified = 0;
    buffer.cursor = buffer.anchor = buffer.selStart = buffer.selEnd = TextPos{};
    buffer.topLine = buffer.leftColumn = 0;
    ResetTransactionLog(buffer); // the old text's edits no longer apply
}

} // namespace

void ShowStartupErrors() {
    Editor& editor = TheEditor();
    if (EditBuffer* existing = OpenStartupWindow()) {
        FillFromLog(*existing);
        editor.host.RedrawWindow(*existing);
        editor.host.ActivateEditWindow(*existing);
        editor.host.UpdateCaretAndStatus(*existing);
        return;
    }
    if (openFile(StartupErrorName, 1, 0, KindMessage) != 0) return;
    EditBuffer* created = editor.engine.currentBuffer;
    if (created == nullptr || std::strcmp(created->fileName, StartupErrorName) != 0) return;
    FillFromLog(*created);
    editor.host.RedrawWindow(*created);
    editor.host.UpdateCaretAndStatus(*created);
}

} // namespace ruvo
