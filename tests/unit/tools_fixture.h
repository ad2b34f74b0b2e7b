// Helpers of the tool tests: a source file opened from a private folder, scripted output.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "docs/documents.h"
#include "test_files.h"
#include "editor_fixture.h"
#include "engine/edit_buffer.h"
#include "tools/result_window.h"

namespace ruvo {

using Marks = std::vector<std::pair<int32_t, int32_t>>; // source line and kind of entries

class ToolsTest : public EditorTest {
  protected:
    // Writes the file and opens it as a document, which becomes the active buffer.
    EditBuffer& OpenSource(const std::string& name, const std::string& text) {
        const std::string path = folder.File(name);
        WriteBytes(path, text);
        EXPECT_EQ(openFile(path, 0, 0, KindDocument), 0);
        return *editor.engine.currentBuffer;
    }
    // The next program prints these pieces.
    void Prints(std::vector<std::string> pieces) {
        host.processScripts.push_back({true, std::move(pieces)});
    }
    // "command line|directory" of the last program run.
    std::string LastRun() const {
        if (host.processRuns.empty()) return "none";
        return host.processRuns.back().commandLine + "|" + host.processRuns.back().directory;
    }
    // The margin's markers of a window.
    Marks Markers(const EditBuffer& buffer) {
        Marks markers;
        MarginError entry;
        for (int32_t i = 0; editor.engine.display.errorSource(buffer, i, entry); ++i)
            if (entry.resultLine >= 0 && entry.sourceLine > 0)
                markers.emplace_back(entry.sourceLine, entry.kind);
        return markers;
    }
    // User tool n as the profile names it.
    void Define(int n, const std::string& name, const std::string& executable = "",
                const std::string& argument = "", const std::string& directory = "") {
        const std::string k = std::to_string(n);
        host.SetProfile("UserDefinedTools", "ToolName" + k, name);
        host.SetProfile("UserDefinedTools", "Executable" + k, executable);
        host.SetProfile("UserDefinedTools", "Argument" + k, argument);
        host.SetProfile("UserDefinedTools", "WorkingDirectory" + k, directory);
    }

    TempFolder folder;
};

} // namespace ruvo
