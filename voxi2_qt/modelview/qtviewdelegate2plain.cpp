#include "cellrecord.h"
#include "qtviewdelegate2.h"
#include "textlayouts.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

namespace VOXI {

namespace {
/// What a style has made holds the very type.
template <class Value>
const Value& in(const QVariant& variant)
{
    return *static_cast<const Value*>(variant.constData());
}
} // namespace

/// A cell that has a text and nothing else to draw.
struct QtViewDelegate2::PlainCell
{
    const QString& text;
    const QVariant& font;
    const QVariant& alignment;
    const QVariant& background;
    const QVariant& foreground;
};

bool QtViewDelegate2::paintRecord(QPainter* painter, const QStyleOptionViewItem& option,
                                  const CellRecord& record) const
{
    const CellStyle& style = record.style();
    const bool isText =
        record.renderer() == CellRenderer::Plain || record.renderer() == CellRenderer::HyperLink;
    if (!isText || style.icon.isValid() || record.hasWidget())
        return false;
    return paintPlain(
        painter, option,
        {record.text(), style.font, style.alignment, style.background, style.foreground});
}

bool QtViewDelegate2::paintPlain(QPainter* painter, const QStyleOptionViewItem& option,
                                 const PlainCell& cell) const
{
    const bool isSelected = option.state & QStyle::State_Selected;
    // The rare: a text that is not as large as the cell, or in Qt's frame of editing.
    if (!option.showDecorationSelected || (option.state & QStyle::State_Editing) || !hasClipping())
        return false;

    const TextLayouts::Font& font = cell.font.isValid()
                                        ? m_layouts->fontOf(in<QFont>(cell.font), option.font)
                                        : m_layouts->fontOf(option.font);
    const QStyle* const style = option.widget ? option.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    const QRect room = option.rect.adjusted(margin, 0, -margin, 0);
    TextLayouts::Form form;
    form.size = room.size();
    form.alignment =
        cell.alignment.isValid() ? Qt::Alignment(cell.alignment.toInt()) : option.displayAlignment;
    form.direction = option.direction;
    form.elideMode = option.textElideMode;
    form.wraps = option.features & QStyleOptionViewItem::WrapText;
    const TextLayouts::Layout* layout = nullptr;
    if (!cell.text.isEmpty()) {
        layout = m_layouts->layoutOf(cell.text, font, form);
        if (!layout)
            return false;
    }

    // From here on what QItemDelegate does, step by step.
    painter->save();
    painter->setClipRect(option.rect);
    QPalette::ColorGroup group = QPalette::Disabled;
    if (option.state & QStyle::State_Enabled)
        group = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    if (isSelected) {
        const QBrush& brush = option.palette.brush(group, QPalette::Highlight);
        painter->fillRect(option.rect, brush);
        if (!brush.isOpaque())
            painter->fillRect(option.rect, brush); // the background, and that of the text
    } else if (cell.background.isValid()) {
        painter->fillRect(option.rect, in<QColor>(cell.background));
    }
    if (isSelected)
        painter->setPen(option.palette.color(group, QPalette::HighlightedText));
    else if (cell.foreground.isValid())
        painter->setPen(in<QColor>(cell.foreground));
    else
        painter->setPen(option.palette.color(group, QPalette::Text));
    if (layout) {
        const QSize size(room.width(), int(layout->size.height()));
        const QRect place = QStyle::alignedRect(form.direction, form.alignment, size, room);
        layout->layout.draw(painter, place.topLeft(), {}, place);
    }
    drawFocus(painter, option, option.rect);
    painter->restore();
    return true;
}

void QtViewDelegate2::clearPaintCache() { m_layouts->clear(); }

} // namespace VOXI
