// The part of FoldedView that is for assistive programs.

#include "foldedaccess.h"
#include "qtviewmodel2.h"
#include "voxi2_qt/modelview/foldedview.h"

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

/// Of what comes at once. Nobody listens to more, and each is made for being told.
constexpr std::size_t MostTold = 100;

} // namespace

bool FoldedView::isChosen(unsigned) const { return false; }
bool FoldedView::hasChoice() const { return false; }

QAccessibleInterface* FoldedView::accessOf(unsigned row)
{
    if (const auto known = m_accessIds.constFind(row); known != m_accessIds.cend())
        return QAccessible::accessibleInterface(known.value());
    QAccessibleInterface* const made = makeRowAccess(*this, row);
    m_accessIds.insert(row, QAccessible::registerAccessibleInterface(made));
    return made;
}

void FoldedView::dropAccess(bool all)
{
    m_accessIds.removeIf([&](const auto& each) {
        const bool goes = all || !m_model->isValidRow(each.key());
        if (goes)
            QAccessible::deleteAccessibleInterface(each.value());
        return goes;
    });
}

// What is told ------------------------------------------------------------------------------------

/// Nothing of no row.
void FoldedView::tellAccess(unsigned row, QAccessible::Event what)
{
    if (!QAccessible::isActive() || row == 0)
        return;
    QAccessibleEvent event(accessOf(row), what);
    QAccessible::updateAccessibility(&event);
}

void FoldedView::tellFolded(unsigned group)
{
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.expanded = true;
    changed.collapsed = true;
    QAccessibleStateChangeEvent event(accessOf(group), changed);
    QAccessible::updateAccessibility(&event);
}

/// Of those rows of a parent's that somebody has been told of.
void FoldedView::tellKnownRows(const QModelIndex& parent, int first, int last,
                               QAccessible::Event what)
{
    if (!QAccessible::isActive() || !isAlive())
        return;
    for (const unsigned row : m_accessIds.keys()) {
        const QModelIndex index = indexOf(row);
        if (index.isValid() && index.parent() == parent && index.row() >= first
            && index.row() <= last)
            tellAccess(row, what);
    }
}

void FoldedView::noteArrivals(const QModelIndex& parent, int first, int last)
{
    if (!QAccessible::isActive() || !isAlive())
        return;
    for (int row = first; row <= last && m_arrivals.size() < MostTold; ++row)
        m_arrivals.push_back(m_model->rowFromIndex(m_model->index(row, 0, parent)));
}

/// When all are in place: who hears of one asks for others.
void FoldedView::tellArrivals()
{
    for (const unsigned row : std::exchange(m_arrivals, {})) {
        const QModelIndex index = indexOf(row);
        if (index.isValid() && isShown(index))
            tellAccess(row, QAccessible::ObjectCreated);
    }
}

/// After a search, for those groups that somebody has been told of.
void FoldedView::tellFiltered()
{
    if (!QAccessible::isActive() || !isAlive())
        return;
    layOutNow();
    for (const unsigned row : m_accessIds.keys()) {
        const QModelIndex index = indexOf(row);
        if (index.isValid() && !index.parent().isValid()
            && std::cmp_less_equal(shownCount(index.row()), MostTold))
            tellAccess(row, QAccessible::ObjectReorder);
    }
}

} // namespace VOXI
