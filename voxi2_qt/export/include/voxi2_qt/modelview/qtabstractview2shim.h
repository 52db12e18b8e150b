#pragma once

#include "voxi2_qt/kernel/qtglobalfocusblocker.h"
#include "voxi2_qt/kernel/qtleavingkey.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/modelview/qtabstractview2.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>

namespace VOXI {

/// Joins the base of the item views' peers with a Qt view: it tells the base what Qt keeps for
/// derived classes, and does what the base says.
template <class Object, class Emitters, class Q>
class QtAbstractView2Shim : public QtWidget2Shim<Object, Emitters, QtAbstractView2, Q>
{
    using Shim = QtWidget2Shim<Object, Emitters, QtAbstractView2, Q>;
    using Base = QtAbstractView2;

public:
    ~QtAbstractView2Shim() override
    {
        this->endPeer();
        this->endView();
    }

    // Requests that no Qt class in common serves
    void doSetWordWrap(bool on) override { this->setWordWrap(on); }
    bool doWordWrap() override { return this->wordWrap(); }

    QHeaderView& columnHeader() const override
    {
        if constexpr (requires(const Q& view) { view.horizontalHeader(); })
            return *this->horizontalHeader();
        else
            return *this->header();
    }

protected:
    template <std::size_t Count>
    QtAbstractView2Shim(Object* object, Emitters* emitters,
                        const TROV::Operations<Emitters, Count>& requests, QWidget* parent)
        : Shim(object, emitters, requests, parent)
    {}

    bool editInQt(const QModelIndex& index, QAbstractItemView::EditTrigger trigger,
                  QEvent* event) override
    {
        return Q::edit(index, trigger, event);
    }
    void setEditing(bool isEditing) override
    {
        this->setState(isEditing ? Q::EditingState : Q::NoState);
    }
    bool isInEditingState() const override { return this->state() == Q::EditingState; }
    void forgetEditor(QWidget* editor) override { this->editorDestroyed(editor); }
    QModelIndex cursorMoved(bool forward) override
    {
        return this->moveCursor(forward ? Q::MoveNext : Q::MovePrevious, Qt::NoModifier);
    }
    void layOutNow() override { this->executeDelayedItemsLayout(); }
    void updateScrollBars() override { this->updateGeometries(); }

    // Qt's

    void mousePressEvent(QMouseEvent* event) override
    {
        this->handleInput(Base::Input::Press, *event, [&] { Shim::mousePressEvent(event); });
    }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        this->handleInput(Base::Input::Release, *event, [&] { Shim::mouseReleaseEvent(event); });
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        this->handleInput(Base::Input::Move, *event, [&] {
            if (this->isDraggingCells(*event))
                this->passMouseMove(*event);
            else
                Shim::mouseMoveEvent(event);
        });
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        this->handleInput(Base::Input::Key, *event, [&] {
            const int way = leavingWay(*event);
            if (way != 0 && this->QWidget::focusNextPrevChild(way > 0))
                return;
            if (!this->handleKey(*event))
                Shim::keyPressEvent(event);
        });
    }

    void focusInEvent(QFocusEvent* event) override
    {
        const QtFocusComing coming(*this, *event);
        Shim::focusInEvent(event);
    }

    using Q::edit;
    bool edit(const QModelIndex& index, QAbstractItemView::EditTrigger trigger,
              QEvent* event) override
    {
        return Base::edit(index, trigger, event);
    }
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override
    {
        Base::closeEditor(editor, hint);
    }
    /// Values do not travel through the item model.
    void commitData(QWidget*) override {}
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override
    {
        this->changeCurrent(current, [&] { Q::currentChanged(current, previous); });
    }
    void selectionChanged(const QItemSelection& selected, const QItemSelection& gone) override
    {
        Q::selectionChanged(selected, gone);
        this->noteSelection();
    }
    void keyboardSearch(const QString& text) override { this->searchFor(text); }

    void updateGeometries() override
    {
        this->layOut([&] { Q::updateGeometries(); });
    }
    void scrollContentsBy(int dx, int dy) override
    {
        Q::scrollContentsBy(dx, dy);
        this->noteScroll();
    }
    void changeEvent(QEvent* event) override
    {
        Q::changeEvent(event);
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange
            || event->type() == QEvent::PaletteChange)
            this->noteLooks();
    }
    void paintEvent(QPaintEvent* event) override
    {
        Shim::paintEvent(event);
        this->paintWaiting(event->rect());
    }

    bool showToPeer(QWidget* receiver, QEvent* event) override
    {
        const QtDeletionHold hold(this);
        const bool isConsumed = Shim::showToPeer(receiver, event);
        if (event->type() == QEvent::ContextMenu && hold.isAlive())
            this->noteContextMenu(receiver, static_cast<const QContextMenuEvent&>(*event));
        return isConsumed || !hold.isAlive();
    }
};

} // namespace VOXI
