// The gallery's window on a display with a window manager, worked with the real pointer.

#include "gallerywindow.h"
#include "qthost/qthost.h"
#include "support/realinput.h"
#include "support/watchdog.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtext2.h"

#include <gtest/gtest.h>
#include <string>

namespace VOXI {
namespace {

/// The gallery's widget of that object name.
template <class T>
T* find(const gallery::GalleryWindow& gallery, const std::string& name)
{
    for (VXObject2* object : gallery.window()->children(true)) {
        auto* widget = dynamic_cast<T*>(object);
        if (widget && widget->objectName() == name)
            return widget;
    }
    return nullptr;
}

/// Moves the display's pointer to the middle of the widget and clicks.
void click(const VXWidget2& widget)
{
    const VXRect<int> place = widget.globalPosition();
    xdotool(at({place.x + place.width / 2, place.y + place.height / 2})
            + QStringLiteral(" click 1"));
}

TEST(GalleryOnDisplay, countsTheClicksOfThePointer)
{
    const Watchdog watchdog(std::chrono::seconds(120), "gallery");
    QtHost host;
    gallery::GalleryWindow gallery;
    ASSERT_TRUE(gallery.select("counting"));
    auto* const button = find<VXButton2>(gallery, "counter");
    auto* const count = find<VXText2>(gallery, "count");
    ASSERT_NE(button, nullptr);
    ASSERT_NE(count, nullptr);
    // The window manager has placed the window when it stays where it is.
    ASSERT_TRUE(waitFor([&] { return gallery.window()->isActiveWindow(); }));
    VXRect<int> former;
    ASSERT_TRUE(waitFor([&] {
        const bool settled = former == button->globalPosition();
        former = button->globalPosition();
        QTest::qWait(100);
        return settled;
    }));

    int events = 0;
    button->clicked().connect(count, [&] { ++events; });
    EXPECT_EQ(count->text(), "0");
    for (int clicks = 1; clicks <= 3; ++clicks) {
        click(*button);
        EXPECT_TRUE(waitFor([&] { return count->text() == std::to_string(clicks); }))
            << "the text says " << count->text();
    }
    EXPECT_EQ(events, 3);
}

} // namespace
} // namespace VOXI
