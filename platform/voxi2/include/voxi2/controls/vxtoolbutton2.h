#pragma once

#include "voxi2/controls/vxabstractbutton2.h"
#include "voxi2/kernel/toolbutton.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

class VXAction2;
class VXMenu2;

struct VXToolButton2Emitters : TROV::EmittersTable<VXAbstractButton2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXMenu2*)> setMenu{*this};
    TROV::Request<VXMenu2*()> getMenu{*this};
    TROV::Request<void(VXAction2*)> setDefaultAction{*this};
    TROV::Request<VXAction2*()> getDefaultAction{*this};
    TROV::Request<void(ToolButtonPopupMode)> setPopupMode{*this};
    TROV::Request<ToolButtonPopupMode()> getPopupMode{*this};
    TROV::Request<void(ToolButtonStyle)> setToolButtonStyle{*this};
    TROV::Request<ToolButtonStyle()> getToolButtonStyle{*this};
    TROV::Request<void()> clearMenu{*this};
    TROV::Request<void()> clearDefaultAction{*this};
    TROV::Request<void(bool)> setAutoRaise{*this};
    TROV::Request<bool()> isAutoRaise{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// A small button for a tool bar: shows an action, opens a menu, or both.
class VOXI2_EXPORT VXToolButton2 : public VXAbstractButton2
{
public:
    using ToolkitClass = VXToolButton2;

    explicit VXToolButton2(VXObject2* parent = nullptr);
    explicit VXToolButton2(const AnyText& label, VXObject2* parent = nullptr);
    ~VXToolButton2() override;

    /// The menu that the button opens; it is not owned. Null and dead menus are ignored.
    void setMenu(VXMenu2* menu);
    /// Null for none, or when it has been destroyed.
    VXMenu2* menu() const;
    void clearMenu();

    /// The action that a click triggers, and that label, icon, tips and states are taken from now
    /// and whenever it changes; it is not owned. Null and dead actions are ignored.
    void setDefaultAction(VXAction2* action);
    /// Null for none, or when it has been destroyed.
    VXAction2* defaultAction() const;
    /// The button keeps the look that it has.
    void clearDefaultAction();

    /// `ToolButtonPopupMode::Instant` when it was not set.
    void setPopupMode(ToolButtonPopupMode mode);
    ToolButtonPopupMode popupMode() const;

    /// `ToolButtonStyle::IconOnly` when it was not set.
    void setToolButtonStyle(ToolButtonStyle style);
    ToolButtonStyle toolButtonStyle() const;

    /// Whether the button has a frame only while the pointer is on it.
    void setAutoRaise(bool autoRaise);
    bool isAutoRaise() const;

    /// For back ends.
    VXToolButton2Emitters* toolButtonEmitters() noexcept { return &m_emitters; }

private:
    VXToolButton2Emitters m_emitters;
};

} // namespace VOXI
