#include "voxi2_qt/containers/qtdockwidget2.h"

#include "../kernel/qtaccessiblename.h"
#include "../kernel/qtcompositor.h"
#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "qtdockmenu.h"
#include "qtdocktitle.h"
#include "qtdragpicture.h"
#include "qtfloattitle.h"
#include "voxi2_qt/kernel/qtaction2.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QLayout>
#include <QMainWindow>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include <utility>

namespace VOXI {

namespace {

using E = VXDockWidget2Emitters;
using P = QtDockWidget2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setWidget, &P::doSetWidget>(),
    TROV::row<&E::getWidget, &P::doGetWidget>(),
    TROV::row<&E::setTitleBarWidget, &P::doSetTitleBarWidget>(),
    TROV::row<&E::getTitleBarWidget, &P::doGetTitleBarWidget>(),
    TROV::row<&E::setTitleU, &P::doSetTitleU>(),
    TROV::row<&E::getTitleU, &P::doGetTitleU>(),
    TROV::row<&E::setTitle, &P::doSetTitle>(),
    TROV::row<&E::getTitle, &P::doGetTitle>(),
    TROV::row<&E::setIcon, &P::doSetIcon>(),
    TROV::row<&E::getIcon, &P::doGetIcon>(),
    TROV::row<&E::setAllowedAreas, &P::doSetAllowedAreas>(),
    TROV::row<&E::getAllowedAreas, &P::doGetAllowedAreas>(),
    TROV::row<&E::setFeatures, &P::doSetFeatures>(),
    TROV::row<&E::getFeatures, &P::doGetFeatures>(),
    TROV::row<&E::setFloating, &P::doSetFloating>(),
    TROV::row<&E::isFloating, &P::doIsFloating>(),
    TROV::row<&E::close, &P::doClose>(),
    TROV::row<&E::setViewAction, &P::doSetViewAction>());
// clang-format on

/// How many program scopes there are. A change of one dock widget changes others, too.
int s_programScopes = 0;

} // namespace

QtDockWidget2::ProgramScope::ProgramScope(QWidget* window) : m_window(window) { ++s_programScopes; }

QtDockWidget2::ProgramScope::~ProgramScope()
{
    if (m_window && m_window->layout())
        m_window->layout()->activate();
    --s_programScopes;
}

QtDockWidget2::QtDockWidget2(VXDockWidget2* object, VXDockWidget2Emitters* emitters,
                             QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    readTextAsName<QtDockWidget2, QAccessible::Window, &QWidget::windowTitle>();
    hide(); // it would lie on top of its parent until it is docked
    m_known = state();
    connect(this, &QDockWidget::topLevelChanged, this, &QtDockWidget2::slotFloats);
    connect(this, &QDockWidget::dockLocationChanged, this, &QtDockWidget2::slotAreaChanged);
    connect(this, &QDockWidget::visibilityChanged, this, &QtDockWidget2::slotVisibilityChanged);
}

void QtDockWidget2::scheduleDelete()
{
    const QPointer<QWidget> self(this);
    QtContainer2::scheduleDelete();
    if (self)
        endDrag();
}

void QtDockWidget2::endDrag()
{
    const ProgramScope scope(nullptr);
    QCloseEvent event; // nothing is closed, but Qt gives up the drag
    closeEvent(&event);
}

void QtDockWidget2::undock()
{
    if (!isDocked())
        return;
    const bool isShown = !isHidden();
    endDrag();
    setFloating(false); // or it would come back as a window
    auto* const window = qobject_cast<QMainWindow*>(parentWidget());
    if (!window)
        return; // a handler has taken it away
    window->removeDockWidget(this);
    if (isShown)
        keepHidden(this, window); // Qt has hidden it, not the program
}

void QtDockWidget2::leave()
{
    const ProgramScope scope(parentWidget());
    const QtEventBlocker blocker(*this,
                                 {WidgetEvent::Hide, WidgetEvent::Move, WidgetEvent::Resize});
    undock();
    QtContainer2::leave();
}

// Requests ----------------------------------------------------------------------------------------

void QtDockWidget2::doShow()
{
    const ProgramScope scope(parentWidget());
    const QtEventBlocker blocker(*this, {WidgetEvent::Move, WidgetEvent::Resize});
    QtContainer2::doShow();
}

void QtDockWidget2::doHide()
{
    const ProgramScope scope(parentWidget());
    QtContainer2::doHide();
}

void QtDockWidget2::doSetVisible(bool visible)
{
    const ProgramScope scope(parentWidget());
    const QtEventBlocker blocker(*this, {WidgetEvent::Move, WidgetEvent::Resize});
    QtContainer2::doSetVisible(visible);
}

void QtDockWidget2::doSetParent(VXObject* parent)
{
    const ProgramScope scope(parentWidget());
    QtContainer2::doSetParent(parent);
}

void QtDockWidget2::doSetWidget(VXWidget2* widget)
{
    withWidgetOrNone(widget, [this](QWidget* child) {
        QWidget* former = QDockWidget::widget();
        if (child && (child == former || !canHold(*this, this, child)))
            return;
        // Out of the layout before Qt takes it out and hides it in its own way.
        if (former)
            layout()->removeWidget(former);
        keepHidden(former, this);
        if (child)
            takeOutFor(this, child);
        setWidget(child);
    });
}

VXWidget2* QtDockWidget2::doGetWidget()
{
    return abstractObjectOf<VXWidget2>(QDockWidget::widget());
}

void QtDockWidget2::doSetTitleBarWidget(VXWidget2* widget)
{
    withWidgetOrNone(widget, [this](QWidget* child) {
        QWidget* former = m_floatTitle ? nullptr : dockTitleIn(*this);
        if (child && (child == former || !canHold(*this, this, child)))
            return;
        keepHidden(former, this); // its holder goes
        if (child) {
            takeFloatTitle();
            takeOut(child);
            giveTitle(child);
        } else {
            updateFloatTitle();
        }
    });
}

VXWidget2* QtDockWidget2::doGetTitleBarWidget()
{
    return abstractObjectOf<VXWidget2>(dockTitleIn(*this));
}

void QtDockWidget2::doSetTitleU(const std::wstring& title) { changeTitle(toQString(title)); }
std::wstring QtDockWidget2::doGetTitleU() { return toStdWString(windowTitle()); }
void QtDockWidget2::doSetTitle(const std::string& title) { changeTitle(toQString(title)); }
std::string QtDockWidget2::doGetTitle() { return toStdString(windowTitle()); }

void QtDockWidget2::doSetIcon(const Icon& icon)
{
    keepIcon(icon);
    setWindowIcon(VX2Qt(icon));
    updateViewAction();
}

Icon QtDockWidget2::doGetIcon() { return keptIcon(); }
void QtDockWidget2::doSetAllowedAreas(VXFlags<DockArea> areas) { setAllowedAreas(VX2Qt(areas)); }
VXFlags<DockArea> QtDockWidget2::doGetAllowedAreas() { return Qt2VX(allowedAreas()); }
void QtDockWidget2::doSetFeatures(VXFlags<DockFeature> features) { setFeatures(VX2Qt(features)); }
VXFlags<DockFeature> QtDockWidget2::doGetFeatures() { return Qt2VX(features()); }

void QtDockWidget2::doSetFloating(bool floating)
{
    if (floating == isFloating() || !isDocked())
        return;
    const ProgramScope scope(parentWidget());
    const QtEventBlocker blocker(
        *this, {WidgetEvent::Show, WidgetEvent::Hide, WidgetEvent::Move, WidgetEvent::Resize});
    endDrag();
    setFloating(floating);
}

bool QtDockWidget2::doIsFloating() { return isDocked() && isFloating(); }
bool QtDockWidget2::doClose() { return close(); }

void QtDockWidget2::doSetViewAction(VXAction2* action)
{
    withPeerOf<QtAction2>(action, [this](QtAction2* peer) {
        if (!peer)
            return;
        m_viewAction = peer;
        peer->becomeHeard(); // its own report comes first
        connect(peer, &QAction::toggled, this, &QtDockWidget2::slotViewActionToggled);
        updateViewAction();
    });
}

// Reports -----------------------------------------------------------------------------------------

bool QtDockWidget2::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide: {
        // Qt's signal then is about the window as well, which may just be coming or going.
        const QtDeletionHold hold(this);
        const bool before = std::exchange(m_comesOrGoes, true);
        const bool done = QtWidget2Shim::event(event);
        if (hold.isAlive())
            m_comesOrGoes = before;
        return done;
    }
    case QEvent::MouseMove: {
        const QtDeletionHold hold(this);
        const bool done = QtWidget2Shim::event(event);
        if (hold.isAlive())
            updateDragPicture();
        return done;
    }
    case QEvent::ParentAboutToChange:
        endDrag();
        break;
    case QEvent::ParentChange:
        m_known = state(); // the program has put it elsewhere
        break;
    case QEvent::MouseButtonRelease: // the end of a drag
        QMetaObject::invokeMethod(this, &QtDockWidget2::updateFloatTitle, Qt::QueuedConnection);
        break;
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        updateViewAction();
        noteChange();
        break;
    default:
        break;
    }
    return QtWidget2Shim::event(event);
}

void QtDockWidget2::contextMenuEvent(QContextMenuEvent* event)
{
    // What is in it has menus of its own.
    const bool isOnTitle = !widget() || !widget()->geometry().contains(event->pos());
    event->setAccepted(isOnTitle && isDocked());
    if (event->isAccepted())
        openDockMenu(*this, event->globalPos());
}

/// Keys get to a pane in which nothing takes them, for its menu.
void QtDockWidget2::paintEvent(QPaintEvent* event)
{
    QtWidget2Shim::paintEvent(event);
    if (!hasFocus())
        return;
    QStylePainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect.adjust(1, 1, -1, -1);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

void QtDockWidget2::slotFloats()
{
    noteChange();
    // Later: Qt is in the middle of it.
    QMetaObject::invokeMethod(this, &QtDockWidget2::updateFloatTitle, Qt::QueuedConnection);
}

void QtDockWidget2::slotVisibilityChanged(bool visible)
{
    if (m_comesOrGoes)
        return;
    m_inFront = visible;
    noteChange();
}

void QtDockWidget2::slotAreaChanged(Qt::DockWidgetArea area)
{
    if (area == Qt::NoDockWidgetArea)
        return; // it is torn off, and comes back to where it was
    m_area = Qt2VX(area);
    noteChange();
}

void QtDockWidget2::noteChange()
{
    if (s_programScopes > 0) {
        m_known = state();
    } else if (!m_reportPending) {
        m_reportPending = true;
        QMetaObject::invokeMethod(this, &QtDockWidget2::slotReport, Qt::QueuedConnection);
    }
}

void QtDockWidget2::slotReport()
{
    m_reportPending = false;
    const State now = state();
    const State before = std::exchange(m_known, now);
    const QPointer<QWidget> alive(this);
    if (now.m_floating != before.m_floating)
        report(&E::floatingChanged, now.m_floating);
    if (alive && now.m_area != before.m_area)
        report(&E::areaChanged, now.m_area);
    if (alive && now.m_visible != before.m_visible)
        report(&E::visibilityChanged, now.m_visible);
}

void QtDockWidget2::slotViewActionToggled(bool checked)
{
    if (checked == !isHidden())
        return;
    const QPointer<QWidget> alive(this);
    if (!checked)
        close();
    else if (isDocked())
        show();
    if (alive)
        updateViewAction(); // closing may have been refused
}

// Helpers -----------------------------------------------------------------------------------------

bool QtDockWidget2::isDocked() const
{
    const auto* window = qobject_cast<QMainWindow*>(parentWidget());
    return window
           && window->dockWidgetArea(const_cast<QtDockWidget2*>(this)) != Qt::NoDockWidgetArea;
}

/// Under a compositor what floats has no frame, or one that does not dock it.
void QtDockWidget2::updateFloatTitle()
{
    updateDragPicture();
    if (!isUnderCompositor() || QWidget::mouseGrabber() == this)
        return;
    if (!isFloating()) {
        takeFloatTitle();
    } else if (!titleBarWidget()) {
        m_floatTitle = new QtFloatTitle(this);
        giveTitle(m_floatTitle);
    }
}

void QtDockWidget2::updateDragPicture()
{
    if (!QtDragPicture::isMeant(*this))
        delete m_dragPicture;
    else if (m_dragPicture)
        m_dragPicture->follow();
    else
        m_dragPicture = new QtDragPicture(*this);
}

/// Qt hides and shows what floats, for another frame.
class QtDockWidget2::TitleChange
{
public:
    TitleChange(QtDockWidget2& dock, const QWidget* title)
        : m_scope(dock.parentWidget()),
          m_dockBlocker(dock, Events),
          m_titleBlocker(title, Events)
    {}

private:
    static constexpr std::initializer_list<WidgetEvent> Events = {
        WidgetEvent::Show, WidgetEvent::Hide, WidgetEvent::Move, WidgetEvent::Resize};

    const ProgramScope m_scope;
    const QtEventBlocker m_dockBlocker;
    const QtEventBlocker m_titleBlocker;
};

void QtDockWidget2::giveTitle(QWidget* title)
{
    const TitleChange change(*this, title);
    setTitleBarWidget(new QtDockTitle(this, title));
}

void QtDockWidget2::takeFloatTitle()
{
    QtFloatTitle* const title = m_floatTitle;
    if (!title)
        return;
    m_floatTitle = nullptr;
    const TitleChange change(*this, nullptr);
    title->setParent(nullptr); // its holder goes
    title->deleteLater();
}

QtDockWidget2::State QtDockWidget2::state() const
{
    const auto* window = qobject_cast<QMainWindow*>(parentWidget());
    const bool tabbed =
        window && !window->tabifiedDockWidgets(const_cast<QtDockWidget2*>(this)).isEmpty();
    return {isFloating(), !isHidden() && (m_inFront || !tabbed || isFloating()), m_area};
}

void QtDockWidget2::changeTitle(const QString& title)
{
    setWindowTitle(title);
    updateViewAction();
}

void QtDockWidget2::updateViewAction()
{
    if (!m_viewAction)
        return;
    m_viewAction->setText(windowTitle());
    m_viewAction->doSetIcon(keptIcon());
    m_viewAction->doSetChecked(!isHidden());
}

} // namespace VOXI
