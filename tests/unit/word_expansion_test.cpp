// Word expansion: abbreviations and template references of the language, and completion from
// earlier words of the text.
#include <string>

#include "aids/word_expansion.h"
#include "dialogs/gadget_dialog.h"
#include "engine/editing_commands.h"
#include "lang/language_table.h"

#include "buffer_builder.h"
#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

class WordExpansionTest : public EditorTest {
  protected:
    void Abbreviate(const std::string& name, const std::string& value) {
        LanguageDef& vhdl = LanguageEntry(1);
        vhdl.name = "VHDL";
        EXPECT_TRUE(vhdl.expanderNames.Append(name));
        EXPECT_TRUE(vhdl.expanderValues.Append(value));
    }
};

TEST_F(WordExpansionTest, LanguageExpandReplacesTheWordByValueOrTemplate) {
    TempFile templates("[ent(name)]\nentity $1$ is\nend entity $1$;\n[bare()]\n");
    Abbreviate("sig", "signal ");
    Abbreviate("ent", "[" + templates.path() + "][ent]");
    Abbreviate("bad", "[" + templates.path() + "[ent]");
    Abbreviate("gone", "[" + templates.path() + "][nope]");
    TestBuffer buffer("sig\n  SIG\nx bad\nx gone\n  ent");
    buffer->language = &LanguageEntry(1);

    buffer.PlaceCaret(0, 0); // column 0: nothing
    LanguageExpand();
    buffer.PlaceCaret(1, 5);
    LanguageExpand();
    EXPECT_EQ(buffer->cursor, MakePos(1, 9));
    buffer.PlaceCaret(2, 5);
    LanguageExpand();
    buffer.PlaceCaret(3, 6);
    LanguageExpand();
    EXPECT_EQ(host.ErrorBoxTexts(),
              "Template \"nope\" not found in file \"" + templates.path() + "\" .\n");
    EXPECT_EQ(buffer.Text(), "sig\n  signal \nx bad\nx gone\n  ent");

    buffer.PlaceCaret(4, 5);
    host.dialogActions.push_back([](GadgetDialog& dialog) { DialogCancelCommand(dialog); });
    LanguageExpand();
    EXPECT_EQ(buffer.Text(), "sig\n  signal \nx bad\nx gone\n  ent");
    host.dialogActions.push_back([this](GadgetDialog& dialog) {
        host.TypeText(*dialog.gadgets[1], "alu");
        DialogOkCommand(dialog);
    });
    LanguageExpand();
    EXPECT_EQ(buffer.Text(), "sig\n  signal \nx bad\nx gone\n  entity alu is\nend entity alu;\n");
    EditUndo(); // the word comes back with the same step
    EXPECT_EQ(buffer.Text(), "sig\n  signal \nx bad\nx gone\n  ent");
}

TEST_F(WordExpansionTest, IdentifierExpandTakesEachEarlierWordOnceThenSaysSo) {
    TestBuffer buffer("clock <= '0';\nclear <= xclear;\nclr; cl");
    buffer.PlaceCaret(2, 7);
    const char* expected[] = {"clr", "clear", "clock"};
    for (const char* word : expected) {
        IdentifierExpand();
        EXPECT_EQ(buffer.Text(), "clock <= '0';\nclear <= xclear;\nclr; " + std::string(word));
    }
    IdentifierExpand();
    EXPECT_EQ(host.statusPanes[4], "No string matching 'cl' found.");
    EXPECT_EQ(buffer.Text(), "clock <= '0';\nclear <= xclear;\nclr; clock");

    // Moving the cursor starts a new completion, which may take the last candidate again.
    buffer.PlaceCaret(1, 2);
    IdentifierExpand();
    EXPECT_EQ(buffer.Text(), "clock <= '0';\nclockear <= xclear;\nclr; clock");
}

} // namespace
} // namespace ruvo
