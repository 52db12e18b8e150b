#pragma once

#include "voxi2/controls/vxbuttonevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/icon.h"

#include <string>

namespace VOXI {

struct VXAbstractButton2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(bool)> setCheckable{*this};
    TROV::Request<void(bool)> setChecked{*this};
    TROV::Request<void(bool)> setExclusive{*this};
    TROV::Request<void(Icon)> setIcon{*this};
    TROV::Request<void(std::string)> setLabel{*this};
    TROV::Request<void(std::wstring)> setLabelU{*this};
    TROV::Request<bool()> isCheckable{*this};
    TROV::Request<bool()> isChecked{*this};
    TROV::Request<bool()> isExclusive{*this};
    TROV::Request<Icon()> getIcon{*this};
    TROV::Request<std::string()> getLabel{*this};
    TROV::Request<void()> click{*this};
    TROV::Request<void()> toggle{*this};
    TROV::Request<std::wstring()> getLabelU{*this};
    TROV::Request<void(Size<int>)> setIconSize{*this};
    TROV::Request<Size<int>()> getIconSize{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXButtonClickEvent2&)> clicked{*this};
    TROV::Event<void(const VXButtonToggleEvent2&)> toggled{*this};
};

/// What all buttons have in common.
class VOXI2_EXPORT VXAbstractButton2 : public VXWidget2
{
public:
    ~VXAbstractButton2() override;

    /// An ampersand makes the character after it the mnemonic.
    void setLabel(const AnyText& label);
    /// In the process's encoding; what Latin-1 does not have becomes a question mark.
    std::string label() const;
    std::wstring labelU() const;

    void setIcon(const Icon& icon);
    /// The icon last set.
    Icon icon() const;
    /// The largest size that the icon is drawn in, in pixels that know the screen's scale; the
    /// style decides when it was not set, or is negative. At most `Icon::MaxShownSide`.
    void setIconSize(Size<int> size);
    Size<int> iconSize() const;

    /// Whether clicks switch the button between pressed in and not.
    void setCheckable(bool checkable);
    bool isCheckable() const;
    void setChecked(bool checked);
    bool isChecked() const;
    /// Of exclusive buttons with the same parent one at most is checked.
    void setExclusive(bool exclusive);
    bool isExclusive() const;

    /// Clicks the button as its user would; the events are sent.
    void imitateClick();
    /// Changes the checked state as the user would; the event is sent.
    void imitateToggle();

    // Events

    /// Clicked by mouse, key, mnemonic or `imitateClick`.
    TROV::Signal<void(const VXButtonClickEvent2&)> clicked() const
    {
        return m_emitters.clicked.signal();
    }
    /// The checked state changed; not sent for `setChecked`.
    TROV::Signal<void(const VXButtonToggleEvent2&)> toggled() const
    {
        return m_emitters.toggled.signal();
    }

    /// For back ends.
    VXAbstractButton2Emitters* buttonEmitters() noexcept { return &m_emitters; }

protected:
    explicit VXAbstractButton2(VXObject2* parent);

    VXAbstractButton2Emitters m_emitters;
};

} // namespace VOXI
