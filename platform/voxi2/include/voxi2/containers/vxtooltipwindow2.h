#pragma once

#include "voxi2/containers/anchorside.h"
#include "voxi2/containers/vxtooltipwindowevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/geometry.h"
#include "voxi_util/icon.h"

#include <string>

namespace VOXI {

struct VXToolTipWindow2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string)> setText{*this};
    TROV::Request<void(std::wstring)> setTextU{*this};
    TROV::Request<void(bool)> setRichText{*this};
    TROV::Request<void(Icon)> setIcon{*this};
    TROV::Request<void(VXWidget2*, VXRect<int>, AnchorSide)> setAnchor{*this};
    TROV::Request<void(int)> setTimeout{*this};
    TROV::Request<std::string()> getText{*this};
    TROV::Request<std::wstring()> getTextU{*this};
    TROV::Request<bool()> isRichText{*this};
    TROV::Request<Icon()> getIcon{*this};
    TROV::Request<VXWidget2*()> getAnchor{*this};
    TROV::Request<VXRect<int>()> getAnchorRect{*this};
    TROV::Request<AnchorSide()> getAnchorSide{*this};
    TROV::Request<int()> getTimeout{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXToolTipWindowEvent2&)> clicked{*this};
};

/// A small window that says something about another widget, its anchor, and stays beside it.
///
/// It shows a text and an icon, or in their place a layout with other widgets, in the looks of a
/// tool tip; it takes the size that they need unless one was set. It never takes the keyboard
/// focus.
///
/// While it is shown it follows its anchor, on the anchor's screen. It hides when the anchor is
/// hidden, scrolled out of view or minimised with its window, or ends; when its time is up; and
/// when the user clicks it. Each is reported as `hidden`. It fades where the desktop lets tool tips
/// fade.
class VOXI2_EXPORT VXToolTipWindow2 : public VXWidget2
{
public:
    using ToolkitClass = VXToolTipWindow2;

    /// The parent is the owner, and need not be the anchor.
    explicit VXToolTipWindow2(VXObject2* parent = nullptr);
    ~VXToolTipWindow2() override;

    void setText(const AnyText& text);
    std::string text() const;
    std::wstring textU() const;
    /// Whether markup in the text is shown as what it means; off by default.
    void setRichText(bool rich);
    bool isRichText() const;

    /// Stands before the text.
    void setIcon(const Icon& icon);
    /// The icon last set.
    Icon icon() const;

    /// What the window is placed beside: the whole widget, or a part of it in its coordinates.
    /// Where there is no room on that side, it is placed on the opposite one. Null takes the anchor
    /// away, and the window stays where it is; a dead widget is ignored.
    void setAnchor(VXWidget2* widget, AnchorSide side = AnchorSide::Below);
    void setAnchor(VXWidget2* widget, const VXRect<int>& part, AnchorSide side = AnchorSide::Below);
    /// Null when there is none, or when it has ended.
    VXWidget2* anchor() const;
    VXRect<int> anchorRect() const;
    AnchorSide anchorSide() const;

    /// Sets the anchor and shows the window. As with `show`, nothing is shown while the anchor is
    /// not.
    void popup(VXWidget2* anchor, AnchorSide side = AnchorSide::Below);

    /// How long the window stays, in milliseconds: 0 for ever, -1 as long as a tool tip does, which
    /// is ten seconds and more for long texts. -1 by default.
    void setTimeout(int milliseconds);
    int timeout() const;

    // Events

    /// The user clicked the window, which is hidden by that; a handler may show it again. Not sent
    /// for clicks that widgets in it take.
    TROV::Signal<void(const VXToolTipWindowEvent2&)> clicked() const
    {
        return m_emitters.clicked.signal();
    }

private:
    VXToolTipWindow2Emitters m_emitters;
};

} // namespace VOXI
