#pragma once

#include "voxi2/controls/textareavalues.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QTextCharFormat>

namespace VOXI {

/// What is to be laid over a text: what is not so in it has no say.
inline QTextCharFormat VX2Qt(const TextStyle& style)
{
    QTextCharFormat format;
    if (style.color)
        format.setForeground(VX2Qt(*style.color));
    if (style.background)
        format.setBackground(VX2Qt(*style.background));
    if (style.isBold)
        format.setFontWeight(QFont::Bold);
    if (style.isItalic)
        format.setFontItalic(true);
    if (style.isUnderlined)
        format.setFontUnderline(true);
    return format;
}

inline TextStyle Qt2VX(const QTextCharFormat& format)
{
    const auto colorOf = [](const QBrush& brush) -> std::optional<Color> {
        if (brush.style() == Qt::NoBrush)
            return std::nullopt;
        return Qt2VX(brush.color());
    };
    return {colorOf(format.foreground()), colorOf(format.background()),
            format.fontWeight() >= QFont::DemiBold, format.fontItalic(), format.fontUnderline()};
}

} // namespace VOXI
