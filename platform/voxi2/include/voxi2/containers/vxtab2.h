#pragma once

#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/color.h"
#include "voxi_util/icon.h"

#include <string>

namespace VOXI {

class VXTabContainer2;

struct VXTab2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string)> setText{*this};
    TROV::Request<void(std::wstring)> setTextU{*this};
    TROV::Request<void(Icon)> setIcon{*this};
    TROV::Request<void(std::string)> setTabToolTip{*this};
    TROV::Request<void(std::wstring)> setTabToolTipU{*this};
    TROV::Request<void(bool)> setTabEnabled{*this};
    TROV::Request<void(Color)> setTextColor{*this};
    TROV::Request<void()> unsetTextColor{*this};
    TROV::Request<std::string()> getText{*this};
    TROV::Request<std::wstring()> getTextU{*this};
    TROV::Request<Icon()> getIcon{*this};
    TROV::Request<std::string()> getTabToolTip{*this};
    TROV::Request<std::wstring()> getTabToolTipU{*this};
    TROV::Request<bool()> isTabEnabled{*this};
    TROV::Request<Color()> getTextColor{*this};
    TROV::Request<VXTabContainer2*()> getContainer{*this};
    TROV::Request<void(bool)> setClosable{*this};
    TROV::Request<bool()> isClosable{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// A page of a tab container, and the tab that the user chooses it by.
///
/// The page holds a layout as a panel does. What is set for the tab holds wherever the tab is: it
/// may be set before the tab is in a container, and stays when the tab moves to another one.
///
/// A tab made with a container as its parent is appended to it, and so is one whose parent becomes
/// a container; other tabs are put in by the container's `addTab`. While a tab is in a container,
/// `hide` takes it out of the user's sight without removing it and `show` brings it back; neither
/// chooses the page that is shown, as long as there is another.
class VOXI2_EXPORT VXTab2 : public VXWidget2
{
public:
    using ToolkitClass = VXTab2;

    explicit VXTab2(VXObject2* parent = nullptr);
    explicit VXTab2(const AnyText& text, VXObject2* parent = nullptr);
    ~VXTab2() override;

    /// An ampersand makes the character after it the mnemonic.
    void setText(const AnyText& text);
    /// In the process's encoding; what Latin-1 does not have becomes a question mark.
    std::string text() const;
    std::wstring textU() const;

    void setIcon(const Icon& icon);
    /// The icon last set.
    Icon icon() const;

    /// What is shown while the pointer rests on the tab; `setToolTip` is for the page.
    void setTabToolTip(const AnyText& text);
    std::string tabToolTip() const;
    std::wstring tabToolTipU() const;

    /// Whether the user can choose the tab; `setEnabled` is for the page. When the current tab is
    /// disabled the next one that is not becomes current.
    void setTabEnabled(bool enabled);
    bool isTabEnabled() const;

    /// The colour of the tab's text.
    void setTextColor(const Color& color);
    /// Back to the colour of the other tabs.
    void unsetTextColor();
    Color textColor() const;

    /// Whether the tab has a close button in containers whose tabs have one; on by default.
    void setClosable(bool closable);
    bool isClosable() const;

    /// The container that the tab is in; null for none.
    VXTabContainer2* container() const;

private:
    VXTab2Emitters m_emitters;
};

} // namespace VOXI
