// Fuzzes the language options file: its keyword groups and [Expander] table are loaded for a
// language, then its own lines are coloured with it. Input: optional "key=value" lines of the
// language's profile section, a line "%%", the options file.
#include "fuzz_session.h"
#include "lang/language_io.h"
#include "lang/language_table.h"
#include "lang/syntax_scanner.h"

using namespace ruvo;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    InstalledEditor session;
    const std::vector<std::string_view> parts = SplitParts(AsText(data, size));
    if (parts.size() > 1) {
        for (std::string_view line : SplitLines(parts.front())) {
            const size_t equals = line.find('=');
            if (equals != std::string_view::npos)
                session.host.SetProfile("Fuzz", std::string(line.substr(0, equals)),
                                        std::string(line.substr(equals + 1)));
        }
    }
    session.host.SetProfile("Fuzz", "File", WriteScratchFile("fuzz.lsf", parts.back()));
    LoadLanguage("Fuzz", 1);
    const LanguageDef& language = LanguageEntry(1);

    ColourRun runs[MaxRunsPerLine];
    for (std::string_view line : SplitLines(parts.back())) {
        line = line.substr(0, MaxLineLength);
        const int count = ScanLineInLanguage(line, language, runs, MaxRunsPerLine);
        int32_t covered = 0;
        for (int i = 0; i < count; ++i) {
            if (runs[i].start != covered || runs[i].length <= 0) std::abort();
            covered += runs[i].length;
        }
        if (covered != static_cast<int32_t>(line.size())) std::abort();
    }
    return 0;
}
