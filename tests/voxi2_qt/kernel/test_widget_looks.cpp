// Colours, fonts, cursors and the highlight; and that all of it survives a change of the style or
// the palette.

#include "probe.h"
#include "reports.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/customcursorregistry.h"

#include <QApplication>
#include <QFontInfo>
#include <QPushButton>
#include <QStyleFactory>
#include <QTest>

#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace VOXI {
namespace {

const Color s_red(200, 10, 20, 77);
const QColor s_opaqueRed(200, 10, 20);

TEST(WidgetLooks, coloursOfAllRoles)
{
    VXProbe2 probe;
    QWidget* widget = qt(probe);
    const struct
    {
        ColorRole m_role;
        bool m_disabled;
        QPalette::ColorRole m_qt;
    } roles[] = {{ColorRole::Background, false, widget->backgroundRole()},
                 {ColorRole::Foreground, false, widget->foregroundRole()},
                 {ColorRole::DisabledBackground, true, widget->backgroundRole()},
                 {ColorRole::DisabledForeground, true, widget->foregroundRole()}};
    for (const auto& role : roles) {
        SCOPED_TRACE(static_cast<int>(role.m_role));
        const QPalette before = widget->palette();
        probe.setColor(role.m_role, s_red);
        const QPalette after = widget->palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const bool meant = (group == QPalette::Disabled) == role.m_disabled;
            EXPECT_EQ(after.color(group, role.m_qt),
                      meant ? s_opaqueRed : before.color(group, role.m_qt))
                << group;
            EXPECT_EQ(after.brush(group, role.m_qt).style(), Qt::SolidPattern);
            EXPECT_EQ(after.color(group, QPalette::Highlight),
                      before.color(group, QPalette::Highlight));
        }
        EXPECT_EQ(probe.color(role.m_role), Color(200, 10, 20, 255)) << "the alpha is ignored";
        widget->setPalette(QPalette());
    }

    // A kind with roles of its own, and one that is transparent without a colour.
    VXButton2 button;
    button.setColor(ColorRole::Background, s_red);
    EXPECT_EQ(qt(button)->palette().color(QPalette::Active, QPalette::Button), s_opaqueRed);
    VXPanel2 panel;
    panel.setColor(ColorRole::Background, s_red);
    EXPECT_EQ(qt(panel)->grab().toImage().pixelColor(5, 5), s_opaqueRed);
}

TEST(WidgetLooks, fonts)
{
    VXProbe2 probe;
    const VXFont font("DejaVu Sans", 17, VXFont::Bold, FontStyle::Italic);
    probe.setFont(font);
    EXPECT_EQ(probe.font(), font);
    probe.setFont(VXFont("No such family", 12));
    EXPECT_EQ(probe.font().family(),
              QFontInfo(QFont(QStringLiteral("No such family"))).family().toStdString())
        << "the closest scalable family";
    qt(probe)->setStyleSheet(QString());
    QFont pixels;
    pixels.setPixelSize(20);
    qt(probe)->setFont(pixels);
    EXPECT_EQ(probe.font().pointSize(), -1);
}

TEST(WidgetLooks, cursors)
{
    VXPanel2 window;
    auto& probe = *new VXProbe2(&window);
    probe.setCursor(CursorShape::PointingHand);
    EXPECT_EQ(qt(probe)->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(probe.cursor(), Cursor(CursorShape::PointingHand));
    window.setCursor(CursorShape::Wait);
    probe.unsetCursor();
    EXPECT_EQ(probe.cursor(), Cursor(CursorShape::Wait)) << "the parent's";

    const Pixmap drawn(16, 8, std::vector<std::uint32_t>(16 * 8, 0x20c040ffu));
    CustomCursorRegistry& registry = *CustomCursorRegistry::instance();
    registry.registerCursor(StringID("pen"), drawn, {3, 5});
    registry.registerCursor(StringID("middle"), drawn, {-1, -1});
    EXPECT_TRUE(registry.hasCursor(StringID("pen")));
    probe.setCursor(Cursor(StringID("pen")));
    const QCursor pen = qt(probe)->cursor();
    EXPECT_EQ(pen.shape(), Qt::BitmapCursor);
    EXPECT_EQ(pen.hotSpot(), QPoint(3, 5));
    EXPECT_EQ(pen.pixmap().toImage().pixelColor(2, 2), QColor(0x20, 0xc0, 0x40));
    EXPECT_EQ(probe.cursor(), Cursor(StringID("pen")));
    window.setCursor(Cursor(StringID("middle")));
    EXPECT_EQ(qt(window)->cursor().hotSpot(), QPoint(8, 4));
    EXPECT_EQ(window.cursor(), Cursor(StringID("middle")));
    registry.registerCursor(StringID("pen"), Pixmap(), {});
    registry.registerCursor(StringID("middle"), Pixmap(), {});
}

TEST(WidgetLooks, aCursorRegisteredAgainShowsAtOnceAndKeepsItsName)
{
    CustomCursorRegistry& registry = *CustomCursorRegistry::instance();
    const StringID name("changing");
    const auto drawn = [&](std::uint32_t rgba) {
        registry.registerCursor(name, Pixmap(8, 8, std::vector<std::uint32_t>(64, rgba)), {0, 0});
    };
    drawn(0xff0000ffu);
    VXPanel2 window;
    auto* probe = new VXProbe2(&window);
    auto* other = new VXProbe2(&window);
    probe->setCursor(Cursor(name));
    other->setCursor(CursorShape::Wait);
    const auto color = [&] {
        EXPECT_EQ(probe->cursor(), Cursor(name));
        return qt(*probe)->cursor().pixmap().toImage().pixelColor(1, 1);
    };
    EXPECT_EQ(color(), QColor(Qt::red));
    drawn(0x00ff00ffu);
    EXPECT_EQ(color(), QColor(Qt::green));
    std::thread([&] { drawn(0x0000ffffu); }).join();
    EXPECT_EQ(color(), QColor(Qt::green)) << "on its way";
    turn();
    EXPECT_EQ(color(), QColor(Qt::blue));
    // Whoever asks meanwhile gets the new one, and the others follow at once.
    std::thread([&] { drawn(0xff0000ffu); }).join();
    other->setCursor(Cursor(name));
    EXPECT_EQ(qt(*other)->cursor(), qt(*probe)->cursor());
    EXPECT_EQ(color(), QColor(Qt::red));
    const std::string broken = "no picture";
    registry.registerCursor(name, Pixmap::fromData(ByteArray(broken.data(), broken.size())), {});
    EXPECT_EQ(color(), QColor(Qt::red)) << "what cannot be read changes nothing";

    registry.registerCursor(name, Pixmap(), {});
    EXPECT_FALSE(registry.hasCursor(name));
    EXPECT_EQ(color(), QColor(Qt::red)) << "who has it keeps it";
    other->setCursor(Cursor(name));
    EXPECT_EQ(other->cursor(), Cursor(CursorShape::Arrow));
    drawn(0x00ff00ffu);
    EXPECT_EQ(color(), QColor(Qt::green));
    EXPECT_EQ(other->cursor(), Cursor(CursorShape::Arrow));
}

/// A picture of the widget as it is and as it is with the highlight.
template <class Widget>
void expectHighlightOnTop(Widget& widget)
{
    widget.resize({60, 40});
    const QImage bare = qt(widget)->grab().toImage();
    widget.setHighlight(true, Color(0, 200, 0));
    EXPECT_TRUE(widget.isHighlighted());
    const QImage lit = qt(widget)->grab().toImage();
    EXPECT_EQ(lit.pixelColor(30, 0).green(), 200) << "on the edge";
    EXPECT_EQ(lit.pixelColor(30, 0).red(), 0);
    EXPECT_EQ(lit.pixelColor(59, 20).green(), 200);
    // Inside, the widget has been painted as ever.
    const QRect inside(4, 4, 52, 32);
    EXPECT_EQ(lit.copy(inside), bare.copy(inside));
    widget.setHighlight(false);
    EXPECT_FALSE(widget.isHighlighted());
    EXPECT_EQ(qt(widget)->grab().toImage(), bare);
}

TEST(WidgetLooks, theHighlightLiesOnTop)
{
    VXButton2 button;
    button.setLabel("Lit");
    expectHighlightOnTop(button);
    VXText2 text;
    text.setText("Lit");
    expectHighlightOnTop(text);
    VXProbe2 plainProbe;
    expectHighlightOnTop(plainProbe);
    // That of a scroll area lies on its viewport.
    VXProbe2 probe(nullptr, VXProbe2::ScrollArea);
    probe.resize({60, 40});
    probe.setHighlight(true, Color(0, 200, 0));
    const QImage lit = area(probe).viewport()->grab().toImage();
    EXPECT_EQ(lit.pixelColor(lit.width() / 2, 0), QColor(0, 200, 0));
}

TEST(WidgetLooks, changesOfStyleAndPaletteLeaveThemRight)
{
    VXPanel2 window;
    auto* const coloured = new VXButton2(&window);
    auto* const other = new VXButton2(&window);
    coloured->setColor(ColorRole::Foreground, s_red);
    window.resize({200, 100});
    coloured->setPosition({10, 10, 80, 30});
    other->setPosition({110, 10, 80, 30});
    window.show();
    turn();

    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::ButtonText, QColor(1, 2, 3));
    palette.setColor(QPalette::Button, QColor(70, 80, 90));
    const QPalette usual = QApplication::palette();
    QApplication::setStyle(QStringLiteral("Windows"));
    QApplication::setPalette(palette);
    turn();
    EXPECT_EQ(coloured->color(ColorRole::Foreground), Color(200, 10, 20));
    EXPECT_EQ(coloured->color(ColorRole::Background), Color(70, 80, 90)) << "follows";
    EXPECT_EQ(other->color(ColorRole::Foreground), Color(1, 2, 3)) << "follows";

    // The highlight lies on top in the other style as well, and input still arrives.
    expectHighlightOnTop(*other);
    auto clicks = Log(other->clicked());
    QTest::mouseClick(qt(*other), Qt::LeftButton);
    EXPECT_EQ(clicks.count(), 1);

    QApplication::setLayoutDirection(Qt::RightToLeft);
    turn();
    EXPECT_TRUE(qt(*other)->isRightToLeft());
    EXPECT_EQ(other->position().x, 110) << "only layouts mirror";
    Reports reports(*other);
    QTest::mouseClick(qt(*other), Qt::LeftButton, {}, QPoint(7, 9));
    EXPECT_EQ(reports.take(), "mousePressed 7,9 Left/Left; mouseReleased 7,9 Left/No");

    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(usual);
    turn();
    EXPECT_EQ(coloured->color(ColorRole::Foreground), Color(200, 10, 20));
}

} // namespace
} // namespace VOXI
