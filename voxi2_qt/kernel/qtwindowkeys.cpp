#include "qtwindowkeys.h"

#include "voxi2_qt/kernel/qtobject2.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>
#include <QSplitterHandle>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>

#include <algorithm>
#include <tuple>
#include <utility>

namespace VOXI {

namespace {

/// Where the focus was before it came to a tool bar or handle.
QPointer<QWidget>& former()
{
    static QPointer<QWidget> s_former;
    return s_former;
}

bool isUsable(const QWidget& widget) { return widget.isVisible() && widget.isEnabled(); }

/// Without what remembers the way back by itself.
bool isAside(const QWidget* widget)
{
    return qobject_cast<const QSplitterHandle*>(widget)
           || (widget && qobject_cast<const QToolBar*>(widget->parentWidget())
               && widget->focusPolicy() == Qt::NoFocus);
}

void give(QWidget& target, bool isBack)
{
    QWidget* const before = QApplication::focusWidget();
    if (before && !isAside(before) && isAside(&target))
        former() = before;
    if (!target.isActiveWindow())
        target.activateWindow();
    target.window()->setAttribute(Qt::WA_KeyboardFocusChange); // so that the style shows it
    target.setFocus(isBack ? Qt::BacktabFocusReason : Qt::TabFocusReason);
}

/// The place behind, or before, one of `count`, and from the last to the first.
qsizetype nextPlace(qsizetype place, qsizetype count, bool isBack)
{
    return place < 0 ? (isBack ? count - 1 : 0) : (place + (isBack ? count - 1 : 1)) % count;
}

// Tool bars ---------------------------------------------------------------------------------------

/// The bar that a button belongs to, with those inside of it.
QToolBar* barAround(const QWidget* widget)
{
    QToolBar* bar = nullptr;
    for (QWidget* each = widget ? widget->parentWidget() : nullptr;
         auto* const outer = qobject_cast<QToolBar*>(each); each = each->parentWidget())
        bar = outer;
    return bar && peerOf(bar) ? bar : nullptr;
}

void collectStops(QToolBar& bar, QWidgetList& stops)
{
    const auto add = [&](QWidget* widget) {
        if (!widget || !isUsable(*widget))
            return;
        if (auto* const inner = qobject_cast<QToolBar*>(widget))
            collectStops(*inner, stops);
        else if (qobject_cast<QToolButton*>(widget) || (widget->focusPolicy() & Qt::TabFocus))
            stops.append(widget);
    };
    for (QAction* const action : bar.actions())
        add(bar.widgetForAction(action));
    // Behind which is what there is no room for.
    add(bar.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"),
                                    Qt::FindDirectChildrenOnly));
}

QWidgetList stopsIn(QToolBar& bar)
{
    QWidgetList stops;
    collectStops(bar, stops);
    return stops;
}

void openMenu(QToolButton& button)
{
    // It runs until the menu is closed.
    QMetaObject::invokeMethod(&button, &QToolButton::showMenu, Qt::QueuedConnection);
}

/// Arrows go on in the bar and open menus across it, Escape goes back.
bool useInBar(QToolButton& button, QToolBar& bar, const QKeyEvent& event)
{
    const bool isRow = bar.orientation() == Qt::Horizontal;
    const bool isMirrored = isRow && bar.isRightToLeft();
    const int key = event.key();
    const int ahead = isRow ? (isMirrored ? Qt::Key_Left : Qt::Key_Right) : Qt::Key_Down;
    const int back = isRow ? (isMirrored ? Qt::Key_Right : Qt::Key_Left) : Qt::Key_Up;
    const QWidgetList stops = stopsIn(bar);
    const qsizetype place = stops.indexOf(&button);
    if (place < 0)
        return false; // it is disabled
    if (key == Qt::Key_Escape && former()) {
        focusFormer();
    } else if (key == ahead || key == back) {
        give(*stops[nextPlace(place, stops.size(), key == back)], key == back);
    } else if (key == Qt::Key_Home || key == Qt::Key_End) {
        give(key == Qt::Key_Home ? *stops.first() : *stops.last(), key == Qt::Key_Home);
    } else if (key >= Qt::Key_Left && key <= Qt::Key_Down) {
        if (button.menu())
            openMenu(button);
    } else {
        return false;
    }
    return true;
}

/// What must not get to the button, which would do something else.
bool useOnButton(QToolButton& button, const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    QToolBar* const bar = barAround(&button);
    if (modifiers == Qt::AltModifier && event.key() == Qt::Key_Down && button.menu()
        && (bar || peerOf(&button))) {
        openMenu(button);
        return true;
    }
    return bar && !peerOf(&button) && modifiers == Qt::NoModifier && useInBar(button, *bar, event);
}

// Parts of windows --------------------------------------------------------------------------------

QMainWindow* mainWindowOf(QWidget& window)
{
    if (auto* const main = qobject_cast<QMainWindow*>(&window))
        return main;
    return qobject_cast<QDockWidget*>(&window) ? qobject_cast<QMainWindow*>(window.parentWidget())
                                               : nullptr;
}

/// As they are read, those that float last. Panes behind others in their tabs lie outside.
QWidgetList partsOf(QMainWindow& window)
{
    QWidgetList parts;
    for (QObject* const each : window.children()) {
        auto* const widget = qobject_cast<QWidget*>(each);
        const bool isPart =
            widget
            && (qobject_cast<QToolBar*>(widget) || qobject_cast<QDockWidget*>(widget)
                || widget == window.centralWidget());
        if (isPart && widget->isVisible()
            && (widget->isWindow() || window.rect().intersects(widget->geometry())))
            parts.append(widget);
    }
    std::ranges::stable_sort(parts, [](const QWidget* one, const QWidget* other) {
        return std::make_tuple(one->isWindow(), one->y(), one->x())
               < std::make_tuple(other->isWindow(), other->y(), other->x());
    });
    return parts;
}

/// Where the focus was in it last, or where Tab comes to first; null if nothing there takes it.
QWidget* stopIn(QWidget& part)
{
    QWidget* const last = part.focusWidget();
    if (last && isWithin(&part, last) && isUsable(*last))
        return last;
    if (auto* const bar = qobject_cast<QToolBar*>(&part))
        return stopsIn(*bar).value(0);
    for (QWidget* each = part.nextInFocusChain(); each && each != &part;
         each = each->nextInFocusChain()) {
        if (isWithin(&part, each) && (each->focusPolicy() & Qt::TabFocus) && isUsable(*each))
            return each;
    }
    // A pane has a menu all the same.
    return qobject_cast<QDockWidget*>(&part) && part.isEnabled() ? &part : nullptr;
}

bool goToNextPart(QWidget& window, bool isBack)
{
    QMainWindow* const main = mainWindowOf(window);
    QWidgetList parts = main ? partsOf(*main) : QWidgetList();
    // Windows may be parts of others.
    for (auto* const inner : (main ? main : &window)->findChildren<QMainWindow*>()) {
        if (inner->isVisible() && peerOf(inner))
            parts += partsOf(*inner);
    }
    const QWidget* const focus = QApplication::focusWidget();
    qsizetype place = -1;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (focus && isWithin(parts[i], focus)) // the innermost comes last
            place = i;
    }
    for (qsizetype i = 0; i < parts.size(); ++i) {
        place = nextPlace(place, parts.size(), isBack);
        if (QWidget* const stop = stopIn(*parts[place])) {
            give(*stop, isBack);
            return true;
        }
    }
    return false;
}

bool goToNextHandle(QWidget& window, bool isBack)
{
    QWidgetList handles;
    for (auto* const each : window.findChildren<QSplitterHandle*>()) {
        if (peerOf(each->parentWidget()) && isUsable(*each) && each->window() == &window)
            handles.append(each);
    }
    if (handles.isEmpty())
        return false;
    QWidget* const focus = QApplication::focusWidget();
    qsizetype place = handles.indexOf(focus);
    // At first one of those around.
    for (QWidget* outer = focus; place < 0 && outer; outer = outer->parentWidget()) {
        const auto found =
            std::ranges::find(handles, outer, [](QWidget* each) { return each->parentWidget(); });
        if (found != handles.end()) {
            give(**found, isBack);
            return true;
        }
    }
    give(*handles[nextPlace(place, handles.size(), isBack)], isBack);
    return true;
}

bool openMenuBar(QWidget& window)
{
    auto* const main = mainWindowOf(window);
    auto* const bar = main ? qobject_cast<QMenuBar*>(main->menuWidget()) : nullptr;
    if (!bar || !isUsable(*bar))
        return false;
    for (QAction* const each : bar->actions()) {
        if (each->isVisible() && each->isEnabled() && !each->isSeparator()) {
            bar->setActiveAction(each);
            return true;
        }
    }
    return false;
}

/// Of the pane that the focus is in, as if asked for on its title.
bool openPaneMenu()
{
    QWidget* pane = QApplication::focusWidget();
    while (pane && !qobject_cast<QDockWidget*>(pane))
        pane = pane->parentWidget();
    if (!pane || !peerOf(pane))
        return false;
    // Not over what is in it, which may fill it.
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(-1, -1),
                            pane->mapToGlobal(QPoint()));
    QCoreApplication::sendEvent(pane, &asked);
    return true;
}

bool openContextMenu(QWidget& window)
{
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(window.windowHandle(), &asked); // which knows where that is
    return true;
}

bool useInWindow(QWidget& window, const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool isShift = modifiers == Qt::ShiftModifier;
    if (modifiers == (Qt::ControlModifier | Qt::ShiftModifier) && event.key() == Qt::Key_F10)
        return openPaneMenu();
    if (modifiers != Qt::NoModifier && !isShift)
        return false;
    switch (event.key()) {
    case Qt::Key_F6:
        return goToNextPart(window, isShift);
    case Qt::Key_F8:
        return goToNextHandle(window, isShift);
    case Qt::Key_F10:
        return isShift ? openContextMenu(window) : openMenuBar(window);
    default:
        return false;
    }
}

bool isWindowKey(const QKeyEvent& event)
{
    return event.key() == Qt::Key_F6 || event.key() == Qt::Key_F8 || event.key() == Qt::Key_F10;
}

} // namespace

bool passKey(QWidget& receiver, QKeyEvent& event)
{
    // A menu gets the keys of the window that it opened from.
    if (QApplication::activePopupWidget() || QWidget::keyboardGrabber())
        return false;
    if (auto* const button = qobject_cast<QToolButton*>(&receiver))
        return useOnButton(*button, event);
    if (!receiver.isWindow() || !receiver.windowHandle() || !isWindowKey(event)
        || !peerOf(&receiver))
        return false;
    const QPointer<QWidget> window(&receiver);
    static_cast<QObject&>(receiver).event(&event);
    if (window && !event.isAccepted() && !QApplication::activePopupWidget())
        event.setAccepted(useInWindow(receiver, event));
    return true;
}

void focusFormer()
{
    if (QWidget* const target = std::exchange(former(), nullptr); target && isUsable(*target))
        target->setFocus(Qt::BacktabFocusReason);
}

} // namespace VOXI
