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
    void OpenUntitledVhdl() {
        host.SetProfile("Languages", "1", "VHDL");
        LoadLanguages();
        ASSERT_EQ(openFile("Untitled", 1, 0, KindDocument), 0);
    }
};

TEST_F(OptionsDialogTest, OpeningSetsTheFieldsFromTheCurrentValues) {
    Current().font = "courier new"; // no entry of the list has this case: none is chosen
    Current().fontSize = "abc";
    Current().tabSize = 7;
    EditorOptions();
    OptionsDialogState& d = Dialog();
    EXPECT_EQ(editor.host.FixedPitchFontNames(), d.fontNames->items);
    EXPECT_EQ(GlGadgetGetText(*d.fontSize), "0");

    OpenUntitledVhdl();
    editor.engine.currentBuffer->language = &LanguageEntry(1);
    Current().font = "Fixedsys";
    host.TypeText(*d.tabSize, "9");
    setGadgetValue(*d.saveNow, 1);
    EditorOptions(); // opened again: refreshed, but the font is chosen only when built
    EXPECT_EQ(GlGadgetGetText(*d.tabSize), "7");
    EXPECT_EQ(d.saveNow->value, 0);
    EXPECT_EQ(d.fontNames->value, -1);
    EXPECT_EQ(d.languages->items, (std::vector<std::string>{"None", "VHDL", "", "", "", ""}));
    EXPECT_EQ(d.languages->value, 1);
}

TEST_F(OptionsDialogTest, ConfirmTakesEachFieldInItsRange) {
    auto type = [&](Gadget* field, const char* text) { host.TypeText(*field, text); };
    const struct Case {
        std::function<void(OptionsDialogState&)> fill;
        int tabSize;
        std::string font; // size and name
        bool buttonsLeft;
        int margin, layouts, fonts;
    } cases[] = {
        {[&](auto& d) { type(d.tabSize, "1"); }, 1, "10 Courier New", true, 7, 0, 0},
        {[&](auto& d) {
             type(d.tabSize, "17");
             type(d.fontSize, "");
         },
         1, "10 Courier New", true, 7, 0, 0},
        {[&](auto& d) {
             type(d.tabSize, "16");
             type(d.fontSize, "8");
         },
         16, "8 Courier New", true, 7, 0, 1},
        {[&](auto& d) {
             type(d.tabSize, "0");
             type(d.fontSize, "23");
         },
         16, "8 Courier New", true, 7, 0, 1},
        {[&](auto& d) { type(d.fontSize, "22"); }, 16, "22 Courier New", true, 7, 0, 2},
        {[](auto& d) { setGadgetValue(*d.fontNames, 1); }, 16, "22 Lucida Console", true, 7, 0, 3},
        {[](auto& d) {
             setGadgetValue(*d.buttonPosition, 0);
             setGadgetValue(*d.lineNumbers, 0);
         },
         16, "22 Lucida Console", false, 0, 1, 3},
        {[](auto& d) { setGadgetValue(*d.lineNumbers, 1); }, 16, "22 Lucida Console", false, 7, 1,
         3}};
    for (size_t i = 0; i < std::size(cases); ++i) {
        const Case& c = cases[i];
        Confirm(c.fill);
        EXPECT_EQ(Current().tabSize, c.tabSize) << i;
        EXPECT_EQ(Current().fontSize + " " + Current().font, c.font) << i;
        EXPECT_EQ(Current().buttonsLeft, c.buttonsLeft) << i;
        EXPECT_EQ(editor.engine.display.marginSetting, c.margin) << i;
        EXPECT_EQ(host.frameLayouts, c.layouts) << i;
        EXPECT_EQ(host.fontRecreations, c.fonts) << i;
        EXPECT_EQ(host.editWindowRefreshes, static_cast<int>(i) + 1) << i;
    }
    EXPECT_TRUE(host.boxes.empty()) << "no edit window: no language changed, no error";
    EXPECT_TRUE(host.profileWrites.empty()) << "written only with Now";

    OpenUntitledVhdl();
    Confirm([](OptionsDialogState& d) {
        setGadgetValue(*d.languages, 1);
        setGadgetValue(*d.saveNow, 1);
    });
    EXPECT_EQ(editor.engine.currentBuffer->language, &LanguageEntry(1));
    const std::vector<std::string>& written = host.profileWrites;
    EXPECT_NE(std::find(written.begin(), written.end(), "[Options] TabSize=16"), written.end());
}

} // namespace
} // namespace ruvo
