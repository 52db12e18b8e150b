#include "menusupport.h"

#include "support/realinput.h"

#include <QApplication>
#include <QCursor>

namespace VOXI {

// The pointer -------------------------------------------------------------------------------------

Pointer::Pointer() { qApp->installEventFilter(this); }

bool Pointer::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::MouseMove)
        m_last = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
    return false;
}

void Pointer::moveTo(QPoint global)
{
    ASSERT_NE(QCursor::pos(), global) << "the pointer is there already";
    m_last = QPoint(-1, -1);
    if (isReal()) {
        xdotool(at(global));
    } else {
        QCursor::setPos(global);
    }
    ASSERT_TRUE(waitFor([&] { return m_last == global && QCursor::pos() == global; }))
        << "to " << global.x() << "," << global.y() << "; seen " << m_last.x() << "," << m_last.y();
}

void Pointer::moveAsideTo(QPoint global)
{
    if (isReal())
        moveTo(global);
    else
        QCursor::setPos(global);
}

bool Pointer::isReal() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

// The menus ---------------------------------------------------------------------------------------

MenuTest::MenuTest() : m_top(qt(*m_menu)), m_sub(qt(*m_dig))
{
    m_window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(qt(*m_window)));
    m_dig->setDigMenu(true);
    fill(*m_menu, DigEntry);
    m_menu->addMenu("Dig", m_dig);
    fill(*m_menu, 9 - DigEntry);
}

MenuTest::~MenuTest()
{
    m_window.reset();
    runDeletions();
}

void MenuTest::fill(VXMenu2& menu, int count)
{
    for (int i = 0; i < count; ++i)
        menu.addAction("Entry " + std::to_string(menu.count()));
}

void MenuTest::openBoth(QPoint position)
{
    m_menu->popup(position.x(), position.y());
    ASSERT_TRUE(waitFor([&] { return m_top->isVisible(); }));
    m_top->setActiveAction(m_sub->menuAction());
    ASSERT_TRUE(waitFor([&] { return m_sub->isVisible(); }));
}

QPoint MenuTest::middleOf(int index) const
{
    return m_top->mapToGlobal(m_top->actionGeometry(entry(index)).center());
}

void MenuTest::openFilledUnderPointer(QPoint position, int items)
{
    m_dig->aboutToShow().connect(m_window.get(), [this, items] {
        m_dig->destroyItems();
        fill(*m_dig, items);
        m_dig->digComplete(m_menu);
    });
    m_menu->popup(position.x(), position.y());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_top));
    Pointer().moveTo(middleOf(DigEntry));
    m_top->setActiveAction(m_sub->menuAction());
    ASSERT_TRUE(waitFor([&] { return m_sub->isVisible() && m_sub->updatesEnabled(); }));
    ASSERT_GT(m_sub->width(), 1);
}

} // namespace VOXI
