#pragma once

#include "voxi2/containers/vxdialog2.h"
#include "voxi2/kernel/vxhandle.h"

#include <functional>

namespace VOXI {

/// Opens a dialog that ends by being answered, and then is destroyed. What ends it first answers
/// it, and nothing answers it twice: the user, its end with its parent, or that of the toolkit.
///
/// `ended` is called once, on the toolkit's thread, with the dialog's result, `Rejected` unless the
/// user ended it; before, if he did, `read`, while what is in the dialog can still be asked.
/// Without a back end `ended` is called at once.
void openDialog(const VXHandle<VXDialog2>& dialog, std::function<void()> read,
                std::function<void(int result)> ended);

/// Ends all these dialogs and answers them with `Rejected`: the toolkit goes.
void endOpenDialogs();

} // namespace VOXI
