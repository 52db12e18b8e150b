// The gallery's window on a display with a window manager, worked with the real pointer.

#include "gallerywindow.h"
#include "qthost/qthost.h"
#include "support/realinput.h"
#include "support/watchdog.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxmimicsource2.h"
#include "voxi2/controls/vxmimicview2.h"
#include "voxi2/controls/vxtext2.h"

#include <QApplication>

#include <gtest/gtest.h>
#include <memory>
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

/// A process has one host.
class GalleryOnDisplay : public testing::Test
{
protected:
    static void SetUpTestSuite() { s_host = std::make_unique<QtHost>(); }
    static void TearDownTestSuite() { s_host.reset(); }

private:
    static inline std::unique_ptr<QtHost> s_host;
};

/// Moves the display's pointer to the middle of the widget and clicks.
void click(const VXWidget2& widget)
{
    const VXRect<int> place = widget.globalPosition();
    xdotool(at({place.x + place.width / 2, place.y + place.height / 2})
            + QStringLiteral(" click 1"));
}

/// Waits until the window manager has placed the window, so that the widget stays where it is.
bool isPlaced(const gallery::GalleryWindow& gallery, const VXWidget2& widget)
{
    VXRect<int> former;
    return waitFor([&] { return gallery.window()->isActiveWindow(); }) && waitFor([&] {
               const bool settled = former == widget.globalPosition();
               former = widget.globalPosition();
               QTest::qWait(100);
               return settled;
           });
}

TEST_F(GalleryOnDisplay, countsTheClicksOfThePointer)
{
    const Watchdog watchdog(std::chrono::seconds(120), "gallery");
    gallery::GalleryWindow gallery;
    ASSERT_TRUE(gallery.select("counting"));
    auto* const button = find<VXButton2>(gallery, "counter");
    auto* const count = find<VXText2>(gallery, "count");
    ASSERT_NE(button, nullptr);
    ASSERT_NE(count, nullptr);
    ASSERT_TRUE(isPlaced(gallery, *button));

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

TEST_F(GalleryOnDisplay, movesWhatIsPaintedAndWorksInPictures)
{
    const Watchdog watchdog(std::chrono::seconds(120), "gallery");
    gallery::GalleryWindow gallery;
    ASSERT_TRUE(gallery.select("diagram"));
    auto* const log = find<VXText2>(gallery, "log");
    auto* const diagram = find<VXWidget2>(gallery, "diagram");
    ASSERT_TRUE(log && diagram && isPlaced(gallery, *diagram));
    const auto says = [&](const char* text) {
        return waitFor([&] { return log->text().find(text) != std::string::npos; }, Patience);
    };
    const VXRect<int> place = diagram->globalPosition();
    xdotool(at({place.x + 80, place.y + 50}) + QStringLiteral(" mousedown 1"));
    xdotool(at({place.x + 90, place.y + 60}));
    xdotool(at({place.x + 180, place.y + 150}) + QStringLiteral(" mouseup 1"));
    EXPECT_TRUE(says("Order at 130, 130")) << log->text();
    xdotool(QStringLiteral("key Right"));
    EXPECT_TRUE(says("Order at 134, 130")) << log->text();

    ASSERT_TRUE(gallery.select("mimic"));
    auto* const view = find<VXMimicView2>(gallery, "mimic");
    auto* const source = find<VXButton2>(gallery, "mimic-press");
    ASSERT_TRUE(view && source);
    ASSERT_TRUE(waitFor([&] { return view->pictureRect().height > 0; }));
    ASSERT_TRUE(isPlaced(gallery, *source));
    const VXRect<int> picture = view->pictureRect();
    const VXRect<int> area = view->globalPosition();
    const VXRect<int> shown = view->source()->widget()->globalPosition();
    const VXRect<int> button = source->globalPosition();
    const auto scaled = [&](int offset) { return offset * picture.width / shown.width; };
    xdotool(at({area.x + picture.x + scaled(button.x - shown.x + button.width / 2),
                area.y + picture.y + scaled(button.y - shown.y + button.height / 2)})
            + QStringLiteral(" click 1"));
    EXPECT_TRUE(says("pressed, here or there")) << log->text();
}

TEST_F(GalleryOnDisplay, opensContextMenusByRealKeys)
{
    const Watchdog watchdog(std::chrono::seconds(120), "gallery");
    gallery::GalleryWindow gallery;
    const auto isOpen = [] { return QApplication::activePopupWidget() != nullptr; };
    int menus = 0;
    for (const char* const page : {"actions", "digmenus"}) {
        ASSERT_TRUE(gallery.select(page));
        ASSERT_TRUE(isPlaced(gallery, *gallery.window()));
        for (VXObject2* const object : gallery.window()->children(true)) {
            auto* const widget = dynamic_cast<VXWidget2*>(object);
            if (!widget || !widget->isVisible()
                || !widget->isEventConsumed(WidgetEvent::ContextMenu))
                continue;
            widget->setFocus();
            for (const char* const key : {"Menu", "shift+F10"}) {
                ++menus;
                xdotool({QStringLiteral("key"), QLatin1String(key)});
                EXPECT_TRUE(waitFor(isOpen, Patience)) << key << " on " << page;
                xdotool({QStringLiteral("key"), QStringLiteral("Escape")});
                EXPECT_TRUE(waitFor([&] { return !isOpen(); }, Patience));
            }
        }
    }
    EXPECT_GE(menus, 4);
}

} // namespace
} // namespace VOXI
