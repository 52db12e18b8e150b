#pragma once

#include "voxi2/containers/vxpanel2.h"
#include "voxi2_qt/containers/qtcontainer2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

namespace VOXI {

/// The peer of the panel.
class VOXI2_QT_EXPORT QtPanel2
    : public QtWidget2Shim<VXPanel2, VXPanel2Emitters, QtContainer2, QWidget>
{
    Q_OBJECT

public:
    QtPanel2(VXPanel2* object, VXPanel2Emitters* emitters, QWidget* parent);

    void doSetColor(ColorRole role, Color color) override;
};

} // namespace VOXI
