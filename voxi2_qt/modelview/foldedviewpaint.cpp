// The part of FoldedView that is about what it looks like.

#include "cellrecord.h"
#include "extentsums.h"
#include "qtviewmodel2.h"
#include "qtviewsight.h"
#include "textlayouts.h"
#include "voxi2_qt/modelview/foldedview.h"

#include <QIcon>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>

namespace VOXI {

void FoldedView::changeEvent(QEvent* event)
{
    QAbstractItemView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange
        || event->type() == QEvent::LayoutDirectionChange) {
        m_layouts->clear();
        looksChanged();
    }
}

void FoldedView::paintEvent(QPaintEvent* event)
{
    if (!isAlive())
        return;
    layOutNow();
    QPainter painter(viewport());
    const QRect area = event->rect();
    int group = m_sums->at(qint64(area.top()) + verticalOffset() - m_metrics.margin);
    while (group < m_sums->count() && headerRect(group).top() <= area.bottom()) {
        paintGroup(painter, group, area);
        group = m_sums->at(m_sums->before(group + 1));
    }
    painter.end();
    m_sight->paintWaiting(area);
}

void FoldedView::paintGroup(QPainter& painter, int group, const QRect& area) const
{
    const QModelIndex header = m_model->index(group, 0);
    const QRect headerPlace = headerRect(group);
    const QRect body = bodyRect(group);
    paintFrame(painter, headerPlace.united(body));
    if (headerPlace.intersects(area))
        paintHeader(painter, rowToPaint(header, headerPlace), foldOf(group));
    const QRect seen = body & area;
    if (seen.isEmpty())
        return;
    painter.save();
    painter.setClipRect(seen);
    const int firstLine = (seen.top() - body.top() - m_metrics.pad) / m_metrics.rowHeight;
    const int first = std::max(firstLine, 0) * m_metrics.rowsPerLine;
    const int count = shownCount(group);
    for (int place = first; place < count; ++place) {
        const QRect rect = rowRect(group, place);
        if (rect.isEmpty() || rect.top() > seen.bottom())
            break;
        paintRow(painter, rowToPaint(m_model->index(rowAtPlace(group, place), 0, header), rect));
    }
    painter.restore();
}

FoldedView::Row FoldedView::rowToPaint(const QModelIndex& index, const QRect& rect) const
{
    // Of what is not known yet there is nothing to draw but the header.
    static CellStyles s_styles;
    static const CellRecord s_unknown(CellUIData(), s_styles);
    const CellRecord* const known = m_model->cell(index);
    Row row{index, known ? known : &s_unknown, rect, QPalette::Disabled, false, false, false};
    row.isEnabled = isEnabled() && row.record->isEnabled();
    if (row.isEnabled)
        row.colors = isActiveWindow() ? QPalette::Active : QPalette::Inactive;
    row.isHovered = m_hovered == index;
    row.isCurrent = hasFocus() && currentIndex() == index;
    return row;
}

FoldedView::Fold FoldedView::foldOf(int group) const
{
    const QModelIndex header = m_model->index(group, 0);
    if (!m_filter.isEmpty() || !m_model->hasChildren(header))
        return Fold::None;
    return isFolded(m_model->rowFromIndex(header)) ? Fold::Folded : Fold::Unfolded;
}

void FoldedView::paintFrame(QPainter&, const QRect&) const {}

// For derived classes -----------------------------------------------------------------------------

/// One line of it: what is longer ends in dots.
QString FoldedView::lineOf(const CellRecord& record)
{
    QString text = record.text().left(MostDrawn);
    if (text.contains(u'\n') || text.contains(u'\r') || text.contains(QChar::LineSeparator)
        || text.contains(QChar::ParagraphSeparator))
        text = text.simplified();
    return text;
}

void FoldedView::paintText(QPainter& painter, const Row& row, const QRect& rect, const QFont& base,
                           const QColor& color, Qt::Alignment alignment, bool takesOwnColor) const
{
    const QString text = lineOf(*row.record);
    if (text.isEmpty() || rect.isEmpty())
        return;
    const QVariant own = row.record->data(Qt::FontRole);
    QFont wanted = own.isValid() ? own.value<QFont>() : base;
    if (own.isValid() && base.underline())
        wanted.setUnderline(true);
    const TextLayouts::Font& font = m_layouts->fontOf(wanted, base);
    TextLayouts::Form form;
    form.size = rect.size();
    form.alignment = alignment;
    form.direction = layoutDirection();
    form.elideMode = Qt::ElideRight;
    const TextLayouts::Layout* const layout = m_layouts->layoutOf(text, font, form);
    if (!layout)
        return;
    const QVariant foreground = row.record->data(Qt::ForegroundRole);
    const bool isOwn = takesOwnColor && row.isEnabled && foreground.isValid();
    painter.setPen(isOwn ? foreground.value<QColor>() : color);
    const QSize size(rect.width(), int(layout->size.height()));
    const QRect place = QStyle::alignedRect(form.direction, alignment, size, rect);
    layout->layout.draw(&painter, place.topLeft());
}

void FoldedView::paintIcon(QPainter& painter, const Row& row, const QRect& rect,
                           bool isSelected) const
{
    const QVariant& icon = row.record->style().icon;
    if (!icon.isValid())
        return;
    QIcon::Mode mode = isSelected ? QIcon::Selected : QIcon::Normal;
    if (!row.isEnabled)
        mode = QIcon::Disabled;
    icon.value<QIcon>().paint(&painter, rect, Qt::AlignCenter, mode);
}

void FoldedView::paintFocus(QPainter& painter, const Row& row, const QRect& rect) const
{
    if (!row.isCurrent)
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = rect;
    option.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
    option.backgroundColor = palette().color(QPalette::Window);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void FoldedView::paintArrow(QPainter& painter, const QRect& rect, Fold fold,
                            const QColor& color) const
{
    if (fold == Fold::None)
        return;
    QStyleOption option;
    option.initFrom(this);
    option.rect = rect;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto role : {QPalette::ButtonText, QPalette::WindowText, QPalette::Text})
            option.palette.setColor(group, role, color);
    }
    QStyle::PrimitiveElement arrow = QStyle::PE_IndicatorArrowDown;
    if (fold == Fold::Folded)
        arrow = layoutDirection() == Qt::LeftToRight ? QStyle::PE_IndicatorArrowRight
                                                     : QStyle::PE_IndicatorArrowLeft;
    style()->drawPrimitive(arrow, &option, &painter, this);
}

QColor FoldedView::blend(const QColor& under, const QColor& over, double share)
{
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {mix(under.red(), over.red()), mix(under.green(), over.green()),
            mix(under.blue(), over.blue())};
}

} // namespace VOXI
