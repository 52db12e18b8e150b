#include "voxi2_qt/containers/qtpanel2.h"

namespace VOXI {

namespace {

const auto s_requests = TROV::operations<VXPanel2Emitters>();

} // namespace

QtPanel2::QtPanel2(VXPanel2* object, VXPanel2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

// Requests ----------------------------------------------------------------------------------------

void QtPanel2::doSetColor(ColorRole role, Color color) { setVisibleColor(role, color); }

} // namespace VOXI
