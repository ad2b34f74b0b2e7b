// The meaningful-line reader over real files: comments, blank lines, line ends, long lines.
#include "settings/line_reader.h"

#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ruvo {
namespace {

// Every line the reader returns from `content`.
std::vector<std::string> ReadAll(const std::string& content, int capacity) {
    std::FILE* file = std::tmpfile();
    EXPECT_NE(file, nullptr);
    if (file == nullptr) return {};
    std::fwrite(content.data(), 1, content.size(), file);
    std::rewind(file);
    std::vector<std::string> lines;
    while (std::optional<std::string> line = ReadMeaningfulLine(file, capacity))
        lines.push_back(*line);
    std::fclose(file);
    return lines;
}

TEST(LineReaderTest, SkipsBlankAndCommentLines) {
    const std::string content = "# keyboard definitions\n"
                                "\n"
                                "; old style comment\r\n"
                                "Ctrl+S SaveFile\r\n"
                                "\r\n"
                                "  # indented is not a comment\n"
                                "F3 FindNext";
    EXPECT_EQ(ReadAll(content, 256),
              (std::vector<std::string>{"Ctrl+S SaveFile", "  # indented is not a comment",
                                        "F3 FindNext"}));
}

TEST(LineReaderTest, RemovesOneCarriageReturnAfterTheLineFeed) {
    EXPECT_EQ(ReadAll("a\r\r\nb\rc\n\r\n", 256), (std::vector<std::string>{"a\r", "b\rc"}));
    // A lone carriage return is an empty line.
    EXPECT_EQ(ReadAll("\r\n\r\nx\n", 256), (std::vector<std::string>{"x"}));
}

TEST(LineReaderTest, LongLinesComeInPiecesOfTheCapacity) {
    EXPECT_EQ(ReadAll("abcdefgh\nij\n", 4), (std::vector<std::string>{"abc", "def", "gh", "ij"}));
}

TEST(LineReaderTest, NothingAtEndOrWithoutRoom) {
    EXPECT_TRUE(ReadAll("", 256).empty());
    EXPECT_TRUE(ReadAll("#only\n;comments\n\n", 256).empty());
    EXPECT_TRUE(ReadAll("text\n", 1).empty());
    EXPECT_EQ(ReadMeaningfulLine(nullptr, 256), std::nullopt);
}

} // namespace
} // namespace ruvo
