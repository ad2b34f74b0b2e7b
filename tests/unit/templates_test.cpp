// The HDL aids: template files (the reader's reports, expansion, the two dialogs, expansion by
// name, the [Templates] profile section), range edits with their dialog, word expansion.
#include <algorithm>
#include <tuple>

#include "aids/hdl_aids_state.h"
#include "aids/hdl_edits_dialog.h"
#include "aids/range_edits.h"
#include "aids/template_expand.h"
#include "aids/template_profile.h"
#include "aids/templates_dialog.h"
#include "aids/word_expansion.h"
#include "dialogs/gadget_dialog.h"
#include "engine/editing_commands.h"
#include "lang/keyword_lookup.h"
#include "lang/language_io.h"
#include "lang/language_table.h"
#include "settings/error_report.h"
#include "settings/profile.h"

#include "buffer_builder.h"
#include "dialog_script.h"
#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

class TemplatesTest : public EditorTest {
  protected:
    // The start-up error lines after the banner.
    std::vector<std::string> Reports() const {
        std::vector<std::string> lines;
        const LineList* log = editor.settings.startupErrors.lines;
        for (int32_t i = 3; log != nullptr && i < log->lineCount; ++i)
            lines.emplace_back(log->lineText[i]);
        return lines;
    }
    static std::vector<std::string> Names(const TemplateFile& file) {
        std::vector<std::string> names;
        for (const Template& entry : file.templates)
            names.push_back(entry.name);
        return names;
    }
    TemplateState& state() { return editor.hdlAids.templates; }
    // VHDL as language 1: its comment, reserved words and a type, and abbreviations.
    LanguageDef& Vhdl(std::vector<std::pair<std::string, std::string>> abbreviations = {}) {
        LanguageDef& vhdl = LanguageEntry(1);
        vhdl.name = "VHDL";
        vhdl.lineComment = "--";
        vhdl.caseSensitive = false;
        for (const char* word : {"signal", "end", "is", "entity"})
            EXPECT_TRUE(vhdl.groups[0].words.Append(word));
        EXPECT_TRUE(vhdl.groups[1].words.Append("std_logic"));
        SortKeywords(vhdl.groups[0].words);
        for (const auto& [name, value] : abbreviations) {
            EXPECT_TRUE(vhdl.expanderNames.Append(name));
            EXPECT_TRUE(vhdl.expanderValues.Append(value));
        }
        return vhdl;
    }
};

TEST_F(TemplatesTest, ReaderKeepsGoodTemplatesAndReportsEachFault) {
    const std::string name30(30, 'n');
    const std::string param31(31, 'p');
    struct Case {
        std::string text;
        std::vector<std::string> names;
        std::vector<std::string> reports; // "@" stands for "\tthis error occured ... <path>."
    } cases[] = {
        {"before\n[and2(a, b)] text after\ny <= $1$ and $2$;\n[empty()]\n", {"and2", "empty"}, {}},
        {"[t(a,,b)]\nx\n[ok()]\n", {"ok"}, {"Error 8: Missing parameter name in: t.", "@"}},
        {"[t(a,b,c,d,e,f)]\n[five( a ,b,c,d,e )]\n",
         {"five"},
         {"Error 8: Too many parameters in: t.", "@"}},
        {"[" + name30 + "()]\n[" + name30 + "x()]\n",
         {name30},
         {"Error 8: Too long template name:  " + name30 + "x.", "@"}},
        {"[t(a, " + param31 + ")]\n", {}, {"Error 8: Too long parameter name in: t.", "@"}},
        {"[and2]\n[x(a)\n[ (a)]\n",
         {},
         {"Error 8: Incorrectly delimited parameter list in: and.", "@",
          "Error 8: Incorrectly delimited template header: [x(a).", "@",
          "Error 8: Missing template name with parameter list: a).", "@"}},
        {"[t(a)]\n$0$ $1$ $2$\r\n",
         {"t"},
         {"Error 8: Body contains placeholder of non-existent parameter in: t.", "@",
          "Error 8: Body contains placeholder of non-existent parameter in: t.", "@"}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        TempFile file(c.text);
        const size_t reported = Reports().size();
        const TemplateFile* loaded = LoadTemplateFile(file.path());
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(Names(*loaded), c.names);
        std::vector<std::string> expected;
        for (const std::string& line : c.reports)
            expected.push_back(
                line == "@" ? "Error 8: \tthis error occured in template file: " + file.path() + "."
                            : line);
        const std::vector<std::string> all = Reports();
        EXPECT_EQ(std::vector<std::string>(all.begin() + static_cast<long>(reported), all.end()),
                  expected);
    }
    const Template& and2 = state().loadedFiles[0]->templates[0];
    EXPECT_EQ(and2.paramNames[1], "b");
    EXPECT_EQ(and2.body, "y <= $1$ and $2$;\n");
    const Template& t = state().loadedFiles.back()->templates[0];
    EXPECT_EQ(t.placeholderUses[0], 1);
    EXPECT_EQ(ExpandTemplateBody(t, {"v"}), "$0$ v $2$\n");

    EXPECT_EQ(LoadTemplateFile("/no/such/file.tpl"), nullptr);
    EXPECT_EQ(Reports().back(), "Error 2: Cannot open template file '/no/such/file.tpl'.");
}

TEST_F(TemplatesTest, DialogsInsertWithValuesKeptAsOneEdit) {
    TempFile file("[and2(a, b)]\ny <= $1$ and $2$;\n[empty()]\n-- empty\n");
    ASSERT_NE(LoadTemplateFile(file.path()), nullptr);
    TestBuffer buffer("first\nlast");
    buffer.PlaceCaret(1, 0);
    // Chooses the file and then each template in turn, by the Insert button or a double click.
    auto chooseTemplates = [](std::vector<int> templateIndexes, bool doubleClick) {
        return [=](GadgetDialog& dialog) {
            ASSERT_EQ(dialog.gadgets[0]->items.size(), 1u);
            GadgetNotified(dialog, dialog.gadgets[0]->controlId, 0);
            Gadget& insert = *GadgetWithText(dialog, "&Insert >>");
            EXPECT_TRUE(insert.IsDisabled());
            Gadget& templates = *dialog.gadgets[1];
            EXPECT_EQ(templates.items, (std::vector<std::string>{"and2", "empty"}));
            for (int index : templateIndexes) {
                templates.doubleClicked = doubleClick;
                GadgetNotified(dialog, templates.controlId, index);
                EXPECT_FALSE(insert.IsDisabled());
                templates.doubleClicked = false;
                if (!doubleClick) GadgetNotified(dialog, insert.controlId, 0);
            }
            GadgetNotified(dialog, GadgetWithText(dialog, "&Close")->controlId, 0);
        };
    };
    host.dialogActions.push_back(chooseTemplates({0}, false));
    host.dialogActions.push_back([this](GadgetDialog& dialog) {
        EXPECT_EQ(dialog.gadgets[0]->text, "a");
        EXPECT_EQ(host.gadgetShown[dialog.gadgets[4].get()], false); // row 2 hidden
        EXPECT_EQ(host.focusedGadget, dialog.gadgets[1].get());
        host.TypeText(*dialog.gadgets[1], "x1");
        host.TypeText(*dialog.gadgets[3], "x2");
        DialogOkCommand(dialog);
    });
    EditTemplates();
    EXPECT_EQ(buffer.Text(), "first\ny <= x1 and x2;\nlast");
    EXPECT_EQ(buffer->cursor, MakePos(2, 0));

    // The values stay for the next use; the template without parameters needs no dialog.
    host.dialogActions.push_back(chooseTemplates({0, 1}, true));
    host.dialogActions.push_back([](GadgetDialog& dialog) {
        EXPECT_EQ(GlGadgetGetText(*dialog.gadgets[3]), "x2");
        DialogCancelCommand(dialog);
    });
    EditTemplates();
    EXPECT_EQ(host.shownDialogs, (std::vector<std::string>{"Templates", "Expand Template",
                                                           "Templates", "Expand Template"}));
    EXPECT_EQ(buffer.Text(), "first\ny <= x1 and x2;\n-- empty\nlast");
    EditUndo();
    EditUndo();
    EXPECT_EQ(buffer.Text(), "first\nlast");
}

TEST_F(TemplatesTest, ExpandByNameWarnsOfAMissingFileOrTemplate) {
    TempFile file("[empty()]\nx\n");
    TestBuffer buffer("");
    EXPECT_EQ(ExpandTemplateByName(file.path() + "-gone", "empty"), 0);
    EXPECT_EQ(ExpandTemplateByName(file.path(), "Empty"), 0);
    EXPECT_EQ(ExpandTemplateByName(file.path(), "empty"), 1);
    EXPECT_EQ(host.ErrorBoxTexts(), "Template file \"" + file.path() + "-gone\" not found.\n" +
                                        "Template \"Empty\" not found in file \"" + file.path() +
                                        "\" .\n");
    EXPECT_EQ(host.boxes[0].caption, "Warning");
    EXPECT_EQ(state().loadedFiles.size(), 1u); // loaded once, found again by its path
    EXPECT_EQ(buffer.Text(), "x\n");
}

TEST_F(TemplatesTest, ProfileKeepsLoadedAndMissingFilesAndDropsRemovedOnes) {
    TempFile a("[a()]\n");
    TempFile b("[b()]\n");
    host.SetProfile("Templates", "1", a.path());
    host.SetProfile("Templates", "2", "/missing.tpl");
    host.SetProfile("Templates", "3", b.path());
    host.SetProfile("Templates", "4", a.path());
    LoadTemplatesFromProfile();
    ASSERT_EQ(state().loadedFiles.size(), 2u);

    // A loaded file with a fault shows the start-up report at once.
    TempFile faulty("[x]\n");
    host.fileDialogAnswers.push_back(FileDialogResult{faulty.path(), "", false});
    host.dialogActions.push_back([](GadgetDialog& dialog) {
        GadgetNotified(dialog, dialog.gadgets[0]->controlId, 0);
        GadgetNotified(dialog, GadgetWithText(dialog, "&Remove")->controlId, 0);
        EXPECT_EQ(dialog.gadgets[0]->items.size(), 1u);
        EXPECT_TRUE(dialog.gadgets[1]->items.empty());
        GadgetNotified(dialog, GadgetWithText(dialog, "&Load")->controlId, 0);
        EXPECT_EQ(dialog.gadgets[0]->items.size(), 2u);
    });
    EditTemplates();
    ASSERT_EQ(host.fileDialogs.size(), 1u);
    EXPECT_EQ(host.fileDialogs[0].title + "|" + host.fileDialogs[0].filter,
              "Load Template|Template files(*.tpl)|*.tpl|All files(*.*)|*.*|");
    ASSERT_EQ(host.createdWindows.size(), 1u);
    EXPECT_STREQ(host.createdWindows[0]->fileName, "startup.err");

    SaveTemplatesToProfile();
    EXPECT_EQ(ReadList("Templates", "", 6, 256),
              (std::vector<std::string>{b.path(), faulty.path(), "/missing.tpl", "", "", ""}));
}

TEST_F(TemplatesTest, ShippedExpandersNameShippedTemplates) {
    ASSERT_TRUE(LoadIniIntoProfile(host, SourcePath("config/ruvo.ini")));
    EXPECT_EQ(host.ProfileValue("Templates", "1"), "$INSTALL\\vhdl.tpl");
    EXPECT_EQ(host.ProfileValue("Templates", "2"), "$INSTALL\\verilog.tpl");
    host.SetProfile("VHDL", "File", SourcePath("config/vhdl.lsf"));
    host.SetProfile("Verilog", "File", SourcePath("config/verilog.lsf"));
    LoadLanguages();
    std::vector<std::string> known; // "[$INSTALL\\file][name]" of every shipped template
    for (const char* file : {"vhdl.tpl", "verilog.tpl"})
        for (const std::string& name : Names(*LoadTemplateFile(SourcePath("config/") + file)))
            known.push_back("[$INSTALL\\" + std::string(file) + "][" + name + "]");
    int references = 0;
    for (int language = 1; language <= 2; ++language)
        for (const char* value : LanguageEntry(language).expanderValues)
            if (value[0] == '[') {
                ++references;
                EXPECT_NE(std::find(known.begin(), known.end(), value), known.end()) << value;
            }
    EXPECT_EQ(references, 27);
    EXPECT_FALSE(HasStartupErrors()) << Reports().front();
}

TEST_F(TemplatesTest, SelectedLinesCommandsChangeOneLineStartEach) {
    Vhdl();
    // {before, command, selection, after, edits}: a selection ending at column 0 of line 4
    // takes lines 1 to 3.
    const std::tuple<const char*, int (*)(), TextRange, const char*, int> cases[] = {
        {"a;\nsignal b;\n\tc;\nend\nx",
         AddComment,
         {{1, 2}, {4, 0}},
         "a;\n--signal b;\n--\tc;\n--end\nx",
         3},
        {"a;\n--signal b;\n--\tc;\n--end\nx",
         RemoveComment,
         {{0, 0}, {4, 1}},
         "a;\nsignal b;\n\tc;\nend\nx",
         3},
        {"a;\n--signal b;\n\tc;\nend\nx",
         AddIndent,
         {{3, 0}, {4, 0}},
         "a;\n--signal b;\n\tc;\n\tend\nx",
         1},
        {"a;\n--signal b;\n\t\tc;\n  end\nx",
         RemoveIndent,
         {{0, 0}, {4, 0}},
         "a;\n--signal b;\n\tc;\n  end\nx",
         1},
    };
    for (const auto& [before, command, selection, after, edits] : cases) {
        TestBuffer buffer(before);
        buffer->language = &LanguageEntry(1);
        buffer.Select(selection.start, selection.end);
        command();
        EXPECT_EQ(buffer.Text(), after);
        EXPECT_EQ(buffer.LoggedTransactions(), edits) << after;
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

TEST_F(TemplatesTest, CaseChangesReservedWordsOutsideComments) {
    Vhdl();
    TestBuffer buffer("Entity e IS\nsignal ends_in : std_logic; -- signal end\n9end");
    buffer->language = &LanguageEntry(1);
    ApplyRangeEdit(RangeAction::Case, true, -4, 99);
    EXPECT_EQ(buffer.Text(), "ENTITY e IS\nSIGNAL ends_in : std_logic; -- signal end\n9END");
    EXPECT_EQ(buffer.LoggedTransactions(), 3);
    ApplyRangeEdit(RangeAction::Case, false, 1, 0); // inverted: nothing
    ApplyRangeEdit(RangeAction::Case, false, 0, 1);
    EXPECT_EQ(buffer.Text(), "entity e is\nsignal ends_in : std_logic; -- signal end\n9END");
}

TEST_F(TemplatesTest, RangeDialogNeedsARangeAndTicksOneBoxOnly) {
    Vhdl();
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

TEST_F(TemplatesTest, LanguageExpandReplacesTheWordByValueOrTemplate) {
    TempFile templates("[ent(name)]\nentity $1$ is\nend entity $1$;\n[bare()]\n");
    const std::string file = "[" + templates.path();
    Vhdl({{"sig", "signal "},
          {"ent", file + "][ent]"},
          {"bad", file + "[ent]"},
          {"gone", file + "][nope]"}});
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

TEST_F(TemplatesTest, IdentifierExpandTakesEachEarlierWordOnceThenSaysSo) {
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
    // A one-letter word at the line start is a prefix too.
    TestBuffer second("clk\nc");
    second.PlaceCaret(1, 1);
    IdentifierExpand();
    EXPECT_EQ(second.Text(), "clk\nclk");
}

} // namespace
} // namespace ruvo
