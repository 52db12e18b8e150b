#include "voxi2/containers/vxfontdialog2.h"

#include "voxi2/kernel/vxhandle.h"

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
    VXHandle<VXFontDialog2> dialog;
    {
        // While a worker waits for the peer the parent may end, and the dialog with it.
        const VXObjectDataLocker lock;
        const BuildScope scope;
        if (!parent || isObjectValid(parent))
            dialog = new VXFontDialog2(parent);
    }
    if (!title.isEmpty())
        dialog->setTitle(title);
    dialog->setCurrentFont(font);
    std::optional<VXFont> chosen;
    if (dialog->exec() == Accepted)
        chosen = dialog->currentFont();
    dialog->destroy();
    return chosen;
}

void VXFontDialog2::setCurrentFont(const VXFont& font) { m_emitters.setCurrentFont(font); }
VXFont VXFontDialog2::currentFont() const { return m_emitters.getCurrentFont(); }

} // namespace VOXI
