// How long a window's focus reports are kept back after the program asked for something.

#include "support/waitfor.h"
#include "toolkit.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

class FocusBlocker : public testing::Test
{
protected:
    QtGlobalFocusBlocker& m_blocker = QtGlobalFocusBlocker::instance();

    bool isRegistered(const QWidget& window) const { return m_blocker.isRegistered(&window); }
};

TEST_F(FocusBlocker, neverKeepsAWindowForEver)
{
    QWidget neverShown;
    m_blocker.registerWindow(&neverShown);
    m_blocker.registerWindow(&neverShown);
    EXPECT_TRUE(isRegistered(neverShown));
    EXPECT_TRUE(waitFor([&] { return !isRegistered(neverShown); }));

    QWidget hidden;
    hidden.setAttribute(Qt::WA_ShowWithoutActivating);
    hidden.show();
    m_blocker.registerWindow(&hidden);
    hidden.hide();
    turn();
    turn();
    EXPECT_FALSE(isRegistered(hidden));

    auto* const dying = new QWidget;
    const void* const address = dying;
    m_blocker.registerWindow(dying);
    delete dying;
    EXPECT_FALSE(m_blocker.isRegistered(static_cast<const QWidget*>(address)));
    m_blocker.registerWindow(nullptr);
}

TEST_F(FocusBlocker, asksForActivationOnce)
{
    QWidget window;
    m_blocker.awaitActivation(&window); // not registered: nothing
    EXPECT_FALSE(isRegistered(window));
    m_blocker.registerWindow(&window);
    m_blocker.awaitActivation(&window);
    turn();
    turn();
    EXPECT_TRUE(isRegistered(window)) << "it may take a while";
    EXPECT_TRUE(waitFor([&] {
        m_blocker.awaitActivation(&window);
        return !isRegistered(window);
    })) << "but not for ever, however often the program asks";
}

TEST_F(FocusBlocker, aWindowThatIsHiddenAndShownAtOnceStaysRegistered)
{
    QWidget window;
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.show();
    m_blocker.registerWindow(&window);
    window.hide();
    window.show();
    turn();
    EXPECT_TRUE(isRegistered(window)) << "its activation is still to come";
    EXPECT_TRUE(waitFor([&] { return !isRegistered(window); }));
}

TEST_F(FocusBlocker, leavesOutWindowsThatDoNotWantIt)
{
    VXWindow2 window;
    window.setSupportsGlobalFocusBlocker(false);
    window.show();
    EXPECT_FALSE(isRegistered(*qt(window)));
    window.setSupportsGlobalFocusBlocker(true);
    window.raise();
    EXPECT_TRUE(isRegistered(*qt(window)));
    window.setActiveWindow();
    EXPECT_TRUE(
        waitFor([&] { return qt(window)->isActiveWindow() && !isRegistered(*qt(window)); }));
    window.raise();
    turn();
    turn();
    EXPECT_FALSE(isRegistered(*qt(window))) << "it was active already: nothing to wait for";
}

} // namespace
} // namespace VOXI
