#include "voxi2_qt/containers/qtgroupbox2.h"

#include "../kernel/qtignored.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"

namespace VOXI {

namespace {

using E = VXGroupBox2Emitters;
using P = QtGroupBox2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setTitle, &P::doSetTitle>(),
    TROV::row<&E::setFlat, &P::doSetFlat>(),
    TROV::row<&E::getTitle, &P::doGetTitle>(),
    TROV::row<&E::isFlat, &P::doIsFlat>(),
    TROV::row<&E::setTitleU, &P::doSetTitleU>(),
    TROV::row<&E::getTitleU, &P::doGetTitleU>(),
    TROV::row<&E::setCheckable, &P::doSetCheckable>(),
    TROV::row<&E::isCheckable, &P::doIsCheckable>(),
    TROV::row<&E::setChecked, &P::doSetChecked>(),
    TROV::row<&E::isChecked, &P::doIsChecked>(),
    asUserRow<&E::toggle, &P::doimToggle>());
// clang-format on

} // namespace

QtGroupBox2::QtGroupBox2(VXGroupBox2* object, VXGroupBox2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

// Requests ----------------------------------------------------------------------------------------

void QtGroupBox2::doSetTitle(const std::string& title) { setTitle(toQString(title)); }
void QtGroupBox2::doSetFlat(bool flat) { setFlat(flat); }
std::string QtGroupBox2::doGetTitle() { return toStdString(title()); }
bool QtGroupBox2::doIsFlat() { return isFlat(); }
void QtGroupBox2::doSetTitleU(const std::wstring& title) { setTitle(toQString(title)); }
std::wstring QtGroupBox2::doGetTitleU() { return toStdWString(title()); }

void QtGroupBox2::doSetCheckable(bool checkable)
{
    const Qt::FocusPolicy before = focusPolicy();
    const bool isOwn = before != (isCheckable() ? Qt::StrongFocus : Qt::NoFocus);
    const QtProgramScope scope; // the focus may go on
    const QtSignalBlocker signals(this);
    setCheckable(checkable);
    if (isOwn)
        setFocusPolicy(before);
}

bool QtGroupBox2::doIsCheckable() { return isCheckable(); }

void QtGroupBox2::doSetChecked(bool checked)
{
    if (!isCheckable()) {
        ignored(*this, "the group is not checkable");
        return;
    }
    const QtProgramScope scope; // the focus may go on
    const QtSignalBlocker signals(this);
    setChecked(checked);
}

bool QtGroupBox2::doIsChecked() { return isChecked(); }

void QtGroupBox2::doimToggle()
{
    if (isEnabled())
        setChecked(!isChecked());
}

// Reports -----------------------------------------------------------------------------------------

void QtGroupBox2::connectSignals()
{
    connect(this, &QGroupBox::toggled, this, &QtGroupBox2::slotToggled);
}

bool QtGroupBox2::event(QEvent* event)
{
    // Qt goes through what is in the group while it enables or disables it.
    const QtReportHold hold;
    return QtWidget2Shim::event(event);
}

void QtGroupBox2::slotToggled(bool checked) { report(&E::toggled, checked); }

} // namespace VOXI
