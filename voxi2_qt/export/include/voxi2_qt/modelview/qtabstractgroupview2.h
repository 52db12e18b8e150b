#pragma once

#include "voxi2/kernel/ignored.h"
#include "voxi2/modelview/vxabstractgroupview2.h"
#include "voxi2_qt/kernel/qtwidget2.h"
#include "voxi2_qt/modelview/foldedview.h"
#include "voxi2_qt/voxi2_qt_export.h"

namespace VOXI {

/// The base of the peers of views that show groups: they are such a Qt view, or have one in them.
class VOXI2_QT_EXPORT QtAbstractGroupView2
    : public QtPeerLevel<VXAbstractGroupView2, VXAbstractGroupView2Emitters, QtWidget2>,
      public FoldedView::Host
{
public:
    // Requests, in the order of the emitters table
    virtual void doSetViewModel(VXAbstractViewModel2* model);
    virtual VXAbstractViewModel2* doGetViewModel();
    virtual void doSetGroupFolded(unsigned group, bool folded);
    virtual bool doIsGroupFolded(unsigned group);
    virtual void doFoldAll();
    virtual void doUnfoldAll();
    virtual void doimSetGroupFolded(unsigned group, bool folded);
    virtual void doSetCurrentRow(unsigned row);
    virtual void doimSetCurrentRow(unsigned row);
    virtual unsigned doGetCurrentRow();
    virtual void doimActivate(unsigned row);
    virtual void doScrollTo(unsigned row);
    virtual unsigned doGetRowAt(VXPoint<int> position);
    virtual VXRect<int> doGetRowRect(unsigned row);
    virtual bool doIsRowInSight(unsigned row);
    virtual CellInfo doGetRowInfo(unsigned row);
    virtual void doSetIconSize(Size<int> size);
    virtual Size<int> doGetIconSize();

    virtual FoldedView& foldedView() const = 0;

    // What the view tells
    void noteCurrent(unsigned row) override;
    void noteActivated(unsigned row) override;
    void noteFolded(unsigned group, bool folded) override;

protected:
    QtAbstractGroupView2(VXAbstractGroupView2* view, VXAbstractGroupView2Emitters* emitters);

private:
    // Whether there is what a request is about; it is told where not.
    bool isRow(unsigned row, CallPlace where = CallPlace::current()) const;
    bool isGroup(unsigned row, CallPlace where = CallPlace::current()) const;
};

} // namespace VOXI
