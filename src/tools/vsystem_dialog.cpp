// The "V-System Options" dialog: four tab pages bound to the [Vsystem] settings, and the
// library buttons that run vlib and vmap.
#include <string>

#include "dialogs/gadget_dialog.h"
#include "engine/editor.h"
#include "host/host.h"
#include "tools/tool_commands.h"
#include "tools/vsystem.h"

namespace ruvo {

namespace {

enum Page : int { LibraryPage = 1, VcomPage = 2, VlogPage = 3, InstallationPage = 4 };

// Identifiers of the gadgets bound to a setting.
enum Field : int {
    FieldLibrary = 1,
    FieldDirectory,
    FieldStdLogic,
    FieldVhdl93,
    FieldExplicit,
    FieldVcomLine,
    FieldVcomOptions,
    FieldConvUpCase,
    FieldHazard,
    FieldVlogLine,
    FieldVlogOptions,
    FieldPath,
    FieldTimeout,
};

struct TextBinding {
    int field;
    std::string VsystemSettings::*setting;
};
struct FlagBinding {
    int field;
    bool VsystemSettings::*setting;
};

constexpr TextBinding TextBindings[] = {
    {FieldLibrary, &VsystemSettings::library},         {FieldVcomLine, &VsystemSettings::vcomLine},
    {FieldVcomOptions, &VsystemSettings::vcomOptions}, {FieldVlogLine, &VsystemSettings::vlogLine},
    {FieldVlogOptions, &VsystemSettings::vlogOptions}, {FieldPath, &VsystemSettings::executable},
    {FieldTimeout, &VsystemSettings::timeout},
};
constexpr FlagBinding FlagBindings[] = {
    {FieldStdLogic, &VsystemSettings::stdLogicOpt},
    {FieldVhdl93, &VsystemSettings::vhdl93},
    {FieldExplicit, &VsystemSettings::explicitFunctions},
    {FieldConvUpCase, &VsystemSettings::convUpCase},
    {FieldHazard, &VsystemSettings::hazard},
};

constexpr int TimeoutFieldLength = 2;

ToolsState& Tools() {
    return TheEditor().tools;
}

Gadget& FieldGadget(GadgetDialog& dialog, int field) {
    for (auto& gadget : dialog.gadgets)
        if (gadget->identifier == field) return *gadget;
    return *dialog.gadgets.front(); // every field is created with the dialog
}

const std::string& FieldText(GadgetDialog& dialog, int field) {
    return GlGadgetGetText(FieldGadget(dialog, field));
}

void FillFields(GadgetDialog& dialog) {
    const ToolsState& tools = Tools();
    for (const TextBinding& b : TextBindings)
        setGadgetValue(FieldGadget(dialog, b.field), tools.vsystem.*b.setting);
    for (const FlagBinding& b : FlagBindings)
        setGadgetValue(FieldGadget(dialog, b.field), tools.vsystem.*b.setting ? 1 : 0);
    setGadgetValue(FieldGadget(dialog, FieldDirectory), tools.libraryDirectory);
}

void TakeFields(GadgetDialog& dialog) {
    ToolsState& tools = Tools();
    for (const TextBinding& b : TextBindings)
        tools.vsystem.*b.setting = FieldText(dialog, b.field);
    for (const FlagBinding& b : FlagBindings)
        tools.vsystem.*b.setting = GlGadgetGet(FieldGadget(dialog, b.field)) != 0;
    tools.libraryDirectory = FieldText(dialog, FieldDirectory);
}

// The Path, Library and Directory fields go into the settings before a library run.
void TakeLibraryFields(GadgetDialog& dialog) {
    ToolsState& tools = Tools();
    tools.vsystem.executable = FieldText(dialog, FieldPath);
    tools.vsystem.library = FieldText(dialog, FieldLibrary);
    tools.libraryDirectory = FieldText(dialog, FieldDirectory);
}

void Label(GadgetDialog& dialog, int page, int x, int y, int width, std::string_view text) {
    GlGadgetCreate(dialog, GadgetType::StaticText, x, y, width, 10, text, {PageTag(page)});
}

void Edit(GadgetDialog& dialog, int page, int field, int x, int y, int width,
          int maxLength = DefaultEditLength) {
    GlGadgetCreate(dialog, GadgetType::Edit, x, y, width, 12, "",
                   {PageTag(page), IdentifierTag(field), MaxLengthTag(maxLength)});
}

void CheckBox(GadgetDialog& dialog, int page, int field, int x, int y, int width,
              std::string_view text) {
    GlGadgetCreate(dialog, GadgetType::CheckBox, x, y, width, 12, text,
                   {PageTag(page), IdentifierTag(field)});
}

void Button(GadgetDialog& dialog, int page, int x, int y, int width, std::string_view text,
            GadgetCallback action) {
    GlGadgetCreate(dialog, GadgetType::PushButton, x, y, width, 12, text,
                   {PageTag(page), CallbackTag(std::move(action))});
}

// A library button: the fields it needs go into the settings, then the mode runs.
GadgetCallback LibraryRun(GadgetDialog& dialog, int mode, bool pathOnly) {
    return [&dialog, mode, pathOnly](Gadget&) {
        if (pathOnly)
            Tools().vsystem.executable = FieldText(dialog, FieldPath);
        else
            TakeLibraryFields(dialog);
        (void)compileWithVsystem(mode);
        return int{GadgetStayOpen};
    };
}

int LocateVcom(GadgetDialog& dialog) {
    FileDialogRequest request;
    request.title = "Locate vcom";
    request.filter = "Executable files(*.exe)|*.exe|";
    request.initialName = "vcom.exe";
    if (std::optional<FileDialogResult> chosen = TheEditor().host.FileDialog(request))
        setGadgetValue(FieldGadget(dialog, FieldPath), chosen->fileName);
    return GadgetStayOpen;
}

std::unique_ptr<GadgetDialog> BuildDialog() {
    std::unique_ptr<GadgetDialog> owned = createDialog("V-System Options");
    GadgetDialog& d = *owned;
    GlGadgetCreate(d, GadgetType::TabControl, 4, 4, 200, 100, "VsystemTab",
                   {PageNamesTag({"Library", "Vcom", "Vlog", "Installation"})});

    Button(d, LibraryPage, 40, 26, 100, "Retrieve Library Mapping",
           LibraryRun(d, ModeListMappings, true));
    Label(d, LibraryPage, 12, 46, 40, "&Library:");
    Edit(d, LibraryPage, FieldLibrary, 48, 44, 110);
    Label(d, LibraryPage, 12, 62, 40, "&Directory:");
    Edit(d, LibraryPage, FieldDirectory, 48, 60, 110);
    Button(d, LibraryPage, 30, 80, 50, "Map Library", LibraryRun(d, ModeMapLibrary, false));
    Button(d, LibraryPage, 90, 80, 50, "Create Library", LibraryRun(d, ModeCreateLibrary, false));

    // A set StdLogicOpt leaves " -no1164" out although the box reads "No std_logic_1164".
    CheckBox(d, VcomPage, FieldStdLogic, 8, 26, 104, "&No std_logic_1164");
    CheckBox(d, VcomPage, FieldVhdl93, 8, 40, 60, "&Use VHDL'93");
    CheckBox(d, VcomPage, FieldExplicit, 94, 40, 70, "&Explicit functions");
    Label(d, VcomPage, 10, 62, 50, "&Start on Line:");
    Edit(d, VcomPage, FieldVcomLine, 60, 60, 25);
    Label(d, VcomPage, 10, 82, 50, "&Other options:");
    Edit(d, VcomPage, FieldVcomOptions, 60, 80, 110);

    CheckBox(d, VlogPage, FieldConvUpCase, 8, 26, 140, "&Conv. identifiers to uppercase");
    CheckBox(d, VlogPage, FieldHazard, 8, 40, 100, "&Run-time hazard checking");
    Label(d, VlogPage, 10, 62, 50, "&Start on Line:");
    Edit(d, VlogPage, FieldVlogLine, 60, 60, 25);
    Label(d, VlogPage, 10, 82, 50, "&Other options:");
    Edit(d, VlogPage, FieldVlogOptions, 60, 80, 110);

    Label(d, InstallationPage, 12, 26, 36, "&Path:");
    Edit(d, InstallationPage, FieldPath, 48, 25, 120);
    Button(d, InstallationPage, 174, 25, 14, "...", [&d](Gadget&) { return LocateVcom(d); });
    Label(d, InstallationPage, 12, 44, 40, "&Time-out:");
    Edit(d, InstallationPage, FieldTimeout, 48, 43, 20, TimeoutFieldLength);

    addCloseButtons(
        d,
        [&d](Gadget&) {
            TakeFields(d);
            return int{GadgetCloseOk};
        },
        [](Gadget&) { return int{GadgetCloseCancel}; });
    return owned;
}

} // namespace

int VsystemOptions() {
    std::unique_ptr<GadgetDialog>& dialog = Tools().dialogs.vsystem;
    if (dialog == nullptr) dialog = BuildDialog();
    FillFields(*dialog);
    (void)showDialog(*dialog, true);
    return 0;
}

} // namespace ruvo
