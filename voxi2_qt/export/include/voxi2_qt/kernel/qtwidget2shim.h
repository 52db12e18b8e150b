#pragma once

#include "voxi2_qt/kernel/qtdraggesture.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QDragEnterEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QWidget>

#include <utility>

namespace VOXI {

/// Joins a peer base with a Qt widget class, for one abstract kind: the result is peer and widget
/// in one object. It passes on what does not go through the event filter: the drag gesture, the
/// highlight over the finished widget, and drags over it.
template <class Object, class Emitters, class Base, class Q>
class QtWidget2Shim : public Base, public Q
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
    template <class... Arguments>
    QtWidget2Shim(Object* object, Emitters* emitters, QWidget* parent, Arguments&&... arguments)
        : Base(object, emitters->base()),
          Q(parent, std::forward<Arguments>(arguments)...)
    {}

    void mousePressEvent(QMouseEvent* event) override
    {
        m_dragGesture.press(*event);
        Q::mousePressEvent(event);
    }

    void mouseMoveEvent(QMouseEvent* event) override
    {
        const QPointer<QWidget> self(asQWidget());
        m_dragGesture.move(*this, *event);
        if (self)
            Q::mouseMoveEvent(event);
    }

    void mouseReleaseEvent(QMouseEvent* event) override
    {
        m_dragGesture.release();
        Q::mouseReleaseEvent(event);
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

private:
    QtDragGesture m_dragGesture;
};

} // namespace VOXI
