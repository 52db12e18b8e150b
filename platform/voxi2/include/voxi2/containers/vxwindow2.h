#pragma once

#include "voxi2/containers/vxabstractwindow2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXWindow2Emitters : TROV::EmittersTable<VXAbstractWindow2Emitters> {
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXWidget2*)> setCentralWidget{*this};
    TROV::Request<VXWidget2*()> getCentralWidget{*this};
    TROV::Request<void(bool)> setSupportsGlobalFocusBlocker{*this};
    TROV::Request<bool()> getSupportsGlobalFocusBlocker{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// A window of its own on the screen. It is hidden until `show()`.
class VOXI2_EXPORT VXWindow2 : public VXAbstractWindow2 {
public:
    /// A window with a parent belongs to the parent's window and stays above it.
    explicit VXWindow2(VXObject2* parent = nullptr);
    ~VXWindow2() override;

    /// The widget that fills the window. The former one stays alive, hidden; null leaves the window
    /// empty; a dead one is ignored.
    void setCentralWidget(VXWidget2* widget);
    VXWidget2* centralWidget() const;

    /// Whether focus changes that the program causes in the window are kept back until they have
    /// settled, so that none of them is reported; on by default.
    void setSupportsGlobalFocusBlocker(bool supports);
    bool supportsGlobalFocusBlocker() const;

private:
    VXWindow2Emitters m_emitters;
};

}  // namespace VOXI
