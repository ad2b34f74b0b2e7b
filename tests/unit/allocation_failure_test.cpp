// Each checked allocation of an operation made to fail in turn, until the operation completes:
// the failure is reported once with its message, the text is the one before or after the
// operation, the undo log still leads back to the start, and no file on disk gets shorter.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <regex>

#include "aids/aids_state.h"
#include "aids/template_expand.h"
#include "aids/text_search.h"
#include "docs/documents.h"
#include "docs/file_saving.h"
#include "document_files.h"
#include "engine/clipboard_commands.h"
#include "engine/edit_input.h"
#include "engine/transaction_log.h"
#include "fake_host.h"
#include "tools/result_window.h"

namespace ruvo {
namespace {

using Lines = std::vector<std::string>;

struct Session {
    FakeHost host;
    std::unique_ptr<Editor> owned = std::make_unique<Editor>(host);
    Editor& editor = *owned;
    Session() { InstallEditor(owned.get()); }
    ~Session() {
        owned.reset(); // the buffers go while the editor is installed
        InstallEditor(nullptr);
    }
};

// One operation: what is set up before it (not counted), and the operation itself.
struct Operation {
    const char* name;
    bool stepwise; // each step is an undo step of its own, and a failure ends the steps
    std::function<void(const TempFolder&)> prepare;
    std::function<void(const TempFolder&)> run;
};

EditBuffer* Current() {
    return TheEditor().engine.currentBuffer;
}

Lines TextNow() {
    return Current() == nullptr ? Lines{"(no buffer)"} : LinesOf(*Current());
}

// The text of the current buffer and the file's bytes on disk.
std::pair<Lines, std::string> StateNow(const TempFolder& folder) {
    return {TextNow(), ReadBytes(folder.File("top.vhd"))};
}

std::string SourceText() {
    std::string text = "library ieee;\r\nuse ieee.std_logic_1164.all;\r\n";
    for (int i = 0; i < 30; ++i)
        text += "  signal s" + std::to_string(i) + " : std_logic; -- is used\r\n";
    return text + std::string(300, 'x') + "\r\nend;";
}

// Some first lines as after the operation, the rest as before it.
bool StepsDone(const Lines& text, const Lines& before, const Lines& after) {
    if (text.size() != before.size() || text.size() != after.size()) return false;
    size_t line = 0;
    while (line < text.size() && text[line] == after[line])
        ++line;
    return std::equal(text.begin() + line, text.end(), before.begin() + line);
}

void OpenSource(const TempFolder& folder) {
    WriteBytes(folder.File("top.vhd"), SourceText());
    ASSERT_EQ(openFile(folder.File("top.vhd"), 0, 0, 1), 0);
    Current()->cursor = MakePos(3, 4);
    Current()->anchor = Current()->cursor;
}

const Operation Operations[] = {
    {"load", false,
     [](const TempFolder& folder) { WriteBytes(folder.File("top.vhd"), SourceText()); },
     [](const TempFolder& folder) { (void)openFile(folder.File("top.vhd"), 0, 0, 1); }},
    {"typing", false, OpenSource, [](const TempFolder&) { TypeChar(*Current(), 'x'); }},
    {"paste", false,
     [](const TempFolder& folder) {
         OpenSource(folder);
         // Over a selection: the paste replaces it.
         RecordEdit(*Current(), {}, {}, "", MakePos(5, 2), {}, MakePos(2, 3), MakePos(5, 2));
         TheEditor().host.ClipboardSetText("a\r\nbb\r\nccc");
     },
     [](const TempFolder&) { (void)EditPaste(); }},
    {"replace all", true, OpenSource,
     [](const TempFolder&) {
         SearchState state;
         state.searchText = "is";
         state.replaceText = "was";
         state.replaceMode = state.replaceAll = true;
         RunSearch(*Current(), state);
     }},
    {"template expansion", false, OpenSource,
     [](const TempFolder&) {
         Template entry;
         entry.paramCount = 1;
         entry.body = "process ($1$)\nbegin\nend process;\n";
         TheEditor().hdlAids.templates.parameterValues[0] = "clk";
         InsertTemplate(entry);
     }},
    {"saving", false,
     [](const TempFolder& folder) {
         OpenSource(folder);
         TypeChar(*Current(), 'y');
     },
     [](const TempFolder& folder) { (void)saveBuffer(folder.File("top.vhd"), *Current()); }},
    {"result window", false, OpenSource,
     [](const TempFolder&) { (void)openResultWindow("Compile", "vcom -work work top.vhd"); }},
    {"result window again", false,
     [](const TempFolder& folder) {
         OpenSource(folder);
         (void)openResultWindow("Compile", "vcom top.vhd");
     },
     [](const TempFolder&) { (void)openResultWindow("Compile", "vlog top.v"); }},
};

class AllocationFailureTest : public ::testing::TestWithParam<Operation> {};

TEST_P(AllocationFailureTest, EveryFailingAllocationLeavesTheTextWholeAndTheFileIntact) {
    const Operation& operation = GetParam();
    const std::regex message(R"(Alloc failed for \d+ bytes \(Total \d+\)\.)");
    std::pair<Lines, std::string> before, after;
    {
        TempFolder folder;
        Session session;
        operation.prepare(folder);
        before = StateNow(folder);
        operation.run(folder);
        after = StateNow(folder);
        ASSERT_TRUE(session.host.boxes.empty()) << session.host.ErrorBoxTexts();
    }
    ASSERT_NE(before, after);

    long failures = 0;
    for (long n = 1;; ++n) {
        SCOPED_TRACE(std::string(operation.name) + ", allocation " + std::to_string(n));
        TempFolder folder;
        Session session;
        operation.prepare(folder);
        const size_t fileSize = ReadBytes(folder.File("top.vhd")).size();
        const Lines start = TextNow();
        AllocatorStats& stats = session.editor.settings.allocator;
        stats.failCall = stats.calls + n;
        operation.run(folder);
        if (stats.calls < stats.failCall) break; // the operation completed first
        ++failures;

        // The failure is shown once; the undo log names what it gave up.
        const std::vector<FakeHost::Box>& boxes = session.host.boxes;
        ASSERT_FALSE(boxes.empty());
        EXPECT_TRUE(std::regex_match(boxes[0].text, message)) << boxes[0].text;
        for (size_t i = 1; i < boxes.size(); ++i)
            EXPECT_TRUE(boxes[i].text == "Out of memory; transaction ignored ; history cleared" ||
                        boxes[i].text == "Running out of memory")
                << session.host.ErrorBoxTexts();
        const auto state = StateNow(folder);
        EXPECT_TRUE(state == before || state == after ||
                    (operation.stepwise && StepsDone(state.first, before.first, after.first)));
        EXPECT_GE(state.second.size(), fileSize);
        // The log leads back to the text before the operation (or before the save).
        if (EditBuffer* buffer = Current()) {
            for (int undo = 0; undo < 1000 && UndoTransaction() == 0; ++undo) {
            }
            // Unless the log had to be cleared, which it says.
            const bool cleared =
                session.host.ErrorBoxTexts().find("history cleared") != std::string::npos;
            EXPECT_TRUE(cleared || TextNow() == start || TextNow() == after.first);
            TypeChar(*buffer, 'z'); // still usable
        }
    }
    std::printf("%s: %ld allocations failed in turn\n", operation.name, failures);
    EXPECT_GT(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(Operations, AllocationFailureTest, ::testing::ValuesIn(Operations),
                         [](const auto& info) {
                             std::string name = info.param.name;
                             std::erase(name, ' ');
                             return name;
                         });

} // namespace
} // namespace ruvo
