// The pointer on its way from a menu into the dig menu that its entry has opened.

#include "menusupport.h"
#include "support/steppedclock.h"

#include <QScreen>
#include <QTimer>

namespace VOXI {

namespace {

using namespace std::chrono_literals;

constexpr auto Respite = std::chrono::milliseconds(QtMenu2::POPUP_HOLD_TIMEOUT);

/// Both menus open, the pointer over the dig menu's entry: to the right or to the left, reading
/// either way.
struct Side
{
    const char* m_name;
    bool m_isAtRightEdge;
    Qt::LayoutDirection m_direction;
};

class Wedge : public MenuTest, public testing::WithParamInterface<Side>
{
protected:
    void SetUp() override
    {
        m_top->setLayoutDirection(GetParam().m_direction);
        m_sub->setLayoutDirection(GetParam().m_direction);
        const QRect area = m_top->screen()->geometry();
        const int x = GetParam().m_isAtRightEdge ? area.right() - m_top->sizeHint().width() + 1
                                                 : area.center().x();
        open({x, area.top() + 150});
        ASSERT_FALSE(HasFatalFailure());
        m_isLeft = m_sub->x() < m_top->x();
    }
    virtual void open(QPoint position) { openFilledUnderPointer(position); }

    /// A point of the sub-menu near its edge towards the menu.
    QPoint target() const
    {
        const QRect sub = m_sub->geometry();
        const int y = std::min(sub.bottom(), m_top->geometry().bottom()) - 30;
        return QPoint(m_isLeft ? sub.right() - 12 : sub.left() + 12, y);
    }
    /// A point of that entry of the menu inside the wedge.
    QPoint onTheWay(int index) const
    {
        const QPoint start = QCursor::pos();
        const int dy = middleOf(index).y() - start.y();
        return QPoint(m_isLeft ? m_top->geometry().left() + 5 : m_top->geometry().right() - 5,
                      start.y() + dy);
    }
    QAction* underPointer() const { return m_top->actionAt(m_top->mapFromGlobal(QCursor::pos())); }
    /// Straight to the target; the dig menu's entry stays active all the way.
    void travel()
    {
        bool crossed = false;
        const QPoint start = QCursor::pos();
        for (int i = 1; i <= 12; ++i) {
            m_pointer.moveTo(start + (target() - start) * i / 12);
            ASSERT_FALSE(HasFatalFailure());
            crossed = crossed || (underPointer() && underPointer() != m_sub->menuAction());
            ASSERT_EQ(m_top->activeAction(), m_sub->menuAction()) << "step " << i;
        }
        EXPECT_TRUE(crossed) << "the path is worth nothing";
    }
    bool staysOpen()
    {
        m_clock.advance(2 * Respite);
        return !waitFor([&] { return m_top->activeAction() != m_sub->menuAction(); }, 500ms)
               && m_sub->isVisible();
    }

    SteppedClock m_clock; // a busy machine may let the pointer rest on its way
    Pointer m_pointer;
    bool m_isLeft = false;
};

TEST_P(Wedge, keeps_the_menu_open_while_the_pointer_travels_across_other_entries)
{
    travel();
    ASSERT_FALSE(HasFatalFailure());
    // Arrived: however long it stays.
    EXPECT_TRUE(staysOpen());
    EXPECT_TRUE(m_sub->activeAction());
}

/// The pointer itself opens the dig menu. Qt then tells the menu at once that the pointer has left
/// it, which is not so.
class WedgeByPointer : public Wedge
{
protected:
    void open(QPoint position) override
    {
        m_dig->aboutToShow().connect(m_window.get(), [this] {
            fill(*m_dig, 14);
            QTimer::singleShot(50, qApp, [this] { m_dig->digComplete(m_menu); });
        });
        m_menu->popup(position.x(), position.y());
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_top));
        m_pointer.moveTo(middleOf(DigEntry));
        ASSERT_TRUE(waitFor([&] { return m_sub->isVisible() && m_sub->updatesEnabled(); }));
    }
};

TEST_P(WedgeByPointer, keeps_the_menu_open_as_well) { travel(); }

TEST_P(Wedge, is_released_by_lingering_over_another_entry)
{
    m_pointer.moveTo(onTheWay(DigEntry + 1));
    m_clock.advance(Respite - 1ms);
    EXPECT_EQ(m_top->activeAction(), m_sub->menuAction());
    m_clock.advance(1ms);
    EXPECT_EQ(m_top->activeAction(), entry(DigEntry + 1));
    // Qt takes nothing back, and the next entry becomes active at once.
    EXPECT_FALSE(waitFor([&] { return m_top->activeAction() != entry(DigEntry + 1); }, 1200ms));
    EXPECT_FALSE(m_sub->isVisible());
}

TEST_P(Wedge, gives_every_move_a_new_respite)
{
    const QPoint first = onTheWay(DigEntry + 1);
    const QPoint second = first + QPoint(0, 4);
    m_pointer.moveTo(first);
    for (int i = 0; i < 4; ++i) {
        m_clock.advance(Respite - 1ms);
        m_pointer.moveTo(QCursor::pos() == first ? second : first);
        ASSERT_EQ(m_top->activeAction(), m_sub->menuAction()) << i;
    }
}

TEST_P(Wedge, ends_where_the_pointer_leaves_it)
{
    m_pointer.moveTo(middleOf(DigEntry - 2));
    EXPECT_EQ(m_top->activeAction(), entry(DigEntry - 2)) << "at once";
}

TEST_P(Wedge, believes_leave_events_only_when_the_pointer_has_left)
{
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_top, &leave);
    const QPoint inside = onTheWay(DigEntry + 1);
    m_pointer.moveTo(inside);
    EXPECT_EQ(m_top->activeAction(), m_sub->menuAction());
    m_pointer.moveAsideTo(m_top->geometry().topLeft() - QPoint(0, 60));
    QCoreApplication::sendEvent(m_top, &leave);
    m_pointer.moveTo(inside);
    EXPECT_EQ(m_top->activeAction(), entry(DigEntry + 1));
}

TEST_P(Wedge, ends_with_the_menu_that_it_leads_to)
{
    m_sub->hide();
    m_pointer.moveTo(onTheWay(DigEntry + 1));
    EXPECT_EQ(m_top->activeAction(), entry(DigEntry + 1));
    m_menu->hide();

    // Destroyed, with the timer running.
    m_menu->popup(300, 150);
    m_pointer.moveTo(middleOf(DigEntry));
    m_top->setActiveAction(m_sub->menuAction());
    ASSERT_TRUE(waitFor([&] { return m_sub->isVisible() && m_sub->updatesEnabled(); }));
    m_isLeft = m_sub->x() < m_top->x();
    m_pointer.moveTo(onTheWay(DigEntry + 1));
    ASSERT_EQ(m_top->activeAction(), m_sub->menuAction());
    m_dig->destroy();
    runDeletions();
    ASSERT_FALSE(m_sub);
    m_pointer.moveTo(QCursor::pos() + QPoint(0, 2));
    EXPECT_EQ(m_top->activeAction(), underPointer());
    m_menu->destroy();
    runDeletions();
}

TEST_P(Wedge, is_released_by_a_press)
{
    QTest::mousePress(m_top, Qt::LeftButton, {}, m_top->mapFromGlobal(QCursor::pos()));
    m_pointer.moveTo(onTheWay(DigEntry + 1));
    EXPECT_EQ(m_top->activeAction(), entry(DigEntry + 1));
}

TEST_P(Wedge, is_released_by_hiding)
{
    // The dig menu's own end would release it as well.
    m_dig->closing().connect(m_window.get(), [](const VXCloseEvent2& event) { event.refuse(); });
    const QPoint position = m_top->pos();
    const QPoint next = onTheWay(DigEntry + 1);
    m_menu->hide();
    ASSERT_TRUE(m_sub->isVisible());
    m_menu->popup(position.x(), position.y());
    m_pointer.moveTo(next);
    EXPECT_EQ(m_top->activeAction(), entry(DigEntry + 1));
    m_menu->hide();
    m_dig->hide();
}

TEST_P(Wedge, is_released_by_clearing_the_menu)
{
    m_pointer.moveTo(onTheWay(DigEntry + 1));
    m_menu->clear();
    fill(*m_menu, 10);
    m_pointer.moveTo(onTheWay(DigEntry + 2));
    EXPECT_EQ(m_top->activeAction(), underPointer());
}

const auto s_sides =
    testing::Values(Side{"Right", false, Qt::LeftToRight}, Side{"Left", true, Qt::LeftToRight},
                    Side{"RightToLeft", false, Qt::RightToLeft});

std::string nameOf(const testing::TestParamInfo<Side>& test) { return test.param.m_name; }

INSTANTIATE_TEST_SUITE_P(All, Wedge, s_sides, nameOf);
INSTANTIATE_TEST_SUITE_P(All, WedgeByPointer, s_sides, nameOf);

} // namespace

} // namespace VOXI
