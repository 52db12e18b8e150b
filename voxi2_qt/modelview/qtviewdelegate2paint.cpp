#include "cellrecord.h"
#include "cellroles.h"
#include "qtviewdelegate2.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyle>

namespace VOXI {

namespace {
QPalette::ColorGroup colorGroup(QStyle::State state)
{
    if (!(state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

QStyle* styleOf(const QStyleOptionViewItem& option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

/// What every control takes from the cell.
void take(QStyleOption& control, const QStyleOptionViewItem& cell)
{
    control.state = cell.state;
    control.fontMetrics = cell.fontMetrics;
    control.direction = cell.direction;
    control.palette = cell.palette;
    control.rect = cell.rect;
}

bool isAnyWidget(unsigned id)
{
    const VXObjectDataLocker lock;
    return id != 0 && qWidgetOf(lookup(id));
}

QString textOf(const QModelIndex& index) { return index.data(Qt::DisplayRole).toString(); }

/// A cell has no access keys: what looks like one is part of the text.
QString buttonText(QString text) { return text.replace(u'&', QLatin1String("&&")); }

QStyleOptionButton pushButton(const QStyleOptionViewItem& cell, const QModelIndex& index)
{
    QStyleOptionButton button;
    take(button, cell);
    button.state |= QStyle::State_Raised;
    button.text = buttonText(textOf(index));
    return button;
}

QStyleOptionButton checkBox(const QStyleOptionViewItem& cell, const QModelIndex& index)
{
    QStyleOptionButton box;
    take(box, cell);
    const bool isTicked = index.data(Qt::DisplayRole).toBool();
    box.state |= isTicked ? QStyle::State_On : QStyle::State_Off;
    box.text = buttonText(index.data(CellRendererTextRole).toString());
    return box;
}

QStyleOptionComboBox comboBox(const QStyleOptionViewItem& cell, const QModelIndex& index)
{
    QStyleOptionComboBox box;
    take(box, cell);
    box.state &= ~QStyle::State_HasFocus;
    box.currentText = textOf(index);
    box.editable = index.data(CellRendererTextRole).toString() == QLatin1String("true");
    return box;
}

/// A painter for a control in a cell.
class ControlPainter
{
public:
    ControlPainter(QPainter* painter, const QStyleOptionViewItem& option) : m_painter(painter)
    {
        painter->save();
        painter->setClipRect(option.rect);
        painter->setFont(option.font);
    }
    ~ControlPainter() { m_painter->restore(); }
    ControlPainter(const ControlPainter&) = delete;
    ControlPainter& operator=(const ControlPainter&) = delete;

private:
    QPainter* m_painter;
};
} // namespace

void QtViewDelegate2::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    if (hasIndexWidget(index)) {
        paintUnderWidget(painter, option, index);
        return;
    }
    if (const CellRecord* const record = m_view.cellRecord(index);
        record && paintRecord(painter, option, *record))
        return;
    if (const int kind = index.data(CellRendererRole).toInt(); kind != 0) {
        paintControl(painter, option, index, kind);
    } else if (isAnyWidget(index.data(CellWidgetRole).toUInt())) {
        wantSettled(index);
        paintControl(painter, option, index, kind);
    } else {
        renderText(painter, option, index);
    }
}

bool QtViewDelegate2::hasIndexWidget(const QModelIndex& index) const
{
    return (m_editor && m_editorIndex == index)
           || (!m_embedded.isEmpty() && m_itemView.indexWidget(index));
}

void QtViewDelegate2::paintUnderWidget(QPainter* painter, const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const
{
    // Widgets are translucent; the cell's own text must not show through.
    drawBackground(painter, setOptions(index, option), index);
    if (carriesOther(index))
        wantSettled(index);
}

void QtViewDelegate2::paintControl(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index, int kind) const
{
    if (kind == 5) {
        renderHyperLink(painter, option, index);
        return;
    }
    const QStyleOptionViewItem cell = setOptions(index, option);
    drawBackground(painter, cell, index);
    switch (kind) {
    case 2:
        renderButton(painter, cell, index);
        break;
    case 3:
        renderCheckBox(painter, cell, index);
        break;
    case 4:
        renderComboBox(painter, cell, index);
        break;
    default:
        break;
    }
    drawFocus(painter, cell, cell.rect);
}

/// As the style wants it for the control; none for texts.
QSize QtViewDelegate2::controlSize(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
{
    const int kind = index.data(CellRendererRole).toInt();
    if (kind < 2 || kind > 4)
        return {};
    const QStyleOptionViewItem cell = setOptions(index, option);
    const auto sizeOf = [&](QStyle::ContentsType type, const QStyleOption& control,
                            const QString& text) {
        return styleOf(option)->sizeFromContents(
            type, &control, cell.fontMetrics.size(Qt::TextShowMnemonic, text), option.widget);
    };
    if (kind == 4) {
        const QStyleOptionComboBox box = comboBox(cell, index);
        return sizeOf(QStyle::CT_ComboBox, box, box.currentText);
    }
    if (kind == 3) {
        const QStyleOptionButton box = checkBox(cell, index);
        return sizeOf(QStyle::CT_CheckBox, box, box.text);
    }
    const QStyleOptionButton button = pushButton(cell, index);
    return sizeOf(QStyle::CT_PushButton, button, button.text);
}

void QtViewDelegate2::renderButton(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
{
    const ControlPainter state(painter, option);
    const QStyleOptionButton button = pushButton(option, index);
    styleOf(option)->drawControl(QStyle::CE_PushButton, &button, painter, option.widget);
}

void QtViewDelegate2::renderCheckBox(QPainter* painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const
{
    const ControlPainter state(painter, option);
    QStyleOptionButton box = checkBox(option, index);
    box.palette = getHighlightedPalette(option, option.widget);
    styleOf(option)->drawControl(QStyle::CE_CheckBox, &box, painter, option.widget);
}

void QtViewDelegate2::renderComboBox(QPainter* painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const
{
    const ControlPainter state(painter, option);
    QStyle* const style = styleOf(option);
    const QStyleOptionComboBox box = comboBox(option, index);
    style->drawComplexControl(QStyle::CC_ComboBox, &box, painter, option.widget);
    style->drawControl(QStyle::CE_ComboBoxLabel, &box, painter, option.widget);
    if (box.editable) {
        QStyleOptionViewItem field = option;
        field.state &= ~QStyle::State_HasFocus;
        field.rect = style->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxEditField,
                                           option.widget);
        QItemDelegate::paint(painter, field, index);
    }
}

void QtViewDelegate2::renderHyperLink(QPainter* painter, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    // Not in the colour of links: it looks like any other text, also in the background and with the
    // focus, and that is meant so.
    QItemDelegate::paint(painter, option, index);
}

void QtViewDelegate2::renderText(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    QItemDelegate::paint(painter, option, index);
}

QPalette QtViewDelegate2::getHighlightedPalette(const QStyleOptionViewItem& option,
                                                const QWidget* widget) const
{
    QPalette palette = widget ? widget->palette() : option.palette;
    // A style looks at the current group, which need not be that of the state.
    palette.setCurrentColorGroup(option.palette.currentColorGroup());
    if (option.state & QStyle::State_Selected) {
        const QPalette::ColorGroup group = colorGroup(option.state);
        const QColor back = palette.color(group, QPalette::Highlight);
        const QColor text = palette.color(group, QPalette::HighlightedText);
        for (const auto each : {group, palette.currentColorGroup()}) {
            palette.setColor(each, QPalette::Window, back);
            palette.setColor(each, QPalette::WindowText, text);
        }
    }
    return palette;
}

} // namespace VOXI
