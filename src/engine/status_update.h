// The status panes that follow the current buffer: caret position, insert mode, file state.
#pragma once

#include <cstdint>

namespace ruvo {

struct EditBuffer;

constexpr int StatusPanePosition = 0;
constexpr int StatusPaneMode = 1;
constexpr int StatusPaneFileState = 2;

constexpr const char* PositionFormat = " %3d : %-3d";
constexpr const char* InsertModeText = "Insert";
constexpr const char* OverwriteModeText = "Overwrite";
constexpr const char* ReadonlyText = "Readonly";
constexpr const char* ModifiedText = "Modified";

// " %3d : %-3d" with the 1-based line and the 0-based screen column.
int PositionText(int32_t line, int32_t displayColumn, char* out, int capacity);

// Brings panes 0 to 2 in line with the current buffer, setting only what changed, and greys
// or enables the commands that need a modified buffer when that state changed. Returns true
// when the caret went to another line or screen column (the shell then places it). Other
// buffers than the current one are left alone.
bool UpdateStatus(const EditBuffer& buffer);
// The next update sets every pane again (the status line was cleared or another buffer shows).
void ForgetStatus();

} // namespace ruvo
