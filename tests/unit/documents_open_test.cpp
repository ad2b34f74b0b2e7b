// Opening, creating and closing buffers: questions, names, the buffer list, the current buffer.
#include <string>
#include <vector>

#include "commands/command_table.h"
#include "docs/documents.h"
#include "docs/file_commands.h"
#include "docs/file_saving.h"
#include "document_files.h"
#include "editor_fixture.h"
#include "lang/language_table.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;

class DocumentsOpenTest : public EditorTest {
  protected:
    std::vector<std::string> OpenNames() {
        std::vector<std::string> names;
        (void)forEachBuffer([&](EditBuffer& buffer) {
            names.emplace_back(buffer.fileName);
            return 1;
        });
        return names;
    }
    TempFolder folder;
};

TEST_F(DocumentsOpenTest, NamesAndFullPaths) {
    for (const char* name : {"Untitled12", "Untitled"})
        EXPECT_TRUE(isUnnamed(name)) << name;
    for (const char* name : {"untitled1", "Untitle", "C:\\Untitled1"})
        EXPECT_FALSE(isUnnamed(name)) << name;

    host.currentDirectory = "C:\\work";
    for (const char* absolute : {"\\src\\a.vhd", "/src/a.vhd", "D:/a.vhd", "d:\\a.vhd", ""})
        EXPECT_EQ(fullPathOf(absolute), absolute);
    EXPECT_EQ(fullPathOf("d:a.vhd"), "C:\\work\\d:a.vhd");
    EXPECT_EQ(fullPathOf("rtl\\a.vhd"), "C:\\work\\rtl\\a.vhd");
}

TEST_F(DocumentsOpenTest, OpeningMakesAWindowABufferAndTheCurrentOne) {
    LanguageEntry(1).name = "VHDL";
    LanguageEntry(1).extensions = "vhd";
    const std::string path = folder.File("alu.vhd");
    WriteBytes(path, "entity alu is\r\nend;\r\n");
    ASSERT_EQ(openFile(path, 0, 0, KindDocument), 0);
    EditBuffer* buffer = Current();
    ASSERT_NE(buffer, nullptr);
    EXPECT_EQ(LinesOf(*buffer), (Lines{"entity alu is", "end;", ""}));
    EXPECT_EQ(buffer->lines.readOnly, 0);
    EXPECT_EQ(buffer->language, &LanguageEntry(1));
    EXPECT_EQ(host.createdWindows, (std::vector<EditBuffer*>{buffer}));
    EXPECT_EQ(host.windowTitles[buffer], path);
    ASSERT_NE(buffer->undoHead, nullptr);
    EXPECT_TRUE(host.enabledCommands[CommandIndexOfHandler(SaveFile)]);
    EXPECT_TRUE(host.boxes.empty()) << host.ErrorBoxTexts();
}

TEST_F(DocumentsOpenTest, NewFilesAreNumberedUntitled) {
    ASSERT_EQ(NewFile(), 0);
    ASSERT_EQ(NewFile(), 0);
    EXPECT_EQ(OpenNames(), (std::vector<std::string>{"Untitled1", "Untitled2"}));
    // Two unnamed buffers share a directory but are never taken for the same file.
    EXPECT_TRUE(host.boxes.empty());
    closeBuffer(*Current());
    ASSERT_EQ(NewFile(), 0);
    EXPECT_STREQ(Current()->fileName, "Untitled3");
}

TEST_F(DocumentsOpenTest, OpeningTheSameFileTwiceOffersAReadOnlyCopy) {
    const std::string path = folder.File("twice.vhd");
    WriteBytes(path, "x");
    ASSERT_EQ(openFile(path, 0, 0, KindDocument), 0);
    EditBuffer* first = Current();

    host.answers = {AnswerNo};
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].caption, "Warning");
    EXPECT_EQ(host.boxes[0].text,
              "File '" + path + "' is already\nin an edit buffer, open a readonly copy ?");
    EXPECT_EQ(host.boxes[0].kind, static_cast<int>(QuestionKind::YesNo));
    EXPECT_EQ(Current(), first);
    EXPECT_EQ(editor.documents.buffers.size(), 1u);

    host.answers = {AnswerYes};
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
    EditBuffer* copy = Current();
    ASSERT_NE(copy, first);
    EXPECT_EQ(copy->lines.readOnly, 1);
    EXPECT_EQ(LinesOf(*copy), (Lines{"x"}));
    EXPECT_EQ(SaveFile(), 0); // refused with a beep
    EXPECT_EQ(host.statusPanes[4], "Window is opened readonly.");
    EXPECT_TRUE(host.statusTexts.back().beep);
}

TEST_F(DocumentsOpenTest, MissingFileAsksBeforeCreating) {
    const std::string path = folder.File("missing.vhd");
    host.answers = {AnswerNo};
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 1);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].caption, "No such file");
    EXPECT_EQ(host.boxes[0].text,
              "File '" + path + "' does not exists.\nDo you want to create an empty file ?");
    EXPECT_EQ(Current(), nullptr);

    host.answers = {AnswerYes};
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
    ASSERT_NE(Current(), nullptr);
    EXPECT_EQ(LinesOf(*Current()), (Lines{""}));
    EXPECT_EQ(host.boxes.size(), 2u); // no open error for the file that is not there
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(DocumentsOpenTest, LoadFileUsesTheOpenDialogAndItsReadOnlyBox) {
    const std::string path = folder.File("dlg.vhd");
    WriteBytes(path, "d");
    EXPECT_EQ(LoadFile(), 0); // cancelled
    ASSERT_EQ(host.fileDialogs.size(), 1u);
    EXPECT_FALSE(host.fileDialogs[0].save);
    EXPECT_EQ(host.fileDialogs[0].filter, "All files(*.*)|*.*|");
    EXPECT_EQ(Current(), nullptr);

    // Named languages with a filter follow in table order; one without a filter is left out.
    LanguageEntry(1).name = "VHDL";
    LanguageEntry(1).filter = "VHDL(*.vhd)|*.vhd|";
    LanguageEntry(2).name = "Perl";
    LanguageEntry(3).filter = "Orphan(*.o)|*.o|"; // no name: unused entry
    LanguageEntry(4).name = "Verilog";
    LanguageEntry(4).filter = "Verilog(*.v)|*.v|";
    host.fileDialogAnswers.push_back(FileDialogResult{path, "", true});
    EXPECT_EQ(LoadFile(), 0);
    EXPECT_EQ(host.fileDialogs.back().filter,
              "All files(*.*)|*.*|VHDL(*.vhd)|*.vhd|Verilog(*.v)|*.v|");
    ASSERT_NE(Current(), nullptr);
    EXPECT_EQ(Current()->lines.readOnly, 1);
    EXPECT_EQ(editor.documents.lastDialogDirectory, path.substr(0, path.rfind('/') + 1));

    // A file in the root of a drive leaves the next dialog in that root, not in "C:".
    host.fileDialogAnswers.push_back(FileDialogResult{"C:\\top.vhd", "", false});
    host.answers.push_back(AnswerNo); // no such file here: nothing is created
    EXPECT_EQ(LoadFile(), 0);
    EXPECT_EQ(editor.documents.lastDialogDirectory, "C:\\");
    host.fileDialogAnswers.push_back(FileDialogResult{"top.vhd", "", false});
    host.answers.push_back(AnswerNo);
    EXPECT_EQ(LoadFile(), 0);
    EXPECT_EQ(editor.documents.lastDialogDirectory, "");
}

TEST_F(DocumentsOpenTest, FailuresLeaveNoBufferBehind) {
    const std::string path = folder.File("f.vhd");
    WriteBytes(path, "f");
    host.createWindowFails = true;
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 1);
    EXPECT_TRUE(editor.documents.buffers.empty());
    EXPECT_EQ(Current(), nullptr);

    host.createWindowFails = false;
    editor.settings.allocator.limitBytes = editor.settings.allocator.totalBytes + 16;
    EXPECT_EQ(openFile(path, 0, 0, KindDocument), 1);
    EXPECT_TRUE(editor.documents.buffers.empty());
    EXPECT_NE(host.ErrorBoxTexts().find("Alloc failed for"), std::string::npos);
}

TEST_F(DocumentsOpenTest, ClosingKeepsTheRecordAndMovesOn) {
    const std::string a = folder.File("a.vhd");
    const std::string b = folder.File("b.vhd");
    WriteBytes(a, "a");
    WriteBytes(b, "b");
    ASSERT_EQ(openFile(a, 0, 0, KindDocument), 0);
    EditBuffer* first = Current();
    ASSERT_EQ(openFile(b, 0, 0, KindDocument), 0);
    EditBuffer* second = Current();
    ASSERT_EQ(openFile("ToolResult", 1, 1, KindMessage), 0);
    EditBuffer* report = Current();

    closeBuffer(*second);
    EXPECT_TRUE(second->IsClosed());
    EXPECT_EQ(second->undoHead, nullptr);
    EXPECT_EQ(OpenNames(), (std::vector<std::string>{a, "ToolResult"}));
    EXPECT_EQ(editor.documents.recentFiles[0], b);
    EXPECT_EQ(Current(), report);

    closeBuffer(*report);
    EXPECT_EQ(editor.documents.recentFiles[0], b); // a report window is not a recent file
    EXPECT_EQ(Current(), first);
    closeBuffer(*first);
    EXPECT_EQ(Current(), nullptr);
    EXPECT_FALSE(host.enabledCommands[CommandIndexOfHandler(SaveFile)]);
    EXPECT_EQ(editor.documents.recentFiles[1], b);
    EXPECT_EQ(SaveFile(), 0); // no active window: nothing, no dialog
    EXPECT_TRUE(host.fileDialogs.empty());
}

TEST_F(DocumentsOpenTest, ForEachBufferStopsAtTheFirstZero) {
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(NewFile(), 0);
    int visits = 0;
    EXPECT_EQ(forEachBuffer([&](EditBuffer&) { return ++visits < 2 ? 1 : 0; }), 0);
    EXPECT_EQ(visits, 2);
    visits = 0;
    EXPECT_EQ(forEachBuffer([&](EditBuffer&) { return ++visits; }), 1);
    EXPECT_EQ(visits, 3);
}

} // namespace
} // namespace ruvo
