// What a program paints itself.

#include "benchsupport.h"
#include "voxi2/containers/vxframe2.h"

#include <QFrame>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <array>

namespace {

constexpr int Shapes = 10'000;
constexpr int Side = 600;

/// Where the shape of that number lies, and its colour's number.
struct Place
{
    double m_x;
    double m_y;
    double m_size;
    int m_color;

    explicit Place(int i)
        : m_x(i * 37 % (Side - 40)),
          m_y(i * 101 % (Side - 40)),
          m_size(12 + i % 29),
          m_color(i / 7 % 16)
    {}
};

void drawShapes(VOXI::VXCanvas2& canvas)
{
    using namespace VOXI;
    for (int i = 0; i < Shapes; ++i) {
        const Place p(i);
        canvas.setPen({.color = Color(10 * p.m_color, 60, 90), .width = 1.5});
        canvas.setBrush(Color(90, 15 * p.m_color, 160));
        const VXRect<double> rect{p.m_x, p.m_y, p.m_size, p.m_size / 2};
        switch (i % 7) {
        case 0:
            canvas.drawLine({p.m_x, p.m_y}, {p.m_x + p.m_size, p.m_y + 9});
            break;
        case 1:
            canvas.drawRect(rect);
            break;
        case 2:
            canvas.drawRoundedRect(rect, 4, 4);
            break;
        case 3:
            canvas.drawEllipse(rect);
            break;
        case 4:
            canvas.drawPolygon({{p.m_x, p.m_y},
                                {p.m_x + p.m_size, p.m_y},
                                {p.m_x + 9, p.m_y + 9},
                                {p.m_x, p.m_y + p.m_size}});
            break;
        case 5: {
            CanvasPath path;
            path.moveTo({p.m_x, p.m_y});
            path.curveTo({p.m_x + p.m_size, p.m_y}, {p.m_x, p.m_y + 20}, {p.m_x + 30, p.m_y + 30});
            path.close();
            canvas.drawPath(path);
            break;
        }
        default:
            canvas.drawText(rect, L"label", {.alignment = AlignmentFlag::Center});
        }
    }
}

void drawShapes(QPainter& painter)
{
    const QString label = QStringLiteral("label");
    for (int i = 0; i < Shapes; ++i) {
        const Place p(i);
        painter.setPen(
            QPen(QColor(10 * p.m_color, 60, 90), 1.5, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.setBrush(QColor(90, 15 * p.m_color, 160));
        const QRectF rect(p.m_x, p.m_y, p.m_size, p.m_size / 2);
        switch (i % 7) {
        case 0:
            painter.drawLine(QPointF(p.m_x, p.m_y), QPointF(p.m_x + p.m_size, p.m_y + 9));
            break;
        case 1:
            painter.drawRect(rect);
            break;
        case 2:
            painter.drawRoundedRect(rect, 4, 4);
            break;
        case 3:
            painter.drawEllipse(rect);
            break;
        case 4: {
            const std::array<QPointF, 4> points{{{p.m_x, p.m_y},
                                                 {p.m_x + p.m_size, p.m_y},
                                                 {p.m_x + 9, p.m_y + 9},
                                                 {p.m_x, p.m_y + p.m_size}}};
            painter.drawPolygon(points.data(), static_cast<int>(points.size()));
            break;
        }
        case 5: {
            QPainterPath path(QPointF(p.m_x, p.m_y));
            path.cubicTo(p.m_x + p.m_size, p.m_y, p.m_x, p.m_y + 20, p.m_x + 30, p.m_y + 30);
            path.closeSubpath();
            painter.drawPath(path);
            break;
        }
        default:
            painter.drawText(rect, Qt::AlignCenter | Qt::TextDontClip, label);
        }
    }
}

struct VoxiFrame
{
    VOXI::VXFrame2 m_frame;

    VoxiFrame()
    {
        m_frame.setPainter(
            [](VOXI::VXCanvas2 canvas, const VOXI::VXRect<int>&) { drawShapes(canvas); });
    }
    QWidget* widget() { return bench::widgetOf(&m_frame); }
};

struct QtFrame : QFrame
{
    QWidget* widget() { return this; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        drawShapes(painter);
    }
};

template <class Frame>
void canvasDraw(benchmark::State& state)
{
    Frame frame;
    QWidget* const widget = frame.widget();
    widget->resize(Side, Side);
    QImage image(Side, Side, QImage::Format_ARGB32_Premultiplied);
    widget->render(&image); // what is loaded for the first text
    bench::repeat(state, [&] { widget->render(&image); });
    if (image.pixelColor(image.rect().center()) == widget->palette().window().color())
        state.SkipWithError("nothing was drawn");
}

const bool s_added = bench::addPairs({
    {"CanvasDraw", canvasDraw<VoxiFrame>, canvasDraw<QtFrame>},
});

} // namespace
