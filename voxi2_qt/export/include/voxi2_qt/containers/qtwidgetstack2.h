#pragma once

#include "voxi2/containers/vxwidgetstack2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QStackedWidget>

namespace VOXI {

/// The peer of the widget stack.
class VOXI2_QT_EXPORT QtWidgetStack2
    : public QtWidget2Shim<VXWidgetStack2, VXWidgetStack2Emitters, QtWidget2, QStackedWidget>
{
    Q_OBJECT

public:
    QtWidgetStack2(VXWidgetStack2* object, VXWidgetStack2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doAddWidget(VXWidget2* widget, int index);
    virtual void doRaiseWidget(VXWidget2* widget);
    virtual void doRaiseWidgetWithID(int id);
    virtual void doRemoveWidget(VXWidget2* widget);
    virtual VXWidget2* doGetCurrentWidget();
    virtual int doGetCurrentID();
    virtual int doGetWidgetID(VXWidget2* widget);
    virtual int doCount();

protected:
    void connectSignals() override;

private Q_SLOTS:
    void slotCurrentChanged(int index);
};

} // namespace VOXI
