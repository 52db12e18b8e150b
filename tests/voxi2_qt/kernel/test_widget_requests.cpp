// The requests of every widget, from the abstract object to the Qt widget and back.

#include "probe.h"
#include "support/qtwarnings.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"

#include <QAction>
#include <QLayout>

#include <gtest/gtest.h>
#include <stdexcept>

namespace VOXI {
namespace {

class WidgetRequests : public testing::Test
{
protected:
    VXPanel2 m_window;
    VXProbe2& m_probe = *new VXProbe2(&m_window);
    QWidget* m_widget = qt(m_probe);
};

TEST_F(WidgetRequests, aMinimisedWindowIsNotVisible)
{
    m_window.show();
    qt(m_window)->showMinimized();
    EXPECT_TRUE(qt(m_window)->isVisible());
    EXPECT_FALSE(m_window.isVisible());
    qt(m_window)->showNormal();
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(WidgetRequests, visibilityGoesWithTheWidgetAction)
{
    m_window.show();
    {
        QAction action;
        peer(m_probe).addWidgetAction(&action);
        EXPECT_EQ(peer(m_probe).getWidgetAction(), &action);
        const auto expectVisible = [&](bool visible) {
            EXPECT_EQ(m_probe.isVisible(), visible);
            EXPECT_EQ(action.isVisible(), visible);
        };
        m_probe.setVisible(false);
        expectVisible(false);
        m_probe.setVisible(true);
        expectVisible(true);
        m_probe.hide();
        expectVisible(false);
        m_probe.show();
        expectVisible(true);
        peer(m_probe).addWidgetAction(nullptr);
        EXPECT_EQ(peer(m_probe).getWidgetAction(), nullptr);

        QAction later;
        peer(m_probe).addWidgetAction(&later);
        m_probe.setVisible(false);
        EXPECT_TRUE(action.isVisible());
        EXPECT_FALSE(later.isVisible());
    }
    EXPECT_EQ(peer(m_probe).getWidgetAction(), nullptr) << "the action has gone";
    m_probe.setVisible(true);
}

TEST_F(WidgetRequests, raisesLowersAndActivates)
{
    auto* const other = new VXProbe2(&m_window);
    const auto isOnTop = [&](const VXWidget2& widget) {
        QWidget* last = nullptr;
        for (QObject* child : qt(m_window)->children()) {
            if (child->isWidgetType())
                last = static_cast<QWidget*>(child);
        }
        return last == qt(widget);
    };
    EXPECT_TRUE(isOnTop(*other));
    m_probe.raise();
    EXPECT_TRUE(isOnTop(m_probe));
    m_probe.lower();
    EXPECT_TRUE(isOnTop(*other));

    VXPanel2 second;
    m_window.show();
    second.show();
    m_window.setActiveWindow();
    turn();
    EXPECT_TRUE(qt(m_window)->isActiveWindow());
    EXPECT_TRUE(m_probe.isActiveWindow());
    EXPECT_FALSE(second.isActiveWindow());
}

TEST_F(WidgetRequests, paintsAtOnceOrLaterOrNotAtAll)
{
    m_window.show();
    turn();
    const auto isPainted = [&] {
        const bool painted = plain(m_probe).saw(QEvent::Paint);
        plain(m_probe).forget();
        return painted;
    };
    isPainted();
    m_probe.update();
    EXPECT_FALSE(isPainted());
    turn();
    EXPECT_TRUE(isPainted());
    m_probe.refresh();
    EXPECT_TRUE(isPainted());
    m_probe.setUpdatesEnabled(false);
    m_probe.refresh();
    EXPECT_FALSE(isPainted());
    m_probe.setUpdatesEnabled(true);
    EXPECT_TRUE(m_widget->updatesEnabled());
    turn();

    // The highlight lies on the widget, and so do its changes.
    isPainted();
    for (const bool lit : {true, false}) {
        m_probe.setHighlight(lit, Color(0, 0, 255));
        turn();
        EXPECT_TRUE(isPainted());
    }
}

TEST_F(WidgetRequests, geometry)
{
    m_window.show();
    m_window.moveTo({50, 60});
    m_probe.resize({70, 30});
    m_probe.moveTo({10, 20});
    EXPECT_EQ(m_probe.position(), (VXRect<int>{10, 20, 70, 30}));

    const QPoint corner = m_widget->mapToGlobal(QPoint(0, 0));
    EXPECT_EQ(m_probe.globalPosition(), (VXRect<int>{corner.x(), corner.y(), 70, 30}));
    EXPECT_EQ(m_probe.mapToGlobal({1, 2}), (VXPoint<int>{corner.x() + 1, corner.y() + 2}));
    EXPECT_EQ(m_probe.mapFromGlobal(m_probe.mapToGlobal({5, 6})), (VXPoint<int>{5, 6}));

    m_probe.setContentsMargins(VXRect<int>::margins(1, 2, 3, 4));
    EXPECT_EQ(m_widget->contentsMargins(), QMargins(1, 2, 3, 4));
    EXPECT_EQ(m_probe.contentsMargins(), VXRect<int>::margins(1, 2, 3, 4));
    EXPECT_EQ(m_probe.contentsRect(), (VXRect<int>{1, 2, 66, 24}));

    new VXBoxLayout2(&m_probe, Direction::LeftToRight);
    auto* const content = new VXProbe2(&m_probe);
    m_widget->layout()->setContentsMargins(0, 0, 0, 0);
    m_widget->layout()->addWidget(qt(*content));
    content->setFixedSize({120, 80});
    content->show();
    m_probe.adjustSize();
    EXPECT_EQ(m_widget->size(), QSize(124, 86));
}

TEST_F(WidgetRequests, sizeLimits)
{
    constexpr int Unlimited = QWIDGETSIZE_MAX;
    m_probe.setMaximumSize({-1, 100});
    EXPECT_EQ(m_probe.maximumSize(), (Size<int>{Unlimited, 100}));
    m_probe.setMaximumSize({200, -1});
    EXPECT_EQ(m_probe.maximumSize(), (Size<int>{200, 100}));
    m_probe.setMinimumSize({-1, 10});
    EXPECT_EQ(m_probe.minimumSize(), (Size<int>{0, 10}));
    m_probe.setMinimumSize({20, -1});
    EXPECT_EQ(m_probe.minimumSize(), (Size<int>{20, 10}));
    {
        // Both left alone: the height is set all the same, and Qt objects to it.
        const ExpectedQtWarning warning("Negative sizes");
        m_probe.setMinimumSize({-1, -1});
        EXPECT_EQ(m_probe.minimumSize(), (Size<int>{20, 0}));
    }

    m_probe.setFixedSize({55, 66});
    EXPECT_EQ(m_widget->minimumSize(), QSize(55, 66));
    EXPECT_EQ(m_widget->maximumSize(), QSize(55, 66));
    m_probe.setSizePolicy(Policy::Expanding, Policy::Fixed);
    EXPECT_EQ(m_widget->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    EXPECT_EQ(m_widget->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);

    m_probe.setSizeConstraint(SizeConstraint::Fixed); // no layout: nothing
    new VXBoxLayout2(&m_probe, Direction::LeftToRight);
    m_probe.setSizeConstraint(SizeConstraint::Fixed);
    EXPECT_EQ(m_widget->layout()->sizeConstraint(), QLayout::SetFixedSize);
}

TEST_F(WidgetRequests, geometryAsText)
{
    m_window.setPosition({40, 50, 320, 240});
    m_window.show();
    turn();
    const QRect placed = qt(m_window)->geometry();
    const std::string text = m_window.saveGeometry();
    EXPECT_EQ(text, qt(m_window)->saveGeometry().toBase64().toStdString());
    m_window.setPosition({90, 90, 100, 100});
    for (const char* junk : {"", "not base64 \xff!", "AAAA"}) {
        m_window.restoreGeometry(junk);
        EXPECT_EQ(qt(m_window)->geometry(), QRect(90, 90, 100, 100)) << junk;
    }
    m_window.restoreGeometry(text);
    EXPECT_EQ(qt(m_window)->geometry(), placed);
}

TEST_F(WidgetRequests, objectNameAndState)
{
    m_probe.setObjectName("probe");
    EXPECT_EQ(m_widget->objectName(), QStringLiteral("probe"));
    m_widget->setObjectName("of the host");
    EXPECT_EQ(m_probe.objectName(), "probe");
    EXPECT_EQ(m_probe.peerObjectName(), "of the host");

    EXPECT_TRUE(m_probe.isEnabled());
    m_window.setEnabled(false);
    EXPECT_FALSE(m_probe.isEnabled());
    m_window.setEnabled(true);
    m_probe.setEnabled(false);
    EXPECT_FALSE(m_widget->isEnabled());

    EXPECT_EQ(m_window.winId(), qt(m_window)->winId());
    EXPECT_EQ(m_probe.twice(21), 42) << "a request of a kind that the program added";
}

TEST_F(WidgetRequests, parents)
{
    VXPanel2 other;
    m_probe.setParent(&other);
    EXPECT_EQ(other.peerChildren(), std::vector<VXObject*>{&m_probe});
    auto& grandchild = *new VXProbe2(&m_probe);
    EXPECT_EQ(other.peerChildren(false), std::vector<VXObject*>{&m_probe});
    EXPECT_EQ(other.peerChildren(true), (std::vector<VXObject*>{&m_probe, &grandchild}));

    // As from a thread that lost a race: the request of a parent that died meanwhile.
    auto* const dead = new VXPanel2;
    delete dead;
    peer(m_probe).doSetParent(dead);
    EXPECT_EQ(m_widget->parentWidget(), qt(other));
    m_probe.setParent(nullptr);
    EXPECT_EQ(m_probe.peerParent(), nullptr);
    m_probe.setParent(&m_window);
}

TEST_F(WidgetRequests, eventSwitches)
{
    constexpr auto NoEvent = static_cast<WidgetEvent>(WidgetEventCount);
    QtWidget2& widget = peer(m_probe);
    for (unsigned i = 0; i < WidgetEventCount; ++i) {
        const auto event = static_cast<WidgetEvent>(i);
        const auto expectSwitches = [&](bool broadcasts, bool consumed) {
            EXPECT_EQ(widget.isEventBroadcastingEnabled(event), broadcasts);
            EXPECT_EQ(m_probe.isEventConsumed(event), consumed);
        };
        expectSwitches(true, false);
        m_probe.setEventConsumed(event, true);
        expectSwitches(true, true);
        widget.disableEventBroadcasting(event);
        m_probe.setEventConsumed(event, false);
        expectSwitches(false, false);
        widget.enableEventBroadcasting(event);
        expectSwitches(true, false);
    }
    EXPECT_THROW(m_probe.setEventConsumed(NoEvent, true), std::out_of_range);
    EXPECT_THROW(m_probe.isEventConsumed(NoEvent), std::out_of_range);
    EXPECT_THROW(widget.enableEventBroadcasting(NoEvent), std::out_of_range);
    EXPECT_THROW(widget.disableEventBroadcasting(NoEvent), std::out_of_range);
    EXPECT_THROW(widget.isEventBroadcastingEnabled(NoEvent), std::out_of_range);

    // Off as a whole: nothing does anything, not even the check, and the switches are lost.
    m_probe.setEventConsumed(WidgetEvent::Close, true);
    widget.disableEventBroadcasting(WidgetEvent::Show);
    widget.disableEventBroadcasting();
    EXPECT_FALSE(widget.isEventBroadcastingEnabled());
    EXPECT_NO_THROW(m_probe.setEventConsumed(NoEvent, true));
    EXPECT_FALSE(m_probe.isEventConsumed(NoEvent));
    m_probe.setEventConsumed(WidgetEvent::Close, true);
    EXPECT_FALSE(m_probe.isEventConsumed(WidgetEvent::Close));
    widget.enableEventBroadcasting(NoEvent);
    widget.disableEventBroadcasting(NoEvent);
    EXPECT_FALSE(widget.isEventBroadcastingEnabled(WidgetEvent::Show));
    widget.disableEventBroadcasting();
    EXPECT_FALSE(widget.isEventBroadcastingEnabled());

    widget.enableEventBroadcasting();
    EXPECT_FALSE(m_probe.isEventConsumed(WidgetEvent::Close));
    EXPECT_TRUE(widget.isEventBroadcastingEnabled(WidgetEvent::Show));
}

} // namespace
} // namespace VOXI
