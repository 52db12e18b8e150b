// The part of QtCanvas that is about texts and pictures.

#include "qtcanvasvalues.h"
#include "voxi2_qt/kernel/qtcanvas.h"
#include "voxi2_qt/kernel/qtenums.h"
#include "voxi2_qt/kernel/qticon.h"
#include "voxi2_qt/kernel/qtimage.h"
#include "voxi2_qt/kernel/qttext.h"
#include "voxi_util/imagecompositor.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QStringList>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <vector>

namespace VOXI {

namespace {

QString shownText(const AnyText& text)
{
    constexpr std::size_t Most = VXCanvas2::LongestText;
    QString result;
    const auto convert = [&](const auto& given) {
        result = given.size() > Most ? toQString(given.substr(0, Most)) : toQString(given);
    };
    text.passTo(convert, convert);
    return result;
}

bool isPositive(double width) { return width > 0 && width <= FarthestOnCanvas; }

/// Each line for itself: Qt cuts a text as if it had one.
QString cut(const QFontMetricsF& metrics, const QString& text, Qt::TextElideMode mode, double width)
{
    if (!text.contains(u'\n'))
        return metrics.elidedText(text, mode, width);
    QStringList lines = text.split(u'\n');
    for (QString& line : lines)
        line = metrics.elidedText(line, mode, width);
    return lines.join(u'\n');
}

/// Whether the letters have a size that fonts know: those that are far too large are drawn as
/// shapes, but not where they are flat besides.
bool areLettersDrawable(const QPainter& painter)
{
    const QTransform& t = painter.worldTransform();
    const double size = QFontMetricsF(painter.font(), painter.device()).height()
                        * painter.device()->devicePixelRatioF();
    const double longest = std::max(std::hypot(t.m11(), t.m12()), std::hypot(t.m21(), t.m22()));
    const double area = std::abs(t.determinant());
    constexpr double Large = 1024;
    constexpr double TooLarge = 1e6;
    return longest * size < Large || (longest * size < TooLarge && longest < 16 * area / longest);
}

/// The pictures drawn last, as Qt draws them best: programs draw the same ones again and again.
class RecentPictures
{
public:
    static QImage pictureOf(const Pixmap& pixmap)
    {
        thread_local RecentPictures recent;
        return recent.find(pixmap);
    }

private:
    struct Picture
    {
        Pixmap m_pixmap; // kept, so that no other one is taken for it
        QImage m_image;
    };

    static constexpr std::size_t MostPictures = 64;
    static constexpr qsizetype MostBytes = qsizetype(64) << 20;

    QImage find(const Pixmap& pixmap)
    {
        const auto found =
            std::find_if(m_pictures.begin(), m_pictures.end(), [&](const Picture& picture) {
                return picture.m_pixmap.identity() == pixmap.identity();
            });
        if (found != m_pictures.end()) {
            std::rotate(m_pictures.begin(), found, found + 1);
            return m_pictures.front().m_image;
        }
        QImage image = toQImage(pixmap).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(1);
        keep({pixmap, image});
        return image;
    }

    void keep(Picture picture)
    {
        const qsizetype size = picture.m_image.sizeInBytes();
        if (size > MostBytes)
            return;
        m_pictures.insert(m_pictures.begin(), std::move(picture));
        m_bytes += size;
        while (m_pictures.size() > MostPictures || m_bytes > MostBytes) {
            m_bytes -= m_pictures.back().m_image.sizeInBytes();
            m_pictures.pop_back();
        }
    }

    std::vector<Picture> m_pictures; // the last drawn first
    qsizetype m_bytes = 0;
};

bool isGuiThread() { return qApp && QThread::currentThread() == qApp->thread(); }

} // namespace

// Texts -------------------------------------------------------------------------------------------

Size<double> QtCanvas::measureText(const AnyText& text, double width)
{
    const QFontMetricsF metrics(m_painter.font(), m_painter.device());
    const bool wraps = isPositive(width);
    const QRectF room(0, 0, wraps ? width : FarthestOnCanvas, FarthestOnCanvas);
    const QRectF taken = metrics.boundingRect(
        room, Qt::TextExpandTabs | (wraps ? Qt::TextWordWrap : 0), shownText(text));
    return {taken.width(), taken.height()};
}

std::wstring QtCanvas::elidedText(const AnyText& text, double width, TextElideMode mode)
{
    const QFontMetricsF metrics(m_painter.font(), m_painter.device());
    return toStdWString(cut(metrics, shownText(text), VX2Qt(mode), isPositive(width) ? width : 0));
}

void QtCanvas::drawText(const Point& baseline, const AnyText& text)
{
    QPointF begin;
    if (place(begin, baseline) && areLettersDrawable(m_painter))
        m_painter.drawText(begin, shownText(text));
}

void QtCanvas::drawText(const Rect& room, const AnyText& text, const TextLayout& layout)
{
    QRectF area;
    if (!place(area, room) || !areLettersDrawable(m_painter))
        return;
    QString shown = shownText(text);
    int flags = static_cast<int>(VX2Qt(layout.alignment)) | Qt::TextDontClip | Qt::TextExpandTabs;
    if (layout.wordWrap)
        flags |= Qt::TextWordWrap;
    else if (layout.elide != TextElideMode::None)
        shown = cut(QFontMetricsF(m_painter.font(), m_painter.device()), shown, VX2Qt(layout.elide),
                    area.width());
    m_painter.drawText(area, flags, shown);
}

// Pictures ----------------------------------------------------------------------------------------

void QtCanvas::drawPixmap(const Rect& target, const Pixmap& pixmap, const Rect& source)
{
    QRectF area;
    QRectF part;
    if (pixmap.isNull() || !place(area, target) || !place(part, source))
        return;
    const QImage picture = RecentPictures::pictureOf(pixmap);
    const QRectF whole = picture.rect();
    part = part.isEmpty() ? whole : part & whole;
    if (!part.isEmpty() && !area.isEmpty())
        m_painter.drawImage(area, picture, part);
}

void QtCanvas::drawPixmap(const Point& at, const Pixmap& pixmap)
{
    if (pixmap.isNull())
        return;
    const QSizeF size = QSizeF(RecentPictures::pictureOf(pixmap).size()) / pixmap.pixelRatio();
    drawPixmap({at.x, at.y, size.width(), size.height()}, pixmap, {});
}

void QtCanvas::drawIcon(const Rect& target, const Icon& icon, Icon::IconMode mode,
                        Icon::IconState state)
{
    QRectF area;
    if (icon.isNull() || !place(area, target))
        return;
    constexpr double Most = Icon::MaxShownSide;
    const QSize size(static_cast<int>(std::ceil(std::min(area.width(), Most))),
                     static_cast<int>(std::ceil(std::min(area.height(), Most))));
    if (size.isEmpty())
        return;
    if (isGuiThread()) {
        m_painter.drawPixmap(area,
                             VX2Qt(icon).pixmap(size, pixelRatio(), VX2Qt(mode), VX2Qt(state)), {});
    } else {
        const QSize pixels = size * pixelRatio();
        const Pixmap composed =
            ImageCompositor::compose(icon, {pixels.width(), pixels.height()}, mode, state);
        if (!composed.isNull())
            m_painter.drawImage(area, toQImage(composed));
    }
}

} // namespace VOXI
