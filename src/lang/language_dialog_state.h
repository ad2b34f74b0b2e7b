// State of the "Language Configuration" dialog: its gadgets and what Cancel needs.
#pragma once

#include <utility>
#include <vector>

#include "dialogs/dialog_owner.h"
#include "lang/language_table.h"

namespace ruvo {

struct EditBuffer;
struct Gadget;

struct LanguageDialogState {
    OwnedGadgetDialog dialog;    // built on first use
    Gadget* languages = nullptr; // names of the used entries
    Gadget* addButton = nullptr;
    Gadget* deleteButton = nullptr;
    Gadget* optionsFile = nullptr; // "Files" page
    Gadget* extensions = nullptr;
    Gadget* filter = nullptr;
    Gadget* caseSensitive = nullptr; // "Syntax" page
    Gadget* beginComment = nullptr;
    Gadget* endComment = nullptr;
    Gadget* lineComment = nullptr;
    Gadget* syntaxItems = nullptr; // "Colors" page
    Gadget* colorParts[3] = {};    // red, green, blue
    Gadget* typefaceBits[3] = {};  // bold, italic, underline
    bool filling = false;          // the dialog is filling its own fields: no change handlers
    int shown = 0;                 // entry the fields show
    // Entry of the backup each entry came from (-1: added since the dialog opened), and the
    // buffers whose language was deleted, with their entry in the backup.
    int origin[LanguageCount] = {0, 1, 2, 3, 4, 5};
    std::vector<std::pair<EditBuffer*, int>> dropped;
};

} // namespace ruvo
