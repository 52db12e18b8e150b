#include "voxi2_qt/controls/qtsvgimage2.h"

#include "../kernel/qtaccessiblename.h"
#include "../kernel/sidelibrary.h"
#include "../kernel/svgguard.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QPainter>
#include <QSvgRenderer>

#include <climits>

namespace VOXI {

namespace {

using E = VXSvgImage2Emitters;
using P = QtSvgImage2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setFile, &P::doSetFile>(),
    TROV::row<&E::setFileU, &P::doSetFileU>(),
    TROV::row<&E::setData, &P::doSetData>(),
    TROV::row<&E::setHeight, &P::doSetHeight>(),
    TROV::row<&E::getPixmap, &P::doGetPixmap>(),
    TROV::row<&E::getImageSize, &P::doGetImageSize>());
// clang-format on

constexpr qint64 MostPixels = qint64(16) << 20;

/// As wide as `height` asks for by the proportions of `size`, reckoned in 32 bits.
QSize proportional(int height, const QSize& size)
{
    const auto product =
        static_cast<qint32>(static_cast<quint32>(height) * static_cast<quint32>(size.width()));
    const qint64 width = qint64(product) / size.height();
    return {static_cast<int>(std::min<qint64>(width, INT_MAX)), height};
}

} // namespace

QtSvgImage2::QtSvgImage2(VXSvgImage2* object, VXSvgImage2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    readTextAsName<QtSvgImage2, QAccessible::Graphic, &QWidget::toolTip>();
}

// Requests ----------------------------------------------------------------------------------------

void QtSvgImage2::doSetFile(const std::string& path) { loadHarmless(bytesOfFile(toQString(path))); }

void QtSvgImage2::doSetFileU(const std::wstring& path)
{
    loadHarmless(bytesOfFile(toQString(path)));
}

void QtSvgImage2::doSetData(const ByteArray& bytes)
{
    const bool isBounded = bytes.size() <= ImageDecoder::fileSizeLimit() && bytes.size() <= INT_MAX;
    doSetContents(bytes.data(), isBounded ? static_cast<int>(bytes.size()) : 0);
}

/// The proportions stay those of the drawing that was there when they were first needed.
void QtSvgImage2::doSetHeight(int height)
{
    if (!m_defaultSize.isValid()) {
        ensurePolished();
        m_defaultSize = sizeHint();
    }
    if (m_defaultSize.height() != 0)
        setFixedSize(proportional(height, m_defaultSize)
                         .expandedTo({0, 0})
                         .boundedTo({QWIDGETSIZE_MAX, QWIDGETSIZE_MAX}));
}

/// The image is not filled before it is drawn on.
Pixmap QtSvgImage2::doGetPixmap(int height)
{
    QSize size = m_defaultSize;
    if (height == -1)
        size = this->size();
    else if (height != 0) {
        const QSize proportions = m_defaultSize.isValid() ? m_defaultSize : sizeHint();
        size = proportions.height() != 0 ? proportional(height, proportions) : QSize();
    }
    if (size.isEmpty() || qint64(size.width()) * size.height() > MostPixels)
        return {};
    QImage image(size, QImage::Format_ARGB32);
    if (image.isNull())
        return {};
    QPainter painter(&image);
    renderer()->render(&painter);
    painter.end();
    return Qt2VX(image);
}

Size<int> QtSvgImage2::doGetImageSize() { return isShown() ? Qt2VX(sizeHint()) : Size<int>{}; }

void QtSvgImage2::doSetContents(const char* bytes, int length)
{
    loadHarmless(length > 0 ? QByteArray(bytes, length) : QByteArray());
}

// Reports -----------------------------------------------------------------------------------------

QSize QtSvgImage2::sizeHint() const
{
    constexpr int Most = ImageDecoder::MaxDrawingSide;
    const QSize size = QSvgWidget::sizeHint();
    return size.width() > Most || size.height() > Most
               ? size.scaled(Most, Most, Qt::KeepAspectRatio)
               : size;
}

// Helpers -----------------------------------------------------------------------------------------

void QtSvgImage2::loadHarmless(const QByteArray& bytes)
{
    load(harmlessSvg(bytes));
    updateGeometry();
    update();
}

bool QtSvgImage2::isShown() const { return renderer()->isValid() && !sizeHint().isEmpty(); }

} // namespace VOXI

VOXI::QtObject2* voxi2_qt_makePeer(VOXI::VXObject2* object, void* emitters, QWidget* parent)
{
    return new VOXI::QtSvgImage2(static_cast<VOXI::VXSvgImage2*>(object),
                                 static_cast<VOXI::VXSvgImage2Emitters*>(emitters), parent);
}
