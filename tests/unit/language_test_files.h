// Helpers of the language tests: options files on disk and INI files read into the profile.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "fake_host.h"
#include "settings/line_reader.h"

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

// Reads an INI file into the fake profile: "[section]" lines and "key=value" lines.
inline bool LoadIniIntoProfile(FakeHost& host, const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) return false;
    std::string section;
    while (const std::optional<std::string> line = ReadMeaningfulLine(file, 1024)) {
        const size_t equals = line->find('=');
        if ((*line)[0] == '[')
            section = line->substr(1, line->find(']') - 1);
        else if (equals != std::string::npos)
            host.SetProfile(section, line->substr(0, equals), line->substr(equals + 1));
    }
    std::fclose(file);
    return true;
}

} // namespace ruvo
