#pragma once

#include "voxi2/containers/vxabstractdialog2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

class VXButton2;

struct VXDialog2Emitters : TROV::EmittersTable<VXAbstractDialog2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXButton2*)> setDefaultButton{*this};
    TROV::Request<void(bool)> setSizeGripEnabled{*this};
    TROV::Request<VXButton2*()> getDefaultButton{*this};
    TROV::Request<bool()> isSizeGripEnabled{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// A dialog whose content the application puts together, with a layout as in a panel.
///
///     VXDialog2 dialog("Settings", window);
///     auto* rows = new VXBoxLayout2(&dialog, Direction::TopToBottom);
///     auto* keep = new VXButton2("&Keep", &dialog);
///     ...
///     dialog.setButtonResult(keep, VXDialog2::Accepted);
///     dialog.setDefaultButton(keep);
///     if (dialog.exec() == VXDialog2::Accepted)
///         save();
class VOXI2_EXPORT VXDialog2 : public VXAbstractDialog2
{
public:
    using ToolkitClass = VXDialog2;

    /// A dialog belongs to the window that its parent is or lies in, and stays above it. Its frame
    /// has a title and the system menu; `setWindowFlags` can give it more.
    explicit VXDialog2(VXObject2* parent = nullptr);
    explicit VXDialog2(const AnyText& title, VXObject2* parent = nullptr);
    ~VXDialog2() override;

    /// The button that Return presses while no other button has the focus; null for none. A dead
    /// one, or one that is not in the dialog, is ignored. The same as `VXButton2::setDefault`.
    void setDefaultButton(VXButton2* button);
    VXButton2* defaultButton() const;

    /// Whether a corner shows that it can be dragged to resize the dialog; off by default.
    void setSizeGripEnabled(bool enabled);
    bool isSizeGripEnabled() const;

private:
    VXDialog2Emitters m_emitters;
};

} // namespace VOXI
