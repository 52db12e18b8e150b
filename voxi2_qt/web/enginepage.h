#pragma once

#include <QWebEnginePage>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>

namespace VOXI {

class EngineView;

/// Sees what a page asks for before it gets it.
class PageGuard final : public QWebEngineUrlRequestInterceptor
{
public:
    explicit PageGuard(EngineView& view) : m_view(view) {}
    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

private:
    EngineView& m_view;
};

/// A page: what it wants to do it has to ask for.
class EnginePage final : public QWebEnginePage
{
    Q_OBJECT

public:
    EnginePage(EngineView& view, QWebEngineProfile& profile);
    ~EnginePage() override;

    /// The next step in the history, or the next loading anew, is the program's doing.
    void expectProgram() { m_isProgramGoing = true; }

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& usual,
                          QString* result) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& former,
                            const QStringList& types) override;
    /// What pages say there is for their makers.
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                  const QString&) override
    {}

private:
    EngineView& m_view;
    PageGuard m_guard;
    bool m_isProgramGoing = false;
};

/// What a page is seen in: shows the browser the events of the user.
class EngineWidget final : public QWebEngineView
{
    Q_OBJECT

public:
    EngineWidget(EngineView& view, QWebEnginePage& page, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    EngineView& m_view;
};

} // namespace VOXI
