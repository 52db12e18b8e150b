#pragma once

#include "voxi2_qt/kernel/qtclosingwindow.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QAbstractScrollArea>
#include <QDragEnterEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QWidget>

#include <cstddef>
#include <type_traits>
#include <utility>

namespace VOXI {

/// A Qt widget class that shows all its events to the peer before it handles them. A class behind
/// it that overrides `event()` or `viewportEvent()` calls the one here, or nothing is passed back.
template <class Q, bool IsScrollArea = std::is_base_of_v<QAbstractScrollArea, Q>>
class QtFilteredWidget : public Q
{
public:
    void setVisible(bool visible) override
    {
        const QtReportHold hold; // also when the user closes a window
        if (visible) {
            QtClosingWindow::makeWayFor(*this);
            dropFormerWindow(); // a splitter shows what it gets before that hears of its parent
        }
        Q::setVisible(visible);
    }

protected:
    using Q::Q;

    /// True when the event is consumed.
    virtual bool showToPeer(QWidget* receiver, QEvent* event) = 0;

    bool event(QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::ParentAboutToChange:
            leaveFocusOf(*this);
            break;
        case QEvent::ParentChange:
            dropFormerWindow();
            break;
        case QEvent::DeferredDelete: {
            const QtReportHold hold;    // reports would come in the middle of a destruction
            const QtProgramScope scope; // the focus may go on
            return QtDeletionHold::postpones(*this) || Q::event(event);
        }
        default:
            break;
        }
        return showToPeer(this, event) || Q::event(event);
    }

private:
    /// A window whose flags were changed keeps the QWindow it had, also when it is put into another
    /// one before it is shown again. Qt then lets the QWindow die with that of the other one, and
    /// the widget point to nothing.
    void dropFormerWindow()
    {
        if (this->isWindow() || !this->windowHandle() || this->testAttribute(Qt::WA_NativeWindow))
            return;
        // A splitter has what it gets created before that hears of its parent.
        const bool wasCreated = this->testAttribute(Qt::WA_WState_Created);
        this->destroy();
        if (wasCreated)
            this->create();
    }
};

/// The same for the scroll areas, which get the pointer's events through their viewport.
template <class Q>
class QtFilteredWidget<Q, true> : public QtFilteredWidget<Q, false>
{
protected:
    using QtFilteredWidget<Q, false>::QtFilteredWidget;

    bool viewportEvent(QEvent* event) override
    {
        return this->showToPeer(this->viewport(), event) || Q::viewportEvent(event);
    }
};

/// Joins a peer base with a Qt widget class, for one abstract kind: the result is peer and widget
/// in one object. It passes on what does not go through the event filter: the drag gesture, the
/// highlight over the finished widget, and drags over it.
template <class Object, class Emitters, class Base, class Q>
class QtWidget2Shim : public QtPeerLevel<Object, Emitters, Base>, public QtFilteredWidget<Q>
{
public:
    ~QtWidget2Shim() override { this->endPeer(); }

    QObject* asQObject() const noexcept override { return asQWidget(); }
    QWidget* asQWidget() const noexcept override
    {
        return const_cast<Q*>(static_cast<const Q*>(this));
    }

protected:
    /// `arguments` go to the Qt class behind the parent.
    template <std::size_t Count, class... Arguments>
    QtWidget2Shim(Object* object, Emitters* emitters,
                  const TROV::Operations<Emitters, Count>& requests, QWidget* parent,
                  Arguments&&... arguments)
        : QtPeerLevel<Object, Emitters, Base>(object, emitters),
          QtFilteredWidget<Q>(parent, std::forward<Arguments>(arguments)...)
    {
        this->enableEventBroadcasting();
        this->bindRequests(emitters, requests);
    }

    bool showToPeer(QWidget* receiver, QEvent* event) override
    {
        // Not where it is handled: a consumed one does not get there.
        if (event->type() == QEvent::MouseButtonRelease)
            this->passMouseRelease();
        else if (event->type() == QEvent::ParentChange)
            this->endAlone();
        return this->filterEvent(receiver, event);
    }

    void mousePressEvent(QMouseEvent* event) override
    {
        QPoint origin;
        if constexpr (std::is_base_of_v<QAbstractScrollArea, Q>)
            origin = this->viewport()->pos(); // whose event it is
        this->passMousePress(*event, origin);
        Q::mousePressEvent(event);
    }

    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (this->passMouseMove(*event))
            Q::mouseMoveEvent(event);
    }

    void paintEvent(QPaintEvent* event) override
    {
        Q::paintEvent(event);
        if (this->isWidgetHighlighted())
            this->paintHighlight();
    }

    void dragEnterEvent(QDragEnterEvent* event) override
    {
        Q::dragEnterEvent(event);
        this->passDragEnter(event);
    }

    void dragMoveEvent(QDragMoveEvent* event) override
    {
        Q::dragMoveEvent(event);
        this->passDragMove(event);
    }

    void dragLeaveEvent(QDragLeaveEvent* event) override
    {
        Q::dragLeaveEvent(event);
        this->passDragLeave(event);
    }

    void dropEvent(QDropEvent* event) override
    {
        Q::dropEvent(event);
        this->passDrop(event);
    }
};

} // namespace VOXI
