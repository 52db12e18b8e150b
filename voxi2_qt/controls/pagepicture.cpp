#include "pagepicture.h"

#include "voxi2_qt/kernel/qtimage.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QXmlStreamReader>

#include <algorithm>

namespace VOXI {

namespace {

/// Whether some reader of pictures could take the bytes for a drawing. Those that are compressed
/// count as well.
bool mayBeDrawing(const QByteArray& bytes)
{
    const QByteArray start = bytes.first(std::min<qsizetype>(bytes.size(), 256));
    if (start.trimmed().startsWith('<') || start.startsWith("\xef\xbb\xbf")
        || start.startsWith("\x1f\x8b"))
        return true;
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader::imageFormat(&buffer).startsWith("svg");
}

bool refersElsewhere(const QXmlStreamAttribute& attribute)
{
    if (attribute.name() == QLatin1String("href"))
        return !attribute.value().startsWith(u'#');
    QString value = attribute.value().toString();
    return value.remove(u' ').remove(QLatin1String("url(#")).contains(QLatin1String("url("));
}

/// Whether a drawing keeps to itself; not so one that cannot be read as text, or brings words of
/// its own, which may grow without end.
bool keepsToItself(const QByteArray& drawing)
{
    QXmlStreamReader reader(drawing);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isDTD() && !reader.entityDeclarations().isEmpty())
            return false;
        if (!reader.isStartElement())
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        if (std::any_of(attributes.begin(), attributes.end(), &refersElsewhere))
            return false;
    }
    return !reader.hasError();
}

} // namespace

QPixmap pagePicture(const QByteArray& bytes)
{
    if (mayBeDrawing(bytes) && !keepsToItself(bytes))
        return {};
    return toQPixmap(
        Pixmap::fromData(ByteArray(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
}

QPixmap pagePicture(const Pixmap& picture)
{
    const ByteArray& data = picture.data();
    if (data.isEmpty())
        return toQPixmap(picture);
    return pagePicture(QByteArray::fromRawData(data.data(), static_cast<qsizetype>(data.size())));
}

QPixmap pictureToCome()
{
    QPixmap empty(1, 1);
    empty.fill(Qt::transparent);
    return empty;
}

QPixmap missingPicture()
{
    QPixmap frame(16, 16);
    frame.fill(Qt::transparent);
    QPainter painter(&frame);
    painter.setPen(QColor(150, 150, 150));
    painter.drawRect(0, 0, 15, 15);
    painter.drawLine(4, 4, 11, 11);
    painter.drawLine(4, 11, 11, 4);
    return frame;
}

} // namespace VOXI
