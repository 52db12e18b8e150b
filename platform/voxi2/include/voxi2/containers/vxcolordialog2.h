#pragma once

#include "voxi2/containers/vxabstractdialog2.h"
#include "voxi2/containers/vxchoosingevents2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <optional>

namespace VOXI {

struct VXColorDialog2Emitters : TROV::EmittersTable<VXAbstractDialog2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(Color)> setCurrentColor{*this};
    TROV::Request<Color()> getCurrentColor{*this};
    TROV::Request<void(bool)> setAlphaEnabled{*this};
    TROV::Request<bool()> isAlphaEnabled{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXColorDialogEvent2&)> currentColorChanged{*this};
};

/// Lets the user choose a colour.
///
///     if (const auto color = VXColorDialog2::ask(window, layer.color()))
///         layer.setColor(*color);
class VOXI2_EXPORT VXColorDialog2 : public VXAbstractDialog2
{
public:
    using ToolkitClass = VXColorDialog2;

    explicit VXColorDialog2(VXObject2* parent = nullptr);
    ~VXColorDialog2() override;

    /// Asks, and waits for the answer as `exec` does; nothing when the user cancels, without a back
    /// end, and when the parent has ended or ends meanwhile.
    static std::optional<Color> ask(VXObject2* parent, const Color& color = Color(),
                                    bool withAlpha = false, const AnyText& title = {});

    /// What is chosen at the moment, whatever came of the dialog.
    void setCurrentColor(const Color& color);
    Color currentColor() const;

    /// Whether the user may choose how opaque the colour is; off by default.
    void setAlphaEnabled(bool enabled);
    bool isAlphaEnabled() const;

    // Events

    /// The user tries another color, which a program may show at once; it is chosen when the dialog
    /// ends with `Accepted`.
    TROV::Signal<void(const VXColorDialogEvent2&)> currentColorChanged() const
    {
        return m_emitters.currentColorChanged.signal();
    }

private:
    VXColorDialog2Emitters m_emitters;
};

} // namespace VOXI
