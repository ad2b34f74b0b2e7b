// The "Templates" dialog and its command: load, remove and insert templates.
#pragma once

#include <string>
#include <string_view>

namespace ruvo {

constexpr int TemplatePathLabelWidth = 25; // file list entries are shortened to this
constexpr const char* TemplateFileFilter = "Template files(*.tpl)|*.tpl|All files(*.*)|*.*|";

// The command: shows the Templates dialog (built on first use), its file list refilled.
int EditTemplates();
// Fills the dialog's lists again from the loaded files, when the dialog exists.
void RefreshTemplatesDialog();

} // namespace ruvo
