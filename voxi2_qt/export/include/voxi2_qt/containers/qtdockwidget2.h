#pragma once

#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2_qt/containers/qtcontainer2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QDockWidget>

namespace VOXI {

class QtAction2;
class QtDragPicture;
class QtFloatTitle;

/// The peer of the dock widget.
///
/// What changes is reported in the event loop's next turn: Qt tells of it while it rearranges its
/// layouts, hides and shows what it tears off, and the application may do anything in its handlers.
class VOXI2_QT_EXPORT QtDockWidget2
    : public QtWidget2Shim<VXDockWidget2, VXDockWidget2Emitters, QtContainer2, QDockWidget>
{
    Q_OBJECT

public:
    QtDockWidget2(VXDockWidget2* object, VXDockWidget2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetWidget(VXWidget2* widget);
    virtual VXWidget2* doGetWidget();
    virtual void doSetTitleBarWidget(VXWidget2* widget);
    virtual VXWidget2* doGetTitleBarWidget();
    virtual void doSetTitleU(const std::wstring& title);
    virtual std::wstring doGetTitleU();
    virtual void doSetTitle(const std::string& title);
    virtual std::string doGetTitle();
    virtual void doSetIcon(const Icon& icon);
    virtual Icon doGetIcon();
    virtual void doSetAllowedAreas(VXFlags<DockArea> areas);
    virtual VXFlags<DockArea> doGetAllowedAreas();
    virtual void doSetFeatures(VXFlags<DockFeature> features);
    virtual VXFlags<DockFeature> doGetFeatures();
    virtual void doSetFloating(bool floating);
    virtual bool doIsFloating();
    virtual bool doClose();
    virtual void doSetViewAction(VXAction2* action);

    void doShow() override;
    void doHide() override;
    void doSetVisible(bool visible) override;
    void doSetParent(VXObject* parent) override;

    void scheduleDelete() override;
    void leave() override;
    void endDrag() override;

    /// Takes the pane out of its window's docks, hidden, if it is docked. Its events are reported.
    void undock();

    /// While one lives, what happens to dock widgets is the program's doing and not reported. At
    /// the end the window's layout is brought up to date, as Qt would do it later.
    class VOXI2_QT_EXPORT ProgramScope
    {
    public:
        explicit ProgramScope(QWidget* window);
        ~ProgramScope();
        ProgramScope(const ProgramScope&) = delete;
        ProgramScope& operator=(const ProgramScope&) = delete;

    private:
        QPointer<QWidget> m_window;
    };

protected:
    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private Q_SLOTS:
    void slotFloats();
    void slotVisibilityChanged(bool visible);
    void slotAreaChanged(Qt::DockWidgetArea area);
    void slotReport();
    void slotViewActionToggled(bool checked);

private:
    /// What is reported when it changes.
    struct State
    {
        bool m_floating = false;
        bool m_visible = false;
        DockArea m_area = DockArea::None;
    };

    class TitleChange;

    bool isDocked() const;
    void updateFloatTitle();
    void updateDragPicture();
    void giveTitle(QWidget* title);
    void takeFloatTitle();
    State state() const;
    void noteChange();
    void changeTitle(const QString& title);
    void updateViewAction();

    QPointer<QtAction2> m_viewAction;
    QPointer<QtFloatTitle> m_floatTitle;
    QPointer<QtDragPicture> m_dragPicture;
    State m_known;
    DockArea m_area = DockArea::None;
    bool m_inFront = true; // of the others in its tabs
    bool m_reportPending = false;
    bool m_comesOrGoes = false;
};

} // namespace VOXI
