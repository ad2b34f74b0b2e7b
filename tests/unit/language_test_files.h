// Helpers of the language tests: options files on disk and INI files read into the profile.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "fake_host.h"

namespace ruvo {

// A file in the test's temporary directory, removed again at the end of the test.
class TempFile {
  public:
    explicit TempFile(const std::string& content)
        : path_(::testing::TempDir() + "ruvo_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name() + "_" +
                std::to_string(serial_++) + ".lsf") {
        std::ofstream(path_, std::ios::binary) << content;
    }
    ~TempFile() { std::remove(path_.c_str()); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const std::string& path() const { return path_; }

  private:
    static inline int serial_ = 0;
    std::string path_;
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
