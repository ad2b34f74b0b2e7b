// The modeless "Language Configuration" dialog. Every change goes into the language table at
// once; Cancel brings back the copy taken when the dialog opened.
#include "lang/language_dialog.h"

#include <optional>
#include <string>
#include <vector>

#include "dialogs/gadget_dialog.h"
#include "dialogs/number_field.h"
#include "docs/documents.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "host/host.h"
#include "lang/language_edits.h"

namespace ruvo {

namespace {

constexpr const char* DialogTitle = "Language Configuration";
constexpr const char* NamePrompt = "Name of new language : ";
constexpr int OptionsFileLimit = 83;
// The record's sizes are below what the fields would take (80 and 255).
constexpr int ExtensionsLimit = ExtensionsCapacity - 1;
constexpr int FilterLimit = LanguagePathCapacity - 1;
constexpr int CommentLimit = 2; // narrower than the profile's 3, deliberately
constexpr int ColorPartDigits = 3;
constexpr int ColorPartMax = 255;

constexpr int FilesPage = 1;
constexpr int SyntaxPage = 2;
constexpr int ColorsPage = 3;

enum SyntaxItem : int { ItemText, ItemComment, ItemString, ItemExpander, ItemFirstKeywords };

LanguageDialogState& State() {
    return TheEditor().languages.dialog;
}

LanguageDef& ShownEntry() {
    return LanguageEntry(State().shown);
}

// The fields are being filled by the dialog itself: the change handlers stay quiet.
class Filling {
  public:
    Filling() : previous_(State().filling) { State().filling = true; }
    ~Filling() { State().filling = previous_; }
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;

  private:
    bool previous_;
};

TextAttribute* SyntaxAttribute(LanguageDef& entry, int item) {
    switch (item) {
    case ItemText:
        return &entry.text;
    case ItemComment:
        return &entry.comment;
    case ItemString:
        return &entry.strings;
    case ItemExpander:
        return &entry.expander;
    default:
        if (item < ItemFirstKeywords || item >= ItemFirstKeywords + KeywordGroupCount) {
            return nullptr;
        }
        return &entry.groups[item - ItemFirstKeywords].attribute;
    }
}

int ColorPart(uint32_t color, int part) {
    return static_cast<int>((color >> (8 * part)) & 0xff);
}

void SetListItems(Gadget& list, const std::vector<std::string>& items) {
    std::vector<GadgetTag> tags(list.items.size(), DeleteItemTag(0));
    for (size_t i = 0; i < items.size(); ++i)
        tags.push_back(InsertItemTag(static_cast<int>(i), items[i]));
    GlGadgetSet(list, tags);
}

void ShowAttribute(int item) {
    LanguageDialogState& state = State();
    const TextAttribute* attribute = SyntaxAttribute(ShownEntry(), item);
    if (attribute == nullptr) return;
    const Filling filling;
    for (int part = 0; part < 3; ++part)
        SetNumberField(*state.colorParts[part], ColorPart(attribute->color, part));
    for (int bit = 0; bit < 3; ++bit)
        setGadgetValue(*state.typefaceBits[bit], (attribute->typeface >> bit) & 1);
}

void ShowEntry(int index) {
    LanguageDialogState& state = State();
    const Filling filling;
    state.shown = index;
    const LanguageDef& entry = LanguageEntry(index);
    setGadgetValue(*state.languages, index);
    GlGadgetSet(*state.addButton, {DisabledTag(UsedLanguageCount() == LanguageCount)});
    GlGadgetSet(*state.deleteButton, {DisabledTag(index == 0)});
    setGadgetValue(*state.optionsFile, entry.optionsFile);
    setGadgetValue(*state.extensions, entry.extensions);
    setGadgetValue(*state.filter, entry.filter);
    setGadgetValue(*state.caseSensitive, entry.caseSensitive ? 1 : 0);
    setGadgetValue(*state.beginComment, entry.beginComment);
    setGadgetValue(*state.endComment, entry.endComment);
    setGadgetValue(*state.lineComment, entry.lineComment);
    setGadgetValue(*state.syntaxItems, ItemText);
    ShowAttribute(ItemText);
}

// The list again from the table, so that list positions always match entries.
void RefillLanguages(int select) {
    std::vector<std::string> names;
    for (int i = 0; i < UsedLanguageCount(); ++i)
        names.push_back(LanguageEntry(i).name);
    {
        const Filling filling;
        SetListItems(*State().languages, names);
    }
    ShowEntry(select);
}

void StoreFields() {
    LanguageDialogState& state = State();
    LanguageDef& entry = ShownEntry();
    entry.optionsFile = GlGadgetGetText(*state.optionsFile);
    entry.extensions = NormalisedExtensions(GlGadgetGetText(*state.extensions));
    entry.filter = GlGadgetGetText(*state.filter);
    entry.caseSensitive = GlGadgetGet(*state.caseSensitive) != 0;
    entry.beginComment = GlGadgetGetText(*state.beginComment);
    entry.endComment = GlGadgetGetText(*state.endComment);
    entry.lineComment = GlGadgetGetText(*state.lineComment);
}

// A part outside 0 to 255, or an empty one, keeps its old value. False without an item.
bool StoreAttribute() {
    LanguageDialogState& state = State();
    TextAttribute* attribute = SyntaxAttribute(ShownEntry(), GlGadgetGet(*state.syntaxItems));
    if (attribute == nullptr) return false;
    int parts[3];
    for (int part = 0; part < 3; ++part) {
        parts[part] = NumberFieldValue(*state.colorParts[part], 0, ColorPartMax)
                          .value_or(ColorPart(attribute->color, part));
    }
    attribute->color = MakeColor(parts[0], parts[1], parts[2]);
    int typeface = 0;
    for (int bit = 0; bit < 3; ++bit) {
        if (GlGadgetGet(*state.typefaceBits[bit]) != 0) typeface |= 1 << bit;
    }
    attribute->typeface = typeface;
    return true;
}

// After entries moved: the buffers follow them, and Cancel can still find where each came
// from.
void FollowMove(const LanguageMove& move) {
    LanguageDialogState& state = State();
    int origin[LanguageCount];
    for (int& slot : origin)
        slot = -1;
    for (int i = 0; i < LanguageCount; ++i) {
        if (move.to[i] >= 0) origin[move.to[i]] = state.origin[i];
    }
    std::vector<std::pair<EditBuffer*, int>> dropped;
    MoveBufferLanguages(move, &dropped);
    for (const auto& [buffer, old] : dropped) {
        if (state.origin[old] >= 0) state.dropped.emplace_back(buffer, state.origin[old]);
    }
    std::copy(std::begin(origin), std::end(origin), std::begin(state.origin));
}

// Every buffer back on the entry it had when the dialog opened; one on an added language
// gets entry 0.
void RestoreBufferLanguages() {
    LanguageDialogState& state = State();
    LanguageMove back;
    std::copy(std::begin(state.origin), std::end(state.origin), std::begin(back.to));
    MoveBufferLanguages(back);
    (void)forEachBuffer([&](EditBuffer& buffer) {
        for (const auto& [dropped, entry] : state.dropped) {
            if (&buffer == dropped && LanguageIndex(buffer.language) == 0) {
                buffer.language = &LanguageEntry(entry);
            }
        }
        return 1;
    });
}

void StartEditing() {
    LanguageDialogState& state = State();
    BackupLanguageTable();
    for (int i = 0; i < LanguageCount; ++i)
        state.origin[i] = i;
    state.dropped.clear();
}

int AddPressed() {
    const int selected = GlGadgetGet(*State().languages);
    if (selected < 0 || selected + 1 >= LanguageCount) return GadgetStayOpen;
    const std::optional<std::string> name =
        TheEditor().host.InputDialog(NamePrompt, "", LanguageNameLimit);
    if (!name || name->empty()) return GadgetStayOpen;
    LanguageMove move;
    const int added = AddLanguage(selected, *name, move);
    if (added < 0) return GadgetStayOpen;
    FollowMove(move);
    RefillLanguages(added);
    return GadgetStayOpen;
}

int DeletePressed() {
    const int selected = GlGadgetGet(*State().languages);
    LanguageMove move;
    if (selected < 1 || !DeleteLanguage(selected, move)) return GadgetStayOpen;
    FollowMove(move);
    RefillLanguages(selected - 1);
    return GadgetStayOpen;
}

int FieldChanged(Gadget&) {
    if (!State().filling) StoreFields();
    return GadgetStayOpen;
}

int AttributeChanged(Gadget&) {
    if (!State().filling && StoreAttribute()) TheEditor().host.RefreshEditWindows();
    return GadgetStayOpen;
}

int LanguageChosen(Gadget& list) {
    if (!State().filling && list.value >= 0) ShowEntry(list.value);
    return GadgetStayOpen;
}

int SyntaxItemChosen(Gadget& list) {
    if (!State().filling) ShowAttribute(list.value);
    return GadgetStayOpen;
}

int Confirmed(Gadget&) {
    StoreFields();
    (void)StoreAttribute();
    TheEditor().host.RefreshEditWindows();
    return GadgetCloseOk;
}

int Cancelled(Gadget&) {
    RestoreLanguageTable();
    RestoreBufferLanguages();
    TheEditor().host.RefreshEditWindows();
    return GadgetCloseCancel;
}

Gadget* Label(GadgetDialog& dialog, int page, int x, int y, int width, const char* text) {
    return GlGadgetCreate(dialog, GadgetType::StaticText, x, y, width, 8, text, {PageTag(page)});
}

Gadget* TextField(GadgetDialog& dialog, int page, int x, int y, int width, int limit) {
    return GlGadgetCreate(dialog, GadgetType::Edit, x, y, width, 12, "",
                          {MaxLengthTag(limit), PageTag(page), CallbackTag(FieldChanged)});
}

void BuildFilesPage(GadgetDialog& dialog, LanguageDialogState& state) {
    Label(dialog, FilesPage, 14, 88, 180, "Language specification file: (*.lsf)");
    state.optionsFile = TextField(dialog, FilesPage, 14, 98, 184, OptionsFileLimit);
    GlGadgetCreate(dialog, GadgetType::GroupBox, 14, 116, 184, 30,
                   " Source File extension: ", {PageTag(FilesPage)});
    Label(dialog, FilesPage, 22, 129, 46, "Recognition:");
    state.extensions = TextField(dialog, FilesPage, 70, 127, 120, ExtensionsLimit);
    Label(dialog, FilesPage, 14, 152, 120, "Directory filter:");
    state.filter = TextField(dialog, FilesPage, 14, 162, 184, FilterLimit);
}

void BuildSyntaxPage(GadgetDialog& dialog, LanguageDialogState& state) {
    state.caseSensitive =
        GlGadgetCreate(dialog, GadgetType::CheckBox, 14, 90, 120, 10, "&Keywords CaseSensitive",
                       {PageTag(SyntaxPage), CallbackTag(FieldChanged)});
    GlGadgetCreate(dialog, GadgetType::GroupBox, 14, 106, 184, 72,
                   " Comment delimiters: ", {PageTag(SyntaxPage)});
    Label(dialog, SyntaxPage, 22, 122, 44, "Begin:");
    state.beginComment = TextField(dialog, SyntaxPage, 70, 120, 24, CommentLimit);
    Label(dialog, SyntaxPage, 22, 140, 44, "End:");
    state.endComment = TextField(dialog, SyntaxPage, 70, 138, 24, CommentLimit);
    Label(dialog, SyntaxPage, 22, 158, 44, "SingleLine:");
    state.lineComment = TextField(dialog, SyntaxPage, 70, 156, 24, CommentLimit);
    GlGadgetCreate(dialog, GadgetType::StaticText, 110, 158, 80, 16, "EndOfLine: '\n'",
                   {PageTag(SyntaxPage)});
}

void BuildColorsPage(GadgetDialog& dialog, LanguageDialogState& state) {
    GlGadgetCreate(dialog, GadgetType::GroupBox, 14, 86, 84, 96, " Syntax Item ",
                   {PageTag(ColorsPage)});
    state.syntaxItems =
        GlGadgetCreate(dialog, GadgetType::ListBox, 20, 98, 72, 80, "",
                       {ItemsTag({"Text", "Comment", "String", "Expander", "KeywordCat1",
                                  "KeywordCat2", "KeywordCat3", "KeywordCat4", "KeywordCat5"}),
                        ValueTag(ItemText), PageTag(ColorsPage), CallbackTag(SyntaxItemChosen)});
    GlGadgetCreate(dialog, GadgetType::GroupBox, 104, 86, 94, 54,
                   " Color: ", {PageTag(ColorsPage)});
    const char* const parts[] = {"Red", "Green", "Blue"};
    for (int part = 0; part < 3; ++part) {
        const int y = 99 + 14 * part;
        Label(dialog, ColorsPage, 112, y, 30, parts[part]);
        state.colorParts[part] = GlGadgetCreate(dialog, GadgetType::Edit, 146, y - 2, 30, 12, "",
                                                {MaxLengthTag(ColorPartDigits), LowLimitTag(0),
                                                 HighLimitTag(ColorPartMax), PageTag(ColorsPage),
                                                 CallbackTag(AttributeChanged)});
    }
    GlGadgetCreate(dialog, GadgetType::GroupBox, 104, 144, 94, 38,
                   "Printer TypeFace:", {PageTag(ColorsPage)});
    const char* const bits[] = {"&Bold", "&Italic", "&Underl"};
    const int places[][2] = {{112, 156}, {154, 156}, {112, 168}};
    for (int bit = 0; bit < 3; ++bit) {
        state.typefaceBits[bit] =
            GlGadgetCreate(dialog, GadgetType::CheckBox, places[bit][0], places[bit][1], 40, 10,
                           bits[bit], {PageTag(ColorsPage), CallbackTag(AttributeChanged)});
    }
}

void BuildDialog() {
    LanguageDialogState& state = State();
    state.dialog.reset(createDialog(DialogTitle).release());
    GadgetDialog& dialog = *state.dialog;
    GlGadgetCreate(dialog, GadgetType::GroupBox, 6, 4, 200, 62, " Language: ");
    state.languages = GlGadgetCreate(dialog, GadgetType::ListBox, 12, 15, 122, 46, "",
                                     {FocusTag(), CallbackTag(LanguageChosen)});
    state.addButton = GlGadgetCreate(dialog, GadgetType::PushButton, 142, 15, 56, 14, "&Add new",
                                     {CallbackTag([](Gadget&) { return AddPressed(); })});
    state.deleteButton = GlGadgetCreate(dialog, GadgetType::PushButton, 142, 33, 56, 14, "&Delete",
                                        {CallbackTag([](Gadget&) { return DeletePressed(); })});
    GlGadgetCreate(dialog, GadgetType::TabControl, 6, 70, 200, 118, "",
                   {PageNamesTag({"Files", "Syntax", "Colors"})});
    BuildFilesPage(dialog, state);
    BuildSyntaxPage(dialog, state);
    BuildColorsPage(dialog, state);
    addCloseButtons(dialog, Confirmed, Cancelled);
}

} // namespace

int LanguageOptions() {
    LanguageDialogState& state = State();
    StartEditing();
    if (!state.dialog) BuildDialog();
    const EditBuffer* active = TheEditor().engine.currentBuffer;
    int entry = active != nullptr ? LanguageIndex(active->language) : 0;
    if (entry < 0 || !LanguageEntry(entry).IsUsed()) entry = 0;
    RefillLanguages(entry);
    (void)showDialog(*state.dialog, false);
    return 0;
}

} // namespace ruvo
