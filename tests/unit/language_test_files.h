// Helpers of the language tests: options files on disk and INI files read into the profile.
#pragma once

#include <sstream>
#include <string>

#include "document_files.h"
#include "fake_host.h"

namespace ruvo {

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

} // namespace ruvo
