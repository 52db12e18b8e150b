#include "voxi2_qt/containers/qttooltipwindow2.h"

#include "../kernel/qtaccessiblename.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QStyleHintReturnMask>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolTip>

#include <utility>

namespace VOXI {

namespace {

using E = VXToolTipWindow2Emitters;
using P = QtToolTipWindow2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setText, &P::doSetText>(),
    TROV::row<&E::setTextU, &P::doSetTextU>(),
    TROV::row<&E::setRichText, &P::doSetRichText>(),
    TROV::row<&E::setIcon, &P::doSetIcon>(),
    TROV::row<&E::setAnchor, &P::doSetAnchor>(),
    TROV::row<&E::setTimeout, &P::doSetTimeout>(),
    TROV::row<&E::getText, &P::doGetText>(),
    TROV::row<&E::getTextU, &P::doGetTextU>(),
    TROV::row<&E::isRichText, &P::doIsRichText>(),
    TROV::row<&E::getIcon, &P::doGetIcon>(),
    TROV::row<&E::getAnchor, &P::doGetAnchor>(),
    TROV::row<&E::getAnchorRect, &P::doGetAnchorRect>(),
    TROV::row<&E::getAnchorSide, &P::doGetAnchorSide>(),
    TROV::row<&E::getTimeout, &P::doGetTimeout>());
// clang-format on

constexpr Qt::WindowFlags Flags =
    Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus;

} // namespace

QtToolTipWindow2::QtToolTipWindow2(VXToolTipWindow2* object, VXToolTipWindow2Emitters* emitters,
                                   QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent, Flags),
      m_fading(this, "windowOpacity"),
      m_face(new QWidget(this)),
      m_iconLabel(new QLabel(m_face)),
      m_textLabel(new QLabel(m_face))
{
    readTextAsName<QtToolTipWindow2, QAccessible::ToolTip, &QtToolTipWindow2::text>();
    setAttribute(Qt::WA_ShowWithoutActivating);
    makeFace();
    adoptStyle();
    connect(&m_fading, &QPropertyAnimation::finished, this, &QtToolTipWindow2::finishVanishing);
    connect(&m_anchor, &QtAnchor::moved, this, &QtToolTipWindow2::place);
    connect(&m_anchor, &QtAnchor::gone, this, &QtToolTipWindow2::slotAnchorGone);
}

// Requests ----------------------------------------------------------------------------------------

void QtToolTipWindow2::doSetText(const std::string& text) { setShownText(toQString(text)); }
void QtToolTipWindow2::doSetTextU(const std::wstring& text) { setShownText(toQString(text)); }

void QtToolTipWindow2::doSetRichText(bool rich)
{
    m_textLabel->setTextFormat(rich ? Qt::RichText : Qt::PlainText);
    m_textLabel->setWordWrap(rich); // plain text is broken where it says so
    refit();
}

void QtToolTipWindow2::doSetIcon(const Icon& icon)
{
    keepIcon(icon);
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_iconLabel->setPixmap(VX2Qt(icon).pixmap(QSize(side, side), devicePixelRatioF()));
    m_iconLabel->setVisible(!m_iconLabel->pixmap(Qt::ReturnByValue).isNull());
    refit();
}

void QtToolTipWindow2::doSetAnchor(VXWidget2* widget, VXRect<int> part, AnchorSide side)
{
    m_side = side;
    withWidgetOrNone(widget, [&](QWidget* anchor) {
        if (anchor && isWithin(this, anchor))
            return;
        m_anchor.set(anchor, VX2Qt(part));
        if (!anchor || !isVisible())
            return;
        if (m_anchor.visibleRect().isEmpty()) {
            doHide();
        } else {
            m_anchor.watch();
            place();
        }
    });
}

void QtToolTipWindow2::doSetTimeout(int milliseconds)
{
    m_timeout = milliseconds;
    if (isVisible() && !m_isVanishing)
        startTimer();
}

std::string QtToolTipWindow2::doGetText() { return toStdString(text()); }
std::wstring QtToolTipWindow2::doGetTextU() { return toStdWString(text()); }
bool QtToolTipWindow2::doIsRichText() { return m_textLabel->textFormat() == Qt::RichText; }
Icon QtToolTipWindow2::doGetIcon() { return keptIcon(); }

VXWidget2* QtToolTipWindow2::doGetAnchor()
{
    return abstractObjectOf<VXWidget2>(m_anchor.widget());
}

VXRect<int> QtToolTipWindow2::doGetAnchorRect() { return Qt2VX(m_anchor.part()); }
AnchorSide QtToolTipWindow2::doGetAnchorSide() { return m_side; }
int QtToolTipWindow2::doGetTimeout() { return m_timeout; }

// Reports -----------------------------------------------------------------------------------------

bool QtToolTipWindow2::event(QEvent* event)
{
    if (event->type() != QEvent::LayoutRequest)
        return QtWidget2Shim::event(event);
    const QtDeletionHold hold(this); // what lies inside is moved, and that is told
    const bool done = QtWidget2Shim::event(event);
    if (hold.isAlive())
        refit();
    return done;
}

void QtToolTipWindow2::changeEvent(QEvent* event)
{
    QtWidget2Shim::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        adoptStyle();
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        refit();
}

void QtToolTipWindow2::resizeEvent(QResizeEvent* event)
{
    QtWidget2Shim::resizeEvent(event);
    m_face->setGeometry(contentsRect());
    QStyleHintReturnMask shape;
    QStyleOption option;
    option.initFrom(this);
    if (style()->styleHint(QStyle::SH_ToolTip_Mask, &option, this, &shape))
        setMask(shape.region);
}

void QtToolTipWindow2::paintEvent(QPaintEvent* event)
{
    QStylePainter painter(this);
    QStyleOptionFrame option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_PanelTipLabel, option);
    painter.end();
    QtWidget2Shim::paintEvent(event);
}

void QtToolTipWindow2::mousePressEvent(QMouseEvent* event)
{
    m_isPressed = event->button() == Qt::LeftButton;
    QtWidget2Shim::mousePressEvent(event);
    event->accept();
}

void QtToolTipWindow2::mouseReleaseEvent(QMouseEvent* event)
{
    QtWidget2Shim::mouseReleaseEvent(event);
    event->accept();
    const bool wasPressed = event->button() == Qt::LeftButton && std::exchange(m_isPressed, false);
    if (!wasPressed || m_isVanishing || !rect().contains(event->position().toPoint()))
        return;
    const QPointer<QtToolTipWindow2> self(this);
    vanish(false); // first, because the handler may show it again
    if (self)
        report(&E::clicked);
}

// Helpers -----------------------------------------------------------------------------------------

void QtToolTipWindow2::makeFace()
{
    // The colours of a tool tip, for the window and for what the application puts into it.
    QPalette palette = QToolTip::palette();
    palette.setBrush(QPalette::Window, palette.toolTipBase());
    palette.setBrush(QPalette::WindowText, palette.toolTipText());
    setPalette(palette);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    setFont(QToolTip::font());

    m_face->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* row = new QHBoxLayout(m_face);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_iconLabel);
    row->addWidget(m_textLabel, 1);
    m_iconLabel->hide();
    m_textLabel->setForegroundRole(QPalette::ToolTipText);
    m_textLabel->setTextFormat(Qt::PlainText);
}

void QtToolTipWindow2::adoptStyle()
{
    const int margin = 1 + style()->pixelMetric(QStyle::PM_ToolTipLabelFrameWidth, nullptr, this);
    setContentsMargins(2 * margin, margin, 2 * margin, margin);
}

QString QtToolTipWindow2::text() const { return m_textLabel->text(); }

QSize QtToolTipWindow2::sizeHint() const
{
    return layout() ? QWidget::sizeHint() : m_face->sizeHint().grownBy(contentsMargins());
}

void QtToolTipWindow2::setShownText(const QString& text)
{
    m_textLabel->setText(text);
    m_textLabel->setVisible(!text.isEmpty());
    refit();
}

void QtToolTipWindow2::refit()
{
    m_face->setVisible(!layout());
    if (isVisible())
        place();
}

} // namespace VOXI
