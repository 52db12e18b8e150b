#include "voxi2_qt/kernel/qtmime.h"

#include "trov/thread.h"
#include "voxi2_qt/kernel/qtcolor.h"
#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/kernel/qtimage.h"
#include "voxi2_qt/kernel/qtobject2.h"
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
#include <exception>
#include <functional>
#include <optional>
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

/// While one lives, the application makes data for Qt. When the last ends, others may have their
/// turn, once Qt has gone on.
class MimeDataMaking
{
public:
    MimeDataMaking() { ++s_count; }
    ~MimeDataMaking()
    {
        if (--s_count > 0)
            return;
        for (auto& [peer, function] : std::exchange(s_afterwards, {})) {
            if (peer)
                QMetaObject::invokeMethod(peer, std::move(function), Qt::QueuedConnection);
        }
    }
    MimeDataMaking(const MimeDataMaking&) = delete;
    MimeDataMaking& operator=(const MimeDataMaking&) = delete;

    static bool isActive() noexcept { return s_count > 0; }

    static void addAfterwards(QtObject2& peer, std::function<void()> function)
    {
        s_afterwards.emplace_back(peer.asQObject(), std::move(function));
    }

private:
    static inline int s_count = 0;
    static inline std::vector<std::pair<QPointer<QObject>, std::function<void()>>> s_afterwards;
};

/// The toolkit's data as Qt sees them. They are turned into bytes only when somebody asks for them.
class ToolkitMimeData : public QMimeData
{
public:
    ToolkitMimeData(VXMimeData2 data, QtObject2* peer)
        : m_data(std::move(data)),
          m_hasPeer(peer),
          m_peer(peer ? peer->asQObject() : nullptr)
    {}

    const VXMimeData2& toolkitData() const { return m_data; }

    bool hasFormat(const QString& format) const override { return formats().contains(format); }

    QStringList formats() const override
    {
        QStringList formats;
        for (const StringID& format : m_data.formats())
            formats.append(toQString(format.getString()));
        if (m_data.hasFormat(idOf(imageFormat())))
            formats.append(qtImageFormat());
        return formats;
    }

protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override
    {
        const QPointer<const QObject> self(this);
        const any value = made(toolkitFormat(format));
        QVariant result = asQtWantsIt(value, format, type);
        // Of what is not valid Qt asks once more, for other formats.
        return result.isValid() || self ? result : QVariant(QByteArray());
    }

private:
    /// What makes the value may do anything, end this too.
    any made(const QString& format) const
    {
        const QtObject2* const peer = peerOf(m_peer);
        if (m_hasPeer && !peer)
            return {};
        const VXMimeData2 data = m_data;
        const MimeDataMaking making;
        std::optional<QtHandlerFrame> frame;
        if (peer)
            frame.emplace(*peer);
        try {
            return data.data(idOf(format));
        } catch (...) {
            TROV::Thread::reportException(std::current_exception());
        }
        return {};
    }

    static QVariant asQtWantsIt(const any& value, const QString& format, QMetaType type)
    {
        if (!value.has_value())
            return {};
        if (format == qtImageFormat()) {
            const auto* const pixmap = std::any_cast<Pixmap>(&value);
            const QImage image = pixmap ? toQImage(*pixmap) : QImage();
            return image.isNull() ? QVariant() : QVariant(image);
        }
        if (type.id() == QMetaType::QColor) {
            VXMimeData2 data;
            data.setData("application/x-color", value);
            const auto color = data.color();
            return color ? QVariant(VX2Qt(*color)) : QVariant();
        }
        return bytesOf(value);
    }

    VXMimeData2 m_data;
    bool m_hasPeer;
    QPointer<QObject> m_peer;
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

ByteArray bytesIn(const QMimeData& data, const QString& format)
{
    const QByteArray bytes = data.data(format);
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// Those of encoded pictures, the one that keeps every pixel first.
QStringList pictureFormats(const QMimeData& data)
{
    QStringList pictures;
    const QStringList all = data.formats();
    for (const QString& format : all) {
        if (format == QLatin1String("image/png"))
            pictures.prepend(format);
        else if (format.startsWith(QLatin1String("image/")))
            pictures.append(format);
    }
    return pictures;
}

/// Empty when there is none. What another program has encoded is decoded here, since Qt would draw
/// any drawing. Programs of this toolkit offer the encoded picture too.
any imageFrom(const QMimeData& data)
{
    const QStringList formats = pictureFormats(data);
    for (const QString& format : formats) {
        const Pixmap decoded = Qt2VX(toQImage(Pixmap::fromData(bytesIn(data, format))));
        if (!decoded.isNull())
            return decoded;
    }
    const Pixmap set = formats.isEmpty() ? Qt2VX(data.imageData().value<QImage>()) : Pixmap();
    const Pixmap given = set.isNull() ? Pixmap::fromData(bytesIn(data, imageFormat())) : set;
    return given.isNull() ? any() : any(given);
}
} // namespace

QMimeData* VX2Qt(const VXMimeData2& data, QtObject2* peer)
{
    return new ToolkitMimeData(data, peer);
}

bool isMimeDataBeingMade() noexcept { return MimeDataMaking::isActive(); }

void afterMimeDataIsMade(QtObject2& peer, std::function<void()> function)
{
    MimeDataMaking::addAfterwards(peer, std::move(function));
}

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
    return bytesIn(data, format);
}

std::shared_ptr<const VXDragData2> dragDataOf(const QMimeData& data)
{
    if (const auto* own = dynamic_cast<const ToolkitMimeData*>(&data))
        return std::make_shared<OwnDragData>(own->toolkitData());
    return std::make_shared<ForeignDragData>(data);
}

} // namespace VOXI
