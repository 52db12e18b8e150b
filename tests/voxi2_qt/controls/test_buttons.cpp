// What all buttons have in common, and the settings that each kind starts with.

#include "../kernel/toolkit.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxradiobutton2.h"
#include "voxi2/controls/vxtoolbutton2.h"

#include <QAccessible>
#include <QCheckBox>
#include <QEventLoop>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

namespace VOXI {
namespace {

template <class Abstract, class Widget>
struct Kind
{
    using Button = Abstract;
    using QtButton = Widget;
};

template <class K>
class Buttons : public testing::Test
{
protected:
    using Button = typename K::Button;

    VXPanel2 m_window;
    Button& m_button = *new Button(&m_window);
    typename K::QtButton& m_qt = dynamic_cast<typename K::QtButton&>(*qt(m_button));
    Log<VXButtonClickEvent2> m_clicks{m_button.clicked()};
    Log<VXButtonToggleEvent2> m_toggles{m_button.toggled()};
};

using Kinds = testing::Types<Kind<VXButton2, QPushButton>, Kind<VXCheckBox2, QCheckBox>,
                             Kind<VXRadioButton2, QRadioButton>, Kind<VXToolButton2, QToolButton>>;
TYPED_TEST_SUITE(Buttons, Kinds);

TYPED_TEST(Buttons, throwToTheProgramOnlyWhatItCausedItself)
{
    std::vector<std::string> reported;
    TROV::Thread::setExceptionHandler([&](std::exception_ptr error) {
        try {
            std::rethrow_exception(error);
        } catch (const std::exception& e) {
            reported.emplace_back(e.what());
        }
    });
    TROV::Listener listener;
    const auto throwing = [](const char* text) {
        return [text] { throw std::runtime_error(text); };
    };
    auto& button = this->m_button;
    this->m_clicks.disconnect();
    button.clicked().connect(&listener, throwing("click"));
    button.mousePressed().connect(&listener, throwing("press"));
    Log<VXButtonClickEvent2> later(button.clicked());

    // The user's
    QTest::mouseClick(&this->m_qt, Qt::LeftButton, {}, QPoint(5, this->m_qt.height() / 2));
    EXPECT_EQ(std::exchange(reported, {}), (std::vector<std::string>{"press", "click"}));
    EXPECT_TRUE(later.takeOne());
    EXPECT_FALSE(this->m_qt.isDown());
    // The program's
    EXPECT_THROW(button.imitateClick(), std::runtime_error);
    EXPECT_THROW(button.imitateMouse(WidgetEvent::MousePress,
                                     VXMouseEvent2(&button, WidgetEvent::MousePress, {1, 1}, {1, 1},
                                                   MouseButton::Left, MouseButton::Left, {})),
                 std::runtime_error);
    EXPECT_TRUE(reported.empty());
    EXPECT_TRUE(later.takeOne());
    // The program's, on another thread, which does not wait for it
    std::thread([&] { button.imitateClick(); }).join();
    turn();
    EXPECT_EQ(std::exchange(reported, {}), std::vector<std::string>{"click"});
    // The user's, in a loop that a handler of the program's runs
    auto* const other = new typename TestFixture::Button(&this->m_window);
    other->clicked().connect(&listener, [&] {
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] {
            QTest::keyClick(&this->m_qt, Qt::Key_Space);
            loop.quit();
        });
        loop.exec();
    });
    EXPECT_NO_THROW(other->imitateClick());
    EXPECT_EQ(reported, std::vector<std::string>{"click"});
    TROV::Thread::setExceptionHandler({});
}

TYPED_TEST(Buttons, areToggledByTheirUser)
{
    auto& button = this->m_button;
    button.setCheckable(true);
    button.setExclusive(false);
    button.imitateToggle();
    EXPECT_EQ(this->m_toggles.only().button(), &button);
    EXPECT_TRUE(this->m_toggles.last().isChecked());
    EXPECT_TRUE(this->m_clicks.isEmpty());
    this->m_toggles.clear();

    this->m_window.show();
    // On the tick of a check box, which is where it is hit in any style.
    QTest::mouseClick(&this->m_qt, Qt::LeftButton, {}, QPoint(8, this->m_qt.height() / 2));
    EXPECT_EQ(this->m_clicks.only().button(), &button);
    EXPECT_TRUE(this->m_toggles.takeOne());
    EXPECT_FALSE(button.isChecked());
    this->m_clicks.clear();

    button.setEnabled(false);
    button.imitateClick();
    EXPECT_TRUE(this->m_clicks.isEmpty());
}

TYPED_TEST(Buttons, thatAreExclusiveHaveOneChecked)
{
    auto& second = *new typename TestFixture::Button(&this->m_window);
    for (auto* button : {&this->m_button, &second}) {
        button->setCheckable(true);
        button->setExclusive(true);
        EXPECT_TRUE(button->isExclusive());
    }
    this->m_button.setChecked(true);
    second.imitateClick();
    EXPECT_TRUE(second.isChecked());
    EXPECT_FALSE(this->m_button.isChecked());
    // It is the user who unchecked it.
    EXPECT_TRUE(this->m_toggles.takeOne());

    // And now the program.
    Log secondToggles(second.toggled());
    this->m_button.setChecked(true);
    EXPECT_FALSE(second.isChecked());
    second.setChecked(true);
    EXPECT_FALSE(this->m_button.isChecked());
    EXPECT_TRUE(this->m_toggles.isEmpty());
    EXPECT_TRUE(secondToggles.isEmpty());
}

TYPED_TEST(Buttons, areSilentOnceTheirObjectHasGone)
{
    auto* const button = &this->m_button;
    const QPointer<QAbstractButton> watched(&this->m_qt);
    TROV::Listener listener;
    button->setCheckable(true);
    button->toggled().connect(&listener, [button] { delete button; });
    this->m_window.show();
    QTest::mouseClick(watched.data(), Qt::LeftButton, {}, QPoint(8, watched->height() / 2));
    ASSERT_TRUE(watched);
    EXPECT_TRUE(watched->isChecked());
    watched->click();
    EXPECT_TRUE(this->m_toggles.takeOne());
    EXPECT_TRUE(this->m_clicks.isEmpty());
    runDeletions();
    EXPECT_FALSE(watched);
}

/// As its kind of Qt's is seen by assistive programs, which act as its user does.
TYPED_TEST(Buttons, canBeUsedWithoutAPointer)
{
    typename TypeParam::QtButton twin;
    this->m_window.show();
    const auto seen = [](QAbstractButton& button) {
        const QAccessibleInterface& all = *QAccessible::queryAccessibleInterface(&button);
        return std::tuple(all.role(), all.text(QAccessible::Name),
                          all.text(QAccessible::Accelerator), all.state().checkable,
                          all.state().checked, all.childCount(),
                          const_cast<QAccessibleInterface&>(all).actionInterface()->actionNames());
    };
    for (const bool isCheckable : {true, false}) {
        for (QAbstractButton* each :
             {static_cast<QAbstractButton*>(&twin), static_cast<QAbstractButton*>(&this->m_qt)}) {
            each->setText(QStringLiteral("Save && &go"));
            each->setCheckable(isCheckable);
        }
        EXPECT_EQ(seen(this->m_qt), seen(twin));
    }
    this->m_qt.setCheckable(true);
    auto* const actions = QAccessible::queryAccessibleInterface(&this->m_qt)->actionInterface();
    ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(this->m_clicks.count(), 1);
    EXPECT_EQ(this->m_toggles.count(), 1);
    EXPECT_TRUE(this->m_button.isChecked());
}

TEST(ButtonKinds, startAsTheyAreUsed)
{
    VXPanel2 window;
    auto* push = qt(*new VXButton2(&window));
    EXPECT_EQ(push->focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(push->backgroundRole(), QPalette::Button);
    EXPECT_EQ(push->foregroundRole(), QPalette::ButtonText);

    // In a dialog Qt's own would be, as soon as it is not told otherwise.
    VXDialog2 dialog;
    EXPECT_FALSE(qobject_cast<QPushButton*>(qt(*new VXButton2(&dialog)))->autoDefault());

    auto* check = new VXCheckBox2(&window);
    for (QWidget* button : {qt(*check), qt(*new VXRadioButton2(&window))}) {
        EXPECT_EQ(button->backgroundRole(), QPalette::Base);
        EXPECT_EQ(button->foregroundRole(), QPalette::WindowText);
    }
    qobject_cast<QCheckBox*>(qt(*check))->setCheckState(Qt::PartiallyChecked);
    EXPECT_TRUE(check->isChecked());

    auto* tool = qobject_cast<QToolButton*>(qt(*new VXToolButton2(&window)));
    EXPECT_EQ(tool->popupMode(), QToolButton::InstantPopup);
    EXPECT_EQ(tool->sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred));

    auto* pictured = new VXButton2(&window);
    const Icon icon = Icon::fromPixmap(Pixmap(1, 1, {0xff0000ffu}));
    pictured->setIcon(icon);
    auto* shown = qobject_cast<QPushButton*>(qt(*pictured));
    EXPECT_FALSE(shown->icon().isNull());
    shown->setIcon(QIcon());
    EXPECT_EQ(pictured->icon(), icon) << "what Qt shows does not matter";
}

} // namespace
} // namespace VOXI
