// The customisation state owns the accelerators dialog once it has been built.
#include "commands/customisation_state.h"

#include "dialogs/gadget_dialog.h"

namespace ruvo {

CustomisationState::CustomisationState() = default;
CustomisationState::~CustomisationState() = default;

} // namespace ruvo
