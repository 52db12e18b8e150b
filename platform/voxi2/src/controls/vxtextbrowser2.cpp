#include "voxi2/controls/vxtextbrowser2.h"

#include "trov/thread.h"

#include <charconv>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace VOXI {

namespace {

/// The number of the buffer that a source names; none where it names no number.
std::optional<long long> bufferNumber(const AnyText& source)
{
    constexpr std::string_view Address = "buffer://";
    std::string rest = utf8FromWide(source.toWide());
    if (!rest.starts_with("buffer:"))
        return std::nullopt;
    for (auto at = rest.find(Address); at != std::string::npos; at = rest.find(Address))
        rest.erase(at, Address.size());
    long long number = 0;
    const char* const end = rest.data() + rest.size();
    const auto [behind, error] = std::from_chars(rest.data(), end, number);
    return error == std::errc() && behind == end ? std::optional(number) : std::nullopt;
}

} // namespace

VXTextBrowser2::VXTextBrowser2(VXObject2* parent) : VXTextBrowser2(AnyText(), parent) {}

VXTextBrowser2::VXTextBrowser2(const AnyText& text, VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(text, &VXTextBrowser2::setText, &VXFactory2::createTextBrowser2, this, &m_emitters,
               parent);
}

VXTextBrowser2::~VXTextBrowser2() { retire(); }

void VXTextBrowser2::setSource(const AnyText& source)
{
    if (const auto number = bufferNumber(source))
        checkBuffer(*number);
    source.passTo(m_emitters.setSrc, m_emitters.setSrcU);
}

std::string VXTextBrowser2::source() const { return m_emitters.getSource(); }
std::wstring VXTextBrowser2::sourceU() const { return m_emitters.getSourceU(); }

void VXTextBrowser2::setExtensionType(const std::string& extension, const std::string& type)
{
    m_emitters.setExtensionType(extension, type);
}

void VXTextBrowser2::setText(const AnyText& text)
{
    text.passTo(m_emitters.setText, m_emitters.setTextU);
}

std::string VXTextBrowser2::text() const { return m_emitters.getText(); }
std::wstring VXTextBrowser2::textU() const { return m_emitters.getTextU(); }
std::wstring VXTextBrowser2::title() const { return m_emitters.getTitle(); }
void VXTextBrowser2::reload() { m_emitters.reload(); }

void VXTextBrowser2::setBuffers(const std::vector<std::string>& texts)
{
    m_bufferCount = texts.size();
    m_emitters.setBuffer(texts);
}

void VXTextBrowser2::setBuffersU(const std::vector<std::wstring>& texts)
{
    m_bufferCount = texts.size();
    m_emitters.setBufferU(texts);
}

std::vector<std::string> VXTextBrowser2::buffers() const { return m_emitters.getBuffer(); }
std::vector<std::wstring> VXTextBrowser2::buffersU() const { return m_emitters.getBufferU(); }

void VXTextBrowser2::setCurrentBuffer(int number)
{
    checkBuffer(number);
    m_emitters.setCurrentBuffer(number);
}

int VXTextBrowser2::currentBuffer() const { return m_emitters.getCurrentBuffer(); }

void VXTextBrowser2::setFilePath(const std::vector<std::string>& folders)
{
    m_emitters.setFilePath(folders);
}

std::vector<std::string> VXTextBrowser2::filePath() const { return m_emitters.getFilePath(); }
void VXTextBrowser2::showToolBar() { m_emitters.showToolBar(); }
void VXTextBrowser2::hideToolBar() { m_emitters.hideToolBar(); }
bool VXTextBrowser2::isToolBarVisible() const { return m_emitters.isToolBarVisible(); }
void VXTextBrowser2::goBack() { m_emitters.goBack(); }
void VXTextBrowser2::goForward() { m_emitters.goForward(); }
void VXTextBrowser2::goHome() { m_emitters.goHome(); }
bool VXTextBrowser2::isBackAvailable() const { return m_emitters.isBackAvailable(); }
bool VXTextBrowser2::isForwardAvailable() const { return m_emitters.isForwardAvailable(); }
std::vector<PageVisit> VXTextBrowser2::history() const { return m_emitters.getHistory(); }

int VXTextBrowser2::historyPlace() const { return m_emitters.getHistoryPlace(); }
void VXTextBrowser2::setHistoryPlace(int place) { m_emitters.setHistoryPlace(place); }
void VXTextBrowser2::clearHistory() { m_emitters.clearHistory(); }
bool VXTextBrowser2::find(const PageSearch& search) { return m_emitters.find(search); }

void VXTextBrowser2::scrollToAnchor(const AnyText& name)
{
    name.passWideTo(m_emitters.scrollToAnchor);
}

void VXTextBrowser2::setZoom(int percent) { m_emitters.setZoom(percent); }
int VXTextBrowser2::zoom() const { return m_emitters.getZoom(); }
void VXTextBrowser2::setSelection(const TextRange& range) { m_emitters.setSelection(range); }
TextRange VXTextBrowser2::selection() const { return m_emitters.getSelection(); }
std::wstring VXTextBrowser2::selectedText() const { return m_emitters.getSelectedText(); }
VXMimeData2 VXTextBrowser2::selectedData() const { return m_emitters.getSelectedData(); }
void VXTextBrowser2::selectAll() { m_emitters.selectAll(); }
void VXTextBrowser2::copy() { m_emitters.copy(); }

bool VXTextBrowser2::printToPdf(const std::filesystem::path& file, const PaperSize& paper)
{
    return m_emitters.printToPdf(file, paper);
}

void VXTextBrowser2::imitateLink(const AnyText& target)
{
    target.passWideTo(m_emitters.activateLink);
}

void VXTextBrowser2::imitateBack() { m_emitters.pressBack(); }
void VXTextBrowser2::imitateForward() { m_emitters.pressForward(); }
void VXTextBrowser2::imitateHome() { m_emitters.pressHome(); }

/// By id: the browser may have gone. The last copy of a query may go anywhere, so nothing is thrown
/// at whoever lets go of it.
void VXTextBrowser2::takeAnswer(unsigned browser, unsigned token, TextResource resource) noexcept
{
    try {
        const VXObjectDataLocker lock;
        if (auto* const object = static_cast<VXTextBrowser2*>(objectById(browser)))
            object->m_emitters.answerResource(token, resource);
    } catch (...) {
        TROV::Thread::reportException(std::current_exception());
    }
}

void VXTextBrowser2::checkBuffer(long long number) const
{
    if (number < 1 || std::cmp_greater(number, m_bufferCount.load()))
        throw std::out_of_range("there is no buffer " + std::to_string(number));
}

} // namespace VOXI
