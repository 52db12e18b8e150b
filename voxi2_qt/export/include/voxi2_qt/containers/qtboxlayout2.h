#pragma once

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2_qt/containers/qtlayout2.h"
#include "voxi2_qt/kernel/qtobject2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QBoxLayout>

namespace VOXI {

/// The peer of the box layout.
class VOXI2_QT_EXPORT QtBoxLayout2
    : public QtObject2Shim<VXBoxLayout2, VXBoxLayout2Emitters, QtLayout2, QBoxLayout>
{
    Q_OBJECT

public:
    QtBoxLayout2(VXBoxLayout2* object, VXBoxLayout2Emitters* emitters, QWidget* parent,
                 VOXI::Direction direction);

    void doSetParent(VXObject* widget) override;
    bool doRefuses(VXObject* widget) override;

    // Requests, in the order of the emitters table
    virtual void doBoxAddWidget(VXObject* widget, int stretch, Alignment alignment);
    virtual void doInsertWidget(VXObject* widget, int index, int stretch, Alignment alignment);
    virtual void doInsertSpacer(int index, int size, int stretch);
    virtual void doSetStretchFactor(VXObject* widget, int stretch);
    virtual void doAddLayout(VXObject* layout, int stretch);
    virtual bool doRefusesLayout(VXObject* layout);
    virtual void doSetDirection(VOXI::Direction direction);
    virtual VOXI::Direction doGetDirection();

private:
    /// The position to insert at; -1, which appends, for none.
    int placeFor(int index) const;
    /// Whether this layout is the other one or lies in it.
    bool isInside(const QLayout& layout) const;
};

} // namespace VOXI
