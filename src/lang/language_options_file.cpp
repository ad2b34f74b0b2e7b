// The options file reader: one pass over the file per section, words sorted as lookup needs.
#include "lang/language_options_file.h"

#include <cstdio>
#include <optional>
#include <string_view>

#include "lang/keyword_lookup.h"
#include "settings/error_report.h"
#include "settings/line_reader.h"

namespace ruvo {

namespace {

constexpr int OptionsLineCapacity = 255; // 254 characters a read

class OptionsFile {
  public:
    explicit OptionsFile(const std::string& path) : file_(std::fopen(path.c_str(), "r")) {
        if (file_ == nullptr) ReportStartupError(ErrorCannotOpen, path.c_str(), OptionsFileRole);
    }
    ~OptionsFile() {
        if (file_ != nullptr) std::fclose(file_);
    }
    OptionsFile(const OptionsFile&) = delete;
    OptionsFile& operator=(const OptionsFile&) = delete;

    bool IsOpen() const { return file_ != nullptr; }

    // Moves past the line equal to header (compared whole, without regard to case).
    bool FindSection(std::string_view header) {
        while (std::optional<std::string> line = ReadMeaningfulLine(file_, OptionsLineCapacity))
            if (CompareWordsNoCase(*line, header) == 0) return true;
        return false;
    }

    // The next line of the current section's body; nothing at the next "[" line or the end.
    std::optional<std::string> NextBodyLine() {
        std::optional<std::string> line = ReadMeaningfulLine(file_, OptionsLineCapacity);
        if (line && !line->empty() && (*line)[0] == '[') return std::nullopt;
        return line;
    }

  private:
    std::FILE* file_;
};

} // namespace

bool ReadKeywordGroup(const std::string& path, int group, WordArray& words) {
    words.Clear();
    OptionsFile file(path);
    if (!file.IsOpen()) return false;
    if (!file.FindSection("[Group" + std::to_string(group) + "]")) return true;
    while (std::optional<std::string> line = file.NextBodyLine()) {
        // Lines starting with a byte of 0x80 or above are not keywords (deliberately skipped).
        if (static_cast<unsigned char>((*line)[0]) >= 0x80) continue;
        if (!words.Append(*line)) break; // out of memory: keep the words read so far
    }
    if (!words.Empty()) SortKeywords(words);
    return true;
}

bool ReadExpanderTable(const std::string& path, WordArray& names, WordArray& values) {
    names.Clear();
    values.Clear();
    OptionsFile file(path);
    if (!file.IsOpen()) return false;
    if (!file.FindSection("[Expander]")) return true;
    while (std::optional<std::string> line = file.NextBodyLine()) {
        const size_t equals = line->find('=');
        if (equals == std::string::npos) continue;
        const std::string_view text = *line;
        if (!names.Append(text.substr(0, equals))) break;
        if (!values.Append(text.substr(equals + 1))) {
            names.DropLast(); // the two arrays stay index for index
            break;
        }
    }
    return true;
}

} // namespace ruvo
