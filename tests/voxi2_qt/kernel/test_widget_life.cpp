// The ways in which objects and their peers end, one by one.

#include "probe.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxdragdelegate2.h"
#include "voxi2/kernel/vxfactory2.h"

#include <QApplication>
#include <QLayout>
#include <QPointer>

#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <random>
#include <thread>

namespace VOXI {
namespace {

struct Kind
{
    const char* m_name;
    VXObject2* (*m_make)(VXObject2* parent);
};

template <class Object>
VXObject2* make(VXObject2* parent)
{
    return new Object(parent);
}

const Kind s_widgetKinds[] = {
    {"button", &make<VXButton2>},
    {"panel", &make<VXPanel2>},
    {"text", &make<VXText2>},
    {"window", &make<VXWindow2>},
    {"added kind", &make<VXProbe2>},
    {"added scroll area",
     [](VXObject2* parent) -> VXObject2* { return new VXProbe2(parent, VXProbe2::ScrollArea); }},
};

const Kind s_otherKinds[] = {
    {"layout",
     [](VXObject2* parent) -> VXObject2* {
         return new VXBoxLayout2(static_cast<VXWidget2*>(parent), Direction::TopToBottom);
     }},
    {"drag delegate", &make<VXDragDelegate2>},
};

QObject* qtObject(const VXObject2* object) { return qObjectOf(lookup(object)); }

/// Runs `function` on another thread while this one serves its event loop.
void runElsewhere(const std::function<void()>& function)
{
    std::atomic<bool> done{false};
    std::thread thread([&] {
        function();
        done = true;
    });
    EXPECT_TRUE(waitFor([&] { return done.load(); }));
    thread.join();
}

void press(QWidget* widget, Qt::MouseButton button)
{
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(5, 5), widget->mapToGlobal(QPointF(5, 5)),
                      button, button, {});
    QApplication::sendEvent(widget, &event);
}

void forEachKind(const std::function<void(const Kind&)>& test)
{
    for (const Kind& kind : s_widgetKinds) {
        SCOPED_TRACE(kind.m_name);
        test(kind);
    }
    for (const Kind& kind : s_otherKinds) {
        SCOPED_TRACE(kind.m_name);
        test(kind);
    }
}

TEST(WidgetLife, theAbstractObjectEndsItsPeer)
{
    forEachKind([](const Kind& kind) {
        VXPanel2 parent;
        for (const bool elsewhere : {false, true}) {
            VXObject2* const object = kind.m_make(&parent);
            const unsigned id = object->id();
            const QPointer<QObject> alive(qtObject(object));
            ASSERT_TRUE(alive);
            if (elsewhere) {
                runElsewhere([=] { delete object; });
                EXPECT_TRUE(waitFor([&] { return lookup(id) == nullptr; }));
            } else {
                delete object;
                EXPECT_EQ(lookup(id), nullptr) << "gone from the registry at once";
                EXPECT_TRUE(alive) << "but deleted later: its handlers may be running";
            }
            EXPECT_FALSE(VXObject::isObjectValid(id));
            runDeletions();
            EXPECT_FALSE(alive);
        }
    });
}

TEST(WidgetLife, aFaultOfARequestReachesItsSenderOnAnyThread)
{
    VXProbe2 probe;
    bool thrown = false;
    runElsewhere([&] {
        try {
            probe.isEventConsumed(static_cast<WidgetEvent>(WidgetEventCount));
        } catch (const std::out_of_range&) {
            thrown = true;
        }
    });
    EXPECT_TRUE(thrown);
}

TEST(WidgetLife, theFactoryEndsAPeer)
{
    forEachKind([](const Kind& kind) {
        VXPanel2 parent;
        std::unique_ptr<VXObject2> object(kind.m_make(&parent));
        const QPointer<QObject> alive(qtObject(object.get()));
        VXFactory2::current()->destroyObject(object->id());
        EXPECT_EQ(lookup(object.get()), nullptr);
        EXPECT_EQ(object->objectEmitters()->getParent.signal().numberOfConnections(), 0);
        VXFactory2::current()->destroyObject(object->id()); // again: nothing
        runDeletions();
        EXPECT_FALSE(alive);
        EXPECT_EQ(object->peerParent(), nullptr);
    });
}

TEST(WidgetLife, theQtParentEndsAPeer)
{
    forEachKind([](const Kind& kind) {
        VXPanel2 parent;
        std::unique_ptr<VXObject2> object(kind.m_make(&parent));
        const QPointer<QObject> alive(qtObject(object.get()));
        if (alive->parent())
            delete qt(parent);
        else
            delete alive.data(); // nobody holds it in Qt
        EXPECT_FALSE(alive);
        EXPECT_EQ(lookup(object.get()), nullptr);
        EXPECT_EQ(object->objectEmitters()->getParent.signal().numberOfConnections(), 0);
        EXPECT_EQ(object->peerParent(), nullptr) << "unanswered";
        if (auto* const widget = dynamic_cast<VXWidget2*>(object.get())) {
            widget->show();
            widget->setToolTip("nobody sees it");
            EXPECT_FALSE(widget->isVisible());
            EXPECT_EQ(widget->toolTip(), "");
        }
    });
}

TEST(WidgetLife, aWidgetMayEndInItsOwnHandlers)
{
    for (const Kind& kind : s_widgetKinds) {
        SCOPED_TRACE(kind.m_name);
        TROV::Listener listener;
        const auto die = [&](auto signalOf, const std::function<void(QWidget*)>& act) {
            auto* const widget = static_cast<VXWidget2*>(kind.m_make(nullptr));
            const unsigned id = widget->id();
            widget->resize({100, 100});
            widget->show();
            turn();
            (widget->*signalOf)().connect(&listener, [=] { delete widget; });
            const QPointer<QWidget> alive(qt(*widget));
            act(alive);
            turn();
            EXPECT_FALSE(VXObject::isObjectValid(id));
            runDeletions();
            EXPECT_FALSE(alive);
        };
        const auto inside = [](QWidget* widget) {
            auto* const scrollArea = qobject_cast<QAbstractScrollArea*>(widget);
            return scrollArea ? scrollArea->viewport() : widget;
        };
        die(&VXWidget2::mousePressed,
            [&](QWidget* widget) { press(inside(widget), Qt::LeftButton); });
        die(&VXWidget2::keyPressed,
            [](QWidget* widget) { QTest::keyPress(widget, Qt::Key_Space); });
        die(&VXWidget2::closing, [](QWidget* widget) { widget->close(); });
        die(&VXWidget2::hidden, [](QWidget* widget) { widget->hide(); });
        die(&VXWidget2::moved, [](QWidget* widget) { widget->move(widget->pos() + QPoint(5, 5)); });
        die(&VXWidget2::resized, [](QWidget* widget) { widget->resize(60, 60); });
        die(&VXWidget2::contextMenuRequested, [&](QWidget* widget) {
            QContextMenuEvent wanted(QContextMenuEvent::Mouse, QPoint(9, 9), QPoint(9, 9));
            QApplication::sendEvent(inside(widget), &wanted);
        });
    }
}

TEST(WidgetLife, aButtonMayEndInItsClick)
{
    auto* const button = new VXButton2;
    TROV::Listener listener;
    button->show();
    button->clicked().connect(&listener, [=] { delete button; });
    const QPointer<QWidget> alive(qt(*button));
    QTest::mouseClick(alive, Qt::LeftButton);
    runDeletions();
    EXPECT_FALSE(alive);
}

} // namespace
} // namespace VOXI
