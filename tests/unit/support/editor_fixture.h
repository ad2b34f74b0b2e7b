// A fresh Editor on a FakeHost for each test, and the gadgets of its dialogs found by caption or
// by the label in front of them.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "dialogs/gadget_dialog.h"
#include "fake_host.h"

namespace ruvo {

class EditorTest : public ::testing::Test, protected InstalledEditor {};

// Folder of the checkout, for the shipped config/ files and tests/fixtures/.
inline std::string SourcePath(const std::string& relative) {
    return std::string(RUVO_SOURCE_DIR) + "/" + relative;
}

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
