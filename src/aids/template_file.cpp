// The template file reader: headers, bodies and the placeholder count, with every fault report.
#include "aids/template_file.h"

#include <cstdio>
#include <memory>

#include "aids/hdl_aids_state.h"
#include "aids/templates_dialog.h"
#include "engine/editor.h"
#include "host/host.h"
#include "settings/error_report.h"

namespace ruvo {

namespace {

constexpr const char* FaultInFile = "\tthis error occured in template file:";

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

TemplateHeader Fault(const char* fault, std::string_view detail) {
    TemplateHeader header;
    header.fault = fault;
    header.detail = std::string(detail);
    return header;
}

void Report(const std::string& message, const std::string& detail) {
    ReportStartupError(ErrorFreeForm, message.c_str(), detail.c_str());
}

// The file's lines as a C library would read them in text mode with room for 254
// characters: CR LF becomes LF, and a longer line comes in pieces. NULs end nothing here and
// are dropped, since a line of the text cannot hold one.
std::vector<std::string_view> SplitLines(std::string_view text, std::string& storage) {
    storage.clear();
    storage.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\0') continue;
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        storage += text[i];
    }
    std::vector<std::string_view> lines;
    std::string_view rest = storage;
    while (!rest.empty()) {
        size_t length = rest.find('\n');
        length = length == std::string_view::npos ? rest.size() : length + 1;
        if (length > static_cast<size_t>(TemplateLineLength)) length = TemplateLineLength;
        lines.push_back(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    return lines;
}

// Counts the placeholders of one body line; one of a parameter the template lacks is reported.
void CountPlaceholders(std::string_view line, Template& entry, std::string_view path) {
    for (size_t i = 0; i + 3 <= line.size();) {
        if (line[i] != '$' || line[i + 2] != '$') {
            ++i;
            continue;
        }
        const int number = line[i + 1] - '0';
        if (number < 1 || number > entry.paramCount) {
            Report("Body contains placeholder of non-existent parameter in:", entry.name);
            Report(FaultInFile, std::string(path));
        } else {
            ++entry.placeholderUses[static_cast<size_t>(number - 1)];
        }
        i += 3;
    }
}

} // namespace

TemplateHeader ParseTemplateHeader(std::string_view line) {
    std::string_view text = line;
    if (!text.empty() && text.back() == '\n') text.remove_suffix(1);
    const size_t close = text.empty() || text[0] != '[' ? std::string_view::npos : text.find(']');
    if (close == std::string_view::npos)
        return Fault("Incorrectly delimited template header:", text);
    const std::string_view header = text.substr(1, close - 1);

    const size_t open = header.find('(');
    if (open == std::string_view::npos || header.find(')', open + 1) == std::string_view::npos) {
        // The message shows the header cut by one character.
        return Fault("Incorrectly delimited parameter list in:",
                     header.substr(0, header.empty() ? 0 : header.size() - 1));
    }
    const std::string_view name = Trim(header.substr(0, open));
    if (name.empty())
        return Fault("Missing template name with parameter list:", header.substr(open + 1));
    if (name.size() > static_cast<size_t>(MaxTemplateNameLength))
        return Fault("Too long template name: ", name);

    TemplateHeader result;
    result.name = std::string(name);
    size_t pos = open + 1;
    for (;;) {
        while (IsBlank(header[pos]))
            ++pos;
        if (header[pos] == ')') break;
        if (header[pos] == ',') return Fault("Missing parameter name in:", name);
        if (result.paramCount == MaxTemplateParameters)
            return Fault("Too many parameters in:", name);
        // A ')' lies ahead, so every name ends.
        const size_t end = header.find_first_of(",)", pos);
        const std::string_view parameter = Trim(header.substr(pos, end - pos));
        if (parameter.size() > static_cast<size_t>(MaxTemplateNameLength))
            return Fault("Too long parameter name in:", name);
        result.paramNames[static_cast<size_t>(result.paramCount++)] = std::string(parameter);
        pos = end;
        if (header[pos] == ')') break;
        ++pos;
    }
    result.ok = true;
    return result;
}

TemplateFile ReadTemplateText(std::string_view text, std::string_view path) {
    TemplateFile file;
    file.path = std::string(path);
    std::string storage;
    const std::vector<std::string_view> lines = SplitLines(text, storage);
    size_t next = 0;
    while (next < lines.size() && lines[next][0] != '[')
        ++next; // text before the first header is ignored
    while (next < lines.size()) {
        const TemplateHeader header = ParseTemplateHeader(lines[next++]);
        if (!header.ok) {
            Report(header.fault, header.detail);
            Report(FaultInFile, file.path);
            while (next < lines.size() && lines[next][0] != '[')
                ++next;
            continue;
        }
        Template entry;
        entry.name = header.name;
        entry.paramCount = header.paramCount;
        entry.paramNames = header.paramNames;
        for (; next < lines.size() && lines[next][0] != '['; ++next) {
            CountPlaceholders(lines[next], entry, path);
            entry.body += lines[next];
        }
        file.templates.push_back(std::move(entry));
    }
    return file;
}

TemplateFile* LoadTemplateFile(std::string_view path) {
    Editor& editor = TheEditor();
    const std::string name(path);
    std::FILE* stream = std::fopen(name.c_str(), "rb");
    if (stream == nullptr) {
        ReportStartupError(ErrorCannotOpen, name.c_str(), TemplateFileRole);
        return nullptr;
    }
    editor.host.SetBusyCursor(true);
    std::string text;
    char chunk[4096];
    size_t got;
    while ((got = std::fread(chunk, 1, sizeof chunk, stream)) > 0)
        text.append(chunk, got);
    std::fclose(stream);

    TemplateState& templates = editor.hdlAids.templates;
    templates.loadedFiles.push_back(std::make_unique<TemplateFile>(ReadTemplateText(text, name)));
    ++templates.filesEverLoaded;
    editor.host.SetBusyCursor(false);
    RefreshTemplatesDialog();
    return templates.loadedFiles.back().get();
}

} // namespace ruvo
