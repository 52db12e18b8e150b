#include "voxi2/modelview/vxsimplepropertyeditorfactory2.h"

#include "voxi2/kernel/vxobject2.h"

namespace VOXI {

VXSimplePropertyEditorFactory2::~VXSimplePropertyEditorFactory2() = default;

void VXSimplePropertyEditorFactory2::commitEditor(VXSimpleProperty2&, unsigned) {}

void VXSimplePropertyEditorFactory2::releaseEditor(unsigned editor)
{
    const VXObjectDataLocker lock;
    if (auto* object = dynamic_cast<VXObject2*>(VXObject::objectById(editor)))
        object->destroy();
}

} // namespace VOXI
