#include "dialogbuttons.h"

namespace explorer {

using namespace VOXI;

DialogButtons addButtons(VXDialog2& dialog, VXBoxLayout2& rows, const std::string& acceptLabel,
                         bool acceptsByItself)
{
    auto* const line = new VXBoxLayout2(&rows);
    const DialogButtons buttons{new VXButton2(acceptLabel, &dialog),
                                new VXButton2("&Cancel", &dialog)};
    buttons.accept->setObjectName("accept");
    buttons.cancel->setObjectName("cancel");
    line->addStretch();
    line->addWidget(buttons.accept);
    line->addWidget(buttons.cancel);
    rows.addLayout(line);
    if (acceptsByItself)
        dialog.setButtonResult(buttons.accept, VXDialog2::Accepted);
    dialog.setButtonResult(buttons.cancel, VXDialog2::Rejected);
    dialog.setDefaultButton(buttons.accept);
    return buttons;
}

} // namespace explorer
