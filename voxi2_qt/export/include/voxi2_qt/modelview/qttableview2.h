#pragma once

#include "voxi2/modelview/vxtableview2.h"
#include "voxi2_qt/modelview/qtabstractview2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QTableView>

namespace VOXI {

/// The peer of the table view.
class VOXI2_QT_EXPORT QtTableView2
    : public QtAbstractView2Shim<VXTableView2, VXTableView2Emitters, QTableView>
{
    Q_OBJECT

public:
    QtTableView2(VXTableView2* object, VXTableView2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetColumnWidth(unsigned column, int width, bool inPixels);
    virtual int doGetColumnWidth(unsigned column, bool inPixels);
    virtual void doSetColumnResizeMode(unsigned column, ColumnResizeMode mode);
    virtual ColumnResizeMode doGetColumnResizeMode(unsigned column);
    virtual void doResizeColumnToContents(unsigned column);
    virtual void doResizeColumnsToContents();
    virtual void doResizeRowToContents(unsigned row);
    virtual void doResizeRowsToContents();
    virtual void doSetRowHeaderVisible(bool visible);
    virtual bool doIsRowHeaderVisible();
    virtual void doSetRowMovable(bool movable);
    virtual bool doIsRowMovable();
    virtual void doSetGridVisible(bool visible);
    virtual bool doIsGridVisible();

    // Those of the abstract view that are a table's own
    void doSetRowHeight(unsigned row, int height) override;
    int doRowHeight(unsigned row) override;
    int doGetRowHeight(unsigned row) { return doRowHeight(row); }
    void doSetRowVisible(unsigned row, bool visible) override;
    bool doIsRowVisible(unsigned row) override;

    /// Gives columns and rows the size that they had in the font before, measured in letters.
    void updateSize();

    QModelIndex rowBelow(const QModelIndex& index) const override;

private:
    int characterWidth() const;
    void scaleColumns(double factor);
    void scaleRows(double factor);
    int rowSection(unsigned row) const;
    int askedForRow(unsigned row, CallPlace where = CallPlace::current()) const;

    int m_characterWidth = 0; ///< of the font that the sizes are for; 0 before the first
    int m_lineHeight = 0;
};

} // namespace VOXI
