#include "viewsupport.h"
#include "voxi2/kernel/vxdragmanager2.h"
#include "voxi2/modelview/vxpaletteview2.h"

#include <QAccessible>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTimer>

#include <numeric>

namespace VOXI {
namespace {

class PaletteView : public testing::Test
{
protected:
    PaletteView()
    {
        m_shapes = m_model.appendRow(0, {L"Shapes"});
        m_box = m_model.appendRow(m_shapes, {L"Box"});
        m_ball = m_model.appendRow(m_shapes, {L"Ball"});
        m_cone = m_model.appendRow(m_shapes, {CellUIData(L"Cone").setEnabled(false)});
        m_lines = m_model.appendRow(0, {L"Lines"});
        m_arc = m_model.appendRow(m_lines, {L"Arc"});
        m_window.setCentralWidget(&m_view);
        m_window.resize({400, 400});
        m_view.setViewModel(&m_model);
        m_window.show();
        settle();
    }

    void settle()
    {
        for (int i = 0; i < 4; ++i) {
            turn();
            qt(m_view)->grab();
        }
        turn();
    }
    QLineEdit& field() { return *qt(m_view)->findChild<QLineEdit*>(); }
    QAbstractItemView& entries() { return *qt(m_view)->findChild<QAbstractItemView*>(); }
    /// Seen from the viewport.
    QPoint centreOf(unsigned row)
    {
        const VXRect<int> rect = m_view.rowRect(row);
        return entries().viewport()->mapFrom(
            qt(m_view), QPoint(rect.x + rect.width / 2, rect.y + rect.height / 2));
    }
    void click(unsigned row)
    {
        QTest::mouseClick(entries().viewport(), Qt::LeftButton, {}, centreOf(row));
        turn();
    }
    void press(QWidget& widget, Qt::Key key)
    {
        QTest::keyClick(&widget, key);
        turn();
    }
    std::wstring shown()
    {
        settle();
        std::wstring all;
        for (const unsigned row : {m_shapes, m_box, m_ball, m_cone, m_lines, m_arc}) {
            if (m_view.isRowInSight(row))
                all += m_model.value(row, 1).textU() + L' ';
        }
        return all;
    }

    VXTreeModel2 m_model{{L"Tool"}};
    unsigned m_shapes = 0;
    unsigned m_box = 0;
    unsigned m_ball = 0;
    unsigned m_cone = 0;
    unsigned m_lines = 0;
    unsigned m_arc = 0;
    VXWindow2 m_window;
    VXPaletteView2 m_view{&m_window};
    Log<VXPaletteEntryEvent2> m_current{m_view.currentEntryChanged()};
    Log<VXPaletteSearchEvent2> m_searched{m_view.searchChanged()};
    Log<VXPaletteMovedEvent2> m_moved{m_view.entryMoved()};
};

TEST_F(PaletteView, hasOneCurrentEntry)
{
    Log<VXGroupViewActivateEvent2> activated(m_view.activated());
    Log<VXMouseEvent2> pressed(m_view.mousePressed());
    click(m_ball);
    EXPECT_EQ(m_current.only().entry(), m_ball);
    EXPECT_EQ(m_view.currentEntry(), m_ball);
    const VXRect<int> ball = m_view.rowRect(m_ball);
    EXPECT_EQ(pressed.only().position().x, ball.x + ball.width / 2);
    EXPECT_TRUE(activated.isEmpty());
    QTest::mouseDClick(entries().viewport(), Qt::LeftButton, {}, centreOf(m_ball));
    EXPECT_EQ(activated.only().row(), m_ball);
    click(m_lines); // folds
    click(m_cone);  // is disabled
    EXPECT_EQ(m_view.currentEntry(), m_ball);
    EXPECT_EQ(m_view.currentRow(), m_cone);
    EXPECT_TRUE(m_view.rowInfo(m_ball).isSelected);
    m_view.setAccessibleName(L"Tools");
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&entries());
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Tools"));
    EXPECT_TRUE(spoken->child(0)->child(1)->state().selected);
    m_current.clear();
    m_view.setCurrentEntry(m_arc);
    EXPECT_EQ(m_view.currentEntry(), m_arc);
    EXPECT_FALSE(m_view.isGroupFolded(m_lines));
    m_view.setCurrentEntry(m_shapes);
    m_view.setCurrentEntry(m_cone);
    EXPECT_EQ(m_view.currentEntry(), m_arc);
    EXPECT_TRUE(m_current.isEmpty());
    m_model.removeRow(m_arc);
    settle();
    EXPECT_EQ(m_view.currentEntry(), 0U);
}

TEST_F(PaletteView, showsAGridOrAList)
{
    EXPECT_EQ(m_view.rowRect(m_box).y, m_view.rowRect(m_ball).y);
    m_view.setFocus();
    m_view.setCurrentEntry(m_box);
    press(entries(), Qt::Key_Right);
    EXPECT_EQ(m_view.currentEntry(), m_ball);
    press(entries(), Qt::Key_Down);
    EXPECT_EQ(m_view.currentRow(), m_lines);
    press(entries(), Qt::Key_Up);
    EXPECT_EQ(m_view.currentRow(), m_box) << "the first in the line above";
    m_view.setEntryLayout(PaletteLayout::List);
    EXPECT_GE(m_view.rowRect(m_ball).y, m_view.rowRect(m_box).y + m_view.rowRect(m_box).height);
    m_view.setEntryLayout(PaletteLayout::Grid);
    qt(m_view)->setLayoutDirection(Qt::RightToLeft);
    EXPECT_LT(m_view.rowRect(m_ball).x, m_view.rowRect(m_box).x);
    m_window.resize({60, 400}); // there is room for one
    settle();
    EXPECT_GT(m_view.rowRect(m_ball).y, m_view.rowRect(m_box).y);
}

TEST_F(PaletteView, findsWhatIsLookedFor)
{
    m_view.setGroupFolded(m_lines);
    field().setFocus();
    QTest::keyClicks(&field(), QStringLiteral("b"));
    EXPECT_EQ(shown(), L"Shapes Box Ball ");
    EXPECT_EQ(m_searched.only().text(), L"b");
    m_model.setValue(m_arc, 1, L"Abc");
    m_model.setValue(m_box, 1, L"Cube");
    EXPECT_EQ(shown(), L"Shapes Cube Ball Lines Abc ");
    press(field(), Qt::Key_Down);
    EXPECT_EQ(m_view.currentEntry(), m_box);
    click(m_lines); // does not fold meanwhile
    EXPECT_EQ(shown(), L"Shapes Cube Ball Lines Abc ");
    m_view.setSearchText("al");
    EXPECT_EQ(shown(), L"Shapes Ball ");
    m_view.setSearchVisible(false); // it goes on
    EXPECT_FALSE(m_view.isSearchVisible() || field().isVisible());
    EXPECT_EQ(shown(), L"Shapes Ball ");
    m_view.setSearchVisible(true);
    m_view.setFiltering(false);
    EXPECT_FALSE(m_view.isFiltering());
    EXPECT_EQ(shown(), L"Shapes Cube Ball Cone Lines ");
    m_view.setFiltering(true);
    EXPECT_EQ(m_searched.count(), 1);
    press(field(), Qt::Key_Escape);
    EXPECT_EQ(m_searched.last().text(), L"");
    EXPECT_EQ(shown(), L"Shapes Cube Ball Cone Lines ") << "folded as before";
}

/// Answers only what is in sight or asked for by who looks for something.
class FarRows : public VXAbstractViewModel2
{
public:
    FarRows()
    {
        changeSize(SizeChange2::appendColumns({1}));
        changeSize(SizeChange2::appendRows({1}));
        std::vector<unsigned> rows(1'998);
        std::iota(rows.begin(), rows.end(), 2);
        changeSize(SizeChange2::appendRows(std::move(rows), 1));
    }
    ~FarRows() override { retire(); }
    void query(const ViewQuery2& query) override
    {
        if (!query.isWanted()) {
            answerBlank(query);
            return;
        }
        QueryResult2 result;
        for (const unsigned row : query.rows())
            result.set(row, 1, std::to_wstring(row));
        answer(query, std::move(result));
    }
};

TEST_F(PaletteView, looksForWhatItHasNeverSeen)
{
    FarRows model;
    m_view.setViewModel(&model);
    settle();
    EXPECT_FALSE(m_view.rowInfo(1'777).isKnown);
    m_view.imitateSearch(L"777");
    EXPECT_TRUE(waitFor([&] { return m_view.isRowInSight(1'777); }));
    EXPECT_TRUE(m_view.isRowInSight(777));
    EXPECT_FALSE(m_view.isRowInSight(778));
}

class PaletteDrags : public PaletteView
{
protected:
    /// Begins to draw the entry away; gives what is dragged, without the drag itself.
    void draw(unsigned row)
    {
        const QPoint at = centreOf(row);
        QTest::mousePress(entries().viewport(), Qt::LeftButton, {}, at);
        QMouseEvent move(QEvent::MouseMove, at + QPoint(30, 0),
                         entries().viewport()->mapToGlobal(at + QPoint(30, 0)), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(entries().viewport(), &move);
        QTest::mouseRelease(entries().viewport(), Qt::LeftButton, {}, at + QPoint(30, 0));
    }
    /// Drags an entry of a palette over a place of the widget and drops it there; whether it was
    /// taken.
    bool drop(const QByteArray& what, QPoint at)
    {
        QMimeData data;
        data.setData(QStringLiteral("application/x-voxi-palette-entry"), what);
        QDragEnterEvent enter(at, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(qt(m_view), &enter);
        QDragMoveEvent move(at, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(qt(m_view), &move);
        QDropEvent drop(at, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(qt(m_view), &drop);
        return enter.isAccepted() && drop.isAccepted();
    }
    QByteArray own(unsigned entry)
    {
        return QByteArray::number(m_view.id()) + '/' + QByteArray::number(entry);
    }
    QPoint leftOf(unsigned row)
    {
        const VXRect<int> rect = m_view.rowRect(row);
        return {rect.x + 2, rect.y + rect.height / 2};
    }
};

TEST_F(PaletteDrags, asksWhatIsDragged)
{
    Log<VXPaletteDragEvent2> dragged(m_view.entryDragged());
    Log<VXMouseEvent2> detected(m_view.dragDetected());
    draw(m_ball);
    EXPECT_EQ(dragged.only().entry(), m_ball);
    EXPECT_EQ(m_view.rowAt(detected.only().position()), m_ball);
    EXPECT_FALSE(VXDragManager2::instance()->isDragging()) << "nobody said what";
    m_view.entryDragged().connect(nullptr, [](const VXPaletteDragEvent2& event) {
        VXMimeData2 data;
        data.setText(L"a ball");
        event.setMimeData(data);
    });
    draw(m_lines); // a header is not drawn away
    EXPECT_FALSE(VXDragManager2::instance()->isDragging());
    draw(m_ball);
    EXPECT_TRUE(VXDragManager2::instance()->isDragging());
    QTimer::singleShot(0, [] { VXDragManager2::instance()->cancelDrag(); });
    EXPECT_TRUE(waitFor([] { return !VXDragManager2::instance()->isDragging(); }));
}

TEST_F(PaletteDrags, tellsWhereAnEntryIsToGo)
{
    EXPECT_FALSE(drop(own(m_ball), leftOf(m_box))) << "not unless it is reorderable";
    m_view.setReorderable(true);
    EXPECT_FALSE(m_view.canAcceptDrops());
    Log<VXDragEvent2> entered(m_view.dragEntered());
    EXPECT_TRUE(drop(own(m_ball), leftOf(m_box)));
    EXPECT_EQ(m_moved.only().entry(), m_ball);
    EXPECT_EQ(m_moved.only().group(), m_shapes);
    EXPECT_EQ(m_moved.only().before(), m_box);
    m_moved.clear();
    const VXRect<int> lines = m_view.rowRect(m_lines);
    EXPECT_TRUE(drop(own(m_ball), {lines.x + 5, lines.y + 5}));
    EXPECT_EQ(m_moved.only().group(), m_lines);
    EXPECT_EQ(m_moved.only().before(), 0U);
    m_moved.clear();
    EXPECT_FALSE(drop(own(m_ball), leftOf(m_ball))) << "it is there";
    EXPECT_FALSE(drop(own(m_ball), leftOf(m_cone))) << "it is there as well";
    EXPECT_FALSE(drop("4711/" + QByteArray::number(m_ball), leftOf(m_box))) << "another palette's";
    EXPECT_FALSE(drop(own(4711), leftOf(m_box)));
    EXPECT_FALSE(drop(own(m_shapes), leftOf(m_box)));
    m_view.entryMoving().connect(nullptr,
                                 [](const VXPaletteMovingEvent2& event) { event.refuse(); });
    EXPECT_FALSE(drop(own(m_ball), leftOf(m_box)));
    m_view.imitateMoveEntry(m_ball, m_lines);
    EXPECT_TRUE(m_moved.isEmpty());
    m_view.setAcceptDrops(true);
    drop(own(m_ball), leftOf(m_box));
    EXPECT_TRUE(entered.isEmpty()) << "they are nobody else's";
    drop("of another program", leftOf(m_box));
    EXPECT_TRUE(entered.takeOne());
}

TEST_F(PaletteDrags, shiftsAnEntryByKeys)
{
    const auto shift = [&](Qt::Key key) {
        m_moved.clear();
        QTest::keyClick(&entries(), key, Qt::AltModifier);
        turn();
        return m_moved.isEmpty() ? std::vector<unsigned>()
                                 : std::vector{m_moved.last().group(), m_moved.last().before()};
    };
    using Move = std::vector<unsigned>;
    entries().setFocus();
    m_view.setCurrentRow(m_ball);
    EXPECT_EQ(shift(Qt::Key_Right), Move()) << "not unless it is reorderable";
    m_view.setReorderable(true);
    EXPECT_EQ(shift(Qt::Key_Left), (Move{m_shapes, m_box}));
    EXPECT_EQ(shift(Qt::Key_Down), (Move{m_shapes, 0}));
    m_view.setCurrentRow(m_cone);
    EXPECT_EQ(shift(Qt::Key_Right), (Move{m_lines, m_arc})) << "into the next category";
    m_view.setCurrentRow(m_arc);
    EXPECT_EQ(shift(Qt::Key_Up), (Move{m_shapes, 0})) << "into the one before";
    EXPECT_EQ(shift(Qt::Key_Right), Move()) << "there is nothing behind";
    m_view.setCurrentRow(m_lines);
    EXPECT_EQ(shift(Qt::Key_Up), Move());
}

} // namespace
} // namespace VOXI
