// The caret of the focused edit window: its shape for the typing mode and its place.
#pragma once

namespace ruvo {

struct EditBuffer;

// Destroys any old caret, makes one in the shape of the insert or overwrite mode for the
// buffer's window, places it and shows it.
void MakeCaret(EditBuffer& buffer);
// Moves the caret to the buffer's cursor, when the buffer's window owns the caret.
void PlaceCaret(EditBuffer& buffer);
// Hides and destroys the caret (the window lost the focus).
void DestroyEditCaret();

} // namespace ruvo
