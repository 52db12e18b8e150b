#pragma once

#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2_qt/containers/qtdialog2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>

#include <map>
#include <optional>

QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

namespace VOXI {

/// The peer of the file dialog: Qt's own dialog, so that it is a widget like others. If the program
/// wants it, one of the platform's stands for it while it is shown.
///
/// The questions that Qt's dialog asks on acceptance would run in a loop on its stack, and nobody
/// could destroy it meanwhile; they are asked here, without one.
class VOXI2_QT_EXPORT QtFileDialog2
    : public QtDialog2Shim<VXFileDialog2, VXFileDialog2Emitters, QFileDialog>
{
    Q_OBJECT

public:
    using Path = std::filesystem::path;

    QtFileDialog2(VXFileDialog2* object, VXFileDialog2Emitters* emitters, QWidget* parent,
                  Qt::WindowFlags flags);
    ~QtFileDialog2() override;

    void doAccept() override;
    void setVisible(bool visible) override;
    void accept() override;

    // Requests, in the order of the emitters table
    virtual void doSetMode(FileDialogMode mode);
    virtual void doSetDirectory(const Path& directory);
    virtual void doSetFilters(const std::vector<FileFilter>& filters);
    virtual void doSetSelectedFilter(int index);
    virtual void doSetDefaultSuffix(const std::wstring& suffix);
    virtual void doSetConfirmOverwrite(bool confirm);
    virtual void doSelectFile(const Path& file);
    virtual FileDialogMode doGetMode();
    virtual Path doGetDirectory();
    virtual std::vector<FileFilter> doGetFilters();
    virtual int doGetSelectedFilter();
    virtual std::wstring doGetDefaultSuffix();
    virtual bool doConfirmsOverwrite();
    virtual std::vector<Path> doGetSelectedFiles();
    virtual void doSetLabel(FileDialogLabel label, const std::wstring& text);
    virtual void doSetPlaces(const std::vector<Path>& places);
    virtual std::vector<Path> doGetPlaces();
    virtual std::string doSaveState();
    virtual bool doRestoreState(const std::string& state);
    virtual void doSetNative(bool native);
    virtual bool doIsNative();

protected:
    void connectSignals() override;
    void reportEnd(int result) override;
    void deferDelete() override;
    void endAlone() override;

private Q_SLOTS:
    void slotCurrentChanged(const QString& path);
    void slotDirectoryEntered(const QString& path);
    void slotPlatformFinished(int result);
    void slotPlatformDirectoryEntered(const QString& path);

private:
    QLineEdit* nameEdit() const;
    void applySuffix();
    void applyLabels();
    void acceptUnasked();
    bool enterTypedDirectory();
    QStringList namedFiles() const;
    QStringList chosenFiles() const;
    QString missingFile() const;
    const QFileDialog& shownDialog() const;
    void makePlatformDialog();
    void goToPlatformDirectory(const QString& path);
    void showPlatformDialog();
    void dropPlatformDialog();
    void ask(QMessageBox::StandardButtons buttons, const QString& text);

    FileDialogMode m_mode = FileDialogMode::OpenFile;
    std::vector<FileFilter> m_filters; // Qt's own are no longer what was set
    QString m_suffix;
    std::map<FileDialogLabel, QString> m_labels; // those that the program gave
    QPointer<QMessageBox> m_question;
    QPointer<QFileDialog> m_platform; // while it stands for this one
    QString m_platformDirectory;      // that it was last in
    std::optional<QStringList> m_platformFiles;
    bool m_isNative = false;
    bool m_isWaiting = false; // for what Qt runs inside it, to be deleted
    bool m_confirmOverwrite = true;
};

} // namespace VOXI
