#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QHash>
#include <QString>
#include <QTextLayout>

#include <memory>
#include <vector>

namespace VOXI {

/// Texts as QItemDelegate lays them out in cells, kept: laying out is most of what drawing a cell
/// costs, and views draw the same cells again and again. Toolkit's thread only.
class TextLayouts
{
public:
    /// A font of a cell, made one with that of its view.
    struct Font
    {
        QFont own;
        QFont base;
        QFont resolved;
        QFontMetrics metrics;
        unsigned number;
    };
    /// What a layout depends on beside font and text.
    struct Form
    {
        QSize size; ///< of the room for it
        Qt::Alignment alignment;
        Qt::LayoutDirection direction = Qt::LeftToRight;
        Qt::TextElideMode elideMode = Qt::ElideRight;
        bool wraps = false;

        friend bool operator==(const Form&, const Form&) = default;
    };
    struct Layout
    {
        QTextLayout layout;
        QSizeF size;
    };

    /// What all views share, as long as one has it.
    static std::shared_ptr<TextLayouts> shared();

    /// The view's font itself. What these two give is valid until the next call.
    const Font& fontOf(const QFont& base) { return fontOf(base, base); }
    const Font& fontOf(const QFont& own, const QFont& base);
    /// Null for a text of several lines. Valid until the next call.
    const Layout* layoutOf(const QString& text, const Font& font, const Form& form);

    void clear();
    qsizetype size() const { return m_young.size() + m_old.size(); }

    /// In each of the two generations.
    static constexpr qsizetype Limit = 4096;

private:
    struct Key
    {
        QString text;
        Form form;
        unsigned font;

        friend bool operator==(const Key&, const Key&) = default;
        friend size_t qHash(const Key& key, size_t seed = 0)
        {
            const quint64 rest = quint64(key.form.size.width()) << 32
                                 | quint64(key.form.size.height()) << 16 | key.font;
            return ::qHash(key.text, seed ^ ::qHash(rest));
        }
    };
    using Layouts = QHash<Key, std::shared_ptr<Layout>>;

    static std::shared_ptr<Layout> make(const Key& key, const Font& font);
    const Layout* keep(const Key& key, const std::shared_ptr<Layout>& layout);

    std::vector<Font> m_fonts;
    std::size_t m_lastFont = 0;
    unsigned m_numberOfFonts = 0;
    /// Those used since the former generation was full, and that one.
    Layouts m_young;
    Layouts m_old;
};

} // namespace VOXI
