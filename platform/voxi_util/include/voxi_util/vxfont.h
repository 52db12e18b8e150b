#pragma once

#include <string>
#include <utility>

namespace VOXI {

enum class FontStyle { Normal, Italic, Oblique };

/// What is wanted of a font. The default wants nothing in particular but normal weight and style.
class VXFont
{
public:
    /// Steps of the weight, which is any number of 0 to 99.
    static constexpr int Light = 25;
    static constexpr int Normal = 50;
    static constexpr int DemiBold = 63;
    static constexpr int Bold = 75;
    static constexpr int Black = 87;

    VXFont() = default;
    explicit VXFont(std::string family, int pointSize = 0, int weight = Normal,
                    FontStyle style = FontStyle::Normal)
        : m_family(std::move(family)),
          m_pointSize(pointSize),
          m_style(style)
    {
        setWeight(weight);
    }

    /// Empty: the family is left as it is.
    const std::string& family() const noexcept { return m_family; }
    void setFamily(std::string family) { m_family = std::move(family); }

    /// 0 or less: the size is left as it is.
    int pointSize() const noexcept { return m_pointSize; }
    void setPointSize(int size) noexcept { m_pointSize = size; }

    int weight() const noexcept { return m_weight; }
    /// Clamped to 0 to 99.
    void setWeight(int weight) noexcept { m_weight = weight < 0 ? 0 : weight > 99 ? 99 : weight; }
    bool isBold() const noexcept { return m_weight > Normal; }

    FontStyle style() const noexcept { return m_style; }
    void setStyle(FontStyle style) noexcept { m_style = style; }

    bool underline() const noexcept { return m_underline; }
    void setUnderline(bool underline) noexcept { m_underline = underline; }

    friend bool operator==(const VXFont&, const VXFont&) = default;

private:
    std::string m_family;
    int m_pointSize = 0;
    int m_weight = Normal;
    FontStyle m_style = FontStyle::Normal;
    bool m_underline = false;
};

} // namespace VOXI
