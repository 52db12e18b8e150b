// Accelerators pressed on a real keyboard, in a window that a window manager made active.

#include "support/realinput.h"
#include "toolkit.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/kernel/vxaction2.h"

#include <QTest>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

void press(const char* keys) { xdotool({QStringLiteral("key"), QLatin1String(keys)}); }

TEST(Accelerators, pressedOnTheKeyboardTriggerOnce)
{
    VXWindow2 window;
    VXAction2 save(&window);
    VXAction2 twoStrokes(&window);
    VXAction2 last(&window);
    save.setAccelerators({"Ctrl+S", "F2"});
    twoStrokes.setAccelerator("Ctrl+K, Ctrl+C");
    last.setAccelerator("F9");
    for (VXAction2* action : {&save, &twoStrokes, &last})
        action->attachTo(&window);
    Log saves(save.triggered());
    Log comments(twoStrokes.triggered());
    Log ends(last.triggered());
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(qt(window)));

    press("ctrl+s");
    EXPECT_TRUE(waitFor([&] { return !saves.isEmpty(); }));
    press("F2");
    EXPECT_TRUE(waitFor([&] { return saves.count() >= 2; }));
    press("ctrl+k");
    press("ctrl+c");
    EXPECT_TRUE(waitFor([&] { return !comments.isEmpty(); }));
    press("F9"); // what came before it has come
    EXPECT_TRUE(waitFor([&] { return !ends.isEmpty(); }));
    EXPECT_EQ(saves.count(), 2);
    EXPECT_EQ(comments.count(), 1);
    EXPECT_EQ(ends.count(), 1);
}

} // namespace
} // namespace VOXI
