// Expanding a template with its parameter values into the current buffer.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "aids/template_file.h"

namespace ruvo {

// The body with each placeholder $n$ (n from 1 to the parameter count) replaced by value n;
// everything else, other "$" included, stays as it is.
std::string ExpandTemplateBody(const Template& entry,
                               const std::array<std::string, MaxTemplateParameters>& values);
// Expands the template with the stored parameter values and inserts it at the cursor of the
// current buffer as one edit (replacing the word before the cursor when one is pending).
void InsertTemplate(const Template& entry);
// Template `index` of the selected file: inserted at once without parameters, else the
// Expand Template dialog asks for them. Needs a current buffer that is not read-only.
int ChooseTemplate(int index);
// The first template called `name` (case matters) of the loaded file whose path equals the
// expanded `file` (case ignored), loading the file first when it is not loaded; then as
// ChooseTemplate. Missing file or template: a "Warning" box. Returns 1 when it was chosen.
int ExpandTemplateByName(std::string_view file, std::string_view name);

} // namespace ruvo
