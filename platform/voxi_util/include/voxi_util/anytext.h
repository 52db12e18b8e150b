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
/// It lasts as long as the call: of a `std::string` or `std::wstring` that has a name it keeps no
/// copy. Who keeps a text has a `KeptText`. Null is the empty text.
class AnyText
{
public:
    AnyText() : AnyText(std::string()) {}
    template <TextCharacter Char>
    AnyText(const Char* text) : AnyText(text ? View<Char>(text) : View<Char>())
    {}
    template <TextCharacter Char>
    AnyText(std::basic_string_view<Char> text) : AnyText(made(text))
    {}
    template <TextCharacter Char>
    AnyText(const std::basic_string<Char>& text) : AnyText(View<Char>(text))
    {}
    AnyText(const std::string& text) noexcept : m_narrow(&text) {}
    AnyText(const std::wstring& text) noexcept : m_wide(&text) {}
    AnyText(std::string&& text) noexcept
        : m_own(std::move(text)),
          m_narrow(std::get_if<std::string>(&m_own))
    {}
    AnyText(std::wstring&& text) noexcept
        : m_own(std::move(text)),
          m_wide(std::get_if<std::wstring>(&m_own))
    {}
    AnyText(const AnyText&) = delete;
    AnyText& operator=(const AnyText&) = delete;

    bool isEmpty() const noexcept { return m_narrow ? m_narrow->empty() : m_wide->empty(); }

    /// Narrow texts are read in the process's encoding as it is now.
    std::wstring toWide() const { return m_narrow ? wideFromNarrow(*m_narrow) : *m_wide; }

    /// Calls `narrow` with a text that was made from narrow characters, and `wide` with any other,
    /// as `std::string` and `std::wstring`; `more` goes behind it.
    template <class Narrow, class Wide, class... More>
    void passTo(const Narrow& narrow, const Wide& wide, const More&... more) const
    {
        if (m_narrow)
            narrow(*m_narrow, more...);
        else
            wide(*m_wide, more...);
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

    static std::string made(std::string_view text) { return std::string(text); }
    static std::wstring made(std::wstring_view text) { return std::wstring(text); }
    static std::wstring made(std::u16string_view text) { return wideFromUtf16(text); }
    static std::wstring made(std::u8string_view text)
    {
        return wideFromUtf8({reinterpret_cast<const char*>(text.data()), text.size()});
    }

    std::variant<std::string, std::wstring> m_own; // unless it is somebody else's
    const std::string* m_narrow = nullptr;         // this or the other
    const std::wstring* m_wide = nullptr;
};

/// A text that is kept to be shown later: made from whatever an `AnyText` is, and passed as one.
class KeptText
{
public:
    KeptText() = default;
    KeptText(const AnyText& text)
    {
        const auto keep = [this](const auto& kept) { m_text = kept; };
        text.passTo(keep, keep);
    }
    template <std::convertible_to<AnyText> Text>
    KeptText(const Text& text) : KeptText(AnyText(text))
    {}

    operator AnyText() const noexcept
    {
        return std::visit([](const auto& text) { return AnyText(text); }, m_text);
    }

private:
    std::variant<std::string, std::wstring> m_text;
};

} // namespace VOXI
