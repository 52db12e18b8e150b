#pragma once

#include "voxi2/controls/linkmode.h"
#include "voxi2/controls/vxhyperlinkevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/color.h"

#include <string>

namespace VOXI {

struct VXHyperLink2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string)> setText{*this};
    TROV::Request<void(std::wstring)> setTextU{*this};
    TROV::Request<std::string()> getText{*this};
    TROV::Request<std::wstring()> getTextU{*this};
    TROV::Request<void(LinkMode, Color)> setLinkColor{*this};
    TROV::Request<Color(LinkMode)> getLinkColor{*this};
    TROV::Request<void()> click{*this};
    TROV::Request<bool()> isVisited{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXHyperLinkEvent2&)> clicked{*this};
};

/// An underlined text that the user clicks, or comes to by the Tab key and follows by Return or the
/// space bar. What that does is up to the program.
class VOXI2_EXPORT VXHyperLink2 : public VXWidget2
{
public:
    using ToolkitClass = VXHyperLink2;

    explicit VXHyperLink2(VXObject2* parent = nullptr);
    explicit VXHyperLink2(const AnyText& text, VXObject2* parent = nullptr);
    ~VXHyperLink2() override;

    /// Shown as it is: markup in it means nothing.
    void setText(const AnyText& text);
    std::string text() const;
    std::wstring textU() const;

    /// The colour of the text in a mode; its opacity is kept but not shown. Takes effect at once if
    /// the link is in that mode. At first blue under the pointer and dark blue otherwise; on a
    /// dark background a colour that was not set gives way to that of the desktop's links.
    void setLinkColor(LinkMode mode, Color color);
    Color linkColor(LinkMode mode) const;

    /// Whether it was ever clicked. The colour tells once the pointer has left.
    bool isVisited() const;

    /// Clicks it as the user would: it becomes visited, and `clicked()` is sent.
    void imitateClick();

    // Events

    /// The user has released the left button that was pressed over the link, or has pressed Return
    /// or the space bar while it had the focus.
    TROV::Signal<void(const VXHyperLinkEvent2&)> clicked() const
    {
        return m_emitters.clicked.signal();
    }

private:
    VXHyperLink2Emitters m_emitters;
};

} // namespace VOXI
