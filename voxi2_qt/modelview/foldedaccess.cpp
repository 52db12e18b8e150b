#include "foldedaccess.h"

#include "../kernel/qtaccessfactory.h"
#include "qtviewmodel2.h"
#include "voxi2_qt/modelview/foldedview.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QWindow>

namespace VOXI {

namespace {

/// The row that stands at a place of a parent's; 0 for none.
unsigned rowAt(const FoldedView& view, int place, const QModelIndex& parent)
{
    return view.viewModel().rowFromIndex(view.viewModel().index(place, 0, parent));
}

/// A group or a row in one. It is known by its number and stays the same wherever it goes.
class RowAccess final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    RowAccess(FoldedView& view, unsigned row) : m_view(&view), m_row(row) {}

    bool isValid() const override { return m_view && index().isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override
    {
        return isValid() ? m_view->window()->windowHandle() : nullptr;
    }

    QAccessibleInterface* parent() const override
    {
        if (!isValid())
            return nullptr;
        const QModelIndex above = index().parent();
        return above.isValid() ? m_view->accessOf(m_view->viewModel().rowFromIndex(above))
                               : QAccessible::queryAccessibleInterface(m_view);
    }
    int childCount() const override
    {
        const bool isOpen = isGroup() && (!m_view->isFolded(m_row) || !m_view->filter().isEmpty());
        return isOpen ? m_view->shownCount(index().row()) : 0;
    }
    QAccessibleInterface* child(int place) const override
    {
        if (place < 0 || place >= childCount())
            return nullptr;
        const unsigned row = rowAt(*m_view, m_view->rowAtPlace(index().row(), place), index());
        return row != 0 ? m_view->accessOf(row) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* const row = dynamic_cast<const RowAccess*>(child);
        if (!row || !isValid() || row->index().parent() != index())
            return -1;
        return m_view->placeOfRow(index().row(), row->index().row());
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        if (childCount() == 0)
            return nullptr;
        const QModelIndex at = m_view->indexAt(m_view->viewport()->mapFromGlobal(QPoint(x, y)));
        return at.isValid() && at.parent() == index()
                   ? m_view->accessOf(m_view->viewModel().rowFromIndex(at))
                   : nullptr;
    }

    QString text(QAccessible::Text kind) const override
    {
        const CellRecord* const record =
            isValid() ? m_view->viewModel().peekCell(index()) : nullptr;
        if (!record)
            return {};
        if (kind == QAccessible::Name)
            return record->text();
        return kind == QAccessible::Description ? record->data(Qt::ToolTipRole).toString()
                                                : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect place = m_view->visualRect(index()) & m_view->viewport()->rect();
        return place.translated(m_view->viewport()->mapToGlobal(QPoint()));
    }
    QAccessible::Role role() const override
    {
        return !isValid() || isGroup() ? QAccessible::TreeItem : m_view->rowRole();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const bool isShown = m_view->isShown(index());
        state.focusable = true;
        state.focused = m_view->hasFocus() && m_view->currentIndex() == index();
        state.invisible = !isShown;
        state.offscreen = isShown && rect().isEmpty();
        if (isGroup()) {
            state.expandable = m_view->viewModel().hasChildren(index());
            state.expanded = state.expandable && !m_view->isFolded(m_row);
            state.collapsed = state.expandable && !state.expanded;
            return state;
        }
        state.disabled = !m_view->isEnabledRow(index());
        state.linked = m_view->rowRole() == QAccessible::Link;
        state.selectable = m_view->hasChoice();
        state.selected = m_view->isChosen(m_row);
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override
    {
        return {isGroup() ? toggleAction() : pressAction(), setFocusAction()};
    }
    void doAction(const QString& name) override
    {
        if (!isValid() || !m_view->isEnabled())
            return;
        FoldedView& view = *m_view; // the handlers may end it, and this
        if (name == setFocusAction()) {
            const QPointer<FoldedView> guard(&view);
            const unsigned row = m_row;
            view.setFocus(Qt::OtherFocusReason);
            if (guard)
                guard->setCurrent(row);
        } else if (isGroup() && (name == toggleAction() || name == pressAction())) {
            view.setFolded(m_row, !view.isFolded(m_row), FoldedView::By::User);
        } else if (name == pressAction()) {
            view.activate(m_row);
        }
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    QModelIndex index() const { return m_view->indexOf(m_row); }

private:
    bool isGroup() const { return isValid() && !index().parent().isValid(); }

    QPointer<FoldedView> m_view;
    const unsigned m_row;
};

class ViewAccess final : public QAccessibleWidget
{
public:
    explicit ViewAccess(FoldedView& view) : QAccessibleWidget(&view, QAccessible::Tree) {}

    QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        // A view that is a part of a widget goes by its name.
        const QWidget* const around = widget()->parentWidget();
        return kind == QAccessible::Name && own.isEmpty() && around
                       && around->focusProxy() == widget()
                   ? around->accessibleName()
                   : own;
    }
    int childCount() const override { return view().groupCount(); }
    QAccessibleInterface* child(int place) const override
    {
        const unsigned row = place >= 0 ? rowAt(view(), place, {}) : 0;
        return row != 0 ? view().accessOf(row) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* const row = dynamic_cast<const RowAccess*>(child);
        return row && row->isValid() && !row->index().parent().isValid() ? row->index().row() : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        const QPoint at = view().viewport()->mapFromGlobal(QPoint(x, y));
        const QModelIndex index =
            view().viewport()->rect().contains(at) ? view().indexAt(at) : QModelIndex();
        return index.isValid() ? view().accessOf(view().viewModel().rowFromIndex(index)) : nullptr;
    }
    QAccessibleInterface* focusChild() const override
    {
        const unsigned row = view().hasFocus() ? view().currentRow() : 0;
        return row != 0 ? view().accessOf(row) : nullptr;
    }

private:
    FoldedView& view() const { return *static_cast<FoldedView*>(widget()); }
};

QAccessibleInterface* makeViewAccess(const QString&, QObject* object)
{
    auto* const view = qobject_cast<FoldedView*>(object);
    return view ? new ViewAccess(*view) : nullptr;
}

} // namespace

void makeFoldedAccessible() { static const QtAccessFactory<&makeViewAccess> s_installed; }

QAccessibleInterface* makeRowAccess(FoldedView& view, unsigned row)
{
    return new RowAccess(view, row);
}

} // namespace VOXI
