#include "voxi2_qt/controls/qttextbrowser2.h"

#include "browserurls.h"
#include "voxi2/kernel/translation.h"
#include "voxi2_qt/controls/hoverbutton.h"
#include "voxi2_qt/controls/textbrowser.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QGridLayout>

namespace VOXI {

namespace {

using E = VXTextBrowser2Emitters;
using P = QtTextBrowser2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setSrc, &P::doSetSrc>(),
    TROV::row<&E::setExtensionType, &P::doSetExtensionType>(),
    TROV::row<&E::setText, &P::doSetText>(),
    TROV::row<&E::setTextU, &P::doSetTextU>(),
    TROV::row<&E::getText, &P::doGetText>(),
    TROV::row<&E::getTextU, &P::doGetTextU>(),
    TROV::row<&E::getSource, &P::doGetSource>(),
    TROV::row<&E::reload, &P::doReload>(),
    TROV::row<&E::setCurrentBuffer, &P::doSetCurrentBuffer>(),
    TROV::row<&E::getCurrentBuffer, &P::doGetCurrentBuffer>(),
    TROV::row<&E::setBuffer, &P::doSetBuffer>(),
    TROV::row<&E::getBuffer, &P::doGetBuffer>(),
    TROV::row<&E::setFilePath, &P::doSetFilePath>(),
    TROV::row<&E::getFilePath, &P::doGetFilePath>(),
    TROV::row<&E::showToolBar, &P::doShowToolBar>(),
    TROV::row<&E::hideToolBar, &P::doHideToolBar>(),
    TROV::row<&E::isToolBarVisible, &P::doIsToolBarVisible>(),
    TROV::row<&E::setSrcU, &P::doSetSrcU>(),
    TROV::row<&E::getSourceU, &P::doGetSourceU>(),
    TROV::row<&E::setBufferU, &P::doSetBufferU>(),
    TROV::row<&E::getBufferU, &P::doGetBufferU>(),
    TROV::row<&E::getTitle, &P::doGetTitle>(),
    TROV::row<&E::answerResource, &P::doAnswerResource>(),
    TROV::row<&E::goBack, &P::doGoBack>(),
    TROV::row<&E::goForward, &P::doGoForward>(),
    TROV::row<&E::goHome, &P::doGoHome>(),
    TROV::row<&E::isBackAvailable, &P::doIsBackAvailable>(),
    TROV::row<&E::isForwardAvailable, &P::doIsForwardAvailable>(),
    TROV::row<&E::getHistory, &P::doGetHistory>(),
    TROV::row<&E::getHistoryPlace, &P::doGetHistoryPlace>(),
    TROV::row<&E::setHistoryPlace, &P::doSetHistoryPlace>(),
    TROV::row<&E::clearHistory, &P::doClearHistory>(),
    TROV::row<&E::find, &P::doFind>(),
    TROV::row<&E::scrollToAnchor, &P::doScrollToAnchor>(),
    TROV::row<&E::setZoom, &P::doSetZoom>(),
    TROV::row<&E::getZoom, &P::doGetZoom>(),
    TROV::row<&E::setSelection, &P::doSetSelection>(),
    TROV::row<&E::getSelection, &P::doGetSelection>(),
    TROV::row<&E::getSelectedText, &P::doGetSelectedText>(),
    TROV::row<&E::getSelectedData, &P::doGetSelectedData>(),
    TROV::row<&E::selectAll, &P::doSelectAll>(),
    TROV::row<&E::copy, &P::doCopy>(),
    TROV::row<&E::printToPdf, &P::doPrintToPdf>(),
    asUserRow<&E::activateLink, &P::doimActivateLink>(),
    asUserRow<&E::pressBack, &P::doimPressBack>(),
    asUserRow<&E::pressForward, &P::doimPressForward>(),
    asUserRow<&E::pressHome, &P::doimPressHome>());
// clang-format on

template <class Text>
QStringList toQStrings(const std::vector<Text>& texts)
{
    QStringList result;
    result.reserve(static_cast<qsizetype>(texts.size()));
    for (const Text& text : texts)
        result.push_back(toQString(text));
    return result;
}

template <auto Convert>
auto fromQStrings(const QStringList& texts)
{
    std::vector<decltype(Convert(QString()))> result;
    result.reserve(static_cast<std::size_t>(texts.size()));
    for (const QString& text : texts)
        result.push_back(Convert(text));
    return result;
}

} // namespace

QtTextBrowser2::QtTextBrowser2(VXTextBrowser2* object, VXTextBrowser2Emitters* emitters,
                               QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    setupButtons();
}

/// What is inside goes later, and may still lose the focus.
QtTextBrowser2::~QtTextBrowser2()
{
    endPeer();
    m_browser->removeEventFilter(this);
}

// Requests ----------------------------------------------------------------------------------------

void QtTextBrowser2::doSetSrc(const std::string& source)
{
    const QtProgramScope scope;
    m_browser->goTo(toQString(source));
}

void QtTextBrowser2::doSetExtensionType(const std::string&, const std::string&) {}

void QtTextBrowser2::doSetText(const std::string& text)
{
    const QtProgramScope scope;
    m_browser->showText(toQString(text));
}

void QtTextBrowser2::doSetTextU(const std::wstring& text)
{
    const QtProgramScope scope;
    m_browser->showText(toQString(text));
}

std::string QtTextBrowser2::doGetText() { return toStdString(m_browser->toPlainText()); }
std::wstring QtTextBrowser2::doGetTextU() { return toStdWString(m_browser->toPlainText()); }
std::string QtTextBrowser2::doGetSource() { return toStdString(m_browser->place()); }

void QtTextBrowser2::doReload()
{
    const QtProgramScope scope;
    m_browser->reload();
}

void QtTextBrowser2::doSetCurrentBuffer(int number)
{
    const QtProgramScope scope;
    m_browser->goTo(QString::asprintf("buffer://%d", number));
}

int QtTextBrowser2::doGetCurrentBuffer() { return m_browser->currentBuffer(); }

void QtTextBrowser2::doSetBuffer(const std::vector<std::string>& texts)
{
    m_browser->setBuffers(toQStrings(texts));
}

std::vector<std::string> QtTextBrowser2::doGetBuffer()
{
    return fromQStrings<&toStdString>(m_browser->buffers());
}

void QtTextBrowser2::doSetFilePath(const std::vector<std::string>& folders)
{
    m_browser->setSearchPaths(toQStrings(folders));
}

std::vector<std::string> QtTextBrowser2::doGetFilePath()
{
    return fromQStrings<&toStdString>(filePath());
}

void QtTextBrowser2::doShowToolBar() { m_bar->show(); }

void QtTextBrowser2::doHideToolBar()
{
    const QtProgramScope scope; // the focus may go on
    m_bar->hide();
}

bool QtTextBrowser2::doIsToolBarVisible() { return !m_bar->isHidden(); }

void QtTextBrowser2::doSetSrcU(const std::wstring& source)
{
    const QtProgramScope scope;
    m_browser->goTo(toQString(source));
}

std::wstring QtTextBrowser2::doGetSourceU() { return toStdWString(m_browser->place()); }

void QtTextBrowser2::doSetBufferU(const std::vector<std::wstring>& texts)
{
    m_browser->setBuffers(toQStrings(texts));
}

std::vector<std::wstring> QtTextBrowser2::doGetBufferU()
{
    return fromQStrings<&toStdWString>(m_browser->buffers());
}

std::wstring QtTextBrowser2::doGetTitle() { return toStdWString(m_browser->documentTitle()); }

void QtTextBrowser2::doAnswerResource(unsigned token, const TextResource& resource)
{
    m_browser->takeAnswer(token, resource);
}

void QtTextBrowser2::doGoBack()
{
    const QtProgramScope scope;
    m_browser->backward();
}

void QtTextBrowser2::doGoForward()
{
    const QtProgramScope scope;
    m_browser->forward();
}

void QtTextBrowser2::doGoHome()
{
    const QtProgramScope scope;
    m_browser->home();
}

bool QtTextBrowser2::doIsBackAvailable() { return m_isBackAvailable; }
bool QtTextBrowser2::doIsForwardAvailable() { return m_isForwardAvailable; }

std::vector<PageVisit> QtTextBrowser2::doGetHistory()
{
    std::vector<PageVisit> visits;
    for (const TextBrowser::Visit& visit : m_browser->visits())
        visits.push_back({toStdWString(visit.m_place), toStdWString(visit.m_title)});
    return visits;
}

int QtTextBrowser2::doGetHistoryPlace() { return m_browser->visitPlace(); }

void QtTextBrowser2::doSetHistoryPlace(int place)
{
    if (place < 0 || m_browser->visitPlace() < 0)
        return;
    const QtProgramScope scope;
    m_browser->goBy(place - m_browser->visitPlace());
}

void QtTextBrowser2::doClearHistory()
{
    const QtProgramScope scope;
    m_browser->clearHistory();
}

void QtTextBrowser2::doimActivateLink(const std::wstring& target)
{
    m_browser->followLink(QUrl(toQString(target)));
}

void QtTextBrowser2::doimPressBack() { m_back->click(); }
void QtTextBrowser2::doimPressForward() { m_forward->click(); }
void QtTextBrowser2::doimPressHome() { m_home->click(); }

// Reports -----------------------------------------------------------------------------------------

void QtTextBrowser2::connectSignals()
{
    connect(m_browser, &QTextBrowser::highlighted, this, &QtTextBrowser2::slotHovered);
    connect(m_browser, &QTextBrowser::sourceChanged, this, &QtTextBrowser2::slotSourceChanged);
    connect(m_browser, &TextBrowser::titleChanged, this, &QtTextBrowser2::slotTitleChanged);
    connect(m_browser, &QTextBrowser::historyChanged, this, &QtTextBrowser2::slotHistoryChanged);
    connect(m_browser, &QTextEdit::selectionChanged, this, &QtTextBrowser2::slotSelectionChanged);
    connect(m_browser, &TextBrowser::zoomChanged, this, &QtTextBrowser2::slotZoomChanged);
}

void QtTextBrowser2::slotHovered(const QUrl& link)
{
    report(&E::linkHovered, toStdWString(browserText(link)));
}

void QtTextBrowser2::slotSourceChanged(const QUrl& source)
{
    if (!QtProgramScope::isActive())
        report(&E::sourceChanged, toStdWString(browserText(source)));
}

void QtTextBrowser2::slotTitleChanged(const QString& title)
{
    if (!QtProgramScope::isActive())
        report(&E::titleChanged, toStdWString(title));
}

void QtTextBrowser2::slotHistoryChanged()
{
    if (!QtProgramScope::isActive())
        report(&E::historyChanged);
}

void QtTextBrowser2::slotSelectionChanged()
{
    if (!QtProgramScope::isActive())
        report(&E::selectionChanged);
}

void QtTextBrowser2::slotZoomChanged(int percent) { report(&E::zoomChanged, percent); }

TextResourceQuery2::Reply QtTextBrowser2::askForResource(TextResourceType type, const QString& url,
                                                         unsigned token,
                                                         const TextResourceQuery2::Wanted& wanted,
                                                         TextResource& given) const
{
    const TextResourceQuery2 query(getUID(), token, type, toStdWString(url), wanted);
    return ask(&E::resourceRequested, query) ? query.endAsking(given)
                                             : TextResourceQuery2::Reply::None;
}

bool QtTextBrowser2::isAnswering() const { return isHeard(&E::resourceRequested); }

bool QtTextBrowser2::mayFollow(const QString& target) const
{
    const auto asked = ask(&E::linkActivated, toStdWString(target));
    return !asked || !asked->isRefused();
}

void QtTextBrowser2::setAlwaysOnTop(bool onTop) { report(&E::alwaysOnTop, onTop); }

void QtTextBrowser2::changeEvent(QEvent* event)
{
    QtWidget2Shim::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_browser)
        m_browser->applyZoom();
}

/// The focus is that of what shows the pages; whose it is must not matter outside.
bool QtTextBrowser2::eventFilter(QObject* watched, QEvent* event)
{
    const bool isFocus = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut;
    return (isFocus && watched == m_browser && showToPeer(this, event))
           || QtWidget2Shim::eventFilter(watched, event);
}

// Helpers -----------------------------------------------------------------------------------------

QStringList QtTextBrowser2::filePath() const { return m_browser->searchPaths(); }

void QtTextBrowser2::setBackAvailable(bool available)
{
    m_isBackAvailable = available;
    m_back->setEnabled(available);
}

void QtTextBrowser2::setForwardAvailable(bool available)
{
    m_isForwardAvailable = available;
    m_forward->setEnabled(available);
}

void QtTextBrowser2::setSource(const QString&) {}

/// The buttons are placed by hand, edge to edge.
void QtTextBrowser2::setupButtons()
{
    auto* const grid = new QGridLayout(this);
    m_browser = new TextBrowser(*this, this); // first, as the keyboard goes through them
    m_bar = new QWidget(this);
    m_back = addButton("back_on.png", "back_on_disabled.png", "Back");
    m_back->setEnabled(false);
    m_forward = addButton("forward_on.png", "forward_on_disabled.png", "Forward");
    m_forward->setEnabled(false);
    m_forward->move(m_back->width(), 0);
    m_home = addButton("home_on.png", "home_off.png", "Home");
    m_home->move(m_back->width() + m_forward->width(), 0);
    m_bar->setFixedHeight(m_back->height());
    m_browser->setBackgroundRole(QPalette::Base);
    grid->addWidget(m_bar, 0, 0);
    grid->addWidget(m_browser, 1, 0);
    setAttribute(Qt::WA_MouseTracking);
    setFocusProxy(m_browser);
    m_browser->installEventFilter(this);

    connect(m_back, &QAbstractButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_forward, &QAbstractButton::clicked, m_browser, &QTextBrowser::forward);
    connect(m_home, &QAbstractButton::clicked, m_browser, &QTextBrowser::home);
    connect(m_browser, &QTextBrowser::forwardAvailable, this, &QtTextBrowser2::setForwardAvailable);
    connect(m_browser, &QTextBrowser::backwardAvailable, this, &QtTextBrowser2::setBackAvailable);
    connect(m_browser, &TextBrowser::linkClicked, this, &QtTextBrowser2::setSource);
}

HoverButton* QtTextBrowser2::addButton(const char* image, const char* disabledImage,
                                       LibraryText toolTip)
{
    const QString folder = QStringLiteral("toolbox/shared/brisvale/resources/tidings/");
    auto* const button = new HoverButton(folder + QLatin1String(image),
                                         folder + QLatin1String(disabledImage), m_bar);
    button->setToolTip(toQString(translated(toolTip)));
    return button;
}

} // namespace VOXI
