#include "voxi2/containers/vxabstractdialog2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXAbstractDialog2::VXAbstractDialog2(VXObject2* parent)
    : VXAbstractWindow2(parent),
      m_emitters(VXAbstractWindow2::m_emitters)
{}

VXAbstractDialog2::~VXAbstractDialog2() { retire(); }
void VXAbstractDialog2::setModal(bool modal) { m_emitters.setModal(modal); }
bool VXAbstractDialog2::isModal() const { return m_emitters.isModal(); }
void VXAbstractDialog2::open() { m_emitters.open(); }
int VXAbstractDialog2::exec() { return m_emitters.exec(); }
void VXAbstractDialog2::accept() { m_emitters.accept(); }
void VXAbstractDialog2::reject() { m_emitters.reject(); }
void VXAbstractDialog2::done(int result) { m_emitters.done(result); }
int VXAbstractDialog2::result() const { return m_emitters.getResult(); }

void VXAbstractDialog2::setButtonResult(VXAbstractButton2* button, int result)
{
    m_emitters.setButtonResult(notNull(this, button), result);
}

void VXAbstractDialog2::unsetButtonResult(VXAbstractButton2* button)
{
    m_emitters.unsetButtonResult(button);
}

std::vector<MessageAnswer> VXAbstractDialog2::buttonOrder(VXFlags<MessageAnswer> answers) const
{
    return m_emitters.getButtonOrder(answers);
}

} // namespace VOXI
