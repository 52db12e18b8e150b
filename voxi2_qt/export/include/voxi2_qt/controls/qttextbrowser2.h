#pragma once

#include "voxi2/controls/vxtextbrowser2.h"
#include "voxi2/kernel/librarytext.h"
#include "voxi2_qt/controls/textbrowser.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QStringList>

namespace VOXI {

class HoverButton;

/// The peer of the text browser: a bar of buttons, and below it what shows the pages.
class VOXI2_QT_EXPORT QtTextBrowser2
    : public QtWidget2Shim<VXTextBrowser2, VXTextBrowser2Emitters, QtWidget2, QWidget>,
      public TextBrowserHost
{
    Q_OBJECT

public:
    QtTextBrowser2(VXTextBrowser2* object, VXTextBrowser2Emitters* emitters, QWidget* parent);
    ~QtTextBrowser2() override;

    // Requests, in the order of the emitters table
    virtual void doSetSrc(const std::string& source);
    virtual void doSetExtensionType(const std::string& extension, const std::string& type);
    virtual void doSetText(const std::string& text);
    virtual void doSetTextU(const std::wstring& text);
    virtual std::string doGetText();
    virtual std::wstring doGetTextU();
    virtual std::string doGetSource();
    virtual void doReload();
    virtual void doSetCurrentBuffer(int number);
    virtual int doGetCurrentBuffer();
    virtual void doSetBuffer(const std::vector<std::string>& texts);
    virtual std::vector<std::string> doGetBuffer();
    virtual void doSetFilePath(const std::vector<std::string>& folders);
    virtual std::vector<std::string> doGetFilePath();
    virtual void doShowToolBar();
    virtual void doHideToolBar();
    virtual bool doIsToolBarVisible();
    virtual void doSetSrcU(const std::wstring& source);
    virtual std::wstring doGetSourceU();
    virtual void doSetBufferU(const std::vector<std::wstring>& texts);
    virtual std::vector<std::wstring> doGetBufferU();
    virtual std::wstring doGetTitle();
    virtual void doAnswerResource(unsigned token, const TextResource& resource);
    virtual void doGoBack();
    virtual void doGoForward();
    virtual void doGoHome();
    virtual bool doIsBackAvailable();
    virtual bool doIsForwardAvailable();
    virtual std::vector<PageVisit> doGetHistory();
    virtual int doGetHistoryPlace();
    virtual void doSetHistoryPlace(int place);
    virtual void doClearHistory();
    virtual bool doFind(const TextSearch& search);
    virtual void doScrollToAnchor(const std::wstring& name);
    virtual void doSetZoom(int percent);
    virtual int doGetZoom();
    virtual void doSetSelection(TextRange range);
    virtual TextRange doGetSelection();
    virtual std::wstring doGetSelectedText();
    virtual VXMimeData2 doGetSelectedData();
    virtual void doSelectAll();
    virtual void doCopy();
    virtual bool doPrintToPdf(const std::filesystem::path& file, PaperSize paper);
    virtual void doimActivateLink(const std::wstring& target);
    virtual void doimPressBack();
    virtual void doimPressForward();
    virtual void doimPressHome();

    // For what shows the pages

    const QtWidget2& browserPeer() const override { return *this; }
    TextResourceQuery2::Reply askForResource(TextResourceType type, const QString& url,
                                             unsigned token,
                                             const TextResourceQuery2::Wanted& wanted,
                                             TextResource& given) const override;
    bool isAnswering() const override;
    bool mayFollow(const QString& target) const override;
    QStringList filePath() const override;

public Q_SLOTS:
    void setBackAvailable(bool available);
    void setForwardAvailable(bool available);
    /// Does nothing: what is clicked is gone to by what shows the pages.
    void setSource(const QString& source);
    /// Passes the wish on to whoever has the window.
    void setAlwaysOnTop(bool onTop);

protected:
    void connectSignals() override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void slotHovered(const QUrl& link);
    void slotSourceChanged(const QUrl& source);
    void slotTitleChanged(const QString& title);
    void slotHistoryChanged();
    void slotSelectionChanged();
    void slotZoomChanged(int percent);

private:
    void setupButtons();
    HoverButton* addButton(const char* image, const char* disabledImage, LibraryText toolTip);

    bool m_isBackAvailable = false;
    bool m_isForwardAvailable = false;
    QWidget* m_bar = nullptr;
    TextBrowser* m_browser = nullptr;
    HoverButton* m_back = nullptr;
    HoverButton* m_forward = nullptr;
    HoverButton* m_home = nullptr;
};

} // namespace VOXI
