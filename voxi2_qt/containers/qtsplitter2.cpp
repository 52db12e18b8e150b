#include "voxi2_qt/containers/qtsplitter2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qtsavedtext.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/containers/qtsplitterhandle.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QChildEvent>

namespace VOXI {

namespace {

using E = VXSplitter2Emitters;
using P = QtSplitter2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::addWidget, &P::doAddWidget>(),
    TROV::row<&E::insertWidget, &P::doInsertWidget>(),
    TROV::row<&E::removeWidget, &P::doRemoveWidget>(),
    TROV::row<&E::getWidgetIndex, &P::doGetWidgetIndex>(),
    TROV::row<&E::count, &P::doCount>(),
    TROV::row<&E::setCollapsible, &P::doSetCollapsible>(),
    TROV::row<&E::isCollapsible, &P::doIsCollapsible>(),
    TROV::row<&E::setHandleWidth, &P::doSetHandleWidth>(),
    TROV::row<&E::getHandleWidth, &P::doGetHandleWidth>(),
    TROV::row<&E::setOrientation, &P::doSetOrientation>(),
    TROV::row<&E::getOrientation, &P::doGetOrientation>(),
    TROV::row<&E::setSizes, &P::doSetSizes>(),
    TROV::row<&E::getSizes, &P::doGetSizes>(),
    TROV::row<&E::saveState, &P::doSaveState>(),
    TROV::row<&E::restoreState, &P::doRestoreState>());
// clang-format on

constexpr int FirstHandleWidth = 6;
constexpr char StateKind[] = "voxi-splitter";

} // namespace

QtSplitter2::QtSplitter2(VXSplitter2* object, VXSplitter2Emitters* emitters, QWidget* parent,
                         Orientation orientation)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    setOrientation(VX2Qt(orientation));
    setHandleWidth(FirstHandleWidth);
}

// Requests ----------------------------------------------------------------------------------------

void QtSplitter2::doAddWidget(VXWidget2* widget, int stretch)
{
    doInsertWidget(widget, -1, stretch);
}

void QtSplitter2::doInsertWidget(VXWidget2* widget, int index, int stretch)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (!canHold(*this, this, child))
            return;
        takeOutFor(this, child);
        insertWidget(index, child);          // appends where there is no such position
        if (child->parentWidget() != this) { // a handler has moved it on
            QChildEvent removed(QEvent::ChildRemoved, child);
            childEvent(&removed);
            return;
        }
        setStretchFactor(indexOf(child), stretch);
    });
}

void QtSplitter2::doRemoveWidget(VXWidget2* widget)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (child && indexOf(child) >= 0)
            keepHidden(child, nullptr);
        else
            ignored(*this, Reason::NotInThis);
    });
}

int QtSplitter2::doGetWidgetIndex(VXWidget2* widget)
{
    int index = -1;
    withWidgetOf(widget, [&](QWidget* child) { index = child ? indexOf(child) : -1; });
    return index;
}

int QtSplitter2::doCount()
{
    VXObjectDataLocker lock;
    return count();
}

void QtSplitter2::doSetCollapsible(VXWidget2* widget, bool collapsible)
{
    if (!widget) {
        setChildrenCollapsible(collapsible);
        return;
    }
    withWidgetOf(widget, [&](QWidget* child) {
        if (const int index = child ? indexOf(child) : -1; index >= 0)
            setCollapsible(index, collapsible);
        else
            ignored(*this, Reason::NotInThis);
    });
}

bool QtSplitter2::doIsCollapsible(VXWidget2* widget)
{
    bool collapsible = childrenCollapsible();
    withWidgetOf(widget, [&](QWidget* child) {
        const int index = child ? indexOf(child) : -1;
        collapsible = index >= 0 && isCollapsible(index);
    });
    return collapsible;
}

void QtSplitter2::doSetHandleWidth(int width) { setHandleWidth(bounded(width)); }
int QtSplitter2::doGetHandleWidth() { return handleWidth(); }
void QtSplitter2::doSetOrientation(Orientation orientation) { setOrientation(VX2Qt(orientation)); }
Orientation QtSplitter2::doGetOrientation() { return Qt2VX(orientation()); }

void QtSplitter2::doSetSizes(const std::list<int>& sizes)
{
    setSizes(QList<int>(sizes.begin(), sizes.end()));
}

std::list<int> QtSplitter2::doGetSizes()
{
    const QList<int> sizes = QSplitter::sizes();
    return {sizes.begin(), sizes.end()};
}

std::string QtSplitter2::doSaveState() { return toSavedText(StateKind, saveState()); }

bool QtSplitter2::doRestoreState(const std::string& state)
{
    const auto bytes = fromSavedText(StateKind, state);
    if (!bytes)
        return false;
    // These are the program's, which may be a newer one.
    const int width = handleWidth();
    const bool collapsible = childrenCollapsible();
    const bool isRestored = restoreState(*bytes);
    setHandleWidth(width);
    setChildrenCollapsible(collapsible);
    return isRestored;
}

// Reports -----------------------------------------------------------------------------------------

void QtSplitter2::connectSignals()
{
    connect(this, &QSplitter::splitterMoved, this, &QtSplitter2::slotSplitterMoved);
}

void QtSplitter2::slotSplitterMoved(int position, int index)
{
    report(&E::handleMoved, index, position);
}

// Helpers -----------------------------------------------------------------------------------------

QSplitterHandle* QtSplitter2::createHandle() { return new QtSplitterHandle(orientation(), this); }

} // namespace VOXI
