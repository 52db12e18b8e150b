#pragma once

#include "voxi2/kernel/clipboardplace.h"
#include "voxi2/kernel/vxclipboardevents2.h"
#include "voxi2/kernel/vxobject2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/any.h"
#include "voxi_util/stringid.h"
#include "voxi_util/vxmimedata2.h"

#include <string>
#include <vector>

namespace VOXI {

struct VXClipboard2Emitters : TROV::EmittersTable<VXObject2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXMimeData2)> setMimeData{*this};
    TROV::Request<void()> clear{*this};
    TROV::Request<void(unsigned)> sync{*this};
    TROV::Request<any(StringID)> retrieveData{*this};
    TROV::Request<std::vector<std::string>(ClipboardPlace)> getFormats{*this};
    TROV::Request<any(ClipboardPlace, StringID)> getData{*this};
    TROV::Request<bool()> hasSelection{*this};
    TROV::Request<void(VXMimeData2)> setSelection{*this};
    TROV::Request<void()> clearSelection{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXClipboardEvent2&)> changed{*this};
    TROV::Event<void(const VXClipboardEvent2&)> selectionChanged{*this};
};

/// The system clipboard. There is one, made when a back end comes up.
///
/// What the program puts on it may be made later, when somebody pastes: see VXLazyData. Then it is
/// made on the toolkit's thread, whichever thread has set it, for other programs and for this one.
/// While that goes on, what is put on the clipboard takes its place afterwards, but is what getters
/// answer. What making it throws reaches who asks, or, where that is another program, the
/// exception handler of the toolkit's thread; the other program gets nothing. When the back end
/// goes, what has not been made goes with it.
///
/// Data of another program are fetched from it when they are asked for. The toolkit's thread waits
/// for them, and gives up a program that says nothing for some seconds: then there are none.
class VOXI2_EXPORT VXClipboard2 final : public VXObject2
{
public:
    using ToolkitClass = VXClipboard2;

    ~VXClipboard2() override;

    /// Makes the clipboard on the back end of that key; again it does nothing.
    static void initImpl(StringID key);

    /// Null while no back end is up.
    static VXClipboard2* instance();

    void setMimeData(const VXMimeData2& data);
    void clear();
    /// Says that the change of that number has been seen. Until the last one was, `retrieveData`
    /// gives nothing: it might belong to another change than the reader thinks.
    void sync(unsigned change);
    /// The data of one format; empty when there is none, or a change has not been seen yet.
    any retrieveData(const StringID& format) const;

    /// What lies there now, seen or not: the names of its formats, the best first, and the data of
    /// one: a ByteArray, a Pixmap for an image, or of this program's own data the value itself.
    std::vector<std::string> formats(ClipboardPlace place = ClipboardPlace::Clipboard) const;
    any data(const StringID& format, ClipboardPlace place = ClipboardPlace::Clipboard) const;
    /// The text that lies there; empty when there is none.
    std::wstring text(ClipboardPlace place = ClipboardPlace::Clipboard) const;

    /// Whether the platform has a selection. Where it has none, nothing can be put there, and there
    /// is nothing.
    bool hasSelection() const;
    void setSelection(const VXMimeData2& data);
    void clearSelection();

    // Events

    /// Another program, or a widget of this one, has put something on the clipboard, or it was
    /// cleared. Sent once for each change, and not for `setMimeData`.
    TROV::Signal<void(const VXClipboardEvent2&)> changed() const
    {
        return m_emitters.changed.signal();
    }

    /// The same for the selection; not sent for `setSelection` and `clearSelection`.
    TROV::Signal<void(const VXClipboardEvent2&)> selectionChanged() const
    {
        return m_emitters.selectionChanged.signal();
    }

private:
    VXClipboard2();

    VXClipboard2Emitters m_emitters;
};

} // namespace VOXI
