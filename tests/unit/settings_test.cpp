// The checked allocator, the start-up error log, the typed profile, [Options] and [Print], the
// frame placement, string and path routines, the line reader, the command line and the
// options dialog.
#include <climits>
#include <cstdio>
#include <cstring>
#include <functional>

#include "dialogs/gadget_dialog.h"
#include "docs/documents.h"
#include "editor_fixture.h"
#include "engine/edit_buffer.h"
#include "engine/line_list.h"
#include "lang/language_io.h"
#include "settings/allocator.h"
#include "settings/command_line.h"
#include "settings/error_report.h"
#include "settings/line_reader.h"
#include "settings/options_dialog.h"
#include "settings/path_names.h"
#include "settings/profile.h"
#include "settings/settings_io.h"
#include "settings/string_routines.h"
#include "settings/window_placement.h"

namespace ruvo {
namespace {

using Texts = std::vector<std::string>;

class SettingsTest : public EditorTest {
  protected:
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
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(std::exchange(numbers[i], i + 1), 0);
    auto* grown = static_cast<int*>(Allocate(numbers, 4, 1000, sizeof(int)));
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
    EXPECT_FALSE(AllocationFailed());
    EXPECT_STREQ(more, "keep!");
    Release(more);
    editor.settings.allocator.limitBytes = -1;
    EXPECT_EQ(Allocate(nullptr, 0, -1, 4), nullptr);
    EXPECT_EQ(Allocate(nullptr, 0, LONG_MAX / 2, 4), nullptr);
    EXPECT_EQ(std::tuple(host.boxes.size(), host.errorStream), std::tuple(3u, ""));
    Release(Allocate(nullptr, 0, 3, 0));
    void* empty = Allocate(nullptr, 0, 0, 4);
    EXPECT_EQ(host.errorStream, "Error in allocating memory\nError in allocating memory\n");
    EXPECT_TRUE(empty != nullptr && !AllocationFailed());
    Release(Allocate(empty, 0, 3, 4)); // a block that held nothing is replaced
}

TEST_F(SettingsTest, StartupLogHasOneBannerAndALineOrTwoPerReport) {
    EXPECT_FALSE(HasStartupErrors());
    ReportStartupError(ErrorCannotOpen, "vhdl.lsf", "Language Options File");
    ReportStartupError(ErrorUnknownCommand, "GoNowhere", "Keyboard mapper");
    ReportStartupError(ErrorMissingBitmap, "save.bmp", "SaveFile");
    ReportStartupError(ErrorFreeForm, "Too many parameters in:", "entity.tpl");
    ReportStartupError(ErrorPlain, "plain message", nullptr);
    ReportStartupError(ErrorCannotFind, nullptr, "x");
    ReportStartupError(ErrorMemory, "first", "second");
    ReportStartupError(ErrorSyntax, std::string(400, 'n').c_str(), "Menu Builder");
    const std::string stars(62, '*');
    const LineList& log = *editor.settings.startupErrors.lines;
    Texts lines;
    for (int i = 0; i < log.lineCount; ++i)
        lines.emplace_back(log.lineText[i]);
    EXPECT_EQ(lines, (Texts{stars, "*         Startup errors of RUVO / HDL Language Editor       *",
                            stars, "Error 2: Cannot open Language Options File file 'vhdl.lsf'.",
                            "Error 4: Cannot find Keyboard mapper function 'GoNowhere'.",
                            "Error 6: Cannot find bitmap 'save.bmp' for function 'SaveFile'.",
                            "Error 8: Too many parameters in: entity.tpl.",
                            "Unknown error (0)(plain message)", "Unknown error (5)(NULL)",
                            "Unknown error (1)(first)", "Error 7: Menu Builder syntax error:",
                            "\t" + std::string(MaxLineLength - 1, 'n')}));
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 8) << "a syntax error's text line too";
    EXPECT_EQ(log.readOnly, 1);
    const std::tuple<int, const char*, const char*, std::string> boxes[] = {
        {0, "Just this.", "ignored", "Just this."},
        {1, nullptr, nullptr, "Memory allocation error, Save design and exit program."},
        {2, "ruvo.tpl", "template", "Cannot open template file 'ruvo.tpl'."},
        {5, "vcom.exe", "program", "Cannot find program file 'vcom.exe'."},
        {8, "Too many parameters in:", "x.tpl", "Too many parameters in: x.tpl."},
        {9, nullptr, "u", "Unknown error (9)(NULL)"},
        {3, "t", "u", "Unknown error (3)(t)"},
        {10, "t", "u", "Unknown error (10)(t)"},
        {-1, "t", "u", "Unknown error (-1)(t)"}};
    for (const auto& [kind, text, what, expected] : boxes)
        EXPECT_EQ(ErrorText(kind, text, what), expected) << kind;
    ReportError(2, "a.vhd", "source");
    EXPECT_EQ(host.boxes[0].caption + "|" + host.boxes[0].text,
              "(default)|Cannot open source file 'a.vhd'.");
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 8) << "a box is not logged";
}

TEST_F(SettingsTest, ProfileNumbersBooleansStringsColoursPathsAndLists) {
    host.environment["RUVO_PROJECT"] = "D:\\project\\other.ini";
    SetUpProfile("RUVO_PROJECT", "ruvo.ini");
    EXPECT_EQ(editor.settings.profileName, "ruvo.ini");
    const std::pair<std::string, std::optional<bool>> bools[] = {
        {"yes", true},    {"TRUE", true},
        {" -7", true},    {"0", false},
        {"false", false}, {"No", false},
        {"00", false},    {"on", {}},
        {"", {}},         {std::string(18, '0') + "1", false}};
    for (const auto& [text, value] : bools) {
        host.SetProfile("Options", "Flag", text);
        for (bool fallback : {false, true})
            EXPECT_EQ(ReadBool("Options", "Flag", fallback), value.value_or(fallback)) << text;
    }
    EXPECT_TRUE(WriteBool("Options", "On", true) && WriteBool("Options", "Off", false));
    EXPECT_EQ(host.ProfileValue("Options", "On").value() + *host.ProfileValue("Options", "Off"),
              "yesno");
    EXPECT_TRUE(ReadInt("Options", "TabSize", 4) == 4 && WriteInt("Options", "TabSize", -12));
    EXPECT_EQ(ReadInt("Options", "TabSize", 4), -12);
    EXPECT_TRUE(WriteString("GUI", "MainWindow", "10, 20, 300"));
    EXPECT_EQ(ReadString("GUI", "MainWindow", "", 256) + ReadString("GUI", "MainWindow", "", 6),
              "10, 20, 30010, 2");
    const uint32_t fallback = MakeColor(1, 2, 3);
    EXPECT_EQ(ReadColor("Colors", "Keyword", fallback), fallback);
    for (const auto& [text, color] : {std::pair{"", fallback},
                                      {"255", 255u},
                                      {"0 128 255", 0xff8000u},
                                      {"10 green", 10u},
                                      {"red", 0u}}) {
        host.SetProfile("Colors", "Keyword", text);
        EXPECT_EQ(ReadColor("Colors", "Keyword", fallback), color) << text;
    }
    EXPECT_TRUE(WriteColor("Colors", "Comment", MakeColor(12, 34, 56)));
    EXPECT_EQ(host.ProfileValue("Colors", "Comment"), "12 34 56");

    host.programPath = "C:\\Program Files\\ruvo\\ruvo.exe";
    host.SetProfile("Directories", "LIB", "D:\\hdl\\lib");
    host.SetProfile("Directories", "LONG", std::string(200, 'a'));
    host.environment["LIB"] = "E:\\ignored";
    host.environment["WORK"] = "/home/me/work";
    const std::pair<const char*, std::string> paths[] = {
        {"$INSTALL\\menu.ini", "C:\\Program Files\\ruvo\\menu.ini"},
        {"$install/sub/menu.ini", "C:\\Program Files\\ruvo/sub/menu.ini"},
        {"$WORK/$LIB/x.tpl", "/home/me/work/D:\\hdl\\lib/x.tpl"},
        {"$LIB/$NOPE/x", "dflt"}, // an unresolved name anywhere gives the default
        {"$/x", "dflt"},
        {"$LONG/$LONG", std::string(200, 'a') + "/" + std::string(54, 'a')}};
    for (const auto& [value, expected] : paths) {
        host.SetProfile("GUI", "Menu", value);
        EXPECT_EQ(ReadPath("GUI", "Menu", "dflt", 256), expected) << value;
    }
    EXPECT_EQ(ReadPath("GUI", "Missing", "$LONG", 100), std::string(99, 'a')); // the default too
    host.programPath = "/opt/ruvo/bin/ruvo";
    EXPECT_EQ(InstallDirectory(), "/opt/ruvo/bin");
    host.SetProfile("Files", "1", "$LIB\\top.vhd");
    host.SetProfile("Files", "3", "c.v");
    host.SetProfile("Files", "4", "$NOPE\\gone.v");
    EXPECT_EQ(ReadList("Files", "", 5, 256), (Texts{"D:\\hdl\\lib\\top.vhd", "", "c.v", "", ""}));
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
    host.SetProfile("Options", "ButtonsLeft", "whatever"); // an unknown word keeps the default
    host.SetProfile("Print", "LeftMargin", "123456789");
    host.SetProfile("Print", "PrintDestination", std::string(300, 'P'));
    LoadSettings();
    const Options& o = editor.settings.options;
    EXPECT_EQ(o.fontSize + " " + o.font, "123 " + std::string(255, 'F'));
    EXPECT_TRUE(o.buttonsLeft);
    EXPECT_EQ(editor.settings.print.leftMargin, "1234567");
    EXPECT_EQ(editor.settings.print.printDestination, std::string(255, 'P'));
}

TEST_F(SettingsTest, PlacementTextAndWhenTheFrameStoresIt) {
    const WindowPlacement standard{};
    const std::pair<const char*, WindowPlacement> texts[] = {
        {"10;20x640 480", {10, 20, 640, 480}},
        {"-8, -8, 1296, 1010", {-8, -8, 1296, 1010}},
        {"  10 ,20 , 640 , 480", {10, 0, 600, 400}}, // one separator after each number
        {"", standard},
        {"garbage", standard},
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

TEST(SettingsText, StringRoutinesAndPathParts) {
    char target[6] = "xxxxx";
    const std::tuple<const char*, int, const char*> copies[] = {
        {"abcdefgh", 6, "abcde"}, {"ab", 6, "ab"}, {"zz", 1, ""}, {"zz", 0, ""}};
    for (const auto& [from, room, copied] : copies) {
        CopyBounded(target, from, room);
        EXPECT_STREQ(target, copied) << room; // no room at all: untouched
    }
    char text[] = "Entity e_1 IS \xe4\xc4;\0cd";
    UpperCase(text, 0);
    EXPECT_STREQ(text, "ENTITY E_1 IS \xe4\xc4;");
    LowerCase(text, 6);
    UpperCase(text + 14, 7); // a length past the end stops at the terminator
    EXPECT_EQ(std::string(text, sizeof text - 1), std::string("entity E_1 IS \xe4\xc4;\0cd", 20));
    EXPECT_EQ(RepeatChar('-', 4) + RepeatChar('-', -3), "----");
    EXPECT_TRUE(EqualsNoCase("VsystemVHDL", "vsystemvhdl"));
    EXPECT_FALSE(EqualsNoCase("Load", "LoadFile"));
    for (const auto& [a, b, order] : {std::tuple{"abc", "ABD", -1},
                                      {"b", "A", 1},
                                      {"Load", "LoadFile", -1},
                                      {"LoadFile", "load", 1}})
        EXPECT_EQ(CompareNoCase(a, b), order) << a << " " << b;

    using Part = std::optional<std::string> (*)(std::string_view);
    const std::tuple<Part, std::string, std::optional<std::string>> parts[] = {
        {FileNamePart, "C:\\hdl\\src/top.arch.vhd", "top.arch.vhd"},
        {FileNamePart, "c:top.vhd", "top.vhd"},
        {FileNamePart, "C:\\hdl\\", ""},
        {BaseName, "C:\\hdl\\top.arch.vhd", "top"},
        {BaseName, "/src/Makefile", "Makefile"},
        {BaseName, std::string(29, 'b') + ".vhd", std::string(29, 'b')},
        {BaseName, std::string(30, 'b') + ".vhd", std::nullopt},
        {Extension, "C:\\h.d\\top.arch.vhd", "arch.vhd"},
        {Extension, "C:\\h.d\\Makefile", ""},
        {DirectoryPart, "C:\\hdl\\src\\top.vhd", "C:\\hdl\\src"},
        {DirectoryPart, "c:file", "c:"},
        {DirectoryPart, "top.vhd", ""},
        {DirectoryPart, "/" + std::string(300, 'd') + "/x.vhd", "/" + std::string(254, 'd')}};
    for (const auto& [part, path, expected] : parts)
        EXPECT_EQ(part(path), expected) << path;
    EXPECT_EQ(StripTrailingSeparators("C:\\hdl\\/\\"), "C:\\hdl");
}

TEST_F(SettingsTest, EmptyNamesAreRefusedWithAMessage) {
    EXPECT_TRUE(CheckName("x"));
    EXPECT_TRUE(editor.settings.currentErrorText.empty());
    using Part = std::optional<std::string> (*)(std::string_view);
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

TEST(SettingsText, LineReaderSkipsCommentsAndBlankLinesAndCutsLongLines) {
    const std::tuple<std::string, int, Texts> cases[] = {
        {"# keys\n\n; old\r\nCtrl+S SaveFile\r\n\r\n  # indented\nF3 FindNext",
         256,
         {"Ctrl+S SaveFile", "  # indented", "F3 FindNext"}},
        {"a\r\r\nb\rc\n\r\n", 256, {"a\r", "b\rc"}}, // one CR after the LF goes
        {"\r\n\r\nx\n", 256, {"x"}},
        {"abcdefgh\nij\n", 4, {"abc", "def", "gh", "ij"}},
        {"#only\n;comments\n\n", 256, {}},
        {"text\n", 1, {}}};
    for (const auto& [content, capacity, expected] : cases) {
        std::FILE* file = std::tmpfile();
        std::fwrite(content.data(), 1, content.size(), file);
        std::rewind(file);
        Texts lines;
        while (std::optional<std::string> line = ReadMeaningfulLine(file, capacity))
            lines.push_back(*line);
        std::fclose(file);
        EXPECT_EQ(lines, expected) << content;
    }
    EXPECT_EQ(ReadMeaningfulLine(nullptr, 256), std::nullopt);
}

TEST(SettingsText, CommandLineNamesPrintSwitchNewInstanceAndHandOver) {
    const std::pair<const char*, Texts> splits[] = {
        {"   ", {}},
        {"  a.vhd   b.v  c\\d.vhd ", {"a.vhd", "b.v", "c\\d.vhd"}},
        {"a.vhd\tb.v \t c.vhd\t", {"a.vhd", "b.v", "c.vhd"}},
        {"\"tab\tinside.vhd\"\tb.v", {"tab\tinside.vhd", "b.v"}},
        {"\"my design\\alu top.vhd\" b.v", {"my design\\alu top.vhd", "b.v"}},
        {"a.v \"\" b.v", {"a.v", "b.v"}}, // an empty quoted name names no file
        {"a.v \"open quote takes  the rest", {"a.v", "open quote takes  the rest"}},
        {"\"x\"y", {"x", "y"}}}; // a closing quote ends the name without a blank after it
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
    for (auto [line, found, left] : {std::tuple<std::string, bool, const char*>{
                                         "/n C:\\work\\a.vhd", true, " C:\\work\\a.vhd"},
                                     {"a.vhd/nb.vhd /n", true, "a.vhdb.vhd /n"}, // the first goes
                                     {"a.vhd", false, "a.vhd"}}) {
        EXPECT_EQ(RemoveNewInstanceSwitch(line), found) << left;
        EXPECT_EQ(line, left);
    }
    const char* const handOvers[][2] = {
        {"", ""},
        {"a.vhd b.vhd", "C:\\work\\a.vhd b.vhd"}, // blanks and all
        {"C:\\rtl\\alu.vhd", "C:\\rtl\\alu.vhd"},
        {"d:/rtl/alu.vhd", "d:/rtl/alu.vhd"},
        {"\\\\server\\alu.vhd", "\\\\server\\alu.vhd"},
        {"/rtl/alu.vhd", "/rtl/alu.vhd"},
        {"C:alu.vhd", "C:\\work\\C:alu.vhd"}}; // a drive without a separator is not absolute
    for (const auto& c : handOvers)
        EXPECT_EQ(HandOverName(c[0], "C:\\work"), c[1]) << c[0];
}

TEST_F(SettingsTest, OptionsDialogRefreshesItsFieldsAndTakesEachInItsRange) {
    OptionsDialogState& d = editor.settings.optionsDialog;
    Options& now = editor.settings.options;
    now.font = "courier new"; // no entry of the list has this case: none is chosen
    now.fontSize = "abc";
    now.tabSize = 7;
    EditorOptions();
    EXPECT_EQ(host.FixedPitchFontNames(), d.fontNames->items);
    EXPECT_EQ(GlGadgetGetText(*d.fontSize) + GlGadgetGetText(*d.tabSize), "07");
    host.TypeText(*d.tabSize, "9");
    setGadgetValue(*d.saveNow, 1);
    now.font = "Fixedsys";
    EditorOptions(); // opened again: refreshed, but the font is chosen only when built
    EXPECT_EQ(std::tuple(GlGadgetGetText(*d.tabSize), d.saveNow->value, d.fontNames->value),
              std::tuple("7", 0, -1));

    const auto confirm = [&](const std::function<void()>& fill) {
        host.dialogActions.push_back([&, fill](GadgetDialog& dialog) {
            fill();
            EXPECT_EQ(DialogOkCommand(dialog), 1);
        });
        EditorOptions();
    };
    const auto type = [&](const char* tab, const char* size) {
        confirm([&, tab, size] {
            host.TypeText(*d.tabSize, tab);
            host.TypeText(*d.fontSize, size);
        });
    };
    // Tab sizes 1..16 and font sizes 8..22; anything else keeps the value before.
    now = Options{};
    const std::tuple<const char*, const char*, int, const char*, int> cases[] = {
        {"1", "10", 1, "10", 0},
        {"17", "", 1, "10", 0},
        {"16", "8", 16, "8", 1},
        {"0", "23", 16, "8", 1},
        {"16", "22", 16, "22", 2}};
    for (const auto& [tab, size, tabSize, fontSize, fonts] : cases) {
        type(tab, size);
        EXPECT_EQ(std::tuple(now.tabSize, now.fontSize, host.fontRecreations),
                  std::tuple(tabSize, fontSize, fonts))
            << tab << " " << size;
    }
    confirm([&] { setGadgetValue(*d.fontNames, 1); });
    EXPECT_EQ(now.font + std::to_string(host.fontRecreations), "Lucida Console3");
    confirm([&] {
        setGadgetValue(*d.buttonPosition, 0);
        setGadgetValue(*d.lineNumbers, 0);
    });
    EXPECT_EQ(std::tuple(now.buttonsLeft, editor.engine.display.marginSetting, host.frameLayouts),
              std::tuple(false, 0, 1));
    confirm([&] { setGadgetValue(*d.lineNumbers, 1); });
    EXPECT_EQ(std::tuple(editor.engine.display.marginSetting, host.frameLayouts), std::tuple(7, 1));
    EXPECT_EQ(host.editWindowRefreshes, 8);
    EXPECT_TRUE(host.boxes.empty() && host.profileWrites.empty()) << "written only with Now";

    host.SetProfile("Languages", "1", "VHDL");
    LoadLanguages();
    ASSERT_EQ(openFile("Untitled", 1, 0, KindDocument), 0);
    editor.engine.currentBuffer->language = &LanguageEntry(1);
    EditorOptions();
    EXPECT_EQ(d.languages->items, (Texts{"None", "VHDL", "", "", "", ""}));
    EXPECT_EQ(d.languages->value, 1);
    confirm([&] {
        setGadgetValue(*d.languages, 0);
        setGadgetValue(*d.saveNow, 1);
    });
    EXPECT_EQ(editor.engine.currentBuffer->language, &LanguageEntry(0));
    EXPECT_NE(
        std::find(host.profileWrites.begin(), host.profileWrites.end(), "[Options] TabSize=16"),
        host.profileWrites.end());
}

} // namespace
} // namespace ruvo
