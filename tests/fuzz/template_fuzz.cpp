// Fuzzes template files: the reader with its header and placeholder checks, then every
// template read expanded with parameter values taken from the input.
#include "aids/template_expand.h"
#include "aids/template_file.h"
#include "engine/text_pos.h"
#include "fuzz_session.h"

using namespace ruvo;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    InstalledEditor session;
    const std::string_view text = AsText(data, size);
    const TemplateFile file = ReadTemplateText(text, "fuzz.tpl");
    (void)ParseTemplateHeader(text.substr(0, text.find('\n')));
    std::array<std::string, MaxTemplateParameters> values;
    for (size_t i = 0; i < values.size(); ++i)
        values[i] = std::string(text.substr(std::min(text.size(), i * 7), 5));
    session.editor.hdlAids.templates.parameterValues = values;
    TestBuffer buffer("entity e is\n    port (a : in bit);\nend;");
    const std::vector<std::string> before = LinesOf(*buffer);
    buffer->cursor = MakePos(1, 4);
    size_t inserted = 0;
    for (const Template& entry : file.templates) {
        if (++inserted > 8) break;
        if (entry.paramCount < 0 || entry.paramCount > MaxTemplateParameters) std::abort();
        (void)ExpandTemplateBody(entry, values);
        InsertTemplate(entry);
        CheckLines(*buffer);
    }
    while (UndoTransaction() == 0) {
    }
    if (LinesOf(*buffer) != before) std::abort();
    return 0;
}
