#include "../kernel/toolkit.h"
#include "imagesupport.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxhyperlink2.h"
#include "voxi2/controls/vximage2.h"
#include "voxi2/controls/vxsvgimage2.h"

#include <QEnterEvent>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QProxyStyle>
#include <QStyleOption>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace VOXI {
namespace {

constexpr Color Red(255, 0, 0);
constexpr Color Green(0, 255, 0);

QColor middle(const VXWidget2& widget)
{
    const QImage shown = qt(widget)->grab().toImage();
    return shown.pixelColor(shown.rect().center());
}

// Pixels ------------------------------------------------------------------------------------------

TEST(Image, showsAPixmapAndAMaskColourOverAll)
{
    VXImage2 image(filled(20, 10, 0xff0000ff));
    EXPECT_EQ(image.imageSize(), (Size<int>{20, 10}));
    qt(image)->resize(20, 10);
    EXPECT_EQ(middle(image), QColor(255, 0, 0));

    image.setHighlight(true, Color(0, 0, 255));
    image.setMaskColor(Green);
    const QImage masked = qt(image)->grab().toImage();
    QImage plain = masked;
    plain.fill(QColor(0, 255, 0));
    EXPECT_EQ(masked, plain) << "the highlight, too, is painted over";
    image.setMaskColor(Color(0, 0, 0, 0));
    EXPECT_EQ(middle(image), QColor(255, 0, 0));
    image.setMaskColor(Color(0, 0, 255, 128));
    EXPECT_GT(middle(image).red(), 0);
    EXPECT_GT(middle(image).blue(), 0);

    image.setMaskColor(Color(0, 0, 0, 0));
    image.setPixmap(Pixmap());
    EXPECT_EQ(image.imageSize(), (Size<int>{0, 0}));
}

TEST(Image, readsFilesInAnyEncodingAndLeavesOutTheirBackground)
{
    const QTemporaryDir folder;
    QImage drawn(20, 20, QImage::Format_RGB32);
    drawn.fill(Qt::white);
    for (int x = 5; x < 15; ++x) {
        for (int y = 5; y < 15; ++y)
            drawn.setPixelColor(x, y, Qt::red);
    }
    const QString path = folder.filePath(QStringLiteral("\u00e9\u20ac.png"));
    ASSERT_TRUE(drawn.save(path));
    VXImage2 image;
    image.setFile(path.toStdWString(), true);
    const QPixmap shown = dynamic_cast<QLabel&>(*qt(image)).pixmap(Qt::ReturnByValue);
    EXPECT_EQ(shown.size(), QSize(20, 20));
    EXPECT_EQ(shown.toImage().pixelColor(1, 1).alpha(), 0);
    EXPECT_EQ(shown.toImage().pixelColor(10, 10), QColor(Qt::red));
    image.setFile(std::u16string(reinterpret_cast<const char16_t*>(path.utf16())));
    EXPECT_FALSE(dynamic_cast<QLabel&>(*qt(image)).pixmap(Qt::ReturnByValue).hasAlpha());
    const QString fine = folder.filePath(QStringLiteral("fine@2x.png"));
    ASSERT_TRUE(drawn.save(fine));
    image.setFile(fine.toStdString());
    EXPECT_EQ(image.imageSize(), (Size<int>{20, 20}));
    EXPECT_EQ(qt(image)->sizeHint(), QSize(10, 10));
    for (const std::string& nothing : {std::string("/no/such/file"), std::string("/tmp\0x", 6),
                                       std::string(), std::string(5'000'000, 'x')}) {
        image.setFile(path.toStdWString());
        image.setFile(nothing);
        EXPECT_EQ(image.imageSize(), (Size<int>{0, 0}));
    }

    image.setFile(path.toStdWString());
    image.setScaleEnabled(true);
    qt(image)->resize(200, 200);
    EXPECT_EQ(qt(image)->grab().toImage().pixelColor(120, 120), QColor(Qt::red));
}

TEST(Image, isFittedInItsProportions)
{
    VXImage2 image(filled(40, 20, 0xff0000ff));
    qt(image)->resize(100, 100);
    const auto shown = [&] {
        const QImage all = qt(image)->grab().toImage();
        QRect red;
        for (int y = 0; y < all.height(); ++y) {
            for (int x = 0; x < all.width(); ++x) {
                if (all.pixelColor(x, y) == QColor(Qt::red))
                    red |= QRect(x, y, 1, 1);
            }
        }
        return red;
    };
    image.setScaling(ImageScaling::Fit);
    EXPECT_EQ(shown(), QRect(0, 25, 100, 50));
    image.setScaling(ImageScaling::Shrink);
    EXPECT_EQ(shown(), QRect(30, 40, 40, 20));
    EXPECT_EQ(qt(image)->sizeHint(), QSize(40, 20));
    EXPECT_EQ(qt(image)->minimumSizeHint(), QSize(1, 1));
    qt(image)->resize(30, 10);
    EXPECT_EQ(shown(), QRect(5, 0, 20, 10));
    image.setPixmap(filled(10, 40, 0xff0000ff));
    EXPECT_EQ(shown().height(), 10);
    image.setScaleEnabled(true);
    EXPECT_EQ(image.scaling(), ImageScaling::Stretch);
    EXPECT_EQ(shown(), QRect(0, 0, 30, 10));
}

/// Qt's style, which tells how often it has greyed a picture.
class GreyingStyle : public QProxyStyle
{
public:
    QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap,
                                const QStyleOption* option) const override
    {
        ++m_greyed;
        return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
    }
    mutable int m_greyed = 0;
};

TEST(Image, isGreyedOnceForEachLook)
{
    GreyingStyle style;
    VXImage2 image(filled(40, 20, 0xff0000ff));
    qt(image)->resize(101, 51);
    qt(image)->setStyle(&style);
    image.setEnabled(false);
    const auto paintings = [&] {
        style.m_greyed = 0;
        for (int i = 0; i < 3; ++i)
            qt(image)->grab();
        return style.m_greyed;
    };
    QLabel label; // Qt's, which looks the same
    label.resize(101, 51);
    label.setStyle(&style);
    label.setPixmap(dynamic_cast<QLabel&>(*qt(image)).pixmap(Qt::ReturnByValue));
    label.setEnabled(false);
    for (const ImageScaling each :
         {ImageScaling::Fit, ImageScaling::Shrink, ImageScaling::Stretch, ImageScaling::None}) {
        image.setScaling(each);
        EXPECT_EQ(paintings(), 1) << static_cast<int>(each);
        label.setScaledContents(each == ImageScaling::Stretch);
        const bool isQts = each == ImageScaling::Stretch || each == ImageScaling::None;
        EXPECT_EQ(qt(image)->grab().toImage() == label.grab().toImage(), isQts);
    }
    image.setPixmap(filled(40, 20, 0x00ff00ff));
    EXPECT_EQ(paintings(), 1);
    qt(image)->setPalette(QPalette(Qt::green));
    EXPECT_EQ(paintings(), 1);
    EXPECT_EQ(paintings(), 0);
    image.setEnabled(true);
    EXPECT_EQ(paintings(), 0);
    qt(image)->setStyle(nullptr);
}

// Drawings ----------------------------------------------------------------------------------------

TEST(SvgImage, keepsItsProportionsAndGivesPixmaps)
{
    VXSvgImage2 image;
    const QSize first = qt(image)->size();
    image.setHeight(50);
    EXPECT_EQ(qt(image)->size(), first) << "nothing is loaded";
    EXPECT_TRUE(image.pixmap(30).isNull());
    image.setContents(bytes(svg("", "width='200' height='0'")));
    image.setHeight(50);
    EXPECT_EQ(qt(image)->size(), first);
    EXPECT_TRUE(image.pixmap(30).isNull());

    image.setContents(bytes(GreenSvg));
    EXPECT_EQ(image.imageSize(), (Size<int>{200, 100}));
    EXPECT_EQ(image.pixmap(30), filled(60, 30, 0x00ff00ff));
    EXPECT_TRUE(image.pixmap(0).isNull()) << "no height was set yet";
    image.setHeight(50);
    EXPECT_EQ(qt(image)->size(), QSize(100, 50));
    EXPECT_EQ(image.pixmap(-1), filled(100, 50, 0x00ff00ff));
    EXPECT_EQ(image.pixmap(0).size(), (Size<int>{200, 100}));
    EXPECT_TRUE(image.pixmap(-2).isNull());
    EXPECT_TRUE(image.pixmap(1'000'000).isNull()) << "of too many pixels";
    EXPECT_TRUE(image.pixmap(INT_MAX).isNull());
    EXPECT_EQ(middle(image), QColor(0, 255, 0));

    image.setHeight(-5);
    EXPECT_EQ(qt(image)->size(), QSize(100, 50));
    image.setHeight(INT_MAX);
    EXPECT_LE(qt(image)->height(), QWIDGETSIZE_MAX);
    // The proportions stay.
    image.setContents(bytes(svg("", "width='10' height='100'")));
    image.setHeight(50);
    EXPECT_EQ(qt(image)->size(), QSize(100, 50));

    std::atomic<bool> isOver = false;
    const std::jthread worker([&] {
        image.setContents(bytes(GreenSvg));
        EXPECT_EQ(image.pixmap(20).size(), (Size<int>{40, 20}));
        isOver = true;
    });
    EXPECT_TRUE(waitFor([&] { return isOver.load(); }));
    image.setContents(nullptr, 5);
    EXPECT_EQ(image.imageSize(), (Size<int>{0, 0}));
}

TEST(SvgImage, readsFilesAndIsAsSharpAsTheScreen)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("\u00e9.svg"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(svg("<rect width='100' height='100' fill='#00ff00'/>").c_str());
    file.close();
    VXSvgImage2 image;
    image.setFile(path.toStdWString());
    image.setHeight(50);
    QImage shown(200, 100, QImage::Format_ARGB32_Premultiplied);
    shown.setDevicePixelRatio(2);
    qt(image)->render(&shown);
    EXPECT_EQ(shown.pixelColor(99, 50), QColor(0, 255, 0)) << "the edge is no blend";
    EXPECT_NE(shown.pixelColor(100, 50), QColor(0, 255, 0));
    EXPECT_EQ(spokenName(image), QString());
    image.setToolTip("a square");
    EXPECT_EQ(spokenName(image), QStringLiteral("a square"));
    image.setFile(folder.path().toStdWString());
    EXPECT_EQ(image.imageSize(), (Size<int>{0, 0})) << "a folder";
}

// Links -------------------------------------------------------------------------------------------

class HyperLink : public testing::Test
{
protected:
    QColor color() const { return qt(m_link)->palette().color(QPalette::Active, role()); }
    QPalette::ColorRole role() const { return qt(m_link)->foregroundRole(); }

    void enter()
    {
        QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(qt(m_link), &event);
    }
    void leave()
    {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(qt(m_link), &event);
    }

    VXPanel2 m_panel;
    VXHyperLink2& m_link = *new VXHyperLink2(L"a <b>link</b>", &m_panel);
    Log<VXHyperLinkEvent2> m_clicked{m_link.clicked()};
};

TEST_F(HyperLink, tellsByItsColourWhereThePointerIsAndWhetherItWasClicked)
{
    EXPECT_TRUE(qt(m_link)->font().underline());
    EXPECT_EQ(qt(m_link)->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(spokenName(m_link), QStringLiteral("a <b>link</b>"));
    m_link.setLinkColor(LinkMode::Visited, Color(1, 2, 3, 4));
    EXPECT_EQ(m_link.linkColor(LinkMode::Visited), Color(1, 2, 3, 4));
    EXPECT_EQ(m_link.linkColor(LinkMode::Hovered), Color(0, 0, 255));
    EXPECT_EQ(m_link.linkColor(LinkMode(77)), Color()) << "none was set";
    EXPECT_EQ(color(), QColor(Qt::darkBlue));
    enter();
    EXPECT_EQ(color(), QColor(Qt::blue));
    leave();
    EXPECT_EQ(color(), QColor(Qt::darkBlue));

    enter();
    QTest::mouseClick(qt(m_link), Qt::RightButton);
    EXPECT_TRUE(m_clicked.isEmpty());
    EXPECT_FALSE(m_link.isVisited());
    QTest::mouseClick(qt(m_link), Qt::LeftButton);
    EXPECT_EQ(m_clicked.only().link(), &m_link);
    EXPECT_TRUE(m_link.isVisited());
    EXPECT_EQ(color(), QColor(Qt::blue)) << "until the pointer leaves";
    m_link.setLinkColor(LinkMode::Normal, Red);
    EXPECT_EQ(color(), QColor(Qt::blue));
    leave();
    EXPECT_EQ(color(), QColor(1, 2, 3)) << "visited, and opaque";
}

TEST_F(HyperLink, takesAColourAtOnceInItsMode)
{
    m_link.setLinkColor(LinkMode::Normal, Red);
    EXPECT_EQ(color(), QColor(255, 0, 0));
    m_link.imitateClick();
    EXPECT_EQ(m_clicked.count(), 1);
    EXPECT_EQ(color(), QColor(255, 0, 0));
}

TEST_F(HyperLink, isReachedAndFollowedByKeys)
{
    m_panel.show();
    m_link.show();
    m_panel.setActiveWindow();
    ASSERT_TRUE(waitFor([&] { return m_panel.isActiveWindow(); }));
    QTest::keyClick(qt(m_panel), Qt::Key_Tab);
    ASSERT_TRUE(m_link.hasFocus());
    const QImage focused = qt(m_link)->grab().toImage();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        QTest::keyClick(qt(m_link), key);
        EXPECT_TRUE(m_clicked.takeOne()) << key;
    }
    QTest::keyClick(qt(m_link), Qt::Key_A);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QString(), true);
    QCoreApplication::sendEvent(qt(m_link), &held);
    EXPECT_TRUE(m_clicked.isEmpty());
    qt(m_link)->clearFocus();
    EXPECT_NE(focused, qt(m_link)->grab().toImage()) << "the focus is shown";
    Log panelPressed(m_panel.mousePressed());
    QTest::mouseClick(qt(m_link), Qt::LeftButton);
    EXPECT_TRUE(panelPressed.isEmpty());
    EXPECT_TRUE(m_clicked.takeOne());
}

TEST_F(HyperLink, mayGoInItsOwnClick)
{
    m_link.clicked().connect(&m_panel, [this] { delete &m_link; });
    QTest::mouseClick(qt(m_link), Qt::LeftButton);
    EXPECT_EQ(m_clicked.count(), 1);
    runDeletions();
}

} // namespace
} // namespace VOXI
