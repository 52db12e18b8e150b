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
    virtual void doRemoveWidget();
    virtual void doSetScrollPosition(VXPoint<int> position);
    virtual VXPoint<int> doGetScrollPosition();
    virtual VXPoint<int> doGetScrollEnd();
    virtual void doSetScrollBarPolicy(Orientation bar, ScrollBarPolicy policy);
    virtual ScrollBarPolicy doGetScrollBarPolicy(Orientation bar);

protected:
    void connectSignals() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void slotScrolled();

private:
    VXPoint<int> m_known{};   // the last position that a bar told, once somebody listens
    bool m_isSetting = false; // the program moves the view
};

} // namespace VOXI
