#pragma once

#include "voxi2_qt/controls/textbrowser.h"
#include "webview.h"

#include <QObject>

#include <memory>

namespace VOXI {

/// Shows the pages of a web browser as those of a text browser, where there is no engine: no
/// scripts, messages or downloads, and never a network.
class TextWebView final : public QObject, public WebView, public TextBrowserHost
{
    Q_OBJECT

public:
    TextWebView(WebViewHost& host, QWidget* parent);
    ~TextWebView() override;

    QWidget* widget() override { return m_browser.get(); }
    bool isEngine() const override { return false; }
    void applySettings() override;

    void goTo(const QUrl& url) override;
    void showHtml(const QString& html, const QUrl& base) override;
    void followLink(const QUrl& url) override;
    void goBy(int step) override;
    bool isThere(int step) const override;
    void reload() override;
    void stop() override {}
    void takeContent(unsigned token, const WebContent& content) override;
    void cancelDownload(unsigned) override {}

    void find(const TextSearch& search) override;
    QString selectedText() const override;
    void selectAll() override;
    void clearSelection() override;
    void copy() override;
    WebTarget target() const override;
    void run(const QString& script, std::function<void(WebScriptResult)> done) override;
    void post(const QString&) override {}
    void print(const QString& file, const QSizeF& millimetres) override;
    void showOwnMenu(const QPoint&) override {}

    // For what shows the pages

    const QtWidget2& browserPeer() const override;
    TextResourceQuery2::Reply askForResource(TextResourceType type, const QString& url,
                                             unsigned token,
                                             const TextResourceQuery2::Wanted& wanted,
                                             TextResource& given) const override;
    bool isAnswering() const override { return true; }
    bool mayFollow(const QString& target) const override;
    QStringList filePath() const override;

private:
    void go(const std::function<void()>& act);
    void tellWhereItIs(const QUrl& url);

    WebViewHost& m_host;
    std::unique_ptr<TextBrowser> m_browser;
    QUrl m_textPage; // whose text the program has handed over
    QString m_text;
    bool m_isGoing = false;
};

} // namespace VOXI
