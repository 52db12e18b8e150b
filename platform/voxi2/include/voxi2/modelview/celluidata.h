#pragma once

#include "voxi2/kernel/alignment.h"
#include "voxi2/modelview/cellvalue.h"
#include "voxi_util/color.h"
#include "voxi_util/icon.h"

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace VOXI {

/// As what a cell is drawn.
enum class CellRenderer : int {
    Plain = 0,
    Background = 1, ///< nothing but the background
    Button = 2,
    CheckBox = 3, ///< ticked as the value is true; labelled by the renderer text
    ComboBox = 4, ///< editable where the renderer text is "true"
    HyperLink = 5,
};

/// What a view shows in a cell, or in a section of a header: a value, and how it looks.
///
///     cells.set(row, 1, "Anna");
///     cells.set(row, 2, CellUIData(-12.5).setForeground(red).setAlignment(AlignmentFlag::Right));
///
/// A cell is enabled, and read-only until it is said that it can be edited. Looks are implicitly
/// shared: cells that are made by copying one and giving it another value share its look.
class CellUIData
{
public:
    /// A colour that is not set.
    static constexpr Color NoColor = Color::fromRgba(0);

    /// What most cells have none of.
    struct Look
    {
        std::wstring toolTip;
        Icon icon;
        std::string fontFamily; ///< empty: the view's
        int fontSize = -1;      ///< in points; -1 is unset, for the next three as well
        int bold = -1;
        int italic = -1;
        int underline = -1;
        Color background = NoColor;
        Color foreground = NoColor;
        CellValue rendererText;
        unsigned widget = 0; ///< the id of a widget that edits the cell; 0 for none
    };

    CellUIData() = default;
    template <std::convertible_to<CellValue> Value>
    CellUIData(Value&& value) : m_value(std::forward<Value>(value))
    {}

    CellUIData& setValue(CellValue value)
    {
        m_value = std::move(value);
        return *this;
    }
    CellUIData& setAlignment(Alignment alignment)
    {
        m_alignment = static_cast<std::uint16_t>(alignment.toInt());
        return *this;
    }
    CellUIData& setEnabled(bool enabled) { return setState(EnabledBit, enabled); }
    /// Whether the user cannot edit it.
    CellUIData& setReadOnly(bool readOnly) { return setState(ReadOnlyBit, readOnly); }
    CellUIData& setRenderer(CellRenderer renderer, CellValue text = {})
    {
        m_renderer = static_cast<std::uint8_t>(renderer);
        return m_look || !text.isEmpty() ? put(&Look::rendererText, std::move(text)) : *this;
    }
    CellUIData& setToolTip(const AnyText& text) { return put(&Look::toolTip, text.toWide()); }
    CellUIData& setIcon(Icon icon) { return put(&Look::icon, std::move(icon)); }
    CellUIData& setFontFamily(std::string family)
    {
        return put(&Look::fontFamily, std::move(family));
    }
    CellUIData& setFontSize(int points) { return put(&Look::fontSize, points); }
    CellUIData& setBold(bool bold = true) { return put(&Look::bold, bold ? 1 : 0); }
    CellUIData& setItalic(bool italic = true) { return put(&Look::italic, italic ? 1 : 0); }
    CellUIData& setUnderline(bool line = true) { return put(&Look::underline, line ? 1 : 0); }
    CellUIData& setBackground(Color color) { return put(&Look::background, color); }
    CellUIData& setForeground(Color color) { return put(&Look::foreground, color); }
    /// The widget of that id becomes the cell's editor whenever the user edits the cell.
    CellUIData& setWidget(unsigned id) { return put(&Look::widget, id); }

    const CellValue& value() const noexcept { return m_value; }
    Alignment alignment() const noexcept { return Alignment::fromInt(m_alignment); }
    bool isEnabled() const noexcept { return (m_state & EnabledBit) != 0; }
    bool isReadOnly() const noexcept { return (m_state & ReadOnlyBit) != 0; }
    CellRenderer renderer() const noexcept { return static_cast<CellRenderer>(m_renderer); }

    /// Null while nothing of it was set; the same for all that share it.
    const Look* look() const noexcept { return m_look.get(); }

private:
    enum : std::uint8_t { EnabledBit = 1, ReadOnlyBit = 2 };

    CellUIData& setState(std::uint8_t bit, bool on)
    {
        m_state = static_cast<std::uint8_t>(on ? m_state | bit : m_state & ~bit);
        return *this;
    }
    template <class Field, class Value>
    CellUIData& put(Field Look::*field, Value value)
    {
        if (!m_look)
            m_look = std::make_shared<Look>();
        else if (m_look.use_count() > 1)
            m_look = std::make_shared<Look>(*m_look);
        (*m_look).*field = std::move(value);
        return *this;
    }

    CellValue m_value;
    std::shared_ptr<Look> m_look;
    std::uint16_t m_alignment = 0;
    std::uint8_t m_state = EnabledBit | ReadOnlyBit;
    std::uint8_t m_renderer = 0;
};

} // namespace VOXI
