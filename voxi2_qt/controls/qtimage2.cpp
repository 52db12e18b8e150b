#include "voxi2_qt/controls/qtimage2.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QBitmap>
#include <QIcon>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

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
    // Where it is disabled, Qt makes the greyed picture anew each time.
    if (isEnabled() && !isProportional()) {
        QtWidget2Shim::paintEvent(event);
    } else {
        paintPicture();
        if (isWidgetHighlighted())
            paintHighlight();
    }
    if (m_maskColor.isValid())
        QPainter(this).fillRect(rect(), m_maskColor);
}

void QtImage2::changeEvent(QEvent* event)
{
    QtWidget2Shim::changeEvent(event);
    switch (event->type()) {
    case QEvent::EnabledChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        m_greyed = {};
        break;
    default:
        break;
    }
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

/// Scaled once for each size, and greyed once for each: both take long.
void QtImage2::paintPicture()
{
    const QPixmap picture = pixmap(Qt::ReturnByValue);
    if (picture.isNull())
        return;
    QSizeF wanted = picture.deviceIndependentSize();
    const bool isTooLarge = wanted.width() > width() || wanted.height() > height();
    if (m_scaling == ImageScaling::Stretch)
        wanted = size();
    else if (m_scaling == ImageScaling::Fit || (m_scaling == ImageScaling::Shrink && isTooLarge))
        wanted.scale(size(), Qt::KeepAspectRatio);
    QSize pixels = picture.size();
    if (m_scaling != ImageScaling::None)
        pixels = (wanted * devicePixelRatioF()).toSize().expandedTo(QSize(1, 1));
    if (m_scaled.size() != pixels || m_scaledFrom != picture.cacheKey()) {
        m_scaled = picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        m_scaledFrom = picture.cacheKey();
        m_greyed = {};
    }
    if (!isEnabled() && m_greyed.isNull()) {
        QStyleOption option;
        option.initFrom(this);
        m_greyed = style()->generatedIconPixmap(QIcon::Disabled, m_scaled, &option);
    }
    const Qt::Alignment where = isProportional() ? Qt::AlignCenter : alignment();
    const QSize size = wanted.toSize().expandedTo(QSize(1, 1));
    QPainter(this).drawPixmap(QStyle::alignedRect(layoutDirection(), where, size, rect()),
                              isEnabled() ? m_scaled : m_greyed);
}

} // namespace VOXI
