// Helpers of the language tests: options files on disk and INI files read into the profile.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "fake_host.h"

namespace ruvo {

// A file in the test's temporary directory, removed again at the end of the test.
class TempFile {
  public:
    explicit TempFile(const std::string& content) {
        static int serial = 0;
        const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
        path_ =
            ::testing::TempDir() + "ruvo_" + test->name() + "_" + std::to_string(serial++) + ".lsf";
        std::ofstream(path_, std::ios::binary) << content;
    }
    ~TempFile() { std::remove(path_.c_str()); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

// Reads an INI file into the fake profile: "[section]" lines and "key=value" lines.
inline bool LoadIniIntoProfile(FakeHost& host, const std::string& path) {
    std::ifstream in(path);
    if (!in) return false;
    std::string line, section;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line[0] == ';') continue;
        if (line[0] == '[') {
            section = line.substr(1, line.find(']') - 1);
            continue;
        }
        const size_t equals = line.find('=');
        if (equals != std::string::npos)
            host.SetProfile(section, line.substr(0, equals), line.substr(equals + 1));
    }
    return true;
}

} // namespace ruvo
