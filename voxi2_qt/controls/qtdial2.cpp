#include "voxi2_qt/controls/qtdial2.h"

namespace VOXI {

namespace {

using E = VXDial2Emitters;
using P = QtDial2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setPageStep, &P::doSetPageStep>(),
    TROV::row<&E::getPageStep, &P::doGetPageStep>(),
    TROV::row<&E::setNotchVisible, &P::doSetNotchVisible>(),
    TROV::row<&E::getNotchVisible, &P::doGetNotchVisible>(),
    TROV::row<&E::getNotchSize, &P::doGetNotchSize>(),
    TROV::row<&E::setWrapping, &P::doSetWrapping>(),
    TROV::row<&E::isWrapping, &P::doIsWrapping>());
// clang-format on

} // namespace

QtDial2::QtDial2(VXDial2* object, VXDial2Emitters* emitters, QWidget* parent)
    : QtRange2Shim(object, emitters, s_requests, parent)
{
    setTracking(false);
}

// Requests ----------------------------------------------------------------------------------------

void QtDial2::doSetPageStep(int step) { setPageStep(step); }
int QtDial2::doGetPageStep() { return pageStep(); }
void QtDial2::doSetNotchVisible(bool visible) { setNotchesVisible(visible); }
bool QtDial2::doGetNotchVisible() { return notchesVisible(); }
int QtDial2::doGetNotchSize() { return notchSize(); }
void QtDial2::doSetWrapping(bool wrapping) { setWrapping(wrapping); }
bool QtDial2::doIsWrapping() { return wrapping(); }

// Reports -----------------------------------------------------------------------------------------

void QtDial2::connectSignals()
{
    connect(this, &QDial::valueChanged, this, &QtDial2::slotDialValueChanged);
}

void QtDial2::slotDialValueChanged(int value) { report(&E::valueChanged, value); }

} // namespace VOXI
