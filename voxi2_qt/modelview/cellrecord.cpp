#include "cellrecord.h"

#include "cellroles.h"
#include "voxi2_qt/kernel/qtcolor.h"
#include "voxi2_qt/kernel/qtenums.h"
#include "voxi2_qt/kernel/qticon.h"
#include "voxi2_qt/kernel/qttext.h"

#include <QColor>
#include <QFont>

namespace VOXI {

namespace {
QVariant fontOf(const CellLook& look)
{
    const bool isSet = !look.fontFamily.empty() || look.fontSize != -1 || look.bold != -1
                       || look.italic != -1 || look.underline != -1;
    if (!isSet)
        return {};
    QFont font;
    if (!look.fontFamily.empty())
        font.setFamily(toQString(look.fontFamily));
    if (look.fontSize > 0)
        font.setPointSize(look.fontSize);
    if (look.bold != -1)
        font.setBold(look.bold != 0);
    if (look.italic != -1)
        font.setItalic(look.italic != 0);
    if (look.underline != -1)
        font.setUnderline(look.underline != 0);
    return font;
}

QVariant colorOf(Color color)
{
    return color == CellUIData::NoColor ? QVariant() : QVariant(VX2Qt(color));
}

/// Whatever it is, it is not null.
QString textOf(const CellValue& value)
{
    const QString text = toQString(value.textU());
    return text.isNull() ? QString(0, QChar()) : text;
}

QVariant orNone(const QString& text) { return text.isNull() ? QVariant() : QVariant(text); }
} // namespace

CellLook::CellLook(const CellUIData& data)
    : alignment(data.alignment()),
      renderer(data.renderer()),
      isEnabled(data.isEnabled()),
      isReadOnly(data.isReadOnly())
{
    const CellUIData::Look* const look = data.look();
    if (!look)
        return;
    fontFamily = look->fontFamily;
    fontSize = look->fontSize;
    bold = look->bold;
    italic = look->italic;
    underline = look->underline;
    background = look->background;
    foreground = look->foreground;
    icon = look->icon;
}

size_t qHash(const CellLook& look, size_t seed)
{
    // Icons are equal by content. Most differ in the file or data that they begin with.
    size_t icon = look.icon.layers().size();
    if (icon != 0 && !look.icon.layers().front().sources.empty()) {
        const Pixmap& pixmap = look.icon.layers().front().sources.front().pixmap;
        icon = qHashMulti(icon, std::hash<std::string>{}(pixmap.path()), pixmap.data().size(),
                          pixmap.width(), pixmap.height());
    }
    return qHashMulti(seed, icon, std::hash<std::string>{}(look.fontFamily), look.fontSize,
                      look.bold, look.italic, look.underline, look.background.rgba(),
                      look.foreground.rgba(), look.alignment.toInt(), int(look.renderer),
                      look.isEnabled, look.isReadOnly);
}

CellStyle::CellStyle(const CellLook& look)
    : font(fontOf(look)),
      background(colorOf(look.background)),
      foreground(colorOf(look.foreground)),
      renderer(look.renderer),
      isEnabled(look.isEnabled),
      isReadOnly(look.isReadOnly)
{
    if (look.alignment != Alignment())
        alignment = static_cast<int>(VX2Qt(look.alignment));
    if (!look.icon.isNull())
        icon = VX2Qt(look.icon);
}

CellStylePointer CellStyles::styleOf(const CellUIData& data)
{
    const CellLook look(data);
    if (const auto found = m_styles.constFind(look); found != m_styles.cend())
        return found.value();
    if (m_styles.size() >= m_limit) {
        m_styles.removeIf([](decltype(m_styles)::iterator entry) {
            return entry.value()->ref.loadRelaxed() == 1;
        });
        m_limit = qMax(m_limit, 2 * m_styles.size());
    }
    CellStylePointer style(new CellStyle(look));
    m_styles.insert(look, style);
    return style;
}

void CellStyles::remakeFonts()
{
    for (auto entry = m_styles.cbegin(); entry != m_styles.cend(); ++entry)
        entry.value()->font = fontOf(entry.key());
}

CellRecord::CellRecord(const CellUIData& data, CellStyles& styles) : m_style(styles.styleOf(data))
{
    if (!data.value().isEmpty())
        m_text = textOf(data.value());
    const CellUIData::Look* const look = data.look();
    if (!look || (look->toolTip.empty() && look->rendererText.isEmpty() && look->widget == 0))
        return;
    m_rest = new Rest;
    if (!look->toolTip.empty())
        m_rest->toolTip = toQString(look->toolTip);
    if (!look->rendererText.isEmpty())
        m_rest->rendererText = textOf(look->rendererText);
    m_rest->widget = look->widget;
}

QVariant CellRecord::data(int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return orNone(m_text);
    case Qt::DecorationRole:
        return m_style->icon;
    case Qt::ToolTipRole:
        return m_rest ? orNone(m_rest->toolTip) : QVariant();
    case Qt::FontRole:
        return m_style->font;
    case Qt::TextAlignmentRole:
        return m_style->alignment;
    case Qt::BackgroundRole:
        return m_style->background;
    case Qt::ForegroundRole:
        return m_style->foreground;
    case CellEnabledRole:
        return m_style->isEnabled;
    case CellReadOnlyRole:
        return m_style->isReadOnly;
    case CellRendererRole:
        return static_cast<int>(m_style->renderer);
    case CellRendererTextRole:
        return m_rest ? orNone(m_rest->rendererText) : QVariant();
    case CellWidgetRole:
        return m_rest && m_rest->widget != 0 ? QVariant(m_rest->widget) : QVariant();
    default:
        return {};
    }
}

} // namespace VOXI
