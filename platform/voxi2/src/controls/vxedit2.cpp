#include "voxi2/controls/vxedit2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXEdit2::VXEdit2(VXObject2* parent) : VXEdit2(AnyText(), parent) {}

VXEdit2::VXEdit2(const AnyText& text, VXObject2* parent)
    : VXAbstractEdit2(parent),
      m_emitters(VXAbstractEdit2::m_emitters)
{
    createPeer(text, &VXEdit2::setText, &VXFactory2::createEdit2, this, &m_emitters, parent);
}

VXEdit2::~VXEdit2() { retire(); }

void VXEdit2::setEcho(TextEcho echo) { m_emitters.setEcho(echo); }
TextEcho VXEdit2::echo() const { return m_emitters.getEcho(); }
void VXEdit2::setAlignment(Alignment alignment) { m_emitters.setAlignment(alignment); }
Alignment VXEdit2::alignment() const { return m_emitters.getAlignment(); }
void VXEdit2::setFlat(bool flat) { m_emitters.setFlat(flat); }
bool VXEdit2::isFlat() const { return m_emitters.isFlat(); }
void VXEdit2::setClearButtonVisible(bool visible) { m_emitters.setClearButtonVisible(visible); }
bool VXEdit2::isClearButtonVisible() const { return m_emitters.isClearButtonVisible(); }

void VXEdit2::addSideAction(VXAction2* action, EditSide side)
{
    m_emitters.addSideAction(notNull(this, action), side);
}

void VXEdit2::removeSideAction(VXAction2* action) { m_emitters.removeSideAction(action); }
void VXEdit2::setMaximumLength(int length) { m_emitters.setMaximumLength(length); }
int VXEdit2::maximumLength() const { return m_emitters.getMaximumLength(); }
void VXEdit2::setInputMask(const std::wstring& mask) { m_emitters.setInputMask(mask); }
std::wstring VXEdit2::inputMask() const { return m_emitters.getInputMask(); }
void VXEdit2::setValidator(const TextValidator& validator) { m_emitters.setValidator(validator); }
TextValidator VXEdit2::validator() const { return m_emitters.getValidator(); }
bool VXEdit2::isAcceptable() const { return m_emitters.isAcceptable(); }
void VXEdit2::setCompletion(const TextCompletion& completion)
{
    m_emitters.setCompletion(completion);
}
TextCompletion VXEdit2::completion() const { return m_emitters.getCompletion(); }
void VXEdit2::imitateReturn() { m_emitters.pressReturn(); }

} // namespace VOXI
