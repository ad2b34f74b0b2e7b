// The program's command line: switches, file names and the hand-over name.
#include "settings/command_line.h"

#include <gtest/gtest.h>

namespace ruvo {
namespace {

using Names = std::vector<std::string>;

TEST(CommandLine, NamesSplitAtBlanksAndTabsAndQuotesKeepThemInside) {
    const struct {
        const char* line;
        Names names;
    } cases[] = {
        {"", {}}, {"   ", {}}, {"top.vhd", {"top.vhd"}},
        {"  a.vhd   b.v  c\\d.vhd ", {"a.vhd", "b.v", "c\\d.vhd"}},
        {"a.vhd\tb.v \t c.vhd\t", {"a.vhd", "b.v", "c.vhd"}},
        {"\"tab\tinside.vhd\"\tb.v", {"tab\tinside.vhd", "b.v"}},
        {"\"my design\\alu top.vhd\" b.v", {"my design\\alu top.vhd", "b.v"}},
        {"a.v \"\" b.v", {"a.v", "b.v"}}, // an empty quoted name names no file
        {"a.v \"open quote takes  the rest", {"a.v", "open quote takes  the rest"}},
        {"\"x\"y", {"x", "y"}}, // a closing quote ends the name without a blank after it
    };
    for (const auto& c : cases)
        EXPECT_EQ(SplitFileNames(c.line), c.names) << c.line;
}

TEST(CommandLine, PrintTakesTheTextAfterTheSwitchAndNewInstanceIsRemovedOnce) {
    EXPECT_EQ(PrintRequest("a.vhd b.vhd"), std::nullopt);
    EXPECT_EQ(PrintRequest("/p   C:\\work\\top.vhd"), "C:\\work\\top.vhd");
    EXPECT_EQ(PrintRequest("x.vhd /ptop.vhd"), "top.vhd") << "anywhere, with or without blanks";
    EXPECT_EQ(PrintRequest("/p"), "") << "the switch alone still prints and ends";
    EXPECT_EQ(PrintRequest("/n /p a.v"), "a.v");

    const struct {
        const char* line;
        bool found;
        const char* left;
    } removals[] = {{"/n C:\\work\\a.vhd", true, " C:\\work\\a.vhd"},
                    {"a.vhd/nb.vhd /n", true, "a.vhdb.vhd /n"}, // only the first one goes
                    {"a.vhd", false, "a.vhd"}};
    for (const auto& r : removals) {
        std::string line = r.line;
        EXPECT_EQ(RemoveNewInstanceSwitch(line), r.found) << r.line;
        EXPECT_EQ(line, r.left);
    }
}

TEST(CommandLine, HandOverMakesTheWholeLineOneAbsoluteName) {
    const char* const cases[][2] = {
        {"", ""}, {"top.vhd", "C:\\work\\top.vhd"}, {"rtl\\alu.vhd", "C:\\work\\rtl\\alu.vhd"},
        {"a.vhd b.vhd", "C:\\work\\a.vhd b.vhd"}, // blanks and all
        {"C:\\rtl\\alu.vhd", "C:\\rtl\\alu.vhd"}, {"d:/rtl/alu.vhd", "d:/rtl/alu.vhd"},
        {"\\\\server\\alu.vhd", "\\\\server\\alu.vhd"}, {"/rtl/alu.vhd", "/rtl/alu.vhd"},
        {"C:alu.vhd", "C:\\work\\C:alu.vhd"}, // a drive without a separator is not absolute
    };
    for (const auto& c : cases)
        EXPECT_EQ(HandOverName(c[0], "C:\\work"), c[1]) << c[0];
}

} // namespace
} // namespace ruvo
