#include "voxi2_qt/containers/qtabstractdialog2.h"

#include "../kernel/enumtable.h"
#include "../kernel/qtignored.h"
#include "voxi2/controls/vxabstractbutton2.h"
#include "voxi2_qt/kernel/qtclosingwindow.h"
#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi_util/scopedflagtoggler.h"

#include <QAbstractButton>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QLayout>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

using E = VXAbstractDialog2Emitters;
using P = QtAbstractDialog2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setModal, &P::doSetModal>(),
    TROV::row<&E::open, &P::doOpen>(),
    TROV::row<&E::accept, &P::doAccept>(),
    TROV::row<&E::reject, &P::doReject>(),
    TROV::row<&E::done, &P::doDone>(),
    TROV::row<&E::setButtonResult, &P::doSetButtonResult>(),
    TROV::row<&E::unsetButtonResult, &P::doUnsetButtonResult>(),
    TROV::row<&E::exec, &P::doExec, RunsLoop>(),
    TROV::row<&E::isModal, &P::doIsModal>(),
    TROV::row<&E::getResult, &P::doGetResult>(),
    TROV::row<&E::getButtonOrder, &P::doGetButtonOrder>());
// clang-format on

constexpr auto s_buttons = enumTable<MessageAnswer, QDialogButtonBox::StandardButton>({
    {MessageAnswer::None, QDialogButtonBox::NoButton},
    {MessageAnswer::Yes, QDialogButtonBox::Yes},
    {MessageAnswer::YesToAll, QDialogButtonBox::YesToAll},
    {MessageAnswer::Ok, QDialogButtonBox::Ok},
    {MessageAnswer::Save, QDialogButtonBox::Save},
    {MessageAnswer::SaveAll, QDialogButtonBox::SaveAll},
    {MessageAnswer::Retry, QDialogButtonBox::Retry},
    {MessageAnswer::Ignore, QDialogButtonBox::Ignore},
    {MessageAnswer::Discard, QDialogButtonBox::Discard},
    {MessageAnswer::No, QDialogButtonBox::No},
    {MessageAnswer::NoToAll, QDialogButtonBox::NoToAll},
    {MessageAnswer::Abort, QDialogButtonBox::Abort},
    {MessageAnswer::Close, QDialogButtonBox::Close},
    {MessageAnswer::Cancel, QDialogButtonBox::Cancel},
    {MessageAnswer::Open, QDialogButtonBox::Open},
    {MessageAnswer::Apply, QDialogButtonBox::Apply},
    {MessageAnswer::Reset, QDialogButtonBox::Reset},
    {MessageAnswer::RestoreDefaults, QDialogButtonBox::RestoreDefaults},
    {MessageAnswer::Help, QDialogButtonBox::Help},
});

static_assert(VXAbstractDialog2::Rejected == int(QDialog::Rejected)
              && VXAbstractDialog2::Accepted == int(QDialog::Accepted));

} // namespace

/// One run of `doExec`: it outlives the peer if that goes meanwhile, and ends the showing however
/// the run ends.
struct QtAbstractDialog2::Execution
{
    explicit Execution(QtAbstractDialog2& dialog) : m_dialog(dialog), m_widget(dialog.asQWidget())
    {
        m_dialog.m_execution = this;
    }
    ~Execution()
    {
        if (!m_widget)
            return;
        if (m_dialog.isDeletionScheduled()) {
            m_widget->hide(); // it would block the other windows until it is deleted
        } else if (m_dialog.m_execution == this) {
            m_dialog.m_execution = nullptr; // the program quits, and all its loops have ended
            m_dialog.doHide();
        }
    }
    Execution(const Execution&) = delete;
    Execution& operator=(const Execution&) = delete;

    QtAbstractDialog2& m_dialog;
    const QPointer<QWidget> m_widget;
    QEventLoop m_loop;
    int m_result = VXAbstractDialog2::Rejected;
    bool m_isOver = false;
};

QtAbstractDialog2::QtAbstractDialog2(VXAbstractDialog2* dialog, VXAbstractDialog2Emitters* emitters)
    : QtPeerLevel(dialog, emitters, s_requests)
{}

void QtAbstractDialog2::endPeer()
{
    endExecution(VXAbstractDialog2::Rejected);
    QtAbstractWindow2::endPeer();
}

void QtAbstractDialog2::scheduleDelete()
{
    endExecution(VXAbstractDialog2::Rejected);
    QtAbstractWindow2::scheduleDelete();
}

// Requests ----------------------------------------------------------------------------------------

void QtAbstractDialog2::doSetVisible(bool visible)
{
    // Qt gives the focus to a part of a dialog that is shown, or to the dialog itself.
    const QtEventBlocker blocker(*this, {WidgetEvent::FocusIn});
    QtAbstractWindow2::doSetVisible(visible);
}

void QtAbstractDialog2::doSetWindowFlags(unsigned flags)
{
    QtAbstractWindow2::doSetWindowFlags(flags | WindowFlagDialog);
}

void QtAbstractDialog2::doSetModal(bool modal) { m_modal = modal; }

void QtAbstractDialog2::doOpen()
{
    if (m_execution)
        return;
    const auto modality = asQDialog()->parentWidget() ? Qt::WindowModal : Qt::ApplicationModal;
    hideUnlessShownAs(modality);
    showAs(modality);
}

void QtAbstractDialog2::doAccept() { doDone(VXAbstractDialog2::Accepted); }
void QtAbstractDialog2::doReject() { doDone(VXAbstractDialog2::Rejected); }

void QtAbstractDialog2::doDone(int result)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Hide});
    // Not through the virtual function, which is the user's.
    asQDialog()->QDialog::done(result);
    QtClosingWindow::finish(*asQWidget());
}

void QtAbstractDialog2::doSetButtonResult(VXAbstractButton2* button, int result)
{
    withPeerOf<QtWidget2>(button, [this, result](QtWidget2* peer) {
        auto* const qtButton = qobject_cast<QAbstractButton*>(peer ? peer->asQWidget() : nullptr);
        if (!qtButton) {
            ignored(*this, "that is no button of this back end's");
            return;
        }
        unsetButtonResult(qtButton);
        peer->becomeHeard(); // its own report comes first
        m_buttonResults.push_back(
            {qtButton, QObject::connect(qtButton, &QAbstractButton::clicked, asQWidget(),
                                        [this, result] { endByButton(result); })});
    });
}

void QtAbstractDialog2::doUnsetButtonResult(VXAbstractButton2* button)
{
    withWidgetOf(button, [this](QWidget* widget) {
        if (const auto* qtButton = qobject_cast<QAbstractButton*>(widget))
            unsetButtonResult(qtButton);
    });
}

int QtAbstractDialog2::doExec()
{
    if (m_execution)
        return VXAbstractDialog2::Rejected;
    const QPointer<QWidget> self(asQWidget());
    hideUnlessShownAs(Qt::ApplicationModal);
    if (!self || m_execution)
        return VXAbstractDialog2::Rejected;
    Execution execution(*this);
    showAs(Qt::ApplicationModal);
    if (!execution.m_isOver)
        execution.m_loop.exec(QEventLoop::DialogExec);
    return execution.m_result;
}

bool QtAbstractDialog2::doIsModal() { return m_modal; }
int QtAbstractDialog2::doGetResult() { return asQDialog()->result(); }

std::vector<MessageAnswer> QtAbstractDialog2::doGetButtonOrder(VXFlags<MessageAnswer> answers)
{
    // Qt knows many platforms, and tells nobody but its own row of buttons.
    const QDialogButtonBox box(s_buttons.toQtFlags<QDialogButtonBox::StandardButtons>(answers));
    const QLayout& row = *box.layout();
    std::vector<MessageAnswer> order;
    for (int i = 0; i < row.count(); ++i) {
        QLayoutItem* const item = row.itemAt(i);
        auto* const button = qobject_cast<QAbstractButton*>(item->widget());
        if (button)
            order.push_back(s_buttons.toVx(box.standardButton(button)));
        else if (item->expandingDirections().testFlag(Qt::Horizontal))
            order.push_back(MessageAnswer::None);
    }
    return order;
}

// Reports -----------------------------------------------------------------------------------------

void QtAbstractDialog2::reportEnd(int result) { report(&E::finished, result); }

// Helpers -----------------------------------------------------------------------------------------

QDialog* QtAbstractDialog2::asQDialog() const noexcept
{
    return static_cast<QDialog*>(asQWidget());
}

void QtAbstractDialog2::applyFlags(Qt::WindowFlags flags)
{
    const ScopedFlagToggler shownAnew(m_isShownAnew, true);
    QtAbstractWindow2::applyFlags(flags);
}

void QtAbstractDialog2::hideUnlessShownAs(Qt::WindowModality modality)
{
    // Qt does not change what a window on the screen blocks.
    if (asQDialog()->isVisible() && asQDialog()->windowModality() != modality)
        doHide();
}

void QtAbstractDialog2::showAs(Qt::WindowModality modality)
{
    m_nextModality = modality;
    asQDialog()->setResult(QDialog::Rejected);
    doShow();
}

void QtAbstractDialog2::prepareToShow()
{
    const auto plain = m_modal ? Qt::ApplicationModal : Qt::NonModal;
    const auto modality = std::exchange(m_nextModality, std::nullopt).value_or(plain);
    if (!m_isShownAnew && !asQDialog()->isVisible())
        asQDialog()->setWindowModality(modality);
}

void QtAbstractDialog2::endWhenHidden()
{
    if (!m_isShownAnew)
        endExecution(asQDialog()->result());
}

void QtAbstractDialog2::endExecution(int result)
{
    if (Execution* const execution = std::exchange(m_execution, nullptr)) {
        execution->m_result = result;
        execution->m_isOver = true;
        execution->m_loop.exit();
    }
}

void QtAbstractDialog2::endByButton(int result)
{
    // The button's own handler may have ended or destroyed the dialog.
    QDialog* const dialog = asQDialog();
    if (isDeletionScheduled() || !dialog->isVisible())
        return;
    if (result == VXAbstractDialog2::Rejected)
        dialog->reject();
    else if (result == VXAbstractDialog2::Accepted)
        dialog->accept();
    else
        dialog->done(result);
}

void QtAbstractDialog2::unsetButtonResult(const QAbstractButton* button)
{
    std::erase_if(m_buttonResults, [button](const ButtonResult& each) {
        if (each.m_button && each.m_button != button)
            return false;
        QObject::disconnect(each.m_connection);
        return true;
    });
}

} // namespace VOXI
