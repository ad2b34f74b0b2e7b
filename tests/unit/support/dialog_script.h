// Finding the gadgets of a dialog in tests, by caption or by the label in front of them.
#pragma once

#include <string_view>

#include "dialogs/gadget_dialog.h"

namespace ruvo {

// The first gadget whose caption is `text`, or null.
inline Gadget* GadgetWithText(GadgetDialog& dialog, std::string_view text) {
    for (auto& gadget : dialog.gadgets)
        if (gadget->text == text) return gadget.get();
    return nullptr;
}

// The gadget created right after the one captioned `label` (an edit after its label), or null.
inline Gadget* GadgetAfter(GadgetDialog& dialog, std::string_view label) {
    for (size_t i = 0; i + 1 < dialog.gadgets.size(); ++i)
        if (dialog.gadgets[i]->text == label) return dialog.gadgets[i + 1].get();
    return nullptr;
}

} // namespace ruvo
