#include "voxi2_qt/controls/qtmenu2.h"

#include "../kernel/qtignored.h"
#include "voxi2_qt/kernel/qtaction2.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QScopeGuard>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <optional>

namespace VOXI {

namespace {

using E = VXMenu2Emitters;
using P = QtMenu2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::clear, &P::doClear>(),
    TROV::row<&E::digAccessComplete, &P::doDigAccessComplete>(),
    TROV::row<&E::digAccessFailed, &P::doDigAccessFailed>(),
    TROV::row<&E::setIsDigMenu, &P::doSetIsDigMenu>(),
    TROV::row<&E::addMenuItem, &P::doAddMenuItem>(),
    TROV::row<&E::addSubMenu, &P::doAddSubMenu>(),
    TROV::row<&E::addSeparator, &P::doAddSeparator>(),
    TROV::row<&E::popup, &P::doPopup>(),
    TROV::row<&E::setActionEnabled, &P::doSetActionEnabled>(),
    TROV::row<&E::addSubMenuU, &P::doAddSubMenuU>(),
    TROV::row<&E::removeMenuItem, &P::doRemoveMenuItem>(),
    TROV::row<&E::removeSubMenu, &P::doRemoveSubMenu>(),
    TROV::row<&E::isDigMenu, &P::doIsDigMenu>(),
    TROV::row<&E::isActionEnabled, &P::doIsActionEnabled>(),
    TROV::row<&E::getTitleU, &P::doGetTitleU>(),
    TROV::row<&E::count, &P::doCount>());
// clang-format on

/// What a waiting dig menu is shown as. With nothing at all its window would never appear, and the
/// menu would not hold the mouse and the keyboard.
constexpr QSize OnePixel(1, 1);

/// Qt adds sizes to the coordinates, so they stay as far from the largest number as its sizes do.
int wholePixels(double coordinate)
{
    constexpr double Limit = QWIDGETSIZE_MAX;
    return std::isnan(coordinate) ? 0 : static_cast<int>(std::clamp(coordinate, -Limit, Limit));
}

/// Whether `inner` is `outer` or an entry opens it from there, at whatever depth.
bool holds(const QMenu* outer, const QMenu* inner)
{
    QList<const QMenu*> holders{inner};
    for (qsizetype i = 0; i < holders.size() && !holders.contains(outer); ++i) {
        for (const QObject* holder : holders[i]->menuAction()->associatedObjects()) {
            const auto* menu = qobject_cast<const QMenu*>(holder);
            if (menu && !holders.contains(menu))
                holders.append(menu);
        }
    }
    return holders.contains(outer);
}

} // namespace

QtMenu2::QtMenu2(VXMenu2* object, VXMenu2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent),
      m_savedMaximumSize(maximumSize()),
      m_savedMinimumSize(minimumSize())
{
    QObject::connect(this, &QMenu::aboutToShow, this, &QtMenu2::slotAboutToShow);
    QObject::connect(this, &QMenu::aboutToHide, this, &QtMenu2::slotAboutToHide);
}

QtMenu2::~QtMenu2()
{
    endPeer();
    // A menu that is destroyed while it is shown does not say that it hides.
    releaseParent();
}

/// While Qt shows a menu, maybe on behalf of the one that it is an entry of. Handlers run
/// meanwhile, and Qt takes it for granted that the outer menu still follows the inner one, that the
/// menu bar knows which is open, and that the loop of a button that opens it has yet to end.
class QtMenu2::Coming
{
public:
    explicit Coming(QtMenu2& menu)
        : m_menu(menu.m_isComing ? nullptr : &menu),
          m_outer(m_menu ? outerOf(menu) : nullptr)
    {
        menu.m_isComing = true;
        if (m_outer)
            ++m_outer->m_innerComing;
    }
    ~Coming()
    {
        if (m_menu)
            m_menu->m_isComing = false;
        if (m_outer)
            --m_outer->m_innerComing;
        for (QtMenu2* const each : {m_menu.data(), m_outer.data()}) {
            if (each && each->m_isHideOpen)
                QMetaObject::invokeMethod(each, &QtMenu2::completeHide, Qt::QueuedConnection);
        }
    }
    const QtMenu2* outer() const { return m_outer; }

    Coming(const Coming&) = delete;
    Coming& operator=(const Coming&) = delete;

private:
    static QtMenu2* outerOf(const QtMenu2& menu)
    {
        for (QObject* const holder : menu.menuAction()->associatedObjects()) {
            auto* const outer = qobject_cast<QtMenu2*>(holder);
            if (outer && outer->isVisible() && outer->activeAction() == menu.menuAction())
                return outer;
        }
        return nullptr;
    }

    const QPointer<QtMenu2> m_menu;
    const QPointer<QtMenu2> m_outer;
};

// Requests ----------------------------------------------------------------------------------------

void QtMenu2::doSetParent(VXObject* parent)
{
    // Without its window flags it would become a part of the parent's surface.
    changeParent(parent, windowFlags());
}

void QtMenu2::doSetMaximumSize(Size<int> size)
{
    changeLimits([&] { QtWidget2::doSetMaximumSize(size); });
}

void QtMenu2::doSetMinimumSize(Size<int> size)
{
    changeLimits([&] { QtWidget2::doSetMinimumSize(size); });
}

void QtMenu2::doSetFixedSize(Size<int> size)
{
    changeLimits([&] { QtWidget2::doSetFixedSize(size); });
}

Size<int> QtMenu2::doGetMaximumSize()
{
    return m_isShrunk ? Qt2VX(m_savedMaximumSize) : QtWidget2::doGetMaximumSize();
}

Size<int> QtMenu2::doGetMinimumSize()
{
    return m_isShrunk ? Qt2VX(m_savedMinimumSize) : QtWidget2::doGetMinimumSize();
}

void QtMenu2::doClear()
{
    releaseFreeze();
    removeItems();
}

void QtMenu2::doDigAccessComplete(VXMenu2* parent)
{
    m_digAccessPending = false;
    VXObjectDataLocker lock;
    QtMenu2* peer = nullptr;
    if (parent != getHandle())
        withPeerOf<QtMenu2>(parent, [&](QtMenu2* found) { peer = found; });
    if (!m_isAboutToShow) {
        popupDigMenu(peer);
        return;
    }
    // Qt is still computing the size and the position, and sends the parent a leave event when the
    // menu has appeared: the size counts from now on, the rest is done when the menu stands.
    restoreSize();
    QTimer::singleShot(0, this, [this, beside = QPointer(peer)] {
        if (!m_digAccessPending)
            popupDigMenu(beside);
    });
}

void QtMenu2::doDigAccessFailed()
{
    m_digAccessPending = false;
    removeItems();
    restoreSize();
    if (m_isAboutToShow) {
        QTimer::singleShot(0, this, [this] {
            if (!m_digAccessPending)
                closeQuietly();
        });
        return;
    }
    closeQuietly();
}

void QtMenu2::doSetIsDigMenu(bool isDigMenu)
{
    m_isDigMenu = isDigMenu;
    // An opening that nobody heard of is not answered either.
    if (!isDigMenu && m_isShrunk && !m_digAccessPending)
        popupDigMenu(nullptr);
}

void QtMenu2::doAddMenuItem(VXAction2* action)
{
    withPeerOf<QtAction2>(action, [this](QtAction2* peer) {
        if (peer)
            addAction(peer);
    });
}

void QtMenu2::doAddSubMenu(const std::string& title, VXMenu2* menu)
{
    addSubMenu(toQStringUpToNul(title), menu);
}

void QtMenu2::doAddSeparator() { addSeparator(); }

void QtMenu2::doPopup(double x, double y)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Show, WidgetEvent::Hide});
    if (isVisible())
        hide();
    popup(QPoint(wholePixels(x), wholePixels(y)));
}

void QtMenu2::doSetActionEnabled(bool enabled)
{
    if (QAction* action = menuAction())
        action->setEnabled(enabled);
}

void QtMenu2::doAddSubMenuU(const std::wstring& title, VXMenu2* menu)
{
    addSubMenu(toQString(title), menu);
}

void QtMenu2::doRemoveMenuItem(VXAction2* action)
{
    withPeerOf<QtAction2>(action,
                          [this](QtAction2* peer) { removeActionFrom(*this, {this}, peer); });
}

void QtMenu2::doRemoveSubMenu(VXMenu2* menu)
{
    withPeerOf<QtMenu2>(menu, [this](QtMenu2* peer) {
        removeActionFrom(*this, {this}, peer ? peer->menuAction() : nullptr);
    });
}

bool QtMenu2::doIsDigMenu() { return m_isDigMenu; }

bool QtMenu2::doIsActionEnabled()
{
    const QAction* action = menuAction();
    return action && action->isEnabled();
}

std::wstring QtMenu2::doGetTitleU() { return toStdWString(title()); }
int QtMenu2::doCount() { return static_cast<int>(actions().count()); }

// Reports -----------------------------------------------------------------------------------------

bool QtMenu2::event(QEvent* event)
{
    // Nobody sees yet what the input would be for, and it would have Qt let go of the inner menu.
    if ((m_isComing || m_innerComing > 0)
        && (event->isInputEvent() || event->type() == QEvent::Timer
            || event->type() == QEvent::Leave))
        return true;
    return QtWidget2Shim::event(event);
}

void QtMenu2::hideEvent(QHideEvent* event)
{
    if (m_isMoving)
        return;
    const QAction* const active = activeAction();
    const auto* const inner = qobject_cast<QtMenu2*>(active ? active->menu() : nullptr);
    m_isHideOpen = m_isComing || (inner && inner->m_isComing);
    if (!m_isHideOpen)
        QtWidget2Shim::hideEvent(event);
}

void QtMenu2::slotAboutToShow()
{
    if (m_digAccessPending)
        return;
    if (m_isDigMenu) {
        removeItems();
        shrink();
    }
    VXObjectDataLocker lock;
    if (!isHeard(&E::aboutToShow))
        return;
    // Before the handlers run: they may answer at once.
    m_digAccessPending = true;
    m_isAboutToShow = true;
    const Coming coming(*this);
    const auto done = qScopeGuard([self = QPointer(this)] {
        if (self)
            self->m_isAboutToShow = false;
    });
    ask(&E::aboutToShow);
}

void QtMenu2::slotAboutToHide()
{
    releaseParent();
    releaseFreeze();
}

// Helpers -----------------------------------------------------------------------------------------

template <class Function>
void QtMenu2::changeLimits(Function&& change)
{
    if (!m_isShrunk) {
        change();
        return;
    }
    const QtEventBlocker blocker(*this, {WidgetEvent::Resize});
    restoreSize();
    change();
    shrink();
}

void QtMenu2::addSubMenu(const QString& title, VXMenu2* menu, CallPlace where)
{
    withPeerOf<QtMenu2>(menu, [&](QtMenu2* peer) {
        // Qt follows the entries down, and would not come to an end.
        if (!peer || holds(peer, this)) {
            ignored(*this, Reason::HoldsThis, where);
            return;
        }
        peer->setTitle(title);
        addMenu(peer);
    });
}

void QtMenu2::removeItems()
{
    // Qt deletes what belongs to the menu; the peers among them have owners of their own.
    for (QAction* action : actions()) {
        if (action->parent() == this && peerOf(action))
            removeAction(action);
    }
    QMenu::clear();
}

void QtMenu2::setVisible(bool visible)
{
    std::optional<Coming> coming;
    if (visible && !m_isMoving) {
        coming.emplace(*this);
        layOver(coming->outer());
    }
    QtWidget2Shim::setVisible(visible);
}

void QtMenu2::completeHide()
{
    if (!m_isHideOpen || isVisible())
        return;
    QHideEvent event;
    hideEvent(&event);
}

void QtMenu2::shrink()
{
    // A menu that is still waiting keeps the limits that it had before.
    if (maximumSize() != OnePixel) {
        m_savedMaximumSize = maximumSize();
        m_savedMinimumSize = minimumSize();
    }
    m_isShrunk = true;
    setMinimumSize(OnePixel);
    setMaximumSize(OnePixel);
    setUpdatesEnabled(false);
}

void QtMenu2::restoreSize()
{
    if (!std::exchange(m_isShrunk, false))
        return;
    setMaximumSize(m_savedMaximumSize);
    setMinimumSize(m_savedMinimumSize);
}

QSize QtMenu2::sizeHint() const
{
    // Qt asks for each item that is added to a visible menu, and measures all of them to answer.
    return m_isShrunk ? OnePixel : QMenu::sizeHint();
}

void QtMenu2::closeQuietly()
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Hide});
    hide();
    setUpdatesEnabled(true);
}

} // namespace VOXI
