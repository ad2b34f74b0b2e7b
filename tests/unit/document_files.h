// Helpers of the document tests: a private temporary folder, file contents, buffer lines.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "buffer_builder.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"

namespace ruvo {

class TempFolder {
  public:
    ~TempFolder() { std::filesystem::remove_all(path_, ignored_); }
    std::string File(const std::string& name) const { return path_ + "/" + name; }

  private:
    std::string pattern_ = std::filesystem::temp_directory_path() / "ruvo-docs-XXXXXX";
    std::string path_ = mkdtemp(pattern_.data());
    std::error_code ignored_;
};

inline void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

inline std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Moves the file's modification time by `seconds` from now.
inline void TouchLater(const std::string& path, int seconds) {
    const auto now = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(path, now + std::chrono::seconds(seconds));
}

inline EditBuffer* Current() {
    return TheEditor().engine.currentBuffer;
}

} // namespace ruvo
