#include "voxi2_qt/containers/qtgroupbox2.h"

#include "voxi2_qt/kernel/qtconvert.h"

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
    TROV::row<&E::getTitleU, &P::doGetTitleU>());
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

} // namespace VOXI
