// Language options files on disk: groups, sorting, comments, the expander table, a missing
// file and running out of memory while reading.
#include "lang/language_options_file.h"

#include <string>
#include <vector>

#include "lang/language_io.h"
#include "lang/language_table.h"
#include "settings/error_report.h"

#include "editor_fixture.h"
#include "language_test_files.h"

namespace ruvo {
namespace {

std::vector<std::string> Words(const WordArray& words) {
    return std::vector<std::string>(words.begin(), words.end());
}

class OptionsFileTest : public EditorTest {
  protected:
    const LanguageDef& LoadWithFile(const std::string& path) {
        host.SetProfile("Languages", "1", "Lang");
        host.SetProfile("Lang", "File", path);
        LoadLanguages();
        return LanguageEntry(1);
    }
};

TEST_F(OptionsFileTest, GroupsAreReadWholeAndSortedWithoutRegardToCase) {
    TempFile file("Text before any section is ignored\n[group1]\nsignal\nEntity\n# a comment\n"
                  "; another one\n\nARCHITECTURE\nend if\nstd_logic_vector\r\nstd_logic\nstdout\n"
                  "\xe4nderung\n[GROUP2]\ninteger\n[Other]\nignored\n[Group4]\nZed\nabc\n");
    const LanguageDef& lang = LoadWithFile(file.path());

    // '_' sorts before letters: the folding is to lower case.
    EXPECT_EQ(Words(lang.groups[0].words),
              (std::vector<std::string>{"ARCHITECTURE", "end if", "Entity", "signal", "std_logic",
                                        "std_logic_vector", "stdout"}));
    EXPECT_EQ(Words(lang.groups[1].words), std::vector<std::string>{"integer"});
    EXPECT_TRUE(lang.groups[2].words.Empty());
    // Sorted without regard to case although the language is case sensitive.
    EXPECT_EQ(Words(lang.groups[3].words), (std::vector<std::string>{"abc", "Zed"}));
    EXPECT_TRUE(lang.expanderNames.Empty());
    EXPECT_FALSE(HasStartupErrors());
}

TEST_F(OptionsFileTest, GroupColoursAreReadAfterEachGroup) {
    TempFile file("[Group1]\nbegin\n");
    host.SetProfile("Lang", "Color1", "1 2 3");
    host.SetProfile("Lang", "Typeface1", "4");
    host.SetProfile("Lang", "Color5", "5 6 7");
    const LanguageDef& lang = LoadWithFile(file.path());
    EXPECT_EQ(std::tuple(lang.groups[0].attribute.color, lang.groups[0].attribute.typeface),
              std::tuple(MakeColor(1, 2, 3), 4));
    EXPECT_EQ(lang.groups[1].attribute.color, MakeColor(0, 0, 255)); // default
    EXPECT_EQ(lang.groups[4].attribute.color, MakeColor(5, 6, 7));   // read for an empty group
}

TEST_F(OptionsFileTest, ExpanderLinesSplitAtTheFirstEqualsSign) {
    TempFile file("[Group1]\nif\n[expander]\nsl=std_logic\nno equals sign here\ncmp=a = b\nempty=\n"
                  "; comment=skipped\n=nameless\n[Group2]\nafter=the section ended\n");
    const LanguageDef& lang = LoadWithFile(file.path());
    EXPECT_EQ(Words(lang.expanderNames), (std::vector<std::string>{"sl", "cmp", "empty", ""}));
    EXPECT_EQ(Words(lang.expanderValues),
              (std::vector<std::string>{"std_logic", "a = b", "", "nameless"}));
    EXPECT_EQ(Words(lang.groups[1].words), std::vector<std::string>{"after=the section ended"});
}

TEST_F(OptionsFileTest, MissingFileStopsLoadingAtTheFirstGroup) {
    host.SetProfile("Lang", "Color1", "1 2 3");
    host.SetProfile("Lang", "TextColor", "9 9 9");
    const std::string missing = ::testing::TempDir() + "no_such_options_file.lsf";
    const LanguageDef& lang = LoadWithFile(missing);

    EXPECT_EQ(lang.name, "Lang");
    EXPECT_EQ(lang.text.color, MakeColor(9, 9, 9));                  // read before the file
    EXPECT_EQ(lang.groups[0].attribute.color, MakeColor(255, 0, 0)); // not read
    EXPECT_TRUE(lang.groups[0].words.Empty());
    // One report only: neither the other groups nor the expander table try again.
    EXPECT_EQ(editor.settings.startupErrors.errorCount, 1);
    const LineList* log = editor.settings.startupErrors.lines;
    EXPECT_EQ(std::string(log->lineText[log->lineCount - 1]),
              "Error 2: Cannot open Language Options File file '" + missing + "'.");
}

TEST_F(OptionsFileTest, ReloadingReplacesTheWordsOfTheEntry) {
    TempFile first("[Group1]\nalpha\n[Expander]\na=1\n");
    TempFile second("[Group1]\nbeta\n");
    LoadWithFile(first.path());
    const LanguageDef& lang = LoadWithFile(second.path());
    EXPECT_EQ(Words(lang.groups[0].words), std::vector<std::string>{"beta"});
    EXPECT_TRUE(lang.expanderNames.Empty());
}

TEST_F(OptionsFileTest, LongLinesArePiecesOfAtMost254Characters) {
    TempFile file("[Group1]\n" + std::string(300, 'k') + "\n");
    WordArray words;
    ASSERT_TRUE(ReadKeywordGroup(file.path(), 1, words));
    EXPECT_EQ(Words(words),
              (std::vector<std::string>{std::string(46, 'k'), std::string(254, 'k')}));
}

TEST_F(OptionsFileTest, OutOfMemoryKeepsTheWordsReadSoFar) {
    TempFile file("[Group1]\nccc\nbbb\naaa\nddd\n[Expander]\nx=1\ny=2\n");
    // Each three-letter word costs its 4 bytes and 8 bytes of array growth.
    editor.settings.allocator.limitBytes = editor.settings.allocator.totalBytes + 2 * 12 + 5;
    WordArray words;
    ASSERT_TRUE(ReadKeywordGroup(file.path(), 1, words));
    EXPECT_EQ(Words(words), (std::vector<std::string>{"bbb", "ccc"}));
    EXPECT_NE(host.ErrorBoxTexts().find("Alloc failed for 8 bytes"), std::string::npos);

    // A name whose value does not fit is dropped, so names and values stay in step.
    WordArray names, values;
    editor.settings.allocator.limitBytes = editor.settings.allocator.totalBytes + 2 + 8 + 2 + 8 + 2;
    ASSERT_TRUE(ReadExpanderTable(file.path(), names, values));
    EXPECT_EQ(Words(names), std::vector<std::string>{"x"});
    EXPECT_EQ(Words(values), std::vector<std::string>{"1"});

    editor.settings.allocator.limitBytes = editor.settings.allocator.totalBytes + 2 + 8 + 2;
    ASSERT_TRUE(ReadExpanderTable(file.path(), names, values));
    EXPECT_TRUE(names.Empty() && values.Empty());
    editor.settings.allocator.limitBytes = -1;
    ASSERT_TRUE(names.Append("z"));
    EXPECT_EQ(Words(names), std::vector<std::string>{"z"});
}

} // namespace
} // namespace ruvo
