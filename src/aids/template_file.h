// Template files: named bodies with up to five parameters, read from "*.tpl" files.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

constexpr int MaxTemplateParameters = 5;
constexpr int MaxTemplateNameLength = 30; // template and parameter names
constexpr int TemplateLineLength = 254;   // a template file is read in lines of this many
constexpr const char* TemplateFileRole = "template";

struct Template {
    std::string name;
    int paramCount = 0;
    std::array<std::string, MaxTemplateParameters> paramNames;
    std::array<int, MaxTemplateParameters> placeholderUses{}; // counted when the file is read
    std::string body;                                         // line ends included
};

struct TemplateFile {
    std::string path; // as given when loading
    std::vector<Template> templates;
};

// A header's parse: the template's name and parameters, or the fault and its detail.
struct TemplateHeader {
    bool ok = false;
    std::string fault;  // e.g. "Too many parameters in:"
    std::string detail; // what the fault names
    std::string name;
    int paramCount = 0;
    std::array<std::string, MaxTemplateParameters> paramNames;
};

// Parses a line that begins with '[' (its line feed, if any, at the end).
TemplateHeader ParseTemplateHeader(std::string_view line);
// Reads a template file's text; faulty headers and bad placeholders go to the start-up
// error report naming `path`.
TemplateFile ReadTemplateText(std::string_view text, std::string_view path);
// Reads the file into a new TemplateFile at the end of the loaded list and refreshes the
// Templates dialog. Null, with start-up error 2, when the file cannot be opened.
TemplateFile* LoadTemplateFile(std::string_view path);

} // namespace ruvo
