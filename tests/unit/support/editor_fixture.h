// A fresh Editor on a FakeHost for each test.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "engine/editor.h"
#include "fake_host.h"

namespace ruvo {

class EditorTest : public ::testing::Test {
  protected:
    EditorTest() { InstallEditor(&editor); }

    FakeHost host;
    // Uninstalls the editor once it is gone: its state is released while it is installed.
    struct Uninstall {
        ~Uninstall() { InstallEditor(nullptr); }
    } uninstall;
    Editor editor{host};
};

// Folder of the checkout, for the shipped config/ files and tests/fixtures/.
inline std::string SourcePath(const std::string& relative) {
    return std::string(RUVO_SOURCE_DIR) + "/" + relative;
}

} // namespace ruvo
