// Fuzzes the command-line readers: the print and new-instance switches, the handed-over name
// and the splitting into file names.
#include "fuzz_session.h"
#include "settings/command_line.h"

using namespace ruvo;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text = AsText(data, size);
    (void)PrintRequest(text);
    std::string line(text);
    const bool newInstance = RemoveNewInstanceSwitch(line);
    if (line.size() + (newInstance ? 2 : 0) != text.size()) std::abort();
    (void)HandOverName(line, "C:\\work");
    for (const std::string& name : SplitFileNames(line))
        if (name.empty() || name.size() > line.size()) std::abort();
    return 0;
}
