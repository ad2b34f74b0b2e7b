// State of the "Options" dialog: built once, its gadgets kept for refreshing and reading.
#pragma once

#include "dialogs/dialog_owner.h"

namespace ruvo {

struct Gadget;

struct OptionsDialogState {
    OwnedGadgetDialog dialog; // built on first use
    Gadget* colors = nullptr; // "Window" page
    Gadget* lineNumbers = nullptr;
    Gadget* maximizeFirst = nullptr;
    Gadget* autoIndent = nullptr;
    Gadget* backupFile = nullptr;
    Gadget* tabSize = nullptr;
    Gadget* fontNames = nullptr; // "Font" page
    Gadget* fontSize = nullptr;
    Gadget* languages = nullptr;      // "Language" page
    Gadget* buttonPosition = nullptr; // "Buttons" page: 0 on top, 1 left side
    Gadget* saveOnExit = nullptr;     // below the pages
    Gadget* saveNow = nullptr;
};

} // namespace ruvo
