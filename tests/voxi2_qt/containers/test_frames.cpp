#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxframe2.h"
#include "voxi2/containers/vxgroupbox2.h"
#include "voxi2/containers/vxpanel2.h"

#include <QFrame>
#include <QGroupBox>
#include <QImage>
#include <QPainter>

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

    const QFrame& qtFrame() const { return static_cast<QFrame&>(*qt(m_frame)); }
    QImage image() const { return qt(m_frame)->grab().toImage(); }

    VXFrame2 m_frame;
};

TEST_F(Frame, shadowShapeAndLine)
{
    EXPECT_EQ(m_frame.shape(), FrameShape::None);
    for (const auto& [shadow, qtShadow] : {std::pair(FrameShadow::Raised, QFrame::Raised),
                                           std::pair(FrameShadow::Sunken, QFrame::Sunken),
                                           std::pair(FrameShadow::Plain, QFrame::Plain)}) {
        m_frame.setShadow(shadow);
        EXPECT_EQ(qtFrame().frameShadow(), qtShadow);
        EXPECT_EQ(m_frame.shadow(), shadow);
    }
    for (const int none : {3, 0, 6, -1}) {
        m_frame.setShadow(FrameShadow::Sunken);
        m_frame.setShadow(static_cast<FrameShadow>(none));
        EXPECT_EQ(m_frame.shadow(), FrameShadow::Plain) << none;
    }
    m_frame.setShape(FrameShape::Box);
    EXPECT_EQ(qtFrame().frameShape(), QFrame::Box);
    m_frame.setLineWidth(3);
    EXPECT_EQ(qtFrame().lineWidth(), 3);
}

TEST_F(Frame, paintsItsBackgroundOnceItHasAColor)
{
    EXPECT_FALSE(qtFrame().autoFillBackground());
    m_frame.setColor(ColorRole::Background, Color(10, 200, 30));
    EXPECT_TRUE(qtFrame().autoFillBackground());
    EXPECT_EQ(image().pixelColor(20, 15), QColor(10, 200, 30));
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

TEST(GroupBox, titleAndFlatness)
{
    VXGroupBox2 box;
    auto& qtBox = static_cast<QGroupBox&>(*qt(box));
    box.setTitle("Caf\xe9");
    EXPECT_EQ(qtBox.title(), QStringLiteral("Café"));
    EXPECT_EQ(box.title(), "Caf\xe9");
    box.setTitle(L"\x20ac");
    EXPECT_EQ(qtBox.title(), QStringLiteral("€"));
    EXPECT_EQ(box.titleU(), L"\x20ac");
    EXPECT_EQ(box.title(), "?");
    box.setTitle(std::u16string_view(u"x"));
    EXPECT_EQ(box.title(), "x");
    EXPECT_FALSE(box.isFlat());
    box.setFlat(true);
    EXPECT_TRUE(qtBox.isFlat());
}

TEST(GroupBox, aColorDoesNotMakeItFillItsBackground)
{
    VXGroupBox2 box;
    box.setColor(ColorRole::Background, Color(1, 2, 3));
    EXPECT_EQ(box.color(ColorRole::Background), Color(1, 2, 3));
    EXPECT_FALSE(qt(box)->autoFillBackground());
}

} // namespace
} // namespace VOXI
