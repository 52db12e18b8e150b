#include "voxi2_qt/controls/qtmimicview2.h"

#include "../kernel/qtaccessiblename.h"
#include "foreigninput.h"
#include "voxi2_qt/controls/qtmimicsource2.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <cmath>

namespace VOXI {

namespace {

using E = VXMimicView2Emitters;
using P = QtMimicView2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setSource, &P::doSetSource>(),
    TROV::row<&E::setAspectKept, &P::doSetAspectKept>(),
    TROV::row<&E::setForwarding, &P::doSetForwarding>(),
    TROV::row<&E::getSource, &P::doGetSource>(),
    TROV::row<&E::isAspectKept, &P::doIsAspectKept>(),
    TROV::row<&E::isForwarding, &P::doIsForwarding>(),
    TROV::row<&E::getPictureRect, &P::doGetPictureRect>());
// clang-format on

/// The image, or one that looks right in so many pixels: a painter leaves out what is between the
/// pixels that it takes.
QImage imageFor(const QImage& image, const QSizeF& pixels)
{
    const QSize size = pixels.toSize();
    return 2 * size.width() < image.width() && !size.isEmpty()
               ? image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
               : image;
}

} // namespace

QtMimicView2::QtMimicView2(VXMimicView2* object, VXMimicView2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    readTextAsName<QtMimicView2, QAccessible::Graphic, &QWidget::toolTip>();
    // What is behind it is not painted along, which may be what it shows.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QtMimicView2::~QtMimicView2()
{
    endPeer();
    if (m_source) // it may lie in this, and go later than what its slots use
        QObject::disconnect(m_source, nullptr, this, nullptr);
}

// Requests ----------------------------------------------------------------------------------------

void QtMimicView2::doSetSource(VXMimicSource2* source)
{
    const auto show = [this](QtMimicSource2* peer) {
        if (m_source)
            QObject::disconnect(m_source, nullptr, this, nullptr);
        m_source = peer;
        if (peer)
            QObject::connect(peer, &QObject::destroyed, this, &QtMimicView2::slotSourceDestroyed);
        letGo();
        watch();
        slotImageChanged();
    };
    if (!source)
        show(nullptr);
    withPeerOf<QtMimicSource2>(source, [&](QtMimicSource2* peer) {
        if (peer)
            show(peer);
    });
}

void QtMimicView2::doSetAspectKept(bool kept)
{
    m_isAspectKept = kept;
    update();
}

void QtMimicView2::doSetForwarding(bool forwarding)
{
    m_isForwarding = forwarding;
    letGo();
    setAttribute(Qt::WA_Hover, forwarding); // it hears of the pointer without a button, too
    if (forwarding && focusPolicy() == Qt::NoFocus)
        setFocusPolicy(Qt::StrongFocus);
}

VXMimicSource2* QtMimicView2::doGetSource() { return abstractObjectOf<VXMimicSource2>(m_source); }
bool QtMimicView2::doIsAspectKept() { return m_isAspectKept; }
bool QtMimicView2::doIsForwarding() { return m_isForwarding; }
VXRect<int> QtMimicView2::doGetPictureRect() { return Qt2VX(pictureRect().toRect()); }

// Reports -----------------------------------------------------------------------------------------

void QtMimicView2::slotImageChanged() { update(); }

/// It is no peer any more, but the pointer to it may not know that yet.
void QtMimicView2::slotSourceDestroyed()
{
    m_source = nullptr;
    letGo();
    slotImageChanged();
}

/// Not that of the picture: where the source lies beside the view, they would make each other grow.
QSize QtMimicView2::sizeHint() const { return {160, 120}; }

void QtMimicView2::paintEvent(QPaintEvent* event)
{
    {
        QPainter painter(this);
        painter.fillRect(rect(), palette().window());
        if (const QRectF picture = pictureRect(); !picture.isEmpty()) {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(picture,
                              imageFor(m_source->image(), picture.size() * devicePixelRatioF()));
        }
        if (hasFocus()) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
        }
    }
    QtWidget2Shim::paintEvent(event);
}

void QtMimicView2::showEvent(QShowEvent* event)
{
    QtWidget2Shim::showEvent(event);
    watch();
}

void QtMimicView2::hideEvent(QHideEvent* event)
{
    QtWidget2Shim::hideEvent(event);
    watch();
}

// Helpers -----------------------------------------------------------------------------------------

/// Is told of pictures while it is seen.
void QtMimicView2::watch()
{
    if (!m_source)
        return;
    QObject::disconnect(m_source, &QtMimicSource2::imageChanged, this, nullptr);
    if (!isVisible())
        return;
    QObject::connect(m_source, &QtMimicSource2::imageChanged, this,
                     &QtMimicView2::slotImageChanged);
    slotImageChanged();
    m_source->plan();
}

bool QtMimicView2::shows(const QtMimicSource2& source) const { return m_source == &source; }

/// In units, of which the last may be a part.
QSizeF QtMimicView2::imageSize() const
{
    return m_source ? m_source->image().deviceIndependentSize() : QSizeF();
}

QRectF QtMimicView2::pictureRect() const
{
    const QSizeF size = imageSize();
    if (size.isEmpty())
        return {};
    // On a whole pixel: an image that is not scaled stays sharp.
    const double ratio = devicePixelRatioF();
    const auto aligned = [ratio](double place) { return std::round(place * ratio) / ratio; };
    if (!m_isAspectKept)
        return rect();
    QRectF result(QPointF(), size.scaled(this->size(), Qt::KeepAspectRatio));
    result.moveTopLeft(
        {aligned((width() - result.width()) / 2), aligned((height() - result.height()) / 2)});
    return result;
}

} // namespace VOXI
