#pragma once

#include "../controls/webview.h"
#include "engineprofile.h"

#include <QObject>
#include <QPointer>
#include <QWebChannel>
#include <QWebEngineDownloadRequest>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineUrlRequestJob>

#include <map>
#include <memory>

namespace VOXI {

class EnginePage;
class EngineWidget;

/// What pages call, by its name.
class PageCalls final : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void send(const QString& text) { Q_EMIT said(text); }

Q_SIGNALS:
    void said(const QString& text);
};

/// Shows the pages of a web browser by the engine.
///
/// The engine calls while it is in the middle of something. What is only told of that waits until
/// it has returned, so that handlers may wait for it in turn.
class EngineView final : public QObject, public WebView
{
    Q_OBJECT

public:
    EngineView(WebViewHost& host, QWidget* parent);
    ~EngineView() override;

    /// Ends the browsers that there still are: the engine goes.
    static void endAll();

    QWidget* widget() override;
    bool isEngine() const override { return true; }
    void applySettings() override;

    void goTo(const QUrl& url) override;
    void showHtml(const QString& html, const QUrl& base) override;
    void followLink(const QUrl& url) override;
    void goBy(int step) override;
    bool isThere(int step) const override;
    void reload() override;
    void stop() override;
    void takeContent(unsigned token, const WebContent& content) override;
    void cancelDownload(unsigned id) override;

    void find(const TextSearch& search) override;
    QString selectedText() const override;
    void selectAll() override;
    void clearSelection() override;
    void copy() override;
    WebTarget target() const override;
    void run(const QString& script, std::function<void(WebScriptResult)> done) override;
    void post(const QString& text) override;
    void print(const QString& file, const QSizeF& millimetres) override;
    void showOwnMenu(const QPoint& place) override;

    // For page, profile and widget

    const QtWidget2* peer() const;
    bool mayGo(const QUrl& url, WebNavigation kind, bool isWholePage);
    bool mayLoad(const QUrl& url) const;
    void note(const QUrl& url) { m_profile->note(url, *this); }
    void serve(QWebEngineUrlRequestJob* job);
    bool seesInput(QEvent* event) { return m_host.seesInput(event); }
    void wantMenu(const QPoint& place);

private:
    struct Job
    {
        QPointer<QWebEngineUrlRequestJob> m_job;
        std::shared_ptr<std::atomic<bool>> m_wanted;
    };

    struct Download
    {
        QPointer<QWebEngineDownloadRequest> m_request;
        quint32 m_number = 0; // of the engine's, from 1
        QString m_place;
    };

    void makePage();
    void connectPage();
    void dropPage();
    void applyScripts();
    /// Has it told when the engine has returned, if this is still there.
    template <class Tell>
    void later(Tell tell)
    {
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
    }
    void tellEnd(bool isComplete);
    void slotLoading(const QWebEngineLoadingInfo& info);
    void slotUrl(const QUrl& url);
    void slotDownload(QWebEngineDownloadRequest* download);
    void accept(QWebEngineDownloadRequest* download, unsigned id, const QString& place);
    void slotDownloadState(unsigned id, QWebEngineDownloadRequest::DownloadState state);
    void slotNewWindow(QWebEngineNewWindowRequest& request);

    WebViewHost& m_host;
    std::shared_ptr<EngineProfile> m_profile;
    QString m_profileName;
    std::unique_ptr<EnginePage> m_page;
    std::unique_ptr<EngineWidget> m_widget;
    PageCalls m_calls;
    std::unique_ptr<QWebChannel> m_channel;

    std::map<unsigned, Job> m_jobs;
    std::map<unsigned, Download> m_downloads;
    unsigned m_tokens = 0;
    unsigned m_moves = 0;          // of the program; grows with each
    bool m_isStartAwaited = false; // of what the program has gone to last
    bool m_isText = false;         // that is a text, which the engine makes an address of
    bool m_hasCrashed = false;
    QUrl m_textPage; // whose text the program has handed over
    QUrl m_textBase; // that it goes by
    QByteArray m_text;
    QString m_style; // that the page has
};

} // namespace VOXI
