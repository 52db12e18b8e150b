#pragma once

#include "voxi2/kernel/lateanswer.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/bytearray.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace VOXI {

/// What a web browser is about to go somewhere for.
enum class WebNavigation : int {
    Link,     ///< the user, or a script, follows one
    Form,     ///< the user sends one
    History,  ///< back or forward, by the user or the page
    Reload,   ///< by the user or the page
    Redirect, ///< by who was asked for another page
    Page      ///< the page goes there by itself, or has something in a frame
};

/// What a script has given.
struct WebScriptResult
{
    enum class Outcome {
        Done,
        Failed,   ///< it threw something: `value` says what
        TimedOut, ///< there was no answer in time; the script may still run
        Gone      ///< the page, its engine or the browser has ended, or runs no scripts
    };
    enum class Type { Nothing, Boolean, Number, Text, Structure };

    Outcome outcome = Outcome::Gone;
    Type type = Type::Nothing;
    std::wstring value{}; ///< a text as it is, all else as JSON; empty for nothing

    bool isDone() const noexcept { return outcome == Outcome::Done; }
    friend bool operator==(const WebScriptResult&, const WebScriptResult&) = default;
};

/// Where a result is wanted; for back ends. It reaches the thread that has made this, by its loop.
/// When the last copy goes without one, that is told as `Gone`.
class VOXI2_EXPORT WebScriptReply
{
public:
    /// Wanted by nobody.
    WebScriptReply() = default;
    explicit WebScriptReply(std::function<void(const WebScriptResult&)> receiver);

    /// The first one counts. Any thread.
    void give(WebScriptResult result) const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

/// What was found in a page.
struct WebHits
{
    int count = 0;
    int current = 0; ///< which one is selected, counted from 1; 0 for none

    friend bool operator==(const WebHits&, const WebHits&) = default;
};

/// What lies under the pointer when a context menu is asked for.
struct WebTarget
{
    std::wstring link{};     ///< where it leads to; empty where there is none
    std::wstring linkText{}; ///< as it is read
    std::wstring media{};    ///< the address of a picture, a film or a sound
    std::wstring selectedText{};
    bool isEditable = false;

    friend bool operator==(const WebTarget&, const WebTarget&) = default;
};

/// How a download has ended.
enum class WebDownloadEnd : int { Done, Cancelled, Failed };

/// A page of the program, or what belongs to one: a picture, a script. Empty, without a type, it
/// stands for nothing at all.
class WebContent
{
public:
    WebContent() = default;
    /// `type` as on the web: "image/png".
    WebContent(ByteArray bytes, std::string type)
        : m_bytes(std::move(bytes)),
          m_type(std::move(type))
    {}
    /// A text, which is sent as UTF-8.
    WebContent(const AnyText& text, std::string type = "text/html")
        : m_bytes(utf8FromWide(text.toWide())),
          m_type(std::move(type) + "; charset=utf-8")
    {}

    const ByteArray& bytes() const noexcept { return m_bytes; }
    const std::string& type() const noexcept { return m_type; }
    bool isEmpty() const noexcept { return m_type.empty(); }

private:
    ByteArray m_bytes;
    std::string m_type;
};

/// What a page wants to have of the program, and the way to give it.
///
/// A value, copied cheaply; keep it as long as the answer takes. Everything here may be called from
/// any thread; the first answer counts, and does nothing once nobody wants it any more.
class VOXI2_EXPORT WebQuery2
{
public:
    /// Asks nobody for nothing.
    WebQuery2();

    /// Absolute.
    const std::wstring& address() const noexcept;
    /// "GET", "POST".
    const std::string& method() const noexcept;

    void answer(WebContent content) const;
    /// There is nothing.
    void refuse() const { answer({}); }
    /// Says that the answer comes when the handlers have returned; to be called while they run.
    /// When the last copy of the query goes without one, that is a refusal.
    void answerLater() const;
    /// Whether the page that asks is still there; for those who take long to answer.
    bool isWanted() const noexcept;

    // For back ends, which make it

    using Wanted = std::shared_ptr<const std::atomic<bool>>;
    WebQuery2(unsigned browser, unsigned token, std::wstring address, std::string method,
              Wanted wanted);
    using Reply = detail::LateAnswer<WebContent>::Reply;
    /// Ends the asking; `given` becomes what the handlers have answered.
    Reply endAsking(WebContent& given) const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace VOXI
