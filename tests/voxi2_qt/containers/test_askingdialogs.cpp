#include "dialogsupport.h"
#include "voxi2/containers/vxbuttonrow2.h"
#include "voxi2/containers/vxcolordialog2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxfontdialog2.h"
#include "voxi2/containers/vxinput2.h"
#include "voxi2/containers/vxprogressdialog2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <atomic>
#include <optional>

namespace VOXI {
namespace {

using A = MessageAnswer;

class Asking : public DialogTest
{
protected:
    /// The dialog on the screen; null for none.
    static QWidget* shown()
    {
        for (VXAbstractWindow2* each : VXAbstractWindow2::windows()) {
            if (dynamic_cast<VXAbstractDialog2*>(each) && each->isVisible())
                return qt(*each);
        }
        return nullptr;
    }
    static void press(Qt::Key key) { QTest::keyClick(shown()->focusWidget(), key); }
    static void type(const char* text)
    {
        QTest::keyClicks(shown()->focusWidget(), QString::fromLatin1(text));
    }
    static bool canAccept()
    {
        return shown()->findChildren<QPushButton*>().first()->isEnabled()
               && shown()->findChildren<QPushButton*>().last()->isEnabled();
    }
};

TEST_F(Asking, forATextThatIsAcceptable)
{
    soon([] {
        EXPECT_NE(qobject_cast<QLineEdit*>(shown()->focusWidget()), nullptr);
        type("new");
        press(Qt::Key_Return);
    });
    EXPECT_EQ(VXInput2::askText(m_window, "&Name:", "old"), L"new");
    soon([] { press(Qt::Key_Escape); });
    EXPECT_EQ(VXInput2::askText(m_window, "&Name:", "old"), std::nullopt);
    soon([] {
        EXPECT_FALSE(canAccept());
        press(Qt::Key_Return);
        type("1");
        EXPECT_FALSE(canAccept());
        type("2");
        EXPECT_TRUE(canAccept());
        press(Qt::Key_Return);
    });
    EXPECT_EQ((VXInput2{.text = "?", .validator = TextValidator::matching(L"\\d\\d")}.exec()),
              L"12");
    soon([] {
        EXPECT_EQ(shown()->findChild<QLineEdit*>()->echoMode(), QLineEdit::Password);
        type("x");
        press(Qt::Key_Return);
    });
    EXPECT_EQ(VXInput2::askPassword(m_window, "Password:"), L"x");
    soon([this] { delete std::exchange(m_window, nullptr); });
    EXPECT_EQ(VXInput2::askText(m_window, "?"), std::nullopt);
    EXPECT_EQ(shown(), nullptr);
}

TEST_F(Asking, forAChoiceOrANumber)
{
    const std::vector<std::wstring> choices{L"name", L"date", L"size"};
    soon([] {
        EXPECT_EQ(shown()->findChild<QComboBox*>()->currentIndex(), 1);
        press(Qt::Key_Down);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(VXInput2::askChoice(m_window, "Sort by:", choices, "date"), L"size");
    EXPECT_EQ(VXInput2::askChoice(m_window, "Sort by:", {}), std::nullopt);
    soon([] {
        QTest::keyClicks(shown()->findChild<QLineEdit*>(), QStringLiteral("x"));
        QTest::keyClick(shown()->findChild<QLineEdit*>(), Qt::Key_Return);
    });
    EXPECT_EQ((VXInput2{.text = "?", .value = "other", .choices = choices, .mayBeOther = true}.exec(
                  m_window)),
              L"x");
    soon([] {
        press(Qt::Key_Up);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(VXInput2::askNumber(m_window, "How many?", 99, 0, 7), 7);
}

TEST_F(Asking, fromAWorkerAndByACallBack)
{
    std::optional<std::wstring> waited;
    std::vector<VXInput2::Answer> told;
    {
        when([] { return shown() != nullptr; }, [] { press(Qt::Key_Return); });
        const Worker worker([&] { waited = VXInput2::askText(m_window, "?", "value"); });
    }
    EXPECT_EQ(waited, L"value");
    const auto note = [&](VXInput2::Answer answer) { told.push_back(std::move(answer)); };
    const VXInput2 input{.text = "?", .value = "first"};
    input.open(m_window, note);
    turn();
    type("second");
    press(Qt::Key_Return);
    EXPECT_EQ(told, std::vector<VXInput2::Answer>{L"second"});
    input.open(m_window, note);
    delete std::exchange(m_window, nullptr);
    EXPECT_TRUE(waitFor([&] { return told.size() == 2; }));
    EXPECT_EQ(told.back(), std::nullopt);
}

TEST_F(Asking, byButtonsInThePlatformsOrder)
{
    VXDialog2 dialog(m_window);
    auto* const row =
        new VXButtonRow2(&dialog, A::Help | A::Cancel | A::Ok | A::Apply | A::Discard);
    const QDialogButtonBox standard(QDialogButtonBox::Help | QDialogButtonBox::Cancel
                                    | QDialogButtonBox::Ok | QDialogButtonBox::Apply
                                    | QDialogButtonBox::Discard);
    QStringList expected;
    for (int i = 0; i < standard.layout()->count(); ++i) {
        if (const QWidget* const button = standard.layout()->itemAt(i)->widget())
            expected.append(static_cast<const QPushButton*>(button)->text());
    }
    QStringList found;
    for (const QPushButton* each : qt(*row)->findChildren<QPushButton*>())
        found.append(each->text().replace(QStringLiteral("&Discard"), QStringLiteral("Discard")));
    for (QStringList* each : {&expected, &found})
        each->replaceInStrings(QStringLiteral("&"), QString());
    EXPECT_EQ(found, expected);
    EXPECT_EQ(row->button(A::Yes), nullptr);
    EXPECT_EQ(row->answers(), A::Help | A::Cancel | A::Ok | A::Apply | A::Discard);
    EXPECT_EQ(dialog.defaultButton(), row->button(A::Ok));
    EXPECT_EQ(row->answer(), A::None);

    int applied = 0;
    row->button(A::Apply)->clicked().connect(&dialog, [&] { ++applied; });
    dialog.show();
    row->button(A::Apply)->imitateClick();
    row->button(A::Help)->imitateClick();
    EXPECT_EQ(applied, 1);
    EXPECT_TRUE(dialog.isVisible());
    row->button(A::Discard)->imitateClick();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), VXDialog2::Rejected);
    EXPECT_EQ(row->answer(), A::Discard);
    dialog.show();
    row->button(A::Ok)->imitateClick();
    EXPECT_EQ(dialog.result(), VXDialog2::Accepted);
    const VXButtonRow2 alone(nullptr, A::Ok | A::Cancel);
    EXPECT_NE(alone.button(A::Cancel), nullptr);
}

TEST_F(Asking, forAColorOrAFont)
{
    soon([] {
        auto* const dialog = qobject_cast<QColorDialog*>(shown());
        EXPECT_EQ(dialog->currentColor(), QColor(1, 2, 3, 4));
        EXPECT_TRUE(dialog->testOption(QColorDialog::ShowAlphaChannel));
        dialog->setCurrentColor(QColor(5, 6, 7, 8));
        press(Qt::Key_Return);
    });
    EXPECT_EQ(VXColorDialog2::ask(m_window, Color(1, 2, 3, 4), true), Color(5, 6, 7, 8));
    soon([] { press(Qt::Key_Escape); });
    EXPECT_EQ(VXFontDialog2::ask(m_window), std::nullopt);

    VXFontDialog2 dialog(m_window);
    const Log changed(dialog.currentFontChanged());
    dialog.setCurrentFont(VXFont("Sans", 17));
    EXPECT_TRUE(changed.isEmpty());
    EXPECT_EQ(dialog.currentFont().pointSize(), 17);
    static_cast<QFontDialog*>(qt(dialog))->setCurrentFont(QFont(QStringLiteral("Sans"), 23));
    EXPECT_EQ(changed.only().font().pointSize(), 23);
    soon([this] { delete std::exchange(m_window, nullptr); });
    EXPECT_EQ(VXColorDialog2::ask(m_window), std::nullopt);
}

TEST_F(Asking, mayBeMadeAsSmallAsOneLikes)
{
    VXColorDialog2 dialog(m_window);
    dialog.setMinimumSize({1, 1});
    dialog.show();
    for (int side = 400; side > 0; side -= side > 60 ? 20 : 1) {
        dialog.resize({side, side});
        turn();
        for (QWidget* const part : qt(dialog)->findChildren<QWidget*>()) {
            if (part->isVisible() && !qobject_cast<QAbstractButton*>(part))
                QTest::mouseClick(part, Qt::LeftButton, Qt::NoModifier, part->rect().center());
        }
    }
}

TEST_F(Asking, showsHowFarATaskIsAndCancelsIt)
{
    std::atomic<bool> mayEnd = false;
    std::atomic<bool> wasCancelled = false;
    const auto work = [&](TROV::TaskContext& context) {
        context.setProgress(0.25, "a quarter");
        while (!mayEnd && !context.isCancelled())
            std::this_thread::yield();
        wasCancelled = context.isCancelled();
    };
    const auto bar = [] { return shown()->findChild<QProgressBar*>(); };
    bool done = false;
    auto task = TROV::Task::run(m_window, work, [&] { done = true; });
    VXProgressDialog2::follow(task, m_window, "Working", std::chrono::milliseconds(0));
    ASSERT_TRUE(waitFor([] { return shown() != nullptr; }));
    EXPECT_TRUE(waitFor([&] { return bar()->value() * 4 == bar()->maximum(); }));
    mayEnd = true;
    EXPECT_TRUE(waitFor([&] { return done; }));
    EXPECT_EQ(shown(), nullptr);

    mayEnd = false;
    task = TROV::Task::run(m_window, work, [&] { done = false; });
    VXProgressDialog2::follow(task, m_window, "Working", std::chrono::milliseconds(0));
    ASSERT_TRUE(waitFor([] { return shown() != nullptr; }));
    QTest::keyClick(shown(), Qt::Key_Escape);
    EXPECT_TRUE(task.isCancelled());
    EXPECT_TRUE(waitFor([&] { return wasCancelled && !task.isRunning(); }));
    EXPECT_TRUE(done) << "nobody was told";

    // Nor is anybody where the thread that wanted the result has ended.
    mayEnd = false;
    std::thread([&] { task = TROV::Task::run(nullptr, work); }).join();
    VXProgressDialog2::follow(task, m_window, "Working", std::chrono::milliseconds(0));
    ASSERT_TRUE(waitFor([] { return shown() != nullptr; }));
    mayEnd = true;
    EXPECT_TRUE(waitFor([] { return shown() == nullptr; }));

    VXProgressDialog2 own("Own", m_window);
    own.setCancellable(false);
    own.open();
    own.setFraction(-1);
    QTest::keyClick(shown(), Qt::Key_Escape);
    EXPECT_EQ(shown(), qt(own));
    EXPECT_EQ(bar()->maximum(), 0);
    own.setFraction(7);
    EXPECT_EQ(bar()->value(), bar()->maximum());
    own.setCancellable(true);
    QTest::keyClick(shown(), Qt::Key_Escape);
    EXPECT_TRUE(own.isCancelled());
}

} // namespace
} // namespace VOXI
