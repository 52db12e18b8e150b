#include "voxi2_qt/controls/qtcheckbox2.h"

namespace VOXI {

namespace {

const auto s_requests = TROV::operations<VXCheckBox2Emitters>();

} // namespace

QtCheckBox2::QtCheckBox2(VXCheckBox2* object, VXCheckBox2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    // It lies on what is written on, not on the window.
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::WindowText);
}

// Reports -----------------------------------------------------------------------------------------

void QtCheckBox2::slotClicked() { reportClick(); }
void QtCheckBox2::slotToggled(bool checked) { reportToggle(checked); }

} // namespace VOXI
