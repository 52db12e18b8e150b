#include "voxi2/controls/textresource.h"

#include "voxi2/controls/vxtextbrowser2.h"
#include "voxi_util/spinlock.h"

#include <mutex>
#include <optional>

namespace VOXI {

struct TextResourceQuery2::State
{
    unsigned m_browser = 0;
    unsigned m_token = 0;
    TextResourceType m_type = TextResourceType::Page;
    std::wstring m_url;
    Wanted m_wanted;

    SpinLock m_lock;
    bool m_isAsking = true;
    bool m_isLater = false;
    bool m_isAnswered = false;
    std::optional<TextResource> m_given; // while it is being asked

    ~State()
    {
        if (m_isLater && !m_isAnswered)
            VXTextBrowser2::takeAnswer(m_browser, m_token, {});
    }
};

TextResourceQuery2::TextResourceQuery2() : TextResourceQuery2(0, 0, {}, {}, nullptr) {}

TextResourceQuery2::TextResourceQuery2(unsigned browser, unsigned token, TextResourceType type,
                                       std::wstring url, Wanted wanted)
    : m_state(std::make_shared<State>())
{
    m_state->m_browser = browser;
    m_state->m_token = token;
    m_state->m_type = type;
    m_state->m_url = std::move(url);
    m_state->m_wanted = std::move(wanted);
}

TextResourceType TextResourceQuery2::type() const noexcept { return m_state->m_type; }
const std::wstring& TextResourceQuery2::url() const noexcept { return m_state->m_url; }

void TextResourceQuery2::answer(TextResource resource) const
{
    {
        const std::lock_guard lock(m_state->m_lock);
        if (std::exchange(m_state->m_isAnswered, true))
            return;
        if (m_state->m_isAsking) {
            m_state->m_given = std::move(resource);
            return;
        }
    }
    VXTextBrowser2::takeAnswer(m_state->m_browser, m_state->m_token, std::move(resource));
}

void TextResourceQuery2::answerLater() const
{
    const std::lock_guard lock(m_state->m_lock);
    m_state->m_isLater = m_state->m_isAsking;
}

bool TextResourceQuery2::isWanted() const noexcept
{
    return m_state->m_wanted && m_state->m_wanted->load();
}

TextResourceQuery2::Reply TextResourceQuery2::endAsking(TextResource& given) const
{
    const std::lock_guard lock(m_state->m_lock);
    m_state->m_isAsking = false;
    if (m_state->m_given) {
        given = std::move(*m_state->m_given);
        m_state->m_given.reset();
        return Reply::Given;
    }
    return m_state->m_isLater ? Reply::Later : Reply::None;
}

} // namespace VOXI
