#pragma once

#include "voxi2/containers/vxabstractdialog2.h"
#include "voxi2_qt/containers/qtabstractwindow2.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QMetaObject>
#include <QPointer>

#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QDialog;
QT_END_NAMESPACE

namespace VOXI {

/// The base of the peers of dialogs.
///
/// What the program asks for goes to `QDialog` directly; what comes through Qt's virtual functions
/// (`accept`, `reject`, `done`), which the shim overrides, is the user's act.
class VOXI2_QT_EXPORT QtAbstractDialog2
    : public QtPeerLevel<VXAbstractDialog2, VXAbstractDialog2Emitters, QtAbstractWindow2>
{
public:
    void doSetVisible(bool visible) override;
    void doSetWindowFlags(unsigned flags) override;
    void scheduleDelete() override;

    // Requests, in the order of the emitters table
    virtual void doSetModal(bool modal);
    virtual void doOpen();
    virtual void doAccept();
    virtual void doReject();
    virtual void doDone(int result);
    virtual void doSetButtonResult(VXAbstractButton2* button, int result);
    virtual void doUnsetButtonResult(VXAbstractButton2* button);
    virtual int doExec();
    virtual bool doIsModal();
    virtual int doGetResult();
    virtual std::vector<MessageAnswer> doGetButtonOrder(VXFlags<MessageAnswer> answers);

protected:
    QtAbstractDialog2(VXAbstractDialog2* dialog, VXAbstractDialog2Emitters* emitters);

    void endPeer();

    /// The Qt dialog that this peer is.
    QDialog* asQDialog() const noexcept;

    // What the shim passes on
    void prepareToShow();
    void endWhenHidden();
    void applyFlags(Qt::WindowFlags flags) override;
    /// Reports that the user ended the dialog. The peer may be gone when it returns.
    virtual void reportEnd(int result);

private:
    struct Execution;
    struct ButtonResult
    {
        QPointer<QAbstractButton> m_button;
        QMetaObject::Connection m_connection;
    };

    void hideUnlessShownAs(Qt::WindowModality modality);
    void showAs(Qt::WindowModality modality);
    void endExecution(int result);
    void endByButton(int result);
    void unsetButtonResult(const QAbstractButton* button);

    Execution* m_execution = nullptr; // lies on the stack of `doExec`
    std::vector<ButtonResult> m_buttonResults;
    std::optional<Qt::WindowModality> m_nextModality; // for the next time it is shown
    bool m_modal = false;
    bool m_isShownAnew = false; // hidden for a moment only
};

} // namespace VOXI
