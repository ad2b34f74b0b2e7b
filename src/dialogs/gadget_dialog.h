// Dialogs assembled at run time from gadget descriptions. The model (values, tags, clamping,
// layout in dialog units, pages, notifications) lives here; the platform only creates, updates
// and reads the controls, through the Host.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

enum class GadgetType : int {
    PushButton = 1,
    StaticText = 2,
    Edit = 3,
    RadioGroup = 4,
    CheckBox = 5,
    DropDownList = 6,
    ListBox = 7,
    ScrollingEdit = 8,
    GroupBox = 9,
    TabControl = 10,
    Bitmap = 11,
};

// Tag codes of GlGadgetCreate and GlGadgetSet.
enum GadgetTagCode : int {
    TagCloseButton = 6,
    TagStateBits = 8,
    TagCallback = 12,
    TagSecondState = 13,
    TagDisabled = 14,
    TagOwnerData = 16,
    TagIdentifier = 17,
    TagFocus = 18,
    TagValue = 30,
    TagMaxLength = 31,
    TagLowLimit = 32,
    TagHighLimit = 33,
    TagItems = 44,
    TagColumns = 45,
    TagPerItemValues = 46,
    TagSetItemText = 50,
    TagInsertItem = 51,
    TagDeleteItem = 53,
    TagItemValue = 59,
    TagPageNames = 71,
    TagPage = 72,
};

constexpr int GadgetDisabledBit = 1;
constexpr int GadgetSecondStateBit = 2;
// Control identifiers of gadgets start here, in creation order.
constexpr int FirstGadgetControlId = 25;
constexpr int MaxGadgetCaption = 100;
constexpr int DefaultEditLength = 255;

// What a callback reports: stay open, close a modal dialog with 1, close it with 0.
enum GadgetCallbackResult : int { GadgetStayOpen = 0, GadgetCloseOk = 1, GadgetCloseCancel = 2 };

struct Gadget;
struct GadgetDialog;
using GadgetCallback = std::function<int(Gadget&)>;

// One tag of an option list with its values.
struct GadgetTag {
    int code = 0;
    int number = 0;                  // integer value, index, limit, page
    int second = 0;                  // tag 59: the item's value
    std::optional<std::string> text; // tag 30 for text gadgets; 50 and 51: the item text
    std::vector<std::string> texts;  // 44, 71
    GadgetCallback callback;         // 12
};

// Readable constructors of tags.
GadgetTag CloseButtonTag();
GadgetTag StateBitsTag(int bits);
GadgetTag CallbackTag(GadgetCallback callback);
GadgetTag SecondStateTag(bool on);
GadgetTag DisabledTag(bool disabled);
GadgetTag OwnerDataTag(int data);
GadgetTag IdentifierTag(int identifier);
GadgetTag FocusTag();
GadgetTag ValueTag(int value);
GadgetTag ValueTag(std::string_view text);
GadgetTag MaxLengthTag(int length);
GadgetTag LowLimitTag(int limit);
GadgetTag HighLimitTag(int limit);
GadgetTag ItemsTag(std::vector<std::string> items);
GadgetTag ColumnsTag(int columns);
GadgetTag PerItemValuesTag(bool disabled);
GadgetTag ItemValueTag(int index, int value);
GadgetTag PageNamesTag(std::vector<std::string> names);
GadgetTag PageTag(int page);
GadgetTag SetItemTextTag(int index, std::string_view text);
GadgetTag InsertItemTag(int index, std::string_view text);
GadgetTag DeleteItemTag(int index);
GadgetTag RawTag(int code, int number = 0); // any code, for callers that pass numbers through

struct Gadget {
    GadgetDialog* dialog = nullptr;
    GadgetType type = GadgetType::StaticText;
    int controlId = 0;                       // FirstGadgetControlId + creation index
    int x = 0, y = 0, width = 0, height = 0; // pixels
    std::string text;                        // caption, at most MaxGadgetCaption characters
    std::string textValue;                   // edit and static types
    int value = 0;            // list, combo: index (-1 none); check box, radio: state
    int maxLength = 0;        // DefaultEditLength for edit types
    int stateBits = 0;        // GadgetDisabledBit, GadgetSecondStateBit
    bool closeButton = false; // tag 6: "&Apply" and "&Cancel" only
    GadgetCallback callback;
    int ownerData = 0;
    int identifier = 0;
    int lowLimit = 0, highLimit = 0;
    int page = 0;                   // 0: shown on every page
    std::vector<std::string> items; // radio buttons, list and combo entries, tab names
    int columns = 1;                // radio group
    bool perItemValuesEnabled = true;
    std::vector<int> itemValues;
    void* window = nullptr; // the control while the dialog exists (platform's)
    bool doubleClicked = false; // set by the platform while a list's double click is notified

    bool IsDisabled() const { return (stateBits & GadgetDisabledBit) != 0; }
    bool IsTextType() const; // edit, scrolling edit, static text
};

struct GadgetDialog {
    GadgetDialog() = default;
    GadgetDialog(const GadgetDialog&) = delete;
    GadgetDialog& operator=(const GadgetDialog&) = delete;
    ~GadgetDialog(); // destroys the window if it still exists

    std::string title;
    std::vector<std::unique_ptr<Gadget>> gadgets; // creation order
    int horizontalUnit = 0;                       // dialog base units (vertical + 1)
    int verticalUnit = 0;
    int extentWidth = 0, extentHeight = 0; // pixels, from the gadgets
    bool modal = false;                    // of the last show
    void* window = nullptr;                // the dialog while it exists (platform's)
    Gadget* tabControl = nullptr;
    int currentPage = 1;
    Gadget* focusGadget = nullptr;
    Gadget* applyButton = nullptr;
    Gadget* cancelButton = nullptr;
};

// A dialog with a copy of the title and the platform's dialog base units.
std::unique_ptr<GadgetDialog> createDialog(std::string_view title);
// Appends a gadget; positions are dialog units. Tags apply in order; an unknown one stops the
// list with the error box "Unknown flag '%d' in '%s'.\n" and the gadget stays as built.
Gadget* GlGadgetCreate(GadgetDialog& dialog, GadgetType type, int x, int y, int width, int height,
                       std::string_view text, const std::vector<GadgetTag>& tags = {});
// Changes a created gadget: the creation tags and 50, 51, 53 on the item list.
void GlGadgetSet(Gadget& gadget, const std::vector<GadgetTag>& tags);
// 0 for text gadgets (an edit's text is read back first), the stored number otherwise.
int GlGadgetGet(Gadget& gadget);
// The text of an edit or static gadget; an edit's text is read back from its control first.
const std::string& GlGadgetGetText(Gadget& gadget);
// Text gadgets copy the text; lists and combo boxes clamp the index (-1: none); the control
// is updated at once.
void setGadgetValue(Gadget& gadget, int value);
void setGadgetValue(Gadget& gadget, std::string_view text);
// "&Apply" and "&Cancel" (38 x 12 units) below the gadgets, at a third and two thirds.
void addCloseButtons(GadgetDialog& dialog, GadgetCallback apply, GadgetCallback cancel);
// Modal: runs the dialog and returns its result. Modeless: creates it once, shows it again.
int showDialog(GadgetDialog& dialog, bool modal);
// Modal: ends the dialog with 1. Modeless: hides it.
void closeDialog(GadgetDialog& dialog);
void destroyDialog(std::unique_ptr<GadgetDialog>& dialog);

// --- Layout --------------------------------------------------------------------------------
struct GadgetRect {
    int x = 0, y = 0, width = 0, height = 0;
};
// Dialog units to pixels, rounding toward zero.
int DialogUnitsToPixelsX(const GadgetDialog& dialog, int units);
int DialogUnitsToPixelsY(const GadgetDialog& dialog, int units);
// Place of item `index` of a radio group, in pixels relative to the dialog.
GadgetRect RadioButtonRect(const Gadget& gadget, int index);
// Right and bottom edge of all gadgets, in pixels.
void ComputeDialogExtent(GadgetDialog& dialog);
bool GadgetShownOnPage(const Gadget& gadget, int page);

// --- Events from the platform's dialog -------------------------------------------------------
// After the controls exist: page 1 is chosen and the focus gadget is named.
void DialogOpened(GadgetDialog& dialog);
// A control with this identifier notified a change: `newValue` is the control's state (check
// box, radio index, list selection); an edit's text is read back here. The callback runs; when
// it reports a close, a modal dialog ends (with 1 or 0) and a modeless one hides. Returns the
// result the dialog ended with, or -1 when it stays open.
int GadgetNotified(GadgetDialog& dialog, int controlId, int newValue);
// IDOK (Enter): the apply action. IDCANCEL (Escape, close box): the cancel action; without one
// a modal dialog ends with 0 and a modeless one hides. Results as GadgetNotified.
int DialogOkCommand(GadgetDialog& dialog);
int DialogCancelCommand(GadgetDialog& dialog);
// TCN_SELCHANGE with the tab control's new selection (0-based).
void DialogTabChanged(GadgetDialog& dialog, int selection);
Gadget* GadgetByControlId(GadgetDialog& dialog, int controlId);

} // namespace ruvo
