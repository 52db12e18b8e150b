#include "voxi2/containers/vxcolordialog2.h"

#include "askbydialog.h"

namespace VOXI {

VXColorDialog2::VXColorDialog2(VXObject2* parent)
    : VXAbstractDialog2(parent),
      m_emitters(VXAbstractDialog2::m_emitters)
{
    // Back ends give all dialogs the same flags, whatever is asked for here.
    createPeer(&VXFactory2::createColorDialog2, this, &m_emitters, parent, 0u);
}

VXColorDialog2::~VXColorDialog2() { retire(); }

std::optional<Color> VXColorDialog2::ask(VXObject2* parent, const Color& color, bool withAlpha,
                                         const AnyText& title)
{
    using Dialog = VXHandle<VXColorDialog2>;
    const auto prepare = [&](const Dialog& dialog) {
        dialog->setAlphaEnabled(withAlpha);
        dialog->setCurrentColor(color);
    };
    return askByDialog<VXColorDialog2>(parent, title, prepare,
                                       [](const Dialog& dialog) { return dialog->currentColor(); });
}

void VXColorDialog2::setCurrentColor(const Color& color) { m_emitters.setCurrentColor(color); }
Color VXColorDialog2::currentColor() const { return m_emitters.getCurrentColor(); }
void VXColorDialog2::setAlphaEnabled(bool enabled) { m_emitters.setAlphaEnabled(enabled); }
bool VXColorDialog2::isAlphaEnabled() const { return m_emitters.isAlphaEnabled(); }

} // namespace VOXI
