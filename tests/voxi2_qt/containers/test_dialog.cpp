#include "dialogsupport.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/kernel/vxhandle.h"

#include <QDialog>
#include <QPointer>
#include <QPushButton>

#include <memory>
#include <stdexcept>
#include <vector>

namespace VOXI {
namespace {

class Dialog : public DialogTest
{
protected:
    Dialog()
    {
        auto* const column = new VXBoxLayout2(m_dialog, Direction::TopToBottom);
        for (VXButton2* each : {m_ok, m_other})
            column->addWidget(each);
    }
    QDialog* qtDialog() const { return qobject_cast<QDialog*>(qt(*m_dialog)); }
    void press(Qt::Key key) const
    {
        QTest::keyClick(qtDialog()->focusWidget() ? qtDialog()->focusWidget() : qtDialog(), key);
    }
    void click(VXButton2* button) const { QTest::mouseClick(qt(*button), Qt::LeftButton); }

    VXDialog2* m_dialog = new VXDialog2(m_window);
    VXButton2* m_ok = new VXButton2(m_dialog);
    VXButton2* m_other = new VXButton2(m_dialog);
    Log<VXDialogEvent2> m_finished{m_dialog->finished()};
};

TEST_F(Dialog, hasTheFrameOfAllDialogsWhereverItLies)
{
    VXFileDialog2 files(m_window);
    for (VXAbstractDialog2* each :
         {static_cast<VXAbstractDialog2*>(m_dialog), static_cast<VXAbstractDialog2*>(&files)}) {
        const auto flags = qt(*each)->windowFlags();
        EXPECT_EQ(flags & Qt::WindowType_Mask, Qt::Dialog);
        EXPECT_EQ(flags.toInt() & 0x0ffff000u, 0x3000u);
        EXPECT_EQ(qt(*each)->parentWidget(), qt(*m_window));
        each->setParent(nullptr);
        each->setParent(m_window);
        EXPECT_TRUE(qt(*each)->isWindow());
        EXPECT_EQ(qt(*each)->windowFlags(), flags);
        Log<VXWindowStateEvent2> states{each->stateChanged()};
        qt(*each)->showMaximized(); // as the window manager would
        EXPECT_TRUE(states.takeOne());
        each->hide();
    }
}

TEST_F(Dialog, blocksWhatItIsToldTo)
{
    const auto shownAs = [this] {
        const auto modality = qtDialog()->windowModality();
        m_dialog->hide();
        return modality;
    };
    m_dialog->show();
    EXPECT_EQ(shownAs(), Qt::NonModal);
    m_dialog->open();
    EXPECT_EQ(shownAs(), Qt::WindowModal);
    m_dialog->show();
    m_dialog->setModal(true);
    EXPECT_TRUE(m_dialog->isModal());
    EXPECT_EQ(shownAs(), Qt::NonModal) << "what is shown stays as it is";
    m_dialog->show();
    EXPECT_EQ(shownAs(), Qt::ApplicationModal);
    m_dialog->setModal(false);
    m_dialog->show();
    m_dialog->open();
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_EQ(shownAs(), Qt::WindowModal);
    m_dialog->setParent(nullptr);
    m_dialog->open();
    EXPECT_EQ(shownAs(), Qt::ApplicationModal) << "there is no window to block";
    EXPECT_FALSE(m_dialog->isModal());
    EXPECT_TRUE(QApplication::activeModalWidget() == nullptr);
    m_dialog->setParent(m_window);
}

TEST_F(Dialog, endedByTheProgramIsNotReported)
{
    auto hidden = Log(m_dialog->hidden());
    auto closing = Log(m_dialog->closing());
    auto focused = Log(m_dialog->focusGained());
    m_dialog->setVisible(true);
    turn();
    EXPECT_TRUE(m_dialog->isVisible());
    m_dialog->setVisible(false);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_TRUE(focused.isEmpty());
    m_dialog->open();
    m_dialog->accept();
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_dialog->result(), VXDialog2::Accepted);
    m_dialog->open();
    EXPECT_EQ(m_dialog->result(), VXDialog2::Rejected) << "until it has ended";
    m_dialog->done(7);
    EXPECT_EQ(m_dialog->result(), 7);
    m_dialog->open();
    m_dialog->reject();
    EXPECT_EQ(m_dialog->result(), VXDialog2::Rejected);
    EXPECT_TRUE(m_finished.isEmpty());
    EXPECT_TRUE(hidden.isEmpty());
    EXPECT_TRUE(closing.isEmpty());
}

TEST_F(Dialog, endedByTheUserIsReported)
{
    m_dialog->setButtonResult(m_ok, VXDialog2::Accepted);
    m_dialog->setButtonResult(m_other, 12);
    std::string order;
    m_other->clicked().connect(m_dialog, [&] { order += "clicked "; });
    m_dialog->finished().connect(m_dialog, [&](const VXDialogEvent2& event) {
        order += event.dialog()->isVisible() ? "visible " : "hidden ";
    });
    const auto end = [&](auto&& act, int result) {
        m_dialog->open();
        act();
        EXPECT_FALSE(m_dialog->isVisible());
        EXPECT_EQ(m_finished.only().result(), result);
        EXPECT_EQ(m_finished.last().isAccepted(), result == VXDialog2::Accepted);
        EXPECT_EQ(m_dialog->result(), result);
        m_finished.clear();
    };
    end([&] { press(Qt::Key_Escape); }, VXDialog2::Rejected);
    end([&] { qtDialog()->close(); }, VXDialog2::Rejected);
    end([&] { EXPECT_TRUE(m_dialog->close()); }, VXDialog2::Rejected);
    end([&] { click(m_ok); }, VXDialog2::Accepted);
    order.clear();
    end([&] { click(m_other); }, 12);
    EXPECT_EQ(order, "clicked hidden ");
    m_dialog->setButtonResult(m_other, -1);
    end([&] { click(m_other); }, -1);

    m_dialog->unsetButtonResult(m_other);
    auto* const gone = new VXButton2;
    gone->destroy();
    for (VXButton2* nobody : {gone, static_cast<VXButton2*>(nullptr)}) {
        m_dialog->setButtonResult(nobody, 3);
        m_dialog->unsetButtonResult(nobody);
        m_dialog->setDefaultButton(nobody);
    }
    m_dialog->open();
    click(m_other);
    EXPECT_TRUE(m_dialog->isVisible());
    m_dialog->hide();
    m_ok->imitateClick();
    EXPECT_TRUE(m_finished.isEmpty()) << "it is not open";
}

TEST_F(Dialog, asksBeforeItIsDismissed)
{
    int asked = 0;
    bool refuse = true;
    m_dialog->closing().connect(m_dialog, [&](const VXCloseEvent2& event) {
        ++asked;
        if (refuse)
            event.refuse();
    });
    m_dialog->setButtonResult(m_ok, VXDialog2::Accepted);
    m_dialog->setButtonResult(m_other, VXDialog2::Rejected);
    m_dialog->open();
    press(Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->close());
    click(m_other);
    EXPECT_EQ(asked, 3);
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_TRUE(m_finished.isEmpty());
    m_dialog->reject();
    m_dialog->open();
    click(m_ok);
    EXPECT_EQ(asked, 3) << "nobody is asked whether the answer is one";
    EXPECT_TRUE(m_finished.takeOne());
    refuse = false;
    m_dialog->open();
    press(Qt::Key_Escape);
    EXPECT_EQ(asked, 4);
    EXPECT_TRUE(m_finished.takeOne());
}

TEST_F(Dialog, returnPressesTheDefaultButtonOrTheFocusedOne)
{
    auto* const check = new VXCheckBox2(m_dialog);
    VXButton2 foreign(m_window);
    auto oks = Log(m_ok->clicked());
    auto others = Log(m_other->clicked());
    EXPECT_EQ(m_dialog->defaultButton(), nullptr);
    m_dialog->setDefaultButton(m_ok);
    m_dialog->setDefaultButton(&foreign);
    EXPECT_EQ(m_dialog->defaultButton(), m_ok);
    m_dialog->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(qtDialog()));
    check->setFocus();
    press(Qt::Key_Return);
    EXPECT_TRUE(oks.takeOne());
    m_other->setFocus();
    press(Qt::Key_Enter);
    EXPECT_TRUE(oks.isEmpty());
    EXPECT_TRUE(others.takeOne());
    m_other->setDefault(true);
    EXPECT_EQ(m_dialog->defaultButton(), m_other);
    EXPECT_FALSE(m_ok->isDefault());
    m_dialog->setDefaultButton(nullptr);
    check->setFocus();
    press(Qt::Key_Return);
    EXPECT_TRUE(oks.isEmpty() && others.isEmpty());
    EXPECT_TRUE(m_dialog->isVisible());
}

// Executing ---------------------------------------------------------------------------------------

TEST_F(Dialog, executesUntilItEnds)
{
    m_dialog->setButtonResult(m_ok, 5);
    soon([&] {
        EXPECT_TRUE(qtDialog()->isModal());
        EXPECT_EQ(m_dialog->exec(), VXDialog2::Rejected) << "it executes already";
        m_dialog->setWindowFlags(m_dialog->windowFlags() | WindowFlagStaysOnTop);
        EXPECT_TRUE(qtDialog()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        EXPECT_TRUE(m_dialog->isVisible());
        EXPECT_TRUE(qtDialog()->isModal());
        click(m_ok);
    });
    EXPECT_EQ(m_dialog->exec(), 5);
    EXPECT_TRUE(m_finished.takeOne());
    soon([&] { m_dialog->done(6); });
    EXPECT_EQ(m_dialog->exec(), 6);
    soon([&] { m_dialog->hide(); });
    EXPECT_EQ(m_dialog->exec(), VXDialog2::Rejected);
    EXPECT_TRUE(m_finished.isEmpty());

    // Once more from the handler of its own end.
    int inner = 0;
    TROV::Listener once;
    m_dialog->finished().connect(&once, [&] {
        once.disconnect();
        soon([&] { m_dialog->done(9); });
        inner = m_dialog->exec();
    });
    soon([&] { click(m_ok); });
    EXPECT_EQ(m_dialog->exec(), 5);
    EXPECT_EQ(inner, 9);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Dialog, thatIsDestroyedWhileItExecutesWasRejected)
{
    const auto expectGone = [&](const char* how, auto&& act) {
        SCOPED_TRACE(how);
        auto* const owner = new VXWindow2(m_window);
        auto* const dialog = new VXDialog2(owner);
        const QPointer<QWidget> widget(qt(*dialog));
        soon([&] { act(owner, dialog); });
        EXPECT_EQ(dialog->exec(), VXDialog2::Rejected);
        if (VXObject::isObjectValid(owner))
            delete owner;
        runDeletions();
        EXPECT_TRUE(widget.isNull());
    };
    expectGone("by a handler", [](VXWindow2*, VXDialog2* dialog) { dialog->destroy(); });
    expectGone("with its parent", [](VXWindow2* owner, VXDialog2*) { delete owner; });
    expectGone("by the factory", [](VXWindow2*, VXDialog2* dialog) {
        VXFactory2::current()->destroyObject(dialog->id());
    });
    expectGone("with its Qt parent", [](VXWindow2* owner, VXDialog2*) { delete qt(*owner); });
    expectGone("by the handler of its closing", [](VXWindow2*, VXDialog2* dialog) {
        dialog->closing().connect(dialog, [dialog] { dialog->destroy(); });
        qt(*dialog)->close();
    });
    std::thread worker;
    expectGone("by a worker", [&](VXWindow2*, VXDialog2* dialog) {
        worker = std::thread([dialog] { dialog->destroy(); });
    });
    worker.join();

    // What its user said before counts.
    auto* const dialog = new VXDialog2(m_window);
    auto* const button = new VXButton2(dialog);
    dialog->setButtonResult(button, 4);
    dialog->finished().connect(dialog, [dialog] { dialog->destroy(); });
    soon([button] { button->imitateClick(); });
    EXPECT_EQ(dialog->exec(), 4);
}

TEST_F(Dialog, executesAnewWhenTheUserHasClosedIt)
{
    // Qt is not through with the first window yet, and takes the second for closed already.
    TROV::Listener listener;
    std::vector<int> results;
    m_dialog->hidden().connect(&listener, [&] {
        if (results.size() == 3)
            return;
        QTimer::singleShot(0, qtDialog(), [&] {
            if (results.size() == 2)
                m_dialog->done(7);
            else
                qtDialog()->done(5);
        });
        results.push_back(0);
        results.push_back(m_dialog->exec());
    });
    m_dialog->show();
    qtDialog()->windowHandle()->close();
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(results, (std::vector<int>{0, 0, 7, 5}));
}

TEST_F(Dialog, severalExecuteAndEndInAnyOrder)
{
    VXDialog2 second(m_window);
    auto third = std::make_unique<VXDialog2>(m_window);
    std::vector<int> results;
    soon([&] {
        soon([&] {
            soon([&] {
                m_dialog->done(1);
                third.reset();
                second.done(2);
            });
            results.push_back(third->exec());
        });
        results.push_back(second.exec());
    });
    results.push_back(m_dialog->exec());
    EXPECT_EQ(results, (std::vector<int>{0, 2, 1}));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Dialog, endsWhenTheProgramQuits)
{
    int result = -1;
    soon([&] {
        soon([] { QCoreApplication::exit(3); });
        result = m_dialog->exec();
        EXPECT_FALSE(m_dialog->isVisible());
        EXPECT_EQ(m_dialog->exec(), VXDialog2::Rejected) << "it is too late for a loop";
        EXPECT_FALSE(m_dialog->isVisible());
    });
    EXPECT_EQ(QApplication::exec(), 3);
    // From now on nobody answers, until a loop sleeps again.
    QEventLoop loop;
    soon([&] { loop.quit(); });
    loop.exec();
    EXPECT_EQ(result, VXDialog2::Rejected);
    EXPECT_TRUE(m_finished.isEmpty());
}

TEST_F(Dialog, executesOnWhateverThrows)
{
    int reported = 0;
    TROV::Thread::setExceptionHandler([&](std::exception_ptr) { ++reported; });
    m_ok->clicked().connect(m_ok, [] { throw std::runtime_error("handler"); });
    soon([&] {
        click(m_ok);
        EXPECT_EQ(reported, 1);
        EXPECT_TRUE(m_dialog->isVisible());
        m_dialog->done(4);
    });
    EXPECT_EQ(m_dialog->exec(), 4);
    TROV::Thread::setExceptionHandler({});

    struct Thrower : QObject
    {
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Show)
                throw std::runtime_error("a filter of the program's");
            return false;
        }
    };
    {
        Thrower thrower;
        qtDialog()->installEventFilter(&thrower);
        EXPECT_THROW(m_dialog->exec(), std::runtime_error);
        EXPECT_FALSE(m_dialog->isVisible());
    }
    soon([&] { m_dialog->done(5); });
    EXPECT_EQ(m_dialog->exec(), 5);
}

// Threads -----------------------------------------------------------------------------------------

TEST_F(Dialog, executedInsideAHandlerLetsWorkersWork)
{
    // The handler runs under the object lock, which a worker's handles want.
    auto* const start = new VXButton2(m_window);
    const VXHandle<VXButton2> handle(m_ok);
    int rounds = 0;
    start->clicked().connect(start, [&] {
        const Worker worker([&] {
            for (int i = 0; i < 500; ++i) {
                handle->setLabel(std::to_string(i));
                rounds += handle->label() == std::to_string(i);
            }
            m_dialog->done(8);
        });
        EXPECT_EQ(m_dialog->exec(), 8);
    });
    start->imitateClick();
    EXPECT_EQ(rounds, 500);
}

TEST_F(Dialog, executedByAWorkerWhileAThirdIsServed)
{
    std::atomic<int> result{-1};
    int rounds = 0;
    m_dialog->setButtonResult(m_ok, 5);
    {
        const Worker waiting([&] { result = m_dialog->exec(); });
        const Worker busy([&] {
            while (!m_dialog->isVisible())
                std::this_thread::yield();
            for (int i = 0; i < 500; ++i) {
                m_other->setLabel(std::to_string(i));
                rounds += m_other->label() == std::to_string(i);
            }
            EXPECT_EQ(result, -1);
            m_ok->imitateClick();
        });
    }
    EXPECT_EQ(rounds, 500);
    EXPECT_EQ(result, 5);
    EXPECT_TRUE(m_finished.takeOne());

    // And destroyed by that one.
    auto* const doomed = new VXDialog2(m_window);
    const VXHandle<VXDialog2> handle(doomed);
    {
        const Worker waiting([&] { result = handle->exec(); });
        const Worker ending([&] {
            while (!handle->isVisible())
                std::this_thread::yield();
            handle->destroy();
        });
    }
    EXPECT_EQ(result, VXDialog2::Rejected);
}

} // namespace
} // namespace VOXI
