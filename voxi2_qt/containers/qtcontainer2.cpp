#include "voxi2_qt/containers/qtcontainer2.h"

#include "qtaccessiblepanel.h"

#include <QWidget>

namespace VOXI {

QtContainer2::QtContainer2(VXWidget2* object, VXWidget2Emitters* emitters)
    : QtWidget2(object, emitters)
{
    QtAccessiblePanel::install();
}

void QtContainer2::setVisibleColor(ColorRole role, Color color)
{
    asQWidget()->setAutoFillBackground(true);
    QtWidget2::doSetColor(role, color);
}

} // namespace VOXI
