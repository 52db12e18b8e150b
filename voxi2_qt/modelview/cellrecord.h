#pragma once

#include "voxi2/kernel/alignment.h"
#include "voxi2/modelview/celluidata.h"
#include "voxi_util/color.h"
#include "voxi_util/icon.h"

#include <QExplicitlySharedDataPointer>
#include <QHash>
#include <QSharedData>
#include <QString>
#include <QVariant>

#include <string>

namespace VOXI {

/// How a cell looks, apart from what it says: what many cells have in common.
struct CellLook
{
    std::string fontFamily;
    int fontSize = -1;
    int bold = -1;
    int italic = -1;
    int underline = -1;
    Color background = CellUIData::NoColor;
    Color foreground = CellUIData::NoColor;
    Icon icon;
    Alignment alignment;
    CellRenderer renderer = CellRenderer::Plain;
    bool isEnabled = true;
    bool isReadOnly = true;

    CellLook() = default;
    explicit CellLook(const CellUIData& data);

    friend bool operator==(const CellLook&, const CellLook&) = default;
};

size_t qHash(const CellLook& look, size_t seed = 0);

/// A look as Qt has it, made once for all cells that have it.
struct CellStyle : QSharedData
{
    explicit CellStyle(const CellLook& look);

    QVariant font;
    QVariant alignment;
    QVariant background;
    QVariant foreground;
    QVariant icon;
    CellRenderer renderer;
    bool isEnabled;
    bool isReadOnly;
};
using CellStylePointer = QExplicitlySharedDataPointer<CellStyle>;

/// The styles in use.
class CellStyles
{
public:
    CellStylePointer styleOf(const CellUIData& data);
    /// After the application's font has changed, from which fonts take what is not set.
    void remakeFonts();
    qsizetype size() const { return m_styles.size(); }

private:
    QHash<CellLook, CellStylePointer> m_styles;
    qsizetype m_limit = 64;
};

/// What is known of a cell, in as little room as can be: views know tens of thousands.
class CellRecord
{
public:
    CellRecord() = default;
    CellRecord(const CellUIData& data, CellStyles& styles);

    /// Of Qt's roles and ours; invalid where there is nothing to say.
    QVariant data(int role) const;
    bool isEnabled() const { return m_style->isEnabled; }
    bool isReadOnly() const { return m_style->isReadOnly; }
    CellRenderer renderer() const { return m_style->renderer; }
    /// Null when there is no value.
    const QString& text() const { return m_text; }
    const CellStyle& style() const { return *m_style; }
    bool hasWidget() const { return m_rest && m_rest->widget != 0; }

private:
    struct Rest : QSharedData
    {
        QString toolTip;
        QString rendererText;
        unsigned widget = 0;
    };

    QString m_text;
    CellStylePointer m_style;
    QExplicitlySharedDataPointer<Rest> m_rest; ///< null for most cells
};

} // namespace VOXI
