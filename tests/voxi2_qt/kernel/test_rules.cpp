// What docs/events.md says and no other test shows.

#include "support/waitfor.h"
#include "toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace VOXI {
namespace {

/// Notes what is reported, in its order.
class Rules : public testing::Test, public TROV::Listener
{
protected:
    template <class E>
    void hear(const char* name, TROV::Signal<void(const E&)> signal)
    {
        signal.connect(this, [this, name] { m_heard += name + std::string(" "); });
    }
    std::string take() { return std::exchange(m_heard, {}); }

    VXPanel2 m_window;
    VXButton2& m_button = *new VXButton2(&m_window);

private:
    std::string m_heard;
};

TEST_F(Rules, aClickComesBeforeTheKeyThatMadeIt)
{
    m_window.show();
    hear("clicked", m_button.clicked());
    hear("keyPressed", m_button.keyPressed());
    hear("keyReleased", m_button.keyReleased());
    QTest::keyClick(qt(m_button), Qt::Key_Space);
    EXPECT_EQ(take(), "clicked ");
    turn();
    EXPECT_EQ(take(), "keyPressed keyReleased ");
    QTest::keyClicks(qt(m_button), QStringLiteral("abc"));
    turn();
    EXPECT_EQ(take(), "keyPressed keyReleased ");
}

TEST_F(Rules, aRequestReportsWhatBecomesOfOthers)
{
    auto& other = *new VXButton2(&m_window);
    auto& layout = *new VXBoxLayout2(&m_window);
    layout.addWidget(&m_button);
    layout.addWidget(&other);
    m_window.show();
    m_window.setActiveWindow();
    m_button.setFocus();
    turn();
    hear("lost", m_button.focusLost());
    hear("gained", other.focusGained());
    other.setFocus();
    EXPECT_EQ(take(), "lost ");

    hear("moved", other.moved());
    hear("resized", other.resized());
    m_window.resize({600, 300});
    EXPECT_EQ(take(), "moved ") << "a layout of known size is at work at once";
    turn();
    EXPECT_EQ(take(), "resized ");
    m_button.hide();
    EXPECT_EQ(take(), "") << "one whose content changes later";
    turn();
    turn();
    EXPECT_EQ(take(), "moved resized ");

    hear("hidden", other.hidden());
    m_window.hide();
    EXPECT_EQ(take(), "hidden ");
}

TEST_F(Rules, theFocusHasArrivedWhenThatItLeftIsReported)
{
    VXPanel2 second;
    auto& inSecond = *new VXButton2(&second);
    second.show();
    inSecond.setFocus();
    m_window.show();
    m_window.setActiveWindow();
    m_button.setFocus();
    ASSERT_TRUE(waitFor([&] { return m_button.hasFocus(); }));
    turn();
    m_button.focusLost().connect(this, [&] { EXPECT_TRUE(inSecond.hasFocus()); });
    hear("lost", m_button.focusLost());
    qt(second)->activateWindow();
    EXPECT_TRUE(waitFor([&] { return !take().empty(); }));
}

TEST_F(Rules, disabledWidgetsReportThePointer)
{
    auto& panel = *new VXPanel2(&m_window);
    panel.setPosition({100, 100, 20, 20});
    m_window.resize({300, 200});
    m_window.show();
    hear("window", m_window.mousePressed());
    const auto use = [&](VXWidget2& widget) {
        widget.setEnabled(false);
        hear("pressed", widget.mousePressed());
        hear("released", widget.mouseReleased());
        hear("menu", widget.contextMenuRequested());
        hear("wheel", widget.wheelTurned());
        hear("key", widget.keyPressed());
        const QPoint at = qt(widget)->geometry().center();
        QWindow* const window = qt(m_window)->windowHandle();
        QTest::mouseClick(window, Qt::RightButton, {}, at);
        QWheelEvent wheel(at, window->mapToGlobal(at), {}, QPoint(0, 120), {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(window, &wheel);
        QTest::keyClick(window, Qt::Key_A);
        turn();
        return take();
    };
    hear("clicked", m_button.clicked());
    EXPECT_EQ(use(m_button), "pressed menu released wheel ");
    m_button.imitateClick();
    EXPECT_EQ(take(), "");
    EXPECT_EQ(use(panel), "pressed window menu released wheel ") << "what it does not want goes on";
}

TEST_F(Rules, theMinimumWinsOverTheMaximum)
{
    const auto sizeOf = [](const VXWidget2& widget) { return widget.position().size(); };
    EXPECT_EQ(m_button.minimumSize(), (Size<int>{0, 0}));
    EXPECT_EQ(m_button.maximumSize(), (Size<int>{16777215, 16777215}));
    m_button.setMinimumSize({200, 200});
    m_button.setMaximumSize({100, 100});
    EXPECT_EQ(sizeOf(m_button), (Size<int>{200, 200}));
    m_button.resize({150, 150});
    EXPECT_EQ(sizeOf(m_button), (Size<int>{200, 200}));
    // Both are kept as they were set.
    m_button.setMinimumSize({0, 0});
    EXPECT_EQ(m_button.maximumSize(), (Size<int>{100, 100}));
    m_button.resize({150, 150});
    EXPECT_EQ(sizeOf(m_button), (Size<int>{100, 100}));
}

TEST_F(Rules, windowsAreFirstAsLargeAsTheirContent)
{
    const auto firstSize = [](VXPanel2& window) {
        window.show();
        return window.position().size();
    };
    EXPECT_EQ(m_window.position().size(), (Size<int>{640, 480}));
    m_button.setPosition({10, 20, 90, 60});
    EXPECT_EQ(firstSize(m_window), (Size<int>{110, 100}));
    VXPanel2 laidOut;
    VXBoxLayout2 layout(&laidOut);
    layout.setMargins({});
    layout.addSpacer({70, 50}, false);
    EXPECT_EQ(firstSize(laidOut), (Size<int>{70, 50}));
    VXPanel2 sized;
    sized.resize({123, 45});
    EXPECT_EQ(firstSize(sized), (Size<int>{123, 45}));
    VXPanel2 empty;
    EXPECT_EQ(firstSize(empty), (Size<int>{640, 480}));
}

TEST_F(Rules, whatGetsAnotherParentIsHidden)
{
    VXPanel2 other;
    m_window.show();
    other.show();
    hear("hidden", m_button.hidden());
    EXPECT_TRUE(m_button.isVisible());
    m_button.setParent(&m_window);
    EXPECT_TRUE(m_button.isVisible()) << "it is where it was";
    m_button.setParent(&other);
    EXPECT_FALSE(m_button.isVisible());
    m_button.show();
    m_button.setParent(nullptr);
    EXPECT_FALSE(m_button.isVisible());
    EXPECT_TRUE(qt(m_button)->isWindow());
    VXBoxLayout2 layout(&other);
    layout.addWidget(&m_button);
    turn();
    EXPECT_TRUE(m_button.isVisible()) << "containers show what they take";
    EXPECT_EQ(take(), "");
    // What is made in a shown widget waits for its call, too.
    EXPECT_FALSE((new VXPanel2(&other))->isVisible());
}

} // namespace
} // namespace VOXI
