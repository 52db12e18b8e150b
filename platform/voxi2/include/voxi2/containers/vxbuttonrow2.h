#pragma once

#include "voxi2/containers/messageanswer.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/voxi2_export.h"

#include <map>

namespace VOXI {

class VXButton2;
class VXDialog2;

/// The buttons at the end of a dialog, in the order that the platform's users know, with the usual
/// words in their language.
///
///     auto* buttons = new VXButtonRow2(dialog, MessageAnswer::Ok | MessageAnswer::Cancel
///                                                  | MessageAnswer::Apply);
///     buttons->button(MessageAnswer::Apply)->clicked().connect(page, &Page::refresh);
///     layout->addWidget(buttons);
///     if (dialog->exec() == VXDialog2::Accepted)
///         save();
///
/// `Ok`, `Open`, `Save`, `SaveAll`, `Yes`, `YesToAll`, `Retry` and `Ignore` end the dialog with
/// `Accepted`; `Cancel`, `Close`, `Abort`, `No`, `NoToAll` and `Discard` with `Rejected`: then
/// `answer` tells which it was. `Apply`, `Reset`, `RestoreDefaults` and `Help` just report their
/// clicks. The first that accepts is the dialog's default button.
class VOXI2_EXPORT VXButtonRow2 : public VXPanel2
{
public:
    using ToolkitClass = VXButtonRow2;

    /// In no dialog, or in one that has ended, it is a row of plain buttons.
    explicit VXButtonRow2(VXDialog2* dialog = nullptr,
                          VXFlags<MessageAnswer> answers = MessageAnswer::Ok);
    ~VXButtonRow2() override;

    /// The button of one answer; null when it is not offered.
    VXButton2* button(MessageAnswer answer) const;
    VXFlags<MessageAnswer> answers() const;
    /// The button that the user pressed last; `None` before.
    MessageAnswer answer() const;

private:
    VXButton2* addButton(VXDialog2* dialog, MessageAnswer answer);

    // Guarded by the object lock
    std::map<MessageAnswer, VXHandle<VXButton2>> m_buttons;
    MessageAnswer m_answer = MessageAnswer::None;
};

} // namespace VOXI
