// The tools' state owns their options dialogs, which outlive each use of them.
#include "tools/tools_state.h"

#include "dialogs/gadget_dialog.h"

namespace ruvo {

ToolDialogs::ToolDialogs() = default;
ToolDialogs::~ToolDialogs() = default;

} // namespace ruvo
