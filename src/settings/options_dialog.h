// The "Options" dialog: the [Options] settings, the active window's language, saving now.
#pragma once

namespace ruvo {

// The EditorOptions command: builds the dialog on first use, sets its fields from the
// current values and shows it.
int EditorOptions();

} // namespace ruvo
