#pragma once

#include "voxi2/containers/vxcolordialog2.h"
#include "voxi2_qt/containers/qtdialog2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QColorDialog>

namespace VOXI {

/// The peer of the color dialog: always Qt's own dialog, so that it is a widget like others.
class VOXI2_QT_EXPORT QtColorDialog2
    : public QtDialog2Shim<VXColorDialog2, VXColorDialog2Emitters, QColorDialog>
{
    Q_OBJECT

public:
    QtColorDialog2(VXColorDialog2* object, VXColorDialog2Emitters* emitters, QWidget* parent,
                   Qt::WindowFlags flags);

    // Requests, in the order of the emitters table
    virtual void doSetCurrentColor(const Color& color);
    virtual Color doGetCurrentColor();
    virtual void doSetAlphaEnabled(bool enabled);
    virtual bool doIsAlphaEnabled();

protected:
    void connectSignals() override;

private Q_SLOTS:
    void slotCurrentColorChanged(const QColor& color);
};

} // namespace VOXI
