// The modeless "Options" dialog. Its fields are read only when it is confirmed, in the fixed
// order of the steps below.
#include "settings/options_dialog.h"

#include <cstdlib>
#include <string>
#include <vector>

#include "dialogs/gadget_dialog.h"
#include "dialogs/number_field.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "host/host.h"
#include "lang/language_table.h"
#include "settings/settings_io.h"

namespace ruvo {

namespace {

constexpr const char* DialogTitle = "Options";
constexpr int TabSizeMin = 1;
constexpr int TabSizeMax = 16;
constexpr int FontSizeMin = 8;
constexpr int FontSizeMax = 22;
constexpr int NumberDigits = 2;
constexpr int ButtonsOnTop = 0;
constexpr int ButtonsLeftSide = 1;

constexpr int WindowPage = 1;
constexpr int FontPage = 2;
constexpr int LanguagePage = 3;
constexpr int ButtonsPage = 4;

OptionsDialogState& State() {
    return TheEditor().settings.optionsDialog;
}

Gadget* Check(GadgetDialog& dialog, int page, int x, int y, int width, const char* text) {
    return GlGadgetCreate(dialog, GadgetType::CheckBox, x, y, width, 10, text, {PageTag(page)});
}

Gadget* NumberField(GadgetDialog& dialog, int page, int x, int y, int low, int high) {
    return GlGadgetCreate(
        dialog, GadgetType::Edit, x, y, 20, 12, "",
        {MaxLengthTag(NumberDigits), LowLimitTag(low), HighLimitTag(high), PageTag(page)});
}

bool Checked(Gadget* box) {
    return GlGadgetGet(*box) != 0;
}

// The six entries of the table, unused ones as empty lines.
std::vector<std::string> LanguageNames() {
    std::vector<std::string> names;
    for (int i = 0; i < LanguageCount; ++i)
        names.push_back(LanguageEntry(i).name);
    return names;
}

void SetListItems(Gadget& list, const std::vector<std::string>& items) {
    std::vector<GadgetTag> tags;
    for (size_t i = 0; i < items.size(); ++i)
        tags.push_back(SetItemTextTag(static_cast<int>(i), items[i]));
    GlGadgetSet(list, tags);
}

int Confirmed(Gadget&);

void BuildDialog() {
    OptionsDialogState& state = State();
    state.dialog.reset(createDialog(DialogTitle).release());
    GadgetDialog& dialog = *state.dialog;
    GlGadgetCreate(dialog, GadgetType::TabControl, 6, 4, 200, 112, "",
                   {PageNamesTag({"Window", "Font", "Language", "Buttons"})});

    state.colors = Check(dialog, WindowPage, 16, 24, 120, "&Syntax Coloring");
    state.lineNumbers = Check(dialog, WindowPage, 16, 37, 120, "&Line Numbers");
    state.maximizeFirst = Check(dialog, WindowPage, 16, 50, 120, "&Maximize first window");
    state.autoIndent = Check(dialog, WindowPage, 16, 63, 120, "&Autoindent");
    state.backupFile = Check(dialog, WindowPage, 16, 76, 120, "&Create Backup");
    GlGadgetCreate(dialog, GadgetType::StaticText, 16, 94, 40, 8,
                   "&Tabstop:", {PageTag(WindowPage)});
    state.tabSize = NumberField(dialog, WindowPage, 60, 92, TabSizeMin, TabSizeMax);

    GlGadgetCreate(dialog, GadgetType::GroupBox, 14, 20, 184, 90,
                   " Font settings: ", {PageTag(FontPage)});
    GlGadgetCreate(dialog, GadgetType::StaticText, 22, 34, 30, 8, "&Name:", {PageTag(FontPage)});
    // The current font is chosen here only, not on later openings.
    const std::vector<std::string> fonts = TheEditor().host.FixedPitchFontNames();
    int current = -1;
    for (size_t i = 0; i < fonts.size() && current < 0; ++i) {
        if (fonts[i] == TheEditor().settings.options.font) current = static_cast<int>(i);
    }
    state.fontNames = GlGadgetCreate(dialog, GadgetType::ListBox, 56, 32, 134, 56, "",
                                     {ItemsTag(fonts), ValueTag(current), PageTag(FontPage)});
    GlGadgetCreate(dialog, GadgetType::StaticText, 22, 94, 30, 8, "&Size:", {PageTag(FontPage)});
    state.fontSize = NumberField(dialog, FontPage, 56, 92, FontSizeMin, FontSizeMax);

    GlGadgetCreate(dialog, GadgetType::GroupBox, 14, 20, 184, 90,
                   " Language of active window: ", {PageTag(LanguagePage)});
    state.languages = GlGadgetCreate(dialog, GadgetType::ListBox, 22, 32, 168, 72, "",
                                     {ItemsTag(LanguageNames()), PageTag(LanguagePage)});

    GlGadgetCreate(dialog, GadgetType::GroupBox, 14, 20, 184, 44,
                   " Button bar position: ", {PageTag(ButtonsPage)});
    state.buttonPosition =
        GlGadgetCreate(dialog, GadgetType::RadioGroup, 22, 32, 100, 24, "",
                       {ItemsTag({"&On top", "&Left side"}), ColumnsTag(1), PageTag(ButtonsPage)});

    GlGadgetCreate(dialog, GadgetType::GroupBox, 6, 120, 200, 28, " Save all settings: ");
    state.saveOnExit = GlGadgetCreate(dialog, GadgetType::CheckBox, 16, 133, 80, 10, "&On Exit");
    state.saveNow = GlGadgetCreate(dialog, GadgetType::CheckBox, 110, 133, 80, 10, "&Now");
    addCloseButtons(dialog, Confirmed, [](Gadget&) { return GadgetCloseCancel; });
}

void RefreshFields() {
    OptionsDialogState& state = State();
    Editor& editor = TheEditor();
    const Options& options = editor.settings.options;
    setGadgetValue(*state.saveOnExit, options.saveOnExit ? 1 : 0);
    setGadgetValue(*state.colors, options.colors ? 1 : 0);
    setGadgetValue(*state.autoIndent, options.autoIndent ? 1 : 0);
    setGadgetValue(*state.lineNumbers, editor.engine.display.marginSetting != 0 ? 1 : 0);
    setGadgetValue(*state.backupFile, options.backupFile ? 1 : 0);
    setGadgetValue(*state.buttonPosition, options.buttonsLeft ? ButtonsLeftSide : ButtonsOnTop);
    SetNumberField(*state.tabSize, options.tabSize);
    setGadgetValue(*state.maximizeFirst, options.firstChildMaximized ? 1 : 0);
    SetListItems(*state.languages, LanguageNames()); // the language dialog may have changed them
    if (const EditBuffer* active = editor.engine.currentBuffer) {
        const int entry = LanguageIndex(active->language);
        if (entry >= 0) setGadgetValue(*state.languages, entry);
    }
    SetNumberField(*state.fontSize, std::atoi(options.fontSize.c_str()));
    setGadgetValue(*state.saveNow, 0);
}

int Confirmed(Gadget&) {
    OptionsDialogState& state = State();
    Editor& editor = TheEditor();
    Options& options = editor.settings.options;
    options.saveOnExit = Checked(state.saveOnExit);
    options.colors = Checked(state.colors);
    options.autoIndent = Checked(state.autoIndent);
    editor.engine.display.marginSetting = Checked(state.lineNumbers) ? LineNumberColumns : 0;
    options.backupFile = Checked(state.backupFile);
    options.firstChildMaximized = Checked(state.maximizeFirst);

    EditBuffer* active = editor.engine.currentBuffer;
    const int language = GlGadgetGet(*state.languages);
    if (active != nullptr && language >= 0) active->language = &LanguageEntry(language);

    const bool left = GlGadgetGet(*state.buttonPosition) == ButtonsLeftSide;
    if (left != options.buttonsLeft) {
        options.buttonsLeft = left;
        editor.host.RequestFrameLayout();
    }

    // A number outside its range, or an empty field, keeps the old value.
    options.tabSize =
        NumberFieldValue(*state.tabSize, TabSizeMin, TabSizeMax).value_or(options.tabSize);
    const std::optional<int> size = NumberFieldValue(*state.fontSize, FontSizeMin, FontSizeMax);
    const std::string sizeText = size ? std::to_string(*size) : options.fontSize;
    const int font = GlGadgetGet(*state.fontNames);
    const std::string name = font >= 0 ? state.fontNames->items[font] : options.font;
    if (sizeText != options.fontSize || name != options.font) {
        options.fontSize = sizeText;
        options.font = name;
        editor.host.RecreateEditorFont();
    }

    if (Checked(state.saveNow)) SaveSettings();

    // Colouring, margin and tab changes show at once.
    editor.host.RefreshEditWindows();
    if (active != nullptr) editor.host.UpdateCaretAndStatus(*active);
    return GadgetCloseOk;
}

} // namespace

int EditorOptions() {
    OptionsDialogState& state = State();
    if (!state.dialog) BuildDialog();
    RefreshFields();
    (void)showDialog(*state.dialog, false);
    return 0;
}

} // namespace ruvo
