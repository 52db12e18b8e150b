// What keys do in a window where nothing in it wants them.

#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/controls/vxmenubar2.h"
#include "voxi2/controls/vxtoolbar2.h"
#include "voxi2/kernel/vxaction2.h"

#include <QApplication>
#include <QMenu>
#include <QSplitterHandle>
#include <QTest>
#include <QToolBar>
#include <QWindow>

#include <gtest/gtest.h>
#include <memory>

namespace VOXI {
namespace {

class WindowKeys : public testing::Test
{
protected:
    WindowKeys()
    {
        m_splitter->addWidget(m_left);
        m_splitter->addWidget(m_right);
        m_window->setCentralWidget(m_splitter);
        m_window->addToolBar(m_bar);
        for (VXAction2* const each : {m_save, m_open})
            m_bar->addAction(each);
        m_pane->setWidget(m_inPane);
        m_window->addDockWidget(m_pane, DockArea::Right);
        m_window->resize({600, 400});
        m_window->show();
        m_window->setActiveWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(qt(*m_window)));
        m_left->setFocus();
    }
    ~WindowKeys() override
    {
        m_window.reset();
        runDeletions();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        const QWidget* const window = focus() ? focus()->window() : qt(*m_window);
        QTest::keyClick(window->windowHandle(), key, modifiers);
    }
    QWidget* buttonOf(VXAction2* action) const
    {
        return static_cast<QToolBar*>(qt(*m_bar))
            ->widgetForAction(static_cast<QAction*>(qObjectOf(lookup(action))));
    }
    static QWidget* focus() { return QApplication::focusWidget(); }
    /// Chooses from the menu of the pane.
    void choose(const QString& text)
    {
        press(Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier);
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        for (QAction* const each : menu->actions()) {
            if (each->text() == text)
                menu->setActiveAction(each);
        }
        ASSERT_TRUE(menu->activeAction()) << qPrintable(text);
        QTest::keyClick(menu, Qt::Key_Return);
        turn();
    }

    std::unique_ptr<VXWindow2> m_window = std::make_unique<VXWindow2>();
    VXSplitter2* m_splitter = new VXSplitter2(m_window.get());
    VXEdit2* m_left = new VXEdit2(m_splitter);
    VXEdit2* m_right = new VXEdit2(m_splitter);
    VXToolBar2* m_bar = new VXToolBar2("Bar", m_window.get());
    VXAction2* m_save = new VXAction2("Save", m_window.get());
    VXAction2* m_open = new VXAction2("Open", m_window.get());
    VXDockWidget2* m_pane = new VXDockWidget2("Pane", m_window.get());
    VXEdit2* m_inPane = new VXEdit2(m_pane);
};

TEST_F(WindowKeys, goFromPartToPart)
{
    const QWidgetList parts{qt(*m_inPane), buttonOf(m_save), qt(*m_left)};
    for (QWidget* const each : parts) {
        press(Qt::Key_F6);
        EXPECT_EQ(focus(), each);
    }
    m_right->setFocus();
    press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(focus(), buttonOf(m_save));
    press(Qt::Key_Escape);
    EXPECT_EQ(focus(), qt(*m_right)) << "where it was";
    // A pane in which nothing takes it takes it itself.
    m_pane->setWidget(new VXPanel2(m_pane));
    press(Qt::Key_F6);
    EXPECT_EQ(focus(), qt(*m_pane));
    // What lies in a window that is a part of this one comes behind.
    auto* const inner = new VXWindow2(m_splitter);
    inner->setWindowFlags(0);
    auto* const innerPane = new VXDockWidget2("Inner", inner);
    auto* const inInner = new VXEdit2(innerPane);
    innerPane->setWidget(inInner);
    inner->addDockWidget(innerPane);
    m_splitter->addWidget(inner);
    inner->show();
    turn();
    press(Qt::Key_F6);
    EXPECT_EQ(focus(), qt(*inInner));
    press(Qt::Key_F6);
    EXPECT_EQ(focus(), buttonOf(m_save));
    inner->destroy();
    runDeletions();
    m_pane->hide();
    m_bar->hide();
    m_left->setFocus();
    press(Qt::Key_F6);
    EXPECT_EQ(focus(), qt(*m_left)) << "there is nothing else";
}

TEST_F(WindowKeys, workToolBars)
{
    Log triggered(m_open->triggered());
    auto* const field = new VXEdit2(m_bar);
    m_bar->addWidget(field);
    auto* const menu = new VXMenu2(m_window.get());
    menu->addAction("In the menu");
    EXPECT_EQ(buttonOf(m_save)->focusPolicy(), Qt::NoFocus) << "Tab passes by";
    turn();
    m_left->setFocus();
    press(Qt::Key_F6, Qt::ShiftModifier);
    ASSERT_EQ(focus(), buttonOf(m_save));
    const QImage focused = buttonOf(m_save)->grab().toImage();
    press(Qt::Key_Right);
    EXPECT_NE(buttonOf(m_save)->grab().toImage(), focused) << "it is seen";
    EXPECT_EQ(focus(), buttonOf(m_open));
    press(Qt::Key_Space);
    EXPECT_TRUE(triggered.takeOne());
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(focus(), qt(*field)) << "from the first to the last";
    press(Qt::Key_Home);
    EXPECT_EQ(focus(), qt(*field)) << "a text has a use for it";
    m_bar->setEnabled(false);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_End}) // that were on their way
        QTest::keyClick(buttonOf(m_save), key);
    m_bar->setEnabled(true);
    // In a bar that is not docked they are reached like other buttons.
    auto* const panel = new VXPanel2(m_window.get());
    m_bar->setParent(panel);
    EXPECT_EQ(buttonOf(m_save)->focusPolicy(), Qt::TabFocus);
}

TEST_F(WindowKeys, moveHandles)
{
    m_splitter->setSizes({250, 150});
    turn();
    Log moved(m_splitter->handleMoved());
    const std::list<int> before = m_splitter->sizes();
    const auto change = [&] { return m_splitter->sizes().front() - before.front(); };
    press(Qt::Key_F8);
    ASSERT_TRUE(qobject_cast<QSplitterHandle*>(focus()));
    const QImage focused = focus()->grab().toImage();
    press(Qt::Key_Right);
    EXPECT_EQ(change(), 10);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(change(), -10);
    EXPECT_EQ(moved.count(), 3);
    QWidget* const handle = focus();
    press(Qt::Key_Home);
    EXPECT_EQ(m_splitter->sizes().front(), 0) << "it is gone";
    press(Qt::Key_Right);
    EXPECT_GT(m_splitter->sizes().front(), 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(change(), 0);
    EXPECT_EQ(focus(), qt(*m_left));
    EXPECT_NE(handle->grab().toImage(), focused);
    press(Qt::Key_F8);
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    EXPECT_EQ(change(), 10);
    EXPECT_EQ(focus(), qt(*m_left));

    m_splitter->setSizes({250, 150});
    qt(*m_window)->setLayoutDirection(Qt::RightToLeft);
    turn();
    press(Qt::Key_F8);
    const int place = focus()->x();
    press(Qt::Key_Right);
    EXPECT_EQ(focus()->x(), place + 10) << "to where the arrow points";
}

TEST_F(WindowKeys, workPanes)
{
    Log floated(m_pane->floatingChanged());
    Log moved(m_pane->areaChanged());
    Log closed(m_pane->visibilityChanged());
    m_inPane->setFocus();
    choose(QStringLiteral("To the &Left"));
    EXPECT_EQ(m_window->dockArea(m_pane), DockArea::Left);
    EXPECT_EQ(moved.only().area(), DockArea::Left);
    EXPECT_EQ(focus(), qt(*m_inPane));
    choose(QStringLiteral("&Float"));
    EXPECT_TRUE(floated.only().isFloating());
    ASSERT_TRUE(waitFor([&] { return focus() == qt(*m_inPane); }));
    choose(QStringLiteral("&Dock"));
    EXPECT_FALSE(m_pane->isFloating());
    ASSERT_TRUE(waitFor([&] { return focus() == qt(*m_inPane); }));
    choose(QStringLiteral("&Close"));
    EXPECT_FALSE(closed.only().isVisible());
    EXPECT_EQ(floated.count(), 2);
    // What may not be done is not there; the rest of the window has no such menu.
    m_pane->show();
    m_pane->setFeatures(DockFeature::Closable);
    m_inPane->setFocus();
    press(Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions().front()->text(), QStringLiteral("&Close"));
    menu->close();
    m_left->setFocus();
    press(Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(QApplication::activePopupWidget());
}

TEST_F(WindowKeys, openMenus)
{
    auto* const bar = new VXMenuBar2(m_window.get());
    auto* const menu = new VXMenu2(bar);
    menu->addAction("Something");
    bar->addMenu("&File", menu);
    m_window->setMenuBar(bar);
    turn();
    press(Qt::Key_F10);
    ASSERT_EQ(QApplication::activePopupWidget(), qt(*menu));
    qt(*menu)->close();

    Log asked(m_right->contextMenuRequested());
    m_right->setEventConsumed(WidgetEvent::ContextMenu, true);
    m_right->setFocus();
    press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(asked.takeOne());
    // A program that wants the key has it.
    Log keys(m_window->keyPressed());
    m_window->setEventConsumed(WidgetEvent::KeyPress, true);
    press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_FALSE(keys.isEmpty());
}

TEST_F(WindowKeys, mayEndTheWindow)
{
    m_left->focusLost().connect(m_left, [this] { m_window.reset(); });
    press(Qt::Key_F6);
    EXPECT_EQ(m_window, nullptr);
    runDeletions();
}

} // namespace
} // namespace VOXI
