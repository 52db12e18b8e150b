// The part of QtWindow2 that is about dock widgets, and about saving where they and tool bars are.

#include "../kernel/qtignored.h"
#include "../kernel/qtsavedstate.h"
#include "../kernel/qtsavedtext.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/containers/qtdockwidget2.h"
#include "voxi2_qt/containers/qtwindow2.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QLayout>
#include <QPointer>
#include <QSet>
#include <QToolBar>
#include <QWindow>

#include <algorithm>
#include <list>
#include <utility>

namespace VOXI {

namespace {

constexpr char LayoutKind[] = "voxi-layout";

/// What happens to a dock widget or tool bar that the program puts elsewhere.
constexpr std::initializer_list<WidgetEvent> PlacingEvents = {
    WidgetEvent::Show, WidgetEvent::Hide, WidgetEvent::Move, WidgetEvent::Resize};

struct Corner
{
    DockCorner m_corner;
    Qt::Corner m_qtCorner;
    DockArea m_side;
    DockArea m_end;
};

constexpr Corner s_corners[] = {
    {DockCorner::TopLeft, Qt::TopLeftCorner, DockArea::Left, DockArea::Top},
    {DockCorner::TopRight, Qt::TopRightCorner, DockArea::Right, DockArea::Top},
    {DockCorner::BottomLeft, Qt::BottomLeftCorner, DockArea::Left, DockArea::Bottom},
    {DockCorner::BottomRight, Qt::BottomRightCorner, DockArea::Right, DockArea::Bottom},
};

} // namespace

/// Gives the docked tool bars and dock widgets different object names while Qt saves or restores
/// their places, which it knows by these names. Qt would also bring in what is not docked, be it
/// removed or in the window as something else: while it restores, such get names other than
/// `saved`.
class QtWindow2::LayoutNames
{
public:
    explicit LayoutNames(QtWindow2& window, const QSet<QString>& saved = {})
    {
        name(window, window.m_dockedBars, QStringLiteral("tool bar %1"));
        name(window, window.m_dockedPanes, QStringLiteral("dock widget %1"));
        for (QObject* child : window.children()) {
            auto* const widget = qobject_cast<QWidget*>(child);
            if (widget && isDockable(*widget) && !window.isDocked(*widget))
                rename(widget, unused(saved));
        }
    }

    ~LayoutNames()
    {
        for (auto renamed = m_renamed.rbegin(); renamed != m_renamed.rend(); ++renamed) {
            if (renamed->first)
                renamed->first->setObjectName(renamed->second);
        }
    }

    LayoutNames(const LayoutNames&) = delete;
    LayoutNames& operator=(const LayoutNames&) = delete;

private:
    void name(const QtWindow2& window, const Docked& docked, const QString& pattern)
    {
        for (std::size_t i = 0; i < docked.size(); ++i) {
            QWidget* widget = docked[i];
            if (!widget || widget->parentWidget() != &window)
                continue;
            const QString own = widget->objectName();
            QString unique = own;
            if (own.isEmpty() || m_names.contains(own)) {
                unique = pattern.arg(i + 1) + own;
                rename(widget, unique);
            }
            m_names.insert(unique);
        }
    }

    void rename(QWidget* widget, const QString& name)
    {
        m_renamed.emplace_back(widget, widget->objectName());
        widget->setObjectName(name);
    }

    QString unused(const QSet<QString>& saved)
    {
        QString name;
        do {
            name = QStringLiteral("not docked %1").arg(++m_lastUnused);
        } while (saved.contains(name) || m_names.contains(name));
        return name;
    }

    static bool isDockable(const QWidget& widget)
    {
        return qobject_cast<const QDockWidget*>(&widget) || qobject_cast<const QToolBar*>(&widget);
    }

    QSet<QString> m_names;
    int m_lastUnused = 0;
    std::vector<std::pair<QPointer<QWidget>, QString>> m_renamed; // some of them twice
};

/// The window that it belongs to keeps the focus. Qt passes the attribute on, as a property of its
/// own, when it makes the QWindow. One that there is already can be told by that property alone:
/// flags of windows that take no focus would keep the user from typing into the pane, too.
void showWithoutActivating(QDockWidget& pane)
{
    const auto tell = [&pane](bool isWithout) {
        pane.setAttribute(Qt::WA_ShowWithoutActivating, isWithout);
        if (QWindow* const window = pane.windowHandle())
            window->setProperty("_q_showWithoutActivating", isWithout);
    };
    tell(true);
    const QPointer<QDockWidget> self(&pane);
    pane.show();
    if (self)
        tell(false);
}

/// Lays a window out that nobody has seen yet, for as long as one lives: until then panes have no
/// sizes, and would come back one on top of the other.
class QtWindow2::LaidOut
{
public:
    explicit LaidOut(QtWindow2& window)
        : m_window(window),
          m_scope(&window),
          m_before(window.size()),
          m_isSized(window.testAttribute(Qt::WA_Resized))
    {
        // Qt's mark of what has not been told its size.
        if (!window.testAttribute(Qt::WA_PendingResizeEvent))
            return;
        for (QWidget* each : window.findChildren<QWidget*>())
            m_blockers.emplace_back(each, PlacingEvents);
        m_blockers.emplace_back(&window, PlacingEvents);
        if (!m_isSized)
            window.resize(window.sizeHint().expandedTo(m_before));
        window.layout()->invalidate();
        window.layout()->activate();
    }
    ~LaidOut()
    {
        if (m_window.size() != m_before)
            m_window.resize(m_before);
        m_window.setAttribute(Qt::WA_Resized, m_isSized);
    }
    LaidOut(const LaidOut&) = delete;
    LaidOut& operator=(const LaidOut&) = delete;

private:
    QtWindow2& m_window;
    const QtDockWidget2::ProgramScope m_scope;
    std::list<QtEventBlocker> m_blockers;
    const QSize m_before;
    const bool m_isSized;
};

// Requests ----------------------------------------------------------------------------------------

void QtWindow2::doAddDockWidget(VXDockWidget2* dock, DockArea area)
{
    withDockOf(dock, [&](QtDockWidget2& peer) {
        const Qt::DockWidgetArea side = VX2Qt(area);
        placeDock(peer, [&] {
            addDockWidget(side == Qt::NoDockWidgetArea ? Qt::LeftDockWidgetArea : side, &peer);
        });
    });
}

void QtWindow2::doRemoveDockWidget(VXDockWidget2* dock)
{
    withDockOf(dock, [&](QtDockWidget2& peer) {
        if (!isDocked(peer)) {
            ignored(*this, Reason::NotInThis);
            return;
        }
        const QtDockWidget2::ProgramScope scope(this);
        const QtEventBlocker blocker(peer, PlacingEvents);
        peer.undock();
    });
}

DockArea QtWindow2::doGetDockArea(VXDockWidget2* dock)
{
    DockArea area = DockArea::None;
    withDockOf(dock, [&](QtDockWidget2& peer) { area = Qt2VX(dockWidgetArea(&peer)); });
    return area;
}

void QtWindow2::doTabifyDockWidget(VXDockWidget2* first, VXDockWidget2* second)
{
    dockBeside(first, second, [this](QtDockWidget2& place, QtDockWidget2& newcomer) {
        tabifyDockWidget(&place, &newcomer);
    });
}

void QtWindow2::doSplitDockWidget(VXDockWidget2* first, VXDockWidget2* second,
                                  Orientation orientation)
{
    dockBeside(first, second, [&](QtDockWidget2& place, QtDockWidget2& newcomer) {
        splitDockWidget(&place, &newcomer, VX2Qt(orientation));
    });
}

void QtWindow2::doRaiseDockWidget(VXDockWidget2* dock)
{
    withDockOf(dock, [&](QtDockWidget2& peer) {
        if (!isDocked(peer)) {
            ignored(*this, Reason::NotInThis);
            return;
        }
        const QtDockWidget2::ProgramScope scope(this);
        const QtEventBlocker blocker(peer, PlacingEvents);
        peer.show();
        peer.raise();
    });
}

std::string QtWindow2::doSaveLayout()
{
    const LayoutNames names(*this);
    const LaidOut laidOut(*this);
    return toSavedText(LayoutKind, saveState());
}

bool QtWindow2::doRestoreLayout(const std::string& layout)
{
    const auto bytes = fromSavedText(LayoutKind, layout);
    const auto names = bytes ? namesInSavedLayout(*bytes) : std::nullopt;
    if (!names)
        return false;
    const QtDockWidget2::ProgramScope scope(this);
    std::list<QtEventBlocker> blockers;
    for (const Docked* docked : {&m_dockedBars, &m_dockedPanes}) {
        for (const QWidget* widget : *docked)
            blockers.emplace_back(widget, PlacingEvents);
    }
    endDrags();
    const LayoutNames namesForQt(*this, *names);
    m_wantedSizes.clear();
    if (!restoreState(*bytes))
        return false;
    m_waitingPanes.clear();
    // Qt shows what stands alone at once; there it would be before its window, and in its way.
    for (QWidget* widget : Docked(m_dockedPanes)) {
        auto* const pane = qobject_cast<QDockWidget*>(widget);
        if (!isVisible() && pane && pane->isFloating() && !pane->isHidden()) {
            pane->hide();
            m_waitingPanes.emplace_back(pane);
        }
    }
    return true;
}

void QtWindow2::doSetDockSize(VXDockWidget2* dock, int size, Orientation orientation)
{
    withDockOf(dock, [&](QtDockWidget2& peer) {
        if (!isDocked(peer)) {
            ignored(*this, Reason::NotInThis);
            return;
        }
        const Qt::Orientation along = VX2Qt(orientation);
        const int pixels = std::clamp(size, 0, Farthest);
        if (m_wasShown)
            resizeDocks({&peer}, {pixels}, along);
        else
            m_wantedSizes.push_back({&peer, pixels, along});
    });
}

void QtWindow2::doSetDockCorner(DockCorner corner, DockArea area)
{
    for (const Corner& each : s_corners) {
        if (each.m_corner == corner && (area == each.m_side || area == each.m_end)) {
            setCorner(each.m_qtCorner, VX2Qt(area));
            return;
        }
    }
    ignored(*this, "that side has no such corner");
}

DockArea QtWindow2::doGetDockCorner(DockCorner corner)
{
    for (const Corner& each : s_corners) {
        if (each.m_corner == corner)
            return Qt2VX(this->corner(each.m_qtCorner));
    }
    return DockArea::None;
}

void QtWindow2::doSetDockNesting(bool nesting) { setDockNestingEnabled(nesting); }
bool QtWindow2::doIsDockNesting() { return isDockNestingEnabled(); }

void QtWindow2::doSetDockTabPosition(DockArea area, VOXI::TabPosition position)
{
    if (const Qt::DockWidgetArea side = VX2Qt(area); side != Qt::NoDockWidgetArea)
        setTabPosition(side, VX2Qt(position));
}

VOXI::TabPosition QtWindow2::doGetDockTabPosition(DockArea area)
{
    const Qt::DockWidgetArea side = VX2Qt(area);
    return side == Qt::NoDockWidgetArea ? VOXI::TabPosition::South : Qt2VX(tabPosition(side));
}

std::vector<VXDockWidget2*> QtWindow2::doGetDockTabs(VXDockWidget2* dock)
{
    std::vector<VXDockWidget2*> tabs;
    withDockOf(dock, [&](QtDockWidget2& peer) {
        const QList<QDockWidget*> others =
            isDocked(peer) ? tabifiedDockWidgets(&peer) : QList<QDockWidget*>();
        if (!others.isEmpty())
            tabs.push_back(dock);
        for (const QDockWidget* each : others) {
            if (auto* const other = abstractObjectOf<VXDockWidget2>(each))
                tabs.push_back(other);
        }
    });
    return tabs;
}

// Helpers -----------------------------------------------------------------------------------------

/// Calls `function` with the peer of a live dock widget, unless the window lies in it.
template <class Function>
void QtWindow2::withDockOf(VXDockWidget2* dock, Function&& function)
{
    withPeerOf<QtDockWidget2>(dock, [&](QtDockWidget2* peer) {
        if (peer && !isWithin(peer, this))
            function(*peer);
    });
}

template <class Function>
void QtWindow2::dockBeside(VXDockWidget2* first, VXDockWidget2* second, Function&& function,
                           CallPlace where)
{
    withDockOf(first, [&](QtDockWidget2& place) {
        if (first == second || !isDocked(place)) {
            ignored(*this, first == second ? Reason::HoldsThis : Reason::NotInThis, where);
            return;
        }
        withDockOf(second, [&](QtDockWidget2& newcomer) {
            placeDock(newcomer, [&] { function(place, newcomer); });
        });
    });
}

/// Has `function` dock the widget, which may be docked elsewhere, and shows it there.
template <class Function>
void QtWindow2::placeDock(QtDockWidget2& dock, Function&& function)
{
    const QtDockWidget2::ProgramScope scope(this);
    const QtEventBlocker blocker(dock, PlacingEvents);
    dock.endDrag();
    dock.undock();
    endAside(&dock, false);
    function();
    dock.show();
    remember(m_dockedPanes, &dock);
}

/// The window comes to the screen: what waited for that is done.
void QtWindow2::finishFirstShow()
{
    m_wasShown = true;
    for (const WantedSize& each : std::exchange(m_wantedSizes, {})) {
        if (each.m_dock && isDocked(*each.m_dock))
            resizeDocks({each.m_dock}, {each.m_size}, each.m_orientation);
    }
}

void QtWindow2::showWaitingPanes()
{
    const QtDockWidget2::ProgramScope scope(this);
    for (const QPointer<QDockWidget>& each : std::exchange(m_waitingPanes, {})) {
        if (!each || !isDocked(*each) || !each->isFloating())
            continue;
        const QtEventBlocker blocker(each, PlacingEvents);
        showWithoutActivating(*each);
    }
}

bool QtWindow2::isDocked(const QWidget& widget) const
{
    // Qt only compares.
    auto* const candidate = const_cast<QWidget*>(&widget);
    if (auto* pane = qobject_cast<QDockWidget*>(candidate))
        return dockWidgetArea(pane) != Qt::NoDockWidgetArea;
    auto* const bar = qobject_cast<QToolBar*>(candidate);
    return bar && toolBarArea(bar) != Qt::NoToolBarArea;
}

void QtWindow2::endDrags()
{
    for (const Docked& docked : {m_dockedPanes, m_dockedBars}) { // copies: handlers may dock
        for (const QWidget* widget : docked)
            VOXI::endDrag(widget);
    }
}

void QtWindow2::remember(Docked& docked, QWidget* widget)
{
    if (std::find(docked.begin(), docked.end(), widget) != docked.end())
        return;
    // The place of one that has gone, or those that come and go would add up.
    const auto free = std::find(docked.begin(), docked.end(), nullptr);
    if (free != docked.end())
        *free = widget;
    else
        docked.emplace_back(widget);
}

} // namespace VOXI
