#pragma once

#include "voxi2/containers/vxscrollview2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QScrollArea>

namespace VOXI {

/// The peer of the scroll view.
class VOXI2_QT_EXPORT QtScrollView2
    : public QtWidget2Shim<VXScrollView2, VXScrollView2Emitters, QtWidget2, QScrollArea>
{
    Q_OBJECT

public:
    QtScrollView2(VXScrollView2* object, VXScrollView2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetWidget(VXWidget2* widget);
    virtual void doSetWidgetResizable(bool resizable);
    virtual void doEnsurePointVisible(VXPoint<int> point, int xMargin, int yMargin);
    virtual void doEnsureWidgetVisible(VXWidget2* widget, int xMargin, int yMargin);
    virtual VXWidget2* doGetWidget();
    virtual bool doIsWidgetResizable();
    virtual void doScrollBy(VXPoint<int> distance);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace VOXI
