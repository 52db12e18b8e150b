#pragma once

#include "voxi2/controls/vxwebbrowser2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QIcon>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace VOXI {

class WebView;

/// The peer of the web browser. It knows what was set and what was told; what shows the pages, and
/// with it the engine, comes when the browser first goes somewhere.
class VOXI2_QT_EXPORT QtWebBrowser2
    : public QtWidget2Shim<VXWebBrowser2, VXWebBrowser2Emitters, QtWidget2, QWidget>
{
    Q_OBJECT

public:
    QtWebBrowser2(VXWebBrowser2* object, VXWebBrowser2Emitters* emitters, QWidget* parent);
    ~QtWebBrowser2() override;

    void scheduleDelete() override;

    // Requests, in the order of the emitters table
    virtual void doSetAddress(const std::wstring& address);
    virtual std::wstring doGetAddress();
    virtual void doSetHtml(const std::wstring& html, const std::wstring& base);
    virtual void doGoBack();
    virtual void doGoForward();
    virtual void doReload();
    virtual void doStop();
    virtual bool doIsBackAvailable();
    virtual bool doIsForwardAvailable();
    virtual void doSetNetworkAccess(bool access);
    virtual bool doHasNetworkAccess();
    virtual void doSetFilePath(const std::vector<std::filesystem::path>& folders);
    virtual std::vector<std::filesystem::path> doGetFilePath();
    virtual void doSetScriptsEnabled(bool enabled);
    virtual bool doAreScriptsEnabled();
    virtual void doSetProfile(const std::wstring& name);
    virtual std::wstring doGetProfile();
    virtual void doAnswerContent(unsigned token, const WebContent& content);
    virtual void doCancelDownload(unsigned id);
    virtual std::wstring doGetTitle();
    virtual Icon doGetIcon();
    virtual int doGetProgress();
    virtual bool doIsLoading();
    virtual bool doHasCrashed();
    virtual bool doHasEngine();
    virtual void doSetZoom(int percent);
    virtual int doGetZoom();
    virtual void doSetUserStyle(const std::wstring& css);
    virtual std::wstring doGetUserStyle();
    virtual void doFind(const TextSearch& search);
    virtual std::wstring doGetSelectedText();
    virtual void doSelectAll();
    virtual void doClearSelection();
    virtual void doCopy();
    virtual WebTarget doGetTarget();
    virtual WebScriptResult doEvaluate(const std::wstring& script, int limit);
    virtual void doEvaluateLater(const std::wstring& script, int limit,
                                 const WebScriptReply& reply);
    virtual void doPostMessage(const std::wstring& text);
    virtual void doPrintToPdf(const std::filesystem::path& file, PaperSize paper);
    virtual void doimActivateLink(const std::wstring& target);

protected:
    void changeEvent(QEvent* event) override;

private:
    friend class QtWebNews;

    using Receiver = std::function<void(WebScriptResult)>;

    WebView& view();
    void go(const QString& address, const std::function<void(WebView&)>& act);
    void settingsChanged();
    void whenLoaded(std::function<void()> act);
    void loadIsOver();
    unsigned start(const QString& script, int limit, Receiver receiver);
    void finish(unsigned script, const WebScriptResult& result);
    void finishScripts();
    bool turnsZoom(QEvent* event);

    std::unique_ptr<class QtWebNews> m_news;
    std::unique_ptr<WebView> m_view; // null before the browser goes anywhere
    QString m_address;
    QString m_title;
    QIcon m_icon;
    int m_progress = 100;
    int m_wheel = 0; // what is left of its turn
    unsigned m_scripts = 0;
    bool m_isLoading = false;
    bool m_hasCrashed = false;
    bool m_isEnding = false;
    bool m_isUserSelecting = false;
    std::map<unsigned, Receiver> m_running;
    std::vector<std::function<void()>> m_waiting; // for the page
};

} // namespace VOXI
