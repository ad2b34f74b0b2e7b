// The checked allocator, the start-up error log, the typed profile, [Options] and [Print], the
// frame placement, string and path routines, the line reader, the command line and the
// options dialog.
#include <algorithm>
#include <climits>
#include <cstdio>
#include <functional>
#include <regex>

#include "test_files.h"
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

using SettingsTest = EditorTest;

TEST_F(SettingsTest, AllocatorRefusesPastItsLimitAndErrorsAreLoggedOrBoxed) {
    long& total = editor.settings.allocator.totalBytes;
    const long start = total;
    auto* numbers = static_cast<int*>(Allocate(nullptr, 0, 2, sizeof(int)));
    numbers[1] = 5;
    auto* grown = static_cast<int*>(Allocate(numbers, 2, 1000, sizeof(int)));
    EXPECT_EQ(std::count(grown, grown + 1002, 0) + grown[1], 1001 + 5);
    Release(grown);
    EXPECT_EQ(total, start + 8 + 4000) << "released blocks still count";
    editor.settings.allocator.limitBytes = total + 100;
    EXPECT_EQ(Allocate(nullptr, 0, 101, 1), nullptr);
    EXPECT_TRUE(AllocationFailed());
    Release(Allocate(nullptr, 0, 100, 1)); // exactly at the limit
    EXPECT_FALSE(AllocationFailed());
    editor.settings.allocator.limitBytes = -1;
    EXPECT_EQ(Allocate(nullptr, 0, -1, 4), Allocate(nullptr, 0, LONG_MAX / 2, 4));
    Release(Allocate(nullptr, 0, 3, 0));
    void* empty = Allocate(nullptr, 0, 0, 4);
    EXPECT_EQ(host.errorStream, "Error in allocating memory\nError in allocating memory\n");
    Release(Allocate(empty, 0, 3, 4)); // a block that held nothing is replaced

    // The start-up log has one banner and a line or two per report; boxes show their texts.
    EXPECT_FALSE(HasStartupErrors());
    ReportStartupError(ErrorFreeForm, "Too many parameters in:", "entity.tpl");
    ReportStartupError(ErrorPlain, nullptr, "x");
    ReportStartupError(ErrorSyntax, std::string(400, 'n').c_str(), "Menu Builder");
    const LineList& log = *editor.settings.startupErrors.lines;
    EXPECT_EQ(std::string(log.lineText[0]) + log.lineText[1] + log.lineText[2],
              std::string(62, '*') +
                  "*         Startup errors of RUVO / HDL Language Editor       *" +
                  std::string(62, '*'));
    EXPECT_EQ(
        ReportedLines(editor),
        (Texts{"Error 8: Too many parameters in: entity.tpl.", "Unknown error (0)(NULL)",
               "Error 7: Menu Builder syntax error:", "\t" + std::string(MaxLineLength - 1, 'n')}));
    // Plain, memory, cannot open, cannot find, free form and unknown, after the failed allocations.
    for (int kind : {0, 1, 2, 5, 8, 9})
        ReportError(kind, "x.vhd", "program");
    const std::string overflow = "Alloc failed for -1 bytes (Total " + std::to_string(start + 4108);
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Alloc failed for 101 bytes (Total " + std::to_string(start + 4008) + ").\n" +
                  overflow + ").\n" + overflow + ").\n" +
                  "x.vhd\nMemory allocation error, Save design and exit program.\n"
                  "Cannot open program file 'x.vhd'.\nCannot find program file 'x.vhd'.\n"
                  "x.vhd program.\nUnknown error (9)(x.vhd)\n");
}

TEST_F(SettingsTest, ProfileValuesAndOptionsAndPrintSettingsLoadWithDefaultsAndSaveBack) {
    const std::pair<std::string, std::optional<bool>> bools[] = {
        {"yes", true}, {"TRUE", true}, {"No", false}, {"false", false},
        {" -7", true}, {"0", false},   {"on", {}},    {std::string(18, '0') + "1", false}};
    for (const auto& [text, value] : bools) {
        host.SetProfile("Options", "Flag", text);
        for (bool fallback : {false, true})
            EXPECT_EQ(ReadBool("Options", "Flag", fallback), value.value_or(fallback)) << text;
    }
    host.programPath = "C:\\Program Files\\ruvo\\ruvo.exe";
    host.SetProfile("Directories", "LIB", "D:\\hdl\\lib");
    host.SetProfile("Directories", "LONG", std::string(200, 'a'));
    host.environment["LIB"] = "E:\\ignored";
    host.environment["WORK"] = "/home/me/work";
    const std::pair<const char*, std::string> paths[] = {
        {"$install/sub/menu.ini", "C:\\Program Files\\ruvo/sub/menu.ini"},
        {"$WORK/$LIB/x.tpl", "/home/me/work/D:\\hdl\\lib/x.tpl"},
        {"$LIB/$NOPE/x", "dflt"}, // an unresolved name anywhere gives the default
        {"$LONG/$LONG", std::string(200, 'a') + "/" + std::string(54, 'a')}};
    for (const auto& [value, expected] : paths) {
        host.SetProfile("GUI", "Menu", value);
        EXPECT_EQ(ReadPath("GUI", "Menu", "dflt", 256), expected) << value;
    }
    EXPECT_EQ(ReadPath("GUI", "Missing", "$LONG", 100), std::string(99, 'a')); // the default too
    host.SetProfile("Files", "6", "stale");
    WriteList("Files", {"1", "2", "3", "4", "5", "6", "7"});
    WriteList("Files", {"$LIB\\top.vhd"});
    EXPECT_EQ(ReadList("Files", "", 6, 256),
              (Texts{"D:\\hdl\\lib\\top.vhd", "", "", "", "", "stale"}));

    // The [Options] and [Print] writes of SaveSettings, joined by '|'.
    const auto saved = [&] {
        host.profileWrites.clear();
        SaveSettings();
        std::string joined;
        for (const std::string& write : host.profileWrites)
            if (write.starts_with("[Options]") || write.starts_with("[Print]"))
                joined += write + "|";
        return joined;
    };
    LoadSettings();
    const std::string defaults = saved();
    EXPECT_EQ(defaults,
              "[Options] Colors=yes|[Options] AutoIndent=yes|[Options] SaveOnExit=yes|"
              "[Options] BackupFile=no|[Options] ButtonsLeft=yes|[Options] FirstChildMaximized=no|"
              "[Options] FontSize=10|[Options] Font=Courier New|[Options] TabSize=4|"
              "[Print] PrintDestination=|[Print] LeftMargin=8|[Print] FontSize=10|"
              "[Print] FileInHeader=yes|[Print] DateInHeader=yes|[Print] LineNumbers=yes|"
              "[Print] WrapLines=yes|[Print] Syntax=yes|[Print] Color=yes|");
    // Every key changed in the profile is read and saved back in its own encoding.
    std::string expected;
    const std::regex write(R"(\[(\w+)\] (\w+)=([^|]*))");
    for (std::sregex_iterator m(defaults.begin(), defaults.end(), write), end; m != end; ++m) {
        const std::string value = (*m)[3];
        const std::string changed = value == "yes" ? "no" : value == "no" ? "yes" : value + "7";
        const std::string stored = changed == "no" ? "0" : changed == "yes" ? "TRUE" : changed;
        host.SetProfile((*m)[1].str(), (*m)[2].str(), stored);
        expected += "[" + (*m)[1].str() + "] " + (*m)[2].str() + "=" + changed + "|";
    }
    host.SetProfile("Options", "Font", std::string(300, 'F'));
    LoadSettings();
    EXPECT_EQ(saved(), std::regex_replace(expected, std::regex("Font=C.*?\\|"),
                                          "Font=" + std::string(255, 'F') + "|"));
}

TEST_F(SettingsTest, PlacementStringsAndPathParts) {
    // One separator after each number; what does not parse keeps the default.
    EXPECT_EQ(ParsePlacement(" 10 ,20 , x"), (WindowPlacement{10, 0, 600, 400}));
    EXPECT_TRUE(ReadMainWindow() == WindowPlacement{} && ReadFullSize());
    // Hidden or minimised frames store nothing; a move stores only with a size change waiting,
    // for a shown frame, and never touches FullSize; a maximised frame keeps its placement.
    EXPECT_FALSE(FrameSized({true, true, false}, {0, 0, 160, 30}));
    EXPECT_TRUE(FrameSized({false, false, false}, {0, 0, 600, 400}));
    for (const auto& [visible, minimized, pending] :
         {std::tuple{true, false, false}, {true, true, true}, {false, false, true}})
        FrameMoved({visible, minimized, false}, pending, {5, 5, 600, 400});
    FrameMoved({true, false, false}, true, {5, 6, 610, 420});
    EXPECT_TRUE(FrameSized({true, false, false}, {10, 20, 700, 500}));
    EXPECT_TRUE(FrameSized({true, false, true}, {-8, -8, 1296, 1010}));
    EXPECT_EQ(host.profileWrites,
              (Texts{"[GUI] MainWindow=5, 6, 610, 420", "[GUI] FullSize=no",
                     "[GUI] MainWindow=10, 20, 700, 500", "[GUI] FullSize=yes"}));
    EXPECT_EQ(ReadMainWindow(), (WindowPlacement{10, 20, 700, 500}));

    char text[] = "Entity";
    CopyBounded(text, "abcdefgh", 4); // cut, and ended inside the longer text
    EXPECT_STREQ(text, "abc");

    // Each part of each name, "-" for none, followed by the error text the name left.
    EXPECT_TRUE(CheckName("x") && editor.settings.currentErrorText.empty());
    using Part = std::optional<std::string> (*)(std::string_view);
    const auto parts = [&](Part part, std::initializer_list<std::string> names) {
        std::string all;
        for (const std::string& name : names) {
            all += part(name).value_or("-");
            all += std::exchange(editor.settings.currentErrorText, "") + "|";
        }
        return all;
    };
    EXPECT_EQ(parts(FileNamePart, {"C:\\hdl\\src/top.arch.vhd", ""}), "top.arch.vhd|-Empty name!|");
    EXPECT_EQ(parts(BaseName, {"C:\\hdl\\top.arch.vhd", std::string(29, 'b') + ".vhd",
                               std::string(30, 'b') + ".vhd", ""}),
              "top|" + std::string(29, 'b') + "|-|-Empty name!|");
    EXPECT_EQ(parts(Extension, {"C:\\h.d\\top.arch.vhd", "C:\\h.d\\Makefile", ""}),
              "arch.vhd||-Empty name!|");
    EXPECT_EQ(parts(DirectoryPart, {"C:\\hdl\\src\\top.vhd", "c:file",
                                    "/" + std::string(300, 'd') + "/x.vhd", ""}),
              "C:\\hdl\\src|c:|/" + std::string(254, 'd') + "|-Empty name!|");
    EXPECT_EQ(StripTrailingSeparators("C:\\hdl\\/\\") + StripTrailingSeparators(""), "C:\\hdl");
    EXPECT_EQ(editor.settings.currentErrorText, "Empty name!");
}

TEST(SettingsText, LineReaderAndCommandLine) {
    const std::tuple<std::string, int, Texts> cases[] = {
        {"# keys\n\n; old\r\nCtrl+S x\r\n\r\n  # indented\nF3 y",
         256,
         {"Ctrl+S x", "  # indented", "F3 y"}},
        {"a\r\r\nb\rc\n\r\n", 256, {"a\r", "b\rc"}}, // one CR after the LF goes
        {"abcdefgh\nij\n", 4, {"abc", "def", "gh", "ij"}},
        {std::string(600, 'l'), 513, {std::string(512, 'l'), std::string(88, 'l')}}};
    for (const auto& [content, capacity, expected] : cases) {
        std::string bytes = content;
        std::FILE* file = fmemopen(bytes.data(), bytes.size(), "r");
        Texts lines;
        while (std::optional<std::string> line = ReadMeaningfulLine(file, capacity))
            lines.push_back(*line);
        std::fclose(file);
        EXPECT_EQ(lines, expected) << content;
    }
    EXPECT_EQ(ReadMeaningfulLine(nullptr, 256), std::nullopt);

    // The command line: file names, the print switch, a new instance and the hand-over.
    // An empty quoted name names no file; a closing quote ends a name without a blank after it.
    const std::pair<const char*, Texts> splits[] = {
        {"   ", {}},
        {"  a.vhd \t b.v\tc\\d.vhd", {"a.vhd", "b.v", "c\\d.vhd"}},
        {"\"my design\\alu\ttop.vhd\"b.v \"\" \"open quote takes  the rest",
         {"my design\\alu\ttop.vhd", "b.v", "open quote takes  the rest"}}};
    for (const auto& [line, names] : splits)
        EXPECT_EQ(SplitFileNames(line), names) << line;
    EXPECT_EQ(PrintRequest("a.vhd b.vhd"), std::nullopt);
    EXPECT_EQ(PrintRequest("x.v /p   C:\\work\\top.vhd"), "C:\\work\\top.vhd");
    std::string line = "a.vhd/nb.vhd /n";
    EXPECT_TRUE(RemoveNewInstanceSwitch(line) && line == "a.vhdb.vhd /n"); // the first goes
    EXPECT_FALSE(RemoveNewInstanceSwitch(line = "a.vhd"));
    // A relative name is handed over blanks and all; a drive without a separator is relative.
    std::string handedOver;
    for (const char* line :
         {"", "a.vhd b.vhd", "C:\\rtl\\alu.vhd", "d:/rtl/alu.vhd", "/rtl/alu.vhd", "C:alu.vhd"})
        handedOver += HandOverName(line, "C:\\work") + "|";
    EXPECT_EQ(
        handedOver,
        "|C:\\work\\a.vhd b.vhd|C:\\rtl\\alu.vhd|d:/rtl/alu.vhd|/rtl/alu.vhd|C:\\work\\C:alu.vhd|");
}

TEST_F(SettingsTest, OptionsDialogTakesEachNumberInItsRangeAndAppliesTheRest) {
    OptionsDialogState& d = editor.settings.optionsDialog;
    Options& now = editor.settings.options;
    const auto confirm = [&](const std::function<void()>& fill) {
        host.dialogActions.push_back([&, fill](GadgetDialog& dialog) {
            fill();
            EXPECT_EQ(DialogOkCommand(dialog), 1);
        });
        EditorOptions();
    };
    // Tab sizes 1..16 and font sizes 8..22; anything else keeps the value before.
    const std::tuple<const char*, const char*, int, const char*> cases[] = {
        {"1", "", 1, "10"}, {"17", "8", 1, "8"}, {"16", "23", 16, "8"}, {"0", "22", 16, "22"}};
    for (const auto& [tab, size, tabSize, fontSize] : cases) {
        confirm([&, tab, size] {
            host.TypeText(*d.tabSize, tab);
            host.TypeText(*d.fontSize, size);
        });
        EXPECT_EQ(std::tuple(now.tabSize, now.fontSize), std::tuple(tabSize, fontSize)) << tab;
    }
    host.SetProfile("Languages", "1", "VHDL");
    LoadLanguages();
    ASSERT_EQ(openFile("Untitled", 1, 0, KindDocument), 0);
    editor.engine.currentBuffer->language = &LanguageEntry(1);
    confirm([&] {
        EXPECT_EQ(std::tuple(d.languages->items[1], d.languages->value), std::tuple("VHDL", 1));
        setGadgetValue(*d.languages, 0);
        setGadgetValue(*d.fontNames, 1);
        setGadgetValue(*d.buttonPosition, 0);
        setGadgetValue(*d.lineNumbers, 0);
    });
    EXPECT_EQ(std::tuple(now.font, now.buttonsLeft, editor.engine.display.marginSetting,
                         host.frameLayouts, host.fontRecreations, host.editWindowRefreshes),
              std::tuple("Lucida Console", false, 0, 1, 3, 5));
    EXPECT_EQ(editor.engine.currentBuffer->language, &LanguageEntry(0));
    EXPECT_TRUE(host.profileWrites.empty()) << "written only with Now";
    confirm([&] { setGadgetValue(*d.saveNow, 1); });
    EXPECT_NE(std::ranges::find(host.profileWrites, "[Options] TabSize=16"),
              host.profileWrites.end());
}

} // namespace
} // namespace ruvo
