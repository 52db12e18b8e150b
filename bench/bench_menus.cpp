// Opening a menu that is filled anew each time.

#include "benchsupport.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/kernel/vxaction2.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int Actions = 10'000;

/// A dig menu; its actions exist already, as those of an application do.
struct VoxiMenu
{
    std::unique_ptr<VOXI::VXWindow2> m_window = std::make_unique<VOXI::VXWindow2>();
    VOXI::VXMenu2* m_menu = new VOXI::VXMenu2(m_window.get());
    QMenu* m_qMenu = dynamic_cast<QMenu*>(bench::widgetOf(m_menu));
    std::vector<VOXI::VXAction2*> m_actions;

    /// It is filled when it is about to be shown, or from the event loop, when it is shown already.
    explicit VoxiMenu(bool isFilledLater)
    {
        for (int i = 0; i < Actions; ++i) {
            m_actions.push_back(new VOXI::VXAction2(m_window.get()));
            m_actions.back()->setLabel("Entry " + std::to_string(i));
        }
        m_menu->setDigMenu(true);
        m_menu->aboutToShow().connect(m_window.get(), [this, isFilledLater] {
            if (isFilledLater)
                QMetaObject::invokeMethod(
                    m_qMenu, [this] { fill(); }, Qt::QueuedConnection);
            else
                fill();
        });
    }

    void fill()
    {
        for (VOXI::VXAction2* action : m_actions)
            m_menu->addAction(action);
        m_menu->digComplete();
    }
    void open() { m_menu->popup(10, 10); }
};

/// A plain menu that is filled when it is about to be shown.
struct QtMenu
{
    std::unique_ptr<QMainWindow> m_window = std::make_unique<QMainWindow>();
    QMenu* m_qMenu = new QMenu(m_window.get());
    std::vector<QAction*> m_actions;

    explicit QtMenu(bool /*isFilledLater*/)
    {
        for (int i = 0; i < Actions; ++i)
            m_actions.push_back(new QAction(QStringLiteral("Entry %1").arg(i), m_window.get()));
        QObject::connect(m_qMenu, &QMenu::aboutToShow, m_qMenu, [this] {
            m_qMenu->clear();
            for (QAction* action : m_actions)
                m_qMenu->addAction(action);
        });
    }

    void open() { m_qMenu->popup(QPoint(10, 10)); }
};

/// From asking for the menu until it is on the screen with all its entries.
template <class Menu, bool IsFilledLater>
void openMenu(benchmark::State& state)
{
    Menu menu(IsFilledLater);
    for (auto _ : state) {
        bench::measure(state, [&menu] {
            menu.open();
            bench::settle();
        });
        if (menu.m_qMenu->actions().size() != Actions || menu.m_qMenu->height() < 100
            || !menu.m_qMenu->updatesEnabled())
            state.SkipWithError("the menu is not complete");
        menu.m_qMenu->hide();
        bench::settle();
    }
}

const bool s_added = bench::addPairs({
    {"MenuOpen", openMenu<VoxiMenu, false>, openMenu<QtMenu, false>},
    {"MenuOpenLater", openMenu<VoxiMenu, true>, openMenu<QtMenu, true>},
});

} // namespace
