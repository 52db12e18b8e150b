#include "voxi2_qt/containers/qtfiledialog2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qtsavedtext.h"
#include "voxi2/kernel/translation.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"
#include "voxi2_qt/kernel/qttext.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QUrl>

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
    TROV::row<&E::restoreState, &P::doRestoreState>(),
    TROV::row<&E::setNative, &P::doSetNative>(),
    TROV::row<&E::isNative, &P::doIsNative>());
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

QtFileDialog2::~QtFileDialog2()
{
    if (!m_platform)
        return;
    m_platform->disconnect(this);
    m_platform->hide();
    m_platform->deleteLater(); // its signal may be on the stack
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
    m_platformFiles.reset();
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
    if (name.isEmpty() || !QFileInfo(name).isDir()) {
        ignored(*this, "there is no such directory");
        return;
    }
    setDirectory(name);
    m_platformFiles.reset();
    if (m_platform)
        goToPlatformDirectory(name);
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
        names.append(toQString(translated("All files")) + QStringLiteral(" (*)"));
    setNameFilters(names);
}

void QtFileDialog2::doSetSelectedFilter(int index)
{
    if (index < 0 || index >= static_cast<int>(m_filters.size())) {
        ignored(*this, Reason::NoIndex);
        return;
    }
    selectNameFilter(nameFilters().at(index));
    if (m_platform)
        m_platform->selectNameFilter(nameFilters().at(index));
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
    const QFileInfo info(shownDialog().directory().absoluteFilePath(toQFileName(file)));
    m_platformFiles.reset();
    if (m_platform)
        m_platform->selectFile(info.absoluteFilePath());
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
    return toFilePath(shownDialog().directory().absolutePath());
}

std::vector<FileFilter> QtFileDialog2::doGetFilters() { return m_filters; }

int QtFileDialog2::doGetSelectedFilter()
{
    const QString chosen = shownDialog().selectedNameFilter();
    return m_filters.empty() ? -1 : static_cast<int>(nameFilters().indexOf(chosen));
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

void QtFileDialog2::doSetNative(bool native) { m_isNative = native; }
bool QtFileDialog2::doIsNative() { return m_isNative; }

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

// Helpers -----------------------------------------------------------------------------------------

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

} // namespace VOXI
