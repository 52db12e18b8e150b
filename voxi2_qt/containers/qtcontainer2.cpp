#include "voxi2_qt/containers/qtcontainer2.h"

#include <QWidget>

namespace VOXI {

void QtContainer2::setVisibleColor(ColorRole role, Color color)
{
    asQWidget()->setAutoFillBackground(true);
    QtWidget2::doSetColor(role, color);
}

} // namespace VOXI
