// The button bar from buttons.ini files on disk: buttons, gaps, pictures, greying, the one-
// and two-row layouts at the top and at the left, and the mouse over the bar.
#include "commands/button_bar.h"

#include "commands/command_table.h"
#include "customisation_files.h"
#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

using ButtonBarTest = EditorTest;

// "Command:x,y" for each button, with "+gap" and "-grey" where they apply, space-separated.
std::string Buttons(const Editor& editor) {
    std::string result;
    const ButtonBar& bar = editor.customisation.buttonBar;
    for (int i = 0; i < bar.count; ++i) {
        const ToolButton& b = bar.buttons[i];
        std::string text = std::string(CommandTable[b.command].name) + ":" + std::to_string(b.x) +
                           "," + std::to_string(b.y);
        if (b.style & ButtonStyleGapBefore) text += "+gap";
        if (b.disabled) text += "-grey";
        result += (i > 0 ? " " : "") + text;
    }
    return result;
}

void LoadFrom(FakeHost& host, const std::string& content) {
    TempFile file(content);
    host.SetProfile("GUI", "Buttons", file.path());
    LoadButtons();
}

TEST_F(ButtonBarTest, ButtonsIniLinesMakeButtonsGapsAndReports) {
    editor.settings.options.buttonsLeft = false;
    LoadFrom(host, "# the bar\n"
                   "LoadFile FILEOPEN\n"
                   "SaveFile filesave extra words\n"
                   "GoNowhere COPY\n"
                   "SEPARATOR\n"
                   "NextError NEXTERROR\n"
                   "EditCopy NOSUCH\n"
                   "separator\n"
                   "loadfile FILENEW\n"
                   "separator\n");
    LayOutButtons();
    // The second LoadFile line changes the first button's picture and gap; it does not move.
    EXPECT_EQ(Buttons(editor), "LoadFile:8,2+gap SaveFile:35,2-grey NextError:66,2+gap-grey");
    EXPECT_EQ(host.loadedPictures,
              (std::vector<std::string>{"FILEOPEN", "filesave", "NEXTERROR", "FILENEW"}));
    EXPECT_EQ(host.freedPictures, (std::vector<uintptr_t>{1}));
    EXPECT_EQ(ReportedLines(editor),
              (std::vector<std::string>{"Error 4: Cannot find Button function 'GoNowhere'.",
                                        "Error 6: Cannot find bitmap 'NOSUCH' for function "
                                        "'EditCopy'."}));

    ReleaseButtons();
    EXPECT_EQ(host.freedPictures, (std::vector<uintptr_t>{1, 4, 2, 3}));
    host.SetProfile("GUI", "Buttons", "no/buttons.ini");
    LoadButtons();
    EXPECT_EQ(BarThickness(1000, true), 0);
    EXPECT_EQ(ReportedLines(editor).back(), "Error 2: Cannot open Button definition file "
                                            "'no/buttons.ini'.");
}

TEST_F(ButtonBarTest, AtMostFiftyButtonsEachCommandOnce) {
    std::string content;
    for (int row = 0; row < 60; ++row)
        content += std::string(CommandTable[row].name) + " COPY\n";
    LoadFrom(host, content);
    EXPECT_EQ(editor.customisation.buttonBar.count, MaxButtons);
    EXPECT_EQ(host.loadedPictures.size(), 50u);
    EXPECT_TRUE(ReportedLines(editor).empty());
}

TEST_F(ButtonBarTest, OneAndTwoRowsAtTheTopAndAtTheLeft) {
    // Five buttons with a gap before the fourth: one row is 4 + 5 * 27 + 4 = 143 long.
    const struct {
        bool left;
        int length, thickness;
        const char* buttons;
    } cases[] = {
        {false, 143, 33, "NewFile:4,2 LoadFile:31,2 About:58,2 ExitApp:89,2+gap ToolOptions:116,2"},
        {false, 142, 61, "NewFile:4,2 LoadFile:4,29 About:31,2 ExitApp:62,2+gap ToolOptions:62,29"},
        {true, 143, 33, "NewFile:2,4 LoadFile:2,31 About:2,58 ExitApp:2,89+gap ToolOptions:2,116"},
        {true, 100, 61, "NewFile:2,4 LoadFile:29,4 About:2,31 ExitApp:2,62+gap ToolOptions:29,62"},
    };
    LoadFrom(host, "NewFile FILENEW\nLoadFile FILEOPEN\nAbout INFO\nseparator\nExitApp TRAP\n"
                   "ToolOptions TOOLS\n");
    for (const auto& c : cases) {
        editor.settings.options.buttonsLeft = c.left;
        EXPECT_EQ(BarThickness(c.length, true), c.thickness) << c.length;
        LayOutButtons();
        EXPECT_EQ(Buttons(editor), c.buttons) << c.left << " " << c.length;
    }
    // Painting never switches back to one row; only the frame's sizing does.
    EXPECT_EQ(BarThickness(1000, false), 33);
    EXPECT_TRUE(editor.customisation.buttonBar.twoRows);
    EXPECT_EQ(BarThickness(1000, true), 33);
    EXPECT_FALSE(editor.customisation.buttonBar.twoRows);
}

TEST_F(ButtonBarTest, HoverShowsTheDescriptionAndAPressRunsAnEnabledCommand) {
    editor.settings.options.buttonsLeft = false;
    LoadFrom(host, "About INFO\nEditUndo UNDO\n");
    LayOutButtons();
    for (int x : {10, 12, 40, 100, 110})
        ButtonBarMouseMoved(x, 10);
    std::vector<std::string> shown;
    for (const FakeHost::StatusText& s : host.statusTexts)
        if (s.pane == 4) shown.push_back(s.text);
    EXPECT_EQ(shown, (std::vector<std::string>{"Display version and copyright information.",
                                               "Undo the previous editor action.", ""}));

    host.redrawnButtons.clear();
    for (int x : {40, 120}) // EditUndo is grey, then no button
        ButtonBarPressed(x, 10);
    EXPECT_TRUE(host.redrawnButtons.empty());
    ButtonBarPressed(10, 10);
    EXPECT_EQ(host.aboutBoxes.size(), 1u);
    EXPECT_EQ(host.redrawnButtons, (std::vector<int>{0, 0}));
    EXPECT_FALSE(editor.customisation.buttonBar.buttons[0].pressed);
    EXPECT_EQ(host.statusPanes[4], "");

    SetCommandsEnabled(NeedsUndo, true);
    EXPECT_EQ(Buttons(editor), "About:4,2 EditUndo:31,2");
    SetCommandsEnabled(NeedsUndo, true); // no change, no redraw
    EXPECT_EQ(host.redrawnButtons, (std::vector<int>{0, 0, 1}));
}

} // namespace
} // namespace ruvo
