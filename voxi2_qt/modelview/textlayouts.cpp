#include "textlayouts.h"

#include <QStyle>
#include <QTextOption>

#include <utility>

namespace VOXI {

namespace {
constexpr std::size_t MaxFonts = 64;

/// As QItemDelegate does it; the results must not differ by a pixel.
QSizeF layOut(QTextLayout& layout, int width)
{
    qreal height = 0;
    qreal widthUsed = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height));
        height += line.height();
        widthUsed = qMax(widthUsed, line.naturalTextWidth());
    }
    layout.endLayout();
    return {widthUsed, height};
}
} // namespace

std::shared_ptr<TextLayouts> TextLayouts::shared()
{
    static std::weak_ptr<TextLayouts> s_shared;
    std::shared_ptr<TextLayouts> layouts = s_shared.lock();
    if (!layouts)
        s_shared = layouts = std::make_shared<TextLayouts>();
    return layouts;
}

const TextLayouts::Font& TextLayouts::fontOf(const QFont& own, const QFont& base)
{
    const auto isIt = [&](const Font& font) {
        return font.own.isCopyOf(own) && font.base.isCopyOf(base);
    };
    if (m_lastFont < m_fonts.size() && isIt(m_fonts[m_lastFont]))
        return m_fonts[m_lastFont];
    for (m_lastFont = 0; m_lastFont < m_fonts.size(); ++m_lastFont) {
        if (isIt(m_fonts[m_lastFont]))
            return m_fonts[m_lastFont];
    }
    if (m_fonts.size() >= MaxFonts)
        clear();
    m_lastFont = m_fonts.size();
    const QFont resolved = own.resolve(base);
    m_fonts.push_back({own, base, resolved, QFontMetrics(resolved), m_numberOfFonts++});
    return m_fonts.back();
}

const TextLayouts::Layout* TextLayouts::layoutOf(const QString& text, const Font& font,
                                                 const Form& form)
{
    Key key{text, form, font.number};
    if (const auto found = m_young.constFind(key); found != m_young.cend())
        return found->get();
    if (std::shared_ptr<Layout> known = m_old.take(key))
        return keep(key, known);
    if (text.contains(u'\n') || text.contains(QChar::LineSeparator))
        return nullptr;
    std::shared_ptr<Layout> layout = make(key, font);
    return keep(key, layout);
}

std::shared_ptr<TextLayouts::Layout> TextLayouts::make(const Key& key, const Font& font)
{
    const Form& form = key.form;
    QTextOption option;
    option.setWrapMode(form.wraps ? QTextOption::WordWrap : QTextOption::ManualWrap);
    option.setTextDirection(form.direction);
    option.setAlignment(QStyle::visualAlignment(form.direction, form.alignment));
    auto made = std::make_shared<Layout>();
    QTextLayout& layout = made->layout;
    layout.setCacheEnabled(true);
    layout.setTextOption(option);
    layout.setFont(font.resolved);
    layout.setText(key.text);
    made->size = layOut(layout, form.size.width());
    if (form.size.width() < made->size.width() || form.size.height() < made->size.height()) {
        layout.setText(font.metrics.elidedText(key.text, form.elideMode, form.size.width()));
        made->size = layOut(layout, form.size.width());
    }
    return made;
}

const TextLayouts::Layout* TextLayouts::keep(const Key& key, const std::shared_ptr<Layout>& layout)
{
    if (m_young.size() >= Limit) {
        m_old = std::exchange(m_young, {});
        m_young.reserve(Limit);
    }
    return m_young.insert(key, layout)->get();
}

void TextLayouts::clear()
{
    m_fonts.clear();
    m_young.clear();
    m_old.clear();
}

} // namespace VOXI
