// Fuzzes the message-format rules: a rule file, then a user tool's output read into the result
// window and from it into the error list with every format the rules name and with "auto".
// Input: rules, a line "%%", output (or the same text for both).
#include <cstdio>

#include "fuzz_session.h"
#include "tools/error_list.h"
#include "tools/message_formats.h"
#include "tools/result_window.h"

using namespace ruvo;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    InstalledEditor session;
    const std::vector<std::string_view> parts = SplitParts(AsText(data, size));
    std::string rules(parts.front());
    std::FILE* file = fmemopen(rules.data(), rules.size() + 1, "rb");
    if (file == nullptr) return 0;
    ToolsState& tools = session.editor.tools;
    tools.formats = ReadMessageFormats(file);
    std::fclose(file);

    std::vector<std::string> names{std::string(AllFormatsName)};
    for (const MessageFormat& format : tools.formats)
        names.push_back(format.name);
    tools.runDirectory = "C:\\work\\..\\hdl";
    tools.runFormat = names.back();
    session.host.processScripts.push_back({true, {std::string(parts.back())}});
    (void)runWithResultWindow("Tool", "make", tools.runDirectory, ErrorMode::Formats);
    EditBuffer& result = *OpenResultBuffer();
    for (const std::string& name : names) {
        tools.runFormat = name;
        buildErrorList(result, ErrorMode::Formats, "");
        for (const ErrorEntry& entry : tools.errorList) {
            const std::string_view line = result.lines.lineText[entry.resultLine];
            const int32_t column = ColumnToByte(line, entry.column, entry.tabWidth);
            if (column < 0 || column > static_cast<int32_t>(line.size())) std::abort();
            if (!entry.file.empty() && !SameFilePath(entry.file, CleanPath(entry.file)))
                std::abort();
        }
    }
    return 0;
}
