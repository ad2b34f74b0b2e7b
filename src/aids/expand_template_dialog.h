// The "Expand Template" dialog: asks for a template's parameter values, then inserts it.
#pragma once

namespace ruvo {

// Shows the dialog (modal) for template `templateIndex` of loaded file `fileIndex`: the
// labels name its parameters, the other rows are hidden, the fields keep the values typed
// last. "&Apply" stores the values and inserts the template.
void ShowExpandTemplateDialog(int fileIndex, int templateIndex);

} // namespace ruvo
