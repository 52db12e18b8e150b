#include "voxi2/containers/vxfontdialog2.h"

#include "askbydialog.h"

namespace VOXI {

VXFontDialog2::VXFontDialog2(VXObject2* parent)
    : VXAbstractDialog2(parent),
      m_emitters(VXAbstractDialog2::m_emitters)
{
    // Back ends give all dialogs the same flags, whatever is asked for here.
    createPeer(&VXFactory2::createFontDialog2, this, &m_emitters, parent, 0u);
}

VXFontDialog2::~VXFontDialog2() { retire(); }

std::optional<VXFont> VXFontDialog2::ask(VXObject2* parent, const VXFont& font,
                                         const AnyText& title)
{
    using Dialog = VXHandle<VXFontDialog2>;
    const auto prepare = [&](const Dialog& dialog) { dialog->setCurrentFont(font); };
    return askByDialog<VXFontDialog2>(parent, title, prepare,
                                      [](const Dialog& dialog) { return dialog->currentFont(); });
}

void VXFontDialog2::setCurrentFont(const VXFont& font) { m_emitters.setCurrentFont(font); }
VXFont VXFontDialog2::currentFont() const { return m_emitters.getCurrentFont(); }

} // namespace VOXI
