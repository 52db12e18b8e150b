#include "viewsupport.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxspinbox2.h"

#include <QEventLoop>
#include <QSpinBox>
#include <QTimer>

namespace VOXI {
namespace {

class ViewEditing : public ShownView<VXTableView2>
{
protected:
    ViewEditing()
    {
        m_window.show();
        QApplication::setActiveWindow(qt(m_window));
        m_model.setCell(2, 2,
                        CellUIData(L"button").setReadOnly(false).setRenderer(CellRenderer::Button));
        m_model.setCell(3, 1, CellUIData(L"read only"));
        m_model.setCell(4, 1, CellUIData(L"disabled").setReadOnly(false).setEnabled(false));
        m_model.setCell(
            5, 1, CellUIData(L"drawn").setReadOnly(false).setRenderer(CellRenderer::Background));
        show(m_model);
    }

    /// Answers each request with the editor.
    void answer()
    {
        m_view.editRequested().connect(&m_listener, [this](const VXEditRequestEvent2& event) {
            m_view.setEditor(event.row(), event.column(), &m_editor);
        });
    }

    TROV::Listener m_listener;
    NumberedModel m_model{20};
    VXSpinBox2 m_editor{&m_window};
    Log<VXEditRequestEvent2> m_requests{m_view.editRequested()};
    Log<VXEditCompleteEvent2> m_ends{m_view.editCompleted()};
};

TEST_F(ViewEditing, asksForAnEditorByItsTriggersOnly)
{
    m_view.setEditTriggers(EditTrigger::DoubleClicked | EditTrigger::EditKeyPressed);
    EXPECT_EQ(m_view.editTriggers(), EditTrigger::DoubleClicked | EditTrigger::EditKeyPressed);
    click(1, 1);
    EXPECT_TRUE(m_requests.isEmpty());
    QTest::mouseDClick(viewport(), Qt::LeftButton, {}, centreOf(1, 1));
    EXPECT_EQ(m_requests.only().row(), 1U);
    EXPECT_EQ(m_requests.only().column(), 1U);
    m_view.imitateEdit(1, 2, EditTrigger::EditKeyPressed);
    EXPECT_EQ(m_requests.last().column(), 2U);
    m_view.imitateEdit(1, 3, EditTrigger::AnyKeyPressed);
    EXPECT_EQ(m_requests.count(), 2) << "no such trigger is set";
    click(2, 2);
    EXPECT_EQ(m_requests.last().row(), 2U) << "a drawn control wants its editor at once";
    m_requests.clear();
    // One that draws nothing by itself goes by the triggers.
    m_view.imitateEdit(5, 1, EditTrigger::AnyKeyPressed);
    EXPECT_TRUE(m_requests.isEmpty());
    m_view.imitateEdit(5, 1, EditTrigger::DoubleClicked);
    EXPECT_TRUE(m_requests.takeOne());
    m_view.setEditTriggers(EditTrigger::All);
    for (const unsigned row : {3U, 4U}) {
        click(row, 1);
        QTest::mouseDClick(viewport(), Qt::LeftButton, {}, centreOf(row, 1));
        m_view.imitateEdit(row, 1, EditTrigger::EditKeyPressed);
        m_view.imitateEdit(row, 1, EditTrigger::SelectedClicked);
    }
    EXPECT_TRUE(m_requests.isEmpty()) << "read-only or disabled";
    m_view.imitateEdit(99, 1, EditTrigger::EditKeyPressed);
    EXPECT_TRUE(m_requests.isEmpty());
}

TEST_F(ViewEditing, beginsWithAClickWhereThatIsATrigger)
{
    m_view.setEditTriggers(EditTrigger::CurrentChanged);
    QTest::mousePress(viewport(), Qt::LeftButton, {}, centreOf(1, 1));
    QTest::mouseRelease(viewport(), Qt::LeftButton, {}, centreOf(1, 2));
    EXPECT_TRUE(m_requests.isEmpty()) << "let go elsewhere";
    click(1, 1);
    EXPECT_TRUE(m_requests.takeOne());
    m_view.setActiveCell({6, 1, nullptr});
    EXPECT_TRUE(m_requests.isEmpty()) << "the program made it current";
    QTest::keyClick(&qtView(), Qt::Key_Down);
    EXPECT_EQ(m_requests.only().row(), 7U);
    m_requests.clear();
    m_view.imitateEdit(8, 1, EditTrigger::CurrentChanged);
    EXPECT_EQ(m_requests.only().row(), 8U) << "a click where the cell is";
    EXPECT_EQ(m_view.activeCell().row, 8U);
}

TEST_F(ViewEditing, bringsTheEditorWhatCameBeforeIt)
{
    Log pressed(m_editor.mousePressed());
    Log keys(m_editor.keyPressed());
    m_view.setEditTriggers(EditTrigger::CurrentChanged);
    click(1, 1);
    EXPECT_TRUE(m_requests.takeOne());
    type(QStringLiteral("7"));
    EXPECT_TRUE(pressed.isEmpty());
    m_view.setEditor(1, 1, &m_editor);
    turn();
    EXPECT_EQ(m_view.editor(1, 1), &m_editor);
    EXPECT_TRUE(m_editor.isVisible());
    EXPECT_EQ(qobject_cast<QSpinBox*>(qt(m_editor))->text(), QStringLiteral("7"));
    m_view.setEditor(1, 1, &m_editor);
    EXPECT_TRUE(m_ends.isEmpty());
    m_view.setEditor(1, 1, nullptr);
    EXPECT_EQ(m_ends.only().editor(), &m_editor);
    EXPECT_TRUE(m_ends.only().isCommitted());
    EXPECT_EQ(m_view.editor(1, 1), nullptr);
    EXPECT_FALSE(m_editor.isVisible());

    // Placing the editor makes its cell the current one; that drops nothing.
    m_view.setEditTriggers(EditTrigger::EditKeyPressed);
    m_view.imitateEdit(6, 1, EditTrigger::EditKeyPressed);
    type(QStringLiteral("5"));
    m_view.setEditor(6, 1, &m_editor);
    EXPECT_EQ(qobject_cast<QSpinBox*>(qt(m_editor))->text(), QStringLiteral("5"));
    EXPECT_EQ(m_view.activeCell().row, 6U);
    m_view.setEditor(6, 1, nullptr);
    m_view.setEditTriggers(EditTrigger::CurrentChanged);

    // Another cell comes in between.
    click(2, 1);
    type(QStringLiteral("9"));
    m_view.setActiveCell({3, 2, nullptr});
    m_editor.setValue(1);
    m_view.setEditor(2, 1, &m_editor);
    turn();
    EXPECT_EQ(m_editor.value(), 1);
}

TEST_F(ViewEditing, aClickThatAsksReachesTheEditorToo)
{
    VXButton2 button(&m_window);
    Log clicked(button.clicked());
    m_view.editRequested().connect(&m_listener, [&](const VXEditRequestEvent2& event) {
        m_view.setEditor(event.row(), event.column(), &button);
    });
    click(2, 2);
    EXPECT_EQ(m_requests.count(), 1);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(m_view.editor(2, 2), &button);
    QTest::mouseClick(viewport()->childAt(centreOf(2, 2)), Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 2);
    EXPECT_EQ(m_requests.count(), 1);
}

TEST_F(ViewEditing, asksOncePerClickForWhatIsAnsweredAtOnce)
{
    m_view.editRequested().connect(&m_listener, [&](const VXEditRequestEvent2& event) {
        m_view.setEditor(event.row(), event.column(), nullptr);
    });
    click(2, 2);
    EXPECT_EQ(m_requests.count(), 1);
    click(2, 2);
    EXPECT_EQ(m_requests.count(), 2);
}

TEST_F(ViewEditing, goesOnToTheNextCellAndBack)
{
    answer();
    m_view.setEditTriggers(EditTrigger::EditKeyPressed);
    m_view.imitateEdit(1, 1, EditTrigger::EditKeyPressed);
    ASSERT_EQ(m_view.editor(1, 1), &m_editor);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(m_ends.only().isCommitted());
    EXPECT_EQ(m_view.editor(1, 2), &m_editor);
    EXPECT_EQ(m_view.activeCell().column, 2U);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(m_view.editor(1, 1), &m_editor);
    m_ends.clear();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    turn();
    EXPECT_FALSE(m_ends.only().isCommitted());
    EXPECT_EQ(m_view.editor(1, 1), nullptr);
}

/// What is tabbed to is edited when it is known, by what was typed until then.
TEST_F(ViewEditing, goesOnToCellsThatAreNotKnownYet)
{
    answer();
    m_view.setEditTriggers(EditTrigger::EditKeyPressed);
    const auto tab = [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); };
    const auto tabFrom = [&](SlowModel& model, unsigned row, unsigned column) {
        model.m_cell = [](unsigned inRow, unsigned inColumn) {
            const bool isDisabled = inRow == 2 && inColumn == 1;
            return CellUIData(inRow).setReadOnly(false).setEnabled(!isDisabled);
        };
        show(model);
        m_view.setActiveCell({row, column, nullptr});
        m_view.setEditor(row, column, &m_editor);
        m_ends.clear();
        tab();
        EXPECT_TRUE(m_ends.only().isCommitted());
    };
    const auto answerAll = [&](SlowModel& model) {
        model.answerAll();
        settle();
    };
    SlowModel slow(5);
    tabFrom(slow, 1, 1);
    EXPECT_EQ(m_view.activeCell(), (ModelCell2{1, 2, &slow}));
    EXPECT_TRUE(m_requests.isEmpty());
    type(QStringLiteral("7"));
    answerAll(slow);
    EXPECT_EQ(m_view.editor(1, 2), &m_editor);
    EXPECT_EQ(qobject_cast<QSpinBox*>(qt(m_editor))->text(), QStringLiteral("7"));

    SlowModel quick(5);
    tabFrom(quick, 1, 1);
    type(QStringLiteral("8"));
    tab();
    answerAll(quick);
    EXPECT_EQ(m_ends.last().column(), 2U) << "another Tab waits, too";
    EXPECT_EQ(m_editor.value(), 8);
    EXPECT_EQ(m_view.editor(2, 2), &m_editor);

    SlowModel disabled(5);
    tabFrom(disabled, 1, 2);
    EXPECT_EQ(m_view.activeCell(), (ModelCell2{2, 1, &disabled}));
    answerAll(disabled);
    EXPECT_EQ(m_view.editor(2, 2), &m_editor) << "the way leads past what turns out disabled";

    SlowModel left(5);
    tabFrom(left, 3, 1);
    QTest::keyClick(&qtView(), Qt::Key_Down);
    m_requests.clear();
    answerAll(left);
    EXPECT_TRUE(m_requests.isEmpty()) << "the user has gone elsewhere";
}

TEST_F(ViewEditing, survivesTheEndOfEditorRowAndView)
{
    m_view.setEditTriggers(EditTrigger::EditKeyPressed);
    auto editor = std::make_unique<VXSpinBox2>(&m_window);
    m_view.setEditor(1, 1, editor.get());
    editor.reset();
    runDeletions();
    EXPECT_EQ(m_view.editor(1, 1), nullptr);
    m_view.setEditor(1, 1, &m_editor);
    m_model.removeRow(1);
    settle();
    EXPECT_TRUE(VXObject::isObjectValid(&m_editor));
    EXPECT_FALSE(m_editor.isVisible());
    m_view.setEditor(2, 1, &m_editor);
    NumberedModel other(2);
    show(other);
    EXPECT_FALSE(m_editor.isVisible());
    m_view.setEditor(2, 1, &m_editor);
    EXPECT_TRUE(m_editor.isVisible());
    {
        VXTableView2 second(&m_window);
        second.setViewModel(&other);
        second.setEditor(1, 1, &m_editor);
        EXPECT_EQ(second.editor(1, 1), &m_editor);
    }
    runDeletions();
    EXPECT_TRUE(VXObject::isObjectValid(&m_editor));
    EXPECT_TRUE(lookup(&m_editor)) << "whose it was it still is";
}

/// What is reported at the end of a change is told one after the other.
TEST_F(ViewEditing, anEditorMayEndBeforeItsEndIsTold)
{
    auto* editor = new VXSpinBox2(&m_window);
    m_view.setActiveCell({1, 1, &m_model});
    m_view.setEditor(1, 1, editor);
    TROV::Listener listener;
    bool wasFirst = false;
    const auto end = [&] {
        wasFirst = wasFirst || m_ends.isEmpty();
        delete std::exchange(editor, nullptr);
    };
    editor->hidden().connect(&listener, end);
    editor->focusLost().connect(&listener, end);
    m_view.activeCellChanged().connect(&listener, end);
    m_model.removeRow(1);
    settle();
    EXPECT_TRUE(wasFirst);
    EXPECT_EQ(m_ends.only().editor(), nullptr);
}

TEST_F(ViewEditing, handlersMayRunALoopThatEndsAll)
{
    auto view = std::make_unique<VXTableView2>(&m_window);
    auto editor = std::make_unique<VXSpinBox2>(&m_window);
    m_window.setCentralWidget(view.get());
    view->show();
    view->setViewModel(&m_model);
    view->setEditTriggers(EditTrigger::All);
    const QPointer<QWidget> gone = qt(*view);
    auto* const table = qobject_cast<QAbstractItemView*>(gone.data());
    for (int i = 0; i < 3; ++i) {
        turn();
        table->grab();
    }
    const auto endAll = [&] {
        view.reset();
        editor.reset();
        QEventLoop loop;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
    };
    view->editRequested().connect(nullptr, [&](const VXEditRequestEvent2& event) {
        view->setEditor(event.row(), event.column(), editor.get());
    });
    view->editCompleted().connect(nullptr, endAll);
    view->imitateEdit(1, 1, EditTrigger::EditKeyPressed);
    ASSERT_EQ(view->editor(1, 1), editor.get());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_FALSE(view);
    runDeletions();
    EXPECT_TRUE(gone.isNull());
}

TEST_F(ViewEditing, anotherViewWorksInALoopThatItsHandlerRuns)
{
    VXTableView2 second(&m_window);
    second.setViewModel(&m_model);
    second.resize({300, 200});
    second.show();
    Log selected(second.selectionChanged());
    auto* const other = qobject_cast<QAbstractItemView*>(qt(second));
    other->grab();
    settle();
    bool isFirst = true;
    m_view.selectionChanged().connect(&m_listener, [&](const VXViewSelectionChangeEvent2&) {
        if (!std::exchange(isFirst, false))
            return;
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] {
            QTest::mouseClick(other->viewport(), Qt::LeftButton, {},
                              other->visualRect(other->model()->index(0, 0)).center());
            loop.quit();
        });
        loop.exec();
    });
    click(1, 1);
    EXPECT_FALSE(isFirst);
    EXPECT_FALSE(selected.isEmpty());
}

} // namespace
} // namespace VOXI
