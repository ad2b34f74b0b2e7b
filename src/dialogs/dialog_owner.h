// Owning a builder dialog from a state record without the builder's header.
#pragma once

#include <memory>

namespace ruvo {

struct GadgetDialog;

struct GadgetDialogDeleter {
    void operator()(GadgetDialog* dialog) const;
};
// Destroys the dialog's window, if any, with the dialog.
using OwnedGadgetDialog = std::unique_ptr<GadgetDialog, GadgetDialogDeleter>;

} // namespace ruvo
