#include "voxi2_qt/controls/qttoolbar2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/kernel/qtaction2.h"
#include "voxi2_qt/kernel/qtbaritem.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QLayout>
#include <QMainWindow>
#include <QMouseEvent>
#include <QTimer>
#include <QToolButton>

#include <chrono>

namespace VOXI {

namespace {

using E = VXToolBar2Emitters;
using P = QtToolBar2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::addAction, &P::doAddAction>(),
    TROV::row<&E::addWidget, &P::doAddWidget>(),
    TROV::row<&E::addSeparator, &P::doAddSeparator>(),
    TROV::row<&E::setFloatable, &P::doSetFloatable>(),
    TROV::row<&E::setMovable, &P::doSetMovable>(),
    TROV::row<&E::setLabel, &P::doSetLabel>(),
    TROV::row<&E::setOrientation, &P::doSetOrientation>(),
    TROV::row<&E::setMinimumVisibleItems, &P::doSetMinimumVisibleItems>(),
    TROV::row<&E::isFloatable, &P::doIsFloatable>(),
    TROV::row<&E::isMovable, &P::doIsMovable>(),
    TROV::row<&E::getOrientation, &P::doGetOrientation>(),
    TROV::row<&E::setLabelU, &P::doSetLabelU>(),
    TROV::row<&E::removeAction, &P::doRemoveAction>(),
    TROV::row<&E::removeWidget, &P::doRemoveWidget>(),
    TROV::row<&E::setIconSize, &P::doSetIconSize>(),
    TROV::row<&E::setToolButtonStyle, &P::doSetToolButtonStyle>(),
    TROV::row<&E::getLabelU, &P::doGetLabelU>(),
    TROV::row<&E::getMinimumVisibleItems, &P::doGetMinimumVisibleItems>(),
    TROV::row<&E::getIconSize, &P::doGetIconSize>(),
    TROV::row<&E::getToolButtonStyle, &P::doGetToolButtonStyle>());
// clang-format on

constexpr std::chrono::milliseconds LayoutFixDelay(10);

} // namespace

InnerToolBar::InnerToolBar()
{
    setMovable(false);
    layout()->setContentsMargins(0, 0, 0, 0);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
}

void InnerToolBar::paintEvent(QPaintEvent*) {}

QtToolBar2::QtToolBar2(VXToolBar2* object, VXToolBar2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

// Requests ----------------------------------------------------------------------------------------

void QtToolBar2::doAddAction(VXAction2* action)
{
    withPeerOf<QtAction2>(action, [this](QtAction2* peer) {
        if (!peer)
            return;
        QToolBar& bar = barForNextItem();
        bar.addAction(peer);
        if (QWidget* const button = bar.widgetForAction(peer))
            button->setFocusPolicy(buttonFocusPolicy());
    });
}

void QtToolBar2::doAddWidget(VXWidget2* widget)
{
    withPeerOf<QtWidget2>(widget, [this](QtWidget2* peer) {
        if (!canHold(*this, this, peer ? peer->asQWidget() : nullptr))
            return;
        const QtEventBlocker blocker(
            *peer, {WidgetEvent::Show, WidgetEvent::Hide, WidgetEvent::Move, WidgetEvent::Resize});
        takeOut(peer->asQWidget());
        auto* item = new QtBarItem(*peer);
        barForNextItem().addAction(item);
        item->settle();
    });
}

void QtToolBar2::doAddSeparator() { barForNextItem().addSeparator(); }
void QtToolBar2::doSetFloatable(bool floatable) { setFloatable(floatable); }
void QtToolBar2::doSetMovable(bool movable) { setMovable(movable); }
void QtToolBar2::doSetLabel(const std::string& label) { setWindowTitle(toQStringUpToNul(label)); }

void QtToolBar2::doSetOrientation(Orientation orientation)
{
    if (m_innerToolBar)
        m_innerToolBar->setOrientation(VX2Qt(orientation));
    setOrientation(VX2Qt(orientation));
}

void QtToolBar2::doSetMinimumVisibleItems(int count)
{
    if (count <= 1)
        return;
    m_innerToolBar = new InnerToolBar;
    addWidget(m_innerToolBar);
    m_innerToolBar->setOrientation(orientation());
    m_innerToolBar->setIconSize(iconSize());
    m_innerToolBar->setToolButtonStyle(toolButtonStyle());
    QObject::connect(this, &QToolBar::iconSizeChanged, this, &QtToolBar2::onIconSizeChanged);
    // A window turns the bar when it is docked at another side.
    QObject::connect(this, &QToolBar::orientationChanged, m_innerToolBar,
                     &QToolBar::setOrientation);
    m_minimumVisibleItems = count;
}

bool QtToolBar2::doIsFloatable() { return isFloatable(); }
bool QtToolBar2::doIsMovable() { return isMovable(); }
Orientation QtToolBar2::doGetOrientation() { return Qt2VX(orientation()); }
void QtToolBar2::doSetLabelU(const std::wstring& label) { setWindowTitle(toQString(label)); }

void QtToolBar2::doRemoveAction(VXAction2* action)
{
    withPeerOf<QtAction2>(action, [this](QtAction2* peer) {
        QWidgetList bars{this};
        for (QToolBar* inner : innerToolBars())
            bars.append(inner);
        removeActionFrom(*this, bars, peer);
    });
}

void QtToolBar2::doRemoveWidget(VXWidget2* widget)
{
    withPeerOf<QtWidget2>(widget, [this](QtWidget2* peer) {
        const QWidget* holder = peer ? peer->asQWidget()->parentWidget() : nullptr;
        if (qobject_cast<const InnerToolBar*>(holder))
            holder = holder->parentWidget();
        if (holder == this)
            peer->leaveBar();
        else
            ignored(*this, Reason::NotInThis);
    });
}

void QtToolBar2::doSetIconSize(Size<int> size) { setIconSize(toQIconSize(size)); }

void QtToolBar2::doSetToolButtonStyle(ToolButtonStyle style)
{
    for (QToolBar* inner : innerToolBars())
        inner->setToolButtonStyle(VX2Qt(style));
    setToolButtonStyle(VX2Qt(style));
}

std::wstring QtToolBar2::doGetLabelU() { return toStdWString(windowTitle()); }
int QtToolBar2::doGetMinimumVisibleItems() { return m_minimumVisibleItems; }
Size<int> QtToolBar2::doGetIconSize() { return Qt2VX(iconSize()); }
ToolButtonStyle QtToolBar2::doGetToolButtonStyle() { return Qt2VX(toolButtonStyle()); }

// Reports -----------------------------------------------------------------------------------------

void QtToolBar2::onIconSizeChanged(const QSize& size) { m_innerToolBar->setIconSize(size); }

bool QtToolBar2::event(QEvent* event)
{
    if (event->type() == QEvent::ChildRemoved && !m_layoutFixPending) {
        m_layoutFixPending = true;
        QTimer::singleShot(LayoutFixDelay, this, &QtToolBar2::slotFixLayout);
    }
    if (event->type() == QEvent::ParentAboutToChange)
        endDrag();
    else if (event->type() == QEvent::ParentChange)
        updateFocusPolicies();
    return QtWidget2Shim::event(event);
}

/// Qt's layout does not notice that a child has left; it computes anew for every new size.
void QtToolBar2::slotFixLayout()
{
    if (!m_layoutFixPending)
        return;
    const QtEventBlocker blocker(*this, {WidgetEvent::Resize});
    const QSize before = size();
    // One pixel less where there can be none more.
    resize(before + QSize(before.width() < maximumWidth() ? 1 : -1, 0));
    resize(before);
    m_layoutFixPending = false;
}

// Helpers -----------------------------------------------------------------------------------------

QToolBar& QtToolBar2::barForNextItem()
{
    if (m_innerToolBar && m_innerToolBar->actions().count() < m_minimumVisibleItems)
        return *m_innerToolBar;
    return *this;
}

/// Qt gives up a drag by events alone, and docks the bar unless it is far from where it could be.
void QtToolBar2::endDrag()
{
    if (QWidget::mouseGrabber() != this)
        return;
    constexpr QPointF Away(-100'000, -100'000);
    const QtEventBlocker blocker(
        *this, {WidgetEvent::Show, WidgetEvent::Hide, WidgetEvent::Move, WidgetEvent::Resize});
    const QPoint place = pos();
    QMouseEvent away(QEvent::MouseMove, Away, Away, Qt::NoButton, Qt::LeftButton, {});
    QToolBar::event(&away);
    QMouseEvent release(QEvent::MouseButtonRelease, Away, Away, Qt::LeftButton, Qt::NoButton, {});
    QToolBar::event(&release);
    move(place);
}

/// Tab passes by what is docked in a window, where F6 goes to. Elsewhere they are buttons as
/// others.
Qt::FocusPolicy QtToolBar2::buttonFocusPolicy() const
{
    return qobject_cast<QMainWindow*>(parentWidget()) ? Qt::NoFocus : Qt::TabFocus;
}

void QtToolBar2::updateFocusPolicies()
{
    for (QToolButton* const each : findChildren<QToolButton*>()) {
        const QWidget* const bar = each->parentWidget();
        if (!peerOf(each) && (bar == this || qobject_cast<const InnerToolBar*>(bar)))
            each->setFocusPolicy(buttonFocusPolicy());
    }
}

QList<InnerToolBar*> QtToolBar2::innerToolBars() const
{
    return findChildren<InnerToolBar*>(Qt::FindDirectChildrenOnly);
}

} // namespace VOXI
