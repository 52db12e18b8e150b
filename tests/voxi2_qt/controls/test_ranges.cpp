#include "../kernel/toolkit.h"
#include "voxi2/controls/vxdial2.h"
#include "voxi2/controls/vxprogressbar2.h"
#include "voxi2/controls/vxslider2.h"
#include "voxi2/controls/vxspinbox2.h"

#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QTest>

#include <climits>
#include <gtest/gtest.h>

namespace VOXI {
namespace {

void typeInto(VXWidget2& widget, const char* text)
{
    QTest::keyClicks(qt(widget)->findChild<QLineEdit*>(), QString::fromLatin1(text));
}

TEST(Slider, isReportedWhenItsHandleIsLetGo)
{
    VXSlider2 slider;
    EXPECT_EQ(slider.orientation(), Orientation::Horizontal);
    slider.resize({300, 30});
    slider.show();
    slider.setValue(10);
    Log moved(slider.valueChanged());

    auto* widget = dynamic_cast<QSlider*>(qt(slider));
    QStyleOptionSlider option;
    option.initFrom(widget);
    option.maximum = 99;
    option.sliderPosition = 10;
    QPoint at = widget->style()
                    ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, widget)
                    .center();
    QTest::mousePress(widget, Qt::LeftButton, {}, at);
    for (int step = 0; step < 10; ++step) {
        at.rx() += 10;
        QTest::mouseMove(widget, at);
    }
    turn();
    EXPECT_TRUE(moved.isEmpty());
    EXPECT_EQ(slider.value(), 10);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, at);
    turn();
    ASSERT_EQ(moved.count(), 1);
    EXPECT_EQ(moved.last().slider(), &slider);
    EXPECT_GT(moved.last().newValue(), 30);
    EXPECT_EQ(moved.last().newValue(), slider.value());
    moved.clear();

    QTest::keyClick(widget, Qt::Key_End);
    turn();
    ASSERT_EQ(moved.count(), 1);
    EXPECT_EQ(moved.last().newValue(), 99);
    slider.setRange({200, 100});
    EXPECT_EQ(slider.range(), (VXPoint<int>{200, 200}));
    EXPECT_EQ(slider.value(), 200);
}

TEST(Slider, ticksHaveTwoNames)
{
    VXSlider2 slider;
    for (const auto& [set, back] :
         {std::pair(1, 1), {2, 2}, {3, 3}, {4, 2}, {5, 3}, {0, 0}, {9, 0}, {-1, 0}}) {
        slider.setTickPosition(static_cast<TickPosition>(set));
        EXPECT_EQ(static_cast<int>(slider.tickPosition()), back) << set;
    }
}

/// Styles draw them one by one, and add up without end beyond what an int holds.
TEST(Slider, billionsOfTicksAreDrawnAtOnce)
{
    VXSlider2 slider;
    slider.setTickPosition(TickPosition::BothSides);
    for (const auto& range : {VXPoint<int>{0, INT_MAX - 1}, VXPoint<int>{INT_MIN, INT_MAX},
                              VXPoint<int>{INT_MAX - 10, INT_MAX}}) {
        slider.setRange(range);
        for (const int interval : {0, 1, INT_MAX}) {
            slider.setTickInterval(interval);
            EXPECT_FALSE(qt(slider)->grab().isNull()); // or the watchdog ends it
            EXPECT_EQ(slider.tickInterval(), interval);
        }
    }
    slider.setValue(INT_MAX);
    EXPECT_EQ(slider.value(), INT_MAX);
}

TEST(Dial, isReportedForKeysAndDrags)
{
    VXDial2 dial;
    dial.resize({100, 100});
    dial.show();
    Log turned(dial.valueChanged());
    QTest::keyClick(qt(dial), Qt::Key_PageUp);
    turn();
    ASSERT_EQ(turned.count(), 1);
    EXPECT_EQ(turned.last().dial(), &dial);
    EXPECT_EQ(turned.last().newValue(), 10);
    turned.clear();
    QTest::mousePress(qt(dial), Qt::LeftButton, {}, {50, 10});
    QTest::mouseMove(qt(dial), {90, 50});
    turn();
    EXPECT_TRUE(turned.isEmpty());
    QTest::mouseRelease(qt(dial), Qt::LeftButton, {}, {90, 50});
    turn();
    EXPECT_TRUE(turned.takeOne());
    EXPECT_GT(dial.notchSize(), 0);
}

TEST(SpinBox, typedValuesAreReportedWhenCommitted)
{
    VXSpinBox2 spin;
    spin.setSuffix(" km");
    spin.show();
    spin.setFocus();
    Log values(spin.valueChanged());
    Log texts(spin.textChanged());
    qt(spin)->findChild<QLineEdit*>()->selectAll();
    typeInto(spin, "42");
    turn();
    EXPECT_EQ(texts.count(), 2);
    EXPECT_EQ(texts.last().spinBox(), &spin);
    EXPECT_EQ(spin.textU(), L"42 km");
    EXPECT_TRUE(values.isEmpty());
    QTest::keyClick(qt(spin), Qt::Key_Return);
    turn();
    ASSERT_EQ(values.count(), 1);
    EXPECT_EQ(values.last().spinBox(), &spin);
    EXPECT_EQ(values.last().newValue(), 42);
    texts.clear();
    values.clear();

    spin.setValue(5);
    spin.stepBy(3);
    turn();
    EXPECT_EQ(spin.text(), "8 km");
    EXPECT_TRUE(texts.isEmpty());
    EXPECT_TRUE(values.isEmpty());
    typeInto(spin, "1");
    spin.stepBy(1); // commits what was typed
    turn();
    EXPECT_TRUE(values.isEmpty());
}

TEST(SpinBox, imitatesItsUser)
{
    VXSpinBox2 spin;
    Log values(spin.valueChanged());
    const auto reported = [&] {
        turn();
        const int value = values.isEmpty() ? -1 : values.last().newValue();
        EXPECT_LE(values.count(), 1);
        values.clear();
        return value;
    };
    spin.imitateValue(98);
    EXPECT_EQ(reported(), 98);
    spin.imitateSpinUp();
    EXPECT_EQ(reported(), 99);
    spin.imitateSpinUp();
    EXPECT_EQ(reported(), -1) << "at the end of the range";
    spin.imitateSpinDown();
    EXPECT_EQ(reported(), 98);

    spin.setRange({INT_MIN, INT_MAX});
    spin.setSingleStep(INT_MAX);
    spin.setValue(INT_MAX - 1);
    spin.imitateSpinUp();
    EXPECT_EQ(reported(), INT_MAX);
    for (const int steps : {INT_MIN, INT_MAX}) {
        for (int i = 0; i < 3; ++i)
            spin.stepBy(steps);
        EXPECT_EQ(spin.value(), steps);
    }
}

/// Qt waits inside of its handler; who imitates a user would stand still.
TEST(SpinBox, itsMenuIsOpenWhileTheProgramGoesOn)
{
    VXSpinBox2 spin;
    spin.setValue(99);
    spin.show();
    Log values(spin.valueChanged());
    spin.imitateContextMenu({5, 5}, {50, 50});
    QMenu* menu = qt(spin)->findChild<QMenu*>();
    ASSERT_TRUE(menu && menu->isVisible());
    const QList<QAction*> entries = menu->actions();
    EXPECT_FALSE(entries[entries.size() - 2]->isEnabled()) << "at the greatest value";
    entries.last()->trigger();
    turn();
    EXPECT_EQ(values.count(), 1);
    EXPECT_EQ(spin.value(), 98);
    menu->close();
    runDeletions();
    EXPECT_EQ(qt(spin)->findChild<QMenu*>(), nullptr);
}

TEST(ProgressBar, showsATextInPlaceOfThePercentage)
{
    VXProgressBar2 bar;
    const auto picture = [&] { return qt(bar)->grab().toImage(); };
    bar.resize({300, 30});
    EXPECT_LT(bar.value(), bar.minimum()) << "nothing has begun";
    bar.setValue(40);
    const QImage percentage = picture();
    bar.setCustomText("forty");
    const QImage text = picture();
    EXPECT_NE(text, percentage);
    bar.setTextVisible(false);
    const QImage none = picture();
    EXPECT_NE(none, text);
    EXPECT_NE(none, percentage);
    bar.setTextVisible(true);
    bar.setCustomText({});
    EXPECT_EQ(picture(), percentage);

    bar.setValue(1000);
    EXPECT_EQ(bar.value(), 40);
    bar.setMinimum(50);
    EXPECT_LT(bar.value(), 50);
    bar.setMaximum(20);
    EXPECT_EQ(bar.minimum(), 20);
}

/// Qt leaves out what would look as before, and has to know for that what it has painted.
TEST(ProgressBar, isPaintedWhenItComesBackToAFormerValue)
{
    VXProgressBar2 bar;
    bar.setMinimum(-100);
    bar.resize({300, 30});
    bar.show();
    QImage shown;
    for (const int value : {-1, 50, -1, 50}) {
        bar.setValue(value);
        turn();
        const QImage now = qt(bar)->screen()->grabWindow(bar.winId()).toImage();
        EXPECT_NE(now, shown) << value;
        shown = now;
    }
}

} // namespace
} // namespace VOXI
