#pragma once

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/controls/vxbutton2.h"

#include <string>

namespace explorer {

struct DialogButtons
{
    VOXI::VXButton2* accept;
    VOXI::VXButton2* cancel;
};

/// The usual two at the lower right. Both end the dialog; with `acceptsByItself` false the first
/// one does not, and says what is to be done by its `clicked()`.
DialogButtons addButtons(VOXI::VXDialog2& dialog, VOXI::VXBoxLayout2& rows,
                         const std::string& acceptLabel, bool acceptsByItself = true);

} // namespace explorer
