// The language table (profile sections, choosing a language for a file, adding and deleting
// entries), language options files on disk, and the language dialog.
#include <sstream>

#include "dialogs/gadget_dialog.h"
#include "docs/documents.h"
#include "editor_fixture.h"
#include "engine/edit_buffer.h"
#include "lang/language_dialog.h"
#include "lang/language_edits.h"
#include "lang/language_io.h"
#include "settings/error_report.h"
#include "test_files.h"

namespace ruvo {
namespace {

Texts Words(const WordArray& words) {
    return Texts(words.begin(), words.end());
}

class LanguageTest : public EditorTest {
  protected:
    void LoadProfile(const std::string& ini) {
        LoadIniIntoProfile(host, ini);
        LoadLanguages();
    }
    // The writes of SaveLanguages.
    Texts Saved() {
        host.profileWrites.clear();
        SaveLanguages();
        return host.profileWrites;
    }
    const LanguageDef& LoadWithFile(const std::string& path) {
        LoadProfile("[Languages]\n1=Lang\n[Lang]\nFile=" + path);
        return LanguageEntry(1);
    }
    LanguageDialogState& Dialog() { return editor.languages.dialog; }
    int Press(Gadget* gadget, int value = 0) {
        return GadgetNotified(*Dialog().dialog, gadget->controlId, value);
    }
};

TEST_F(LanguageTest, KeysAreReadWithTheirLimitsAndSavedInTheirOrder) {
    LoadProfile("[Languages]\n1=VHDL\n[VHDL]\nCaseSensitive=no\nBeginComment=/*\nEndComment=*/\n"
                "LineComment=////\nTextColor=1 2 3\nTextTypeFace=4\nCommentColor=1 2\n"
                "CommentTypeFace=3\nStringsColor=5 6 7\nStringsTypeFace=0\nExpanderColor=7 8 9\n"
                "ExpanderTypeFace=6\nFilter=VHDL|*.vhd|\nExtension=" +
                std::string(100, 'v') + "\n");
    const Texts writes = Saved();
    ASSERT_EQ(std::pair(UsedLanguageCount(), writes.size()), std::pair(2, size_t{2 * 26 + 4}));
    std::string vhdl; // the keys of the section, in the order written
    for (size_t i = 27; i < 52; ++i)
        vhdl += writes[i].substr(7) + " ";
    EXPECT_EQ(vhdl,
              "File= CaseSensitive=no BeginComment=/* EndComment=*/ LineComment=/// "
              "TextColor=1 2 3 TextTypeFace=4 CommentColor=1 2 0 CommentTypeFace=3 "
              "StringsColor=5 6 7 StringsTypeFace=0 ExpanderColor=7 8 9 ExpanderTypeFace=6 "
              "Color1=255 0 0 Typeface1=1 Color2=0 0 255 Typeface2=3 Color3=0 128 0 Typeface3=0 "
              "Color4=0 0 0 Typeface4=0 Color5=0 0 0 Typeface5=0 Extension=" +
                  std::string(79, 'v') + " Filter=VHDL|*.vhd| ");
    EXPECT_EQ(writes[0] + "|" + writes[25] + "|" + writes[26] + "|" + writes.back(),
              "[Languages] 0=None|[None] Filter=All files(*.*)|*.*||[Languages] 1=VHDL|"
              "[Languages] 5=");
    // A missing options file: one report, nothing read from the first group on.
    LoadProfile("[VHDL]\nFile=$INSTALL\\nowhere\\vhdl.lsf\nColor1=9 9 9\n");
    EXPECT_EQ(LanguageEntry(1).groups[0].attribute.color, MakeColor(255, 0, 0));
    EXPECT_EQ(ReportedLines(editor).back() +
                  std::to_string(editor.settings.startupErrors.errorCount),
              "Error 2: Cannot open Language Options File file 'C:\\ruvo\\nowhere\\vhdl.lsf'.1");
}

// An element followed by a comma is a prefix, the last one must match exactly, an empty one
// only a name ending in a dot; case matters; the first match wins.
TEST_F(LanguageTest, ExtensionListsChooseTheLanguage) {
    EXPECT_EQ(languageForFile("a.vhd"), &LanguageEntry(0)); // "None" before anything is loaded
    LanguageDef outside;
    EXPECT_EQ(LanguageIndex(&LanguageEntry(4)) + LanguageIndex(&outside), 3);
    LoadProfile("[Languages]\n1=Short\n2=Long\n3=Verilog\n4=Notes\n5=Text\n[Short]\nExtension=vhd\n"
                "[Long]\nExtension=vhd,vhdx\n[Verilog]\nExtension=vh,v\n[Notes]\nExtension=txt,\n"
                "[Text]\nExtension=,tx\n");
    EXPECT_EQ(languageForFile("")->name, "None");
    for (const std::string& row :
         Texts{"Short a.vhd " + std::string(40, 'b') + ".vhd", "Verilog a.v a.vh", "Text a.tx",
               "Long a.vhdl a.vhdx c:\\my.dir/top.vhdl top.vhd.bak", "Notes a. dir.x\\a. a.txt",
               "None a.VHD a.vo a.txx a Makefile dir.x\\a c:\\src.v\\top"}) {
        std::istringstream files(row);
        std::string language, file;
        for (files >> language; files >> file;)
            EXPECT_EQ(languageForFile(file)->name, language) << file;
    }
}

TEST_F(LanguageTest, OptionsFilesGiveSortedGroupsColoursAndTheExpanderTable) {
    TempFile file("Text before any section is ignored\n[group1]\nsignal\nEntity\n# a comment\n"
                  "; another one\n\nend if\n" +
                  std::string(300, 'k') +
                  "\nstd_logic_vector\r\nstd_logic\n[GROUP2]\ninteger\n[Other]\nignored\n"
                  "[expander]\nsl=std_logic\nno equals sign here\ncmp=a = b\nempty=\n=nameless\n"
                  "[Group5]\nafter=the section ended\n");
    LoadIniIntoProfile(host, "[Lang]\nColor1=1 2 3\nTypeface1=4\nColor3=5 6 7\n");
    const LanguageDef& lang = LoadWithFile(file.path());
    // Sorted without regard to case ('_' before letters), even in a case-sensitive language;
    // a long line is cut into lines of 254 bytes and the rest.
    EXPECT_EQ(Words(lang.groups[0].words),
              (Texts{"end if", "Entity", std::string(46, 'k'), std::string(254, 'k'), "signal",
                     "std_logic", "std_logic_vector"}));
    EXPECT_EQ(Words(lang.groups[1].words), Texts{"integer"});
    EXPECT_EQ(Words(lang.groups[4].words), Texts{"after=the section ended"});
    EXPECT_EQ(Words(lang.expanderNames), (Texts{"sl", "cmp", "empty", ""}));
    EXPECT_EQ(Words(lang.expanderValues), (Texts{"std_logic", "a = b", "", "nameless"}));
    EXPECT_EQ(std::tuple(lang.groups[0].attribute.color, lang.groups[0].attribute.typeface,
                         lang.groups[2].attribute.color, HasStartupErrors()), // an empty group too
              std::tuple(MakeColor(1, 2, 3), 4, MakeColor(5, 6, 7), false));
    // Out of memory anywhere: the words read so far stay, and names and values still pair up.
    AllocatorStats& stats = editor.settings.allocator;
    for (long extra = 0; extra < 400; extra += 7) {
        stats.limitBytes = stats.totalBytes + extra;
        const LanguageDef& cut = LoadWithFile(file.path());
        EXPECT_EQ(cut.expanderNames.Count(), cut.expanderValues.Count()) << extra;
    }
    stats.limitBytes = -1;
    TempFile second("[Group1]\nbeta\n"); // reloading replaces the words
    EXPECT_EQ(Words(LoadWithFile(second.path()).groups[0].words), Texts{"beta"});
    EXPECT_TRUE(lang.expanderNames.Empty());
}

TEST_F(LanguageTest, DialogStoresFieldsAtOnceAndCancelBringsTheTableBack) {
    LoadProfile("[Languages]\n1=VHDL\n2=Verilog\n3=Text\n4=Perl\n");
    const Texts before = Saved();
    EditBuffer* buffers[2];
    for (int i : {1, 0}) { // a Text buffer, then the active VHDL one
        ASSERT_EQ(openFile("Untitled", 1, 0, KindDocument), 0);
        (buffers[i] = editor.engine.currentBuffer)->language = &LanguageEntry(1 + 2 * i);
    }
    LanguageOptions();
    // The active buffer's language is shown with its text colour.
    EXPECT_EQ(std::to_string(Dialog().languages->value) + GlGadgetGetText(*Dialog().colorParts[0]),
              "10");
    Press(Dialog().languages, 2);
    host.TypeText(*Dialog().extensions, " *.vhd; .sv|*.v\t");
    Press(Dialog().extensions);
    EXPECT_EQ(LanguageEntry(2).extensions, "vhd,sv,v");
    Press(Dialog().syntaxItems, 5); // KeywordCat2: blue, bold and italic
    EXPECT_EQ(GlGadgetGetText(*Dialog().colorParts[2]), "255");
    for (const char* red : {"12", "256", ""}) { // out of range or empty: the old part stays
        host.TypeText(*Dialog().colorParts[0], red);
        Press(Dialog().colorParts[0]);
    }
    Press(Dialog().typefaceBits[2], 1);
    const TextAttribute& shown = LanguageEntry(2).groups[1].attribute;
    EXPECT_EQ(std::tuple(shown.color, shown.typeface, host.editWindowRefreshes),
              std::tuple(MakeColor(12, 0, 255), 7, 4)); // each change repaints at once

    // Adding after VHDL fills the table: Add is disabled and Text moves to entry 4.
    Press(Dialog().languages, 1);
    host.inputAnswers.push_back("Added");
    Press(Dialog().addButton);
    EXPECT_EQ(host.inputRequests[0].prompt + std::to_string(host.inputRequests[0].maxLength),
              "Name of new language : 79");
    EXPECT_EQ(std::tuple(buffers[1]->language, Dialog().languages->value,
                         Dialog().addButton->IsDisabled()),
              std::tuple(&LanguageEntry(4), 2, true));
    Press(Dialog().languages, 1);
    Press(Dialog().deleteButton); // from the full table: Perl goes too
    EXPECT_EQ(Dialog().languages->items, (Texts{"None", "Added", "Verilog", "Text"}));
    EXPECT_EQ(std::tuple(buffers[0]->language, buffers[1]->language),
              std::tuple(&LanguageEntry(0), &LanguageEntry(3))); // VHDL's buffer gets None
    Press(Dialog().languages, 0);
    EXPECT_TRUE(Dialog().deleteButton->IsDisabled());
    EXPECT_EQ(DialogCancelCommand(*Dialog().dialog), 0);
    EXPECT_EQ(Saved(), before);
    EXPECT_EQ(std::tuple(buffers[0]->language, buffers[1]->language),
              std::tuple(&LanguageEntry(1), &LanguageEntry(3)));

    // Used entries stay contiguous: deleting from a full table loses entry 5 too, adding to a full
    // one drops the last. The move tells where each old entry went (-1: gone).
    const std::tuple<int, int, bool, const char*> cases[] = {
        {5, 1, false, "1|None B C D  |0 -1 1 2 3 -1 "},
        {3, 1, false, "1|None B C   |0 -1 1 2 4 5 "},
        {5, 5, false, "1|None A B C D |0 1 2 3 4 -1 "},
        {2, 1, true, "2|None A New B  |0 1 3 4 5 -1 "},
        {5, 2, true, "3|None A B New C D|0 1 2 4 5 -1 "},
        {5, 5, true, "-1|None A B C D E|0 1 2 3 4 5 "}};
    for (const auto& [used, selected, add, expected] : cases) {
        for (int i = 1; i < LanguageCount; ++i) // the first `used` entries named A, B, ...
            LanguageEntry(i).name = std::string(i <= used ? 1 : 0, static_cast<char>('A' + i - 1));
        LanguageMove move;
        std::string got = std::to_string(add ? AddLanguage(selected, "New", move)
                                             : DeleteLanguage(selected, move)) +
                          "|" + LanguageEntry(0).name;
        for (int i = 1; i < LanguageCount; ++i)
            got += " " + LanguageEntry(i).name;
        got += "|";
        for (int i : move.to)
            got += std::to_string(i) + " ";
        EXPECT_EQ(got, expected);
    }
}

} // namespace
} // namespace ruvo
