// The Find Text, Replace Text and Goto Line dialogs, made with the dialog builder, and the
// commands that open them or repeat the last search.
#include "aids/search_commands.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <memory>
#include <string>
#include <vector>

#include "aids/aids_state.h"
#include "aids/text_search.h"
#include "dialogs/gadget_dialog.h"
#include "engine/command_target.h"
#include "engine/cursor_motion.h"
#include "engine/text_store.h"
#include "engine/word_search.h"

namespace ruvo {

namespace {

enum SearchRange : int { RangeEntire = 0, RangeFromCursor = 1, RangeSelected = 2 };

// The gadgets whose values become the search choices.
struct SearchGadgets {
    Gadget* searchText = nullptr;
    Gadget* replaceText = nullptr;
    Gadget* range = nullptr;
    Gadget* direction = nullptr;
    Gadget* wholeWords = nullptr;
    Gadget* caseSensitive = nullptr;
    Gadget* replaceAll = nullptr;
    Gadget* prompt = nullptr;
};

void Label(GadgetDialog& dialog, int x, int y, std::string_view text) {
    GlGadgetCreate(dialog, GadgetType::StaticText, x, y, 40, 10, text);
}

Gadget* TextField(GadgetDialog& dialog, int x, int y, const std::string& value, bool focus) {
    std::vector<GadgetTag> tags{MaxLengthTag(MaxSearchText), ValueTag(value)};
    if (focus) tags.push_back(FocusTag());
    return GlGadgetCreate(dialog, GadgetType::Edit, x, y, 112, 12, "", tags);
}

Gadget* CheckBox(GadgetDialog& dialog, int x, int y, std::string_view text, bool on) {
    return GlGadgetCreate(dialog, GadgetType::CheckBox, x, y, 60, 12, text, {ValueTag(on ? 1 : 0)});
}

// The Find dialog, or the Replace dialog in replace mode, filled from `shown`.
std::unique_ptr<GadgetDialog> BuildSearchDialog(const SearchState& shown, SearchGadgets& g) {
    const bool replace = shown.replaceMode;
    std::unique_ptr<GadgetDialog> dialog = createDialog(replace ? "Replace Text" : "Find Text");
    if (replace) {
        Label(*dialog, 6, 10, "&Old text:");
        g.searchText = TextField(*dialog, 46, 8, shown.searchText, true);
        Label(*dialog, 6, 25, "&New text:");
        g.replaceText = TextField(*dialog, 46, 23, shown.replaceText, false);
    } else {
        Label(*dialog, 6, 15, "Find&text:");
        g.searchText = TextField(*dialog, 46, 13, shown.searchText, true);
    }
    const int range = shown.selectedOnly ? RangeSelected
                      : shown.fromCursor ? RangeFromCursor
                                         : RangeEntire;
    GlGadgetCreate(*dialog, GadgetType::GroupBox, 4, 39, 68, 46, " Search range: ");
    g.range = GlGadgetCreate(
        *dialog, GadgetType::RadioGroup, 8, 50, 60, 36, "",
        {ItemsTag({"&Entire Text", "F&rom Cursor", "&Selected text"}), ValueTag(range)});
    GlGadgetCreate(*dialog, GadgetType::GroupBox, 90, 39, 68, 46, " Search direction: ");
    g.direction =
        GlGadgetCreate(*dialog, GadgetType::RadioGroup, 94, 55, 60, 20, "",
                       {ItemsTag({"&Forward", "&Backward"}), ValueTag(shown.forward ? 0 : 1)});
    GlGadgetCreate(*dialog, GadgetType::GroupBox, 4, 90, 154, replace ? 36 : 26, " Options: ");
    g.wholeWords = CheckBox(*dialog, 8, 100, "&Whole words", shown.wholeWords);
    g.caseSensitive = CheckBox(*dialog, 90, 100, "&Case sensitive", shown.caseSensitive);
    if (replace) {
        g.replaceAll = CheckBox(*dialog, 8, 110, "Replace &all", shown.replaceAll);
        g.prompt = CheckBox(*dialog, 90, 110, "&Prompt", shown.prompt);
    }
    return dialog;
}

std::string SearchField(Gadget& gadget) {
    std::string text = GlGadgetGetText(gadget);
    if (text.size() > MaxSearchText) text.resize(MaxSearchText);
    return text;
}

void TakeChoices(const SearchGadgets& g, SearchState& state) {
    state.searchText = SearchField(*g.searchText);
    if (g.replaceText != nullptr) state.replaceText = SearchField(*g.replaceText);
    const int range = GlGadgetGet(*g.range);
    state.fromCursor = range == RangeFromCursor;
    state.selectedOnly = range == RangeSelected;
    state.forward = GlGadgetGet(*g.direction) == 0;
    state.wholeWords = GlGadgetGet(*g.wholeWords) != 0;
    state.caseSensitive = GlGadgetGet(*g.caseSensitive) != 0;
    if (g.replaceAll != nullptr) state.replaceAll = GlGadgetGet(*g.replaceAll) != 0;
    if (g.prompt != nullptr) state.prompt = GlGadgetGet(*g.prompt) != 0;
}

// Shows the dialog for `shown`; true when it was confirmed, with the choices taken into it.
bool AskSearchChoices(SearchState& shown) {
    SearchGadgets gadgets;
    std::unique_ptr<GadgetDialog> dialog = BuildSearchDialog(shown, gadgets);
    bool confirmed = false;
    addCloseButtons(
        *dialog,
        [&](Gadget&) {
            TakeChoices(gadgets, shown);
            confirmed = true;
            return int{GadgetCloseOk};
        },
        [](Gadget&) { return int{GadgetCloseCancel}; });
    const int result = showDialog(*dialog, true);
    destroyDialog(dialog);
    return confirmed && result == 1;
}

// Opens the dialog with the state's choices and searches on OK; Cancel changes nothing.
int SearchWithDialog(bool replace) {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return 0;
    SearchState shown = TheEditor().aids.search;
    shown.replaceMode = replace;
    std::string word;
    TextPos start;
    const TextPos caret = ClampPos(*buffer, buffer->cursor.line, buffer->cursor.column);
    // Find keeps its last text when the caret is on no word; Replace then starts empty.
    if (GetWordAt(*buffer, caret, word, start) != 0 || replace) shown.searchText = word;
    if (!AskSearchChoices(shown)) return 0;
    TheEditor().aids.search = shown;
    RunSearch(*buffer, shown);
    return 0;
}

// Built on first use and kept: it shows the number last entered.
GadgetDialog& GotoLineDialog(Gadget*& number) {
    std::unique_ptr<GadgetDialog>& dialog = TheEditor().aids.gotoLineDialog;
    if (dialog == nullptr) {
        dialog = createDialog("Goto Line");
        GlGadgetCreate(*dialog, GadgetType::StaticText, 6, 10, 62, 10, "&Enter line number:");
        Gadget* field = GlGadgetCreate(*dialog, GadgetType::Edit, 70, 8, 60, 12, "",
                                       {MaxLengthTag(10), FocusTag()});
        addCloseButtons(
            *dialog,
            [field](Gadget&) {
                GlGadgetGetText(*field); // kept in the gadget once the control is gone
                return int{GadgetCloseOk};
            },
            [](Gadget&) { return int{GadgetCloseCancel}; });
    }
    number = nullptr;
    for (const std::unique_ptr<Gadget>& gadget : dialog->gadgets)
        if (gadget->type == GadgetType::Edit) number = gadget.get();
    return *dialog;
}

} // namespace

int LeadingNumber(std::string_view text) {
    size_t at = 0;
    while (at < text.size() && std::isspace(static_cast<unsigned char>(text[at])) != 0)
        ++at;
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    long long value = 0;
    for (; at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0; ++at)
        value = std::min<long long>(value * 10 + (text[at] - '0'), INT_MAX);
    return static_cast<int>(negative ? -value : value);
}

int FindText() {
    return SearchWithDialog(false);
}

int ReplaceText() {
    return SearchWithDialog(true);
}

int FindNextText() {
    EditBuffer* buffer = CommandTarget();
    if (buffer != nullptr) RepeatSearch(*buffer, TheEditor().aids.search);
    return 0;
}

int GotoLine() {
    EditBuffer* buffer = CommandTarget();
    if (buffer == nullptr) return 0;
    Gadget* number = nullptr;
    GadgetDialog& dialog = GotoLineDialog(number);
    if (showDialog(dialog, true) != 1 || number == nullptr) return 0;
    // The line is clamped into the text: before the first is the first, past the last the last.
    const long long line = static_cast<long long>(LeadingNumber(number->textValue)) - 1;
    GoToPos(*buffer, static_cast<int32_t>(std::max<long long>(line, -1)), 0);
    return 0;
}

} // namespace ruvo
