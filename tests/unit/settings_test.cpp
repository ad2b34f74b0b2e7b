// The checked allocator, the start-up error log, the typed profile, [Options] and [Print], and
// the frame placement in [GUI].
#include <climits>
#include <cstring>

#include "editor_fixture.h"
#include "engine/line_list.h"
#include "settings/allocator.h"
#include "settings/error_report.h"
#include "settings/profile.h"
#include "settings/settings_io.h"
#include "settings/window_placement.h"

namespace ruvo {
namespace {

using Texts = std::vector<std::string>;

class SettingsTest : public EditorTest {
  protected:
    Texts LogLines() const {
        Texts lines;
        const LineList* list = editor.settings.startupErrors.lines;
        for (int i = 0; list != nullptr && i < list->lineCount; ++i)
            lines.emplace_back(list->lineText[i]);
        return lines;
    }
    // The [Options] and [Print] writes of SaveSettings, joined by '|'.
    std::string SavedOptions() {
        host.profileWrites.clear();
        SaveSettings();
        std::string joined;
        for (const std::string& write : host.profileWrites)
            if (write.rfind("[Options]", 0) == 0 || write.rfind("[Print]", 0) == 0)
                joined += write + "|";
        return joined;
    }
    long& Total() { return editor.settings.allocator.totalBytes; }
};

TEST_F(SettingsTest, AllocatorZeroFillsCountsEveryRequestAndKeepsTheOldBlockOnFailure) {
    const long start = Total();
    auto* numbers = static_cast<int*>(Allocate(nullptr, 0, 4, sizeof(int)));
    ASSERT_NE(numbers, nullptr);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(std::exchange(numbers[i], i + 1), 0);
    auto* grown = static_cast<int*>(Allocate(numbers, 4, 1000, sizeof(int)));
    ASSERT_NE(grown, nullptr);
    for (int i = 0; i < 1004; ++i)
        ASSERT_EQ(grown[i], i < 4 ? i + 1 : 0) << i;
    Release(grown);
    EXPECT_EQ(Total(), start + 16 + 4000) << "released blocks still count";

    char* text = static_cast<char*>(Allocate(nullptr, 0, 6, 1));
    std::memcpy(text, "keep!", 6);
    editor.settings.allocator.limitBytes = Total() + 100;
    EXPECT_EQ(Allocate(text, 6, 101, 1), nullptr);
    EXPECT_TRUE(AllocationFailed());
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Alloc failed for 101 bytes (Total " + std::to_string(start + 4022) + ").\n");
    EXPECT_EQ(host.boxes[0].caption, "");
    char* more = static_cast<char*>(Allocate(text, 6, 100, 1)); // exactly at the limit
    ASSERT_NE(more, nullptr);
    EXPECT_FALSE(AllocationFailed());
    EXPECT_STREQ(more, "keep!");
    Release(more);

    editor.settings.allocator.limitBytes = -1;
    EXPECT_EQ(Allocate(nullptr, 0, -1, 4), nullptr);
    EXPECT_EQ(Allocate(nullptr, 0, LONG_MAX / 2, 4), nullptr);
    EXPECT_EQ(host.boxes.size(), 3u);
    EXPECT_TRUE(host.errorStream.empty());
    Release(Allocate(nullptr, 0, 3, 0));
    void* empty = Allocate(nullptr, 0, 0, 4);
    EXPECT_EQ(host.errorStream, "Error in allocating memory\nError in allocating memory\n");
    EXPECT_NE(empty, nullptr);
    EXPECT_FALSE(AllocationFailed());
    void* replaced = Allocate(empty, 0, 3, 4); // a block that held nothing is replaced
    ASSERT_NE(replaced, nullptr);
    Release(replaced);
}

TEST_F(SettingsTest, StartupLogHasOneBannerAndALineOrTwoPerReport) {
    EXPECT_FALSE(HasStartupErrors());
    ReportStartupError(ErrorCannotOpen, "vhdl.lsf", "Language Options File");
    ReportStartupError(ErrorUnknownCommand, "GoNowhere", "Keyboard mapper");
    ReportStartupError(ErrorMissingBitmap, "save.bmp", "SaveFile");
    ReportStartupError(ErrorSyntax, "Ctrl+ LoadFile", "Keyboard mapper");
    ReportStartupError(ErrorFreeForm, "Too many parameters in:", "entity.tpl");
    ReportStartupError(ErrorPlain, "plain message", nullptr);
    ReportStartupError(ErrorCannotFind, nullptr, "x");
    ReportStartupError(ErrorMemory, "first", "second");
    ReportStartupError(ErrorSyntax, std::string(400, 'n').c_str(), "Menu Builder");
    const std::string stars(62, '*');
    EXPECT_EQ(
        LogLines(),
        (Texts{stars, "*         Startup errors of RUVO / HDL Language Editor       *", stars,
               "Error 2: Cannot open Language Options File file 'vhdl.lsf'.",
               "Error 4: Cannot find Keyboard mapper function 'GoNowhere'.",
               "Error 6: Cannot find bitmap 'save.bmp' for function 'SaveFile'.",
               "Error 7: Keyboard mapper syntax error:", "\tCtrl+ LoadFile",
               "Error 8: Too many parameters in: entity.tpl.", "Unknown error (0)(plain message)",
               "Unknown error (5)(NULL)", "Unknown error (1)(first)",
               "Error 7: Menu Builder syntax error:", "\t" + std::string(MaxLineLength - 1, 'n')}));
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 9) << "a syntax error's text line too";
    EXPECT_EQ(editor.settings.startupErrors.lines->readOnly, 1);

    const std::tuple<int, const char*, const char*, std::string> boxes[] = {
        {0, "Just this.", "ignored", "Just this."},
        {1, nullptr, nullptr, "Memory allocation error, Save design and exit program."},
        {2, "ruvo.tpl", "template", "Cannot open template file 'ruvo.tpl'."},
        {5, "vcom.exe", "program", "Cannot find program file 'vcom.exe'."},
        {8, "Too many parameters in:", "x.tpl", "Too many parameters in: x.tpl."},
        {9, nullptr, "u", "Unknown error (9)(NULL)"}};
    for (const auto& [kind, text, what, expected] : boxes)
        EXPECT_EQ(ErrorText(kind, text, what), expected) << kind;
    for (int kind : {3, 4, 6, 7, 10, -1})
        EXPECT_EQ(ErrorText(kind, "t", "u"), "Unknown error (" + std::to_string(kind) + ")(t)");
    ReportError(2, "a.vhd", "source");
    EXPECT_EQ(host.ErrorBoxTexts(), "Cannot open source file 'a.vhd'.\n");
    EXPECT_EQ(host.boxes[0].caption, "(default)");
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 9) << "a box is not logged";
}

TEST_F(SettingsTest, ProfileNumbersBooleansStringsAndColours) {
    host.environment["RUVO_PROJECT"] = "D:\\project\\other.ini";
    SetUpProfile("RUVO_PROJECT", "ruvo.ini");
    EXPECT_EQ(editor.settings.profileName, "ruvo.ini");

    const std::pair<std::string, std::optional<bool>> bools[] = {
        {"yes", true}, {"TRUE", true},   {"Yes", true}, {"1", true},
        {"2", true},   {" -7", true},    {"0", false},  {"false", false},
        {"No", false}, {"FALSE", false}, {"00", false}, {"maybe", std::nullopt},
        {"on", {}},    {"", {}},         {"y", {}},     {std::string(18, '0') + "1", false}};
    for (const auto& [text, value] : bools) {
        host.SetProfile("Options", "Flag", text);
        for (bool fallback : {false, true})
            EXPECT_EQ(ReadBool("Options", "Flag", fallback), value.value_or(fallback)) << text;
    }
    EXPECT_TRUE(ReadBool("Options", "Missing", true));
    EXPECT_TRUE(WriteBool("Options", "On", true) && WriteBool("Options", "Off", false));
    EXPECT_EQ(host.ProfileValue("Options", "On").value() +
                  host.ProfileValue("Options", "Off").value(),
              "yesno");
    EXPECT_EQ(ReadInt("Options", "TabSize", 4), 4);
    EXPECT_TRUE(WriteInt("Options", "TabSize", -12));
    EXPECT_EQ(ReadInt("Options", "TabSize", 4), -12);
    EXPECT_TRUE(WriteString("GUI", "MainWindow", "10, 20, 300, 200"));
    EXPECT_EQ(ReadString("GUI", "MainWindow", "", 256), "10, 20, 300, 200");
    EXPECT_EQ(ReadString("GUI", "MainWindow", "", 6), "10, 2");

    const uint32_t fallback = MakeColor(1, 2, 3);
    EXPECT_EQ(ReadColor("Colors", "Keyword", fallback), fallback);
    const std::pair<const char*, uint32_t> colours[] = {
        {"", fallback}, {"255", 255u}, {"0 128 255", 0xff8000u}, {"10 green", 10u}, {"red", 0u}};
    for (const auto& [text, color] : colours) {
        host.SetProfile("Colors", "Keyword", text);
        EXPECT_EQ(ReadColor("Colors", "Keyword", fallback), color) << text;
    }
    EXPECT_TRUE(WriteColor("Colors", "Comment", MakeColor(12, 34, 56)));
    EXPECT_EQ(host.ProfileValue("Colors", "Comment"), "12 34 56");
}

TEST_F(SettingsTest, PathsExpandInstallDirectoriesAndTheEnvironment) {
    host.programPath = "C:\\Program Files\\ruvo\\ruvo.exe";
    host.SetProfile("Directories", "LIB", "D:\\hdl\\lib");
    host.SetProfile("Directories", "LONG", std::string(200, 'a'));
    host.environment["LIB"] = "E:\\ignored";
    host.environment["WORK"] = "/home/me/work";
    const std::pair<const char*, std::string> paths[] = {
        {"$INSTALL\\menu.ini", "C:\\Program Files\\ruvo\\menu.ini"},
        {"$install/sub/menu.ini", "C:\\Program Files\\ruvo/sub/menu.ini"},
        {"$LIB\\std.tpl", "D:\\hdl\\lib\\std.tpl"},
        {"$WORK/$LIB/x.tpl", "/home/me/work/D:\\hdl\\lib/x.tpl"},
        {"$NOPE/x", "dflt"}, // an unresolved name anywhere gives the default
        {"$LIB/$NOPE/x", "dflt"},
        {"$/x", "dflt"},
        {"$LONG/$LONG", std::string(200, 'a') + "/" + std::string(54, 'a')}};
    for (const auto& [value, expected] : paths) {
        host.SetProfile("GUI", "Menu", value);
        EXPECT_EQ(ReadPath("GUI", "Menu", "dflt", 256), expected) << value;
    }
    EXPECT_EQ(ReadPath("GUI", "Missing", "$LIB\\accel.ini", 256), "D:\\hdl\\lib\\accel.ini");
    EXPECT_EQ(ReadPath("GUI", "Missing", "$LONG", 100), std::string(99, 'a'));
    std::string out;
    EXPECT_FALSE(ExpandPathVariables("x/$NOPE", out));
    host.programPath = "/opt/ruvo/bin/ruvo";
    EXPECT_EQ(InstallDirectory(), "/opt/ruvo/bin");

    host.SetProfile("Files", "1", "$LIB\\top.vhd");
    host.SetProfile("Files", "3", "c.v");
    host.SetProfile("Files", "4", "$NOPE\\gone.v");
    EXPECT_EQ(ReadList("Files", "", 5, 256), (Texts{"D:\\hdl\\lib\\top.vhd", "", "c.v", "", ""}));
    host.SetProfile("Helpfiles", "Help2", "vhdl.hlp");
    EXPECT_EQ(ReadList("Helpfiles", "Help", 2, 256), (Texts{"", "vhdl.hlp"}));
    host.SetProfile("Files", "6", "stale");
    WriteList("Files", {"a.vhd", "b.vhd"});
    EXPECT_EQ(ReadList("Files", "", 6, 256), (Texts{"a.vhd", "b.vhd", "", "", "", "stale"}));
    WriteList("Files", {"1", "2", "3", "4", "5", "6", "7"});
    EXPECT_EQ(ReadList("Files", "", 7, 256), (Texts{"1", "2", "3", "4", "5", "stale", ""}));
}

TEST_F(SettingsTest, OptionsAndPrintSettingsLoadWithDefaultsAndSaveBack) {
    editor.settings.options.tabSize = 99;
    LoadSettings();
    EXPECT_EQ(editor.settings.profileName, "ruvo.ini");
    const std::string defaults = SavedOptions();
    EXPECT_EQ(defaults,
              "[Options] Colors=yes|[Options] AutoIndent=yes|[Options] SaveOnExit=yes|"
              "[Options] BackupFile=no|[Options] ButtonsLeft=yes|[Options] FirstChildMaximized=no|"
              "[Options] FontSize=10|[Options] Font=Courier New|[Options] TabSize=4|"
              "[Print] PrintDestination=|[Print] LeftMargin=8|[Print] FontSize=10|"
              "[Print] FileInHeader=yes|[Print] DateInHeader=yes|[Print] LineNumbers=yes|"
              "[Print] WrapLines=yes|[Print] Syntax=yes|[Print] Color=yes|");
    EXPECT_FALSE(host.ProfileValue("Files", "1").has_value()) << "written at program end";

    // Every key changed in the profile is read and saved back in its own encoding.
    std::string expected;
    for (size_t at = 0, bar; (bar = defaults.find('|', at)) != std::string::npos; at = bar + 1) {
        const std::string write = defaults.substr(at, bar - at);
        const size_t close = write.find(']'), equals = write.find('=');
        const std::string value = write.substr(equals + 1);
        const bool flag = value == "yes" || value == "no";
        host.SetProfile(write.substr(1, close - 1), write.substr(close + 2, equals - close - 2),
                        flag ? (value == "yes" ? "0" : "TRUE") : value + "7");
        expected += write.substr(0, equals + 1) +
                    (flag ? (value == "yes" ? "no" : "yes") : value + "7") + "|";
    }
    LoadSettings();
    EXPECT_EQ(SavedOptions(), expected);
    host.SetProfile("Options", "FontSize", "12345");
    host.SetProfile("Options", "Font", std::string(300, 'F'));
    host.SetProfile("Options", "ButtonsLeft", "whatever");
    host.SetProfile("Print", "LeftMargin", "123456789");
    host.SetProfile("Print", "PrintDestination", std::string(300, 'P'));
    LoadSettings();
    const Options& o = editor.settings.options;
    EXPECT_EQ(o.fontSize + " " + o.font, "123 " + std::string(255, 'F'));
    EXPECT_TRUE(o.buttonsLeft) << "an unknown word keeps the default";
    EXPECT_EQ(editor.settings.print.leftMargin, "1234567");
    EXPECT_EQ(editor.settings.print.printDestination, std::string(255, 'P'));
}

TEST_F(SettingsTest, PlacementTextAndWhenTheFrameStoresIt) {
    const WindowPlacement standard{};
    const std::pair<const char*, WindowPlacement> texts[] = {
        {"10, 20, 640, 480", {10, 20, 640, 480}},
        {"10;20x640 480", {10, 20, 640, 480}},
        {"-8, -8, 1296, 1010", {-8, -8, 1296, 1010}},
        {"  10 ,20 , 640 , 480", {10, 0, 600, 400}}, // one separator after each number
        {"", standard},
        {"garbage", standard},
        {"5, 6", {5, 6, 600, 400}},
        {"5, 6, x, 7", {5, 6, 600, 400}}};
    for (const auto& [text, placement] : texts)
        EXPECT_EQ(ParsePlacement(text), placement) << text;
    EXPECT_EQ(FormatPlacement({-4, 12, 1024, 700}), "-4, 12, 1024, 700");
    const WindowPlacement extreme{2147483647, -2147483647, 7, 8};
    EXPECT_EQ(ParsePlacement(FormatPlacement(extreme)), extreme);

    EXPECT_EQ(ReadMainWindow(), standard);
    EXPECT_TRUE(ReadFullSize());
    // Hidden or minimised frames store nothing; a move stores only with a size change waiting,
    // for a shown frame, and never touches FullSize.
    EXPECT_FALSE(FrameSized({true, true, false}, {0, 0, 160, 30}));
    EXPECT_TRUE(FrameSized({false, false, false}, {0, 0, 600, 400}));
    FrameMoved({true, false, false}, false, {5, 5, 600, 400});
    FrameMoved({true, true, false}, true, {5, 5, 600, 400});
    FrameMoved({false, false, false}, true, {5, 5, 600, 400});
    EXPECT_EQ(host.profileWrites, Texts{});
    FrameMoved({true, false, false}, true, {5, 6, 610, 420});
    EXPECT_EQ(host.profileWrites, Texts{"[GUI] MainWindow=5, 6, 610, 420"});
    EXPECT_TRUE(FrameSized({true, false, false}, {10, 20, 700, 500}));
    EXPECT_TRUE(FrameSized({true, false, true}, {-8, -8, 1296, 1010}));
    EXPECT_EQ(ReadMainWindow(), (WindowPlacement{10, 20, 700, 500}));
    EXPECT_TRUE(ReadFullSize());
    host.SetProfile("gui", "fullsize", "no");
    EXPECT_FALSE(ReadFullSize());
    EXPECT_TRUE(FrameSized({true, false, false}, {1, 2, 3, 4}));
    EXPECT_EQ(host.ProfileValue("GUI", "FullSize"), "no");
}

} // namespace
} // namespace ruvo
