#pragma once

#include "voxi_util/textencoding.h"

#include <concepts>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace VOXI {

/// A character that texts are written in.
template <class Char>
concept TextCharacter = std::same_as<Char, char> || std::same_as<Char, char8_t> || std::same_as<
    Char, char16_t> || std::same_as<Char, wchar_t>;

/// A text to be shown, from any kind of string: what is passed where a text is set.
///
///     button->setLabel("Count");   // in the process's encoding, see `narrowTextEncoding`
///     button->setLabel(u8"Größe"); // UTF-8, whatever that is
///     button->setLabel(name);      // a std::string, a u8, UTF-16 or wide one, or a view of one
///
/// It keeps a text of its own, so it may outlive what it was made from; what is moved into it is
/// not copied. Null is the empty text.
class AnyText
{
public:
    AnyText() = default;
    template <TextCharacter Char>
    AnyText(const Char* text) : AnyText(text ? View<Char>(text) : View<Char>())
    {}
    template <TextCharacter Char>
    AnyText(std::basic_string_view<Char> text) : m_text(kept(text))
    {}
    template <TextCharacter Char>
    AnyText(const std::basic_string<Char>& text) : AnyText(View<Char>(text))
    {}
    AnyText(std::string&& text) noexcept : m_text(std::move(text)) {}
    AnyText(std::wstring&& text) noexcept : m_text(std::move(text)) {}

    bool isEmpty() const noexcept
    {
        return std::visit([](const auto& text) { return text.empty(); }, m_text);
    }

    /// Narrow texts are read in the process's encoding as it is now.
    std::wstring toWide() const
    {
        const auto* narrow = std::get_if<std::string>(&m_text);
        return narrow ? wideFromNarrow(*narrow) : std::get<std::wstring>(m_text);
    }

    /// Calls `narrow` with a text that was made from narrow characters, and `wide` with any other,
    /// as `std::string` and `std::wstring`; `more` goes behind it.
    template <class Narrow, class Wide, class... More>
    void passTo(const Narrow& narrow, const Wide& wide, const More&... more) const
    {
        if (const auto* text = std::get_if<std::string>(&m_text))
            narrow(*text, more...);
        else
            wide(std::get<std::wstring>(m_text), more...);
    }

    /// The same where there is no request for narrow texts.
    template <class Wide>
    void passWideTo(const Wide& wide) const
    {
        passTo([&](const std::string& text) { wide(wideFromNarrow(text)); }, wide);
    }

private:
    template <class Char>
    using View = std::basic_string_view<Char>;

    static std::string kept(std::string_view text) { return std::string(text); }
    static std::wstring kept(std::wstring_view text) { return std::wstring(text); }
    static std::wstring kept(std::u16string_view text) { return wideFromUtf16(text); }
    static std::wstring kept(std::u8string_view text)
    {
        return wideFromUtf8({reinterpret_cast<const char*>(text.data()), text.size()});
    }

    std::variant<std::string, std::wstring> m_text;
};

} // namespace VOXI
