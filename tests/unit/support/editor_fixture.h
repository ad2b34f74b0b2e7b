// A fresh Editor on a FakeHost for each test.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "installed_editor.h"

namespace ruvo {

class EditorTest : public ::testing::Test, protected InstalledEditor {};

// Folder of the checkout, for the shipped config/ files and tests/fixtures/.
inline std::string SourcePath(const std::string& relative) {
    return std::string(RUVO_SOURCE_DIR) + "/" + relative;
}

} // namespace ruvo
