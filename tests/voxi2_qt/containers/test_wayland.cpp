// What is different under a Wayland compositor, where programs do not place, raise or restore their
// windows. The main window fills the screen, so that its coordinates are the screen's and the
// pointer can be moved to what is in it; other windows lie where the compositor wants.

#include "../kernel/toolkit.h"
#include "support/qtwarnings.h"
#include "support/realinput.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxtooltipwindow2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QWindow>

#include <gtest/gtest.h>
#include <string>

namespace VOXI {
namespace {

QPoint middleOf(const VXWidget2& widget)
{
    const VXRect<int> place = widget.globalPosition();
    return {place.x + place.width / 2, place.y + place.height / 2};
}

/// Counts how often a window goes from the screen.
class Leavings : public QObject
{
public:
    explicit Leavings(QWindow& window) { window.installEventFilter(this); }
    int count() const { return m_count; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Expose && !static_cast<QWindow*>(watched)->isExposed())
            ++m_count;
        return false;
    }

private:
    int m_count = 0;
};

/// Knows where in a window the compositor takes the pointer to be.
class PointerPlace : public QObject
{
public:
    explicit PointerPlace(QWindow& window) { window.installEventFilter(this); }
    QPoint point() const { return m_point; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseMove)
            m_point = static_cast<QMouseEvent*>(event)->position().toPoint();
        return false;
    }

private:
    QPoint m_point;
};

class Wayland : public testing::Test
{
protected:
    Wayland()
    {
        xdotool(QStringLiteral("mouseup 1 mouseup 3 ") + at(Beside));
        m_window.setCentralWidget(m_page);
        for (VXButton2* button : {m_first, m_second})
            button->setPosition({button == m_first ? 100 : 700, 300, 120, 40});
    }

    bool show()
    {
        qt(m_window)->setWindowFlag(Qt::FramelessWindowHint);
        m_window.showMaximized();
        const auto isShown = [&] {
            return qt(m_window)->isActiveWindow() && qt(m_window)->width() == Screen.width();
        };
        return waitFor(isShown, Patience) && comeIn({900, 700});
    }
    /// Has the pointer come into the compositor's window, which asks then alone where it is, and
    /// goes by its ways from then on; before its first painting it gets that wrong.
    bool comeIn(const QPoint& point) const
    {
        const PointerPlace place(*qt(m_window)->windowHandle());
        return waitFor(
            [&] {
                xdotool(at(Beside));
                xdotool(at(point - QPoint(1, 0))); // it tells of ways alone
                xdotool(at(point));
                return waitFor([&] { return place.point() == point; },
                               std::chrono::milliseconds(500));
            },
            Patience);
    }
    static bool isExposed(const VXWidget2& widget)
    {
        const QWindow* const window = qt(widget)->window()->windowHandle();
        return window && window->isExposed();
    }
    /// Clicks there until something comes of it: the compositor may be behind with what it shows,
    /// and looks for it when the pointer moves.
    template <class Function>
    static bool clickUntil(const QPoint& point, const char* button, Function&& done)
    {
        int tries = 0;
        return waitFor(
            [&] {
                xdotool(at(point + QPoint(++tries % 2, 0)));
                xdotool(QStringLiteral("click ") + QLatin1String(button));
                return waitFor(done, std::chrono::milliseconds(500));
            },
            Patience);
    }

    static constexpr QSize Screen{1280, 960};
    static constexpr QPoint Beside{1300, 480};

    VXWindow2 m_window;
    VXPanel2* m_page = new VXPanel2(&m_window);
    VXButton2* m_first = new VXButton2("First", m_page);
    VXButton2* m_second = new VXButton2("Second", m_page);
};

TEST_F(Wayland, aToolTipWindowGoesToAnotherAnchor)
{
    ASSERT_TRUE(show());
    auto* const tip = new VXToolTipWindow2(&m_window);
    tip->setTimeout(0);
    auto* const layout = new VXBoxLayout2(tip, Direction::LeftToRight);
    auto* const inside = new VXPanel2(tip);
    inside->setMinimumSize({80, 30});
    layout->addWidget(inside);
    const Log clicks(tip->clicked());
    Comings comings{tip, inside};
    tip->popup(m_first);
    ASSERT_TRUE(waitFor([&] { return isExposed(*tip); }, Patience));
    comings.areReported();
    tip->setAnchor(m_second);
    ASSERT_TRUE(waitFor([&] { return isExposed(*tip); }, Patience));
    EXPECT_FALSE(comings.areReported());
    EXPECT_TRUE(clickUntil(middleOf(*tip), "1", [&] { return !clicks.isEmpty(); }));
    EXPECT_GT(middleOf(*tip).x(), 600);
}

TEST_F(Wayland, aMenuThatIsFilledLaterIsSeenWhole)
{
    ASSERT_TRUE(show());
    auto* const menu = new VXMenu2(&m_window);
    menu->setDigMenu(true);
    auto* const last = new VXAction2(&m_window);
    last->setLabel("The last of the entries that were found");
    int asked = 0;
    menu->aboutToShow().connect(menu, [&] { ++asked; });
    m_page->contextMenuRequested().connect(menu, [&] { menu->popup(1270, 950); });
    const Log chosen(last->triggered());
    ASSERT_TRUE(clickUntil({1270, 950}, "3", [&] { return asked == 1; }));
    for (int i = 0; i < 8; ++i)
        menu->addAction("Entry");
    menu->addAction(last);
    ASSERT_TRUE(waitFor([&] { return isExposed(*menu); }, Patience));
    const Leavings leavings(*qt(*menu)->windowHandle());
    Comings comings{menu};
    menu->digComplete();
    const auto* const shown = qobject_cast<QMenu*>(qt(*menu));
    ASSERT_TRUE(waitFor([&] { return leavings.count() == 1 && isExposed(*menu); }, Patience));
    EXPECT_FALSE(comings.areReported());
    const QRect entry = shown->actionGeometry(shown->actions().last());
    EXPECT_TRUE(
        clickUntil(shown->mapToGlobal(entry.center()), "1", [&] { return !chosen.isEmpty(); }));
    EXPECT_EQ(asked, 1);
}

TEST_F(Wayland, aMenuThatAnotherOneDoesNotOwnOpensFromIt)
{
    ASSERT_TRUE(show());
    auto* const menu = new VXMenu2(&m_window);
    auto* const inner = new VXMenu2(&m_window);
    auto* const found = inner->addAction("Found");
    menu->addMenu("More", inner);
    m_page->contextMenuRequested().connect(menu, [&] { menu->popup(400, 400); });
    const Log chosen(found->triggered());
    ASSERT_TRUE(clickUntil({400, 400}, "3", [&] { return menu->isVisible() && isExposed(*menu); }));
    const auto* const outer = qobject_cast<QMenu*>(qt(*menu));
    ASSERT_TRUE(
        clickUntil(outer->mapToGlobal(outer->actionGeometry(outer->actions().first()).center()),
                   "1", [&] { return inner->isVisible() && isExposed(*inner); }));
    const auto* const shown = qobject_cast<QMenu*>(qt(*inner));
    EXPECT_TRUE(
        clickUntil(shown->mapToGlobal(shown->actionGeometry(shown->actions().first()).center()),
                   "1", [&] { return !chosen.isEmpty(); }));
}

TEST_F(Wayland, aMinimisedWindowComesBack)
{
    ASSERT_TRUE(show());
    const Log clicks(m_first->clicked());
    const Log states(m_window.stateChanged());
    ASSERT_TRUE(clickUntil(middleOf(*m_first), "1", [&] { return !clicks.isEmpty(); }));
    m_window.showMinimized();
    ASSERT_TRUE(waitFor([&] { return !qt(m_window)->isActiveWindow(); }, Patience));
    EXPECT_TRUE(m_window.isMinimized());
    EXPECT_FALSE(m_window.isVisible());
    m_window.showMaximized();
    EXPECT_FALSE(m_window.isMinimized());
    EXPECT_TRUE(waitFor([&] { return qt(m_window)->isActiveWindow(); }, Patience));
    const int before = clicks.count();
    EXPECT_TRUE(clickUntil(middleOf(*m_first), "1", [&] { return clicks.count() > before; }));
    // By then it is known what the compositor has made of the requests.
    m_window.showMinimized();
    ASSERT_TRUE(waitFor([&] { return !qt(m_window)->isActiveWindow(); }, Patience));
    qt(m_window)->setWindowState(Qt::WindowNoState);
    turn();
    EXPECT_TRUE(m_window.isMinimized());
    EXPECT_TRUE(states.isEmpty());
}

TEST_F(Wayland, aRefusedActivationDoesNotKeepTheUsersBack)
{
    ASSERT_TRUE(show());
    const Log focused(m_first->focusGained());
    VXWindow2 other;
    other.show();
    ASSERT_TRUE(waitFor([&] { return qt(other)->isActiveWindow(); }, Patience));
    m_window.setActiveWindow();
    other.raise();
    ASSERT_TRUE(waitFor(
        [&] { return !QtGlobalFocusBlocker::instance().isRegistered(qt(m_window)); }, Patience));
    EXPECT_TRUE(qt(other)->isActiveWindow());
    EXPECT_TRUE(focused.isEmpty());
    EXPECT_TRUE(clickUntil(middleOf(*m_first), "1", [&] { return !focused.isEmpty(); }));
}

TEST_F(Wayland, aPaneThatIsDraggedOutGetsATitle)
{
    auto* const pane = new VXDockWidget2(&m_window);
    pane->setTitle("Pane");
    auto* const content = new VXPanel2(pane);
    content->setMinimumSize({200, 150});
    content->setColor(ColorRole::Background, Color(255, 0, 0));
    pane->setWidget(content);
    m_window.addDockWidget(pane);
    ASSERT_TRUE(show());
    const Log floated(pane->floatingChanged());
    const Log seen(pane->visibilityChanged());
    auto* const dock = qobject_cast<QDockWidget*>(qt(*pane));
    const QPoint start = dock->mapToGlobal(QPoint(40, 8));
    // Qt takes hold of the mouse for what is dragged, which it may here as long as a button is
    // down.
    const ExpectedQtWarning grabs("supports grabbing the mouse only for popup windows",
                                  ExpectedQtWarning::MayCome);
    // Another drag if need be: the compositor may not have shown the window yet.
    int step = 0;
    ASSERT_TRUE(waitFor(
        [&] {
            const int part = step++ % 20;
            if (part == 0)
                xdotool(at(start) + QStringLiteral(" mouseup 1 mousedown 1"));
            xdotool(at(start + QPoint(45 * part, 30 * part)));
            return part > 12 && pane->isFloating();
        },
        Patience));
    // Nothing is seen of the window that it is to be, so a picture of it follows the pointer.
    const auto inWindow = [&](const QPoint& point) {
        return qt(m_window)->grab().toImage().pixelColor(point);
    };
    const QPoint inside = start + QPoint(300, 200) + QPoint(20, 40);
    const QColor before = inWindow(inside);
    xdotool(at(start + QPoint(299, 200)) + u' ' + at(start + QPoint(300, 200)));
    EXPECT_TRUE(waitFor([&] { return inWindow(inside) != before; }, Patience));
    xdotool(QStringLiteral("mouseup 1"));
    ASSERT_TRUE(waitFor([&] { return dock->titleBarWidget() && isExposed(*pane); }, Patience));
    EXPECT_EQ(inWindow(inside), before);
    EXPECT_EQ(pane->titleBarWidget(), nullptr) << "the program's";
    EXPECT_TRUE(waitFor([&] { return floated.count() == 1; }));
    EXPECT_TRUE(seen.isEmpty());

    const auto press = [&](const char* name) {
        for (auto* button : dock->titleBarWidget()->findChildren<QAbstractButton*>()) {
            if (button->accessibleName() == QLatin1String(name))
                button->click();
        }
    };
    press("Float");
    ASSERT_TRUE(waitFor([&] { return !pane->isFloating() && !dock->titleBarWidget(); }, Patience));
    EXPECT_TRUE(waitFor([&] { return floated.count() == 2; }));
    pane->setFloating(true);
    ASSERT_TRUE(waitFor([&] { return dock->titleBarWidget() != nullptr; }, Patience));
    press("Close");
    EXPECT_TRUE(waitFor([&] { return !pane->isVisible() && seen.count() == 1; }, Patience));
    EXPECT_EQ(floated.count(), 2);
}

} // namespace
} // namespace VOXI
