// File names taken from the program's command line.
#include "settings/command_line.h"

#include <gtest/gtest.h>

namespace ruvo {
namespace {

using Names = std::vector<std::string>;

TEST(CommandLineNames, SplitAtBlanks) {
    EXPECT_EQ(SplitFileNames(""), Names{});
    EXPECT_EQ(SplitFileNames("   "), Names{});
    EXPECT_EQ(SplitFileNames("top.vhd"), (Names{"top.vhd"}));
    EXPECT_EQ(SplitFileNames("  a.vhd   b.v  c\\d.vhd "), (Names{"a.vhd", "b.v", "c\\d.vhd"}));
}

TEST(CommandLineNames, QuotesKeepBlanksInsideOneName) {
    EXPECT_EQ(SplitFileNames("\"my design\\alu top.vhd\" b.v"),
              (Names{"my design\\alu top.vhd", "b.v"}));
    EXPECT_EQ(SplitFileNames("a.v \"\" b.v"), (Names{"a.v", "b.v"}))
        << "an empty quoted name names no file";
    EXPECT_EQ(SplitFileNames("a.v \"open quote takes  the rest"),
              (Names{"a.v", "open quote takes  the rest"}));
    EXPECT_EQ(SplitFileNames("\"x\"y"), (Names{"x", "y"}))
        << "a closing quote ends the name even without a blank after it";
}

} // namespace
} // namespace ruvo
