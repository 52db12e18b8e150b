#pragma once

#include "voxi2/modelview/vxtreeview2.h"
#include "voxi2_qt/modelview/qtabstractview2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QTreeView>

#include <unordered_map>

namespace VOXI {

/// The peer of the tree view.
class VOXI2_QT_EXPORT QtTreeView2
    : public QtAbstractView2Shim<VXTreeView2, VXTreeView2Emitters, QTreeView>
{
    Q_OBJECT

public:
    QtTreeView2(VXTreeView2* object, VXTreeView2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetRowExpanded(unsigned row, bool expanded);
    virtual bool doIsRowExpanded(unsigned row);
    virtual void doimExpand(unsigned row);
    virtual void doimCollapse(unsigned row);
    virtual void doExpandAll();
    virtual void doCollapseAll();
    virtual void doSetRootIsDecorated(bool on);
    virtual void doSetUniformRowHeights(bool on);
    virtual bool doRootIsDecorated();
    virtual bool doHasUniformRowHeights();

    // Those of the abstract view that are a tree's own
    void doSetRowHeight(unsigned row, int height) override;
    int doRowHeight(unsigned row) override;
    void doSetRowVisible(unsigned row, bool visible) override;
    bool doIsRowVisible(unsigned row) override;

    QModelIndex rowBelow(const QModelIndex& index) const override;

protected:
    void connectSignals() override;
    int fixedRowHeight(const QModelIndex& index) const override;
    void sizeChanged() override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;

private Q_SLOTS:
    void slotExpanded(const QModelIndex& index);
    void slotCollapsed(const QModelIndex& index);

private:
    std::unordered_map<unsigned, int> m_rowHeights; ///< that were set, by the row's UID
};

} // namespace VOXI
