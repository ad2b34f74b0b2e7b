// The program's command line: switches, file names and the hand-over name.
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
    EXPECT_EQ(SplitFileNames("a.vhd\tb.v \t c.vhd\t"), (Names{"a.vhd", "b.v", "c.vhd"}))
        << "tabs separate names as blanks do";
    EXPECT_EQ(SplitFileNames("\"tab\tinside.vhd\"\tb.v"), (Names{"tab\tinside.vhd", "b.v"}));
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

TEST(CommandLineSwitches, PrintTakesTheTextAfterTheSwitch) {
    EXPECT_EQ(PrintRequest("a.vhd b.vhd"), std::nullopt);
    EXPECT_EQ(PrintRequest("/p   C:\\work\\top.vhd"), "C:\\work\\top.vhd");
    EXPECT_EQ(PrintRequest("x.vhd /ptop.vhd"), "top.vhd") << "anywhere, with or without blanks";
    EXPECT_EQ(PrintRequest("/p"), "") << "the switch alone still prints and ends";
    EXPECT_EQ(PrintRequest("/n /p a.v"), "a.v");
}

TEST(CommandLineSwitches, NewInstanceSwitchIsRemovedOnce) {
    std::string line = "/n C:\\work\\a.vhd";
    EXPECT_TRUE(RemoveNewInstanceSwitch(line));
    EXPECT_EQ(line, " C:\\work\\a.vhd");
    EXPECT_EQ(SplitFileNames(line), (Names{"C:\\work\\a.vhd"}));

    line = "a.vhd/nb.vhd /n";
    EXPECT_TRUE(RemoveNewInstanceSwitch(line));
    EXPECT_EQ(line, "a.vhdb.vhd /n") << "only the two characters of the first one go";

    line = "a.vhd";
    EXPECT_FALSE(RemoveNewInstanceSwitch(line));
    EXPECT_EQ(line, "a.vhd");
}

TEST(CommandLineHandOver, WholeLineBecomesOneAbsoluteName) {
    EXPECT_EQ(HandOverName("", "C:\\work"), "") << "nothing to hand over";
    EXPECT_EQ(HandOverName("top.vhd", "C:\\work"), "C:\\work\\top.vhd");
    EXPECT_EQ(HandOverName("rtl\\alu.vhd", "C:\\work"), "C:\\work\\rtl\\alu.vhd");
    EXPECT_EQ(HandOverName("a.vhd b.vhd", "C:\\work"), "C:\\work\\a.vhd b.vhd")
        << "the whole line is one name, blanks and all";
    EXPECT_EQ(HandOverName("C:\\rtl\\alu.vhd", "C:\\work"), "C:\\rtl\\alu.vhd");
    EXPECT_EQ(HandOverName("d:/rtl/alu.vhd", "C:\\work"), "d:/rtl/alu.vhd");
    EXPECT_EQ(HandOverName("\\\\server\\alu.vhd", "C:\\work"), "\\\\server\\alu.vhd");
    EXPECT_EQ(HandOverName("/rtl/alu.vhd", "C:\\work"), "/rtl/alu.vhd");
    EXPECT_EQ(HandOverName("C:alu.vhd", "C:\\work"), "C:\\work\\C:alu.vhd")
        << "a drive without a separator is not absolute";
}

} // namespace
} // namespace ruvo
