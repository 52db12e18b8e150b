#include "voxi2/kernel/vxclipboard2.h"

#include "voxi2/kernel/vxfactory2.h"

#include <atomic>

namespace VOXI {

namespace {

std::atomic<VXClipboard2*> s_clipboard{nullptr};

} // namespace

VXClipboard2::VXClipboard2() : VXObject2(nullptr), m_emitters(VXObject2::m_emitters)
{
    createPeer(&VXFactory2::createClipboard2, this, &m_emitters);
}

VXClipboard2::~VXClipboard2()
{
    VXClipboard2* self = this;
    s_clipboard.compare_exchange_strong(self, nullptr);
    retire();
}

void VXClipboard2::initImpl(StringID key)
{
    // Of this back end, which need not be the one that other objects get their peers from.
    const VXFactory2::Scope scope(key);
    if (VXFactory2::current() && !instance())
        s_clipboard = new VXClipboard2;
}

VXClipboard2* VXClipboard2::instance() { return s_clipboard.load(std::memory_order_acquire); }
void VXClipboard2::setMimeData(const VXMimeData2& data) { m_emitters.setMimeData(data); }
void VXClipboard2::clear() { m_emitters.clear(); }
void VXClipboard2::sync(unsigned change) { m_emitters.sync(change); }

any VXClipboard2::retrieveData(const StringID& format) const
{
    return m_emitters.retrieveData(format);
}

std::vector<std::string> VXClipboard2::formats(ClipboardPlace place) const
{
    return m_emitters.getFormats(place);
}

any VXClipboard2::data(const StringID& format, ClipboardPlace place) const
{
    return m_emitters.getData(place, format);
}

std::wstring VXClipboard2::text(ClipboardPlace place) const
{
    VXMimeData2 read;
    read.setData("text/plain", data("text/plain", place));
    return read.text();
}

bool VXClipboard2::hasSelection() const { return m_emitters.hasSelection(); }
void VXClipboard2::setSelection(const VXMimeData2& data) { m_emitters.setSelection(data); }
void VXClipboard2::clearSelection() { m_emitters.clearSelection(); }

} // namespace VOXI
