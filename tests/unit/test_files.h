// Files for tests: a private temporary folder and file, bytes in and out, INI text read into the
// fake profile, and the start-up report's lines.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "buffer_builder.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "engine/line_list.h"
#include "fake_host.h"

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

// A file in a private temporary folder, removed with it at the end of the test.
class TempFile {
  public:
    explicit TempFile(const std::string& content) { WriteBytes(path_, content); }
    const std::string& path() const { return path_; }

  private:
    TempFolder folder_;
    std::string path_ = folder_.File("file");
};

// Reads INI text into the fake profile: "[section]" lines and "key=value" lines.
inline void LoadIniIntoProfile(FakeHost& host, const std::string& text) {
    std::istringstream in(text);
    std::string section;
    for (std::string line; std::getline(in, line);) {
        const size_t equals = line.find('=');
        if (line.starts_with('['))
            section = line.substr(1, line.find(']') - 1);
        else if (equals != std::string::npos)
            host.SetProfile(section, line.substr(0, equals), line.substr(equals + 1));
    }
}

inline std::vector<std::string> ReportedLines(const Editor& editor) {
    std::vector<std::string> lines;
    const LineList* list = editor.settings.startupErrors.lines;
    for (int i = 3; list != nullptr && i < list->lineCount; ++i)
        lines.emplace_back(list->lineText[i]);
    return lines;
}

} // namespace ruvo
