#include "voxi2_qt/controls/qtimage2.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QBitmap>
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
    TROV::row<&E::isScaleEnabled, &P::doIsScaleEnabled>());
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

void QtImage2::doSetScaleEnable(bool enable) { setScaledContents(enable); }
Size<int> QtImage2::doGetImageSize() { return Qt2VX(pixmap(Qt::ReturnByValue).size()); }

Color QtImage2::doGetMaskColor()
{
    return m_maskColor.isValid() ? Qt2VX(m_maskColor) : Color(0, 0, 0, 0);
}

bool QtImage2::doIsScaleEnabled() { return hasScaledContents(); }

// Reports -----------------------------------------------------------------------------------------

void QtImage2::paintEvent(QPaintEvent* event)
{
    QtWidget2Shim::paintEvent(event);
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

} // namespace VOXI
