#include "voxi2_qt/controls/qtrange2.h"

namespace VOXI {

namespace {

using E = VXRange2Emitters;
using P = QtRange2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setValue, &P::doSetValue>(),
    TROV::row<&E::getValue, &P::doGetValue>(),
    TROV::row<&E::setRange, &P::doSetRange>(),
    TROV::row<&E::getRange, &P::doGetRange>(),
    TROV::row<&E::setSingleStep, &P::doSetSingleStep>(),
    TROV::row<&E::getSingleStep, &P::doGetSingleStep>());
// clang-format on

} // namespace

QtRange2::QtRange2(VXRange2* object, VXRange2Emitters* emitters)
    : QtPeerLevel(object, emitters, s_requests)
{}

} // namespace VOXI
