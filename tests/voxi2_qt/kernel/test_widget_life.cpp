// The ways in which objects and their peers end, one by one and in random trees.

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

QObject* qtObject(const VXObject2* object)
{
    return qObjectOf(lookup(object));
}

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

/// Trees that grow, move and die at random.
class RandomTrees
{
public:
    explicit RandomTrees(unsigned seed) : m_random(seed) {}
    ~RandomTrees()
    {
        for (const unsigned id : m_ids)
            delete static_cast<VXObject2*>(VXObject::objectById(id));
        runDeletions();
    }

    void step()
    {
        switch (below(12)) {
        case 0:
        case 1:
        case 2:
        case 3: {
            VXWidget2* const parent = below(8) == 0 ? nullptr : anyWidget();
            add(s_widgetKinds[below(std::size(s_widgetKinds))].m_make(parent));
            break;
        }
        case 4:
            if (VXWidget2* const widget = anyWidget();
                widget && qt(*widget) && !qt(*widget)->layout())
                add(s_otherKinds[below(std::size(s_otherKinds))].m_make(widget));
            break;
        case 5:
            if (VXWidget2* const widget = anyWidget())
                widget->setParent(below(4) == 0 ? nullptr : anyWidget());
            break;
        case 6:
            delete any();
            break;
        case 7:
            runElsewhere([object = any()] { delete object; });
            break;
        case 8:
            if (VXObject2* const object = any())
                VXFactory2::current()->destroyObject(object->id());
            break;
        case 9:
            if (VXObject2* const object = any(); below(3) == 0 && object)
                delete qtObject(object);
            break;
        case 10:
            act();
            break;
        default:
            turn();
            runDeletions();
        }
    }

    /// How many objects there have been.
    std::size_t made() const { return m_made; }

private:
    std::size_t below(std::size_t end) { return m_random() % end; }

    void add(VXObject2* object)
    {
        m_ids.push_back(object->id());
        ++m_made;
    }

    VXObject2* any()
    {
        while (!m_ids.empty()) {
            const std::size_t i = below(m_ids.size());
            if (auto* const object = static_cast<VXObject2*>(VXObject::objectById(m_ids[i])))
                return object;
            m_ids[i] = m_ids.back();
            m_ids.pop_back();
        }
        return nullptr;
    }

    VXWidget2* anyWidget()
    {
        for (int tries = 0; tries < 5; ++tries) {
            if (auto* const widget = dynamic_cast<VXWidget2*>(any()))
                return widget;
        }
        return nullptr;
    }

    /// A widget ends, or its window, in a handler of its own or of another one.
    void act()
    {
        VXWidget2* const widget = anyWidget();
        if (!widget || !qt(*widget))
            return;
        const VXObject2* const victim = below(2) ? any() : widget;
        const unsigned id = victim->id();
        TROV::Listener listener;
        const auto kill = [id] { delete static_cast<VXObject2*>(VXObject::objectById(id)); };
        widget->mousePressed().connect(&listener, kill);
        widget->hidden().connect(&listener, kill);
        widget->moved().connect(&listener, kill);
        widget->keyPressed().connect(&listener, kill);
        const QPointer<QWidget> target(qt(*widget));
        widget->show();
        target->setFocus();
        press(target, below(2) ? Qt::LeftButton : Qt::RightButton);
        if (target)
            target->move(static_cast<int>(below(50)), 3);
        if (target)
            target->hide();
        turn();
    }

    std::mt19937 m_random;
    std::vector<unsigned> m_ids;
    std::size_t m_made = 0;
};

TEST(WidgetLife, randomTrees)
{
    const char* const given = std::getenv("VOXI_TEST_SEED");
    const unsigned seed =
        given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : std::random_device{}();
    std::cout << "VOXI_TEST_SEED=" << seed << std::endl;
    SCOPED_TRACE("VOXI_TEST_SEED=" + std::to_string(seed));
    const QWidgetList before = QApplication::allWidgets();
    {
        RandomTrees trees(seed);
        for (int i = 0; i < 2000; ++i)
            trees.step();
        EXPECT_GT(trees.made(), 200u);
    }
    turn();
    runDeletions();
    EXPECT_EQ(QApplication::allWidgets().size(), before.size()) << "nothing is left";
}

} // namespace
} // namespace VOXI
