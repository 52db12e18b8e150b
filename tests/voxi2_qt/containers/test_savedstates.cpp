// Saved layouts and geometries that were changed on the way: whatever the bytes say, they are taken
// whole or refused whole, and the window goes on.

#include "../kernel/toolkit.h"
#include "support/watchdog.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxtoolbar2.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

constexpr char LayoutKind[] = "voxi-layout";
constexpr char GeometryKind[] = "voxi-geometry";

/// The text that says those bytes, with a check sum that is right.
std::string textOf(const char* kind, const QByteArray& bytes)
{
    const QByteArray sum = QByteArray::number(qChecksum(bytes), 16).rightJustified(4, '0');
    return std::string(kind) + ":1:" + (sum + ':' + bytes.toBase64()).toStdString();
}

QByteArray bytesOf(const std::string& text)
{
    return QByteArray::fromBase64(QByteArray::fromStdString(text.substr(text.rfind(':') + 1)));
}

class SavedStates : public testing::Test
{
protected:
    SavedStates()
    {
        m_window.setCentralWidget(new VXPanel2(&m_window));
        for (VXToolBar2*& bar : m_bars) {
            bar = new VXToolBar2(&m_window);
            m_window.addToolBar(bar);
        }
        for (VXDockWidget2*& dock : m_docks) {
            dock = new VXDockWidget2(&m_window);
            m_window.addDockWidget(dock);
        }
        m_window.resize({700, 500});
    }
    ~SavedStates() override { runDeletions(); }

    /// Arrangements of all sorts, as users and programs make them, each as it is saved.
    std::vector<std::string> layouts()
    {
        std::vector<std::string> result;
        const auto save = [&] {
            turn();
            result.push_back(m_window.saveLayout());
        };
        save(); // before the window has been shown, nothing has a size
        m_window.show();
        save();
        m_window.tabifyDockWidget(m_docks[0], m_docks[1]);
        m_window.addDockWidget(m_docks[2], DockArea::Bottom);
        m_window.splitDockWidget(m_docks[2], m_docks[3], Orientation::Vertical);
        m_window.splitDockWidget(m_docks[3], m_docks[4], Orientation::Horizontal);
        m_window.insertToolBarBreak(m_bars[1]);
        save();
        m_docks[3]->setFloating(true);
        m_docks[4]->hide();
        m_docks[0]->setObjectName("a name of its own");
        m_window.removeDockWidget(m_docks[1]);
        m_window.addToolBar(m_bars[1], ToolBarArea::Left);
        m_window.resize({60, 40}); // less than they need
        save();
        m_window.resize({700, 500});
        return result;
    }

    void expectRefused(const QByteArray& bytes)
    {
        const std::string before = m_window.saveLayout();
        EXPECT_FALSE(m_window.restoreLayout(textOf(LayoutKind, bytes)));
        EXPECT_EQ(m_window.saveLayout(), before);
    }

    const Watchdog m_watchdog{std::chrono::seconds(120)};
    VXWindow2 m_window;
    VXToolBar2* m_bars[2];
    VXDockWidget2* m_docks[5];
};

TEST_F(SavedStates, aLayoutWithAnyByteChangedIsTakenOrRefusedWhole)
{
    const auto saved = layouts();
    int refused = 0;
    for (const std::string& good : saved) {
        EXPECT_TRUE(m_window.restoreLayout(good));
        const QByteArray bytes = bytesOf(good);
        std::string now = m_window.saveLayout();
        for (qsizetype at = 0; at < bytes.size(); ++at) {
            bool taken = false;
            for (const int mask : {0xff, 0x7f, 0x01}) {
                QByteArray changed = bytes;
                changed[at] = static_cast<char>(changed[at] ^ mask);
                if (m_window.restoreLayout(textOf(LayoutKind, changed)))
                    taken = true;
                else
                    ++refused;
            }
            if (taken) {
                turn();
                now = m_window.saveLayout();
            } else if (at % 16 == 0) {
                EXPECT_EQ(m_window.saveLayout(), now) << "byte " << at;
            }
            EXPECT_FALSE(m_window.restoreLayout(textOf(LayoutKind, bytes.left(at))));
        }
        expectRefused(bytes + '\0');
    }
    EXPECT_GT(refused, 500);
    for (const std::string& good : saved) {
        EXPECT_TRUE(m_window.restoreLayout(good));
        turn();
    }
}

TEST_F(SavedStates, aLayoutThatPromisesMoreThanItHoldsIsRefusedAtOnce)
{
    m_window.show();
    turn();
    const QByteArray good = bytesOf(m_window.saveLayout());
    const auto stream = [](QByteArray& bytes, auto... numbers) {
        QDataStream out(&bytes, QIODevice::Append);
        (out << ... << numbers);
    };
    QByteArray endless = good.left(good.lastIndexOf('\xfc') + 1);
    stream(endless, std::numeric_limits<qint32>::max());
    expectRefused(endless);
    QByteArray deep;
    stream(deep, 0xff, 0, quint8(0xfd), 1, 0, 10, 10);
    for (int i = 0; i < 100'000; ++i)
        stream(deep, quint8(0xfc), quint8(1), 1, quint8(0xfc), 0, 1, 0, 0);
    expectRefused(deep);
}

TEST_F(SavedStates, aGeometryWithAnyByteChangedIsTakenOrRefusedWhole)
{
    m_window.show();
    m_window.setPosition({50, 60, 400, 300});
    turn();
    const std::string good = m_window.savePlacement();
    const QByteArray bytes = bytesOf(good);
    VXPanel2 panel;
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        for (const int mask : {0xff, 0x7f, 0x80, 0x40, 0x01}) {
            QByteArray changed = bytes;
            changed[at] = static_cast<char>(changed[at] ^ mask);
            const auto before = m_window.position();
            const bool restored = m_window.restorePlacement(textOf(GeometryKind, changed));
            EXPECT_TRUE(restored || m_window.position() == before) << "byte " << at;
            // Other widgets have the bytes alone.
            panel.restoreGeometry(changed.toBase64().toStdString());
            for (const VXWidget2* widget : std::initializer_list<VXWidget2*>{&panel, &m_window}) {
                const auto [left, top, width, height] = widget->position();
                EXPECT_LE(double(width) * height, 1 << 26) << "more than could be painted";
            }
        }
        EXPECT_FALSE(m_window.restorePlacement(textOf(GeometryKind, bytes.left(at))));
    }
    turn();
    EXPECT_TRUE(m_window.restorePlacement(good));
    turn();
    EXPECT_EQ(m_window.position(), (VXRect<int>{50, 60, 400, 300}));
}

TEST_F(SavedStates, olderGeometriesAreTaken)
{
    for (const int version : {1, 2, 3}) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        const QRect frame(98, 98, 304, 204);
        const QRect inner(100, 100, 300, 200);
        out << quint32(0x1D9D0CB) << quint16(version) << quint16(0) << frame << inner << qint32(0)
            << quint8(0) << quint8(0);
        if (version > 1)
            out << qint32(0);
        if (version > 2)
            out << inner;
        VXPanel2 panel;
        panel.restoreGeometry(bytes.toBase64().toStdString());
        EXPECT_EQ(panel.position(), (VXRect<int>{100, 100, 300, 200})) << version;
    }
}

TEST_F(SavedStates, whatWasRemovedIsNotBroughtBack)
{
    m_window.show();
    m_docks[0]->setObjectName("named");
    turn();
    const std::string layout = m_window.saveLayout();
    m_window.removeDockWidget(m_docks[0]);
    m_window.removeDockWidget(m_docks[1]);
    m_window.removeToolBar(m_bars[0]);
    m_window.addDockWidget(m_docks[2], DockArea::Top);
    EXPECT_TRUE(m_window.restoreLayout(layout));
    turn();
    EXPECT_EQ(m_window.dockArea(m_docks[0]), DockArea::None);
    EXPECT_EQ(m_window.dockArea(m_docks[1]), DockArea::None);
    EXPECT_EQ(m_window.toolBarArea(m_bars[0]), ToolBarArea::None);
    EXPECT_FALSE(m_docks[0]->isVisible() || m_docks[1]->isVisible() || m_bars[0]->isVisible());
    EXPECT_EQ(m_window.dockArea(m_docks[2]), DockArea::Left);
    EXPECT_EQ(m_docks[0]->objectName(), "named");
    EXPECT_EQ(m_docks[1]->objectName(), "");
}

TEST_F(SavedStates, aPaneOrBarThatHasBecomeTheCentreStaysIt)
{
    m_window.show();
    turn();
    for (const bool floating : {false, true}) {
        m_docks[0]->setFloating(floating);
        const std::string layout = m_window.saveLayout();
        VXWidget2* const centres[] = {m_docks[0], m_bars[0]};
        for (VXWidget2* centre : centres) {
            m_window.setCentralWidget(centre);
            turn();
            EXPECT_TRUE(centre->isVisible());
            EXPECT_FALSE(qt(*centre)->isWindow());
            EXPECT_TRUE(m_window.restoreLayout(layout));
            turn();
            EXPECT_EQ(m_window.centralWidget(), centre);
            EXPECT_EQ(m_window.dockArea(m_docks[0]), DockArea::None);
        }
        EXPECT_EQ(m_window.toolBarArea(m_bars[0]), ToolBarArea::None);
        m_window.addDockWidget(m_docks[0]);
        m_window.addToolBar(m_bars[0]);
        EXPECT_EQ(m_window.centralWidget(), nullptr);
        EXPECT_EQ(m_window.dockArea(m_docks[0]), DockArea::Left);
    }
    const std::string layout = m_window.saveLayout();
    m_window.setCentralWidget(m_docks[0]);
    EXPECT_TRUE(m_window.restoreLayout(layout));
    delete m_docks[0];
    runDeletions();
    turn();
    EXPECT_EQ(m_window.centralWidget(), nullptr);
}

} // namespace
} // namespace VOXI
