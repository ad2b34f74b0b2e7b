// The language table (profile sections, choosing a language for a file), language
// options files on disk, and the language dialog.
#include <sstream>

#include "dialogs/gadget_dialog.h"
#include "docs/documents.h"
#include "editor_fixture.h"
#include "engine/edit_buffer.h"
#include "lang/language_dialog.h"
#include "lang/language_edits.h"
#include "lang/language_io.h"
#include "lang/language_options_file.h"
#include "lang/language_table.h"
#include "language_test_files.h"
#include "settings/error_report.h"

namespace ruvo {
namespace {

using Texts = std::vector<std::string>;

Texts Words(const WordArray& words) {
    return Texts(words.begin(), words.end());
}

class LanguageTest : public EditorTest {
  protected:
    // Named languages with extension lists, no options files.
    void Languages(const std::vector<std::pair<std::string, std::string>>& entries) {
        for (size_t i = 0; i + 1 < LanguageCount; ++i) {
            const auto [name, extension] = i < entries.size() ? entries[i] : std::pair{"", ""};
            host.SetProfile("Languages", std::to_string(i + 1), name);
            if (!name.empty()) host.SetProfile(name, "Extension", extension);
        }
        LoadLanguages();
    }
    // The writes of SaveLanguages; with a section name, its "key=value" writes joined by blanks.
    std::string Saved(const std::string& section, Texts* all = nullptr) {
        host.profileWrites.clear();
        SaveLanguages();
        std::string saved;
        for (const std::string& write : host.profileWrites)
            if (write.rfind("[" + section + "] ", 0) == 0)
                saved += write.substr(section.size() + 3) + " ";
        if (all != nullptr) *all = host.profileWrites;
        return saved;
    }
    const LanguageDef& LoadWithFile(const std::string& path) {
        host.SetProfile("Languages", "1", "Lang");
        host.SetProfile("Lang", "File", path);
        LoadLanguages();
        return LanguageEntry(1);
    }
    LanguageDialogState& Dialog() { return editor.languages.dialog; }
    int Press(Gadget* gadget, int value = 0) {
        return GadgetNotified(*Dialog().dialog, gadget->controlId, value);
    }
    void Type(Gadget* field, std::string_view text) {
        host.TypeText(*field, text);
        Press(field);
    }
};

TEST_F(LanguageTest, KeysAreReadWithDefaultsAndLimitsAndSavedInTheirOrder) {
    host.SetProfile("Languages", "1", "VHDL");
    host.SetProfile("VHDL", "Color3", "9 9 9"); // never read: the file is empty
    LoadLanguages();
    EXPECT_EQ(UsedLanguageCount(), 2);
    EXPECT_FALSE(HasStartupErrors());
    Texts writes;
    EXPECT_EQ(Saved("VHDL", &writes),
              "File= CaseSensitive=yes BeginComment= EndComment= LineComment= TextColor=0 0 0 "
              "TextTypeFace=0 CommentColor=0 128 0 CommentTypeFace=2 StringsColor=0 0 255 "
              "StringsTypeFace=1 ExpanderColor=0 0 255 ExpanderTypeFace=0 Color1=255 0 0 "
              "Typeface1=1 Color2=0 0 255 Typeface2=3 Color3=0 128 0 Typeface3=0 Color4=0 0 0 "
              "Typeface4=0 Color5=0 0 0 Typeface5=0 Extension= Filter= ");
    ASSERT_EQ(writes.size(), 2 * 26u + 4);
    EXPECT_EQ(writes[0] + "|" + writes[25] + "|" + writes[26] + "|" + writes.back(),
              "[Languages] 0=None|[None] Filter=All files(*.*)|*.*||[Languages] 1=VHDL|"
              "[Languages] 5=");

    const std::pair<const char*, std::string> keys[] = {
        {"CaseSensitive", "no"},    {"BeginComment", "/*"},
        {"EndComment", "*/"},       {"LineComment", "////"},
        {"TextColor", "1 2 3"},     {"TextTypeFace", "4"},
        {"CommentColor", "1 2"},    {"CommentTypeFace", "3"},
        {"StringsColor", "5 6 7"},  {"StringsTypeFace", "0"},
        {"ExpanderColor", "7 8 9"}, {"ExpanderTypeFace", "6"},
        {"Filter", "VHDL|*.vhd|"},  {"Extension", std::string(100, 'v')}};
    host.SetProfile("None", "Filter", "Text|*.txt|");
    for (const auto& [key, value] : keys)
        host.SetProfile("VHDL", key, value);
    LoadLanguages();
    EXPECT_EQ(LanguageEntry(0).filter, "Text|*.txt|");
    EXPECT_EQ(Saved("VHDL"),
              "File= CaseSensitive=no BeginComment=/* EndComment=*/ LineComment=/// "
              "TextColor=1 2 3 TextTypeFace=4 CommentColor=1 2 0 CommentTypeFace=3 "
              "StringsColor=5 6 7 StringsTypeFace=0 ExpanderColor=7 8 9 ExpanderTypeFace=6 "
              "Color1=255 0 0 Typeface1=1 Color2=0 0 255 Typeface2=3 Color3=0 128 0 Typeface3=0 "
              "Color4=0 0 0 Typeface4=0 Color5=0 0 0 Typeface5=0 Extension=" +
                  std::string(79, 'v') + " Filter=VHDL|*.vhd| ");

    // The file path is expanded; a missing file is reported, what was read before it stays.
    host.SetProfile("VHDL", "File", "$INSTALL\\nowhere\\vhdl.lsf");
    LoadLanguages();
    EXPECT_EQ(LanguageEntry(1).optionsFile, "C:\\ruvo\\nowhere\\vhdl.lsf");
    EXPECT_EQ(LanguageEntry(1).lineComment, "///");
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 1);
}

TEST_F(LanguageTest, ExtensionListsChooseTheLanguage) {
    EXPECT_EQ(languageForFile("a.vhd"), &LanguageEntry(0)); // "None" before anything is loaded
    LanguageDef outside;
    EXPECT_EQ(LanguageIndex(&LanguageEntry(4)) + LanguageIndex(&outside), 3);
    // An element followed by a comma is a prefix, the last one must match exactly, an empty
    // one only a name ending in a dot; case matters; the first match wins.
    const std::pair<std::vector<std::pair<std::string, std::string>>, Texts> cases[] = {
        {{{"VHDL", "vhd,vhdl"}, {"Verilog", "vh,v"}, {"Text", ",txt"}},
         {"VHDL a.vhd a.vhdl a.vhdx c:\\my.dir/top.vhd top.vhd.bak " + std::string(40, 'b') +
              ".vhd",
          "Verilog a.v a.vh", "Text a.txt",
          "None a.VHD a.vo a.tx Makefile a. top.v.bak c:\\src.v\\top"}},
        {{{"Short", "vhd"}, {"Long", "vhd,vhdx"}, {"Notes", "txt,"}},
         {"Notes a. dir.x\\a. a.txt", "None a dir.x\\a", "Long a.vhdl", "Short a.vhd"}}};
    for (const auto& [table, rows] : cases) {
        Languages(table);
        EXPECT_EQ(languageForFile("")->name, "None");
        for (const std::string& row : rows) {
            std::istringstream files(row);
            std::string language, file;
            for (files >> language; files >> file;)
                EXPECT_EQ(languageForFile(file)->name, language) << file;
        }
    }
}

TEST_F(LanguageTest, OptionsFilesGiveSortedGroupsColoursAndTheExpanderTable) {
    TempFile file("Text before any section is ignored\n[group1]\nsignal\nEntity\n# a comment\n"
                  "; another one\n\nARCHITECTURE\nend if\nstd_logic_vector\r\nstd_logic\nstdout\n"
                  "[GROUP2]\ninteger\n[Other]\nignored\n[Group4]\nZed\nabc\n[expander]\n"
                  "sl=std_logic\nno equals sign here\ncmp=a = b\nempty=\n; c=skipped\n=nameless\n"
                  "[Group5]\nafter=the section ended\n");
    host.SetProfile("Lang", "Color1", "1 2 3");
    host.SetProfile("Lang", "Typeface1", "4");
    host.SetProfile("Lang", "Color3", "5 6 7");
    const LanguageDef& lang = LoadWithFile(file.path());
    // Sorted without regard to case ('_' before letters), even in a case-sensitive language.
    EXPECT_EQ(Words(lang.groups[0].words), (Texts{"ARCHITECTURE", "end if", "Entity", "signal",
                                                  "std_logic", "std_logic_vector", "stdout"}));
    EXPECT_EQ(Words(lang.groups[1].words), Texts{"integer"});
    EXPECT_TRUE(lang.groups[2].words.Empty());
    EXPECT_EQ(Words(lang.groups[3].words), (Texts{"abc", "Zed"}));
    EXPECT_EQ(Words(lang.groups[4].words), Texts{"after=the section ended"});
    EXPECT_EQ(Words(lang.expanderNames), (Texts{"sl", "cmp", "empty", ""}));
    EXPECT_EQ(Words(lang.expanderValues), (Texts{"std_logic", "a = b", "", "nameless"}));
    EXPECT_EQ(std::tuple(lang.groups[0].attribute.color, lang.groups[0].attribute.typeface),
              std::tuple(MakeColor(1, 2, 3), 4));
    EXPECT_EQ(lang.groups[1].attribute.color, MakeColor(0, 0, 255));
    EXPECT_EQ(lang.groups[2].attribute.color, MakeColor(5, 6, 7)); // read for an empty group
    EXPECT_FALSE(HasStartupErrors());
    TempFile second("[Group1]\nbeta\n"); // reloading replaces the words
    EXPECT_EQ(Words(LoadWithFile(second.path()).groups[0].words), Texts{"beta"});
    EXPECT_TRUE(lang.expanderNames.Empty());

    // A missing file: one report, nothing read from the first group on.
    host.SetProfile("Lang", "TextColor", "9 9 9");
    const std::string missing = ::testing::TempDir() + "no_such_options_file.lsf";
    LoadWithFile(missing);
    EXPECT_EQ(lang.text.color, MakeColor(9, 9, 9));
    EXPECT_EQ(lang.groups[0].attribute.color, MakeColor(255, 0, 0));
    EXPECT_TRUE(lang.groups[0].words.Empty());
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 1);
    const LineList* log = editor.settings.startupErrors.lines;
    EXPECT_EQ(std::string(log->lineText[log->lineCount - 1]),
              "Error 2: Cannot open Language Options File file '" + missing + "'.");
}

TEST_F(LanguageTest, OptionsFilesCutLongLinesAndKeepWhatFitsInMemory) {
    TempFile longLine("[Group1]\n" + std::string(300, 'k') + "\n");
    WordArray words;
    ASSERT_TRUE(ReadKeywordGroup(longLine.path(), 1, words));
    EXPECT_EQ(Words(words), (Texts{std::string(46, 'k'), std::string(254, 'k')}));

    TempFile file("[Group1]\nccc\nbbb\naaa\nddd\n[Expander]\nx=1\ny=2\n");
    long& limit = editor.settings.allocator.limitBytes;
    const long total = editor.settings.allocator.totalBytes;
    limit = total + 2 * 12 + 5; // a three-letter word costs 4 bytes and 8 of array growth
    words.Clear();
    ASSERT_TRUE(ReadKeywordGroup(file.path(), 1, words));
    EXPECT_EQ(Words(words), (Texts{"bbb", "ccc"}));
    EXPECT_NE(host.ErrorBoxTexts().find("Alloc failed for 8 bytes"), std::string::npos);
    // A name whose value does not fit is dropped, so names and values stay in step.
    WordArray names, values;
    for (const auto& [bytes, kept] : {std::pair{22, Texts{"x"}}, {12, Texts{}}}) {
        limit = editor.settings.allocator.totalBytes + bytes;
        ASSERT_TRUE(ReadExpanderTable(file.path(), names, values));
        EXPECT_EQ(Words(names), kept);
        EXPECT_EQ(Words(values).size(), kept.size());
    }
    limit = -1;
    ASSERT_TRUE(names.Append("z"));
    EXPECT_EQ(Words(names), Texts{"z"});
}

TEST_F(LanguageTest, DialogAddsAndDeletesEntriesAndKeepsTheListOnTheTable) {
    const struct {
        Texts named;
        int selected;
        bool add; // else delete
        Texts listed;
        int shown;
    } cases[] = {
        {{"A", "B", "C", "D", "E"}, 1, false, {"None", "B", "C", "D"}, 0}, // entry 5 is lost too
        {{"A", "B", "C", "D", "E"}, 5, false, {"None", "A", "B", "C", "D"}, 4},
        {{"A", "B"}, 2, false, {"None", "A"}, 1},
        {{"A", "B"}, 1, true, {"None", "A", "New", "B"}, 2},
        {{"A", "B", "C", "D"}, 0, true, {"None", "New", "A", "B", "C", "D"}, 1}};
    for (const auto& c : cases) {
        for (int i = 1; i < LanguageCount; ++i)
            LanguageEntry(i) = LanguageDef{};
        std::vector<std::pair<std::string, std::string>> table;
        for (const std::string& name : c.named)
            table.emplace_back(name, "x" + name);
        Languages(table);
        LanguageOptions();
        Press(Dialog().languages, c.selected);
        host.inputAnswers.push_back("New");
        Press(c.add ? Dialog().addButton : Dialog().deleteButton);
        EXPECT_EQ(Dialog().languages->items, c.listed) << c.selected;
        for (int i = static_cast<int>(c.listed.size()); i < LanguageCount; ++i)
            EXPECT_FALSE(LanguageEntry(i).IsUsed()) << "no named entry after an unused one";
        EXPECT_EQ(Dialog().languages->value, c.shown);
        EXPECT_EQ(Dialog().deleteButton->IsDisabled(), c.shown == 0);
        EXPECT_EQ(Dialog().addButton->IsDisabled(), c.listed.size() == LanguageCount);
        EXPECT_TRUE(!c.add || LanguageEntry(c.shown).filter == LanguageEntry(0).filter);
        DialogOkCommand(*Dialog().dialog);
    }
    ASSERT_EQ(host.inputRequests.size(), 2u);
    EXPECT_EQ(host.inputRequests[0].prompt, "Name of new language : ");
    EXPECT_EQ(host.inputRequests[0].maxLength, 79);
    LanguageMove move; // the table full: inserting drops the last entry
    EXPECT_EQ(AddLanguage(2, "Z", move), 3);
    EXPECT_EQ(std::tuple(LanguageEntry(5).name, move.to[5]), std::tuple("C", -1));
    EXPECT_EQ(AddLanguage(5, "Y", move), -1);
}

TEST_F(LanguageTest, DialogStoresFieldsAtOnceAndCancelBringsTheTableBack) {
    Languages({{"VHDL", "xVHDL"}, {"Verilog", "v"}, {"Text", "txt"}});
    Texts before, after;
    Saved("", &before);
    EditBuffer* buffers[2];
    for (EditBuffer*& buffer : buffers) {
        ASSERT_EQ(openFile("Untitled", 1, 0, KindDocument), 0);
        buffer = editor.documents.buffers.back();
    }
    buffers[0]->language = &LanguageEntry(1);
    buffers[1]->language = &LanguageEntry(3);
    editor.engine.currentBuffer = buffers[0];
    ASSERT_TRUE(LanguageEntry(1).groups[0].words.Append("entity"));
    LanguageOptions();
    EXPECT_EQ(Dialog().languages->value, 1) << "the active buffer's language is shown";
    EXPECT_EQ(GlGadgetGetText(*Dialog().colorParts[0]), "0") << "with its text colour";

    Press(Dialog().languages, 2);
    for (const auto& [typed, stored] :
         {std::pair{"*.vhd; *.vhdl", "vhd,vhdl"}, {"*.v", "v"}, {" .sv|*.v\t", "sv,v"}}) {
        Type(Dialog().extensions, typed);
        EXPECT_EQ(LanguageEntry(2).extensions, stored);
    }
    Press(Dialog().syntaxItems, 5); // KeywordCat2: blue, bold and italic
    EXPECT_EQ(GlGadgetGetText(*Dialog().colorParts[2]), "255");
    for (const char* red : {"12", "256", ""}) { // out of range or empty: the old part stays
        Type(Dialog().colorParts[0], red);
        EXPECT_EQ(LanguageEntry(2).groups[1].attribute.color, MakeColor(12, 0, 255)) << red;
    }
    Press(Dialog().typefaceBits[2], 1);
    EXPECT_EQ(LanguageEntry(2).groups[1].attribute.typeface, 7);
    EXPECT_EQ(host.editWindowRefreshes, 4) << "each colour change repaints at once";
    EXPECT_EQ(LanguageEntry(1).extensions, "xVHDL");

    Press(Dialog().languages, 1);
    host.inputAnswers.push_back("Added");
    Press(Dialog().addButton); // after VHDL: Text moves to entry 4
    EXPECT_EQ(buffers[1]->language, &LanguageEntry(4));
    Press(Dialog().languages, 1);
    Press(Dialog().deleteButton);
    EXPECT_EQ(Dialog().languages->items, (Texts{"None", "Added", "Verilog", "Text"}));
    EXPECT_EQ(buffers[0]->language, &LanguageEntry(0)) << "its language was deleted";
    EXPECT_EQ(buffers[1]->language, &LanguageEntry(3));
    EXPECT_EQ(DialogCancelCommand(*Dialog().dialog), 0);
    Saved("", &after);
    EXPECT_EQ(after, before);
    EXPECT_EQ(Words(LanguageEntry(1).groups[0].words), Texts{"entity"});
    EXPECT_EQ(std::tuple(buffers[0]->language, buffers[1]->language),
              std::tuple(&LanguageEntry(1), &LanguageEntry(3)));
}

} // namespace
} // namespace ruvo
