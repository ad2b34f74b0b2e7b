// Fuzzes the message-format rules: a rule file, then tool output read with every format it
// names and with all of them. Input: rules, a line "%%", output (or the same text for both).
#include <cstdio>

#include "fuzz_session.h"
#include "tools/message_formats.h"

using namespace ruvo;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzSession session;
    const std::vector<std::string_view> parts = SplitParts(AsText(data, size));
    const std::string_view rules = parts.front();
    const std::string_view output = parts.back();

    std::string bytes(rules);
    std::FILE* file = fmemopen(bytes.data(), bytes.size() + 1, "rb");
    if (file == nullptr) return 0;
    const MessageFormats formats = ReadMessageFormats(file);
    std::fclose(file);

    std::vector<std::string> names{std::string(AllFormatsName)};
    for (const MessageFormat& format : formats)
        names.push_back(format.name);
    for (const std::string& name : names) {
        MessageReader reader(formats, name);
        for (std::string_view line : SplitLines(output)) {
            const auto location = reader.Read(line);
            if (!location) continue;
            const std::string path =
                CleanPath(ResolveMessagePath("C:\\work\\..\\hdl", location->file));
            (void)SameFilePath(path, location->file);
            const int32_t column = ColumnToByte(line, location->column, location->tabWidth);
            if (column < 0 || column > static_cast<int32_t>(line.size())) std::abort();
        }
    }
    return 0;
}
