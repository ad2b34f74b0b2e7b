// Range edits: comment, indent and reserved-word case over selected lines, and the HDL Edits
// dialog that chooses the range.
#include <string>

#include "aids/hdl_edits_dialog.h"
#include "aids/range_edits.h"
#include "dialogs/gadget_dialog.h"
#include "engine/editing_commands.h"
#include "lang/keyword_lookup.h"

#include "buffer_builder.h"
#include "dialog_script.h"
#include "editor_fixture.h"

namespace ruvo {
namespace {

class RangeEditsTest : public EditorTest {
  protected:
    RangeEditsTest() {
        LanguageDef& vhdl = LanguageEntry(1);
        vhdl.name = "VHDL";
        vhdl.lineComment = "--";
        vhdl.caseSensitive = false;
        for (const char* word : {"signal", "end", "is", "entity"})
            EXPECT_TRUE(vhdl.groups[0].words.Append(word));
        EXPECT_TRUE(vhdl.groups[1].words.Append("std_logic"));
        SortKeywords(vhdl.groups[0].words);
    }
};

TEST_F(RangeEditsTest, SelectedLinesCommandsChangeOneLineStartEach) {
    struct Case {
        int (*command)();
        TextPos from, to;
        const char* expected;
        int edits;
    } cases[] = {
        // A selection ending at column 0 of line 4 takes lines 1 to 3.
        {AddComment, {1, 2}, {4, 0}, "a;\n--signal b;\n--\tc;\n--end\nx", 3},
        {RemoveComment, {0, 0}, {4, 1}, "a;\nsignal b;\n\tc;\nend\nx", 3},
        {AddIndent, {3, 0}, {4, 0}, "a;\n--signal b;\n\tc;\n\tend\nx", 1},
        {RemoveIndent, {0, 0}, {4, 0}, "a;\n--signal b;\n\tc;\n  end\nx", 1},
    };
    const char* texts[] = {"a;\nsignal b;\n\tc;\nend\nx", "a;\n--signal b;\n--\tc;\n--end\nx",
                           "a;\n--signal b;\n\tc;\nend\nx", "a;\n--signal b;\n\t\tc;\n  end\nx"};
    int i = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.expected);
        TestBuffer buffer(texts[i++]);
        buffer->language = &LanguageEntry(1);
        buffer.Select(c.from, c.to);
        c.command();
        EXPECT_EQ(buffer.Text(), c.expected);
        EXPECT_EQ(buffer.LoggedTransactions(), c.edits);
    }

    // The selection stays on its lines, so the command can be repeated.
    TestBuffer buffer("signal a;\nb;");
    buffer->language = &LanguageEntry(1);
    buffer.Select(MakePos(0, 3), MakePos(1, 1));
    AddComment();
    EXPECT_EQ(buffer->selStart, MakePos(0, 5));
    EXPECT_EQ(buffer->selEnd, MakePos(1, 3));
    AddComment();
    EXPECT_EQ(buffer.Text(), "----signal a;\n----b;");
    RemoveComment();
    EditUndo(); // one line's edit
    EXPECT_EQ(buffer.Text(), "--signal a;\n----b;");
}

TEST_F(RangeEditsTest, CaseChangesReservedWordsOutsideComments) {
    TestBuffer buffer("Entity e IS\nsignal ends_in : std_logic; -- signal end\n9end");
    buffer->language = &LanguageEntry(1);
    ApplyRangeEdit(RangeAction::Case, true, -4, 99);
    EXPECT_EQ(buffer.Text(), "ENTITY e IS\nSIGNAL ends_in : std_logic; -- signal end\n9END");
    EXPECT_EQ(buffer.LoggedTransactions(), 3);
    ApplyRangeEdit(RangeAction::Case, false, 1, 0); // inverted: nothing
    ApplyRangeEdit(RangeAction::Case, false, 0, 1);
    EXPECT_EQ(buffer.Text(), "entity e is\nsignal ends_in : std_logic; -- signal end\n9END");
}

TEST_F(RangeEditsTest, DialogNeedsARangeAndTicksOneBoxOnly) {
    TestBuffer buffer("a\nb\nc");
    buffer->language = &LanguageEntry(1);
    buffer.PlaceCaret(1, 0);
    host.dialogActions.push_back([this](GadgetDialog& dialog) {
        EXPECT_EQ(GlGadgetGetText(*GadgetAfter(dialog, "S&tart at line:")), "2");
        EXPECT_TRUE(GadgetWithText(dialog, "&Selection")->IsDisabled());
        EXPECT_EQ(DialogOkCommand(dialog), -1);
        EXPECT_EQ(host.ErrorBoxTexts(), "No valid range specified.\n");
        Gadget& action = *dialog.gadgets[2];
        GadgetNotified(dialog, action.controlId, 1);
        EXPECT_EQ(dialog.gadgets[3]->items, (std::vector<std::string>{"&Indent", "&Un-indent"}));
        host.TypeText(*GadgetAfter(dialog, "&End at line:"), "3");
        EXPECT_EQ(DialogOkCommand(dialog), 1);
    });
    EditSpecial();
    EXPECT_EQ(buffer.Text(), "a\n\tb\n\tc");

    buffer.Select(MakePos(0, 0), MakePos(0, 1));
    host.dialogActions.push_back([](GadgetDialog& dialog) {
        Gadget& selection = *GadgetWithText(dialog, "&Selection");
        Gadget& all = *GadgetWithText(dialog, "A&ll");
        GadgetNotified(dialog, selection.controlId, 1);
        GadgetNotified(dialog, all.controlId, 1);
        EXPECT_EQ(selection.value, 0);
        EXPECT_TRUE(GadgetAfter(dialog, "S&tart at line:")->IsDisabled());
        GadgetNotified(dialog, dialog.gadgets[3]->controlId, 1); // un-indent
        DialogOkCommand(dialog);
    });
    EditSpecial();
    EXPECT_EQ(buffer.Text(), "a\nb\nc");
}

} // namespace
} // namespace ruvo
