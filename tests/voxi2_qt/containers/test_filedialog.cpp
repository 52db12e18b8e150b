#include "dialogsupport.h"
#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2/kernel/translation.h"
#include "voxi2/kernel/vxhandle.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <utility>

namespace VOXI {
namespace {

using Path = std::filesystem::path;
using Paths = std::vector<Path>;

/// Names with what file names may have: no Latin-1, spaces, wild cards.
const char* const Euro = "pr\xe2\x82\xacis \xd0\xb6.txt";

class FileDialog : public DialogTest
{
protected:
    FileDialog()
    {
        for (const Path& each : {Path("a.txt"), Path("b.png"), Path(Euro)})
            std::ofstream(m_directory / each) << "text";
        std::filesystem::create_directory(m_directory / "sub");
        m_dialog->setDirectory(m_directory);
    }
    QFileDialog* qtDialog() const { return qobject_cast<QFileDialog*>(qt(*m_dialog)); }

    /// Types a name and Return, as the user does.
    static void enter(QWidget* dialog, const QString& name)
    {
        auto* const edit = dialog->findChild<QLineEdit*>();
        EXPECT_TRUE(waitFor([&] { return edit->hasFocus(); }));
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    void enter(const char* name) const { enter(qtDialog(), QString::fromUtf8(name)); }

    QMessageBox* question() const
    {
        for (QMessageBox* each : qtDialog()->findChildren<QMessageBox*>()) {
            if (each->isVisible())
                return each;
        }
        return nullptr;
    }

    /// Whether exactly these were reported, and the end after them.
    bool takeChosen(const Paths& files)
    {
        const bool right = m_chosen.count() == 1 && m_chosen.last().files() == files
                           && m_chosen.last().dialog() == m_dialog && m_finished.count() == 1
                           && m_finished.last().isAccepted();
        m_chosen.clear();
        m_finished.clear();
        return right;
    }

    QTemporaryDir m_temporary;
    const Path m_directory =
        Path(m_temporary.path().toStdString()) / "d\xc3\xa9j\xc3\xa0 \xe2\x82\xac";
    const bool m_made = std::filesystem::create_directory(m_directory);
    VXFileDialog2* m_dialog = new VXFileDialog2(m_window);
    Log<VXFileDialogEvent2> m_chosen{m_dialog->filesChosen()};
    Log<VXDialogEvent2> m_finished{m_dialog->finished()};
};

TEST_F(FileDialog, keepsWhatItIsTold)
{
    EXPECT_TRUE(qtDialog()->testOption(QFileDialog::DontUseNativeDialog));
    EXPECT_EQ(m_dialog->mode(), FileDialogMode::OpenFile);
    const struct
    {
        FileDialogMode m_mode;
        QFileDialog::FileMode m_fileMode;
        QFileDialog::AcceptMode m_acceptMode;
    } modes[] = {
        {FileDialogMode::OpenFiles, QFileDialog::ExistingFiles, QFileDialog::AcceptOpen},
        {FileDialogMode::SaveFile, QFileDialog::AnyFile, QFileDialog::AcceptSave},
        {FileDialogMode::Directory, QFileDialog::Directory, QFileDialog::AcceptOpen},
        {static_cast<FileDialogMode>(77), QFileDialog::ExistingFile, QFileDialog::AcceptOpen}};
    for (const auto& each : modes) {
        m_dialog->setMode(each.m_mode);
        EXPECT_EQ(qtDialog()->fileMode(), each.m_fileMode);
        EXPECT_EQ(qtDialog()->acceptMode(), each.m_acceptMode);
        EXPECT_EQ(qtDialog()->testOption(QFileDialog::ShowDirsOnly),
                  each.m_mode == FileDialogMode::Directory);
    }
    m_dialog->setMode(FileDialogMode::SaveFile);
    m_dialog->setDirectory(m_directory / "not there");
    EXPECT_EQ(m_dialog->directory(), m_directory);
    m_dialog->selectFile(m_directory / "sub" / Euro);
    EXPECT_EQ(m_dialog->directory(), m_directory / "sub");
    EXPECT_EQ(m_dialog->selectedFiles(), Paths{m_directory / "sub" / Euro});
    m_dialog->setDefaultSuffix(L".dat");
    m_dialog->selectFile("plain");
    EXPECT_EQ(m_dialog->selectedFiles(), Paths{m_directory / "sub" / "plain.dat"});
    EXPECT_TRUE(m_dialog->confirmsOverwrite());
    m_dialog->setConfirmOverwrite(false);
    EXPECT_FALSE(m_dialog->confirmsOverwrite());
}

TEST_F(FileDialog, filtersNameThemselvesAndFilter)
{
    EXPECT_EQ(m_dialog->selectedFilter(), -1);
    const std::vector<FileFilter> filters = {
        {L"Pictures \u20ac (raw)", {"*.png", "*.jpg"}},
        {L"Odd", {"pr\xe2\x82\xacis *.txt"}},
        {L"All", {}},
    };
    m_dialog->setFilters(filters);
    EXPECT_EQ(m_dialog->filters(), filters);
    EXPECT_EQ(qtDialog()->nameFilters(),
              QStringList({QStringLiteral("Pictures € (raw) (*.png *.jpg)"),
                           QStringLiteral("Odd (pr?is?*.txt)"), QStringLiteral("All (*)")}));
    EXPECT_EQ(m_dialog->selectedFilter(), 0);
    m_dialog->open();
    auto* const list = qtDialog()->findChild<QListView*>(QStringLiteral("listView"));
    const auto names = [&] {
        QStringList found;
        for (int i = 0; i < list->model()->rowCount(list->rootIndex()); ++i)
            found.append(list->model()->index(i, 0, list->rootIndex()).data().toString());
        found.sort();
        return found.join(u' ');
    };
    EXPECT_TRUE(waitFor([&] { return names() == QStringLiteral("b.png sub"); }));
    m_dialog->setSelectedFilter(1);
    EXPECT_EQ(m_dialog->selectedFilter(), 1);
    EXPECT_TRUE(waitFor([&] { return names() == QStringLiteral("pr€is ж.txt sub"); }));
    m_dialog->setSelectedFilter(3);
    m_dialog->setSelectedFilter(-1);
    EXPECT_EQ(m_dialog->selectedFilter(), 1);
    m_dialog->setFilters({});
    EXPECT_EQ(m_dialog->selectedFilter(), -1);
    EXPECT_TRUE(waitFor([&] { return names().contains(QStringLiteral("a.txt")); }));
    EXPECT_TRUE(m_chosen.isEmpty() && m_finished.isEmpty());
}

TEST_F(FileDialog, filtersThatReadTheSameAreToldApart)
{
    m_dialog->setFilters(
        {{L"Text", {"*.t\xc3\xa4"}}, {L"Text", {"*.t\xc3\xb6"}}, {L"Text", {"*.t?"}}});
    for (const int filter : {2, 0, 1}) {
        m_dialog->setSelectedFilter(filter);
        EXPECT_EQ(m_dialog->selectedFilter(), filter);
    }
    m_dialog->open();
    auto* const choice = qtDialog()->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    choice->setCurrentIndex(2); // as the user does
    Q_EMIT choice->textActivated(choice->currentText());
    EXPECT_EQ(m_dialog->selectedFilter(), 2);
}

TEST_F(FileDialog, speaksAsItIsTold)
{
    const auto said = [&] {
        QStringList texts;
        for (const char* name : {"lookInLabel", "fileNameLabel", "fileTypeLabel"})
            texts.append(qtDialog()->findChild<QLabel*>(QLatin1String(name))->text());
        for (QAbstractButton* each :
             qtDialog()->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->buttons())
            texts.append(each->text());
        return texts.join(u'|').remove(u'&');
    };
    const QString usual = said();
    EXPECT_EQ(usual, QStringLiteral("Look in:|File name:|Files of type:|Open|Cancel"));
    m_dialog->setLabel(FileDialogLabel::Accept, L"&Import");
    m_dialog->setLabel(FileDialogLabel::Cancel, L"\u20ac");
    m_dialog->setLabel(FileDialogLabel::Filter, L"Kind");
    EXPECT_EQ(said(), QStringLiteral("Look in:|File name:|Kind|Import|€"));
    m_dialog->setMode(FileDialogMode::SaveFile);
    EXPECT_EQ(said(), QStringLiteral("Look in:|File name:|Kind|Import|€"));
    m_dialog->setMode(FileDialogMode::OpenFile);
    for (const auto label :
         {FileDialogLabel::Accept, FileDialogLabel::Cancel, FileDialogLabel::Filter})
        m_dialog->setLabel(label, {});
    EXPECT_EQ(said(), usual);

    setTranslation([](const std::string& english) {
        const std::string replace = "%1 exists already.\nDo you want to replace it?";
        return english == replace      ? L"%1 ersetzen?"
               : english == "&Yes"     ? L"&Ja"
               : english == "&Save"    ? L"&Sichern"
               : english == "Look in:" ? L"Ort:"
                                       : L"";
    });
    m_dialog->setMode(FileDialogMode::SaveFile);
    EXPECT_EQ(said(), QStringLiteral("Ort:|File name:|Files of type:|Sichern|Cancel"));
    m_dialog->open();
    enter("a.txt");
    ASSERT_NE(question(), nullptr);
    EXPECT_EQ(question()->text(), QStringLiteral("a.txt ersetzen?"));
    EXPECT_EQ(question()->button(QMessageBox::Yes)->text(), QStringLiteral("&Ja"));
    setTranslation({});
}

TEST_F(FileDialog, theUserChooses)
{
    m_dialog->open();
    enter(Euro);
    EXPECT_TRUE(takeChosen({m_directory / Euro}));
    EXPECT_FALSE(m_dialog->isVisible());
    m_dialog->setMode(FileDialogMode::OpenFiles);
    m_dialog->open();
    enter("\"a.txt\" \"b.png\"");
    EXPECT_TRUE(takeChosen({m_directory / "a.txt", m_directory / "b.png"}));
    m_dialog->setMode(FileDialogMode::SaveFile);
    m_dialog->setDefaultSuffix(L"txt");
    m_dialog->open();
    enter("new");
    EXPECT_TRUE(takeChosen({m_directory / "new.txt"}));
    m_dialog->open();
    enter("sub");
    EXPECT_TRUE(m_dialog->isVisible()) << "it goes there";
    EXPECT_EQ(m_dialog->directory(), m_directory / "sub");
    m_dialog->setDirectory(m_directory);
    m_dialog->setMode(FileDialogMode::Directory);
    enter("sub");
    EXPECT_TRUE(takeChosen({m_directory / "sub"}));

    m_dialog->open();
    QTest::keyClick(qtDialog(), Qt::Key_Escape);
    EXPECT_TRUE(m_chosen.isEmpty());
    EXPECT_FALSE(m_finished.only().isAccepted());
}

TEST_F(FileDialog, acceptedByTheProgramIsNotReported)
{
    m_dialog->open();
    m_dialog->selectFile("a.txt");
    m_dialog->accept();
    EXPECT_EQ(m_dialog->result(), VXFileDialog2::Accepted);
    EXPECT_EQ(m_dialog->selectedFiles(), Paths{m_directory / "a.txt"});
    m_dialog->open();
    m_dialog->selectFile("not there");
    m_dialog->accept();
    EXPECT_TRUE(m_dialog->isVisible()) << "nothing that could be opened is chosen";
    m_dialog->reject();
    m_dialog->setMode(FileDialogMode::SaveFile);
    m_dialog->open();
    m_dialog->selectFile("a.txt");
    m_dialog->accept();
    EXPECT_FALSE(m_dialog->isVisible()) << "the program knows what it does";
    EXPECT_TRUE(m_chosen.isEmpty() && m_finished.isEmpty());
}

TEST_F(FileDialog, asksBeforeItReplacesAFile)
{
    m_dialog->setMode(FileDialogMode::SaveFile);
    m_dialog->open();
    enter("a.txt");
    ASSERT_NE(question(), nullptr);
    EXPECT_TRUE(question()->text().startsWith(QStringLiteral("a.txt exists")));
    QTest::keyClick(question(), Qt::Key_Return);
    EXPECT_EQ(question(), nullptr);
    EXPECT_TRUE(m_dialog->isVisible()) << "Return says no";
    enter("a.txt");
    QTest::keyClick(question(), Qt::Key_Escape);
    EXPECT_TRUE(m_dialog->isVisible());
    enter("a.txt");
    enter("a.txt"); // nothing is asked twice
    EXPECT_TRUE(m_chosen.isEmpty() && m_finished.isEmpty());
    QTest::mouseClick(question()->button(QMessageBox::Yes), Qt::LeftButton);
    EXPECT_TRUE(takeChosen({m_directory / "a.txt"}));

    m_dialog->setConfirmOverwrite(false);
    m_dialog->open();
    enter("b.png");
    EXPECT_TRUE(takeChosen({m_directory / "b.png"}));

    m_dialog->setMode(FileDialogMode::OpenFile);
    m_dialog->open();
    enter("not there");
    ASSERT_NE(question(), nullptr);
    m_dialog->reject();
    EXPECT_EQ(question(), nullptr) << "it goes with the dialog";
    EXPECT_TRUE(m_finished.isEmpty());
}

TEST_F(FileDialog, mayBeDestroyedWhileItAsks)
{
    m_dialog->setMode(FileDialogMode::SaveFile);
    const VXHandle<VXFileDialog2> handle(m_dialog);
    std::string inside;
    const auto ask = [&] {
        enter("a.txt");
        // The lock is free meanwhile: a worker's handle wants it.
        std::thread([&] {
            inside = handle->directory().string();
            handle->destroy();
        }).detach();
    };
    soon(ask);
    EXPECT_EQ(m_dialog->exec(), VXFileDialog2::Rejected);
    EXPECT_EQ(inside, m_directory.string());
    runDeletions();

    // Qt runs its context menu on its own stack, inside the dialog.
    m_dialog = new VXFileDialog2(m_window);
    const QPointer<QFileDialog> dialog(qtDialog());
    m_dialog->open();
    auto* const list = dialog->findChild<QListView*>(QStringLiteral("listView"));
    soon([&] {
        EXPECT_NE(dialog->findChild<QMenu*>(), nullptr);
        delete std::exchange(m_window, nullptr);
        runDeletions(); // as a turn of the menu's loop may do that has begun
        EXPECT_FALSE(dialog.isNull());
    });
    Q_EMIT list->customContextMenuRequested(QPoint(1, 1));
    runDeletions();
    EXPECT_TRUE(dialog.isNull());
}

/// Nobody would wait for it, and hidden it would keep the dialog for ever.
TEST_F(FileDialog, goesWithTheMenuOfItsEdit)
{
    m_dialog->show();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(50, 50));
    QCoreApplication::sendEvent(qtDialog()->findChild<QLineEdit*>(), &event);
    const QPointer<QWidget> menu = QApplication::activePopupWidget();
    ASSERT_TRUE(menu);
    const QPointer<QFileDialog> dialog = qtDialog();
    delete std::exchange(m_dialog, nullptr);
    EXPECT_TRUE(waitFor([&] { return !dialog && !menu; }));
}

TEST_F(FileDialog, oneCallAsksAndAnswers)
{
    const auto answer = [](const QString& name) {
        soon([name] {
            ASSERT_NE(QApplication::activeModalWidget(), nullptr);
            if (name.isEmpty())
                QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
            else
                enter(QApplication::activeModalWidget(), name);
        });
    };
    const std::vector<FileFilter> texts = {{L"Texts", {"*.txt"}}};
    answer(QString::fromUtf8(Euro));
    EXPECT_EQ(VXFileDialog2::openFile(m_window, L"Open", m_directory, texts), m_directory / Euro);
    answer(QString());
    EXPECT_TRUE(VXFileDialog2::openFile(m_window, L"Open", m_directory).empty());
    answer(QStringLiteral("\"a.txt\" \"b.png\""));
    EXPECT_EQ(VXFileDialog2::openFiles(nullptr, L"Open", m_directory).size(), 2u);
    answer(QStringLiteral("new"));
    EXPECT_EQ(VXFileDialog2::saveFile(m_window, L"Save", m_directory, texts, L"txt"),
              m_directory / "new.txt");
    answer(QStringLiteral("sub"));
    EXPECT_EQ(VXFileDialog2::chooseDirectory(m_window, L"Go", m_directory), m_directory / "sub");

    Path chosen;
    when([] { return QApplication::activeModalWidget() != nullptr; },
         [] { enter(QApplication::activeModalWidget(), QStringLiteral("b.png")); });
    {
        const Worker worker(
            [&] { chosen = VXFileDialog2::openFile(m_window, L"Open", m_directory); });
    }
    EXPECT_EQ(chosen, m_directory / "b.png");
    soon([&] { delete std::exchange(m_window, nullptr); });
    EXPECT_TRUE(VXFileDialog2::openFile(m_window, L"Open", m_directory).empty());
}

TEST_F(FileDialog, remembersPlacesAndTellsWhereItsUserIs)
{
    VXFileDialog2 dialog(m_window);
    const Log entered(dialog.directoryEntered());
    const Log current(dialog.currentChanged());
    const QTemporaryDir folder;
    const std::filesystem::path path(folder.path().toStdString());
    dialog.setPlaces({path, "/no such directory", "/"});
    EXPECT_EQ(dialog.places(), (std::vector<std::filesystem::path>{path, "/"}));
    dialog.setDirectory(path);
    const std::string state = dialog.saveState();
    EXPECT_TRUE(entered.isEmpty());

    VXFileDialog2 next(m_window);
    EXPECT_FALSE(next.restoreState("voxi-files:1:"));
    EXPECT_TRUE(next.restoreState(state));
    EXPECT_EQ(next.places(), dialog.places());
    EXPECT_EQ(next.directory(), path);

    auto* const shown = static_cast<QFileDialog*>(qt(dialog));
    Q_EMIT shown->directoryEntered(folder.path());
    EXPECT_EQ(entered.only().path(), path);
}

} // namespace
} // namespace VOXI
