// Each checked allocation of an operation made to fail in turn, until the operation completes:
// the failure is reported once with its message, the text is the one before or after the
// operation, the undo log still leads back to the start, and no file on disk gets shorter.
#include <gtest/gtest.h>

#include <functional>
#include <regex>

#include "aids/aids_state.h"
#include "aids/template_expand.h"
#include "aids/text_search.h"
#include "docs/documents.h"
#include "docs/file_saving.h"
#include "editor_fixture.h"
#include "engine/clipboard_commands.h"
#include "engine/edit_input.h"
#include "engine/transaction_log.h"
#include "lang/language_table.h"
#include "test_files.h"
#include "tools/result_window.h"

namespace ruvo {
namespace {

using Step = std::function<void(const std::string& file)>;

// One operation: what is set up after the source (not counted), and the operation itself.
struct Operation {
    const char* name;
    bool stepwise; // each step is an undo step of its own, and a failure ends the steps
    Step prepare, run;
};

// Loading starts from the file alone, everything else from the file opened.
void WriteSource(const std::string& file, bool open) {
    std::string text = "library ieee;\r\nuse ieee.std_logic_1164.all;\r\n";
    for (int i = 0; i < 30; ++i)
        text += "  signal s" + std::to_string(i) + " : std_logic; -- is used\r\n";
    WriteBytes(file, text + std::string(300, 'x') + "\r\nend;");
    if (!open) return;
    ASSERT_EQ(openFile(file, 0, 0, 1), 0);
    Current()->cursor = Current()->anchor = MakePos(3, 4);
}

// Some first lines as after the operation, the rest as before it.
bool StepsDone(const Texts& text, const Texts& before, const Texts& after) {
    if (text.size() != before.size() || text.size() != after.size()) return false;
    const auto done = std::mismatch(text.begin(), text.end(), after.begin()).first;
    return std::equal(done, text.end(), before.begin() + (done - text.begin()));
}

const Operation Operations[] = {
    {"Load", false, nullptr, [](auto& file) { (void)openFile(file, 0, 0, 1); }},
    {"Typing", false, nullptr, [](auto&) { TypeChar(*Current(), 'x'); }},
    {"PasteOverASelection", false,
     [](auto&) {
         RecordEdit(*Current(), {}, {}, "", MakePos(5, 2), {}, MakePos(2, 3), MakePos(5, 2));
         TheEditor().host.ClipboardSetText("a\r\nbb\r\nccc");
     },
     [](auto&) { (void)EditPaste(); }},
    {"ReplaceAll", true, nullptr,
     [](auto&) {
         RunSearch(
             *Current(),
             {.searchText = "is", .replaceText = "was", .replaceMode = true, .replaceAll = true});
     }},
    {"TemplateExpansion", false, nullptr,
     [](auto&) {
         TheEditor().hdlAids.templates.parameterValues[0] = "clk";
         InsertTemplate({"", 1, {}, {}, "process ($1$)\nbegin\nend process;\n"});
     }},
    {"Saving", false, [](auto&) { TypeChar(*Current(), 'y'); },
     [](auto& file) { (void)saveBuffer(file, *Current()); }},
    {"ResultWindow", false, nullptr,
     [](auto&) { (void)openResultWindow("Compile", "vcom -work work top.vhd"); }},
    {"ResultWindowAgain", false, [](auto&) { (void)openResultWindow("Compile", "vcom top.vhd"); },
     [](auto&) { (void)openResultWindow("Compile", "vlog top.v"); }},
    {"CopyingKeywords", false, nullptr,
     [](auto&) {
         for (const char* word : {"entity", "is", "end"})
             (void)LanguageEntry(1).groups[0].words.Append(word);
         BackupLanguageTable(); // as the language dialog opens
     }},
};

const std::regex Reported(R"(Alloc failed for \d+ bytes \(Total \d+\)\.\n)"
                          R"((Out of memory; transaction ignored ; history cleared\n|)"
                          R"(Running out of memory\n)*)");

class AllocationFailureTest : public ::testing::TestWithParam<Operation> {};

TEST_P(AllocationFailureTest, EveryFailingAllocationLeavesTheTextWholeAndTheFileIntact) {
    const Operation& operation = GetParam();
    // The text of the current buffer and the file's bytes on disk.
    auto textNow = [] { return Current() ? LinesOf(*Current()) : Texts{"(no buffer)"}; };
    auto stateNow = [&](const std::string& file) { return std::pair(textNow(), ReadBytes(file)); };
    std::pair<Texts, std::string> before, after;
    long n = 0;
    for (;; ++n) { // at 0 nothing fails: the state after the operation
        SCOPED_TRACE(std::string(operation.name) + ", allocation " + std::to_string(n));
        TempFolder folder;
        const std::string file = folder.File("top.vhd");
        InstalledEditor session;
        WriteSource(file, std::string_view(operation.name) != "Load");
        if (operation.prepare) operation.prepare(file);
        before = stateNow(file);
        AllocatorStats& stats = session.editor.settings.allocator;
        stats.failCall = n == 0 ? 0 : stats.calls + n;
        operation.run(file);
        if (n == 0) {
            after = stateNow(file);
            ASSERT_TRUE(session.host.boxes.empty()) << session.host.ErrorBoxTexts();
            continue;
        }
        if (stats.calls < stats.failCall) break; // the operation completed first

        // The failure is shown once; the undo log names what it gave up.
        const std::string boxes = session.host.ErrorBoxTexts();
        EXPECT_TRUE(std::regex_match(boxes, Reported)) << boxes;
        const auto state = stateNow(file);
        EXPECT_TRUE(state == before || state == after ||
                    (operation.stepwise && StepsDone(state.first, before.first, after.first)));
        EXPECT_GE(state.second.size(), before.second.size());
        // The log leads back to the text before the operation, unless it had to be cleared,
        // which it says.
        if (EditBuffer* buffer = Current()) {
            for (int undo = 0; undo < 1000 && UndoTransaction() == 0; ++undo) {
            }
            const bool cleared = boxes.find("history cleared") != std::string::npos;
            EXPECT_TRUE(cleared || textNow() == before.first || textNow() == after.first);
            TypeChar(*buffer, 'z'); // still usable
        }
    }
    EXPECT_GT(n, 1) << "no allocation failed";
}

INSTANTIATE_TEST_SUITE_P(Operations, AllocationFailureTest, ::testing::ValuesIn(Operations),
                         [](const auto& info) { return info.param.name; });

} // namespace
} // namespace ruvo
