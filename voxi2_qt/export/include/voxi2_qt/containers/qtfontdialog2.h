#pragma once

#include "voxi2/containers/vxfontdialog2.h"
#include "voxi2_qt/containers/qtdialog2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QFontDialog>

namespace VOXI {

/// The peer of the font dialog: always Qt's own dialog, so that it is a widget like others.
class VOXI2_QT_EXPORT QtFontDialog2
    : public QtDialog2Shim<VXFontDialog2, VXFontDialog2Emitters, QFontDialog>
{
    Q_OBJECT

public:
    QtFontDialog2(VXFontDialog2* object, VXFontDialog2Emitters* emitters, QWidget* parent,
                  Qt::WindowFlags flags);

    // Requests, in the order of the emitters table
    virtual void doSetCurrentFont(const VXFont& font);
    virtual VXFont doGetCurrentFont();

protected:
    void connectSignals() override;

private Q_SLOTS:
    void slotCurrentFontChanged(const QFont& font);
};

} // namespace VOXI
