#pragma once

#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2_qt/controls/qtmenu2.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPointer>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace VOXI {

inline QtMenu2* qt(const VXMenu2& menu) { return static_cast<QtMenu2*>(qWidgetOf(lookup(&menu))); }

inline QAction* qt(const VXAction2& action)
{
    return qobject_cast<QAction*>(qObjectOf(lookup(&action)));
}

/// Counts how often a menu says that it is about to be shown.
class ShowCounter : public TROV::Listener
{
public:
    explicit ShowCounter(const VXMenu2& menu)
    {
        menu.aboutToShow().connect(this, [this](const VXMenuEvent2& event) {
            ++m_count;
            m_menu = event.menu();
        });
    }
    ~ShowCounter() override { disconnect(); }

    int m_count = 0;
    VXMenu2* m_menu = nullptr;
};

/// Moves the pointer as its user would, and returns when the move has been dealt with.
class Pointer : public QObject
{
public:
    Pointer();

    void moveTo(QPoint global);
    /// To a place outside all menus: only a real pointer, which an open menu has caught, is heard
    /// of there.
    void moveAsideTo(QPoint global);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static bool isReal();

    QPoint m_last;
};

/// A window with a menu of ten entries; the fourth is the dig menu, which the tests fill.
class MenuTest : public testing::Test
{
protected:
    MenuTest();
    ~MenuTest() override;

    static void fill(VXMenu2& menu, int count);
    /// Opens the menu there and its dig menu after it.
    void openBoth(QPoint position);
    /// The same with the pointer over the dig menu's entry, and the dig menu filled at once.
    void openFilledUnderPointer(QPoint position, int items = 14);
    QPoint middleOf(int entry) const;
    QAction* entry(int index) const { return m_top->actions().at(index); }

    static constexpr int DigEntry = 3;

    std::unique_ptr<VXWindow2> m_window = std::make_unique<VXWindow2>();
    VXMenu2* m_menu = new VXMenu2(m_window.get());
    VXMenu2* m_dig = new VXMenu2(m_window.get());
    QPointer<QtMenu2> m_top;
    QPointer<QtMenu2> m_sub;
};

} // namespace VOXI
