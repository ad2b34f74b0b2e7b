// Loading and saving of [Options] and [Print] through the profile, defaults included.
#include "settings/settings_io.h"

#include <string>
#include <vector>

#include "settings/options_io.h"

#include "editor_fixture.h"

namespace ruvo {
namespace {

using SettingsIoTest = EditorTest;

TEST_F(SettingsIoTest, AnEmptyProfileGivesTheDefaults) {
    editor.settings.options.colors = false;
    editor.settings.options.tabSize = 99;
    editor.settings.print.leftMargin = "1";
    LoadSettings();
    EXPECT_EQ(editor.settings.profileName, "ruvo.ini");
    const Options& o = editor.settings.options;
    EXPECT_TRUE(o.colors);
    EXPECT_TRUE(o.autoIndent);
    EXPECT_TRUE(o.saveOnExit);
    EXPECT_FALSE(o.backupFile);
    EXPECT_TRUE(o.buttonsLeft);
    EXPECT_FALSE(o.firstChildMaximized);
    EXPECT_EQ(o.fontSize, "10");
    EXPECT_EQ(o.font, "Courier New");
    EXPECT_EQ(o.tabSize, 4);
    const PrintSettings& p = editor.settings.print;
    EXPECT_EQ(p.printDestination, "");
    EXPECT_EQ(p.leftMargin, "8");
    EXPECT_EQ(p.fontSize, "10");
    EXPECT_TRUE(p.fileInHeader && p.dateInHeader && p.lineNumbers && p.wrapLines && p.syntax &&
                p.color);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(SettingsIoTest, OptionsAreReadFromTheProfile) {
    host.SetProfile("Options", "Colors", "no");
    host.SetProfile("Options", "AutoIndent", "0");
    host.SetProfile("Options", "BackupFile", "TRUE");
    host.SetProfile("Options", "ButtonsLeft", "whatever");
    host.SetProfile("Options", "FirstChildMaximized", "1");
    host.SetProfile("Options", "FontSize", "12345");
    host.SetProfile("Options", "Font", std::string(300, 'F'));
    host.SetProfile("Options", "TabSize", "8");
    host.SetProfile("Print", "Syntax", "no");
    host.SetProfile("Print", "LeftMargin", "12");
    LoadSettings();
    const Options& o = editor.settings.options;
    EXPECT_FALSE(o.colors);
    EXPECT_FALSE(o.autoIndent);
    EXPECT_TRUE(o.backupFile);
    EXPECT_TRUE(o.buttonsLeft); // an unknown word keeps the default
    EXPECT_TRUE(o.firstChildMaximized);
    EXPECT_EQ(o.fontSize, "123");
    EXPECT_EQ(o.font, std::string(255, 'F'));
    EXPECT_EQ(o.tabSize, 8);
    EXPECT_FALSE(editor.settings.print.syntax);
    EXPECT_TRUE(editor.settings.print.color);
    EXPECT_EQ(editor.settings.print.leftMargin, "12");
}

TEST_F(SettingsIoTest, SavedSettingsUseTheirEncodingsAndLoadBackTheSame) {
    Options& o = editor.settings.options;
    o.colors = false;
    o.autoIndent = true;
    o.saveOnExit = false;
    o.backupFile = true;
    o.buttonsLeft = false;
    o.firstChildMaximized = true;
    o.fontSize = "14";
    o.font = "Lucida Console";
    o.tabSize = 3;
    PrintSettings& p = editor.settings.print;
    p.printDestination = "LPT1:";
    p.leftMargin = "5";
    p.fontSize = "9";
    p.dateInHeader = false;
    p.wrapLines = false;
    SaveSettings();

    EXPECT_EQ(host.ProfileValue("Options", "Colors"), "no");
    EXPECT_EQ(host.ProfileValue("Options", "AutoIndent"), "yes");
    EXPECT_EQ(host.ProfileValue("Options", "TabSize"), "3");
    EXPECT_EQ(host.ProfileValue("Print", "PrintDestination"), "LPT1:");
    // The recent-file list is written at program end, not with the settings.
    EXPECT_FALSE(host.ProfileValue("Files", "1").has_value());

    // What is loaded back is saved again key for key.
    const std::vector<std::string> written = host.profileWrites;
    o = Options{};
    p = PrintSettings{};
    LoadSettings();
    host.profileWrites.clear();
    SaveSettings();
    EXPECT_EQ(host.profileWrites, written);
}

} // namespace
} // namespace ruvo
