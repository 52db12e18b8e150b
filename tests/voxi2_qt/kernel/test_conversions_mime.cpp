#include "voxi2_qt/kernel/qtimage.h"
#include "voxi2_qt/kernel/qtmime.h"
#include "voxi_util/color.h"

#include <QImage>
#include <QUrl>

#include <gtest/gtest.h>
#include <memory>
#include <thread>

using namespace VOXI;

namespace {
struct OnlyHere
{
    int value = 0;
};

Pixmap picture() { return Pixmap(2, 1, {0xff0000ff, 0x0000ffff}); }

/// Data of another program, which is asked for each format by itself.
class ForeignMimeData : public QMimeData
{
public:
    QStringList formats() const override
    {
        return {QStringLiteral("text/plain"), QStringLiteral("application/x-qt-image"),
                QStringLiteral("application/x-voxi-image")};
    }
    mutable int m_fetched = 0;

protected:
    QVariant retrieveData(const QString& format, QMetaType) const override
    {
        ++m_fetched;
        return format == QStringLiteral("text/plain") ? QVariant(QByteArray("x")) : QVariant();
    }
};

const QString TextFormat = QStringLiteral("text/plain");
const QString ImageFormat = QStringLiteral("application/x-voxi-image");
} // namespace

TEST(ConvertMime, OtherProgramsSeeEveryFormatAsBytes)
{
    const std::string bytes("\0\xff bytes", 8);
    VXMimeData2 data;
    data.setData("application/x-own", ByteArray(bytes));
    data.setText(L"\u20ac");
    data.setUris({"file:///one", "file:///two"});
    data.setData("application/x-number", any(42));
    data.setData("application/x-text", any(std::string("\xe9")));
    data.setData("application/x-here", any(OnlyHere{7}));
    data.setData("application/x-empty", ByteArray());
    data.setImage(picture());
    const std::unique_ptr<QMimeData> qt(VX2Qt(data));

    const QStringList formats = {
        QStringLiteral("application/x-own"),     TextFormat,
        QStringLiteral("text/uri-list"),         QStringLiteral("application/x-number"),
        QStringLiteral("application/x-text"),    QStringLiteral("application/x-here"),
        QStringLiteral("application/x-empty"),   ImageFormat,
        QStringLiteral("application/x-qt-image")};
    EXPECT_EQ(qt->formats(), formats);
    EXPECT_TRUE(qt->hasFormat(formats[0]));
    EXPECT_FALSE(qt->hasFormat(QStringLiteral("text/html")));
    EXPECT_EQ(qt->data(formats[0]).toStdString(), bytes);
    EXPECT_EQ(qt->text(), QString(QChar(0x20ac)));
    EXPECT_EQ(qt->urls(), (QList<QUrl>{QUrl(QStringLiteral("file:///one")),
                                       QUrl(QStringLiteral("file:///two"))}));
    EXPECT_EQ(qt->data(formats[3]), QByteArray("42"));
    EXPECT_EQ(qt->data(formats[4]), QByteArray("\xc3\xa9"));
    EXPECT_TRUE(qt->data(formats[5]).isEmpty());
    EXPECT_EQ(Qt2VX(qt->imageData().value<QImage>()), picture());
    EXPECT_EQ(Qt2VX(QImage::fromData(qt->data(ImageFormat), "PNG")), picture());
}

TEST(ConvertMime, WithinTheProgramTheValuesThemselvesComeBack)
{
    VXMimeData2 data;
    data.setData("application/x-here", any(OnlyHere{7}));
    data.setData("application/x-color", any(Color(1, 2, 3)));
    data.setImage(picture());
    const std::unique_ptr<QMimeData> qt(VX2Qt(data));
    EXPECT_EQ(Qt2VX(*qt), data);
    const any here = anyFromMime(*qt, QStringLiteral("application/x-here"));
    ASSERT_NE(std::any_cast<OnlyHere>(&here), nullptr);
    EXPECT_EQ(std::any_cast<OnlyHere>(here).value, 7);
    EXPECT_EQ(std::any_cast<Pixmap>(anyFromMime(*qt, ImageFormat)), picture());
    EXPECT_EQ(std::any_cast<Pixmap>(anyFromMime(*qt, QStringLiteral("application/x-qt-image"))),
              picture());
    EXPECT_FALSE(anyFromMime(*qt, TextFormat).has_value());
}

TEST(ConvertMime, DataOfOtherProgramsAreBytes)
{
    QMimeData foreign;
    foreign.setText(QString(QChar(0x20ac)));
    foreign.setHtml(QStringLiteral("<b>x</b>"));
    foreign.setData(QStringLiteral("application/x-raw"), QByteArray("\0\1", 2));
    const VXMimeData2 data = Qt2VX(foreign);
    ASSERT_EQ(data.formats().size(), 3u);
    EXPECT_EQ(data.formats()[0].getString(), "text/plain");
    EXPECT_EQ(data.text(), L"\u20ac");
    EXPECT_EQ(data.html(), L"<b>x</b>");
    EXPECT_EQ(data.bytes("application/x-raw").bytes(), std::string("\0\1", 2));
    EXPECT_FALSE(anyFromMime(foreign, ImageFormat).has_value());
    EXPECT_TRUE(Qt2VX(QMimeData()).isEmpty());
}

TEST(ConvertMime, PicturesOfOtherPrograms)
{
    QMimeData qtImage;
    qtImage.setImageData(toQImage(picture()));
    EXPECT_EQ(Qt2VX(qtImage).image(), picture());
    EXPECT_EQ(Qt2VX(qtImage).formats().size(), 1u);

    // Another program of the toolkit: the encoded picture under the toolkit's own name.
    VXMimeData2 sent;
    sent.setImage(picture());
    const std::unique_ptr<QMimeData> sender(VX2Qt(sent));
    QMimeData received;
    received.setData(ImageFormat, sender->data(ImageFormat));
    EXPECT_EQ(Qt2VX(toQImage(Qt2VX(received).image())), picture());
}

TEST(ConvertMime, DrawingsOfOtherProgramsAreLookedAtFirst)
{
    const auto drawn = [](const QByteArray& inside) {
        QMimeData data;
        data.setData(QStringLiteral("image/svg+xml"),
                     "<svg xmlns='http://www.w3.org/2000/svg' width='2' height='1'>" + inside
                         + "</svg>");
        return Qt2VX(data).data("image/svg+xml").has_value() ? anyFromMime(data, ImageFormat)
                                                             : any();
    };
    EXPECT_TRUE(drawn("<rect width='2' height='1'/>").has_value());
    EXPECT_FALSE(drawn("<image xmlns:l='x' l:href='/any.png'/>").has_value());
}

TEST(ConvertMime, DraggedDataAreFetchedWhenTheyAreAskedFor)
{
    auto foreign = std::make_unique<ForeignMimeData>();
    VXDragEvent2::Details details;
    details.data = dragDataOf(*foreign);
    const VXDragEvent2 event(nullptr, WidgetEvent::DragMove, details);
    EXPECT_EQ(event.formats(), (std::vector<StringID>{"text/plain", "application/x-voxi-image"}));
    EXPECT_EQ(foreign->m_fetched, 0);
    EXPECT_EQ(std::any_cast<ByteArray>(event.data("text/plain")), ByteArray(std::string("x")));
    EXPECT_EQ(foreign->m_fetched, 1);
    EXPECT_EQ(event.mimeData().text(), L"x");

    // Out of reach: on another thread, and when the drag is over.
    std::thread([&event] {
        EXPECT_TRUE(event.formats().empty());
        EXPECT_FALSE(event.data("text/plain").has_value());
    }).join();
    foreign.reset();
    EXPECT_TRUE(event.formats().empty());
    EXPECT_FALSE(event.data("text/plain").has_value());

    EXPECT_TRUE(VXDragEvent2(nullptr, WidgetEvent::DragLeave).mimeData().isEmpty());
}

TEST(ConvertMime, DataDraggedInsideTheProgramStayReadable)
{
    VXMimeData2 sent;
    sent.setData("application/x-here", any(OnlyHere{7}));
    VXDragEvent2::Details details;
    details.data = dragDataOf(*std::unique_ptr<QMimeData>(VX2Qt(sent)));
    const VXDragEvent2 event(nullptr, WidgetEvent::Drop, details);
    std::thread([&event] {
        EXPECT_EQ(std::any_cast<OnlyHere>(event.data("application/x-here")).value, 7);
        EXPECT_EQ(event.formats().size(), 1u);
    }).join();
}
