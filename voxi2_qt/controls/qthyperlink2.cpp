#include "voxi2_qt/controls/qthyperlink2.h"

#include "../kernel/qtaccessiblename.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"

namespace VOXI {

namespace {

using E = VXHyperLink2Emitters;
using P = QtHyperLink2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setText, &P::doSetText>(),
    TROV::row<&E::setTextU, &P::doSetTextU>(),
    TROV::row<&E::getText, &P::doGetText>(),
    TROV::row<&E::getTextU, &P::doGetTextU>(),
    TROV::row<&E::setLinkColor, &P::doSetLinkColor>(),
    TROV::row<&E::getLinkColor, &P::doGetLinkColor>(),
    asUserRow<&E::click, &P::doimClick>(),
    TROV::row<&E::isVisited, &P::doIsVisited>());
// clang-format on

} // namespace

QtHyperLink2::QtHyperLink2(VXHyperLink2* object, VXHyperLink2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent),
      m_textEventFilter(*this, emitters),
      m_linkColors{{LinkMode::Hovered, Qt::blue},
                   {LinkMode::Normal, Qt::darkBlue},
                   {LinkMode::Visited, Qt::darkBlue}}
{
    readTextAsName<QtHyperLink2, QAccessible::Link, &QLabel::text>();
    QFont underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
    setCursor(Qt::PointingHandCursor);
    showMode(LinkMode::Normal);
}

// Requests ----------------------------------------------------------------------------------------

void QtHyperLink2::doSetText(const std::string& text) { m_textEventFilter.setText(text); }
void QtHyperLink2::doSetTextU(const std::wstring& text) { m_textEventFilter.setTextU(text); }
std::string QtHyperLink2::doGetText() { return m_textEventFilter.text(); }
std::wstring QtHyperLink2::doGetTextU() { return m_textEventFilter.textU(); }

void QtHyperLink2::doSetLinkColor(LinkMode mode, Color color)
{
    m_linkColors[mode] = VX2Qt(color);
    m_chosen.insert(mode);
    if (mode == m_mode)
        showMode(mode);
}

Color QtHyperLink2::doGetLinkColor(LinkMode mode) { return Qt2VX(m_linkColors[mode]); }
void QtHyperLink2::doimClick() { handleClick(); }
bool QtHyperLink2::doIsVisited() { return m_visited; }

// Reports -----------------------------------------------------------------------------------------

void QtHyperLink2::changeEvent(QEvent* event)
{
    QtWidget2Shim::changeEvent(event);
    // Of the widget's own colour there is nothing to follow.
    if (event->type() == QEvent::PaletteChange
        && palette().color(foregroundRole()).rgb() != shownColor().rgb())
        showMode(m_mode);
}

void QtHyperLink2::enterEvent(QEnterEvent* event)
{
    QtWidget2Shim::enterEvent(event);
    showMode(LinkMode::Hovered);
}

void QtHyperLink2::leaveEvent(QEvent* event)
{
    QtWidget2Shim::leaveEvent(event);
    showMode(m_visited ? LinkMode::Visited : LinkMode::Normal);
}

/// What is behind a link is not pressed with it.
void QtHyperLink2::mousePressEvent(QMouseEvent* event)
{
    QtWidget2Shim::mousePressEvent(event);
    event->accept();
}

void QtHyperLink2::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        handleClick();
}

void QtHyperLink2::keyPressEvent(QKeyEvent* event)
{
    if (m_textEventFilter.isPress(*event))
        handleClick();
    else
        QtWidget2Shim::keyPressEvent(event);
}

void QtHyperLink2::focusInEvent(QFocusEvent* event)
{
    QtWidget2Shim::focusInEvent(event);
    update();
}

void QtHyperLink2::focusOutEvent(QFocusEvent* event)
{
    QtWidget2Shim::focusOutEvent(event);
    update();
}

void QtHyperLink2::paintEvent(QPaintEvent* event)
{
    QtWidget2Shim::paintEvent(event);
    m_textEventFilter.paintFocus();
}

// Helpers -----------------------------------------------------------------------------------------

void QtHyperLink2::handleClick()
{
    m_visited = true;
    report(&E::clicked);
}

void QtHyperLink2::showMode(LinkMode mode)
{
    m_mode = mode;
    doSetColor(ColorRole::Foreground, Qt2VX(shownColor()));
}

/// The first colours are for light backgrounds; on a dark one nobody could read them.
QColor QtHyperLink2::shownColor() const
{
    const auto found = m_linkColors.find(m_mode);
    const QColor own = found == m_linkColors.end() ? QColor() : found->second;
    if (m_chosen.contains(m_mode) || palette().color(backgroundRole()).lightness() > 128)
        return own;
    const QColor link = palette().color(QPalette::Link);
    const QColor readable = link.lightness() < 110 ? QColor(96, 160, 255) : link;
    return m_mode == LinkMode::Hovered ? readable.lighter(120) : readable;
}

} // namespace VOXI
