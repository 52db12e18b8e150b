#pragma once

#include "allowedfiles.h"
#include "voxi2_qt/controls/qtwebbrowser2.h"
#include "webview.h"

namespace VOXI {

/// What a web browser hears of its view, and is asked by it.
class QtWebNews final : public WebViewHost
{
public:
    explicit QtWebNews(QtWebBrowser2& peer) : m_peer(peer) {}

    WebSettings m_settings;
    AllowedFiles m_files;

    QtWidget2& viewPeer() override { return m_peer; }
    const WebSettings& settings() const override { return m_settings; }
    bool isOfProgram(const QUrl& url) const override;

    bool mayGo(const QUrl& url, WebNavigation kind, bool isWholePage) override;
    bool mayRead(const QUrl& url) override;
    WebQuery2::Reply askForContent(const WebQuery2& query, WebContent& given) override;
    QString placeFor(const WebDownload& download) override;
    bool seesInput(QEvent* event) override;

    void addressIs(const QUrl& url) override;
    void titleIs(const QString& title) override;
    void iconIs(const QIcon& icon) override;
    void loadIs(int percent) override;
    void loadIsOver(bool isComplete) override;
    void linkIsUnderPointer(const QString& address) override;
    void selectionIsAnother() override;
    void zoomIs(int percent) override;
    void found(const WebHits& hits) override;
    void pageSays(const QString& text) override;
    void pdfIsOver(const QString& file, bool isWritten) override;
    void downloadIs(unsigned id, qint64 received, qint64 size) override;
    void downloadIsOver(unsigned id, WebDownloadEnd end) override;
    void windowIsWanted(const QUrl& url, bool isByUser) override;
    void contextMenuIsWanted(const QPoint& place) override;
    void hasCrashed(int exitCode) override;

private:
    QtWebBrowser2& m_peer;
};

/// As programs read it: nothing for the page that is none.
QString webText(const QUrl& url);

} // namespace VOXI
