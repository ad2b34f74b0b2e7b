// The Win32 half of the dialog builder as the message loop sees it.
#pragma once

#include <windows.h>

namespace ruvo {

// Name of the one empty dialog template every builder dialog is made on (res/ruvo.rc).
constexpr const char* GadgetDialogTemplate = "GadgetDialog";

// Offers a message to every open modeless builder dialog (Tab, Enter, Escape, mnemonics);
// true when one of them took it.
bool IsModelessDialogMessage(MSG* message);

} // namespace ruvo
