#include "voxi2/controls/vxwebbrowser2.h"

#include "trov/thread.h"

#include <algorithm>
#include <exception>
#include <mutex>

namespace VOXI {

namespace {

struct Schemes
{
    std::mutex m_mutex;
    std::vector<std::string> m_names{"app"};
    bool m_areFixed = false;
};

Schemes& schemes()
{
    static auto* instance = new Schemes;
    return *instance;
}

/// As the web wants it.
bool isSchemeName(std::string_view name)
{
    const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    return !name.empty() && name.size() <= 64 && isLetter(name.front())
           && std::ranges::all_of(name, [&](char c) {
                  return isLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
              });
}

/// What engines and text browsers know themselves.
bool isTaken(std::string_view name)
{
    static constexpr std::string_view Taken[] = {
        "about", "blob",       "buffer", "chrome",     "chrome-error", "chrome-extension",
        "data",  "devtools",   "file",   "filesystem", "ftp",          "http",
        "https", "javascript", "mailto", "path",       "qrc",          "view-source",
        "ws",    "wss"};
    return std::ranges::find(Taken, name) != std::end(Taken);
}

int inMilliseconds(std::chrono::milliseconds limit)
{
    using std::chrono::milliseconds;
    constexpr milliseconds Most = std::chrono::hours(1);
    return static_cast<int>(std::clamp(limit, milliseconds(0), Most).count());
}

} // namespace

VXWebBrowser2::VXWebBrowser2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createWebBrowser2, this, &m_emitters, parent);
}

VXWebBrowser2::~VXWebBrowser2() { retire(); }

bool VXWebBrowser2::addScheme(std::string_view name)
{
    Schemes& all = schemes();
    const std::lock_guard lock(all.m_mutex);
    if (!isSchemeName(name) || isTaken(name))
        return false;
    if (std::ranges::find(all.m_names, name) != all.m_names.end())
        return true;
    if (!all.m_areFixed)
        all.m_names.emplace_back(name);
    return !all.m_areFixed;
}

const std::vector<std::string>& VXWebBrowser2::fixedSchemes()
{
    Schemes& all = schemes();
    const std::lock_guard lock(all.m_mutex);
    all.m_areFixed = true;
    return all.m_names;
}

void VXWebBrowser2::setAddress(const AnyText& address)
{
    address.passWideTo(m_emitters.setAddress);
}

std::wstring VXWebBrowser2::address() const { return m_emitters.getAddress(); }

void VXWebBrowser2::setHtml(const AnyText& html, const AnyText& base)
{
    m_emitters.setHtml(html.toWide(), base.toWide());
}

void VXWebBrowser2::goBack() { m_emitters.goBack(); }
void VXWebBrowser2::goForward() { m_emitters.goForward(); }
void VXWebBrowser2::reload() { m_emitters.reload(); }
void VXWebBrowser2::stop() { m_emitters.stop(); }
bool VXWebBrowser2::isBackAvailable() const { return m_emitters.isBackAvailable(); }
bool VXWebBrowser2::isForwardAvailable() const { return m_emitters.isForwardAvailable(); }
void VXWebBrowser2::setNetworkAccess(bool access) { m_emitters.setNetworkAccess(access); }
bool VXWebBrowser2::hasNetworkAccess() const { return m_emitters.hasNetworkAccess(); }

void VXWebBrowser2::setFilePath(const std::vector<std::filesystem::path>& folders)
{
    m_emitters.setFilePath(folders);
}

std::vector<std::filesystem::path> VXWebBrowser2::filePath() const
{
    return m_emitters.getFilePath();
}

void VXWebBrowser2::setScriptsEnabled(bool enabled) { m_emitters.setScriptsEnabled(enabled); }
bool VXWebBrowser2::areScriptsEnabled() const { return m_emitters.areScriptsEnabled(); }
void VXWebBrowser2::setProfile(const AnyText& name) { name.passWideTo(m_emitters.setProfile); }
std::wstring VXWebBrowser2::profile() const { return m_emitters.getProfile(); }
void VXWebBrowser2::cancelDownload(unsigned id) { m_emitters.cancelDownload(id); }
std::wstring VXWebBrowser2::title() const { return m_emitters.getTitle(); }
Icon VXWebBrowser2::icon() const { return m_emitters.getIcon(); }
int VXWebBrowser2::progress() const { return m_emitters.getProgress(); }
bool VXWebBrowser2::isLoading() const { return m_emitters.isLoading(); }
bool VXWebBrowser2::hasCrashed() const { return m_emitters.hasCrashed(); }
bool VXWebBrowser2::hasEngine() const { return m_emitters.hasEngine(); }
void VXWebBrowser2::setZoom(int percent) { m_emitters.setZoom(percent); }
int VXWebBrowser2::zoom() const { return m_emitters.getZoom(); }
void VXWebBrowser2::setUserStyle(const AnyText& css) { css.passWideTo(m_emitters.setUserStyle); }
std::wstring VXWebBrowser2::userStyle() const { return m_emitters.getUserStyle(); }
void VXWebBrowser2::find(const TextSearch& search) { m_emitters.find(search); }
std::wstring VXWebBrowser2::selectedText() const { return m_emitters.getSelectedText(); }
void VXWebBrowser2::selectAll() { m_emitters.selectAll(); }
void VXWebBrowser2::clearSelection() { m_emitters.clearSelection(); }
void VXWebBrowser2::copy() { m_emitters.copy(); }
WebTarget VXWebBrowser2::target() const { return m_emitters.getTarget(); }

WebScriptResult VXWebBrowser2::evaluate(const AnyText& script,
                                        std::chrono::milliseconds limit) const
{
    return m_emitters.evaluate(script.toWide(), inMilliseconds(limit));
}

void VXWebBrowser2::evaluateLater(const AnyText& script,
                                  std::function<void(const WebScriptResult&)> receiver,
                                  std::chrono::milliseconds limit)
{
    m_emitters.evaluateLater(script.toWide(), inMilliseconds(limit),
                             WebScriptReply(std::move(receiver)));
}

void VXWebBrowser2::postMessage(const AnyText& text) { text.passWideTo(m_emitters.postMessage); }

void VXWebBrowser2::printToPdf(const std::filesystem::path& file, const PaperSize& paper)
{
    m_emitters.printToPdf(file, paper);
}

void VXWebBrowser2::imitateLink(const AnyText& target)
{
    target.passWideTo(m_emitters.activateLink);
}

/// By id: the browser may have gone. The last copy of a query may go anywhere, so nothing is thrown
/// at whoever lets go of it.
void VXWebBrowser2::takeAnswer(unsigned browser, unsigned token, WebContent content) noexcept
{
    try {
        const VXObjectDataLocker lock;
        if (auto* const object = static_cast<VXWebBrowser2*>(objectById(browser)))
            object->m_emitters.answerContent(token, content);
    } catch (...) {
        TROV::Thread::reportException(std::current_exception());
    }
}

} // namespace VOXI
