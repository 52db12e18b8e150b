#include "voxi2_qt/kernel/qticon.h"
#include "voxi2_qt/kernel/qtimage.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <thread>

using namespace VOXI;

namespace {
constexpr std::uint32_t Red = 0xff0000ff;
constexpr std::uint32_t Blue = 0x0000ffff;

const char* const SquareSvg = R"(<svg xmlns="http://www.w3.org/2000/svg" width="20" height="10">
<rect width="20" height="10" fill="#00ff00"/></svg>)";

Pixmap filled(int width, int height, std::uint32_t rgba)
{
    return Pixmap(width, height,
                  std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), rgba));
}

ByteArray pngOf(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// An image decoder that counts how often it is asked.
class CountingDecoder : public ImageDecoder
{
public:
    Pixmap decode(const Pixmap&, Size<int> wanted) override
    {
        ++m_calls;
        return filled(wanted.width, wanted.height, Red);
    }
    int m_calls = 0;
};

class QtImages : public testing::Test
{
protected:
    void SetUp() override { installQtImageDecoder(); }
    void TearDown() override { ImageDecoder::install(nullptr); }
};
} // namespace

TEST_F(QtImages, PixelsComeBackUnchanged)
{
    const Pixmap pixmap(3, 2, {0x11223344, 0xffffff00, 0x000000ff, Red, Blue, 0x80808080});
    const QImage image = toQImage(pixmap);
    ASSERT_EQ(image.size(), QSize(3, 2));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(0x11, 0x22, 0x33, 0x44));
    EXPECT_EQ(image.pixelColor(1, 1), QColor(0, 0, 255));
    EXPECT_EQ(Qt2VX(image), pixmap);
    EXPECT_EQ(Qt2VX(toQPixmap(filled(4, 5, Red))), filled(4, 5, Red));
    EXPECT_TRUE(toQImage(Pixmap()).isNull());
    EXPECT_TRUE(toQPixmap(Pixmap()).isNull());
    EXPECT_TRUE(Qt2VX(QImage()).isNull());
}

TEST_F(QtImages, EncodedPicturesAreDecoded)
{
    const Pixmap encoded = Pixmap::fromData(pngOf(toQImage(filled(6, 4, Blue))));
    EXPECT_EQ(Qt2VX(toQImage(encoded)), filled(6, 4, Blue));
    EXPECT_EQ(ImageDecoder::installed()->decode(encoded, {100, 100}), filled(6, 4, Blue));
    EXPECT_TRUE(toQImage(Pixmap::fromData(ByteArray(std::string("no picture")))).isNull());
    EXPECT_TRUE(toQImage(Pixmap::fromFile("no/such/file.png")).isNull());
}

TEST_F(QtImages, FileNamesAreUtf8)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QString(QChar(0xe9)) + QStringLiteral(".png"));
    ASSERT_TRUE(toQImage(filled(2, 2, Red)).save(path));
    EXPECT_EQ(Qt2VX(toQImage(Pixmap::fromFile(path.toUtf8().toStdString()))), filled(2, 2, Red));
}

TEST_F(QtImages, DrawingsAreDrawnAtTheWantedSize)
{
    const Pixmap svg = Pixmap::fromData(ByteArray(std::string(SquareSvg)));
    EXPECT_EQ(toQImage(svg).size(), QSize(20, 10));
    // From another thread, as the compositor may be called from any.
    Pixmap drawn;
    std::thread([&] { drawn = ImageDecoder::installed()->decode(svg, {80, 80}); }).join();
    EXPECT_EQ(drawn, filled(80, 40, 0x00ff00ff));
}

TEST_F(QtImages, AnIconIsComposedForTheScreensPixels)
{
    Icon icon = Icon::fromPixmap(filled(16, 16, Red));
    icon.addPixmap(filled(16, 16, Blue), Icon::IconMode::Normal, Icon::IconState::On);
    icon.addPixmap(filled(16, 16, 0x00ff00ff), Icon::IconMode::Disabled);
    const QIcon qIcon = VX2Qt(icon);
    const QPixmap pixmap = qIcon.pixmap(QSize(16, 16), 2.0);
    EXPECT_EQ(pixmap.size(), QSize(32, 32));
    EXPECT_EQ(pixmap.devicePixelRatio(), 2.0);
    EXPECT_EQ(Qt2VX(pixmap), Pixmap(32, 32, filled(32, 32, Red).pixels(), 2));
    EXPECT_EQ(Qt2VX(qIcon.pixmap(QSize(16, 16), 1.0, QIcon::Normal, QIcon::On)),
              filled(16, 16, Blue));
    EXPECT_EQ(Qt2VX(qIcon.pixmap(QSize(16, 16), 1.0, QIcon::Disabled)), filled(16, 16, 0x00ff00ff));
    EXPECT_EQ(qIcon.availableSizes(), QList<QSize>{QSize(16, 16)});
    EXPECT_TRUE(VX2Qt(Icon()).isNull());
    // Without a picture of its own a disabled icon is made to look so.
    const QIcon plain = VX2Qt(Icon::fromPixmap(filled(16, 16, Red)));
    const QColor disabled =
        plain.pixmap(QSize(16, 16), 1.0, QIcon::Disabled).toImage().pixelColor(8, 8);
    EXPECT_EQ(disabled.saturation(), 0);
    EXPECT_LT(disabled.alpha(), 255);
    // A screen of a fractional scale gets its own pixels too.
    EXPECT_EQ(plain.pixmap(QSize(16, 16), 1.5).size(), QSize(24, 24));
    EXPECT_FALSE(qIcon.isNull());
}

TEST_F(QtImages, AnIconPaintsItselfCrisply)
{
    const QIcon icon = VX2Qt(Icon::fromPixmap(Pixmap::fromData(ByteArray(std::string(SquareSvg)))));
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::white);
    QPainter painter(&image);
    icon.paint(&painter, QRect(10, 10, 20, 20));
    painter.end();
    // 40 by 20 device pixels in the middle of the rectangle, with hard edges.
    EXPECT_EQ(image.pixelColor(20, 30), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(59, 49), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(19, 30), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(20, 29), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(59, 50), QColor(Qt::white));
}

TEST_F(QtImages, PicturesOfAnIconAreComposedOnce)
{
    const auto decoder = std::make_shared<CountingDecoder>();
    ImageDecoder::install(decoder);
    const Icon icon = Icon::fromFile("any.png");
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(VX2Qt(icon).pixmap(QSize(16, 16), 1.0).isNull());
        EXPECT_FALSE(VX2Qt(Icon(icon)).pixmap(QSize(32, 32), 1.0).isNull());
    }
    EXPECT_EQ(decoder->m_calls, 2);
    // Many sizes push the old ones out, but never give a wrong one.
    const QIcon qIcon = VX2Qt(icon);
    for (int size = 1; size <= 20; ++size)
        EXPECT_EQ(qIcon.pixmap(QSize(size, size), 1.0).size(), QSize(size, size));
    // An icon outlives its place among the recent ones.
    for (int i = 0; i < 100; ++i)
        VX2Qt(Icon::fromFile("other.png"));
    decoder->m_calls = 0;
    EXPECT_EQ(qIcon.pixmap(QSize(20, 20), 1.0).size(), QSize(20, 20));
    EXPECT_EQ(decoder->m_calls, 0);
}

TEST_F(QtImages, IconModesAndStates)
{
    EXPECT_EQ(VX2Qt(Icon::IconMode::Normal), QIcon::Normal);
    EXPECT_EQ(VX2Qt(Icon::IconMode::Disabled), QIcon::Disabled);
    EXPECT_EQ(VX2Qt(Icon::IconMode::Active), QIcon::Active);
    EXPECT_EQ(VX2Qt(Icon::IconMode::Selected), QIcon::Selected);
    EXPECT_EQ(VX2Qt(Icon::IconState::On), QIcon::On);
    EXPECT_EQ(VX2Qt(Icon::IconState::Off), QIcon::Off);
}
