#include "voxi2/containers/vxdialog2.h"

namespace VOXI {

VXDialog2::VXDialog2(VXObject2* parent) : VXDialog2(AnyText(), parent) {}

VXDialog2::VXDialog2(const AnyText& title, VXObject2* parent)
    : VXAbstractDialog2(parent),
      m_emitters(VXAbstractDialog2::m_emitters)
{
    // Back ends give all dialogs the same flags, whatever is asked for here.
    createPeer(title, &VXDialog2::setTitle, &VXFactory2::createDialog2, this, &m_emitters, parent,
               0u);
}

VXDialog2::~VXDialog2() { retire(); }
void VXDialog2::setDefaultButton(VXButton2* button) { m_emitters.setDefaultButton(button); }
VXButton2* VXDialog2::defaultButton() const { return m_emitters.getDefaultButton(); }
void VXDialog2::setSizeGripEnabled(bool enabled) { m_emitters.setSizeGripEnabled(enabled); }
bool VXDialog2::isSizeGripEnabled() const { return m_emitters.isSizeGripEnabled(); }

} // namespace VOXI
