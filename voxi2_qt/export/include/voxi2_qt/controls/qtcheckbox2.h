#pragma once

#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2_qt/controls/qtabstractbutton2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QCheckBox>

namespace VOXI {

/// The peer of the check box.
class VOXI2_QT_EXPORT QtCheckBox2
    : public QtWidget2Shim<VXCheckBox2, VXCheckBox2Emitters, QtAbstractButton2, QCheckBox>
{
    Q_OBJECT

public:
    QtCheckBox2(VXCheckBox2* object, VXCheckBox2Emitters* emitters, QWidget* parent);

private Q_SLOTS:
    void slotClicked();
    void slotToggled(bool checked);
};

} // namespace VOXI
