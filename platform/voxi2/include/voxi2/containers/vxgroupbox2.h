#pragma once

#include "voxi2/containers/vxgroupboxevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>

namespace VOXI {

struct VXGroupBox2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string)> setTitle{*this};
    TROV::Request<void(bool)> setFlat{*this};
    TROV::Request<std::string()> getTitle{*this};
    TROV::Request<bool()> isFlat{*this};
    TROV::Request<void(std::wstring)> setTitleU{*this};
    TROV::Request<std::wstring()> getTitleU{*this};
    TROV::Request<void(bool)> setCheckable{*this};
    TROV::Request<bool()> isCheckable{*this};
    TROV::Request<void(bool)> setChecked{*this};
    TROV::Request<bool()> isChecked{*this};
    TROV::Request<void()> toggle{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXGroupBoxEvent2&)> toggled{*this};
};

/// A frame with a title around widgets that belong together.
class VOXI2_EXPORT VXGroupBox2 : public VXWidget2
{
public:
    using ToolkitClass = VXGroupBox2;

    explicit VXGroupBox2(VXObject2* parent = nullptr);
    explicit VXGroupBox2(const AnyText& title, VXObject2* parent = nullptr);
    ~VXGroupBox2() override;

    /// An ampersand underlines the character behind it, the key that leads into the group.
    void setTitle(const AnyText& title);
    std::string title() const;
    std::wstring titleU() const;

    /// A flat group box has a line below its title, in most styles, in place of a frame.
    void setFlat(bool flat);
    bool isFlat() const;

    /// Whether the title is a check box, which enables what is in the group; off by default. A
    /// group that becomes checkable is checked, and its title takes the focus.
    void setCheckable(bool checkable);
    bool isCheckable() const;
    /// Ignored, and answered with false, while the group is not checkable.
    void setChecked(bool checked);
    bool isChecked() const;

    /// As if the user had clicked the check box; nothing happens while there is none, or the group
    /// is disabled.
    void imitateToggle();

    // Events

    /// The user switched the group on or off.
    TROV::Signal<void(const VXGroupBoxEvent2&)> toggled() const
    {
        return m_emitters.toggled.signal();
    }

private:
    VXGroupBox2Emitters m_emitters;
};

} // namespace VOXI
