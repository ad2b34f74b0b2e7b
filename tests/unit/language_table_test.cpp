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

// The writes of the "VHDL" section after "[Languages] 1=VHDL", as "key=value" joined by blanks.
std::string SavedSection(const std::vector<std::string>& writes) {
    std::string saved;
    for (const std::string& write : writes)
        if (write.rfind("[VHDL] ", 0) == 0) saved += write.substr(7) + " ";
    return saved;
}

TEST_F(LanguageTableTest, MissingKeysTakeTheirDefaultsAndSaveWritesEveryKeyInItsOrder) {
    host.SetProfile("Languages", "1", "VHDL");
    host.SetProfile("VHDL", "Color3", "9 9 9");
    LoadLanguages();
    EXPECT_EQ(UsedLanguageCount(), 2);
    EXPECT_FALSE(HasStartupErrors()); // an empty File is no error
    SaveLanguages();
    const std::vector<std::string>& writes = host.profileWrites;
    // "None" first with the default filter (only it has one), then the language, then the
    // rest of the list emptied. An empty File means the group colours were never read.
    ASSERT_EQ(writes.size(), 2 * 26u + 4);
    EXPECT_EQ(writes[0], "[Languages] 0=None");
    EXPECT_EQ(writes[25], "[None] Filter=All files(*.*)|*.*|");
    EXPECT_EQ(writes[26], "[Languages] 1=VHDL");
    EXPECT_EQ(SavedSection(writes),
              "File= CaseSensitive=yes BeginComment= EndComment= LineComment= TextColor=0 0 0 "
              "TextTypeFace=0 CommentColor=0 128 0 CommentTypeFace=2 StringsColor=0 0 255 "
              "StringsTypeFace=1 ExpanderColor=0 0 255 ExpanderTypeFace=0 Color1=255 0 0 "
              "Typeface1=1 Color2=0 0 255 Typeface2=3 Color3=0 128 0 Typeface3=0 Color4=0 0 0 "
              "Typeface4=0 Color5=0 0 0 Typeface5=0 Extension= Filter= ");
    EXPECT_EQ(std::vector<std::string>(writes.end() - 4, writes.end()),
              (std::vector<std::string>{
                  "[Languages] 2=", "[Languages] 3=", "[Languages] 4=", "[Languages] 5="}));
}

TEST_F(LanguageTableTest, EveryKeyIsReadCutToItsLimitAndWrittenBack) {
    const std::pair<const char*, std::string> keys[] = {{"CaseSensitive", "no"},
                                                        {"BeginComment", "/*"},
                                                        {"EndComment", "*/"},
                                                        {"LineComment", "////"},
                                                        {"TextColor", "1 2 3"},
                                                        {"TextTypeFace", "4"},
                                                        {"CommentColor", "10 20 30"},
                                                        {"CommentTypeFace", "3"},
                                                        {"StringsColor", "5 6 7"},
                                                        {"StringsTypeFace", "0"},
                                                        {"ExpanderColor", "7 8 9"},
                                                        {"ExpanderTypeFace", "6"},
                                                        {"Extension", std::string(100, 'v')},
                                                        {"Filter", "VHDL|*.vhd|"}};
    host.SetProfile("Languages", "1", "VHDL");
    host.SetProfile("None", "Filter", "Text|*.txt|");
    for (const auto& [key, value] : keys)
        host.SetProfile("VHDL", key, value);
    LoadLanguages();
    EXPECT_EQ(LanguageEntry(0).filter, "Text|*.txt|");
    host.profileWrites.clear();
    SaveLanguages();
    EXPECT_EQ(SavedSection(host.profileWrites),
              "File= CaseSensitive=no BeginComment=/* EndComment=*/ LineComment=/// "
              "TextColor=1 2 3 TextTypeFace=4 CommentColor=10 20 30 CommentTypeFace=3 "
              "StringsColor=5 6 7 StringsTypeFace=0 ExpanderColor=7 8 9 ExpanderTypeFace=6 "
              "Color1=255 0 0 Typeface1=1 Color2=0 0 255 Typeface2=3 Color3=0 128 0 Typeface3=0 "
              "Color4=0 0 0 Typeface4=0 Color5=0 0 0 Typeface5=0 Extension=" +
                  std::string(79, 'v') + " Filter=VHDL|*.vhd| ");

    // The options file path is expanded; a missing file is reported and the language keeps
    // what was read before the file was needed.
    host.SetProfile("VHDL", "File", "$INSTALL\\nowhere\\vhdl.lsf");
    LoadLanguages();
    EXPECT_EQ(LanguageEntry(1).optionsFile, "C:\\ruvo\\nowhere\\vhdl.lsf");
    EXPECT_EQ(LanguageEntry(1).lineComment, "///");
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 1);
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

TEST_F(LanguageTableTest, AnEmptyLastElementMatchesANameEndingInADotAndTheFirstMatchWins) {
    // Only an empty last element equals the empty extension; a name without a dot has none.
    Languages({{"Short", "vhd"}, {"Long", "vhd,vhdx"}, {"Notes", "txt,"}});
    const std::pair<const char*, const char*> cases[] = {
        {"a.", "Notes"},    {"dir.x\\a.", "Notes"}, {"a", "None"},     {"dir.x\\a", "None"},
        {"a.txt", "Notes"}, {"a.vhdl", "Long"},     {"a.vhd", "Short"}};
    for (const auto& [file, language] : cases)
        EXPECT_EQ(LanguageOf(file), language) << file;
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
