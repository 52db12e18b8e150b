#include "voxi2/controls/textresource.h"

#include "voxi2/controls/vxtextbrowser2.h"

namespace VOXI {

struct TextResourceQuery2::State
{
    TextResourceType m_type = TextResourceType::Page;
    std::wstring m_url;
    Wanted m_wanted;
    detail::LateAnswer<TextResource> m_answer;
};

TextResourceQuery2::TextResourceQuery2() : TextResourceQuery2(0, 0, {}, {}, nullptr) {}

TextResourceQuery2::TextResourceQuery2(unsigned browser, unsigned token, TextResourceType type,
                                       std::wstring url, Wanted wanted)
    : m_state(new State{
        type, std::move(url), std::move(wanted), {browser, token, &VXTextBrowser2::takeAnswer}})
{}

TextResourceType TextResourceQuery2::type() const noexcept { return m_state->m_type; }
const std::wstring& TextResourceQuery2::url() const noexcept { return m_state->m_url; }

void TextResourceQuery2::answer(TextResource resource) const
{
    m_state->m_answer.give(std::move(resource));
}

void TextResourceQuery2::answerLater() const { m_state->m_answer.promise(); }

bool TextResourceQuery2::isWanted() const noexcept
{
    return m_state->m_wanted && m_state->m_wanted->load();
}

TextResourceQuery2::Reply TextResourceQuery2::endAsking(TextResource& given) const
{
    return m_state->m_answer.endAsking(given);
}

} // namespace VOXI
