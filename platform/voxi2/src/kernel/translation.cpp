#include "voxi2/kernel/translation.h"

#include "voxi_util/textencoding.h"

#include <memory>
#include <mutex>
#include <utility>

namespace VOXI {

namespace {

struct Installed
{
    std::mutex m_mutex;
    std::shared_ptr<const Translation> m_translation; // guarded
};

Installed& installed()
{
    static auto* instance = new Installed;
    return *instance;
}

} // namespace

void setTranslation(Translation translation)
{
    auto changed =
        translation ? std::make_shared<const Translation>(std::move(translation)) : nullptr;
    {
        std::lock_guard lock(installed().m_mutex);
        installed().m_translation.swap(changed);
    }
    // Outside the lock the former one goes, which may come back here.
}

std::wstring translationOf(const std::string& english)
{
    std::shared_ptr<const Translation> translation;
    {
        std::lock_guard lock(installed().m_mutex);
        translation = installed().m_translation;
    }
    return translation ? (*translation)(english) : std::wstring();
}

std::wstring translated(const std::string& english)
{
    std::wstring result = translationOf(english);
    return result.empty() ? wideFromUtf8(english) : result;
}

} // namespace VOXI
