#pragma once

#include "voxi2/containers/vxtabcontainer2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QPointer>
#include <QTabWidget>

namespace VOXI {

class QtTab2;

/// The peer of the tab container.
class VOXI2_QT_EXPORT QtTabContainer2
    : public QtWidget2Shim<VXTabContainer2, VXTabContainer2Emitters, QtWidget2, QTabWidget>
{
    Q_OBJECT

public:
    QtTabContainer2(VXTabContainer2* object, VXTabContainer2Emitters* emitters, QWidget* parent);

    ~QtTabContainer2() override;

    std::vector<VXObject*> doGetChildren(bool recursive) override;

    // Requests, in the order of the emitters table
    virtual void doInsertTab(VXTab2* tab, int index);
    virtual void doRemoveTab(VXTab2* tab);
    virtual std::vector<VXTab2*> doGetTabs();
    virtual int doCount();
    virtual int doGetTabIndex(VXTab2* tab);
    virtual VXTab2* doGetTabAt(int index);
    virtual void doSetCurrentTab(VXTab2* tab);
    virtual VXTab2* doGetCurrentTab();
    virtual void doSetTabPosition(VOXI::TabPosition position);
    virtual VOXI::TabPosition doGetTabPosition();
    virtual void doSetTabsClosable(bool closable);
    virtual bool doAreTabsClosable();
    virtual void doSetMovable(bool movable);
    virtual bool doIsMovable();
    virtual void doSetDocumentMode(bool on);
    virtual bool doIsDocumentMode();
    virtual void doSetElideMode(TextElideMode mode);
    virtual TextElideMode doGetElideMode();
    virtual void doSetScrollButtons(bool on);
    virtual bool doHasScrollButtons();
    virtual void doSetCornerWidget(VXWidget2* widget, TabCorner corner);
    virtual VXWidget2* doGetCornerWidget(TabCorner corner);

    // For the pages; none of it is reported.

    /// Puts the page in at a position, out of any other container; -1 appends.
    void insertPage(QtTab2& page, int index);
    /// Whether the page's tab is to be seen.
    void setPageVisible(QtTab2& page, bool visible);
    /// Whether the user can choose the page's tab.
    void setPageChoosable(QtTab2& page, bool choosable);
    /// Gives the tabs the close buttons that they are to have.
    void applyClosable();
    /// Whether the container is to be deleted, and its pages with it.
    bool isGoing() const noexcept { return isDeletionScheduled(); }

protected:
    void connectSignals() override;
    void tabInserted(int index) override;
    void tabRemoved(int index) override;

private Q_SLOTS:
    void slotCurrentChanged(int index);
    void slotTabCloseRequested(int index);
    void slotTabDoubleClicked(int index);
    void slotPageDragged(QWidget* page, int from, int to);
    void slotMenuRequested(int index, QPoint global, bool* taken);

private:
    class Quiet;

    void movePage(int from, int index);
    void removeCloseButton(int index);
    /// The program's widget in a corner; null for none.
    QWidget* shownIn(Qt::Corner corner) const;
    VXTab2* tabOf(int index) const;
    void reportTab(TROV::Event<void(const VXTabEvent2&)> VXTabContainer2Emitters::*event,
                   int index);

    QPointer<QWidget> m_current; // what was current when Qt told last
    int m_settled = 0;           // how many tabs there are while none is just coming or going
    int m_quiet = 0;             // how many requests are under way that may change the current tab
};

} // namespace VOXI
