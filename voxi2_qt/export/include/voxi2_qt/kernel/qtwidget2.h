#pragma once

#include "voxi2/kernel/vxwidget2.h"
#include "voxi2_qt/kernel/qtdraggesture.h"
#include "voxi2_qt/kernel/qteventfilter2.h"
#include "voxi2_qt/kernel/qtpeerlevel.h"
#include "voxi2_qt/voxi2_qt_export.h"
#include "voxi_util/icon.h"

#include <QColor>
#include <QPointer>

#include <map>
#include <memory>
#include <string>
#include <vector>

QT_BEGIN_NAMESPACE
class QAbstractScrollArea;
class QAction;
class QByteArray;
class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
QT_END_NAMESPACE

namespace VOXI {

class QtDragDelegate2;

/// The base of every peer that is a widget: the requests common to all of them, the switches that
/// say which user events are passed back, and the highlight.
class VOXI2_QT_EXPORT QtWidget2 : public QtPeerLevel<VXWidget2, VXWidget2Emitters, QtObject2>
{
public:
    ~QtWidget2() override;

    void doSetParent(VXObject* parent) override;
    void scheduleDelete() override;
    void leave() override;

    // Requests, in the order of the emitters table
    virtual void doShow();
    virtual void doHide();
    virtual void doRaise();
    virtual void doLower();
    virtual void doSetActiveWindow();
    virtual void doRefresh();
    virtual void doUpdate();
    virtual void doAdjustSize();
    virtual void doSetContentsMargins(VXRect<int> margins);
    virtual void doSetColor(ColorRole role, Color color);
    virtual void doSetEnabled(bool enabled);
    virtual void doSetEventConsumed(WidgetEvent event, bool consumed);
    virtual void doSetFocus();
    virtual void doSetFocusPolicy(FocusPolicy policy);
    virtual void doSetFocusProxy(VXWidget2* proxy);
    virtual void doSetFont(const VXFont& font);
    virtual void doSetMaximumSize(Size<int> size);
    virtual void doSetMinimumSize(Size<int> size);
    virtual void doResize(Size<int> size);
    virtual void doSetPosition(VXRect<int> geometry);
    virtual void doMoveTo(VXPoint<int> position);
    virtual void doSetAcceptDrops(bool accept);
    virtual void doSetToolTip(const std::string& text);
    virtual void doSetToolTipU(const std::wstring& text);
    virtual void doSetVisible(bool visible);
    virtual void doSetCursor(const Cursor& cursor);
    virtual void doSetObjectName(const std::string& name);
    virtual void doSetUpdatesEnabled(bool enabled);
    virtual void doUnsetCursor();
    virtual void doSetDragDelegate(VXDragDelegate2* delegate);
    virtual void doSetWidgetHighlight(bool on, int red, int green, int blue, int alpha);
    virtual void doRestoreGeometry(const std::string& geometry);
    virtual void doSetSizeConstraint(SizeConstraint constraint);
    virtual void doSetFixedSize(Size<int> size);
    virtual void doSetSizePolicy(Policy horizontal, Policy vertical);
    virtual bool doIsActiveWindow();
    virtual Color doGetColor(ColorRole role);
    virtual bool doIsEnabled();
    virtual bool doIsEventConsumed(WidgetEvent event);
    virtual bool doHasFocus();
    virtual FocusPolicy doGetFocusPolicy();
    virtual VXWidget2* doGetFocusProxy();
    virtual VXFont doGetFont();
    virtual Size<int> doGetMaximumSize();
    virtual Size<int> doGetMinimumSize();
    virtual VXRect<int> doGetPosition();
    virtual VXRect<int> doGetGlobalPosition();
    virtual VXPoint<int> doMapToGlobal(VXPoint<int> point);
    virtual VXPoint<int> doMapFromGlobal(VXPoint<int> point);
    virtual bool doCanAcceptDrops();
    virtual VXRect<int> doGetContentsRect();
    virtual std::string doGetToolTip();
    virtual std::wstring doGetToolTipU();
    virtual VXRect<int> doGetContentsMargins();
    virtual bool doIsVisible();
    virtual std::string doGetObjectName();
    virtual Cursor doGetCursor();
    virtual VXDragDelegate2* doGetDragDelegate();
    virtual unsigned long long doGetWinId();
    virtual bool doIsWidgetHighlighted();
    virtual std::string doSaveGeometry();

    // Requests to act as the user would: what they cause is reported
    void doimTriggerWidgetEvent(WidgetEvent event);
    void doimTriggerContextMenuEvent(VXPoint<int> local, VXPoint<int> global);
    void doimTriggerFocusEvent(WidgetEvent event);
    void doimTriggerKeyEvent(WidgetEvent event, const VXKeyEvent2& key);
    void doimTriggerMouseEvent(WidgetEvent event, const VXMouseEvent2& mouse);
    void doimTriggerMoveEvent(VXPoint<int> position);
    void doimTriggerResizeEvent(Size<int> size);

    // Accessibility
    virtual void doSetAccessibleName(const std::wstring& name);
    virtual void doSetAccessibleDescription(const std::wstring& description);
    virtual std::wstring doGetAccessibleName();
    virtual std::wstring doGetAccessibleDescription();

    // Events that have to be asked for
    virtual void doSetMouseTracking(bool tracking);
    virtual bool doHasMouseTracking();
    virtual void doSetTouchEnabled(bool enabled);
    virtual bool doIsTouchEnabled();

    // The way of the Tab key
    virtual void doSetTabOrder(const std::vector<VXWidget2*>& widgets);
    virtual std::vector<VXWidget2*> doGetTabOrder();

    // Which events are passed back. The functions for one event throw std::out_of_range for a value
    // that is none, and do nothing (or answer false) while broadcasting is off as a whole.
    void enableEventBroadcasting();
    void disableEventBroadcasting();
    bool isEventBroadcastingEnabled() const noexcept { return m_eventFilter.isOn(); }
    void enableEventBroadcasting(WidgetEvent event);
    void disableEventBroadcasting(WidgetEvent event);
    bool isEventBroadcastingEnabled(WidgetEvent event) const;
    void enableGestureEvents();
    void disableGestureEvents();

    /// Who gets the pointer's events, drags among them: of a scroll area its viewport.
    QWidget* pointerWidget() const;

    bool isWidgetHighlighted() const noexcept { return m_extras && m_extras->m_highlighted; }
    /// Paints the highlight over what the widget has painted; inside a paint event only.
    void paintHighlight();

    /// Whether the global focus blocker may keep back focus reports of this window.
    virtual bool supportsGlobalFocusBlocker() const { return true; }

    /// The action that stands for the widget in a tool bar or menu; null when there is none.
    /// Showing and hiding the widget by request does so with the action as well.
    void addWidgetAction(QAction* action);
    QAction* getWidgetAction() const;
    /// Takes the widget out of the tool bar that shows it, if one does; see `QtBarItem`.
    void leaveBar();
    /// Ends the user's drag of the widget, if there is one, as if it had not begun: the layout of a
    /// window holds on to what is dragged. Not reported.
    virtual void endDrag() {}

    /// The delegate that decides about drags over this widget; null when there is none.
    QtDragDelegate2* dragDelegate() const;
    VXWidget2* abstractWidget() const noexcept { return abstractObject<VXWidget2>(); }

protected:
    QtWidget2(VXWidget2* widget, VXWidget2Emitters* emitters);

    void endPeer();

    /// Passes an event of the widget or of its viewport back; true when it is consumed.
    bool filterEvent(QWidget* receiver, QEvent* event)
    {
        return m_eventFilter.filter(*this, receiver, event);
    }

    /// The mouse over the widget, as the shim sees it; `origin` is where the press's receiver lies.
    void passMousePress(const QMouseEvent& event, QPoint origin)
    {
        if (event.button() == Qt::LeftButton)
            extras().m_dragGesture.press(event, origin);
    }
    /// False when the handlers of a drag that begins have deleted the widget.
    bool passMouseMove(const QMouseEvent& event)
    {
        return !m_extras || m_extras->m_dragGesture.move(*this, event);
    }
    void passMouseRelease()
    {
        if (m_extras)
            m_extras->m_dragGesture.release();
    }

    /// Keeps an icon that was set: a Qt icon cannot be turned back.
    void keepIcon(const Icon& icon) { extras().m_icon = icon; }
    Icon keptIcon() const { return m_extras ? m_extras->m_icon : Icon(); }

    /// Moves the widget into the parent's, null makes it a window; `flags` say what it is there.
    /// A parent that is dead, or lies inside the widget, is ignored. No echoes.
    void changeParent(VXObject* parent, Qt::WindowFlags flags);

    /// What Qt's `saveGeometry` gave; false when it did not. No echoes.
    bool restoreGeometryQuietly(const QByteArray& geometry);

    // Drags over the widget, as the shim receives them
    void passDragEnter(QDragEnterEvent* event);
    void passDragMove(QDragMoveEvent* event);
    void passDragLeave(QDragLeaveEvent* event);
    void passDrop(QDropEvent* event);

private:
    /// What few widgets need.
    struct Extras
    {
        QtDragGesture m_dragGesture;
        Icon m_icon;
        unsigned m_dragDelegateId = 0;
        QRgb m_highlightColor = 0;
        bool m_highlighted = false;
    };

    Extras& extras()
    {
        if (!m_extras)
            m_extras = std::make_unique<Extras>();
        return *m_extras;
    }

    template <class Function>
    void passToDelegate(Function&& function);
    void keepDelayedBack(WidgetEvent event);
    /// False when there is no widget action, and nothing has been done.
    bool changeWithAction(bool visible);
    QAbstractScrollArea* scrollArea() const noexcept;
    /// The same, and `position` becomes its.
    QWidget* pointerTarget(QPoint& position) const;

    static std::map<QtWidget2*, QAction*> m_ActionMap;

    QtEventFilter2 m_eventFilter; // asked for every event, so it stays beside the Qt object
    std::unique_ptr<Extras> m_extras;
};

/// Has what is around a widget that goes elsewhere forget the focus of what is in it. Qt forgets it
/// there itself, but not what went into a window's memory before the widget became one of its own.
VOXI2_QT_EXPORT void leaveFocusOf(const QWidget& goes);

} // namespace VOXI
