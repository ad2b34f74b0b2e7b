// Copy, cut, paste and clear through the platform clipboard (text with CR LF line ends).
#pragma once

namespace ruvo {

int EditCopy();
int EditCut();
int EditPaste(); // 1 when the clipboard holds no text
int EditClear();
// Pushes whether the clipboard holds text to the commands that need it.
void UpdatePasteState();

} // namespace ruvo
