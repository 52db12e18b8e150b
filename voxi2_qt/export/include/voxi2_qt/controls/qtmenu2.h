#pragma once

#include "voxi2/controls/vxmenu2.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2/kernel/vxclock2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QMenu>
#include <QPoint>
#include <QPointer>
#include <QSize>

#include <memory>

namespace VOXI {

/// The peer of the menu.
///
/// It adds two things to Qt's menu. A *dig menu* is shown at one pixel while the application fills
/// it, and is placed here once it is filled. And a menu from whose entry a dig menu has opened is
/// *frozen* as long as the pointer travels towards that: its active entry stays what it is.
class VOXI2_QT_EXPORT QtMenu2 : public QtWidget2Shim<VXMenu2, VXMenu2Emitters, QtWidget2, QMenu>
{
    Q_OBJECT

public:
    /// How long the pointer of a frozen menu may linger over another entry, in milliseconds.
    static constexpr int POPUP_HOLD_TIMEOUT = 333;

    QtMenu2(VXMenu2* object, VXMenu2Emitters* emitters, QWidget* parent);
    ~QtMenu2() override;

    void doSetParent(VXObject* parent) override;
    void doSetMaximumSize(Size<int> size) override;
    void doSetMinimumSize(Size<int> size) override;
    void doSetFixedSize(Size<int> size) override;
    Size<int> doGetMaximumSize() override;
    Size<int> doGetMinimumSize() override;

    // Requests, in the order of the emitters table
    virtual void doClear();
    virtual void doDigAccessComplete(VXMenu2* parent);
    virtual void doDigAccessFailed();
    virtual void doSetIsDigMenu(bool isDigMenu);
    virtual void doAddMenuItem(VXAction2* action);
    virtual void doAddSubMenu(const std::string& title, VXMenu2* menu);
    virtual void doAddSeparator();
    virtual void doPopup(double x, double y);
    virtual void doSetActionEnabled(bool enabled);
    virtual void doAddSubMenuU(const std::wstring& title, VXMenu2* menu);
    virtual void doRemoveMenuItem(VXAction2* action);
    virtual void doRemoveSubMenu(VXMenu2* menu);
    virtual bool doIsDigMenu();
    virtual bool doIsActionEnabled();
    virtual std::wstring doGetTitleU();
    virtual int doCount();

    QSize sizeHint() const override;
    void setVisible(bool visible) override;

protected:
    bool event(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private Q_SLOTS:
    void slotAboutToShow();
    void slotAboutToHide();
    void onUnfreezeTimer();

private:
    void addSubMenu(const QString& title, VXMenu2* menu, CallPlace where = CallPlace::current());
    void removeItems();

    class Coming;
    void completeHide();
    void shrink();
    void restoreSize();
    template <class Function>
    void changeLimits(Function&& change);
    void layOver(const QWidget* outer);
    void moveWithSize(const QRect& geometry);
    void closeQuietly();
    void popupDigMenu(QtMenu2* parent);
    QPoint placeBeside(const QtMenu2& parent, QSize size) const;
    QPoint keepOnScreen(QPoint position, QSize size, const QRect& screen) const;

    void setFrozenPopup(QtMenu2* child);
    void releaseFreeze();
    void releaseParent();
    bool isInWedge(QPoint pointer) const;
    void startFreezeTimer();

    bool m_isDigMenu = false;
    bool m_digAccessPending = false;
    bool m_isAboutToShow = false; // Qt shows the menu once the handlers have returned
    bool m_isComing = false;      // Qt is showing the menu
    int m_innerComing = 0;        // menus that Qt is showing for an entry of this one
    bool m_isHideOpen = false;    // hidden, but Qt does not know yet
    bool m_isMoving = false;      // hidden and shown again for it
    bool m_isShrunk = false;      // to one pixel; its limits are the saved ones
    QSize m_savedMaximumSize;
    QSize m_savedMinimumSize;
    QPointer<QtMenu2> m_parentDigMenu;
    std::unique_ptr<VXClock2::Timer> m_freezeTimer; // only while it runs
    QPointer<QtMenu2> m_frozenPopup;
    QPoint m_freezeAnchor;
    QPoint m_freezeEdgeA; // from the anchor to the ends of the popup's near edge
    QPoint m_freezeEdgeB;
};

} // namespace VOXI
