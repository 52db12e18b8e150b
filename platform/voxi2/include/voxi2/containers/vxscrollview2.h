#pragma once

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
    TROV::RequestsEnd requestsEnd{*this};
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

private:
    VXScrollView2Emitters m_emitters;
};

} // namespace VOXI
