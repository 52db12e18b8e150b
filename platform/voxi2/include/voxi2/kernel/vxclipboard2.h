#pragma once

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
    TROV::RequestsEnd requestsEnd{*this};

    /// The formats on the clipboard, and the number of the change.
    TROV::Event<void(const std::vector<std::string>&, unsigned)> changed{*this};
};

/// The system clipboard. There is one, made when a back end comes up.
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
    /// Says that the change of that number has been seen. Until the last one was, data cannot be
    /// read: it might belong to another change than the reader thinks.
    void sync(unsigned change);
    /// The data of one format; empty when there is none, or a change has not been seen yet.
    any retrieveData(const StringID& format) const;

    /// The content changed; not sent for `setMimeData`.
    TROV::Signal<void(const std::vector<std::string>&, unsigned)> changed() const
    {
        return m_emitters.changed.signal();
    }

private:
    VXClipboard2();

    VXClipboard2Emitters m_emitters;
};

} // namespace VOXI
