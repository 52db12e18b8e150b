#pragma once

#include "voxi2/containers/vxsplitter2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QSplitter>

namespace VOXI {

/// The peer of the splitter.
class VOXI2_QT_EXPORT QtSplitter2
    : public QtWidget2Shim<VXSplitter2, VXSplitter2Emitters, QtWidget2, QSplitter>
{
    Q_OBJECT

public:
    QtSplitter2(VXSplitter2* object, VXSplitter2Emitters* emitters, QWidget* parent,
                Orientation orientation);

    // Requests, in the order of the emitters table
    virtual void doAddWidget(VXWidget2* widget, int stretch);
    virtual void doInsertWidget(VXWidget2* widget, int index, int stretch);
    virtual void doRemoveWidget(VXWidget2* widget);
    virtual int doGetWidgetIndex(VXWidget2* widget);
    virtual int doCount();
    virtual void doSetCollapsible(VXWidget2* widget, bool collapsible);
    virtual bool doIsCollapsible(VXWidget2* widget);
    virtual void doSetHandleWidth(int width);
    virtual int doGetHandleWidth();
    virtual void doSetOrientation(Orientation orientation);
    virtual Orientation doGetOrientation();
    virtual void doSetSizes(const std::list<int>& sizes);
    virtual std::list<int> doGetSizes();
    virtual std::string doSaveState();
    virtual bool doRestoreState(const std::string& state);

protected:
    void connectSignals() override;
    QSplitterHandle* createHandle() override;

private Q_SLOTS:
    void slotSplitterMoved(int position, int index);

private:
};

} // namespace VOXI
