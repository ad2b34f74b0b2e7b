// Fuzzes the V-System and Leonardo output parsers: the input is what the compiler prints (its
// parts, split at lines "%%", handed over one by one), read into the result window, then into
// the error list in either format, which is stepped through against the compiled source.
#include "docs/documents.h"
#include "fuzz_session.h"
#include "tools/error_list.h"
#include "tools/result_window.h"

using namespace ruvo;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    WriteScratchFile("top.vhd", "entity top is\n\tport (a : in bit);\nend;\n");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    InstalledEditor session;
    if (openFile("top.vhd", 0, 0, KindDocument) != 0) std::abort();
    ToolsState& tools = session.editor.tools;
    tools.sourceBuffer = session.editor.engine.currentBuffer;
    FakeHost::ScriptedProcess run;
    for (std::string_view part : SplitParts(AsText(data, size)))
        run.output.emplace_back(part);
    session.host.processScripts.push_back(run);
    (void)runWithResultWindow("Compile", "vcom top.vhd", "", ErrorMode::Vsystem);
    EditBuffer& result = *OpenResultBuffer();
    for (int32_t i = 0; i < result.lines.lineCount; ++i)
        if (std::string_view(result.lines.lineText[i]).size() > 254) std::abort();
    for (const ErrorMode mode : {ErrorMode::Vsystem, ErrorMode::Leonardo}) {
        buildErrorList(result, mode, "top.vhd");
        for (const ErrorEntry& entry : tools.errorList)
            if (entry.resultLine < 0 || entry.resultLine >= result.lines.lineCount) std::abort();
        for (size_t i = 0; i <= tools.errorList.size(); ++i)
            nextError();
        prevError();
    }
    return 0;
}
