#include "voxi2_qt/containers/qtscrollview2.h"

#include "../kernel/enumtable.h"
#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

using E = VXScrollView2Emitters;
using P = QtScrollView2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setWidget, &P::doSetWidget>(),
    TROV::row<&E::setWidgetResizable, &P::doSetWidgetResizable>(),
    TROV::row<&E::ensurePointVisible, &P::doEnsurePointVisible>(),
    TROV::row<&E::ensureWidgetVisible, &P::doEnsureWidgetVisible>(),
    TROV::row<&E::getWidget, &P::doGetWidget>(),
    TROV::row<&E::isWidgetResizable, &P::doIsWidgetResizable>(),
    TROV::row<&E::scrollBy, &P::doScrollBy>(),
    TROV::row<&E::removeWidget, &P::doRemoveWidget>(),
    TROV::row<&E::setScrollPosition, &P::doSetScrollPosition>(),
    TROV::row<&E::getScrollPosition, &P::doGetScrollPosition>(),
    TROV::row<&E::getScrollEnd, &P::doGetScrollEnd>(),
    TROV::row<&E::setScrollBarPolicy, &P::doSetScrollBarPolicy>(),
    TROV::row<&E::getScrollBarPolicy, &P::doGetScrollBarPolicy>());
// clang-format on

constexpr auto s_policies = enumTable<ScrollBarPolicy, Qt::ScrollBarPolicy>({
    {ScrollBarPolicy::AsNeeded, Qt::ScrollBarAsNeeded},
    {ScrollBarPolicy::Never, Qt::ScrollBarAlwaysOff},
    {ScrollBarPolicy::Always, Qt::ScrollBarAlwaysOn},
});

/// Keeps from a widget, its layout included, that a child of it goes and comes back meanwhile.
class Muffler : public QObject
{
public:
    explicit Muffler(const QWidget* parent) : m_parent(parent) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        return watched == m_parent
               && (event->type() == QEvent::ChildRemoved || event->type() == QEvent::ChildAdded);
    }

private:
    const QWidget* m_parent;
};

void moveBy(QScrollBar& bar, int distance)
{
    const qint64 value = qint64(bar.value()) + distance;
    bar.setValue(static_cast<int>(std::clamp<qint64>(value, bar.minimum(), bar.maximum())));
}

} // namespace

QtScrollView2::QtScrollView2(VXScrollView2* object, VXScrollView2Emitters* emitters,
                             QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    setFrameStyle(static_cast<int>(QFrame::NoFrame) | static_cast<int>(QFrame::Plain));
}

// Requests ----------------------------------------------------------------------------------------

void QtScrollView2::doSetWidget(VXWidget2* widget)
{
    withWidgetOf(widget, [this](QWidget* child) {
        if (!canHold(*this, this, child))
            return;
        const QScopedValueRollback setting(m_isSetting, true);
        if (child != QScrollArea::widget()) {
            // Qt would delete the former one, which has an owner of its own.
            doRemoveWidget();
            takeOutFor(viewport(), child);
            setWidget(child);
        }
        doSetWidgetResizable(true);
    });
}

void QtScrollView2::doSetWidgetResizable(bool resizable)
{
    const QScopedValueRollback setting(m_isSetting, true);
    setWidgetResizable(resizable);
    // It grows with the view, but scroll bars come before it gets smaller than its hint.
    if (QWidget* child = QScrollArea::widget(); child && resizable)
        child->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
}

void QtScrollView2::doEnsurePointVisible(VXPoint<int> point, int xMargin, int yMargin)
{
    const QScopedValueRollback setting(m_isSetting, true);
    ensureVisible(point.x, point.y, xMargin, yMargin);
}

void QtScrollView2::doEnsureWidgetVisible(VXWidget2* widget, int xMargin, int yMargin)
{
    const QScopedValueRollback setting(m_isSetting, true);
    withWidgetOf(widget, [&](QWidget* child) {
        if (child && QScrollArea::widget()) // Qt does not check that there is one
            ensureWidgetVisible(child, xMargin, yMargin);
        else
            ignored(*this, Reason::NotInThis);
    });
}

VXWidget2* QtScrollView2::doGetWidget()
{
    return abstractObjectOf<VXWidget2>(QScrollArea::widget());
}

bool QtScrollView2::doIsWidgetResizable() { return widgetResizable(); }

void QtScrollView2::doScrollBy(VXPoint<int> distance)
{
    const QScopedValueRollback setting(m_isSetting, true);
    moveBy(*horizontalScrollBar(), distance.x);
    moveBy(*verticalScrollBar(), distance.y);
}

void QtScrollView2::doRemoveWidget()
{
    if (QWidget* const child = QScrollArea::widget()) {
        takeOut(child);
        takeWidget();
    }
}

void QtScrollView2::doSetScrollPosition(VXPoint<int> position)
{
    const QScopedValueRollback setting(m_isSetting, true);
    horizontalScrollBar()->setValue(position.x);
    verticalScrollBar()->setValue(position.y);
}

VXPoint<int> QtScrollView2::doGetScrollPosition()
{
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

VXPoint<int> QtScrollView2::doGetScrollEnd()
{
    return {horizontalScrollBar()->maximum(), verticalScrollBar()->maximum()};
}

void QtScrollView2::doSetScrollBarPolicy(Orientation bar, ScrollBarPolicy policy)
{
    if (bar == Orientation::Vertical)
        setVerticalScrollBarPolicy(s_policies.toQt(policy));
    else
        setHorizontalScrollBarPolicy(s_policies.toQt(policy));
}

ScrollBarPolicy QtScrollView2::doGetScrollBarPolicy(Orientation bar)
{
    return s_policies.toVx(bar == Orientation::Vertical ? verticalScrollBarPolicy()
                                                        : horizontalScrollBarPolicy());
}

// Reports -----------------------------------------------------------------------------------------

void QtScrollView2::connectSignals()
{
    m_known = doGetScrollPosition();
    for (const QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &QtScrollView2::slotScrolled);
}

void QtScrollView2::slotScrolled()
{
    const VXPoint<int> before = std::exchange(m_known, doGetScrollPosition());
    const VXPoint<int> end = doGetScrollEnd();
    // What was beyond the end has been moved there, as there is less to scroll.
    if (!m_isSetting && before.x <= end.x && before.y <= end.y)
        report(&E::scrolled, m_known);
}

bool QtScrollView2::eventFilter(QObject* watched, QEvent* event)
{
    // Qt does not notice when the widget moves elsewhere, and would go on resizing it.
    QWidget* const child = QScrollArea::widget();
    if (watched == child && event->type() == QEvent::ParentAboutToChange) {
        takeWidget();
    } else if (watched == child && event->type() == QEvent::ParentChange) {
        // What was never shown does not announce it. Taking it out takes it from there as well.
        QWidget* const elsewhere = child->parentWidget();
        const Qt::WindowFlags flags = child->windowFlags();
        const Muffler muffler(elsewhere);
        takeWidget();
        if (elsewhere)
            child->setParent(elsewhere, flags);
    }
    return QtWidget2Shim::eventFilter(watched, event);
}

} // namespace VOXI
