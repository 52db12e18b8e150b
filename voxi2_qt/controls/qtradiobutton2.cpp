#include "voxi2_qt/controls/qtradiobutton2.h"

namespace VOXI {

namespace {

const auto s_requests = TROV::operations<VXRadioButton2Emitters>();

} // namespace

QtRadioButton2::QtRadioButton2(VXRadioButton2* object, VXRadioButton2Emitters* emitters,
                               QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    // It lies on what is written on, not on the window.
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::WindowText);
}

// Reports -----------------------------------------------------------------------------------------

void QtRadioButton2::slotClicked() { reportClick(); }
void QtRadioButton2::slotToggled(bool checked) { reportToggle(checked); }

} // namespace VOXI
