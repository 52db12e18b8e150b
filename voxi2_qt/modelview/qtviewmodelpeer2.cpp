#include "qtviewmodelpeer2.h"

namespace VOXI {

namespace {

const auto s_requests = TROV::operations<VXAbstractViewModel2Emitters>();

} // namespace

QtViewModelPeer2::QtViewModelPeer2(VXAbstractViewModel2* object,
                                   VXAbstractViewModel2Emitters* emitters, QObject* parent)
    : QtObject2Shim(object, emitters, s_requests, object, emitters, parent)
{}

} // namespace VOXI
