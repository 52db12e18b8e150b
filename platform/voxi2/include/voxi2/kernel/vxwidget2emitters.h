#pragma once

#include "trov/emitterstable.h"
#include "voxi2/kernel/colorrole.h"
#include "voxi2/kernel/cursor.h"
#include "voxi2/kernel/events.h"
#include "voxi2/kernel/focus.h"
#include "voxi2/kernel/sizepolicy.h"
#include "voxi2/kernel/vxobject2.h"
#include "voxi2/kernel/widgetevent.h"
#include "voxi_util/color.h"
#include "voxi_util/geometry.h"
#include "voxi_util/vxfont.h"

#include <string>
#include <vector>

namespace VOXI {

class VXDragDelegate2;
class VXWidget2;

/// The requests and events of every widget, in the order in which peers bind them.
struct VXWidget2Emitters : TROV::EmittersTable<VXObject2Emitters>
{
    using EmittersTable::EmittersTable;

    // Setters and commands
    TROV::Request<void()> show{*this};
    TROV::Request<void()> hide{*this};
    TROV::Request<void()> raise{*this};
    TROV::Request<void()> lower{*this};
    TROV::Request<void()> setActiveWindow{*this};
    TROV::Request<void()> refresh{*this};
    TROV::Request<void()> update{*this};
    TROV::Request<void()> adjustSize{*this};
    TROV::Request<void(VXRect<int>)> setContentsMargins{*this};
    TROV::Request<void(ColorRole, Color)> setColor{*this};
    TROV::Request<void(bool)> setEnabled{*this};
    TROV::Request<void(WidgetEvent, bool)> setEventConsumed{*this};
    TROV::Request<void()> setFocus{*this};
    TROV::Request<void(FocusPolicy)> setFocusPolicy{*this};
    TROV::Request<void(VXWidget2*)> setFocusProxy{*this};
    TROV::Request<void(VXFont)> setFont{*this};
    TROV::Request<void(Size<int>)> setMaximumSize{*this};
    TROV::Request<void(Size<int>)> setMinimumSize{*this};
    TROV::Request<void(Size<int>)> resize{*this};
    TROV::Request<void(VXRect<int>)> setPosition{*this};
    TROV::Request<void(VXPoint<int>)> moveTo{*this};
    TROV::Request<void(bool)> setAcceptDrops{*this};
    TROV::Request<void(std::string)> setToolTip{*this};
    TROV::Request<void(std::wstring)> setToolTipU{*this};
    TROV::Request<void(bool)> setVisible{*this};
    TROV::Request<void(Cursor)> setCursor{*this};
    TROV::Request<void(std::string)> setObjectName{*this};
    TROV::Request<void(bool)> setUpdatesEnabled{*this};
    TROV::Request<void()> unsetCursor{*this};
    TROV::Request<void(VXDragDelegate2*)> setDragDelegate{*this};
    TROV::Request<void(bool, int, int, int, int)> setWidgetHighlight{*this};
    TROV::Request<void(std::string)> restoreGeometry{*this};
    TROV::Request<void(SizeConstraint)> setSizeConstraint{*this};
    TROV::Request<void(Size<int>)> setFixedSize{*this};
    TROV::Request<void(Policy, Policy)> setSizePolicy{*this};

    // Getters
    TROV::Request<bool()> isActiveWindow{*this};
    TROV::Request<Color(ColorRole)> getColor{*this};
    TROV::Request<bool()> isEnabled{*this};
    TROV::Request<bool(WidgetEvent)> isEventConsumed{*this};
    TROV::Request<bool()> hasFocus{*this};
    TROV::Request<FocusPolicy()> getFocusPolicy{*this};
    TROV::Request<VXWidget2*()> getFocusProxy{*this};
    TROV::Request<VXFont()> getFont{*this};
    TROV::Request<Size<int>()> getMaximumSize{*this};
    TROV::Request<Size<int>()> getMinimumSize{*this};
    TROV::Request<VXRect<int>()> getPosition{*this};
    TROV::Request<VXRect<int>()> getGlobalPosition{*this};
    TROV::Request<VXPoint<int>(VXPoint<int>)> mapToGlobal{*this};
    TROV::Request<VXPoint<int>(VXPoint<int>)> mapFromGlobal{*this};
    TROV::Request<bool()> canAcceptDrops{*this};
    TROV::Request<VXRect<int>()> getContentsRect{*this};
    TROV::Request<std::string()> getToolTip{*this};
    TROV::Request<std::wstring()> getToolTipU{*this};
    TROV::Request<VXRect<int>()> getContentsMargins{*this};
    TROV::Request<bool()> isVisible{*this};
    TROV::Request<std::string()> getObjectName{*this};
    TROV::Request<Cursor()> getCursor{*this};
    TROV::Request<VXDragDelegate2*()> getDragDelegate{*this};
    TROV::Request<unsigned long long()> getWinId{*this};
    TROV::Request<bool()> isWidgetHighlighted{*this};
    TROV::Request<std::string()> saveGeometry{*this};

    // As if the user had done it
    TROV::Request<void(WidgetEvent)> triggerWidgetEvent{*this};
    TROV::Request<void(VXPoint<int>, VXPoint<int>)> triggerContextMenuEvent{*this};
    TROV::Request<void(WidgetEvent)> triggerFocusEvent{*this};
    TROV::Request<void(WidgetEvent, VXKeyEvent2)> triggerKeyEvent{*this};
    TROV::Request<void(WidgetEvent, VXMouseEvent2)> triggerMouseEvent{*this};
    TROV::Request<void(VXPoint<int>)> triggerMoveEvent{*this};
    TROV::Request<void(Size<int>)> triggerResizeEvent{*this};

    // Accessibility
    TROV::Request<void(std::wstring)> setAccessibleName{*this};
    TROV::Request<void(std::wstring)> setAccessibleDescription{*this};
    TROV::Request<std::wstring()> getAccessibleName{*this};
    TROV::Request<std::wstring()> getAccessibleDescription{*this};

    // Events that have to be asked for
    TROV::Request<void(bool)> setMouseTracking{*this};
    TROV::Request<bool()> hasMouseTracking{*this};
    TROV::Request<void(bool)> setTouchEnabled{*this};
    TROV::Request<bool()> isTouchEnabled{*this};

    // The way of the Tab key
    TROV::Request<void(std::vector<VXWidget2*>)> setTabOrder{*this};
    TROV::Request<std::vector<VXWidget2*>()> getTabOrder{*this};
    TROV::RequestsEnd requestsEnd{*this};

    // Events, in the order of `WidgetEvent`
    TROV::Event<void(const VXCloseEvent2&)> closing{*this};
    TROV::Event<void(const VXContextMenuEvent2&)> contextMenu{*this};
    TROV::Event<void(const VXDragEvent2&)> dragEnter{*this};
    TROV::Event<void(const VXDragEvent2&)> dragLeave{*this};
    TROV::Event<void(const VXDragEvent2&)> dragMove{*this};
    TROV::Event<void(const VXDragEvent2&)> drop{*this};
    TROV::Event<void(const VXWidgetEvent2&)> mouseEnter{*this};
    TROV::Event<void(const VXFocusEvent2&)> focusIn{*this};
    TROV::Event<void(const VXFocusEvent2&)> focusOut{*this};
    TROV::Event<void(const VXWidgetEvent2&)> hidden{*this};
    TROV::Event<void(const VXKeyEvent2&)> keyPress{*this};
    TROV::Event<void(const VXKeyEvent2&)> keyRelease{*this};
    TROV::Event<void(const VXWidgetEvent2&)> mouseLeave{*this};
    TROV::Event<void(const VXMouseEvent2&)> mouseDoubleClick{*this};
    TROV::Event<void(const VXMouseEvent2&)> mouseMove{*this};
    TROV::Event<void(const VXMouseEvent2&)> mousePress{*this};
    TROV::Event<void(const VXMouseEvent2&)> mouseRelease{*this};
    TROV::Event<void(const VXMouseEvent2&)> wheel{*this};
    TROV::Event<void(const VXMoveEvent2&)> moved{*this};
    TROV::Event<void(const VXResizeEvent2&)> resized{*this};
    TROV::Event<void(const VXGestureEvent2&)> gesture{*this};
    TROV::Event<void(const VXTouchEvent2&)> touchBegin{*this};
    TROV::Event<void(const VXTouchEvent2&)> touchUpdate{*this};
    TROV::Event<void(const VXTouchEvent2&)> touchEnd{*this};
    TROV::Event<void(const VXWidgetEvent2&)> shown{*this};
    TROV::Event<void(const VXMouseEvent2&)> dragDetect{*this};
};

} // namespace VOXI
