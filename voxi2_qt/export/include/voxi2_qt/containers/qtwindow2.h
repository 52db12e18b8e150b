#pragma once

#include "voxi2/containers/vxwindow2.h"
#include "voxi2_qt/containers/qtabstractwindow2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QMainWindow>

namespace VOXI {

/// The peer of the window.
class VOXI2_QT_EXPORT QtWindow2
    : public QtWidget2Shim<VXWindow2, VXWindow2Emitters, QtAbstractWindow2, QMainWindow>
{
    Q_OBJECT

public:
    QtWindow2(VXWindow2* object, VXWindow2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetCentralWidget(VXWidget2* widget);
    virtual VXWidget2* doGetCentralWidget();
    virtual void doSetSupportsGlobalFocusBlocker(bool supports);
    virtual bool doGetSupportsGlobalFocusBlocker();
    virtual void doSetMenuBar(VXMenuBar2* bar);
    virtual void doAddToolBar(VXToolBar2* bar, ToolBarArea area);
    virtual void doRemoveToolBar(VXToolBar2* bar);
    virtual void doInsertToolBarBreak(VXToolBar2* before);
    virtual VXMenuBar2* doGetMenuBar();
    virtual ToolBarArea doGetToolBarArea(VXToolBar2* bar);

    bool supportsGlobalFocusBlocker() const override { return m_supportsFocusBlocker; }

private:
    void keepHidden(QWidget* widget);

    bool m_supportsFocusBlocker = true;
};

} // namespace VOXI
