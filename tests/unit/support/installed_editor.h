// A fresh Editor on a FakeHost: for each test, each input of a fuzz target, or each allocation
// made to fail.
#pragma once

#include "engine/editor.h"
#include "fake_host.h"

namespace ruvo {

// Installed while it lives, so no state passes from one holder to the next. The editor goes
// (with its buffers) while still installed.
struct InstalledEditor {
    FakeHost host;
    struct Uninstall {
        ~Uninstall() { InstallEditor(nullptr); }
    } uninstall;
    Editor editor{host};
    InstalledEditor() { InstallEditor(&editor); }
    InstalledEditor(const InstalledEditor&) = delete;
    InstalledEditor& operator=(const InstalledEditor&) = delete;
};

} // namespace ruvo
