// The platform's own file dialog, with the theme that has GTK's. It is none of this program's
// windows: what it shows, and does, is seen and done from outside.

#include "dialogsupport.h"
#include "support/realinput.h"
#include "voxi2/containers/vxfiledialog2.h"

#include <QFileDialog>
#include <QTemporaryDir>
#include <QWindow>

#include <filesystem>
#include <fstream>
#include <utility>

namespace VOXI {
namespace {

using Path = std::filesystem::path;

class NativeFiles : public DialogTest
{
protected:
    void SetUp() override
    {
        if (!QFileDialog().findChildren<QWidget*>().isEmpty())
            GTEST_SKIP() << "there is none: qt6-gtk-platformtheme is not installed";
        std::ofstream(m_directory / "there.txt") << "text";
        m_window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(qt(*m_window)));
        m_dialog->setTitle("Native Files");
        m_dialog->setDirectory(m_directory);
        m_dialog->setNative(true);
    }

    /// Whether the window manager shows it, and none of this program's has the keyboard.
    static bool isOnScreen()
    {
        if (QApplication::activeWindow())
            return false;
        QProcess search;
        search.start(QStringLiteral("xdotool"),
                     {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                      QStringLiteral("--name"), QStringLiteral("^Native Files$")});
        return waitFor([&] { return search.state() == QProcess::NotRunning; }, Patience)
               && search.exitCode() == 0;
    }
    static bool comes()
    {
        return waitFor([] { return isOnScreen(); }, Patience);
    }
    static bool goes()
    {
        return waitFor([] { return !isOnScreen(); }, Patience);
    }

    static void press(const QString& keys)
    {
        xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                 QStringLiteral("--name"), QStringLiteral("^Native Files$"),
                 QStringLiteral("windowactivate"), QStringLiteral("--sync")});
        // Not in the same call, which would send them to the window by another way than a keyboard.
        xdotool(QStringLiteral("key ") + keys);
    }

    QTemporaryDir m_temporary;
    const Path m_directory = m_temporary.path().toStdString();
    VXFileDialog2* m_dialog = new VXFileDialog2(m_window);
    Log<VXFileDialogEvent2> m_chosen{m_dialog->filesChosen()};
    Log<VXDialogEvent2> m_finished{m_dialog->finished()};
};

TEST_F(NativeFiles, areChosenByTheUser)
{
    m_dialog->setFilters({{"Pictures", {"*.png"}}, {"Texts", {"*.txt"}}});
    m_dialog->setSelectedFilter(1);
    m_dialog->selectFile("there.txt");
    m_dialog->open();
    ASSERT_TRUE(comes());
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_FALSE(qt(*m_dialog)->windowHandle()->isExposed()) << "it stands for Qt's";
    // It finds the file when it has read the directory.
    EXPECT_TRUE(waitFor([&] { return m_dialog->selectedFiles().size() == 1; }, Patience));
    press(QStringLiteral("Return"));
    ASSERT_TRUE(waitFor([&] { return m_finished.count() == 1; }, Patience));
    EXPECT_TRUE(m_finished.last().isAccepted());
    EXPECT_EQ(m_chosen.only().files(), std::vector<Path>{m_directory / "there.txt"});
    EXPECT_EQ(m_dialog->selectedFiles(), std::vector<Path>{m_directory / "there.txt"});
    EXPECT_EQ(m_dialog->selectedFilter(), 1);
    EXPECT_TRUE(goes());

    m_dialog->setNative(false);
    m_dialog->show();
    EXPECT_TRUE(waitFor([&] { return qt(*m_dialog)->windowHandle()->isExposed(); }, Patience));
}

/// The user's wish to close is the application's to refuse.
TEST_F(NativeFiles, comeBackWhereTheyMayNotBeClosed)
{
    bool refuses = true;
    m_dialog->closing().connect(m_dialog, [&](const VXCloseEvent2& event) {
        if (std::exchange(refuses, false))
            event.refuse();
    });
    when(isOnScreen, [&] {
        press(QStringLiteral("Escape"));
        EXPECT_TRUE(waitFor([&] { return !refuses; }, Patience));
        EXPECT_TRUE(comes());
        press(QStringLiteral("Escape"));
    });
    EXPECT_EQ(m_dialog->exec(), VXFileDialog2::Rejected);
    EXPECT_TRUE(m_chosen.isEmpty());
    EXPECT_EQ(m_finished.count(), 1);
}

TEST_F(NativeFiles, goWithTheirDialog)
{
    m_dialog->open();
    ASSERT_TRUE(comes());
    m_dialog->hide();
    EXPECT_TRUE(goes());
    m_dialog->selectFile("there.txt");
    m_dialog->open();
    ASSERT_TRUE(comes());
    m_dialog->accept();
    EXPECT_TRUE(goes());
    EXPECT_EQ(m_dialog->selectedFiles(), std::vector<Path>{m_directory / "there.txt"});
    m_dialog->open();
    ASSERT_TRUE(comes());
    delete std::exchange(m_dialog, nullptr);
    EXPECT_TRUE(goes());
    EXPECT_TRUE(m_finished.isEmpty());

    VXFileDialog2::setNativeByDefault(true);
    when(isOnScreen, [&] { delete std::exchange(m_window, nullptr); });
    EXPECT_TRUE(VXFileDialog2::openFile(m_window, "Native Files", m_directory).empty());
    VXFileDialog2::setNativeByDefault(false);
    EXPECT_TRUE(goes());
}

} // namespace
} // namespace VOXI
