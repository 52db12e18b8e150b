#include "voxi2_qt/containers/qtfiledialog2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qtsavedtext.h"
#include "voxi2/kernel/translation.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"
#include "voxi2_qt/kernel/qttext.h"

#include <QAbstractButton>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

using E = VXFileDialog2Emitters;
using P = QtFileDialog2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setMode, &P::doSetMode>(),
    TROV::row<&E::setDirectory, &P::doSetDirectory>(),
    TROV::row<&E::setFilters, &P::doSetFilters>(),
    TROV::row<&E::setSelectedFilter, &P::doSetSelectedFilter>(),
    TROV::row<&E::setDefaultSuffix, &P::doSetDefaultSuffix>(),
    TROV::row<&E::setConfirmOverwrite, &P::doSetConfirmOverwrite>(),
    TROV::row<&E::selectFile, &P::doSelectFile>(),
    TROV::row<&E::getMode, &P::doGetMode>(),
    TROV::row<&E::getDirectory, &P::doGetDirectory>(),
    TROV::row<&E::getFilters, &P::doGetFilters>(),
    TROV::row<&E::getSelectedFilter, &P::doGetSelectedFilter>(),
    TROV::row<&E::getDefaultSuffix, &P::doGetDefaultSuffix>(),
    TROV::row<&E::confirmsOverwrite, &P::doConfirmsOverwrite>(),
    TROV::row<&E::getSelectedFiles, &P::doGetSelectedFiles>(),
    TROV::row<&E::setLabel, &P::doSetLabel>(),
    TROV::row<&E::setPlaces, &P::doSetPlaces>(),
    TROV::row<&E::getPlaces, &P::doGetPlaces>(),
    TROV::row<&E::saveState, &P::doSaveState>(),
    TROV::row<&E::restoreState, &P::doRestoreState>());
// clang-format on

constexpr char StateKind[] = "voxi-files";

/// A pattern as it may stand between the brackets of Qt's filters, where few characters can: what
/// Qt would not take for a pattern becomes the wild card for any one character.
QString toQtPattern(const std::string& pattern)
{
    QString result = toQFileName(pattern);
    for (QChar& character : result) {
        const bool allowed =
            character.unicode() < 0x80
            && (character.isLetterOrNumber()
                || QStringLiteral("_.,*?+;#-[]@{}/!<>$%&=^~:|").contains(character));
        if (!allowed || character == u';')
            character = u'?';
    }
    return result;
}

QString toQtFilter(const FileFilter& filter)
{
    QStringList patterns;
    for (const std::string& pattern : filter.patterns) {
        if (!pattern.empty())
            patterns.append(toQtPattern(pattern));
    }
    if (patterns.isEmpty())
        patterns.append(QStringLiteral("*"));
    return toQString(filter.name) + QStringLiteral(" (") + patterns.join(u' ') + u')';
}

QString inUsersLanguage(LibraryText english) { return toQString(translated(english)); }

struct Label
{
    FileDialogLabel m_label;
    QFileDialog::DialogLabel m_qtLabel;
    LibraryText m_english;
};

constexpr Label s_labels[] = {
    {FileDialogLabel::Directory, QFileDialog::LookIn, "Look in:"},
    {FileDialogLabel::FileName, QFileDialog::FileName, "File &name:"},
    {FileDialogLabel::Filter, QFileDialog::FileType, "Files of type:"},
    {FileDialogLabel::Accept, QFileDialog::Accept, "&Open"},
    {FileDialogLabel::Cancel, QFileDialog::Reject, "Cancel"},
};

/// What Qt says by itself.
LibraryText englishOf(const Label& label, FileDialogMode mode)
{
    const bool isDirectory = mode == FileDialogMode::Directory;
    if (label.m_label == FileDialogLabel::FileName && isDirectory)
        return "Directory:";
    if (label.m_label == FileDialogLabel::Accept && isDirectory)
        return "&Choose";
    if (label.m_label == FileDialogLabel::Accept && mode == FileDialogMode::SaveFile)
        return "&Save";
    return label.m_english;
}

} // namespace

QtFileDialog2::QtFileDialog2(VXFileDialog2* object, VXFileDialog2Emitters* emitters,
                             QWidget* parent, Qt::WindowFlags flags)
    : QtDialog2Shim(object, emitters, s_requests, parent, flags)
{
    setOption(DontUseNativeDialog);
    setOption(DontConfirmOverwrite); // asked here
    doSetMode(FileDialogMode::OpenFile);
}

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

// Requests ----------------------------------------------------------------------------------------

void QtFileDialog2::doAccept()
{
    if (!chosenFiles().isEmpty() && missingFile().isNull())
        QtAbstractDialog2::doAccept();
}

void QtFileDialog2::doSetMode(FileDialogMode mode)
{
    m_mode = mode;
    const bool saving = mode == FileDialogMode::SaveFile;
    const bool directory = mode == FileDialogMode::Directory;
    setAcceptMode(saving ? AcceptSave : AcceptOpen);
    if (saving)
        setFileMode(AnyFile);
    else if (directory)
        setFileMode(QFileDialog::Directory);
    else
        setFileMode(mode == FileDialogMode::OpenFiles ? ExistingFiles : ExistingFile);
    setOption(ShowDirsOnly, directory);
    applySuffix();
    applyLabels(); // Qt has made its buttons anew
}

void QtFileDialog2::doSetDirectory(const Path& directory)
{
    const QtSignalBlocker signals(this);
    const QString name = toQFileName(directory);
    if (!name.isEmpty() && QFileInfo(name).isDir())
        setDirectory(name);
    else
        ignored(*this, "there is no such directory");
}

void QtFileDialog2::doSetFilters(const std::vector<FileFilter>& filters)
{
    m_filters = filters;
    QStringList names;
    for (const FileFilter& filter : filters) {
        // Qt knows filters by what they read. A space without a width makes another of one.
        QString name = toQtFilter(filter);
        while (names.contains(name))
            name.prepend(QChar(0x200b));
        names.append(name);
    }
    if (names.isEmpty())
        names.append(inUsersLanguage("All files") + QStringLiteral(" (*)"));
    setNameFilters(names);
}

void QtFileDialog2::doSetSelectedFilter(int index)
{
    if (index >= 0 && index < static_cast<int>(m_filters.size()))
        selectNameFilter(nameFilters().at(index));
    else
        ignored(*this, Reason::NoIndex);
}

void QtFileDialog2::doSetDefaultSuffix(const std::wstring& suffix)
{
    m_suffix = toQString(suffix);
    if (m_suffix.startsWith(u'.'))
        m_suffix.remove(0, 1);
    applySuffix();
}

void QtFileDialog2::doSetConfirmOverwrite(bool confirm) { m_confirmOverwrite = confirm; }

void QtFileDialog2::doSelectFile(const Path& file)
{
    if (file.empty())
        return;
    const QtSignalBlocker signals(this);
    const QFileInfo info(directory().absoluteFilePath(toQFileName(file)));
    if (info.absoluteDir().exists())
        setDirectory(info.absolutePath());
    selectFile(info.fileName());
    // Qt leaves alone what the user may be typing.
    if (QLineEdit* edit = nameEdit(); edit && isVisible())
        edit->setText(info.fileName());
}

FileDialogMode QtFileDialog2::doGetMode() { return m_mode; }

QtFileDialog2::Path QtFileDialog2::doGetDirectory()
{
    return toFilePath(directory().absolutePath());
}

std::vector<FileFilter> QtFileDialog2::doGetFilters() { return m_filters; }

int QtFileDialog2::doGetSelectedFilter()
{
    return m_filters.empty() ? -1 : static_cast<int>(nameFilters().indexOf(selectedNameFilter()));
}

std::wstring QtFileDialog2::doGetDefaultSuffix() { return toStdWString(m_suffix); }
bool QtFileDialog2::doConfirmsOverwrite() { return m_confirmOverwrite; }

std::vector<QtFileDialog2::Path> QtFileDialog2::doGetSelectedFiles()
{
    std::vector<Path> files;
    for (const QString& file : chosenFiles())
        files.push_back(toFilePath(file));
    return files;
}

void QtFileDialog2::doSetLabel(FileDialogLabel label, const std::wstring& text)
{
    m_labels[label] = toQString(text);
    applyLabels();
}

void QtFileDialog2::doSetPlaces(const std::vector<Path>& places)
{
    QList<QUrl> urls;
    for (const Path& each : places) {
        const QFileInfo place(toQFileName(each));
        if (place.isDir())
            urls.append(QUrl::fromLocalFile(place.absoluteFilePath()));
    }
    setSidebarUrls(urls);
}

std::vector<QtFileDialog2::Path> QtFileDialog2::doGetPlaces()
{
    std::vector<Path> places;
    for (const QUrl& each : sidebarUrls()) {
        if (const QString file = each.toLocalFile(); !file.isEmpty())
            places.push_back(toFilePath(file));
    }
    return places;
}

std::string QtFileDialog2::doSaveState() { return toSavedText(StateKind, saveState()); }

bool QtFileDialog2::doRestoreState(const std::string& state)
{
    const auto bytes = fromSavedText(StateKind, state);
    const QtSignalBlocker signals(this);
    return bytes && restoreState(*bytes);
}

// Reports -----------------------------------------------------------------------------------------

void QtFileDialog2::connectSignals()
{
    connect(this, &QFileDialog::currentChanged, this, &QtFileDialog2::slotCurrentChanged);
    connect(this, &QFileDialog::directoryEntered, this, &QtFileDialog2::slotDirectoryEntered);
}

void QtFileDialog2::slotCurrentChanged(const QString& path)
{
    report(&E::currentChanged, toFilePath(path));
}

void QtFileDialog2::slotDirectoryEntered(const QString& path)
{
    report(&E::directoryEntered, toFilePath(path));
}

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
        if (!files.isEmpty() && QFileInfo::exists(files.first())) {
            ask(QMessageBox::Yes | QMessageBox::No,
                inUsersLanguage("%1 exists already.\nDo you want to replace it?")
                    .arg(QFileInfo(files.first()).fileName()));
            return;
        }
    }
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

void QtFileDialog2::applySuffix()
{
    // Qt would give it to directories, too.
    setDefaultSuffix(m_mode == FileDialogMode::SaveFile ? m_suffix : QString());
}

void QtFileDialog2::applyLabels()
{
    for (const Label& each : s_labels) {
        const LibraryText english = englishOf(each, m_mode);
        QString text = toQString(translationOf(english));
        if (const auto own = m_labels.find(each.m_label); own != m_labels.end())
            text = !own->second.isEmpty() ? own->second
                   : text.isEmpty()       ? QFileDialog::tr(english.english())
                                          : text;
        if (!text.isEmpty())
            setLabelText(each.m_qtLabel, text);
    }
}

/// Whether the user has typed the name of a directory; then the dialog goes there. Qt would see a
/// name without a suffix.
bool QtFileDialog2::enterTypedDirectory()
{
    QLineEdit* const edit = nameEdit();
    if (m_mode != FileDialogMode::SaveFile || !edit || edit->text().isEmpty())
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
    QStringList files = selectedFiles();
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
    for (const QString& file : selectedFiles()) {
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
            QFileDialog::accept();
    });
    m_question->open();
}

void QtFileDialog2::setVisible(bool visible)
{
    const QPointer<QWidget> self(this);
    QtDialog2Shim::setVisible(visible);
    if (self && !visible && m_question)
        delete m_question.data();
}

} // namespace VOXI
