// Pictures and drawings that nobody should be shown, and what must be shown nevertheless.

#include "../kernel/toolkit.h"
#include "imagesupport.h"
#include "voxi2/controls/vximage2.h"
#include "voxi2/controls/vxsvgimage2.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <zlib.h>

namespace VOXI {
namespace {

struct Hostile
{
    const char* m_name;
    std::function<std::string()> m_text; ///< made when it is needed: some take long

    friend std::ostream& operator<<(std::ostream& out, const Hostile& hostile)
    {
        return out << hostile.m_name;
    }
};

std::string repeated(const std::string& text, int times)
{
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

std::string encoded(const std::string& text) { return bytes(text).toBase64(); }

/// The head of a picture that says that it is 30 000 pixels wide and high.
std::string hugePng()
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    QImage pixel(1, 1, QImage::Format_ARGB32);
    pixel.fill(Qt::red);
    pixel.save(&buffer, "PNG");
    png.replace(16, 8, QByteArray("\0\0\x75\x30\0\0\x75\x30", 8));
    uLong sum = crc32(0, reinterpret_cast<const Bytef*>(png.constData()) + 12, 17);
    for (int i = 0; i < 4; ++i)
        png[29 + i] = static_cast<char>(sum >> (24 - 8 * i));
    return png.toStdString();
}

/// Each element draws the one before ten times.
std::string avalanche()
{
    std::string text = "<rect id='g0' width='1' height='1'/>";
    for (int i = 1; i <= 10; ++i) {
        const std::string use = "<use xlink:href='#g" + std::to_string(i - 1) + "'/>";
        text += "<g id='g" + std::to_string(i) + "'>" + repeated(use, 10) + "</g>";
    }
    return text;
}

std::string chain()
{
    std::string text = "<rect id='g0' width='1' height='1'/>";
    for (int i = 1; i <= 5000; ++i)
        text += "<g id='g" + std::to_string(i) + "'><use xlink:href='#g" + std::to_string(i - 1)
                + "'/></g>";
    return text;
}

std::string laughs()
{
    std::string text = "<!DOCTYPE svg [<!ENTITY a0 'ha'>";
    for (int i = 1; i <= 12; ++i)
        text += "<!ENTITY a" + std::to_string(i) + " '"
                + repeated("&a" + std::to_string(i - 1) + ";", 10) + "'>";
    return text + "]>" + svg("<text>&a12;</text>");
}

std::string packed(const std::string& text, int times)
{
    z_stream stream{};
    EXPECT_EQ(deflateInit2(&stream, 9, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY), Z_OK);
    std::string result;
    std::array<char, 65536> part;
    for (int i = 0; i < times; ++i) {
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
        stream.avail_in = static_cast<uInt>(text.size());
        do {
            stream.next_out = reinterpret_cast<Bytef*>(part.data());
            stream.avail_out = part.size();
            deflate(&stream, i + 1 == times ? Z_FINISH : Z_NO_FLUSH);
            result.append(part.data(), part.size() - stream.avail_out);
        } while (stream.avail_out == 0);
    }
    deflateEnd(&stream);
    return result;
}

std::vector<Hostile> hostiles()
{
    const std::string image = "<image width='9' height='9' xlink:href='";
    return {
        {"empty", [=] { return ""; }},
        {"noDrawing", [=] { return "<html/>"; }},
        {"truncated", [=] { return GreenSvg.substr(0, GreenSvg.size() - 3); }},
        {"zeros", [=] { return std::string(1000, '\0'); }},
        {"entities", [=] { return laughs(); }},
        {"manyEntities",
         [=] {
             return "<!DOCTYPE svg [<!ENTITY a '" + std::string(4000, 'x') + "'>]>"
                    + svg("<text>" + repeated("&a;", 100'000) + "</text>");
         }},
        {"itself", [=] { return svg("<g id='a'><use xlink:href='#a'/></g>"); }},
        {"eachOther",
         [=] {
             return svg("<g id='a'><use xlink:href='#b'/></g><g id='b'><use xlink:href='#a'/>"
                        "</g>");
         }},
        {"gradients",
         [=] {
             return svg("<linearGradient id='a' xlink:href='#b'/><linearGradient id='b' "
                        "xlink:href='#a'/><rect width='9' height='9' fill='url(#a)'/>");
         }},
        {"avalanche", [=] { return svg(avalanche()); }},
        {"chain", [=] { return svg(chain()); }},
        {"deep", [=] { return svg(repeated("<g>", 100'000) + repeated("</g>", 100'000)); }},
        {"many", [=] { return svg(repeated("<g/>", 1'000'000)); }},
        {"longPath", [=] { return svg("<path d='M0 0" + repeated("h1 ", 5'000'000) + "'/>"); }},
        {"file", [=] { return svg(image + "FILE'/>"); }},
        {"fileUrl", [=] { return svg(image + "file://FILE'/>"); }},
        {"fileBesideData",
         [=] { return svg(image + "data:image/png,../../../../../../../../FILE'/>"); }},
        {"network", [=] { return svg(image + "http://localhost:9/x.png'/>"); }},
        {"styleSheet", [=] { return "<?xml-stylesheet type='text/css' href='FILE'?>" + GreenSvg; }},
        {"useOfAFile", [=] { return svg("<use xlink:href='FILE#a'/>"); }},
        {"drawingInData",
         [=] {
             return svg(image + "data:image/svg+xml;base64," + encoded(svg(image + "FILE'/>"))
                        + "'/>");
         }},
        {"hugePicture",
         [=] { return svg(image + "data:image/png;base64," + encoded(hugePng()) + "'/>"); }},
        {"bomb", [=] { return packed(std::string(1 << 20, ' '), 512); }},
    };
}

/// What this program has taken at most until now, in kilobytes.
[[maybe_unused]] long mostMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

class HostileDrawing : public testing::TestWithParam<Hostile>
{};

TEST_P(HostileDrawing, isNotShownAnywhere)
{
    const QTemporaryDir folder;
    const QString picture = folder.filePath(QStringLiteral("red.png"));
    QImage red(9, 9, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(picture));
    std::string text = GetParam().m_text();
    if (const std::size_t at = text.find("FILE"); at != std::string::npos)
        text.replace(at, 4, picture.toStdString());

    VXSvgImage2 drawing;
    drawing.setContents(bytes(text));
    EXPECT_EQ(drawing.imageSize(), (Size<int>{0, 0}));
    drawing.setHeight(50);
    EXPECT_TRUE(drawing.pixmap(50).isNull());
    EXPECT_TRUE(toQImage(Pixmap::fromData(bytes(text))).isNull()) << "as an icon";
    VXImage2 image(Pixmap::fromData(bytes(text)));
    EXPECT_EQ(image.imageSize(), (Size<int>{0, 0}));
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LT(mostMemory(), 256 * 1024);
#endif
}

INSTANTIATE_TEST_SUITE_P(All, HostileDrawing, testing::ValuesIn(hostiles()),
                         [](const auto& tested) { return tested.param.m_name; });

TEST(SvgImage, showsWhatPeopleMake)
{
    const std::vector<std::string> drawings = {
        "<?xml version='1.0'?><!DOCTYPE svg PUBLIC '-//W3C//DTD SVG 1.1//EN' "
        "'http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd' [<!ENTITY ns "
        "'http://www.w3.org/2000/svg'>]><svg xmlns='&ns;' width='200' height='100'><rect "
        "width='200' height='100' fill='#00ff00'/></svg>",
        svg("<defs><rect id='r' width='100' height='100' fill='#00ff00'/></defs><use "
            "xlink:href='#r'/><use xlink:href='#r' x='100'/>"),
        svg("<style>.g{fill:#00ff00}</style><a xlink:href='http://localhost/'><rect class='g' "
            "width='200' height='100'/></a>"),
        svg("<linearGradient id='a'><stop stop-color='#00ff00'/></linearGradient><linearGradient "
            "id='b' xlink:href='#a'/><rect width='200' height='100' fill='url(#b)'/>"),
        svg(repeated("<g>", 90) + "<rect width='200' height='100' fill='#00ff00'/>"
            + repeated("</g>", 90)),
        packed(GreenSvg, 1),
    };
    VXSvgImage2 image;
    for (const std::string& drawing : drawings) {
        image.setContents(bytes(drawing));
        EXPECT_EQ(image.pixmap(20), filled(40, 20, 0x00ff00ff)) << drawing;
    }
    // As large as a drawing may say it is.
    image.setContents(bytes(svg("", "width='30000' height='15000'")));
    EXPECT_EQ(image.imageSize(), (Size<int>{4096, 2048}));
}

TEST(Image, refusesPicturesBeyondMeasure)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("huge.png"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(hugePng()));
    file.close();
    VXImage2 image;
    image.setFile(path.toStdWString());
    EXPECT_EQ(image.imageSize(), (Size<int>{0, 0}));
    image.setFile("/dev/zero");
    EXPECT_EQ(image.imageSize(), (Size<int>{0, 0}));
}

} // namespace
} // namespace VOXI
