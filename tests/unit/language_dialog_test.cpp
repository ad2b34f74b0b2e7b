// The language dialog: adding and deleting entries, fields stored at once, Cancel.
#include "lang/language_dialog.h"

#include <string>
#include <vector>

#include "dialogs/gadget_dialog.h"
#include "docs/documents.h"
#include "engine/edit_buffer.h"
#include "lang/language_edits.h"
#include "lang/language_io.h"

#include "editor_fixture.h"

namespace ruvo {
namespace {

class LanguageDialogTest : public EditorTest {
  protected:
    void Languages(const std::vector<std::string>& names) {
        for (size_t i = 0; i + 1 < LanguageCount; ++i) {
            const std::string name = i < names.size() ? names[i] : "";
            host.SetProfile("Languages", std::to_string(i + 1), name);
            if (!name.empty()) host.SetProfile(name, "Extension", "x" + name);
        }
        LoadLanguages();
    }
    LanguageDialogState& Dialog() { return editor.languages.dialog; }
    std::vector<std::string> ListedNames() { return Dialog().languages->items; }
    // Everything the profile would keep of the table.
    std::vector<std::string> SavedTable() {
        host.profileWrites.clear();
        SaveLanguages();
        return host.profileWrites;
    }
    int Press(Gadget* gadget, int value = 0) {
        return GadgetNotified(*Dialog().dialog, gadget->controlId, value);
    }
    void Type(Gadget* field, std::string_view text) {
        host.TypeText(*field, text);
        Press(field);
    }
};

TEST_F(LanguageDialogTest, AddingAndDeletingKeepTheListOnTheTable) {
    const struct Case {
        std::vector<std::string> named;
        int selected;
        bool add; // else delete
        std::vector<std::string> listed;
        int shown;
    } cases[] = {
        {{"A", "B", "C", "D", "E"}, 1, false, {"None", "B", "C", "D"}, 0}, // entry 5 is lost too
        {{"A", "B", "C", "D", "E"}, 5, false, {"None", "A", "B", "C", "D"}, 4},
        {{"A", "B"}, 2, false, {"None", "A"}, 1},
        {{"A", "B"}, 1, true, {"None", "A", "New", "B"}, 2},
        {{"A", "B", "C", "D"}, 0, true, {"None", "New", "A", "B", "C", "D"}, 1},
    };
    for (const Case& c : cases) {
        for (int i = 1; i < LanguageCount; ++i)
            LanguageEntry(i) = LanguageDef{};
        Languages(c.named);
        LanguageOptions();
        Press(Dialog().languages, c.selected);
        host.inputAnswers.push_back("New");
        Press(c.add ? Dialog().addButton : Dialog().deleteButton);
        EXPECT_EQ(ListedNames(), c.listed) << c.selected;
        for (int i = static_cast<int>(c.listed.size()); i < LanguageCount; ++i)
            EXPECT_FALSE(LanguageEntry(i).IsUsed()) << "no named entry after an unused one";
        EXPECT_EQ(Dialog().languages->value, c.shown);
        EXPECT_EQ(Dialog().deleteButton->IsDisabled(), c.shown == 0);
        EXPECT_EQ(Dialog().addButton->IsDisabled(), c.listed.size() == LanguageCount);
        if (c.add) {
            EXPECT_EQ(LanguageEntry(c.shown).filter, LanguageEntry(0).filter);
        }
        DialogOkCommand(*Dialog().dialog);
    }
    ASSERT_EQ(host.inputRequests.size(), 2u);
    EXPECT_EQ(host.inputRequests[0].prompt, "Name of new language : ");
    EXPECT_EQ(host.inputRequests[0].maxLength, 79);

    LanguageMove move; // the table full: inserting drops the last entry
    EXPECT_EQ(AddLanguage(2, "Z", move), 3);
    EXPECT_EQ(LanguageEntry(5).name, "C");
    EXPECT_EQ(move.to[5], -1);
    EXPECT_EQ(AddLanguage(5, "Y", move), -1);
}

TEST_F(LanguageDialogTest, FieldsGoIntoTheShownEntryAtOnce) {
    Languages({"VHDL", "Verilog"});
    LanguageOptions();
    Press(Dialog().languages, 2);
    const std::pair<std::string, std::string> extensions[] = {
        {"*.vhd; *.vhdl", "vhd,vhdl"}, {"*.v", "v"}, {" .sv|*.v\t", "sv,v"}};
    for (const auto& [typed, stored] : extensions) {
        Type(Dialog().extensions, typed);
        EXPECT_EQ(LanguageEntry(2).extensions, stored);
    }
    Press(Dialog().syntaxItems, 5); // KeywordCat2: blue, bold and italic
    EXPECT_EQ(GlGadgetGetText(*Dialog().colorParts[2]), "255");
    const std::string reds[] = {"12", "256", ""}; // out of range or empty: the old part stays
    for (const std::string& red : reds) {
        Type(Dialog().colorParts[0], red);
        EXPECT_EQ(LanguageEntry(2).groups[1].attribute.color, MakeColor(12, 0, 255)) << red;
    }
    Press(Dialog().typefaceBits[2], 1);
    EXPECT_EQ(LanguageEntry(2).groups[1].attribute.typeface, 7);
    EXPECT_EQ(host.editWindowRefreshes, 4) << "each colour change repaints at once";
    EXPECT_EQ(LanguageEntry(1).extensions, "xVHDL") << "the other entries stay";
}

TEST_F(LanguageDialogTest, CancelBringsBackTheTableAndTheBuffersLanguages) {
    Languages({"VHDL", "Verilog", "Text"});
    const std::vector<std::string> before = SavedTable();
    EditBuffer* buffers[2];
    for (EditBuffer*& buffer : buffers) {
        ASSERT_EQ(openFile("Untitled", 1, 0, KindDocument), 0);
        buffer = editor.documents.buffers.back();
    }
    buffers[0]->language = &LanguageEntry(1);
    buffers[1]->language = &LanguageEntry(3);
    editor.engine.currentBuffer = buffers[0];

    LanguageOptions();
    EXPECT_EQ(Dialog().languages->value, 1) << "the active buffer's language is shown";
    Press(Dialog().syntaxItems, 4);
    Type(Dialog().colorParts[1], "77");
    host.inputAnswers.push_back("Added");
    Press(Dialog().addButton); // after VHDL: Text moves to entry 4
    EXPECT_EQ(buffers[1]->language, &LanguageEntry(4));
    Press(Dialog().languages, 1);
    Press(Dialog().deleteButton);
    EXPECT_EQ(ListedNames(), (std::vector<std::string>{"None", "Added", "Verilog", "Text"}));
    EXPECT_EQ(buffers[0]->language, &LanguageEntry(0)) << "its language was deleted";
    EXPECT_EQ(buffers[1]->language, &LanguageEntry(3));
    EXPECT_EQ(DialogCancelCommand(*Dialog().dialog), 0);
    EXPECT_EQ(SavedTable(), before);
    EXPECT_EQ(LanguageEntry(1).groups[0].attribute.color, MakeColor(255, 0, 0));
    EXPECT_EQ(buffers[0]->language, &LanguageEntry(1));
    EXPECT_EQ(buffers[1]->language, &LanguageEntry(3));
}

} // namespace
} // namespace ruvo
