// Noticing files changed by other programs, and reloading them.
#pragma once

namespace ruvo {

struct EditBuffer;

// Asks about reloading when the buffer's file is newer than when it was last read or
// written. Always 1, so that it can be applied to every buffer in turn.
int checkChangedOnDisk(EditBuffer& buffer);
// The pass the frame runs when it gets the keyboard focus; it does not start again while
// it runs (its own question boxes move the focus).
void checkAllChangedOnDisk();
// Reads the file again into the buffer; the undo log is left as it is.
// 0 on success, 1 when the file could not be opened (the buffer is unchanged).
int reloadBuffer(EditBuffer& buffer);

} // namespace ruvo
