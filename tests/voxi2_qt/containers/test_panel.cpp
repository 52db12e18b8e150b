#include "../kernel/toolkit.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"

#include <gtest/gtest.h>

namespace VOXI {
namespace {

TEST(Panel, paintsItsBackgroundOnceItHasAColor)
{
    VXPanel2 panel;
    panel.resize({20, 20});
    EXPECT_FALSE(qt(panel)->autoFillBackground());
    panel.setColor(ColorRole::Background, Color(10, 200, 30));
    EXPECT_TRUE(qt(panel)->autoFillBackground());
    EXPECT_EQ(qt(panel)->grab().toImage().pixelColor(10, 10), QColor(10, 200, 30));
}

TEST(Panel, belongsToWhatItIsMadeIn)
{
    VXWindow2 window;
    auto* inner = new VXPanel2(&window);
    EXPECT_EQ(qt(*inner)->parentWidget(), qt(window));
    EXPECT_EQ(inner->parent(), &window);
    inner->setParent(nullptr);
    EXPECT_EQ(qt(*inner)->parentWidget(), nullptr);
    delete inner;
}

} // namespace
} // namespace VOXI
