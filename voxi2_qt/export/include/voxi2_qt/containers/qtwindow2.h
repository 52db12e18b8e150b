#pragma once

#include "voxi2/containers/vxwindow2.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2/kernel/vxclock2.h"
#include "voxi2_qt/containers/qtabstractwindow2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QPointer>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QStatusBar;
QT_END_NAMESPACE

namespace VOXI {

class QtDockWidget2;

/// The peer of the window.
class VOXI2_QT_EXPORT QtWindow2
    : public QtWidget2Shim<VXWindow2, VXWindow2Emitters, QtAbstractWindow2, QMainWindow>
{
    Q_OBJECT

public:
    QtWindow2(VXWindow2* object, VXWindow2Emitters* emitters, QWidget* parent);
    ~QtWindow2() override;

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
    virtual void doSetStatusText(const std::string& text, int timeout);
    virtual void doSetStatusTextU(const std::wstring& text, int timeout);
    virtual std::string doGetStatusText();
    virtual std::wstring doGetStatusTextU();
    virtual void doSetStatusBarVisible(bool visible);
    virtual bool doIsStatusBarVisible();
    virtual void doAddStatusWidget(VXWidget2* widget, int stretch);
    virtual void doRemoveStatusWidget(VXWidget2* widget);
    virtual void doAddDockWidget(VXDockWidget2* dock, DockArea area);
    virtual void doRemoveDockWidget(VXDockWidget2* dock);
    virtual DockArea doGetDockArea(VXDockWidget2* dock);
    virtual void doTabifyDockWidget(VXDockWidget2* first, VXDockWidget2* second);
    virtual void doSplitDockWidget(VXDockWidget2* first, VXDockWidget2* second,
                                   Orientation orientation);
    virtual void doRaiseDockWidget(VXDockWidget2* dock);
    virtual std::string doSaveLayout();
    virtual bool doRestoreLayout(const std::string& layout);
    virtual void doSetDockSize(VXDockWidget2* dock, int size, Orientation orientation);
    virtual void doSetDockCorner(DockCorner corner, DockArea area);
    virtual DockArea doGetDockCorner(DockCorner corner);
    virtual void doSetDockNesting(bool nesting);
    virtual bool doIsDockNesting();
    virtual void doSetDockTabPosition(DockArea area, VOXI::TabPosition position);
    virtual VOXI::TabPosition doGetDockTabPosition(DockArea area);
    virtual std::vector<VXDockWidget2*> doGetDockTabs(VXDockWidget2* dock);

    bool supportsGlobalFocusBlocker() const override { return m_supportsFocusBlocker; }

    void setVisible(bool visible) override;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void slotStatusMessageChanged(const QString& message);

private:
    /// Tool bars or dock widgets in the order in which they were docked first, without gaps: who
    /// has gone is null.
    using Docked = std::vector<QPointer<QWidget>>;
    class LayoutNames;
    class LaidOut;

    QStatusBar* knownStatusBar() const;
    QStatusBar* ensuredStatusBar();
    /// Whether a pane or bar has its place here; also one that floats.
    bool isDocked(const QWidget& widget) const;
    /// Takes the bar away, hidden, if it is docked.
    void undock(QToolBar& bar);
    void endDrags();
    void showStatus(const QString& text, int timeout);
    template <class Function>
    void withDockOf(VXDockWidget2* dock, Function&& function);
    template <class Function>
    void dockBeside(VXDockWidget2* first, VXDockWidget2* second, Function&& function,
                    CallPlace where = CallPlace::current());
    template <class Function>
    void placeDock(QtDockWidget2& dock, Function&& function);
    static void remember(Docked& docked, QWidget* widget);
    void finishFirstShow();
    void showWaitingPanes();

    struct WantedSize
    {
        QPointer<QDockWidget> m_dock;
        int m_size;
        Qt::Orientation m_orientation;
    };

    QString m_statusText;                           // the one that is shown for good
    std::unique_ptr<VXClock2::Timer> m_statusTimer; // of one that is not
    Docked m_dockedBars;
    Docked m_dockedPanes;
    std::vector<WantedSize> m_wantedSizes;             // until the window is shown first
    std::vector<QPointer<QDockWidget>> m_waitingPanes; // that stand alone, for it to be shown
    bool m_wasShown = false;
    bool m_supportsFocusBlocker = true;
};

} // namespace VOXI
