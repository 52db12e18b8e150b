#include "paletteentries.h"

#include "qtviewmodel2.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace VOXI {

namespace {

// In pixels
constexpr int Pad = 4;
constexpr int Arrow = 10;
constexpr int HeaderInset = 2 * Pad + Arrow; ///< of a category's name, behind its arrow
constexpr int LettersInTile = 9;
constexpr int Edge = 20; ///< near which a drag scrolls

} // namespace

PaletteEntries::PaletteEntries(QtPaletteView2& palette) : QtInnerWidget(palette, palette)
{
    setFrameShape(QFrame::NoFrame);
    begin();
}

void PaletteEntries::setGrid(bool isGrid)
{
    m_isGrid = isGrid;
    looksChanged();
}

// The chosen entry --------------------------------------------------------------------------------

void PaletteEntries::choose(unsigned entry)
{
    const unsigned former = chosen();
    m_chosen = indexOf(entry);
    viewport()->update();
    if (!QAccessible::isActive() || former == entry)
        return;
    QAccessible::State changed;
    changed.selected = true;
    for (const unsigned each : {former, entry}) {
        if (each == 0)
            continue;
        QAccessibleStateChangeEvent event(accessOf(each), changed);
        QAccessible::updateAccessibility(&event);
    }
}

unsigned PaletteEntries::chosen() const { return viewModel().rowFromIndex(m_chosen); }

bool PaletteEntries::canBeChosen(unsigned row) const
{
    const CellRecord* const record = viewModel().peekCell(indexOf(row));
    return canBeMoved(row) && (!record || record->isEnabled());
}

bool PaletteEntries::canBeMoved(unsigned row) const
{
    const QModelIndex group = indexOf(row).parent();
    return group.isValid() && !group.parent().isValid();
}

void PaletteEntries::goToFirst()
{
    for (int group = 0; group < groupCount(); ++group) {
        const QModelIndex header = viewModel().index(group, 0);
        if (shownCount(group) == 0)
            continue;
        const QModelIndex first = viewModel().index(rowAtPlace(group, 0), 0, header);
        if (isShown(first)) {
            setCurrent(viewModel().rowFromIndex(first));
            return;
        }
    }
}

QPixmap PaletteEntries::pictureOf(unsigned entry)
{
    const QRect seen = visualRect(indexOf(entry)) & viewport()->rect();
    return seen.isEmpty() ? QPixmap() : viewport()->grab(seen);
}

// Drags -------------------------------------------------------------------------------------------

PaletteEntries::Gap PaletteEntries::gapAt(const QPoint& point) const
{
    constexpr int thick = 2;
    const QModelIndex index = indexAt(point);
    if (!index.isValid() || !filter().isEmpty())
        return {};
    const QRect rect = visualRect(index);
    if (!index.parent().isValid()) { // behind its last entry
        return {viewModel().rowFromIndex(index), 0,
                QRect(rect.left(), rect.bottom() - thick + 1, rect.width(), thick)};
    }
    const bool isLeftToRight = layoutDirection() == Qt::LeftToRight;
    const bool isBehind =
        m_isGrid ? (point.x() > rect.center().x()) == isLeftToRight : point.y() > rect.center().y();
    Gap gap;
    gap.group = viewModel().rowFromIndex(index.parent());
    gap.before = viewModel().rowFromIndex(isBehind ? index.siblingAtRow(index.row() + 1) : index);
    if (m_isGrid) {
        const int x = isBehind == isLeftToRight ? rect.right() - thick + 1 : rect.left();
        gap.mark = {x, rect.top(), thick, rect.height()};
    } else {
        const int y = isBehind ? rect.bottom() - thick + 1 : rect.top();
        gap.mark = {rect.left(), y, rect.width(), thick};
    }
    return gap;
}

void PaletteEntries::mark(const QRect& gap)
{
    m_mark = gap;
    viewport()->update();
}

void PaletteEntries::scrollAt(const QPoint& point)
{
    QScrollBar& bar = *verticalScrollBar();
    if (point.y() < Edge)
        bar.setValue(bar.value() - bar.singleStep() / 2);
    else if (point.y() >= viewport()->height() - Edge)
        bar.setValue(bar.value() + bar.singleStep() / 2);
}

/// What the pointer does here is done to the palette.
bool PaletteEntries::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
        const QtDeletionHold hold(&outer());
        if (!outer().passPointer(*viewport(), static_cast<QMouseEvent&>(*event)) || !hold.isAlive())
            return true;
        break;
    }
    default:
        break;
    }
    return FoldedView::viewportEvent(event);
}

// Painting ----------------------------------------------------------------------------------------

FoldedView::Metrics PaletteEntries::measure(int width) const
{
    const QFontMetrics text(font());
    const QSize picture = pictureSize();
    Metrics metrics;
    metrics.gap = 1;
    metrics.pad = m_isGrid ? Pad : 0;
    metrics.header = std::max(text.height() + Pad, Arrow) + Pad;
    if (m_isGrid) {
        const int tile =
            std::max(picture.width(), LettersInTile * text.averageCharWidth()) + 2 * Pad;
        metrics.rowsPerLine = std::max(width / tile, 1);
        metrics.rowHeight = picture.height() + text.height() + 3 * Pad;
    } else {
        metrics.rowHeight = std::max(picture.height(), text.height()) + Pad;
    }
    return metrics;
}

QStyle::PixelMetric PaletteEntries::pictureMetric() const
{
    return m_isGrid ? QStyle::PM_LargeIconSize : QStyle::PM_SmallIconSize;
}

PaletteEntries::Places PaletteEntries::placesIn(const QRect& rect, bool isHeader,
                                                bool hasIcon) const
{
    const QSize picture = pictureSize();
    const QRect inside = rect.adjusted(Pad, 0, -Pad, 0);
    if (isHeader)
        return {{}, mirrored(rect.adjusted(HeaderInset, 0, -Pad, 0), rect)};
    if (m_isGrid) {
        const QRect icon(inside.left(), rect.top() + Pad, inside.width(), picture.height());
        const int below = hasIcon ? icon.bottom() + Pad : rect.top();
        return {icon, QRect(QPoint(inside.left(), below), QPoint(inside.right(), rect.bottom()))};
    }
    const QRect icon(inside.left(), rect.top(), picture.width(), rect.height());
    const int before = hasIcon ? picture.width() + Pad : 0;
    return {mirrored(icon, rect), mirrored(inside.adjusted(before, 0, 0, 0), rect)};
}

bool PaletteEntries::isTextCut(const QModelIndex& index, const CellRecord& record) const
{
    const bool isHeader = !index.parent().isValid();
    const QRect rect = placesIn(visualRect(index), isHeader, record.style().icon.isValid()).text;
    return QFontMetrics(font()).horizontalAdvance(lineOf(record)) > rect.width()
           || record.text().size() > MostDrawn;
}

void PaletteEntries::paintHeader(QPainter& painter, const Row& row, Fold fold) const
{
    const QColor text = palette().color(row.colors, QPalette::ButtonText);
    const QColor under = palette().color(row.colors, QPalette::Button);
    const QVariant own = row.record->data(Qt::BackgroundRole);
    const QColor shade = blend(under, text, row.isHovered ? 0.16 : 0.08);
    painter.fillRect(row.rect, own.isValid() ? own.value<QColor>() : shade);
    const QRect arrow(row.rect.left() + Pad, row.rect.center().y() - Arrow / 2, Arrow, Arrow);
    paintArrow(painter, mirrored(arrow, row.rect), fold, text);
    paintText(painter, row, placesIn(row.rect, true, false).text, font(), text,
              Qt::AlignLeading | Qt::AlignVCenter);
    paintFocus(painter, row, row.rect.adjusted(1, 1, -1, -1));
}

void PaletteEntries::paintRow(QPainter& painter, const Row& row) const
{
    const bool isChosen = m_chosen == row.index;
    const QColor accent = palette().color(row.colors, QPalette::Highlight);
    const QVariant own = row.record->data(Qt::BackgroundRole);
    if (isChosen)
        painter.fillRect(row.rect, accent);
    else if (own.isValid())
        painter.fillRect(row.rect, own.value<QColor>());
    if (!isChosen && row.isHovered && row.isEnabled)
        painter.fillRect(row.rect,
                         blend(palette().color(row.colors, QPalette::Window), accent, 0.2));
    const Places places = placesIn(row.rect, false, row.record->style().icon.isValid());
    paintIcon(painter, row, places.icon, isChosen);
    const QColor text =
        palette().color(row.colors, isChosen ? QPalette::HighlightedText : QPalette::WindowText);
    paintText(painter, row, places.text, font(), text,
              m_isGrid ? Qt::AlignCenter : Qt::AlignLeading | Qt::AlignVCenter, !isChosen);
    paintFocus(painter, row, row.rect.adjusted(1, 1, -1, -1));
}

void PaletteEntries::paintEvent(QPaintEvent* event)
{
    FoldedView::paintEvent(event);
    if (!m_mark.isEmpty())
        QPainter(viewport()).fillRect(m_mark, palette().color(QPalette::Highlight));
}

} // namespace VOXI
