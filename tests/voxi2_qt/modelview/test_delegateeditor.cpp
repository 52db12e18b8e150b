// The editor that the delegate of item views places, and the widgets that cells carry.

#include "../kernel/toolkit.h"
#include "cellroles.h"
#include "delegateview.h"
#include "support/waitfor.h"
#include "support/watchedtest.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxspinbox2.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>
#include <thread>

using namespace VOXI;

namespace {

class DelegateEditor : public WatchedTest
{
protected:
    DelegateEditor()
    {
        m_view->show();
        m_view->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_view.get()));
        m_view->setFocus();
    }
    ~DelegateEditor() override { runDeletions(); }

    void place(int row, const VXWidget2& editor)
    {
        m_view->delegate().setIndexWidget(m_view->at(row), qt(editor));
    }
    static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void expectAlone(const VXWidget2& editor) const
    {
        ASSERT_NE(qt(editor), nullptr);
        EXPECT_EQ(qt(editor)->parentWidget(), nullptr);
        EXPECT_TRUE(qt(editor)->isHidden());
        EXPECT_EQ(m_view->indexWidget(m_view->at(1)), nullptr);
        EXPECT_FALSE(m_view->delegate().isEditing());
        EXPECT_FALSE(m_view->isInEditing());
    }
    /// With the event loop's turn if it is reported only then.
    void expectOneEnd(bool isCommitted, unsigned editor)
    {
        turn();
        ASSERT_EQ(m_view->m_completions.size(), 1u);
        EXPECT_EQ(m_view->m_completions[0].row, 2u);
        EXPECT_EQ(m_view->m_completions[0].editor, editor);
        EXPECT_EQ(m_view->m_completions[0].isCommitted, isCommitted);
        m_view->m_completions.clear();
    }

    std::unique_ptr<DelegateView> m_view = std::make_unique<DelegateView>();
    VXPanel2 m_owner;
};

/// With two stops and things that are none.
struct Form
{
    VXPanel2 m_panel;
    VXSpinBox2 m_first{&m_panel};
    VXSpinBox2 m_disabled{&m_panel};
    VXSpinBox2 m_hidden{&m_panel};
    VXButton2 m_last{&m_panel};

    Form()
    {
        m_disabled.setEnabled(false);
        m_hidden.hide();
        m_last.setPosition({0, 10, 20, 10});
    }
};

} // namespace

TEST_F(DelegateEditor, isRequestedOnceForACell)
{
    QtViewDelegate2& delegate = m_view->delegate();
    const QStyleOptionViewItem option;
    EXPECT_EQ(delegate.createEditor(m_view->viewport(), option, m_view->at(1)), nullptr);
    delegate.requestIndexWidget(m_view->at(1));
    EXPECT_TRUE(delegate.isPendingEdit(m_view->at(1)));
    delegate.requestIndexWidget(m_view->at(2));
    EXPECT_FALSE(delegate.isPendingEdit(m_view->at(1)));
    delegate.requestIndexWidget(QModelIndex());
    EXPECT_EQ(m_view->m_requests, (std::vector<unsigned>{2, 3}));

    // What was not asked for is placed as well, and the request stands.
    VXSpinBox2 editor(&m_owner);
    place(1, editor);
    EXPECT_TRUE(delegate.isPendingEdit(m_view->at(2)));
    place(2, editor);
    EXPECT_FALSE(delegate.getPendingIndex().isValid());
    EXPECT_EQ(m_view->m_requests.size(), 2u);
}

TEST_F(DelegateEditor, standsInItsCellUntilItIsClosed)
{
    VXSpinBox2 editor(&m_owner);
    Comings comings{&editor};
    place(1, editor);
    QtViewDelegate2& delegate = m_view->delegate();
    EXPECT_TRUE(delegate.isEditing() && m_view->isInEditing());
    EXPECT_EQ(delegate.getEditorIndex(), m_view->at(1));
    EXPECT_EQ(delegate.getEditorWidget(), qt(editor));
    EXPECT_EQ(m_view->currentIndex(), m_view->at(1));
    EXPECT_EQ(m_view->indexWidget(m_view->at(1)), qt(editor));
    EXPECT_EQ(qt(editor)->geometry(), m_view->visualRect(m_view->at(1)));
    EXPECT_TRUE(qt(editor)->isVisible() && qt(editor)->hasFocus());
    EXPECT_EQ(m_view->m_forwarded, 1);
    EXPECT_TRUE(m_view->m_requests.empty());
    place(1, editor);
    EXPECT_EQ(m_view->m_forwarded, 1) << "the second time does nothing";
    EXPECT_TRUE(m_view->m_completions.empty());

    m_view->setColumnWidth(0, 77);
    turn();
    EXPECT_EQ(qt(editor)->geometry(), m_view->visualRect(m_view->at(1)));

    delegate.closeIndexWidget(m_view->at(2), true);
    EXPECT_TRUE(delegate.isEditing()) << "that is another cell";
    delegate.closeIndexWidget(m_view->at(1), false);
    expectAlone(editor);
    expectOneEnd(false, editor.id());
    EXPECT_TRUE(m_view->hasFocus());
    EXPECT_FALSE(comings.areReported());

    place(1, editor);
    VXSpinBox2 next(&m_owner);
    place(2, next);
    expectOneEnd(true, editor.id());
    EXPECT_EQ(qt(editor)->parentWidget(), nullptr);
    EXPECT_TRUE(m_view->isInEditing() && qt(next)->hasFocus());
    place(1, editor);
    m_view->m_completions.clear();
    delegate.setIndexWidget(m_view->at(1), nullptr);
    expectAlone(editor);
    expectOneEnd(true, editor.id());

    // It is a widget like any other again.
    editor.show();
    EXPECT_TRUE(qt(editor)->isVisible() && qt(editor)->isWindow());
}

TEST_F(DelegateEditor, refusesWhatTheViewLiesIn)
{
    VXPanel2 around;
    auto* const inner = new DelegateView;
    inner->setParent(qt(around));
    inner->delegate().setIndexWidget(inner->at(1), qt(around));
    EXPECT_FALSE(inner->delegate().isEditing());
}

TEST_F(DelegateEditor, keysMoveInItOrEndIt)
{
    Form form;
    QWidget* const first = qt(form.m_first);
    QWidget* const last = qt(form.m_last);
    place(1, form.m_panel);
    EXPECT_TRUE(first->hasFocus());
    key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(last->hasFocus());
    key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(first->hasFocus());
    key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(last->hasFocus());
    key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(first->hasFocus() && m_view->delegate().isEditing());
    QTest::mouseClick(last, Qt::LeftButton);
    last->setFocus(Qt::MouseFocusReason);
    EXPECT_TRUE(last->hasFocus() && m_view->delegate().isEditing());

    key(Qt::Key_Tab);
    expectAlone(form.m_panel);
    expectOneEnd(true, form.m_panel.id());

    for (const auto& [pressed, isCommitted] :
         {std::pair(Qt::Key_Escape, false), std::pair(Qt::Key_Backtab, true),
          std::pair(Qt::Key_Return, true)}) {
        place(1, form.m_panel);
        key(pressed);
        turn();
        expectAlone(form.m_panel);
        expectOneEnd(isCommitted, form.m_panel.id());
    }
    EXPECT_TRUE(m_view->hasFocus());
}

TEST_F(DelegateEditor, endsWhenTheFocusLeavesIt)
{
    Form form;
    QLineEdit beside(m_view.get());
    beside.show();
    place(1, form.m_panel);
    beside.setFocus();
    expectAlone(form.m_panel);
    expectOneEnd(true, form.m_panel.id());
    EXPECT_TRUE(beside.hasFocus()) << "it is not taken back from there";

    VXSpinBox2 single(&m_owner);
    place(1, single);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    expectAlone(single);
    expectOneEnd(true, single.id());
    EXPECT_EQ(m_view->focusWidget(), m_view.get()) << "for when the window is used again";
}

TEST_F(DelegateEditor, aLateEndIsNotThatOfTheNext)
{
    VXSpinBox2 editor(&m_owner);
    VXSpinBox2 next(&m_owner);
    place(1, editor);
    key(Qt::Key_Return);
    place(2, next);
    turn();
    EXPECT_TRUE(m_view->delegate().isEditing());
    expectOneEnd(true, editor.id());
}

TEST_F(DelegateEditor, aFocusProxyIsTakenBack)
{
    Form form;
    form.m_panel.setFocusPolicy(FocusPolicy::Strong);
    place(1, form.m_panel);
    EXPECT_EQ(form.m_panel.focusProxy(), &form.m_first);
    EXPECT_TRUE(qt(form.m_first)->hasFocus());
    m_view->delegate().closeIndexWidget(m_view->at(1), true);
    EXPECT_EQ(form.m_panel.focusProxy(), nullptr);

    form.m_panel.setFocusProxy(&form.m_last);
    place(1, form.m_panel);
    EXPECT_TRUE(qt(form.m_last)->hasFocus());
    key(Qt::Key_Escape);
    EXPECT_EQ(form.m_panel.focusProxy(), &form.m_last);
    expectAlone(form.m_panel);
}

TEST_F(DelegateEditor, mayGoAtAnyTime)
{
    VXPanel2 elsewhere;
    const std::pair<const char*, std::function<void(VXSpinBox2*&)>> ends[] = {
        {"destroyed",
         [](VXSpinBox2*& editor) {
             delete editor;
             editor = nullptr;
             runDeletions();
         }},
        {"destroyed by a worker",
         [](VXSpinBox2*& editor) {
             std::thread([&] { delete editor; }).join();
             editor = nullptr;
             turn();
             runDeletions();
         }},
        {"deleted by Qt", [](VXSpinBox2*& editor) { delete qt(*editor); }},
        {"put elsewhere", [&](VXSpinBox2*& editor) { editor->setParent(&elsewhere); }},
        {"its row removed", [this](VXSpinBox2*&) { m_view->m_model.removeRow(1); }},
        {"reset", [this](VXSpinBox2*&) { m_view->reset(); }},
        {"another model", [this](VXSpinBox2*&) { m_view->setModel(nullptr); }},
        {"its column hidden", [this](VXSpinBox2*&) { m_view->hideColumn(0); }},
    };
    for (const auto& [name, end] : ends) {
        SCOPED_TRACE(name);
        auto* editor = new VXSpinBox2(&m_owner);
        const unsigned id = editor->id();
        m_view->setModel(&m_view->m_model);
        place(1, *editor);
        m_view->setFocus();
        m_view->m_completions.clear();
        place(1, *editor);
        const QPointer<QWidget> widget = qt(*editor);
        ASSERT_TRUE(widget && widget->isVisible() && widget->hasFocus());
        end(editor);
        EXPECT_TRUE(
            waitFor([this] { return !m_view->delegate().isEditing() && !m_view->isInEditing(); }));
        EXPECT_EQ(m_view->delegate().getEditorWidget(), nullptr);
        const std::string_view how = name;
        expectOneEnd(how == "its column hidden", id);
        if (widget) {
            EXPECT_EQ(widget->parentWidget() == nullptr, how != "put elsewhere");
            EXPECT_FALSE(widget->isVisible());
        }
        // Nothing is left of it in the view, and the next one is at home there.
        m_view->setModel(&m_view->m_model);
        m_view->showColumn(0);
        VXSpinBox2 next(&m_owner);
        place(1, next);
        EXPECT_TRUE(m_view->isInEditing() && qt(next)->hasFocus());
        delete editor;
        runDeletions();
        EXPECT_TRUE(m_view->isInEditing() && qt(next)->isVisible());
        m_view->delegate().closeIndexWidget(m_view->at(1), true);
        m_view->m_completions.clear();
    }
}

TEST_F(DelegateEditor, aWidgetThatACellCarriesStandsInIt)
{
    auto* button = new VXButton2(&m_owner);
    VXButton2 other(&m_owner);
    const QModelIndex first = m_view->at(1);
    const auto carry = [&](const QModelIndex& index, const VXWidget2& widget) {
        m_view->m_model.setData(index, widget.id(), CellWidgetRole);
    };
    const auto stands = [&](const QModelIndex& index, const VXWidget2& widget) {
        return waitFor([&] {
            return m_view->indexWidget(index) == qt(widget) && qt(widget)->isVisible()
                   && qt(widget)->geometry() == m_view->visualRect(index);
        });
    };
    carry(first, *button);
    EXPECT_TRUE(stands(first, *button));
    carry(m_view->at(2), *button);
    m_view->viewport()->repaint();
    turn();
    EXPECT_EQ(m_view->indexWidget(m_view->at(2)), nullptr) << "it stands in the first";
    carry(first, other);
    EXPECT_TRUE(stands(first, other));
    EXPECT_TRUE(stands(m_view->at(2), *button));
    m_view->m_model.setData(m_view->at(2), QVariant(), CellWidgetRole);
    EXPECT_TRUE(waitFor([&] { return !qt(*button)->parentWidget(); }));
    carry(m_view->at(2), *button);
    EXPECT_TRUE(stands(m_view->at(2), *button));

    // As an editor it remains in its cell.
    place(1, other);
    EXPECT_TRUE(m_view->isInEditing() && qt(other)->hasFocus());
    key(Qt::Key_Escape);
    expectOneEnd(false, other.id());
    EXPECT_TRUE(stands(first, other));
    EXPECT_FALSE(m_view->isInEditing());

    // What takes its place does not end it, and gives the place back.
    VXSpinBox2 editor(&m_owner);
    place(1, editor);
    EXPECT_EQ(qt(other)->parentWidget(), nullptr);
    m_view->m_model.setData(m_view->at(2), QVariant(), CellWidgetRole);
    EXPECT_TRUE(waitFor([&] { return !qt(*button)->parentWidget(); }));
    EXPECT_TRUE(m_view->isInEditing());
    m_view->delegate().closeIndexWidget(first, true);
    EXPECT_TRUE(stands(first, other));
    m_view->m_model.removeRow(1);
    EXPECT_TRUE(qt(other) && !qt(other)->parentWidget() && qt(other)->isHidden());

    const QModelIndex last = m_view->at(0);
    carry(last, *button);
    EXPECT_TRUE(stands(last, *button));
    delete button;
    runDeletions();
    m_view->viewport()->repaint();
    EXPECT_EQ(m_view->indexWidget(last), nullptr);
}

TEST_F(DelegateEditor, theViewEndsBeforeWhatItShows)
{
    VXSpinBox2 editor(&m_owner);
    VXButton2 carried(&m_owner);
    for (int i = 0; i < 2; ++i) {
        m_view->m_model.setData(m_view->at(0), carried.id(), CellWidgetRole);
        EXPECT_TRUE(waitFor([&] { return m_view->indexWidget(m_view->at(0)) != nullptr; }));
        place(1, editor);
        // A view that is a peer lets them go; here the test does.
        m_view->delegate().closeIndexWidget(m_view->at(1), true);
        qt(carried)->setParent(nullptr);
        m_view = std::make_unique<DelegateView>();
        m_view->show();
    }
    EXPECT_TRUE(qt(editor) && qt(carried));
}
