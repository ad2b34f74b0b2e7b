// Helpers of the language tests: options files on disk and language sections in the profile.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "fake_host.h"
#include "lang/syntax_scanner.h"

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

inline const char* RunKindName(RunKind kind) {
    static const char* const names[] = {"text", "comment", "kw", "abbrev", "string"};
    return names[static_cast<int>(kind)];
}

// The runs of a line written out as "[text]kind" pieces, keyword pieces with their group.
inline std::string DescribeRuns(std::string_view line, const LanguageDef* language) {
    ColourRun runs[MaxRunsPerLine];
    const int count = ScanLine(line, language, runs, MaxRunsPerLine);
    std::ostringstream out;
    for (int i = 0; i < count; ++i) {
        out << "[" << line.substr(runs[i].start, runs[i].length) << "]"
            << RunKindName(runs[i].kind);
        if (runs[i].kind == RunKind::Keyword) out << runs[i].group;
    }
    return out.str();
}

} // namespace ruvo
