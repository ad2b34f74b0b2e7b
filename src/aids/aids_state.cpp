// The aids' state owns the Goto Line dialog, which outlives each use of it.
#include "aids/aids_state.h"

#include "dialogs/gadget_dialog.h"

namespace ruvo {

AidsState::AidsState() = default;
AidsState::~AidsState() = default;

} // namespace ruvo
