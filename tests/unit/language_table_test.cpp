// The language table: loading and saving its profile sections, choosing a language for a file
// name, and backing the table up for the language dialog.
#include "lang/language_table.h"

#include <string>
#include <vector>

#include "lang/language_io.h"
#include "settings/error_report.h"

#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

class LanguageTableTest : public EditorTest {
  protected:
    // Named languages with extension lists, no options files.
    void Languages(const std::vector<std::pair<std::string, std::string>>& entries) {
        for (size_t i = 0; i < entries.size(); ++i) {
            host.SetProfile("Languages", std::to_string(i + 1), entries[i].first);
            host.SetProfile(entries[i].first, "Extension", entries[i].second);
        }
        LoadLanguages();
    }
    std::string LanguageOf(std::string_view file) {
        const LanguageDef* language = languageForFile(file);
        return language == nullptr ? "(null)" : language->name;
    }
};

TEST_F(LanguageTableTest, MissingKeysTakeTheirDefaults) {
    // The default colours and typefaces show in what is saved back, tested below.
    host.SetProfile("Languages", "1", "VHDL");
    LoadLanguages();
    EXPECT_EQ(UsedLanguageCount(), 2);
    EXPECT_EQ(LanguageEntry(0).filter, "All files(*.*)|*.*|");
    const LanguageDef& vhdl = LanguageEntry(1);
    EXPECT_EQ(vhdl.filter, ""); // only "None" gets a default filter
    EXPECT_EQ(vhdl.extensions, "");
    EXPECT_TRUE(vhdl.caseSensitive);
    EXPECT_EQ(vhdl.groups[1].attribute.color, MakeColor(0, 0, 255));
    EXPECT_FALSE(HasStartupErrors()); // an empty File is no error
}

TEST_F(LanguageTableTest, EveryKeyIsReadAndCutToItsLimit) {
    host.SetProfile("Languages", "1", "Verilog");
    host.SetProfile("None", "Filter", "Text|*.txt|");
    host.SetProfile("Verilog", "CaseSensitive", "no");
    host.SetProfile("Verilog", "LineComment", "////");
    host.SetProfile("Verilog", "BeginComment", "/*");
    host.SetProfile("Verilog", "EndComment", "*/");
    host.SetProfile("Verilog", "Extension", std::string(100, 'v'));
    host.SetProfile("Verilog", "Filter", "Verilog|*.v|");
    host.SetProfile("Verilog", "TextColor", "1 2 3");
    host.SetProfile("Verilog", "TextTypeFace", "4");
    host.SetProfile("Verilog", "CommentColor", "10 20 30");
    host.SetProfile("Verilog", "StringsTypeFace", "0");
    host.SetProfile("Verilog", "ExpanderColor", "7 8 9");
    host.SetProfile("Verilog", "ExpanderTypeFace", "6");
    LoadLanguages();

    EXPECT_EQ(LanguageEntry(0).filter, "Text|*.txt|");
    const LanguageDef& verilog = LanguageEntry(1);
    EXPECT_FALSE(verilog.caseSensitive);
    EXPECT_EQ(verilog.lineComment, "///");
    EXPECT_EQ(verilog.beginComment, "/*");
    EXPECT_EQ(verilog.endComment, "*/");
    EXPECT_EQ(verilog.extensions, std::string(79, 'v'));
    EXPECT_EQ(verilog.filter, "Verilog|*.v|");
    EXPECT_EQ(verilog.text.color, MakeColor(1, 2, 3));
    EXPECT_EQ(verilog.text.typeface, 4);
    EXPECT_EQ(verilog.comment.color, MakeColor(10, 20, 30));
    EXPECT_EQ(verilog.comment.typeface, 2);
    EXPECT_EQ(verilog.strings.typeface, 0);
    EXPECT_EQ(verilog.expander.color, MakeColor(7, 8, 9));
    EXPECT_EQ(verilog.expander.typeface, 6);
}

TEST_F(LanguageTableTest, OptionsFilePathIsExpandedAndAMissingFileIsReported) {
    host.SetProfile("Languages", "1", "VHDL");
    host.SetProfile("VHDL", "File", "$INSTALL\\nowhere\\vhdl.lsf");
    LoadLanguages();

    // The language exists with what was read before the file was needed.
    EXPECT_EQ(LanguageEntry(1).name, "VHDL");
    EXPECT_EQ(LanguageEntry(1).optionsFile, "C:\\ruvo\\nowhere\\vhdl.lsf");
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 1);
}

TEST_F(LanguageTableTest, SaveWritesEveryKeyInItsOrderAndEmptiesTheRestOfTheList) {
    host.SetProfile("Languages", "1", "VHDL");
    host.SetProfile("VHDL", "CaseSensitive", "no");
    host.SetProfile("VHDL", "LineComment", "--");
    host.SetProfile("VHDL", "Extension", "vhd,vhdl");
    host.SetProfile("VHDL", "Color3", "9 9 9");
    LoadLanguages();
    host.profileWrites.clear();

    SaveLanguages();

    const std::vector<std::string> vhdl = {
        "[Languages] 1=VHDL",
        "[VHDL] File=",
        "[VHDL] CaseSensitive=no",
        "[VHDL] BeginComment=",
        "[VHDL] EndComment=",
        "[VHDL] LineComment=--",
        "[VHDL] TextColor=0 0 0",
        "[VHDL] TextTypeFace=0",
        "[VHDL] CommentColor=0 128 0",
        "[VHDL] CommentTypeFace=2",
        "[VHDL] StringsColor=0 0 255",
        "[VHDL] StringsTypeFace=1",
        "[VHDL] ExpanderColor=0 0 255",
        "[VHDL] ExpanderTypeFace=0",
        "[VHDL] Color1=255 0 0",
        "[VHDL] Typeface1=1",
        "[VHDL] Color2=0 0 255",
        "[VHDL] Typeface2=3",
        // An empty File means the group colours were never read: they stay at their defaults.
        "[VHDL] Color3=0 128 0",
        "[VHDL] Typeface3=0",
        "[VHDL] Color4=0 0 0",
        "[VHDL] Typeface4=0",
        "[VHDL] Color5=0 0 0",
        "[VHDL] Typeface5=0",
        "[VHDL] Extension=vhd,vhdl",
        "[VHDL] Filter=",
    };
    const std::vector<std::string>& writes = host.profileWrites;
    ASSERT_EQ(writes.size(), 2 * vhdl.size() + 4);
    EXPECT_EQ(writes[0], "[Languages] 0=None");
    EXPECT_EQ(writes[1], "[None] File=");
    EXPECT_EQ(writes[vhdl.size() - 1], "[None] Filter=All files(*.*)|*.*|");
    EXPECT_EQ(std::vector<std::string>(writes.begin() + vhdl.size(), writes.end() - 4), vhdl);
    EXPECT_EQ(std::vector<std::string>(writes.end() - 4, writes.end()),
              (std::vector<std::string>{
                  "[Languages] 2=", "[Languages] 3=", "[Languages] 4=", "[Languages] 5="}));
}

TEST_F(LanguageTableTest, LastExtensionMustMatchExactlyOthersArePrefixes) {
    Languages({{"VHDL", "vhd,vhdl"}, {"Verilog", "vh,v"}, {"Text", ",txt"}});

    // "vhd" is followed by a comma: a prefix; the last item "v" is exact; an empty item matches
    // nothing; case matters; the extension starts at the first dot of the last component.
    const std::pair<const char*, const char*> cases[] = {
        {"a.vhd", "VHDL"},
        {"a.vhdl", "VHDL"},
        {"a.vhdx", "VHDL"},
        {"a.VHD", "None"},
        {"a.v", "Verilog"},
        {"a.vh", "Verilog"},
        {"a.vo", "None"},
        {"a.txt", "Text"},
        {"a.tx", "None"},
        {"Makefile", "None"},
        {"", "None"},
        {"a.", "None"},
        {"top.v.bak", "None"},
        {"c:\\my.dir/top.vhd", "VHDL"},
        {"c:\\src.v\\top", "None"},
        {"top.vhd.bak", "VHDL"},
        {"a_base_name_well_beyond_thirty_characters.vhd", "VHDL"},
    };
    for (const auto& [file, language] : cases)
        EXPECT_EQ(LanguageOf(file), language) << file;
    EXPECT_EQ(languageForFile("x.vhd"), &LanguageEntry(1));
}

TEST_F(LanguageTableTest, NameEndingInADotHasAnEmptyExtension) {
    // Only an empty last element equals the empty extension; a name without a dot has none.
    Languages({{"VHDL", "vhd,vhdl"}, {"Notes", "txt,"}});
    EXPECT_EQ(LanguageOf("a."), "Notes");
    EXPECT_EQ(LanguageOf("dir.x\\a."), "Notes");
    EXPECT_EQ(LanguageOf("a"), "None");
    EXPECT_EQ(LanguageOf("dir.x\\a"), "None");
    EXPECT_EQ(LanguageOf("a.txt"), "Notes");
}

TEST_F(LanguageTableTest, SingleElementListIsExactAndTheFirstMatchingLanguageWins) {
    Languages({{"Short", "vhd"}, {"Long", "vhd,vhdx"}});
    EXPECT_EQ(LanguageOf("a.vhdl"), "Long"); // only through the prefix rule of "Long"
    EXPECT_EQ(LanguageOf("a.vhd"), "Short");
}

TEST_F(LanguageTableTest, RestoreBringsBackNamesColoursAndKeywords) {
    Languages({{"VHDL", "vhd"}, {"Verilog", "v"}});
    ASSERT_TRUE(LanguageEntry(1).groups[0].words.Append("entity"));
    BackupLanguageTable();

    // What the dialog does: edit in place, insert a copy of "None", delete another.
    LanguageEntry(1).text.color = MakeColor(1, 1, 1);
    LanguageEntry(1).groups[0].words.Clear();
    LanguageEntry(3) = LanguageEntry(2);
    LanguageEntry(2) = LanguageEntry(0);
    LanguageEntry(2).name = "New";
    EXPECT_EQ(UsedLanguageCount(), 4);

    RestoreLanguageTable();
    EXPECT_EQ(UsedLanguageCount(), 3);
    EXPECT_EQ(LanguageEntry(1).name, "VHDL");
    EXPECT_EQ(LanguageEntry(1).text.color, MakeColor(0, 0, 0));
    ASSERT_EQ(LanguageEntry(1).groups[0].words.Count(), 1);
    EXPECT_STREQ(LanguageEntry(1).groups[0].words[0], "entity");
    EXPECT_EQ(LanguageEntry(2).name, "Verilog");
    EXPECT_FALSE(LanguageEntry(3).IsUsed());
    EXPECT_EQ(LanguageOf("a.v"), "Verilog");
}

TEST_F(LanguageTableTest, IndexOfAnEntry) {
    EXPECT_EQ(LanguageIndex(&LanguageEntry(4)), 4);
    LanguageDef outside;
    EXPECT_EQ(LanguageIndex(&outside), -1);
    // Before anything is loaded the table already has its "None" entry.
    EXPECT_EQ(languageForFile("a.vhd"), &LanguageEntry(0));
}

} // namespace
} // namespace ruvo
