#include "qtdockmenu.h"

#include "voxi2/kernel/translation.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>

#include <memory>

namespace VOXI {

namespace {

struct Side
{
    Qt::DockWidgetArea m_area;
    LibraryText m_text;
};

constexpr Side s_sides[] = {
    {Qt::LeftDockWidgetArea, "To the &Left"},
    {Qt::RightDockWidgetArea, "To the &Right"},
    {Qt::TopDockWidgetArea, "To the &Top"},
    {Qt::BottomDockWidgetArea, "To the &Bottom"},
};

/// Does it with the pane that the menu is of, if it lives. The focus stays in it.
template <class Act>
void add(QMenu& menu, QDockWidget& dock, LibraryText text, Act&& act)
{
    QAction* const action = menu.addAction(toQString(translated(text)));
    QObject::connect(action, &QAction::triggered, &dock,
                     [pane = &dock, act = std::forward<Act>(act)] {
                         const QPointer<QWidget> focus = pane->focusWidget();
                         const QPointer<QDockWidget> self(pane);
                         act(*pane);
                         if (self && self->isVisible()) {
                             self->activateWindow();
                             if (focus)
                                 focus->setFocus(Qt::OtherFocusReason);
                         }
                     });
}

void moveTo(QDockWidget& dock, Qt::DockWidgetArea area)
{
    const QPointer<QDockWidget> self(&dock);
    dock.setFloating(false);
    if (auto* const window = self ? qobject_cast<QMainWindow*>(dock.parentWidget()) : nullptr)
        window->addDockWidget(area, &dock);
}

} // namespace

void openDockMenu(QDockWidget& dock, const QPoint& globalPlace)
{
    auto* const window = qobject_cast<QMainWindow*>(dock.parentWidget());
    if (!window)
        return;
    auto* const menu = new QMenu(&dock);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QDockWidget::DockWidgetFeatures features = dock.features();
    if (features & QDockWidget::DockWidgetFloatable) {
        if (dock.isFloating())
            add(*menu, dock, "&Dock", [](QDockWidget& pane) { pane.setFloating(false); });
        else
            add(*menu, dock, "&Float", [](QDockWidget& pane) { pane.setFloating(true); });
    }
    for (const Side& side : s_sides) {
        const bool isThere = !dock.isFloating() && window->dockWidgetArea(&dock) == side.m_area;
        if ((features & QDockWidget::DockWidgetMovable) && dock.isAreaAllowed(side.m_area)
            && !isThere)
            add(*menu, dock, side.m_text,
                [area = side.m_area](QDockWidget& pane) { moveTo(pane, area); });
    }
    if (features & QDockWidget::DockWidgetClosable)
        add(*menu, dock, "&Close", [](QDockWidget& pane) { pane.close(); });
    if (const std::unique_ptr<QMenu> others{window->createPopupMenu()}) {
        menu->addSeparator();
        menu->addActions(others->actions());
    }
    menu->popup(globalPlace);
}

} // namespace VOXI
