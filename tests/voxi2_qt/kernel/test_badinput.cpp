// What nobody should pass, and what comes of it.

#include "kinds.h"
#include "support/qtwarnings.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2_qt/kernel/qticon.h"
#include "voxi2_qt/kernel/qtimage.h"

#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QPushButton>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace VOXI {
namespace {

/// The address of an object that has gone.
template <class T>
T* dead()
{
    auto object = std::make_unique<T>();
    T* const address = object.get();
    object.reset();
    runDeletions();
    // Something else may live there by now, but no abstract object.
    return VXObject::isObjectValid(address) ? nullptr : address;
}

TEST(BadInput, nullAndDeadObjectsAreIgnored)
{
    VXWindow2 window;
    auto* panel = new VXPanel2(&window);
    auto* text = new VXText2(panel);
    auto* layout = new VXBoxLayout2(panel);
    auto* buddy = new VXButton2(panel);
    layout->addWidget(text);
    text->setBuddy(buddy);
    text->setFocusProxy(buddy);
    window.setCentralWidget(panel);

    auto* const gone = dead<VXButton2>();
    ASSERT_NE(gone, nullptr);
    layout->addWidget(gone);
    layout->addWidget(gone, 1);
    layout->insertWidget(gone, 0);
    layout->removeWidget(gone);
    layout->setStretchFactor(gone, 2);
    layout->setParent(gone);
    text->setParent(gone);
    EXPECT_EQ(text->parent(), panel);
    EXPECT_EQ(qt(*panel)->layout()->count(), 1);

    layout->addWidget(nullptr);
    layout->insertWidget(nullptr, 7, -1);
    layout->removeWidget(nullptr);
    layout->setStretchFactor(nullptr, 1);
    EXPECT_EQ(qt(*panel)->layout()->count(), 1);
    text->setBuddy(nullptr);
    text->setFocusProxy(nullptr);
    EXPECT_EQ(text->buddy(), nullptr);
    EXPECT_EQ(text->focusProxy(), nullptr);
    window.setCentralWidget(nullptr);
    EXPECT_EQ(window.centralWidget(), nullptr);
    EXPECT_NE(lookup(panel), nullptr);
}

TEST(BadInput, objectsOfTheWrongKindAreIgnored)
{
    VXPanel2 panel;
    auto* layout = new VXBoxLayout2(&panel);
    auto* other = new VXBoxLayout2(&panel);
    auto* button = new VXButton2(&panel);
    // Neither is a widget; the panel cannot lie inside itself.
    layout->addWidget(other);
    layout->addWidget(new VXDragDelegate2(&panel));
    layout->addWidget(&panel);
    layout->addWidget(&panel, 1);
    EXPECT_EQ(qt(panel)->layout()->count(), 0);
    other->addWidget(&panel);
    other->setParent(&panel);
    layout->addWidget(button);
    layout->insertWidget(button, 99, -3);
    layout->insertWidget(button, -99);
    EXPECT_EQ(qt(panel)->layout()->indexOf(qt(*button)), 0);
    layout->setMargins(VXRect<int>::margins(-1, -1, -1, -1));
    layout->setSpacing(-7);
    layout->insertSpacer(50, -1, 0);
}

TEST(BadInput, nothingComesToLieInsideItself)
{
    // Owned by nobody, so that only the widgets' own tree forbids it.
    VXWindow2 window;
    VXPanel2 outer;
    VXPanel2 inner;
    VXBoxLayout2 layout;
    layout.setParent(&outer);
    layout.addWidget(&inner);
    window.setCentralWidget(&outer);
    ASSERT_EQ(inner.peerParent(), &outer);
    inner.setParent(nullptr);
    outer.setParent(nullptr);
    layout.addWidget(&inner);
    outer.setParent(&inner);
    EXPECT_EQ(qt(outer)->parentWidget(), nullptr);
    VXWindow2 below(&outer);
    below.setCentralWidget(&outer);
    below.setCentralWidget(&below);
    EXPECT_EQ(below.centralWidget(), nullptr);
    outer.setParent(nullptr);
}

TEST(BadInput, numbersOutOfRangeHaveADefinedEffect)
{
    VXPanel2 panel;
    auto* text = new VXText2(&panel);
    text->imitate(static_cast<WidgetEvent>(77));
    text->imitateFocus(static_cast<WidgetEvent>(77));
    text->setColor(static_cast<ColorRole>(9), Color());
    text->setFocusPolicy(static_cast<FocusPolicy>(1234));
    text->setSizePolicy(static_cast<Policy>(-3), static_cast<Policy>(200));
    text->setCursor(Cursor(static_cast<CursorShape::Standard>(-4)));
    text->setAlignment(static_cast<AlignmentFlag>(0xffffffffu));
    text->restoreGeometry("*** no base64 ***");
    text->restoreGeometry(std::string("\0\xff\x80", 3));
    text->resize({-5, -5});
    EXPECT_GE(text->position().width, 0);
    EXPECT_NE(lookup(text), nullptr);
}

TEST(BadInput, sizesAndPlacesAreBounded)
{
    constexpr int Least = std::numeric_limits<int>::min();
    constexpr int Most = std::numeric_limits<int>::max();
    constexpr int Farthest = 16777215;
    VXPanel2 panel;
    auto* child = new VXPanel2(&panel);
    child->setPosition({Most, Least, Most, Most});
    EXPECT_EQ(child->position(), (VXRect<int>{Farthest, -Farthest, Farthest, Farthest}));
    child->setPosition({Least, Least, Least, Least});
    child->moveTo({Least, Most});
    EXPECT_EQ(child->position().x, -Farthest);
    EXPECT_EQ(child->position().y, Farthest);
    child->setContentsMargins(VXRect<int>::margins(Most, Most, Most, Most));
    EXPECT_EQ(child->contentsMargins(), VXRect<int>::margins(32767, 32767, 32767, 32767));
    EXPECT_EQ(child->mapToGlobal({Most, Least}), child->mapToGlobal({Farthest, -Farthest}));
    child->setMaximumSize({Most, Most});
    child->setMinimumSize({Most, Most});
    child->setFixedSize({Most, Most});
    child->imitateResize({Least, Most});
    child->adjustSize();

    for (const int extreme : {Least, Most}) {
        const ExpectedQtWarning notYetPlaced("Negative sizes \\(-1,-1\\)");
        VXPanel2 flowing;
        auto* layout = new VXFlowLayout2(&flowing);
        layout->addWidget(new VXButton2(&flowing));
        layout->addWidget(new VXButton2(&flowing));
        layout->refresh();
        layout->setMargins(VXRect<int>::margins(extreme, extreme, extreme, extreme));
        layout->setSpacing(extreme);
        layout->refresh();
        flowing.adjustSize();
        EXPECT_EQ(layout->spacing() == Farthest, extreme == Most);
        EXPECT_GE(flowing.position().width, 0);
        EXPECT_GE(flowing.position().height, 0);
    }
    VXSplitter2 splitter;
    splitter.setHandleWidth(Most);
    EXPECT_EQ(splitter.handleWidth(), Farthest);
}

TEST(BadInput, iconsAreShownInSizesThatThereCanBe)
{
    constexpr int Most = std::numeric_limits<int>::max();
    const Icon icon = Icon::fromPixmap(Pixmap(8, 8, std::vector<std::uint32_t>(64, 0xffu)));
    VXWindow2 window;
    auto* button = new VXButton2(&window);
    auto* bar = new VXToolBar2(&window);
    bar->addAction(new VXAction2(bar));
    window.setCentralWidget(button);
    window.addToolBar(bar);
    button->setIcon(icon);
    const Size<int> usual = button->iconSize();
    for (const int extreme : {Icon::MaxShownSide + 1, 20000, Most}) {
        button->setIconSize({extreme, extreme});
        bar->setIconSize({extreme, 16});
        EXPECT_EQ(button->iconSize(), (Size<int>{Icon::MaxShownSide, Icon::MaxShownSide}));
        EXPECT_EQ(bar->iconSize(), (Size<int>{Icon::MaxShownSide, 16}));
    }
    window.show();
    EXPECT_FALSE(qt(*button)->grab().isNull());
    button->setIconSize({std::numeric_limits<int>::min(), -3});
    EXPECT_EQ(button->iconSize(), usual) << "the style's own";
}

TEST(BadInput, onlyFilesOfABoundedSizeAreReadAsPictures)
{
    const QTemporaryDir directory;
    const auto path = [&](const char* name) { return directory.filePath(QLatin1String(name)); };
    QImage drawn(5, 5, QImage::Format_ARGB32);
    drawn.fill(Qt::red);
    ASSERT_TRUE(drawn.save(path("red.png")));
    ASSERT_EQ(mkfifo(path("pipe").toUtf8().constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path("link")));
    const auto shows = [&](const QString& file) {
        return !VX2Qt(Icon::fromFile(file.toStdString())).pixmap(5, 5).isNull();
    };
    EXPECT_TRUE(shows(path("red.png")));
    for (const QString& none : {path("pipe"), path("link"), path("."), path("not there"),
                                QStringLiteral("/dev/zero"), QStringLiteral("/proc/self/mem")})
        EXPECT_FALSE(shows(none)) << none.toStdString();
    const std::size_t usual = ImageDecoder::fileSizeLimit();
    const auto size = static_cast<std::size_t>(QFileInfo(path("red.png")).size());
    ImageDecoder::setFileSizeLimit(size - 1);
    EXPECT_FALSE(shows(path("red.png")));
    ImageDecoder::setFileSizeLimit(size);
    EXPECT_TRUE(shows(path("red.png")));
    ImageDecoder::setFileSizeLimit(usual);
}

TEST(BadInput, drawingsAreDrawnNoLargerThanTheirBound)
{
    const std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' width='1000000' height='500'>"
                            "<rect width='1000000' height='500'/></svg>";
    const QImage drawn = toQImage(Pixmap::fromData(ByteArray(svg.data(), svg.size())));
    EXPECT_EQ(drawn.size(), QSize(ImageDecoder::MaxDrawingSide, 2));
}

TEST(BadInput, narrowTextsCrossByteByByte)
{
    VXButton2 button;
    VXText2 text;
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    button.setLabel(all);
    EXPECT_EQ(button.label(), all);
    EXPECT_EQ(static_cast<QPushButton*>(qt(button))->text().size(), 256);
    text.setText(all);
    EXPECT_EQ(text.text(), all);
    text.setToolTip(all);
    EXPECT_EQ(text.toolTip(), all);
    text.setObjectName(all);
    EXPECT_EQ(text.objectName(), all);
    // What is no UTF-8 is nothing special.
    text.setText("\xff\xfe\xc3");
    EXPECT_EQ(text.textU(), L"\xff\xfe\xc3");
}

/// What an object that was made with a text, and with its parent, has for one.
template <class Kind>
std::wstring textOfNew(std::wstring (Kind::*text)() const)
{
    VXWindow2 parent;
    auto* const object = new Kind(u8"\u20ac", &parent);
    EXPECT_EQ(object->parent(), &parent);
    return (object->*text)();
}

TEST(BadInput, textsCrossWhateverTheyAreMadeOf)
{
    VXText2 text(u8"gr\u00fc\u00df");
    EXPECT_EQ(text.textU(), L"gr\u00fc\u00df");
    EXPECT_EQ(text.text(), "gr\xfc\xdf");
    // A temporary is gone by the time that another thread's request arrives.
    std::thread([&] {
        text.setText(std::string(40, 'x'));
        text.setToolTip(std::wstring(40, L'\u20ac'));
    }).join();
    turn();
    EXPECT_EQ(text.text(), std::string(40, 'x'));
    EXPECT_EQ(text.toolTipU(), std::wstring(40, L'\u20ac'));

    EXPECT_EQ(textOfNew<VXButton2>(&VXButton2::labelU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXCheckBox2>(&VXCheckBox2::labelU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXRadioButton2>(&VXRadioButton2::labelU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXToolButton2>(&VXToolButton2::labelU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXToolBar2>(&VXToolBar2::labelU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXAction2>(&VXAction2::labelU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXText2>(&VXText2::textU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXTab2>(&VXTab2::textU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXGroupBox2>(&VXGroupBox2::titleU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXWindow2>(&VXWindow2::titleU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXDialog2>(&VXDialog2::titleU), L"\u20ac");
    EXPECT_EQ(textOfNew<VXDockWidget2>(&VXDockWidget2::titleU), L"\u20ac");
    // Null is no text, but no parent.
    const VXButton2 plain(nullptr);
    EXPECT_EQ(plain.label(), "");

    const VXHandle<VXText2> gone(new VXText2("text"));
    delete gone.get();
    gone->setText(u8"another");
    EXPECT_EQ(gone->textU(), L"");
}

} // namespace
} // namespace VOXI
