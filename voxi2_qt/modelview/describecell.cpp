#include "describecell.h"

#include "cellrecord.h"
#include "cellroles.h"
#include "voxi2/modelview/cellinfo.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QFont>
#include <QPalette>

namespace VOXI {

namespace {

Color colorOf(const QVariant& value, const QColor& otherwise)
{
    return Qt2VX(value.isValid() ? value.value<QColor>() : otherwise);
}

} // namespace

void describeCell(CellInfo& info, const CellRecord& record, const QPalette& palette,
                  const QFont& font)
{
    info.isKnown = true;
    info.isEnabled = record.isEnabled();
    info.isReadOnly = record.isReadOnly();
    info.renderer = record.renderer();
    info.text = toStdWString(record.text());
    info.rendererText = toStdWString(record.data(CellRendererTextRole).toString());
    info.toolTip = toStdWString(record.data(Qt::ToolTipRole).toString());
    info.hasIcon = record.data(Qt::DecorationRole).isValid();
    const QVariant ownFont = record.data(Qt::FontRole);
    info.font = Qt2VX(ownFont.isValid() ? ownFont.value<QFont>().resolve(font) : font);
    const QVariant alignment = record.data(Qt::TextAlignmentRole);
    if (alignment.isValid())
        info.alignment = Qt2VX(Qt::Alignment(alignment.toInt()));
    info.background = colorOf(record.data(Qt::BackgroundRole), palette.color(QPalette::Base));
    info.foreground = colorOf(record.data(Qt::ForegroundRole), palette.color(QPalette::Text));
    info.widget = record.data(CellWidgetRole).toUInt();
}

} // namespace VOXI
