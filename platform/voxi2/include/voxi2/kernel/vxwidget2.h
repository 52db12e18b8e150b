#pragma once

#include "voxi2/kernel/vxobject2.h"
#include "voxi2/kernel/vxwidget2emitters.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>
#include <vector>

namespace VOXI {

/// The base of everything that is shown.
///
/// Positions and sizes are in device-independent pixels. What the program sets is never reported
/// back as an event; the `imitate...` operations act as the user would, and are reported.
class VOXI2_EXPORT VXWidget2 : public VXObject2
{
public:
    ~VXWidget2() override;

    // Showing
    void show();
    void hide();
    void setVisible(bool visible);
    /// Shown and not minimised.
    bool isVisible() const;
    /// Brings the widget above its siblings, or the window above others.
    void raise();
    void lower();
    /// Makes the widget's window the one with the keyboard.
    void setActiveWindow();
    bool isActiveWindow() const;
    /// Lays out and paints at once.
    void refresh();
    /// Paints when the program is idle next.
    void update();
    /// Off: nothing is painted until it is on again.
    void setUpdatesEnabled(bool enabled);

    // Geometry. Sizes and positions beyond 16 777 215 pixels, margins beyond 32 767 become that.
    /// Takes the size that the content asks for.
    void adjustSize();
    void resize(const Size<int>& size);
    void moveTo(const VXPoint<int>& position);
    void setPosition(const VXRect<int>& geometry);
    void setGeometry(const VXRect<int>& geometry) { setPosition(geometry); }
    /// Position and size inside the parent; of a window on the screen, without its frame.
    VXRect<int> position() const;
    VXRect<int> geometry() const { return position(); }
    Size<int> size() const { return position().size(); }
    /// The same with the top-left corner in screen coordinates.
    VXRect<int> globalPosition() const;
    VXPoint<int> mapToGlobal(const VXPoint<int>& point) const;
    VXPoint<int> mapFromGlobal(const VXPoint<int>& point) const;
    /// -1 as width or height leaves that limit alone.
    void setMinimumSize(const Size<int>& size);
    void setMaximumSize(const Size<int>& size);
    Size<int> minimumSize() const;
    Size<int> maximumSize() const;
    void setFixedSize(const Size<int>& size);
    void setSizePolicy(Policy horizontal, Policy vertical);
    /// How the layout inside the widget limits its size; without a layout nothing happens.
    void setSizeConstraint(SizeConstraint constraint);
    void setContentsMargins(const VXRect<int>& margins);
    VXRect<int> contentsMargins() const;
    VXRect<int> contentsRect() const;
    /// What the back end's own function for it gives, as text that `restoreGeometry` takes; other
    /// text is ignored. For windows there is `VXAbstractWindow2::savePlacement`.
    std::string saveGeometry() const;
    void restoreGeometry(const std::string& geometry);

    // Looks
    /// The alpha channel of the colour is not used.
    void setColor(ColorRole role, const Color& color);
    Color color(ColorRole role) const;
    void setFont(const VXFont& font);
    VXFont font() const;
    void setCursor(const Cursor& cursor);
    /// Back to the cursor of the parent.
    void unsetCursor();
    Cursor cursor() const;
    void setToolTip(const AnyText& text);
    std::string toolTip() const;
    std::wstring toolTipU() const;
    /// A rounded outline over the widget, in the given colour.
    void setHighlight(bool on, const Color& color = Color());
    bool isHighlighted() const;
    void setAccessibleName(const AnyText& name);
    void setAccessibleDescription(const AnyText& description);
    std::wstring accessibleName() const;
    std::wstring accessibleDescription() const;

    // Input
    void setEnabled(bool enabled);
    /// False also while a parent is disabled.
    bool isEnabled() const;
    void setFocus();
    bool hasFocus() const;
    void setFocusPolicy(FocusPolicy policy);
    FocusPolicy focusPolicy() const;
    /// Focus given to this widget goes to `proxy`; null takes the proxy away, a dead one is
    /// ignored.
    void setFocusProxy(VXWidget2* proxy);
    VXWidget2* focusProxy() const;
    /// Has the Tab key go from each of these widgets to the next one; the others of the window keep
    /// their order. They need not lie in this widget, but in its window: what is elsewhere, null,
    /// dead, takes no focus or is named a second time is left out.
    void setTabOrder(const std::vector<VXWidget2*>& widgets);
    /// The widgets that the Tab key goes to in this one, which may be among them, hidden and
    /// disabled ones as well; in its order.
    std::vector<VXWidget2*> tabOrder() const;
    /// A consumed event goes to its listeners and no further: the widget itself does not see it.
    /// Throws `std::out_of_range` for a value that is no widget event.
    void setEventConsumed(WidgetEvent event, bool consumed);
    bool isEventConsumed(WidgetEvent event) const;
    /// Whether mouse moves are reported while no button is down, too; off by default.
    void setMouseTracking(bool tracking);
    bool hasMouseTracking() const;
    /// Whether touch and gestures on the widget are reported; off by default, except that scroll
    /// areas report pinching and panning.
    void setTouchEnabled(bool enabled);
    bool isTouchEnabled() const;
    void setAcceptDrops(bool accept);
    bool canAcceptDrops() const;
    /// Decides about drags over the widget; null takes it away, a dead one is ignored.
    void setDragDelegate(VXDragDelegate2* delegate);
    VXDragDelegate2* dragDelegate() const;

    // Identity
    /// The back end's widget gets the name, too.
    void setObjectName(const std::string& name) override;
    /// What the back end's widget is called: the name given here unless the host has changed it;
    /// empty without a peer.
    std::string peerObjectName() const;
    /// The native window behind the widget; asking makes one. 0 without a peer.
    unsigned long long winId() const;

    // As if the user had done it
    /// Close, hide or show; other events do nothing.
    void imitate(WidgetEvent event);
    void imitateContextMenu(const VXPoint<int>& local, const VXPoint<int>& global);
    /// Focus in or focus out; other events do nothing.
    void imitateFocus(WidgetEvent event);
    /// Key press or key release; other events do nothing.
    void imitateKey(WidgetEvent event, const VXKeyEvent2& key);
    /// Press, release, double click, move or wheel; other events do nothing. The position on the
    /// screen follows from the one in the widget.
    void imitateMouse(WidgetEvent event, const VXMouseEvent2& mouse);
    void imitateMove(const VXPoint<int>& position);
    void imitateResize(const Size<int>& size);

    // Events. Each is sent for what the user or the window system does, not for what the program
    // sets.

    /// The window is about to close; the handler may refuse.
    TROV::Signal<void(const VXCloseEvent2&)> closing() const;
    TROV::Signal<void(const VXContextMenuEvent2&)> contextMenuRequested() const;
    TROV::Signal<void(const VXDragEvent2&)> dragEntered() const;
    TROV::Signal<void(const VXDragEvent2&)> dragLeft() const;
    TROV::Signal<void(const VXDragEvent2&)> dragMoved() const;
    TROV::Signal<void(const VXDragEvent2&)> dropped() const;
    TROV::Signal<void(const VXWidgetEvent2&)> mouseEntered() const;
    TROV::Signal<void(const VXWidgetEvent2&)> mouseLeft() const;
    /// Not sent when the program moves the focus here, nor when it goes on here because the program
    /// hides, disables, takes out or destroys the widget that has it.
    TROV::Signal<void(const VXFocusEvent2&)> focusGained() const;
    TROV::Signal<void(const VXFocusEvent2&)> focusLost() const;
    TROV::Signal<void(const VXWidgetEvent2&)> shown() const;
    TROV::Signal<void(const VXWidgetEvent2&)> hidden() const;
    TROV::Signal<void(const VXKeyEvent2&)> keyPressed() const;
    TROV::Signal<void(const VXKeyEvent2&)> keyReleased() const;
    TROV::Signal<void(const VXMouseEvent2&)> mousePressed() const;
    TROV::Signal<void(const VXMouseEvent2&)> mouseReleased() const;
    TROV::Signal<void(const VXMouseEvent2&)> mouseDoubleClicked() const;
    /// At most one is on its way to the listeners at a time; so it is for wheel, drag move, resize
    /// and keys.
    TROV::Signal<void(const VXMouseEvent2&)> mouseMoved() const;
    TROV::Signal<void(const VXMouseEvent2&)> wheelTurned() const;
    TROV::Signal<void(const VXMoveEvent2&)> moved() const;
    /// The last size is always told: when one was on its way meanwhile, an event follows for it.
    /// What the program sets withdraws the one on its way.
    TROV::Signal<void(const VXResizeEvent2&)> resized() const;
    TROV::Signal<void(const VXGestureEvent2&)> gestured() const;
    TROV::Signal<void(const VXTouchEvent2&)> touchBegan() const;
    TROV::Signal<void(const VXTouchEvent2&)> touchMoved() const;
    TROV::Signal<void(const VXTouchEvent2&)> touchEnded() const;
    /// The left button was pressed and the pointer moved further than a click allows.
    TROV::Signal<void(const VXMouseEvent2&)> dragDetected() const;

    /// For back ends.
    VXWidget2Emitters* widgetEmitters() noexcept { return &m_emitters; }

protected:
    explicit VXWidget2(VXObject2* parent);

    VXWidget2Emitters m_emitters;
};

} // namespace VOXI
