#pragma once

#include "voxi2/kernel/lateanswer.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/bytearray.h"
#include "voxi_util/pixmap.h"

#include <atomic>
#include <concepts>
#include <memory>
#include <string>
#include <utility>
#include <variant>

namespace VOXI {

/// What a page of a text browser asks for.
enum class TextResourceType {
    Page,      ///< a document: HTML, Markdown where the name says so, plain text
    Picture,   ///< of the page
    StyleSheet ///< of the page
};

/// The content of a page, a picture or a style sheet: a text, the bytes of a file, or a picture.
/// Empty means that there is none.
class TextResource
{
public:
    TextResource() = default;
    TextResource(const AnyText& text) : m_content(text.toWide()) {}
    template <std::convertible_to<AnyText> Text>
    TextResource(const Text& text) : TextResource(AnyText(text))
    {}
    /// Of a page in the encoding that it names itself, or UTF-8; of a picture in any format.
    TextResource(ByteArray bytes) : m_content(std::move(bytes)) {}
    TextResource(Pixmap picture) : m_content(std::move(picture)) {}

    using Content = std::variant<std::monostate, std::wstring, ByteArray, Pixmap>;
    const Content& content() const noexcept { return m_content; }
    bool isEmpty() const noexcept { return m_content.index() == 0; }

private:
    Content m_content;
};

/// What a text browser wants to have, and the way to give it.
///
/// A value, copied cheaply; keep it as long as the answer takes. Everything here may be called from
/// any thread; the first answer counts, and does nothing once nobody wants it any more.
class VOXI2_EXPORT TextResourceQuery2
{
public:
    /// Asks nobody for nothing.
    TextResourceQuery2();

    TextResourceType type() const noexcept;
    /// Absolute, where the page that asks has an address.
    const std::wstring& url() const noexcept;

    void answer(TextResource resource) const;
    /// There is nothing: the browser looks nowhere else.
    void refuse() const { answer({}); }
    /// Says that the answer comes when the handlers have returned; to be called while they run.
    /// When the last copy of the query goes without one, that is a refusal.
    void answerLater() const;

    /// Whether the page that asks is still to be shown and the browser is there; for those who take
    /// long to answer.
    bool isWanted() const noexcept;

    // For back ends, which make it

    using Wanted = std::shared_ptr<const std::atomic<bool>>;
    /// Answers that come when the asking is over are sent to the browser of that id, with the
    /// token.
    TextResourceQuery2(unsigned browser, unsigned token, TextResourceType type, std::wstring url,
                       Wanted wanted);
    using Reply = detail::LateAnswer<TextResource>::Reply;
    /// Ends the asking; `given` becomes what the handlers have answered.
    Reply endAsking(TextResource& given) const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace VOXI
