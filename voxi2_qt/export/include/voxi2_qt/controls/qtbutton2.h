#pragma once

#include "voxi2/controls/vxbutton2.h"
#include "voxi2_qt/controls/qtabstractbutton2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QPushButton>

namespace VOXI {

/// The peer of the push button.
class VOXI2_QT_EXPORT QtButton2
    : public QtWidget2Shim<VXButton2, VXButton2Emitters, QtAbstractButton2, QPushButton>
{
    Q_OBJECT

public:
    QtButton2(VXButton2* object, VXButton2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetDefault(bool isDefault);
    virtual void doSetFlat(bool flat);
    virtual bool doIsDefault();
    virtual bool doIsFlat();

private Q_SLOTS:
    void slotClicked();
    void slotToggled(bool checked);
};

} // namespace VOXI
