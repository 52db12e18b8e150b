#pragma once

#include "voxi2/voxi2_export.h"
#include "voxi_util/any.h"
#include "voxi_util/anytext.h"
#include "voxi_util/color.h"
#include "voxi_util/typeinfo.h"

#include <compare>
#include <concepts>
#include <string>
#include <type_traits>
#include <utility>

namespace VOXI {

/// The value of a cell: a text of any kind, kept as a `std::wstring`, a number, a colour, or by
/// `any` a value of any other type that `TypeInfo` knows.
class VOXI2_EXPORT CellValue
{
public:
    /// No value.
    CellValue() = default;
    CellValue(any value) noexcept : m_value(std::move(value)) {}
    template <std::convertible_to<AnyText> Text>
    CellValue(Text&& text) : m_value(AnyText(std::forward<Text>(text)).toWide())
    {}
    template <class Number>
    CellValue(Number number) requires(std::is_arithmetic_v<Number>) : m_value(number)
    {}
    CellValue(Color color) : m_value(color) {}

    bool isEmpty() const noexcept { return !m_value.has_value(); }
    const any& value() const noexcept { return m_value; }

    /// What is shown of it.
    std::wstring textU() const;
    /// Whether it stands for yes: true, a number other than 0, a text that is none of "", "0" and
    /// "false".
    bool toBool() const;

    /// How values are ordered: none before numbers before texts; numbers, and truth, by what they
    /// are, texts as the user's language has it.
    static std::weak_ordering compare(const CellValue& a, const CellValue& b);

private:
    any m_value;
};

} // namespace VOXI
