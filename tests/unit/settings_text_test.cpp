// String routines, path splitting, the meaningful-line reader and the command line.
#include <cstdio>
#include <cstring>

#include "editor_fixture.h"
#include "settings/command_line.h"
#include "settings/line_reader.h"
#include "settings/path_names.h"
#include "settings/string_routines.h"

namespace ruvo {
namespace {

using Names = std::vector<std::string>;
using SettingsTextTest = EditorTest;

TEST_F(SettingsTextTest, StringRoutines) {
    char target[6] = "xxxxx";
    const std::pair<const char*, int> copies[] = {{"abcdefgh", 6}, {"ab", 6}, {"zz", 1}, {"zz", 0}};
    const char* copied[] = {"abcde", "ab", "", ""}; // no room at all: untouched
    for (int i = 0; i < 4; ++i) {
        CopyBounded(target, copies[i].first, copies[i].second);
        EXPECT_STREQ(target, copied[i]) << i;
    }
    char text[] = "Entity e_1 IS \xe4\xc4;";
    UpperCase(text, 0);
    EXPECT_STREQ(text, "ENTITY E_1 IS \xe4\xc4;");
    LowerCase(text, 6);
    EXPECT_STREQ(text, "entity E_1 IS \xe4\xc4;");
    char shortText[8] = "ab\0cd"; // a length past the end stops at the terminator
    UpperCase(shortText, 7);
    EXPECT_EQ(std::string(shortText, 5), std::string("AB\0cd", 5));
    EXPECT_EQ(RepeatChar('-', 4) + RepeatChar('-', -3), "----");
    EXPECT_TRUE(EqualsNoCase("VsystemVHDL", "vsystemvhdl"));
    EXPECT_FALSE(EqualsNoCase("Load", "LoadFile"));
    const std::tuple<const char*, const char*, int> comparisons[] = {
        {"abc", "ABD", -1}, {"b", "A", 1}, {"Load", "LoadFile", -1}, {"LoadFile", "load", 1}};
    for (const auto& [a, b, order] : comparisons)
        EXPECT_EQ(CompareNoCase(a, b), order) << a << " " << b;
}

TEST_F(SettingsTextTest, PathPartsAndEmptyNames) {
    using Part = std::optional<std::string> (*)(std::string_view);
    const std::string long29(29, 'b'), long30(30, 'b');
    const std::tuple<Part, std::string, std::optional<std::string>> cases[] = {
        {FileNamePart, "C:\\hdl\\src/top.arch.vhd", "top.arch.vhd"},
        {FileNamePart, "c:top.vhd", "top.vhd"},
        {FileNamePart, "C:\\hdl\\", ""},
        {BaseName, "C:\\hdl\\top.arch.vhd", "top"},
        {BaseName, "/src/Makefile", "Makefile"},
        {BaseName, long29 + ".vhd", long29},
        {BaseName, long30 + ".vhd", std::nullopt},
        {Extension, "C:\\h.d\\top.arch.vhd", "arch.vhd"},
        {Extension, "C:\\h.d\\Makefile", ""},
        {DirectoryPart, "C:\\hdl\\src\\top.vhd", "C:\\hdl\\src"},
        {DirectoryPart, "c:file", "c:"},
        {DirectoryPart, "top.vhd", ""},
        {DirectoryPart, "/" + std::string(300, 'd') + "/x.vhd", "/" + std::string(254, 'd')}};
    for (const auto& [part, path, expected] : cases)
        EXPECT_EQ(part(path), expected) << path;
    EXPECT_EQ(StripTrailingSeparators("C:\\hdl\\/\\"), "C:\\hdl");
    EXPECT_TRUE(editor.settings.currentErrorText.empty());
    EXPECT_TRUE(CheckName("x"));
    for (Part part : {FileNamePart, BaseName, Extension, DirectoryPart}) {
        editor.settings.currentErrorText.clear();
        EXPECT_EQ(part(""), std::nullopt);
        EXPECT_EQ(editor.settings.currentErrorText, "Empty name!");
    }
    editor.settings.currentErrorText.clear();
    EXPECT_EQ(StripTrailingSeparators(""), "");
    EXPECT_EQ(editor.settings.currentErrorText, "Empty name!");
    EXPECT_FALSE(CheckName(""));
}

TEST(LineReader, SkipsCommentsAndBlankLinesAndCutsLongLines) {
    const struct {
        std::string content;
        int capacity;
        Names lines;
    } cases[] = {{"# keys\n\n; old\r\nCtrl+S SaveFile\r\n\r\n  # indented\nF3 FindNext",
                  256,
                  {"Ctrl+S SaveFile", "  # indented", "F3 FindNext"}},
                 {"a\r\r\nb\rc\n\r\n", 256, {"a\r", "b\rc"}}, // one CR after the LF goes
                 {"\r\n\r\nx\n", 256, {"x"}},
                 {"abcdefgh\nij\n", 4, {"abc", "def", "gh", "ij"}},
                 {"", 256, {}},
                 {"#only\n;comments\n\n", 256, {}},
                 {"text\n", 1, {}}};
    for (const auto& c : cases) {
        std::FILE* file = std::tmpfile();
        ASSERT_NE(file, nullptr);
        std::fwrite(c.content.data(), 1, c.content.size(), file);
        std::rewind(file);
        Names lines;
        while (std::optional<std::string> line = ReadMeaningfulLine(file, c.capacity))
            lines.push_back(*line);
        std::fclose(file);
        EXPECT_EQ(lines, c.lines) << c.content;
    }
    EXPECT_EQ(ReadMeaningfulLine(nullptr, 256), std::nullopt);
}

TEST(CommandLine, FileNamesPrintSwitchNewInstanceAndHandOver) {
    const std::pair<const char*, Names> splits[] = {
        {"", {}},
        {"   ", {}},
        {"top.vhd", {"top.vhd"}},
        {"  a.vhd   b.v  c\\d.vhd ", {"a.vhd", "b.v", "c\\d.vhd"}},
        {"a.vhd\tb.v \t c.vhd\t", {"a.vhd", "b.v", "c.vhd"}},
        {"\"tab\tinside.vhd\"\tb.v", {"tab\tinside.vhd", "b.v"}},
        {"\"my design\\alu top.vhd\" b.v", {"my design\\alu top.vhd", "b.v"}},
        {"a.v \"\" b.v", {"a.v", "b.v"}}, // an empty quoted name names no file
        {"a.v \"open quote takes  the rest", {"a.v", "open quote takes  the rest"}},
        {"\"x\"y", {"x", "y"}} // a closing quote ends the name without a blank after it
    };
    for (const auto& [line, names] : splits)
        EXPECT_EQ(SplitFileNames(line), names) << line;

    const std::pair<const char*, std::optional<std::string>> prints[] = {
        {"a.vhd b.vhd", std::nullopt},
        {"/p   C:\\work\\top.vhd", "C:\\work\\top.vhd"},
        {"x.vhd /ptop.vhd", "top.vhd"},
        {"/p", ""},
        {"/n /p a.v", "a.v"}};
    for (const auto& [line, printed] : prints)
        EXPECT_EQ(PrintRequest(line), printed) << line;

    const std::tuple<std::string, bool, const char*> removals[] = {
        {"/n C:\\work\\a.vhd", true, " C:\\work\\a.vhd"},
        {"a.vhd/nb.vhd /n", true, "a.vhdb.vhd /n"}, // only the first one goes
        {"a.vhd", false, "a.vhd"}};
    for (auto [line, found, left] : removals) {
        EXPECT_EQ(RemoveNewInstanceSwitch(line), found) << left;
        EXPECT_EQ(line, left);
    }

    const char* const handOvers[][2] = {
        {"", ""},
        {"top.vhd", "C:\\work\\top.vhd"},
        {"a.vhd b.vhd", "C:\\work\\a.vhd b.vhd"}, // blanks and all
        {"C:\\rtl\\alu.vhd", "C:\\rtl\\alu.vhd"},
        {"d:/rtl/alu.vhd", "d:/rtl/alu.vhd"},
        {"\\\\server\\alu.vhd", "\\\\server\\alu.vhd"},
        {"/rtl/alu.vhd", "/rtl/alu.vhd"},
        {"C:alu.vhd", "C:\\work\\C:alu.vhd"} // a drive without a separator is not absolute
    };
    for (const auto& c : handOvers)
        EXPECT_EQ(HandOverName(c[0], "C:\\work"), c[1]) << c[0];
}

} // namespace
} // namespace ruvo
