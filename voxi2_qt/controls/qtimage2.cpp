#include "voxi2_qt/controls/qtimage2.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QBitmap>
#include <QIcon>
#include <QPainter>

namespace VOXI {

namespace {

using E = VXImage2Emitters;
using P = QtImage2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setFile, &P::doSetFile>(),
    TROV::row<&E::setFileU, &P::doSetFileU>(),
    TROV::row<&E::setPixmap, &P::doSetPixmap>(),
    TROV::row<&E::setMaskColor, &P::doSetMaskColor>(),
    TROV::row<&E::setScaleEnable, &P::doSetScaleEnable>(),
    TROV::row<&E::getImageSize, &P::doGetImageSize>(),
    TROV::row<&E::getMaskColor, &P::doGetMaskColor>(),
    TROV::row<&E::isScaleEnabled, &P::doIsScaleEnabled>(),
    TROV::row<&E::setScaling, &P::doSetScaling>(),
    TROV::row<&E::getScaling, &P::doGetScaling>());
// clang-format on

} // namespace

QtImage2::QtImage2(VXImage2* object, VXImage2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

// Requests ----------------------------------------------------------------------------------------

void QtImage2::doSetFile(const std::string& path, bool mask) { load(toQString(path), mask); }
void QtImage2::doSetFileU(const std::wstring& path, bool mask) { load(toQString(path), mask); }
void QtImage2::doSetPixmap(const Pixmap& pixmap) { setPixmap(toQPixmap(pixmap)); }

void QtImage2::doSetMaskColor(Color color)
{
    m_maskColor = color.alpha() > 0 ? VX2Qt(color) : QColor();
    repaint();
}

void QtImage2::doSetScaleEnable(bool enable)
{
    doSetScaling(enable ? ImageScaling::Stretch : ImageScaling::None);
}

Size<int> QtImage2::doGetImageSize() { return Qt2VX(pixmap(Qt::ReturnByValue).size()); }

Color QtImage2::doGetMaskColor()
{
    return m_maskColor.isValid() ? Qt2VX(m_maskColor) : Color(0, 0, 0, 0);
}

bool QtImage2::doIsScaleEnabled() { return m_scaling == ImageScaling::Stretch; }

void QtImage2::doSetScaling(ImageScaling scaling)
{
    m_scaling = scaling;
    m_scaled = {};
    setScaledContents(scaling == ImageScaling::Stretch);
    updateGeometry();
    update();
}

ImageScaling QtImage2::doGetScaling() { return m_scaling; }

QSize QtImage2::minimumSizeHint() const
{
    return isProportional() ? QSize(1, 1) : QtWidget2Shim::minimumSizeHint();
}

// Reports -----------------------------------------------------------------------------------------

void QtImage2::paintEvent(QPaintEvent* event)
{
    if (!isProportional()) {
        QtWidget2Shim::paintEvent(event);
    } else {
        paintPicture();
        if (isWidgetHighlighted())
            paintHighlight();
    }
    if (m_maskColor.isValid())
        QPainter(this).fillRect(rect(), m_maskColor);
}

// Helpers -----------------------------------------------------------------------------------------

void QtImage2::load(const QString& path, bool mask)
{
    QPixmap pixmap = QPixmap::fromImage(imageOfFile(path));
    if (mask && !pixmap.isNull())
        pixmap.setMask(pixmap.createHeuristicMask(true));
    setPixmap(pixmap);
}

bool QtImage2::isProportional() const
{
    return m_scaling == ImageScaling::Fit || m_scaling == ImageScaling::Shrink;
}

/// Scaled once for each size: that takes long.
void QtImage2::paintPicture()
{
    const QPixmap picture = pixmap(Qt::ReturnByValue);
    if (picture.isNull())
        return;
    QSizeF wanted = picture.deviceIndependentSize();
    const bool isTooLarge = wanted.width() > width() || wanted.height() > height();
    if (isTooLarge || m_scaling == ImageScaling::Fit)
        wanted.scale(size(), Qt::KeepAspectRatio);
    const QSize pixels = (wanted * devicePixelRatioF()).toSize().expandedTo(QSize(1, 1));
    if (m_scaled.size() != pixels || m_scaledFrom != picture.cacheKey()) {
        m_scaled = picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        m_scaledFrom = picture.cacheKey();
    }
    QRect place(QPoint(), wanted.toSize().expandedTo(QSize(1, 1)));
    place.moveCenter(rect().center());
    const QPixmap shown = isEnabled() ? m_scaled : QIcon(m_scaled).pixmap(pixels, QIcon::Disabled);
    QPainter(this).drawPixmap(place, shown);
}

} // namespace VOXI
