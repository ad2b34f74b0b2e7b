// The small string routines and the path splitting rules.
#include "settings/path_names.h"
#include "settings/string_routines.h"

#include <cstring>

#include "editor_fixture.h"

namespace ruvo {
namespace {

using StringRoutinesTest = EditorTest;
using PathNamesTest = EditorTest;

TEST_F(StringRoutinesTest, BoundedCopyAlwaysTerminates) {
    char target[6];
    std::memset(target, 'x', sizeof target);
    CopyBounded(target, "abcdefgh", sizeof target);
    EXPECT_STREQ(target, "abcde");
    CopyBounded(target, "ab", sizeof target);
    EXPECT_STREQ(target, "ab");
    CopyBounded(target, "zz", 1);
    EXPECT_STREQ(target, "");
    CopyBounded(target, "zz", 0); // no room at all: untouched
    EXPECT_STREQ(target, "");
}

TEST_F(StringRoutinesTest, CaseChangesTouchAsciiLettersOnly) {
    char text[] = "Entity e_1 IS \xe4\xc4;";
    UpperCase(text, 0);
    EXPECT_STREQ(text, "ENTITY E_1 IS \xe4\xc4;");
    LowerCase(text, 6);
    EXPECT_STREQ(text, "entity E_1 IS \xe4\xc4;");
    LowerCase(text, 0);
    EXPECT_STREQ(text, "entity e_1 is \xe4\xc4;");

    // A length past the end stops at the terminator.
    char shortText[8] = "ab\0cd";
    UpperCase(shortText, 7);
    EXPECT_STREQ(shortText, "AB");
    EXPECT_EQ(shortText[3], 'c');
}

TEST_F(StringRoutinesTest, RepetitionAndComparisons) {
    EXPECT_EQ(RepeatChar('-', 4), "----");
    EXPECT_EQ(RepeatChar('-', -3), "");

    EXPECT_TRUE(EqualsNoCase("VsystemVHDL", "vsystemvhdl"));
    EXPECT_FALSE(EqualsNoCase("Load", "LoadFile"));
    EXPECT_EQ(CompareNoCase("abc", "ABD"), -1);
    EXPECT_EQ(CompareNoCase("b", "A"), 1);
    EXPECT_EQ(CompareNoCase("Load", "LoadFile"), -1);
}

TEST_F(PathNamesTest, PartsOfAPath) {
    EXPECT_EQ(FileNamePart("C:\\hdl\\src/top.arch.vhd"), "top.arch.vhd");
    EXPECT_EQ(FileNamePart("c:top.vhd"), "top.vhd");
    EXPECT_EQ(FileNamePart("C:\\hdl\\"), "");

    EXPECT_EQ(BaseName("C:\\hdl\\top.arch.vhd"), "top");
    EXPECT_EQ(BaseName("/src/Makefile"), "Makefile");
    EXPECT_EQ(BaseName(std::string(29, 'b') + ".vhd"), std::string(29, 'b'));
    EXPECT_EQ(BaseName(std::string(30, 'b') + ".vhd"), std::nullopt);

    EXPECT_EQ(Extension("C:\\h.d\\top.arch.vhd"), "arch.vhd");
    EXPECT_EQ(Extension("C:\\h.d\\Makefile"), "");

    EXPECT_EQ(DirectoryPart("C:\\hdl\\src\\top.vhd"), "C:\\hdl\\src");
    EXPECT_EQ(DirectoryPart("c:file"), "c:");
    EXPECT_EQ(DirectoryPart("top.vhd"), "");
    EXPECT_EQ(DirectoryPart("/" + std::string(300, 'd') + "/x.vhd")->size(), 255u);

    EXPECT_EQ(StripTrailingSeparators("C:\\hdl\\/\\"), "C:\\hdl");
    EXPECT_TRUE(editor.settings.currentErrorText.empty());
}

TEST_F(PathNamesTest, EmptyNamesAreRefusedWithAnErrorText) {
    EXPECT_EQ(FileNamePart(""), std::nullopt);
    EXPECT_EQ(editor.settings.currentErrorText, "Empty name!");
    EXPECT_EQ(BaseName(""), std::nullopt);
    EXPECT_EQ(Extension(""), std::nullopt);
    EXPECT_EQ(DirectoryPart(""), std::nullopt);
    editor.settings.currentErrorText.clear();
    EXPECT_EQ(StripTrailingSeparators(""), "");
    EXPECT_EQ(editor.settings.currentErrorText, "Empty name!");
    EXPECT_FALSE(CheckName(""));
    EXPECT_TRUE(CheckName("x"));
}

} // namespace
} // namespace ruvo
