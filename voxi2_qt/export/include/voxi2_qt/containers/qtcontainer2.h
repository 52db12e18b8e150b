#pragma once

#include "voxi2_qt/kernel/qtwidget2.h"
#include "voxi2_qt/voxi2_qt_export.h"

namespace VOXI {

/// The base of peers that only hold other widgets.
class VOXI2_QT_EXPORT QtContainer2 : public QtWidget2
{
protected:
    QtContainer2(VXWidget2* object, VXWidget2Emitters* emitters);

    /// For containers that are transparent by themselves: a colour is to be seen, so they paint
    /// their background from then on.
    void setVisibleColor(ColorRole role, Color color);
};

} // namespace VOXI
