// The dialog builder's model: units and layout, tags and values, closing, pages.
#include "dialogs/gadget_dialog.h"

#include <tuple>

#include "dialog_script.h"
#include "editor_fixture.h"

namespace ruvo {
namespace {

using GadgetDialogTest = EditorTest;

TEST_F(GadgetDialogTest, DialogUnitsAndRadioGridConvertByTheFormulas) {
    host.dialogBaseUnits = {7, 15}; // vertical unit becomes 16
    auto dialog = createDialog("Units");
    Gadget* edit = GlGadgetCreate(*dialog, GadgetType::Edit, 46, 13, 112, 12, "");
    EXPECT_EQ(std::tie(edit->x, edit->y, edit->width, edit->height),
              std::make_tuple(46 * 7 / 4, 13 * 16 / 8, 112 * 7 / 4, 12 * 16 / 8));
    EXPECT_EQ(edit->maxLength, DefaultEditLength);
    EXPECT_EQ(edit->controlId, FirstGadgetControlId);

    struct Case {
        int items, columns, index;
        GadgetRect expected; // relative to a 120 x 80 pixel group at 0, 0
    };
    const Case cases[] = {
        {3, 1, 0, {0, 0, 120, 20}}, // three in one column: a quarter of the height each
        {3, 1, 2, {0, 40, 120, 20}},
        {2, 1, 1, {0, 40, 120, 40}},
        {4, 2, 3, {60, 40, 60, 40}}, // two columns: next row after two buttons
        {5, 2, 4, {0, 52, 60, 26}}};
    for (const Case& c : cases) {
        Gadget radio;
        radio.width = 120;
        radio.height = 80;
        radio.columns = c.columns;
        radio.items.assign(c.items, "x");
        const GadgetRect r = RadioButtonRect(radio, c.index);
        EXPECT_EQ(std::tie(r.x, r.y, r.width, r.height),
                  std::tie(c.expected.x, c.expected.y, c.expected.width, c.expected.height))
            << c.items << "/" << c.columns << "/" << c.index;
    }
}

TEST_F(GadgetDialogTest, TagsSetValuesItemsAndStopAtAnUnknownOne) {
    auto dialog = createDialog("Tags");
    Gadget* edit = GlGadgetCreate(*dialog, GadgetType::Edit, 0, 0, 40, 12, "",
                                  {ValueTag("abcdef"), MaxLengthTag(2), FocusTag()});
    EXPECT_EQ(edit->textValue, "ab");
    EXPECT_EQ(dialog->focusGadget, edit);

    Gadget* list = GlGadgetCreate(*dialog, GadgetType::ListBox, 0, 20, 40, 40, "",
                                  {ValueTag(7), ItemsTag({"a", "b", "c"}), OwnerDataTag(5),
                                   PerItemValuesTag(true), ItemValueTag(1, 4)});
    GlGadgetSet(*list, {SetItemTextTag(3, "x"), DeleteItemTag(3)}); // one past the end: nothing
    EXPECT_EQ(list->items, (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(list->value, 2);
    EXPECT_EQ(list->ownerData, 5);
    EXPECT_TRUE(list->itemValues.empty()) << "per-item values were disabled";
    const std::pair<int, int> indexes[] = {{7, 2}, {-5, -1}, {1, 1}};
    for (auto [given, shown] : indexes) {
        setGadgetValue(*list, given);
        EXPECT_EQ(GlGadgetGet(*list), shown) << given;
    }
    GlGadgetSet(*list, {InsertItemTag(0, "z"), SetItemTextTag(3, "C"), DeleteItemTag(1),
                        SetItemTextTag(3, "x"), DeleteItemTag(3), DeleteItemTag(-1)});
    EXPECT_EQ(list->items, (std::vector<std::string>{"z", "b", "C"}));
    GlGadgetSet(*list, {DeleteItemTag(0), DeleteItemTag(0), DeleteItemTag(0)});
    EXPECT_EQ(list->value, -1) << "an empty list has no selection";

    Gadget* check =
        GlGadgetCreate(*dialog, GadgetType::CheckBox, 0, 70, 40, 12, "&On",
                       {DisabledTag(true), SecondStateTag(true), RawTag(99, 1), PageTag(2)});
    EXPECT_EQ(check->stateBits, GadgetDisabledBit | GadgetSecondStateBit);
    EXPECT_EQ(check->page, 0) << "the tags after the unknown one are not applied";
    GlGadgetSet(*check, {DisabledTag(false), RawTag(5)});
    EXPECT_FALSE(check->IsDisabled());
    ASSERT_EQ(host.boxes.size(), 2u);
    EXPECT_EQ(host.boxes[0].text, "Unknown flag '99' in 'GlGadgetCreate'.\n");
    EXPECT_EQ(host.boxes[1].text, "Unknown flag '5' in 'GlGadgetSet'.\n");
    EXPECT_EQ(GlGadgetGet(*GlGadgetCreate(*dialog, GadgetType::StaticText, 0, 0, 9, 9, "s",
                                          {ValueTag("text")})),
              0);
}

TEST_F(GadgetDialogTest, CloseButtonsSitBelowTheGadgetsAndEndTheDialog) {
    auto dialog = createDialog("Close");
    Gadget* edit = GlGadgetCreate(*dialog, GadgetType::Edit, 6, 8, 150, 12, "", {MaxLengthTag(4)});
    int applied = 0;
    addCloseButtons(
        *dialog,
        [&](Gadget&) {
            ++applied;
            return GlGadgetGetText(*edit) == "keep" ? GadgetStayOpen : GadgetCloseOk;
        },
        [](Gadget&) { return GadgetCloseCancel; });
    ASSERT_NE(dialog->applyButton, nullptr);
    EXPECT_EQ(dialog->applyButton->text, "&Apply");
    EXPECT_EQ(dialog->cancelButton->text, "&Cancel");
    EXPECT_TRUE(dialog->applyButton->closeButton);
    EXPECT_GT(dialog->applyButton->y, edit->y + edit->height);
    EXPECT_LT(dialog->applyButton->x, dialog->cancelButton->x);
    EXPECT_EQ(dialog->applyButton->width, 38 * 8 / 4);

    host.dialogActions.push_back([&](GadgetDialog& d) {
        host.TypeText(*edit, "keepers"); // cut to four characters as typed
        EXPECT_EQ(DialogOkCommand(d), -1);
        host.TypeText(*edit, "done");
        EXPECT_EQ(DialogOkCommand(d), 1);
    });
    EXPECT_EQ(showDialog(*dialog, true), 1);
    EXPECT_EQ(applied, 2);
    host.dialogActions.push_back([](GadgetDialog& d) { DialogCancelCommand(d); });
    EXPECT_EQ(showDialog(*dialog, true), 0);
    EXPECT_EQ(showDialog(*dialog, true), 0) << "no action: cancelled";
    EXPECT_EQ(host.shownDialogs, (std::vector<std::string>{"Close", "Close", "Close"}));

    auto bare = createDialog("Bare"); // no cancel action: Escape still ends it, or hides it
    Gadget* box = GlGadgetCreate(*bare, GadgetType::CheckBox, 0, 0, 40, 10, "&x",
                                 {CallbackTag([](Gadget& g) { return g.value ? 1 : 0; })});
    showDialog(*bare, false);
    EXPECT_TRUE(host.DialogVisible(*bare));
    EXPECT_EQ(GadgetNotified(*bare, box->controlId, 0), -1);
    EXPECT_TRUE(host.DialogVisible(*bare));
    EXPECT_EQ(GadgetNotified(*bare, box->controlId, 1), 1);
    EXPECT_FALSE(host.DialogVisible(*bare));
    EXPECT_EQ(GlGadgetGet(*box), 1);
    showDialog(*bare, false);
    DialogCancelCommand(*bare);
    EXPECT_FALSE(host.DialogVisible(*bare));
}

TEST_F(GadgetDialogTest, TabPagesShowTheirGadgetsAndThoseOfEveryPage) {
    auto dialog = createDialog("Pages");
    Gadget* tabs = GlGadgetCreate(*dialog, GadgetType::TabControl, 0, 0, 200, 120, "",
                                  {PageNamesTag({"Window", "Font"})});
    Gadget* first = GlGadgetCreate(*dialog, GadgetType::CheckBox, 8, 20, 60, 12, "a", {PageTag(1)});
    Gadget* second =
        GlGadgetCreate(*dialog, GadgetType::Edit, 8, 20, 60, 12, "", {PageTag(2), FocusTag()});
    Gadget* always = GlGadgetCreate(*dialog, GadgetType::StaticText, 8, 100, 60, 12, "all");
    EXPECT_EQ(dialog->tabControl, tabs);
    showDialog(*dialog, false);
    EXPECT_EQ(dialog->currentPage, 1);
    EXPECT_EQ(host.focusedGadget, second);
    const struct {
        int selection;
        bool first, second;
    } steps[] = {{0, true, false}, {1, false, true}, {0, true, false}};
    for (const auto& step : steps) {
        DialogTabChanged(*dialog, step.selection);
        EXPECT_EQ(dialog->currentPage, step.selection + 1);
        EXPECT_EQ(host.gadgetShown[first], step.first);
        EXPECT_EQ(host.gadgetShown[second], step.second);
        EXPECT_TRUE(host.gadgetShown[always]);
        EXPECT_TRUE(host.gadgetShown[tabs]);
    }
}

} // namespace
} // namespace ruvo
