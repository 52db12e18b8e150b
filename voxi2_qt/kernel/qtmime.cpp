#include "voxi2_qt/kernel/qtmime.h"

#include "voxi2_qt/kernel/qtimage.h"
#include "voxi2_qt/kernel/qttext.h"
#include "voxi_util/textencoding.h"
#include "voxi_util/typeinfo.h"

#include <QBuffer>
#include <QImage>
#include <QPointer>
#include <QStringList>
#include <QThread>
#include <QVariant>

#include <algorithm>
#include <any>
#include <utility>
#include <vector>

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

/// The toolkit has a name of its own for what Qt calls an image.
const QString& toolkitFormat(const QString& format)
{
    return format == qtImageFormat() ? imageFormat() : format;
}

StringID idOf(const QString& format) { return StringID(toStdString(format)); }

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

/// Dragged inside this program.
class OwnDragData : public VXDragData2
{
public:
    explicit OwnDragData(VXMimeData2 data) : m_data(std::move(data)) {}

    std::vector<StringID> formats() const override { return m_data.formats(); }
    any data(StringID format) const override { return m_data.data(format); }

private:
    VXMimeData2 m_data;
};

/// Dragged out of another program, or by Qt code that knows nothing of the toolkit.
class ForeignDragData : public VXDragData2
{
public:
    explicit ForeignDragData(const QMimeData& data) : m_data(&data) {}

    std::vector<StringID> formats() const override
    {
        std::vector<StringID> formats;
        if (!isWithinReach())
            return formats;
        const QStringList names = m_data->formats();
        for (const QString& format : names) {
            const StringID id = idOf(toolkitFormat(format));
            if (std::find(formats.begin(), formats.end(), id) == formats.end())
                formats.push_back(id);
        }
        return formats;
    }

    any data(StringID format) const override
    {
        return isWithinReach() ? anyFromMime(*m_data, toQString(format.getString())) : any();
    }

private:
    // The thread first: on another one the pointer may change while it is looked at.
    bool isWithinReach() const { return QThread::currentThread() == m_thread && m_data; }

    const QThread* m_thread = QThread::currentThread();
    QPointer<const QMimeData> m_data;
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

QMimeData* VX2Qt(const VXMimeData2& data) { return new ToolkitMimeData(data); }

VXMimeData2 Qt2VX(const QMimeData& data)
{
    if (const auto* own = dynamic_cast<const ToolkitMimeData*>(&data))
        return own->toolkitData();
    VXMimeData2 result;
    const QStringList formats = data.formats();
    for (const QString& format : formats) {
        const QString& name = toolkitFormat(format);
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

std::shared_ptr<const VXDragData2> dragDataOf(const QMimeData& data)
{
    if (const auto* own = dynamic_cast<const ToolkitMimeData*>(&data))
        return std::make_shared<OwnDragData>(own->toolkitData());
    return std::make_shared<ForeignDragData>(data);
}

} // namespace VOXI
