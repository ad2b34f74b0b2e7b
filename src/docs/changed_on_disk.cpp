// Noticing files changed by other programs, and reloading them.
#include "docs/changed_on_disk.h"

#include <cstdio>
#include <optional>
#include <string>

#include "commands/command_table.h"
#include "docs/documents.h"
#include "docs/file_reading.h"
#include "docs/file_status.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/text_store.h"
#include "host/host.h"

namespace ruvo {

namespace {

// Keeps the caret, anchor, selection and scroll position inside the text after a reload.
void KeepPositionsValid(EditBuffer& buffer) {
    const int32_t lastLine = buffer.lines.lineCount - 1;
    buffer.cursor = ClampPos(buffer, buffer.cursor.line, buffer.cursor.column);
    buffer.selStart = buffer.cursor;
    buffer.selEnd = buffer.cursor;
    buffer.anchor = buffer.cursor;
    if (buffer.topLine > lastLine) buffer.topLine = lastLine;
}

} // namespace

int checkChangedOnDisk(EditBuffer& buffer) {
    if (isUnnamed(buffer.fileName) || buffer.windowKind == KindMessage) return 1;
    const std::optional<FileStatus> status = fileStatus(buffer.fullPath);
    if (!status || status->modTime <= buffer.fileTime) return 1;
    const std::string question =
        "The file: " + std::string(buffer.fullPath) + " has changed\nDo you want to reload it?";
    if (TheEditor().host.QuestionBox("File changed", question, QuestionKind::YesNo) == AnswerYes)
        (void)reloadBuffer(buffer);
    else
        buffer.fileTime = status->modTime; // not asked again until it changes again
    return 1;
}

void checkAllChangedOnDisk() {
    DocumentState& documents = TheEditor().documents;
    if (documents.checkingChangedOnDisk) return;
    documents.checkingChangedOnDisk = true;
    (void)forEachBuffer(checkChangedOnDisk);
    documents.checkingChangedOnDisk = false;
}

int reloadBuffer(EditBuffer& buffer) {
    Host& host = TheEditor().host;
    std::FILE* file = std::fopen(buffer.fullPath, "rb");
    if (file == nullptr) {
        host.ErrorBox(nullptr, "Cannot open file '" + std::string(buffer.fullPath) +
                                   "' to refresh the window contents.");
        return 1;
    }
    // Read beside the old text, which stays when memory runs out.
    LineList fresh;
    fresh.growBy = buffer.lines.growBy;
    fresh.readOnly = buffer.lines.readOnly;
    const long count = readLines(file, fresh);
    std::fclose(file);
    if (count < 0 || (fresh.lineCount == 0 && AppendLine(&fresh, "") != 0)) {
        ClearLineList(&fresh);
        return 1;
    }
    ClearLineList(&buffer.lines);
    std::swap(buffer.lines, fresh);
    const std::optional<FileStatus> status = fileStatus(buffer.fullPath);
    buffer.fileTime = status ? status->modTime : 0;
    KeepPositionsValid(buffer);
    host.RedrawWindow(buffer);
    host.UpdateCaretAndStatus(buffer);
    UpdateCommandStates(); // modified and the selection were cleared
    return 0;
}

} // namespace ruvo
