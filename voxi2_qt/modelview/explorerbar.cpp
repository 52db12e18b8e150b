#include "voxi2_qt/modelview/explorerbar.h"

#include "cellrecord.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace VOXI {

namespace {

// In pixels
constexpr int Margin = 8; ///< around the cards, and between them
constexpr int Pad = 4;
constexpr int Inset = 8; ///< from a card's edge to what is written
constexpr int Arrow = 10;

QFont boldOf(const QFont& font)
{
    QFont bold = font;
    bold.setBold(true);
    return bold;
}

} // namespace

ExplorerBar::ExplorerBar(QWidget* parent, Host& host) : FoldedView(parent, host) { begin(); }

FoldedView::Metrics ExplorerBar::measure(int) const
{
    Metrics metrics;
    const int line = std::max(QFontMetrics(boldOf(font())).height(), pictureSize().height());
    metrics.margin = Margin;
    metrics.gap = Margin;
    metrics.header = line + 2 * Pad;
    metrics.pad = Pad;
    metrics.rowHeight = line + Pad;
    return metrics;
}

QRect ExplorerBar::textRect(const QRect& rect, bool isHeader, bool hasIcon) const
{
    const int before = Inset + (hasIcon ? pictureSize().width() + Pad : 0);
    const int after = isHeader ? 2 * Inset + Arrow : Inset;
    return mirrored(rect.adjusted(before, 0, -after, 0), rect);
}

bool ExplorerBar::isTextCut(const QModelIndex& index, const CellRecord& record) const
{
    const bool isHeader = !index.parent().isValid();
    const QRect rect = textRect(visualRect(index), isHeader, record.style().icon.isValid());
    const QFontMetrics metrics(isHeader ? boldOf(font()) : font());
    return metrics.horizontalAdvance(lineOf(record)) > rect.width()
           || record.text().size() > MostDrawn;
}

void ExplorerBar::noteHover(const QModelIndex& index)
{
    if (index.isValid() && (!index.parent().isValid() || isEnabledRow(index)))
        viewport()->setCursor(Qt::PointingHandCursor);
    else
        viewport()->unsetCursor();
}

void ExplorerBar::paintFrame(QPainter& painter, const QRect& rect) const
{
    const QPalette& colors = palette();
    painter.fillRect(rect, colors.color(QPalette::Base));
    painter.setPen(blend(colors.color(QPalette::Window), colors.color(QPalette::WindowText), 0.25));
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

void ExplorerBar::paintHeader(QPainter& painter, const Row& row, Fold fold) const
{
    const QColor text = palette().color(row.colors, QPalette::ButtonText);
    const QColor under = palette().color(row.colors, QPalette::Button);
    const QColor accent = palette().color(row.colors, QPalette::Highlight);
    const QVariant own = row.record->data(Qt::BackgroundRole);
    const QRect inside = row.rect.adjusted(1, 1, -1, -1);
    painter.fillRect(inside, own.isValid() ? own.value<QColor>()
                                           : blend(under, accent, row.isHovered ? 0.3 : 0.15));
    const QRect icon(row.rect.left() + Inset, row.rect.top(), pictureSize().width(),
                     row.rect.height());
    paintIcon(painter, row, mirrored(icon, row.rect), false);
    const bool hasIcon = row.record->style().icon.isValid();
    paintText(painter, row, textRect(row.rect, true, hasIcon), boldOf(font()), text,
              Qt::AlignLeading | Qt::AlignVCenter);
    const QRect arrow(row.rect.right() - Inset - Arrow, row.rect.center().y() - Arrow / 2, Arrow,
                      Arrow);
    paintArrow(painter, mirrored(arrow, row.rect), fold, text);
    paintFocus(painter, row, row.rect.adjusted(2, 2, -2, -2));
}

void ExplorerBar::paintRow(QPainter& painter, const Row& row) const
{
    const QVariant own = row.record->data(Qt::BackgroundRole);
    if (own.isValid())
        painter.fillRect(row.rect.adjusted(1, 0, -1, 0), own.value<QColor>());
    const QRect icon(row.rect.left() + Inset, row.rect.top(), pictureSize().width(),
                     row.rect.height());
    paintIcon(painter, row, mirrored(icon, row.rect), false);
    QFont font = this->font();
    font.setUnderline(row.isHovered && row.isEnabled);
    const QColor color =
        palette().color(row.colors, row.isEnabled ? QPalette::Link : QPalette::Text);
    const bool hasIcon = row.record->style().icon.isValid();
    paintText(painter, row, textRect(row.rect, false, hasIcon), font, color,
              Qt::AlignLeading | Qt::AlignVCenter);
    paintFocus(painter, row, row.rect.adjusted(Inset / 2, 0, -Inset / 2, 0));
}

} // namespace VOXI
