#pragma once

#include "allowedfiles.h"
#include "voxi2/controls/textresource.h"

#include <QHash>
#include <QSet>
#include <QTextDocument>
#include <QUrl>
#include <QVariant>

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

namespace VOXI {

class TextBrowserHost;

/// What a page is made of.
struct PageContent
{
    enum class Kind { Html, Markdown, Plain };

    Kind kind = Kind::Html;
    QString text;
};

/// What the pages of a text browser need, and where it comes from: the program, which is asked
/// first, and the files that pages may read.
///
/// Qt wants pictures and style sheets while it lays out and paints, where nothing may be asked of
/// the program. They are noted then, and asked for by `ask`.
class PageResources
{
public:
    explicit PageResources(const TextBrowserHost& host) : m_host(host) {}
    ~PageResources() { *m_wanted = *m_awaited = false; }
    PageResources(const PageResources&) = delete;
    PageResources& operator=(const PageResources&) = delete;

    AllowedFiles& files() { return m_files; }

    // Pages

    enum class Found { Here, Nowhere, Later };
    struct Answer
    {
        Found m_found = Found::Nowhere;
        PageContent m_content;
        unsigned m_token = 0; ///< a late answer carries it
    };
    /// Asks at once. This may have gone when it returns, with the peer.
    Answer page(const QUrl& url, PageContent::Kind kind);
    /// The page of an answer; none where there is none.
    static std::optional<PageContent> contentOf(const TextResource& resource,
                                                PageContent::Kind kind);
    /// Nobody waits for a page any more.
    void abandonPage();

    // What belongs to the page that is shown

    /// There is another one.
    void begin();
    /// What Qt is given now; never null, or it would look for itself. `name` is what it asks by.
    QVariant resource(int type, const QUrl& name, const QUrl& url);
    bool isAnyNoted() const { return !m_noted.empty(); }

    struct Came
    {
        int m_type;
        QSet<QUrl> m_names;
        QVariant m_value;
    };
    /// Asks for all that was noted, and tells what has come. As for `page`.
    std::vector<Came> ask();
    /// The same for a late answer.
    std::vector<Came> take(unsigned token, const TextResource& resource);

private:
    using Flag = std::shared_ptr<std::atomic<bool>>;

    struct Entry
    {
        int m_type = 0;
        QSet<QUrl> m_names;
        QVariant m_value;
        unsigned m_token = 0;
    };

    static Flag newFlag() { return std::make_shared<std::atomic<bool>>(true); }
    QVariant ofFile(int type, const QUrl& url) const;

    const TextBrowserHost& m_host;
    AllowedFiles m_files;
    QHash<QUrl, Entry> m_entries; // of the page that is shown
    std::vector<QUrl> m_noted;
    unsigned m_tokens = 0;      // given so far
    Flag m_wanted = newFlag();  // whether that page is
    Flag m_awaited = newFlag(); // whether the page that was asked for is
};

} // namespace VOXI
