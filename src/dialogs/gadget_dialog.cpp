// The dialog builder's model: gadgets with their tags, values, layout and pages, and the
// dialog's reactions to the controls. The Host creates and reads the controls themselves.
#include "dialogs/gadget_dialog.h"

#include <algorithm>
#include <cstdio>

#include "engine/editor.h"
#include "host/host.h"

namespace ruvo {

namespace {

constexpr int CloseButtonWidth = 38;
constexpr int CloseButtonHeight = 12;
constexpr int DialogMarginUnits = 6;

Host& ThePlatform() {
    return TheEditor().host;
}

void UpdateControl(Gadget& gadget) {
    if (gadget.window != nullptr) ThePlatform().UpdateGadgetControl(gadget);
}

void ReportUnknownTag(int code, const char* where) {
    char text[80];
    std::snprintf(text, sizeof text, "Unknown flag '%d' in '%s'.\n", code, where);
    ThePlatform().ErrorBox(nullptr, text);
}

bool IsListType(GadgetType type) {
    return type == GadgetType::ListBox || type == GadgetType::DropDownList;
}

bool IsEditType(GadgetType type) {
    return type == GadgetType::Edit || type == GadgetType::ScrollingEdit;
}

int ClampedListIndex(const Gadget& gadget, int index) {
    if (index < 0 || gadget.items.empty()) return -1;
    return std::min(index, static_cast<int>(gadget.items.size()) - 1);
}

void SetBit(int& bits, int bit, bool on) {
    bits = on ? (bits | bit) : (bits & ~bit);
}

// The item-list tags of GlGadgetSet.
void ChangeItems(Gadget& gadget, const GadgetTag& tag) {
    const int count = static_cast<int>(gadget.items.size());
    const int index = tag.number;
    const std::string text = tag.text.value_or("");
    switch (tag.code) {
    case TagSetItemText:
        if (index >= 0 && index < count) gadget.items[index] = text;
        break;
    case TagInsertItem: {
        const int at = std::clamp(index, 0, count);
        gadget.items.insert(gadget.items.begin() + at, text);
        if (at < static_cast<int>(gadget.itemValues.size())) {
            gadget.itemValues.insert(gadget.itemValues.begin() + at, 0);
        }
        break;
    }
    case TagDeleteItem:
        if (index < 0 || index >= count) break;
        gadget.items.erase(gadget.items.begin() + index);
        if (index < static_cast<int>(gadget.itemValues.size())) {
            gadget.itemValues.erase(gadget.itemValues.begin() + index);
        }
        break;
    default:
        break;
    }
    if (IsListType(gadget.type)) gadget.value = ClampedListIndex(gadget, gadget.value);
}

// Applies one tag; false when the builder knows no meaning for it here.
bool ApplyTag(Gadget& gadget, const GadgetTag& tag, bool creating) {
    GadgetDialog& dialog = *gadget.dialog;
    switch (tag.code) {
    case TagCloseButton:
        gadget.closeButton = true;
        return true;
    case TagStateBits:
        gadget.stateBits = tag.number;
        return true;
    case TagCallback:
        gadget.callback = tag.callback;
        return true;
    case TagSecondState:
        SetBit(gadget.stateBits, GadgetSecondStateBit, tag.number != 0);
        return true;
    case TagDisabled:
        SetBit(gadget.stateBits, GadgetDisabledBit, tag.number != 0);
        return true;
    case TagOwnerData:
        gadget.ownerData = tag.number;
        return true;
    case TagIdentifier:
        gadget.identifier = static_cast<int16_t>(tag.number);
        return true;
    case TagFocus:
        dialog.focusGadget = &gadget;
        return true;
    case TagValue:
        if (gadget.IsTextType()) {
            gadget.textValue = tag.text.value_or("");
        } else {
            gadget.value = tag.number;
        }
        return true;
    case TagMaxLength:
        gadget.maxLength = tag.number;
        if (tag.number >= 0 && static_cast<int>(gadget.textValue.size()) > tag.number) {
            gadget.textValue.resize(tag.number);
        }
        return true;
    case TagLowLimit:
        gadget.lowLimit = tag.number;
        return true;
    case TagHighLimit:
        gadget.highLimit = tag.number;
        return true;
    case TagItems:
        gadget.items.insert(gadget.items.end(), tag.texts.begin(), tag.texts.end());
        return true;
    case TagColumns:
        gadget.columns = static_cast<int16_t>(tag.number);
        return true;
    case TagPerItemValues:
        gadget.perItemValuesEnabled = tag.number == 0;
        return true;
    case TagItemValue:
        if (gadget.perItemValuesEnabled && tag.number >= 0) {
            if (static_cast<int>(gadget.itemValues.size()) <= tag.number) {
                gadget.itemValues.resize(tag.number + 1);
            }
            gadget.itemValues[tag.number] = tag.second;
        }
        return true;
    case TagPageNames:
        gadget.items.insert(gadget.items.end(), tag.texts.begin(), tag.texts.end());
        if (gadget.type == GadgetType::TabControl) dialog.tabControl = &gadget;
        return true;
    case TagPage:
        gadget.page = tag.number;
        return true;
    case TagSetItemText:
    case TagInsertItem:
    case TagDeleteItem:
        if (creating) return false;
        ChangeItems(gadget, tag);
        return true;
    default:
        return false;
    }
}

// Applies tags in order until one is unknown; reports it under the operation's name.
void ApplyTags(Gadget& gadget, const std::vector<GadgetTag>& tags, bool creating) {
    for (const GadgetTag& tag : tags) {
        if (!ApplyTag(gadget, tag, creating)) {
            ReportUnknownTag(tag.code, creating ? "GlGadgetCreate" : "GlGadgetSet");
            return;
        }
    }
}

// A modal dialog ends with 1 when the callback reports "close", with 0 on 2; a modeless one
// hides.
int EndByCallbackResult(GadgetDialog& dialog, int result) {
    if (result == GadgetCloseOk) {
        ThePlatform().EndDialog(dialog, 1);
        return 1;
    }
    if (result == GadgetCloseCancel) {
        ThePlatform().EndDialog(dialog, 0);
        return 0;
    }
    return -1;
}

int RunCallback(Gadget& gadget) {
    if (!gadget.callback) return -1;
    GadgetDialog& dialog = *gadget.dialog;
    return EndByCallbackResult(dialog, gadget.callback(gadget));
}

void ShowPage(GadgetDialog& dialog) {
    for (const auto& gadget : dialog.gadgets) {
        if (gadget->window != nullptr) {
            ThePlatform().ShowGadgetControl(*gadget,
                                            GadgetShownOnPage(*gadget, dialog.currentPage));
        }
    }
}

} // namespace

// --- Tags -----------------------------------------------------------------------------------

namespace {
GadgetTag MakeTag(int code, int number = 0, int second = 0) {
    GadgetTag tag;
    tag.code = code;
    tag.number = number;
    tag.second = second;
    return tag;
}
} // namespace

GadgetTag CloseButtonTag() {
    return MakeTag(TagCloseButton);
}
GadgetTag StateBitsTag(int bits) {
    return MakeTag(TagStateBits, bits);
}
GadgetTag CallbackTag(GadgetCallback callback) {
    GadgetTag tag = MakeTag(TagCallback);
    tag.callback = std::move(callback);
    return tag;
}
GadgetTag SecondStateTag(bool on) {
    return MakeTag(TagSecondState, on ? 1 : 0);
}
GadgetTag DisabledTag(bool disabled) {
    return MakeTag(TagDisabled, disabled ? 1 : 0);
}
GadgetTag OwnerDataTag(int data) {
    return MakeTag(TagOwnerData, data);
}
GadgetTag IdentifierTag(int identifier) {
    return MakeTag(TagIdentifier, identifier);
}
GadgetTag FocusTag() {
    return MakeTag(TagFocus);
}
GadgetTag ValueTag(int value) {
    return MakeTag(TagValue, value);
}
GadgetTag ValueTag(std::string_view text) {
    GadgetTag tag = MakeTag(TagValue);
    tag.text = std::string(text);
    return tag;
}
GadgetTag MaxLengthTag(int length) {
    return MakeTag(TagMaxLength, length);
}
GadgetTag LowLimitTag(int limit) {
    return MakeTag(TagLowLimit, limit);
}
GadgetTag HighLimitTag(int limit) {
    return MakeTag(TagHighLimit, limit);
}
GadgetTag ItemsTag(std::vector<std::string> items) {
    GadgetTag tag = MakeTag(TagItems);
    tag.texts = std::move(items);
    return tag;
}
GadgetTag ColumnsTag(int columns) {
    return MakeTag(TagColumns, columns);
}
GadgetTag PerItemValuesTag(bool disabled) {
    return MakeTag(TagPerItemValues, disabled ? 1 : 0);
}
GadgetTag ItemValueTag(int index, int value) {
    return MakeTag(TagItemValue, index, value);
}
GadgetTag PageNamesTag(std::vector<std::string> names) {
    GadgetTag tag = MakeTag(TagPageNames);
    tag.texts = std::move(names);
    return tag;
}
GadgetTag PageTag(int page) {
    return MakeTag(TagPage, page);
}
GadgetTag SetItemTextTag(int index, std::string_view text) {
    GadgetTag tag = MakeTag(TagSetItemText, index);
    tag.text = std::string(text);
    return tag;
}
GadgetTag InsertItemTag(int index, std::string_view text) {
    GadgetTag tag = MakeTag(TagInsertItem, index);
    tag.text = std::string(text);
    return tag;
}
GadgetTag DeleteItemTag(int index) {
    return MakeTag(TagDeleteItem, index);
}
GadgetTag RawTag(int code, int number) {
    return MakeTag(code, number);
}

// --- Gadgets --------------------------------------------------------------------------------

bool Gadget::IsTextType() const {
    return IsEditType(type) || type == GadgetType::StaticText;
}

GadgetDialog::~GadgetDialog() {
    if (window != nullptr && HasEditor()) ThePlatform().DestroyDialogWindow(*this);
}

std::unique_ptr<GadgetDialog> createDialog(std::string_view title) {
    auto dialog = std::make_unique<GadgetDialog>();
    dialog->title = std::string(title);
    const Host::DialogBaseUnits units = ThePlatform().GetDialogBaseUnits();
    dialog->horizontalUnit = units.horizontal;
    dialog->verticalUnit = units.vertical + 1; // the added 1 is part of the design
    return dialog;
}

int DialogUnitsToPixelsX(const GadgetDialog& dialog, int units) {
    return units * dialog.horizontalUnit / 4;
}

int DialogUnitsToPixelsY(const GadgetDialog& dialog, int units) {
    return units * dialog.verticalUnit / 8;
}

Gadget* GlGadgetCreate(GadgetDialog& dialog, GadgetType type, int x, int y, int width, int height,
                       std::string_view text, const std::vector<GadgetTag>& tags) {
    auto gadget = std::make_unique<Gadget>();
    gadget->dialog = &dialog;
    gadget->type = type;
    gadget->controlId = FirstGadgetControlId + static_cast<int>(dialog.gadgets.size());
    gadget->x = DialogUnitsToPixelsX(dialog, x);
    gadget->y = DialogUnitsToPixelsY(dialog, y);
    gadget->width = DialogUnitsToPixelsX(dialog, width);
    gadget->height = DialogUnitsToPixelsY(dialog, height);
    gadget->text = std::string(text.substr(0, MaxGadgetCaption));
    if (IsEditType(type)) gadget->maxLength = DefaultEditLength;
    if (IsListType(type)) gadget->value = -1;
    Gadget* created = gadget.get();
    dialog.gadgets.push_back(std::move(gadget));
    ApplyTags(*created, tags, true);
    if (IsListType(type)) created->value = ClampedListIndex(*created, created->value);
    return created;
}

void GlGadgetSet(Gadget& gadget, const std::vector<GadgetTag>& tags) {
    ApplyTags(gadget, tags, false);
    UpdateControl(gadget);
}

int GlGadgetGet(Gadget& gadget) {
    if (gadget.IsTextType()) {
        (void)GlGadgetGetText(gadget);
        return 0;
    }
    return gadget.value;
}

const std::string& GlGadgetGetText(Gadget& gadget) {
    if (IsEditType(gadget.type) && gadget.window != nullptr) {
        if (std::optional<std::string> typed = ThePlatform().ReadGadgetText(gadget)) {
            gadget.textValue = std::move(*typed);
        }
    }
    return gadget.textValue;
}

void setGadgetValue(Gadget& gadget, int value) {
    gadget.value = IsListType(gadget.type) ? ClampedListIndex(gadget, value) : value;
    UpdateControl(gadget);
}

void setGadgetValue(Gadget& gadget, std::string_view text) {
    gadget.textValue = std::string(text);
    UpdateControl(gadget);
}

void ComputeDialogExtent(GadgetDialog& dialog) {
    int right = 0;
    int bottom = 0;
    for (const auto& gadget : dialog.gadgets) {
        right = std::max(right, gadget->x + gadget->width);
        bottom = std::max(bottom, gadget->y + gadget->height);
    }
    dialog.extentWidth = right + DialogUnitsToPixelsX(dialog, DialogMarginUnits);
    dialog.extentHeight = bottom + DialogUnitsToPixelsY(dialog, DialogMarginUnits);
}

void addCloseButtons(GadgetDialog& dialog, GadgetCallback apply, GadgetCallback cancel) {
    ComputeDialogExtent(dialog);
    const int unit = std::max(dialog.horizontalUnit, 1);
    const int vertical = std::max(dialog.verticalUnit, 1);
    const int third = dialog.extentWidth / 3;
    const int applyX = std::max(0, (third - 5 * unit) * 4 / unit);
    const int cancelX = std::max(0, (2 * third - 4 * unit) * 4 / unit);
    const int y = dialog.extentHeight * 8 / vertical;
    dialog.applyButton = GlGadgetCreate(dialog, GadgetType::PushButton, applyX, y, CloseButtonWidth,
                                        CloseButtonHeight, "&Apply",
                                        {CloseButtonTag(), CallbackTag(std::move(apply))});
    dialog.cancelButton = GlGadgetCreate(dialog, GadgetType::PushButton, cancelX, y,
                                         CloseButtonWidth, CloseButtonHeight, "&Cancel",
                                         {CloseButtonTag(), CallbackTag(std::move(cancel))});
    ComputeDialogExtent(dialog);
}

int showDialog(GadgetDialog& dialog, bool modal) {
    dialog.modal = modal;
    ComputeDialogExtent(dialog);
    return ThePlatform().RunDialog(dialog, modal);
}

void closeDialog(GadgetDialog& dialog) {
    ThePlatform().EndDialog(dialog, 1);
}

void destroyDialog(std::unique_ptr<GadgetDialog>& dialog) {
    dialog.reset();
}

// --- Layout ---------------------------------------------------------------------------------

GadgetRect RadioButtonRect(const Gadget& gadget, int index) {
    const int columns = std::max(gadget.columns, 1);
    const int count = static_cast<int>(gadget.items.size());
    const int rows = 2 * ((count + 1) / 2);
    GadgetRect rect;
    rect.width = gadget.width / columns;
    rect.height = rows > 0 ? gadget.height * columns / rows : gadget.height;
    rect.x = gadget.x + (index % columns) * rect.width;
    rect.y = gadget.y + (index / columns) * rect.height;
    return rect;
}

bool GadgetShownOnPage(const Gadget& gadget, int page) {
    return gadget.page == 0 || gadget.page == page;
}

// --- Events ---------------------------------------------------------------------------------

Gadget* GadgetByControlId(GadgetDialog& dialog, int controlId) {
    const int index = controlId - FirstGadgetControlId;
    if (index < 0 || index >= static_cast<int>(dialog.gadgets.size())) return nullptr;
    return dialog.gadgets[index].get();
}

void DialogOpened(GadgetDialog& dialog) {
    if (dialog.tabControl != nullptr) {
        dialog.currentPage = 1;
        dialog.tabControl->value = 0;
        UpdateControl(*dialog.tabControl);
    }
    ShowPage(dialog);
    if (dialog.focusGadget != nullptr && dialog.focusGadget->window != nullptr) {
        ThePlatform().FocusGadgetControl(*dialog.focusGadget);
    }
}

int GadgetNotified(GadgetDialog& dialog, int controlId, int newValue) {
    Gadget* gadget = GadgetByControlId(dialog, controlId);
    if (gadget == nullptr) return -1;
    if (gadget->IsTextType()) {
        (void)GlGadgetGetText(*gadget);
    } else if (gadget->type != GadgetType::PushButton) {
        gadget->value = IsListType(gadget->type) ? ClampedListIndex(*gadget, newValue) : newValue;
    }
    return RunCallback(*gadget);
}

int DialogOkCommand(GadgetDialog& dialog) {
    if (dialog.applyButton == nullptr) return -1;
    return RunCallback(*dialog.applyButton);
}

int DialogCancelCommand(GadgetDialog& dialog) {
    if (dialog.cancelButton != nullptr && dialog.cancelButton->callback) {
        return RunCallback(*dialog.cancelButton);
    }
    // Without a cancel action a modal dialog still ends, and a modeless one hides.
    ThePlatform().EndDialog(dialog, 0);
    return 0;
}

void DialogTabChanged(GadgetDialog& dialog, int selection) {
    dialog.currentPage = selection + 1;
    if (dialog.tabControl != nullptr) dialog.tabControl->value = selection;
    ShowPage(dialog);
}

} // namespace ruvo
