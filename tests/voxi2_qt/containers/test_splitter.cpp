#include "../kernel/toolkit.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxsplitter2.h"

#include <QSplitter>
#include <QTest>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

class Splitter : public testing::Test
{
protected:
    ~Splitter() override
    {
        delete m_splitter;
        runDeletions();
    }

    QSplitter* qtSplitter() const { return static_cast<QSplitter*>(qt(*m_splitter)); }

    void show()
    {
        m_splitter->addWidget(m_first, 1);
        m_splitter->addWidget(m_second, 1);
        m_splitter->resize({206, 100});
        m_splitter->show();
        turn();
    }

    VXPanel2 m_owner; // of the widgets, so that they are not added as they are made
    VXSplitter2* m_splitter = new VXSplitter2;
    VXPanel2* m_first = new VXPanel2(&m_owner);
    VXPanel2* m_second = new VXPanel2(&m_owner);
    VXPanel2* m_third = new VXPanel2(&m_owner);
};

TEST_F(Splitter, isMadeWithItsOrientationAndHandles)
{
    EXPECT_EQ(m_splitter->orientation(), Orientation::Horizontal);
    EXPECT_EQ(qtSplitter()->handleWidth(), 6);
    const VXSplitter2 upright(nullptr, Orientation::Vertical);
    EXPECT_EQ(static_cast<QSplitter*>(qt(upright))->orientation(), Qt::Vertical);
}

TEST_F(Splitter, putsWidgetsWhereTheyAreToGo)
{
    m_splitter->addWidget(m_first);
    m_splitter->addWidget(m_third, 2);
    m_splitter->insertWidget(m_second, 1, 3);
    EXPECT_EQ(m_splitter->count(), 3);
    EXPECT_EQ(m_splitter->widgetIndex(m_second), 1);
    EXPECT_EQ(qt(*m_second)->sizePolicy().horizontalStretch(), 3);
    EXPECT_EQ(qt(*m_third)->sizePolicy().horizontalStretch(), 2);
    EXPECT_EQ(qt(*m_third)->sizePolicy().verticalStretch(), 2);
    m_splitter->addWidget(m_first);
    EXPECT_EQ(m_splitter->widgetIndex(m_first), 2) << "it moved to the end";
    m_splitter->removeWidget(m_second);
    delete m_third;
    runDeletions();
    EXPECT_EQ(m_splitter->count(), 1);
}

TEST_F(Splitter, ignoresWhatItCannotTake)
{
    VXPanel2* const dead = m_third;
    delete m_third;
    runDeletions();
    for (VXWidget2* widget : {static_cast<VXWidget2*>(nullptr), static_cast<VXWidget2*>(dead)}) {
        m_splitter->insertWidget(widget, 0);
        m_splitter->removeWidget(widget);
        EXPECT_EQ(m_splitter->widgetIndex(widget), -1);
    }
    m_splitter->addWidget(m_splitter);
    m_splitter->removeWidget(m_first); // is not in it
    m_splitter->setCollapsible(m_first, false);
    EXPECT_FALSE(m_splitter->isCollapsible(m_first));
    EXPECT_EQ(m_first->peerParent(), &m_owner);
    m_splitter->setSizes({1, -5, 7});
    EXPECT_TRUE(m_splitter->sizes().empty());
}

TEST_F(Splitter, collapsing)
{
    m_splitter->addWidget(m_first);
    m_splitter->addWidget(m_second);
    m_splitter->setCollapsible(m_first, false);
    EXPECT_FALSE(m_splitter->isCollapsible(m_first));
    EXPECT_TRUE(m_splitter->isCollapsible(m_second));
    EXPECT_TRUE(m_splitter->isCollapsible(nullptr));
    m_splitter->setCollapsible(nullptr, false);
    EXPECT_FALSE(m_splitter->isCollapsible(nullptr));
    VXPanel2* const dead = m_third;
    delete m_third;
    EXPECT_FALSE(m_splitter->isCollapsible(dead)) << "as for null";
    m_splitter->setCollapsible(dead, true);
    EXPECT_FALSE(m_splitter->isCollapsible(nullptr)) << "but setting it does nothing";
}

TEST_F(Splitter, onlyTheUsersMovesAreReported)
{
    show();
    Log moves(m_splitter->handleMoved());
    m_splitter->setSizes({50, 150});
    EXPECT_EQ(m_splitter->sizes(), (std::list<int>{50, 150}));
    turn();
    EXPECT_TRUE(moves.isEmpty());

    QWidget* const handle = qtSplitter()->handle(1);
    QTest::mousePress(handle, Qt::LeftButton, {}, QPoint(3, 50));
    QTest::mouseMove(handle, QPoint(33, 50));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(3, 50));
    EXPECT_EQ(m_splitter->sizes(), (std::list<int>{80, 120}));
    ASSERT_FALSE(moves.isEmpty());
    EXPECT_EQ(moves.last().splitter(), m_splitter);
    EXPECT_EQ(moves.last().index(), 1);
    EXPECT_EQ(moves.last().position(), 80);
}

TEST_F(Splitter, mayBeDestroyedWhileItsHandleIsDragged)
{
    show();
    m_splitter->handleMoved().connect(m_first, [&] { delete std::exchange(m_splitter, nullptr); });
    QPointer<QWidget> handle(qtSplitter()->handle(1));
    QTest::mousePress(handle, Qt::LeftButton, {}, QPoint(3, 50));
    for (const int x : {33, 63}) {
        if (handle) // it goes with the widgets beside it, which are not the splitter's
            QTest::mouseMove(handle, QPoint(x, 50));
    }
    runDeletions();
    EXPECT_TRUE(handle.isNull());
    EXPECT_EQ(m_splitter, nullptr);
}

TEST_F(Splitter, losesPanesWhileItShowsThem)
{
    show();
    m_splitter->hide();
    TROV::Listener listener;
    m_first->hidden().connect(&listener, [&] { m_splitter->removeWidget(m_second); });
    m_first->shown().connect(&listener, [&] {
        m_splitter->removeWidget(m_second);
        m_splitter->addWidget(m_third);
        m_splitter->removeWidget(m_third);
    });
    for (int i = 0; i < 3; ++i) {
        // Qt goes through the children that it had, handles among them.
        qtSplitter()->show();
        m_splitter->addWidget(m_second);
        qtSplitter()->hide();
        m_splitter->addWidget(m_second);
    }
    runDeletions();
    EXPECT_EQ(qtSplitter()->findChildren<QSplitterHandle*>().size(), m_splitter->count());
}

TEST_F(Splitter, dropsTheWindowThatAPaneWas)
{
    show();
    m_third->setParent(nullptr);
    m_third->show();
    m_third->hide();
    // Its QWindow stays, but Qt takes the widget for one that has none.
    qt(*m_third)->setWindowFlags(Qt::Tool);
    ASSERT_NE(qt(*m_third)->windowHandle(), nullptr);
    m_third->setParent(m_splitter);
    EXPECT_EQ(qt(*m_third)->windowHandle(), nullptr);
    m_third->show();
    EXPECT_TRUE(qt(*m_third)->isVisible());
}

TEST_F(Splitter, handlesShowAGripInBothOrientations)
{
    show();
    for (const Orientation orientation : {Orientation::Horizontal, Orientation::Vertical}) {
        m_splitter->setOrientation(orientation);
        turn();
        const QImage image = qtSplitter()->handle(1)->grab().toImage();
        const QRect rect = image.rect();
        EXPECT_EQ(image.pixelColor(rect.center()), QColor(60, 140, 225));
        EXPECT_NE(image.pixelColor(rect.topLeft()), QColor(60, 140, 225));
        EXPECT_NE(image.pixelColor(rect.bottomRight()), QColor(60, 140, 225));
    }
    m_splitter->setHandleWidth(1);
    turn();
    qtSplitter()->handle(1)->grab();
}

TEST_F(Splitter, takesItsSizesBack)
{
    show();
    m_splitter->setSizes({50, 150});
    const std::string state = m_splitter->saveState();
    const std::list<int> sizes = m_splitter->sizes();
    const Log moved(m_splitter->handleMoved());
    m_splitter->setOrientation(Orientation::Vertical);
    m_splitter->setSizes({0, 100});
    m_splitter->setHandleWidth(6);
    m_splitter->setCollapsible(nullptr, false);
    EXPECT_TRUE(m_splitter->restoreState(state));
    turn();
    EXPECT_EQ(m_splitter->sizes(), sizes);
    EXPECT_EQ(m_splitter->orientation(), Orientation::Horizontal);
    EXPECT_FALSE(m_splitter->isCollapsible(nullptr)) << "that is the program's";
    EXPECT_TRUE(moved.isEmpty());

    std::string damaged = state;
    damaged[damaged.size() - 3] ^= 1;
    for (const std::string& wrong :
         {std::string(), damaged, state.substr(0, 20), m_splitter->saveGeometry()}) {
        EXPECT_FALSE(m_splitter->restoreState(wrong));
        EXPECT_EQ(m_splitter->sizes(), sizes);
    }
    VXSplitter2 fuller; // gives the first two what they had
    for (int i = 0; i < 3; ++i)
        new VXPanel2(&fuller);
    EXPECT_TRUE(fuller.restoreState(state));
}

} // namespace
} // namespace VOXI
