#include "voxi2/kernel/translation.h"

#include "trov/thread.h"
#include "voxi_util/textencoding.h"

#include <atomic>
#include <cstddef>
#include <exception>
#include <memory>
#include <mutex>
#include <utility>

namespace VOXI {

namespace {

template <class Char>
constexpr int countOf(std::basic_string_view<Char> text, Char sought)
{
    int count = 0;
    for (const Char each : text)
        count += each == sought;
    return count;
}

/// Whether every text has its translation, with as many mnemonics and arguments.
constexpr bool areTextsComplete()
{
    for (const detail::LibraryTextRow& row : detail::LibraryTexts) {
        const std::string_view english = row.m_english;
        const std::wstring_view german = row.m_german;
        if (german.empty() != english.empty() || countOf(english, '&') != countOf(german, L'&')
            || countOf(english, '%') != countOf(german, L'%'))
            return false;
    }
    return true;
}

static_assert(areTextsComplete());

struct Installed
{
    std::atomic<bool> m_isGerman{false};
    std::atomic<bool> m_isAny{false};
    std::mutex m_mutex;
    std::shared_ptr<const Translation> m_translation; // guarded
};

Installed& installed()
{
    static auto* instance = new Installed;
    return *instance;
}

/// The first word of a locale's name, in small letters.
std::string languageOf(std::string_view locale)
{
    std::string result(locale.substr(0, locale.find_first_of("_-.@")));
    for (char& each : result) {
        if (each >= 'A' && each <= 'Z')
            each = static_cast<char>(each - 'A' + 'a');
    }
    return result;
}

/// In one pass: what an argument contains stands for nothing.
std::wstring filled(const std::wstring& pattern, std::initializer_list<std::wstring> arguments)
{
    std::wstring result;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool isPlace = pattern[i] == L'%' && i + 1 < pattern.size();
        const std::size_t number = isPlace ? static_cast<std::size_t>(pattern[i + 1] - L'1') : 9;
        if (number < arguments.size()) {
            result += arguments.begin()[number];
            ++i;
        } else {
            result += pattern[i];
        }
    }
    return result;
}

} // namespace

bool setLanguage(std::string_view locale)
{
    const std::string name = languageOf(locale);
    installed().m_isGerman = name == "de";
    return name == "de" || name == "en";
}

std::string language() { return installed().m_isGerman ? "de" : "en"; }

void setTranslation(Translation translation)
{
    auto changed =
        translation ? std::make_shared<const Translation>(std::move(translation)) : nullptr;
    {
        std::lock_guard lock(installed().m_mutex);
        installed().m_isAny = changed != nullptr;
        installed().m_translation.swap(changed);
    }
    // Outside the lock the former one goes, which may come back here.
}

std::wstring programTranslationOf(const std::string& english)
{
    if (!installed().m_isAny.load(std::memory_order_relaxed))
        return {};
    std::shared_ptr<const Translation> translation;
    {
        std::lock_guard lock(installed().m_mutex);
        translation = installed().m_translation;
    }
    // In the middle of what a back end does; nothing may pass through that.
    try {
        return translation ? (*translation)(english) : std::wstring();
    } catch (...) {
        TROV::Thread::reportException(std::current_exception());
        return {};
    }
}

std::wstring translationOf(LibraryText text)
{
    std::wstring result = programTranslationOf(text.english());
    if (result.empty() && installed().m_isGerman)
        result = text.german();
    return result;
}

std::wstring translated(LibraryText text, std::initializer_list<std::wstring> arguments)
{
    std::wstring result = translationOf(text);
    if (result.empty())
        result = wideFromUtf8(text.english());
    return arguments.size() == 0 ? result : filled(result, arguments);
}

} // namespace VOXI
