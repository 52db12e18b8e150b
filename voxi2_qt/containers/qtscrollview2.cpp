#include "voxi2_qt/containers/qtscrollview2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>

#include <algorithm>

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
    TROV::row<&E::scrollBy, &P::doScrollBy>());
// clang-format on

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
        if (child != QScrollArea::widget()) {
            // Qt would delete the former one, which has an owner of its own.
            if (QWidget* former = QScrollArea::widget()) {
                takeOut(former);
                takeWidget();
            }
            takeOutFor(viewport(), child);
            setWidget(child);
        }
        doSetWidgetResizable(true);
    });
}

void QtScrollView2::doSetWidgetResizable(bool resizable)
{
    setWidgetResizable(resizable);
    // It grows with the view, but scroll bars come before it gets smaller than its hint.
    if (QWidget* child = QScrollArea::widget(); child && resizable)
        child->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
}

void QtScrollView2::doEnsurePointVisible(VXPoint<int> point, int xMargin, int yMargin)
{
    ensureVisible(point.x, point.y, xMargin, yMargin);
}

void QtScrollView2::doEnsureWidgetVisible(VXWidget2* widget, int xMargin, int yMargin)
{
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
    moveBy(*horizontalScrollBar(), distance.x);
    moveBy(*verticalScrollBar(), distance.y);
}

// Reports -----------------------------------------------------------------------------------------

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
