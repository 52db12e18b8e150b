#pragma once

#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2_qt/containers/qtlayout2.h"
#include "voxi2_qt/kernel/qtobject2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QGridLayout>

namespace VOXI {

/// The peer of the grid layout.
class VOXI2_QT_EXPORT QtGridLayout2
    : public QtObject2Shim<VXGridLayout2, VXGridLayout2Emitters, QtLayout2, QGridLayout>
{
    Q_OBJECT

public:
    QtGridLayout2(VXGridLayout2* object, VXGridLayout2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doGridAddWidget(VXObject* widget, VXRect<int> cell, Alignment alignment);
    virtual void doGridAddSpacer(VXRect<int> cell, Size<int> size);
    virtual void doSetRowStretch(int row, int stretch);
    virtual void doSetColStretch(int column, int stretch);
    virtual void doSetStretchFactors(const std::vector<int>& rows, const std::vector<int>& columns);
    virtual int doGetRowStretch(int row);
    virtual int doGetColStretch(int column);
    virtual void doSetRowMinimum(int row, int height);
    virtual void doSetColMinimum(int column, int width);
    virtual int doGetRowMinimum(int row);
    virtual int doGetColMinimum(int column);
    virtual void doSetHorizontalSpacing(int spacing);
    virtual void doSetVerticalSpacing(int spacing);
    virtual int doGetHorizontalSpacing();
    virtual int doGetVerticalSpacing();
    virtual void doSetCell(VXObject* widget, VXRect<int> cell);
    virtual VXRect<int> doGetCell(VXObject* widget);
    virtual int doGetRowCount();
    virtual int doGetColCount();

private:
    bool hasRoomFor(const VXRect<int>& cell, CallPlace where = CallPlace::current()) const;
};

} // namespace VOXI
