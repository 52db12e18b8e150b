#include "voxi2_qt/containers/qttooltipwindow2.h"

#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleHintReturnMask>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolTip>

#include <algorithm>
#include <optional>

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

/// How long Qt's tool tips stay, in milliseconds.
int usualTimeout(qsizetype textLength)
{
    return 10000 + 40 * static_cast<int>(std::clamp<qsizetype>(textLength - 100, 0, 10000));
}

double fullOpacity(const QWidget& window)
{
    return window.style()->styleHint(QStyle::SH_ToolTipLabel_Opacity, nullptr, &window) / 255.0;
}

/// A tool tip that reads its text, unless it was given a name.
class AccessibleToolTip : public QAccessibleWidget
{
public:
    explicit AccessibleToolTip(QtToolTipWindow2* window)
        : QAccessibleWidget(window, QAccessible::ToolTip)
    {}

    QString text(QAccessible::Text which) const override
    {
        const QString text = QAccessibleWidget::text(which);
        return which == QAccessible::Name && text.isEmpty()
                   ? static_cast<const QtToolTipWindow2*>(widget())->text()
                   : text;
    }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object)
{
    auto* window = qobject_cast<QtToolTipWindow2*>(object);
    return window ? new AccessibleToolTip(window) : nullptr;
}

/// Not for longer than this library is loaded.
struct Accessibility
{
    Accessibility() { QAccessible::installFactory(&makeAccessible); }
    ~Accessibility() { QAccessible::removeFactory(&makeAccessible); }
    Accessibility(const Accessibility&) = delete;
    Accessibility& operator=(const Accessibility&) = delete;
};

} // namespace

QtToolTipWindow2::QtToolTipWindow2(VXToolTipWindow2* object, VXToolTipWindow2Emitters* emitters,
                                   QWidget* parent)
    : QtWidget2Shim(object, emitters, parent, Flags),
      m_emitters(emitters),
      m_fading(this, "windowOpacity"),
      m_face(new QWidget(this)),
      m_iconLabel(new QLabel(m_face)),
      m_textLabel(new QLabel(m_face))
{
    static const Accessibility s_accessibility;
    enableEventBroadcasting();
    bindRequests(emitters, s_requests);
    setAttribute(Qt::WA_ShowWithoutActivating);
    makeFace();
    adoptStyle();
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &QtToolTipWindow2::slotTimeout);
    connect(&m_fading, &QPropertyAnimation::finished, this, &QtToolTipWindow2::finishVanishing);
    connect(&m_anchor, &QtAnchor::moved, this, &QtToolTipWindow2::place);
    connect(&m_anchor, &QtAnchor::gone, this, &QtToolTipWindow2::slotAnchorGone);
}

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

// Showing -----------------------------------------------------------------------------------------

void QtToolTipWindow2::doSetParent(VXObject* parent)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Hide});
    // It stays a window whoever owns it.
    if (!parent) {
        setParent(nullptr, windowFlags());
        return;
    }
    withWidgetOf(parent, [this](QWidget* widget) {
        if (!isWithin(this, widget))
            setParent(widget, windowFlags());
    });
}

void QtToolTipWindow2::doShow()
{
    if (m_anchor.isSet() && m_anchor.visibleRect().isEmpty())
        return;
    if (!isVisible()) {
        QtContainer2::doShow();
        return;
    }
    if (std::exchange(m_isVanishing, false))
        fadeTo(fullOpacity(*this));
    place();
    startTimer();
}

void QtToolTipWindow2::doHide()
{
    if (!isVisible())
        QtContainer2::doHide();
    else if (!m_isVanishing)
        vanish(true);
}

void QtToolTipWindow2::doSetVisible(bool visible)
{
    if (visible)
        doShow();
    else
        doHide();
}

bool QtToolTipWindow2::doIsVisible()
{
    return !m_isVanishing && QtContainer2::doIsVisible();
}

void QtToolTipWindow2::doSetFocus() {}

void QtToolTipWindow2::doSetActiveWindow()
{
    raise();
}

// Content -----------------------------------------------------------------------------------------

void QtToolTipWindow2::doSetText(const std::string& text)
{
    setShownText(toQString(text));
}

void QtToolTipWindow2::doSetTextU(const std::wstring& text)
{
    setShownText(toQString(text));
}

void QtToolTipWindow2::doSetRichText(bool rich)
{
    m_textLabel->setTextFormat(rich ? Qt::RichText : Qt::PlainText);
    m_textLabel->setWordWrap(rich); // plain text is broken where it says so
    refit();
}

void QtToolTipWindow2::doSetIcon(const Icon& icon)
{
    m_icon = icon;
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_iconLabel->setPixmap(VX2Qt(icon).pixmap(QSize(side, side), devicePixelRatioF()));
    m_iconLabel->setVisible(!m_iconLabel->pixmap(Qt::ReturnByValue).isNull());
    refit();
}

std::string QtToolTipWindow2::doGetText()
{
    return toStdString(text());
}

std::wstring QtToolTipWindow2::doGetTextU()
{
    return toStdWString(text());
}

bool QtToolTipWindow2::doIsRichText()
{
    return m_textLabel->textFormat() == Qt::RichText;
}

Icon QtToolTipWindow2::doGetIcon()
{
    return m_icon;
}

// Anchor and time ---------------------------------------------------------------------------------

void QtToolTipWindow2::doSetAnchor(VXWidget2* widget, VXRect<int> part, AnchorSide side)
{
    m_side = side;
    if (!widget) {
        m_anchor.set(nullptr, QRect());
        return;
    }
    withWidgetOf(widget, [&](QWidget* anchor) {
        if (!anchor || isWithin(this, anchor))
            return;
        m_anchor.set(anchor, VX2Qt(part));
        if (!isVisible())
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

VXWidget2* QtToolTipWindow2::doGetAnchor()
{
    return dynamic_cast<VXWidget2*>(abstractObjectOf(m_anchor.widget()));
}

VXRect<int> QtToolTipWindow2::doGetAnchorRect()
{
    return Qt2VX(m_anchor.part());
}

AnchorSide QtToolTipWindow2::doGetAnchorSide()
{
    return m_side;
}

int QtToolTipWindow2::doGetTimeout()
{
    return m_timeout;
}

// The widget --------------------------------------------------------------------------------------

QString QtToolTipWindow2::text() const
{
    return m_textLabel->text();
}

QSize QtToolTipWindow2::sizeHint() const
{
    return layout() ? QWidget::sizeHint() : m_face->sizeHint().grownBy(contentsMargins());
}

bool QtToolTipWindow2::event(QEvent* event)
{
    const bool done = QtWidget2Shim::event(event);
    if (event->type() == QEvent::LayoutRequest)
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

void QtToolTipWindow2::showEvent(QShowEvent* event)
{
    QtWidget2Shim::showEvent(event);
    m_isVanishing = false;
    m_isPressed = false;
    m_anchor.watch();
    startTimer();
    if (fadeDuration() > 0)
        setWindowOpacity(0);
    fadeTo(fullOpacity(*this));
    refit();
}

void QtToolTipWindow2::hideEvent(QHideEvent* event)
{
    m_anchor.unwatch();
    m_timer.stop();
    m_fading.stop();
    m_isVanishing = false;
    QtWidget2Shim::hideEvent(event);
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
        report(m_emitters->clicked, abstractObject<VXToolTipWindow2>());
}

// Coming, following and going ---------------------------------------------------------------------

void QtToolTipWindow2::place()
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Move, WidgetEvent::Resize});
    if (!testAttribute(Qt::WA_Resized)) { // as windows do when they are shown
        adjustSize();
        setAttribute(Qt::WA_Resized, false);
    }
    const QRect anchor = m_anchor.visibleRect();
    if (anchor.isEmpty())
        return;
    const QScreen* screen = QGuiApplication::screenAt(anchor.center());
    if (!screen)
        screen = m_anchor.widget()->screen();
    move(placeBeside(anchor, size(), m_side, screen->availableGeometry(), layoutDirection()));
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

void QtToolTipWindow2::startTimer()
{
    const int timeout = m_timeout < 0 ? usualTimeout(text().size()) : m_timeout;
    if (timeout > 0)
        m_timer.start(timeout);
    else
        m_timer.stop();
}

int QtToolTipWindow2::fadeDuration() const
{
    return QApplication::isEffectEnabled(Qt::UI_FadeTooltip)
               ? style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this)
               : 0;
}

void QtToolTipWindow2::fadeTo(double opacity)
{
    m_fading.stop();
    const int duration = fadeDuration();
    if (duration <= 0) {
        setWindowOpacity(opacity);
        return;
    }
    m_fading.setDuration(duration);
    m_fading.setStartValue(windowOpacity());
    m_fading.setEndValue(opacity);
    m_fading.start();
}

void QtToolTipWindow2::vanish(bool byProgram)
{
    m_byProgram = byProgram;
    m_isVanishing = true;
    m_timer.stop();
    if (fadeDuration() > 0)
        fadeTo(0);
    else
        finishVanishing();
}

void QtToolTipWindow2::finishVanishing()
{
    if (!m_isVanishing)
        return; // it has come
    std::optional<QtEventBlocker> blocker;
    if (m_byProgram)
        blocker.emplace(*this, std::initializer_list<WidgetEvent>{WidgetEvent::Hide});
    hide();
}

void QtToolTipWindow2::slotTimeout()
{
    vanish(false);
}

void QtToolTipWindow2::slotAnchorGone()
{
    m_byProgram = m_isVanishing && m_byProgram;
    m_isVanishing = true;
    finishVanishing();
}

} // namespace VOXI
