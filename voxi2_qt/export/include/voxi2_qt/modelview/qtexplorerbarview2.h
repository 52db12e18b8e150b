#pragma once

#include "voxi2/modelview/vxexplorerbarview2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/modelview/explorerbar.h"
#include "voxi2_qt/modelview/qtabstractgroupview2.h"
#include "voxi2_qt/voxi2_qt_export.h"

namespace VOXI {

/// The peer of the explorer bar.
class VOXI2_QT_EXPORT QtExplorerBarView2
    : public QtWidget2Shim<VXExplorerBarView2, VXExplorerBarView2Emitters, QtAbstractGroupView2,
                           ExplorerBar>
{
    Q_OBJECT

public:
    QtExplorerBarView2(VXExplorerBarView2* object, VXExplorerBarView2Emitters* emitters,
                       QWidget* parent);
    ~QtExplorerBarView2() override;

    FoldedView& foldedView() const override;
};

} // namespace VOXI
