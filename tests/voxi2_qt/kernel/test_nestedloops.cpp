// Handlers that run an event loop of their own in which what they handle is destroyed: whatever has
// code on the stack stays until that has returned.

#include "kinds.h"
#include "support/reportederrors.h"
#include "support/waitfor.h"
#include "support/watchdog.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDragEnterEvent>
#include <QEventLoop>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>
#include <ostream>
#include <string>

namespace VOXI {
namespace {

/// Runs a loop as a dialog would, has `act` run in it, and does not come back before the deletions
/// that are due.
void runLoop(const std::function<void()>& act)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        act();
        auto* const last = new QObject;
        QObject::connect(last, &QObject::destroyed, &loop, &QEventLoop::quit);
        last->deleteLater();
    });
    loop.exec();
}

QObject* qtObject(const VXObject2* object) { return qObjectOf(lookup(object)); }

void click(QWidget* widget, QPoint at = QPoint(5, 5))
{
    QTest::mouseClick(widget, Qt::LeftButton, {}, at);
}

using Handler = std::function<void()>;

/// How an event comes about: makes its sender inside `parent`, connects the handler, and acts as
/// the user.
struct Case
{
    const char* m_name;
    VXObject2* (*m_make)(VXWidget2* parent, TROV::Listener& listener, const Handler& handler);
    void (*m_act)(QObject* sender);

    friend std::ostream& operator<<(std::ostream& out, const Case& which)
    {
        return out << which.m_name;
    }
};

template <class Object, auto Signal>
VXObject2* make(VXWidget2* parent, TROV::Listener& listener, const Handler& handler)
{
    auto* const object = new Object(parent);
    (object->*Signal)().connect(&listener, handler);
    return object;
}

template <auto Signal>
VXObject2* makeTarget(VXWidget2* parent, TROV::Listener& listener, const Handler& handler)
{
    auto* const panel = new VXPanel2(parent);
    auto* const delegate = new VXDragDelegate2(panel);
    panel->setAcceptDrops(true);
    panel->setDragDelegate(delegate);
    delegate->entered().connect(&listener, [](const VXDragEvent2& e) { e.acceptProposed(); });
    (delegate->*Signal)().connect(&listener, handler);
    return panel;
}

VXObject2* makeTabs(VXWidget2* parent, TROV::Listener& listener, const Handler& handler)
{
    auto* const tabs = new VXTabContainer2(parent);
    for (int i = 0; i < 2; ++i)
        tabs->addTab(new VXTab2(tabs));
    tabs->currentTabChanged().connect(&listener, handler);
    return tabs;
}

/// The handler is one of a child of the object that Qt works on.
VXObject2* makeHolder(VXWidget2* parent, TROV::Listener& listener, const Handler& handler)
{
    auto* const holder = new VXPanel2(parent);
    auto* const child = new VXButton2(holder);
    child->hidden().connect(&listener, handler);
    return holder;
}

/// The handler is that of an action, which goes with the parent, not with what shows it.
VXAction2* makeAction(VXWidget2* parent, TROV::Listener& listener, const Handler& handler)
{
    auto* const action = new VXAction2(parent);
    action->setLabel("entry");
    action->triggered().connect(&listener, handler);
    return action;
}

VXObject2* makeMenu(VXWidget2* parent, TROV::Listener& listener, const Handler& handler)
{
    auto* const menu = new VXMenu2(parent);
    menu->addAction(makeAction(parent, listener, handler));
    return menu;
}

VXObject2* makeActionButton(VXWidget2* parent, TROV::Listener& listener, const Handler& handler)
{
    auto* const button = new VXToolButton2(parent);
    button->setDefaultAction(makeAction(parent, listener, handler));
    button->resize({50, 20});
    return button;
}

QWidget* widgetOf(QObject* object) { return static_cast<QWidget*>(object); }

/// Calls a member function of the sender.
template <auto Member>
void act(QObject* sender)
{
    const auto call = [sender]<class Q, class R>(R (Q::*member)()) {
        (static_cast<Q*>(sender)->*member)();
    };
    call(Member);
}

void clickWidget(QObject* sender) { click(widgetOf(sender)); }

template <class Event, class... Arguments>
void send(QObject* to, Arguments&&... arguments)
{
    Event event(std::forward<Arguments>(arguments)...);
    QApplication::sendEvent(to, &event);
}

void mouse(QWidget* widget, QEvent::Type type, QPointF at = QPointF(3, 3))
{
    send<QMouseEvent>(widget, type, at, widget->mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
}

void press(QObject* object)
{
    auto* const area = qobject_cast<QAbstractScrollArea*>(object);
    mouse(area ? area->viewport() : widgetOf(object), QEvent::MouseButtonPress);
}

void dragOver(QObject* target)
{
    QMimeData data;
    data.setText(QStringLiteral("x"));
    send<QDragEnterEvent>(target, QPoint(1, 2), Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    send<QDragLeaveEvent>(target);
}

const Case s_cases[] = {
    {"press", &make<VXButton2, &VXButton2::mousePressed>, &press},
    {"areaPress", &make<VXScrollView2, &VXScrollView2::mousePressed>, &press},
    {"release", &make<VXPanel2, &VXPanel2::mouseReleased>,
     [](QObject* sender) { mouse(widgetOf(sender), QEvent::MouseButtonRelease); }},
    {"click", &make<VXButton2, &VXButton2::clicked>, &clickWidget},
    {"clickByRequest", &make<VXButton2, &VXButton2::clicked>, &act<&QAbstractButton::click>},
    {"toggle", &make<VXCheckBox2, &VXCheckBox2::toggled>, &act<&QAbstractButton::toggle>},
    {"toolButton", &make<VXToolButton2, &VXToolButton2::clicked>, &clickWidget},
    {"close", &make<VXDialog2, &VXDialog2::closing>, &act<&QWidget::close>},
    {"finish", &make<VXDialog2, &VXDialog2::finished>, &act<&QDialog::reject>},
    {"contextMenu", &make<VXPanel2, &VXPanel2::contextMenuRequested>,
     [](QObject* sender) {
         send<QContextMenuEvent>(sender, QContextMenuEvent::Mouse, QPoint(3, 3), QPoint(3, 3));
     }},
    {"focus", &make<VXButton2, &VXButton2::focusGained>,
     [](QObject* sender) {
         widgetOf(sender)->clearFocus();
         widgetOf(sender)->setFocus(Qt::MouseFocusReason);
     }},
    {"hide", &make<VXPanel2, &VXPanel2::hidden>, &act<&QWidget::hide>},
    {"hideOfAChild", &makeHolder, &act<&QWidget::hide>},
    {"hideOfADock", &make<VXDockWidget2, &VXDockWidget2::hidden>, &act<&QWidget::hide>},
    {"move", &make<VXPanel2, &VXPanel2::moved>,
     [](QObject* sender) { widgetOf(sender)->move(33, 44); }},
    {"drag", &make<VXPanel2, &VXPanel2::dragDetected>,
     [](QObject* sender) {
         press(sender);
         mouse(widgetOf(sender), QEvent::MouseMove, QPointF(80, 2));
     }},
    {"dragInto", &makeTarget<&VXDragDelegate2::entered>, &dragOver},
    {"dragOut", &makeTarget<&VXDragDelegate2::left>, &dragOver},
    {"tab", &makeTabs,
     [](QObject* sender) { static_cast<QTabWidget*>(sender)->setCurrentIndex(1); }},
    {"tabClosed", &make<VXTabContainer2, &VXTabContainer2::tabCloseRequested>,
     [](QObject* sender) {
         auto* const tabs = static_cast<QTabWidget*>(sender);
         auto* const owner = static_cast<VXTabContainer2*>(abstractObjectOf(sender));
         owner->addTab(new VXTab2(owner));
         Q_EMIT tabs->tabCloseRequested(0);
     }},
    {"toolTip", &make<VXToolTipWindow2, &VXToolTipWindow2::clicked>, &clickWidget},
    {"toolTipHides", &make<VXToolTipWindow2, &VXToolTipWindow2::hidden>, &act<&QWidget::hide>},
    {"action", &make<VXAction2, &VXAction2::triggered>, &act<&QAction::trigger>},
    {"actionOfAButton", &makeActionButton, &clickWidget},
    {"menuEntry", &makeMenu,
     [](QObject* sender) {
         auto* const menu = static_cast<QMenu*>(sender);
         menu->popup(QPoint(10, 10));
         click(menu, menu->actionGeometry(menu->actions().first()).center());
     }},
    {"menuOpens", &make<VXMenu2, &VXMenu2::aboutToShow>,
     [](QObject* sender) { static_cast<QMenu*>(sender)->popup(QPoint(10, 10)); }},
};

class NestedLoops : public testing::TestWithParam<std::tuple<Case, int>>
{
protected:
    ~NestedLoops() override
    {
        if (VXObject::isObjectValid(m_windowId))
            delete m_window;
        runDeletions();
    }

    VXWindow2* m_window = new VXWindow2;
    const unsigned m_windowId = m_window->id();
    TROV::Listener m_listener;
};

TEST_P(NestedLoops, keepWhatTheHandlerUses)
{
    const auto& which = std::get<0>(GetParam());
    const auto victimAt = std::get<1>(GetParam());
    QApplication::setStartDragDistance(10);
    m_window->resize({300, 200});
    auto* const parent = new VXPanel2(m_window);
    parent->resize({200, 150});
    VXObject2* sender = nullptr;
    QPointer<QObject> qtSender;
    QPointer<QObject> qtVictim;
    int calls = 0;
    bool isShown = false; // that causes events as well
    sender = which.m_make(parent, m_listener, [&] {
        if (!isShown || ++calls > 1)
            return;
        VXObject2* const victims[] = {sender, parent, m_window};
        VXObject2* const victim = victims[victimAt];
        qtVictim = qtObject(victim);
        runLoop([&] { delete victim; });
        ASSERT_TRUE(qtVictim) << "its code is on the stack";
        EXPECT_TRUE(qtSender);
        const auto* const widget = qobject_cast<QWidget*>(qtVictim);
        EXPECT_FALSE(widget && widget->isVisible()) << "but nobody sees it any more";
    });
    qtSender = qtObject(sender);
    parent->show();
    if (auto* const widget = dynamic_cast<VXWidget2*>(sender);
        widget && !dynamic_cast<VXMenu2*>(sender)) {
        widget->setFocusPolicy(FocusPolicy::Strong);
        widget->show();
    }
    m_window->show();
    m_window->setActiveWindow();
    turn();
    isShown = true;
    which.m_act(qtSender);
    EXPECT_EQ(calls, 1);
    runDeletions();
    EXPECT_FALSE(qtVictim) << "it does not stay for ever";
}

std::string nameOf(const testing::TestParamInfo<NestedLoops::ParamType>& tried)
{
    const char* const victims[] = {"Sender", "Parent", "Window"};
    return std::string(std::get<0>(tried.param).m_name) + victims[std::get<1>(tried.param)];
}

INSTANTIATE_TEST_SUITE_P(All, NestedLoops,
                         testing::Combine(testing::ValuesIn(s_cases), testing::Values(0, 1, 2)),
                         &nameOf);

using NestedLoop = testing::Test;

TEST_F(NestedLoop, endsOnlyWhatNoHandlerUses)
{
    // Two handlers on the stack: what is older than either may be on Qt's way, as the neighbours of
    // a widget are while it is shown; what is made in a handler's loop goes at once.
    VXWindow2 window;
    window.show();
    VXWindow2 otherWindow;
    auto* const outer = new VXPanel2(&window);
    auto* const inner = new VXPanel2(&otherWindow);
    auto* const neighbour = new VXPanel2(&window);
    auto* const elsewhere = new VXPanel2;
    const QPointer<QWidget> qtOuter(qt(*outer)), qtInner(qt(*inner)), qtNeighbour(qt(*neighbour)),
        qtElsewhere(qt(*elsewhere));
    TROV::Listener listener;
    outer->show();
    inner->show();
    otherWindow.show();
    inner->moved().connect(&listener, [&] {
        QPointer<QWidget> late;
        QPointer<QWidget> lateHolder;
        runLoop([&] {
            auto* const fresh = new VXPanel2(&window);
            auto* const holder = new VXPanel2(&window);
            late = qt(*fresh);
            lateHolder = qt(*holder);
            neighbour->setParent(holder);
            for (VXPanel2* each : {fresh, holder, outer, inner, elsewhere})
                delete each;
        });
        EXPECT_FALSE(late) << "not in use";
        EXPECT_TRUE(lateHolder) << "what it holds is older";
        EXPECT_TRUE(qtOuter && qtInner && qtNeighbour && qtElsewhere);
    });
    outer->moved().connect(&listener, [&] {
        runLoop([&] { qtInner->move(5, 5); });
        EXPECT_TRUE(qtOuter && qtNeighbour && qtElsewhere);
    });
    qtOuter->move(7, 7);
    runDeletions();
    EXPECT_FALSE(qtOuter || qtInner || qtNeighbour || qtElsewhere);
}

TEST_F(NestedLoop, aHandlerMayThrowBehindIt)
{
    VXWindow2 window;
    window.show();
    auto* const panel = new VXPanel2(&window);
    const QPointer<QWidget> alive(qt(*panel));
    TROV::Listener listener;
    TROV::ReportedErrors errors;
    panel->show();
    panel->moved().connect(&listener, [&] {
        runLoop([&] { delete panel; });
        EXPECT_TRUE(alive);
        throw std::runtime_error("handler");
    });
    alive->move(3, 4);
    EXPECT_EQ(errors.take(), std::vector<std::string>{"handler"});
    runDeletions();
    EXPECT_FALSE(alive);
}

TEST_F(NestedLoop, handlersSeeDoneWhatTheProgramAskedFor)
{
    // Qt hides what moves, and what is in it; a handler that ran there could put the goal into it.
    const Watchdog watchdog(std::chrono::seconds(20), "two widgets in each other");
    VXWindow2 window;
    auto* const goal = new VXSplitter2(&window);
    auto* const moved = new VXPanel2(&window);
    auto* const child = new VXButton2(moved);
    for (VXWidget2* each : std::initializer_list<VXWidget2*>{goal, moved, child, &window})
        each->show();
    TROV::Listener listener;
    int calls = 0;
    child->hidden().connect(&listener, [&] {
        ++calls;
        EXPECT_EQ(goal->widgetIndex(moved), 0);
        runLoop([&] { goal->setParent(moved); });
    });
    goal->addWidget(moved);
    EXPECT_EQ(calls, 1);
}

TEST_F(NestedLoop, theFocusMayGoToAWindowThatEnds)
{
    VXWindow2 first;
    VXWindow2 second;
    auto* const holder = new VXPanel2(&first);
    auto* const button = new VXButton2(&first);
    button->show();
    first.show();
    second.show();
    qt(first)->activateWindow();
    turn();
    qt(*button)->setFocus();
    TROV::Listener listener;
    std::string calls;
    button->focusLost().connect(&listener, [&] {
        calls += "left ";
        runLoop([&] { second.setParent(holder); }); // its window is no more
    });
    button->mousePressed().connect(&listener, [&] { calls += "pressed "; });
    qt(second)->activateWindow();
    waitFor([&] { return !calls.empty(); });
    click(qt(*button));
    EXPECT_EQ(calls, "left pressed ");
}

TEST_F(NestedLoop, survivesThatAHostDeletesTheSenderAtOnce)
{
    for (const Case& which : {s_cases[0], s_cases[1]}) {
        SCOPED_TRACE(which.m_name);
        VXWindow2 window;
        TROV::Listener listener;
        QPointer<QObject> alive;
        VXObject2* const sender = which.m_make(&window, listener, [&] { delete alive; });
        alive = qtObject(sender);
        window.show();
        press(alive);
        EXPECT_FALSE(alive);
    }
}

} // namespace
} // namespace VOXI
