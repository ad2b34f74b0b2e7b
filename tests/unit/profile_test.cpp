// Typed profile accessors: lenient booleans, colours, $NAME paths and numbered lists.
#include "settings/profile.h"

#include <string>

#include "editor_fixture.h"

namespace ruvo {
namespace {

using ProfileTest = EditorTest;

TEST_F(ProfileTest, SetUpKeepsTheBareDefaultNameWhateverTheEnvironmentSays) {
    host.environment["RUVO_PROJECT"] = "D:\\project\\other.ini";
    SetUpProfile("RUVO_PROJECT", "ruvo.ini");
    EXPECT_EQ(editor.settings.profileName, "ruvo.ini");
}

TEST_F(ProfileTest, BooleansAreReadLenientlyAndWrittenAsYesOrNo) {
    const struct {
        const char* text;
        bool expected;
    } cases[] = {{"yes", true}, {"TRUE", true},   {"Yes", true}, {"1", true},
                 {"2", true},   {" -7", true},    {"0", false},  {"false", false},
                 {"No", false}, {"FALSE", false}, {"00", false}};
    for (const auto& c : cases) {
        host.SetProfile("Options", "Flag", c.text);
        EXPECT_EQ(ReadBool("Options", "Flag", !c.expected), c.expected) << c.text;
    }

    // Other words fall back to the caller's default, whichever it is.
    for (const char* word : {"maybe", "on", "", "y"}) {
        host.SetProfile("Options", "Flag", word);
        EXPECT_TRUE(ReadBool("Options", "Flag", true)) << word;
        EXPECT_FALSE(ReadBool("Options", "Flag", false)) << word;
    }

    EXPECT_TRUE(ReadBool("Options", "Missing", true));

    // Only 18 characters are read: the trailing 1 is never seen.
    host.SetProfile("Options", "Flag", std::string(18, '0') + "1");
    EXPECT_FALSE(ReadBool("Options", "Flag", true));

    EXPECT_TRUE(WriteBool("Options", "On", true));
    EXPECT_TRUE(WriteBool("Options", "Off", false));
    EXPECT_EQ(host.ProfileValue("Options", "On"), "yes");
    EXPECT_EQ(host.ProfileValue("Options", "Off"), "no");
}

TEST_F(ProfileTest, IntegersAndStrings) {
    EXPECT_EQ(ReadInt("Options", "TabSize", 4), 4);
    EXPECT_TRUE(WriteInt("Options", "TabSize", -12));
    EXPECT_EQ(host.ProfileValue("Options", "TabSize"), "-12");
    EXPECT_EQ(ReadInt("Options", "TabSize", 4), -12);

    EXPECT_TRUE(WriteString("GUI", "MainWindow", "10, 20, 300, 200"));
    EXPECT_EQ(ReadString("GUI", "MainWindow", "0, 0, 600, 400", 256), "10, 20, 300, 200");
    EXPECT_EQ(ReadString("GUI", "MainWindow", "", 6), "10, 2");
}

TEST_F(ProfileTest, ColoursAreThreeNumbersWithMissingOnesZero) {
    const uint32_t fallback = MakeColor(1, 2, 3);
    EXPECT_EQ(ReadColor("Colors", "Keyword", fallback), fallback);
    host.SetProfile("Colors", "Keyword", "");
    EXPECT_EQ(ReadColor("Colors", "Keyword", fallback), fallback);

    const std::pair<const char*, uint32_t> cases[] = {
        {"255", 255u}, {"0 128 255", 0xff8000u}, {"10 green", 10u}, {"red", 0u}};
    for (const auto& [text, color] : cases) {
        host.SetProfile("Colors", "Keyword", text);
        EXPECT_EQ(ReadColor("Colors", "Keyword", fallback), color) << text;
    }

    EXPECT_TRUE(WriteColor("Colors", "Comment", MakeColor(12, 34, 56)));
    EXPECT_EQ(host.ProfileValue("Colors", "Comment"), "12 34 56");
    EXPECT_EQ(ReadColor("Colors", "Comment", fallback), MakeColor(12, 34, 56));
}

TEST_F(ProfileTest, InstallIsTheProgramDirectory) {
    host.programPath = "C:\\Program Files\\ruvo\\ruvo.exe";
    EXPECT_EQ(InstallDirectory(), "C:\\Program Files\\ruvo");
    host.SetProfile("GUI", "Menu", "$INSTALL\\menu.ini");
    EXPECT_EQ(ReadPath("GUI", "Menu", "menu.ini", 256), "C:\\Program Files\\ruvo\\menu.ini");
    host.SetProfile("GUI", "Menu", "$install/sub/menu.ini");
    EXPECT_EQ(ReadPath("GUI", "Menu", "menu.ini", 256), "C:\\Program Files\\ruvo/sub/menu.ini");

    host.programPath = "/opt/ruvo/bin/ruvo";
    EXPECT_EQ(InstallDirectory(), "/opt/ruvo/bin");
}

TEST_F(ProfileTest, VariablesComeFromDirectoriesThenTheEnvironment) {
    host.SetProfile("Directories", "LIB", "D:\\hdl\\lib");
    host.environment["LIB"] = "E:\\ignored";
    host.environment["WORK"] = "/home/me/work";
    host.SetProfile("Templates", "1", "$LIB\\std.tpl");
    host.SetProfile("Templates", "2", "$WORK/$LIB/x.tpl");
    EXPECT_EQ(ReadPath("Templates", "1", "", 256), "D:\\hdl\\lib\\std.tpl");
    EXPECT_EQ(ReadPath("Templates", "2", "", 256), "/home/me/work/D:\\hdl\\lib/x.tpl");

    // An unresolved name anywhere gives the key's default.
    for (const char* path : {"$NOPE/x", "$LIB/$NOPE/x", "$/x"}) {
        host.SetProfile("GUI", "Buttons", path);
        EXPECT_EQ(ReadPath("GUI", "Buttons", "buttons.ini", 256), "buttons.ini") << path;
    }

    // A missing key reads the default, which is itself expanded.
    EXPECT_EQ(ReadPath("GUI", "Accellerators", "$LIB\\accel.ini", 256), "D:\\hdl\\lib\\accel.ini");
    // Plain text passes unchanged.
    EXPECT_EQ(ReadPath("GUI", "Missing", "accel.ini", 256), "accel.ini");
}

TEST_F(ProfileTest, ExpandedPathsStopAt255Characters) {
    host.SetProfile("Directories", "LONG", std::string(200, 'a'));
    std::string out;
    ASSERT_TRUE(ExpandPathVariables("$LONG/$LONG", out));
    EXPECT_EQ(out.size(), 255u);
    EXPECT_EQ(out.substr(200, 1), "/");
    EXPECT_FALSE(ExpandPathVariables("x/$NOPE", out));
    EXPECT_EQ(ReadPath("Templates", "Missing", "$LONG/$LONG", 100).size(), 99u);
}

TEST_F(ProfileTest, ListsReadNumberedKeysAndWriteExactlyFive) {
    host.SetProfile("Directories", "SRC", "C:\\src");
    host.SetProfile("Files", "1", "$SRC\\top.vhd");
    host.SetProfile("Files", "3", "c.v");
    host.SetProfile("Files", "4", "$NOPE\\gone.v");
    const std::vector<std::string> files = ReadList("Files", "", 5, 256);
    EXPECT_EQ(files, (std::vector<std::string>{"C:\\src\\top.vhd", "", "c.v", "", ""}));

    host.SetProfile("Helpfiles", "Help2", "vhdl.hlp");
    EXPECT_EQ(ReadList("Helpfiles", "Help", 2, 256), (std::vector<std::string>{"", "vhdl.hlp"}));

    host.SetProfile("Files", "6", "stale");
    WriteList("Files", {"a.vhd", "b.vhd"});
    EXPECT_EQ(ReadList("Files", "", 6, 256),
              (std::vector<std::string>{"a.vhd", "b.vhd", "", "", "", "stale"}));

    WriteList("Files", {"1", "2", "3", "4", "5", "6", "7"});
    EXPECT_EQ(host.ProfileValue("Files", "5"), "5");
    EXPECT_EQ(host.ProfileValue("Files", "6"), "stale");
    EXPECT_FALSE(host.ProfileValue("Files", "7").has_value());
}

} // namespace
} // namespace ruvo
