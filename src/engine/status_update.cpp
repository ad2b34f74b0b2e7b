// Status panes of the current buffer, set from a cache so that unchanged panes stay untouched.
#include "engine/status_update.h"

#include <algorithm>
#include <cstdio>

#include "commands/command_table.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/text_store.h"
#include "host/host.h"

namespace ruvo {

int PositionText(int32_t line, int32_t displayColumn, char* out, int capacity) {
    if (capacity <= 0) return 0;
    const int written =
        std::snprintf(out, static_cast<size_t>(capacity), PositionFormat, line + 1, displayColumn);
    return std::clamp(written, 0, capacity - 1);
}

bool UpdateStatus(const EditBuffer& buffer) {
    Editor& editor = TheEditor();
    if (editor.engine.currentBuffer != &buffer) return false;
    StatusCache& cache = editor.engine.display.status;
    const LineList& lines = buffer.lines;
    const int32_t line = buffer.cursor.line;
    const char* text = line >= 0 && line < lines.lineCount ? lines.lineText[line] : "";
    const int32_t column = DisplayColumn(text, buffer.cursor.column);

    const bool fresh = cache.line < 0; // nothing shown yet, or forgotten
    bool caretMoved = false;
    if (line != cache.line || column != cache.column) {
        cache.line = line;
        cache.column = column;
        caretMoved = true;
        char position[40];
        PositionText(line, column, position, sizeof position);
        editor.host.SetStatusPane(StatusPanePosition, position, false);
    }

    const bool readOnly = lines.readOnly != 0;
    const bool modified = lines.modified != 0;
    if (readOnly) {
        if (fresh || !cache.readOnly) {
            cache.readOnly = true;
            editor.host.SetStatusPane(StatusPaneFileState, ReadonlyText, false);
        }
    } else if (fresh || cache.readOnly || modified != cache.modified) {
        // Leaving a read-only buffer shows the new one's state even when "modified" agrees.
        cache.readOnly = false;
        cache.modified = modified;
        editor.host.SetStatusPane(StatusPaneFileState, modified ? ModifiedText : "", false);
        SetCommandsEnabled(NeedsModified, modified);
    }

    editor.host.SetStatusPane(
        StatusPaneMode, editor.engine.overwriteMode ? OverwriteModeText : InsertModeText, false);
    return caretMoved;
}

void ForgetStatus() {
    StatusCache& cache = TheEditor().engine.display.status;
    cache = StatusCache{};
}

} // namespace ruvo
