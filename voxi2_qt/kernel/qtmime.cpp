#include "voxi2_qt/kernel/qtmime.h"

#include "voxi2_qt/kernel/qtimage.h"
#include "voxi2_qt/kernel/qttext.h"
#include "voxi_util/textencoding.h"
#include "voxi_util/typeinfo.h"

#include <QBuffer>
#include <QImage>
#include <QStringList>
#include <QVariant>

#include <any>
#include <utility>

namespace VOXI {

namespace {
const QString& qtImageFormat()
{
    static const QString format = QStringLiteral("application/x-qt-image");
    return format;
}

const QString& imageFormat()
{
    static const QString format = QStringLiteral("application/x-voxi-image");
    return format;
}

QByteArray pngOf(const Pixmap& pixmap)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const QImage image = toQImage(pixmap);
    if (!image.isNull())
        image.save(&buffer, "PNG");
    return bytes;
}

QByteArray bytesOf(const any& value)
{
    if (const auto* bytes = std::any_cast<ByteArray>(&value))
        return {bytes->data(), static_cast<qsizetype>(bytes->size())};
    if (const auto* pixmap = std::any_cast<Pixmap>(&value))
        return pngOf(*pixmap);
    return QByteArray::fromStdString(utf8FromWide(TypeInfo::of(value).convertToUString(value)));
}

StringID idOf(const QString& format)
{
    return StringID(toStdString(format));
}

/// The toolkit's data as Qt sees them. They are turned into bytes only when somebody asks for them.
class ToolkitMimeData : public QMimeData
{
public:
    explicit ToolkitMimeData(VXMimeData2 data) : m_data(std::move(data)) {}

    const VXMimeData2& toolkitData() const { return m_data; }

    bool hasFormat(const QString& format) const override { return formats().contains(format); }

    QStringList formats() const override
    {
        QStringList formats;
        for (const StringID& format : m_data.formats())
            formats.append(toQString(format.getString()));
        if (!m_data.image().isNull())
            formats.append(qtImageFormat());
        return formats;
    }

protected:
    QVariant retrieveData(const QString& format, QMetaType) const override
    {
        if (format == qtImageFormat()) {
            const QImage image = toQImage(m_data.image());
            return image.isNull() ? QVariant() : QVariant(image);
        }
        const any value = m_data.data(idOf(format));
        return value.has_value() ? QVariant(bytesOf(value)) : QVariant();
    }

private:
    VXMimeData2 m_data;
};

/// Empty when there is none. Programs of this toolkit offer the encoded picture too.
any imageFrom(const QMimeData& data)
{
    const Pixmap decoded = Qt2VX(data.imageData().value<QImage>());
    if (!decoded.isNull())
        return decoded;
    const QByteArray bytes = data.data(imageFormat());
    const Pixmap encoded =
        Pixmap::fromData(ByteArray(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    return encoded.isNull() ? any() : any(encoded);
}
} // namespace

QMimeData* VX2Qt(const VXMimeData2& data)
{
    return new ToolkitMimeData(data);
}

VXMimeData2 Qt2VX(const QMimeData& data)
{
    if (const auto* own = dynamic_cast<const ToolkitMimeData*>(&data))
        return own->toolkitData();
    VXMimeData2 result;
    const QStringList formats = data.formats();
    for (const QString& format : formats) {
        const QString& name = format == qtImageFormat() ? imageFormat() : format;
        result.setData(idOf(name), anyFromMime(data, name));
    }
    return result;
}

any anyFromMime(const QMimeData& data, const QString& format)
{
    const bool isImage = format == imageFormat() || format == qtImageFormat();
    if (const auto* own = dynamic_cast<const ToolkitMimeData*>(&data))
        return own->toolkitData().data(idOf(isImage ? imageFormat() : format));
    if (isImage)
        return imageFrom(data);
    if (!data.hasFormat(format))
        return {};
    const QByteArray bytes = data.data(format);
    return ByteArray(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

} // namespace VOXI
