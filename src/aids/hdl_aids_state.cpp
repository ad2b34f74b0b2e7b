// The HDL aids' state is made and freed here, where the dialog type is complete.
#include "aids/hdl_aids_state.h"

#include "dialogs/gadget_dialog.h"

namespace ruvo {

HdlAidsState::HdlAidsState() = default;
HdlAidsState::~HdlAidsState() = default;

} // namespace ruvo
