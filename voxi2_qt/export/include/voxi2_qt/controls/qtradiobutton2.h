#pragma once

#include "voxi2/controls/vxradiobutton2.h"
#include "voxi2_qt/controls/qtabstractbutton2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QRadioButton>

namespace VOXI {

/// The peer of the radio button.
class VOXI2_QT_EXPORT QtRadioButton2
    : public QtWidget2Shim<VXRadioButton2, VXRadioButton2Emitters, QtAbstractButton2, QRadioButton>
{
    Q_OBJECT

public:
    QtRadioButton2(VXRadioButton2* object, VXRadioButton2Emitters* emitters, QWidget* parent);

private Q_SLOTS:
    void slotClicked();
    void slotToggled(bool checked);
};

} // namespace VOXI
