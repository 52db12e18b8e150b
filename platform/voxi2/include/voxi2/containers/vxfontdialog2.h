#pragma once

#include "voxi2/containers/vxabstractdialog2.h"
#include "voxi2/containers/vxchoosingevents2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <optional>

namespace VOXI {

struct VXFontDialog2Emitters : TROV::EmittersTable<VXAbstractDialog2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXFont)> setCurrentFont{*this};
    TROV::Request<VXFont()> getCurrentFont{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXFontDialogEvent2&)> currentFontChanged{*this};
};

/// Lets the user choose a font.
///
///     if (const auto font = VXFontDialog2::ask(window, editor->font()))
///         editor->setFont(*font);
class VOXI2_EXPORT VXFontDialog2 : public VXAbstractDialog2
{
public:
    using ToolkitClass = VXFontDialog2;

    explicit VXFontDialog2(VXObject2* parent = nullptr);
    ~VXFontDialog2() override;

    /// Asks, and waits for the answer as `exec` does; nothing when the user cancels, without a back
    /// end, and when the parent has ended or ends meanwhile.
    static std::optional<VXFont> ask(VXObject2* parent, const VXFont& font = VXFont(),
                                     const AnyText& title = {});

    /// What is chosen at the moment, whatever came of the dialog.
    void setCurrentFont(const VXFont& font);
    VXFont currentFont() const;

    // Events

    /// The user tries another font, which a program may show at once; it is chosen when the dialog
    /// ends with `Accepted`.
    TROV::Signal<void(const VXFontDialogEvent2&)> currentFontChanged() const
    {
        return m_emitters.currentFontChanged.signal();
    }

private:
    VXFontDialog2Emitters m_emitters;
};

} // namespace VOXI
