// A fresh Editor on a FakeHost for each test.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "engine/editor.h"
#include "fake_host.h"

namespace ruvo {

class EditorTest : public ::testing::Test {
  protected:
    EditorTest() : owned(std::make_unique<Editor>(host)), editor(*owned) {
        InstallEditor(owned.get());
    }
    ~EditorTest() override {
        owned.reset(); // state is released while the editor is still installed
        InstallEditor(nullptr);
    }

    FakeHost host;
    std::unique_ptr<Editor> owned;
    Editor& editor;
};

// Folder of the checkout, for the shipped config/ files and tests/fixtures/.
inline std::string SourcePath(const std::string& relative) {
    return std::string(RUVO_SOURCE_DIR) + "/" + relative;
}

} // namespace ruvo
