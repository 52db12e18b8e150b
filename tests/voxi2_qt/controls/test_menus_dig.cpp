// Menus that the application fills while they open.

#include "menusupport.h"
#include "support/watchdog.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <QTimer>

#include <thread>

namespace VOXI {

namespace {

constexpr QSize OnePixel(1, 1);

class DigMenus : public MenuTest
{
protected:
    bool isShownWhole() const
    {
        return m_sub->isVisible() && m_sub->updatesEnabled() && m_sub->size() == m_sub->sizeHint()
               && m_sub->size() != OnePixel;
    }
    /// Opens both; the answer comes later.
    void openAndAnswer(QPoint position, int items)
    {
        openBoth(position);
        fill(*m_dig, items);
        m_dig->digComplete(m_menu);
    }
    QRect entryOnScreen() const
    {
        const QRect inside = m_top->actionGeometry(m_sub->menuAction());
        return QRect(m_top->mapToGlobal(inside.topLeft()), inside.size());
    }
    int overlap() const { return m_top->style()->pixelMetric(QStyle::PM_SubMenuOverlap); }
    QRect area() const { return m_top->screen()->geometry(); }
};

TEST_F(DigMenus, wait_at_one_pixel_and_ask_once)
{
    fill(*m_dig, 2);
    const ShowCounter counter(*m_dig);
    openBoth({100, 100});
    EXPECT_EQ(m_sub->size(), OnePixel);
    EXPECT_FALSE(m_sub->updatesEnabled());
    EXPECT_EQ(m_dig->count(), 0) << "cleared before it asks";
    EXPECT_EQ(counter.m_menu, m_dig);
    fill(*m_dig, 3);
    EXPECT_EQ(m_sub->size(), OnePixel);
    m_sub->hide();
    m_dig->popup(150, 150);
    EXPECT_EQ(counter.m_count, 1);
    EXPECT_EQ(m_dig->count(), 3) << "what was added meanwhile stays";
    m_dig->digComplete();
    EXPECT_TRUE(isShownWhole());
    EXPECT_EQ(m_sub->pos(), QPoint(150, 150));
    m_dig->popup(10, 10);
    EXPECT_EQ(counter.m_count, 2);
}

TEST_F(DigMenus, are_placed_beside_their_parent_whenever_the_answer_comes)
{
    const ShowCounter counter(*m_dig);
    openAndAnswer({100, 100}, 7);
    EXPECT_TRUE(isShownWhole());
    EXPECT_EQ(m_sub->minimumSize(), QSize(0, 0));
    const QPoint beside(entryOnScreen().right() + overlap() + 1, entryOnScreen().top());
    EXPECT_EQ(m_sub->pos(), beside);

    // At once, from inside the handler.
    m_menu->hide();
    m_dig->aboutToShow().connect(m_window.get(), [this] {
        fill(*m_dig, 5);
        m_dig->digComplete(m_menu);
    });
    openBoth({100, 100});
    ASSERT_TRUE(waitFor([&] { return isShownWhole(); }));
    EXPECT_EQ(m_sub->pos(), beside);
    EXPECT_EQ(m_dig->count(), 5);
}

TEST_F(DigMenus, can_be_filled_by_another_thread)
{
    const Watchdog watchdog(std::chrono::seconds(20));
    std::thread worker;
    m_dig->aboutToShow().connect(m_window.get(), [&](const VXMenuEvent2& event) {
        worker = std::thread([menu = VXHandle<VXMenu2>(event.menu()), parent = m_menu] {
            for (int i = 0; i < 4; ++i)
                menu->addAction("from afar");
            menu->digComplete(parent);
        });
    });
    openBoth({100, 100});
    EXPECT_TRUE(waitFor([&] { return isShownWhole(); }));
    EXPECT_EQ(m_dig->count(), 4);
    worker.join();
}

TEST_F(DigMenus, close_when_there_is_nothing_to_show)
{
    // Later, and at once; it is the program's doing.
    const ShowCounter counter(*m_dig);
    Log hides(m_dig->hidden());
    openBoth({100, 100});
    fill(*m_dig, 2);
    m_dig->digFailed();
    EXPECT_FALSE(m_sub->isVisible());
    EXPECT_TRUE(m_sub->updatesEnabled());
    EXPECT_EQ(m_dig->count(), 0);
    EXPECT_EQ(m_sub->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));

    m_dig->aboutToShow().connect(m_window.get(), [&] { m_dig->digFailed(); });
    openBoth({100, 100});
    EXPECT_TRUE(waitFor([&] { return !m_sub->isVisible() && m_sub->updatesEnabled(); }));
    EXPECT_EQ(counter.m_count, 2);
    EXPECT_TRUE(hides.isEmpty());
}

TEST_F(DigMenus, take_a_second_answer_and_one_that_nobody_waits_for)
{
    const ShowCounter counter(*m_dig);
    m_dig->digComplete(m_menu);
    EXPECT_FALSE(m_sub->isVisible());
    openAndAnswer({100, 100}, 3);
    const QRect place = m_sub->geometry();
    m_dig->digComplete(m_menu);
    EXPECT_EQ(m_sub->geometry(), place);
    m_dig->digFailed();
    m_dig->digFailed();
    EXPECT_FALSE(m_sub->isVisible());
    EXPECT_EQ(counter.m_count, 1);
}

TEST_F(DigMenus, show_nothing_when_they_were_closed_before_the_answer)
{
    const ShowCounter counter(*m_dig);
    openBoth({100, 100});
    m_menu->hide();
    ASSERT_FALSE(m_sub->isVisible());
    fill(*m_dig, 3);
    m_dig->digComplete(m_menu);
    EXPECT_FALSE(m_sub->isVisible());
    EXPECT_TRUE(m_sub->updatesEnabled());

    // Closed in the same breath as the answer.
    openBoth({100, 100});
    m_dig->digComplete(m_menu);
    m_sub->hide();
    QCoreApplication::processEvents();
    EXPECT_FALSE(m_sub->isVisible());
    EXPECT_EQ(counter.m_count, 2);
}

TEST_F(DigMenus, may_lose_their_parent_or_go_themselves_while_they_wait)
{
    const ShowCounter counter(*m_dig);
    openBoth({100, 100});
    fill(*m_dig, 3);
    VXMenu2* const gone = m_menu;
    m_menu->destroy();
    runDeletions();
    m_dig->digComplete(gone);
    EXPECT_TRUE(m_sub->updatesEnabled());

    auto* second = new VXMenu2(m_window.get());
    second->setDigMenu(true);
    const VXHandle<VXMenu2> handle = second;
    second->aboutToShow().connect(m_window.get(), [] {});
    second->popup(50, 50);
    second->destroy();
    handle->digComplete(); // a late answer
    runDeletions();
    handle->digFailed();
    EXPECT_FALSE(handle.isValid());
    // From inside the handler.
    m_dig->aboutToShow().connect(m_window.get(), [&] { m_dig->destroy(); });
    m_dig->digFailed();
    m_dig->popup(60, 60);
    EXPECT_TRUE(waitFor([&] { return !m_sub; }));
}

TEST_F(DigMenus, keep_no_application_from_closing)
{
    const ShowCounter counter(*m_dig);
    openBoth({100, 100});
    ASSERT_EQ(m_sub->size(), OnePixel);
    QApplication::setQuitOnLastWindowClosed(true);
    QTimer::singleShot(0, qApp, [&] { EXPECT_TRUE(m_window->close()); });
    QTimer limit;
    QObject::connect(&limit, &QTimer::timeout, qApp, [] { QCoreApplication::exit(1); });
    limit.start(std::chrono::seconds(5));
    EXPECT_EQ(QApplication::exec(), 0);
    QApplication::setQuitOnLastWindowClosed(false);
}

TEST_F(DigMenus, keep_their_limits_through_reopening)
{
    // Nobody listens: it is shrunk at each opening, not only while it waits.
    VXMenu2 unheard;
    unheard.setDigMenu(true);
    unheard.setMaximumSize({300, 400});
    unheard.popup(10, 10);
    unheard.popup(20, 20);
    EXPECT_EQ(qt(unheard)->maximumSize(), OnePixel);
    unheard.digComplete();
    EXPECT_EQ(qt(unheard)->maximumSize(), QSize(300, 400));
}

TEST_F(DigMenus, keep_the_limits_that_are_set_while_they_wait_and_plain_ones_theirs)
{
    const auto setLimits = [](VXMenu2& menu) {
        menu.setMinimumSize({250, 1});
        menu.setMaximumSize({400, 500});
    };
    for (const bool isDig : {false, true}) {
        VXMenu2 menu;
        menu.setDigMenu(isDig);
        if (!isDig)
            setLimits(menu);
        Log resizes(menu.resized());
        menu.aboutToShow().connect(&menu, [&] {
            if (isDig)
                setLimits(menu);
            EXPECT_EQ(menu.minimumSize(), (Size<int>{250, 1}));
            EXPECT_EQ(menu.maximumSize(), (Size<int>{400, 500}));
            EXPECT_EQ(qt(menu)->maximumSize() == OnePixel, isDig);
            fill(menu, 2);
        });
        menu.popup(10, 10);
        menu.digComplete();
        EXPECT_EQ(qt(menu)->minimumSize(), QSize(250, 1)) << isDig;
        EXPECT_EQ(qt(menu)->maximumSize(), QSize(400, 500));
        EXPECT_EQ(qt(menu)->width(), 250);
    }
}

TEST_F(DigMenus, are_as_large_as_others_when_they_are_none_any_more)
{
    for (const bool isOpen : {false, true}) {
        VXMenu2 menu;
        menu.setDigMenu(true);
        menu.popup(10, 10); // nobody hears of it
        EXPECT_EQ(qt(menu)->size(), OnePixel);
        fill(menu, 2);
        if (!isOpen)
            menu.hide();
        menu.setDigMenu(false);
        if (!isOpen)
            menu.popup(10, 10);
        EXPECT_EQ(qt(menu)->size(), qt(menu)->sizeHint());
        EXPECT_GT(qt(menu)->width(), 1);
        EXPECT_TRUE(qt(menu)->updatesEnabled());
    }
}

TEST_F(DigMenus, are_not_shown_any_more_when_another_entry_is_the_active_one)
{
    const ShowCounter counter(*m_dig);
    Log hides(m_dig->hidden());
    m_menu->popup(100, 100);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_top));
    Pointer pointer;
    pointer.moveTo(middleOf(DigEntry));
    ASSERT_TRUE(waitFor([&] { return m_sub->isVisible(); }));
    pointer.moveTo(middleOf(DigEntry + 3));
    ASSERT_TRUE(m_sub->isVisible()) << "Qt leaves it open for a while";
    fill(*m_dig, 3);
    m_dig->digComplete(m_menu);
    EXPECT_FALSE(m_sub->isVisible());
    EXPECT_TRUE(m_sub->updatesEnabled());
    EXPECT_TRUE(hides.isEmpty());
    EXPECT_EQ(m_top->activeAction(), entry(DigEntry + 3));
    pointer.moveTo(middleOf(DigEntry + 2)); // nothing is frozen
    EXPECT_EQ(m_top->activeAction(), entry(DigEntry + 2));

    // A menu that is not open cannot be the one from whose entry it opened.
    m_menu->hide();
    m_dig->popup(30, 30);
    fill(*m_dig, 3);
    m_dig->digComplete(m_menu);
    EXPECT_TRUE(isShownWhole());
    EXPECT_EQ(m_sub->pos(), QPoint(30, 30));
}

TEST_F(DigMenus, are_moved_onto_the_screen_by_no_pixel_more_than_needed)
{
    const ShowCounter counter(*m_dig);
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        m_sub->setLayoutDirection(direction);
        m_dig->popup(100, 100);
        fill(*m_dig, 4);
        m_dig->digComplete();
        const QSize size = m_sub->size();
        const int right = area().right() - size.width() + 1;
        const int bottom = area().bottom() - size.height() + 1;
        const QPoint first = area().topLeft();
        const struct
        {
            QPoint m_at, m_expected;
        } cases[] = {
            {first, first},
            {first - QPoint(1, 0), first},
            {first - QPoint(0, 1), first},
            {first - QPoint(30, 30), first},
            {{right, bottom}, {right, bottom}},
            {{right + 1, bottom}, {right, bottom}},
            {{right, bottom + 1}, {right, bottom}},
            {{area().right(), area().bottom()}, {right, bottom}},
            // From beyond the right edge: its own width back, reading from there.
            {{area().right() + 20, 50},
             {direction == Qt::LeftToRight ? right : area().right() + 20 - size.width(), 50}},
        };
        for (const auto& place : cases) {
            m_dig->popup(100, 100);
            m_sub->move(place.m_at);
            fill(*m_dig, 4);
            m_dig->digComplete();
            EXPECT_EQ(m_sub->pos(), place.m_expected)
                << direction << " from " << place.m_at.x() << "," << place.m_at.y();
        }
    }
}

TEST_F(DigMenus, open_on_the_other_side_where_they_do_not_fit)
{
    const ShowCounter counter(*m_dig);
    fill(*m_menu, 1);
    openBoth({area().right() - m_top->sizeHint().width() + 1, 100});
    m_dig->addAction("Wider than one pixel");
    m_dig->digComplete(m_menu);
    EXPECT_EQ(m_sub->x(), entryOnScreen().left() - m_sub->width() - overlap());
    EXPECT_EQ(m_sub->y(), entryOnScreen().top());
    m_menu->hide();

    // On neither side.
    openBoth({area().center().x(), 100});
    m_dig->addAction(std::string(60, 'W'));
    m_dig->digComplete(m_menu);
    ASSERT_GT(m_sub->width(), area().width() / 2);
    ASSERT_LT(m_sub->width(), area().width());
    EXPECT_EQ(m_sub->x(), area().right() - m_sub->width());
}

TEST_F(DigMenus, open_to_the_left_where_people_read_that_way)
{
    m_top->setLayoutDirection(Qt::RightToLeft);
    m_sub->setLayoutDirection(Qt::RightToLeft);
    const ShowCounter counter(*m_dig);
    openAndAnswer(area().center(), 2);
    EXPECT_EQ(m_sub->x(), entryOnScreen().left() - m_sub->width() - overlap());
    m_menu->hide();
    openAndAnswer({area().left(), 100}, 2);
    EXPECT_EQ(m_sub->x(), entryOnScreen().right() + overlap() + 1);
}

TEST_F(DigMenus, taller_than_the_screen_end_at_its_bottom)
{
    m_sub->setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1 }"));
    const ShowCounter counter(*m_dig);
    openAndAnswer({100, 100}, 100);
    ASSERT_GT(m_sub->height(), area().height());
    EXPECT_EQ(m_sub->geometry().bottom(), area().bottom());
}

} // namespace

} // namespace VOXI
