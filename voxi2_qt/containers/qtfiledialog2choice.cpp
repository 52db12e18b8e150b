#include "voxi2/kernel/translation.h"
#include "voxi2_qt/containers/qtfiledialog2.h"
#include "voxi2_qt/kernel/qttext.h"

#include <QAbstractButton>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>

#include <utility>

/// How a file dialog ends: what is chosen, what the user is asked then, and its end as a widget.

namespace VOXI {

namespace {

using E = VXFileDialog2Emitters;

QString inUsersLanguage(LibraryText english) { return toQString(translated(english)); }

} // namespace

void QtFileDialog2::deferDelete()
{
    // Qt runs the context menu and the questions of its commands on its stack, as children: the
    // dialog must not go before they have ended.
    bool isRunning = false;
    for (QWidget* each : findChildren<QWidget*>()) {
        const bool mayRun = qobject_cast<QMenu*>(each) || qobject_cast<QDialog*>(each);
        // Dialogs and menus of the program's own go with this one.
        if (!mayRun || !each->isVisible() || each == m_question || peerOf(each))
            continue;
        // Nothing waits for those, as the menu of a line edit, and hidden they would stay.
        if (each->testAttribute(Qt::WA_DeleteOnClose)) {
            each->close();
            continue;
        }
        isRunning = true;
        connect(each, &QObject::destroyed, this, &QObject::deleteLater);
        each->hide(); // which ends its loop
    }
    if (!isRunning) {
        QtDialog2Shim::deferDelete();
        return;
    }
    hide();
    m_isWaiting = true;
    setParent(nullptr); // which may be going now
}

void QtFileDialog2::endAlone()
{
    if (!m_isWaiting)
        QtDialog2Shim::endAlone();
}

// Reports -----------------------------------------------------------------------------------------

void QtFileDialog2::accept()
{
    if (m_question || enterTypedDirectory())
        return;
    if (const QString missing = missingFile(); !missing.isNull()) {
        ask(QMessageBox::Ok,
            inUsersLanguage("%1 does not exist.\nPlease check the name.").arg(missing));
        return;
    }
    if (m_mode == FileDialogMode::SaveFile && m_confirmOverwrite) {
        const QStringList files = chosenFiles();
        const bool isAsked = m_platform && m_platform->selectedFiles() == files;
        if (!isAsked && !files.isEmpty() && QFileInfo::exists(files.first())) {
            ask(QMessageBox::Yes | QMessageBox::No,
                inUsersLanguage("%1 exists already.\nDo you want to replace it?")
                    .arg(QFileInfo(files.first()).fileName()));
            return;
        }
    }
    acceptUnasked();
}

void QtFileDialog2::acceptUnasked()
{
    if (m_platform)
        done(QDialog::Accepted);
    else
        QFileDialog::accept();
}

void QtFileDialog2::reportEnd(int result)
{
    const QPointer<QWidget> self(this);
    if (result == QDialog::Accepted)
        report(&E::filesChosen, doGetSelectedFiles());
    if (self)
        QtDialog2Shim::reportEnd(result);
}

// Helpers -----------------------------------------------------------------------------------------

/// Where the user types.
QLineEdit* QtFileDialog2::nameEdit() const
{
    return findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

/// Whether the user has typed the name of a directory; then the dialog goes there. Qt would see a
/// name without a suffix.
bool QtFileDialog2::enterTypedDirectory()
{
    QLineEdit* const edit = nameEdit();
    if (m_platform || m_mode != FileDialogMode::SaveFile || !edit || edit->text().isEmpty())
        return false;
    const QString name = directory().absoluteFilePath(edit->text());
    if (!QFileInfo(name).isDir())
        return false;
    setDirectory(name);
    edit->clear();
    return true;
}

QStringList QtFileDialog2::chosenFiles() const
{
    QStringList files = namedFiles();
    // Where nothing is chosen Qt names the directory that is shown; and it goes into directories.
    if (m_mode != FileDialogMode::Directory)
        files.removeIf([](const QString& file) { return QFileInfo(file).isDir(); });
    return files;
}

/// The first one of what is to exist and does not; null when all does.
QString QtFileDialog2::missingFile() const
{
    if (m_mode == FileDialogMode::SaveFile)
        return QString();
    for (const QString& file : namedFiles()) {
        const QFileInfo info(file);
        // Qt knows names of environment variables.
        if (!info.exists() && !info.fileName().startsWith(u'$'))
            return info.fileName();
    }
    return QString();
}

void QtFileDialog2::ask(QMessageBox::StandardButtons buttons, const QString& text)
{
    m_question = new QMessageBox(QMessageBox::Warning, windowTitle(), text, buttons, this);
    m_question->setTextFormat(Qt::PlainText);
    for (const auto& [button, english] : {std::pair(QMessageBox::Ok, LibraryText("&OK")),
                                          {QMessageBox::Yes, LibraryText("&Yes")},
                                          {QMessageBox::No, LibraryText("&No")}}) {
        const std::wstring label = translationOf(english);
        if (QAbstractButton* const shown = m_question->button(button); shown && !label.empty())
            shown->setText(toQString(label));
    }
    m_question->setAttribute(Qt::WA_DeleteOnClose);
    if (buttons.testFlag(QMessageBox::No))
        m_question->setDefaultButton(QMessageBox::No);
    connect(m_question, &QDialog::finished, this, [this](int answer) {
        m_question = nullptr;
        if (answer == QMessageBox::Yes)
            acceptUnasked();
        else
            showPlatformDialog();
    });
    m_question->open();
}

} // namespace VOXI
