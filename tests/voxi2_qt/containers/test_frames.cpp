#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxframe2.h"
#include "voxi2/containers/vxgroupbox2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxcheckbox2.h"

#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QImage>
#include <QPainter>
#include <QStyleOptionGroupBox>
#include <QTest>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

int s_painted = 0;
QRect s_rect;

void paintGreen(QPainter* painter, QRect rect)
{
    ++s_painted;
    s_rect = rect;
    painter->fillRect(rect, Qt::green);
}

class Frame : public testing::Test
{
protected:
    Frame() { m_frame.resize({40, 30}); }
    ~Frame() override { s_painted = 0; }

    QImage image() const { return qt(m_frame)->grab().toImage(); }

    VXFrame2 m_frame;
};

TEST_F(Frame, hasAPlainShadowWhereItIsToldNone)
{
    EXPECT_EQ(m_frame.shape(), FrameShape::None);
    for (const int none : {3, 0, 6, -1}) {
        m_frame.setShadow(FrameShadow::Sunken);
        m_frame.setShadow(static_cast<FrameShadow>(none));
        EXPECT_EQ(m_frame.shadow(), FrameShadow::Plain) << none;
    }
}

TEST_F(Frame, paintsItsBackgroundOnceItHasAColorAsAPanelDoes)
{
    VXPanel2 panel;
    panel.resize({40, 30});
    for (VXWidget2* each : std::initializer_list<VXWidget2*>{&m_frame, &panel}) {
        EXPECT_FALSE(qt(*each)->autoFillBackground());
        each->setColor(ColorRole::Background, Color(10, 200, 30));
        EXPECT_EQ(qt(*each)->grab().toImage().pixelColor(20, 15), QColor(10, 200, 30));
    }
}

TEST_F(Frame, aCallbackPaintsItAlone)
{
    m_frame.setShape(FrameShape::Box);
    m_frame.setLineWidth(2);
    const QImage framed = image();
    m_frame.setHighlight(true, Color(255, 0, 0));
    const QImage highlighted = image();
    EXPECT_NE(highlighted, framed);

    EXPECT_EQ(m_frame.paintCallback(), nullptr);
    m_frame.setPaintCallback(&paintGreen);
    EXPECT_EQ(m_frame.paintCallback(), &paintGreen);
    QImage green(framed.size(), framed.format());
    green.fill(Qt::green);
    EXPECT_EQ(image(), green) << "neither the frame nor the highlight is seen";
    EXPECT_EQ(s_rect, QRect(0, 0, 40, 30));

    m_frame.setPaintCallback(nullptr);
    EXPECT_EQ(image(), highlighted);
    m_frame.setHighlight(false);
    EXPECT_EQ(image(), framed);
}

TEST_F(Frame, aCallbackIsCalledSoonAndNotAtOnce)
{
    m_frame.show();
    ASSERT_TRUE(waitFor([&] { return qt(m_frame)->isVisible(); }));
    turn();
    m_frame.setPaintCallback(&paintGreen);
    EXPECT_EQ(s_painted, 0);
    EXPECT_TRUE(waitFor([] { return s_painted > 0; }));
}

TEST(GroupBox, showsItsTitleAndNoBackground)
{
    VXGroupBox2 box;
    box.setTitle("Caf\xe9");
    EXPECT_EQ(box.title(), "Caf\xe9");
    EXPECT_EQ(spokenName(box), QStringLiteral("Café"));
    box.setColor(ColorRole::Background, Color(1, 2, 3));
    EXPECT_EQ(box.color(ColorRole::Background), Color(1, 2, 3));
    EXPECT_FALSE(qt(box)->autoFillBackground()) << "other than a panel";
}

TEST(GroupBox, switchesWhatIsInIt)
{
    VXGroupBox2 group("&Group");
    auto* const inside = new VXCheckBox2("inside", &group);
    auto* other = new VXCheckBox2("other", &group);
    auto* const off = new VXCheckBox2("off", &group);
    off->setEnabled(false);
    auto* const box = static_cast<QGroupBox*>(qt(group));
    group.show();
    box->resize(200, 200);
    Log toggled(group.toggled());
    group.setChecked(true);
    EXPECT_FALSE(group.isChecked()) << "it is not checkable";
    group.setFocusPolicy(FocusPolicy::Click);
    group.setCheckable(true);
    EXPECT_TRUE(group.isChecked());
    EXPECT_EQ(group.focusPolicy(), FocusPolicy::Click) << "the program's";
    group.setChecked(false);
    EXPECT_FALSE(inside->isEnabled());
    group.setChecked(true);
    EXPECT_TRUE(inside->isEnabled());
    EXPECT_FALSE(off->isEnabled());
    EXPECT_TRUE(toggled.isEmpty());

    QApplication::setActiveWindow(box);
    inside->setFocus();
    inside->focusLost().connect(&group, [&](const VXFocusEvent2&) { delete qt(*other); });
    QStyleOptionGroupBox option;
    option.initFrom(box);
    option.text = box->title();
    option.subControls = QStyle::SC_All;
    const QRect check = box->style()->subControlRect(QStyle::CC_GroupBox, &option,
                                                     QStyle::SC_GroupBoxCheckBox, box);
    QTest::mouseClick(box, Qt::LeftButton, {}, check.center());
    EXPECT_FALSE(toggled.only().isChecked());
    EXPECT_FALSE(inside->isEnabled());
    EXPECT_EQ(lookup(other), nullptr) << "while Qt went through the group";
    // An assistive program does it in the same way.
    toggled.clear();
    group.setChecked(true);
    other = new VXCheckBox2("other", &group);
    inside->setFocus();
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(box);
    EXPECT_EQ(spoken->role(), QAccessible::CheckBox);
    EXPECT_TRUE(spoken->state().checked);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(toggled.only().isChecked());
    EXPECT_FALSE(spoken->state().checked);
    EXPECT_EQ(lookup(other), nullptr) << "while Qt went through the group";
    group.setEnabled(false);
    group.imitateToggle();
    EXPECT_EQ(toggled.count(), 1);
}

} // namespace
} // namespace VOXI
