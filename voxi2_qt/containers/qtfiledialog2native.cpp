#include "voxi2_qt/containers/qtfiledialog2.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"

#include <QFileInfo>
#include <QPointer>

#include <memory>
#include <utility>

/// The platform's own dialog, which stands for Qt's while that is shown: for the application the
/// dialog is visible and modal as usual, but it is not on the screen.
///
/// Qt gives one to plain file dialogs alone, and those that have had it never show their own
/// widgets again; so a new one is made each time.

namespace VOXI {

// Reports -----------------------------------------------------------------------------------------

void QtFileDialog2::setVisible(bool visible)
{
    const QPointer<QWidget> self(this);
    if (visible && !isVisible())
        makePlatformDialog();
    QtDialog2Shim::setVisible(visible);
    if (!self)
        return;
    if (visible) {
        showPlatformDialog();
    } else if (!isVisible()) {
        delete m_question.data();
        dropPlatformDialog();
    }
}

void QtFileDialog2::slotPlatformFinished(int result)
{
    const QPointer<QWidget> self(this);
    if (result == QDialog::Accepted)
        accept();
    else
        reject();
    // The application may have refused. Later: what closes a dialog of GTK's hides it after this.
    if (self)
        QMetaObject::invokeMethod(this, &QtFileDialog2::showPlatformDialog, Qt::QueuedConnection);
}

void QtFileDialog2::slotPlatformDirectoryEntered(const QString& path)
{
    // Platforms tell what the program asks for, too, at some time.
    if (std::exchange(m_platformDirectory, path) != path)
        slotDirectoryEntered(path);
}

// Helpers -----------------------------------------------------------------------------------------

const QFileDialog& QtFileDialog2::shownDialog() const
{
    return m_platform ? *m_platform : static_cast<const QFileDialog&>(*this);
}

void QtFileDialog2::makePlatformDialog()
{
    m_platformFiles.reset();
    dropPlatformDialog();
    if (!m_isNative)
        return;
    auto dialog = std::make_unique<QFileDialog>(parentWidget());
    // Qt makes its own widgets where there is none.
    if (!dialog->findChildren<QWidget*>().isEmpty())
        return;
    dialog->setWindowTitle(windowTitle());
    dialog->setAcceptMode(acceptMode());
    dialog->setFileMode(fileMode());
    dialog->setOption(ShowDirsOnly, testOption(ShowDirsOnly));
    dialog->setOption(DontConfirmOverwrite, !m_confirmOverwrite);
    dialog->setNameFilters(nameFilters());
    dialog->selectNameFilter(selectedNameFilter());
    for (const auto& [label, text] : m_labels) {
        if (!text.isEmpty() && label == FileDialogLabel::Accept)
            dialog->setLabelText(Accept, text);
        else if (!text.isEmpty() && label == FileDialogLabel::Cancel)
            dialog->setLabelText(Reject, text);
    }
    connect(dialog.get(), &QDialog::finished, this, &QtFileDialog2::slotPlatformFinished);
    connect(dialog.get(), &QFileDialog::currentChanged, this, &QtFileDialog2::slotCurrentChanged);
    connect(dialog.get(), &QFileDialog::directoryEntered, this,
            &QtFileDialog2::slotPlatformDirectoryEntered);
    setAttribute(Qt::WA_DontShowOnScreen);
    const QStringList proposed = chosenFiles();
    m_platform = dialog.release();
    goToPlatformDirectory(directory().absolutePath());
    for (const QString& file : proposed)
        m_platform->selectFile(file);
}

void QtFileDialog2::goToPlatformDirectory(const QString& path)
{
    m_platformDirectory = path;
    m_platform->setDirectory(path);
}

/// Unless the dialog has ended, or asks something.
void QtFileDialog2::showPlatformDialog()
{
    if (!m_platform || !isVisible() || m_question || m_platform->isVisible())
        return;
    m_platform->setWindowModality(windowModality());
    m_platform->show();
}

/// Takes over what it knows.
void QtFileDialog2::dropPlatformDialog()
{
    if (!m_platform)
        return;
    m_platformFiles = namedFiles();
    const QPointer<QFileDialog> dialog = std::exchange(m_platform, nullptr);
    dialog->disconnect(this);
    const QtSignalBlocker signals(this);
    setDirectory(dialog->directory());
    if (const QString filter = dialog->selectedNameFilter(); !filter.isEmpty())
        selectNameFilter(filter);
    setAttribute(Qt::WA_DontShowOnScreen, false);
    dialog->hide();
    dialog->deleteLater(); // its signal may be on the stack
}

/// What the dialog that is shown, or was last, names.
QStringList QtFileDialog2::namedFiles() const
{
    if (!m_platform)
        return m_platformFiles.value_or(selectedFiles());
    QStringList files = m_platform->selectedFiles();
    if (m_mode != FileDialogMode::SaveFile || m_suffix.isEmpty())
        return files;
    // Not by Qt, which would not tell whether the platform has asked for that name.
    for (QString& file : files) {
        if (!QFileInfo(file).fileName().contains(u'.'))
            file += u'.' + m_suffix;
    }
    return files;
}

} // namespace VOXI
