// Edit buffers: the one way to create, visit and close them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace ruvo {

struct EditBuffer;

constexpr int MaxFileName = 256; // fileName and fullPath hold up to 255 characters

// Opens `name` in a new edit window (kind 1 document, 2 message window). 0 on success or
// when the user chose not to open; 1 when the user declined to create a missing file or
// memory ran out.
int openFile(std::string_view name, int createNew, int readOnly, int kind);
// NewFile / LoadFile; with a name it opens that name without a dialog.
void newOrOpen(std::string_view name, int createNew);
// True when the name begins with "Untitled" (case-sensitive).
bool isUnnamed(std::string_view name);
// Absolute names unchanged; otherwise "<current directory>\<name>"; empty for no name.
std::string fullPathOf(std::string_view name);
// Calls visit for each open buffer in creation order; stops at the first that returns 0.
// 1 when every call returned non-zero.
int forEachBuffer(const std::function<int(EditBuffer&)>& visit);
// The open buffer with this full path (exact comparison), or null.
EditBuffer* findBufferByPath(std::string_view fullPath);
// Called by the shell when an edit window is destroyed: the text and the log are freed,
// the name goes to the recent list, the record stays readable with closedFlags bit 0 set.
void closeBuffer(EditBuffer& buffer);

} // namespace ruvo
