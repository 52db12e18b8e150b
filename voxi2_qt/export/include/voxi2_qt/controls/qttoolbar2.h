#pragma once

#include "voxi2/controls/vxtoolbar2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QToolBar>

namespace VOXI {

/// A tool bar inside a tool bar: its items stay together. It paints nothing of its own, so that
/// they look like the outer one's.
class VOXI2_QT_EXPORT InnerToolBar : public QToolBar
{
    Q_OBJECT

public:
    InnerToolBar();

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The peer of the tool bar.
class VOXI2_QT_EXPORT QtToolBar2
    : public QtWidget2Shim<VXToolBar2, VXToolBar2Emitters, QtWidget2, QToolBar>
{
    Q_OBJECT

public:
    QtToolBar2(VXToolBar2* object, VXToolBar2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doAddAction(VXAction2* action);
    virtual void doAddWidget(VXWidget2* widget);
    virtual void doAddSeparator();
    virtual void doSetFloatable(bool floatable);
    virtual void doSetMovable(bool movable);
    virtual void doSetLabel(const std::string& label);
    virtual void doSetOrientation(Orientation orientation);
    virtual void doSetMinimumVisibleItems(int count);
    virtual bool doIsFloatable();
    virtual bool doIsMovable();
    virtual Orientation doGetOrientation();
    virtual void doSetLabelU(const std::wstring& label);
    virtual void doRemoveAction(VXAction2* action);
    virtual void doRemoveWidget(VXWidget2* widget);
    virtual void doSetIconSize(Size<int> size);
    virtual void doSetToolButtonStyle(ToolButtonStyle style);
    virtual std::wstring doGetLabelU();
    virtual int doGetMinimumVisibleItems();
    virtual Size<int> doGetIconSize();
    virtual ToolButtonStyle doGetToolButtonStyle();

    void endDrag() override;

protected:
    bool event(QEvent* event) override;

private Q_SLOTS:
    void onIconSizeChanged(const QSize& size);
    void slotFixLayout();

private:
    QToolBar& barForNextItem();
    Qt::FocusPolicy buttonFocusPolicy() const;
    void updateFocusPolicies();
    QList<InnerToolBar*> innerToolBars() const;

    InnerToolBar* m_innerToolBar = nullptr; // the newest; a Qt child
    int m_minimumVisibleItems = 1;
    bool m_layoutFixPending = false;
};

} // namespace VOXI
