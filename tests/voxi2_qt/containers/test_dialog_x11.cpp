// What needs a window manager, a real pointer and a real keyboard: what a modal dialog blocks, and
// dialogs answered without the mouse.

#include "dialogsupport.h"
#include "support/realinput.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2/containers/vxmessage2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>

namespace VOXI {
namespace {

void press(const char* key) { xdotool({QStringLiteral("key"), QLatin1String(key)}); }

void click(VXWidget2& widget)
{
    const VXPoint<int> point = widget.mapToGlobal({10, 10});
    xdotool(at({point.x, point.y}) + QStringLiteral(" click 1"));
}

bool isReady(VXAbstractDialog2& dialog)
{
    return waitFor([&] { return qt(dialog)->isActiveWindow(); }, Patience);
}

class RealDialog : public DialogTest
{
protected:
    RealDialog()
    {
        m_window->setCentralWidget(m_panel);
        m_window->setPosition({100, 100, 300, 200});
        m_button->setPosition({20, 20, 120, 40});
        m_window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(qt(*m_window)));
    }
    VXPanel2* m_panel = new VXPanel2(m_window);
    VXButton2* m_button = new VXButton2(m_panel);
    Log<VXButtonClickEvent2> m_clicks{m_button->clicked()};
};

TEST_F(RealDialog, blocksItsWindowUntilEscape)
{
    VXDialog2 dialog(m_window);
    auto* const rows = new VXBoxLayout2(&dialog, Direction::TopToBottom);
    auto* const inside = new VXButton2(&dialog);
    rows->addWidget(inside);
    Log inner(inside->clicked());
    Log finished(dialog.finished());
    dialog.setPosition({600, 300, 200, 100});
    click(*m_button);
    ASSERT_TRUE(waitFor([&] { return m_clicks.takeOne(); }, Patience));
    for (const bool executed : {false, true}) {
        SCOPED_TRACE(executed);
        const auto actAsUser = [&] {
            ASSERT_TRUE(isReady(dialog));
            click(*m_button);
            click(*inside); // what came before it has come
            EXPECT_TRUE(waitFor([&] { return inner.takeOne(); }, Patience));
            EXPECT_TRUE(m_clicks.isEmpty());
            press("Escape");
        };
        if (executed) {
            soon(actAsUser);
            EXPECT_EQ(dialog.exec(), VXDialog2::Rejected);
        } else {
            dialog.open();
            actAsUser();
        }
        EXPECT_TRUE(waitFor([&] { return finished.takeOne(); }, Patience));
        click(*m_button);
        EXPECT_TRUE(waitFor([&] { return m_clicks.takeOne(); }, Patience));
    }
}

TEST_F(RealDialog, messageIsAnsweredByTheKeyboard)
{
    const auto answer = [&](const char* key) {
        when([&] { return QApplication::activeWindow() && !m_window->isActiveWindow(); },
             [key] { press(key); });
        return VXMessage2::ask(m_window, "Really?", MessageAnswer::Yes | MessageAnswer::No);
    };
    EXPECT_EQ(answer("Return"), MessageAnswer::Yes);
    EXPECT_EQ(answer("alt+n"), MessageAnswer::No);
    EXPECT_EQ(answer("Escape"), MessageAnswer::No);
}

TEST_F(RealDialog, fileIsChosenByTheKeyboard)
{
    const QTemporaryDir temporary;
    const std::filesystem::path directory = temporary.path().toStdString();
    std::ofstream(directory / "there.txt") << "text";
    VXFileDialog2 dialog(m_window);
    Log chosen(dialog.filesChosen());
    dialog.setDirectory(directory);
    const auto enter = [&](const char* name) {
        auto* const edit = qt(dialog)->findChild<QLineEdit*>();
        ASSERT_TRUE(waitFor([&] { return edit->hasFocus(); }, Patience));
        press("ctrl+a");
        xdotool({QStringLiteral("type"), QLatin1String(name)});
        ASSERT_TRUE(waitFor([&] { return edit->text() == QLatin1String(name); }, Patience));
        press("Return");
    };
    soon([&] {
        enter("not-there.txt");
        ASSERT_TRUE(waitFor([] { return qobject_cast<QMessageBox*>(QApplication::activeWindow()); },
                            Patience));
        press("Return");
        enter("there.txt");
    });
    EXPECT_EQ(dialog.exec(), VXFileDialog2::Accepted);
    EXPECT_EQ(chosen.only().files().front(), directory / "there.txt");
    EXPECT_EQ(chosen.last().files().size(), 1u);
}

} // namespace
} // namespace VOXI
