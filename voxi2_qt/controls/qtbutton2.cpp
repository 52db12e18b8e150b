#include "voxi2_qt/controls/qtbutton2.h"

namespace VOXI {

namespace {

using E = VXButton2Emitters;
using P = QtButton2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setDefault, &P::doSetDefault>(),
    TROV::row<&E::setFlat, &P::doSetFlat>(),
    TROV::row<&E::isDefault, &P::doIsDefault>(),
    TROV::row<&E::isFlat, &P::doIsFlat>());
// clang-format on

} // namespace

QtButton2::QtButton2(VXButton2* object, VXButton2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
}

// Requests ----------------------------------------------------------------------------------------

void QtButton2::doSetDefault(bool isDefault) { setDefault(isDefault); }
void QtButton2::doSetFlat(bool flat) { setFlat(flat); }
bool QtButton2::doIsDefault() { return isDefault(); }
bool QtButton2::doIsFlat() { return isFlat(); }

// Reports -----------------------------------------------------------------------------------------

void QtButton2::slotClicked() { reportClick(); }
void QtButton2::slotToggled(bool checked) { reportToggle(checked); }

} // namespace VOXI
