// The dialog builder's model: units and layout, tags and values, closing.
#include "dialogs/gadget_dialog.h"

#include "editor_fixture.h"

namespace ruvo {
namespace {

using GadgetDialogTest = EditorTest;

template <class Box> std::string Place(const Box& g) {
    return std::to_string(g.x) + "," + std::to_string(g.y) + " " + std::to_string(g.width) + "x" +
           std::to_string(g.height);
}

TEST_F(GadgetDialogTest, GadgetsArePlacedInDialogUnitsAndRadioRowsFillTheirGroup) {
    host.dialogBaseUnits = {7, 15}; // the vertical unit becomes 16
    auto dialog = createDialog("Units");
    Gadget* edit = GlGadgetCreate(*dialog, GadgetType::Edit, 46, 13, 112, 12, "",
                                  {ValueTag("abcdef"), MaxLengthTag(2), FocusTag()});
    EXPECT_EQ(std::tuple(Place(*edit), edit->textValue, edit->controlId, dialog->focusGadget),
              std::tuple("80,26 196x24", "ab", FirstGadgetControlId, edit));
    // Radio buttons in a 120 x 80 group: rows of a quarter (or more) of the height.
    const std::tuple<int, int, int, const char*> radios[] = {
        {3, 1, 2, "0,40 120x20"}, {4, 2, 3, "60,40 60x40"}, {5, 2, 4, "0,52 60x26"}};
    for (const auto& [items, columns, index, rect] : radios) {
        Gadget radio;
        std::tie(radio.width, radio.height, radio.columns) = std::tuple(120, 80, columns);
        radio.items.assign(items, "x");
        EXPECT_EQ(Place(RadioButtonRect(radio, index)), rect);
    }
}

TEST_F(GadgetDialogTest, TagsSetValuesAndItemsAndUnknownFlagsAreReported) {
    auto dialog = createDialog("Tags");
    Gadget* list = GlGadgetCreate(*dialog, GadgetType::ListBox, 0, 20, 40, 40, "",
                                  {ValueTag(7), ItemsTag({"a", "b", "c"}), OwnerDataTag(5),
                                   PerItemValuesTag(true), ItemValueTag(1, 4)});
    EXPECT_EQ(std::tuple(list->value, list->ownerData, list->itemValues.size()),
              std::tuple(2, 5, 0u)); // per-item values were disabled
    setGadgetValue(*list, -5);
    EXPECT_EQ(GlGadgetGet(*list), -1);
    setGadgetValue(*list, 1); // a selection for the deletes below to clear
    // The first and the last two are past the ends: nothing (the first while the list is full).
    GlGadgetSet(*list, {SetItemTextTag(3, "x"), InsertItemTag(0, "z"), SetItemTextTag(3, "C"),
                        DeleteItemTag(1), DeleteItemTag(3), DeleteItemTag(-1)});
    EXPECT_EQ(list->items, (Texts{"z", "b", "C"}));
    GlGadgetSet(*list, {DeleteItemTag(0), DeleteItemTag(0), DeleteItemTag(0)});
    EXPECT_EQ(list->value, -1) << "an empty list has no selection";

    Gadget* check =
        GlGadgetCreate(*dialog, GadgetType::CheckBox, 0, 70, 40, 12, "&On",
                       {DisabledTag(true), SecondStateTag(true), RawTag(99, 1), PageTag(2)});
    // The tags after an unknown one are not applied.
    EXPECT_EQ(std::tuple(check->stateBits, check->page),
              std::tuple(GadgetDisabledBit | GadgetSecondStateBit, 0));
    GlGadgetSet(*check, {DisabledTag(false), RawTag(5)});
    EXPECT_FALSE(check->IsDisabled());
    EXPECT_EQ(host.ErrorBoxTexts(), "Unknown flag '99' in 'GlGadgetCreate'.\n\n"
                                    "Unknown flag '5' in 'GlGadgetSet'.\n\n");
    EXPECT_EQ(GlGadgetGet(*GlGadgetCreate(*dialog, GadgetType::StaticText, 0, 0, 9, 9, "s",
                                          {ValueTag("text")})),
              0);
}

// Close buttons sit below the gadgets and end the dialog.
TEST_F(GadgetDialogTest, CloseButtonsSitBelowTheGadgetsAndEndTheDialog) {
    auto closing = createDialog("Close");
    Gadget* field =
        GlGadgetCreate(*closing, GadgetType::Edit, 6, 8, 150, 12, "", {MaxLengthTag(4)});
    addCloseButtons(
        *closing,
        [&](Gadget&) { return GlGadgetGetText(*field) == "keep" ? GadgetStayOpen : GadgetCloseOk; },
        [](Gadget&) { return GadgetCloseCancel; });
    const Gadget &apply = *closing->applyButton, &cancel = *closing->cancelButton;
    EXPECT_EQ(apply.text + cancel.text, "&Apply&Cancel");
    EXPECT_TRUE(apply.y > field->y + field->height && apply.x < cancel.x);
    host.dialogActions.push_back([&](GadgetDialog& d) {
        host.TypeText(*field, "keepers"); // cut to four characters as typed
        EXPECT_EQ(DialogOkCommand(d), -1);
        host.TypeText(*field, "done");
        EXPECT_EQ(DialogOkCommand(d), 1);
    });
    EXPECT_EQ(showDialog(*closing, true), 1);
    host.dialogActions.push_back([](GadgetDialog& d) { DialogCancelCommand(d); });
    EXPECT_EQ(showDialog(*closing, true), 0);
    showDialog(*closing, false); // shown without waiting: closing hides it
    closeDialog(*closing);
    EXPECT_FALSE(host.DialogVisible(*closing));
}

} // namespace
} // namespace ruvo
