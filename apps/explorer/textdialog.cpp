#include "textdialog.h"

#include "dialogbuttons.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/controls/vxeditarea2.h"

#include <utility>

namespace explorer {

using namespace VOXI;

void TextDialog::open(VXObject2* parent, const std::string& title, const std::wstring& text,
                      std::function<void(const std::wstring&)> accepted)
{
    auto* const dialog = new VXDialog2(title, parent);
    dialog->setObjectName("text-dialog");
    auto* const rows = new VXBoxLayout2(dialog, Direction::TopToBottom);
    auto* const area = new VXEditArea2(text, dialog);
    area->setObjectName("long-text");
    rows->addWidget(area, 1);
    addButtons(*dialog, *rows, "&Keep");
    dialog->resize({560, 400});
    dialog->finished().connect(
        dialog, [dialog, area, accepted = std::move(accepted)](const VXDialogEvent2& event) {
            if (event.isAccepted())
                accepted(area->textU());
            dialog->destroy();
        });
    dialog->open();
    area->setFocus();
}

} // namespace explorer
