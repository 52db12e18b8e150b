#pragma once

#include "voxi2/containers/vxflowlayout2.h"
#include "voxi2_qt/containers/qtlayout2.h"
#include "voxi2_qt/kernel/qtobject2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QLayout>
#include <QList>
#include <QSize>

namespace VOXI {

/// The peer of the flow layout, which Qt has none of.
class VOXI2_QT_EXPORT QtFlowLayout2
    : public QtObject2Shim<VXFlowLayout2, VXFlowLayout2Emitters, QtLayout2, QLayout>
{
    Q_OBJECT

public:
    QtFlowLayout2(VXFlowLayout2* object, VXFlowLayout2Emitters* emitters, QWidget* parent,
                  VOXI::Direction direction);
    ~QtFlowLayout2() override;

    // Requests, in the order of the emitters table
    virtual void doSetDirection(VOXI::Direction direction);
    virtual VOXI::Direction doGetDirection();

    // QLayout
    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;

private:
    // The passes. Each answers the size that the items use, and places them unless it only tests.
    QSize doLayout(const QRect& rect, bool testOnly) const;
    QSize doLeftToRightLayout(const QRect& rect, bool testOnly) const;
    QSize doRightToLeftLayout(const QRect& rect, bool testOnly) const;
    QSize doTopToBottomLayout(const QRect& rect, bool testOnly) const;
    QSize doBottomToTopLayout(const QRect& rect, bool testOnly) const;

    QSize m_cachedSize; // of the last pass that placed the items; invalid before
    QList<QLayoutItem*> m_items;
    VOXI::Direction m_direction;
};

} // namespace VOXI
