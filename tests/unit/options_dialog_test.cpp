// The options dialog: fields refreshed on opening, and the confirm steps with their limits.
#include "settings/options_dialog.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "dialogs/gadget_dialog.h"
#include "docs/documents.h"
#include "engine/edit_buffer.h"
#include "lang/language_io.h"

#include "editor_fixture.h"

namespace ruvo {
namespace {

class OptionsDialogTest : public EditorTest {
  protected:
    OptionsDialogState& Dialog() { return editor.settings.optionsDialog; }
    Options& Current() { return editor.settings.options; }
    // Opens the dialog, lets `fill` change fields, confirms.
    void Confirm(const std::function<void(OptionsDialogState&)>& fill) {
        host.dialogActions.push_back([&, fill](GadgetDialog& dialog) {
            fill(Dialog());
            EXPECT_EQ(DialogOkCommand(dialog), 1);
        });
        EditorOptions();
    }
};

TEST_F(OptionsDialogTest, OpeningSetsTheFieldsFromTheCurrentValues) {
    Current().font = "courier new"; // no entry of the list has this case: none is chosen
    Current().fontSize = "abc";
    Current().tabSize = 7;
    Current().buttonsLeft = false;
    Current().saveOnExit = false;
    EditorOptions();
    OptionsDialogState& d = Dialog();
    EXPECT_EQ(editor.host.FixedPitchFontNames(), d.fontNames->items);
    EXPECT_EQ(d.fontNames->value, -1);
    EXPECT_EQ(GlGadgetGetText(*d.fontSize), "0");
    EXPECT_EQ(GlGadgetGetText(*d.tabSize), "7");
    EXPECT_EQ(d.buttonPosition->value, 0);
    EXPECT_EQ(d.saveOnExit->value, 0);
    EXPECT_EQ(d.lineNumbers->value, 1);

    host.SetProfile("Languages", "1", "VHDL");
    LoadLanguages();
    ASSERT_EQ(openFile("Untitled", 1, 0, KindDocument), 0);
    editor.engine.currentBuffer->language = &LanguageEntry(1);
    Current().font = "Fixedsys";
    host.TypeText(*d.tabSize, "9");
    setGadgetValue(*d.saveNow, 1);
    EditorOptions(); // opened again: refreshed, but the font stays as chosen when built
    EXPECT_EQ(GlGadgetGetText(*d.tabSize), "7");
    EXPECT_EQ(d.saveNow->value, 0);
    EXPECT_EQ(d.fontNames->value, -1);
    EXPECT_EQ(d.languages->items, (std::vector<std::string>{"None", "VHDL", "", "", "", ""}));
    EXPECT_EQ(d.languages->value, 1);
}

TEST_F(OptionsDialogTest, ConfirmTakesEachFieldInItsRange) {
    const struct Case {
        const char* what;
        std::function<void(OptionsDialogState&)> fill;
        int tabSize;
        std::string fontSize, font;
        bool buttonsLeft;
        int margin, layouts, fonts;
    } cases[] = {
        {"tab stop only", [&](auto& d) { host.TypeText(*d.tabSize, "8"); }, 8, "10", "Courier New",
         true, 7, 0, 0},
        {"tab 17, empty size",
         [&](auto& d) {
             host.TypeText(*d.tabSize, "17");
             host.TypeText(*d.fontSize, "");
         },
         8, "10", "Courier New", true, 7, 0, 0},
        {"size 12", [&](auto& d) { host.TypeText(*d.fontSize, "12"); }, 8, "12", "Courier New",
         true, 7, 0, 1},
        {"size 23", [&](auto& d) { host.TypeText(*d.fontSize, "23"); }, 8, "12", "Courier New",
         true, 7, 0, 1},
        {"font", [&](auto& d) { setGadgetValue(*d.fontNames, 1); }, 8, "12", "Lucida Console", true,
         7, 0, 2},
        {"top, no numbers",
         [&](auto& d) {
             setGadgetValue(*d.buttonPosition, 0);
             setGadgetValue(*d.lineNumbers, 0);
         },
         8, "12", "Lucida Console", false, 0, 1, 2},
        {"numbers again", [&](auto& d) { setGadgetValue(*d.lineNumbers, 1); }, 8, "12",
         "Lucida Console", false, 7, 1, 2},
    };
    int confirmed = 0;
    for (const Case& c : cases) {
        Confirm(c.fill);
        ++confirmed;
        EXPECT_EQ(Current().tabSize, c.tabSize) << c.what;
        EXPECT_EQ(Current().fontSize, c.fontSize) << c.what;
        EXPECT_EQ(Current().font, c.font) << c.what;
        EXPECT_EQ(Current().buttonsLeft, c.buttonsLeft) << c.what;
        EXPECT_EQ(editor.engine.display.marginSetting, c.margin) << c.what;
        EXPECT_EQ(host.frameLayouts, c.layouts) << c.what;
        EXPECT_EQ(host.fontRecreations, c.fonts) << c.what;
        EXPECT_EQ(host.editWindowRefreshes, confirmed) << c.what;
        EXPECT_FALSE(host.DialogVisible(*Dialog().dialog));
    }
    EXPECT_TRUE(host.boxes.empty()) << "no edit window: no language changed, no error";
}

TEST_F(OptionsDialogTest, SettingsAreWrittenOnlyWhenNowIsChecked) {
    host.SetProfile("Languages", "1", "VHDL");
    LoadLanguages();
    ASSERT_EQ(openFile("Untitled", 1, 0, KindDocument), 0);
    EditBuffer& active = *editor.engine.currentBuffer;
    Confirm([](OptionsDialogState& d) {
        setGadgetValue(*d.saveOnExit, 0);
        setGadgetValue(*d.colors, 0);
        setGadgetValue(*d.languages, 1);
    });
    EXPECT_TRUE(host.profileWrites.empty());
    EXPECT_FALSE(Current().saveOnExit);
    EXPECT_FALSE(Current().colors);
    EXPECT_EQ(active.language, &LanguageEntry(1));

    host.dialogActions.push_back([](GadgetDialog& dialog) { DialogCancelCommand(dialog); });
    EditorOptions();
    EXPECT_TRUE(host.profileWrites.empty());
    Confirm([](OptionsDialogState& d) { setGadgetValue(*d.saveNow, 1); });
    const std::vector<std::string>& written = host.profileWrites;
    EXPECT_NE(std::find(written.begin(), written.end(), "[Options] SaveOnExit=no"), written.end());
    EXPECT_NE(std::find(written.begin(), written.end(), "[Languages] 1=VHDL"), written.end());
}

} // namespace
} // namespace ruvo
