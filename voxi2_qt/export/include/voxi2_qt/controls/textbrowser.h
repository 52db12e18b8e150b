#pragma once

#include "voxi2/controls/textresource.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QSizeF>
#include <QStringList>
#include <QTextBrowser>

#include <memory>
#include <optional>
#include <vector>

namespace VOXI {

class PageResources;
class QtWidget2;
struct PageContent;

/// Who has a text browser, and is asked for what its pages need.
class TextBrowserHost
{
public:
    /// That the browser is a part of, and goes with.
    virtual const QtWidget2& browserPeer() const = 0;
    /// Asks the program for something that a page needs; `given` becomes what it answers at once.
    virtual TextResourceQuery2::Reply askForResource(TextResourceType type, const QString& url,
                                                     unsigned token,
                                                     const TextResourceQuery2::Wanted& wanted,
                                                     TextResource& given) const = 0;
    /// Whether somebody may answer.
    virtual bool isAnswering() const = 0;
    /// Whether the program lets the user follow a link.
    virtual bool mayFollow(const QString& target) const = 0;
    virtual QStringList filePath() const = 0;

protected:
    ~TextBrowserHost() = default;
};

/// What a text browser shows its pages in. It knows the buffers, leaves addresses that are for the
/// program alone, and gets what pages need from where its peer may get it: never by Qt's own ways,
/// which lead to any file.
///
/// It goes to a page when the page is there. Handlers that run while it is looked for find all as
/// it was, may go elsewhere, and may end the browser.
class VOXI2_QT_EXPORT TextBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    TextBrowser(const TextBrowserHost& host, QWidget* parent);
    ~TextBrowser() override;

    const QStringList& buffers() const { return m_buffers; }
    void setBuffers(const QStringList& texts) { m_buffers = texts; }
    int currentBuffer() const { return m_currentBuffer; }

    /// In place of the page; rich where it looks like it.
    void showText(const QString& text);

    // Addresses as programs write them
    void goTo(const QString& text);
    QString place() const;
    void followLink(const QUrl& url);

    // History
    void backward() override;
    void forward() override;
    void reload() override;
    /// Whether the page is still to come that was gone to last.
    bool isAwaiting() const { return m_awaited.has_value(); }
    /// Whether a line stands there that says that there is no such page.
    bool isMissing() const { return m_isMissing; }
    /// Back by a negative number of steps; nothing where there are not as many.
    void goBy(int steps);
    struct Visit
    {
        QString m_place;
        QString m_title;
    };
    /// Oldest first.
    std::vector<Visit> visits() const;
    /// Which of them is shown; -1 where there are none.
    int visitPlace() const;

    // The page
    int zoom() const { return m_zoom; }
    void setZoom(int percent);
    /// To be called when the font has changed that it is a part of.
    void applyZoom();
    std::unique_ptr<QMimeData> selectedData() const;
    bool printToPdf(const QString& file, const QSizeF& millimetres);

    /// A late answer of the program.
    void takeAnswer(unsigned token, const TextResource& resource);

    QVariant loadResource(int type, const QUrl& name) override;

Q_SIGNALS:
    void linkClicked(const QString& link);
    void titleChanged(const QString& title);
    /// By the user.
    void zoomChanged(int percent);

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// On the way to a page.
    struct Navigation
    {
        QUrl m_url; // what Qt is to be told
        QTextDocument::ResourceType m_type = QTextDocument::UnknownResource;
        int m_steps = 0; // in the history
        bool m_isReload = false;
        bool m_isFresh = false;   // what it shows was not there before
        bool m_isMissing = false; // it is a line that says that there is nothing
        bool m_isProgram = false; // whose doing it is
        unsigned m_token = 0;
    };

    void navigate(Navigation navigation);
    /// What is there, and none where the program answers later, or handlers have gone elsewhere.
    std::optional<PageContent> contentFor(Navigation& navigation);
    PageContent bufferContent(const QString& text, bool isNamed);
    void arrive(const Navigation& navigation, PageContent content);
    void moveQt(const Navigation& navigation);
    void forgetFocus();
    void showPlain();
    void showAgain();
    void fetchNoted();
    template <class Came>
    void layOutWith(const Came& came);
    void noteTitle();

    QStringList m_buffers;
    qint32 m_currentBuffer = -1;

    const TextBrowserHost& m_host;
    std::unique_ptr<PageResources> m_resources;
    std::unique_ptr<PageContent> m_content; // of the page that is shown, or comes to be
    QUrl m_page;                            // Qt's resolved address of it
    QString m_title;
    std::optional<Navigation> m_awaited; // which the program answers for later
    unsigned m_pageToken = 0;            // of the query for the page that is shown
    unsigned m_moves = 0;                // grows with all that begins or replaces a page
    bool m_isArriving = false;
    bool m_isInHistory = false; // whether that is back or forward
    bool m_hasLoaded = false;   // whether Qt has taken the content
    bool m_isMissing = false;   // whether it says that there is nothing
    bool m_isOwnText = false;   // whether the program has set it without an address
    bool m_isFetching = false;
    int m_zoom = 100;
    int m_wheel = 0; // what is left of the wheel's turn
};

} // namespace VOXI
