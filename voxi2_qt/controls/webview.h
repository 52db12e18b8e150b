#pragma once

#include "voxi2/controls/textsearch.h"
#include "voxi2/controls/vxwebbrowserevents2.h"

#include <QSizeF>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <string>

QT_BEGIN_NAMESPACE
class QEvent;
class QIcon;
class QPoint;
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

class QtWidget2;

/// What a program has set about a web browser, and what holds for any page.
struct WebSettings
{
    bool hasNetworkAccess = false;
    bool areScriptsEnabled = true;
    int zoom = 100; // percent
    QString userStyle;
    QString profile;
    QStringList filePath;
};

/// What shows the pages of a web browser tells the browser what there is to tell, and asks it.
///
/// What is told runs handlers, which may do anything but wait for the engine where that is still
/// on the stack: so it is told when that has returned. What is asked is asked at once.
class WebViewHost
{
public:
    /// That the view is a part of, and goes with.
    virtual QtWidget2& viewPeer() = 0;
    virtual const WebSettings& settings() const = 0;
    /// Whether its scheme is one of those that the program answers for; from now on there are no
    /// others.
    virtual bool isOfProgram(const QUrl& url) const = 0;

    // Asked

    virtual bool mayGo(const QUrl& url, WebNavigation kind, bool isWholePage) = 0;
    /// Whether a file, or a resource of the program, may be read.
    virtual bool mayRead(const QUrl& url) = 0;
    /// Asks for a page of the program; `given` becomes what comes at once.
    virtual WebQuery2::Reply askForContent(const WebQuery2& query, WebContent& given) = 0;
    /// The file that it is to be written into; empty for none.
    virtual QString placeFor(const WebDownload& download) = 0;
    /// Whether an event of the user is consumed.
    virtual bool seesInput(QEvent* event) = 0;

    // Told

    virtual void addressIs(const QUrl& url) = 0;
    virtual void titleIs(const QString& title) = 0;
    virtual void iconIs(const QIcon& icon) = 0;
    virtual void loadIs(int percent) = 0;
    virtual void loadIsOver(bool isComplete) = 0;
    virtual void linkIsUnderPointer(const QString& address) = 0;
    virtual void selectionIsAnother() = 0;
    virtual void zoomIs(int percent) = 0;
    virtual void found(const WebHits& hits) = 0;
    virtual void pageSays(const QString& text) = 0;
    virtual void pdfIsOver(const QString& file, bool isWritten) = 0;
    virtual void downloadIs(unsigned id, qint64 received, qint64 size) = 0;
    virtual void downloadIsOver(unsigned id, WebDownloadEnd end) = 0;
    virtual void windowIsWanted(const QUrl& url, bool isByUser) = 0;
    virtual void contextMenuIsWanted(const QPoint& place) = 0;
    virtual void hasCrashed(int exitCode) = 0;

protected:
    ~WebViewHost() = default;
};

/// What shows the pages of a web browser: the engine, or what takes its place. Its widget is a
/// child of the browser's, and deleted by this.
class WebView
{
public:
    virtual ~WebView() = default;

    virtual QWidget* widget() = 0;
    virtual bool isEngine() const = 0;
    /// To be called when the host's settings have changed.
    virtual void applySettings() = 0;

    virtual void goTo(const QUrl& url) = 0;
    virtual void showHtml(const QString& html, const QUrl& base) = 0;
    virtual void followLink(const QUrl& url) = 0;
    /// -1: back, 1: forward.
    virtual void goBy(int step) = 0;
    virtual bool isThere(int step) const = 0;
    virtual void reload() = 0;
    virtual void stop() = 0;
    virtual void takeContent(unsigned token, const WebContent& content) = 0;
    virtual void cancelDownload(unsigned id) = 0;

    virtual void find(const TextSearch& search) = 0;
    virtual QString selectedText() const = 0;
    virtual void selectAll() = 0;
    virtual void clearSelection() = 0;
    virtual void copy() = 0;
    virtual WebTarget target() const = 0;
    /// `done` may be called at once, later, or never.
    virtual void run(const QString& script, std::function<void(WebScriptResult)> done) = 0;
    virtual void post(const QString& text) = 0;
    virtual void print(const QString& file, const QSizeF& millimetres) = 0;
    /// What is shown where nobody answers for a context menu.
    virtual void showOwnMenu(const QPoint& place) = 0;
};

} // namespace VOXI
