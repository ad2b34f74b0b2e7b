// Release of dialogs held by state records.
#include "dialogs/dialog_owner.h"

#include "dialogs/gadget_dialog.h"

namespace ruvo {

void GadgetDialogDeleter::operator()(GadgetDialog* dialog) const {
    delete dialog;
}

} // namespace ruvo
