#pragma once

#include "voxi2/containers/scrollbarpolicy.h"
#include "voxi2/containers/vxscrollevents2.h"
#include "voxi2/kernel/direction.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/geometry.h"

namespace VOXI {

struct VXScrollView2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXWidget2*)> setWidget{*this};
    TROV::Request<void(bool)> setWidgetResizable{*this};
    TROV::Request<void(VXPoint<int>, int, int)> ensurePointVisible{*this};
    TROV::Request<void(VXWidget2*, int, int)> ensureWidgetVisible{*this};
    TROV::Request<VXWidget2*()> getWidget{*this};
    TROV::Request<bool()> isWidgetResizable{*this};
    TROV::Request<void(VXPoint<int>)> scrollBy{*this};
    TROV::Request<void()> removeWidget{*this};
    TROV::Request<void(VXPoint<int>)> setScrollPosition{*this};
    TROV::Request<VXPoint<int>()> getScrollPosition{*this};
    TROV::Request<VXPoint<int>()> getScrollEnd{*this};
    TROV::Request<void(Orientation, ScrollBarPolicy)> setScrollBarPolicy{*this};
    TROV::Request<ScrollBarPolicy(Orientation)> getScrollBarPolicy{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXScrollEvent2&)> scrolled{*this};
};

/// Shows a part of another widget, with scroll bars where that is larger. It has no frame.
class VOXI2_EXPORT VXScrollView2 : public VXWidget2
{
public:
    using ToolkitClass = VXScrollView2;

    /// The distance to the view's edge that is kept where nothing else is asked for, in pixels.
    static constexpr int DefaultMargin = 50;

    explicit VXScrollView2(VXObject2* parent = nullptr);
    ~VXScrollView2() override;

    /// The widget to scroll, which becomes resizable. The view does not own it; the former one
    /// stays alive, alone and hidden. Null and dead widgets are ignored.
    void setWidget(VXWidget2* widget);
    /// Null when there is none.
    VXWidget2* widget() const;

    /// Takes the widget out: it stays alive, alone and hidden.
    void removeWidget();

    /// Whether the widget grows with the view, while never smaller than it would like to be. Off:
    /// it keeps its size.
    void setWidgetResizable(bool resizable);
    bool isWidgetResizable() const;

    /// Scrolls as little as needed until the point, in the scrolled widget's coordinates, is to be
    /// seen, with the margins around it.
    void ensurePointVisible(const VXPoint<int>& point, int xMargin = DefaultMargin,
                            int yMargin = DefaultMargin);
    /// The same for a widget inside the scrolled one; others are ignored.
    void ensureWidgetVisible(VXWidget2* widget, int xMargin = DefaultMargin,
                             int yMargin = DefaultMargin);
    /// Moves the view right and down by so many pixels, to the ends at most.
    void scrollBy(const VXPoint<int>& distance);

    /// How far the view is scrolled to the right and down; in right-to-left layouts to the left and
    /// down. It goes to the end at most, which follows from the sizes when they are laid out.
    void setScrollPosition(const VXPoint<int>& position);
    VXPoint<int> scrollPosition() const;
    /// The position that shows the widget's last corner.
    VXPoint<int> scrollEnd() const;

    /// When the bar at the bottom (`Horizontal`) and that at the side (`Vertical`) are shown; as
    /// needed by default. Without its bar a view can be scrolled all the same.
    void setScrollBarPolicy(Orientation bar, ScrollBarPolicy policy);
    ScrollBarPolicy scrollBarPolicy(Orientation bar) const;

    // Events

    /// The user scrolled, by whatever means; one event for each step. Not sent for what the program
    /// asks for, nor when the view moves because the widget or the view has another size.
    TROV::Signal<void(const VXScrollEvent2&)> scrolled() const
    {
        return m_emitters.scrolled.signal();
    }

private:
    VXScrollView2Emitters m_emitters;
};

} // namespace VOXI
