// The HDL aids: template files (the reader's reports, expansion, the two dialogs, expansion by
// name, the [Templates] profile section), range edits with their dialog, word expansion.
#include <tuple>

#include "aids/hdl_edits_dialog.h"
#include "aids/template_expand.h"
#include "aids/template_profile.h"
#include "aids/templates_dialog.h"
#include "aids/word_expansion.h"
#include "engine/editing_commands.h"
#include "lang/language_io.h"
#include "lang/language_table.h"
#include "settings/profile.h"

#include "test_files.h"
#include "editor_fixture.h"

namespace ruvo {
namespace {

using TemplatesTest = EditorTest;

// The reader keeps good templates and reports each fault.
TEST_F(TemplatesTest, TheReaderKeepsGoodTemplatesAndReportsEachFault) {
    const std::string name30(30, 'n');
    const std::string undefined = "Body contains placeholder of non-existent parameter in: t.|@|";
    // {file, names of the templates kept, "Error 8: " reports with "@" for the one naming the file}
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"before\n[and2(a, b)] text after\ny <= $1$ and $2$;\n[empty()]\n", "and2 empty ", ""},
        {"[t(a,,b)]\nx\n[ok()]\n", "ok ", "Missing parameter name in: t.|@|"},
        {"[t(a,b,c,d,e,f)]\n[five( a ,b,c,d,e )]\n", "five ", "Too many parameters in: t.|@|"},
        {"[" + name30 + "()]\n[" + name30 + "x()]\n", name30 + " ",
         "Too long template name:  " + name30 + "x.|@|"},
        {"[t(a, " + std::string(31, 'p') + ")]\n", "", "Too long parameter name in: t.|@|"},
        {"[and2]\n[x(a)\n[ (a)]\n", "",
         "Incorrectly delimited parameter list in: and.|@|Incorrectly delimited template header: "
         "[x(a).|@|Missing template name with parameter list: a).|@|"},
        {"[t(a)]\n$0$ $1$ $2$\r\n", "t ", undefined + undefined}};
    TemplateFile loaded;
    size_t reported = 0;
    for (const auto& [text, names, reports] : cases) {
        loaded = ReadTemplateText(text, "f.tpl");
        std::string found;
        for (const Template& entry : loaded.templates)
            found += entry.name + " ";
        const Texts log = ReportedLines(editor);
        for (const char* at = "Error 8: \tthis error occured in template file: f.tpl.";
             reported < log.size(); ++reported)
            found += (log[reported] == at ? "@" : log[reported].substr(9)) + "|";
        EXPECT_EQ(found, names + reports) << text;
    }
    EXPECT_EQ(ExpandTemplateBody(loaded.templates[0], {"v"}), "$0$ v $2$\n");
    EXPECT_EQ(LoadTemplateFile("/no/such/file.tpl"), nullptr);
    EXPECT_EQ(ReportedLines(editor).back(),
              "Error 2: Cannot open template file '/no/such/file.tpl'.");
}

// Files come from the profile (a missing one is kept, a repeated one loaded once) and from the
// Load button, where a file with a fault shows the start-up report at once. A template goes in
// by the Insert button or a double click, as one edit, its values kept for the next use.
TEST_F(TemplatesTest, FilesAreLoadedAndTheDialogsInsertWithValuesKeptAsOneEdit) {
    TempFile a("[a()]\n");
    TempFile file("[and2(a, b)]\ny <= $1$ and $2$;\n[empty()]\n-- empty\n");
    TempFile faulty("[x]\n");
    LoadIniIntoProfile(host, "[Templates]\n1=" + a.path() + "\n2=/missing.tpl\n3=" + file.path() +
                                 "\n4=" + a.path());
    LoadTemplatesFromProfile();
    TestBuffer buffer("first\nlast");
    host.fileDialogAnswers.push_back(FileDialogResult{faulty.path(), "", false});
    // and2 by the Insert button and again by a double click, then empty; then the first file is
    // removed and the faulty one loaded.
    host.dialogActions.push_back([](GadgetDialog& dialog) {
        GadgetNotified(dialog, dialog.gadgets[0]->controlId, 1);
        Gadget& insert = *GadgetWithText(dialog, "&Insert >>");
        Gadget& templates = *dialog.gadgets[1];
        EXPECT_EQ(std::tuple(templates.items, insert.IsDisabled()),
                  std::tuple(Texts{"and2", "empty"}, true));
        GadgetNotified(dialog, templates.controlId, 0);
        EXPECT_FALSE(insert.IsDisabled());
        GadgetNotified(dialog, insert.controlId, 0);
        templates.doubleClicked = true;
        GadgetNotified(dialog, templates.controlId, 0);
        GadgetNotified(dialog, templates.controlId, 1); // no parameters: no dialog
        GadgetNotified(dialog, dialog.gadgets[0]->controlId, 0);
        GadgetNotified(dialog, GadgetWithText(dialog, "&Remove")->controlId, 0);
        EXPECT_EQ(dialog.gadgets[0]->items.size() + templates.items.size(), 1u);
        GadgetNotified(dialog, GadgetWithText(dialog, "&Load")->controlId, 0);
        EXPECT_EQ(dialog.gadgets[0]->items.size(), 2u);
        GadgetNotified(dialog, GadgetWithText(dialog, "&Close")->controlId, 0);
    });
    host.dialogActions.push_back([this](GadgetDialog& dialog) {
        EXPECT_EQ(dialog.gadgets[0]->text, "a");
        EXPECT_EQ(host.gadgetShown[dialog.gadgets[4].get()], false); // row 2 hidden
        EXPECT_EQ(host.focusedGadget, dialog.gadgets[1].get());
        host.TypeText(*dialog.gadgets[1], "x1");
        host.TypeText(*dialog.gadgets[3], "x2");
        DialogOkCommand(dialog);
    });
    host.dialogActions.push_back([](GadgetDialog& dialog) {
        EXPECT_EQ(GlGadgetGetText(*dialog.gadgets[3]), "x2"); // the values stay for the next use
        DialogCancelCommand(dialog);
    });
    EditTemplates();
    EXPECT_EQ(host.fileDialogs.at(0).title + "|" + host.fileDialogs[0].filter,
              "Load Template|Template files(*.tpl)|*.tpl|All files(*.*)|*.*|");
    EXPECT_EQ(host.createdWindows.at(0)->fileName + std::to_string(host.createdWindows.size()),
              "startup.err1");
    SaveTemplatesToProfile();
    EXPECT_EQ(ReadList("Templates", "", 6, 256),
              (Texts{file.path(), faulty.path(), "/missing.tpl", "", "", ""}));
    EXPECT_EQ(buffer.Text(), "y <= x1 and x2;\n-- empty\nfirst\nlast");
    editor.engine.currentBuffer = buffer.get();
    EditUndo();
    EXPECT_EQ(std::tuple(buffer.Text(), buffer->cursor),
              std::tuple("y <= x1 and x2;\nfirst\nlast", MakePos(1, 0)));
}

TEST_F(TemplatesTest, TheRangeDialogNeedsARangeAndTicksOneBoxOnly) {
    TestBuffer edited("signal a;\nb;\nc");
    edited.PlaceCaret(1, 0);
    host.dialogActions.push_back([this](GadgetDialog& dialog) {
        EXPECT_EQ(GlGadgetGetText(*GadgetAfter(dialog, "S&tart at line:")), "2");
        EXPECT_TRUE(GadgetWithText(dialog, "&Selection")->IsDisabled());
        EXPECT_EQ(DialogOkCommand(dialog), -1);
        EXPECT_EQ(host.ErrorBoxTexts(), "No valid range specified.\n");
        GadgetNotified(dialog, dialog.gadgets[2]->controlId, 1);
        EXPECT_EQ(dialog.gadgets[3]->items, (Texts{"&Indent", "&Un-indent"}));
        host.TypeText(*GadgetAfter(dialog, "&End at line:"), "3");
        EXPECT_EQ(DialogOkCommand(dialog), 1);
    });
    EditSpecial();
    EXPECT_EQ(edited.Text(), "signal a;\n\tb;\n\tc");

    edited.Select(MakePos(0, 0), MakePos(0, 1));
    host.dialogActions.push_back([](GadgetDialog& dialog) {
        Gadget& selection = *GadgetWithText(dialog, "&Selection");
        GadgetNotified(dialog, selection.controlId, 1);
        GadgetNotified(dialog, GadgetWithText(dialog, "A&ll")->controlId, 1);
        EXPECT_TRUE(selection.value == 0 && GadgetAfter(dialog, "S&tart at line:")->IsDisabled());
        GadgetNotified(dialog, dialog.gadgets[3]->controlId, 1); // un-indent
        DialogOkCommand(dialog);
    });
    EditSpecial();
    EXPECT_EQ(edited.Text(), "signal a;\nb;\nc");
    EXPECT_EQ(edited->selEnd, MakePos(0, 1)); // a selection on lines left alone stays put
}

// An abbreviation's text or template replaces the word before the caret as one step. A value
// "[file][name]" expands a template, loaded once and found again by its path.
TEST_F(TemplatesTest, LanguageExpandPutsInAbbreviationsAndTemplates) {
    TempFile templates("[ent(name)]\nentity $1$ is\nend entity $1$;\n");
    const std::string file = "[" + templates.path();
    TempFile options("[expander]\nsig=signal\nent=" + file + "][ent]\nbad=" + file +
                     "[ent]\ngone=" + file + "][Ent]\nlost=" + file + "-gone][ent]\n");
    LoadIniIntoProfile(host, "[Languages]\n1=VHDL\n[VHDL]\nFile=" + options.path());
    LoadLanguages();
    TestBuffer buffer("sig\n  SIG\nx bad\nx gone lost\n  ent");
    buffer->language = &LanguageEntry(1);
    host.dialogActions.push_back([this](GadgetDialog& dialog) {
        host.TypeText(*dialog.gadgets[1], "alu");
        DialogOkCommand(dialog);
    });
    for (const TextPos caret : {MakePos(0, 0), MakePos(1, 5), MakePos(2, 5), MakePos(3, 6),
                                MakePos(3, 11), MakePos(4, 5)}) {
        buffer.PlaceCaret(caret.line, caret.column); // column 0: nothing
        LanguageExpand();
    }
    EXPECT_EQ(host.ErrorBoxTexts(), "Template \"Ent\" not found in file \"" + templates.path() +
                                        "\" .\nTemplate file \"" + templates.path() +
                                        "-gone\" not found.\n");
    EXPECT_EQ(host.boxes[0].caption + std::to_string(editor.hdlAids.templates.loadedFiles.size()),
              "Warning1");
    EXPECT_EQ(buffer.Text(),
              "sig\n  signal\nx bad\nx gone lost\n  entity alu is\nend entity alu;\n");
    EditUndo(); // the word comes back with the same step
    EXPECT_EQ(buffer.Text(), "sig\n  signal\nx bad\nx gone lost\n  ent");
}

// Identifier completion takes each earlier word once, then says so.
TEST_F(TemplatesTest, IdentifierCompletionTakesEachEarlierWordOnce) {
    TestBuffer words("clock <= '0';\nclear <= xclear;\nclr; cl");
    words.PlaceCaret(2, 7);
    for (const char* word : {"clr", "clear", "clock", "clock"}) {
        IdentifierExpand();
        EXPECT_EQ(words.Text(), "clock <= '0';\nclear <= xclear;\nclr; " + std::string(word));
    }
    EXPECT_EQ(host.statusPanes[4], "No string matching 'cl' found.");
    // Moving the cursor starts a new completion, which may take the last candidate again; a
    // one-letter word at the line start is a prefix too.
    words.PlaceCaret(1, 2);
    IdentifierExpand();
    EXPECT_EQ(words.Text(), "clock <= '0';\nclockear <= xclear;\nclr; clock");
    TestBuffer second("clk\nc");
    second.PlaceCaret(1, 1);
    IdentifierExpand();
    EXPECT_EQ(second.Text(), "clk\nclk");
}

} // namespace
} // namespace ruvo
