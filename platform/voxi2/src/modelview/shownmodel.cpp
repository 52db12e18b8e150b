#include "voxi2/modelview/shownmodel.h"

#include "voxi2/modelview/vxabstractviewmodel2.h"

namespace VOXI {

void ShownModel::set(const VXAbstractViewModel2* model)
{
    const VXObjectDataLocker lock;
    m_id = VXObject::isObjectValid(model) ? model->id() : 0;
}

VXAbstractViewModel2* ShownModel::get() const
{
    return static_cast<VXAbstractViewModel2*>(VXObject::objectById(m_id));
}

void ShownModel::flush() const
{
    const VXObjectDataLocker lock;
    if (VXAbstractViewModel2* const model = get())
        model->flushChanges();
}

} // namespace VOXI
