#include "voxi2_qt/kernel/qtimage.h"

#include "svgguard.h"
#include "voxi2_qt/kernel/qtgeometry.h"
#include "voxi2_qt/kernel/qttext.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace VOXI {

namespace {
QImage fromRaw(const Pixmap& pixmap)
{
    QImage image(pixmap.width(), pixmap.height(), QImage::Format_ARGB32);
    auto from = pixmap.pixels().begin();
    for (int y = 0; y < image.height(); ++y, from += image.width()) {
        std::transform(from, from + image.width(), reinterpret_cast<QRgb*>(image.scanLine(y)),
                       [](std::uint32_t rgba) -> QRgb { return rgba >> 8 | rgba << 24; });
    }
    image.setDevicePixelRatio(pixmap.pixelRatio());
    return image;
}

QByteArray encodedBytes(const Pixmap& pixmap)
{
    if (!pixmap.path().empty())
        return bytesOfFile(Detail::qStringFromUtf8(pixmap.path()));
    const ByteArray& data = pixmap.data();
    // Not a copy: the pixmap outlives the bytes.
    return QByteArray::fromRawData(data.data(), static_cast<qsizetype>(data.size()));
}

/// By Qt's plugin: few programs have drawings, and its library takes each of them time to load.
QImage drawnSvg(QByteArray bytes, QSize wanted)
{
    bytes = harmlessSvg(bytes);
    if (bytes.isEmpty())
        return {};
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "svg");
    QSize size = reader.size();
    if (!size.isEmpty() && !wanted.isEmpty())
        size.scale(wanted, Qt::KeepAspectRatio);
    constexpr int Most = ImageDecoder::MaxDrawingSide;
    if (size.width() > Most || size.height() > Most)
        size.scale(Most, Most, Qt::KeepAspectRatio);
    reader.setScaledSize(size.expandedTo({1, 1}));
    return reader.read();
}

/// Asked before Qt refuses it with a warning.
bool isTooLarge(const QSize& size)
{
    const qint64 most = qint64(QImageReader::allocationLimit()) * 1024 * 1024;
    return most > 0 && size.isValid() && qint64(size.width()) * size.height() > most / 4;
}

QImage decoded(QByteArray bytes, QSize wanted)
{
    if (looksLikeSvg(bytes))
        return drawnSvg(std::move(bytes), wanted);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    if (reader.format().startsWith("svg") || isTooLarge(reader.size()))
        return {};
    return reader.read();
}

/// "@2x" at its end says that the picture has two pixels for each unit of the screen.
int ratioInName(const QString& name)
{
    const QString end = QFileInfo(name).baseName().right(3);
    const bool isRatio = end.size() == 3 && end[0] == u'@' && end[2] == u'x';
    return isRatio && end[1] >= u'2' && end[1] <= u'9' ? end[1].unicode() - u'0' : 1;
}

class QtImageDecoder : public ImageDecoder
{
public:
    Pixmap decode(const Pixmap& source, Size<int> wanted) override
    {
        return source.isRaw() ? source : Qt2VX(decoded(encodedBytes(source), VX2Qt(wanted)));
    }
};
} // namespace

QImage toQImage(const Pixmap& pixmap)
{
    if (pixmap.isNull())
        return {};
    return pixmap.isRaw() ? fromRaw(pixmap) : decoded(encodedBytes(pixmap), {});
}

QByteArray bytesOfFile(const QString& name)
{
    // Opening something else than a file may wait, and reading it may never end. No file has a NUL
    // in its name, and Qt warns of it.
    if (name.contains(QChar(u'\0')) || !QFileInfo(name).isFile())
        return {};
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)
        || static_cast<quint64>(file.size()) > ImageDecoder::fileSizeLimit())
        return {};
    return file.read(file.size()); // it may be growing
}

QImage imageOfFile(const QString& name)
{
    QImage image = decoded(bytesOfFile(name), {});
    image.setDevicePixelRatio(ratioInName(name));
    return image;
}

QPixmap toQPixmap(const Pixmap& pixmap) { return QPixmap::fromImage(toQImage(pixmap)); }

Pixmap Qt2VX(const QImage& image)
{
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(argb.width())
                   * static_cast<std::size_t>(argb.height()));
    for (int y = 0; y < argb.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(argb.constScanLine(y));
        std::transform(line, line + argb.width(), std::back_inserter(pixels),
                       [](QRgb pixel) -> std::uint32_t { return pixel << 8 | pixel >> 24; });
    }
    return Pixmap(argb.width(), argb.height(), std::move(pixels), argb.devicePixelRatio());
}

Pixmap Qt2VX(const QPixmap& pixmap) { return Qt2VX(pixmap.toImage()); }
void installQtImageDecoder() { ImageDecoder::install(std::make_shared<QtImageDecoder>()); }

} // namespace VOXI
