#include "voxi2_qt/controls/qtelidinglabel.h"

#include <QPainter>
#include <QStringList>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>

namespace VOXI {

void QtElidingLabel::setElideMode(Qt::TextElideMode mode)
{
    if (m_elideMode == mode)
        return;
    m_elideMode = mode;
    updateGeometry();
    update();
}

void QtElidingLabel::chooseInteraction(bool isSelectable)
{
    Qt::TextInteractionFlags flags = Qt::LinksAccessibleByMouse;
    if (textFormat() == Qt::RichText && text().contains(QLatin1String("<a "), Qt::CaseInsensitive))
        flags |= Qt::LinksAccessibleByKeyboard;
    if (isSelectable)
        flags |= Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;
    if (flags != textInteractionFlags())
        setTextInteractionFlags(flags);
}

QSize QtElidingLabel::minimumSizeHint() const
{
    QSize size = QLabel::minimumSizeHint();
    if (mayElide()) {
        const int frame = width() - contentsRect().width() + 2 * margin();
        size.setWidth(std::min(size.width(), frame + fontMetrics().averageCharWidth() * 2));
    }
    return size;
}

void QtElidingLabel::paintEvent(QPaintEvent* event)
{
    const int space = margin();
    const QRect room = contentsRect().adjusted(space, space, -space, -space);
    const QString shown = mayElide() ? elided(room.width()) : text();
    if (shown == text()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    QStyleOption option;
    option.initFrom(this);
    const bool runsLeft = shown.isRightToLeft();
    const auto direction = runsLeft ? Qt::RightToLeft : Qt::LeftToRight;
    auto flags = static_cast<int>(QStyle::visualAlignment(direction, alignment()));
    flags |= runsLeft ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
    if (buddy()) {
        flags |= Qt::TextShowMnemonic;
        if (!style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this))
            flags |= Qt::TextHideMnemonic;
    }
    style()->drawItemText(&painter, room, flags, option.palette, isEnabled(), shown,
                          foregroundRole());
}

bool QtElidingLabel::mayElide() const
{
    return m_elideMode != Qt::ElideNone && textFormat() == Qt::PlainText && !wordWrap()
           && !textInteractionFlags().testFlag(Qt::TextSelectableByMouse);
}

QString QtElidingLabel::elided(int width) const
{
    QStringList lines = text().split(u'\n');
    for (QString& line : lines)
        line =
            fontMetrics().elidedText(line, m_elideMode, width, buddy() ? Qt::TextShowMnemonic : 0);
    return lines.join(u'\n');
}

} // namespace VOXI
