#pragma once

#include "voxi2/containers/vxdialog2.h"
#include "voxi2_qt/containers/qtdialog2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QDialog>

namespace VOXI {

/// The peer of the dialog.
class VOXI2_QT_EXPORT QtDialog2 : public QtDialog2Shim<VXDialog2, VXDialog2Emitters, QDialog>
{
    Q_OBJECT

public:
    QtDialog2(VXDialog2* object, VXDialog2Emitters* emitters, QWidget* parent,
              Qt::WindowFlags flags);

    // Requests, in the order of the emitters table
    virtual void doSetDefaultButton(VXButton2* button);
    virtual void doSetSizeGripEnabled(bool enabled);
    virtual VXButton2* doGetDefaultButton();
    virtual bool doIsSizeGripEnabled();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace VOXI
