#include "support/reportederrors.h"
#include "support/waitfor.h"
#include "toolkit.h"
#include "voxi2/containers/vxframe2.h"
#include "voxi2_qt/kernel/qtcanvas.h"
#include "voxi2_qt/kernel/qticon.h"
#include "voxi2_qt/kernel/qtimage.h"

#include <QEventLoop>
#include <QImage>
#include <QPainter>
#include <QTimer>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <thread>

namespace VOXI {
namespace {

using Area = const VXRect<int>&;

constexpr Size<int> Room{60, 40};
const Pixmap s_checks(2, 2, {0xff0000ff, 0x00ff00ff, 0x0000ffff, 0xffff00ff});

CanvasPath heart()
{
    CanvasPath path;
    path.moveTo({30, 36});
    path.curveTo({-10, 10}, {20, -8}, {30, 10});
    path.quadTo({50, -10}, {56, 14});
    path.lineTo({30, 36});
    path.close();
    path.addEllipse({20, 10, 16, 14});
    return path;
}

QPainterPath qtHeart()
{
    QPainterPath path(QPointF(30, 36));
    path.cubicTo(-10, 10, 20, -8, 30, 10);
    path.quadTo(50, -10, 56, 14);
    path.lineTo(30, 36);
    path.closeSubpath();
    path.addEllipse(20, 10, 16, 14);
    return path;
}

/// The same picture, drawn through the canvas and by Qt itself.
struct Drawing
{
    const char* m_name;
    void (*m_canvas)(VXCanvas2& canvas);
    void (*m_qt)(QPainter& painter);

    friend std::ostream& operator<<(std::ostream& out, const Drawing& drawing)
    {
        return out << drawing.m_name;
    }
};

/// Between two pictures of one size: curves and turns are reckoned in another order.
int greatestDifference(const Pixmap& a, const Pixmap& b)
{
    int greatest = a.size() == b.size() ? 0 : 255;
    for (std::size_t i = 0; i < a.pixels().size() && greatest < 255; ++i) {
        for (int shift = 0; shift < 32; shift += 8) {
            const auto channel = [&](const Pixmap& p) {
                return static_cast<int>(p.pixels()[i] >> shift & 0xff);
            };
            greatest = std::max(greatest, std::abs(channel(a) - channel(b)));
        }
    }
    return greatest;
}

class Drawn : public testing::TestWithParam<Drawing>
{};

TEST_P(Drawn, isWhatQtDraws)
{
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const Pixmap drawn = VXCanvas2::draw(Room, ratio, [](VXCanvas2 c) {
            EXPECT_EQ(c.size(), (Size<double>{60, 40}));
            GetParam().m_canvas(c);
        });
        QImage image(QSize(60, 40) * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        {
            QPainter painter(&image);
            painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
            GetParam().m_qt(painter);
        }
        EXPECT_EQ(drawn.pixelRatio(), ratio);
        EXPECT_LE(greatestDifference(drawn, Qt2VX(image)), 4) << ratio;
        image.fill(Qt::transparent);
        EXPECT_GT(greatestDifference(drawn, Qt2VX(image)), 99) << "nothing was drawn";
    }
}

const Drawing s_drawings[] = {
    {"pens",
     [](VXCanvas2& c) {
         c.setPen(Color(10, 20, 30, 200), 3);
         c.drawLine({1, 2}, {50, 11});
         c.setPen({.color = {200, 0, 0},
                   .width = 4,
                   .style = PenStyle::Dash,
                   .cap = PenCap::Round,
                   .dashOffset = 1.5});
         c.drawPolyline({{2, 30}, {30, 14}, {55, 34}});
         c.setPen({.width = 2, .style = PenStyle::Custom, .dashes = {1, 2, 3}, .isCosmetic = true});
         c.scale(2, 2);
         c.drawLine({1, 19}, {29, 17});
     },
     [](QPainter& p) {
         p.setPen(QPen(QColor(10, 20, 30, 200), 3, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
         p.drawLine(QPointF(1, 2), QPointF(50, 11));
         QPen dashed(QColor(200, 0, 0), 4, Qt::DashLine, Qt::RoundCap, Qt::MiterJoin);
         dashed.setDashOffset(1.5);
         p.setPen(dashed);
         p.drawPolyline(QPolygonF({{2, 30}, {30, 14}, {55, 34}}));
         QPen own(Qt::black, 2 * p.device()->devicePixelRatioF(), Qt::SolidLine, Qt::FlatCap,
                  Qt::MiterJoin);
         own.setDashPattern({1, 2, 3, 1, 2, 3});
         own.setCosmetic(true);
         p.setPen(own);
         p.scale(2, 2);
         p.drawLine(QPointF(1, 19), QPointF(29, 17));
     }},
    {"brushes",
     [](VXCanvas2& c) {
         c.setNoPen();
         c.setBrush(Brush::linear({0, 0}, {60, 0}, {{0, {255, 0, 0}}, {1, {0, 0, 255, 99}}}));
         c.drawRect({2, 2, 56, 10});
         c.setBrush(Brush::radial({30, 26}, 6, {{-3, {255, 255, 0}}, {1, {0, 99, 0}}},
                                  GradientSpread::Reflect));
         c.drawRoundedRect({10, 14, 40, 24}, 9, 5);
         c.fillRect({50, 30, 9, 9}, Color(1, 2, 3));
         c.setOpacity(0.5);
         c.setBrush(Color(0, 0, 255));
         c.drawPolygon({{0, 0}, {30, 39}, {50, 0}, {0, 30}, {58, 30}}, FillRule::Winding);
     },
     [](QPainter& p) {
         p.setPen(Qt::NoPen);
         QLinearGradient linear(0, 0, 60, 0);
         linear.setColorAt(0, QColor(255, 0, 0));
         linear.setColorAt(1, QColor(0, 0, 255, 99));
         p.setBrush(linear);
         p.drawRect(2, 2, 56, 10);
         QRadialGradient radial(30, 26, 6);
         radial.setColorAt(0, QColor(255, 255, 0));
         radial.setColorAt(1, QColor(0, 99, 0));
         radial.setSpread(QGradient::ReflectSpread);
         p.setBrush(radial);
         p.drawRoundedRect(10, 14, 40, 24, 9, 5);
         p.fillRect(50, 30, 9, 9, QColor(1, 2, 3));
         p.setOpacity(0.5);
         p.setBrush(Qt::blue);
         p.drawPolygon(QPolygonF({{0, 0}, {30, 39}, {50, 0}, {0, 30}, {58, 30}}), Qt::WindingFill);
     }},
    {"roundShapes",
     [](VXCanvas2& c) {
         c.setBrush(Color(200, 220, 240));
         c.drawEllipse({58, 38, -28, -18}); // the other way around
         c.drawArc({2, 2, 20, 20}, 0, 90);
         c.drawArc({2, 2, 20, 30}, 100, 120, ArcKind::Pie);
         c.drawArc({30, 2, 20, 20}, -30, -100, ArcKind::Chord);
         c.setAntialiasing(false);
         c.drawCircle({40, 12}, 5);
     },
     [](QPainter& p) {
         p.setBrush(QColor(200, 220, 240));
         p.setPen(QPen(Qt::black, 1));
         p.drawEllipse(QRectF(30, 20, 28, 18));
         p.drawArc(QRectF(2, 2, 20, 20), 0, -90 * 16);
         p.drawPie(QRectF(2, 2, 20, 30), -100 * 16, -120 * 16);
         p.drawChord(QRectF(30, 2, 20, 20), 30 * 16, 100 * 16);
         p.setRenderHint(QPainter::Antialiasing, false);
         p.drawEllipse(QRectF(35, 7, 10, 10));
     }},
    {"places",
     [](VXCanvas2& c) {
         c.clip(VXRect<double>{4, 4, 50, 30});
         c.save();
         c.clip(heart());
         c.translate(20, 10);
         c.rotate(30);
         c.scale(2, 1);
         c.fillRect({-30, -30, 90, 90}, Color(9, 9, 99));
         c.restore();
         c.restore(); // nothing is kept
         c.setPen(Color(255, 0, 0), 5);
         c.drawLine({0, 0}, {60, 40});
         c.save();
     },
     [](QPainter& p) {
         p.setClipRect(QRectF(4, 4, 50, 30));
         p.save();
         p.setClipPath(qtHeart(), Qt::IntersectClip);
         p.translate(20, 10);
         p.rotate(30);
         p.scale(2, 1);
         p.fillRect(QRectF(-30, -30, 90, 90), QColor(9, 9, 99));
         p.restore();
         p.setPen(QPen(Qt::red, 5, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
         p.drawLine(QPointF(0, 0), QPointF(60, 40));
     }},
    {"texts",
     [](VXCanvas2& c) {
         c.setFont(VXFont("", 8, VXFont::Bold));
         c.setPen(Color(60, 0, 0));
         c.drawText(VXPoint<double>{2, 12}, u8"Größe");
         c.drawText({0, 0, 60, 40}, L"a very long line of text",
                    {.alignment = AlignmentFlag::Right | AlignmentFlag::Bottom,
                     .elide = TextElideMode::Middle});
         c.drawText({30, 0, 20, 5}, "two words",
                    {.alignment = AlignmentFlag::HCenter, .wordWrap = true});
     },
     [](QPainter& p) {
         QFont font;
         font.setPointSize(8);
         font.setBold(true);
         p.setFont(font);
         p.setPen(QColor(60, 0, 0));
         p.drawText(QPointF(2, 12), QStringLiteral("Größe"));
         const QFontMetricsF metrics(p.font(), p.device());
         p.drawText(
             QRectF(0, 0, 60, 40), Qt::AlignRight | Qt::AlignBottom | Qt::TextDontClip,
             metrics.elidedText(QStringLiteral("a very long line of text"), Qt::ElideMiddle, 60));
         p.drawText(QRectF(30, 0, 20, 5), Qt::AlignHCenter | Qt::TextWordWrap | Qt::TextDontClip,
                    QStringLiteral("two words"));
     }},
    {"pictures",
     [](VXCanvas2& c) {
         c.drawPixmap(VXPoint<double>{1, 1}, s_checks);
         c.drawPixmap({4, 4, 30, 30}, s_checks);
         c.drawPixmap({40, 4, 16, 30}, s_checks, {1, 0, 1, 2});
         c.drawIcon({36, 20, 16, 16}, Icon::fromPixmap(s_checks), Icon::IconMode::Disabled);
     },
     [](QPainter& p) {
         const QImage checks =
             toQImage(s_checks).convertToFormat(QImage::Format_ARGB32_Premultiplied);
         p.drawImage(QRectF(1, 1, 2, 2), checks);
         p.drawImage(QRectF(4, 4, 30, 30), checks);
         p.drawImage(QRectF(40, 4, 16, 30), checks, QRectF(1, 0, 1, 2));
         VX2Qt(Icon::fromPixmap(s_checks))
             .paint(&p, QRect(36, 20, 16, 16), Qt::AlignCenter, QIcon::Disabled);
     }},
};

INSTANTIATE_TEST_SUITE_P(Canvas, Drawn, testing::ValuesIn(s_drawings),
                         [](const auto& test) { return std::string(test.param.m_name); });

TEST(Canvas, isDeadWhereItIsNotOpen)
{
    VXCanvas2 kept;
    const Pixmap drawn = VXCanvas2::draw(Room, 1, [&](VXCanvas2 canvas) {
        kept = canvas;
        EXPECT_TRUE(kept.isOpen());
        std::thread([&] {
            EXPECT_FALSE(canvas.isOpen());
            canvas.fillRect({0, 0, 60, 40}, Color(1, 2, 3));
        }).join();
    });
    EXPECT_EQ(drawn, Pixmap(60, 40, std::vector<std::uint32_t>(60 * 40))) << "elsewhere it drew";
    for (VXCanvas2 dead : {kept, VXCanvas2()}) {
        EXPECT_FALSE(dead.isOpen());
        dead.save();
        dead.setPen({.width = 3});
        dead.drawText({0, 0, 9, 9}, "text");
        dead.drawPath(heart());
        dead.restore();
        EXPECT_EQ(dead.size(), Size<double>());
        EXPECT_EQ(dead.measureText("text"), Size<double>());
        EXPECT_EQ(dead.elidedText("text", 99), L"");
    }
}

TEST(Canvas, measuresWhatItDraws)
{
    VXCanvas2::draw(Room, 1, [](VXCanvas2 c) {
        const Size<double> line = c.measureText("some words of text");
        const Size<double> wrapped = c.measureText("some words of text", line.width / 2);
        EXPECT_LT(wrapped.width, line.width);
        EXPECT_GE(wrapped.height, 2 * line.height - 1);
        EXPECT_EQ(c.elidedText(u8"Größe", line.width), L"Gr\xf6\xdf\x65");
        const std::wstring cut = c.elidedText("some words of text", line.width / 2);
        EXPECT_TRUE(cut.starts_with(L"so") && cut.ends_with(L"\x2026"));
        EXPECT_LE(c.measureText(cut).width, line.width / 2);
        EXPECT_LT(c.measureText(std::string(8'000'000, '\n')).height, 1e7);
        EXPECT_TRUE(c.elidedText(L"\xd800", 99).size() <= 1);
    });
}

TEST(Canvas, pixmapsKeepTheirPixels)
{
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const Pixmap drawn = VXCanvas2::draw({20, 10}, ratio, [](VXCanvas2 c) {
            c.drawText({0, 0, 20, 10}, "ab");
            c.drawLine({0, 9}, {19, 1});
        });
        EXPECT_EQ(drawn.width(), static_cast<int>(20 * ratio));
        const Pixmap again = VXCanvas2::draw({20, 10}, ratio, [&](VXCanvas2 c) {
            c.drawPixmap(VXPoint<double>{0, 0}, drawn);
        });
        EXPECT_EQ(again, drawn) << ratio;
        EXPECT_EQ(toQImage(drawn).devicePixelRatio(), ratio);
    }
    for (const double none : {0.0, -2.0, std::nan(""), HUGE_VAL})
        EXPECT_EQ(Pixmap(1, 1, {0}, none).pixelRatio(), 1);
}

TEST(Canvas, drawsIntoPicturesOnAnyThread)
{
    const auto draw = [] {
        return VXCanvas2::draw(Room, 1.5, [](VXCanvas2 c) {
            c.setFont(VXFont("DejaVu Sans", 9));
            c.drawText({0, 0, 60, 40}, "text", {.alignment = AlignmentFlag::Center});
            c.drawIcon({2, 2, 16, 16}, Icon::fromPixmap(s_checks));
            c.drawPixmap({20, 2, 16, 16}, s_checks);
        });
    };
    const Pixmap here = draw();
    std::vector<std::jthread> workers;
    workers.reserve(4);
    for (int i = 0; i < 4; ++i) {
        workers.emplace_back([&] {
            EXPECT_EQ(draw(), here);
            EXPECT_THROW(VXCanvas2::draw(Room, 1, [](VXCanvas2) { throw 5; }), int);
        });
    }
    workers.clear();
    EXPECT_TRUE(VXCanvas2::draw({0, 5}, 1, [](VXCanvas2) {}).isNull());
    EXPECT_TRUE(VXCanvas2::draw({1 << 30, 1 << 30}, 99, [](VXCanvas2) {}).isNull());
    EXPECT_TRUE(VXCanvas2::draw(Room, 1, {}).isNull());
}

/// Numbers that a program should not have, among others.
class Numbers
{
public:
    double number()
    {
        constexpr double Infinity = std::numeric_limits<double>::infinity();
        constexpr double Values[] = {
            0,    1,     -7.5,     30,       1e-300,    1e9,
            -1e9, 1e300, -1e300,   Infinity, -Infinity, std::numeric_limits<double>::quiet_NaN(),
            12,   25.5,  16777216, -33};
        return Values[m_random() % std::size(Values)];
    }
    VXPoint<double> point() { return {number(), number()}; }
    VXRect<double> rect() { return {number(), number(), number(), number()}; }
    unsigned below(std::size_t end) { return static_cast<unsigned>(m_random() % end); }

private:
    std::mt19937 m_random{17};
};

void drawAnything(VXCanvas2& c, Numbers& n, const CanvasPath& path)
{
    const VXPoint<double> points[] = {n.point(), n.point(), n.point()};
    const Pen pen{.width = n.number(),
                  .style = static_cast<PenStyle>(n.below(9)),
                  .cap = static_cast<PenCap>(n.below(5)),
                  .dashes = {n.number(), n.number(), n.number()},
                  .dashOffset = n.number(),
                  .isCosmetic = n.below(2) == 0};
    const std::vector<GradientStop> stops{{n.number(), {}}, {n.number(), {9, 9, 9}}};
    const std::function<void()> calls[] = {
        [&] { c.setPen(pen); },
        [&] { c.setBrush(Brush::linear(n.point(), n.point(), stops, GradientSpread::Repeat)); },
        [&] { c.setBrush(Brush::radial(n.point(), n.number(), stops)); },
        [&] { c.setFont(VXFont("none", n.below(2) == 0 ? 2147483647 : -3)); },
        [&] { c.setOpacity(n.number()); },
        [&] { c.translate(n.number(), n.number()); },
        [&] { c.rotate(n.number()); },
        [&] { c.scale(n.number(), n.number()); },
        [&] {
            c.setTransform({n.number(), n.number(), n.number(), n.number(), 0, 0});
        },
        [&] { c.setTransform({}); },
        [&] { c.save(); },
        [&] { c.restore(); },
        [&] { c.drawLine(n.point(), n.point()); },
        [&] { c.drawPolyline(points); },
        [&] { c.drawPolygon(points); },
        [&] { c.drawRect(n.rect()); },
        [&] { c.drawRoundedRect(n.rect(), n.number(), n.number()); },
        [&] { c.drawEllipse(n.rect()); },
        [&] { c.drawArc(n.rect(), n.number(), n.number(), static_cast<ArcKind>(n.below(4))); },
        [&] { c.drawPath(path); },
        [&] { c.drawText(n.rect(), "some text", {.wordWrap = n.below(2) == 0}); },
        [&] { c.drawText(n.point(), "text"); },
        [&] { c.measureText("text", n.number()); },
        [&] { c.drawPixmap(n.rect(), s_checks, n.rect()); },
        [&] { c.drawPixmap(n.point(), Pixmap()); },
        [&] { c.drawIcon(n.rect(), Icon::fromPixmap(s_checks)); },
    };
    calls[n.below(std::size(calls))]();
}

TEST(Canvas, standsAnyNumber)
{
    Numbers n;
    for (int round = 0; round < 60; ++round) {
        CanvasPath path;
        path.curveTo(n.point(), n.point(), n.point());
        path.arcTo(n.rect(), n.number(), n.number());
        path.lineTo(n.point());
        path.close();
        path.addRoundedRect(n.rect(), n.number(), n.number());
        path.addPath(path.transformed({n.number(), 0, 0, n.number(), 0, 0}));
        const VXRect<double> bounds = path.boundingRect();
        EXPECT_TRUE(std::isfinite(bounds.end().x) && std::isfinite(bounds.end().y));
        path.contains(n.point());
        path.isNear(n.point(), n.number());
        VXCanvas2::draw(Room, 1, [&](VXCanvas2 c) {
            for (int i = 0; i < 100; ++i)
                drawAnything(c, n, path);
        });
    }
}

TEST(CanvasPath, knowsWhatLiesInIt)
{
    CanvasPath path = heart();
    const QPainterPath qtPath = qtHeart();
    const QRectF qtBounds = qtPath.boundingRect();
    const VXRect<double> bounds = path.boundingRect();
    EXPECT_NEAR(bounds.x, qtBounds.x(), 1e-6);
    EXPECT_NEAR(bounds.y, qtBounds.y(), 1e-6);
    EXPECT_NEAR(bounds.end().x, qtBounds.right(), 1e-6);
    EXPECT_NEAR(bounds.end().y, qtBounds.bottom(), 1e-6);
    int inside = 0;
    for (const FillRule rule : {FillRule::OddEven, FillRule::Winding}) {
        path.setFillRule(rule);
        const QPainterPath asked = VX2Qt(path);
        for (double y = -5.3; y < 40; ++y) {
            for (double x = -5.1; x < 60; ++x) {
                if (path.isNear({x, y}, 0.1))
                    continue; // curves are lines there
                EXPECT_EQ(path.contains({x, y}), asked.contains(QPointF(x, y))) << x << ' ' << y;
                inside += path.contains({x, y});
            }
        }
    }
    EXPECT_GT(inside, 900);

    CanvasPath line;
    line.moveTo({0, 0});
    line.lineTo({10, 0});
    line.moveTo({90, 90});
    EXPECT_TRUE(line.isNear({5, 2}, 2));
    EXPECT_FALSE(line.isNear({5, 2.1}, 2));
    EXPECT_FALSE(line.isNear({12, 1}, 2));
    EXPECT_EQ(line.boundingRect(), (VXRect<double>{0, 0, 10, 0}));
    EXPECT_EQ(line.transformed(Transform::translation(1, 2)).boundingRect(),
              (VXRect<double>{1, 2, 10, 0}));
}

class Painter : public testing::Test
{
protected:
    Painter() { m_frame.resize({40, 30}); }

    void show()
    {
        m_frame.show();
        ASSERT_TRUE(waitFor([&] { return m_painted > 0; }));
        turn();
        m_painted = 0;
    }
    QImage image() { return qt(m_frame)->grab().toImage(); }

    VXFrame2 m_frame;
    VXRect<int> m_area;
    int m_painted = 0;
    const FramePainter m_count = [this](VXCanvas2 canvas, Area area) {
        ++m_painted;
        m_area = area;
        canvas.fillRect({0, 0, 40, 30}, Color(0, 255, 0));
    };
};

TEST_F(Painter, isCalledForWhatNeedsIt)
{
    m_frame.setPainter(m_count);
    show();
    EXPECT_EQ(m_area, (VXRect<int>{0, 0, 40, 30}));
    std::thread([&] { m_frame.update({3, 4, 5, 6}); }).join();
    ASSERT_TRUE(waitFor([&] { return m_painted > 0; }));
    EXPECT_EQ(m_area, (VXRect<int>{3, 4, 5, 6}));
    m_frame.update();
    m_frame.update({-2147483647, 0, 2147483647, 2147483647});
    ASSERT_TRUE(waitFor([&] { return m_painted > 1; }));
    EXPECT_EQ(m_area, (VXRect<int>{0, 0, 40, 30}));
    m_frame.setPainter({});
    EXPECT_FALSE(m_frame.hasPainter());
    EXPECT_NE(image().pixelColor(5, 5), QColor(0, 255, 0));
}

TEST_F(Painter, mayThrowAndReplaceItself)
{
    TROV::ReportedErrors errors;
    const auto kept = std::make_shared<int>(1);
    m_frame.setPainter([this, kept](VXCanvas2 canvas, Area) {
        canvas.save();
        canvas.clip({0, 0, 20, 30});
        canvas.fillRect({0, 0, 40, 30}, Color(255, 0, 0));
        m_frame.setPainter(m_count);
        EXPECT_EQ(kept.use_count(), 2) << "what runs has been destroyed";
        throw std::runtime_error("painting");
    });
    const QImage drawn = image();
    EXPECT_EQ(drawn.pixelColor(5, 5), QColor(255, 0, 0)) << "what was drawn by then";
    EXPECT_NE(drawn.pixelColor(30, 5), QColor(255, 0, 0));
    EXPECT_EQ(errors.take(), std::vector<std::string>{"painting"});
    EXPECT_EQ(image().pixelColor(30, 5), QColor(0, 255, 0));
    EXPECT_EQ(kept.use_count(), 1);
}

TEST_F(Painter, mayRunALoopInWhichItsWindowIsResizedAndPainted)
{
    bool once = true;
    m_frame.setPainter([&](VXCanvas2 canvas, Area area) {
        m_count(canvas, area);
        if (!std::exchange(once, false))
            return;
        QEventLoop loop;
        m_frame.update();
        qt(m_frame)->windowHandle()->resize(80, 70);
        QTimer::singleShot(20, &loop, [&] {
            m_frame.refresh();
            loop.quit();
        });
        loop.exec();
        EXPECT_EQ(m_painted, 1) << "it was painted in the middle of its painting";
        canvas.fillRect({0, 0, 40, 30}, Color(0, 255, 0));
    });
    m_frame.show();
    EXPECT_TRUE(waitFor([&] { return m_painted > 1 && m_area.width == 80; }));
    EXPECT_EQ(m_frame.position().size(), (Size<int>{80, 70}));
}

TEST_F(Painter, mayDestroyItsFrame)
{
    auto* const frame = new VXFrame2(&m_frame);
    frame->setPosition({5, 5, 20, 20});
    const QPointer<QWidget> widget = qt(*frame);
    VXCanvas2 kept;
    frame->setPainter([&](VXCanvas2 canvas, Area) {
        kept = canvas;
        delete frame;
        QEventLoop loop;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
        EXPECT_TRUE(widget);
        canvas.fillRect({0, 0, 40, 30}, Color(0, 0, 255));
    });
    image();
    runDeletions();
    EXPECT_FALSE(widget);
    EXPECT_FALSE(kept.isOpen());
}

} // namespace
} // namespace VOXI
